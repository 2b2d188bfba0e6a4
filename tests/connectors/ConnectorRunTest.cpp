// SPDX-License-Identifier: GPL-3.0-or-later
#include "connectors/ConnectorRun.h"
#include "platform/jobs/ConsoleSingleton.h"
#include "platform/jobs/Exceptions.h"
#include "tests/connectors/CutterRun.h"
#include "tests/cutjobs/RecordingSink.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/Rounds.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <set>
#include <utility>

namespace {

Soup const block = prism({rectangle(-20, -20, 20, 20)}, -20, 20);
/// Too narrow for any connector.
Soup const blade = prism({rectangle(-20, -1, 20, 1)}, -20, 20);

PinHoleParas pins(float faceclearance, bool isPin = true)
{
    PinHoleParas p;
    p.faceclearance = faceclearance;
    p.isPin = isPin;
    p.spacing = 15;
    return p;
}

struct Scene
{
    std::unique_ptr<Freecut::PlaneGraphicObject> plane = planeAt({0, 0, 0});
    TestDocument test;

    template <typename Cutter, typename Paras>
    std::vector<int> progressOf(Paras const& paras, std::vector<Mesh::DocumentObject*> const& parts)
    {
        std::vector<int> values;
        Cutter cutter(paras, false, parts, plane.get());
        EXPECT_TRUE(cutter.execute([&](int percent) { values.push_back(percent); }));
        return values;
    }

    template <typename Cutter, typename Paras>
    CutResultMap resultOf(Paras const& paras, std::vector<Mesh::DocumentObject*> const& parts)
    {
        Cutter cutter(paras, false, parts, plane.get());
        EXPECT_TRUE(cutter.execute({}));
        return cutter.getResult();
    }
};

class Console
{
public:
    Console()
    {
        Base::ConsoleSingleton::Instance().setListener(
            [this](std::string const& line) { lines.push_back(line); });
    }
    ~Console() { Base::ConsoleSingleton::Instance().setListener({}); }

    std::vector<std::string> lines;
};

bool isAbove(std::shared_ptr<MeshKernel> const& piece)
{
    piece->UpdateBoundingBox();
    return piece->GetBox().MaxZ() > 10;
}

/// Runs with a progress function that may throw; returns what left execute and what it logged.
template <typename Cutter, typename Paras>
std::string endOf(Paras const& paras, std::function<void(int)> const& progress,
                  std::vector<std::string>& lines)
{
    Scene scene;
    Console const console;
    std::vector<Mesh::DocumentObject*> const parts{scene.test.add(block, "a"),
                                                   scene.test.add(block, "b")};
    Cutter cutter(paras, false, parts, scene.plane.get());
    std::string left = "returned";
    try {
        cutter.execute(progress);
    } catch (Mell::AbortException const& abort) {
        left = std::string("abort ") + abort.what();
    } catch (char const* failure) {
        left = std::string("failure ") + failure;
    }
    lines = console.lines;
    EXPECT_EQ(cutter.getResult().empty(), left != "returned");
    return left;
}

/// Aborts at the n-th progress value.
template <typename Cutter, typename Paras>
std::string cancelAt(Paras const& paras, std::size_t n, char const* text,
                     std::vector<std::string>& lines)
{
    std::size_t count = 0;
    return endOf<Cutter>(
        paras,
        [&](int) {
            if (++count == n)
                throw Mell::AbortException(text);
        },
        lines);
}

/// Cancels at the first value of a percentage or more.
template <typename Cutter, typename Paras>
std::string cancelFrom(Paras const& paras, int percent, std::vector<std::string>& lines)
{
    return endOf<Cutter>(
        paras,
        [percent](int value) {
            if (value >= percent)
                throw Mell::AbortException("Aborting...");
        },
        lines);
}

/// Cancels runs over two parts at each percentage that a whole run reports. How many values come
/// depends on how long the services take, but every percentage is passed.
///
/// stagesEnd  the last percentage within a stage
template <typename Cutter, typename Paras>
void cancelAtEveryValue(Paras const& paras, int stagesEnd)
{
    // There is one application at a time.
    std::vector<int> const values = [&paras] {
        Scene scene;
        return scene.progressOf<Cutter>(paras,
                                        {scene.test.add(block, "a"), scene.test.add(block, "b")});
    }();
    std::set<int> const percentages(values.begin(), values.end());
    EXPECT_GE(percentages.size(), 15u);
    bool const reportsStart = values.front() == 0 && values[1] == 0;
    std::size_t number = std::size_t(stagesEnd);
    for (int const percent : percentages) {
        if (!isTried(number++))
            continue;
        SCOPED_TRACE(percent);
        std::vector<std::string> lines;
        EXPECT_EQ(cancelFrom<Cutter>(paras, percent, lines), "abort Aborting...");
        // Where the run is left, and before that where a stage is, if it was in one.
        bool const isInStage = percent <= stagesEnd && !(percent == 0 && reportsStart);
        EXPECT_EQ(lines, std::vector<std::string>(isInStage ? 2 : 1, "Command Abort."));
    }
}

/// The lowest and the highest point.
std::pair<float, float> extentAlongZ(MeshKernel const& piece)
{
    Soup const soup = soupOf(piece);
    auto const [low, high] =
        std::minmax_element(soup.points.begin(), soup.points.end(),
                            [](auto const& p, auto const& q) { return p.Z() < q.Z(); });
    return {low->Z(), high->Z()};
}

/// A run over the blade, whose section has no room: the plain halves, a gap apart, without a word.
template <typename Cutter, typename Paras>
void expectPlainHalves(Paras const& paras, float gap)
{
    Scene scene;
    Console const console;
    auto* const part = scene.test.add(blade, "part");
    auto pieces = scene.resultOf<Cutter>(paras, {part}).at(part);
    ASSERT_EQ(pieces.size(), 2u);
    if (isAbove(pieces[0]))
        std::swap(pieces[0], pieces[1]);
    EXPECT_EQ(extentAlongZ(*pieces[0]), (std::pair{-20.0f, 0.0f}));
    EXPECT_EQ(extentAlongZ(*pieces[1]), (std::pair{gap, 20.0f}));
    for (auto const& piece : pieces)
        EXPECT_EQ(closedSolidFaults(*piece), "");
    EXPECT_NEAR(volumeOf(soupOf(*pieces[0])), 40 * 2 * 20, 1e-3);
    EXPECT_TRUE(console.lines.empty());
}

}  // namespace

