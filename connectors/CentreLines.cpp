// SPDX-License-Identifier: GPL-3.0-or-later
#include "connectors/CentreLines.h"

#include "platform/mesh/UMesh.h"

#include <algorithm>
#include <array>
#include <deque>

namespace {

using Point = UPoint3<float>;
using Triangle = UTriangle<float>;

/// An edge of a triangle, which are known by their numbers.
struct EdgePlace
{
    std::size_t triangle;
    int edge;
};

class CentreLineBuilder
{
public:
    CentreLineBuilder(UMesh<float>& mesh, ContourDistance const& contours, float clearance)
        : m_mesh(mesh),
          m_contours(contours),
          m_clearance(clearance),
          m_edges(mesh.triangles.size()),
          m_closedCorner(3 * mesh.triangles.size(), false)
    {}

    std::vector<std::vector<Point>> run(ConnectorProgress::Poll const& poll)
    {
        for (std::size_t t = 0; t < m_edges.size(); ++t) {
            if (poll)
                poll();
            markTriangle(t);
        }
        std::vector<std::vector<Point>> lines;
        for (std::size_t corner = 0; corner < m_closedCorner.size(); ++corner)
            if (!m_closedCorner[corner])
                lines.push_back(lineThrough({corner / 3, int(corner % 3)}));
        return lines;
    }

private:
    struct Edges
    {
        std::array<Point, 3> point;
        std::array<bool, 3> visited{};
    };

    /// Corner k of a triangle lies between its edges k and k + 2: while it is closed no line passes
    /// from the one to the other.
    std::vector<bool>::reference corner(std::size_t t, int k)
    {
        return m_closedCorner[3 * t + std::size_t(k)];
    }

    void closeEdge(EdgePlace const& place)
    {
        corner(place.triangle, place.edge) = true;
        corner(place.triangle, Triangle::Next(place.edge)) = true;
    }

    EdgePlace across(EdgePlace const& place) const
    {
        Triangle* const triangle = m_mesh.triangles[place.triangle];
        return {triangle->cFFp(place.edge)->ID(), triangle->FFi(place.edge)};
    }

    void markTriangle(std::size_t t)
    {
        for (int e = 0; e < 3; ++e)
            if (!m_edges[t].visited[std::size_t(e)])
                markEdge({t, e});
        if (corner(t, 0) || corner(t, 1) || corner(t, 2))
            return;
        auto& points = m_edges[t].point;
        points.fill((points[0] + points[1] + points[2]) / 3.0f);
    }

    void markEdge(EdgePlace const& place)
    {
        Triangle* const triangle = m_mesh.triangles[place.triangle];
        m_edges[place.triangle].visited[std::size_t(place.edge)] = true;
        if (Triangle::IsBorder(triangle, place.edge)) {
            closeEdge(place);
            return;
        }
        Point const middle =
            (triangle->cP(place.edge) + triangle->cP(Triangle::Next(place.edge))) / 2.0f;
        EdgePlace const other = across(place);
        m_edges[other.triangle].visited[std::size_t(other.edge)] = true;
        bool const isUsable = isClearOfContours(m_contours, middle, m_clearance, m_recall);
        for (EdgePlace const& side : {place, other})
            if (isUsable)
                pointAt(side) = middle;
            else
                closeEdge(side);
    }

    Point& pointAt(EdgePlace const& place)
    {
        return m_edges[place.triangle].point[std::size_t(place.edge)];
    }

    /// The line that passes a triangle around one of its corners, walked to both ends.
    std::vector<Point> lineThrough(EdgePlace const& start)
    {
        corner(start.triangle, start.edge) = true;
        std::deque<Point> line{pointAt(start)};
        EdgePlace const ahead = across({start.triangle, Triangle::Prev(start.edge)});
        line.push_back(pointAt(ahead));
        walk(ahead, [&](Point const& p) { line.push_back(p); });
        walk(across(start), [&](Point const& p) { line.push_front(p); });
        return {line.begin(), line.end()};
    }

    /// From triangle to triangle; of two ways out the one around the vertex that the edge of entry
    /// begins with comes first.
    template <typename Add>
    void walk(EdgePlace place, Add const& add)
    {
        for (;;) {
            auto const [t, g] = place;
            int const next = Triangle::Next(g);
            int exit;
            if (!corner(t, g)) {
                corner(t, g) = true;
                exit = Triangle::Prev(g);
            } else if (!corner(t, next)) {
                corner(t, next) = true;
                exit = next;
            } else {
                return;
            }
            add(pointAt({t, exit}));
            place = across({t, exit});
        }
    }

    UMesh<float>& m_mesh;
    ContourDistance const& m_contours;
    float m_clearance;
    ContourDistance::Recall m_recall;
    std::vector<Edges> m_edges;
    std::vector<bool> m_closedCorner;
};

}  // namespace

std::vector<std::vector<Point>> extractCentreLines(UMesh<float>& mesh,
                                                   ContourDistance const& contours, float clearance,
                                                   ConnectorProgress::Poll const& poll)
{
    return CentreLineBuilder(mesh, contours, clearance).run(poll);
}

bool isClearOfContours(ContourDistance const& contours, UPoint3<float> const& p, float clearance,
                       ContourDistance::Recall& recall)
{
    return contours.isBeyond(p, double(clearance) + 0.1, recall);
}
