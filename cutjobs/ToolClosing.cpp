// SPDX-License-Identifier: GPL-3.0-or-later
#include "cutjobs/ToolClosing.h"

#include "cutjobs/CrowdedCaps.h"
#include "cutjobs/common/ClosedSurface.h"
#include "platform/mesh/MeshKernel.h"
#include "platform/services/EarcutPolygon.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <deque>
#include <map>
#include <memory>
#include <tuple>

namespace {

using Point = UPoint3<float>;
using Mesh = UMesh<float>;
using Triangle = UTriangle<float>;
/// A closed line of points, in the direction of the triangles that it lacks.
using Border = std::vector<Point>;

struct ByPlace
{
    bool operator()(Point const& a, Point const& b) const
    {
        return std::tuple(a.X(), a.Y(), a.Z()) < std::tuple(b.X(), b.Y(), b.Z());
    }
};

/// Chains edges to closed lines that pass no point twice.
class BorderChains
{
public:
    explicit BorderChains(std::vector<ClosedSurface::Edge> const& edges)
    {
        for (auto const& [from, to] : edges)
            m_edgesFrom[from].push_back(to);
    }

    std::vector<Border> run()
    {
        for (auto& [start, ends] : m_edgesFrom)
            while (!ends.empty())
                walkFrom(start);
        return std::move(m_borders);
    }

private:
    /// Every point has as many edges into it as out of it, so the walk ends where it began.
    void walkFrom(Point const& start)
    {
        Border open{start};
        std::map<Point, std::size_t, ByPlace> places{{start, 0}};
        for (auto edges = m_edgesFrom.find(start);
             edges != m_edgesFrom.end() && !edges->second.empty();
             edges = m_edgesFrom.find(open.back())) {
            Point const next = edges->second.front();
            edges->second.pop_front();
            auto const [place, isNew] = places.try_emplace(next, open.size());
            if (isNew)
                open.push_back(next);
            else
                takeOff(open, place->second, places);
        }
    }

    void takeOff(Border& open, std::size_t first, std::map<Point, std::size_t, ByPlace>& places)
    {
        auto const begin = open.begin() + std::ptrdiff_t(first);
        m_borders.emplace_back(begin, open.end());
        for (auto gone = begin + 1; gone != open.end(); ++gone)
            places.erase(*gone);
        open.erase(begin + 1, open.end());
    }

    std::map<Point, std::deque<Point>, ByPlace> m_edgesFrom;
    std::vector<Border> m_borders;
};

/// The area of a closed line as a vector, twice.
UVector3<double> areaOf(Border const& border)
{
    UVector3<double> area;
    auto const offset = [&](Point const& p) {
        return UVector3<double>(double(p.X()) - border[0].X(), double(p.Y()) - border[0].Y(),
                                double(p.Z()) - border[0].Z());
    };
    for (std::size_t i = 0; i < border.size(); ++i)
        area += offset(border[i]) * offset(border[(i + 1) % border.size()]);
    return area;
}

/// The line seen against its area: on the two axes that its plane is steepest to least.
std::vector<std::array<double, 2>> flattened(Border const& border)
{
    UVector3<double> const area = areaOf(border);
    int axis = 0;
    for (int k = 1; k < 3; ++k)
        if (std::abs(area[k]) > std::abs(area[axis]))
            axis = k;
    int const first = (axis + 1) % 3, second = (axis + 2) % 3;
    bool const isSeenFromBelow = area[axis] < 0;
    std::vector<std::array<double, 2>> ring;
    for (Point const& p : border)
        ring.push_back({double(p[isSeenFromBelow ? second : first]),
                        double(p[isSeenFromBelow ? first : second])});
    return ring;
}

void pollNowAndThen(std::size_t step, std::function<void()> const& poll)
{
    if (poll && step % 4096 == 4095)
        poll();
}

/// Triangles that fill a closed line, three places in it for each.
std::vector<int> filling(Border const& border, std::function<void()> const& poll)
{
    std::function<void(int)> const progress =
        poll ? [&poll](int) { poll(); } : std::function<void(int)>();
    if (border.size() > 3)
        if (std::vector<int> corners = EarcutPolygon::earcut({flattened(border)}, progress);
            !corners.empty())
            return corners;
    // A line that goes and comes back the same way has no area to fill, but its edges need
    // partners.
    std::vector<int> fan;
    for (int i = 2; i < int(border.size()); ++i)
        fan.insert(fan.end(), {0, i - 1, i});
    return fan;
}

/// A mesh with one vertex for each place.
class WeldedMesh
{
public:
    void add(Point const& a, Point const& b, Point const& c)
    {
        if (a == b || b == c || c == a)
            return;
        // Each compiler would make the vertices of arguments in an order of its own.
        UVertex<float>*const first = vertexAt(a), *const second = vertexAt(b),
                             *const third = vertexAt(c);
        auto* const triangle = new Triangle(first, second, third, {});
        triangle->N() = triangle->ComputeNormalizedNormal();
        m_mesh->AddTriangle(triangle);
    }

