// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/cli/FreecutProcess.h"
#include "tests/support/MeshBuilders.h"

#include <string>
#include <vector>

/// A folder with a block of 40 x 30 x 20 mm.
struct BlockFolder : FreecutFolder
{
    BlockFolder() { addStl(box(40, 30, 20), "block.stl"); }
};

/// The cut of files by the plane through the middle of the block.
inline std::vector<std::string> sectionOf(std::vector<std::string> const& files,
                                          std::vector<std::string> const& more = {})
{
    std::vector<std::string> arguments = {"section"};
    arguments.insert(arguments.end(), files.begin(), files.end());
    arguments.insert(arguments.end(), {"--center", "20,15,10", "--normal", "0,0,1"});
    arguments.insert(arguments.end(), more.begin(), more.end());
    return arguments;
}
