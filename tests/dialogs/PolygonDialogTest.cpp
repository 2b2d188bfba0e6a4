// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/DialogAddTeethUI.h"
#include "dialogs/DialogCoordinateUI.h"
#include "dialogs/DialogPolygoncut.h"
#include "dialogs/PolygonCutUI.h"
#include "dialogs/ToolButton.h"
#include "display/VolumeViewProvider.h"
#include "platform/ui/Command.h"
#include "platform/ui/DialogWindowManager.h"
#include "platform/ui/MellQuantitySpinBox.h"
#include "platform/ui/PushButtonAnimate.h"
#include "selection/CuboidcutSelection.h"
#include "selection/PolygoncutSelection.h"
#include "selection/RunningTool.h"
#include "tests/dialogs/DialogScene.h"
#include "tests/support/Validator.h"
#include "tests/support/ViewEvents.h"
#include "tools/CuboidGraphicObject.h"
#include "tools/PolygonGraphicObject.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QCheckBox>
#include <QLabel>
#include <QPointer>
#include <QRadioButton>
#include <QTabWidget>

#include <cmath>

namespace {

using namespace Freecut;
using Point = UPoint3<float>;

/// The dialog on a block of 40 x 30 x 10 mm, seen from above.
class PolygonDialog : public testing::Test
{
protected:
    PolygonDialog()
    {
        scene.test.add(box(40, 30, 10, {-20, -15, 0}), "block");
        scene.window.show();
        scene.test.application.commandManager().getCommandByName("Std_Polygoncut")->invoke(0);
        dialog = static_cast<DialogPolygoncut*>(
            DialogWindowManager::instance()->getDialogWindow("DialogPolygoncut"));
        showStandardView();
    }
    ~PolygonDialog() override
    {
        if (dialog)
            dialog->destruct();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    /// As a picture of the view would.
    void showStandardView()
    {
        QEvent paint(QEvent::Paint);
        dialog->eventFilter(&scene.view, &paint);
    }
    PolygonCutWidgets const& ui() const { return dialog->widgets(); }
    void clickAt(float x, float y)
    {
        int px, py;
        scene.view.getWidgetcoordFromWCS({x, y, 0}, px, py);
        click(scene.view, {px, py});
    }
    void drawTriangle()
    {
        clickAt(-10, -10);
        clickAt(10, -10);
        clickAt(0, 10);
    }
    /// In place of what was drawn, a circle of 10 mm with more corners than are derived at once.
    void showLongOutline()
    {
        scene.view.show();
        PolygonProperty& record = polygon()->getProperty();
        float const z = record.getKeyPoints()[0].Z();
        record.getKeyPoints().clear();
        for (int i = 0; i < 500; ++i)
            record.getKeyPoints().push_back({float(10 * std::cos(2 * M_PI * i / 500)),
                                             float(10 * std::sin(2 * M_PI * i / 500)), z});
        record.getEdgeRecords().resize(500);
        record.storeEyePoints();
    }
    void typeClearance(double clearance)
    {
        for (MellQuantitySpinBox* const field : ui().polygon->findChildren<MellQuantitySpinBox*>())
            if (field->value() == 0.1) {
                field->setValue(clearance);
                emit field->editingFinished();
                return;
            }
    }
    NewestWork const& background() const
    {
        return static_cast<VolumeViewProvider*>(polygon()->getViewProvider())->background();
    }
    template <typename Button>
    Button* find(QString const& text) const
    {
        for (Button* const button : ui().polygon->findChildren<Button*>())
            if (button->text() == text)
                return button;
        return nullptr;
    }
    PolygonGraphicObject* polygon() const
    {
        return runningTool<PolygoncutSelection>(&scene.view)->getPolygon();
    }

    DialogScene scene;
    DialogPolygoncut* dialog;
};

}  // namespace

TEST_F(PolygonDialog, StartsThePolygonsToolAndWaitsForThreePoints)
{
    EXPECT_EQ(scene.view.getInteractModeName(), "Freecut::PolygoncutSelection");
    EXPECT_EQ(dialog->windowTitle(), "Polygon Cut");
    EXPECT_FALSE(ui().ok->isEnabled());
    clickAt(-10, -10);
    clickAt(10, -10);
    EXPECT_EQ(dialog->getGraphicObject(), polygon());
    EXPECT_FALSE(ui().ok->isEnabled());
    EXPECT_FALSE(find<PushButtonAnimate>("Add Teeth")->isEnabled());
    clickAt(0, 10);
    EXPECT_TRUE(ui().ok->isEnabled());
    EXPECT_TRUE(ui().startPreview->isEnabled());
    EXPECT_TRUE(find<PushButtonAnimate>("Add Teeth")->isEnabled());
    EXPECT_EQ(polygon()->getProperty().getFillAlpha(), 178u);
    EXPECT_EQ(polygon()->getProperty().getViewIndex(), 2);
}

TEST_F(PolygonDialog, TabsStartTheirToolsAndGiveThemASize)
{
    ui().tabs->setCurrentIndex(1);
    EXPECT_EQ(scene.view.getInteractModeName(), "Freecut::CylindercutSelection");
    ui().tabs->setCurrentIndex(2);
    EXPECT_EQ(scene.view.getInteractModeName(), "Freecut::CuboidcutSelection");
    clickAt(0, 0);
    auto* const selection = runningTool<CuboidcutSelection>(&scene.view);
    float const size = std::sqrt(40.0f * 40 + 30 * 30 + 10 * 10);
    EXPECT_NEAR(selection->getCuboid()->getProperty().getCuboidLength(), size / 2, 1e-3);
    EXPECT_NEAR(selection->getCuboid()->getProperty().getCuboidWidth(), size / 2, 1e-3);
    EXPECT_TRUE(ui().ok->isEnabled());
    selection->getCuboid()->getProperty().setCuboidAngle(float(M_PI / 2));
    selection->getCuboid()->signalChanged();
    EXPECT_NEAR(ui().pages[2]->findChildren<MellQuantitySpinBox*>()[2]->value(), 90, 1e-3);
}

TEST_F(PolygonDialog, FindsAToolOnlyWhileItIsTheOneThatRuns)
{
    EXPECT_NE(dialog->getPolygoncutSelection(), nullptr);
    EXPECT_EQ(dialog->getCylindercutSelection(), nullptr);
    ui().tabs->setCurrentIndex(1);
    EXPECT_EQ(dialog->getPolygoncutSelection(), nullptr);
    EXPECT_NE(dialog->getCylindercutSelection(), nullptr);
    ui().tabs->setCurrentIndex(2);
    EXPECT_EQ(dialog->getCylindercutSelection(), nullptr);
    EXPECT_NE(dialog->getCuboidcutSelection(), nullptr);
    scene.view.startSelection("Freecut::PlanecutSelection");
    EXPECT_EQ(dialog->getPolygoncutSelection(), nullptr);
    EXPECT_EQ(dialog->getCuboidcutSelection(), nullptr);
}

TEST_F(PolygonDialog, TheViewDecidesOnTheAdvancedOptions)
{
    struct Case
    {
        int view;
        char const* text;
    };
    for (auto const& [view, text] :
         {Case{0, "Cut till Y ="}, Case{4, "Cut till X ="}, Case{3, "Cut till Z ="}}) {
        scene.view.OnViewType(view);
        showStandardView();
        EXPECT_EQ(ui().cutTill->text(), text);
        EXPECT_TRUE(ui().cutTill->isEnabled());
    }
    scene.view.getCamera()->turn({0, 0, 1}, 0.3);
    scene.view.getCamera()->turn({1, 0, 0}, 0.3);
    showStandardView();
    EXPECT_EQ(dialog->viewIndex(), -1);
    EXPECT_FALSE(ui().cutTill->isEnabled());
    EXPECT_EQ(ui().cutTill->text(), "Cut till Z =") << "left as it is";
}

TEST_F(PolygonDialog, ThePreviewLeavesNothingButItsEnd)
{
    drawTriangle();
    find<QCheckBox>("Round corners")->click();
    std::vector<Point> const drawn = polygon()->getPoints();
    ui().startPreview->click();
    EXPECT_TRUE(polygon()->getProperty().getPreviewOn());
    EXPECT_TRUE(ui().stopPreview->isEnabled());
    EXPECT_FALSE(ui().startPreview->isEnabled());
    EXPECT_FALSE(find<QCheckBox>("Round corners")->isEnabled());
    EXPECT_FALSE(ui().removeOriginal->isEnabled());
    scene.view.getCamera()->turn({1, 0, 0}, 0.7);
    showStandardView();
    EXPECT_EQ(dialog->viewIndex(), 2);
    ui().stopPreview->click();
    EXPECT_EQ(scene.view.viewIndex(), 2);
    EXPECT_EQ(polygon()->getPoints(), drawn);
    EXPECT_TRUE(find<QCheckBox>("Round corners")->isEnabled());
    EXPECT_FALSE(find<QCheckBox>("Clearance")->isChecked());
    EXPECT_FALSE(ui().stopPreview->isEnabled());
    EXPECT_TRUE(ui().startPreview->isEnabled());
}

TEST_F(PolygonDialog, APreviewEndsWithItsTool)
{
    drawTriangle();
    ui().startPreview->click();
    scene.view.stopSelection();
    EXPECT_EQ(dialog->getGraphicObject(), nullptr);
    EXPECT_FALSE(ui().stopPreview->isEnabled());
    EXPECT_TRUE(ui().removeOriginal->isEnabled());
    EXPECT_FALSE(ui().ok->isEnabled());
}

TEST_F(PolygonDialog, AResetWaitsForANewTool)
{
    drawTriangle();
    ui().reset->click();
    EXPECT_EQ(dialog->getGraphicObject(), nullptr);
    EXPECT_FALSE(ui().ok->isEnabled());
    drawTriangle();
    EXPECT_TRUE(ui().ok->isEnabled());
}

TEST_F(PolygonDialog, TheTeethWindowHoldsTheCutUntilItCloses)
{
    drawTriangle();
    find<PushButtonAnimate>("Add Teeth")->click();
    DialogAddTeethUI* const teeth = ui().polygon->teethDialog();
    ASSERT_TRUE(teeth->isVisible());
    EXPECT_EQ(teeth->objectName(), "FreecutAddTeechDialog");
    EXPECT_FALSE(ui().ok->isEnabled());
    auto* const selection = runningTool<PolygoncutSelection>(&scene.view);
    EXPECT_TRUE(selection->getAddTeeth());
    EXPECT_EQ(selection->getTeethParas().teethDistance, 3);
    EXPECT_EQ(selection->getTeethParas().teethMethod, 1);
    teeth->on_bt_flipTeeth_clicked();
    EXPECT_FALSE(selection->getTeethParas().flipTeeth);
    teeth->on_bt_cancel_clicked();
    EXPECT_FALSE(teeth->isVisible());
    EXPECT_FALSE(selection->getAddTeeth());
    EXPECT_TRUE(ui().ok->isEnabled());
}

TEST_F(PolygonDialog, ApplyToAllEdgesGoesOffWhereTheyDoNotFit)
{
    drawTriangle();
    find<PushButtonAnimate>("Add Teeth")->click();
    DialogAddTeethUI* const teeth = ui().polygon->teethDialog();
    auto* const all = [&]() -> QCheckBox* {
        for (QCheckBox* const box : teeth->findChildren<QCheckBox*>())
            if (box->text() == "Apply to all edges")
                return box;
        return nullptr;
    }();
    ASSERT_TRUE(all);
    all->click();
    EXPECT_TRUE(all->isChecked());
    EXPECT_TRUE(polygon()->getProperty().getEdgeRecords()[2].editing);
    AnsweredMessages messages;
    MellQuantitySpinBox* const width =
        teeth->findChild<QTabWidget*>()->widget(0)->findChildren<MellQuantitySpinBox*>()[0];
    width->setValue(4);
    emit width->editingFinished();
    EXPECT_EQ(messages.texts, QStringList("Width(W) is too large."));
    EXPECT_FALSE(all->isChecked());
    EXPECT_FALSE(polygon()->getProperty().getEdgeRecords()[2].hasTeeth);
}

TEST_F(PolygonDialog, AClearanceThatSwallowsTheInsideIsTold)
{
    drawTriangle();
    EXPECT_TRUE(ui().problem->text().isEmpty());
    find<QCheckBox>("Clearance")->click();
    for (MellQuantitySpinBox* const field : ui().polygon->findChildren<MellQuantitySpinBox*>())
        if (field->value() == 0.1) {
            field->setValue(30);
            emit field->editingFinished();
        }
    EXPECT_TRUE(ui().problem->text().startsWith("The clearance leaves nothing"));
}

TEST_F(PolygonDialog, WhatIsFoundOutAboutALongOutlineFollowsItFromTheBackground)
{
    drawTriangle();
    showLongOutline();
    find<QCheckBox>("Clearance")->click();
    ASSERT_TRUE(waitUntil([&] { return !background().isBusy(); }));
    typeClearance(30);
    EXPECT_TRUE(background().isBusy());
    EXPECT_TRUE(ui().problem->text().isEmpty());
    EXPECT_TRUE(
        waitUntil([&] { return ui().problem->text().startsWith("The clearance leaves nothing"); }));
}

TEST_F(PolygonDialog, CutsALongOutlineWithTheClearanceTypedLast)
{
    drawTriangle();
    showLongOutline();
    ui().removeOriginal->setChecked(true);
    find<QCheckBox>("Clearance")->click();
    typeClearance(2);
    EXPECT_TRUE(background().isBusy());
    ui().ok->click();
    QPointer<DialogPolygoncut> const open(dialog);
    ASSERT_TRUE(waitUntil([&] { return open.isNull(); }));
    dialog = nullptr;
    double volume = 0;
    for (Mesh::DocumentObject* const part : scene.test.document->getMeshObjects())
        volume += volumeOf(soupOf(part));
    // Between the circle of 10 mm and that of 8 mm nothing is left.
    EXPECT_NEAR(volume, 12000 - M_PI * (100 - 64) * 10, 1);
}

TEST_F(PolygonDialog, CutsAndClosesInOneStep)
{
    drawTriangle();
    ui().removeOriginal->setChecked(true);
    ui().ok->click();
    QPointer<DialogPolygoncut> const open(dialog);
    ASSERT_TRUE(waitUntil([&] { return open.isNull(); }));
    dialog = nullptr;
    std::vector<Mesh::DocumentObject*> const parts = scene.test.document->getMeshObjects();
    ASSERT_EQ(parts.size(), 2u);
    EXPECT_NEAR(volumeOf(soupOf(parts[0])) + volumeOf(soupOf(parts[1])), 12000, 0.05);
    EXPECT_EQ(closedSolidFaults(soupOf(parts[0])), "");
    EXPECT_EQ(scene.view.getInteractModeName(), "");
    EXPECT_EQ(scene.test.document->getObjectArray().size(), 2u);
}

TEST_F(PolygonDialog, WithoutASelectedPartItSaysWhatToDo)
{
    drawTriangle();
    ui().selectedParts->click();
    AnsweredMessages messages;
    ui().ok->click();
    EXPECT_EQ(messages.texts, QStringList("Please select at least 1 part in one document."));
    EXPECT_TRUE(dialog->getGraphicObject());
}
