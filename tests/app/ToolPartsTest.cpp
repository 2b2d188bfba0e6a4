// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/ui/CutViewSlider.h"
#include "tests/app/ToolWindow.h"
#include "tests/support/AnsweredMessages.h"
#include "tests/support/Validator.h"

#include <QCheckBox>
#include <QComboBox>
#include <QRadioButton>

#include <array>

// What happens to the parts while a tool stands on them, and parts of every kind.
namespace {

using namespace Freecut;

class ToolParts : public ToolWindow
{
};

}  // namespace

TEST_F(ToolParts, PartsComeGoMoveAndHideWhileAPlaneStands)
{
    Mesh::DocumentObject* const part = addBlock();
    placeLevelPlane({5, 5, 15}, 3);
    auto const& ui = sectionDialog()->widgets();
    int const range = ui.slider->maximum();
    // A part that moves takes the range of the slider along.
    UMatrix4<float> up;
    up(2, 3) = 40;
    part->setMatrix(up, true, true);
    settle();
    test->add(box(10, 10, 100, {50, 0, -15}), "tower");
    settle();
    EXPECT_GT(ui.slider->maximum(), range);
    EXPECT_TRUE(planeTool()->getPlaneObject());
    // Hidden parts are cut as well.
    for (Mesh::DocumentObject* const each : document().getMeshObjects())
        each->setVisible(false);
    settle();
    EXPECT_TRUE(planeTool()->getPlaneObject() && ui.ok->isEnabled());
    for (Mesh::DocumentObject* const each : document().getMeshObjects())
        document().removeObject(each);
    settle();
    ASSERT_TRUE(sectionDialog());
    EXPECT_TRUE(planeTool()->getPlaneObject());
    AnsweredMessages const answer;
    ui.ok->click();
    EXPECT_EQ(answer.texts.value(0), "Please load at least 1 part in one document.");
    ui.cancel->click();
    settle();
    EXPECT_FALSE(sectionDialog());
    EXPECT_TRUE(document().getObjectArray().empty());
}

TEST_F(ToolParts, PartsGoAndHideWhileAShapeIsDrawn)
{
    Mesh::DocumentObject* const part = addBlock();
    drawTriangle();
    Points const points = drawn();
    part->setVisible(false);
    settle();
    EXPECT_EQ(drawn(), points);
    EXPECT_TRUE(polygonDialog()->widgets().ok->isEnabled());
    part->setVisible(true);
    document().removeObject(part);
    settle();
    EXPECT_EQ(drawn(), points);
    AnsweredMessages const answer;
    polygonDialog()->widgets().ok->click();
    EXPECT_EQ(answer.texts.value(0), "Please load at least 1 part in one document.");
    addBlock();
    EXPECT_TRUE(polygonDialog()->widgets().ok->isEnabled());
    cutByShape();
    expectTwoPieces(blockVolume);
}

TEST_F(ToolParts, ACutByTheKeyCLeavesPlaneAndDialogAsTheyAre)
{
    Mesh::DocumentObject* const part = addBlock();
    placeLevelPlane({5, 5, 15}, 3);
    Points const corners = planeTool()->getPlaneObject()->getProperty().getCorners();
    part->setSelected(true, true, false);
    MainWindow::getViewSlider()->setHeight(-4);
    settle();
    view().setFocus();
    QTest::keyClick(window->windowHandle(), Qt::Key_C);
    ASSERT_TRUE(waitUntil([&] {
        return document().getMeshObjects().size() == 2 && !JobGuard::instance()->isBusy();
    }));
    settle();
    ASSERT_TRUE(sectionDialog() && planeTool() && planeTool()->getPlaneObject());
    EXPECT_EQ(planeTool()->getPlaneObject()->getProperty().getCorners(), corners);
    EXPECT_TRUE(sectionDialog()->widgets().ok->isEnabled());
    // The plane goes through the upper piece alone; the lower one is told to be whole.
    sectionDialog()->widgets().allParts->click();
    cutBySection();
    EXPECT_TRUE(status().contains("Nothing was cut")) << status().toStdString();
}

TEST_F(ToolParts, PartsOfAHundredthOfAMillimetreAndOfTenMetresAreCut)
{
    for (float const scale : {1.0f / 6000, 10000.0f / 60}) {
        addBlock(scale);
        double const volume = volumeOf(parts()[0]);
        placeLevelPlane({5 * scale, 5 * scale, 15 * scale}, 0);
        cutBySection();
        std::vector<Soup> const found = parts();
        ASSERT_EQ(found.size(), 3u) << scale;
        EXPECT_EQ(closedSolidFaults(found[1]), "") << scale;
        EXPECT_NEAR(volumeOf(found[1]) + volumeOf(found[2]), volume, 1e-3 * volume) << scale;
        for (Mesh::DocumentObject* const each : document().getMeshObjects())
            document().removeObject(each);
    }
}

TEST_F(ToolParts, APlaneThatTouchesAPartInAFaceAnEdgeOrACornerLeavesItWholeAndSaysSo)
{
    struct Touch
    {
        char const* what;
        std::array<char const*, 3> normal;
        std::array<char const*, 3> center;
    };
    for (Touch const& touch : {Touch{"face", {"0", "0", "1"}, {"5", "5", "15"}},
                               Touch{"edge", {"1", "0", "1"}, {"30", "5", "15"}},
                               Touch{"corner", {"1", "1", "1"}, {"30", "20", "15"}}})
        for (int const connectors : {-1, 0, 1}) {
            SCOPED_TRACE(touch.what);
            SCOPED_TRACE(connectors);
            addBlock();
            placeLevelPlane({5, 5, 15}, 0);
            auto const& ui = sectionDialog()->widgets();
            for (std::size_t i = 0; i < 3; ++i)
                typeInto(ui.normal[i], touch.normal[i]);
            for (std::size_t i = 0; i < 3; ++i)
                typeInto(ui.center[i], touch.center[i]);
            for (std::size_t i = 0; i < 3; ++i)
                EXPECT_NEAR(ui.center[i]->value(), QString(touch.center[i]).toDouble(), 1e-4) << i;
            if (connectors >= 0) {
                ui.useAdvanced->click();
                ui.cutType->setCurrentIndex(connectors);
                settle();
            }
            cutBySection();
            EXPECT_TRUE(status().contains("Nothing was cut")) << status().toStdString();
            for (Soup const& part : parts())
                EXPECT_NEAR(volumeOf(part), blockVolume, 1e-6 * blockVolume);
            removeAllParts();
        }
}

TEST_F(ToolParts, APartWithAMatrixIsCutWhereItStands)
{
    Mesh::DocumentObject* const part = addBlock();
    UMatrix4<float> placed;
    placed(0, 3) = 200;
    placed(2, 3) = 80;
    part->setMatrix(placed, true, true);
    view().fitAll();
    settle();
    placeLevelPlane({205, 5, 95}, 85);
    cutBySection();
    ASSERT_EQ(document().getMeshObjects().size(), 3u);
    UBox3<float> const upper = document().getMeshObjects()[1]->getBoundingBox();
    UBox3<float> const lower = document().getMeshObjects()[2]->getBoundingBox();
    EXPECT_NEAR(std::max(upper.MinZ(), lower.MinZ()), 85, 1e-3);
    EXPECT_NEAR(upper.MinX(), 170, 1e-3);
    expectTwoPieces(blockVolume);
}
