// SPDX-License-Identifier: GPL-3.0-or-later
// Work can be left at every poll. So polls have to come in proportion to the work, and between two of
// them only so much may be done; both are counted, for times would tell more of the machine.
#include "host/jobs/Threads.h"
#include "host/services/EveryStep.h"
#include "host/services/exact/ArrangedSolids.h"
#include "host/services/exact/CorefinedSolids.h"
#include "platform/services/Intersect.h"
#include "platform/services/Repair.h"
#include "tests/services/AllocationCount.h"
#include "tests/services/DividedFace.h"
#include "tests/support/CorpusParts.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/Rounds.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using Progress = std::function<void(int)>;
using Work = std::function<void(Progress)>;

struct Polls
{
    std::size_t count = 0;
    /// Allocations on the thread that polls.
    std::size_t mostBetween = 0;
};

/// On one thread, so that the same is done between the same polls.
Polls pollsOf(Work const& work)
{
    struct OneThread
    {
        OneThread() { Threads::setThreadCount(1); }
        ~OneThread() { Threads::setThreadCount(0); }
    } const oneThread;
    EveryStep const everyStep;
    Polls polls;
    std::size_t last = allocationCount();
    work([&](int) {
        std::size_t const now = allocationCount();
        ++polls.count;
        polls.mostBetween = std::max(polls.mostBetween, now - last);
        last = now;
    });
    return polls;
}

/// small, large  the same work at two sizes, the second at least four times the first
void expectPollsToGrow(Work const& small, Work const& large)
{
    Polls const few = pollsOf(small), many = pollsOf(large);
    EXPECT_GT(few.count, 10u);
    EXPECT_GE(many.count, 3 * few.count);
    // Some ten milliseconds, where most work is exact arithmetic. Under the address sanitizer records
    // are allocated one by one.
    EXPECT_LE(many.mostBetween, isUnderSanitizers ? 100'000u : 50'000u);
}

Soup shifted(Soup soup, UVector3<float> const& by)
{
    for (UPoint3<float>& p : soup.points)
        p += by;
    return soup;
}

/// A sphere of rough skin, of about so many triangles, that crosses itself in many places.
Soup roughBall(int rings)
{
    return corpus::noisyScan(rings, 2 * rings, 0.12f, 5);
}

Work repairOf(Soup const& soup)
{
    return [soup](Progress const& progress) {
        auto const kernel = kernelOf(soup);
        Repair::RepairMethods(kernel.get()).autoRepair_simple_advanced(progress);
    };
}

using Combine = decltype(Exact::combineArranged)*;

Work combinationOf(Combine combine, int rings)
{
    return [=](Progress const& progress) {
        Soup const a = sphere(20, rings, 2 * rings);
        Soup const b = shifted(a, {3.5f, 2.25f, 1.125f});
        StageProgress stages(progress);
        stages.begin(0, 100, 1);
        combine({a.points, a.triangles}, {b.points, b.triangles}, {true, true, true}, stages);
    };
}

/// A block less so many pins.
Work pinsIn(int perSide)
{
    return [=](Progress const& progress) {
        float const side = 4.0f * float(perSide);
        auto const part = kernelOf(box(side, side, 10));
        Soup pins;
        for (int i = 0; i < perSide * perSide; ++i)
            pins.append(shifted(cylinder(1, 8, 24), {4 * float(i % perSide) + 2.125f,
                                                     4 * float(i / perSide) + 1.75f, 5}));
        auto const tool = kernelOf(pins);
        MeshKernel result;
        std::vector<MeshKernel*> out{&result};
        Intersect::boolean(part.get(), tool.get(), out, Intersect::BOOLEAN_SUBTRACT, progress, 1);
        EXPECT_FALSE(result.readMesh()->triangles.empty());
    };
}

}  // namespace

TEST(PollCount, RepairPollsInProportionToTheCrossings)
{
    expectPollsToGrow(repairOf(roughBall(24)), repairOf(roughBall(56)));
}

TEST(PollCount, RepairPollsInProportionToTheTriangles)
{
    Soup fine = sphere(20, 240, 480);
    fine.append(shifted(sphere(20, 24, 48), {39, 0, 0}));
    Soup coarse = sphere(20, 100, 200);
    coarse.append(shifted(sphere(20, 24, 48), {39, 0, 0}));
    Polls const few = pollsOf(repairOf(coarse)), many = pollsOf(repairOf(fine));
    EXPECT_GE(many.count, few.count + 100);
}

TEST(PollCount, ArrangedSolidsPollInProportionToTheirCurves)
{
    expectPollsToGrow(combinationOf(&Exact::combineArranged, 16),
                      combinationOf(&Exact::combineArranged, 40));
}

TEST(PollCount, CorefinedSolidsPollInProportionToTheirCurves)
{
    expectPollsToGrow(combinationOf(&Exact::combineCorefined, 16),
                      combinationOf(&Exact::combineCorefined, 40));
}

TEST(PollCount, ABooleanWithManyToolsPollsInProportionToThem)
{
    expectPollsToGrow(pinsIn(6), pinsIn(18));
}

// Within one face, too: there may be hundreds of segments in it.
TEST(PollCount, DividingAFacePollsInProportionToItsSegments)
{
    auto const divisionOf = [](int count) {
        return [count](Progress const& progress) {
            int const side = 2 * count;
            std::vector<WholeTriangle> walls;
            for (int y = 1; y < side; y += 2)
                walls.push_back({WholePoint{{-side, y, -1}}, WholePoint{{2 * side, y, -1}},
                                 WholePoint{{2 * side, y, 5}}});
            DividedFace face(
                {WholePoint{{0, 0, 0}}, WholePoint{{side, 0, 0}}, WholePoint{{0, side, 0}}}, walls,
                progress);
            ASSERT_TRUE(face.divide());
            EXPECT_EQ(face.segments().size(), walls.size());
            EXPECT_TRUE(face.faults.isEmpty());
        };
    };
    expectPollsToGrow(divisionOf(100), divisionOf(400));
}
