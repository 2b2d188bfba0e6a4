// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/TLabel.h"
#include "platform/view/GLCamera.h"
#include "selection/PointLabel.h"
#include "tests/app/ShapeWindow.h"

#include <QLabel>

#include <algorithm>

// The polygon's outline as hands draw it, with what the dialog makes of it.
namespace {

using namespace Freecut;

class ShapeByHand : public ShapeWindow
{
protected:
    /// Presses "Add Point", types two coordinates and applies them.
    void typePoint(QString const& x, QString const& y) const
    {
        ui().addPoint->click();
        settle();
        auto const fields = coordinates()->findChildren<MellQuantitySpinBox*>();
        typeInto(fields[0], x);
        typeInto(fields[1], y);
        find<PushButtonAnimate>(coordinates(), "Apply")->click();
        settle();
    }
    DialogCoordinateUI* coordinates() const { return polygonDialog()->coordinateDialog(); }
    void showCoordinates() const
    {
        find<QCheckBox>(polygonDialog(), "Show coordinate")->click();
        settle();
    }
    int selectedVertex() const
    {
        auto const selected = PointLabel::selectedVertex(*polygonTool()->getPolygon());
        return selected ? int(*selected) : -1;
    }
    std::vector<TLabel*> const& labels() const
    {
        return polygonTool()->getPolygon()->getPointLabels();
    }
    bool isAnyLabelShown() const
    {
        return std::any_of(labels().begin(), labels().end(),
                           [](TLabel const* label) { return label->isVisible(); });
    }
    void turnView() const
    {
        drag(view(), {500, 600}, {590, 520}, Qt::RightButton);
        settle();
    }

    ModalAnswer answer;
};

}  // namespace

TEST_F(ShapeByHand, TheFirstTwoClicksMakeTheToolAndTheThirdGoesToTheSideOnWhichItLies)
{
    for (float const side : {1.0f, -1.0f}) {
        clickAt({-20, 0, 0});
        ASSERT_TRUE(polygonTool()->getPolygon());
        EXPECT_EQ(drawn().size(), 1u);
        EXPECT_EQ(edges().size(), 1u);
        clickAt({20, 0, 0});
        EXPECT_EQ(drawn().size(), 2u);
        EXPECT_EQ(edges().size(), 2u);
        EXPECT_FALSE(ui().ok->isEnabled());
        clickAt({0, 12 * side, 0});
        ASSERT_EQ(drawn().size(), 3u);
        EXPECT_EQ(selectedVertex(), side > 0 ? 2 : 1);
        EXPECT_NEAR(drawn()[std::size_t(selectedVertex())].Y(), 12 * side, 0.2);
        EXPECT_TRUE(ui().ok->isEnabled());
        ui().reset->click();
        settle();
        EXPECT_FALSE(ui().ok->isEnabled());
    }
}

TEST_F(ShapeByHand, AThirdPointIsTakenWhereverItLies)
{
    typePoint("-10", "0");
    typePoint("10", "0");
    typePoint("4", "0");
    EXPECT_EQ(drawn().size(), 3u);
    EXPECT_TRUE(answer.seen.isEmpty());
    // It encloses nothing yet, which is said at once and not only when it fails to cut.
    EXPECT_FALSE(ui().problem->text().isEmpty());
}

TEST_F(ShapeByHand, APointOnAnEdgeIsTakenAndOneWhoseEdgeMeetsAnotherCornerIsRefused)
{
    for (auto const& [x, y] : {std::pair("-20", "-18"),
                               {"20", "-18"},
                               {"20", "15"},
                               {"-20", "15"},
                               {"-5", "15"},
                               {"-15", "15"},
                               {"-10", "14"}})
        typePoint(x, y);
    ASSERT_EQ(drawn().size(), 7u) << "those on the upper edge are taken";
    // The tip of a notch, a millimetre above the lower edge.
    showCoordinates();
    typeInto(ui().moveFields[1], "-17");
    EXPECT_NEAR(drawn()[std::size_t(selectedVertex())].Y(), -17, 1e-3);
    // The new edge from the lower left corner would lead through the tip.
    Points const before = drawn();
    typePoint("10", "-15");
    EXPECT_EQ(answer.seen, QStringList("Attention: Invalid point."));
    EXPECT_EQ(drawn(), before);
    EXPECT_EQ(edges().size(), 7u);
    EXPECT_EQ(labels().size(), 7u);
    typePoint("10", "-16");
    EXPECT_EQ(drawn().size(), 8u);
    EXPECT_EQ(answer.seen.size(), 1);
}

