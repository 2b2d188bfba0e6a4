// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/view/NavigationStyle.h"

#include <QDialog>
#include <QKeySequence>

namespace Base {
class Command;
class CommandManager;
}  // namespace Base

class QDialogButtonBox;
class QKeyEvent;
class QLabel;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

/// All keys that do something: those of the commands, and those of the mouse and the view, with a
/// field to search them. A click on a command waits for other keys; those of another command are
/// taken from it when they are pressed twice. Escape ends the waiting.
class ShortcutList : public QDialog
{
    Q_OBJECT

public:
    using Preset = Base::NavigationStyle::Preset;

    /// preset  what the buttons of the mouse do in the view
    ShortcutList(Base::CommandManager const& manager, Preset preset, QWidget* parent);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void addCommands();
    void addMouse(Preset preset);
    QDialogButtonBox* buildButtons();
    void filter(QString const& text);

    Base::Command* commandOf(QTreeWidgetItem const* item) const;
    Base::Command* chosen() const;
    void showKeys();
    void begin(QTreeWidgetItem* item);
    void end();
    void pressed(QKeyEvent const& event);
    void take(QKeySequence const& keys);
    void give(QKeySequence const& keys);

    Base::CommandManager const& m_manager;
    QTreeWidget* m_list;
    QLabel* m_message;
    QPushButton* m_clear = nullptr;
    QPushButton* m_usual = nullptr;
    /// Whose keys are waited for.
    QTreeWidgetItem* m_waiting = nullptr;
    /// What was pressed once and belongs to another command.
    QKeySequence m_refused;
};
