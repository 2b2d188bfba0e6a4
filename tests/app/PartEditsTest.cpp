// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/parts/PartEdits.h"
#include "app/parts/PartPlacement.h"
#include "tests/app/PartDocument.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>
#include <random>

namespace {

using Names = std::vector<std::string>;

class PartEditsTest : public testing::Test
{
protected:
    PartDocument parts;
    Mesh::Document& document = *parts.document;
};

/// One random edit out of all that the panels offer.
void editAtRandom(Mesh::Document& document, std::mt19937& random)
{
    auto const below = [&](unsigned limit) { return random() % limit; };
    PartEdits::Objects objects;
    for (Base::DocumentObject* const object : document.getObjectArray())
        if (below(2) == 0)
            objects.push_back(object);
    auto const parts = PartEdits::partsAmong(objects);
    auto const groups = document.getGroups();
    auto const number = [&] { return float(below(200)) / 8 - 10; };
    switch (below(11)) {
        case 0:
            PartEdits::setVisible(document, parts, below(2) == 0);
            break;
        case 1:
            PartEdits::setColor(document, parts, unsigned(random()));
            break;
        case 2:
            if (!objects.empty())
                PartEdits::rename(document, *objects.front(), "part" + std::to_string(below(9)));
            break;
        case 3:
            PartEdits::group(document, parts, "Group");
            break;
        case 4:
            PartEdits::ungroup(document, PartEdits::groupsAround(objects));
            break;
        case 5:
            PartEdits::moveToGroup(
                document, parts, groups.empty() ? nullptr : groups[below(unsigned(groups.size()))]);
            break;
        case 6:
            // Some part always stays, or there would be nothing more to do.
            if (parts.size() < document.getMeshObjects().size())
                PartEdits::remove(document, objects);
            break;
        case 7:
            if (document.getMeshObjects().size() < 12)
                PartEdits::duplicate(document, parts);
            break;
        case 8:
            PartPlacement::move(document, parts, {number(), number(), number()});
            break;
        case 9:
            PartPlacement::rotate(document, parts, {number(), number(), number()});
            break;
        default:
            below(2) == 0 ? PartPlacement::dropToPlate(document, parts)
                          : PartPlacement::centreOnPlate(document, parts);
    }
}

}  // namespace

TEST(PartEditSequences, ComeBackByUndoAndByRedo)
{
    for (unsigned seed = 1; seed <= 20; ++seed) {
        PartDocument fresh;
        std::mt19937 random(seed);
        std::vector<QByteArray> states = {hashOf(*fresh.document)};
        while (states.size() < 40) {
            std::size_t const steps = fresh.document->undoNames().size();
            editAtRandom(*fresh.document, random);
            if (fresh.document->undoNames().size() > steps)
                states.push_back(hashOf(*fresh.document));
            else
                EXPECT_EQ(hashOf(*fresh.document), states.back()) << "seed " << seed;
        }
        for (std::size_t i = states.size() - 1; i > 0; --i) {
            ASSERT_TRUE(fresh.document->undo());
            ASSERT_EQ(hashOf(*fresh.document), states[i - 1]) << "undo " << i << ", seed " << seed;
        }
        EXPECT_FALSE(fresh.document->undo());
        for (std::size_t i = 1; i < states.size(); ++i) {
            ASSERT_TRUE(fresh.document->redo());
            ASSERT_EQ(hashOf(*fresh.document), states[i]) << "redo " << i << ", seed " << seed;
        }
    }
}

TEST_F(PartEditsTest, EveryEditIsOneStepOfThatNameAndMarksTheDocument)
{
    document.setModified(false);
    PartEdits::setVisible(document, {parts.first, parts.second}, false);
    EXPECT_TRUE(document.isModified());
    PartEdits::setVisible(document, {parts.first}, true);
    PartEdits::setColor(document, {parts.first}, 0x102030ff);
    PartEdits::rename(document, *parts.first, " new ");
    PartEdits::duplicate(document, {parts.first});
    PartPlacement::move(document, {parts.first}, {1, 2, 3});
    PartPlacement::rotate(document, {parts.first}, {0, 0, 90});
    PartPlacement::dropToPlate(document, {parts.first});
    PartPlacement::centreOnPlate(document, {parts.first});
    PartEdits::group(document, {parts.first}, "Group");
    PartEdits::moveToGroup(document, {parts.second}, parts.first->getGroup());
    PartEdits::moveToGroup(document, {parts.second}, nullptr);
    PartEdits::ungroup(document, {parts.first->getGroup()});
    PartEdits::remove(document, {parts.first});
    EXPECT_EQ(document.undoNames(),
              (Names{"Delete", "Ungroup", "Take Out of Group", "Move to Group", "Group",
                     "Centre on Plate", "Drop to Plate", "Rotate", "Move", "Duplicate", "Rename",
                     "Colour", "Show", "Hide"}));
}

