// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/support/Soup.h"

#include <optional>
#include <vector>

/// Winding numbers of a small mesh by lines along z: some nanoseconds for a triangle and a point.
/// Shares no code with the services.
class QuickField
{
public:
    /// margin  points nearer to the surface than this are told nothing about
    QuickField(Soup const& soup, double margin);

    /// Nothing near the surface, or where the line passes an edge so near.
    std::optional<int> windingAt(UPoint3<double> const& point) const;

private:
    struct Facet
    {
        double x[3], y[3], z[3];
        /// The margin times the length of each side as it is seen along z.
        double beside[3];
        /// The margin times twice the area.
        double above;
    };
    std::vector<Facet> m_facets;
};
