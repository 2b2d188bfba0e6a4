// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMenu>

/// A menu that shows the tool tips of its actions, so that a disabled one can say why it is.
class OrbeMenu : public QMenu
{
    Q_OBJECT

public:
    explicit OrbeMenu(QWidget* parent = nullptr);
    explicit OrbeMenu(QString const& title, QWidget* parent = nullptr);
};
