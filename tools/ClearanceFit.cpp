// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/ClearanceFit.h"

#include "tools/PolygonProperty.h"
#include "tools/TeethWalls.h"
#include "tools/VolumeOutline.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <set>

namespace Freecut {

namespace {

/// Outlines have their points on a grid of a thousandth: what is nearer than that touches.
constexpr double touching = 0.0015;
constexpr std::size_t pollEvery = 256;

/// Seen along the direction of a tool.
class FlatView
{
public:
    explicit FlatView(UVector3<float> const& direction)
    {
        UVector3<double> const along(direction.X(), direction.Y(), direction.Z());
        UVector3<double> const least = std::abs(along.X()) < 0.6 * along.GetLength()
                                           ? UVector3<double>(1, 0, 0)
                                           : UVector3<double>(0, 1, 0);
        m_right = (along * least).Normalize();
        m_up = (along * m_right).Normalize();
    }

    FlatPoint seen(UPoint3<float> const& p) const
    {
        UVector3<double> const v(p.X(), p.Y(), p.Z());
        return {v | m_right, v | m_up};
    }
    std::vector<FlatPoint> seen(Ring const& ring) const
    {
        std::vector<FlatPoint> points;
        for (UPoint3<float> const& p : ring)
            points.push_back(seen(p));
        return points;
    }
    std::vector<FlatSegment> sidesOf(Loops const& loops) const
    {
        std::vector<FlatSegment> sides;
        for (Ring const& loop : loops)
            for (std::size_t i = 0; i < loop.size(); ++i)
                sides.push_back({seen(loop[i]), seen(loop[(i + 1) % loop.size()])});
        return sides;
    }

private:
    UVector3<double> m_right;
    UVector3<double> m_up;
};

std::optional<double> leastDistance(std::vector<FlatSegment> const& of,
                                    std::vector<FlatSegment> const& from,
                                    std::function<void()> const& poll)
{
    FlatSegments const others(from);
    if (of.empty() || others.isEmpty())
        return {};
    double least = std::numeric_limits<double>::max();
    for (std::size_t i = 0; i < of.size(); ++i) {
        if (poll && i % pollEvery == 0)
            poll();
        auto const nearest =
            i == 0 ? others.nearestTo(of[i][0]) : others.nearestTo(of[i][0], least);
        if (nearest)
            least = std::min(least, nearest->distance);
    }
    return least;
}

/// The outlines do not cross each other, so one end of what is nearest is a corner.
std::optional<double> gapBetween(std::vector<FlatSegment> const& a,
                                 std::vector<FlatSegment> const& b,
                                 std::function<void()> const& poll)
{
    auto const there = leastDistance(a, b, poll), back = leastDistance(b, a, poll);
    return there && back ? std::optional(std::min(*there, *back)) : std::nullopt;
}

bool hasLost(std::vector<int> const& had, std::vector<int> const& has)
{
    std::set<int> const left(has.begin(), has.end());
    return std::any_of(had.begin(), had.end(),
                       [&](int each) { return each != TeethWalls::none && !left.contains(each); });
}

class Fit
{
public:
    Fit(FitRequest const& request, std::function<void()> const& poll)
        : m_request(request),
          m_poll(poll),
          m_view(request.solids.extrudeVector),
          m_inner(m_view.sidesOf(request.solids.inner)),
          m_outer(m_view.sidesOf(request.solids.outer))
    {}

    ClearanceFit run()
    {
        Loops const& nominal = m_request.nominal;
        SolidLoops const& solids = m_request.solids;
        m_fit.pieceGap = gapBetween(m_inner, m_outer, m_poll);
        m_fit.askedGap = m_request.gap;
        m_fit.closesNeck = !solids.inner.empty() && solids.inner.size() != nominal.size();
        m_fit.closesGap = !solids.outer.empty() && solids.outer.size() != nominal.size();
        lookAtTeeth();
        return m_fit;
    }

private:
    void lookAtTeeth()
    {
        std::vector<std::vector<FlatPoint>> edges;
        for (Ring const& edge : m_request.edges)
            edges.push_back(m_view.seen(edge));
        TeethWalls const walls(edges);
        if (walls.toothCount() == 0)
            return;
        auto const nominal = walls.belongingOf(m_view.sidesOf(m_request.nominal), m_poll);
        for (std::vector<FlatSegment> const* const outline : {&m_inner, &m_outer}) {
            if (outline->empty())
                continue;
            auto const moved = walls.belongingOf(*outline, m_poll);
            m_fit.losesTooth = m_fit.losesTooth || hasLost(nominal.toTooth, moved.toTooth);
            m_fit.closesGap = m_fit.closesGap || hasLost(nominal.toGap, moved.toGap);
            lookAtGaps(walls, *outline, moved);
        }
    }

