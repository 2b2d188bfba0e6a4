// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/DialogLapJointUI.h"
#include "dialogs/DialogPinHoleUI.h"
#include "dialogs/ToolButton.h"
#include "platform/ui/CutViewSlider.h"
#include "tests/app/PieceGap.h"
#include "tests/app/SavedPieces.h"
#include "tests/app/ToolWindow.h"
#include "tests/support/BooleanJudge.h"
#include "tests/support/ModelFile.h"

#include <QCheckBox>
#include <QComboBox>

#include <random>

namespace {

using Point = UPoint3<float>;

constexpr double clearance = 0.2;

UBox3<float> boxOf(Soup const& soup)
{
    UBox3<float> box;
    for (Point const& point : soup.points)
        box.Add(point);
    return box;
}

/// The section cut by hand, in the shown window.
class SectionCutWindow : public ToolWindow
{
protected:
    void SetUp() override
    {
        ToolWindow::SetUp();
        if (!IsSkipped())
            window->resize(1750, 950);
    }

    bool openFile(QString const& file)
    {
        window->files().openFiles({file});
        waitUntil([&] { return !window->files().isWorking(); });
        return document().getMeshObjects().size() == 1;
    }
    /// Opens a file with a model, seen from the front.
    bool openPart(char const* name)
    {
        bool const isOpen =
            openFile(QString::fromStdString(modelFile(name, folder.path().toStdString())));
        lookFrom(0);
        return isOpen;
    }
    /// The same gap everywhere between the two pieces.
    void setClearances(int kind)
    {
        QWidget const* const page =
            kind == 0 ? static_cast<QWidget*>(ui().pinHole) : static_cast<QWidget*>(ui().lapJoint);
        auto const fields = page->findChildren<MellQuantitySpinBox*>();
        for (int const i : kind == 0 ? std::vector{4, 6, 7} : std::vector{2, 3, 4})
            enter(fields[i], clearance);
    }

    Freecut::SectionCutWidgets const& ui() const { return sectionDialog()->widgets(); }

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
    std::vector<Soup> savedPieces() { return savedParts(document(), script, folder); }

    QTemporaryDir folder;
};

/// That the pieces are apart by the clearance all over, and that it is all that is missing.
void expectGap(Soup const& whole, Soup const& first, Soup const& second)
{
    PieceGap const gap(whole, first, second);
    EXPECT_GT(gap.wallPoints, 8u);
    // Facets of a pin lie within the true circle by up to a hundredth.
    EXPECT_NEAR(gap.least, clearance, 0.011);
    EXPECT_NEAR(gap.median, clearance, 0.011);
    double const missing = volumeOf(whole) - volumeOf(first) - volumeOf(second);
    EXPECT_NEAR(missing, clearance * gap.wallArea, 0.1 * clearance * gap.wallArea);
}

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
    open("Std_Sectioncut");
    takePicture("section-dialog-empty");
    EXPECT_EQ(view().getInteractModeName(), "Freecut::PlanecutSelection");
    pickThreePoints();
    ASSERT_TRUE(planeTool() && planeTool()->getPlaneObject());
    EXPECT_TRUE(status().startsWith("Drag the middle square")) << status().toStdString();
    takePicture("section-plane-picked");

    Point const middle = (boxOf(whole).min + boxOf(whole).max) * 0.5f;
    for (int i = 0; i < 3; ++i)
        enter(ui().center[std::size_t(i)], double(middle[i]));
    std::vector<Point> const before = plane().getCorners();
    dragHandle(5, {40, 30});
    EXPECT_NE(plane().getCorners(), before);
    EXPECT_TRUE(ui().ok->isEnabled());

    ui().useAdvanced->click();
    auto const fields = ui().pinHole->findChildren<MellQuantitySpinBox*>();
    enter(fields[0], size / 40);
    enter(fields[2], size / 20);
    enter(fields[5], size / 8);
    settle();
    takePicture("section-pins-light");
    ThemeSwitch::setTheme(ThemeSwitch::Choice::Dark);
    settle();
    takePicture("section-pins-dark");
    ThemeSwitch::setTheme(ThemeSwitch::Choice::Light);

    cutBySection();
    takePicture("section-cut");
    ASSERT_EQ(document().getMeshObjects().size(), 3u);
    EXPECT_FALSE(planeTool());
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

// From a file on the disk to files on the disk, all by the mouse and by fields.
TEST_F(SectionCutWindow, EveryKindOfPlaneCutsWithPinsAndWithTheLapJoint)
{
    QTemporaryDir const source;
    std::string const file = source.filePath("block.stl").toStdString();
    Soup const whole = box(60, 50, 40, {-30, -25, -20});
    writeStl(whole, file);
    for (int type = 0; type < 6; ++type)
        for (int const kind : {0, 1}) {
            SCOPED_TRACE(type);
            SCOPED_TRACE(kind == 0 ? "pins" : "lap joint");
            ASSERT_TRUE(openFile(QString::fromStdString(file)));
            lookFrom(6);
            open("Std_Sectioncut");
            if (type > 0)
                ui().planeButtons[std::size_t(type)]->click();
            EXPECT_EQ(int(planeTool()->getPlaneType()), type);
            if (type == 0)
                for (Point const& point :
                     {Point(-20, 10, 20), Point(20, 10, 20), Point(3, -25, -5)})
                    clickAt(point);
            else
                clickAt({0, 0, 20});
            ASSERT_TRUE(planeTool()->getPlaneObject());
            // Through the middle, where a plane that lies on the surface cuts too.
            for (int i = 0; i < 3; ++i)
                enter(ui().center[std::size_t(i)], 1.5 * i);
            ui().useAdvanced->click();
            ui().cutType->setCurrentIndex(kind);
            setClearances(kind);
            settle();
            takePicture("section-kind-" + std::to_string(kind) + "-" + std::to_string(type));
            cutBySection();
            ASSERT_EQ(document().getMeshObjects().size(), 3u);
            std::vector<Soup> const saved = savedPieces();
            for (std::size_t i = 1; i < 3; ++i)
                EXPECT_EQ(closedSolidFaults(saved[i]), "") << "piece " << i;
            expectFit(whole, saved[1], saved[2]);
            // The corners of pins and tongue are as far away as their faces, those of holes farther.
            expectGap(whole, saved[2], saved[1]);
            removeAllParts();
        }
}
