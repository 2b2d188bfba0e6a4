// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/PrismMesh.h"

#include "platform/mesh/UMesh.h"
#include "tools/EarClipping.h"

#include <algorithm>
#include <future>
#include <numeric>
#include <tuple>

namespace Freecut {

namespace {

using Ears = std::vector<std::array<std::uint32_t, 3>>;

/// Loops of more points take longer than it does to start a thread.
constexpr std::size_t manyPoints = 500;

/// For each point the last one of equal position.
std::vector<std::uint32_t> lastEqualPoints(Ring const& points)
{
    std::vector<std::uint32_t> order(points.size());
    std::iota(order.begin(), order.end(), 0u);
    auto const isBefore = [&](std::uint32_t a, std::uint32_t b) {
        UPoint3<float> const& p = points[a];
        UPoint3<float> const& q = points[b];
        return std::tuple(p.X(), p.Y(), p.Z()) < std::tuple(q.X(), q.Y(), q.Z());
    };
    std::stable_sort(order.begin(), order.end(), isBefore);
    std::vector<std::uint32_t> last(points.size());
    for (std::size_t k = order.size(); k-- > 0;) {
        bool const isEqual = k + 1 < order.size() && points[order[k]] == points[order[k + 1]];
        last[order[k]] = isEqual ? last[order[k + 1]] : order[k];
    }
    return last;
}

class PrismWriter
{
public:
    PrismWriter(UMesh<float>& mesh, UVector3<float> const& direction)
        : m_mesh(mesh), m_direction(direction)
    {}

    /// The vertices of two loops and their caps.
    void addCaps(Ring const& top, Ring const& bottom)
    {
        // Long loops are cut into ears both at once.
        std::future<Ears> ears =
            std::async(bottom.size() > manyPoints ? std::launch::async | std::launch::deferred
                                                  : std::launch::deferred,
                       [&] { return earsOfLoop(bottom, m_direction); });
        addCap(top, earsOfLoop(top, m_direction), true);
        addCap(bottom, ears.get(), false);
    }

    /// The walls between a loop of n vertices from `base` on and the next n vertices.
    void addWalls(std::size_t base, std::size_t n)
    {
        for (std::size_t i = 0; i < n; ++i) {
            std::size_t const next = i + 1 < n ? i + 1 : 0;
            addTriangle(base + i, base + n + i, base + next);
            addTriangle(base + n + i, base + n + next, base + next);
        }
    }

private:
    void addCap(Ring const& loop, Ears const& ears, bool isTop)
    {
        std::size_t const base = m_mesh.vertices.size();
        for (UPoint3<float> const& point : loop)
            m_mesh.AddVertex(new UVertex<float>(point));
        std::vector<std::uint32_t> const vertices = lastEqualPoints(loop);
        for (auto const& [a, b, c] : ears) {
            if (isTop)
                addTriangle(base + vertices[a], base + vertices[b], base + vertices[c]);
            else
                addTriangle(base + vertices[c], base + vertices[b], base + vertices[a]);
        }
    }

    void addTriangle(std::size_t a, std::size_t b, std::size_t c)
    {
        auto* const triangle = new UTriangle<float>;
        std::size_t const corners[] = {a, b, c};
        for (int k = 0; k < 3; ++k)
            triangle->V0(k) = m_mesh.vertices[corners[k]];
        triangle->N() = triangle->ComputeNormalizedNormal();
        m_mesh.AddTriangle(triangle);
    }

    UMesh<float>& m_mesh;
    UVector3<float> m_direction;
};

}  // namespace

void fillWithPrisms(UMesh<float>& mesh, Loops const& top, Loops const& bottom,
                    UVector3<float> const& direction)
{
    PrismWriter writer(mesh, direction);
    for (std::size_t i = 0; i < top.size(); ++i) {
        writer.addCaps(top[i], bottom[i]);
    }
    std::size_t base = 0;
    for (Ring const& loop : top) {
        writer.addWalls(base, loop.size());
        base += 2 * loop.size();
    }
}

}  // namespace Freecut
