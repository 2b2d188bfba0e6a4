// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/panels/StepText.h"
#include "app/parts/PartEdits.h"
#include "app/parts/PartPlacement.h"
#include "platform/document/CutMemory.h"
#include "platform/document/StepFacts.h"
#include "platform/ui/DisplayUnit.h"
#include "platform/ui/LanguageSwitch.h"
#include "tests/app/PartDocument.h"

#include <gtest/gtest.h>

namespace {

class StepTextTest : public testing::Test
{
protected:
    StepTextTest() { LanguageSwitch::setLanguage(LanguageSwitch::Choice::English); }
    ~StepTextTest() override
    {
        DisplayUnit::instance().setLength(DisplayUnit::Millimetre);
        LanguageSwitch::setLanguage(LanguageSwitch::Choice::English);
    }

    QString last() const { return stepText(Base::stepFacts(document).back()); }
    QString moved(UVector3<float> const& way)
    {
        PartPlacement::move(document, {parts.first}, way);
        return last();
    }
    QString turned(UVector3<double> const& degrees)
    {
        PartPlacement::rotate(document, {parts.first}, degrees);
        return last();
    }
    QString scaled(UVector3<double> const& factors)
    {
        PartPlacement::scale(document, {parts.first, parts.second}, factors);
        return last();
    }
    Mesh::DocumentObject* addPiece(float low, float high, char const* name)
    {
        auto* const piece = new Mesh::DocumentObject;
        piece->meshProperty->setMesh(kernelOf(box(10, 10, high - low, {0, 0, low})).release(),
                                     true);
        document.addObject(piece, name, true);
        return piece;
    }

    PartDocument parts;
    Mesh::Document& document = *parts.document;
};

}  // namespace

TEST_F(StepTextTest, SaysHowFarPartsWereMoved)
{
    EXPECT_EQ(moved({10, 0, 0}), "Move: first by 10 mm in x");
    EXPECT_EQ(moved({0, -2.5f, 0.125f}), "Move: first by -2.5 mm in y, 0.125 mm in z");
    PartPlacement::move(document, {parts.first, parts.second}, {0, 1, 0});
    EXPECT_EQ(last(), "Move: 2 parts by 1 mm in y");
    DisplayUnit::instance().setLength(DisplayUnit::Inch);
    EXPECT_EQ(moved({25.4f, 0, 0}), "Move: first by 1 in in x");
}

TEST_F(StepTextTest, SaysNothingOfWaysThatDiffer)
{
    PartPlacement::move(document, {parts.first}, {0, 0, 3});
    PartPlacement::dropToPlate(document, {parts.first, parts.third});
    EXPECT_EQ(last(), "Drop to Plate: 2 parts");
}

TEST_F(StepTextTest, SaysHowPartsWereTurnedAndScaled)
{
    EXPECT_EQ(turned({0, 0, 30}), QString::fromUtf8("Rotate: first by 30° about z"));
    EXPECT_EQ(turned({0, -90, 0}), QString::fromUtf8("Rotate: first by -90° about y"));
    EXPECT_EQ(turned({180, 0, 0}), QString::fromUtf8("Rotate: first by 180° about x"));
    EXPECT_EQ(scaled({0.5, 0.5, 0.5}), "Scale: 2 parts to 50 %");
    EXPECT_EQ(scaled({1, 1, 1.25}), "Scale: 2 parts to 125 % in z");
    PartPlacement::mirror(document, {parts.first}, 0);
    EXPECT_EQ(last(), "Mirror: first");
}

TEST_F(StepTextTest, SaysAtWhichHeightsPartsWereCut)
{
    auto const cut = [&](Mesh::DocumentObject* source, float low, double height, float high) {
        document.openTransaction("Section Cut");
        auto* const below = addPiece(low, float(height), "below");
        auto* const above = addPiece(float(height), high, "above");
        Mesh::rememberCut(*source, {{0, 0, 1}, height}, *below, *above);
        document.removeObject(source);
        document.commitTransaction();
        return above;
    };
    Mesh::DocumentObject* const above = cut(parts.first, 0, 4, 10);
    EXPECT_EQ(last(), "Section Cut: first at 4 mm");
    cut(above, 4, 7.5, 10);
    EXPECT_EQ(last(), "Section Cut: above at 7.5 mm");
}

TEST_F(StepTextTest, CountsAPartThatTookInOthers)
{
    document.openTransaction("Merge");
    parts.first->meshProperty->setMesh(kernelOf(box(20, 20, 20, {0, 0, 0})).release(), true);
    document.removeObject(parts.second);
    document.commitTransaction();
    EXPECT_EQ(last(), "Merge: 2 parts");
}

TEST_F(StepTextTest, SaysItInGerman)
{
    LanguageSwitch::setLanguage(LanguageSwitch::Choice::German);
    EXPECT_EQ(moved({0, 0, 2.5f}), "Verschieben: first um 2,5 mm in z");
    PartEdits::remove(document, {parts.second, parts.third});
    EXPECT_EQ(last(), QString::fromUtf8("Löschen: 2 Bauteile"));
}

TEST_F(StepTextTest, StaysAsItWasAfterUndo)
{
    moved({10, 0, 0});
    PartEdits::rename(document, *parts.first, "flange");
    document.undo();
    document.undo();
    auto const facts = Base::stepFacts(document);
    ASSERT_EQ(facts.size(), 2u);
    EXPECT_EQ(stepText(facts[0]), "Move: first by 10 mm in x");
    EXPECT_EQ(stepText(facts[1]), "Rename: first to flange");
}
