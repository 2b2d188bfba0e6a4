// SPDX-License-Identifier: GPL-3.0-or-later
#include "cutjobs/SectionCutImp.h"
#include "platform/services/Intersect.h"
#include "tests/cutjobs/RecordingSink.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/TestDocument.h"
#include "tools/PlaneGraphicObject.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <iterator>

namespace {

using Values = std::vector<int>;
using Progress = std::function<void(int)>;

Soup const block = box(30, 30, 30);

/// What a service reports of itself. After ten milliseconds without a report it reports once more, at a place that is
/// another in each run: what comes in all runs is not of these.
Values reportsOf(std::function<void(Progress)> const& call)
{
    Values common;
    for (int i = 0; i < 5; ++i) {
        Values values, both;
        call([&](int percent) { values.push_back(percent); });
        EXPECT_TRUE(std::is_sorted(values.begin(), values.end()));
        std::set_intersection(common.begin(), common.end(), values.begin(), values.end(),
                              std::back_inserter(both));
        common = i == 0 ? values : both;
    }
    return common;
}

/// A cut whose face nobody wants does not report its making.
Values reportsOfPlaneCut(bool wantsSection)
{
    Soup plane;
    plane.points = {{-50, -50, 10}, {50, -50, 10}, {50, 50, 10}, {-50, 50, 10}};
    plane.triangles = {{0, 1, 2}, {2, 3, 0}};
    auto const part = kernelOf(block);
    auto const planeKernel = kernelOf(plane);
    return reportsOf([&](Progress const& progress) {
        MeshKernel above, below, section;
        Intersect::cutByPlane(part.get(), planeKernel.get(), &above, &below,
                              wantsSection ? &section : nullptr, progress, true);
    });
}

Values reportsOfBoolean()
{
    auto const part = kernelOf(block);
    auto const tool = kernelOf(box(5, 5, 10, {10, 10, 25}));
    return reportsOf([&](Progress const& progress) {
        MeshKernel result;
        std::vector<MeshKernel*> out{&result};
        Intersect::boolean(part.get(), tool.get(), out, Intersect::BOOLEAN_SUBTRACT, progress, 1);
    });
}

/// A share of a hundred percent: where it begins and how long it is.
struct Share
{
    int start;
    int span;
};

/// A service call of a connector run: its stage, and its span within that stage.
struct Call
{
    bool isBoolean;
    Share stage;
    Share span{0, 100};
    bool wantsSection = true;
};

struct Form
{
    char const* name;
    SECTIONCUTTYPE type;
    bool isPin;
    /// Between the faces.
    float gap;
    bool reportsStart;
    std::vector<Call> calls;
};

std::vector<Form> forms()
{
    Call const firstCut{false, {0, 20}, {0, 100}, false};
    Call const secondCut{false, {20, 20}};
    Call const onlyCut{false, {0, 25}};
    auto const halves = [](Share stage) {
        return std::vector<Call>{{true, stage, {0, 50}}, {true, stage, {50, 50}}};
    };
    auto const raised = [](Share stage) {
        return std::vector<Call>{
            {true, stage, {0, 40}}, {true, stage, {40, 30}}, {true, stage, {70, 30}}};
    };
    auto const with = [](std::vector<Call> cuts, std::vector<Call> const& booleans) {
        cuts.insert(cuts.end(), booleans.begin(), booleans.end());
        return cuts;
    };
    std::vector<Call> const two{firstCut, secondCut};
    return {
        {"lap joint", SECTIONCUT_LAPJOINT, true, 0.2f, false, with(two, raised({40, 60}))},
        {"lap joint without a gap", SECTIONCUT_LAPJOINT, true, 0, false,
         with(two, raised({40, 60}))},
        {"holes", SECTIONCUT_PINHOLE, false, 0.1f, false, with(two, halves({40, 60}))},
        {"pins", SECTIONCUT_PINHOLE, true, 0.1f, false, with(two, raised({40, 50}))},
        {"holes in one cut", SECTIONCUT_PINHOLE, false, 0, true, with({onlyCut}, halves({25, 75}))},
        {"pins in one cut", SECTIONCUT_PINHOLE, true, 0, true, with({onlyCut}, raised({25, 65}))},
    };
}

/// The percentages of a connector run over some parts.
Values expectedOf(Form const& form, int partCount, Values const& boolean)
{
    Values const plain = reportsOfPlaneCut(false), withSection = reportsOfPlaneCut(true);
    Values expected;
    if (form.reportsStart)
        expected.push_back(0);
    for (int part = 0; part < partCount; ++part)
        for (auto const& [isBoolean, stage, span, wantsSection] : form.calls)
            for (int x : isBoolean ? boolean : wantsSection ? withSection : plain) {
                if (isBoolean)
                    x = int(x / 100.0 * span.span + span.start);
                int const ofPart = int(std::min(x, 100) / 100.0 * stage.span + stage.start);
                expected.push_back(int((ofPart + part * 100.0) / partCount));
            }
    expected.push_back(100);
    return expected;
}

struct Recorded
{
    Values values;
    std::size_t milliseconds;
};

/// reach  how far connectors reach from the plane; the block ends 10 mm below and 20 mm above it
Recorded record(SECTIONCUTTYPE type, int partCount, bool isPin, float gap, float reach)
{
    TestDocument test;
    PluggedSink const sink;
    Freecut::PlaneGraphicObject plane;
    plane.getProperty().setKeyPoints(
        {{15, 15, 10}, {-5, -5, 10}, {35, -5, 10}, {35, 35, 10}, {-5, 35, 10}});
    std::vector<Mesh::DocumentObject*> parts;
    for (int i = 0; i < partCount; ++i)
        parts.push_back(test.add(block, "part"));
    PinHoleParas pins;
    pins.isPin = isPin;
    pins.faceclearance = gap;
    // One is enough.
    pins.spacing = 100;
    pins.height = reach;
    LapJointParas joint;
    joint.frontClearance = gap;
    joint.notchDepth = reach;
    SectionCutImp worker(nullptr);
    worker.setObjects(parts);
    worker.setCutType(type);
    worker.setPlaneObject(&plane);
    worker.setPinHoleParas(pins);
    worker.setLapJointParas(joint);
    auto const start = std::chrono::steady_clock::now();
    worker.doWork();
    auto const time = std::chrono::steady_clock::now() - start;
    EXPECT_EQ(worker.getResult().size(), std::size_t(partCount));
    return {sink->values(), std::size_t(time / std::chrono::milliseconds(1))};
}

/// All that is expected came, in its order; what came besides is no more than a long job's reports
/// between, and never leads back.
void expectSequence(Recorded const& recorded, Values const& expected)
{
    Values const& values = recorded.values;
    EXPECT_TRUE(std::is_sorted(values.begin(), values.end()));
    EXPECT_LE(values.size(), expected.size() + 1 + recorded.milliseconds / 10);
    auto const counts = [](Values const& list, int value) {
        return std::count(list.begin(), list.end(), value);
    };
    for (int const value : expected)
        EXPECT_GE(counts(values, value), counts(expected, value)) << value;
    if (recorded.milliseconds < 10) {
        EXPECT_EQ(values, expected);
    }
}

}  // namespace

