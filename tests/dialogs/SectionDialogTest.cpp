// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/DialogLapJointUI.h"
#include "dialogs/DialogPinHoleUI.h"
#include "dialogs/DialogSectioncut.h"
#include "dialogs/ToolButton.h"
#include "platform/jobs/EventNotify.h"
#include "platform/ui/Command.h"
#include "platform/ui/CutView.h"
#include "platform/ui/CutViewSlider.h"
#include "platform/ui/DialogWidgetGroup.h"
#include "platform/ui/DialogWindowManager.h"
#include "platform/ui/MellQuantitySpinBox.h"
#include "platform/ui/PushButtonAnimate.h"
#include "platform/ui/SideControlTab.h"
#include "selection/PlanecutSelection.h"
#include "selection/RunningTool.h"
#include "tests/dialogs/DialogScene.h"
#include "tests/support/Validator.h"
#include "tests/support/ViewEvents.h"
#include "tools/PlaneGraphicObject.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPointer>
#include <QRadioButton>

#include <cmath>

namespace {

using Freecut::DialogSectioncut;
using Freecut::PlanecutSelection;
using Names = std::vector<std::string>;
using Point = UPoint3<float>;

Soup sidelessBox()
{
    Soup soup = box(2, 3, 4);
    soup.triangles.erase(soup.triangles.begin() + 4, soup.triangles.begin() + 6);
    return soup;
}

struct JobEvents : QObject
{
    JobEvents()
    {
        connect(EventNotify::instance(), &EventNotify::startEvent, this, [this] { ++started; });
        connect(EventNotify::instance(), &EventNotify::endEvent, this, [this] { ++ended; });
    }
    int started = 0;
    int ended = 0;
};

class SectionDialog : public testing::Test
{
protected:
    SectionDialog() { scene.test.add(box(20, 10, 30, {-10, -5, 0}), "block"); }
    ~SectionDialog() override
    {
        if (dialog)
            dialog->destruct();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    void open()
    {
        scene.test.application.commandManager().getCommandByName("Std_Sectioncut")->invoke(0);
        dialog = static_cast<DialogSectioncut*>(
            DialogWindowManager::instance()->getDialogWindow("DialogSectioncut"));
    }
    Freecut::SectionCutWidgets const& ui() const { return dialog->widgets(); }

    PlanecutSelection* tool() const { return Freecut::runningTool<PlanecutSelection>(&scene.view); }
    std::vector<Point> corners() const
    {
        return tool()->getPlaneObject()->getProperty().getCorners();
    }
    Point center() const { return tool()->getPlaneObject()->getProperty().getKeyPoints()[0]; }
    /// A level plane through the middle of the block.
    void openWithPlane()
    {
        open();
        tool()->setPlaneByCenterAndNormal({0, 0, 15}, {0, 0, 1});
    }

    static void type(MellQuantitySpinBox* field, double value)
    {
        field->setValue(value);
        emit field->editingFinished();
    }
    void cut()
    {
        JobEvents const events;
        ui().ok->click();
        ASSERT_TRUE(waitUntil([&] { return events.ended > 0; }));
        EXPECT_EQ(events.started, 1);
        EXPECT_EQ(events.ended, 1);
    }

    DialogScene scene;
    QPointer<DialogSectioncut> dialog;
};

}  // namespace

TEST_F(SectionDialog, OpensOnceAndStartsThePlaneOfThreePoints)
{
    open();
    ASSERT_TRUE(dialog);
    EXPECT_EQ(dialog->windowTitle(), "Section Cut");
    EXPECT_EQ(dialog->getModuleName(), "test");
    EXPECT_EQ(dialog->getDocument(), scene.test.document);
    ASSERT_TRUE(tool());
    EXPECT_EQ(tool()->getPlaneType(), Freecut::PLANE_3POINTS);
    EXPECT_TRUE(ui().planeButtons[0]->isChecked());
    EXPECT_FALSE(ui().ok->isEnabled());
    QPointer<DialogSectioncut> const first = dialog;
    open();
    EXPECT_EQ(dialog, first);
}

TEST_F(SectionDialog, KeepsAPlaneToolThatRunsAlready)
{
    scene.test.application.commandManager().getCommandByName("FreecutPlaneXZPlane")->invoke(1);
    open();
    EXPECT_EQ(tool()->getPlaneType(), Freecut::PLANE_XZ);
    EXPECT_FALSE(ui().planeButtons[0]->isChecked());
}

TEST_F(SectionDialog, TheFieldsHaveTheirUnitsAndLimits)
{
    open();
    for (MellQuantitySpinBox* const field : ui().normal) {
        EXPECT_FALSE(field->unit().isLength());
        EXPECT_EQ(field->minimum(), -1e6);
        EXPECT_EQ(field->maximum(), 1e6);
        EXPECT_EQ(field->alignment(), Qt::AlignRight);
    }
    for (MellQuantitySpinBox* const field : ui().center) {
        EXPECT_TRUE(field->unit().isLength());
        EXPECT_FALSE(field->isUnitTextVisible());
        EXPECT_EQ(field->minimum(), -1e6);
        EXPECT_EQ(field->maximum(), 1e6);
    }
    for (MellQuantitySpinBox* const field : ui().size) {
        EXPECT_TRUE(field->unit().isLength());
        EXPECT_TRUE(field->isUnitTextVisible());
        EXPECT_EQ(field->minimum(), -1e11);
        EXPECT_EQ(field->maximum(), 1e11);
    }
    EXPECT_EQ(ui().step->minimum(), 0.001);
    EXPECT_EQ(ui().step->maximum(), 100);
    EXPECT_EQ(ui().step->value(), 0.1);
    EXPECT_FALSE(ui().step->isUnitTextVisible());
    EXPECT_EQ(ui().normal[0]->value(), 1);
    EXPECT_EQ(ui().size[0]->value(), 0);
}

TEST_F(SectionDialog, TheTextsStandAsTold)
{
    open();
    EXPECT_EQ(ui().allParts->text(), "All parts");
    EXPECT_EQ(ui().selectedParts->text(), "Selected parts");
    EXPECT_EQ(ui().removeOriginal->text(), "Remove original part(s)");
    EXPECT_EQ(ui().useBoundary->text(), "Use plane boundary");
    EXPECT_EQ(ui().useAdvanced->text(), "Use advanced cut");
    EXPECT_EQ(ui().cutTypeLabel->text(), "Section cut type");
    EXPECT_EQ(ui().cutType->itemText(0), "Connector Pins/Holes");
    EXPECT_EQ(ui().cutType->itemText(1), "Lap Joint");
    EXPECT_EQ(ui().ok->text(), "OK");
    EXPECT_EQ(ui().cancel->text(), "Cancel");
    QStringList titles;
    for (WidgetGroup const* const group : dialog->findChildren<DialogWidgetGroup*>())
        titles << group->titleName();
    EXPECT_EQ(titles, (QStringList{"Selection", "Plane", "Options", "Advanced Section Cut"}));
}

TEST_F(SectionDialog, ThePlaneOfTheMouseShowsInTheFields)
{
    open();
    tool()->setPlaneByCenterAndNormal({1, 2, 15}, {0, 0.6f, 0.8f});
    EXPECT_TRUE(ui().ok->isEnabled());
    EXPECT_NEAR(ui().center[0]->value(), 1, 1e-4);
    EXPECT_NEAR(ui().center[1]->value(), 2, 1e-4);
    EXPECT_NEAR(ui().center[2]->value(), 15, 1e-4);
    EXPECT_NEAR(ui().normal[1]->value(), 0.6, 1e-5);
    EXPECT_NEAR(ui().normal[2]->value(), 0.8, 1e-5);
    double const size = std::sqrt(20.0 * 20 + 10 * 10 + 30 * 30);
    EXPECT_NEAR(ui().size[0]->value(), size, 1e-3);
    EXPECT_NEAR(ui().size[1]->value(), size, 1e-3);

    // By the handle in the middle, 15 pixels to the right: 10 mm.
    int x, y;
    scene.view.getWidgetcoordFromWCS(center(), x, y);
    move(scene.view, {x, y});
    drag(scene.view, {x, y}, {x + 15, y}, Qt::LeftButton);
    EXPECT_NEAR(ui().center[0]->value(), 11, 1e-2);
}

TEST_F(SectionDialog, TheSliderCountsStepsFromTheFarthestCorner)
{
    openWithPlane();
    // 30 mm in steps of 0.1, and two to spare.
    EXPECT_EQ(ui().slider->maximum(), 302);
    EXPECT_EQ(ui().slider->value(), 151);
    ui().slider->setValue(171);
    EXPECT_NEAR(center().Z(), 17, 1e-4);
    EXPECT_NEAR(ui().center[2]->value(), 17, 1e-4);
    EXPECT_EQ(ui().slider->value(), 171);
}

TEST_F(SectionDialog, AnotherStepRescalesTheSlider)
{
    openWithPlane();
    ui().step->setValue(0.5);
    EXPECT_EQ(ui().slider->maximum(), 62);
    EXPECT_EQ(ui().slider->value(), 31);
    // The upper limit itself falls back.
    ui().step->setValue(100);
    EXPECT_EQ(ui().step->value(), 0.5);
    EXPECT_EQ(ui().slider->maximum(), 62);
}

TEST_F(SectionDialog, ATypedCentreMovesThePlane)
{
    openWithPlane();
    std::vector<Point> const before = corners();
    type(ui().center[2], 20);
    EXPECT_NEAR(center().Z(), 20, 1e-4);
    EXPECT_NEAR(corners()[0].Z(), 20, 1e-4);
    EXPECT_NEAR(corners()[0].X(), before[0].X(), 1e-4);
    EXPECT_EQ(ui().slider->value(), 201);
}

TEST_F(SectionDialog, ATypedCentreBeyondThePartsFallsBack)
{
    openWithPlane();
    for (double const outside : {30.5, -0.5}) {
        type(ui().center[2], outside);
        EXPECT_NEAR(ui().center[2]->value(), 15, 1e-6);
        EXPECT_NEAR(center().Z(), 15, 1e-6);
    }
    // Touching a corner alone is still in order, and so is the side.
    type(ui().center[2], 30);
    EXPECT_NEAR(center().Z(), 30, 1e-5);
    type(ui().center[0], 500);
    EXPECT_NEAR(center().X(), 500, 1e-3);
}

TEST_F(SectionDialog, ACentreCanBeTypedForAPlaneThatLiesOnTheTop)
{
    open();
    tool()->setPlaneByCenterAndNormal({0, 0, 30}, {0, 0, 1});
    type(ui().center[2], 10);
    EXPECT_NEAR(center().Z(), 10, 1e-4);
    type(ui().center[2], 31);
    EXPECT_NEAR(center().Z(), 10, 1e-4);
}

TEST_F(SectionDialog, ATypedNormalTurnsThePlaneAboutItsCentre)
{
    openWithPlane();
    ui().normal[0]->setValue(1);
    Point const middle = (corners()[0] + corners()[2]) * 0.5f;
    EXPECT_NEAR(middle.Z(), 15, 1e-4);
    UVector3<float> n = (corners()[1] - corners()[0]) * (corners()[2] - corners()[1]);
    n.Normalize();
    EXPECT_NEAR(n.X(), std::sqrt(0.5), 1e-5);
    EXPECT_NEAR(n.Z(), std::sqrt(0.5), 1e-5);
    // The typed numbers stay as they were typed.
    EXPECT_EQ(ui().normal[0]->value(), 1);
    EXPECT_EQ(ui().normal[2]->value(), 1);
}

TEST_F(SectionDialog, ANormalOfNothingBecomesThatAlongX)
{
    openWithPlane();
    ui().normal[2]->setValue(0);
    EXPECT_EQ(ui().normal[0]->value(), 1);
    UVector3<float> n = (corners()[1] - corners()[0]) * (corners()[2] - corners()[1]);
    EXPECT_NEAR(n.Normalize().X(), 1, 1e-5);
}

TEST_F(SectionDialog, ATypedSizeIsTakenAboutTheCentreAndByTheTool)
{
    openWithPlane();
    ui().size[0]->setValue(12);
    ui().size[1]->setValue(34);
    EXPECT_NEAR((corners()[1] - corners()[0]).GetLength(), 12, 1e-4);
    EXPECT_NEAR((corners()[2] - corners()[1]).GetLength(), 34, 1e-4);
    EXPECT_EQ(tool()->getPlaneSize().height, 12);
    EXPECT_EQ(tool()->getPlaneSize().width, 34);
    EXPECT_NEAR(center().Z(), 15, 1e-4);
    // Nothing would be left by which the plane could grow again.
    ui().size[0]->setValue(0);
    EXPECT_NEAR(ui().size[0]->value(), 12, 1e-4);
}

TEST_F(SectionDialog, WithoutAPlaneTheFieldsDoNothing)
{
    open();
    type(ui().center[0], 5);
    ui().normal[0]->setValue(0.5);
    ui().size[0]->setValue(5);
    ui().slider->setValue(3);
    EXPECT_EQ(scene.test.names(), Names{"block"});
}

TEST_F(SectionDialog, WithoutPartsTheGroupsAreDisabled)
{
    open();
    EXPECT_TRUE(ui().removeOriginal->isEnabled());
    ui().selectedParts->click();
    EXPECT_FALSE(ui().removeOriginal->isEnabled());
    EXPECT_FALSE(ui().normal[0]->isEnabled());
    EXPECT_TRUE(ui().allParts->isEnabled());
    scene.test.document->getMeshObjects()[0]->setSelected(true, true, false);
    EXPECT_TRUE(ui().removeOriginal->isEnabled());
}

TEST_F(SectionDialog, TheConnectorPagesComeAndGo)
{
    open();
    EXPECT_TRUE(ui().pinHole->isHidden() && ui().lapJoint->isHidden() && ui().cutType->isHidden());
    ui().useAdvanced->click();
    EXPECT_FALSE(ui().pinHole->isHidden() || ui().cutType->isHidden() ||
                 ui().cutTypeLabel->isHidden());
    EXPECT_TRUE(ui().lapJoint->isHidden());
    ui().cutType->setCurrentIndex(1);
    EXPECT_TRUE(ui().pinHole->isHidden());
    EXPECT_FALSE(ui().lapJoint->isHidden());
    ui().useAdvanced->click();
    EXPECT_TRUE(ui().pinHole->isHidden() && ui().lapJoint->isHidden() && ui().cutType->isHidden());
    EXPECT_TRUE(ui().advancedGroup->isExpanded());
    EXPECT_FALSE(ui().pinHole->isWindow() || ui().lapJoint->isWindow());
}

TEST_F(SectionDialog, TheSettingsAreThoseOfTheLastCancel)
{
    open();
    EXPECT_TRUE(ui().allParts->isChecked());
    EXPECT_FALSE(ui().removeOriginal->isChecked() || ui().useBoundary->isChecked());
    ui().useBoundary->click();
    ui().selectedParts->click();
    ui().cancel->click();
    EXPECT_FALSE(scene.settings.value("/SectionCut/allOrSelected").toBool());
    EXPECT_FALSE(scene.settings.value("/SectionCut/removeOriginal").toBool());
    EXPECT_TRUE(scene.settings.value("/SectionCut/useBoundary").toBool());
    open();
    EXPECT_TRUE(ui().selectedParts->isChecked());
    EXPECT_TRUE(ui().useBoundary->isChecked());
    ui().removeOriginal->setChecked(true);
    dialog->close();
    EXPECT_FALSE(scene.settings.value("/SectionCut/removeOriginal").toBool());
}

TEST_F(SectionDialog, TheToolAndItsPlaneGoWithTheDialog)
{
    openWithPlane();
    dialog->close();
    EXPECT_FALSE(tool());
    EXPECT_EQ(scene.test.names(), Names{"block"});
}

TEST_F(SectionDialog, ADialogThatClosesLeavesTheToolOfAnother)
{
    openWithPlane();
    scene.view.startSelection("Mesh::PointPickerMesh");
    EXPECT_FALSE(ui().ok->isEnabled());
    dialog->close();
    EXPECT_EQ(scene.view.getInteractModeName(), "Mesh::PointPickerMesh");
}

TEST_F(SectionDialog, CutsIntoPiecesInOneStepAndCloses)
{
    openWithPlane();
    cut();
    EXPECT_FALSE(DialogWindowManager::instance()->getDialogWindow("DialogSectioncut"));
    EXPECT_EQ(scene.test.names(), (Names{"block", "block_cut1", "block_cut2"}));
    EXPECT_NEAR(volumeOf(soupOf(scene.test.document->getMeshObjects()[1])), 3000, 0.1);
    EXPECT_NEAR(volumeOf(soupOf(scene.test.document->getMeshObjects()[2])), 3000, 0.1);
    EXPECT_FALSE(tool());
    ASSERT_TRUE(scene.test.document->undo());
    EXPECT_EQ(scene.test.names(), Names{"block"});
}

TEST_F(SectionDialog, ThePiecesTakeThePlaceOfTheOriginal)
{
    openWithPlane();
    ui().removeOriginal->click();
    cut();
    EXPECT_EQ(scene.test.names(), (Names{"block_cut1", "block_cut2"}));
    EXPECT_TRUE(scene.settings.value("/SectionCut/removeOriginal").toBool());
    ASSERT_TRUE(scene.test.document->undo());
    EXPECT_EQ(scene.test.names(), Names{"block"});
}

TEST_F(SectionDialog, CutsWithPinsAndWithALapJoint)
{
    for (int const type : {0, 1}) {
        openWithPlane();
        ui().useAdvanced->click();
        ui().cutType->setCurrentIndex(type);
        ui().removeOriginal->setChecked(true);
        cut();
        ASSERT_EQ(scene.test.document->getMeshObjects().size(), 2u) << type;
        double const first = volumeOf(soupOf(scene.test.document->getMeshObjects()[0]));
        double const second = volumeOf(soupOf(scene.test.document->getMeshObjects()[1]));
        // The tongue or the pins make one piece larger; the gaps are lost.
        EXPECT_LT(first + second, 6000) << type;
        EXPECT_GT(first + second, 5500) << type;
        EXPECT_GT(std::fabs(first - second), 10) << type;
        ASSERT_TRUE(scene.test.document->undo());
    }
}

TEST_F(SectionDialog, AFailureTellsAndLeavesAllAsItWas)
{
    scene.test.add(sidelessBox(), "open");
    open();
    tool()->setPlaneByCenterAndNormal({1, 1, 2}, {0, 0, 1});
    AnsweredMessages const messages;
    cut();
    EXPECT_EQ(messages.texts, QStringList{"An error occurred in triangulate."});
    EXPECT_EQ(messages.titles, QStringList{"Attention"});
    EXPECT_EQ(messages.buttons, (QStringList{"OK", "Show in View", "Repair and Cut Again"}));
    EXPECT_TRUE(messages.details.join("").contains("open"))
        << messages.details.join("").toStdString();
    EXPECT_TRUE(dialog);
    EXPECT_TRUE(tool()->getPlaneObject());
    EXPECT_EQ(scene.test.document->getMeshObjects().size(), 2u);
    EXPECT_FALSE(scene.test.document->isModified());
    EXPECT_FALSE(scene.test.document->undo());
}

TEST_F(SectionDialog, ADocumentThatIsClosedTakesItAlong)
{
    openWithPlane();
    scene.test.application.closeDocument(scene.test.document);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(dialog);
}

TEST_F(SectionDialog, ADialogThatEndsDuringItsJobTellsTheEnd)
{
    openWithPlane();
    JobEvents const events;
    ui().ok->click();
    dialog->destruct();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(dialog);
    EXPECT_EQ(events.started, 1);
    EXPECT_EQ(events.ended, 1);
}

TEST_F(SectionDialog, ASecondPlaneCommandTakesThePlaneAway)
{
    openWithPlane();
    ui().planeButtons[3]->click();
    EXPECT_EQ(tool()->getPlaneType(), Freecut::PLANE_XY);
    EXPECT_FALSE(tool()->getPlaneObject());
    EXPECT_FALSE(ui().ok->isEnabled());
    EXPECT_FALSE(ui().planeButtons[0]->isChecked());
    EXPECT_TRUE(ui().planeButtons[3]->isChecked());
    // Pressed again it ends the tool.
    ui().planeButtons[3]->click();
    EXPECT_FALSE(tool());
}

TEST_F(SectionDialog, ThePartsThatItMeasuresAreThoseOfTheDocumentAsItIs)
{
    openWithPlane();
    EXPECT_EQ(ui().slider->maximum(), 302);
    Mesh::DocumentObject* const part = scene.test.document->getMeshObjects()[0];
    part->translate({0, 0, 10}, 0);
    EXPECT_EQ(ui().slider->value(), 51);
    Mesh::DocumentObject* const another = scene.test.add(box(1, 1, 1, {0, 0, 50}), "another");
    QCoreApplication::processEvents();
    EXPECT_EQ(ui().slider->maximum(), 412);
    another->setVisible(false);
    QCoreApplication::processEvents();
    EXPECT_EQ(ui().slider->maximum(), 302);
    another->setVisible(true);
    QCoreApplication::processEvents();
    EXPECT_EQ(ui().slider->maximum(), 412);
}

namespace {

/// The page of the host with a live cut.
class LiveCutPage
{
public:
    explicit LiveCutPage(DialogScene& scene)
    {
        for (QWidget* const child : pages.findChildren<CutView*>())
            view = static_cast<CutView*>(child);
        view->setView(&scene.view);
        scene.window.setSideControl(&pages);
    }
    SideControlTab pages;
    CutView* view = nullptr;
};

}  // namespace

TEST_F(SectionDialog, StartsOnThePlaneOfTheLiveCut)
{
    LiveCutPage page(scene);
    page.view->setAxis(CutView::AlongZ);
    page.view->setActive(true);
    page.view->setPosition(12);
    open();
    ASSERT_TRUE(tool() && tool()->getPlaneObject());
    EXPECT_EQ(tool()->getPlaneType(), Freecut::PLANE_XY);
    EXPECT_NEAR(center().Z(), 12, 1e-4);
    EXPECT_NEAR(ui().center[2]->value(), 12, 1e-4);
    // Opened again it keeps the plane that stands.
    type(ui().center[2], 20);
    open();
    ASSERT_TRUE(tool() && tool()->getPlaneObject());
    EXPECT_NEAR(center().Z(), 20, 1e-4);
}

TEST_F(SectionDialog, TakesASlantingLiveCutOver)
{
    LiveCutPage page(scene);
    page.view->setAxis(CutView::Free);
    page.view->setNormal({0, 3, 4});
    page.view->setActive(true);
    open();
    ASSERT_TRUE(tool() && tool()->getPlaneObject());
    EXPECT_EQ(tool()->getPlaneType(), Freecut::PLANE_3POINTS);
    EXPECT_NEAR(ui().normal[1]->value(), 0.6, 1e-5);
    EXPECT_NEAR(ui().normal[2]->value(), 0.8, 1e-5);
}
