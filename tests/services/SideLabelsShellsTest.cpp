// SPDX-License-Identifier: GPL-3.0-or-later
// What lies on which side of each facet where the tool's shells cross, fold and nest: told absolutely,
// not only in relation to what is near. Results are held against the operands where that takes no
// time; these hold without.
#include "tests/support/BooleanRuns.h"
#include "tests/support/LabelJudge.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/OperandContacts.h"
#include "tests/support/Rounds.h"
#include "tests/support/SmallParts.h"
#include "tests/support/Validator.h"
#include "tests/support/WindingField.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <initializer_list>
#include <random>

namespace {

using Corners = std::array<std::uint32_t, 3>;

void addBox(Soup& soup, Soup shell)
{
    shell.joinPoints();
    soup.append(shell);
}

/// A box and two double pyramids that turn over themselves. The box has the first triangles, of which
/// most are parallel to x: no ray starts there.
Soup boxAndTurnedPyramids()
{
    Soup soup;
    addBox(soup, box(3, 2, 1, {1, 1, 1}));
    auto const at = std::uint32_t(soup.points.size());
    for (auto const& p : std::initializer_list<UPoint3<float>>{{1, 1, 4},
                                                               {3, 2, 4},
                                                               {0, 1, 2},
                                                               {3, 2, 0},
                                                               {0, 3, 4},
                                                               {1, 4, 2},
                                                               {3, 0, 0},
                                                               {3, 0, 2},
                                                               {2, 4, 0},
                                                               {0, 4, 4},
                                                               {2, 4, 1}})
        soup.add(p);
    for (Corners const& t : std::initializer_list<Corners>{{0, 1, 4},
                                                           {1, 0, 5},
                                                           {1, 2, 4},
                                                           {2, 1, 5},
                                                           {2, 3, 4},
                                                           {3, 2, 5},
                                                           {3, 0, 4},
                                                           {0, 3, 5},
                                                           {6, 7, 9},
                                                           {7, 6, 10},
                                                           {7, 8, 9},
                                                           {8, 7, 10},
                                                           {8, 6, 9},
                                                           {6, 8, 10}})
        soup.add(at + t[0], at + t[1], at + t[2]);
    return soup;
}

/// Two boxes and a double pyramid of five sides between them.
Soup boxesAndATurnedPyramid()
{
    Soup soup;
    addBox(soup, box(2, 2, 1, {1, 1, 2}));
    auto const at = std::uint32_t(soup.points.size());
    for (auto const& p : std::initializer_list<UPoint3<float>>{
             {3, 0, 2}, {1, 4, 4}, {0, 4, 3}, {2, 0, 2}, {4, 2, 4}, {2, 1, 0}, {2, 4, 3}})
        soup.add(p);
    for (std::uint32_t i = 0; i < 5; ++i) {
        std::uint32_t const next = (i + 1) % 5;
        soup.add(at + i, at + next, at + 5);
        soup.add(at + next, at + i, at + 6);
    }
    addBox(soup, box(2, 3, 2));
    return soup;
}

/// Points where the union of a part and a tool far from it does not wind as it should.
std::size_t wrongPointsOfUnion(Soup const& part, Soup const& tool)
{
    Soup const united = combined(part, tool, Intersect::BOOLEAN_UNION);
    judge::WindingField const ofTool(tool), ofUnion(united);
    std::mt19937 random(5);
    auto const coordinate = [&] { return 5.0 * (double(random()) / 4294967296.0) - 0.5; };
    std::size_t wrong = 0;
    for (int i = 0; i < 2000; ++i) {
        UPoint3<double> const p(coordinate(), coordinate(), coordinate());
        auto const expected = ofTool.windingAt(p), found = ofUnion.windingAt(p);
        wrong += expected && found && *found != (*expected > 0);
    }
    return wrong;
}

}  // namespace

// None of the first rays tells anything: the tool's first facets are parallel to them. It passed for
// one that winds around nothing.
TEST(SideLabelsOfShells, AreAbsoluteWhereTheFirstFacetsAreParallelToTheRays)
{
    Soup const part = box(1, 1, 1, {50, 50, 50});
    EXPECT_EQ(faultsOfLabels(part, boxAndTurnedPyramids()), "");
    EXPECT_EQ(faultsOfLabels(part, boxesAndATurnedPyramid()), "");
}

// All of it is parallel to the rays, and there is nothing inside.
TEST(SideLabelsOfShells, AgreeWhereAShellIsFoldedFlat)
{
    Soup flat;
    for (auto const& p : std::initializer_list<UPoint3<float>>{
             {2, 3, 0}, {3, 4, 0}, {3, 3, 0}, {0, 3, 0}, {2, 2, 0}})
        flat.add(p);
    for (Corners const& t : std::initializer_list<Corners>{
             {0, 1, 2}, {1, 0, 3}, {1, 4, 2}, {4, 1, 3}, {4, 0, 2}, {0, 4, 3}})
        flat.add(t[0], t[1], t[2]);
    EXPECT_EQ(faultsOfLabels(box(1, 1, 3, {3, 3, 3}), flat), "");
    EXPECT_EQ(faultsOfLabels(box(9, 9, 9, {-2, -2, -4}), flat), "");
}

// Of so large operands results are not held against them.
TEST(SideLabelsOfShells, HoldInResultsThatAreTooLargeToBeChecked)
{
    Soup const part = sphere(4, 240, 240, {50, 50, 50});
    ASSERT_GT(part.triangles.size(), 100'000u);
    EXPECT_EQ(wrongPointsOfUnion(part, boxAndTurnedPyramids()), 0u);
    EXPECT_EQ(wrongPointsOfUnion(part, boxesAndATurnedPyramid()), 0u);
}

// A bar through a block: the curves tell what lies around both patches where it comes through, and the
// rays that are needed start elsewhere. One of the patches is told wrongly if they disagree there.
TEST(SideLabelsOfShells, AreHeldAgainstARayForEachPieceBetweenCurves)
{
    OperandContacts const contacts(box(4, 4, 4), box(8, 2, 2, {-2, 1, 1}));
    std::function<void(int)> const nobody;
    StageProgress progress(nobody);
    CurveNetwork network(contacts.soup());
    ASSERT_TRUE(network.build(contacts.contacts(), progress));
    WindingSources const right = contacts.windings();
    SideLabels labels;
    EXPECT_TRUE(labelSides(contacts.soup(), network, right, labels, progress));
    WindingSources wrong = right;
    wrong.ofSecond = [&](RayOrigin const& point) -> std::optional<int> {
        auto const& [x, y, z] = point.place;
        bool const isInPatch = std::abs(x) < 0.1 && y > 1 && y < 3 && z > 1 && z < 3;
        return isInPatch ? 0 : right.ofSecond(point);
    };
    EXPECT_FALSE(labelSides(contacts.soup(), network, wrong, labels, progress));
}

TEST(SideLabelsOfShells, HoldOnBothSidesOfEachFacetOfAnyShells)
{
    std::mt19937 random(11);
    for (int i = 0; i < rounds(1000) && !HasFailure(); ++i) {
        SCOPED_TRACE(i);
        Soup const first = randomSmallPart(random), second = randomSmallPart(random);
        EXPECT_EQ(faultsOfLabels(first, second), "");
    }
}
