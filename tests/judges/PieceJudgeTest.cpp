// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/CorpusParts.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/PieceJudge.h"
#include "tests/support/PieceRules.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

using namespace judge;

namespace {

constexpr std::size_t samples = 400;

/// A part of boxes 20 x 20 x 30 mm, cut at a height of 12, and its pieces, made by hand.
struct CutBox
{
    Source source{box(20, 20, 30)};
    std::vector<Soup> pieces{box(20, 20, 18, {0, 0, 12}), box(20, 20, 12)};

    static std::optional<Expected> rule(UPoint3<double> const& p, int winding)
    {
        Expected expected{{{}, {}}, winding};
        expected.pieces[p.Z() > 12 ? 0 : 1] = solidAs(winding);
        return expected;
    }

    PieceFaults faults() const { return faultsOf(source, pieces, {rule}, samples); }
};

}  // namespace

TEST(WindingField, AgreesWithSolidAnglesInsideAndOutside)
{
    for (Soup const& soup : {nestedBoxes(), crossingBoxes(), torus(20, 6, 20, 9)}) {
        WindingField const field(soup);
        std::size_t told = 0;
        for (int i = 0; i < 300; ++i) {
            UPoint3<double> const p(-30 + 73.1 * (i % 7) / 7, -30 + 71.3 * (i % 11) / 11,
                                    -9 + 38.7 * (i % 13) / 13);
            if (field.isWithin(1e-3, p))
                continue;
            auto const winding = field.windingAt(p);
            if (!winding)
                continue;
            ++told;
            EXPECT_NEAR(field.solidAngleAt(p), *winding, 1e-6);
        }
        EXPECT_GT(told, 250u);
    }
}

TEST(WindingField, KnowsHowNearTheSurfaceIs)
{
    WindingField const field(box(10, 10, 10));
    EXPECT_TRUE(field.isWithin(1.01, {5, 5, 11}));
    EXPECT_FALSE(field.isWithin(0.99, {5, 5, 11}));
    EXPECT_TRUE(field.isWithin(5.01, {5, 5, 5}));
    EXPECT_FALSE(field.isWithin(4.99, {5, 5, 5}));
}

TEST(SurfaceEdges, AreCountedByKind)
{
    EXPECT_TRUE(edgesOf(box(1, 2, 3)).isClosed());
    EXPECT_EQ(edgesOf(openBox(10, 10, 10)).borders, 4u);
    SurfaceEdges const touching = edgesOf(boxesSharingAnEdge());
    EXPECT_EQ(touching.crowdedPaired, 1u);
    EXPECT_FALSE(touching.isClosed());
    EXPECT_TRUE(touching.isPaired());
    Soup turned = box(10, 10, 10);
    std::swap(turned.triangles[0][0], turned.triangles[0][1]);
    EXPECT_EQ(edgesOf(turned).disagreeing, 3u);
    Soup flat = box(10, 10, 10);
    flat.points[0] = flat.points[1];
    EXPECT_GT(edgesOf(flat).flatTriangles, 0u);
}

TEST(SurfaceEdges, AreJoinedByCoordinatesAlone)
{
    // Each triangle with points of its own, as a file without an index has them.
    Soup loose;
    Soup const joined = box(5, 6, 7);
    for (auto const& t : joined.triangles) {
        std::uint32_t const a = loose.add(joined.points[t[0]]);
        loose.add(joined.points[t[1]]);
        loose.add(joined.points[t[2]]);
        loose.add(a, a + 1, a + 2);
    }
    EXPECT_TRUE(edgesOf(loose).isClosed());
    loose.points[4].X() += 1e-5f;
    EXPECT_FALSE(edgesOf(loose).isClosed());
}

TEST(PieceJudge, FindsNothingInRightPieces)
{
    PieceFaults const faults = CutBox().faults();
    EXPECT_TRUE(faults.isNone()) << faults.wrong << faults.open << faults.flawed;
}

TEST(PieceJudge, CatchesPiecesInTheWrongOrder)
{
    CutBox cut;
    std::swap(cut.pieces[0], cut.pieces[1]);
    EXPECT_NE(cut.faults().wrong, "");
}

TEST(PieceJudge, CatchesAMissingPiece)
{
    CutBox cut;
    cut.pieces.pop_back();
    EXPECT_NE(cut.faults().wrong, "");
}

TEST(PieceJudge, CatchesAPartThatIsNotCut)
{
    CutBox cut;
    cut.pieces = {cut.source.soup()};
    EXPECT_NE(cut.faults().wrong, "");
}

TEST(PieceJudge, CatchesMaterialInBothPieces)
{
    CutBox cut;
    cut.pieces[1] = box(20, 20, 12.05f);
    EXPECT_NE(cut.faults().wrong, "");
}

