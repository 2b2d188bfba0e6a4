// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/services/Intersect.h"
#include "tests/support/BooleanJudge.h"

/// One operation from soups to a soup.
Soup combined(Soup const& a, Soup const& b, Intersect::BooleanType type);
/// The two pieces of a split: a within b, a less b.
std::pair<Soup, Soup> split(Soup const& a, Soup const& b);
/// All operations.
BooleanPieces booleansOf(Soup const& a, Soup const& b);
