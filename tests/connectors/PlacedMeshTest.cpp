// SPDX-License-Identifier: GPL-3.0-or-later
#include "connectors/PlacedMesh.h"
#include "tests/support/MeshBuilders.h"

#include <gtest/gtest.h>

#include <span>

// Identifiers of vertices are places in their list only where somebody has numbered them last.
TEST(PlacedMesh, CopiesTheSameTrianglesWhateverTheIdentifiersOfTheVertices)
{
    auto const kernel = kernelOf(box(2, 3, 4));
    auto const mesh = kernel->getMesh();
    std::span const all(mesh->triangles);
    for (bool const isPastTheEnd : {false, true}) {
        SCOPED_TRACE(isPastTheEnd);
        int id = isPastTheEnd ? 100 : 0;
        for (auto vertex = mesh->vertices.rbegin(); vertex != mesh->vertices.rend(); ++vertex)
            (*vertex)->ID() = id++;
        auto const copy = PlacedMesh(*kernel).copyOf(all.first(2));
        auto const read = copy->readMesh();
        ASSERT_EQ(read->triangles.size(), 2u);
        for (std::size_t t = 0; t < 2; ++t)
            for (int k = 0; k < 3; ++k)
                EXPECT_EQ(read->triangles[t]->cP(k), all[t]->cP(k)) << t;
    }
}
