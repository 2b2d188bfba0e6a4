// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/boolean/BooleanPieces.h"

#include "host/services/Polling.h"

#include <tbb/blocked_range.h>
#include <tbb/parallel_reduce.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <functional>

namespace {

using Corners = MeshArrays::Corners;

class PieceCollector
{
public:
    PieceCollector(OperandSoup const& soup, CurveNetwork const& network,
                   RoundedFacets const& rounded, SideLabels const& labels, BooleanRule rule)
        : m_soup(soup), m_network(network), m_rounded(rounded), m_labels(labels), m_rule(rule)
    {}

    std::vector<PieceTriangle> run(StageProgress& progress)
    {
        // Room that is not used takes no memory.
        m_piece.reserve(m_soup.triangleCount() + m_rounded.facets().size());
        Polling polling(progress);
        auto facet = m_rounded.facets().begin();
        for (std::uint32_t t = 0; t < m_soup.triangleCount(); ++t) {
            polling.step();
            if (!m_rounded.isDivided(t))
                add(wholeCorners(t), t, timesOfWhole(t));
            for (; facet != m_rounded.facets().end() && facet->triangle == t; ++facet)
                add(facet->corners, t,
                    facet->region == RoundedFacets::whole ? timesOfWhole(t)
                                                          : timesOfRegion(t, facet->region));
        }
        return std::move(m_piece);
    }

private:
    Corners wholeCorners(std::uint32_t triangle) const
    {
        Corners corners;
        for (std::size_t k = 0; k < 3; ++k)
            corners[k] = m_rounded.numberOf(m_soup.corners(triangle)[k]);
        return corners;
    }

    int timesOfWhole(std::uint32_t triangle) const
    {
        std::uint32_t const vertex = m_soup.corners(triangle)[0];
        if (m_soup.operandOf(triangle) == Operand::first) {
            bool const isIn = m_labels.ofFirstVertices[vertex] > 0;
            return m_rule.timesOfFirst(isIn, isIn);
        }
        return timesOfSecond(m_labels.ofSecondVertices[vertex - m_soup.firstPointOfSecond]);
    }

    int timesOfRegion(std::uint32_t triangle, std::uint32_t region) const
    {
        if (m_soup.operandOf(triangle) == Operand::first) {
            SideLabels::Sides const& sides = m_labels.ofFirst[region];
            return m_rule.timesOfFirst(sides.front > 0, sides.behind > 0);
        }
        return timesOfSecond(m_labels.ofSecond[region]);
    }

    int timesOfSecond(SideLabels::SecondSides const& sides) const
    {
        if (!sides.isLead)
            return 0;
        bool const front = sides.isSolidInFront, behind = sides.isSolidBehind;
        if (sides.stack.along + sides.stack.against == 0)
            return (int(behind) - int(front)) * m_rule.timesOfSecond(sides.layers);
        return m_rule.timesOfStack(front, behind, sides.layers, sides.stack.along,
                                   sides.stack.against);
    }

    void add(Corners corners, std::uint32_t triangle, int times)
    {
        bool const isTurned = times < 0;
        if (isTurned)
            std::swap(corners[1], corners[2]);
        for (int i = 0; i < std::abs(times); ++i)
            m_piece.push_back({corners, triangle, isTurned});
    }