TEST(ConnectorRun, TheLowerHalfComesFirst)
{
    Scene scene;
    auto* const part = scene.test.add(block, "part");
    auto const expectLowerFirst = [&](CutResultMap const& result) {
        auto const& pieces = result.at(part);
        ASSERT_EQ(pieces.size(), 2u);
        EXPECT_FALSE(isAbove(pieces[0]));
        EXPECT_TRUE(isAbove(pieces[1]));
    };
    expectLowerFirst(scene.resultOf<LapJointCutter>(LapJointParas(), {part}));
    for (float const gap : {0.0f, 0.1f})
        for (bool const isPin : {false, true})
            expectLowerFirst(scene.resultOf<PinHoleCutter>(pins(gap, isPin), {part}));
}

TEST(ConnectorRun, WithoutConnectorsTheUpperHalfComesFirstInAOneCutRunOnly)
{
    Scene scene;
    auto* const part = scene.test.add(blade, "part");
    EXPECT_FALSE(isAbove(scene.resultOf<PinHoleCutter>(pins(0.1f), {part}).at(part)[0]));
    EXPECT_FALSE(isAbove(scene.resultOf<LapJointCutter>(LapJointParas(), {part}).at(part)[0]));
    auto const pieces = scene.resultOf<PinHoleCutter>(pins(0), {part}).at(part);
    ASSERT_EQ(pieces.size(), 2u);
    EXPECT_TRUE(isAbove(pieces[0]));
    EXPECT_FALSE(isAbove(pieces[1]));
}

TEST(ConnectorRun, WithoutRoomTheHalvesKeepTheirGapAndTheConsoleIsSilent)
{
    for (float const gap : {0.0f, 0.125f})
        for (bool const isPin : {false, true}) {
            PinHoleParas paras = pins(gap, isPin);
            expectPlainHalves<PinHoleCutter>(paras, gap);
            paras.isSidedis = true;
            expectPlainHalves<PinHoleCutter>(paras, gap);
        }
    for (float const gap : {0.0f, 0.25f}) {
        LapJointParas paras;
        paras.frontClearance = gap;
        expectPlainHalves<LapJointCutter>(paras, gap);
    }
}

