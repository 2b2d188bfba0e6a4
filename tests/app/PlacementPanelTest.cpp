// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/jobs/JobGuard.h"
#include "app/panels/AxisButtons.h"
#include "app/panels/PlacementPanel.h"
#include "app/panels/ScaleFields.h"
#include "app/panels/VectorFields.h"
#include "platform/ui/DisplayUnit.h"
#include "platform/ui/MellQuantitySpinBox.h"
#include "platform/ui/PushButtonAnimate.h"
#include "tests/app/PartDocument.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>

namespace {

class PlacementPanelTest : public testing::Test
{
protected:
    PlacementPanelTest()
    {
        panel.show();
        document.select(parts.first, true, true, true);
        handleEvents();
    }
    ~PlacementPanelTest() override { DisplayUnit::instance().setLength(DisplayUnit::Millimetre); }

    UVector3<float> sizeOf(Mesh::DocumentObject const* part) const
    {
        UBox3<float> const box = part->getBoundingBox();
        return box.max - box.min;
    }

    static void type(MellQuantitySpinBox& field, QString const& text)
    {
        field.lineEdit()->selectAll();
        field.lineEdit()->insert(text);
        QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
        QCoreApplication::sendEvent(&field, &enter);
        handleEvents();
    }

    PartDocument parts;
    PlacementPanel panel;
    Mesh::Document& document = *parts.document;
};

}  // namespace

TEST_F(PlacementPanelTest, TheFieldsShowWhereTheSelectionLies)
{
    EXPECT_EQ(panel.position().values(), UVector3<double>(5, 5, 5));
    panel.reference().setCurrentIndex(1);
    EXPECT_EQ(panel.position().values(), UVector3<double>(0, 0, 0));
    panel.reference().setCurrentIndex(2);
    EXPECT_EQ(panel.position().values(), UVector3<double>(5, 5, 0));
    document.select(parts.third, true, true, false);
    handleEvents();
    EXPECT_EQ(panel.position().values(), UVector3<double>(25, 5, 0));
    EXPECT_TRUE(document.undoNames().empty());
}

TEST_F(PlacementPanelTest, ATypedPositionMovesThePartsThere)
{
    type(panel.position().field(0), "100/4");
    EXPECT_FLOAT_EQ(parts.first->getBoundingBox().MinX(), 20);
    EXPECT_FLOAT_EQ(parts.first->getBoundingBox().MinY(), 0);
    EXPECT_EQ(document.undoNames(), std::vector<std::string>{"Move"});
    document.undo();
    handleEvents();
    EXPECT_EQ(panel.position().values(), UVector3<double>(5, 5, 5));
}

TEST_F(PlacementPanelTest, NumbersAreInTheUsersUnit)
{
    DisplayUnit::instance().setLength(DisplayUnit::Inch);
    type(panel.position().field(2), "1");
    EXPECT_FLOAT_EQ(parts.first->getBoundingBox().MinZ(), 20.4f);
}

TEST_F(PlacementPanelTest, EachButtonIsOneStep)
{
    document.select(parts.third, true, true, false);
    handleEvents();
    panel.offset().setValues({1, 2, 3});
    panel.moveButton().click();
    EXPECT_FLOAT_EQ(parts.third->getBoundingBox().MinZ(), 8);
    panel.angles().setValues({0, 0, 90});
    panel.rotateButton().click();
    EXPECT_NEAR(parts.first->getBoundingBox().MinX(), 21, 1e-4);
    panel.dropButton().click();
    EXPECT_NEAR(parts.third->getBoundingBox().MinZ(), 0, 1e-5);
    panel.centreButton().click();
    EXPECT_NEAR(parts.first->getBoundingBox().MinX(), -5, 1e-4);
    EXPECT_EQ(document.undoNames(),
              (std::vector<std::string>{"Centre on Plate", "Drop to Plate", "Rotate", "Move"}));
}

TEST_F(PlacementPanelTest, QuarterTurnsAreExactAndFourOfThemLeadBack)
{
    document.select(parts.third, true, true, false);
    parts.third->scale({}, {1, 2, 3});
    handleEvents();
    UBox3<float> const before = parts.third->getBoundingBox();
    UMatrix4<float> const placed = parts.third->getMatrix();
    for (int axis = 0; axis < 3; ++axis) {
        panel.quarterTurns(false).button(axis).click();
        int const a = (axis + 1) % 3, b = (axis + 2) % 3;
        EXPECT_EQ(sizeOf(parts.third)[a], (before.max - before.min)[b]) << axis;
        EXPECT_EQ(sizeOf(parts.third)[b], (before.max - before.min)[a]) << axis;
        panel.quarterTurns(true).button(axis).click();
        EXPECT_EQ(parts.third->getMatrix(), placed) << axis;
        for (int i = 0; i < 4; ++i)
            panel.quarterTurns(false).button(axis).click();
        EXPECT_EQ(parts.third->getMatrix(), placed) << axis;
    }
    EXPECT_EQ(document.undoNames().front(), "Rotate");
}

