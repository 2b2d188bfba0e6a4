// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/SolidToolPage.h"
#include "tests/app/ToolWindow.h"

#include <QTabWidget>

// Documents and dialogs that come and go around a running tool, and what changes for the whole window.
namespace {

using namespace Freecut;

class ToolDocuments : public ToolWindow
{
};

}  // namespace

TEST_F(ToolDocuments, AToolIsKeptThroughThemeLanguageAndUnit)
{
    addBlock();
    drawTriangle();
    Points const points = drawn();
    auto const& ui = polygonDialog()->widgets();
    MellQuantitySpinBox* const rounding = ui.pages[0]->findChildren<MellQuantitySpinBox*>()[0];
    double const value = rounding->value();
    ThemeSwitch::setTheme(ThemeSwitch::Choice::Dark);
    LanguageSwitch::setLanguage(LanguageSwitch::Choice::German);
    DisplayUnit::instance().setLength(DisplayUnit::Inch);
    settle();
    takePicture("tool-kept-dark-german-inch");
    ASSERT_TRUE(polygonTool() && polygonTool()->getPolygon());
    EXPECT_EQ(drawn(), points);
    EXPECT_EQ(polygonDialog()->getGraphicObject(), polygonTool()->getPolygon());
    EXPECT_EQ(ui.cancel->text(), "Abbrechen");
    EXPECT_EQ(rounding->value(), value);
    EXPECT_TRUE(ui.ok->isEnabled());
    cutByShape();
    expectTwoPieces(blockVolume);
}

TEST_F(ToolDocuments, AnotherDocumentEndsTheShapeAndItsDialog)
{
    addBlock();
    drawTriangle();
    trigger("Std_New");
    settle();
    EXPECT_FALSE(polygonDialog());
    EXPECT_EQ(view().getInteractModeName(), "");
    EXPECT_TRUE(document().getObjectArray().empty());
}

TEST_F(ToolDocuments, AnotherDocumentEndsThePlane)
{
    addBlock();
    placeLevelPlane({5, 5, 15}, 3);
    trigger("Std_New");
    settle();
    EXPECT_FALSE(planeTool());
    EXPECT_FALSE(sectionDialog());
    EXPECT_TRUE(document().getObjectArray().empty());
}

TEST_F(ToolDocuments, ADialogOpenedTwiceIsOneAndAClosedOneComesBackEmpty)
{
    addBlock();
    drawTriangle();
    DialogPolygoncut const* const first = polygonDialog();
    Points const points = drawn();
    open("Std_Polygoncut");
    EXPECT_EQ(polygonDialog(), first);
    EXPECT_EQ(drawn(), points);
    polygonDialog()->widgets().cancel->click();
    settle();
    EXPECT_FALSE(polygonDialog());
    EXPECT_EQ(document().getObjectArray().size(), 1u);
    open("Std_Polygoncut");
    ASSERT_TRUE(polygonDialog());
    EXPECT_FALSE(polygonTool()->getGraphicObject());
    EXPECT_FALSE(polygonDialog()->widgets().ok->isEnabled());
    // The other dialog takes the view over.
    open("Std_Sectioncut");
    EXPECT_TRUE(planeTool());
    EXPECT_FALSE(polygonTool());
}

TEST_F(ToolDocuments, TabsChangeInEveryStateAndLeaveNoToolBehind)
{
    addBlock();
    open("Std_Polygoncut");
    for (int round = 0; round < 2; ++round)
        for (int const tab : {1, 2, 0}) {
            polygonDialog()->widgets().tabs->setCurrentIndex(tab);
            settle();
            EXPECT_FALSE(polygonDialog()->getGraphicObject());
            EXPECT_EQ(document().getObjectArray().size(), 1u);
            click(view(), positionOf({0, 0, 15}));
            settle();
            EXPECT_TRUE(polygonDialog()->getGraphicObject());
            EXPECT_EQ(document().getObjectArray().size(), 2u);
            // One point of a polygon cuts nothing.
            EXPECT_EQ(polygonDialog()->widgets().ok->isEnabled(), tab != 0);
        }
}
