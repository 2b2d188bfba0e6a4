// SPDX-License-Identifier: GPL-3.0-or-later
#include "connectors/AxisRays.h"

#include "connectors/PlacedMesh.h"
#include "connectors/PlaneFrame.h"
#include "cutjobs/common/PollingSteps.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <numeric>

namespace {

/// A surface this near to the plane belongs to it: one unit of the plane's grid.
constexpr double planeThickness = 0.001;

using Local = UPoint3<float>;
using Corners = std::array<Local, 3>;

/// The starts, sorted into square cells, so that a triangle looks only at those near to it.
class RayGrid
{
public:
    explicit RayGrid(std::vector<Local> const& starts)
    {
        for (Local const& p : starts)
            for (int k = 0; k < 2; ++k) {
                m_low[k] = std::min(m_low[k], p[k]);
                m_high[k] = std::max(m_high[k], p[k]);
            }
        float const extent = std::max(m_high[0] - m_low[0], m_high[1] - m_low[1]);
        // Finer than for starts all over the section: those of outlines crowd in few cells.
        auto const perSide = std::max(1.0f, std::ceil(3 * std::sqrt(float(starts.size()))));
        m_cell = std::max(extent / perSide, 1e-6f);
        for (int k = 0; k < 2; ++k)
            m_count[k] = cellOf(m_high[k], k, true) + 1;
        sortIn(starts);
    }

    /// Calls visit(ray, start) for each ray that the triangle's box covers.
    template <typename Visit>
    void visitNear(Corners const& t, Visit const& visit) const
    {
        float low[2], high[2];
        for (int k = 0; k < 2; ++k) {
            low[k] = std::min({t[0][k], t[1][k], t[2][k]});
            high[k] = std::max({t[0][k], t[1][k], t[2][k]});
            if (!(high[k] >= m_low[k] && low[k] <= m_high[k]))
                return;
        }
        int first[2], last[2];
        for (int k = 0; k < 2; ++k) {
            first[k] = cellOf(low[k], k, false);
            last[k] = cellOf(high[k], k, false);
        }
        for (int row = first[1]; row <= last[1]; ++row) {
            auto const begin = m_begins[placeOf(first[0], row)];
            auto const end = m_begins[placeOf(last[0], row) + 1];
            for (auto i = begin; i < end; ++i) {
                Local const& start = m_sorted[i].start;
                if (start[0] >= low[0] && start[0] <= high[0] && start[1] >= low[1] &&
                    start[1] <= high[1])
                    visit(m_sorted[i].ray, start);
            }
        }
    }

private:
    int cellOf(float x, int axis, bool isCounting) const
    {
        float const cell = std::floor((x - m_low[axis]) / m_cell);
        return int(std::clamp(cell, 0.0f, isCounting ? 65535.0f : float(m_count[axis] - 1)));
    }
    std::size_t placeOf(int column, int row) const
    {
        return std::size_t(row) * std::size_t(m_count[0]) + std::size_t(column);
    }
    std::size_t placeOf(Local const& p) const
    {
        return placeOf(cellOf(p[0], 0, false), cellOf(p[1], 1, false));
    }

    void sortIn(std::vector<Local> const& starts)
    {
        m_begins.assign(placeOf(0, m_count[1]) + 1, 0);
        for (Local const& p : starts)
            ++m_begins[placeOf(p) + 1];
        std::partial_sum(m_begins.begin(), m_begins.end(), m_begins.begin());
        std::vector<std::uint32_t> next(m_begins.begin(), m_begins.end() - 1);
        m_sorted.resize(starts.size());
        for (std::uint32_t i = 0; i < starts.size(); ++i)
            m_sorted[next[placeOf(starts[i])]++] = {i, starts[i]};
    }

    struct Ray
    {
        std::uint32_t ray;
        Local start;
    };

