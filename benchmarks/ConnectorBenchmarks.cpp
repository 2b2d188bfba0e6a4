// SPDX-License-Identifier: GPL-3.0-or-later
#include "connectors/PinHoleCutter.h"
#include "connectors/PinPlacement.h"
#include "connectors/SectionPlanes.h"
#include "platform/services/Intersect.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/TestDocument.h"
#include "tools/PlaneGraphicObject.h"

#include <benchmark/benchmark.h>

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

}  // namespace

BENCHMARK(placePins)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);
BENCHMARK(cutWithPins)->Unit(benchmark::kMillisecond);
