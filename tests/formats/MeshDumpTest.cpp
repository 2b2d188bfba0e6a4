// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/formats/FileError.h"
#include "host/formats/MeshDump.h"
#include "tests/formats/ScratchFolder.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/Soup.h"

#include <gtest/gtest.h>

namespace {

std::shared_ptr<UMesh<float> const> meshOf(Soup const& soup)
{
    return kernelOf(soup)->readMesh();
}

void expectSame(UMesh<float> const& a, UMesh<float> const& b)
{
    ASSERT_EQ(a.vertices.size(), b.vertices.size());
    ASSERT_EQ(a.triangles.size(), b.triangles.size());
    for (std::size_t i = 0; i < a.vertices.size(); ++i) {
        EXPECT_EQ(a.vertices[i]->cP(), b.vertices[i]->cP());
        EXPECT_EQ(b.vertices[i]->cID(), i);
    }
    for (std::size_t i = 0; i < a.triangles.size(); ++i)
        for (int k = 0; k < 3; ++k)
            EXPECT_EQ(a.triangles[i]->cV(k)->cID(), b.triangles[i]->cV(k)->cID());
}

}  // namespace

TEST(MeshDump, ComesBackPointByPointAndCornerByCorner)
{
    ScratchFolder const folder;
    // More than a block, points that lie on each other, and a vertex that nothing uses.
    for (Soup soup : {sphere(10, 60, 90), box(1, 2, 3), Soup()}) {
        if (!soup.points.empty())
            soup.points.push_back(soup.points.front());
        auto const mesh = meshOf(soup);
        Formats::writeMeshDump(folder / "mesh", mesh);
        auto const back = Formats::readMeshDump(folder / "mesh");
        expectSame(*mesh, *back->readMesh());
        EXPECT_TRUE(back->getMatrix().isIdentity());
    }
}

TEST(MeshDump, IsRefusedWhereverAByteIsAnother)
{
    ScratchFolder const folder;
    Formats::writeMeshDump(folder / "mesh", meshOf(box(1, 2, 3)));
    std::string const whole = contentOf(folder / "mesh");
    for (std::size_t i = 0; i < whole.size(); ++i) {
        std::string damaged = whole;
        damaged[i] = char(damaged[i] ^ 0x10);
        auto const path = folder.file("damaged", damaged);
        EXPECT_THROW(Formats::readMeshDump(path), Formats::FileError) << "byte " << i;
    }
}

TEST(MeshDump, IsRefusedWhereverItEndsTooEarlyOrTooLate)
{
    ScratchFolder const folder;
    Formats::writeMeshDump(folder / "mesh", meshOf(box(1, 2, 3)));
    std::string const whole = contentOf(folder / "mesh");
    for (std::size_t size = 0; size < whole.size(); ++size) {
        auto const path = folder.file("short", whole.substr(0, size));
        EXPECT_THROW(Formats::readMeshDump(path), Formats::FileError) << size << " bytes";
    }
    EXPECT_THROW(Formats::readMeshDump(folder.file("long", whole + '\0')), Formats::FileError);
    EXPECT_THROW(Formats::readMeshDump(folder / "none"), Formats::FileError);
}