TEST(ConnectorRun, APartBesideThePlaneIsOnePiece)
{
    Scene scene;
    auto* const above = scene.test.add(box(5, 5, 5, {0, 0, 10}), "above");
    auto* const below = scene.test.add(box(5, 5, 5, {0, 0, -10}), "below");
    for (auto const& result : {scene.resultOf<LapJointCutter>(LapJointParas(), {above, below}),
                               scene.resultOf<PinHoleCutter>(pins(0), {above, below}),
                               scene.resultOf<PinHoleCutter>(pins(0.1f), {above, below})}) {
        ASSERT_EQ(result.size(), 2u);
        EXPECT_EQ(result.at(above).size(), 1u);
        EXPECT_EQ(result.at(below).size(), 1u);
    }
}

TEST(ConnectorRun, APartWithinTheGapOrWithoutMeshHasNoEntry)
{
    Scene scene;
    auto* const thin = scene.test.add(box(5, 5, 0.1f, {0, 0, 0.05f}), "thin");
    auto* const empty = scene.test.add({}, "empty");
    EXPECT_TRUE(scene.resultOf<LapJointCutter>(LapJointParas(), {thin, empty}).empty());
    EXPECT_TRUE(scene.resultOf<PinHoleCutter>(pins(0.2f), {thin, empty}).empty());
    EXPECT_EQ(scene.resultOf<PinHoleCutter>(pins(0), {thin, empty}).size(), 1u);
}

TEST(ConnectorRun, EachPartGetsConnectorsOfItsOwn)
{
    Scene scene;
    auto* const a = scene.test.add(block, "a");
    auto* const b = scene.test.add(block, "b");
    CutResultMap const result = scene.resultOf<PinHoleCutter>(pins(0.1f), {a, b, nullptr});
    ASSERT_EQ(result.size(), 2u);
    EXPECT_EQ(soupOf(*result.at(a)[0]).points, soupOf(*result.at(b)[0]).points);
}

TEST(ConnectorRun, ThePartStaysAsItIs)
{
    Scene scene;
    auto* const part = scene.test.add(block, "part");
    auto const mesh = part->meshProperty->getMesh()->readMesh();
    Soup const before = soupOf(part);
    scene.resultOf<PinHoleCutter>(pins(0.1f), {part});
    scene.resultOf<LapJointCutter>(LapJointParas(), {part});
    EXPECT_EQ(part->meshProperty->getMesh()->readMesh(), mesh);
    EXPECT_EQ(soupOf(part).points, before.points);
}

TEST(ConnectorRun, AnotherExecuteGivesTheSameResultOnce)
{
    Scene scene;
    auto* const part = scene.test.add(block, "part");
    PinHoleCutter cutter(pins(0.1f), false, {part}, scene.plane.get());
    cutter.execute({});
    Soup const first = soupOf(*cutter.getResult().at(part)[0]);
    cutter.execute({});
    ASSERT_EQ(cutter.getResult().at(part).size(), 2u);
    Soup const second = soupOf(*cutter.getResult().at(part)[0]);
    EXPECT_EQ(first.points, second.points);
    EXPECT_EQ(first.triangles, second.triangles);
}

TEST(ConnectorRun, ProgressNeverFallsAndEndsAtHundred)
{
    Scene scene;
    std::vector<Mesh::DocumentObject*> const parts{scene.test.add(block, "a"),
                                                   scene.test.add(block, "b")};
    for (auto const& values : {scene.progressOf<LapJointCutter>(LapJointParas(), parts),
                               scene.progressOf<PinHoleCutter>(pins(0.1f), parts),
                               scene.progressOf<PinHoleCutter>(pins(0.1f, false), parts),
                               scene.progressOf<PinHoleCutter>(pins(0), parts),
                               scene.progressOf<PinHoleCutter>(pins(0, false), parts)}) {
        ASSERT_FALSE(values.empty());
        EXPECT_TRUE(std::is_sorted(values.begin(), values.end()));
        EXPECT_EQ(values.back(), 100);
        EXPECT_NE(std::find(values.begin(), values.end(), 50), values.end());
    }
}

TEST(ConnectorRun, PinStagesEndAtNinety)
{
    Scene scene;
    std::vector<Mesh::DocumentObject*> const parts{scene.test.add(block, "part")};
    for (float const gap : {0.0f, 0.1f}) {
        auto values = scene.progressOf<PinHoleCutter>(pins(gap), parts);
        ASSERT_GE(values.size(), 2u);
        EXPECT_EQ(values[values.size() - 2], 90);
        values = scene.progressOf<PinHoleCutter>(pins(gap, false), parts);
        EXPECT_EQ(values[values.size() - 2], 100);
    }
}

