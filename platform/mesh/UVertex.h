// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UPoint3.h"

#include <cstddef>

template <typename T>
class UTriangle;

/// A vertex of a mesh: a heap record, made with new by anybody and owned by the mesh it is added
/// to. Records come from a slab allocator, so making and freeing millions is cheap; the allocator
/// is thread-safe and belongs to no mesh.
template <typename T>
class UVertex
{
public:
    UVertex() = default;
    explicit UVertex(UPoint3<T> const& point) : m_point(point) {}

    UPoint3<T>& P() { return m_point; }
    UPoint3<T> cP() const { return m_point; }

    /// The vertex's place in its mesh's vertex list, valid after UpdateVertsID.
    unsigned long& ID() { return m_id; }
    unsigned long cID() const { return m_id; }

    /// One triangle at this vertex, valid after BuildTopo; null before, or if there is none.
    UTriangle<T>*& VFp() { return m_triangle; }
    UTriangle<T>* cVFp() const { return m_triangle; }

    static void* operator new(std::size_t size);
    static void* operator new(std::size_t, void* place) noexcept { return place; }
    static void operator delete(void* record) noexcept;

private:
    UPoint3<T> m_point;
    unsigned long m_id = 0;
    UTriangle<T>* m_triangle = nullptr;
};

static_assert(sizeof(UVertex<float>) == 32);
extern template class UVertex<float>;
