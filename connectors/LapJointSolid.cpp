// SPDX-License-Identifier: GPL-3.0-or-later
#include "connectors/LapJointSolid.h"

#include "connectors/LapJointParas.h"
#include "connectors/PlaneFrame.h"
#include "connectors/PlaneGrid.h"
#include "platform/services/EarcutPolygon.h"

namespace {

using Vertex = UVertex<float>;
using Triangle = UTriangle<float>;
using Ring2 = std::vector<std::array<double, 2>>;

class NotchSolidBuilder
{
public:
    explicit NotchSolidBuilder(NotchSolidContext const& context) : m_context(context)
    {
        LapJointParas const& paras = context.paras;
        UVector3<float> const& normal = context.frame.normal();
        m_toFloor = context.tongue ? normal * -0.01f : UVector3<float>();
        m_toTop =
            normal * (context.tongue ? paras.notchDepth : paras.backClearance + paras.notchDepth);
    }

    void addPart(POLYGON::PolygonsPart const& part)
    {
        std::size_t const first = m_context.vertices.size();
        std::vector<Ring2> rings;
        for (ClipperLib::Path const& path : part.getPaths())
            rings.push_back(addRing(path));
        addCaps(EarcutPolygon::earcut(rings, {}), first);
    }

private:
    Ring2 addRing(ClipperLib::Path const& path)
    {
        std::size_t const first = m_context.vertices.size();
        Ring2 ring;
        SectionContour const points = PlaneGrid::pointsOf(path, m_context.frame);
        for (std::size_t i = 0; i < path.size(); ++i) {
            ring.push_back({double(path[i].X), double(path[i].Y)});
            addVertex(points[i] + m_toFloor);
            addVertex(points[i] + m_toTop);
        }
        for (std::size_t i = 0; i < path.size(); ++i)
            addWall(first, i, (i + 1) % path.size());
        return ring;
    }

    void addVertex(UPoint3<float> const& place)
    {
        auto* const vertex = new Vertex(place);
        vertex->ID() = m_context.vertices.size();
        m_context.vertices.push_back(vertex);
    }

    void addWall(std::size_t first, std::size_t i, std::size_t j)
    {
        std::size_t const place = m_context.triangles.size();
        addTriangle(topOf(first, i), floorOf(first, i), topOf(first, j));
        addTriangle(floorOf(first, j), topOf(first, j), floorOf(first, i));
        for (std::size_t t = place; t < m_context.triangles.size(); ++t)
            m_context.triangles[t]->ID() = std::uint32_t(t);
    }

    void addCaps(std::vector<int> const& indices, std::size_t first)
    {
        for (std::size_t i = 0; i + 2 < indices.size(); i += 3) {
            std::size_t const a = std::size_t(indices[i]);
            std::size_t const b = std::size_t(indices[i + 1]);
            std::size_t const c = std::size_t(indices[i + 2]);
            addTriangle(floorOf(first, a), floorOf(first, c), floorOf(first, b));
            addTriangle(topOf(first, a), topOf(first, b), topOf(first, c));
        }
    }

    void addTriangle(Vertex* a, Vertex* b, Vertex* c)
    {
        m_context.triangles.push_back(new Triangle(a, b, c, {}));
    }

    Vertex* floorOf(std::size_t first, std::size_t i) const
    {
        return m_context.vertices[first + 2 * i];
    }
    Vertex* topOf(std::size_t first, std::size_t i) const
    {
        return m_context.vertices[first + 2 * i + 1];
    }

    NotchSolidContext const& m_context;
    UVector3<float> m_toFloor;
    UVector3<float> m_toTop;
};

}  // namespace

void buildNotchSolid(NotchSolidContext const& context)
{
    NotchSolidBuilder builder(context);
    for (POLYGON::PolygonsPart const& part : context.outline.splitIntoParts(false, 0))
        builder.addPart(part);
}

std::unique_ptr<UMesh<float>> notchMesh(POLYGON::Polygons const& outline,
                                        LapJointParas const& paras, PlaneFrame const& frame,
                                        bool tongue)
{
    auto mesh = std::make_unique<UMesh<float>>();
    buildNotchSolid({outline, paras, frame, tongue, mesh->vertices, mesh->triangles});
    if (mesh->vertices.empty() || mesh->triangles.empty())
        return nullptr;
    mesh->vertexCount = std::uint32_t(mesh->vertices.size());
    mesh->triangleCount = std::uint32_t(mesh->triangles.size());
    return mesh;
}
