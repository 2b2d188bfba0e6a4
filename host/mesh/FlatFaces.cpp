// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/mesh/FlatFaces.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <limits>
#include <unordered_map>

// Own derivation: triangles are sorted into cells of direction and distance from the origin. The
// planes of the largest cells take in what lies beside them, since a plane may fall on the border
// of cells; what is left is tried against all vertices. Before that a coarse count of directions
// leaves out nearly all triangles of a part that is not flat anywhere.
namespace {

using Vector = UVector3<double>;

/// Cells along an axis of the unit sphere.
constexpr double cellsPerUnit = 256;
/// Directions that count as one: half a degree.
constexpr double sameDirection = 0.99996;
/// Of the diagonal of the box: how far apart the planes of one face lie, and how far a part may
/// reach beyond its plane.
constexpr double flatness = 2e-4;
constexpr double leastShare = 0.01;
constexpr std::size_t mostFaces = 32;
/// Directions in the coarse count, along an axis, and in how many of its cells a plane may lie.
constexpr int coarseCells = 65;
constexpr double coarseParts = 8;

using Key = std::array<std::int32_t, 4>;

struct KeyHash
{
    std::size_t operator()(Key const& key) const
    {
        std::uint64_t hash = 0;
        for (std::int32_t const value : key)
            hash = (hash ^ std::uint32_t(value)) * 0x9e3779b97f4a7c15u;
        return std::size_t(hash ^ hash >> 32);
    }
};

/// What lies in a cell: sums over its triangles.
struct Cell
{
    Key key{};
    Vector areaVector;
    double area = 0;
    /// Distance times area.
    double moment = 0;

    Vector normal() const { return areaVector * (1 / areaVector.GetLength()); }
    double distance() const { return moment / area; }
};

class Faces
{
public:
    explicit Faces(MeshKernel const& kernel)
        : m_matrix(kernel.getMatrix()), m_mesh(kernel.readMesh())
    {
        UBox3<float> const box = kernel.GetBox();
        m_reach = flatness * double((box.max - box.min).GetLength());
        m_isMirrored = m_matrix.linearDeterminant() < 0;
        m_origin = placed(box.min);
        collect();
    }

    std::vector<FlatFace> standing()
    {
        std::vector<FlatFace> faces;
        std::vector<bool> isTaken(m_cells.size());
        for (std::size_t i = 0; i < m_cells.size() && faces.size() < mostFaces; ++i) {
            if (m_cells[i].area < leastShare / 4 * m_total)
                break;
            if (isTaken[i])
                continue;
            Cell const face = around(i, isTaken);
            if (face.area >= leastShare * m_total && isOutermost(face.normal(), face.distance()))
                faces.push_back(
                    {face.normal(), face.area, face.distance() + (face.normal() | m_origin)});
        }
        std::stable_sort(faces.begin(), faces.end(),
                         [](auto const& a, auto const& b) { return a.area > b.area; });
        return faces;
    }

private:
    static constexpr std::uint32_t none = ~0u;

    static Vector placed(UPoint3<float> const& p) { return {p.X(), p.Y(), p.Z()}; }
    Vector world(UPoint3<float> const& p) const
    {
        Vector result;
        for (int row = 0; row < 3; ++row)
            result[row] = double(m_matrix(row, 0)) * p.X() + double(m_matrix(row, 1)) * p.Y() +
                          double(m_matrix(row, 2)) * p.Z() + double(m_matrix(row, 3));
        return result;
    }

    Vector areaVectorOf(UTriangle<float> const& triangle) const
    {
        Vector const a = world(triangle.cP(0));
        Vector const twice = (world(triangle.cP(1)) - a) * (world(triangle.cP(2)) - a);
        return twice * (m_isMirrored ? -0.5 : 0.5);
    }

    static std::uint32_t coarseCell(Vector const& normal)
    {
        std::uint32_t cell = 0;
        for (int axis = 0; axis < 3; ++axis)
            cell = cell * coarseCells +
                   std::uint32_t(std::lround((normal[axis] + 1) * (coarseCells - 1) / 2));
        return cell;
    }

