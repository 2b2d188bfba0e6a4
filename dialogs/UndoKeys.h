// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

class QWidget;

namespace Freecut {

/// Lets the keys for undo and redo go through the number fields of a window to the main window,
/// where they mean the last edit, unless something is being typed, which they take back as ever.
/// A child of the window.
class UndoKeys : public QObject
{
public:
    /// The fields are those that the window has by now.
    explicit UndoKeys(QWidget& window);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace Freecut
