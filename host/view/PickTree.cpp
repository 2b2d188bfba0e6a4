// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/view/PickTree.h"

#include "host/services/SpatialOrder.h"

#include <tbb/blocked_range.h>
#include <tbb/parallel_for.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

using Vector = UVector3<double>;

constexpr double infinity = std::numeric_limits<double>::infinity();

Vector offset(PickTree::Ray const& ray, UPoint3<float> const& p)
{
    return UPoint3<double>(p.X(), p.Y(), p.Z()) - ray.origin;
}

/// Where a ray enters a box, by its slabs; infinity if it misses it.
double entryOf(float const* low, float const* high, PickTree::Ray const& ray)
{
    double first = ray.nearest;
    double last = ray.farthest;
    for (int axis = 0; axis < 3; ++axis) {
        double const speed = ray.direction[axis];
        double const below = low[axis] - ray.origin[axis];
        double const above = high[axis] - ray.origin[axis];
        if (speed == 0) {
            if (below > 0 || above < 0)
                return infinity;
            continue;
        }
        first = std::max(first, std::min(below / speed, above / speed));
        last = std::min(last, std::max(below / speed, above / speed));
    }
    // The quotients are rounded: a flat box is left by a ray where it is entered, or just before.
    return first <= last * (1 + 1e-12) ? first : infinity;
}

/// Moeller and Trumbore, "Fast, Minimum Storage Ray/Triangle Intersection" (1997), by the volumes
/// that the ray spans with the edges: two triangles with a common edge agree on its side, so no ray
/// gets through between them.
std::optional<double> distanceTo(Vector const& a, Vector const& b, Vector const& c,
                                 PickTree::Ray const& ray)
{
    double const u = ray.direction | (c * b);
    double const v = ray.direction | (a * c);
    double const w = ray.direction | (b * a);
    bool const isFront = u >= 0 && v >= 0 && w >= 0;
    bool const isBehind = u <= 0 && v <= 0 && w <= 0;
    double const sum = u + v + w;
    if (sum == 0 || !(isFront || (isBehind && !ray.onlyFront)))
        return {};
    Vector const point = (a * u + b * v + c * w) / sum;
    double const distance = (point | ray.direction) / (ray.direction | ray.direction);
    if (distance < ray.nearest || distance > ray.farthest)
        return {};
    return distance;
}

/// Whether a box has points on both sides of a plane, or on it.
bool isAcross(float const* low, float const* high, ViewPlane const& plane)
{
    double least = -plane.offset, most = -plane.offset;
    for (int axis = 0; axis < 3; ++axis) {
        double const a = plane.normal[axis] * low[axis], b = plane.normal[axis] * high[axis];
        least += std::min(a, b);
        most += std::max(a, b);
    }
    // The sums are rounded otherwise than those of single points.
    double const spare = 1e-12 * (std::abs(least) + std::abs(most) + std::abs(plane.offset));
    return least <= spare && most >= -spare;
}

MeshArrays arraysOf(MeshKernel const& kernel)
{
    std::function<void(int)> const none;
    StageProgress progress(none);
    return copyArrays(kernel, Frame::Local, progress);
}

}  // namespace

void PickTree::Ray::limitBelow(ViewPlane const& plane)
{
    double const height = (plane.normal | (origin - UPoint3<double>())) - plane.offset;
    double const climb = plane.normal | direction;
    if (climb > 0)
        farthest = std::min(farthest, -height / climb);
    else if (climb < 0)
        nearest = std::max(nearest, -height / climb);
    else if (height > 0)
        farthest = -infinity;
}

PickTree::PickTree(MeshKernel const& kernel) : PickTree(kernel.readMesh(), arraysOf(kernel)) {}

PickTree::PickTree(std::shared_ptr<UMesh<float> const> const& mesh, MeshArrays const& copy)
    : m_mesh(mesh)
{
    if (copy.triangles.empty())
        return;
    m_order = spatialOrder(copy, std::vector<std::uint8_t>(copy.triangles.size(), 0));
    addLevels(copy);
}

