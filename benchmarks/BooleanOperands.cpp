// SPDX-License-Identifier: GPL-3.0-or-later
#include "benchmarks/BooleanOperands.h"

#include "host/services/MeshErrors.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/RandomSolids.h"

#include <cmath>
#include <functional>
#include <random>
#include <stdexcept>
#include <utility>
#include <vector>

namespace {

float diagonalOf(MeshKernel const& part)
{
    return (part.GetBox().max - part.GetBox().min).GetLength();
}

void moveBy(Soup& soup, UVector3<float> const& way)
{
    for (auto& p : soup.points)
        p += way;
}

/// Corners of the triangles with which the part crosses itself, as smoothed models do in sharp
/// folds.
std::vector<UPoint3<float>> crossingsOf(MeshKernel const& part)
{
    std::function<void(int)> const unasked;
    StageProgress progress(unasked);
    MeshArrays const mesh = copyArrays(part, Frame::World, progress);
    auto const errors = findErrors(mesh, Repair::EvaluateErrors::ERROR_ALL, progress, 0);
    std::vector<UPoint3<float>> corners;
    for (std::size_t t = 0; t < mesh.triangles.size(); ++t)
        if (errors.intersections.isInvolved[t])
            corners.push_back(mesh.point(t, 0));
    return corners;
}

/// Centres on the surface of which no two are closer together than `distance`, and none closer to
/// a place where the part crosses itself.
std::vector<UPoint3<float>> scatteredCentres(MeshKernel const& part, int count, float distance,
                                             std::mt19937& random)
{
    auto const mesh = part.readMesh();
    std::vector<UPoint3<float>> const crossings = crossingsOf(part);
    std::vector<UPoint3<float>> centres;
    for (int tries = 0; int(centres.size()) < count; ++tries) {
        if (tries > 1000 * count)
            throw std::logic_error("the part is too small for so many cylinders");
        auto const* const t = mesh->triangles[random() % mesh->triangles.size()];
        UPoint3<float> const centre = (t->cP(0) + t->cP(1) + t->cP(2)) / 3.0f;
        bool isFree = true;
        for (auto const* const taken : {&std::as_const(centres), &crossings})
            for (auto const& other : *taken)
                isFree = isFree && (centre - other).GetLength() > distance;
        if (isFree)
            centres.push_back(centre);
    }
    return centres;
}

}  // namespace

std::unique_ptr<MeshKernel> cylindersOn(MeshKernel const& part, int count)
{
    std::mt19937 random(2026);
    float const radius = 0.015f * diagonalOf(part);
    float const reach = radius * std::sqrt(2.0f);
    Soup tool;
    for (auto const& centre : scatteredCentres(part, count, 2.01f * reach, random)) {
        Soup one = cylinder(radius, 2 * radius, 63);
        moveBy(one, {0, 0, -radius});
        one = moved(one, randomMotion(random, 0));
        moveBy(one, centre - UPoint3<float>());
        tool.append(one);
    }
    return kernelOf(tool);
}

std::unique_ptr<MeshKernel> prismThrough(MeshKernel const& part)
{
    float const diagonal = diagonalOf(part);
    UPoint3<float> const middle = (part.GetBox().min + part.GetBox().max) * 0.5f;
    Soup prism = cylinder(diagonal / 8, 2 * diagonal, 8);
    moveBy(prism, {middle.X(), middle.Y(), middle.Z() - diagonal});
    return kernelOf(prism);
}

std::size_t trianglesOf(MeshKernel const& kernel)
{
    return kernel.readMesh()->triangles.size();
}

std::size_t recordBytesOf(MeshKernel const& kernel)
{
    auto const mesh = kernel.readMesh();
    return mesh->triangles.size() * (sizeof(UTriangle<float>) + sizeof(void*)) +
           mesh->vertices.size() * (sizeof(UVertex<float>) + sizeof(void*));
}
