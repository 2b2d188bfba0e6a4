// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/jobs/JobGuard.h"
#include "app/window/JobProgressBar.h"
#include "dialogs/DialogLapJointUI.h"
#include "dialogs/DialogPinHoleUI.h"
#include "platform/document/SupportDocumentObject.h"
#include "platform/ui/CutViewSlider.h"
#include "platform/ui/DialogWidgetGroup.h"
#include "platform/ui/StoredSettings.h"
#include "tests/app/MouseInWindow.h"
#include "tests/app/ToolWindow.h"
#include "tests/support/AnsweredMessages.h"
#include "tests/support/ModelFile.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QToolButton>
#include <QWheelEvent>

// The section dialog in the shown window, by keys and by a mouse over the window.
namespace {

using namespace Freecut;
using Names = std::vector<std::string>;

class SectionByHand : public ToolWindow
{
protected:
    void SetUp() override
    {
        ToolWindow::SetUp();
        if (!IsSkipped())
            mouse = std::make_unique<MouseInWindow>(*window);
    }

    SectionCutWidgets const& ui() const { return sectionDialog()->widgets(); }
    Points corners() const { return plane().getCorners(); }
    UVector3<float> normal() const
    {
        UVector3<float> n = (corners()[1] - corners()[0]) * (corners()[2] - corners()[1]);
        return n.Normalize();
    }
    void press(QWidget const& widget)
    {
        mouse->click(widget);
        settle();
    }
    /// On the box, as the room beside the text is nobody's.
    void tick(QCheckBox const& box)
    {
        mouse->click(box, {8, box.height() / 2});
        settle();
    }
    MellQuantitySpinBox* pinField(int index) const
    {
        return ui().pinHole->findChildren<MellQuantitySpinBox*>()[index];
    }
    MellQuantitySpinBox* jointField(int index) const
    {
        return ui().lapJoint->findChildren<MellQuantitySpinBox*>()[index];
    }
    void openConnectorPage(int kind)
    {
        addBlock();
        placeLevelPlane({5, 5, 15}, 3);
        ui().useAdvanced->click();
        ui().cutType->setCurrentIndex(kind);
        settle();
    }
    static bool waitForJob()
    {
        return waitUntil([] { return !JobGuard::instance()->isBusy(); });
    }

    std::unique_ptr<MouseInWindow> mouse;
};

}  // namespace

TEST_F(SectionByHand, ATypedCentreBeyondThePartsGoesBackToTheLastOne)
{
    addBlock();
    placeLevelPlane({5, 5, 15}, 3);
    Points const before = corners();
    for (char const* const beyond : {"15.1", "-15.1", "4000"}) {
        typeInto(ui().center[2], beyond);
        EXPECT_NEAR(ui().center[2]->value(), 3, 1e-6) << beyond;
        EXPECT_EQ(ui().center[2]->text(), "3.000") << beyond;
        EXPECT_EQ(corners(), before) << beyond;
    }
    typeInto(ui().center[2], "15");
    EXPECT_NEAR(corners()[0].Z(), 15, 1e-5);
}

TEST_F(SectionByHand, ANormalIsTestedWithEveryFieldAndNothingBecomesTheDirectionOfX)
{
    addBlock();
    placeLevelPlane({5, 5, 15}, 0);
    // So far beside the part that only a level plane goes through it.
    typeInto(ui().center[0], "500");
    EXPECT_NEAR(ui().center[0]->value(), 500, 1e-4);
    typeInto(ui().normal[0], "1");
    EXPECT_EQ(ui().normal[0]->value(), 0) << "(1, 0, 1) would miss the part";
    EXPECT_NEAR(normal().Z(), 1, 1e-6);
    typeInto(ui().normal[2], "0");
    EXPECT_EQ(ui().normal[0]->value(), 1);
    EXPECT_NEAR(normal().X(), 1, 1e-5);
}

