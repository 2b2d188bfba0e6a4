// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/ui/UnitLineEdit.h"

#include "platform/ui/Theme.h"

#include <QEvent>
#include <QPainter>

void UnitLineEdit::setUnitText(QString const& text)
{
    m_unitText = text;
    makeRoom();
    update();
}

void UnitLineEdit::makeRoom()
{
    int const width = fontMetrics().horizontalAdvance(m_unitText) + g_pixelSize / 4;
    setTextMargins(0, 0, m_unitText.isEmpty() ? 0 : width, 0);
}

void UnitLineEdit::paintEvent(QPaintEvent* event)
{
    QLineEdit::paintEvent(event);
    if (m_unitText.isEmpty())
        return;
    QPainter painter(this);
    painter.setPen(themeColor(isEnabled() ? "mutedText" : "disabledText"));
    // Two pixels as between a line edit's frame and its text.
    painter.drawText(rect().adjusted(0, 0, -2, 0), Qt::AlignRight | Qt::AlignVCenter, m_unitText);
}

void UnitLineEdit::changeEvent(QEvent* event)
{
    QLineEdit::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        makeRoom();
}
