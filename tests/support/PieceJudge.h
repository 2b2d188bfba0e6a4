// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/support/Crossings.h"
#include "tests/support/SurfaceEdges.h"
#include "tests/support/WindingField.h"

#include <functional>
#include <optional>
#include <set>
#include <string>
#include <vector>

/// Judges the pieces of an operation by winding numbers at points. It shares no code with the
/// services.
namespace judge {

/// Winding numbers from `low` to `high`.
struct Allowed
{
    int low = 0;
    int high = 0;
};

/// What has to hold of the pieces at a point.
struct Expected
{
    std::vector<Allowed> pieces;
    /// The most that they may wind around it together.
    int most = 0;
};

/// What has to hold of the pieces of a part.
struct Rule
{
    /// At a point around which the part winds so often; none where nothing is known, as beside a
    /// facetted circle.
    std::function<std::optional<Expected>(UPoint3<double> const& point, int winding)> at;
    /// The pieces' surfaces add up to the part's, new faces twice and opposite: then the pieces
    /// wind around each point together as the part does, whether it is closed or not.
    bool isPartition = true;
};

/// How often something may wind where the source does `winding` times: as often, or once where
/// crossings have been resolved.
Allowed solidAs(int winding);

/// A part before an operation, with what judging asks of it time and again.
class Source
{
public:
    explicit Source(Soup soup);

    Soup const& soup() const { return m_field.soup(); }
    WindingField const& field() const { return m_field; }
    SurfaceEdges const& edges() const { return m_edges; }
    Crossings const& crossings() const { return m_crossings; }
    /// It crosses itself or winds more than once around some point: then its cut faces lie upon
    /// each other.
    bool hasLayers() const { return m_hasLayers; }
    std::set<EdgeEnds> const& unpaired() const { return m_unpaired; }
    double diagonal() const;
    /// Points nearer to a surface than this are judged by nobody.
    double margin() const;

private:
    WindingField m_field;
    SurfaceEdges m_edges;
    Crossings m_crossings;
    std::set<EdgeEnds> m_unpaired;
    bool m_hasLayers;
};

/// Faults in words; empty where there are none.
struct PieceFaults
{
    /// A point that is solid in the wrong piece, in two, or in none; a piece too few or too many.
    std::string wrong;
    /// Edges without partner that the source does not have.
    std::string open;
    /// Of a source without such things: crossings, edges of four triangles, triangles of no area.
    std::string flawed;

    bool isNone() const { return wrong.empty() && open.empty() && flawed.empty(); }
};

/// pieces    in the order of the rule; one that the operation did not write stays empty
/// samples   points at random and as many beside the surfaces, of the source and of the pieces
///
/// Where the source has unpaired edges there is no inside; then only partitions are judged at
/// points.
PieceFaults faultsOf(Source const& source, std::vector<Soup> const& pieces, Rule const& rule,
                     std::size_t samples);

}  // namespace judge
