// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/view/NavigationStyle.h"

#include <QDialog>

namespace Base {
class CommandManager;
}

class QTreeWidget;

/// All keys that do something: those of the commands, as they are now, and those of the mouse and
/// the view, with a field to search them.
class ShortcutList : public QDialog
{
    Q_OBJECT

public:
    /// mouse  the buttons that turn and move the view
    ShortcutList(Base::CommandManager const& manager, Base::NavigationStyle::Preset mouse,
                 QWidget* parent);

private:
    void addCommands(Base::CommandManager const& manager);
    void addMouse(Base::NavigationStyle::Preset preset);
    void filter(QString const& text);

    QTreeWidget* m_list;
};
