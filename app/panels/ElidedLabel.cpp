// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/panels/ElidedLabel.h"

#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>

ElidedLabel::ElidedLabel(QWidget* parent) : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
}

bool ElidedLabel::isCut() const
{
    return textFormat() == Qt::PlainText &&
           fontMetrics().horizontalAdvance(text()) > contentsRect().width();
}

bool ElidedLabel::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip || !isCut())
        return QLabel::event(event);
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), text(), this);
    return true;
}

void ElidedLabel::paintEvent(QPaintEvent* event)
{
    if (!isCut()) {
        QLabel::paintEvent(event);
        return;
    }
    QPainter painter(this);
    QString const shown = fontMetrics().elidedText(text(), Qt::ElideRight, contentsRect().width());
    style()->drawItemText(&painter, contentsRect(),
                          int(QStyle::visualAlignment(layoutDirection(), alignment())), palette(),
                          isEnabled(), shown, foregroundRole());
}
