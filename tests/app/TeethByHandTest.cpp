// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/app/ShapeWindow.h"

#include <algorithm>

// Teeth on the edges of a drawn rectangle, by the window for teeth and by the mouse.
namespace {

using namespace Freecut;

class TeethByHand : public ShapeWindow
{
protected:
    void SetUp() override
    {
        ShapeWindow::SetUp();
        if (IsSkipped())
            return;
        drawRectangle();
        openTeeth();
    }

    static constexpr char const* tooWide = "Attention: Width(W) is too large.";
    Point const below{1, -10, 0};
    Point const right{20, 1, 0};
    ModalAnswer answer;
};

float lengthOf(std::vector<UPoint3<float>> const& points, std::size_t edge)
{
    return (points[(edge + 1) % points.size()] - points[edge]).GetLength();
}

}  // namespace

TEST_F(TeethByHand, OneToothByCountStandsAtTheStartWhateverItsWidth)
{
    enter(sizeField(0, 0), 55);
    setCount(1);
    TeethEdge const& edge = chooseEdge(below);
    EXPECT_TRUE(answer.seen.isEmpty());
    ASSERT_EQ(edge.basePoints.size(), 1u);
    Point const start = drawn()[edgeAt(below)];
    EXPECT_NEAR((edge.basePoints[0] - start).GetLength(), 27.5, 1e-3);
}

TEST_F(TeethByHand, ByDistanceATooShortEdgeHasNoneAndNothingIsSaid)
{
    enter(sizeField(0, 0), 25);
    setDistance(26);
    TeethEdge const& edge = chooseEdge(right);
    EXPECT_TRUE(answer.seen.isEmpty());
    EXPECT_TRUE(edge.hasTeeth && edge.editing);
    EXPECT_TRUE(edge.basePoints.empty());
    EXPECT_TRUE(edge.teethPoints.empty());
    pressInTeeth("OK");
    EXPECT_TRUE(ui().ok->isEnabled());
    cutByShape();
    expectTwoPieces(blockVolume);
}

TEST_F(TeethByHand, TeethThatTouchShareTheirPointOnce)
{
    // Five on their edge, exactly.
    Points points = drawn();
    std::size_t const index = edgeAt(below);
    enter(sizeField(0, 0), double(lengthOf(points, index)) / 5 - 1e-3);
    setCount(5);
    TeethEdge const& edge = chooseEdge(below);
    ASSERT_TRUE(answer.seen.isEmpty());
    for (std::size_t i = 1; i < edge.teethPoints.size(); ++i)
        EXPECT_NE(edge.teethPoints[i], edge.teethPoints[i - 1]) << i;
    // One that touches by the distance it stands apart.
    enter(sizeField(0, 0), 2);
    setDistance(4);
    enter(sizeField(0, 0), 4);
    ASSERT_TRUE(answer.seen.isEmpty());
    ASSERT_EQ(edge.basePoints.size(), std::size_t(lengthOf(points, index) / 4));
    EXPECT_EQ(edge.teethPoints.size(), 2 * edge.basePoints.size())
        << "a top and a foot for each, the first one's left foot being the corner";
}

TEST_F(TeethByHand, NoPointOfTheTeethRepeatsACorner)
{
    for (int const style : {0, 1, 2}) {
        styles()->setCurrentIndex(style);
        if (style == 1)
            enter(sizeField(1, 1), 2);
        setCount(3);
        TeethEdge const& edge = chooseEdge(below);
        ASSERT_EQ(edge.basePoints.size(), 3u) << style;
        std::size_t const index = edgeAt(below);
        Points const points = drawn();
        Point const a = points[index], b = points[(index + 1) % points.size()];
        EXPECT_NE(edge.teethPoints.front(), a) << style;
        EXPECT_GT((edge.teethPoints.back() - b).GetLength(), 0) << style;
    }
}

TEST_F(TeethByHand, AnOffsetAsLongAsTheEdgeIsAFault)
{
    Points const points = drawn();
    float const length = lengthOf(points, edgeAt(below));
    chooseEdge(below);
    setOffset(double(length) + 1e-3);
    EXPECT_EQ(answer.seen, QStringList("Attention: Offset(O) is too large for some edge."));
    EXPECT_FALSE(edgeRecordAt(below).hasTeeth);
}

