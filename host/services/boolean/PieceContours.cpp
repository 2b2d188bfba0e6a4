// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/boolean/PieceContours.h"

#include "host/services/Polling.h"

#include <algorithm>
#include <tuple>

namespace {

struct EdgeUse
{
    std::uint32_t low;
    std::uint32_t high;
    /// 1 if the triangle runs from the low end to the high one, else -1.
    int direction;

    bool isOnSameEdge(EdgeUse const& o) const { return low == o.low && high == o.high; }
};

ContourLines contoursOfOne(std::vector<PieceTriangle> const& piece, SoupBoolean const& boolean,
                           std::uint32_t firstTriangleOfSecond, StageProgress& progress)
{
    std::vector<EdgeUse> uses;
    Polling polling(progress);
    for (PieceTriangle const& triangle : piece) {
        polling.step();
        if (triangle.triangle < firstTriangleOfSecond)
            continue;
        for (std::size_t k = 0; k < 3; ++k) {
            std::uint32_t const from = triangle.corners[k], to = triangle.corners[(k + 1) % 3];
            uses.push_back({std::min(from, to), std::max(from, to), from < to ? 1 : -1});
        }
    }
    sortPolled(uses, progress, [](EdgeUse const& a, EdgeUse const& b) {
        return a.low != b.low ? a.low < b.low : a.high < b.high;
    });
    ContourLines lines;
    for (auto use = uses.begin(); use != uses.end();) {
        polling.step();
        EdgeUse const edge = *use;
        int balance = 0;
        for (; use != uses.end() && use->isOnSameEdge(edge); ++use)
            balance += use->direction;
        if (balance != 0)
            lines.push_back({boolean.place(edge.low), boolean.place(edge.high)});
    }
    return lines;
}

}  // namespace

ContourLines contoursOf(std::vector<std::vector<PieceTriangle>> const& pieces,
                        SoupBoolean const& boolean, std::uint32_t firstTriangleOfSecond,
                        StageProgress& progress)
{
    ContourLines lines;
    for (auto const& piece : pieces) {
        ContourLines const ofPiece = contoursOfOne(piece, boolean, firstTriangleOfSecond, progress);
        lines.insert(lines.end(), ofPiece.begin(), ofPiece.end());
    }
    auto const key = [](auto const& line) {
        auto const& [a, b] = line;
        return std::tuple(a.X(), a.Y(), a.Z(), b.X(), b.Y(), b.Z());
    };
    std::sort(lines.begin(), lines.end(),
              [&](auto const& a, auto const& b) { return key(a) < key(b); });
    lines.erase(std::unique(lines.begin(), lines.end()), lines.end());
    return lines;
}
