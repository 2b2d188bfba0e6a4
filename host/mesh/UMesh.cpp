// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/mesh/UMesh.h"

#include "host/memory/RecordSlabs.h"
#include "host/mesh/DegenerateTriangles.h"
#include "host/mesh/Topology.h"

template <typename T>
UMesh<T>::~UMesh()
{
    RecordSlabs::releaseAll<UTriangle<T>>(triangles);
    RecordSlabs::releaseAll<UVertex<T>>(vertices);
}

template <typename T>
void UMesh<T>::BuildTopo(std::function<void(int)> progress, bool keepLinks)
{
    if (!keepLinks || !isFullyLinked(*this))
        linkNeighbours(*this, progress);
}

template <typename T>
std::size_t UMesh<T>::DeleteDegenerateTris()
{
    return removeDegenerateTriangles(*this);
}

template <typename T>
std::size_t UMesh<T>::DeleteUnreferenceVerts()
{
    UpdateVertsID();
    std::vector<bool> isUsed(vertices.size(), false);
    for (UTriangle<T> const* const triangle : triangles)
        for (int i = 0; i < 3; ++i)
            isUsed[triangle->cV(i)->cID()] = true;
    std::vector<UVertex<T>*> unused;
    std::erase_if(vertices, [&](UVertex<T>* vertex) {
        if (isUsed[vertex->cID()])
            return false;
        unused.push_back(vertex);
        return true;
    });
    RecordSlabs::releaseAll<UVertex<T>>(unused);
    vertexCount = std::uint32_t(vertices.size());
    return unused.size();
}

template <typename T>
void UMesh<T>::UpdateTrisID()
{
    for (std::size_t i = 0; i < triangles.size(); ++i)
        triangles[i]->ID() = std::uint32_t(i);
}

template <typename T>
void UMesh<T>::UpdateVertsID()
{
    for (std::size_t i = 0; i < vertices.size(); ++i)
        vertices[i]->ID() = i;
}

template class UMesh<float>;
