// SPDX-License-Identifier: GPL-3.0-or-later
#include "benchmarks/BenchmarkMeshes.h"
#include "connectors/LapJointCutter.h"
#include "connectors/PinHoleCutter.h"
#include "connectors/PinPlacement.h"
#include "connectors/PlacedMesh.h"
#include "connectors/SectionPlanes.h"
#include "connectors/SectionSurvey.h"
#include "cutjobs/common/PartMesh.h"
#include "platform/services/Intersect.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/TestDocument.h"
#include "tools/PlaneGraphicObject.h"

#include <benchmark/benchmark.h>
#include <tbb/global_control.h>

#include <memory>
#include <stdexcept>

namespace {

/// A level plane through the middle of a solid that is 40 mm high.
void place(Freecut::PlaneGraphicObject& plane)
{
    plane.getProperty().setKeyPoints(
        {{0, 0, 20}, {-70, -70, 20}, {70, -70, 20}, {70, 70, 20}, {-70, 70, 20}});
}

/// A section of 20,000 contour points. Argument: whether pins follow the contour.
void placePins(benchmark::State& state)
{
    TestDocument test;
    std::vector<Mesh::DocumentObject*> const parts{test.add(cylinder(60, 40, 10000), "part")};
    Freecut::PlaneGraphicObject plane;
    place(plane);
    SectionPlanes const planes(plane, parts, false);
    MeshKernel base, upper, lower, cap;
    planes.calculateCutPlaneMesh(base.getMesh().get());
    Intersect::cutByPlane(parts[0]->meshProperty->getMesh(), &base, &upper, &lower, &cap, {}, true);
    auto const contours = extractSectionContours(&cap);
    PinHoleParas paras;
    paras.isSidedis = state.range(0) != 0;
    PinPlacement const placement(paras, planes.frame());
    if (placement.computePositions(contours, &cap).size() < 10)
        throw std::logic_error("hardly a pin was placed");
    for (auto _ : state)
        benchmark::DoNotOptimize(placement.computePositions(contours, &cap));
}

/// A plate with some hundred pins.
void cutWithPins(benchmark::State& state)
{
    TestDocument test;
    auto* const part = test.add(tube(60, 20, 40, 200), "part");
    Freecut::PlaneGraphicObject plane;
    place(plane);
    PinHoleParas paras;
    paras.isSidedis = true;
    for (auto _ : state) {
        PinHoleCutter cutter(paras, false, {part}, &plane);
        cutter.execute({});
        if (cutter.getResult().at(part).size() != 2)
            throw std::logic_error("the part was not cut in two");
    }
}

/// A level plane through the middle of a large part.
void placeAcross(Freecut::PlaneGraphicObject& plane, UBox3<float> const& box)
{
    UPoint3<float> const c = (box.min + box.max) * 0.5f;
    float const reach = (box.max - box.min).GetLength();
    plane.getProperty().setKeyPoints(
        {c, c + UVector3<float>(-reach, -reach, 0), c + UVector3<float>(reach, -reach, 0),
         c + UVector3<float>(reach, reach, 0), c + UVector3<float>(-reach, reach, 0)});
}

/// A document with the part of a million triangles and the plane across it.
struct LargeScene
{
    LargeScene()
    {
        auto* const object = new Mesh::DocumentObject;
        object->meshProperty->setMesh(new MeshKernel(largePart(1)), true);
        test.document->addObject(object, "part", true);
        part = object;
        placeAcross(plane, largePart(1).GetBox());
        UBox3<float> const& box = largePart(1).GetBox();
        size = (box.max - box.min).GetLength();
    }

