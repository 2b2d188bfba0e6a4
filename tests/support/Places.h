// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

/// Where things lie on this machine. Only one file is compiled with these paths, so that a compiler cache
/// serves every copy of the sources.

/// A file of the sources, named from their root.
std::string sourcePath(std::string const& name);

/// A program or library of this build.
std::string builtPath(std::string const& name);

/// A picture for looking at, in a folder of the build, which is made if it is not there.
std::string picturePath(std::string const& name);

/// A real model, or a folder of them, whether it is there or not.
std::string realModelPath(std::string const& name);
