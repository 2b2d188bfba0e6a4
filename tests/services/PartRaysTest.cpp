// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/boolean/PartRays.h"
#include "tests/services/ToolFamily.h"
#include "tests/support/MeshBuilders.h"

#include <gtest/gtest.h>
#include <tbb/global_control.h>
#include <tbb/task_arena.h>

#include <barrier>
#include <thread>

namespace {

using Point = UPoint3<float>;

std::function<void(int)> const silent;

constexpr float outerRadius = 5, innerRadius = 3;

/// Two balls with one centre, the inner one a second layer, of more triangles than one range holds.
Soup twoBalls()
{
    Soup balls = sphere(outerRadius, 200, 300);
    balls.append(sphere(innerRadius, 100, 200));
    return balls;
}

/// Places off the surfaces of both balls.
std::vector<Point> placesAround(MeshArrays const& balls)
{
    constexpr float clearance = 0.05f;
    Chance chance(19);
    std::vector<Point> places;
    while (places.size() < 100) {
        Point const p = chance.in(boxOf(balls));
        float const distance = (p - Point()).GetLength();
        if (std::abs(distance - outerRadius) > clearance &&
            std::abs(distance - innerRadius) > clearance)
            places.push_back(p);
    }
    return places;
}

void expectLayers(std::vector<Point> const& places, std::vector<std::optional<int>> const& numbers)
{
    ASSERT_EQ(numbers.size(), places.size());
    for (std::size_t i = 0; i < places.size(); ++i) {
        float const distance = (places[i] - Point()).GetLength();
        int const layers = int(distance < outerRadius) + int(distance < innerRadius);
        EXPECT_EQ(numbers[i], layers) << distance;
    }
}

class PartRaysOfTwoBalls : public testing::Test
{
protected:
    StageProgress progress{silent};
    Soup soup = twoBalls();
    MeshArrays part = arraysOf(soup);
    std::unique_ptr<MeshKernel> kernel = kernelOf(soup);
    MeshArrays cutter = arraysOf(box(12, 12, 12, {-6, -6, -6}));
    ToolTree tree{cutter, progress};
    ToolGrid grid{tree, boxOf(part), 1000, progress};
    std::vector<Point> places = placesAround(part);
    PartRays rays{grid, places};

    void offer(std::size_t triangle)
    {
        auto const& c = part.triangles[triangle];
        auto const place = [&](std::size_t corner) {
            return rays.marked(grid.placeOf(part.points[c[corner]]));
        };
        rays.offer({c[0], c[1], c[2]}, place(0), place(1), place(2));
    }
};

}  // namespace

// Each thread keeps a list of its own, and lines are passed by the triangles of all lists and by those
// that nobody has offered.
TEST_F(PartRaysOfTwoBalls, CountTrianglesThatSeveralThreadsHaveNoted)
{
    constexpr std::size_t threads = 3;
    MeshArrays rest = part;
    rest.triangles.clear();
    for (std::size_t t = threads; t < part.triangles.size(); t += threads + 1)
        rest.triangles.push_back(part.triangles[t]);
    // All at once, for a thread that has ended may leave its list to the next.
    std::barrier together(threads);
    std::vector<std::thread> running;
    for (std::size_t thread = 0; thread < threads; ++thread)
        running.emplace_back([&, thread] {
            for (std::size_t t = thread; t < part.triangles.size(); t += threads + 1)
                offer(t);
            together.arrive_and_wait();
        });
    for (std::thread& one : running)
        one.join();
    auto const mesh = kernel->readMesh();
    expectLayers(places, rays.numbers(*mesh, rest, rest.triangles.size(), progress));
}

// Of ranges that several threads have taken the sums are one.
TEST_F(PartRaysOfTwoBalls, CountTheSameOnFourThreads)
{
    tbb::global_control const threads(tbb::global_control::max_allowed_parallelism, 4);
    auto const mesh = kernel->readMesh();
    tbb::task_arena(4).execute([&] {
        for (int run = 0; run < 10; ++run)
            expectLayers(places, rays.numbers(*mesh, part, part.triangles.size(), progress));
    });
}