TEST_F(TeethByHand, OnAllEdgesOneThatIsTooShortFailsThemAll)
{
    enter(sizeField(0, 0), 4);
    setCount(6);
    ASSERT_TRUE(answer.seen.isEmpty()) << "there is no edge under edit yet";
    allEdges()->click();
    EXPECT_EQ(answer.seen, QStringList(tooWide)) << "six of 4 mm do not stand on 20";
    EXPECT_FALSE(allEdges()->isChecked());
    for (TeethEdge const& edge : edges())
        EXPECT_FALSE(edge.hasTeeth || edge.editing);
    setCount(5);
    enter(sizeField(0, 0), 3);
    allEdges()->click();
    EXPECT_EQ(answer.seen.size(), 1);
    EXPECT_TRUE(allEdges()->isChecked());
    for (TeethEdge const& edge : edges())
        EXPECT_EQ(edge.basePoints.size(), 5u);
}

TEST_F(TeethByHand, FlippedTeethAreTheMirrorImage)
{
    for (int const style : {0, 1, 2}) {
        styles()->setCurrentIndex(style);
        setCount(3);
        TeethEdge const& edge = chooseEdge(below);
        Points const before = edge.teethPoints;
        ASSERT_FALSE(before.empty());
        float const line = drawn()[edgeAt(below)].Y();
        pressInTeeth("Flip Teeth");
        ASSERT_EQ(edge.teethPoints.size(), before.size()) << style;
        for (std::size_t i = 0; i < before.size(); ++i) {
            EXPECT_NEAR(edge.teethPoints[i].X(), before[i].X(), 1e-3) << style;
            EXPECT_NEAR(edge.teethPoints[i].Y() - line, line - before[i].Y(), 1e-3) << style;
        }
    }
}

TEST_F(TeethByHand, ANewEdgeTakesItsSideFromTheCurrentOneAndNotFromItsNeighbour)
{
    setCount(3);
    chooseEdge(below);
    pressInTeeth("Flip Teeth");
    pressInTeeth("OK");
    TeethEdge const& toothed = edgeRecordAt(below);
    ASSERT_TRUE(toothed.applied);
    EXPECT_FALSE(toothed.flip);
    EXPECT_TRUE(edgeRecordAt(right).flip) << "from before";
    Points const before = drawn();
    clickAt(right);
    ASSERT_EQ(drawn().size(), before.size() + 1);
    int unflipped = 0;
    for (TeethEdge const& edge : edges())
        unflipped += !edge.flip;
    EXPECT_EQ(unflipped, 2) << "the one with teeth, and the new one";
}

TEST_F(TeethByHand, AfterAFaultANewClickIsNeeded)
{
    setCount(3);
    chooseEdge(below);
    enter(sizeField(0, 0), 15);
    EXPECT_EQ(answer.seen, QStringList(tooWide));
    enter(sizeField(0, 0), 2);
    EXPECT_FALSE(edgeRecordAt(below).hasTeeth);
    chooseEdge(below);
    EXPECT_EQ(edgeRecordAt(below).basePoints.size(), 3u);
}

