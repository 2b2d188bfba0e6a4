// SPDX-License-Identifier: GPL-3.0-or-later
#include "connectors/PinHoleCutter.h"
#include "dialogs/ConnectorPicking.h"
#include "dialogs/ConnectorPreview.h"
#include "dialogs/DialogLapJointUI.h"
#include "dialogs/DialogPinHoleUI.h"
#include "dialogs/DialogSectioncut.h"
#include "dialogs/PresetButton.h"
#include "dialogs/StoredPresets.h"
#include "dialogs/ToolButton.h"
#include "display/ConnectorItem.h"
#include "platform/jobs/EventNotify.h"
#include "platform/ui/Command.h"
#include "platform/ui/DialogWindowManager.h"
#include "platform/ui/MellQuantitySpinBox.h"
#include "platform/ui/PushButtonAnimate.h"
#include "selection/EditHistory.h"
#include "selection/PlanecutSelection.h"
#include "selection/RunningTool.h"
#include "tests/dialogs/DialogScene.h"
#include "tests/support/Validator.h"
#include "tests/support/ViewEvents.h"
#include "tools/PlaneGraphicObject.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QPointer>
#include <QTemporaryDir>

#include <cmath>
#include <numbers>

namespace {

namespace ConnectorPicking = Freecut::ConnectorPicking;
using Freecut::ConnectorPreview;
using Freecut::DialogSectioncut;
using Freecut::PlanecutSelection;
using Freecut::PlaneGraphicObject;
using Point = UPoint3<float>;
using Points = std::vector<Point>;

constexpr float partHeight = 30;
constexpr float planeHeight = 15;

/// A block of 60 x 40 x 30 mm seen from above, with a level plane through its middle.
class Preview : public testing::Test
{
protected:
    Preview() : part(scene.test.add(box(60, 40, partHeight, {-30, -20, 0}), "block"))
    {
        scene.view.fitAll();
    }
    ~Preview() override
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
        tool()->setPlaneByCenterAndNormal({0, 0, planeHeight}, {0, 0, 1});
    }
    void openWithPins()
    {
        open();
        ui().useAdvanced->click();
        settle();
    }
    Freecut::SectionCutWidgets const& ui() const { return dialog->widgets(); }
    ConnectorPreview& preview() const { return *ui().preview; }
    PlanecutSelection* tool() const { return Freecut::runningTool<PlanecutSelection>(&scene.view); }
    PlaneGraphicObject& plane() const { return *tool()->getPlaneObject(); }

    /// Until all that was changed is shown.
    void settle() const
    {
        QCoreApplication::processEvents();
        ASSERT_TRUE(waitUntil([&] { return !preview().runner().isBusy(); }));
        QCoreApplication::processEvents();
    }
    bool isSomethingShown() const { return preview().item() && preview().item()->isWorking(); }
    std::vector<ChosenConnector> const& connectors() const
    {
        return preview().runner().result().surveys.at(0).connectors;
    }
    Points standing() const { return standingPositions(connectors()); }

    QPoint positionOf(Point const& p) const
    {
        int x, y;
        scene.view.getWidgetcoordFromWCS(p, x, y);
        return {x, y};
    }
    void clickAt(Point const& p, Qt::KeyboardModifiers modifiers = {})
    {
        click(scene.view, positionOf(p), Qt::LeftButton, modifiers);
        settle();
    }
    /// The place well within the section that is farthest from all connectors.
    Point freePlace() const
    {
        Point best;
        float most = 0;
        for (float x = -26; x <= 26; x += 0.5f)
            for (float y = -16; y <= 16; y += 0.5f) {
                Point const place(x, y, planeHeight);
                float nearest = 1e9f;
                for (ChosenConnector const& connector : connectors())
                    nearest = std::min(nearest, (connector.position - place).GetLength());
                if (nearest > most) {
                    most = nearest;
                    best = place;
                }
            }
        return best;
    }