TEST_F(PlacementPanelTest, AQuarterTurnGoesByTheRightHand)
{
    document.select(parts.second, true, true, false);
    handleEvents();
    // The second lies towards x from the first: about z it comes to lie towards y.
    panel.quarterTurns(false).button(2).click();
    EXPECT_GT(parts.second->getBoundingBox().MinY(), parts.first->getBoundingBox().MaxY());
}

TEST_F(PlacementPanelTest, ATypedSizeScalesInProportionOrAlone)
{
    EXPECT_EQ(panel.scaleFields().size().values(), UVector3<double>(10, 10, 10));
    type(panel.scaleFields().size().field(2), "25");
    EXPECT_EQ(sizeOf(parts.first), UVector3<float>(25, 25, 25));
    EXPECT_EQ(parts.first->getBoundingBox().MinZ(), 0);
    panel.scaleFields().proportions().setChecked(false);
    type(panel.scaleFields().size().field(0), "5");
    EXPECT_EQ(sizeOf(parts.first), UVector3<float>(5, 25, 25));
    EXPECT_EQ(document.undoNames(), (std::vector<std::string>{"Scale", "Scale"}));
    document.undo();
    document.undo();
    handleEvents();
    EXPECT_EQ(panel.scaleFields().size().values(), UVector3<double>(10, 10, 10));
}

TEST_F(PlacementPanelTest, ASizeThatNoPartCanHaveChangesNothing)
{
    type(panel.scaleFields().size().field(1), "0");
    EXPECT_EQ(sizeOf(parts.first), UVector3<float>(10, 10, 10));
    EXPECT_EQ(panel.scaleFields().size().values(), UVector3<double>(10, 10, 10));
    EXPECT_TRUE(document.undoNames().empty());
}

TEST_F(PlacementPanelTest, PercentScalesTheSelectionTogether)
{
    document.select(parts.second, true, true, false);
    handleEvents();
    type(panel.scaleFields().percent(), "50");
    EXPECT_TRUE(document.undoNames().empty());
    panel.scaleFields().scaleButton().click();
    EXPECT_FLOAT_EQ(parts.first->getBoundingBox().MinX(), 7.5f);
    EXPECT_FLOAT_EQ(parts.second->getBoundingBox().MaxX(), 22.5f);
    EXPECT_EQ(sizeOf(parts.second), UVector3<float>(5, 5, 5));
}

TEST_F(PlacementPanelTest, AMirroredPartIsSolidAndTwiceMirroredTheSame)
{
    UMatrix4<float> const placed = parts.first->getMatrix();
    double volume = 0, area = 0;
    for (int axis = 0; axis < 3; ++axis) {
        panel.mirrorButtons().button(axis).click();
        EXPECT_EQ(document.undoNames().front(), "Mirror");
        parts.first->getPartVolumnAndArea(volume, area);
        EXPECT_NEAR(volume, 1000, 1e-3) << axis;
        EXPECT_LT(parts.first->getMatrix()(axis, axis), 0);
        EXPECT_EQ(parts.first->getBoundingBox().min, UPoint3<float>(0, 0, 0));
        panel.mirrorButtons().button(axis).click();
        EXPECT_EQ(parts.first->getMatrix(), placed) << axis;
    }
}

TEST_F(PlacementPanelTest, WithoutASelectionItSaysWhatToDo)
{
    document.clearSelection();
    handleEvents();
    EXPECT_FALSE(panel.dropButton().isEnabled());
    EXPECT_EQ(panel.dropButton().parentWidget()->toolTip(), "Select a part first.");
}

TEST_F(PlacementPanelTest, WhileAJobRunsPartsStayWhereTheyAre)
{
    JobGuard::Hold const job;
    handleEvents();
    EXPECT_FALSE(panel.moveButton().isEnabled());
    panel.position().field(0).setValue(50);
    EXPECT_FLOAT_EQ(parts.first->getBoundingBox().MinX(), 0);
    EXPECT_TRUE(document.undoNames().empty());
}
