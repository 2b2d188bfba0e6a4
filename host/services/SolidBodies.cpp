// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/SolidBodies.h"

#include "host/services/ShellNesting.h"

#include <algorithm>
#include <limits>
#include <numeric>

namespace {

constexpr std::uint32_t none = std::numeric_limits<std::uint32_t>::max();

/// Per shell the one with which it makes a body.
std::vector<std::uint32_t> carriersOf(MeshArrays const& mesh, TopologyReport const& topology,
                                      StageProgress& progress)
{
    std::vector<double> const volumes = shellVolumes(mesh, topology);
    if (std::ranges::none_of(volumes, [](double volume) { return volume < 0; })) {
        std::vector<std::uint32_t> each(volumes.size());
        std::iota(each.begin(), each.end(), 0u);
        return each;
    }
    progress.begin(35, 50, 1);
    TriangleTree const tree(mesh, topology, progress);
    progress.begin(50, 85, 1);
    auto const meeting = findIntersections(mesh, topology, tree, progress).shells;
    progress.begin(85, 90, volumes.size());
    return shellCarriers(mesh, topology, tree, volumes, meeting, progress);
}

/// The number of the body of each triangle, in the order of the bodies' first triangles.
std::vector<std::uint32_t> numberBodies(MeshArrays const& mesh, TopologyReport const& topology,
                                        std::vector<std::uint32_t> const& carrier,
                                        std::size_t& count)
{
    std::vector<std::uint32_t> bodyOf(mesh.triangles.size(), none);
    std::vector<std::uint32_t> numbers(carrier.size(), none);
    std::uint32_t next = 0;
    for (std::size_t t = 0; t < mesh.triangles.size(); ++t) {
        if (mesh.isCollapsed(t))
            continue;
        std::uint32_t& number = numbers[carrier[topology.shellOf[t]]];
        if (number == none)
            number = next++;
        bodyOf[t] = number;
    }
    count = next;
    return bodyOf;
}

/// Copies triangles one by one with the points that they use.
class BodyMaker
{
public:
    explicit BodyMaker(MeshArrays const& whole) : m_whole(whole), m_places(whole.points.size()) {}

    MeshArrays make(std::vector<std::uint32_t> const& triangles)
    {
        MeshArrays body;
        body.triangles.reserve(triangles.size());
        ++m_round;
        for (std::uint32_t const t : triangles) {
            MeshArrays::Corners corners;
            for (int corner = 0; corner < 3; ++corner)
                corners[std::size_t(corner)] =
                    placeOf(m_whole.triangles[t][std::size_t(corner)], body.points);
            body.triangles.push_back(corners);
        }
        return body;
    }

private:
    struct Place
    {
        std::uint32_t round = 0;
        std::uint32_t index = 0;
    };

    std::uint32_t placeOf(std::uint32_t point, std::vector<MeshArrays::Point>& points)
    {
        Place& place = m_places[point];
        if (place.round != m_round) {
            place = {m_round, std::uint32_t(points.size())};
            points.push_back(m_whole.points[point]);
        }
        return place.index;
    }

    MeshArrays const& m_whole;
    std::vector<Place> m_places;
    std::uint32_t m_round = 0;
};

std::shared_ptr<MeshKernel> kernelOf(MeshArrays const& arrays, UMatrix4<float> const& matrix)
{
    auto const kernel = std::make_shared<MeshKernel>();
    kernel->replaceMesh(makeMesh(arrays));
    kernel->getMatrix() = matrix;
    kernel->UpdateBoundingBox();
    return kernel;
}

}  // namespace

std::vector<std::shared_ptr<MeshKernel>> bodiesOf(MeshKernel const& kernel, std::size_t most,
                                                  std::size_t* count,
                                                  std::function<void(int)> const& progress)
{
    StageProgress stages(progress);
    stages.begin(0, 10, kernel.readMesh()->triangles.size());
    MeshArrays const mesh = copyArrays(kernel, Frame::Local, stages);
    stages.begin(10, 35, mesh.points.size());
    TopologyReport const topology = checkTopology(mesh, stages);
    std::size_t found = 0;
    auto const bodyOf = numberBodies(mesh, topology, carriersOf(mesh, topology, stages), found);
    if (count)
        *count = found;
    if (found > most)
        return {};
    std::vector<std::vector<std::uint32_t>> triangles(found);
    for (std::uint32_t t = 0; t < bodyOf.size(); ++t)
        if (bodyOf[t] != none)
            triangles[bodyOf[t]].push_back(t);
    stages.begin(90, 100, found);
    BodyMaker maker(mesh);
    std::vector<std::shared_ptr<MeshKernel>> bodies;
    for (auto const& list : triangles) {
        bodies.push_back(kernelOf(maker.make(list), kernel.getMatrix()));
        stages.add(1);
    }
    stages.finish();
    return bodies;
}
