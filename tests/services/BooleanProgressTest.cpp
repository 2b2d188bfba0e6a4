// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/jobs/Threads.h"
#include "host/services/EveryStep.h"
#include "platform/jobs/Exceptions.h"
#include "tests/support/BooleanRuns.h"
#include "tests/support/MadeModels.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/Rounds.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <stdexcept>
#include <thread>

namespace {

/// One call of an operation on a part and a tool that cross, with its output kernels.
class BooleanCall
{
public:
    static constexpr int kinds = 4;

    /// kind  0 to 2: union, intersection, difference; 3: split
    BooleanCall(Soup const& part, Soup const& tool, int kind)
        : m_part(kernelOf(part)), m_tool(kernelOf(tool)), m_kind(kind)
    {}

    void operator()(std::function<void(int)> progress)
    {
        static constexpr Intersect::BooleanType types[] = {
            Intersect::BOOLEAN_UNION, Intersect::BOOLEAN_INTERSECT, Intersect::BOOLEAN_SUBTRACT};
        std::vector<MeshKernel*> out{&first};
        if (m_kind < 3)
            Intersect::boolean(m_part.get(), m_tool.get(), out, types[m_kind], progress, 1);
        else
            Intersect::boolean_subtract_keep(m_part.get(), m_tool.get(), &first, &second, progress,
                                             1);
    }

    bool isEmpty() const
    {
        for (MeshKernel const* const kernel : {&first, &second}) {
            auto const mesh = kernel->readMesh();
            if (!mesh->triangles.empty() || !mesh->vertices.empty() || mesh->triangleCount != 0)
                return false;
        }
        return true;
    }

    MeshKernel first, second;

private:
    std::unique_ptr<MeshKernel> m_part, m_tool;
    int m_kind;
};

Soup part()
{
    return sphere(20, 60, 80);
}

/// Many bodies in one mesh, as pins and holes are.
Soup tool()
{
    Soup soup;
    for (int i = -3; i <= 3; ++i) {
        Soup pin = cylinder(1, 60, 24);
        for (auto& p : pin.points)
            p += UVector3<float>(float(4 * i) + 0.25f, 0.125f * float(i), -30);
        soup.append(pin);
    }
    return soup;
}

/// The coordinates of the triangles, in order.
std::vector<float> bytesOf(MeshKernel const& kernel)
{
    std::vector<float> coordinates;
    auto const mesh = kernel.readMesh();
    for (auto const* const triangle : mesh->triangles)
        for (int i = 0; i < 3; ++i)
            for (int axis = 0; axis < 3; ++axis)
                coordinates.push_back(triangle->cP(i)[axis]);
    return coordinates;
}

bool haveSameBytes(std::vector<float> const& a, std::vector<float> const& b)
{
    return a.size() == b.size() &&
           (a.empty() || std::memcmp(a.data(), b.data(), a.size() * sizeof(float)) == 0);
}

/// Takes the limit on threads away again.
struct ThreadLimit
{
    explicit ThreadLimit(int count) { Threads::setThreadCount(count); }
    ~ThreadLimit() { Threads::setThreadCount(0); }
};

struct OwnFailure
{
};

}  // namespace

TEST(BooleanProgress, MovesFromNothingToAllOnTheCallingThread)
{
    for (int kind = 0; kind < BooleanCall::kinds; ++kind) {
        SCOPED_TRACE(kind);
        std::vector<int> percentages;
        auto const caller = std::this_thread::get_id();
        BooleanCall call(part(), tool(), kind);
        call([&](int percent) {
            EXPECT_EQ(std::this_thread::get_id(), caller);
            percentages.push_back(percent);
        });
        ASSERT_GE(percentages.size(), 2u);
        EXPECT_TRUE(std::is_sorted(percentages.begin(), percentages.end()))
            << testing::PrintToString(percentages);
        EXPECT_GE(percentages.front(), 0);
        EXPECT_LT(percentages.front(), 50);
        EXPECT_EQ(percentages.back(), 100);
        EXPECT_FALSE(call.isEmpty());
    }
}

TEST(BooleanProgress, NeverFallsAtAnyStep)
{
    EveryStep const everyStep;
    for (int kind = 0; kind < BooleanCall::kinds; ++kind) {
        int last = 0;
        BooleanCall call(part(), tool(), kind);
        call([&](int percent) {
            EXPECT_GE(percent, last);
            last = percent;
        });
        EXPECT_EQ(last, 100);
    }
}

