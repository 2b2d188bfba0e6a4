// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/ui/SeparateLine.h"

#include "platform/ui/Theme.h"

#include <QPainter>

SeparateLine::SeparateLine(QWidget* parent) : QFrame(parent)
{
    setFrameShape(QFrame::HLine);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

QSize SeparateLine::sizeHint() const
{
    return {0, 1};
}

void SeparateLine::paintEvent(QPaintEvent*)
{
    QPainter(this).fillRect(0, height() / 2, width(), 1, themeColor("border"));
}