TEST(ConnectorRun, OnlyTheOneCutRunReportsItsStart)
{
    Scene scene;
    EXPECT_EQ(scene.progressOf<PinHoleCutter>(pins(0), {}), (std::vector<int>{0, 100}));
    EXPECT_EQ(scene.progressOf<PinHoleCutter>(pins(0.1f), {}), std::vector<int>{100});
    EXPECT_EQ(scene.progressOf<LapJointCutter>(LapJointParas(), {}), std::vector<int>{100});
}

TEST(ConnectorRun, FormsAreToldByData)
{
    RunForm const two = RunForm::twoCuts(), one = RunForm::oneCut();
    EXPECT_EQ(two.cutSpan, 20);
    EXPECT_EQ(two.connectorStart, 40);
    EXPECT_EQ(one.cutSpan, 25);
    EXPECT_EQ(one.connectorStart, 25);
}

TEST(ConnectorRun, ACancelAtAnyValueOfAnyRunLeavesTheResultEmpty)
{
    cancelAtEveryValue<LapJointCutter>(LapJointParas(), 100);
    for (float const gap : {0.0f, 0.1f}) {
        SCOPED_TRACE(gap);
        // The stages of the second part's pins end at 95.
        cancelAtEveryValue<PinHoleCutter>(pins(gap), 95);
        cancelAtEveryValue<PinHoleCutter>(pins(gap, false), 100);
    }
}

TEST(ConnectorRun, ACancelWhileConnectorsArePlacedIsToldLikeOneWithinAStage)
{
    for (bool const isJoint : {false, true}) {
        Scene scene;
        Console const console;
        PluggedSink const sink;
        std::vector<Mesh::DocumentObject*> const parts{scene.test.add(block, "part")};
        sink->cancel();
        // The cutter's own progress says nothing: only the poll asks the display.
        auto const cancelled = [&] {
            if (isJoint)
                LapJointCutter(LapJointParas(), false, parts, scene.plane.get()).execute({});
            else
                PinHoleCutter(pins(0.1f), false, parts, scene.plane.get()).execute({});
        };
        EXPECT_THROW(cancelled(), Mell::AbortException);
        EXPECT_EQ(console.lines, (std::vector<std::string>{"Command Abort.", "Command Abort."}));
    }
}

TEST(ConnectorRun, ACancelBetweenTheStagesIsLoggedOnce)
{
    std::vector<std::string> lines;
    EXPECT_EQ(cancelAt<PinHoleCutter>(pins(0), 1, "Aborting...", lines), "abort Aborting...");
    EXPECT_EQ(lines, std::vector<std::string>{"Command Abort."});
}

TEST(ConnectorRun, OnlyWithinAStageAnAbortWithAnotherTextIsACancel)
{
    std::vector<std::string> lines;
    EXPECT_EQ(cancelAt<PinHoleCutter>(pins(0), 1, "Something else", lines), "failure ");
    EXPECT_EQ(cancelAt<PinHoleCutter>(pins(0), 2, "Something else", lines), "abort Aborting...");
    EXPECT_EQ(cancelAt<LapJointCutter>(LapJointParas(), 1, "Something else", lines),
              "abort Aborting...");
}

TEST(ConnectorRun, OtherFailuresPassUntouched)
{
    Scene scene;
    Soup const opened = openBox(10, 10, 10);
    auto* const part = scene.test.add(
        moved(opened,
              [] {
                  float const values[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, -5, 1};
                  // Turned on its side, so that the plane meets the opening.
                  float const turn[16] = {1, 0, 0, 0, 0, 0, 1, 0, 0, -1, 0, 0, 0, 0, 0, 1};
                  return UMatrix4<float>(values) * UMatrix4<float>(turn);
              }()),
        "open");
    LapJointCutter cutter(LapJointParas(), false, {part}, scene.plane.get());
    EXPECT_THROW(cutter.execute({}), Mell::Exception);
    EXPECT_TRUE(cutter.getResult().empty());
}

TEST(ConnectorRun, APlaneWithoutKeyPointsIsRefused)
{
    Scene scene;
    scene.plane->getProperty().setKeyPoints({});
    PinHoleCutter cutter(pins(0), false, {}, scene.plane.get());
    EXPECT_THROW(cutter.execute({}), Mell::Exception);
}
