// SPDX-License-Identifier: GPL-3.0-or-later
#include "connectors/SectionContour.h"

#include "platform/mesh/MeshKernel.h"

namespace {

using Triangle = UTriangle<float>;
using Vertex = UVertex<float>;

/// An edge, seen from one of its triangles.
struct TriangleEdge
{
    Triangle* triangle;
    int edge;

    bool operator==(TriangleEdge const&) const = default;

    bool isBorder() const { return Triangle::IsBorder(triangle, edge); }
    Vertex* from() const { return triangle->V(edge); }
    Vertex* to() const { return triangle->V(Triangle::Next(edge)); }

    /// The same edge from its other side; a border edge has none and stays as it is.
    TriangleEdge across() const
    {
        return isBorder() ? *this : TriangleEdge{triangle->FFp(edge), triangle->FFi(edge)};
    }
    /// The other edge of the triangle at one of this edge's vertices.
    TriangleEdge otherAt(Vertex const* vertex) const
    {
        return {triangle, to() == vertex ? Triangle::Next(edge) : Triangle::Prev(edge)};
    }
};

/// Turns around a vertex from one border edge to the next one.
TriangleEdge nextBorder(TriangleEdge edge, Vertex const* vertex)
{
    do
        edge = edge.otherAt(vertex).across();
    while (!edge.isBorder());
    return edge;
}

class BorderWalk
{
public:
    explicit BorderWalk(UMesh<float>& mesh) : m_mesh(mesh), m_seen(mesh.triangles.size(), false) {}

    std::vector<SectionContour> run()
    {
        std::vector<SectionContour> contours;
        for (Triangle* const triangle : m_mesh.triangles)
            for (int e = 0; e < 3; ++e) {
                // Once a border of a triangle has been walked, no further walk starts there.
                if (m_seen[triangle->ID()] || !Triangle::IsBorder(triangle, e))
                    continue;
                SectionContour contour = walkFrom({triangle, e});
                if (contour.size() > 3)
                    contours.push_back(std::move(contour));
            }
        return contours;
    }

private:
    /// From the edge's first vertex away from its second one, so against the edges' direction.
    SectionContour walkFrom(TriangleEdge const start)
    {
        SectionContour points{start.from()->P()};
        TriangleEdge current = start;
        Vertex* vertex = start.from();
        do {
            m_seen[current.triangle->ID()] = true;
            points.push_back(vertex->P());
            current = nextBorder(current, vertex);
            vertex = current.to() != vertex ? current.to() : current.from();
        } while (!(current == start && vertex == start.from()));
        return points;
    }

    UMesh<float>& m_mesh;
    std::vector<bool> m_seen;
};

}  // namespace

std::vector<SectionContour> extractSectionContours(MeshKernel* cap)
{
    UMesh<float>& mesh = *cap->getMesh();
    mesh.BuildTopo({}, false);
    // What is removed leaves its neighbours with links to nothing.
    if (mesh.DeleteDegenerateTris() > 0)
        mesh.BuildTopo({}, false);
    mesh.UpdateTrisID();
    mesh.UpdateVertsID();
    return BorderWalk(mesh).run();
}
