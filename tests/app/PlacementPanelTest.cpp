// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/jobs/JobGuard.h"
#include "app/panels/PlacementPanel.h"
#include "app/panels/VectorFields.h"
#include "platform/ui/DisplayUnit.h"
#include "platform/ui/MellQuantitySpinBox.h"
#include "platform/ui/PushButtonAnimate.h"
#include "tests/app/PartDocument.h"

#include <gtest/gtest.h>

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