TEST_F(PartEditsTest, WhatChangesNothingMakesNoStep)
{
    document.setModified(false);
    float const nan = std::numeric_limits<float>::quiet_NaN();
    EXPECT_FALSE(PartEdits::setVisible(document, {parts.first}, true));
    EXPECT_FALSE(PartEdits::setVisible(document, {}, false));
    EXPECT_FALSE(PartEdits::setColor(document, {parts.first}, 0));
    EXPECT_FALSE(PartEdits::rename(document, *parts.first, "first"));
    EXPECT_FALSE(PartEdits::rename(document, *parts.first, "  "));
    EXPECT_FALSE(PartEdits::group(document, {}, "Group"));
    EXPECT_FALSE(PartEdits::ungroup(document, {}));
    EXPECT_FALSE(PartEdits::moveToGroup(document, {parts.second}, parts.group));
    EXPECT_FALSE(PartEdits::remove(document, {}));
    EXPECT_FALSE(PartEdits::duplicate(document, {}));
    EXPECT_FALSE(PartPlacement::move(document, {parts.first}, {0, 0, 0}));
    EXPECT_FALSE(PartPlacement::move(document, {parts.first}, {nan, 0, 0}));
    EXPECT_FALSE(PartPlacement::rotate(document, {parts.first}, {0, 360, double(nan)}));
    EXPECT_FALSE(PartPlacement::dropToPlate(document, {parts.first, parts.second}));
    EXPECT_TRUE(document.undoNames().empty());
    EXPECT_FALSE(document.isModified());
}

TEST_F(PartEditsTest, AGroupGoesWithItsLastPart)
{
    PartEdits::moveToGroup(document, {parts.second}, nullptr);
    EXPECT_TRUE(document.contains(parts.group));
    PartEdits::remove(document, {parts.third});
    EXPECT_FALSE(document.contains(parts.group));
    document.undo();
    EXPECT_EQ(parts.third->getGroup(), parts.group);
    PartEdits::group(document, {parts.third}, "Group");
    EXPECT_FALSE(document.contains(parts.group));
    EXPECT_EQ(parts.third->getGroup()->getName(), "Group 1");
}

TEST_F(PartEditsTest, ARemovedGroupTakesItsPartsAlong)
{
    PartEdits::remove(document, {parts.group});
    EXPECT_EQ(parts.names(), Names{"first"});
    document.undo();
    EXPECT_EQ(parts.names(), (Names{"first", "second", "third", "pair"}));
    EXPECT_EQ(parts.group->getObjects().size(), 2u);
}

TEST_F(PartEditsTest, CopiesAreSelectedBesideTheirOriginalsAndShareTheirMeshes)
{
    PartEdits::duplicate(document, {parts.second, parts.third});
    auto const copies = document.getSelectedMeshObjects();
    ASSERT_EQ(copies.size(), 2u);
    EXPECT_EQ(copies[0]->getName(), "second_copy");
    EXPECT_EQ(copies[0]->getGroup(), parts.group);
    EXPECT_FLOAT_EQ(copies[0]->getBoundingBox().MinX(), 55);
    EXPECT_FLOAT_EQ(copies[1]->getBoundingBox().MinX(), 75);
    PartEdits::duplicate(document, {copies[0]});
    auto const again = document.getSelectedMeshObjects();
    EXPECT_EQ(again.at(0)->meshProperty->getMesh()->readMesh(),
              copies[0]->meshProperty->getMesh()->readMesh());
}

TEST_F(PartEditsTest, PartsTurnTogetherAboutTheMiddleOfTheirBox)
{
    auto const both = PartEdits::Parts{parts.first, parts.second};
    PartPlacement::rotate(document, both, {0, 0, 90});
    UBox3<float> const box = PartPlacement::boxOf(both);
    EXPECT_NEAR(box.MinX(), 10, 1e-5);
    EXPECT_NEAR(box.MaxX(), 20, 1e-5);
    EXPECT_NEAR(box.MinY(), -10, 1e-5);
    EXPECT_NEAR(box.MaxY(), 20, 1e-5);
    EXPECT_NEAR(parts.first->getBoundingBox().MinY(), -10, 1e-5);
}

TEST_F(PartEditsTest, TurnsGoAboutXThenYThenZ)
{
    UMatrix4<float> const start = parts.first->getMatrix();
    PartPlacement::rotate(document, {parts.first}, {30, -70, 250});
    UMatrix4<float> const together = parts.first->getMatrix();
    parts.first->setMatrix(start, true, true);
    PartPlacement::rotate(document, {parts.first}, {30, 0, 0});
    UPoint3<float> const middle(5, 5, 5);
    auto const radians = [](double degrees) { return float(degrees * std::numbers::pi / 180); };
    parts.first->rotate(middle, radians(-70), {0, 1, 0}, false);
    parts.first->rotate(middle, radians(250), {0, 0, 1}, false);
    for (int i = 0; i < 16; ++i)
        EXPECT_NEAR(together.data()[i], parts.first->getMatrix().data()[i], 1e-5);
}

TEST_F(PartEditsTest, EachPartDropsByItselfAndAllCentreTogether)
{
    auto const all = document.getMeshObjects();
    PartPlacement::move(document, {parts.second}, {0, 0, -3});
    PartPlacement::dropToPlate(document, all);
    for (Mesh::DocumentObject const* const part : all)
        EXPECT_FLOAT_EQ(part->getBoundingBox().MinZ(), 0);
    PartPlacement::centreOnPlate(document, all);
    UBox3<float> const box = PartPlacement::boxOf(all);
    EXPECT_FLOAT_EQ(box.MinX(), -25);
    EXPECT_FLOAT_EQ(box.MaxX(), 25);
    EXPECT_FLOAT_EQ(box.MinY(), -5);
    EXPECT_FLOAT_EQ(parts.third->getBoundingBox().MinX(), 15);
}
