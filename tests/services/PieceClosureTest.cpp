// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/boolean/PieceClosure.h"
#include "host/services/boolean/SignedEdge.h"
#include "tests/support/MeshBuilders.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <numeric>

namespace {

std::function<void(int)> const nobody;

/// A box of which some triangles were copied, and others made: points of the box have the part's
/// places in reverse.
struct BoxInTwoParts
{
    BoxInTwoParts()
    {
        mesh.joinPoints();
        places.resize(mesh.points.size());
        std::iota(places.rbegin(), places.rend(), 0u);
        for (std::uint32_t t = 0; t < mesh.triangles.size(); ++t) {
            auto const& [a, b, c] = mesh.triangles[t];
            if (t < 5)
                copied += signedEdge(places[a], places[b]) + signedEdge(places[b], places[c]) +
                          signedEdge(places[c], places[a]);
            else
                made.push_back({{a, b, c}, t, false});
        }
    }

    bool closes()
    {
        StageProgress progress(nobody);
        return PieceClosure(places, std::uint32_t(places.size())).closes(copied, made, progress);
    }

    Soup mesh = box(1, 2, 3);
    std::vector<std::uint32_t> places;
    std::uint64_t copied = 0;
    std::vector<PieceTriangle> made;
};

bool closesByPlaces(Soup const& copied, std::vector<PieceTriangle> const& made,
                    std::vector<UPoint3<float>> const& places)
{
    StageProgress progress(nobody);
    return closesByPlaces(*kernelOf(copied)->readMesh(), made, places, progress);
}

}  // namespace

TEST(PieceClosure, WhatWasMadeClosesWithWhatWasCopied)
{
    EXPECT_TRUE(BoxInTwoParts().closes());
}

TEST(PieceClosure, ATriangleThatIsMissingTwiceOrTurnedOpensAPiece)
{
    for (std::size_t t = 0; t < BoxInTwoParts().made.size(); ++t) {
        BoxInTwoParts missing, twice, turned;
        missing.made.erase(missing.made.begin() + std::ptrdiff_t(t));
        twice.made.push_back(twice.made[t]);
        std::swap(turned.made[t].corners[0], turned.made[t].corners[1]);
        EXPECT_FALSE(missing.closes()) << t;
        EXPECT_FALSE(twice.closes()) << t;
        EXPECT_FALSE(turned.closes()) << t;
    }
}

// A point that is none of the part's is not taken for the vertex that has its number as a place.
TEST(PieceClosure, NewPointsAreNoneOfThePart)
{
    std::vector<std::uint32_t> const places{5, 6};
    std::vector<PieceTriangle> const made{{{0, 1, 2}, 0, false}};
    StageProgress progress(nobody);
    PieceClosure const closure(places, 10);
    std::uint64_t const back = signedEdge(6, 5) + signedEdge(5, 2) + signedEdge(2, 6);
    EXPECT_FALSE(closure.closes(back, made, progress));
}

TEST(PieceClosure, PointsAtOnePlaceAreOneByPlaces)
{
    Soup const whole = box(1, 2, 3, {-1, 0, 0});
    Soup copied = whole, rest;
    copied.triangles.resize(5);
    std::vector<PieceTriangle> made;
    for (std::uint32_t t = 5; t < whole.triangles.size(); ++t) {
        auto const first = std::uint32_t(rest.points.size());
        for (std::uint32_t const corner : whole.triangles[t]) {
            UPoint3<float> p = whole.points[corner];
            // Both zeros are one place.
            if (p.X() == 0)
                p = {-0.0f, p.Y(), p.Z()};
            rest.points.push_back(p);
        }
        made.push_back({{first, first + 1, first + 2}, t, false});
    }
    EXPECT_TRUE(closesByPlaces(copied, made, rest.points));
    made.pop_back();
    EXPECT_FALSE(closesByPlaces(copied, made, rest.points));
}
