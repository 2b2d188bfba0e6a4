// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/mesh/UVertex.h"

#include <cstdint>

/// A triangle of a mesh: a heap record, made with new by anybody and owned by the mesh it is added
/// to. Edge i joins vertex i and vertex Next(i); seen from outside the solid the vertices run
/// anticlockwise. Neighbours are valid after BuildTopo; a border edge has none.
template <typename T>
class UTriangle
{
public:
    UTriangle() = default;
    /// A triangle with its corners and its stored normal, without neighbours.
    UTriangle(UVertex<T>* a, UVertex<T>* b, UVertex<T>* c, UVector3<T> const& normal)
        : m_vertices{a, b, c}, m_normal(normal)
    {}

    /// The writing accessor, used while a triangle is built.
    UVertex<T>*& V0(int i) { return m_vertices[i]; }
    /// The reading accessor, used on finished meshes.
    UVertex<T>*& V(int i) { return m_vertices[i]; }
    UVertex<T>* cV(int i) const { return m_vertices[i]; }

    UPoint3<T>& P(int i) { return m_vertices[i]->P(); }
    UPoint3<T> cP(int i) const { return m_vertices[i]->cP(); }

    /// The stored normal, of unit length.
    UVector3<T>& N() { return m_normal; }
    UVector3<T> const& cN() const { return m_normal; }

    /// The unit normal by the right-hand rule over V(0), V(1), V(2), zero for a triangle of no
    /// area. It is returned, not stored.
    UVector3<T> ComputeNormalizedNormal() const
    {
        // In double: the edges of a small triangle far from the origin cancel badly in float.
        UVector3<double> const a = edgeFromFirst(1);
        UVector3<double> normal = a * edgeFromFirst(2);
        normal.Normalize();
        return {T(normal.X()), T(normal.Y()), T(normal.Z())};
    }

    /// The triangle across edge i, or null.
    UTriangle*& FFp(int i) { return m_neighbours[i]; }
    UTriangle* cFFp(int i) const { return m_neighbours[i]; }
    /// The index of the shared edge in that neighbour.
    char& FFi(int i) { return m_neighbourEdges[i]; }
    char cFFi(int i) const { return m_neighbourEdges[i]; }

    /// The triangle's place in its mesh's triangle list, valid after UpdateTrisID.
    std::uint32_t& ID() { return m_id; }
    std::uint32_t cID() const { return m_id; }

    static bool IsBorder(UTriangle const& t, int i) { return t.m_neighbours[i] == nullptr; }
    static bool IsBorder(UTriangle const* t, int i) { return IsBorder(*t, i); }

    static int Next(int const& i) { return (i + 1) % 3; }
    static int Prev(int const& i) { return (i + 2) % 3; }

    static void* operator new(std::size_t size);
    static void* operator new(std::size_t, void* place) noexcept { return place; }
    static void operator delete(void* record) noexcept;

private:
    UVector3<double> edgeFromFirst(int i) const
    {
        UPoint3<T> const p = cP(i);
        UPoint3<T> const q = cP(0);
        return {double(p.X()) - q.X(), double(p.Y()) - q.Y(), double(p.Z()) - q.Z()};
    }

    UVertex<T>* m_vertices[3] = {};
    UTriangle* m_neighbours[3] = {};
    UVector3<T> m_normal;
    std::uint32_t m_id = 0;
    char m_neighbourEdges[3] = {};
};

static_assert(sizeof(UTriangle<float>) == 72);
extern template class UTriangle<float>;
