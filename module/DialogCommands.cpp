// SPDX-License-Identifier: GPL-3.0-or-later
#include "module/DialogCommands.h"

#include "dialogs/DialogPolygoncut.h"
#include "dialogs/DialogSectioncut.h"
#include "platform/document/MeshDocument.h"
#include "platform/ui/ActiveDocument.h"
#include "platform/ui/DialogWindowManager.h"

bool DialogCommand::isActive()
{
    Mesh::Document const* const document = activeMeshDocument();
    return document && !document->getMeshObjects().empty();
}

namespace {

/// Opens a dialog on the active document, or brings it in front; null if there is none to show.
template <typename Dialog>
Dialog* openDialog(char const* name)
{
    Base::Document* const document = activeDocument();
    DialogWindowManager& dialogs = *DialogWindowManager::instance();
    DialogWidget* open = dialogs.getDialogWindow(name);
    if (!open) {
        if (!document)
            return nullptr;
        open = dialogs.creatDialogWindow(name, Dialog::create);
        if (!open)
            return nullptr;
        static_cast<Dialog*>(open)->setModuleName(document->getName());
        static_cast<Dialog*>(open)->setDocument(document);
    }
    dialogs.activateDialog(open);
    return static_cast<Dialog*>(open);
}

}  // namespace

void CmdPlanecut::activated(int)
{
    if (auto* const dialog = openDialog<Freecut::DialogSectioncut>("DialogSectioncut"))
        dialog->initializeFromCutView();
}

void CmdPolygoncut::activated(int)
{
    openDialog<Freecut::DialogPolygoncut>("DialogPolygoncut");
}