TEST(PieceJudge, CatchesALossOfATenthOfAMillimetre)
{
    CutBox cut;
    cut.pieces[1] = box(20, 20, 11.9f);
    EXPECT_NE(cut.faults().wrong, "");
}

TEST(PieceJudge, CatchesMaterialOutsideThePart)
{
    CutBox cut;
    cut.pieces[0].append(box(0.5f, 0.5f, 0.5f, {25, 5, 20}));
    EXPECT_NE(cut.faults().wrong, "");
}

TEST(PieceJudge, CatchesAnInventedCavity)
{
    CutBox cut;
    Soup cavity = box(1, 1, 1, {9, 9, 20});
    cavity.flip();
    cut.pieces[0].append(cavity);
    EXPECT_NE(cut.faults().wrong, "");
}

TEST(PieceJudge, CatchesAPieceInsideOut)
{
    CutBox cut;
    cut.pieces[0].flip();
    EXPECT_NE(cut.faults().wrong, "");
}

TEST(PieceJudge, CatchesAnOpenPiece)
{
    CutBox cut;
    cut.pieces[1].triangles.pop_back();
    EXPECT_NE(cut.faults().open, "");
}

TEST(PieceJudge, CatchesAnEdgeOfFourThatThePartDoesNotHave)
{
    CutBox cut;
    cut.pieces[0] = box(10, 10, 18, {0, 0, 12});
    cut.pieces[0].append(box(10, 10, 18, {10, 10, 12}));
    EXPECT_NE(cut.faults().flawed, "");
}

TEST(PieceJudge, CatchesATriangleOfNoArea)
{
    CutBox cut;
    cut.pieces[1].add(0, 1, 1);
    EXPECT_NE(cut.faults().flawed, "");
}

TEST(PieceJudge, CatchesACrossingThatThePartDoesNotHave)
{
    // A slit too thin for any sample, whose sides have gone through each other.
    CutBox cut;
    Soup const slit = box(10, 10, 1e-5f, {5, 5, 20});
    cut.pieces[0].append(slit);
    Soup turned = slit;
    turned.flip();
    for (auto& p : turned.points)
        p.X() += p.Y() > 10 ? 1e-4f : -1e-4f;
    cut.pieces[0].append(turned);
    EXPECT_NE(cut.faults().flawed, "");
}

TEST(PieceJudge, OfAnOpenPartAllowsItsOwnBorderAndNoOther)
{
    // The lid is missing; the cut runs below it.
    Source const source(openBox(20, 20, 30));
    Soup upper = box(20, 20, 18, {0, 0, 12});
    std::erase_if(upper.triangles, [&](auto const& t) {
        return upper.points[t[0]].Z() == 30 && upper.points[t[1]].Z() == 30 &&
               upper.points[t[2]].Z() == 30;
    });
    Rule const rule{CutBox::rule};
    EXPECT_TRUE(faultsOf(source, {upper, box(20, 20, 12)}, rule, samples).isNone());
    // A piece with a lid of its own is another shape.
    EXPECT_NE(faultsOf(source, {box(20, 20, 18, {0, 0, 12}), box(20, 20, 12)}, rule, samples).wrong,
              "");
    Soup lower = box(20, 20, 12);
    lower.triangles.pop_back();
    EXPECT_NE(faultsOf(source, {upper, lower}, rule, samples).open, "");
}

TEST(PieceJudge, AllowsCrossingsToBeResolvedButNotCutOut)
{
    Source const source(crossingBoxes());
    Rule const rule{[](UPoint3<double> const&, int winding) -> std::optional<Expected> {
        return Expected{{solidAs(winding)}, std::max(winding, 0)};
    }};
    EXPECT_TRUE(faultsOf(source, {crossingBoxes()}, rule, samples).isNone());
    EXPECT_NE(faultsOf(source, {box(20, 20, 20)}, rule, samples).wrong, "");
}

TEST(PieceJudge, OfRepeatedTrianglesTakesThoseAwayThatAreTooMany)
{
    Soup const one = box(20, 20, 30);
    Soup doubled = one;
    doubled.triangles.push_back(one.triangles[3]);
    EXPECT_EQ(inOrder(doubled).triangles.size(), one.triangles.size());
    Soup layers = one;
    layers.append(one);
    layers.joinPoints();
    EXPECT_EQ(inOrder(layers).triangles.size(), layers.triangles.size());
    Soup thrice = layers;
    thrice.triangles.push_back(layers.triangles[3]);
    EXPECT_EQ(inOrder(thrice).triangles.size(), layers.triangles.size());
    Soup missing = layers;
    missing.triangles.erase(missing.triangles.begin() + 3);
    EXPECT_EQ(inOrder(missing).triangles.size(), one.triangles.size());
}

