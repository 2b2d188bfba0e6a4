// SPDX-License-Identifier: GPL-3.0-or-later
#include "module/DialogCommands.h"

#include "dialogs/DialogSectioncut.h"
#include "platform/document/MeshDocument.h"
#include "platform/ui/Application.h"
#include "platform/ui/DialogWindowManager.h"

bool DialogCommand::isActive()
{
    Mesh::Document const* const document = activeMeshDocument();
    return document && !document->getMeshObjects().empty();
}

void CmdPlanecut::activated(int)
{
    constexpr char const* name = "DialogSectioncut";
    Base::Document* const document =
        Application::Instance ? Application::Instance->activeDocument() : nullptr;
    DialogWindowManager& dialogs = *DialogWindowManager::instance();
    DialogWidget* open = dialogs.getDialogWindow(name);
    if (!open) {
        if (!document)
            return;
        open = dialogs.creatDialogWindow(name, Freecut::DialogSectioncut::create);
        if (!open)
            return;
        static_cast<Freecut::DialogSectioncut*>(open)->setModuleName(document->getName());
        static_cast<Freecut::DialogSectioncut*>(open)->setDocument(document);
    }
    dialogs.activateDialog(open);
    static_cast<Freecut::DialogSectioncut*>(open)->initializeFromCutView();
}

void CmdPolygoncut::activated(int) {}
