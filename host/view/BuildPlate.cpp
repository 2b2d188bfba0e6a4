// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/view/BuildPlate.h"

#include "host/view/ViewColors.h"
#include "host/view/ViewScene.h"
#include "platform/view/GLView.h"

#include <algorithm>
#include <cmath>

namespace {

using Points = std::vector<UPoint3<float>>;

constexpr float axisLength = 15;
constexpr int coarseStep = 10;
/// Fine lines appear where a millimetre has this many pixels, and are plain at twice as many.
constexpr double fineFrom = 4;
constexpr unsigned fineAlpha = 0x50;

void addGrid(Points& points, float width, float depth, int step)
{
    auto const add = [&](float reach, float other, bool isAlongX) {
        for (int i = int(std::ceil(-reach)); i <= reach; ++i) {
            // The coarse lines lie on the fine ones already.
            if (i % coarseStep == 0 ? step == 1 : step != 1)
                continue;
            float const place = float(i);
            points.push_back(isAlongX ? UPoint3<float>(-other, place, 0)
                                      : UPoint3<float>(place, -other, 0));
            points.push_back(isAlongX ? UPoint3<float>(other, place, 0)
                                      : UPoint3<float>(place, other, 0));
        }
    };
    add(width / 2, depth / 2, false);
    add(depth / 2, width / 2, true);
}

unsigned fineColor(double pixelsPerMm)
{
    double const share = std::clamp(pixelsPerMm / fineFrom - 1, 0.0, 1.0);
    return (viewColors().plateLine & ~0xffu) | unsigned(std::lround(share * fineAlpha));
}

/// The letter of an axis as lines in a square of two units.
Points letterOf(int axis)
{
    if (axis == 0)
        return {{-1, -1, 0}, {1, 1, 0}, {-1, 1, 0}, {1, -1, 0}};
    if (axis == 1)
        return {{-1, 1, 0}, {0, 0, 0}, {1, 1, 0}, {0, 0, 0}, {0, 0, 0}, {0, -1, 0}};
    return {{-1, 1, 0}, {1, 1, 0}, {1, 1, 0}, {-1, -1, 0}, {-1, -1, 0}, {1, -1, 0}};
}

}  // namespace

void paintBuildPlate(ViewScene& scene, float width, float depth, double pixelsPerMm)
{
    float const x = width / 2, y = depth / 2;
    Points points = {{-x, -y, 0}, {x, -y, 0}, {x, y, 0}, {-x, y, 0}};
    std::vector<DrawRun> runs = {{GL_TRIANGLE_FAN, 0, 4, viewColors().plateFill}};
    auto const addRun = [&](std::size_t first, unsigned rgba) {
        runs.push_back({GL_LINES, int(first), int(points.size() - first), rgba});
    };
    if (unsigned const fine = fineColor(pixelsPerMm); fine & 255) {
        std::size_t const first = points.size();
        addGrid(points, width, depth, 1);
        addRun(first, fine);
    }
    std::size_t const coarse = points.size();
    addGrid(points, width, depth, coarseStep);
    addRun(coarse, viewColors().plateLine);
    runs.push_back({GL_LINE_LOOP, 0, 4, viewColors().plateEdge});
    for (int axis = 0; axis < 3; ++axis) {
        std::size_t const first = points.size();
        UPoint3<float> end;
        end[axis] = axisLength;
        points.insert(points.end(), {UPoint3<float>(), end});
        addRun(first, viewColors().axes[axis]);
    }
    scene.device()->setDepthWriting(false);
    scene.drawOnce(points, runs, scene.toClip());
    scene.device()->setDepthWriting(true);
}

void paintAxes(ViewScene& scene, int widgetWidth, int widgetHeight)
{
    constexpr float middle = 46, length = 30, letterPlace = 39, letterSize = 3.5f;
    QMatrix4x4 const toEye = scene.view().getCamera()->getModelViewMatrix();
    Points points;
    std::vector<DrawRun> runs;
    // What points away from the viewer comes first.
    int order[3] = {0, 1, 2};
    std::sort(order, order + 3, [&](int a, int b) { return toEye(2, a) < toEye(2, b); });
    for (int const axis : order) {
        int const first = int(points.size());
        float const x = toEye(0, axis), y = toEye(1, axis);
        points.push_back({middle, middle, 0});
        points.push_back({middle + x * length, middle + y * length, 0});
        for (UPoint3<float> const& p : letterOf(axis))
            points.push_back({middle + x * letterPlace + p.X() * letterSize,
                              middle + y * letterPlace + p.Y() * letterSize, 0});
        runs.push_back({GL_LINES, first, int(points.size()) - first, viewColors().axes[axis]});
    }
    QMatrix4x4 toClip;
    toClip.ortho(0, float(widgetWidth), 0, float(widgetHeight), -1, 1);
    scene.device()->setDepthTest(false);
    scene.drawOnce(points, runs, toClip);
    scene.device()->setDepthTest(true);
}