    OperandSoup const& m_soup;
    CurveNetwork const& m_network;
    RoundedFacets const& m_rounded;
    SideLabels const& m_labels;
    BooleanRule m_rule;
    std::vector<PieceTriangle> m_piece;
};

/// Takes out triangles that lie back to back: between two curves, or where facets were mended.
void cancelPairs(std::vector<PieceTriangle>& piece, CurvePoints const& points,
                 RoundedFacets const& rounded, StageProgress& progress)
{
    struct Entry
    {
        Corners sorted;
        bool isOdd;
        std::uint32_t place;
    };
    std::vector<Entry> entries;
    Polling polling(progress);
    for (std::uint32_t i = 0; i < piece.size(); ++i) {
        polling.step();
        Corners c = piece[i].corners;
        auto const isOnCurve = [&](std::uint32_t p) { return points.isOnCurve(p); };
        auto const isMended = [&](std::uint32_t p) { return rounded.isMended(p); };
        if (!std::all_of(c.begin(), c.end(), isOnCurve) &&
            !std::any_of(c.begin(), c.end(), isMended))
            continue;
        int const first = int(std::min_element(c.begin(), c.end()) - c.begin());
        std::rotate(c.begin(), c.begin() + first, c.end());
        bool const isOdd = c[1] > c[2];
        if (isOdd)
            std::swap(c[1], c[2]);
        entries.push_back({c, isOdd, i});
    }
    sortPolled(entries, progress, [](Entry const& a, Entry const& b) {
        return a.sorted != b.sorted ? a.sorted < b.sorted : a.place < b.place;
    });
    std::vector<bool> isGone(piece.size(), false);
    std::vector<std::uint32_t> open;
    for (std::size_t i = 0; i < entries.size(); ++i) {
        polling.step();
        if (i == 0 || entries[i].sorted != entries[i - 1].sorted)
            open.clear();
        if (!open.empty() && entries[open.back()].isOdd != entries[i].isOdd) {
            isGone[entries[i].place] = isGone[entries[open.back()].place] = true;
            open.pop_back();
        } else {
            open.push_back(std::uint32_t(i));
        }
    }
    std::size_t place = 0;
    std::erase_if(piece, [&](PieceTriangle const&) { return isGone[place++]; });
}

}  // namespace

std::vector<PieceTriangle> collectPiece(OperandSoup const& soup, CurveNetwork const& network,
                                        RoundedFacets const& rounded, SideLabels const& labels,
                                        BooleanRule rule, StageProgress& progress)
{
    auto piece = PieceCollector(soup, network, rounded, labels, rule).run(progress);
    cancelPairs(piece, network.points(), rounded, progress);
    return piece;
}

bool isClosedAtCurves(std::vector<PieceTriangle> const& piece, CurvePoints const& points,
                      StageProgress& progress)
{
    // Every edge has a number of 64 random bits; run along both ways, it adds up to nothing.
    using Range = tbb::blocked_range<std::size_t>;
    auto const edges = [&](Range const& range, std::uint64_t sum) {
        progress.add(0);
        for (std::size_t i = range.begin(); i != range.end(); ++i)
            for (std::size_t k = 0; k < 3; ++k) {
                MeshArrays::Corners const& c = piece[i].corners;
                std::uint32_t const from = c[k], to = c[k == 2 ? 0 : k + 1];
                if (!points.isOnCurve(from) && !points.isOnCurve(to))
                    continue;
                auto const [low, high] = std::minmax(from, to);
                std::uint64_t const number = mixBits(std::uint64_t(low) << 32 | high);
                sum += from < to ? number : -number;
            }
        return sum;
    };
    return tbb::parallel_reduce(Range(0, piece.size(), 4096), std::uint64_t(0), edges,
                                std::plus<>()) == 0;
}

std::optional<std::uint32_t> openPointOf(std::vector<PieceTriangle> const& piece,
                                         CurvePoints const& points, StageProgress& progress)
{
    std::vector<std::array<std::uint32_t, 3>> uses;
    Polling polling(progress);
    for (PieceTriangle const& triangle : piece)
        for (std::size_t k = 0; k < 3; ++k, polling.step()) {
            std::uint32_t const from = triangle.corners[k], to = triangle.corners[(k + 1) % 3];
            if (points.isOnCurve(from) || points.isOnCurve(to))
                uses.push_back({std::min(from, to), std::max(from, to), from < to});
        }
    sortPolled(uses, progress, std::less<>());
    for (std::size_t begin = 0, end = 0; begin < uses.size(); begin = end) {
        int balance = 0;
        for (;
             end < uses.size() && uses[end][0] == uses[begin][0] && uses[end][1] == uses[begin][1];
             ++end, polling.step())
            balance += uses[end][2] != 0 ? 1 : -1;
        if (balance != 0)
            return uses[begin][0];
    }
    return {};
}
