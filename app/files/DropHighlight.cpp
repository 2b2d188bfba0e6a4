// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/files/DropHighlight.h"

#include <QPainter>

DropHighlight::DropHighlight(QWidget& over) : QWidget(&over)
{
    setObjectName(QStringLiteral("DropHighlight"));
    setAttribute(Qt::WA_TransparentForMouseEvents);
    hide();
}

void DropHighlight::setFiles(int count)
{
    m_count = count;
    setVisible(count > 0);
    if (count == 0)
        return;
    setGeometry(parentWidget()->rect());
    raise();
    update();
}

void DropHighlight::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QColor fill = palette().color(QPalette::Highlight);
    int const width = std::max(3, fontMetrics().height() / 4);
    painter.setPen(QPen(fill, width));
    fill.setAlphaF(0.18);
    painter.setBrush(fill);
    painter.drawRect(rect().adjusted(width / 2, width / 2, -width / 2 - 1, -width / 2 - 1));

    QFont font = painter.font();
    font.setBold(true);
    painter.setFont(font);
    QString const text = tr("Let go to open %n files", nullptr, m_count);
    int const margin = fontMetrics().height();
    QRect note = painter.boundingRect(rect(), Qt::AlignCenter, text)
                     .adjusted(-margin, -margin / 2, margin, margin / 2);
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette().color(QPalette::Highlight));
    painter.drawRoundedRect(note, margin / 3.0, margin / 3.0);
    painter.setPen(palette().color(QPalette::HighlightedText));
    painter.drawText(note, Qt::AlignCenter, text);
}
