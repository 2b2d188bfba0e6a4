// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/formats/Facet.h"

#include <cstddef>
#include <string_view>
#include <vector>

namespace Formats {

/// Facets of an ASCII STL file, taken from its text.
struct AsciiFacets
{
    /// The statements of a facet stand on seven lines.
    static constexpr std::size_t linesPerFacet = 7;

    /// Of finite coordinates.
    std::vector<Facet> facets;
    /// What of the text they take, from its start.
    std::size_t bytes = 0;

    std::size_t count() const { return facets.size(); }
};

/// Takes facets from the start of a text as long as they are written in the way of most programs:
/// a statement on each line, keywords in lower case, decimal numbers. Stops before the first facet
/// that is not, or that is not there as a whole, and leaves it to a reader that knows the whole
/// grammar. The text begins where a line begins. Large texts are read on several threads.
AsciiFacets scanAsciiFacets(std::string_view text);

}  // namespace Formats