TEST_F(ShapeByHand, ATypedPointOnACornerIsRefusedAndAClickThereIsADrag)
{
    for (auto const& [x, y] : {std::pair("-10", "-5"), {"10", "-5"}, {"0", "8"}})
        typePoint(x, y);
    Points const before = drawn();
    typePoint("10", "-5");
    EXPECT_EQ(answer.seen, QStringList("Attention: Invalid point."));
    clickAt({10, -5, 0});
    EXPECT_EQ(drawn(), before);
    // One next to it is taken; the fields go to thousandths.
    typePoint("10.001", "-5.001");
    EXPECT_EQ(drawn().size(), 4u);
    // A ten-thousandth is as good.
    Point eye = before[0];
    view().getEyePointFromWCSPoint(eye);
    EXPECT_TRUE(polygonTool()->addPointOfPolygonCut(eye + UVector3<float>(-1e-4f, -1e-4f, 0)));
    EXPECT_EQ(drawn().size(), 5u);
    EXPECT_EQ(answer.seen.size(), 1);
}

TEST_F(ShapeByHand, TypedDepthHasNoEffectAndAnEmptiedFieldCountsAsNothing)
{
    clickAt({-20, -10, 0});
    float const depth = drawn()[0].Z();
    ui().addPoint->click();
    settle();
    auto const fields = coordinates()->findChildren<MellQuantitySpinBox*>();
    EXPECT_FALSE(fields[2]->isEnabled());
    fields[2]->setValue(99);
    typeInto(fields[0], "12");
    typeInto(fields[1], "7");
    fields[0]->setFocus(Qt::TabFocusReason);
    fields[0]->selectAll();
    QTest::keyClick(fields[0]->lineEdit(), Qt::Key_Delete);
    QTest::keyClick(fields[0]->lineEdit(), Qt::Key_Return);
    settle();
    EXPECT_EQ(fields[0]->value(), 0);
    EXPECT_FALSE(fields[0]->lineEdit()->text().isEmpty());
    find<PushButtonAnimate>(coordinates(), "Apply")->click();
    settle();
    ASSERT_EQ(drawn().size(), 2u);
    EXPECT_NEAR(drawn()[1].X(), 0, 1e-4);
    EXPECT_NEAR(drawn()[1].Y(), 7, 1e-4);
    EXPECT_NEAR(drawn()[1].Z(), depth, 1e-3);
}

TEST_F(ShapeByHand, InAFreeViewAPointIsTypedWithoutItsXAndTheFieldsStayAsTheyWere)
{
    ui().addPoint->click();
    settle();
    auto const fields = coordinates()->findChildren<MellQuantitySpinBox*>();
    turnView();
    ASSERT_EQ(polygonDialog()->viewIndex(), -1);
    EXPECT_TRUE(fields[0]->isEnabled() && fields[1]->isEnabled());
    EXPECT_FALSE(fields[2]->isEnabled());
    typeInto(fields[0], "9");
    typeInto(fields[1], "6");
    find<PushButtonAnimate>(coordinates(), "Apply")->click();
    settle();
    ASSERT_EQ(drawn().size(), 1u);
    Point added = drawn()[0], expected(0, 6, 0);
    view().getEyePointFromWCSPoint(added);
    view().getEyePointFromWCSPoint(expected);
    EXPECT_NEAR(added.X(), expected.X(), 1e-3);
    EXPECT_NEAR(added.Y(), expected.Y(), 1e-3);
}

TEST_F(ShapeByHand, AFreeViewGreysTheAdvancedOptionsAndTheToolRunsThroughThePartsFromThere)
{
    EXPECT_TRUE(ui().cutTill->isEnabled());
    turnView();
    EXPECT_FALSE(ui().cutTill->isEnabled());
    EXPECT_FALSE(ui().showCoordinate->isEnabled());
    EXPECT_FALSE(ui().addPoint->isEnabled());
    QPoint const middle = positionOf({0, 0, 0});
    for (QPoint const& way : {QPoint(-100, -60), QPoint(100, -60), QPoint(0, 90)})
        click(view(), middle + way);
    settle();
    ASSERT_EQ(drawn().size(), 3u);
    EXPECT_FALSE(isAnyLabelShown());
    // The depth of the block as it is seen from here, and one percent more at each end.
    float nearest = -1e9f, farthest = 1e9f;
    for (int corner = 0; corner < 8; ++corner) {
        Point eye(corner & 1 ? 30 : -30, corner & 2 ? 20 : -20, corner & 4 ? 15 : -15);
        view().getEyePointFromWCSPoint(eye);
        nearest = std::max(nearest, eye.Z());
        farthest = std::min(farthest, eye.Z());
    }
    EXPECT_NEAR(polygon().getExtrudeVector().GetLength(), (nearest - farthest) * 1.02f,
                0.01f * (nearest - farthest));
    for (Point point : drawn()) {
        view().getEyePointFromWCSPoint(point);
        EXPECT_NEAR(point.Z(), polygon().getSketchDepth(), 1e-3);
    }
    cutByShape();
    expectTwoPieces(blockVolume);
}

