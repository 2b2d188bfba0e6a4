// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "display/RegisterViewProviders.h"
#include "module/Commands.h"
#include "platform/ui/CommandManager.h"
#include "platform/ui/MainWindow.h"
#include "platform/view/MeshGLView.h"
#include "selection/RegisterSelections.h"
#include "tests/support/AnsweredMessages.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/ScratchSettings.h"
#include "tests/support/TestDocument.h"
#include "tests/support/WaitUntil.h"

/// A main window with a view from above on one document of parts, with the commands of the plug-in
/// and settings of its own. Nothing of it is shown.
class DialogScene
{
public:
    DialogScene()
    {
        registerCommands(test.application.commandManager());
        Freecut::registerViewProviders();
        Freecut::registerSelections();
        view.resize(400, 300);
        view.getCamera()->set_screen(400, 300);
        view.setDocument(test.document);
        view.OnViewType(2);
        window.setActiveGLView(&view);
    }
    ~DialogScene()
    {
        window.setActiveGLView(nullptr);
        view.setDocument(nullptr);
    }

    ScratchSettings settings;
    TestDocument test;
    MainWindow window;
    Mesh::GLView view;
};