TEST_F(TeethByHand, AHandleBeyondTheSpacingChangesTheHeightAlone)
{
    enter(sizeField(0, 0), 6);
    enter(sizeField(0, 1), 6);
    setOffset(8);
    distanceField()->setValue(10);
    emit distanceField()->editingFinished();
    TeethEdge const& edge = chooseEdge(below);
    ASSERT_EQ(edge.handlePoints.size(), 3u);
    Point const base = edge.basePoints[1], handle = edge.handlePoints[1];
    float const along = handle.X() > base.X() ? 1.0f : -1.0f;
    float const up = handle.Y() > base.Y() ? 1.0f : -1.0f;
    // Within what is admitted width and height follow the mouse, and the fields both.
    dragTo(handle, handle + UVector3<float>(along * 0.5f, up, 0));
    TeethParas const grown = polygonTool()->getTeethParas();
    EXPECT_NEAR(grown.teethWidth, 8, 0.5);
    EXPECT_NEAR(grown.teethHeight, 8, 0.3);
    EXPECT_NEAR(sizeField(0, 0)->value(), double(grown.teethWidth), 1e-3);
    EXPECT_NEAR(sizeField(0, 1)->value(), double(grown.teethHeight), 1e-3);
    // In small steps beyond it: the width stops at the last admitted one, the height goes on.
    Point const from = edge.handlePoints[1];
    hover(from);
    press(view(), positionOf(from), Qt::LeftButton);
    float beyond = 0;
    for (int step = 1; step <= 50; ++step) {
        UVector3<float> const way(along * 0.1f * float(step), up * 0.1f * float(step), 0);
        move(view(), positionOf(from + way), Qt::LeftButton);
        float const width = polygonTool()->getTeethParas().teethWidth;
        ASSERT_LE(width, 10) << "no wider than the spacing allows";
        beyond = std::max(beyond, width);
    }
    release(view(), positionOf(from + UVector3<float>(along * 5, up * 5, 0)), Qt::LeftButton);
    settle();
    EXPECT_GT(beyond, 9.2);
    EXPECT_EQ(polygonTool()->getTeethParas().teethWidth, beyond);
    EXPECT_GT(polygonTool()->getTeethParas().teethHeight, 16);
    EXPECT_EQ(edge.basePoints[1], base);
}

TEST_F(TeethByHand, ASlideStopsWhereTeethWouldTouch)
{
    enter(sizeField(0, 0), 6);
    enter(sizeField(0, 1), 8);
    setCount(3);
    TeethEdge const& edge = chooseEdge(below);
    ASSERT_EQ(edge.basePoints.size(), 3u);
    Point const next = edge.basePoints[2], far = edge.basePoints[0];
    // In small steps, as far as the mouse goes.
    Point const from = edge.basePoints[1];
    hover(from);
    press(view(), positionOf(from), Qt::LeftButton);
    for (int step = 1; step <= 60; ++step)
        move(view(), positionOf(from + (next - from) * (float(step) / 40)), Qt::LeftButton);
    release(view(), positionOf(from + (next - from) * 1.5f), Qt::LeftButton);
    settle();
    float const apart = (edge.basePoints[2] - edge.basePoints[1]).GetLength();
    EXPECT_GT(apart, 6) << "a width at least";
    EXPECT_LT(apart, 6.6) << "up to the last admitted step";
    EXPECT_EQ(edge.basePoints[2], next);
    EXPECT_EQ(edge.basePoints[0], far);
    EXPECT_EQ(edge.teethMethod, 0);
    // The next change of a value spreads them evenly again.
    enter(sizeField(0, 1), 7);
    EXPECT_NEAR((edge.basePoints[1] - from).GetLength(), 0, 1e-4);
}

TEST_F(TeethByHand, TheRightButtonSlidesAToothToo)
{
    enter(sizeField(0, 0), 4);
    setCount(3);
    TeethEdge const& edge = chooseEdge(below);
    Point const from = edge.basePoints[1];
    hover(from);
    drag(view(), positionOf(from), positionOf(from + UVector3<float>(3, 0, 0)), Qt::RightButton);
    settle();
    EXPECT_NEAR(edge.basePoints[1].X(), from.X() + 3, 0.2);
    EXPECT_TRUE(answer.seen.isEmpty()) << "and opens no menu";
}

TEST_F(TeethByHand, TheRightButtonOnACornerDoesNotOfferToRemoveIt)
{
    Points const points = drawn();
    // Where the mouse has come from elsewhere nothing comes up at all.
    click(view(), positionOf({20, 10, 0}), Qt::RightButton);
    settle();
    EXPECT_TRUE(answer.seen.isEmpty());
    hover({20, 10, 0});
    answer.setAnswer("Remove Point");
    click(view(), positionOf({20, 10, 0}), Qt::RightButton);
    settle();
    for (QString const& menu : answer.seen)
        EXPECT_FALSE(menu.contains("Remove Point")) << menu.toStdString();
    EXPECT_EQ(drawn(), points);
}

