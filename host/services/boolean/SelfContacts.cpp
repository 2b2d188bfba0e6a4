// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/boolean/SelfContacts.h"

#include "host/services/Polling.h"
#include "host/services/TrianglePair.h"

#include <algorithm>
#include <functional>

namespace {

using Box = TriangleTree::Box;
using Corners = MeshArrays::Corners;

/// A triangle's edge, with how often it is run along either way.
struct EdgeUse
{
    std::uint32_t low, high, triangle;
    std::int8_t place;
    std::int8_t way;
    bool isSameEdge(EdgeUse const& o) const { return low == o.low && high == o.high; }
    auto operator<=>(EdgeUse const&) const = default;
};

class SelfContacts
{
public:
    SelfContacts(ToolTree const& tree, std::vector<std::uint32_t> const& suspects, bool folds)
        : m_tree(tree), m_mesh(tree.mesh()), m_suspects(suspects), m_folds(folds)
    {}

    std::vector<TrianglePair> run(StageProgress& progress)
    {
        std::vector<bool> isSuspect(m_mesh.triangles.size(), false);
        for (std::uint32_t const t : m_suspects)
            isSuspect[t] = true;
        progress.setAmount(m_suspects.size());
        for (std::uint32_t const t : m_suspects) {
            progress.add(1);
            m_tree.forOverlapping(boxOf(t), [&](std::uint32_t u) {
                if (u != t && (u > t || !isSuspect[u]))
                    meet(std::min(t, u), std::max(t, u));
            });
        }
        addOddEdges(progress);
        sortPolled<true>(m_pairs, progress, [](TrianglePair const& a, TrianglePair const& b) {
            return a.first != b.first ? a.first < b.first : a.second < b.second;
        });
        return std::move(m_pairs);
    }

private:
    Box boxOf(std::uint32_t triangle) const
    {
        Box box;
        for (int k = 0; k < 3; ++k) {
            UPoint3<float> const& p = m_mesh.point(triangle, k);
            box.add({{p[0], p[1], p[2], 0}, {p[0], p[1], p[2], 0}});
        }
        return box;
    }

    void meet(std::uint32_t t, std::uint32_t u)
    {
        Corners const& a = m_mesh.triangles[t];
        Corners const& b = m_mesh.triangles[u];
        int shared = 0;
        for (std::uint32_t const corner : a)
            shared += std::find(b.begin(), b.end(), corner) != b.end();
        if (shared > 1) {
            if (m_folds && (shared == 3 || doTrianglesMeet(m_mesh, t, u)))
                joinAtFolds(t, u);
            return;
        }
        TriangleContact const contact =
            contactOf({m_mesh.point(t, 0), m_mesh.point(t, 1), m_mesh.point(t, 2)},
                      {m_mesh.point(u, 0), m_mesh.point(u, 1), m_mesh.point(u, 2)});
        // Neighbours at a vertex mostly lie beside each other in their plane.
        bool const liesOn =
            contact.isCoplanar && (shared == 0 || (m_folds && doTrianglesMeet(m_mesh, t, u)));
        if (contact.count > (shared == 1 ? 1 : 0) || liesOn)
            m_pairs.push_back({t, u, contact});
    }

    /// Neighbours in one plane that lie on each other: what lies on one of them ends at the edge that
    /// they have in common, or at all three.
    void joinAtFolds(std::uint32_t t, std::uint32_t u)
    {
        for (std::size_t k = 0; k < 3; ++k)
            for (std::size_t l = 0; l < 3; ++l) {
                EdgeUse const a = useOf(t, k), b = useOf(u, l);
                if (!a.isSameEdge(b))
                    continue;
                joinAtEdge(a, b);
                m_pairs.back().contact.isCoplanar = true;
            }
    }

    EdgeUse useOf(std::uint32_t triangle, std::size_t k) const
    {
        Corners const& c = m_mesh.triangles[triangle];
        auto const [low, high] = std::minmax(c[k], c[(k + 1) % 3]);
        return {low, high, triangle, std::int8_t(k), std::int8_t(c[k] == low ? 1 : -1)};
    }

    /// Edges of suspects that do not join two triangles that agree.
    void addOddEdges(StageProgress& progress)
    {
        Polling polling(progress);
        std::vector<EdgeUse> uses;
        for (std::uint32_t const t : m_suspects)
            for (std::size_t k = 0; k < 3; ++k) {
                polling.step();
                uses.push_back(useOf(t, k));
            }
        sortPolled(uses, progress, std::less<>());
        for (std::size_t begin = 0, end = 0; begin < uses.size(); begin = end) {
            polling.step();
            while (end < uses.size() && uses[end].isSameEdge(uses[begin]))
                ++end;
            // An edge with one use is at the border of the suspects.
            if (end - begin > 2 || (end - begin == 2 && uses[begin].way == uses[begin + 1].way))
                for (std::size_t i = begin + 1; i < end; ++i)
                    joinAtEdge(uses[begin], uses[i]);
        }
    }

    void joinAtEdge(EdgeUse const& a, EdgeUse const& b)
    {
        auto const cornerOf = [&](EdgeUse const& use, bool isLow) {
            return TrianglePlace::corner(isLow == (use.way > 0) ? use.place : (use.place + 1) % 3);
        };
        TriangleContact contact;
        contact.count = 2;
        contact.points = {TriangleContact::Point{cornerOf(a, true), cornerOf(b, true), true},
                          TriangleContact::Point{cornerOf(a, false), cornerOf(b, false), true}};
        m_pairs.push_back({a.triangle, b.triangle, contact});
    }

    ToolTree const& m_tree;
    MeshArrays const& m_mesh;
    std::vector<std::uint32_t> const& m_suspects;
    bool m_folds;
    std::vector<TrianglePair> m_pairs;
};

}  // namespace

std::vector<TrianglePair> findSelfContacts(ToolTree const& tree,
                                           std::vector<std::uint32_t> const& suspects,
                                           StageProgress& progress, bool folds)
{
    return SelfContacts(tree, suspects, folds).run(progress);
}