TEST_F(SectionByHand, ATypedNormalLeavesTheRectangleAsItIs)
{
    addBlock();
    placeLevelPlane({5, 5, 15}, 0);
    Points const before = corners();
    typeInto(ui().normal[0], "0.3");
    typeInto(ui().normal[1], "-0.7");
    Points const after = corners();
    EXPECT_NEAR((after[1] - after[0]) | (after[2] - after[1]), 0, 1e-2);
    EXPECT_NEAR((after[1] - after[0]).GetLength(), (before[1] - before[0]).GetLength(), 1e-3);
    EXPECT_NEAR((after[2] - after[1]).GetLength(), (before[2] - before[1]).GetLength(), 1e-3);
    for (int i = 0; i < 3; ++i)
        EXPECT_NEAR((after[0][i] + after[2][i]) / 2, (before[0][i] + before[2][i]) / 2, 1e-4);
}

TEST_F(SectionByHand, WithoutPartsTheSliderMovesNothing)
{
    addBlock();
    placeLevelPlane({5, 5, 15}, 3);
    removeAllParts();
    Points const before = corners();
    ui().slider->setEnabled(true);
    ui().slider->setValue(ui().slider->value() + 1);
    settle();
    EXPECT_EQ(corners(), before);
    EXPECT_NEAR(ui().center[2]->value(), 3, 1e-6);
}

TEST_F(SectionByHand, SupportsAreAskedAboutOnceAndNothingIsLostByCancel)
{
    addBlock();
    for (float const x : {100.0f, 200.0f}) {
        Mesh::DocumentObject* const part = new Support::DocumentObject;
        part->meshProperty->setMesh(kernelOf(box(20, 20, 30, {x, 0, -15})).release(), true);
        document().addObject(part, "supported", true);
    }
    placeLevelPlane({5, 5, 15}, 3);
    tick(*ui().removeOriginal);
    ASSERT_TRUE(ui().removeOriginal->isChecked());
    QString const question =
        "One or more parts have support(s).The support(s) will be deleted. Do "
        "you want to continue your operation?";
    {
        AnsweredMessages const no("Cancel");
        press(*ui().ok);
        EXPECT_EQ(no.texts, QStringList{question});
        ASSERT_TRUE(waitForJob());
    }
    EXPECT_TRUE(sectionDialog() && planeTool()->getPlaneObject());
    EXPECT_EQ(document().getMeshObjects().size(), 3u);
    AnsweredMessages const yes("Yes");
    cutBySection();
    EXPECT_EQ(yes.texts, QStringList{question});
    EXPECT_EQ(document().getMeshObjects().size(), 6u);
}

TEST_F(SectionByHand, CutsAreTakenBackAndRepeatedWhileTheDialogIsOpen)
{
    addBlock();
    placeLevelPlane({5, 5, 15}, 3);
    ui().removeOriginal->click();
    cutBySection();
    ASSERT_EQ(test->names(), (Names{"block_cut1", "block_cut2"}));
    open("Std_Sectioncut");
    view().setFocus();
    pressUndo();
    EXPECT_EQ(test->names(), Names{"block"});
    ASSERT_TRUE(sectionDialog() && planeTool());
    pressRedo();
    EXPECT_EQ(test->names(), (Names{"block_cut1", "block_cut2"}));
    pressUndo();
    // What came back can be cut again, and its cut be taken back too.
    ui().planeButtons[PLANE_YZ]->click();
    clickAt({10, 0, 15});
    ASSERT_TRUE(planeTool()->getPlaneObject());
    EXPECT_EQ(ui().slider->maximum(), 602);
    cutBySection();
    EXPECT_EQ(test->names(), (Names{"block_cut1", "block_cut2"}));
    EXPECT_NEAR(document().getMeshObjects()[0]->getBoundingBox().MinX(), 10, 0.3);
    view().setFocus();
    pressUndo();
    EXPECT_EQ(test->names(), Names{"block"});
}

