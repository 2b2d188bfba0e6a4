// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/CuboidCutUI.h"
#include "dialogs/CutForecast.h"
#include "dialogs/DialogAddTeethUI.h"
#include "dialogs/DialogCoordinateUI.h"
#include "dialogs/PolygonCutUI.h"
#include "dialogs/ToolButton.h"
#include "display/VolumeViewProvider.h"
#include "platform/ui/MellSpinBox.h"
#include "tests/app/PieceGap.h"
#include "tests/app/SavedPieces.h"
#include "tests/app/ToolWindow.h"
#include "tests/support/MadeModels.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QRadioButton>
#include <QTabWidget>

namespace {

using namespace Freecut;

/// The volume cut by hand, in the shown window.
class PolygonCutWindow : public ToolWindow
{
protected:
    /// Shows a real model or, where it is missing, one made in the same manner, from the front.
    void openPart(std::string const& file)
    {
        if (!addFile(file))
            test->add(mechanicalPlate(), "plate");
        lookFrom(0);
    }
    DialogPolygoncut* dialog() const { return polygonDialog(); }
    PolygonCutWidgets const& ui() const { return dialog()->widgets(); }

    void openDialog()
    {
        open("Std_Polygoncut");
        ASSERT_TRUE(dialog());
    }
    /// Clicks points of the picture, given as shares of the part's box.
    void clickShares(UBox3<float> const& box, std::vector<UPoint2<float>> const& shares)
    {
        for (UPoint2<float> const& share : shares)
            click(view(), positionOf(placeIn(box, share)));
        settle();
    }
    static Point placeIn(UBox3<float> const& box, UPoint2<float> const& share)
    {
        return {box.MinX() + share.X() * (box.MaxX() - box.MinX()), box.MinY(),
                box.MinZ() + share.Y() * (box.MaxZ() - box.MinZ())};
    }
    template <typename Widget>
    Widget* find(QWidget* parent, QString const& text) const
    {
        for (Widget* const widget : parent->findChildren<Widget*>())
            if (widget->text() == text)
                return widget;
        return nullptr;
    }
    /// The field beside a label or check box of a page.
    MellQuantitySpinBox* field(QWidget* page, int index) const
    {
        return page->findChildren<MellQuantitySpinBox*>()[index];
    }
    /// Turns the clearance of a page on, on the outside.
    void setClearance(QWidget* page, double clearance)
    {
        find<QCheckBox>(page, "Clearance")->click();
        find<QRadioButton>(page, "Outside")->click();
        for (MellQuantitySpinBox* const spin : page->findChildren<MellQuantitySpinBox*>())
            if (spin->value() == 0.1)
                enter(spin, clearance);
        settle();
    }
    /// Cuts, and notes what the dialog has said of the cut before.
    void cut()
    {
        ASSERT_TRUE(waitUntil([&] { return !ui().forecast->work().isBusy(); }));
        forecast = ui().forecast->result();
        cutByShape();
    }
    std::vector<Soup> pieces() { return savedParts(document(), script, folder); }
    /// Whole part, then what lies within the tool, then the rest: closed, apart by the clearance,
    /// and together the whole but for the gap.
    void expectCut(double clearance)
    {
        std::vector<Soup> const found = pieces();
        ASSERT_EQ(found.size(), 3u);
        double const whole = volumeOf(found[0]);
        double const both = volumeOf(found[1]) + volumeOf(found[2]);
        EXPECT_EQ(closedSolidFaults(found[1]), "");
        EXPECT_EQ(closedSolidFaults(found[2]), "");
        PieceGap const gap(found[0], found[1], found[2]);
        EXPECT_GT(gap.wallPoints, 20u);
        EXPECT_NEAR(gap.least, clearance, 0.003);
        EXPECT_NEAR(gap.median, clearance, 0.003);
        EXPECT_NEAR(whole - both, clearance * gap.wallArea, 0.05 * clearance * gap.wallArea);
        expectForecast(found, gap);
    }
    /// What was told before the cut is what it has made.
    void expectForecast(std::vector<Soup> const& found, PieceGap const& gap) const
    {
        ASSERT_EQ(forecast.forecasts.size(), 1u);
        EXPECT_EQ(forecast.forecasts[0].inside, componentsOf(found[1]));
        EXPECT_EQ(forecast.forecasts[0].outside, componentsOf(found[2]));
        EXPECT_FALSE(forecast.forecasts[0].contours.empty());
        ASSERT_TRUE(forecast.fit.pieceGap);
        EXPECT_NEAR(*forecast.fit.pieceGap, gap.least, 0.003);
    }

