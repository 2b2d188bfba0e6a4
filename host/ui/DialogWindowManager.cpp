// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/ui/DialogWindowManager.h"

#include "host/ui/DialogPlace.h"
#include "platform/ui/DialogWidgetOneOff.h"
#include "platform/ui/MainWindow.h"

DialogWindowManager* DialogWindowManager::instance()
{
    static DialogWindowManager manager;
    return &manager;
}

DialogWidget* DialogWindowManager::getDialogWindow(char const* name) const
{
    for (Entry const& entry : m_entries)
        if (entry.name == QString::fromUtf8(name))
            return entry.dialog;
    return nullptr;
}

DialogWidget* DialogWindowManager::creatDialogWindow(QString name, void* (*create)(QWidget*))
{
    if (DialogWidget* const open = getDialogWindow(name.toUtf8().constData()))
        return open;
    MainWindow* const window = MainWindow::getInstance();
    auto* const dialog = static_cast<DialogWidget*>(create(window));
    if (!dialog)
        return nullptr;
    m_entries.push_back({name, dialog});
    connect(dialog, &QObject::destroyed, this, [this, dialog] { forget(dialog); });
    if (auto* const oneOff = qobject_cast<DialogWidgetOneOff*>(dialog))
        connect(oneOff, &DialogWidgetOneOff::signalDestructed, this,
                [this, dialog] { forget(dialog); });
    if (window)
        new DialogPlace(name, dialog, window);
    return dialog;
}

void DialogWindowManager::activateDialog(DialogWidget* dialog)
{
    if (!dialog)
        return;
    dialog->slotMainPageVisible(true);
    if (auto* const place = dialog->findChild<DialogPlace*>())
        place->bringUp();
    dialog->show();
    dialog->raise();
    if (dialog->isWindow())
        dialog->activateWindow();
    else
        dialog->setFocus(Qt::OtherFocusReason);
}

std::vector<DialogWidget*> DialogWindowManager::openDialogs() const
{
    std::vector<DialogWidget*> result;
    for (Entry const& entry : m_entries)
        result.push_back(entry.dialog);
    return result;
}

bool DialogWindowManager::closeAll()
{
    bool areClosed = true;
    for (DialogWidget* const dialog : openDialogs())
        areClosed = dialog->close() && areClosed;
    return areClosed;
}

void DialogWindowManager::forget(DialogWidget const* dialog)
{
    std::erase_if(m_entries, [dialog](Entry const& entry) { return entry.dialog == dialog; });
}
