// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/mesh/UMesh.h"
#include "tests/tools/ToothedPolygon.h"
#include "tools/OutlineCrossings.h"
#include "tools/PolygonOutline.h"
#include "tools/PolygonProperty.h"
#include "tools/PrismMesh.h"

#include <benchmark/benchmark.h>

#include <random>
#include <stdexcept>

namespace {

constexpr int points = 2000;

enum Shape
{
    Circle,
    /// Twelve waves around a circle.
    Flower,
    /// 250 teeth of 2 mm.
    Teeth
};

/// A drawn outline of 2,000 points, in a view along no axis.
class Drawing
{
public:
    Drawing(int shape, bool hasClearance, bool isRounded)
        : m_camera(freeCamera()), m_outline(m_record)
    {
        Freecut::FlatRing const circle = circlePoints(1, points);
        Freecut::Ring corners;
        for (int i = 0; i < points; ++i) {
            double const wave = std::sin(12 * 2 * M_PI * i / points);
            double const radius = shape == Flower               ? 80 + 20 * wave
                                  : shape == Teeth && i / 4 % 2 ? 98
                                                                : 100;
            auto const& p = circle[std::size_t(i)];
            corners.push_back({float(p.X() * radius), float(p.Y() * radius), 0});
            m_camera.ViewCSToWCSpoint(corners.back());
        }
        m_record.setKeyPoints(corners);
        m_record.setExtrudeVector(m_camera.get_direction() * 50.0f);
        m_record.setClearanceEnabled(hasClearance);
        m_record.setClearance(0.1f);
        m_record.setClearanceDirection(2);
        m_record.setRoundCorners(isRounded);
        m_record.setCornerRadius(0.2f);
    }

    void update()
    {
        m_outline.update(m_camera, false, true);
        if (m_outline.outlines().solidLoops.size() != 1)
            throw std::logic_error("the outline fell apart");
    }

    /// The inner solid with its preview, and the outer one.
    std::size_t makeSolids()
    {
        m_outline.buildSolidBuffers(true);
        Freecut::ToolOutlines const& outlines = m_outline.outlines();
        UMesh<float> inner, outer;
        UVector3<float> const direction = m_record.getExtrudeVector();
        Freecut::fillWithPrisms(inner, outlines.topLoops, outlines.bottomLoops, direction);
        Freecut::Loops const top = m_outline.outerOutline();
        Freecut::fillWithPrisms(outer, top, Freecut::translated(top, -direction), direction);
        // Arcs that begin where others end may leave caps open.
        if (!m_record.getRoundCorners() && inner.triangles.size() != 2 * inner.vertices.size() - 4)
            throw std::logic_error("a cap stayed open");
        return inner.triangles.size() + outer.triangles.size();
    }

private:
    GLCamera m_camera;
    Freecut::PolygonProperty m_record;
    Freecut::PolygonOutline m_outline;
};

void updateOutline(benchmark::State& state)
{
    Drawing drawing(int(state.range(0)), state.range(1) != 0, state.range(2) != 0);
    for (auto _ : state)
        drawing.update();
}

void makeToolSolids(benchmark::State& state)
{
    Drawing drawing(int(state.range(0)), state.range(1) != 0, state.range(2) != 0);
    drawing.update();
    std::size_t triangles = 0;
    for (auto _ : state)
        triangles = drawing.makeSolids();
    state.counters["triangles"] = double(triangles);
}

enum Edge
{
    Level,
    Turned,
    Round
};

ToothedPolygon teethOn(int edge, int style)
{
    constexpr int teeth = 300;
    if (edge == Round)
        return ToothedPolygon::round(style, teeth / 5);
    return ToothedPolygon::strip(style, teeth, edge == Level ? 0 : 0.3);
}

/// 300 teeth with rounded corners and a clearance on both sides.
void updateTeeth(benchmark::State& state)
{
    ToothedPolygon polygon = teethOn(int(state.range(0)), int(state.range(1)));
    float const clearance = float(state.range(2)) / 100;
    for (auto _ : state)
        if (polygon.update(true, clearance).outerLoops.empty())
            throw std::logic_error("the teeth were refused");
}

/// Points anywhere, with half a million crossings.
void resolveScribble(benchmark::State& state)
{
    std::mt19937 random(1);
    std::uniform_int_distribution<int> coordinate(-100000, 100000);
    Freecut::FlatRing scribble(points);
    for (UPoint2<float>& p : scribble)
        p = {float(coordinate(random)), float(coordinate(random))};
    for (auto _ : state)
        if (Freecut::resolveSelfIntersections(scribble).isTooComplicated)
            throw std::logic_error("the scribble was refused");
}

}  // namespace

// Arguments: shape, whether there is a clearance on both sides, whether corners are rounded.
BENCHMARK(updateOutline)
    ->ArgsProduct({{Circle, Flower, Teeth}, {0, 1}, {0, 1}})
    ->Unit(benchmark::kMillisecond);
BENCHMARK(makeToolSolids)
    ->ArgsProduct({{Circle, Flower, Teeth}, {0, 1}, {0, 1}})
    ->Unit(benchmark::kMillisecond);
// Arguments: how the edge runs, style of the teeth, clearance in hundredths of a millimetre.
BENCHMARK(updateTeeth)
    ->ArgsProduct({{Level, Turned, Round}, {0, 1, 2}, {10, 20, 25}})
    ->MeasureProcessCPUTime()
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(resolveScribble)->Unit(benchmark::kMillisecond);
