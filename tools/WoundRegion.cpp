// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/WoundRegion.h"

#include "tools/CurveCrossings.h"

#include <algorithm>

namespace Freecut {

namespace {

// Own derivation. Crossings divide the curves into stretches. Along a curve the winding number on
// its left changes at crossings alone, by one, up where the other curve comes from the left: so
// one number known on each curve tells all. On its right it is one less. The outline is made of
// the stretches that have 1 on their left; where one ends in a crossing, the other curve's stretch
// that begins there goes on.

/// Two crossings on a segment that are this near to each other, as a part of its length, have no
/// certain order.
constexpr double leastStep = 1e-14;
constexpr unsigned mostAttempts = 8;

/// The ends of all stretches, in the order of the curves. Each crossing is the end of two.
class Stretches
{
public:
    Stretches(ShakenCurves const& shaken, std::vector<CurveCrossing> const& crossings,
              std::size_t pointCount, WorkPoll const& poll)
        : m_shaken(shaken), m_crossings(crossings), m_polling(poll)
    {
        countBySegment(pointCount);
        m_ends.resize(2 * crossings.size());
        std::vector<std::uint32_t> next(m_firstOf.begin(), m_firstOf.end() - 1);
        for (std::uint32_t i = 0; i < crossings.size(); ++i, m_polling.step()) {
            m_ends[next[crossings[i].first]++] = 2 * i;
            m_ends[next[crossings[i].second]++] = 2 * i + 1;
        }
        sortAlongSegments();
        m_places.resize(m_ends.size());
        for (std::uint32_t place = 0; place < m_ends.size(); ++place, m_polling.step())
            m_places[m_ends[place]] = place;
    }

    /// All have their order, and the winding numbers found along one curve are those found along
    /// the other one.
    bool windConsistently()
    {
        if (m_isTied)
            return false;
        m_left.resize(m_ends.size());
        for (std::size_t curve = 0; curve < m_shaken.curveCount(); ++curve)
            if (!windAlong(curve))
                return false;
        for (std::uint32_t i = 0; i < m_crossings.size(); ++i, m_polling.step()) {
            int const first = m_left[m_places[2 * i]], second = m_left[m_places[2 * i + 1]];
            if (m_crossings[i].toLeft ? second != first - 1 : first != second - 1)
                return false;
        }
        return true;
    }

    std::uint32_t count() const { return std::uint32_t(m_ends.size()); }
    std::uint32_t firstOfCurve(std::size_t curve) const
    {
        return m_firstOf[m_shaken.startOf(curve)];
    }
    /// The winding number on the left of the stretch that ends here.
    int left(std::uint32_t end) const { return m_left[end]; }
    /// On the left of a curve without crossings.
    int leftOfWhole(std::size_t curve) const { return m_leftOfWhole[curve]; }
    /// The end of the same crossing on the other curve.
    std::uint32_t partner(std::uint32_t end) const { return m_places[m_ends[end] ^ 1u]; }
    std::uint32_t segment(std::uint32_t end) const
    {
        CurveCrossing const& crossing = m_crossings[m_ends[end] / 2];
        return m_ends[end] % 2 ? crossing.second : crossing.first;
    }
    double along(std::uint32_t end) const { return alongOf(m_ends[end]); }

private:
    double alongOf(std::uint32_t entry) const
    {
        CurveCrossing const& crossing = m_crossings[entry / 2];
        return entry % 2 ? crossing.alongSecond : crossing.alongFirst;
    }

    void countBySegment(std::size_t pointCount)
    {
        m_firstOf.assign(pointCount + 1, 0);
        for (CurveCrossing const& crossing : m_crossings) {
            m_polling.step();
            ++m_firstOf[crossing.first + 1];
            ++m_firstOf[crossing.second + 1];
        }
        for (std::size_t i = 1; i <= pointCount; ++i)
            m_firstOf[i] += m_firstOf[i - 1];
    }

    void sortAlongSegments()
    {
        for (std::size_t i = 0; i + 1 < m_firstOf.size(); ++i, m_polling.step()) {
            auto const begin = m_ends.begin() + m_firstOf[i],
                       end = m_ends.begin() + m_firstOf[i + 1];
            if (end - begin < 2)
                continue;
            std::sort(begin, end, [this](std::uint32_t a, std::uint32_t b) {
                m_polling.step();
                return alongOf(a) < alongOf(b);
            });
            for (auto at = begin; at + 1 != end; ++at)
                m_isTied = m_isTied || alongOf(at[1]) - alongOf(at[0]) < leastStep;
        }
    }

    /// False if the numbers do not come round to where they began.
    bool windAlong(std::size_t curve)
    {
        ShakenCurves::Lowest const lowest = m_shaken.lowestOf(curve);
        std::optional<int> const below = m_shaken.windingBelow(curve);
        if (!below)
            return false;
        int const atLowest = *below + lowest.turnsLeft;
        m_leftOfWhole.push_back(atLowest);
        std::uint32_t const begin = firstOfCurve(curve), end = firstOfCurve(curve + 1);
        // The first crossing behind the lowest point.
        std::uint32_t const start = m_firstOf[lowest.point];
        int left = atLowest;
        for (std::uint32_t k = 0; k < end - begin; ++k, m_polling.step()) {
            std::uint32_t const place = start + k < end ? start + k : start + k - (end - begin);
            m_left[place] = left;
            bool const isFirst = m_ends[place] % 2 == 0;
            bool const goesLeft = m_crossings[m_ends[place] / 2].toLeft;
            left += isFirst == goesLeft ? -1 : 1;
        }
        return left == atLowest;
    }

