// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/mesh/DegenerateTriangles.h"

#include "host/memory/RecordSlabs.h"
#include "host/mesh/DisjointSets.h"
#include "host/mesh/ExactSigns.h"

#include <cmath>
#include <unordered_map>
#include <vector>

namespace {

using Vertex = UVertex<float>;
using Triangle = UTriangle<float>;

bool isFinite(UPoint3<float> const& p)
{
    // A sum of three floats does not leave the range of double.
    return std::isfinite(double(p.X()) + p.Y() + p.Z());
}

bool isDegenerate(Triangle const& triangle)
{
    return ::isDegenerate(triangle.cP(0), triangle.cP(1), triangle.cP(2));
}

std::vector<Triangle*> findDegenerate(UMesh<float> const& mesh)
{
    std::vector<Triangle*> found;
    for (Triangle* const triangle : mesh.triangles)
        if (isDegenerate(*triangle))
            found.push_back(triangle);
    return found;
}

/// Makes the ends of every edge of no length one vertex. Returns whether there was any.
bool uniteCoincidentCorners(UMesh<float>& mesh, std::vector<Triangle*> const& degenerate)
{
    mesh.UpdateVertsID();
    DisjointSets groups(mesh.vertices.size());
    bool isAny = false;
    for (Triangle const* const triangle : degenerate)
        for (int i = 0; i < 3; ++i) {
            int const k = Triangle::Next(i);
            if (triangle->cV(i) != triangle->cV(k) && triangle->cP(i) == triangle->cP(k)) {
                groups.unite(std::uint32_t(triangle->cV(i)->cID()),
                             std::uint32_t(triangle->cV(k)->cID()));
                isAny = true;
            }
        }
    if (!isAny)
        return false;
    for (Triangle* const triangle : mesh.triangles)
        for (int i = 0; i < 3; ++i)
            triangle->V0(i) = mesh.vertices[groups.root(std::uint32_t(triangle->cV(i)->cID()))];
    return true;
}

bool hasEqualCorners(Triangle const& t)
{
    return t.cV(0) == t.cV(1) || t.cV(1) == t.cV(2) || t.cV(2) == t.cV(0);
}

/// Takes triangles out of the list and frees them. Returns how many.
template <typename Condition>
std::size_t dropTriangles(UMesh<float>& mesh, Condition const& isUnwanted)
{
    std::vector<Triangle*> dropped;
    std::erase_if(mesh.triangles, [&](Triangle* triangle) {
        if (!isUnwanted(*triangle))
            return false;
        dropped.push_back(triangle);
        return true;
    });
    RecordSlabs::releaseAll<Triangle>(dropped);
    mesh.triangleCount = std::uint32_t(mesh.triangles.size());
    return dropped.size();
}

/// The edge of a triangle with its corners in a line on which the third corner lies.
int longestEdge(Triangle const& triangle)
{
    int longest = 0;
    double best = -1;
    for (int i = 0; i < 3; ++i) {
        UPoint3<float> const a = triangle.cP(i);
        UPoint3<float> const b = triangle.cP(Triangle::Next(i));
        double const x = double(b.X()) - a.X(), y = double(b.Y()) - a.Y(),
                     z = double(b.Z()) - a.Z();
        double const squared = x * x + y * y + z * z;
        if (squared > best) {
            best = squared;
            longest = i;
        }
    }
    return longest;
}

using EdgeKey = std::uint64_t;

EdgeKey keyOf(Vertex const* from, Vertex const* to)
{
    return (EdgeKey(from->cID()) << 32) | EdgeKey(to->cID());
}

/// For each wanted directed edge the triangle that runs along it.
std::unordered_map<EdgeKey, Triangle*> findPartners(UMesh<float> const& mesh,
                                                    std::vector<Triangle*> const& degenerate)
{
    std::unordered_map<EdgeKey, Triangle*> partners;
    std::vector<bool> isWantedFrom(mesh.vertices.size(), false);
    for (Triangle const* const triangle : degenerate) {
        int const i = longestEdge(*triangle);
        partners[keyOf(triangle->cV(Triangle::Next(i)), triangle->cV(i))] = nullptr;
        isWantedFrom[triangle->cV(Triangle::Next(i))->cID()] = true;
    }
    for (Triangle* const triangle : mesh.triangles)
        for (int i = 0; i < 3; ++i) {
            if (!isWantedFrom[triangle->cV(i)->cID()])
                continue;
            auto const wanted =
                partners.find(keyOf(triangle->cV(i), triangle->cV(Triangle::Next(i))));
            if (wanted != partners.end() && !wanted->second)
                wanted->second = triangle;
        }
    return partners;
}

void setCorners(Triangle& triangle, Vertex* a, Vertex* b, Vertex* c)
{
    triangle.V0(0) = a;
    triangle.V0(1) = b;
    triangle.V0(2) = c;
    triangle.N() = triangle.ComputeNormalizedNormal();
}

void markForRemoval(Triangle& triangle)
{
    triangle.V0(1) = triangle.V0(0);
}

/// Swaps the shared edge of a degenerate triangle u-w-m and its partner w-u-x for the edge m-x.
/// Where the two are the same triangle facing both ways, both go.
void swapWithPartner(Triangle& flat, int edge, Triangle* partner)
{
    if (!partner) {
        markForRemoval(flat);
        return;
    }
    Vertex* const u = flat.cV(edge);
    Vertex* const w = flat.cV(Triangle::Next(edge));
    Vertex* const m = flat.cV(Triangle::Prev(edge));
    int k = 0;
    while (partner->cV(k) == u || partner->cV(k) == w)
        ++k;
    Vertex* const x = partner->cV(k);
    if (x == m) {
        markForRemoval(flat);
        markForRemoval(*partner);
        return;
    }
    setCorners(flat, w, m, x);
    setCorners(*partner, m, u, x);
}

/// Swaps the edges of degenerate triangles.
class EdgeSwaps
{
public:
    EdgeSwaps(UMesh<float>& mesh, std::vector<Triangle*> const& degenerate)
        : m_degenerate(degenerate)
    {
        mesh.UpdateTrisID();
        m_partners = findPartners(mesh, degenerate);
        m_state.assign(mesh.triangles.size(), State::proper);
        for (Triangle const* const flat : degenerate)
            m_state[flat->cID()] = State::flat;
    }

