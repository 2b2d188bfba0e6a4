// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/planecut/FaceChoice.h"

#include "host/mesh/DisjointSets.h"

#include <algorithm>

namespace {

/// Strongly connected sets of pieces, going up (Tarjan, "Depth-first search and linear graph
/// algorithms", 1972), without recursion.
class StrongSets
{
public:
    StrongSets(std::size_t pieceCount, std::vector<FaceLink> const& links)
        : m_first(pieceCount + 1, 0),
          m_targets(links.size()),
          m_number(pieceCount, unseen),
          m_lowest(pieceCount, 0),
          m_setOf(pieceCount, unseen)
    {
        for (FaceLink const& link : links)
            ++m_first[link.below + 1];
        for (std::size_t i = 0; i < pieceCount; ++i)
            m_first[i + 1] += m_first[i];
        std::vector<std::uint32_t> next(m_first.begin(), m_first.end() - 1);
        for (FaceLink const& link : links)
            m_targets[next[link.below]++] = link.above;
        for (std::uint32_t piece = 0; piece < pieceCount; ++piece)
            if (m_number[piece] == unseen)
                visitFrom(piece);
    }

    std::uint32_t setOf(std::uint32_t piece) const { return m_setOf[piece]; }

private:
    static constexpr std::uint32_t unseen = UINT32_MAX;

    struct Visit
    {
        std::uint32_t piece;
        std::uint32_t next;
    };

    void enter(std::uint32_t piece)
    {
        m_number[piece] = m_lowest[piece] = m_count++;
        m_open.push_back(piece);
        m_visits.push_back({piece, m_first[piece]});
    }

    void visitFrom(std::uint32_t start)
    {
        enter(start);
        while (!m_visits.empty()) {
            Visit& visit = m_visits.back();
            std::uint32_t const piece = visit.piece;
            if (visit.next == m_first[piece + 1]) {
                m_visits.pop_back();
                leave(piece);
                continue;
            }
            std::uint32_t const target = m_targets[visit.next++];
            if (m_number[target] == unseen)
                enter(target);
            else if (m_setOf[target] == unseen)
                m_lowest[piece] = std::min(m_lowest[piece], m_number[target]);
        }
    }

    void leave(std::uint32_t piece)
    {
        if (!m_visits.empty()) {
            std::uint32_t& lowest = m_lowest[m_visits.back().piece];
            lowest = std::min(lowest, m_lowest[piece]);
        }
        if (m_lowest[piece] != m_number[piece])
            return;
        std::uint32_t member;
        do {
            member = m_open.back();
            m_open.pop_back();
            m_setOf[member] = piece;
        } while (member != piece);
    }

    std::vector<std::uint32_t> m_first;
    std::vector<std::uint32_t> m_targets;
    std::vector<std::uint32_t> m_number;
    std::vector<std::uint32_t> m_lowest;
    std::vector<std::uint32_t> m_setOf;
    std::vector<std::uint32_t> m_open;
    std::vector<Visit> m_visits;
    std::uint32_t m_count = 0;
};

/// What each of the two ways would cut.
class FaceWays
{
public:
    FaceWays(std::size_t pieceCount, std::vector<FaceLink> const& links)
        : m_sets(pieceCount, links), m_hasFaceAbove(pieceCount), m_hasFaceBelow(pieceCount)
    {
        for (FaceLink const& link : links)
            if (!isRing(link)) {
                m_hasFaceAbove[m_sets.setOf(link.below)] = true;
                m_hasFaceBelow[m_sets.setOf(link.above)] = true;
            }
    }

    /// Whether the piece above comes off, as nothing else hangs on to it from above.
    bool freesUpper(FaceLink const& link) const
    {
        return !isRing(link) && !m_hasFaceAbove[m_sets.setOf(link.above)];
    }
    bool freesLower(FaceLink const& link) const
    {
        return !isRing(link) && !m_hasFaceBelow[m_sets.setOf(link.below)];
    }

private:
    bool isRing(FaceLink const& link) const
    {
        return m_sets.setOf(link.below) == m_sets.setOf(link.above);
    }

    StrongSets m_sets;
    std::vector<bool> m_hasFaceAbove;
    std::vector<bool> m_hasFaceBelow;
};

}  // namespace

std::vector<bool> chooseFaces(std::size_t pieceCount, std::vector<FaceLink> const& links)
{
    FaceWays const ways(pieceCount, links);
    DisjointSets bodies(pieceCount);
    for (FaceLink const& link : links)
        bodies.unite(link.below, link.above);
    struct Counts
    {
        std::size_t upper = 0;
        std::size_t lower = 0;
    };
    std::vector<Counts> counts(pieceCount);
    for (FaceLink const& link : links) {
        Counts& body = counts[bodies.root(link.below)];
        body.upper += ways.freesUpper(link);
        body.lower += ways.freesLower(link);
    }
    std::vector<bool> isCut;
    for (FaceLink const& link : links) {
        Counts const& body = counts[bodies.root(link.below)];
        isCut.push_back(body.lower > body.upper ? ways.freesLower(link) : ways.freesUpper(link));
    }
    return isCut;
}
