// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/DialogPinHoleUI.h"
#include "dialogs/DialogSectioncut.h"
#include "dialogs/ToolButton.h"
#include "platform/ui/CutViewSlider.h"
#include "platform/ui/DialogWindowManager.h"
#include "platform/ui/MellQuantitySpinBox.h"
#include "platform/ui/PushButtonAnimate.h"
#include "platform/ui/ThemeSwitch.h"
#include "platform/view/NavigationStyle.h"
#include "selection/PlanecutSelection.h"
#include "selection/RunningTool.h"
#include "tests/app/SavedPieces.h"
#include "tests/support/BooleanJudge.h"
#include "tests/support/ModelFile.h"
#include "tests/support/SkipReasons.h"
#include "tests/support/Validator.h"
#include "tests/support/ViewEvents.h"
#include "tools/PlaneGraphicObject.h"

#include <QCheckBox>
#include <QComboBox>

#include <random>

namespace {

using Freecut::DialogSectioncut;
using Freecut::PlanecutSelection;
using Point = UPoint3<float>;

UBox3<float> boxOf(Soup const& soup)
{
    UBox3<float> box;
    for (Point const& point : soup.points)
        box.Add(point);
    return box;
}

/// The section cut by hand, in the shown window.
class SectionCutWindow : public AppWindow
{
protected:
    void SetUp() override
    {
        if (!hasDisplay())
            GTEST_SKIP() << displayIsMissing;
        AppWindow::SetUp();
        window->resize(1750, 950);
        show();
    }
    void TearDown() override
    {
        ThemeSwitch::setTheme(ThemeSwitch::Choice::Light);
        if (window)
            AppWindow::TearDown();
    }

    /// Opens a file with a model, seen from the front.
    bool openPart(char const* name)
    {
        QString const file = QString::fromStdString(modelFile(name, folder.path().toStdString()));
        window->files().openFiles({file});
        waitUntil([&] { return !window->files().isWorking(); });
        view().OnViewType(0);
        view().fitAll();
        settle();
        return test->application.activeDocument()->getMeshObjects().size() == 1;
    }

    Mesh::GLView& view() const { return window->view(); }
    Mesh::Document& document() const
    {
        return static_cast<Mesh::Document&>(*test->application.activeDocument());
    }
    DialogSectioncut* dialog() const
    {
        return static_cast<DialogSectioncut*>(
            DialogWindowManager::instance()->getDialogWindow("DialogSectioncut"));
    }
    Freecut::SectionCutWidgets const& ui() const { return dialog()->widgets(); }
    PlanecutSelection* tool() const { return Freecut::runningTool<PlanecutSelection>(&view()); }
    Freecut::PlaneProperty const& plane() const { return tool()->getPlaneObject()->getProperty(); }

    static void settle()
    {
        QElapsedTimer timer;
        timer.start();
        while (timer.elapsed() < 150)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    }

    QPoint positionOf(Point const& world) const
    {
        int x, y;
        view().getWidgetcoordFromWCS(world, x, y);
        return {x, y};
    }
    /// Clicks three points of the part that lie about the middle of the picture.
    void pickThreePoints()
    {
        QPoint const middle(view().width() / 2, view().height() / 2);
        int const step = view().height() / 12;
        for (QPoint const& way : {QPoint(-step, step), QPoint(step, step), QPoint(0, -step)})
            click(view(), middle + way);
        settle();
    }
    /// Drags a handle of the plane as a hand does.
    void dragHandle(int index, QPoint way, Qt::KeyboardModifiers modifiers = {})
    {
        QPoint const from = positionOf(plane().getKeyPoints()[std::size_t(index)]);
        move(view(), from, {}, modifiers);
        drag(view(), from, from + way, Qt::LeftButton, modifiers);
        settle();
    }
    static void type(MellQuantitySpinBox* field, double value)
    {
        field->setValue(value);
        emit field->editingFinished();
    }
    void openDialog()
    {
        trigger("Std_Sectioncut");
        settle();
        ASSERT_TRUE(dialog());
    }
    void cut()
    {
        ui().ok->click();
        ASSERT_TRUE(waitUntil([&] { return !dialog() && !JobGuard::instance()->isBusy(); }));
        settle();
    }
    std::vector<Soup> savedPieces() { return savedParts(document(), script, folder); }

