// SPDX-License-Identifier: GPL-3.0-or-later
// What is looked at around a cut with connectors can be left: a part and its halves may have millions
// of triangles.
#include "connectors/AxisRays.h"
#include "connectors/PinPlacement.h"
#include "connectors/PlacedMesh.h"
#include "connectors/ShellSurvey.h"
#include "cutjobs/common/PollingSteps.h"
#include "platform/jobs/Exceptions.h"
#include "tests/connectors/ConnectorScene.h"
#include "tests/support/MeshBuilders.h"

#include <gtest/gtest.h>

namespace {

using Poll = ConnectorProgress::Poll;

/// Work with a poll, which is left as soon as the poll says so.
template <typename Work>
int pollsOf(Work const& work)
{
    int polls = 0;
    work([&] { ++polls; });
    EXPECT_THROW(work([] { throw Mell::AbortException("Aborting..."); }), Mell::AbortException);
    return polls;
}

constexpr int interval = int(PollingSteps::interval);

}  // namespace

TEST(SurveyPolls, RaysPollInProportionToThePart)
{
    for (int const rings : {60, 120, 240}) {
        Soup const ball = sphere(20, rings, 2 * rings);
        PlacedMesh const part(*kernelOf(ball));
        PlaneFrame const frame = frameOf(*planeAt({0, 0, 0}));
        std::vector<UPoint3<float>> const starts{{1, 2, 0}};
        int const polls = pollsOf([&](Poll const& poll) { AxisRays(frame, starts, part, poll); });
        EXPECT_EQ(polls, int(ball.triangles.size()) / interval);
    }
}

TEST(SurveyPolls, ShellsPollInProportionToTheHalves)
{
    for (int const rings : {60, 120, 240}) {
        Soup const ball = sphere(20, rings, 2 * rings);
        Halves const joined{kernelOf(ball), kernelOf(ball)};
        // One pass over each half that is looked at, before and after.
        int const of = int(ball.triangles.size()) / interval;
        int const polls = pollsOf([&](Poll const& poll) {
            ShellSurvey(nullptr, poll).lookAt(ShellSurvey::lower, *joined.lower);
        });
        EXPECT_EQ(polls, of);
        CutRemarks remarks;
        int all = 0;
        ShellSurvey survey(nullptr, [&] { ++all; });
        survey.lookAt(ShellSurvey::upper, *joined.upper);
        survey.tellOf(joined, remarks);
        EXPECT_EQ(all, 2 * of);
        EXPECT_TRUE(remarks.empty());
    }
}

TEST(SurveyPolls, PlacesBesideContoursPollInProportionToThem)
{
    auto const section = sectionOf({rectangle(-100, -80, 100, 80)});
    PlaneFrame const frame = frameOf(*planeAt({0, 0, 0}));
    auto const pollsAt = [&](float spacing) {
        PinHoleParas paras;
        paras.radius = 0.25f;
        paras.sidedistance = 2;
        paras.isSidedis = true;
        paras.spacing = spacing;
        return pollsOf([&](Poll const& poll) {
            PinPlacement(paras, frame, poll).computePositions(section->contours, &section->cap);
        });
    };
    EXPECT_GE(pollsAt(1), 3 * pollsAt(4));
}