    void lookAtGaps(TeethWalls const& walls, std::vector<FlatSegment> const& outline,
                    TeethWalls::Belonging const& belonging)
    {
        std::vector<std::vector<FlatSegment>> teeth(std::size_t(walls.toothCount()));
        for (std::size_t i = 0; i < outline.size(); ++i)
            if (int const tooth = belonging.toTooth[i]; tooth != TeethWalls::none)
                teeth[std::size_t(tooth)].push_back(outline[i]);
        for (int tooth = 0; tooth < walls.toothCount(); ++tooth)
            if (walls.haveGap(tooth))
                lookAtGap(walls, tooth, teeth[std::size_t(tooth)], teeth[std::size_t(tooth) + 1]);
    }

    void lookAtGap(TeethWalls const& walls, int tooth, std::vector<FlatSegment> const& before,
                   std::vector<FlatSegment> const& after)
    {
        if (before.empty() || after.empty())
            return;
        if (m_poll)
            m_poll();
        double gap = std::numeric_limits<double>::max();
        for (FlatSegment const& a : before)
            for (FlatSegment const& b : after)
                gap = std::min(gap, distanceBetween(a, b));
        if (gap < touching)
            gap = 0;
        m_fit.toothGap = std::min(m_fit.toothGap.value_or(gap), gap);
        // Feet may meet: what opens from there on is still a gap. Heads may not.
        double const drawn = walls.distance(tooth);
        bool const isUndercut = drawn < walls.footDistance(tooth) - touching;
        if (gap == 0 && drawn > touching && isUndercut)
            m_fit.closesGap = true;
    }

    FitRequest const& m_request;
    std::function<void()> const& m_poll;
    FlatView m_view;
    std::vector<FlatSegment> m_inner;
    std::vector<FlatSegment> m_outer;
    ClearanceFit m_fit;
};

/// Each edge with the teeth that it has now.
Loops edgesOf(PolygonProperty const& record)
{
    std::vector<UPoint3<float>> const& corners = record.getKeyPoints();
    std::vector<TeethEdge> const& teeth = record.getEdgeRecords();
    Loops edges;
    for (std::size_t i = 0; i < std::min(corners.size(), teeth.size()); ++i) {
        Ring& edge = edges.emplace_back(Ring{corners[i]});
        if (teeth[i].hasTeeth && (teeth[i].editing || teeth[i].applied)) {
            auto const& points = teeth[i].editing ? teeth[i].teethPoints : teeth[i].appliedPoints;
            edge.insert(edge.end(), points.begin(), points.end());
        }
        edge.push_back(corners[(i + 1) % corners.size()]);
    }
    return edges;
}

}  // namespace

FitRequest FitRequest::of(VolumeOutline const& outline)
{
    FitRequest request;
    request.solids = SolidLoops::of(outline);
    if (!request.solids.hasClearance)
        return request;
    ToolOutlines const& outlines = outline.outlines();
    request.nominal = !outlines.roundedLoops.empty() ? outlines.roundedLoops
                      : outline.isRing()             ? outlines.solidLoops
                                                     : withoutLastPoints(outlines.solidLoops);
    if (auto const* const polygon = dynamic_cast<PolygonProperty const*>(&outline.record()))
        request.edges = edgesOf(*polygon);
    VolumeProperty const& record = outline.record();
    bool const isBothSides = record.getClearanceDirection() == 2;
    request.gap = double(record.getClearance()) * (isBothSides ? 2 : 1);
    return request;
}

double toldGap(double measured, double asked)
{
    constexpr double grid = 0.003, share = 0.05;
    return std::abs(measured - asked) <= std::min(grid, share * asked) ? asked : measured;
}

ClearanceFit fitOf(FitRequest const& request, std::function<void()> const& poll)
{
    return request.solids.hasClearance ? Fit(request, poll).run() : ClearanceFit();
}

}  // namespace Freecut