TEST_F(TeethByHand, ATabChangeMakesThemAnewAndAConfirmedEdgeLoadsItsValues)
{
    setCount(3);
    enter(sizeField(0, 0), 2.5);
    chooseEdge(below);
    Points const jagged = edgeRecordAt(below).teethPoints;
    styles()->setCurrentIndex(2);
    settle();
    EXPECT_NE(edgeRecordAt(below).teethPoints, jagged);
    styles()->setCurrentIndex(0);
    pressInTeeth("Apply");
    EXPECT_TRUE(edgeRecordAt(below).applied);
    EXPECT_TRUE(teeth()->isVisible());
    styles()->setCurrentIndex(1);
    chooseEdge(right);
    chooseEdge(below);
    EXPECT_EQ(styles()->currentIndex(), 0);
    EXPECT_EQ(sizeField(0, 0)->value(), 2.5);
    EXPECT_TRUE(find<QRadioButton>(teeth(), "Count")->isChecked());
    EXPECT_FALSE(edgeRecordAt(right).hasTeeth) << "never confirmed";
}

TEST_F(TeethByHand, AllEdgesTurnedOffClearsThoseThatWereNeverConfirmed)
{
    setCount(3);
    chooseEdge(below);
    pressInTeeth("Apply");
    allEdges()->click();
    EXPECT_TRUE(std::all_of(edges().begin(), edges().end(),
                            [](TeethEdge const& edge) { return edge.editing; }));
    allEdges()->click();
    EXPECT_TRUE(edgeRecordAt(below).applied && edgeRecordAt(below).hasTeeth);
    EXPECT_FALSE(edgeRecordAt(right).hasTeeth);
    // A window that is opened anew shows teeth at once only where all edges are to have them.
    pressInTeeth("Cancel");
    openTeeth();
    EXPECT_TRUE(std::none_of(edges().begin(), edges().end(),
                             [](TeethEdge const& edge) { return edge.editing; }));
}

TEST_F(TeethByHand, ThePinKeepsTheWindowOpenAtOkButNotAtCancel)
{
    setCount(3);
    chooseEdge(below);
    teeth()->slotPinDialog(true);
    pressInTeeth("OK");
    EXPECT_TRUE(teeth()->isVisible());
    EXPECT_TRUE(edgeRecordAt(below).applied);
    chooseEdge(right);
    pressInTeeth("Cancel");
    EXPECT_FALSE(teeth()->isVisible());
    EXPECT_FALSE(edgeRecordAt(right).hasTeeth);
    EXPECT_TRUE(edgeRecordAt(below).applied);
    EXPECT_TRUE(ui().ok->isEnabled());
}

TEST_F(TeethByHand, TheWindowClosesWithThePolygonAndWithTheTab)
{
    setCount(3);
    chooseEdge(below);
    polygonDialog()->on_bt_reset_clicked();
    settle();
    EXPECT_FALSE(teeth()->isVisible());
    EXPECT_FALSE(polygonTool()->getAddTeeth());
    drawRectangle();
    EXPECT_TRUE(ui().ok->isEnabled());
    openTeeth();
    openTab(2);
    EXPECT_FALSE(teeth()->isVisible());
    clickAt({0, 0, 0});
    EXPECT_TRUE(ui().ok->isEnabled());
}

TEST_F(TeethByHand, AnEdgeThatIsDividedAsksAndLosesItsTeeth)
{
    setCount(3);
    chooseEdge(below);
    pressInTeeth("OK");
    answer.setAnswer("No");
    clickAt({1, -14, 0});
    EXPECT_EQ(answer.seen, QStringList("Question: Do you want to split an edge with teeth?"));
    EXPECT_EQ(drawn().size(), 4u);
    EXPECT_TRUE(edgeRecordAt(below).applied);
    answer.setAnswer("Yes");
    clickAt({1, -14, 0});
    EXPECT_EQ(drawn().size(), 5u);
    for (TeethEdge const& edge : edges())
        EXPECT_FALSE(edge.hasTeeth);
}
