// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/ui/MellGridLayout.h"
#include "platform/ui/MellHBoxLayout.h"
#include "platform/ui/MellVBoxLayout.h"
#include "platform/ui/Theme.h"

MellGridLayout::MellGridLayout(QWidget* parent) : QGridLayout(parent)
{
    setContentsMargins(0, 0, 0, 0);
    setSpacing(themePixels("layoutSpacing"));
}

MellHBoxLayout::MellHBoxLayout(QWidget* parent) : QHBoxLayout(parent)
{
    setContentsMargins(0, 0, 0, 0);
    setSpacing(themePixels("layoutSpacing"));
}

MellVBoxLayout::MellVBoxLayout(QWidget* parent) : QVBoxLayout(parent)
{
    setContentsMargins(0, 0, 0, 0);
    setSpacing(themePixels("layoutSpacing"));
}