TEST_F(ShapeByHand, EveryStandardViewCutsThroughThePart)
{
    ui().cancel->click();
    settle();
    for (int const type : {0, 1, 2, 3, 4, 5}) {
        SCOPED_TRACE(type);
        lookFrom(type);
        open("Std_Polygoncut");
        QPoint const middle = positionOf({0, 0, 0});
        for (QPoint const& way : {QPoint(-90, -60), QPoint(90, -60), QPoint(0, 90)})
            click(view(), middle + way);
        settle();
        EXPECT_EQ(polygonDialog()->viewIndex(), type);
        EXPECT_EQ(polygon().getViewIndex(), type);
        EXPECT_TRUE(ui().cutTill->text().endsWith(type < 2 ? "Y =" : type < 4 ? "Z =" : "X ="));
        cutByShape();
        expectTwoPieces(blockVolume);
        removeAllParts();
        addBlock();
    }
}

TEST_F(ShapeByHand, APreviewHidesHandlesAndLabelsAndTheCameraMayTurn)
{
    drawRectangle();
    showCoordinates();
    EXPECT_TRUE(isAnyLabelShown());
    Points const points = drawn();
    ui().startPreview->click();
    settle();
    EXPECT_FALSE(isAnyLabelShown());
    turnView();
    EXPECT_EQ(drawn(), points);
    EXPECT_EQ(polygonDialog()->viewIndex(), 2);
    ui().stopPreview->click();
    settle();
    EXPECT_EQ(view().viewIndex(), 2);
    EXPECT_TRUE(isAnyLabelShown());
    EXPECT_EQ(drawn(), points);
}

TEST_F(ShapeByHand, AZoomChangesNothingOfTheToolAndTheLabelsFollow)
{
    drawRectangle();
    showCoordinates();
    Points const points = drawn();
    QPoint const before = labels()[0]->pos();
    turnWheel(view(), positionOf({0, 0, 0}), 3);
    settle();
    EXPECT_EQ(drawn(), points);
    EXPECT_NE(labels()[0]->pos(), before);
    EXPECT_EQ(labels()[0]->pos(), positionOf(points[0]));
}

TEST_F(ShapeByHand, TheLabelOfAPointToolStaysAtItsCentre)
{
    showCoordinates();
    for (int const tab : {1, 2}) {
        openTab(tab);
        clickAt({3, 4, 0});
        settle();
        TLabel const* const label = view().findChild<TLabel*>();
        ASSERT_TRUE(label && label->isVisible()) << tab;
        Point const centre =
            polygonDialog()->getGraphicObject()->getVolumeProperty().getKeyPoints()[0];
        EXPECT_EQ(label->pos(), positionOf(centre));
        clickAt({-9, -6, 0});
        EXPECT_NEAR(positionOf({-9, -6, 0}).x(), label->pos().x(), 1);
    }
}

TEST_F(ShapeByHand, WithoutAToolTheFieldsOfThePointMoveNothing)
{
    showCoordinates();
    for (int const tab : {0, 1, 2}) {
        openTab(tab);
        typeInto(ui().moveFields[0], "12");
        EXPECT_FALSE(polygonDialog()->getGraphicObject());
        EXPECT_TRUE(answer.seen.isEmpty());
    }
    EXPECT_EQ(document().getObjectArray().size(), 1u);
}