void PickTree::addLevels(MeshArrays const& mesh)
{
    using Range = tbb::blocked_range<std::size_t>;
    constexpr float most = std::numeric_limits<float>::max();
    Box const empty = {{most, most, most}, {-most, -most, -most}};
    auto const grow = [](Box& box, float const* low, float const* high) {
        for (int axis = 0; axis < 3; ++axis) {
            box.low[axis] = std::min(box.low[axis], low[axis]);
            box.high[axis] = std::max(box.high[axis], high[axis]);
        }
    };
    std::vector<Box> blocks((m_order.size() + blockSize - 1) / blockSize, empty);
    tbb::parallel_for(Range(0, blocks.size(), 1024), [&](Range const& range) {
        for (std::size_t b = range.begin(); b != range.end(); ++b)
            for (std::size_t i = b * blockSize; i < std::min((b + 1) * blockSize, m_order.size());
                 ++i)
                for (int k = 0; k < 3; ++k) {
                    MeshArrays::Point const p = mesh.point(m_order[i], k);
                    float const point[3] = {p.X(), p.Y(), p.Z()};
                    grow(blocks[b], point, point);
                }
    });
    m_levels.push_back(std::move(blocks));
    while (m_levels.back().size() > 1) {
        std::vector<Box> const& below = m_levels.back();
        std::vector<Box> level((below.size() + 1) / 2, empty);
        for (std::size_t i = 0; i < below.size(); ++i)
            grow(level[i / 2], below[i].low, below[i].high);
        m_levels.push_back(std::move(level));
    }
}

bool PickTree::isOf(std::shared_ptr<UMesh<float> const> const& mesh) const
{
    return mesh && m_mesh.lock() == mesh && mesh->triangles.size() == m_order.size();
}

void PickTree::testBlock(UMesh<float> const& mesh, std::size_t block, Ray const& ray,
                         std::optional<Hit>& best) const
{
    std::size_t const end = std::min((block + 1) * blockSize, m_order.size());
    for (std::size_t i = block * blockSize; i < end; ++i) {
        UTriangle<float> const& t = *mesh.triangles[m_order[i]];
        auto const distance =
            distanceTo(offset(ray, t.cP(0)), offset(ray, t.cP(1)), offset(ray, t.cP(2)), ray);
        if (distance && (!best || *distance < best->distance))
            best = Hit{m_order[i], *distance};
    }
}

std::vector<std::uint32_t> PickTree::blocksAcross(ViewPlane const& plane) const
{
    std::vector<std::uint32_t> places = {0};
    for (std::size_t level = m_levels.size(); level-- > 0;) {
        std::vector<Box> const& boxes = m_levels[level];
        std::erase_if(places, [&](std::uint32_t place) {
            return !isAcross(boxes[place].low, boxes[place].high, plane);
        });
        if (level == 0)
            break;
        std::vector<std::uint32_t> below;
        below.reserve(2 * places.size());
        for (std::uint32_t const place : places)
            for (std::uint32_t const child : {2 * place, 2 * place + 1})
                if (child < m_levels[level - 1].size())
                    below.push_back(child);
        places = std::move(below);
    }
    return places;
}

std::optional<PickTree::Hit> PickTree::firstHit(UMesh<float> const& mesh, Ray const& ray) const
{
    std::optional<Hit> best;
    std::vector<Node> open;
    auto const visit = [&](std::size_t level, std::size_t place) {
        if (place >= m_levels[level].size())
            return;
        Box const& box = m_levels[level][place];
        double const entry = entryOf(box.low, box.high, ray);
        if (entry < infinity)
            open.push_back({level, place, entry});
    };
    if (!m_levels.empty())
        visit(m_levels.size() - 1, 0);
    while (!open.empty()) {
        Node const node = open.back();
        open.pop_back();
        if (best && node.entry > best->distance)
            continue;
        if (node.level == 0) {
            testBlock(mesh, node.place, ray, best);
            continue;
        }
        std::size_t const before = open.size();
        visit(node.level - 1, 2 * node.place);
        visit(node.level - 1, 2 * node.place + 1);
        // The nearer child is taken first.
        if (open.size() == before + 2 && open[before].entry < open[before + 1].entry)
            std::swap(open[before], open[before + 1]);
    }
    return best;
}