TEST_F(SectionByHand, APlaneIsKeptThroughThemeLanguageAndUnit)
{
    addBlock();
    placeLevelPlane({5, 5, 15}, 3);
    ui().useAdvanced->click();
    settle();
    Points const before = corners();
    ThemeSwitch::setTheme(ThemeSwitch::Choice::Dark);
    LanguageSwitch::setLanguage(LanguageSwitch::Choice::German);
    DisplayUnit::instance().setLength(DisplayUnit::Inch);
    settle();
    takePicture("section-kept-dark-german-inch");
    ASSERT_TRUE(planeTool() && planeTool()->getPlaneObject());
    EXPECT_EQ(corners(), before);
    EXPECT_EQ(ui().cancel->text(), "Abbrechen");
    EXPECT_EQ(ui().center[2]->value(), 3);
    EXPECT_NEAR(pinField(0)->value(), 2, 1e-9);
    typeInto(ui().center[2], "0.2");
    EXPECT_NEAR(corners()[0].Z(), 5.08, 1e-4);
    ui().useAdvanced->click();
    cutBySection();
    expectTwoPieces(blockVolume);
}

TEST_F(SectionByHand, ADialogOpenedTwiceIsOneAndAClosedOneComesBackWithoutAPlane)
{
    addBlock();
    placeLevelPlane({5, 5, 15}, 3);
    DialogSectioncut const* const first = sectionDialog();
    Points const before = corners();
    open("Std_Sectioncut");
    EXPECT_EQ(sectionDialog(), first);
    EXPECT_EQ(corners(), before);
    press(*ui().cancel);
    EXPECT_FALSE(sectionDialog() || planeTool());
    EXPECT_EQ(document().getObjectArray().size(), 1u);
    open("Std_Sectioncut");
    ASSERT_TRUE(sectionDialog());
    EXPECT_FALSE(planeTool()->getPlaneObject() || ui().ok->isEnabled());
    EXPECT_EQ(ui().normal[0]->value(), 1);
    EXPECT_EQ(ui().size[0]->value(), 0);
}

TEST_F(SectionByHand, AnotherFileOpensBesideThePlaneAndIsCutAsWell)
{
    addBlock();
    QTemporaryDir const folder;
    QString const file = folder.filePath("tower.stl");
    writeStl(box(10, 10, 100, {50, 0, -15}), file.toStdString());
    placeLevelPlane({5, 5, 15}, 3);
    int const range = ui().slider->maximum();
    window->files().openFiles({file});
    ASSERT_TRUE(waitUntil([&] { return !window->files().isWorking(); }));
    settle();
    ASSERT_TRUE(sectionDialog() && planeTool() && planeTool()->getPlaneObject());
    EXPECT_GT(ui().slider->maximum(), range);
    cutBySection();
    EXPECT_EQ(document().getMeshObjects().size(), 6u);
}

TEST_F(SectionByHand, WhileTheKeyCCutsNothingElseStartsAndThePlaneStays)
{
    Mesh::DocumentObject* const part = test->add(sphere(30, 400, 500), "ball");
    lookFrom(2);
    placeLevelPlane({0, 0, 30}, 3);
    part->setSelected(true, true, false);
    MainWindow::getViewSlider()->setHeight(-4);
    settle();
    view().setFocus();
    Points const before = corners();
    QTest::keyClick(window->windowHandle(), Qt::Key_C);
    {
        // However fast the cut is, the window is busy as long as this is there.
        JobGuard::Hold const hold;
        ASSERT_TRUE(waitUntil([&] { return !ui().ok->isEnabled(); }));
        EXPECT_FALSE(ui().cancel->isEnabled());
        mouse->click(*ui().ok);
        mouse->click(*ui().cancel);
    }
    ASSERT_TRUE(waitForJob());
    settle();
    EXPECT_EQ(document().getMeshObjects().size(), 2u) << "the two halves of the one cut";
    ASSERT_TRUE(sectionDialog() && planeTool() && planeTool()->getPlaneObject());
    EXPECT_EQ(corners(), before);
    EXPECT_TRUE(ui().ok->isEnabled());
    cutBySection();
    EXPECT_GT(document().getMeshObjects().size(), 2u);
}