    /// The coarse cell of each triangle, and the area in each cell; triangles without area are in
    /// none.
    std::vector<std::uint32_t> countDirections(std::vector<double>& areas)
    {
        areas.assign(std::size_t(coarseCells) * coarseCells * coarseCells, 0);
        std::vector<std::uint32_t> cells;
        cells.reserve(m_mesh->triangles.size());
        for (UTriangle<float> const* const triangle : m_mesh->triangles) {
            Vector const areaVector = areaVectorOf(*triangle);
            double const area = areaVector.GetLength();
            if (!(area > 0) || !std::isfinite(area)) {
                cells.push_back(none);
                continue;
            }
            cells.push_back(coarseCell(areaVector * (1 / area)));
            areas[cells.back()] += area;
            m_total += area;
        }
        return cells;
    }

    void collect()
    {
        std::vector<double> areas;
        std::vector<std::uint32_t> const coarse = countDirections(areas);
        double const least = leastShare / 4 / coarseParts * m_total;
        std::unordered_map<Key, Cell, KeyHash> cells;
        for (std::size_t i = 0; i < coarse.size(); ++i) {
            if (coarse[i] == none || areas[coarse[i]] < least)
                continue;
            UTriangle<float> const& triangle = *m_mesh->triangles[i];
            Vector const areaVector = areaVectorOf(triangle);
            double const area = areaVector.GetLength();
            Vector const normal = areaVector * (1 / area);
            double const distance = normal | (world(triangle.cP(0)) - m_origin);
            Key const key = {cellOf(normal[0] * cellsPerUnit), cellOf(normal[1] * cellsPerUnit),
                             cellOf(normal[2] * cellsPerUnit), cellOf(distance / m_reach)};
            Cell& cell = cells[key];
            cell.key = key;
            cell.areaVector = cell.areaVector + areaVector;
            cell.area += area;
            cell.moment += distance * area;
        }
        for (auto const& [key, cell] : cells)
            if (cell.areaVector.GetLength() > 0)
                m_cells.push_back(cell);
        // The keys make the order one that does not depend on the table's.
        std::sort(m_cells.begin(), m_cells.end(), [](Cell const& a, Cell const& b) {
            return a.area != b.area ? a.area > b.area : a.key < b.key;
        });
    }

    static std::int32_t cellOf(double value)
    {
        constexpr double most = 1e9;
        return std::int32_t(std::lround(std::clamp(value, -most, most)));
    }

    /// A cell and all that lie in its plane, which are taken.
    Cell around(std::size_t first, std::vector<bool>& isTaken) const
    {
        Cell face;
        Vector const normal = m_cells[first].normal();
        double const distance = m_cells[first].distance();
        for (std::size_t i = first; i < m_cells.size(); ++i) {
            Cell const& cell = m_cells[i];
            if (isTaken[i] || std::abs(cell.distance() - distance) > 2 * m_reach ||
                (cell.normal() | normal) < sameDirection)
                continue;
            isTaken[i] = true;
            face.areaVector = face.areaVector + cell.areaVector;
            face.area += cell.area;
            face.moment += cell.moment;
        }
        return face;
    }

    bool isOutermost(Vector const& normal, double distance) const
    {
        return std::none_of(
            m_mesh->vertices.begin(), m_mesh->vertices.end(), [&](UVertex<float> const* vertex) {
                return (normal | (world(vertex->cP()) - m_origin)) > distance + 2 * m_reach;
            });
    }

    UMatrix4<float> m_matrix;
    std::shared_ptr<UMesh<float> const> m_mesh;
    bool m_isMirrored = false;
    Vector m_origin;
    double m_reach = 0;
    double m_total = 0;
    /// Largest first.
    std::vector<Cell> m_cells;
};

}  // namespace

std::vector<FlatFace> standingFaces(MeshKernel const& kernel)
{
    if (!kernel.readMesh() || kernel.GetBox().Isnullptr())
        return {};
    return Faces(kernel).standing();
}