TEST(BooleanProgress, CancelAtAnyPercentagePassesAndLeavesNothing)
{
    for (int kind = 0; kind < BooleanCall::kinds; ++kind)
        for (int limit = 0; limit <= 100; limit += int(roundStride)) {
            SCOPED_TRACE(std::to_string(kind) + " at " + std::to_string(limit));
            BooleanCall call(part(), tool(), kind);
            try {
                call([limit](int percent) {
                    if (percent >= limit)
                        throw Mell::AbortException("Aborting...");
                });
                FAIL() << "the exception did not pass";
            } catch (Mell::AbortException const& abort) {
                EXPECT_STREQ(abort.what(), "Aborting...");
            }
            EXPECT_TRUE(call.isEmpty());
        }
}

TEST(BooleanProgress, EveryReportMayBeTheLast)
{
    for (int kind = 0; kind < BooleanCall::kinds; ++kind) {
        std::size_t reports = 0;
        BooleanCall(part(), tool(), kind)([&](int) { ++reports; });
        for (std::size_t last = 0; last < reports; last += roundStride) {
            BooleanCall call(part(), tool(), kind);
            std::size_t count = 0;
            // How many reports there are depends on the time that the stages take.
            try {
                call([&](int) {
                    if (count++ == last)
                        throw Mell::AbortException("Aborting...");
                });
                EXPECT_LE(count, last);
            } catch (Mell::AbortException const&) {
                EXPECT_TRUE(call.isEmpty());
            }
        }
    }
}

TEST(BooleanProgress, OtherExceptionsPassAsTheyAre)
{
    for (int kind = 0; kind < BooleanCall::kinds; ++kind) {
        BooleanCall standard(part(), tool(), kind);
        EXPECT_THROW(standard([](int) { throw std::runtime_error("no"); }), std::runtime_error);
        EXPECT_TRUE(standard.isEmpty());
        BooleanCall own(part(), tool(), kind);
        EXPECT_THROW(own([](int percent) {
                         if (percent > 20)
                             throw OwnFailure();
                     }),
                     OwnFailure);
        EXPECT_TRUE(own.isEmpty());
        BooleanCall text(part(), tool(), kind);
        EXPECT_THROW(text([](int) { throw Mell::AbortException("Other."); }), Mell::AbortException);
        EXPECT_TRUE(text.isEmpty());
    }
}

TEST(BooleanProgress, WorksAgainAfterACancel)
{
    BooleanCall call(part(), tool(), 3);
    EXPECT_THROW(call([](int percent) {
                     if (percent >= 50)
                         throw Mell::AbortException("Aborting...");
                 }),
                 Mell::AbortException);
    call({});
    EXPECT_FALSE(call.first.readMesh()->triangles.empty());
    EXPECT_FALSE(call.second.readMesh()->triangles.empty());
}

TEST(BooleanThreads, SameBytesWithAnyNumberOfThreads)
{
    for (int kind = 0; kind < BooleanCall::kinds; ++kind) {
        std::vector<float> expected, expectedSecond;
        for (int const count : {1, 2, 4, 2, 1}) {
            SCOPED_TRACE(std::to_string(kind) + " with threads: " + std::to_string(count));
            ThreadLimit const limit(count);
            BooleanCall call(part(), tool(), kind);
            call({});
            if (expected.empty()) {
                expected = bytesOf(call.first);
                expectedSecond = bytesOf(call.second);
                EXPECT_FALSE(expected.empty());
            }
            EXPECT_TRUE(haveSameBytes(expected, bytesOf(call.first)));
            EXPECT_TRUE(haveSameBytes(expectedSecond, bytesOf(call.second)));
        }
    }
}

TEST(BooleanThreads, SameBytesWithAnyNumberOfThreadsOnALargeModel)
{
    Soup const model = scannedHead(fineness(150));
    auto const bounds = kernelOf(model)->GetBox();
    UPoint3<float> const centre = (bounds.min + bounds.max) * 0.5f;
    Soup cutter = cylinder(15, 300, 63);
    for (auto& p : cutter.points)
        p += UVector3<float>(centre.X(), centre.Y(), centre.Z() - 150);
    std::vector<float> expected, expectedSecond;
    for (int const count : {1, 4, 2}) {
        ThreadLimit const limit(count);
        BooleanCall call(model, cutter, 3);
        call({});
        if (expected.empty()) {
            expected = bytesOf(call.first);
            expectedSecond = bytesOf(call.second);
            EXPECT_FALSE(expected.empty());
        }
        EXPECT_TRUE(haveSameBytes(expected, bytesOf(call.first)));
        EXPECT_TRUE(haveSameBytes(expectedSecond, bytesOf(call.second)));
    }
}