    TestDocument test;
    Mesh::DocumentObject* part;
    Freecut::PlaneGraphicObject plane;
    float size;
};

/// Cuts and booleans of one part, kernels in to kernels out.
template <typename Cutter, typename Paras>
void cutLargePart(benchmark::State& state, LargeScene& scene, Paras const& paras)
{
    tbb::global_control const threads(tbb::global_control::max_allowed_parallelism, 1);
    auto const run = [&] {
        auto cutter = std::make_unique<Cutter>(paras, false, std::vector{scene.part}, &scene.plane);
        cutter->execute([](int) {});
        return cutter;
    };
    // The first run, which touches the memory, is not timed.
    if (auto const first = run(); first->getResult().at(scene.part).size() != 2)
        throw std::logic_error("the part was not cut in two");
    for (auto _ : state) {
        auto cutter = run();
        state.PauseTiming();
        cutter.reset();
        state.ResumeTiming();
    }
}

/// How many pins find room on the large part.
std::size_t pinsOn(MeshKernel& cap, std::vector<SectionContour> const& contours,
                   PlaneFrame const& frame, PinHoleParas const& paras)
{
    return PinPlacement(paras, frame).computePositions(contours, &cap).size();
}

/// Pins beside the contour, their sizes in proportion to the radius.
PinHoleParas pinsOfRadius(float radius)
{
    PinHoleParas paras;
    paras.radius = radius;
    paras.height = 2 * radius;
    paras.tolerance = 0.01f * radius;
    paras.sideclearance = paras.topclearance = paras.faceclearance = 0.05f * radius;
    paras.sidedistance = 1.5f * radius;
    paras.spacing = 2.5f * radius;
    paras.isSidedis = true;
    return paras;
}

/// The argument is the number of pins wanted. As large as can be, they stand close together.
void cutLargePartWithPins(benchmark::State& state)
{
    LargeScene scene;
    std::vector<Mesh::DocumentObject*> const parts{scene.part};
    SectionPlanes const planes(scene.plane, parts, false);
    MeshKernel base, upper, lower, cap;
    planes.calculateCutPlaneMesh(base.getMesh().get());
    Intersect::cutByPlane(scene.part->meshProperty->getMesh(), &base, &upper, &lower, &cap, {},
                          true);
    auto const contours = extractSectionContours(&cap);
    PinHoleParas paras = pinsOfRadius(0.004f * scene.size);
    std::size_t pins = pinsOn(cap, contours, planes.frame(), paras);
    while (pins < std::size_t(state.range(0))) {
        paras = pinsOfRadius(0.98f * paras.radius);
        pins = pinsOn(cap, contours, planes.frame(), paras);
    }
    state.counters["pins"] = double(pins);
    cutLargePart<PinHoleCutter>(state, scene, paras);
}

/// A lap joint in proportion to the part.
LapJointParas jointOn(LargeScene const& scene)
{
    LapJointParas paras;
    paras.notchDepth = 0.01f * scene.size;
    paras.sideDistance = 0.006f * scene.size;
    paras.notchClearance = paras.frontClearance = paras.backClearance = 0.0005f * scene.size;
    return paras;
}

void cutLargePartWithLapJoint(benchmark::State& state)
{
    LargeScene scene;
    cutLargePart<LapJointCutter>(state, scene, jointOn(scene));
}

/// What is shown of a cut before it, on the large part. Argument: 0 for the section alone, 1 for
/// pins along its middle, 2 for a lap joint. The time is that of all threads.
void surveyLargePart(benchmark::State& state)
{
    LargeScene scene;
    SurveyRequest request{scene.part, PlacedMesh(*kernelOfPart(scene.part)),
                          SectionPlanes(scene.plane, {scene.part}, false)};
    if (state.range(0) == 1) {
        PinHoleParas pins = pinsOfRadius(0.008f * scene.size);
        pins.isSidedis = false;
        request.connectors = pins;
    } else if (state.range(0) == 2) {
        request.connectors = jointOn(scene);
    }
    SectionSurvey const first = surveySection(request, {});
    if (first.contours.empty() || (state.range(0) == 1 && first.connectors.empty()) ||
        (state.range(0) == 2 && first.tongue.size() == 0))
        throw std::logic_error("nothing was found");
    state.counters["pins"] = double(first.connectors.size());
    for (auto _ : state)
        benchmark::DoNotOptimize(surveySection(request, {}));
}

}  // namespace

BENCHMARK(surveyLargePart)
    ->DenseRange(0, 2)
    ->MeasureProcessCPUTime()
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(placePins)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);
BENCHMARK(cutLargePartWithPins)->Arg(200)->Unit(benchmark::kMillisecond);
BENCHMARK(cutLargePartWithLapJoint)->Unit(benchmark::kMillisecond);
BENCHMARK(cutWithPins)->Unit(benchmark::kMillisecond);
