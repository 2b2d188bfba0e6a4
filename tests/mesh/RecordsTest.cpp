// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/memory/RecordSlabs.h"
#include "platform/mesh/UMesh.h"

#include <gtest/gtest.h>

#include <set>
#include <thread>
#include <vector>

namespace {

using Vertex = UVertex<float>;
using Triangle = UTriangle<float>;

}  // namespace

TEST(Records, EveryEdgeOfALoneTriangleIsABorder)
{
    Vertex a, b, c;
    Triangle const triangle(&a, &b, &c, {});
    for (int i = 0; i < 3; ++i)
        EXPECT_TRUE(Triangle::IsBorder(triangle, i));
}

TEST(Records, NextAndPreviousEdgeGoRound)
{
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(Triangle::Next(i), (i + 1) % 3);
        EXPECT_EQ(Triangle::Prev(i), (i + 2) % 3);
    }
}

TEST(Records, ComputedNormalFollowsTheRightHandAndIsNotStored)
{
    Vertex a({0, 0, 0}), b({2, 0, 0}), c({0, 3, 0});
    Triangle const triangle(&a, &b, &c, {});
    EXPECT_EQ(triangle.ComputeNormalizedNormal(), UVector3<float>(0, 0, 1));
    EXPECT_EQ(triangle.cN(), UVector3<float>());
}

TEST(Records, LiveRecordsNeverShareMemory)
{
    std::vector<Triangle*> live;
    std::set<Triangle*> addresses;
    for (int round = 0; round < 3; ++round) {
        for (int i = 0; i < 5000; ++i)
            live.push_back(new Triangle);
        for (std::size_t i = 0; i < live.size(); i += 3)
            delete std::exchange(live[i], nullptr);
        std::erase(live, nullptr);
    }
    for (Triangle* const triangle : live)
        EXPECT_TRUE(addresses.insert(triangle).second);
    RecordSlabs::releaseAll<Triangle>(live);
}

TEST(Records, RunsAndSingleRecordsMixFreely)
{
    std::vector<Vertex*> records;
    for (auto const& run : RecordSlabs::allocateRuns<Vertex>(100000))
        for (Vertex& place : run)
            records.push_back(new (&place) Vertex({1, 2, 3}));
    ASSERT_EQ(records.size(), 100000u);
    for (std::size_t i = 0; i < records.size(); i += 2)
        delete std::exchange(records[i], new Vertex({4, 5, 6}));
    for (std::size_t i = 0; i < records.size(); ++i)
        EXPECT_EQ(records[i]->P().X(), i % 2 == 0 ? 4 : 1);
    std::set<Vertex*> const distinct(records.begin(), records.end());
    EXPECT_EQ(distinct.size(), records.size());
    RecordSlabs::releaseAll<Vertex>(records);
}

TEST(Records, AListToFreeMayHaveGaps)
{
    std::vector<Vertex*> records{nullptr, new Vertex, nullptr, nullptr, new Vertex, nullptr};
    RecordSlabs::releaseAll<Vertex>(records);
    std::set<Vertex*> const again{new Vertex, new Vertex};
    EXPECT_EQ(again.size(), 2u);
    EXPECT_FALSE(again.contains(nullptr));
    for (Vertex* const record : again)
        delete record;
}

TEST(Records, MayBeFreedOnAnotherThreadThanTheOneThatMadeThem)
{
    for (int round = 0; round < 4; ++round) {
        std::vector<Triangle*> made;
        std::thread([&] {
            for (int i = 0; i < 20000; ++i) {
                made.push_back(new Triangle);
                made.back()->ID() = std::uint32_t(i);
            }
        }).join();
        std::thread([&] {
            for (std::size_t i = 0; i < made.size(); ++i) {
                EXPECT_EQ(made[i]->ID(), i);
                delete made[i];
            }
        }).join();
    }
}

TEST(Records, ThreadsThatMakeAndFreeAtTheSameTimeDoNotDisturbEachOther)
{
    std::vector<std::thread> threads;
    for (std::uint32_t id = 1; id <= 4; ++id)
        threads.emplace_back([id] {
            std::vector<Triangle*> mine;
            for (int round = 0; round < 20; ++round) {
                for (int i = 0; i < 3000; ++i) {
                    mine.push_back(new Triangle);
                    mine.back()->ID() = id;
                }
                for (Triangle* const triangle : mine)
                    EXPECT_EQ(triangle->ID(), id);
                if (round % 2 == 0)
                    RecordSlabs::releaseAll<Triangle>(mine);
                else
                    for (Triangle* const triangle : mine)
                        delete triangle;
                mine.clear();
            }
        });
    for (std::thread& thread : threads)
        thread.join();
}

#if !defined(MELL_ADDRESS_SANITIZER)
TEST(Records, MeshOfAMillionTrianglesTakesAtMost120BytesPerTriangle)
{
    std::size_t const triangles = 1000000;
    auto const before =
        RecordSlabs::footprint<Triangle>().inUse + RecordSlabs::footprint<Vertex>().inUse;
    UMesh<float> mesh;
    mesh.vertices.reserve(triangles / 2);
    mesh.triangles.reserve(triangles);
    for (std::size_t i = 0; i < triangles / 2; ++i)
        mesh.AddVertex(new Vertex);
    for (std::size_t i = 0; i < triangles; ++i)
        mesh.AddTriangle(new Triangle);
    auto const records =
        RecordSlabs::footprint<Triangle>().inUse + RecordSlabs::footprint<Vertex>().inUse - before;
    auto const lists = mesh.vertices.capacity() * 8 + mesh.triangles.capacity() * 8;
    EXPECT_LE(records + lists, triangles * 120);
    RecordProperty("bytesPerTriangle", int((records + lists) / triangles));
}

TEST(Records, MemoryOfAFreedMeshIsKeptForTheNextOne)
{
    auto const make = [] {
        auto mesh = std::make_unique<UMesh<float>>();
        for (int i = 0; i < 300000; ++i)
            mesh->AddTriangle(new Triangle);
        return mesh;
    };
    make().reset();
    auto const kept = RecordSlabs::footprint<Triangle>();
    EXPECT_GT(kept.kept, 300000u * sizeof(Triangle) / 2);
    auto const mesh = make();
    auto const again = RecordSlabs::footprint<Triangle>();
    EXPECT_LE(again.inUse + again.kept, kept.inUse + kept.kept);
}

TEST(Records, WhatIsKeptCanBeGivenBack)
{
    auto mesh = std::make_unique<UMesh<float>>();
    for (int i = 0; i < 300000; ++i)
        mesh->AddTriangle(new Triangle);
    mesh.reset();
    auto const before = RecordSlabs::footprint<Triangle>();
    EXPECT_GT(before.kept, 0u);
    RecordSlabs::giveKeptBack<Triangle>();
    auto const after = RecordSlabs::footprint<Triangle>();
    EXPECT_EQ(after.kept, 0u);
    EXPECT_EQ(after.inUse, before.inUse);
    // And records can be had again.
    delete new Triangle;
}
#endif
