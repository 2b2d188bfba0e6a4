// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <string_view>
#include <vector>

/// The lines of a word in capitals, as pairs of points around the origin; a letter is 4 wide and 6
/// high, the next one begins 6 further on. Letters that no standard view needs leave a gap.
std::vector<std::array<double, 2>> strokesOf(std::string_view word);