    QTemporaryDir folder;
    ForecastResult forecast;
};

}  // namespace

TEST_F(PolygonCutWindow, FromADrawnPolygonToDovetailedPieces)
{
    openPart("fandisk-13k.stl");
    UBox3<float> const box = document().getMeshObjects()[0]->getBoundingBox();
    float const width = box.MaxX() - box.MinX();
    openDialog();
    takePicture("polygon-dialog-empty");
    EXPECT_EQ(view().getInteractModeName(), "Freecut::PolygoncutSelection");
    EXPECT_FALSE(ui().ok->isEnabled());

    // A rectangle around the lower half; its upper edge runs across the part.
    clickShares(box, {{1.1f, 0.45f}, {-0.1f, 0.45f}, {-0.1f, -0.1f}, {1.1f, -0.1f}});
    ASSERT_TRUE(polygonTool() && polygonTool()->getPolygon());
    EXPECT_EQ(polygonTool()->getPolygon()->getPoints().size(), 4u);
    EXPECT_TRUE(ui().ok->isEnabled());
    find<QCheckBox>(dialog(), "Show coordinate")->click();
    settle();
    takePicture("polygon-drawn");

    find<PushButtonAnimate>(ui().polygon, "Add Teeth")->click();
    settle();
    DialogAddTeethUI* const teeth = ui().polygon->teethDialog();
    ASSERT_TRUE(teeth && teeth->isVisible());
    EXPECT_FALSE(ui().ok->isEnabled());
    teeth->findChild<QTabWidget*>()->setCurrentIndex(1);
    auto const fields =
        teeth->findChild<QTabWidget*>()->widget(1)->findChildren<MellQuantitySpinBox*>();
    enter(fields[0], double(width) * 0.12);
    enter(fields[1], double(width) * 0.07);
    enter(fields[2], double(width) * 0.06);
    find<QRadioButton>(teeth, "Count")->click();
    auto* const count = teeth->findChild<MellSpinBox*>();
    count->setValue(5);
    emit count->editingFinished();
    QPoint const onEdge = positionOf(placeIn(box, {0.5f, 0.45f}));
    move(view(), onEdge);
    click(view(), onEdge);
    settle();
    takePicture("polygon-teeth-light");
    EXPECT_EQ(polygonTool()->getTeethParas().teethStyle, 1);
    find<PushButtonAnimate>(teeth, "OK")->click();
    settle();
    EXPECT_FALSE(teeth->isVisible());
    EXPECT_TRUE(ui().ok->isEnabled());

    constexpr double clearance = 0.15;
    setClearance(ui().polygon, clearance);
    ui().startPreview->click();
    settle();
    EXPECT_TRUE(ui().stopPreview->isEnabled());
    EXPECT_FALSE(ui().startPreview->isEnabled());
    std::vector<Point> const drawn = polygonTool()->getPolygon()->getPoints();
    drag(view(), {300, 300}, {420, 220}, Qt::RightButton);
    settle();
    EXPECT_EQ(polygonTool()->getPolygon()->getPoints(), drawn);
    takePicture("polygon-preview-light");
    ThemeSwitch::setTheme(ThemeSwitch::Choice::Dark);
    settle();
    takePicture("polygon-preview-dark");
    ui().stopPreview->click();
    settle();
    EXPECT_EQ(polygonTool()->getPolygon()->getPoints(), drawn);
    EXPECT_EQ(view().viewIndex(), 0);
    takePicture("polygon-dark");
    ThemeSwitch::setTheme(ThemeSwitch::Choice::Light);

    cut();
    takePicture("polygon-cut");
    EXPECT_EQ(view().getInteractModeName(), "");
    expectCut(clearance);
    trigger("Std_Undo");
    EXPECT_EQ(document().getMeshObjects().size(), 1u);
}

