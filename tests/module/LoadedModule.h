// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/ui/Command.h"
#include "platform/ui/CommandManager.h"
#include "tests/support/Places.h"
#include "tests/support/TestDocument.h"

#include <QLibrary>

#include <string>

/// The plug-in, loaded at run time and entered as a host does it, in an application of its own.
class LoadedModule
{
public:
    LoadedModule() : library(QString::fromStdString(builtPath("libMellTriangleCut.so")))
    {
        using Entry = void (*)();
        if (auto const entry = reinterpret_cast<Entry>(library.resolve("initDLLModule"))) {
            entry();
            isEntered = true;
        }
    }

    Base::Command* command(std::string const& name) const
    {
        return test.application.commandManager().getCommandByName(name);
    }

    QLibrary library;
    TestDocument test;
    bool isEntered = false;
};