    MellQuantitySpinBox* pinField(int index) const
    {
        return ui().pinHole->findChildren<MellQuantitySpinBox*>()[index];
    }
    void cut()
    {
        int ended = 0;
        auto const counting =
            QObject::connect(EventNotify::instance(), &EventNotify::endEvent, [&] { ++ended; });
        ui().ok->click();
        ASSERT_TRUE(waitUntil([&] { return ended > 0; }));
        QObject::disconnect(counting);
    }
    /// How many pins the lower piece has.
    double pinsOfThePiece(PinHoleParas const& paras) const
    {
        auto const pieces = scene.test.document->getMeshObjects();
        double lowest = 1e9;
        for (auto const* const piece : pieces)
            if (piece != part)
                lowest =
                    std::min(lowest, std::abs(volumeOf(soupOf(piece)) - 60 * 40 * planeHeight));
        double const segments = 63;
        double const area =
            segments / 2 * paras.radius * paras.radius * std::sin(2 * std::numbers::pi / segments);
        return lowest / (area * paras.height);
    }

    DialogScene scene;
    Mesh::DocumentObject* part;
    QPointer<DialogSectioncut> dialog;
};

ConnectorPicking::Sight sightDown(float x, float y)
{
    return {{x, y, 100}, {0, 0, 1}};
}

}  // namespace

TEST_F(Preview, ShowsThePinsWhereTheCutPutsThem)
{
    open();
    EXPECT_FALSE(isSomethingShown());
    ui().useAdvanced->click();
    settle();
    ASSERT_TRUE(isSomethingShown());
    PinHoleCutter cutter(ui().pinHole->paras(), false, {part}, &plane());
    cutter.execute({});
    EXPECT_EQ(standing(), cutter.sections().at(part).positions);
    EXPECT_EQ(preview().text(),
              QString("Connectors: %1").arg(cutter.sections().at(part).positions.size()));
}

TEST_F(Preview, FollowsEveryValueThePlaneAndTheKind)
{
    openWithPins();
    std::size_t const before = standing().size();
    pinField(5)->setValue(20);
    settle();
    EXPECT_LT(standing().size(), before);
    ui().center[2]->setValue(28);
    emit ui().center[2]->editingFinished();
    settle();
    for (Point const& p : standing())
        EXPECT_EQ(p.Z(), 28);
    // Five millimetres high, two below the top.
    for (ChosenConnector const& connector : connectors())
        EXPECT_TRUE(connector.leavesPart);
    EXPECT_TRUE(preview().text().contains("leave the part")) << preview().text().toStdString();
    ui().cutType->setCurrentIndex(1);
    settle();
    EXPECT_TRUE(isSomethingShown());
    EXPECT_NE(preview().runner().result().surveys.at(0).tongue.size(), 0u);
}

TEST_F(Preview, GoesWithThePlaneThePartAndTheDialog)
{
    openWithPins();
    ui().useAdvanced->click();
    settle();
    EXPECT_FALSE(isSomethingShown());
    ui().useAdvanced->click();
    settle();
    ASSERT_TRUE(isSomethingShown());
    tool()->resetSelection();
    settle();
    EXPECT_FALSE(isSomethingShown());
    tool()->setPlaneByCenterAndNormal({0, 0, planeHeight}, {0, 0, 1});
    settle();
    ASSERT_TRUE(isSomethingShown());
    scene.test.document->removeObject(part);
    settle();
    EXPECT_FALSE(isSomethingShown());
    EXPECT_TRUE(preview().text().isEmpty());
}

TEST_F(Preview, OfManyChangesTheLastOneIsShown)
{
    openWithPins();
    for (int i = 0; i < 200; ++i) {
        pinField(5)->setValue(8 + i * 0.05);
        if (i % 10 == 0)
            QCoreApplication::processEvents();
    }
    settle();
    PinHoleCutter cutter(ui().pinHole->paras(), false, {part}, &plane());
    cutter.execute({});
    EXPECT_EQ(standing(), cutter.sections().at(part).positions);
}

