// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/MeshArrays.h"
#include "platform/services/Repair.h"

#include <cstddef>
#include <string>

// How the steps of a repair write down what they did.

/// Adds to what was mended.
void noteMended(Repair::Report& report, Repair::Flaw flaw, std::size_t count,
                MeshArrays::Point const& place);

/// Adds to what was left. Of several reasons the first is told.
void noteLeft(Repair::Report& report, Repair::Flaw flaw, std::size_t count,
              MeshArrays::Point const& place, std::string const& reason);

/// Why something was left: sentences in the language of the application.
namespace reasons {

std::string shapeWouldChange();
std::string open();
std::string insideOut();
std::string gaps();
std::string moreFlaws();
std::string branching();
std::string oneSided();

}  // namespace reasons
