// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/mesh/Placement.h"
#include "host/services/prisms/PrismRegions.h"
#include "platform/services/FacePrisms.h"

#include <algorithm>
#include <limits>

namespace {

using Point = UPoint3<float>;
using Point2 = PlaneCoordinates::Point2;
using Point3 = PlaneCoordinates::Point3;

/// What is kept free within and around prisms.
constexpr double freeMm = 0.001;
/// Triangles from one poll to the next.
constexpr std::size_t pollInterval = 65536;

/// What of a triangle lies between two heights, seen along the normal.
class Slab
{
public:
    Slab(double low, double high) : m_low(low), m_high(high) {}

    std::vector<Point2> const& clip(std::array<Point3, 3> const& triangle)
    {
        m_points.assign(triangle.begin(), triangle.end());
        cut(m_low, 1);
        cut(m_high, -1);
        m_places.clear();
        for (Point3 const& p : m_points)
            m_places.push_back({p[0], p[1]});
        return m_places;
    }

private:
    /// Keeps what lies above a height, or below it if `up` is -1.
    void cut(double height, double up)
    {
        m_kept.clear();
        for (std::size_t i = 0; i < m_points.size(); ++i) {
            Point3 const &a = m_points[i], &b = m_points[(i + 1) % m_points.size()];
            double const above = (a[2] - height) * up, next = (b[2] - height) * up;
            if (above >= 0)
                m_kept.push_back(a);
            if ((above < 0) != (next < 0)) {
                double const t = above / (above - next);
                m_kept.push_back({a[0] + t * (b[0] - a[0]), a[1] + t * (b[1] - a[1]), height});
            }
        }
        m_points.swap(m_kept);
    }

    double m_low;
    double m_high;
    std::vector<Point3> m_points;
    std::vector<Point3> m_kept;
    std::vector<Point2> m_places;
};

/// Marks the shells that a surface comes near to as no free prisms.
void markMet(UMesh<float> const& part, PlaneCoordinates const& coordinates,
             std::vector<PrismShells::Shell>& shells, StageProgress& progress)
{
    double low = std::numeric_limits<double>::max(), high = -low;
    for (PrismShells::Shell const& shell : shells) {
        low = std::min(low, shell.low - freeMm);
        high = std::max(high, shell.high + freeMm);
    }
    PrismRegions const regions(shells, freeMm);
    Slab slab(low, high);
    std::vector<std::uint32_t> found;
    for (std::size_t t = 0; t < part.triangles.size(); ++t) {
        if (t % pollInterval == 0)
            progress.add(pollInterval);
        std::array<Point, 3> const corners{part.triangles[t]->cP(0), part.triangles[t]->cP(1),
                                           part.triangles[t]->cP(2)};
        std::array<double, 3> const heights{coordinates.heightOf(corners[0]),
                                            coordinates.heightOf(corners[1]),
                                            coordinates.heightOf(corners[2])};
        if (std::max({heights[0], heights[1], heights[2]}) < low ||
            std::min({heights[0], heights[1], heights[2]}) > high)
            continue;
        auto const& places = slab.clip(
            {coordinates.of(corners[0]), coordinates.of(corners[1]), coordinates.of(corners[2])});
        if (places.empty())
            continue;
        found.clear();
        regions.findNear(places, found);
        for (std::uint32_t const shell : found)
            shells[shell].isPrism = false;
    }
}

/// The shells of a mesh that are prisms, or those that are not.
std::unique_ptr<MeshKernel> someOf(MeshArrays const& mesh, PrismShells const& prisms,
                                   bool arePrisms)
{
    MeshArrays some;
    std::vector<std::uint32_t> numbers(mesh.points.size());
    for (std::size_t i = 0; i < mesh.points.size(); ++i)
        if (prisms.shells[prisms.shellOfPoint[i]].isPrism == arePrisms) {
            numbers[i] = std::uint32_t(some.points.size());
            some.points.push_back(mesh.points[i]);
        }
    for (auto const& [a, b, c] : mesh.triangles)
        if (prisms.shells[prisms.shellOfPoint[a]].isPrism == arePrisms)
            some.triangles.push_back({numbers[a], numbers[b], numbers[c]});
    return std::make_unique<MeshKernel>(makeMesh(some).release());
}

}  // namespace

PrismSplit splitPrisms(MeshKernel const& part, MeshKernel const& plane, MeshKernel const& prisms,
                       std::function<void(int)> const& progress)
{
    StageProgress stage(progress);
    stage.begin(0, 0, 1);
    MeshArrays const mesh = copyArrays(prisms, Frame::World, stage);
    PlaneCoordinates const coordinates{CutPlane(plane)};
    PrismShells shells(mesh, coordinates);
    std::shared_ptr<MeshKernel const> const placed =
        part.getMatrix().isIdentity() ? nullptr : placedCopy(part);
    auto const surface = (placed ? *placed : part).readMesh();
    stage.begin(0, 100, surface->triangles.size());
    if (!shells.shells.empty())
        markMet(*surface, coordinates, shells.shells, stage);
    return {someOf(mesh, shells, true), someOf(mesh, shells, false)};
}