TEST_F(PolygonCutWindow, ACylinderWithAKeyCutsTheSame)
{
    openPart("fandisk-13k.stl");
    UBox3<float> const box = document().getMeshObjects()[0]->getBoundingBox();
    openDialog();
    ui().tabs->setCurrentIndex(1);
    settle();
    EXPECT_EQ(view().getInteractModeName(), "Freecut::CylindercutSelection");
    clickShares(box, {{0.5f, 0.4f}});
    QWidget* const page = ui().pages[1];
    enter(field(page, 0), double(box.MaxX() - box.MinX()) * 0.2);
    find<QCheckBox>(page, "Use Notch")->click();
    enter(field(page, 2), double(box.MaxX() - box.MinX()) * 0.08);
    enter(field(page, 3), double(box.MaxX() - box.MinX()) * 0.06);
    enter(field(page, 4), 30);
    setClearance(page, 0.2);
    takePicture("cylinder-light");
    cut();
    takePicture("cylinder-cut");
    expectCut(0.2);
}

TEST_F(PolygonCutWindow, ARoundedCuboidCutsTheSame)
{
    openPart("fandisk-13k.stl");
    UBox3<float> const box = document().getMeshObjects()[0]->getBoundingBox();
    openDialog();
    ui().tabs->setCurrentIndex(2);
    settle();
    clickShares(box, {{0.5f, 0.4f}});
    QWidget* const page = ui().pages[2];
    double const size = double(box.MaxX() - box.MinX());
    enter(field(page, 0), size * 0.5);
    enter(field(page, 1), size * 0.3);
    enter(field(page, 2), 20);
    find<QCheckBox>(page, "Round corners")->click();
    enter(field(page, 3), size * 0.04);
    setClearance(page, 0.1);
    takePicture("cuboid-light");
    cut();
    takePicture("cuboid-cut");
    expectCut(0.1);
}

TEST_F(PolygonCutWindow, WithoutAClearanceThePiecesAreTheWhole)
{
    addBlock();
    openDialog();
    for (Point const& p :
         {Point(-40, -30, 0), Point(0, -30, 0), Point(10, 30, 0), Point(-40, 30, 0)})
        click(view(), positionOf(p));
    settle();
    cut();
    std::vector<Soup> const found = pieces();
    ASSERT_EQ(found.size(), 3u);
    EXPECT_NEAR(volumeOf(found[1]) + volumeOf(found[2]), volumeOf(found[0]),
                1e-6 * volumeOf(found[0]));
    EXPECT_EQ(closedSolidFaults(found[1]), "");
    EXPECT_EQ(closedSolidFaults(found[2]), "");
}

TEST_F(PolygonCutWindow, TypedPointsMakeAPolygonToo)
{
    addBlock();
    openDialog();
    ui().addPoint->click();
    settle();
    DialogCoordinateUI* const window2 = dialog()->coordinateDialog();
    ASSERT_TRUE(window2 && window2->isVisible());
    auto const fields = window2->findChildren<MellQuantitySpinBox*>();
    EXPECT_TRUE(fields[0]->isEnabled());
    EXPECT_FALSE(fields[2]->isEnabled());
    for (Point const& p : {Point(-10, -5, 0), Point(12, -5, 0), Point(12, 8, 0)}) {
        window2->show();
        enter(fields[0], double(p.X()));
        enter(fields[1], double(p.Y()));
        window2->on_apply_clicked();
        EXPECT_FALSE(window2->isVisible());
    }
    std::vector<Point> const points = polygonTool()->getPolygon()->getPoints();
    ASSERT_EQ(points.size(), 3u);
    EXPECT_NEAR(points[2].X(), 12, 1e-4);
    EXPECT_NEAR(points[2].Y(), 8, 1e-4);

    // The shown point is the one that was added last, and moves by its fields.
    find<QCheckBox>(dialog(), "Show coordinate")->click();
    EXPECT_NEAR(ui().moveFields[0]->value(), 12, 1e-4);
    EXPECT_EQ(ui().moveFields[2]->value(), 0);
    EXPECT_FALSE(ui().moveFields[2]->isEnabled());
    enter(ui().moveFields[0], 15);
    EXPECT_NEAR(polygonTool()->getPolygon()->getPoints()[2].X(), 15, 1e-4);
    ui().cancel->click();
    settle();
    EXPECT_FALSE(dialog());
    EXPECT_EQ(document().getObjectArray().size(), 1u);
}