TEST_F(Preview, AClickLeavesAConnectorOutAndASecondBringsItBack)
{
    openWithPins();
    preview().byHandBox()->click();
    settle();
    Points const before = standing();
    for (std::size_t const i : {std::size_t(0), before.size() / 2}) {
        clickAt(before[i]);
        EXPECT_EQ(connectors()[i].state, ChosenConnector::State::LeftOut) << i;
        EXPECT_EQ(standing().size(), before.size() - 1);
        EXPECT_EQ(preview().text(),
                  QString("Connectors: %1 of %2").arg(before.size() - 1).arg(before.size()));
        clickAt(before[i]);
        EXPECT_EQ(standing(), before);
    }
}

TEST_F(Preview, AClickOnAFreePlaceAddsAConnectorThatStays)
{
    openWithPins();
    preview().byHandBox()->click();
    settle();
    std::size_t const before = standing().size();
    Point const place = freePlace();
    clickAt(place);
    ASSERT_EQ(standing().size(), before + 1);
    ASSERT_TRUE(connectors().back().isAdded);
    Point const added = connectors().back().position;
    EXPECT_LT((added - place).GetLength(), 0.5f);
    EXPECT_EQ(added.Z(), planeHeight);
    pinField(6)->setValue(0.3);
    pinField(7)->setValue(0.2);
    settle();
    EXPECT_EQ(connectors().back().position, added);
    // Outside the part there is nothing to put one on.
    clickAt({-40, 0, planeHeight});
    EXPECT_TRUE(connectors().back().position == added);
    preview().anewButton()->click();
    settle();
    EXPECT_FALSE(connectors().back().isAdded);
}

TEST_F(Preview, WithShiftAPlaceSnapsToTheContour)
{
    openWithPins();
    preview().byHandBox()->click();
    settle();
    clickAt({-29.4f, -11, planeHeight}, Qt::ShiftModifier);
    ASSERT_TRUE(connectors().back().isAdded);
    EXPECT_EQ(connectors().back().position.X(), -30);
    EXPECT_TRUE(connectors().back().leavesPart);
}

TEST_F(Preview, TheCutMakesWhatTheViewShows)
{
    openWithPins();
    preview().byHandBox()->click();
    settle();
    PinHoleParas const paras = ui().pinHole->paras();
    Points const automatic = standing();
    clickAt(automatic[0]);
    clickAt(automatic[1]);
    clickAt(freePlace());
    Points const shown = standing();
    ASSERT_EQ(shown.size(), automatic.size() - 1);
    cut();
    EXPECT_NEAR(pinsOfThePiece(paras), double(shown.size()), 1e-2);
}

TEST_F(Preview, WithoutAChangeByHandTheCutPlacesTheConnectorsItself)
{
    openWithPins();
    EXPECT_TRUE(preview().positions().empty());
    preview().byHandBox()->click();
    settle();
    EXPECT_TRUE(preview().positions().empty());
    clickAt(standing()[0]);
    EXPECT_EQ(preview().positions().at(part), standing());
    clickAt(connectors()[0].position);
    EXPECT_TRUE(preview().positions().empty());
}

TEST_F(Preview, ClicksWithoutTheModeDoNotTouchTheConnectors)
{
    openWithPins();
    Points const before = standing();
    clickAt(before[0]);
    EXPECT_EQ(standing(), before);
}