    QTemporaryDir folder;
};

/// That two pieces share no room and lie within what they were cut from, by random points.
void expectFit(Soup const& whole, Soup const& first, Soup const& second)
{
    UBox3<float> const box = boxOf(whole);
    std::mt19937 random(23);
    int inside = 0, lost = 0;
    for (int i = 0; i < 400; ++i) {
        auto const between = [&](float low, float high) {
            return std::uniform_real_distribution<double>(low, high)(random);
        };
        UPoint3<double> const point(between(box.MinX(), box.MaxX()),
                                    between(box.MinY(), box.MaxY()),
                                    between(box.MinZ(), box.MaxZ()));
        int const here = windingNumberAt(whole, point);
        int const pieces = windingNumberAt(first, point) + windingNumberAt(second, point);
        EXPECT_LE(pieces, here);
        inside += here > 0;
        lost += here > 0 && pieces == 0;
    }
    EXPECT_GT(inside, 50);
    // Clearances only.
    EXPECT_LE(lost, inside / 20);
}

}  // namespace

TEST_F(SectionCutWindow, FromOpeningAFileToSavedPiecesWithPins)
{
    ASSERT_TRUE(openPart("spot-6k.stl"));
    Soup const whole = soupOf(document().getMeshObjects()[0]);
    double const size = boxOf(whole).max.Z() - boxOf(whole).min.Z();
    openDialog();
    takePicture("section-dialog-empty");
    EXPECT_EQ(view().getInteractModeName(), "Freecut::PlanecutSelection");
    pickThreePoints();
    ASSERT_TRUE(tool() && tool()->getPlaneObject());
    takePicture("section-plane-picked");

    Point const middle = (boxOf(whole).min + boxOf(whole).max) * 0.5f;
    for (int i = 0; i < 3; ++i)
        type(ui().center[std::size_t(i)], double(middle[i]));
    std::vector<Point> const before = plane().getCorners();
    dragHandle(5, {40, 30});
    EXPECT_NE(plane().getCorners(), before);
    EXPECT_TRUE(ui().ok->isEnabled());

    ui().useAdvanced->click();
    auto const fields = ui().pinHole->findChildren<MellQuantitySpinBox*>();
    type(fields[0], size / 40);
    type(fields[2], size / 20);
    type(fields[5], size / 8);
    settle();
    takePicture("section-pins-light");
    ThemeSwitch::setTheme(ThemeSwitch::Choice::Dark);
    settle();
    takePicture("section-pins-dark");
    ThemeSwitch::setTheme(ThemeSwitch::Choice::Light);

    cut();
    takePicture("section-cut");
    ASSERT_EQ(document().getMeshObjects().size(), 3u);
    EXPECT_FALSE(tool());
    std::vector<Soup> const saved = savedPieces();
    EXPECT_NEAR(volumeOf(saved[0]), volumeOf(whole), 1e-3 * volumeOf(whole));
    for (std::size_t i = 1; i < 3; ++i)
        EXPECT_EQ(closedSolidFaults(saved[i]), "") << "piece " << i;
    double const pieces = volumeOf(saved[1]) + volumeOf(saved[2]);
    EXPECT_LT(pieces, volumeOf(whole));
    EXPECT_GT(pieces, 0.95 * volumeOf(whole));
    expectFit(whole, saved[1], saved[2]);

    trigger("Std_Undo");
    EXPECT_EQ(document().getMeshObjects().size(), 1u);
    trigger("Std_Redo");
    EXPECT_EQ(document().getMeshObjects().size(), 3u);
}

TEST_F(SectionCutWindow, EveryKindOfPlaneCutsWithTheLapJoint)
{
    for (int type = 0; type < 6; ++type) {
        if (document().getMeshObjects().empty())
            test->add(box(60, 50, 40, {-30, -25, -20}), "block");
        view().OnViewType(6);
        view().fitAll();
        settle();
        Soup const whole = soupOf(document().getMeshObjects()[0]);
        openDialog();
        if (type > 0)
            ui().planeButtons[std::size_t(type)]->click();
        EXPECT_EQ(int(tool()->getPlaneType()), type);
        if (type == 0) {
            for (Point const& point : {Point(-20, 10, 20), Point(20, 10, 20), Point(3, -25, -5)})
                click(view(), positionOf(point));
        } else {
            click(view(), positionOf({0, 0, 20}));
        }
        settle();
        ASSERT_TRUE(tool()->getPlaneObject()) << type;
        // Through the middle, where a plane that lies on the surface cuts too.
        for (int i = 0; i < 3; ++i)
            this->type(ui().center[std::size_t(i)], 1.5 * i);
        ui().useAdvanced->click();
        ui().cutType->setCurrentIndex(1);
        settle();
        takePicture("section-lap-" + std::to_string(type));
        cut();
        ASSERT_EQ(document().getMeshObjects().size(), 3u) << type;
        std::vector<Soup> const saved = savedPieces();
        for (std::size_t i = 1; i < 3; ++i)
            EXPECT_EQ(closedSolidFaults(saved[i]), "") << type << ", piece " << i;
        expectFit(whole, saved[1], saved[2]);
        trigger("Std_Undo");
        ASSERT_EQ(document().getMeshObjects().size(), 1u);
    }
}
