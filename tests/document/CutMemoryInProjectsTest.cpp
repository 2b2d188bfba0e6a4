// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/document/DocumentProject.h"
#include "host/formats/ProjectXml.h"
#include "platform/document/CutMemory.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/TestDocument.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

// What is remembered of cuts comes back with a project.
namespace {

class CutMemoryInProjects : public testing::Test
{
protected:
    /// Two pieces of a bar, one of them moved and turned afterwards, and a part of its own.
    CutMemoryInProjects()
    {
        Mesh::DocumentObject* const bar = test.add(box(40, 10, 10), "bar");
        Mesh::DocumentObject* const left = test.add(box(20, 10, 10), "left");
        Mesh::DocumentObject* const right = test.add(box(20, 10, 10, {20, 0, 0}), "right");
        Mesh::rememberCut(*bar, {{0.6, 0, 0.8}, 1.0 / 3}, *left, *right);
        Mesh::rememberCut(*left, {{1, 0, 0}, 20}, *left, *right);
        float const turned[16] = {0, 2, 0, 0, -2, 0, 0, 0, 0, 0, 2, 0, 5, 6, 7, 1};
        right->loadMatrix(UMatrix4<float>(turned));
        Mesh::DocumentObject* const other = test.add(box(8, 8, 8), "other");
        Mesh::DocumentObject* const a = test.add(box(8, 8, 4), "a");
        Mesh::DocumentObject* const b = test.add(box(8, 8, 4, {0, 0, 4}), "b");
        Mesh::rememberCut(*other, {{0, 0, 1}, 4}, *a, *b);
        Mesh::DocumentObject* const plug = test.add(box(2, 2, 8, {3, 3, 0}), "plug");
        Mesh::rememberShapeCut(*a, {0.36, 0.48, 0.8}, *plug, *a);
        plug->loadMatrix(UMatrix4<float>(turned));
        test.document->removeObject(bar);
        test.document->removeObject(other);
        test.add(box(1, 1, 1), "plain");
    }

    std::vector<Formats::ProjectObject> savedAndRead() const
    {
        QTemporaryDir const folder;
        std::filesystem::path const file = folder.filePath("project.3mf").toStdString();
        Formats::writeProject(file, projectOf(*test.document), {}, Formats::Overwrite::Allow);
        return Formats::readProject(file);
    }

    TestDocument test;
};

}  // namespace

TEST_F(CutMemoryInProjects, PlanesComeBackToTheBit)
{
    auto const before = test.document->getMeshObjects();
    addProject(*test.document, savedAndRead());
    auto const all = test.document->getMeshObjects();
    ASSERT_EQ(all.size(), 2 * before.size());
    for (std::size_t i = 0; i < before.size(); ++i) {
        Mesh::CutMemory const expected = Mesh::cutMemoryOf(*before[i]);
        Mesh::CutMemory const found = Mesh::cutMemoryOf(*all[before.size() + i]);
        ASSERT_EQ(found.faces.size(), expected.faces.size()) << before[i]->getName();
        for (std::size_t j = 0; j < found.faces.size(); ++j) {
            EXPECT_EQ(found.faces[j].normal, expected.faces[j].normal);
            EXPECT_EQ(found.faces[j].distance, expected.faces[j].distance);
        }
        EXPECT_EQ(found.ways, expected.ways) << before[i]->getName();
    }
    EXPECT_EQ(Mesh::cutMemoryOf(*all[before.size()]).faces.size(), 2u);
    // The plug, and what it came out of.
    EXPECT_EQ(Mesh::cutMemoryOf(*all[2 * before.size() - 2]).ways.size(), 1u);
    EXPECT_EQ(Mesh::cutMemoryOf(*all[before.size() + 2]).ways.size(), 1u);
}

TEST_F(CutMemoryInProjects, FamiliesStayApart)
{
    addProject(*test.document, savedAndRead());
    addProject(*test.document, savedAndRead());
    std::vector<unsigned> families;
    for (Mesh::DocumentObject const* const part : test.document->getMeshObjects())
        families.push_back(Mesh::cutMemoryOf(*part).family);
    // left, right, a, b, plug, plain; saved again with what was read before.
    ASSERT_GE(families.size(), 18u);
    EXPECT_EQ(families[6], families[7]);
    EXPECT_EQ(families[8], families[9]);
    EXPECT_EQ(families[8], families[10]);
    EXPECT_EQ(families[11], 0u);
    EXPECT_NE(families[6], families[8]);
    EXPECT_NE(families[6], families[0]);
    EXPECT_NE(families[12], families[6]);
}

TEST_F(CutMemoryInProjects, WhatCannotBeMeantIsPassedOver)
{
    auto const planesOf = [](char const* cuts) {
        std::string const text =
            "<project xmlns=\"urn:orbe:project:1\" version=\"1\"><part uuid=\"u\" family=\"3\" "
            "cuts=\"" +
            std::string(cuts) + "\"/></project>";
        return Formats::parseProjectXml(text, "x").at(0).object.cutPlanes.size();
    };
    EXPECT_EQ(planesOf("0 0 1 20"), 1u);
    EXPECT_EQ(planesOf("0 0 1 20 0.6 0 -0.8 -5"), 2u);
    for (char const* const wrong :
         {"0 0 1", "0 0 2 20", "0 0 nan 1", "a b c d", "0 0 1 20 ", "0 0 1 inf", "0 0 1 20 1"})
        EXPECT_EQ(planesOf(wrong), 0u) << wrong;
    EXPECT_EQ(planesOf(""), 0u);
}
