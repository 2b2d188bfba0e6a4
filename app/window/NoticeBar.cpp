// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/window/NoticeBar.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QStyle>
#include <QToolButton>

NoticeBar::NoticeBar(QWidget* parent)
    : QFrame(parent), m_text(new QLabel(this)), m_close(new QToolButton(this))
{
    setObjectName(QStringLiteral("NoticeBar"));
    setFrameShape(QFrame::StyledPanel);
    m_text->setWordWrap(true);
    m_text->setTextFormat(Qt::PlainText);
    m_text->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_close->setObjectName(QStringLiteral("DismissNotice"));
    m_close->setAutoRaise(true);
    auto* const icon = new QLabel(this);
    int const size = style()->pixelMetric(QStyle::PM_SmallIconSize);
    icon->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxWarning).pixmap(size));
    auto* const row = new QHBoxLayout(this);
    row->addWidget(icon, 0, Qt::AlignTop);
    row->addWidget(m_text, 1);
    row->addWidget(m_close, 0, Qt::AlignTop);
    connect(m_close, &QToolButton::clicked, this, &NoticeBar::dismiss);
    retranslate();
    hide();
}

void NoticeBar::add(QString const& message)
{
    if (m_messages.contains(message))
        return;
    m_messages << message;
    m_text->setText(m_messages.join('\n'));
    show();
}

QString NoticeBar::text() const
{
    return m_messages.join('\n');
}

void NoticeBar::dismiss()
{
    m_messages.clear();
    hide();
}

void NoticeBar::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QFrame::changeEvent(event);
}

void NoticeBar::retranslate()
{
    m_close->setText(tr("Dismiss"));
}
