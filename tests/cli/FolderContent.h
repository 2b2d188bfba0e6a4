// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/cli/FreecutProcess.h"

/// The names of all files in a folder of it, each with what is in the file.
inline std::string contentOf(FreecutFolder const& place, std::string const& folder)
{
    std::string all;
    for (std::string const& name : place.files(folder))
        all += name + '\n' + place.read(folder + '/' + name);
    return all;
}