TEST(SectionProgress, OfAPlainCutGivesEachPartItsShare)
{
    Values const planeCut = reportsOfPlaneCut(false);
    ASSERT_EQ(planeCut.front(), 0);
    ASSERT_EQ(planeCut.back(), 100);
    for (int const partCount : {1, 2, 3}) {
        SCOPED_TRACE(partCount);
        Values expected;
        for (int part = 0; part < partCount; ++part) {
            for (int const p : planeCut)
                expected.push_back(int((double(p * 100.0f) / 100.0 + part * 100) / partCount));
            expected.push_back((part + 1) * 100 / partCount);
        }
        expected.push_back(100);
        expectSequence(record(SECTIONCUT_PLANE, partCount, true, 0, 3), expected);
    }
}

TEST(SectionProgress, OfConnectorsGivesEachStageItsShare)
{
    Values const boolean = reportsOfBoolean();
    ASSERT_EQ(boolean.front(), 0);
    ASSERT_EQ(boolean.back(), 100);
    for (Form const& form : forms())
        for (int const partCount : {1, 2, 3}) {
            SCOPED_TRACE(testing::Message() << form.name << " in " << partCount << " parts");
            // Connectors that leave the part are combined with it.
            expectSequence(record(form.type, partCount, form.isPin, form.gap, 30),
                           expectedOf(form, partCount, boolean));
        }
}

TEST(SectionProgress, OfConnectorsThatMeetTheFaceAloneTellsTheEndOfEachSpan)
{
    for (Form const& form : forms())
        for (int const partCount : {1, 2, 3}) {
            SCOPED_TRACE(testing::Message() << form.name << " in " << partCount << " parts");
            expectSequence(record(form.type, partCount, form.isPin, form.gap, 3),
                           expectedOf(form, partCount, {100}));
        }
}
