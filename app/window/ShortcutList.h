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
    using Preset = Base::NavigationStyle::Preset;

    /// preset  what the buttons of the mouse do in the view
    ShortcutList(Base::CommandManager const& manager, Preset preset, QWidget* parent);

private:
    void addCommands(Base::CommandManager const& manager);
    void addMouse(Preset preset);
    void filter(QString const& text);

    QTreeWidget* m_list;
};
