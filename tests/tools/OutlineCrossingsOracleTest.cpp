// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/Rounds.h"
#include "tests/tools/FlatShapes.h"
#include "tools/LoopNesting.h"
#include "tools/OutlineCrossings.h"
#include "tools/SegmentRelation.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace {

using Freecut::FlatLoops;
using Freecut::FlatRing;
using Freecut::ResolvedLoops;
using Freecut::resolveSelfIntersections;
using Point = UPoint2<float>;

/// The steps one by one, with all pairs compared and plain searches.
class SlowResolver
{
public:
    explicit SlowResolver(FlatRing outline) : q(std::move(outline)), m(q.size()), lists(m)
    {
        for (std::size_t i = 0; i < m; ++i)
            lists[i].push_back(q[i]);
        q.push_back(q[0]);
        for (std::size_t i = 0; i < m; ++i)
            for (std::size_t j = i + 2; j < m; ++j)
                compare(i, j);
        for (FlatRing& list : lists)
            sort(list);
    }

    ResolvedLoops loops()
    {
        auto segments = makeSegments();
        ResolvedLoops result;
        while (!segments.empty()) {
            auto [start, end, flag] = segments.front();
            segments.erase(segments.begin());
            FlatRing loop{start};
            bool isClosed = true;
            while (end != start) {
                auto const next = std::find_if(segments.begin(), segments.end(),
                                               [place = end, side = flag](Segment const& s) {
                                                   return s.start == place && s.flag == side;
                                               });
                isClosed = next != segments.end();
                if (!isClosed)
                    break;
                loop.push_back(next->start);
                end = next->end;
                segments.erase(next);
            }
            loop.push_back(end);
            if (loop.size() > 2)
                (flag && isClosed ? result.solid : result.residual).push_back(loop);
        }
        Freecut::moveNestedLoops(result.solid, result.residual);
        return result;
    }

private:
    struct Segment
    {
        Point start, end;
        bool flag;
    };

    Point const& point(std::ptrdiff_t i) const
    {
        return q[std::size_t((i + std::ptrdiff_t(m)) % std::ptrdiff_t(m))];
    }
    static double distance(Point const& a, Point const& b)
    {
        double const x = double(a.X()) - b.X(), y = double(a.Y()) - b.Y();
        return std::sqrt(x * x + y * y);
    }
    void compare(std::size_t i, std::size_t j)
    {
        Point p1, p2, x, y;
        auto const a = std::ptrdiff_t(i), c = std::ptrdiff_t(j);
        auto const cross = [&](std::ptrdiff_t first, std::ptrdiff_t second) {
            return Freecut::segmentRelation(point(first), point(first + 1), point(second),
                                            point(second + 1), x, y) == 1;
        };
        auto const straddles = [&](std::ptrdiff_t e) {
            return Freecut::turnOf(point(e), point(e + 1), point(e - 1)) *
                       Freecut::turnOf(point(e), point(e + 1), point(e + 2)) <
                   0;
        };
        int const code = Freecut::segmentRelation(q[i], q[i + 1], q[j], q[j + 1], p1, p2);
        bool const passes =
            (code == -4 && straddles(c)) || (code == -14 && straddles(a)) ||
            (code == -6 && cross(c - 1, a - 1)) || (code == -10 && cross(c - 1, a + 1)) ||
            (code == -8 && cross(c + 1, a - 1)) || (code == -12 && cross(c + 1, a + 1));
        bool const isClear = code == 1 && distance(p1, q[i]) > 0.001 &&
                             distance(p1, q[i + 1]) > 0.001 && distance(p1, q[j]) > 0.001 &&
                             distance(p1, q[j + 1]) > 0.001;
        if (!passes && !isClear)
            return;
        Point const split = isClear ? p1 : (p1 + p2) / 2.0f;
        lists[i].push_back(split);
        lists[j].push_back(split);
    }
    static void sort(FlatRing& list)
    {
        for (std::size_t i = 2; i < list.size(); ++i)
            for (std::size_t k = i;
                 k > 1 && distance(list[0], list[k]) < distance(list[0], list[k - 1]); --k)
                std::swap(list[k], list[k - 1]);
    }
    std::vector<Segment> makeSegments() const
    {
        std::vector<Segment> segments;
        bool flag = true;
        for (std::size_t i = 0; i < m; ++i) {
            FlatRing line = lists[i];
            line.push_back(q[i + 1]);
            for (std::size_t k = 0; k + 1 < line.size(); ++k) {
                if (k > 0)
                    flag = !flag;
                segments.push_back(flag ? Segment{line[k], line[k + 1], true}
                                        : Segment{line[k + 1], line[k], false});
            }
        }
        return segments;
    }

    FlatRing q;
    std::size_t m;
    FlatLoops lists;
};

}  // namespace

TEST(OutlineCrossings, RandomOutlinesAreResolvedAsByTheSlowSteps)
{
    std::mt19937 random(20260101);
    int withResidual = 0;
    for (int run = 0; run < rounds(3000); ++run) {
        // Small ranges are full of touches and overlaps, large ones of proper crossings.
        int const range = run % 3 == 0 ? 4 : run % 3 == 1 ? 20 : 100000;
        std::uniform_int_distribution<int> coordinate(-range, range);
        FlatRing outline(3 + run % 40);
        for (Point& p : outline)
            p = {float(coordinate(random)), float(coordinate(random))};
        ResolvedLoops const expected = SlowResolver(outline).loops();
        ResolvedLoops const actual = resolveSelfIntersections(outline);
        ASSERT_EQ(actual.solid, expected.solid) << "run " << run;
        ASSERT_EQ(actual.residual, expected.residual) << "run " << run;
        withResidual += !expected.residual.empty();
    }
    EXPECT_GT(withResidual, rounds(1000));
}

TEST(OutlineCrossings, OutlinesBeyondTheReachOfExactProductsAreResolvedAlike)
{
    std::mt19937 random(7);
    std::uniform_real_distribution<float> coordinate(-4e9f, 4e9f);
    for (int run = 0; run < 50; ++run) {
        FlatRing outline(20);
        for (Point& p : outline)
            p = {coordinate(random), coordinate(random)};
        outline = wholeNumbers(outline);
        EXPECT_EQ(resolveSelfIntersections(outline).solid, SlowResolver(outline).loops().solid);
    }
}

TEST(OutlineCrossings, AHatchOfManyCrossingsFallsIntoItsCells)
{
    constexpr int strokes = 200;
    ResolvedLoops const loops = resolveSelfIntersections(crossHatch(strokes, 100));
    EXPECT_FALSE(loops.isTooComplicated);
    // Where four cells meet the outline crosses itself; sides alternate from cell to cell.
    EXPECT_GT(loops.solid.size(), 0u);
    std::size_t points = 0;
    for (FlatLoops const* const list : {&loops.solid, &loops.residual})
        for (FlatRing const& loop : *list)
            points += loop.size() - 1;
    EXPECT_GE(points, 2u * strokes * strokes) << "each crossing starts two pieces";
}

TEST(OutlineCrossings, AMillionCrossingsAreTheMost)
{
    EXPECT_FALSE(resolveSelfIntersections(crossHatch(100, 100)).isTooComplicated);
    ResolvedLoops const loops = resolveSelfIntersections(crossHatch(1002, 100));
    EXPECT_TRUE(loops.isTooComplicated);
    EXPECT_TRUE(loops.solid.empty());
    EXPECT_TRUE(loops.residual.empty());
}
