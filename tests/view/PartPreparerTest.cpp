// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/view/PartPreparer.h"
#include "tests/support/MeshBuilders.h"

#include <gtest/gtest.h>

#include <atomic>
#include <new>

namespace {

/// Prepares meshes, but for as long as there is too little memory.
class PreparedWithoutMemory : public testing::Test
{
protected:
    PreparedWithoutMemory()
    {
        QObject::connect(&preparer, &PartPreparer::failed, [this] { ++told; });
        QObject::connect(&preparer, &PartPreparer::prepared, [this] { ++pictures; });
    }

    /// A picture that has the mesh in it, and what the thread makes of it.
    std::shared_ptr<PreparedPart> picture()
    {
        preparer.beginPicture();
        auto prepared = preparer.take(mesh);
        preparer.finish();
        return prepared;
    }

    std::shared_ptr<MeshKernel> const part = kernelOf(box(1, 2, 3));
    PartPreparer::Mesh const mesh = part->readMesh();
    std::atomic<bool> hasMemory = false;
    std::atomic<int> tried = 0;
    int told = 0;
    int pictures = 0;
    PartPreparer preparer{[this](PartPreparer::Mesh const& asked) {
        ++tried;
        if (!hasMemory)
            throw std::bad_alloc();
        return std::make_shared<PreparedPart>(asked);
    }};
};

}  // namespace

TEST_F(PreparedWithoutMemory, ComesToNothingAndIsToldOnce)
{
    for (int i = 0; i < 5; ++i)
        EXPECT_FALSE(picture());
    EXPECT_EQ(tried, 1);
    EXPECT_EQ(told, 1);
    EXPECT_EQ(pictures, 1);
    EXPECT_FALSE(preparer.isWorking());
}

TEST_F(PreparedWithoutMemory, IsTriedAgainWhenItHasBeenLeftOut)
{
    picture();
    picture();
    hasMemory = true;
    preparer.beginPicture();
    EXPECT_FALSE(picture());
    EXPECT_EQ(tried, 2);
    EXPECT_TRUE(picture());
    EXPECT_EQ(told, 1);
}

TEST_F(PreparedWithoutMemory, IsTriedAgainWhenItsRecordsHaveChanged)
{
    picture();
    hasMemory = true;
    preparer.forget(mesh.get());
    picture();
    EXPECT_TRUE(picture());
    EXPECT_EQ(tried, 2);
}
