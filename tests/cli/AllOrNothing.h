// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/cli/FreecutProcess.h"

/// Asks a command that writes into the folder "pieces" to end, at many moments between its first read
/// byte and its last written one: it must leave all pieces or none, and nothing else.
void expectAllOrNothing(FreecutFolder& folder, std::vector<std::string> const& arguments);