    /// Ends every flat triangle that lies, perhaps behind others in the same line, on one that is
    /// not. Where there is none, flat ones are exchanged. Returns whether anything changed.
    bool run()
    {
        // A fan of points in a line comes apart from its end, which may be the list's.
        bool isAny = false, isForward = true;
        while (isForward ? pass(m_degenerate.begin(), m_degenerate.end())
                         : pass(m_degenerate.rbegin(), m_degenerate.rend())) {
            isAny = true;
            isForward = !isForward;
        }
        return isAny || exchange();
    }

private:
    /// Taken triangles wait for the next round, whose partners are found anew.
    enum class State : std::uint8_t
    {
        proper,
        flat,
        taken
    };

    template <typename Iterator>
    bool pass(Iterator begin, Iterator end)
    {
        bool isAny = false;
        for (; begin != end; ++begin) {
            Triangle& flat = **begin;
            if (m_state[flat.cID()] != State::flat)
                continue;
            Triangle* const partner = m_partners.at(wantedBy(flat));
            if (partner && m_state[partner->cID()] != State::proper)
                continue;
            swap(flat, partner);
            isAny = true;
        }
        return isAny;
    }

    /// Swaps with flat partners; a triangle takes part in one swap only.
    bool exchange()
    {
        bool isAny = false;
        for (Triangle* const flat : m_degenerate) {
            if (m_state[flat->cID()] == State::taken)
                continue;
            Triangle* const partner = m_partners.at(wantedBy(*flat));
            if (partner == flat || m_state[partner->cID()] == State::taken)
                continue;
            m_state[flat->cID()] = m_state[partner->cID()] = State::taken;
            swapWithPartner(*flat, longestEdge(*flat), partner);
            isAny = true;
        }
        return isAny;
    }

    /// Neither of both is flat afterwards.
    void swap(Triangle& flat, Triangle* partner)
    {
        int const edge = longestEdge(flat);
        EdgeKey const inner = keyOf(flat.cV(Triangle::Prev(edge)), flat.cV(edge));
        swapWithPartner(flat, edge, partner);
        bool const isGone = hasEqualCorners(flat);
        m_state[flat.cID()] = isGone ? State::taken : State::proper;
        if (!partner)
            return;
        if (isGone) {
            m_state[partner->cID()] = State::taken;
            return;
        }
        // Where both were, the edges from the apex and to the start have changed hands.
        replace(inner, &flat, partner);
        replace(keyOf(flat.cV(2), flat.cV(0)), partner, &flat);
    }

    void replace(EdgeKey key, Triangle const* before, Triangle* after)
    {
        auto const wanted = m_partners.find(key);
        if (wanted != m_partners.end() && wanted->second == before)
            wanted->second = after;
    }

    static EdgeKey wantedBy(Triangle const& flat)
    {
        int const i = longestEdge(flat);
        return keyOf(flat.cV(Triangle::Next(i)), flat.cV(i));
    }

    std::vector<Triangle*> const& m_degenerate;
    std::unordered_map<EdgeKey, Triangle*> m_partners;
    std::vector<State> m_state;
};

void dropLinks(UMesh<float>& mesh)
{
    for (Vertex* const vertex : mesh.vertices)
        vertex->VFp() = nullptr;
    for (Triangle* const triangle : mesh.triangles)
        for (int i = 0; i < 3; ++i)
            triangle->FFp(i) = nullptr;
}

}  // namespace

bool isDegenerate(UPoint3<float> const& a, UPoint3<float> const& b, UPoint3<float> const& c)
{
    return isFinite(a) && isFinite(b) && isFinite(c) && ExactSigns::areCollinear(a, b, c);
}

std::size_t removeDegenerateTriangles(UMesh<float>& mesh)
{
    // Every round ends at least one flat triangle or passes it on to a neighbour; the bound only
    // guards against an endless exchange between flat triangles.
    constexpr int maximumRounds = 64;
    std::vector<Triangle*> degenerate = findDegenerate(mesh);
    std::size_t const before = degenerate.size();
    if (before == 0)
        return 0;
    for (int round = 0; round < maximumRounds && !degenerate.empty(); ++round) {
        uniteCoincidentCorners(mesh, degenerate);
        dropTriangles(mesh, hasEqualCorners);
        degenerate = findDegenerate(mesh);
        if (degenerate.empty() || !EdgeSwaps(mesh, degenerate).run())
            break;
        dropTriangles(mesh, hasEqualCorners);
        degenerate = findDegenerate(mesh);
    }
    dropLinks(mesh);
    return before - degenerate.size();
}