    ShakenCurves const& m_shaken;
    std::vector<CurveCrossing> const& m_crossings;
    /// By place: twice the number of a crossing, one more on its second segment.
    std::vector<std::uint32_t> m_ends;
    std::vector<std::uint32_t> m_places;
    /// The first place on each segment.
    std::vector<std::uint32_t> m_firstOf;
    std::vector<std::int32_t> m_left;
    std::vector<int> m_leftOfWhole;
    bool m_isTied = false;
    PollSteps m_polling;
};

/// Joins the stretches that bound the region.
class OutlineWalk
{
public:
    OutlineWalk(Curves const& curves, ShakenCurves const& shaken, Stretches const& stretches,
                WorkPoll const& poll)
        : m_shaken(shaken), m_stretches(stretches), m_isTaken(stretches.count()), m_polling(poll)
    {
        for (Curve const& curve : curves)
            m_points.insert(m_points.end(), curve.begin(), curve.end());
        for (std::size_t curve = 0; curve < shaken.curveCount(); ++curve)
            for (std::uint32_t i = shaken.startOf(curve); i < shaken.startOf(curve + 1); ++i)
                m_curveOf.push_back(std::uint32_t(curve));
    }

    Curves loops()
    {
        Curves loops;
        for (std::size_t curve = 0; curve < m_shaken.curveCount(); ++curve) {
            std::uint32_t const begin = m_stretches.firstOfCurve(curve);
            std::uint32_t const end = m_stretches.firstOfCurve(curve + 1);
            if (begin == end && m_stretches.leftOfWhole(curve) == 1)
                loops.emplace_back(m_points.begin() + m_shaken.startOf(curve),
                                   m_points.begin() + m_shaken.startOf(curve + 1));
            for (std::uint32_t place = begin; place < end; ++place, m_polling.step())
                if (m_stretches.left(place) == 1 && !m_isTaken[place])
                    loops.push_back(loopFrom(place));
        }
        return loops;
    }

private:
    Curve loopFrom(std::uint32_t first)
    {
        Curve loop;
        std::uint32_t end = first;
        do {
            m_polling.step();
            m_isTaken[end] = true;
            appendStretch(loop, end);
            end = nextOnCurve(m_stretches.partner(end));
        } while (end != first);
        return loop;
    }

    /// The points of the stretch that ends here, the crossing at its end included.
    void appendStretch(Curve& loop, std::uint32_t end)
    {
        std::uint32_t const last = m_stretches.segment(end);
        std::uint32_t const previous = previousOnCurve(end);
        std::uint32_t at = m_stretches.segment(previous);
        bool const isWithinSegment =
            at == last && m_stretches.along(previous) < m_stretches.along(end);
        while (!isWithinSegment) {
            m_polling.step();
            at = after(at);
            loop.push_back(m_points[at]);
            if (at == last)
                break;
        }
        UPoint2<double> const &a = m_points[last], &b = m_points[after(last)];
        double const t = m_stretches.along(end);
        loop.emplace_back(a.X() + (b.X() - a.X()) * t, a.Y() + (b.Y() - a.Y()) * t);
    }

    std::uint32_t after(std::uint32_t point) const
    {
        std::uint32_t const curve = m_curveOf[point];
        return point + 1 < m_shaken.startOf(curve + 1) ? point + 1 : m_shaken.startOf(curve);
    }
    std::uint32_t curveAt(std::uint32_t end) const { return m_curveOf[m_stretches.segment(end)]; }
    std::uint32_t nextOnCurve(std::uint32_t end) const
    {
        std::uint32_t const curve = curveAt(end);
        return end + 1 < m_stretches.firstOfCurve(curve + 1) ? end + 1
                                                             : m_stretches.firstOfCurve(curve);
    }
    std::uint32_t previousOnCurve(std::uint32_t end) const
    {
        std::uint32_t const curve = curveAt(end);
        return end > m_stretches.firstOfCurve(curve) ? end - 1
                                                     : m_stretches.firstOfCurve(curve + 1) - 1;
    }

    ShakenCurves const& m_shaken;
    Stretches const& m_stretches;
    Curve m_points;
    std::vector<std::uint32_t> m_curveOf;
    std::vector<bool> m_isTaken;
    PollSteps m_polling;
};

}  // namespace

std::optional<Curves> outlineOfWoundRegion(Curves const& curves, std::size_t mostCrossings,
                                           WorkPoll const& poll)
{
    std::size_t pointCount = 0;
    for (Curve const& curve : curves)
        pointCount += curve.size();
    std::vector<CurveCrossing> crossings;
    for (unsigned attempt = 0; attempt < mostAttempts; ++attempt) {
        ShakenCurves const shaken(curves, attempt, poll);
        ShakenCurves::Search const search = shaken.findCrossings(mostCrossings, crossings);
        if (search == ShakenCurves::Search::TooMany)
            return {};
        if (search == ShakenCurves::Search::Tied)
            continue;
        Stretches stretches(shaken, crossings, pointCount, poll);
        if (stretches.windConsistently())
            return OutlineWalk(curves, shaken, stretches, poll).loops();
    }
    return {};
}

}  // namespace Freecut