TEST_F(ShapeByHand, TypedCoordinatesOfACornerBetweenTeethAreRefusedAsADragIs)
{
    drawRectangle();
    openTeeth();
    chooseEdge({0, -10, 0});
    pressInTeeth("OK");
    showCoordinates();
    ASSERT_TRUE(edgeRecordAt({0, -10, 0}).applied);
    int const selected = selectedVertex();
    ASSERT_NEAR(drawn()[std::size_t(selected)].Y(), -10, 0.2) << "the one that was drawn last";
    Points const before = drawn();
    typeInto(ui().moveFields[0], "-23");
    QString const text =
        "Attention: You can not move this point, because one of the edges contain "
        "this point has teeth.";
    EXPECT_EQ(answer.seen, QStringList(text));
    EXPECT_EQ(drawn(), before);
    dragTo(before[std::size_t(selected)], {-25, -15, 0});
    EXPECT_EQ(answer.seen, (QStringList{text, text}));
    EXPECT_EQ(drawn(), before);
}

TEST_F(ShapeByHand, ACutThatIsTakenBackWhileADialogIsOpenLeavesDialogAndToolAsTheyAre)
{
    drawRectangle();
    ui().removeOriginal->setChecked(true);
    cutByShape();
    ASSERT_EQ(document().getMeshObjects().size(), 2u);
    drawTriangle();
    Points const points = drawn();
    EXPECT_TRUE(document().undo());
    settle();
    ASSERT_EQ(document().getMeshObjects().size(), 1u);
    EXPECT_EQ(drawn(), points);
    EXPECT_TRUE(ui().ok->isEnabled());
    ui().removeOriginal->setChecked(false);
    cutByShape();
    expectTwoPieces(blockVolume);
}

TEST_F(ShapeByHand, AResetKeepsTheTeethParametersAndTheirSideForTheNextTool)
{
    drawRectangle();
    openTeeth();
    enter(sizeField(0, 0), 1.75);
    pressInTeeth("Flip Teeth");
    pressInTeeth("Cancel");
    TeethParas const paras = polygonTool()->getTeethParas();
    EXPECT_FALSE(paras.flipTeeth);
    ui().reset->click();
    settle();
    EXPECT_FALSE(polygonDialog()->getGraphicObject());
    drawRectangle();
    EXPECT_EQ(polygonDialog()->getGraphicObject(), polygonTool()->getPolygon());
    EXPECT_EQ(polygonTool()->getTeethParas(), paras);
    for (TeethEdge const& edge : edges())
        EXPECT_FALSE(edge.flip);
}

TEST_F(ShapeByHand, WithShiftAndControlADragInsideMovesTheWholeOutlineWithItsTeeth)
{
    drawRectangle();
    openTeeth();
    chooseEdge({0, -10, 0});
    pressInTeeth("OK");
    Points const before = drawn();
    std::vector<TeethEdge> const teethBefore = edges();
    Qt::KeyboardModifiers const both = Qt::ShiftModifier | Qt::ControlModifier;
    auto const dragAll = [&](Point const& from, Point const& to) {
        move(view(), positionOf(from), {}, both);
        drag(view(), positionOf(from), positionOf(to), Qt::LeftButton, both);
        settle();
    };
    dragAll({3, 2, 0}, {8, -1, 0});
    ASSERT_EQ(drawn().size(), 4u) << "no point is added";
    UVector3<float> const way = drawn()[0] - before[0];
    EXPECT_NEAR(way.X(), 5, 0.2);
    EXPECT_NEAR(way.Y(), -3, 0.2);
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_LT((drawn()[i] - before[i] - way).GetLength(), 1e-3f);
        ASSERT_EQ(edges()[i].appliedPoints.size(), teethBefore[i].appliedPoints.size());
        for (std::size_t k = 0; k < edges()[i].appliedPoints.size(); ++k)
            EXPECT_LT(
                (edges()[i].appliedPoints[k] - teethBefore[i].appliedPoints[k] - way).GetLength(),
                1e-3f);
    }
    view().setFocus();
    pressUndo();
    EXPECT_EQ(drawn(), before);
    // Esc gives the drag up.
    press(view(), positionOf({3, 2, 0}), Qt::LeftButton, both);
    move(view(), positionOf({9, 9, 0}), Qt::LeftButton, both);
    EXPECT_NE(drawn(), before);
    pressKey(Qt::Key_Escape);
    release(view(), positionOf({9, 9, 0}), Qt::LeftButton, both);
    settle();
    EXPECT_EQ(drawn(), before);
    // Outside it is a click as ever.
    click(view(), positionOf({28, 0, 0}), Qt::LeftButton, both);
    settle();
    EXPECT_EQ(drawn().size(), 5u);
    cutByShape();
    expectTwoPieces(blockVolume);
}
