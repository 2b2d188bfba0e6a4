// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/DialogAddTeethUI.h"
#include "dialogs/DialogCoordinateUI.h"
#include "dialogs/DialogPolygoncut.h"
#include "dialogs/PolygonCutUI.h"
#include "dialogs/ToolButton.h"
#include "platform/ui/Command.h"
#include "platform/ui/DialogWindowManager.h"
#include "platform/ui/MellQuantitySpinBox.h"
#include "platform/ui/PushButtonAnimate.h"
#include "platform/view/AbstractMouseSelection.h"
#include "platform/view/NavigationStyle.h"
#include "platform/view/ToolHistory.h"
#include "selection/PolygoncutSelection.h"
#include "selection/RunningTool.h"
#include "tests/dialogs/DialogScene.h"
#include "tests/support/ViewEvents.h"
#include "tools/PolygonGraphicObject.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QImage>
#include <QLineEdit>
#include <QRadioButton>
#include <QRegularExpression>
#include <QSet>
#include <QTabWidget>

#include <algorithm>

// The windows of the polygon dialog: teeth and coordinates.
namespace {

using namespace Freecut;
using Point = UPoint3<float>;

/// The dialog on a block of 40 x 30 x 10 mm, seen from above, with a triangle.
class TeethWindow : public testing::Test
{
protected:
    TeethWindow()
    {
        scene.test.add(box(40, 30, 10, {-20, -15, 0}), "block");
        scene.window.show();
        scene.test.application.commandManager().getCommandByName("Std_Polygoncut")->invoke(0);
        dialog = static_cast<DialogPolygoncut*>(
            DialogWindowManager::instance()->getDialogWindow("DialogPolygoncut"));
        paint();
        for (Point const& p : {Point(-14, -10, 0), Point(14, -10, 0), Point(0, 12, 0)})
            click(scene.view, at(p.X(), p.Y()));
    }
    ~TeethWindow() override
    {
        dialog->destruct();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    /// The dialog looks at the view with each picture.
    void paint()
    {
        QEvent event(QEvent::Paint);
        dialog->eventFilter(&scene.view, &event);
    }
    QPoint at(float x, float y) const
    {
        int px, py;
        scene.view.getWidgetcoordFromWCS({x, y, 0}, px, py);
        return {px, py};
    }
    PolygoncutSelection* tool() const { return runningTool<PolygoncutSelection>(&scene.view); }
    std::vector<TeethEdge> const& edges() const
    {
        return tool()->getPolygon()->getProperty().getEdgeRecords();
    }
    std::size_t edgesUnderEdit() const
    {
        std::size_t count = 0;
        for (TeethEdge const& edge : edges())
            count += edge.editing;
        return count;
    }
    template <typename Button>
    static Button* find(QWidget* parent, QString const& text)
    {
        for (Button* const button : parent->findChildren<Button*>())
            if (button->text() == text)
                return button;
        return nullptr;
    }
    DialogAddTeethUI* openTeeth()
    {
        find<PushButtonAnimate>(dialog->widgets().polygon, "Add Teeth")->click();
        return dialog->widgets().polygon->teethDialog();
    }
    static MellQuantitySpinBox* field(DialogAddTeethUI* teeth, int tab, int index)
    {
        return teeth->findChild<QTabWidget*>()
            ->widget(tab)
            ->findChildren<MellQuantitySpinBox*>()[index];
    }
    static void type(MellQuantitySpinBox* field, double value)
    {
        field->setValue(value);
        emit field->editingFinished();
    }
    void clickLowerEdge()
    {
        move(scene.view, at(2, -10));
        click(scene.view, at(2, -10));
    }

    DialogScene scene;
    DialogPolygoncut* dialog;
};

}  // namespace

TEST_F(TeethWindow, OpeningItAppliesItsFieldsAndDrawsNothing)
{
    openTeeth();
    EXPECT_EQ(tool()->getTeethParas().teethWidth, 2);
    EXPECT_EQ(edgesUnderEdit(), 0u);
    for (TeethEdge const& edge : edges())
        EXPECT_TRUE(edge.teethPoints.empty());
    // It is no edit of the tool either.
    Base::ToolHistory& history = *scene.view.navigationStyle()->mouseModel()->history();
    history.undo();
    EXPECT_EQ(tool()->getPolygon()->getPoints().size(), 2u);
}

TEST_F(TeethWindow, ATabChangeMakesTheTeethAnewAtOnce)
{
    DialogAddTeethUI* const teeth = openTeeth();
    clickLowerEdge();
    ASSERT_EQ(edgesUnderEdit(), 1u);
    std::vector<Point> const jagged = edges()[0].teethPoints;
    ASSERT_FALSE(jagged.empty());
    teeth->findChild<QTabWidget*>()->setCurrentIndex(1);
    EXPECT_EQ(tool()->getTeethParas().teethStyle, 1);
    EXPECT_NE(edges()[0].teethPoints, jagged);
    teeth->findChild<QTabWidget*>()->setCurrentIndex(2);
    EXPECT_EQ(tool()->getTeethParas().teethStyle, 2);
    EXPECT_GT(edges()[0].teethPoints.size(), 2 * jagged.size());
}

TEST_F(TeethWindow, TurningAllEdgesOffClearsTheTrialOfThoseNotConfirmed)
{
    DialogAddTeethUI* const teeth = openTeeth();
    clickLowerEdge();
    find<PushButtonAnimate>(teeth, "Apply")->click();
    ASSERT_TRUE(edges()[0].applied);
    auto* const all = find<QCheckBox>(teeth, "Apply to all edges");
    all->click();
    EXPECT_EQ(edgesUnderEdit(), 3u);
    all->click();
    EXPECT_EQ(edgesUnderEdit(), 0u);
    EXPECT_TRUE(edges()[0].hasTeeth && edges()[0].applied);
    EXPECT_FALSE(edges()[1].hasTeeth);
    EXPECT_FALSE(edges()[2].hasTeeth);
}

TEST_F(TeethWindow, AClickOnAnAppliedEdgeLoadsItsValuesIntoTheFields)
{
    DialogAddTeethUI* const teeth = openTeeth();
    type(field(teeth, 0, 0), 1.5);
    type(field(teeth, 0, 1), 1.25);
    clickLowerEdge();
    find<PushButtonAnimate>(teeth, "Apply")->click();
    type(field(teeth, 0, 0), 2.5);
    clickLowerEdge();
    EXPECT_EQ(field(teeth, 0, 0)->value(), 1.5);
    EXPECT_EQ(field(teeth, 0, 1)->value(), 1.25);
    EXPECT_TRUE(edges()[0].editing);
}

TEST_F(TeethWindow, UndoBringsItsNumbersBackToo)
{
    DialogAddTeethUI* const teeth = openTeeth();
    clickLowerEdge();
    std::vector<Point> const first = edges()[0].teethPoints;
    type(field(teeth, 0, 1), 3);
    ASSERT_NE(edges()[0].teethPoints, first);
    scene.view.navigationStyle()->mouseModel()->history()->undo();
    EXPECT_EQ(edges()[0].teethPoints, first);
    EXPECT_EQ(field(teeth, 0, 1)->value(), 1);
}

TEST_F(TeethWindow, EveryValueOfItAndOfThePagesIsExplainedByAPicture)
{
    static QRegularExpression const source("src=\"([^\"]+)\"");
    QSet<QString> pictures;
    QList<QAbstractSpinBox*> fields = openTeeth()->findChildren<QAbstractSpinBox*>();
    EXPECT_EQ(fields.size(), 10);
    fields += dialog->widgets().polygon->findChildren<QAbstractSpinBox*>(
        QString(), Qt::FindDirectChildrenOnly);
    for (QAbstractSpinBox* const value : fields) {
        QString const picture = source.match(value->whatsThis()).captured(1);
        EXPECT_FALSE(QImage(picture).isNull()) << value->whatsThis().toStdString();
        EXPECT_FALSE(value->accessibleDescription().isEmpty());
        pictures += picture;
    }
    EXPECT_EQ(pictures.size(), fields.size());
    // The sides of the gap, on each page.
    for (QWidget* const page : dialog->widgets().pages)
        for (char const* const side : {"Inside", "Outside", "Both sides"})
            EXPECT_TRUE(
                find<QRadioButton>(page, side)->whatsThis().contains("tip_tool_clearance_"));
}

TEST_F(TeethWindow, ClosesWhenThePolygonIsResetOrTheTabChanges)
{
    DialogAddTeethUI* teeth = openTeeth();
    clickLowerEdge();
    // The page behind it is disabled; the command is not.
    dialog->on_bt_reset_clicked();
    EXPECT_FALSE(teeth->isVisible());
    EXPECT_FALSE(tool()->getAddTeeth());
    EXPECT_FALSE(tool()->getGraphicObject());
    for (Point const& p : {Point(-14, -10, 0), Point(14, -10, 0), Point(0, 12, 0)})
        click(scene.view, at(p.X(), p.Y()));
    ASSERT_EQ(tool()->getPolygon()->getPoints().size(), 3u);
    EXPECT_TRUE(dialog->widgets().ok->isEnabled());
    teeth = openTeeth();
    ASSERT_TRUE(teeth->isVisible());
    dialog->widgets().tabs->setCurrentIndex(2);
    EXPECT_FALSE(teeth->isVisible());
    EXPECT_EQ(scene.view.getInteractModeName(), "Freecut::CuboidcutSelection");
    dialog->widgets().tabs->setCurrentIndex(0);
    EXPECT_FALSE(tool()->getAddTeeth());
    EXPECT_EQ(scene.test.names().size(), 1u) << "no tool is left behind";
}

TEST_F(TeethWindow, TheRightButtonSlidesAToothToo)
{
    DialogAddTeethUI* const teeth = openTeeth();
    for (MellQuantitySpinBox* const distance : teeth->findChildren<MellQuantitySpinBox*>())
        if (distance->value() == 3)
            type(distance, 6);
    clickLowerEdge();
    ASSERT_GT(edges()[0].basePoints.size(), 2u);
    Point const base = edges()[0].basePoints[2];
    int x, y;
    scene.view.getWidgetcoordFromWCS(base, x, y);
    move(scene.view, {x, y});
    drag(scene.view, {x, y}, {x + 2, y}, Qt::RightButton);
    EXPECT_NE(edges()[0].basePoints[2], base);
    EXPECT_EQ(edges()[0].teethMethod, 0);
}

TEST_F(TeethWindow, ATypedPointGoesThroughTheTestsOfAClick)
{
    dialog->on_bt_enterCoord_clicked();
    DialogCoordinateUI* const window = dialog->coordinateDialog();
    ASSERT_TRUE(window);
    auto const fields = window->findChildren<MellQuantitySpinBox*>();
    fields[0]->setValue(-5);
    fields[1]->setValue(-13);
    window->on_apply_clicked();
    ASSERT_EQ(tool()->getPolygon()->getPoints().size(), 4u);
    AnsweredMessages const messages;
    window->on_apply_clicked();
    EXPECT_EQ(messages.texts, QStringList("Invalid point."));
    EXPECT_EQ(tool()->getPolygon()->getPoints().size(), 4u);
    // An emptied field counts as 0.
    fields[0]->lineEdit()->clear();
    fields[1]->setValue(-14);
    window->on_apply_clicked();
    ASSERT_EQ(tool()->getPolygon()->getPoints().size(), 5u);
    EXPECT_EQ(fields[0]->value(), 0);
}

TEST_F(TeethWindow, InAFreeViewATypedPointCountsWithoutItsX)
{
    dialog->on_bt_enterCoord_clicked();
    DialogCoordinateUI* const window = dialog->coordinateDialog();
    auto const fields = window->findChildren<MellQuantitySpinBox*>();
    EXPECT_FALSE(fields[2]->isEnabled());
    scene.view.getCamera()->turn({0, 0, 1}, 0.3);
    scene.view.getCamera()->turn({1, 0, 0}, 0.3);
    paint();
    ASSERT_EQ(dialog->viewIndex(), -1);
    EXPECT_FALSE(fields[2]->isEnabled()) << "as they were left";
    fields[0]->setValue(7);
    fields[1]->setValue(-14);
    std::vector<Point> const before = tool()->getPolygon()->getPoints();
    window->on_apply_clicked();
    std::vector<Point> const after = tool()->getPolygon()->getPoints();
    ASSERT_EQ(after.size(), before.size() + 1);
    Point added;
    for (Point const& point : after)
        if (std::find(before.begin(), before.end(), point) == before.end())
            added = point;
    Point expected(0, -14, 0);
    scene.view.getEyePointFromWCSPoint(expected);
    scene.view.getEyePointFromWCSPoint(added);
    EXPECT_NEAR(added.X(), expected.X(), 1e-3);
    EXPECT_NEAR(added.Y(), expected.Y(), 1e-3);
}

TEST_F(TeethWindow, AToolObjectOfTheDocumentBecomesTheDialogsOwn)
{
    VolumeGraphicObject* const drawn = dialog->getGraphicObject();
    ASSERT_TRUE(drawn);
    dialog->setObject(nullptr);
    dialog->slotObjectSelectionChanged();
    EXPECT_EQ(dialog->getGraphicObject(), drawn);
}
