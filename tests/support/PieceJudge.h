// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/support/Crossings.h"
#include "tests/support/SurfaceEdges.h"
#include "tests/support/WindingField.h"

#include <functional>
#include <map>
#include <memory>
#include <optional>
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
    /// Of partitions: where that holds; everywhere if empty. Beside the faces of a cut with
    /// connectors there is a gap.
    std::function<bool(UPoint3<double> const& point)> doesAddUpAt = {};
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
    std::map<EdgeEnds, std::size_t> const& unpaired() const { return m_unpaired; }
    /// The surface put in order, where it has unpaired edges; else as it is. Winding numbers are
    /// those of this one.
    WindingField const& ordered() const { return m_ordered ? *m_ordered : m_field; }
    bool isClosedInOrder() const { return m_isClosedInOrder; }
    /// How many layers there may be more, or fewer, than the surface in order has: those of
    /// triangles that lie there twice and do not close. Where a shell is there twice but for a
    /// triangle, a piece that the opening does not reach has both layers by right, for it closes,
    /// and the other has one. Such a shell takes up more than half of what can be seen from within,
    /// and a double that bounds nothing less.
    int layersInDoubtAt(UPoint3<double> const& p) const;
    double diagonal() const;
    /// Points nearer to a surface than this are judged by nobody.
    double margin() const;

private:
    WindingField m_field;
    SurfaceEdges m_edges;
    Crossings m_crossings;
    std::map<EdgeEnds, std::size_t> m_unpaired;
    std::unique_ptr<WindingField> m_ordered;
    /// What is left out of it; null where that is nothing.
    std::unique_ptr<WindingField> m_surplus;
    bool m_isClosedInOrder;
    bool m_hasLayers;
};

/// Faults in words; empty where there are none.
struct PieceFaults
{
    /// A point that is solid in the wrong piece, in two, or in none; a piece too few or too many.
    std::string wrong;
    /// Edges without partner that do not lie on one of the source's. Edges of three triangles, at
    /// which walls end, are none if the source has walls.
    std::string open;
    /// Of a source without such things: crossings, edges of four triangles, triangles of no area.
    std::string flawed;

    bool isNone() const { return wrong.empty() && open.empty() && flawed.empty(); }
};

/// pieces    in the order of the rule; one that the operation did not write stays empty
/// samples   points at random and as many beside the surfaces, of the source and of the pieces
///
/// Where the source has unpaired edges, it and the pieces are put in order first. Where that does
/// not give all of them an inside, only partitions are judged at points.
PieceFaults faultsOf(Source const& source, std::vector<Soup> const& pieces, Rule const& rule,
                     std::size_t samples);

}  // namespace judge
