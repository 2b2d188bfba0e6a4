// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/UndoKeys.h"

#include <QAbstractSpinBox>
#include <QKeyEvent>
#include <QLineEdit>

namespace Freecut {

namespace {

bool isBeingTyped(QObject* field)
{
    auto const* edit = qobject_cast<QLineEdit*>(field);
    if (!edit)
        edit = field->findChild<QLineEdit*>();
    return edit && edit->isModified();
}

}  // namespace

UndoKeys::UndoKeys(QWidget& window) : QObject(&window)
{
    for (QAbstractSpinBox* const field : window.findChildren<QAbstractSpinBox*>()) {
        field->installEventFilter(this);
        for (QLineEdit* const edit : field->findChildren<QLineEdit*>())
            edit->installEventFilter(this);
    }
}

bool UndoKeys::eventFilter(QObject* watched, QEvent* event)
{
    // Before a shortcut works the widget with the focus is asked whether it wants the keys.
    bool const isKey =
        event->type() == QEvent::ShortcutOverride || event->type() == QEvent::KeyPress;
    if (isKey) {
        auto const& key = *static_cast<QKeyEvent*>(event);
        bool const isOurs = key.matches(QKeySequence::Undo) || key.matches(QKeySequence::Redo);
        if (isOurs && !isBeingTyped(watched)) {
            event->ignore();
            return true;
        }
    }
    return QObject::eventFilter(watched, event);
}

}  // namespace Freecut
