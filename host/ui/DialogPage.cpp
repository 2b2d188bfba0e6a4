// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/ui/DialogPage.h"

#include "platform/ui/Theme.h"

#include <QEvent>
#include <QScrollBar>
#include <QVBoxLayout>

#include <algorithm>

DialogPage::DialogPage(QWidget* parent) : QScrollArea(parent), m_contentLayout(new QVBoxLayout)
{
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::NoFocus);
    auto* const content = new QWidget(this);
    auto* const column = new QVBoxLayout(content);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    m_contentLayout->setContentsMargins(0, 0, 0, 0);
    m_contentLayout->setSpacing(0);
    column->addLayout(m_contentLayout);
    column->addStretch(1);
    setWidget(content);
    // The dialog's ground shows through.
    viewport()->setAutoFillBackground(false);
    content->setAutoFillBackground(false);
    content->installEventFilter(this);
}

QSize DialogPage::sizeHint() const
{
    return widget()->sizeHint();
}

QSize DialogPage::minimumSizeHint() const
{
    QSize const content = widget()->minimumSizeHint();
    return {content.width() + verticalScrollBar()->sizeHint().width(),
            std::min(content.height(), g_pixelSize * 6)};
}

bool DialogPage::eventFilter(QObject* watched, QEvent* event)
{
    bool const result = QScrollArea::eventFilter(watched, event);
    if (watched == widget() && event->type() == QEvent::LayoutRequest)
        updateGeometry();
    return result;
}
