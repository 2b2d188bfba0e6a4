// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/boolean/FoldContacts.h"

#include "host/mesh/ExactSigns.h"
#include "host/services/Polling.h"
#include "host/services/boolean/CornerOrder.h"

#include <algorithm>
#include <functional>
#include <span>

namespace {

using Corners = MeshArrays::Corners;
/// A triangle, and another that lies in its plane and may overlap it.
using FacePair = CurveNetwork::FacePair;

/// An edge of a triangle.
struct EdgeUse
{
    std::uint32_t low, high, triangle;
    int place;
    bool isSameEdge(EdgeUse const& o) const { return low == o.low && high == o.high; }
    auto operator<=>(EdgeUse const&) const = default;
};

/// A fold's edge with a triangle of its plane that is not at it.
struct EdgeOnFace
{
    std::uint32_t low, high, face;
    EdgeUse edge;
    bool isSamePlace(EdgeOnFace const& o) const
    {
        return low == o.low && high == o.high && face == o.face;
    }
    auto operator<=>(EdgeOnFace const&) const = default;
};

class FoldContacts
{
public:
    FoldContacts(OperandSoup const& soup, std::vector<TrianglePair>& contacts,
                 StageProgress& progress)
        : m_soup(soup), m_contacts(contacts), m_progress(progress)
    {}

    void run()
    {
        collectInPlane();
        if (m_inPlane.empty())
            return;
        addFoldsOfSecond();
        addFoldsOfFirst();
        sortPolled(m_found, m_progress, std::less<>());
        auto const end =
            std::unique(m_found.begin(), m_found.end(),
                        [](EdgeOnFace const& a, EdgeOnFace const& b) { return a.isSamePlace(b); });
        Polling polling(m_progress);
        std::for_each(m_found.begin(), end, [&](EdgeOnFace const& found) {
            polling.step();
            addContact(found);
        });
    }

private:
    static bool isFold(TrianglePair const& pair)
    {
        return pair.contact.isCoplanar && pair.contact.count == 2;
    }

    void collectInPlane()
    {
        Polling polling(m_progress);
        for (TrianglePair const& pair : m_contacts) {
            polling.step();
            if (!pair.contact.isCoplanar)
                continue;
            m_inPlane.emplace_back(pair.first, pair.second);
            m_inPlane.emplace_back(pair.second, pair.first);
        }
        sortPolled(m_inPlane, m_progress, std::less<>());
        m_inPlane.erase(std::unique(m_inPlane.begin(), m_inPlane.end()), m_inPlane.end());
    }

    std::span<FacePair const> inPlaneOf(std::uint32_t triangle) const
    {
        auto const [begin, end] =
            std::equal_range(m_inPlane.begin(), m_inPlane.end(), FacePair(triangle, 0),
                             [](auto const& a, auto const& b) { return a.first < b.first; });
        return {begin, end};
    }

    void addFoldsOfSecond()
    {
        Polling polling(m_progress);
        for (TrianglePair const& pair : m_contacts) {
            polling.step();
            if (!isFold(pair))
                continue;
            EdgeUse const edge = edgeOf(pair);
            for (std::uint32_t const neighbour : {pair.first, pair.second})
                for (auto const& [triangle, face] : inPlaneOf(neighbour))
                    add(edge, face);
        }
    }

    EdgeUse edgeOf(TrianglePair const& fold) const
    {
        auto const& [start, end] = fold.contact.points;
        int k = 0;
        while (!start.inFirst.isOnEdge(k) || !end.inFirst.isOnEdge(k))
            ++k;
        return useOf(fold.first, k);
    }

    EdgeUse useOf(std::uint32_t triangle, int place) const
    {
        Corners const& c = m_soup.corners(triangle);
        auto const [low, high] = std::minmax(c[std::size_t(place)], c[std::size_t(next(place))]);
        return {low, high, triangle, place};
    }

    /// The first operand is searched for folds only where it lies on the second.
    void addFoldsOfFirst()
    {
        Polling polling(m_progress);
        std::vector<EdgeUse> uses;
        auto begin = std::lower_bound(m_inPlane.begin(), m_inPlane.end(),
                                      FacePair(m_soup.firstTriangleOfSecond, 0));
        while (begin != m_inPlane.end()) {
            std::uint32_t const face = begin->first;
            uses.clear();
            for (; begin != m_inPlane.end() && begin->first == face; ++begin) {
                polling.step();
                for (int k = 0; begin->second < m_soup.firstTriangleOfSecond && k < 3; ++k)
                    uses.push_back(useOf(begin->second, k));
            }
            if (uses.size() <= 3)
                continue;
            std::sort(uses.begin(), uses.end());
            for (std::size_t i = 1; i < uses.size(); ++i)
                if (uses[i].isSameEdge(uses[i - 1]) && areFolded(uses[i - 1], uses[i]))
                    add(uses[i], face);
        }
    }

    /// Whether triangles of one plane lie on the same side of their common edge.
    bool areFolded(EdgeUse const& a, EdgeUse const& b) const
    {
        auto const apexOf = [&](EdgeUse const& use) -> UPoint3<float> const& {
            return m_soup.mesh.point(use.triangle, previous(use.place));
        };
        UPoint3<float> const &low = m_soup.mesh.points[a.low], &high = m_soup.mesh.points[a.high];
        for (int axis = 0; axis < 3; ++axis)
            if (int const side = ExactSigns::orient2d(low, high, apexOf(a), axis); side != 0)
                return side == ExactSigns::orient2d(low, high, apexOf(b), axis);
        return false;
    }

    void add(EdgeUse const& edge, std::uint32_t face)
    {
        Corners const& c = m_soup.corners(face);
        bool const isAtEdge = std::find(c.begin(), c.end(), edge.low) != c.end() &&
                              std::find(c.begin(), c.end(), edge.high) != c.end();
        if (!isAtEdge)
            m_found.push_back({edge.low, edge.high, face, edge});
    }

    TriangleCorners cornersOf(std::uint32_t triangle) const
    {
        return {m_soup.mesh.point(triangle, 0), m_soup.mesh.point(triangle, 1),
                m_soup.mesh.point(triangle, 2)};
    }

    void addContact(EdgeOnFace const& found)
    {
        EdgeUse const& edge = found.edge;
        TriangleContact contact =
            contactOfEdge(cornersOf(edge.triangle), edge.place, cornersOf(found.face));
        if (contact.count < 2)
            return;
        if (edge.triangle > found.face)
            for (TriangleContact::Point& point : contact.points)
                std::swap(point.inFirst, point.inSecond);
        m_contacts.push_back(
            {std::min(edge.triangle, found.face), std::max(edge.triangle, found.face), contact});
    }

    OperandSoup const& m_soup;
    std::vector<TrianglePair>& m_contacts;
    StageProgress& m_progress;
    std::vector<FacePair> m_inPlane;
    std::vector<EdgeOnFace> m_found;
};

}  // namespace

void addFoldContacts(OperandSoup const& soup, std::vector<TrianglePair>& contacts,
                     StageProgress& progress)
{
    FoldContacts(soup, contacts, progress).run();
}