TEST_F(SectionByHand, ACutThatIsCancelledLeavesAllAsItWasAndCanBeMadeAnew)
{
    test->add(sphere(30, 600, 800), "ball");
    lookFrom(2);
    placeLevelPlane({0, 0, 30}, 3);
    ui().useAdvanced->click();
    settle();
    Points const before = corners();
    AnsweredMessages const messages;
    press(*ui().ok);
    auto const* const cancel = window->statusLine().progress().findChild<QToolButton*>("CancelJob");
    ASSERT_TRUE(waitUntil([&] { return cancel->isVisible(); }));
    EXPECT_FALSE(ui().ok->isEnabled());
    QTest::keyClick(window->windowHandle(), Qt::Key_Escape);
    EXPECT_FALSE(cancel->isEnabled());
    ASSERT_TRUE(waitForJob());
    settle();
    EXPECT_TRUE(messages.texts.isEmpty());
    EXPECT_EQ(document().getMeshObjects().size(), 1u);
    EXPECT_FALSE(document().isModified());
    ASSERT_TRUE(sectionDialog() && planeTool() && planeTool()->getPlaneObject());
    EXPECT_EQ(corners(), before);
    EXPECT_TRUE(ui().ok->isEnabled());
    ui().useAdvanced->click();
    cutBySection();
    EXPECT_EQ(document().getMeshObjects().size(), 3u);
}

TEST_F(SectionByHand, AFailureSaysWhyInTheMessageAndInTheLog)
{
    Soup open = box(60, 40, 30, {-30, -20, -15});
    open.triangles.pop_back();
    test->add(open, "open block");
    lookFrom(2);
    placeLevelPlane({5, 5, 15}, 3);
    Points const before = corners();
    AnsweredMessages const messages;
    press(*ui().ok);
    ASSERT_TRUE(waitUntil([&] { return !messages.texts.isEmpty(); }));
    ASSERT_TRUE(waitForJob());
    EXPECT_EQ(messages.titles, QStringList{"Attention"});
    EXPECT_EQ(messages.texts, QStringList{"An error occurred in triangulate."});
    EXPECT_EQ(messages.buttons, (QStringList{"OK", "Show in View", "Repair and Cut Again"}));
    QString const name = "open block: ";
    QString reason = messages.details.join("");
    EXPECT_TRUE(reason.startsWith(name)) << reason.toStdString();
    reason.remove(0, name.size());
    EXPECT_TRUE(reason.contains("(30, -20, 3)")) << reason.toStdString();
    QString log;
    for (QPlainTextEdit const* const each : window->findChildren<QPlainTextEdit*>())
        log += each->toPlainText();
    EXPECT_TRUE(log.contains(reason)) << log.toStdString();
    EXPECT_EQ(document().getMeshObjects().size(), 1u);
    EXPECT_FALSE(document().isModified());
    ASSERT_TRUE(sectionDialog() && planeTool() && planeTool()->getPlaneObject());
    EXPECT_EQ(corners(), before);
}

TEST_F(SectionByHand, GroupsThatAreFoldedStaySoUnderTheirKeys)
{
    addBlock();
    open("Std_Sectioncut");
    QStringList const keys = {"SectionCutDlg/Selection", "SectionCutDlg/Plane",
                              "SectionCutDlg/Options", "SectionCutDlg/Advanced"};
    auto const groups = [&] { return sectionDialog()->findChildren<DialogWidgetGroup*>(); };
    ASSERT_EQ(groups().size(), 4);
    // From below, as those above would move them.
    for (int i = 3; i >= 0; --i)
        press(*groups()[i]->findChild<QAbstractButton*>());
    for (int i = 0; i < 4; ++i) {
        EXPECT_FALSE(groups()[i]->isExpanded()) << i;
        EXPECT_EQ(storedValue(keys[i], true), QVariant(false)) << i;
    }
    press(*ui().cancel);
    open("Std_Sectioncut");
    for (DialogWidgetGroup const* const group : groups())
        EXPECT_FALSE(group->isExpanded()) << group->titleName().toStdString();
}

