// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/ui/OrbeMenu.h"

OrbeMenu::OrbeMenu(QWidget* parent) : OrbeMenu(QString(), parent) {}

OrbeMenu::OrbeMenu(QString const& title, QWidget* parent) : QMenu(title, parent)
{
    setToolTipsVisible(true);
}