    Mesh const& mesh() const { return *m_mesh; }
    std::unique_ptr<Mesh> take() { return std::move(m_mesh); }

private:
    UVertex<float>* vertexAt(Point const& place)
    {
        auto const [vertex, isNew] = m_vertices.try_emplace(place, nullptr);
        if (isNew) {
            vertex->second = new UVertex<float>(place);
            m_mesh->AddVertex(vertex->second);
        }
        return vertex->second;
    }

    std::unique_ptr<Mesh> m_mesh = std::make_unique<Mesh>();
    std::map<Point, UVertex<float>*, ByPlace> m_vertices;
};

double surfaceOf(Mesh const& mesh)
{
    double sum = 0;
    for (Triangle const* const t : mesh.triangles)
        sum += areaOf({t->cP(0), t->cP(1), t->cP(2)}).GetLength();
    return sum;
}

/// A mesh without some of its triangles, its openings filled.
std::unique_ptr<Mesh> filledWithout(Mesh const& mesh, std::vector<bool> const& isLeftOut,
                                    std::function<void()> const& poll)
{
    WeldedMesh welded;
    for (std::size_t t = 0; t < mesh.triangles.size(); ++t) {
        pollNowAndThen(t, poll);
        if (isLeftOut.empty() || !isLeftOut[t])
            welded.add(mesh.triangles[t]->cP(0), mesh.triangles[t]->cP(1),
                       mesh.triangles[t]->cP(2));
    }
    for (Border const& border : BorderChains(ClosedSurface::missingEdges(welded.mesh())).run()) {
        std::vector<int> const corners = filling(border, poll);
        for (std::size_t i = 0; i + 2 < corners.size(); i += 3) {
            pollNowAndThen(i / 3, poll);
            welded.add(border[std::size_t(corners[i])], border[std::size_t(corners[i + 1])],
                       border[std::size_t(corners[i + 2])]);
        }
    }
    return welded.take();
}

}  // namespace

void closeTool(MeshKernel& tool, std::function<void()> const& poll)
{
    auto const mesh = tool.readMesh();
    bool const isClosed = ClosedSurface::missingEdges(*mesh).empty();
    std::vector<bool> const caps = crowdedCaps(*mesh);
    if (isClosed && caps.empty())
        return;
    std::unique_ptr<Mesh> filled = isClosed ? nullptr : filledWithout(*mesh, {}, poll);
    if (!caps.empty()) {
        // A cap that lay on itself, or whose border crosses itself, stays as it was.
        constexpr double rounding = 1e-6;
        auto refilled = filledWithout(*mesh, caps, poll);
        if (surfaceOf(*refilled) <= (1 + rounding) * surfaceOf(filled ? *filled : *mesh))
            filled = std::move(refilled);
    }
    if (!filled)
        return;
    filled->UpdateTrisID();
    filled->UpdateVertsID();
    tool.replaceMesh(std::move(filled));
    tool.UpdateBoundingBox();
}
