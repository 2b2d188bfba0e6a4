// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/ui/DialogWidget.h"

#include <QString>

#include <vector>

/// Keeps the open dialogs by name and places them: in the main window they lie over the view at its
/// left or right edge, where the user drags them, or, pinned, take a dock area of their own at that
/// edge. Each comes up where it was last. Without a main window they are windows.
class DialogWindowManager : public QObject
{
    Q_OBJECT

public:
    static DialogWindowManager* instance();

    /// The open dialog of that name, or null. A dialog that is not one-off stays open while it is
    /// hidden.
    DialogWidget* getDialogWindow(char const* name) const;

    /// Makes a dialog through its factory and places it; activateDialog() shows it. If one of that
    /// name is open, that one is returned. Null if the factory gives nothing.
    ///
    /// create  gets the parent and returns a new DialogWidget
    DialogWidget* creatDialogWindow(QString name, void* (*create)(QWidget*));

    /// Shows a dialog, unfolded, and brings it in front.
    void activateDialog(DialogWidget* dialog);

    /// The open dialogs, in the order in which they were made.
    std::vector<DialogWidget*> openDialogs() const;
    /// Closes all dialogs as the user would; false if one stays open, because a job runs.
    bool closeAll();

private:
    struct Entry
    {
        QString name;
        DialogWidget* dialog;
    };

    DialogWindowManager() = default;
    void forget(DialogWidget const* dialog);

    std::vector<Entry> m_entries;
};