TEST_F(SectionByHand, TheWheelOverAFieldIsLeftToThePage)
{
    openConnectorPage(0);
    auto const fields = sectionDialog()->findChildren<MellQuantitySpinBox*>();
    std::vector<double> values;
    for (MellQuantitySpinBox const* const field : fields)
        values.push_back(field->value());
    std::vector<QWidget*> places(fields.begin(), fields.end());
    places.push_back(ui().cutType);
    view().setFocus();
    for (QWidget* const place : places) {
        QPoint const middle = place->rect().center();
        QWheelEvent event(middle, place->mapToGlobal(middle), {}, {0, -120}, {}, {},
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(place, &event);
        EXPECT_FALSE(event.isAccepted()) << place->metaObject()->className();
    }
    EXPECT_EQ(ui().cutType->currentIndex(), 0);
    for (int i = 0; i < fields.size(); ++i)
        EXPECT_EQ(fields[i]->value(), values[std::size_t(i)]) << i;
}

TEST_F(SectionByHand, ATypedRadiusTakesSideDistanceSpacingAndToleranceAlong)
{
    openConnectorPage(0);
    EXPECT_EQ(pinField(3)->value(), 4);
    typeInto(pinField(0), "5");
    EXPECT_EQ(pinField(3)->value(), 5);
    EXPECT_NEAR(pinField(5)->value(), 10.02, 1e-6);
    typeInto(pinField(0), "2");
    typeInto(pinField(5), "1");
    EXPECT_NEAR(pinField(5)->value(), 4.02, 1e-6) << "no nearer than two holes need";
    typeInto(pinField(6), "1");
    EXPECT_GE(pinField(5)->value(), 6);
    typeInto(pinField(1), "3");
    EXPECT_LE(pinField(1)->value(), 2);
}

TEST_F(SectionByHand, TheSideDistanceGoesOffAndKeepsItsNumber)
{
    openConnectorPage(0);
    QCheckBox* box = nullptr;
    for (QCheckBox* const each : ui().pinHole->findChildren<QCheckBox*>())
        box = each->text().startsWith("Side distance") ? each : box;
    ASSERT_TRUE(box);
    for (int i = 0; i < 2; ++i) {
        box->setFocus(Qt::TabFocusReason);
        pressKey(Qt::Key_Space);
        EXPECT_EQ(pinField(3)->isEnabled(), i == 0);
        if (i == 0)
            typeInto(pinField(3), "7");
    }
    EXPECT_EQ(pinField(3)->value(), 7);
    EXPECT_EQ(ui().pinHole->paras().sidedistance, 7);
    EXPECT_FALSE(ui().pinHole->paras().isSidedis);
}

TEST_F(SectionByHand, TypedDepthAndSideDistanceLimitTheClearancesOfTheJoint)
{
    openConnectorPage(1);
    for (int const i : {2, 3, 4})
        typeInto(jointField(i), "0");
    EXPECT_EQ(ui().lapJoint->paras().notchClearance, 0);
    EXPECT_EQ(ui().lapJoint->paras().frontClearance, 0);
    typeInto(jointField(3), "1.5");
    typeInto(jointField(0), "1");
    EXPECT_EQ(jointField(3)->value(), 1);
    EXPECT_NEAR(jointField(4)->value(), 0.001, 1e-9) << "the least from now on";
    EXPECT_EQ(jointField(2)->value(), 0);
    typeInto(jointField(1), "0.5");
    EXPECT_NEAR(jointField(2)->value(), 0.001, 1e-9);
}
