// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/BooleanRuns.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/Rounds.h"
#include "tests/support/Validator.h"

#include <gtest/gtest.h>

#include <array>

namespace {

/// Which unit cells of a grid a solid fills whose faces run along the grid.
class Cells
{
public:
    Cells() = default;
    explicit Cells(Soup const& soup)
    {
        forEach([&](int x, int y, int z) {
            m_isFilled[place(x, y, z)] = windingNumberAt(soup, {x + 0.5, y + 0.4, z + 0.3}) > 0;
        });
    }

    template <typename Rule>
    static Cells combined(Cells const& a, Cells const& b, Rule const& rule)
    {
        Cells cells;
        for (std::size_t i = 0; i < cells.m_isFilled.size(); ++i)
            cells.m_isFilled[i] = rule(a.m_isFilled[i], b.m_isFilled[i]);
        return cells;
    }

    int volume() const
    {
        int count = 0;
        for (bool const isFilled : m_isFilled)
            count += isFilled;
        return count;
    }

    int area() const
    {
        int count = 0;
        forEach([&](int x, int y, int z) {
            bool const here = m_isFilled[place(x, y, z)];
            count += here != isFilledAt(x + 1, y, z);
            count += here != isFilledAt(x, y + 1, z);
            count += here != isFilledAt(x, y, z + 1);
        });
        return count;
    }

private:
    /// The outermost cells are left empty, so that faces are counted from one side only.
    static constexpr int low = -5;
    static constexpr int size = 18;

    template <typename Visit>
    static void forEach(Visit const& visit)
    {
        for (int z = low; z < low + size; ++z)
            for (int y = low; y < low + size; ++y)
                for (int x = low; x < low + size; ++x)
                    visit(x, y, z);
    }

    static std::size_t place(int x, int y, int z)
    {
        return std::size_t(((z - low) * size + y - low) * size + x - low);
    }

    bool isFilledAt(int x, int y, int z) const
    {
        bool const isInside = x < low + size && y < low + size && z < low + size;
        return isInside && m_isFilled[place(x, y, z)];
    }

    std::array<bool, std::size_t(size* size* size)> m_isFilled = {};
};

void expectCells(Cells const& expected, Soup const& result, char const* what)
{
    SCOPED_TRACE(what);
    EXPECT_EQ(closedSolidFaults(result), "");
    EXPECT_EQ(result.triangles.empty(), expected.volume() == 0);
    EXPECT_NEAR(volumeOf(result), expected.volume(), 1e-6 * expected.volume());
    EXPECT_NEAR(areaOf(result), expected.area(), 1e-6 * expected.area());
}

/// All operations on two solids along the grid: exact volumes, and areas that show that no wall and
/// no film is left.
void expectExact(Soup const& a, Cells const& inA, Soup const& b, Cells const& inB)
{
    BooleanPieces const pieces = booleansOf(a, b);
    Cells const common = Cells::combined(inA, inB, [](bool p, bool q) { return p && q; });
    Cells const difference = Cells::combined(inA, inB, [](bool p, bool q) { return p && !q; });
    Cells const united = Cells::combined(inA, inB, [](bool p, bool q) { return p || q; });
    expectCells(united, pieces.united, "union");
    expectCells(common, pieces.common, "common");
    expectCells(difference, pieces.difference, "difference");
    expectCells(common, pieces.within, "split, within");
    expectCells(difference, pieces.outside, "split, outside");
}

void expectExact(Soup const& a, Soup const& b)
{
    expectExact(a, Cells(a), b, Cells(b));
}

/// Where a tool may lie along an axis of a part that reaches from 0 to 8.
struct Reach
{
    int low;
    int high;
    char const* name;
};

constexpr Reach reaches[] = {
    {10, 12, "apart"},      {8, 11, "touching"},       {6, 10, "across"},
    {5, 8, "flush inside"}, {3, 5, "inside"},          {0, 8, "equal"},
    {-2, 10, "around"},     {-3, 0, "touching below"}, {-2, 8, "flush above"}};

Soup boxBetween(Reach const& x, Reach const& y, Reach const& z)
{
    return box(float(x.high - x.low), float(y.high - y.low), float(z.high - z.low),
               {float(x.low), float(y.low), float(z.low)});
}

Soup hollowBox()
{
    Soup soup = box(8, 8, 8);
    Soup cavity = box(4, 4, 4, {2, 2, 2});
    cavity.flip();
    soup.append(cavity);
    return soup;
}

Soup shellsWithinShells()
{
    Soup soup = hollowBox();
    soup.append(box(2, 2, 2, {3, 3, 3}));
    return soup;
}

void expectExactInAllPlacements(Soup const& part)
{
    Cells const inPart(part);
    std::size_t number = 0;
    for (Reach const& x : reaches)
        for (Reach const& y : reaches)
            for (Reach const& z : reaches) {
                if (!isTried(number++))
                    continue;
                SCOPED_TRACE(std::string(x.name) + ", " + y.name + ", " + z.name);
                Soup const tool = boxBetween(x, y, z);
                expectExact(part, inPart, tool, Cells(tool));
            }
}

}  // namespace

