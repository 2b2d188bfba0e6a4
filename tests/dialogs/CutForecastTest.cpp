// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/CutForecast.h"
#include "dialogs/DialogPolygoncut.h"
#include "dialogs/PolygonCutUI.h"
#include "dialogs/ToolButton.h"
#include "display/NewestWork.h"
#include "platform/jobs/EventNotify.h"
#include "platform/jobs/Exceptions.h"
#include "platform/ui/Command.h"
#include "platform/ui/DialogWindowManager.h"
#include "platform/ui/DisplayUnit.h"
#include "platform/ui/MellQuantitySpinBox.h"
#include "platform/ui/PushButtonAnimate.h"
#include "selection/PointLabel.h"
#include "selection/PolygoncutSelection.h"
#include "selection/RunningTool.h"
#include "selection/ToolEdit.h"
#include "tests/dialogs/DialogScene.h"
#include "tests/support/Validator.h"
#include "tests/support/ViewEvents.h"
#include "tools/PolygonGraphicObject.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QLabel>
#include <QPointer>
#include <QRadioButton>
#include <QTabWidget>

#include <atomic>
#include <cmath>
#include <condition_variable>
#include <mutex>
#include <new>
#include <stdexcept>

namespace {

using namespace Freecut;
using Point = UPoint3<float>;

/// The dialog on a block of 40 x 30 x 10 mm and one of 10 x 10 x 10 mm beside it, from above.
class Forecast : public testing::Test
{
protected:
    Forecast()
    {
        block = scene.test.add(box(40, 30, 10, {-20, -15, 0}), "block");
        small = scene.test.add(box(10, 10, 10, {30, -5, 0}), "small");
        scene.window.show();
        scene.view.fitAll();
        scene.test.application.commandManager().getCommandByName("Std_Polygoncut")->invoke(0);
        dialog = static_cast<DialogPolygoncut*>(
            DialogWindowManager::instance()->getDialogWindow("DialogPolygoncut"));
        paint();
    }
    ~Forecast() override
    {
        DisplayUnit::instance().setLength(DisplayUnit::Millimetre);
        if (dialog)
            dialog->destruct();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    /// As a picture of the view would.
    void paint()
    {
        QEvent event(QEvent::Paint);
        dialog->eventFilter(&scene.view, &event);
    }
    PolygonCutWidgets const& ui() const { return dialog->widgets(); }
    CutForecast& forecast() const { return *ui().forecast; }
    QPoint positionOf(float x, float y) const
    {
        int px, py;
        scene.view.getWidgetcoordFromWCS({x, y, 0}, px, py);
        return {px, py};
    }
    void draw(std::vector<UPoint2<float>> const& points)
    {
        for (auto const& p : points)
            click(scene.view, positionOf(p.X(), p.Y()));
        settle();
    }
    /// Across the block, from below to above.
    void drawAcross() { draw({{-10, -20}, {10, -20}, {10, 20}, {-10, 20}}); }
    /// Until all that was changed is told.
    void settle() const
    {
        QCoreApplication::processEvents();
        ASSERT_TRUE(waitUntil([&] { return !forecast().work().isBusy(); }));
        QCoreApplication::processEvents();
    }
    std::vector<VolumeForecast> const& parts() const { return forecast().result().forecasts; }
    bool says(QString const& text) const { return forecast().text().contains(text); }
    double drawnLength() const
    {
        if (!forecast().item() || !forecast().item()->isWorking())
            return 0;
        std::vector<float> const& v = forecast().item()->vertices();
        double length = 0;
        for (std::size_t i = 0; i + 5 < v.size(); i += 6)
            length +=
                double(UVector3<float>(v[i + 3] - v[i], v[i + 4] - v[i + 1], v[i + 5] - v[i + 2])
                           .GetLength());
        return length;
    }
    template <typename Button>
    Button* find(QWidget* page, QString const& text) const
    {
        for (Button* const button : page->findChildren<Button*>())
            if (button->text() == text)
                return button;
        return nullptr;
    }
    void setClearance(double clearance, char const* direction)
    {
        auto* const box = find<QCheckBox>(ui().polygon, "Clearance");
        if (!box->isChecked())
            box->click();
        find<QRadioButton>(ui().polygon, direction)->click();
        MellQuantitySpinBox* const field = ui().polygon->findChildren<MellQuantitySpinBox*>()[1];
        field->setValue(clearance);
        emit field->editingFinished();
        settle();
    }

    DialogScene scene;
    Mesh::DocumentObject* block;
    Mesh::DocumentObject* small;
    DialogPolygoncut* dialog;
};

}  // namespace

TEST_F(Forecast, TellsNothingUntilThereIsAToolThatCanCut)
{
    EXPECT_EQ(forecast().text(), "");
    EXPECT_FALSE(forecast().item());
    draw({{-10, -20}, {10, -20}});
    EXPECT_EQ(forecast().text(), "");
    EXPECT_FALSE(forecast().item());
}

TEST_F(Forecast, TellsTheFateOfEachPartAndDrawsTheLines)
{
    drawAcross();
    ASSERT_EQ(parts().size(), 2u);
    EXPECT_EQ(parts()[0].inside, 1u);
    EXPECT_EQ(parts()[0].outside, 2u);
    EXPECT_TRUE(says("block: Pieces: 3 (inside the tool 1, outside 2)"))
        << forecast().text().toStdString();
    EXPECT_TRUE(says("Parts that stay whole: 1")) << forecast().text().toStdString();
    // Two sections of 30 x 10 mm.
    EXPECT_NEAR(drawnLength(), 2 * 2 * (30 + 10), 0.1);
    EXPECT_FALSE(says("Gap"));
}

TEST_F(Forecast, ListsOnlyThePartsThatWillBeCut)
{
    drawAcross();
    block->setSelected(true, true, false);
    ui().selectedParts->click();
    settle();
    ASSERT_EQ(parts().size(), 1u);
    EXPECT_TRUE(forecast().text().startsWith("Pieces: 3 (")) << forecast().text().toStdString();
    // A part that goes takes its line along.
    ui().allParts->click();
    scene.test.document->removeObject(small);
    settle();
    EXPECT_EQ(parts().size(), 1u);
    scene.test.document->removeObject(block);
    settle();
    EXPECT_EQ(forecast().text(), "");
    EXPECT_FALSE(forecast().item());
}

TEST_F(Forecast, FollowsADragAndIsRightInTheEnd)
{
    drawAcross();
    QPoint const from = positionOf(10, 20);
    press(scene.view, from, Qt::LeftButton);
    for (int x = 0; x <= 40; x += 2) {
        move(scene.view, from + QPoint(x, 0), Qt::LeftButton);
        QCoreApplication::processEvents();
    }
    release(scene.view, from + QPoint(40, 0), Qt::LeftButton);
    settle();
    // Each edge that runs from below the block to above it, 30 mm apart, makes a section.
    double expected = 0, lean = 0;
    auto const points = runningTool<PolygoncutSelection>(&scene.view)->getPolygon()->getPoints();
    for (std::size_t i = 0; i < points.size(); ++i) {
        UVector3<float> const edge = points[(i + 1) % points.size()] - points[i];
        if (std::abs(edge.Y()) < 30)
            continue;
        lean = std::max(lean, std::abs(double(edge.X())));
        expected +=
            2 *
            (30 * std::hypot(double(edge.X()), double(edge.Y())) / std::abs(double(edge.Y())) + 10);
    }
    EXPECT_GT(lean, 1);
    EXPECT_NEAR(drawnLength(), expected, 0.1);
}

TEST_F(Forecast, MovesWithAPartThatIsMoved)
{
    drawAcross();
    UMatrix4<float> aside;
    aside(0, 3) = 100;
    block->setMatrix(aside, true, true);
    scene.view.redraw();
    paint();
    settle();
    EXPECT_TRUE(says("block: The part stays whole: the tool misses it."))
        << forecast().text().toStdString();
    EXPECT_EQ(drawnLength(), 0);
}

TEST_F(Forecast, TellsGapsAndWhatTheClearanceCloses)
{
    // A bridge 2 mm wide between two wide ends.
    drawAcross();
    PolygonGraphicObject& polygon = *runningTool<PolygoncutSelection>(&scene.view)->getPolygon();
    float const z = polygon.getPoints()[0].Z();
    polygon.getProperty().setKeyPoints({{-15, -12, z},
                                        {-2, -12, z},
                                        {-2, -1, z},
                                        {2, -1, z},
                                        {2, -12, z},
                                        {15, -12, z},
                                        {15, 12, z},
                                        {2, 12, z},
                                        {2, 1, z},
                                        {-2, 1, z},
                                        {-2, 12, z},
                                        {-15, 12, z}});
    polygon.getProperty().setEdgeRecords(std::vector<TeethEdge>(12));
    PointLabel::renew(polygon, &scene.view, std::vector<int>(12, 1), 0);
    finishEdit(polygon);
    setClearance(0.25, "Both sides");
    ASSERT_TRUE(forecast().result().fit.pieceGap);
    EXPECT_TRUE(says("Gap between the pieces: at least 0.5")) << forecast().text().toStdString();
    EXPECT_FALSE(says("closes")) << forecast().text().toStdString();
    setClearance(1.2, "Inside");
    EXPECT_TRUE(says("The clearance closes a neck")) << forecast().text().toStdString();
    EXPECT_EQ(parts()[0].inside, 2u);
    find<QCheckBox>(ui().polygon, "Clearance")->click();
    settle();
    EXPECT_FALSE(says("Gap"));
    EXPECT_FALSE(says("closes"));
    DisplayUnit::instance().setLength(DisplayUnit::Inch);
    setClearance(0.254, "Outside");
    EXPECT_TRUE(says("at least 0.01")) << forecast().text().toStdString();
}

TEST_F(Forecast, OfThePolygonGoesWithItAndComesForTheOtherTools)
{
    drawAcross();
    ui().reset->click();
    settle();
    EXPECT_EQ(forecast().text(), "");
    EXPECT_FALSE(forecast().item());
    for (int const tab : {1, 2}) {
        ui().tabs->setCurrentIndex(tab);
        settle();
        EXPECT_EQ(forecast().text(), "");
        click(scene.view, positionOf(0, 0));
        settle();
        EXPECT_TRUE(says("block: Pieces: 3 (inside the tool 1, outside 2)"))
            << tab << forecast().text().toStdString();
        EXPECT_GT(drawnLength(), 0);
    }
}

TEST_F(Forecast, IsWhatTheCutThenMakes)
{
    drawAcross();
    std::size_t const pieces = parts()[0].pieces();
    int ended = 0;
    auto const counting =
        QObject::connect(EventNotify::instance(), &EventNotify::endEvent, [&] { ++ended; });
    QPointer<DialogPolygoncut> const open = dialog;
    ui().ok->click();
    EXPECT_FALSE(forecast().item());
    ASSERT_TRUE(waitUntil([&] { return ended > 0; }));
    QObject::disconnect(counting);
    ASSERT_TRUE(waitUntil([&] {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return open.isNull();
    }));
    dialog = nullptr;
    std::size_t made = 0;
    for (Mesh::DocumentObject const* const part : scene.test.document->getMeshObjects())
        if (part != block && part != small && part->getBoundingBox().MaxX() < 25)
            made += componentsOf(soupOf(part));
    EXPECT_EQ(made, pieces);
}

// Of NewestWork.

TEST(NewestWork, DoesTheFirstAndTheLastOfManyRequestsAndSkipsThoseBetween)
{
    NewestWork work;
    std::mutex guard;
    std::condition_variable changed;
    bool isOpen = false;
    std::vector<int> done, told;
    for (int i = 0; i < 10; ++i)
        work.ask([&, i](NewestWork::Poll const&) {
            std::unique_lock lock(guard);
            changed.wait(lock, [&] { return isOpen; });
            done.push_back(i);
            return [&told, i] { told.push_back(i); };
        });
    EXPECT_TRUE(work.isBusy());
    {
        std::lock_guard const lock(guard);
        isOpen = true;
    }
    changed.notify_all();
    ASSERT_TRUE(waitUntil([&] { return !work.isBusy(); }));
    ASSERT_FALSE(done.empty());
    EXPECT_EQ(done.back(), 9);
    // The first may have begun before the others were asked for.
    EXPECT_LE(done.size(), 2u);
    EXPECT_EQ(told, done);
}

TEST(NewestWork, TellsWhyWorkCameToNothing)
{
    NewestWork work;
    int told = 0;
    QObject::connect(&work, &NewestWork::ready, [&] { ++told; });
    auto const failureOf = [&](auto const& failure) {
        work.ask([&](NewestWork::Poll const&) -> std::function<void()> { throw failure; });
        work.finish();
        EXPECT_FALSE(work.isBusy());
        return work.failure().toStdString();
    };
    EXPECT_EQ(failureOf(std::bad_alloc()),
              "There is not enough free memory; close other programs and try again.");
    EXPECT_EQ(failureOf(Mell::Exception("The part is open.")), "The part is open.");
    EXPECT_EQ(failureOf(std::runtime_error("A library's.")), "A library's.");
    EXPECT_EQ(failureOf(42), "This could not be found out.");
    EXPECT_EQ(told, 4);
    bool isDone = false;
    work.ask([&](NewestWork::Poll const&) { return [&] { isDone = true; }; });
    work.finish();
    EXPECT_TRUE(isDone);
    EXPECT_TRUE(work.failure().isEmpty());
    failureOf(std::bad_alloc());
    work.drop();
    EXPECT_TRUE(work.failure().isEmpty());
}

TEST(NewestWork, GivesOldWorkUpForNewerAndTellsNothingOfWhatWasDropped)
{
    NewestWork work;
    bool isTold = false;
    std::atomic<bool> hasBegun = false, isLeft = false;
    work.ask([&](NewestWork::Poll const& poll) -> std::function<void()> {
        hasBegun = true;
        struct Leaving
        {
            std::atomic<bool>& flag;
            ~Leaving() { flag = true; }
        } const leaving{isLeft};
        for (;;)
            poll();
    });
    ASSERT_TRUE(waitUntil([&] { return hasBegun.load(); }));
    work.drop();
    EXPECT_FALSE(work.isBusy());
    ASSERT_TRUE(waitUntil([&] { return isLeft.load(); }));
    work.ask([&](NewestWork::Poll const&) { return [&] { isTold = true; }; });
    work.finish();
    EXPECT_TRUE(isTold);
    EXPECT_FALSE(work.isBusy());
}
