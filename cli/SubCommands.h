// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

class Caller;
namespace CLI {
class App;
}

/// What a sub-command does once the command line is understood. Returns the exit status; failures
/// are exceptions, which whoever calls it turns into a message.
using Action = std::function<int(Caller&)>;

// Each adds its sub-command with its options and help to the command line, and sets `action` when
// it was chosen. The options live as long as the action.
void addInfo(CLI::App& commandLine, Action& action);
void addZCut(CLI::App& commandLine, Action& action);
void addSection(CLI::App& commandLine, Action& action);
void addBoolean(CLI::App& commandLine, Action& action);
void addRepair(CLI::App& commandLine, Action& action);
void addConvert(CLI::App& commandLine, Action& action);
/// Many of the others at once; the command line must outlive the action.
void addBatch(CLI::App& commandLine, Action& action);
/// What shells and readers want to know of the command line itself; it must outlive the action.
void addCompletion(CLI::App& commandLine, Action& action);
void addManual(CLI::App& commandLine, Action& action);
/// The cuts by solid tools: polygon, cylinder and cuboid.
void addTools(CLI::App& commandLine, Action& action);

/// Whether one of the latter was chosen: it draws in a view, so it takes an application with
/// widgets.
bool isToolChosen(CLI::App const& commandLine);