TEST(BooleanPlacements, BoxAndBox)
{
    expectExactInAllPlacements(box(8, 8, 8));
}

TEST(BooleanPlacements, HollowBoxAndBox)
{
    expectExactInAllPlacements(hollowBox());
}

TEST(BooleanPlacements, ShellsWithinShellsAndBox)
{
    expectExactInAllPlacements(shellsWithinShells());
}

TEST(BooleanPlacements, ToolOfShellsWithinShells)
{
    Soup const tool = shellsWithinShells();
    Cells const inTool(tool);
    std::size_t number = 0;
    for (Reach const& x : reaches)
        for (Reach const& z : reaches) {
            if (!isTried(number++))
                continue;
            SCOPED_TRACE(std::string(x.name) + ", " + z.name);
            Soup const part = boxBetween(x, {2, 6, "as the cavity"}, z);
            expectExact(part, Cells(part), tool, inTool);
        }
}

TEST(BooleanPlacements, EqualSolidsWithOtherTriangles)
{
    // The same box turned by a quarter has other diagonals.
    float const quarter[16] = {0, 1, 0, 0, -1, 0, 0, 0, 0, 0, 1, 0, 8, 0, 0, 1};
    UMatrix4<float> const turn(quarter);
    expectExact(hollowBox(), moved(hollowBox(), turn));
    expectExact(shellsWithinShells(), shuffled(moved(shellsWithinShells(), turn), 3));
}

TEST(BooleanPlacements, BoxesThatShareAPartOfAFace)
{
    Soup const part = box(8, 8, 8);
    expectExact(part, box(4, 4, 3, {2, 2, 8}));
    expectExact(part, box(4, 4, 3, {4, 4, 8}));
    expectExact(part, box(4, 4, 3, {6, 6, 8}));
    expectExact(part, box(4, 4, 3, {0, 0, 8}));
    expectExact(part, box(10, 4, 3, {-1, 2, 8}));
    expectExact(part, box(4, 4, 3, {2, 2, 5}));
    expectExact(part, box(4, 4, 8, {2, 2, 0}));
}

TEST(BooleanPlacements, CavitiesThatMeet)
{
    // The part's cavity ends in the face of the tool's, or crosses it.
    for (int shift = -3; shift <= 3; ++shift) {
        SCOPED_TRACE(shift);
        Soup tool = hollowBox();
        for (auto& p : tool.points)
            p += UVector3<float>(float(shift), 0, float(shift / 2));
        expectExact(hollowBox(), tool);
        expectExact(shellsWithinShells(), tool);
    }
}

TEST(BooleanPlacements, PartThatTouchesItselfInEdges)
{
    Soup part;
    part.append(box(4, 4, 4));
    part.append(box(4, 4, 4, {4, 4, 0}));
    part.joinPoints();
    for (Soup const& tool :
         {box(2, 2, 2, {3, 3, 1}), box(2, 2, 6, {3, 3, -1}), box(4, 4, 4, {0, 4, 0}),
          box(2, 2, 4, {4, 2, 0}), box(8, 8, 2, {0, 0, 1}), box(8, 4, 4, {0, 0, 0})})
        expectExact(part, tool);
}

TEST(BooleanPlacements, RandomVoxelsAgainstRandomVoxels)
{
    for (unsigned seed = 1; seed <= unsigned(rounds(200)); ++seed) {
        SCOPED_TRACE(seed);
        Soup const part = randomVoxels(3 + int(seed % 3), seed);
        Soup tool = randomVoxels(2 + int(seed % 4), seed + 1000);
        for (auto& p : tool.points)
            p += UVector3<float>(float(seed % 4), float(seed % 3), float(seed % 5)) -
                 UVector3<float>(1, 1, 2);
        expectExact(part, tool);
    }
}