    static constexpr float limit = std::numeric_limits<float>::max();
    float m_low[2] = {limit, limit};
    float m_high[2] = {-limit, -limit};
    float m_cell = 1;
    int m_count[2] = {1, 1};
    std::vector<std::uint32_t> m_begins;
    std::vector<Ray> m_sorted;
};

/// Whether a line along the first axis from the point crosses the edge. Both triangles at an edge
/// get the same answer, so a ray through it meets exactly one of them.
bool crosses(Local const& p, Local const& a, Local const& b)
{
    if ((a.Y() <= p.Y()) == (b.Y() <= p.Y()))
        return false;
    Local const& low = a.Y() < b.Y() ? a : b;
    Local const& high = a.Y() < b.Y() ? b : a;
    double const share = (double(p.Y()) - low.Y()) / (double(high.Y()) - low.Y());
    return p.X() < low.X() + share * (double(high.X()) - low.X());
}

bool isOver(Local const& p, Corners const& t)
{
    return crosses(p, t[0], t[1]) ^ crosses(p, t[1], t[2]) ^ crosses(p, t[2], t[0]);
}

/// Twice the area of the corners seen from the tip of N.
double areaOf(Local const& a, Local const& b, Local const& c)
{
    return (double(b.X()) - a.X()) * (double(c.Y()) - a.Y()) -
           (double(b.Y()) - a.Y()) * (double(c.X()) - a.X());
}

double heightAt(Local const& p, Corners const& t, double area)
{
    double const b = areaOf(t[0], p, t[2]) / area;
    double const c = areaOf(t[0], t[1], p) / area;
    return t[0].Z() + b * (double(t[1].Z()) - t[0].Z()) + c * (double(t[2].Z()) - t[0].Z());
}

}  // namespace

AxisRays::AxisRays(PlaneFrame const& frame, std::span<UPoint3<float> const> starts,
                   PlacedMesh const& part, ConnectorProgress::Poll const& poll)
{
    std::vector<Local> local;
    for (UPoint3<float> const& start : starts)
        local.push_back(frame.toPlaneLocal(start));
    RayGrid const grid(local);
    PollingSteps polling(poll);
    for (UTriangle<float> const* const triangle : part.mesh->triangles) {
        polling.step();
        Corners corners;
        for (int i = 0; i < 3; ++i)
            corners[std::size_t(i)] = frame.toPlaneLocal(part.placed(triangle->cP(i)));
        grid.visitNear(corners, [&](std::uint32_t ray, Local const& start) {
            double const area = areaOf(corners[0], corners[1], corners[2]);
            if (area != 0 && isOver(start, corners))
                m_hits.push_back({ray, heightAt(start, corners, area), area > 0 ? 1 : -1});
        });
    }
    std::sort(m_hits.begin(), m_hits.end());
}

std::span<AxisRays::Hit const> AxisRays::hitsOf(std::size_t ray) const
{
    auto const isBefore = [](Hit const& hit, std::size_t r) { return hit.ray < r; };
    auto const begin = std::lower_bound(m_hits.begin(), m_hits.end(), ray, isBefore);
    auto const end = std::lower_bound(begin, m_hits.end(), ray + 1, isBefore);
    return {begin, end};
}

double AxisRays::reach(std::size_t ray, int direction) const
{
    // Each surface that faces along the way ends a layer of material.
    std::span<Hit const> const hits = hitsOf(ray);
    int layers = 0;
    for (Hit const& hit : hits)
        if (hit.height * direction > planeThickness)
            layers += hit.facing * direction;
    if (layers <= 0)
        return 0;
    auto const leavesAt = [&](Hit const& hit) {
        if (hit.height * direction > planeThickness)
            layers -= hit.facing * direction;
        return layers <= 0;
    };
    if (direction > 0)
        return std::find_if(hits.begin(), hits.end(), leavesAt)->height;
    return -std::find_if(hits.rbegin(), hits.rend(), leavesAt)->height;
}
