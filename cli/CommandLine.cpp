// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/CommandLine.h"

#include "cli/Caller.h"
#include "cli/Failure.h"

#include <CLI/App.hpp>

void addCommands(CLI::App& commandLine, Action& action)
{
    commandLine.require_subcommand(1);
    addInfo(commandLine, action);
    addZCut(commandLine, action);
    addSection(commandLine, action);
    addBoolean(commandLine, action);
    addTools(commandLine, action);
    addRepair(commandLine, action);
    addConvert(commandLine, action);
    addBatch(commandLine, action);
    addCompletion(commandLine, action);
    addManual(commandLine, action);
}

int runFor(Caller& caller, Action const& action)
{
    try {
        return action(caller);
    } catch (...) {
        Failure const failure = failureInFlight();
        caller.complain(failure.message);
        return failure.status;
    }
}
