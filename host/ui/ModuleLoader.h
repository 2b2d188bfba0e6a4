// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/ui/AppModule.h"

#include <QString>

#include <memory>

/// Loads a module's library, lets it enter its classes and commands, and makes the module. The
/// Application must exist. The library stays loaded until the program ends.
///
/// library    path, with or without the system's prefix and suffix
/// className  the module's class, which the library enters
/// throws     Mell::Exception that names the library and what it lacks. Entering happens once per
///            library, however often the function is called.
/// thread     the user interface thread
std::unique_ptr<AppModule> loadModule(QString const& library,
                                      char const* className = "OrbeFreecut");

/// The same for a module that is linked into the program.
///
/// initialise  the module's `initDLLModule`, called once per class name
std::unique_ptr<AppModule> startModule(void (*initialise)(), char const* className = "OrbeFreecut");