TEST_F(Preview, WhatIsChangedByHandIsTakenBackWithTheEditsOfThePlane)
{
    openWithPins();
    preview().byHandBox()->click();
    settle();
    Freecut::EditHistory& history = *Freecut::runningHistory(&scene.view);
    auto const undo = [&] {
        history.undo();
        settle();
    };
    Points const automatic = standing();
    clickAt(automatic[0]);
    Points const less = standing();
    clickAt(freePlace());
    Points const more = standing();
    tool()->setNudge(1);
    QKeyEvent up(QEvent::KeyPress, Qt::Key_Up, Qt::NoModifier);
    QCoreApplication::sendEvent(&scene.view, &up);
    settle();
    Points const moved = standing();
    ASSERT_EQ(moved.back().Z(), planeHeight + 1);
    preview().anewButton()->click();
    settle();
    EXPECT_FALSE(preview().anewButton()->isEnabled());

    undo();
    EXPECT_TRUE(preview().anewButton()->isEnabled());
    EXPECT_EQ(standing(), moved);
    undo();
    EXPECT_EQ(standing(), more);
    undo();
    EXPECT_EQ(standing(), less);
    undo();
    EXPECT_EQ(standing(), automatic);
    EXPECT_FALSE(preview().anewButton()->isEnabled());
    for (int i = 0; i < 2; ++i)
        history.redo();
    settle();
    EXPECT_EQ(standing(), more);
    EXPECT_EQ(preview().positions().at(part), more);
}

TEST_F(Preview, AToolThatStartsAnewDoesNotTakeBackWhatWasChangedByHandBefore)
{
    openWithPins();
    preview().byHandBox()->click();
    settle();
    clickAt(standing()[0]);
    Points const less = standing();
    scene.view.stopSelection();
    settle();
    ui().planeButtons[3]->click();
    tool()->setPlaneByCenterAndNormal({0, 0, planeHeight}, {0, 0, 1});
    settle();
    ASSERT_EQ(standing(), less);
    Freecut::EditHistory& history = *Freecut::runningHistory(&scene.view);
    history.undo();
    history.redo();
    settle();
    EXPECT_EQ(standing(), less);
}

// A part that comes to stand in memory where another one was must not get that one's connectors.
TEST_F(Preview, WhatWasChangedOnAPartThatHasGoneIsForgotten)
{
    openWithPins();
    preview().byHandBox()->click();
    settle();
    clickAt(standing()[0]);
    ASSERT_EQ(connectors()[0].state, ChosenConnector::State::LeftOut);
    preview().objectGoes(part);
    settle();
    EXPECT_EQ(connectors()[0].state, ChosenConnector::State::Stands);
    EXPECT_TRUE(preview().positions().empty());
    clickAt(standing()[0]);
    EXPECT_EQ(connectors()[0].state, ChosenConnector::State::LeftOut);
    Freecut::runningHistory(&scene.view)->undo();
    settle();
    EXPECT_EQ(connectors()[0].state, ChosenConnector::State::Stands);
}

TEST_F(Preview, PresetsAreKeptTakenUpExportedAndImported)
{
    openWithPins();
    pinField(0)->setValue(1.5);
    pinField(6)->setValue(0.25);
    preview().presets()->saveAs("PETG");
    pinField(0)->setValue(3);
    ASSERT_EQ(Freecut::StoredPresets::all().size(), 1u);
    preview().presets()->choose(Freecut::StoredPresets::all()[0]);
    EXPECT_EQ(pinField(0)->value(), 1.5);
    EXPECT_EQ(pinField(6)->value(), 0.25);
    QTemporaryDir const folder;
    QString const file = folder.filePath("narrow.json");
    ui().cutType->setCurrentIndex(1);
    preview().presets()->exportTo(file);
    Freecut::StoredPresets::remove("PETG");
    EXPECT_TRUE(Freecut::StoredPresets::all().empty());
    pinField(0)->setValue(3);
    ui().cutType->setCurrentIndex(0);
    preview().presets()->importFrom(file);
    EXPECT_EQ(pinField(0)->value(), 1.5);
    EXPECT_EQ(ui().cutType->currentIndex(), 1);
    ASSERT_EQ(Freecut::StoredPresets::all().size(), 1u);
    EXPECT_EQ(Freecut::StoredPresets::all()[0].name, "narrow");
    AnsweredMessages const messages;
    preview().presets()->importFrom(folder.filePath("missing.json"));
    ASSERT_EQ(messages.texts.size(), 1);
    EXPECT_TRUE(messages.texts[0].contains("missing.json"));
}

