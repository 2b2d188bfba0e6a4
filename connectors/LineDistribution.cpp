// SPDX-License-Identifier: GPL-3.0-or-later
#include "connectors/LineDistribution.h"

#include "connectors/CircleMeeting.h"
#include "platform/geometry/MellMath.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace {

using Point = UPoint3<float>;
using Vector = UVector3<float>;

constexpr double straightTolerance = 0.001;
/// By how much rounding may move a place.
constexpr float roundingMm = 0.001f;

Vector unit(Vector v)
{
    return v.Normalize();
}

/// A point placed earlier whose circle reaches the segment at hand.
struct NearPoint
{
    std::size_t index;
    /// Its distance from the segment's first point.
    float fromStart;
};

struct Candidate
{
    /// No point is to be placed on the segment any more.
    bool endsSegment = false;
    std::optional<Point> place;
    /// It lies beyond the ends of the stretch that was looked at.
    bool isOutside = false;

    static Candidate end() { return {true, {}, false}; }
    static Candidate none() { return {}; }
};

class LineDistributor
{
public:
    LineDistributor(float spacing, ConnectorProgress::Poll const& poll)
        : m_spacing(spacing), m_poll(poll)
    {}

    void walk(std::vector<Point> const& line)
    {
        for (std::size_t i = 0; i < line.size(); ++i) {
            if (m_poll)
                m_poll();
            if (m_placed.empty()) {
                m_placed.push_back(line[0]);
                continue;
            }
            if (i == 0) {
                if (isFree(line[0], m_placed.size()))
                    m_placed.push_back(line[0]);
                continue;
            }
            while (placeOn(line[i - 1], line[i])) {
            }
        }
    }

    std::vector<Point> takePlaced() { return std::move(m_placed); }

private:
    /// Whether no point placed is too near, but for one of them.
    bool isFree(Point const& p, std::size_t except) const
    {
        for (std::size_t m = 0; m < m_placed.size(); ++m)
            if (m != except && m_spacing > MellMath<float>::DisPt2Pt(p, m_placed[m]))
                return false;
        return true;
    }

    /// Places the next point on the segment; false if there is none.
    bool placeOn(Point const& a, Point const& b)
    {
        if (!findNear(a, b))
            return false;
        if (m_near.empty()) {
            m_placed.push_back(a);
            return true;
        }
        for (auto near = m_near.rbegin(); near != m_near.rend(); ++near) {
            Candidate const candidate = candidateBy(*near, a, b);
            if (candidate.endsSegment)
                return false;
            if (candidate.place && isFree(*candidate.place, near->index) && !candidate.isOutside) {
                m_placed.push_back(*candidate.place);
                return true;
            }
        }
        return false;
    }

    /// False if the segment lies wholly inside the circle of a point.
    bool findNear(Point const& a, Point const& b)
    {
        m_near.clear();
        for (std::size_t j = 0; j < m_placed.size(); ++j) {
            if (MellMath<float>::DisPt2Segment(m_placed[j], a, b) > m_spacing)
                continue;
            float const fromStart = MellMath<float>::DisPt2Pt(a, m_placed[j]);
            float const fromEnd = MellMath<float>::DisPt2Pt(b, m_placed[j]);
            if (m_spacing > std::max(fromStart, fromEnd))
                return false;
            m_near.push_back({j, fromStart});
        }
        return true;
    }

    Candidate candidateBy(NearPoint const& near, Point const& a, Point const& b) const
    {
        Point const& centre = m_placed[near.index];
        Vector const along = b - a;
        if (along.GetLength() == 0)
            return Candidate::end();
        if ((centre - a).GetLength() == 0)
            return {false, a + unit(along) * m_spacing, false};
        if ((centre - b).GetLength() == 0)
            return {false, b - unit(along) * m_spacing, false};
        Point const& before = m_placed[(near.index > 0 ? near.index : m_placed.size()) - 1];
        Vector const turn = unit(centre - a) - unit(centre - before);
        bool const isStraight = double(turn.GetLength()) <= straightTolerance;
        if (!isStraight)
            return meet(a, near.fromStart, near, a, b);
        if (2 * m_spacing > (b - before).GetLength())
            return Candidate::end();
        Candidate const straight = meet(before, m_spacing, near, a, b);
        // The point before may stand farther back than a spacing, or the line may bend at a: then
        // the place would be off the line or too near.
        if (straight.place && !isInStep(*straight.place, centre, a, b))
            return meet(a, near.fromStart, near, a, b);
        return straight;
    }

    /// Whether a place lies on the segment and a spacing from the point it is to follow.
    bool isInStep(Point const& place, Point const& centre, Point const& a, Point const& b) const
    {
        return MellMath<float>::DisPt2Segment(place, a, b) <= roundingMm &&
               m_spacing <= MellMath<float>::DisPt2Pt(place, centre) + roundingMm;
    }

    /// Where the line from a base towards b meets the circle of a point.
    Candidate meet(Point const& base, float fromBase, NearPoint const& near, Point const& a,
                   Point const& b) const
    {
        Point const& centre = m_placed[near.index];
        Vector const along = unit(b - a);
        float const ca = std::clamp(unit(centre - a) | along, -1.0f, 1.0f);
        float const cb = std::clamp(unit(centre - b) | along, -1.0f, 1.0f);
        CircleMeeting const meeting(ca, cb, fromBase, m_spacing);
        if (meeting.endsSegment)
            return Candidate::end();
        if (!meeting.distance)
            return Candidate::none();
        Point const place = base + along * *meeting.distance;
        return {false, place, ((place - base) | (place - b)) > 0};
    }

    float m_spacing;
    ConnectorProgress::Poll const& m_poll;
    std::vector<Point> m_placed;
    std::vector<NearPoint> m_near;
};

}  // namespace

std::vector<Point> distributeAlongLines(std::vector<std::vector<Point>> const& lines, float spacing,
                                        ConnectorProgress::Poll const& poll)
{
    if (!(spacing > 0))
        return {};
    LineDistributor distributor(spacing, poll);
    for (std::vector<Point> const& line : lines)
        distributor.walk(line);
    return distributor.takePlaced();
}
