// SPDX-License-Identifier: GPL-3.0-or-later
#include "cutjobs/common/ClosedSurface.h"
#include "cutjobs/common/CutResultMap.h"
#include "platform/jobs/Exceptions.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/TestDocument.h"
#include "tests/support/Validator.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using Point = UPoint3<float>;

/// The same triangles, none of which shares a point with another.
Soup inPieces(Soup const& soup)
{
    Soup pieces;
    for (auto const& [a, b, c] : soup.triangles) {
        std::uint32_t const first = pieces.add(soup.points[a]);
        pieces.add(soup.points[b]);
        pieces.add(soup.points[c]);
        pieces.add(first, first + 1, first + 2);
    }
    return pieces;
}

std::optional<Point> openPlaceOf(Soup const& soup)
{
    return ClosedSurface::openPlace(*kernelOf(soup)->readMesh());
}

std::string reasonAgainst(Soup const& piece, Soup const& part)
{
    try {
        ClosedSurface::requireClosed(*kernelOf(piece), *kernelOf(part));
    } catch (Mell::Exception const& e) {
        return e.what();
    }
    return {};
}

}  // namespace

TEST(ClosedSurface, ClosedSolidsHaveNoOpenPlaceWhetherOrNotTheirPointsAreJoined)
{
    for (auto const& [name, soup] : closedMeshes()) {
        EXPECT_FALSE(openPlaceOf(soup)) << name;
        EXPECT_FALSE(openPlaceOf(shuffled(inPieces(soup), 7))) << name;
    }
}

TEST(ClosedSurface, AnyTriangleThatIsMissingOrTurnedIsFoundBesideIt)
{
    for (auto const& [name, soup] : closedMeshes())
        for (std::size_t t = 0; t < soup.triangles.size(); t += 1 + soup.triangles.size() / 9) {
            std::array<Point, 3> corners;
            for (std::size_t k = 0; k < 3; ++k)
                corners[k] = soup.points[soup.triangles[t][k]];
            Soup missing = soup;
            missing.triangles.erase(missing.triangles.begin() + std::ptrdiff_t(t));
            Soup turned = soup;
            std::swap(turned.triangles[t][0], turned.triangles[t][1]);
            for (Soup const& broken : {missing, turned}) {
                auto const place = openPlaceOf(broken);
                ASSERT_TRUE(place) << name;
                EXPECT_NE(std::find(corners.begin(), corners.end(), *place), corners.end()) << name;
            }
        }
}

TEST(ClosedSurface, MissingEdgesRunAlongARimInTheDirectionOfWhatIsMissing)
{
    Soup const soup = openBox(2, 3, 4);
    auto const edges = ClosedSurface::missingEdges(*kernelOf(soup)->readMesh());
    ASSERT_EQ(edges.size(), 4u);
    double area = 0;
    for (auto const& [from, to] : edges) {
        EXPECT_EQ(from.Z(), 4);
        EXPECT_EQ(to.Z(), 4);
        area += (double(from.X()) * to.Y() - double(to.X()) * from.Y()) / 2;
    }
    // Anticlockwise from above, as the top would be.
    EXPECT_DOUBLE_EQ(area, 6);
}

TEST(ClosedSurface, ATriangleThatStandsTwiceLacksItsEdgesTwice)
{
    Soup soup;
    soup.points = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}};
    soup.add(0, 1, 2);
    soup.add(0, 1, 2);
    EXPECT_EQ(ClosedSurface::missingEdges(*kernelOf(soup)->readMesh()).size(), 6u);
}

TEST(ClosedSurface, AnEdgeThatTwoOfThreeTrianglesRunAlongTheSameWayIsLackingOnce)
{
    Soup soup;
    soup.points = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, 0, 1}, {0, -1, 0}};
    soup.add(0, 1, 2);
    soup.add(0, 1, 3);
    soup.add(1, 0, 4);
    // Two more of each triangle.
    EXPECT_EQ(ClosedSurface::missingEdges(*kernelOf(soup)->readMesh()).size(), 7u);
}

TEST(ClosedSurface, BothZerosAreOnePlace)
{
    Soup soup = inPieces(box(2, 3, 4));
    for (std::size_t i = 0; i < soup.points.size(); i += 2)
        for (int k = 0; k < 3; ++k)
            if (soup.points[i][k] == 0)
                soup.points[i][k] = -0.0f;
    EXPECT_FALSE(openPlaceOf(soup));
}

TEST(ClosedSurface, AnOpenPieceOfAClosedPartIsRefusedWithThePlace)
{
    EXPECT_EQ(reasonAgainst(box(1, 1, 1), box(2, 2, 2)), "");
    Soup const open = openBox(1, 1, 1);
    EXPECT_NE(reasonAgainst(open, box(2, 2, 2)).find("A piece would be open near ("),
              std::string::npos);
    EXPECT_EQ(reasonAgainst(open, openBox(2, 2, 2)), "");
}

TEST(ClosedSurface, AnOpenPieceOfAClosedPartIsNotHandedOut)
{
    TestDocument test;
    auto* const closed = test.add(box(2, 2, 2), "closed");
    auto* const open = test.add(openBox(2, 2, 2), "open");
    std::shared_ptr<MeshKernel> const piece = kernelOf(openBox(1, 1, 1));
    CutResultMap result;
    EXPECT_THROW(storePiece(result, closed, piece), Mell::Exception);
    EXPECT_TRUE(result.empty());
    storePiece(result, open, piece);
    storePiece(result, closed, std::make_shared<MeshKernel>());
    storePiece(result, closed, kernelOf(box(1, 1, 1)));
    EXPECT_EQ(result.size(), 2u);
    EXPECT_EQ(result[closed].size(), 1u);
}
