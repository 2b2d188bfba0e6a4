// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/prisms/FaceChange.h"
#include "host/services/prisms/PrismRegions.h"
#include "platform/services/FacePrisms.h"

namespace {

using Point2 = PlaneCoordinates::Point2;

/// Triangles of the face that come nearer than this to an outline, or lie within it, are filled
/// anew.
constexpr double reachMm = 0.001;
constexpr std::size_t pollInterval = 4096;

/// Asks of triangles of a face whether prisms reach them.
class ReachedTriangles
{
public:
    ReachedTriangles(MeshArrays const& prisms, PlaneCoordinates const& coordinates,
                     StageProgress& progress)
        : m_regions(PrismShells(prisms, coordinates).shells, reachMm),
          m_coordinates(coordinates),
          m_progress(progress)
    {}

    bool operator()(UTriangle<float> const& triangle)
    {
        if (m_asked++ % pollInterval == 0)
            m_progress.add(0);
        std::array<Point2, 3> const corners{m_coordinates.placeOf(triangle.cP(0)),
                                            m_coordinates.placeOf(triangle.cP(1)),
                                            m_coordinates.placeOf(triangle.cP(2))};
        return m_regions.isAnyNear(corners, m_met);
    }

private:
    PrismRegions m_regions;
    PlaneCoordinates const& m_coordinates;
    StageProgress& m_progress;
    std::size_t m_asked = 0;
    PrismRegions::Met m_met = nullptr;
};

}  // namespace

bool combineAtFace(MeshKernel& half, MeshKernel const& planeKernel, MeshKernel const& prismKernel,
                   Intersect::BooleanType type, std::function<void(int)> const& progress)
{
    StageProgress stage(progress);
    stage.begin(0, 0, 1);
    CutPlane const plane(planeKernel);
    PlaneCoordinates const coordinates(plane);
    UMesh<float>& halfMesh = *half.getMesh();
    FaceChange change(halfMesh, plane);
    int const facing = change.findFace();
    if (facing == 0 || type == Intersect::BOOLEAN_INTERSECT)
        return false;
    bool const isRaised = type == Intersect::BOOLEAN_UNION;
    MeshArrays const mesh = copyArrays(prismKernel, Frame::World, stage);
    PrismsAtPlane const prisms(mesh, plane, coordinates, isRaised ? facing : -facing);
    if (!prisms.isValid())
        return false;
    ReachedTriangles reached(mesh, coordinates, stage);
    if (!change.prepare(prisms, isRaised, std::ref(reached), progress))
        return false;
    change.write(halfMesh, prisms);
    // In a list of its own the kernel's copies may share it again.
    auto fresh = std::make_unique<UMesh<float>>();
    fresh->vertices.swap(halfMesh.vertices);
    fresh->triangles.swap(halfMesh.triangles);
    std::swap(fresh->vertexCount, halfMesh.vertexCount);
    std::swap(fresh->triangleCount, halfMesh.triangleCount);
    half.replaceMesh(std::move(fresh));
    return true;
}