TEST(ConnectorPicking, FindsTheConnectorWhoseAxisIsNearestToTheSight)
{
    TestDocument test;
    PlaneGraphicObject plane;
    plane.getProperty().setCorners({-10, -10, 5}, {10, -10, 5}, {10, 10, 5}, true);
    plane.getProperty().updateKeyPoints();
    SectionPlanes const planes(plane, UBox3<float>(), false);
    SectionSurvey survey;
    survey.connectors = {{{0, 0, 5}}, {{3, 0, 5}}};
    PinHoleParas paras;
    auto const at = [&](float x, float y) {
        return ConnectorPicking::connectorAt(sightDown(x, y), paras, planes.frame(), survey);
    };
    EXPECT_EQ(at(0.5f, 0), 0u);
    EXPECT_EQ(at(1.6f, 0), 1u);
    EXPECT_FALSE(at(0, 2.1f));
    // From the side the whole length of it counts.
    ConnectorPicking::Sight const side{{1.5f, -50, 9}, {0, 1, 0}};
    EXPECT_TRUE(ConnectorPicking::connectorAt(side, paras, planes.frame(), survey));
    ConnectorPicking::Sight const above{{1.5f, -50, 12.5f}, {0, 1, 0}};
    EXPECT_FALSE(ConnectorPicking::connectorAt(above, paras, planes.frame(), survey));
    EXPECT_FALSE(ConnectorPicking::placeOnPlane(side, planes.frame()));
    EXPECT_EQ(*ConnectorPicking::placeOnPlane(sightDown(2, 3), planes.frame()), Point(2, 3, 5));
}

TEST(ConnectorPicking, AHoleOfTheSectionIsNotOnIt)
{
    PlaneGraphicObject plane;
    plane.getProperty().setCorners({-10, -10, 0}, {10, -10, 0}, {10, 10, 0}, true);
    plane.getProperty().updateKeyPoints();
    SectionPlanes const planes(plane, UBox3<float>(), false);
    SectionSurvey survey;
    survey.contours = {{{-5, -5, 0}, {-5, -5, 0}, {-5, 5, 0}, {5, 5, 0}, {5, -5, 0}},
                       {{-1, -1, 0}, {-1, -1, 0}, {1, -1, 0}, {1, 1, 0}, {-1, 1, 0}}};
    survey.centreLines = {{{-3, 0, 0}, {-3, 4, 0}}};
    auto const isOn = [&](Point const& p) {
        return ConnectorPicking::isOnSection(p, planes.frame(), survey);
    };
    EXPECT_TRUE(isOn({3, 0, 0}));
    EXPECT_FALSE(isOn({0, 0, 0}));
    EXPECT_FALSE(isOn({6, 0, 0}));
    EXPECT_EQ(*ConnectorPicking::snapped({-2.8f, 2, 0}, survey, 0.5f), Point(-3, 2, 0));
    EXPECT_EQ(*ConnectorPicking::snapped({0.75f, 0.5f, 0}, survey, 0.5f), Point(1, 0.5f, 0));
    EXPECT_FALSE(ConnectorPicking::snapped({3, 0, 0}, survey, 0.5f));
}

TEST_F(Preview, ASurveyThatFailsLeavesNothingOfTheOneBefore)
{
    openWithPins();
    ASSERT_FALSE(connectors().empty());
    auto& work = static_cast<Freecut::NewestWork&>(preview().runner());
    work.ask(
        [](Freecut::NewestWork::Poll const&) -> std::function<void()> { throw std::bad_alloc(); });
    work.finish();
    EXPECT_TRUE(preview().runner().result().surveys.empty());
    EXPECT_TRUE(preview().text().contains("There is not enough free memory"));
    EXPECT_FALSE(isSomethingShown());
}
