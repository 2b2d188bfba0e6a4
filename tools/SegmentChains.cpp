// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/SegmentChains.h"

#include <algorithm>
#include <numeric>
#include <tuple>

namespace Freecut {

namespace {

std::tuple<bool, float, float> keyOf(bool flag, UPoint2<float> const& point)
{
    return {flag, point.X(), point.Y()};
}

}  // namespace

SegmentChains::SegmentChains(std::vector<DirectedSegment> segments, WorkPoll const& poll)
    : m_segments(std::move(segments)),
      m_byStart(m_segments.size()),
      m_gone(m_segments.size()),
      m_isTaken(m_segments.size()),
      m_polling(poll)
{
    std::iota(m_byStart.begin(), m_byStart.end(), std::size_t(0));
    std::stable_sort(m_byStart.begin(), m_byStart.end(), [this](std::size_t a, std::size_t b) {
        m_polling.step();
        return keyOf(m_segments[a].flag, m_segments[a].start) <
               keyOf(m_segments[b].flag, m_segments[b].start);
    });
}

std::optional<SegmentChain> SegmentChains::next()
{
    while (m_first < m_segments.size() && m_isTaken[m_first])
        ++m_first;
    if (m_first == m_segments.size())
        return std::nullopt;
    m_isTaken[m_first] = true;
    DirectedSegment const& head = m_segments[m_first];
    SegmentChain chain{{head.start}, head.flag, true};
    UPoint2<float> end = head.end;
    while (end != head.start) {
        m_polling.step();
        std::optional<std::size_t> const successor = takeSuccessor(end, head.flag);
        if (!successor) {
            chain.isClosed = false;
            break;
        }
        chain.points.push_back(m_segments[*successor].start);
        end = m_segments[*successor].end;
    }
    chain.points.push_back(end);
    return chain;
}

std::optional<std::size_t> SegmentChains::firstPlaceOf(UPoint2<float> const& start, bool flag) const
{
    auto const place = std::lower_bound(m_byStart.begin(), m_byStart.end(), keyOf(flag, start),
                                        [this](std::size_t segment, auto const& wanted) {
                                            return keyOf(m_segments[segment].flag,
                                                         m_segments[segment].start) < wanted;
                                        });
    if (place == m_byStart.end())
        return std::nullopt;
    return std::size_t(place - m_byStart.begin());
}

std::optional<std::size_t> SegmentChains::takeSuccessor(UPoint2<float> const& end, bool flag)
{
    std::optional<std::size_t> const first = firstPlaceOf(end, flag);
    if (!first)
        return std::nullopt;
    for (std::size_t& gone = m_gone[*first]; *first + gone < m_byStart.size(); ++gone) {
        std::size_t const index = m_byStart[*first + gone];
        DirectedSegment const& segment = m_segments[index];
        if (segment.flag != flag || segment.start != end)
            break;
        if (m_isTaken[index])
            continue;
        m_isTaken[index] = true;
        return index;
    }
    return std::nullopt;
}

}  // namespace Freecut
