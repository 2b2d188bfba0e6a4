// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/view/PlaceMark.h"
#include "tests/app/ToolWindow.h"
#include "tests/support/AnsweredMessages.h"

#include <QCheckBox>

using Base::PlaceMark;

namespace {

constexpr char const* prescribed = "An error occurred in triangulate.";

/// What a person can do about a cut that has failed, from its message.
class FailedCut : public ToolWindow
{
protected:
    /// A block without one of its triangles, seen from above and selected.
    Mesh::DocumentObject* addOpenBlock(std::string const& name = "open block")
    {
        Soup open = box(60, 40, 30, {-30, -20, -15});
        open.triangles.pop_back();
        Mesh::DocumentObject* const part = test->add(open, name);
        part->setSelected(true, true, false);
        lookFrom(2);
        return part;
    }
    /// By the key, at a height that the opening reaches.
    void cutAtSlider()
    {
        MainWindow::getViewSlider()->setHeight(3);
        pressKey(Qt::Key_C);
    }
    static bool isIdle() { return !JobGuard::instance()->isBusy(); }
    PlaceMark const* mark() const
    {
        PlaceMark const* const found = PlaceMark::in(view());
        return found && found->isVisible() ? found : nullptr;
    }
};

}  // namespace

TEST_F(FailedCut, ShowsThePlaceInTheMiddleOfTheViewUntilAnotherPartIsSelected)
{
    Mesh::DocumentObject* const part = addOpenBlock();
    AnsweredMessages const messages("Show in View");
    cutAtSlider();
    ASSERT_TRUE(waitUntil([&] { return mark() && isIdle(); }));
    EXPECT_EQ(messages.texts, QStringList{prescribed});
    ASSERT_EQ(messages.details.size(), 1);
    EXPECT_TRUE(messages.details[0].startsWith("open block: ")) << qPrintable(messages.details[0]);
    EXPECT_TRUE(messages.details[0].contains("(30, -20, 3)")) << qPrintable(messages.details[0]);
    EXPECT_EQ(mark()->place(), Point(30, -20, 3));
    QPoint const middle = view().rect().center();
    EXPECT_LE((positionOf(mark()->place()) - middle).manhattanLength(), 3);
    EXPECT_LE((mark()->geometry().center() - middle).manhattanLength(), 4);
    // The mark stays with its place, and leaves the mouse to the view.
    view().OnViewType(0);
    settle();
    EXPECT_LE((mark()->geometry().center() - positionOf(mark()->place())).manhattanLength(), 3);
    takePicture("flaw-shown");
    EXPECT_EQ(document().getMeshObjects(), std::vector{part});
    part->setSelected(false, true, true);
    EXPECT_TRUE(waitUntil([&] { return !mark(); }));
}

TEST_F(FailedCut, RepairsThePartAndCutsItInTwoStepsThatCanBeUndone)
{
    Mesh::DocumentObject* const part = addOpenBlock();
    auto const whole = part->meshProperty->shareMesh();
    AnsweredMessages const messages("Repair and Cut Again");
    cutAtSlider();
    ASSERT_TRUE(waitUntil([&] { return test->names().size() == 2 && isIdle(); }));
    EXPECT_EQ(messages.texts, QStringList{prescribed});
    double volume = 0;
    for (Soup const& piece : parts()) {
        EXPECT_EQ(closedSolidFaults(piece), "");
        volume += volumeOf(piece);
    }
    EXPECT_NEAR(volume, blockVolume, 1e-3);
    EXPECT_EQ(document().undoNames().size(), 2u);
    ASSERT_TRUE(document().undo());
    EXPECT_EQ(document().getMeshObjects(), std::vector{part});
    EXPECT_EQ(closedSolidFaults(soupOf(part)), "");
    ASSERT_TRUE(document().undo());
    EXPECT_EQ(part->meshProperty->shareMesh(), whole);
}

TEST_F(FailedCut, OfTheSectionDialogIsRepairedAndCutAgainByTheSamePlane)
{
    addOpenBlock();
    placeLevelPlane({5, 5, 15}, 3);
    AnsweredMessages const messages("Repair and Cut Again");
    sectionDialog()->widgets().ok->click();
    ASSERT_TRUE(waitUntil([&] { return !sectionDialog() && isIdle(); }));
    EXPECT_EQ(messages.texts, QStringList{prescribed});
    expectTwoPieces(blockVolume);
}

TEST_F(FailedCut, OfConnectorsNamesTheSecondOfTwoPartsAndRepairsThatOneAlone)
{
    Mesh::DocumentObject* const good = test->add(box(60, 40, 30, {-30, 40, -15}), "good block");
    Mesh::DocumentObject* const bad = addOpenBlock("bad block");
    auto const whole = good->meshProperty->shareMesh();
    auto const open = bad->meshProperty->shareMesh();
    placeLevelPlane({5, 5, 15}, 3);
    sectionDialog()->widgets().useAdvanced->setChecked(true);
    settle();
    AnsweredMessages const messages("Repair and Cut Again");
    sectionDialog()->widgets().ok->click();
    ASSERT_TRUE(waitUntil([&] { return !sectionDialog() && isIdle(); }));
    ASSERT_EQ(messages.details.size(), 1);
    EXPECT_TRUE(messages.details[0].startsWith("bad block: ")) << qPrintable(messages.details[0]);
    EXPECT_EQ(document().getMeshObjects().size(), 6u);
    EXPECT_EQ(good->meshProperty->shareMesh(), whole);
    EXPECT_NE(bad->meshProperty->shareMesh(), open);
}

TEST_F(FailedCut, OfAShapeShowsItsPlaceWithoutMovingTheShapeOnThePart)
{
    addOpenBlock();
    // Through the side that is open.
    open("Std_Polygoncut");
    for (Point const& p : {Point(10, -15, 0), Point(40, -15, 0), Point(25, 15, 0)})
        clickAt(p);
    ASSERT_TRUE(polygonTool() && polygonTool()->getPolygon());
    Points const before = drawn();
    AnsweredMessages const messages("Show in View");
    polygonDialog()->widgets().ok->click();
    ASSERT_TRUE(waitUntil([&] { return mark() && isIdle(); }));
    settle();
    ASSERT_TRUE(polygonTool() && polygonTool()->getPolygon());
    for (std::size_t i = 0; i < before.size(); ++i)
        for (int k : {0, 1})
            EXPECT_NEAR(drawn()[i][k], before[i][k], 1e-3);
}