/// Of a box that is there twice, one side of the second open, the upper piece has two layers and
/// the lower one; what is solid is as clear as ever.
TEST(PieceJudge, WhereLayersAreInDoubtJudgesWhatIsSolid)
{
    Soup part = box(20, 20, 30);
    part.append(part);
    part.joinPoints();
    // One of the floor's.
    auto const lies = [&](auto const& t) {
        return std::all_of(t.begin(), t.end(),
                           [&](auto corner) { return part.points[corner].Z() == 0; });
    };
    part.triangles.erase(std::find_if(part.triangles.begin(), part.triangles.end(), lies));
    Source const source(part);
    ASSERT_TRUE(source.isClosedInOrder());
    EXPECT_EQ(source.layersInDoubtAt({10, 10, 15}), 1);
    EXPECT_EQ(source.layersInDoubtAt({10, 10, -0.1}), 0);
    Soup const above = box(20, 20, 18, {0, 0, 12}), below = box(20, 20, 12);
    Soup twice = above;
    twice.append(above);
    Rule const rule{CutBox::rule};
    EXPECT_EQ(faultsOf(source, {above, below}, rule, samples).wrong, "");
    EXPECT_EQ(faultsOf(source, {twice, below}, rule, samples).wrong, "");
    EXPECT_NE(faultsOf(source, {above, Soup()}, rule, samples).wrong, "");
    EXPECT_NE(faultsOf(source, {above, box(20, 20, 12.05f)}, rule, samples).wrong, "");
    Soup turned = above;
    turned.flip();
    EXPECT_NE(faultsOf(source, {turned, below}, rule, samples).wrong, "");
}

// One triangle that is there twice encloses nothing: nowhere is a second layer right.
TEST(PieceJudge, AllowsNoOtherLayerWhereOneTriangleIsDoubled)
{
    Soup part = box(20, 20, 30);
    part.joinPoints();
    part.triangles.push_back(part.triangles[3]);
    Source const source(part);
    Soup const above = box(20, 20, 18, {0, 0, 12}), below = box(20, 20, 12);
    Soup twice = above;
    twice.append(above);
    Rule const rule{CutBox::rule};
    EXPECT_EQ(faultsOf(source, {above, below}, rule, samples).wrong, "");
    EXPECT_NE(faultsOf(source, {twice, below}, rule, samples).wrong, "");
}

/// A box without a triangle of its floor, cut at 12 with a connector that reaches up to 3.
TEST(PieceJudge, JudgesOpenPiecesOfConnectorsBeyondTheirReach)
{
    Soup part = box(20, 20, 30);
    std::erase_if(part.triangles, [&, isFirst = true](auto const& t) mutable {
        bool const isFloor = std::all_of(t.begin(), t.end(),
                                         [&](auto corner) { return part.points[corner].Z() == 0; });
        return isFloor && std::exchange(isFirst, false);
    });
    Source const source(part);
    ASSERT_FALSE(source.isClosedInOrder());
    Rule const rule = connectorRule({{0, 0, 12}, {0, 0, 1}}, source.margin(), 3);
    auto const cutAt = [&](float height, float low) {
        Soup piece = part;
        for (auto& p : piece.points)
            p.Z() = p.Z() == 0 ? low : height;
        return piece;
    };
    Soup pin = box(4, 4, 5, {8, 8, 9.5f});
    Soup const below = cutAt(11.9f, 0);
    Soup above = box(20, 20, 17.9f, {0, 0, 12.1f});
    EXPECT_EQ(faultsOf(source, {below, above}, rule, samples).wrong, "");
    above.append(pin);
    EXPECT_EQ(faultsOf(source, {below, above}, rule, samples).wrong, "");
    EXPECT_NE(faultsOf(source, {below, box(20, 20, 10, {0, 0, 12.1f})}, rule, samples).wrong, "");
    EXPECT_NE(faultsOf(source, {Soup(), above}, rule, samples).wrong, "");
    above.append(box(4, 4, 4, {8, 8, 18}));
    EXPECT_NE(faultsOf(source, {below, above}, rule, samples).wrong, "");
}

TEST(CorpusParts, AreAsTheirKindsSay)
{
    for (corpus::Part const& part : corpus::parts()) {
        SCOPED_TRACE(part.name);
        Source const source(part.soup);
        bool const isOpen = part.kind == "open";
        bool const isDisordered = part.kind == "duplicated or flipped triangles";
        EXPECT_EQ(source.unpaired().empty(), !isOpen && !isDisordered && part.name != "inner-wall");
        if (part.kind == "clean") {
            EXPECT_TRUE(source.edges().isClosed());
            EXPECT_EQ(source.crossings().total(), 0u);
        }
        if (part.kind == "crosses itself" || part.kind == "overlapping shells") {
            EXPECT_GT(source.crossings().total(), 0u);
        }
        if (part.kind == "edges of four and six") {
            EXPECT_FALSE(source.edges().isClosed());
        }
    }
}
