// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/DialogPinHoleUI.h"
#include "tests/app/ToolWindow.h"

#include <QCheckBox>
#include <QComboBox>
#include <QPointer>
#include <QRadioButton>

#include <array>

namespace {

/// A block of 80 x 50 x 30 mm whose right half is 20 mm high.
Soup stairs()
{
    std::vector<std::pair<float, float>> const profile = {{0, 0},   {80, 0},  {80, 20},
                                                          {40, 20}, {40, 30}, {0, 30}};
    Soup soup;
    for (float const y : {0.0f, 50.0f})
        for (auto const& [x, z] : profile)
            soup.add({x, y, z});
    for (std::uint32_t i = 0; i < 6; ++i) {
        std::uint32_t const next = (i + 1) % 6;
        soup.add(i, next, next + 6);
        soup.add(i, next + 6, i + 6);
    }
    for (auto const& t : {std::array<std::uint32_t, 3>{0, 1, 3}, {1, 2, 3}, {0, 3, 5}, {3, 4, 5}}) {
        soup.add(t[0], t[2], t[1]);
        soup.add(t[0] + 6, t[1] + 6, t[2] + 6);
    }
    return soup;
}

/// Connectors before the cut, in the shown window.
class ConnectorWindow : public ToolWindow
{
protected:
    void SetUp() override
    {
        ToolWindow::SetUp();
        if (!IsSkipped())
            window->resize(1750, 950);
    }

    /// The stairs with a level plane 3 mm below the lower step, and pins on it.
    void openStairs()
    {
        Soup soup = stairs();
        if (volumeOf(soup) < 0)
            soup.flip();
        ASSERT_EQ(closedSolidFaults(soup), "");
        test->add(soup, "stairs");
        lookFrom(6);
        placeLevelPlane({20, 25, 30}, 17);
        ui().useAdvanced->click();
        settle();
    }
    Freecut::SectionCutWidgets const& ui() const { return sectionDialog()->widgets(); }
    std::vector<ChosenConnector> const& connectors() const
    {
        return ui().preview->runner().result().surveys.at(0).connectors;
    }
    /// How many pixels of the view are clearly of a colour's hue.
    int pixelsOf(int low, int high)
    {
        settle();
        QImage const picture = view().grabFramebuffer();
        int count = 0;
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < picture.width(); ++x) {
                QColor const color = picture.pixelColor(x, y);
                count += color.saturation() > 110 && color.hue() >= low && color.hue() <= high;
            }
        return count;
    }
    int redPixels() { return pixelsOf(0, 12); }
    int bluePixels() { return pixelsOf(200, 220); }
};

}  // namespace

TEST_F(ConnectorWindow, PinsStandInThePartAndThoseThatLeaveItAreRed)
{
    openStairs();
    takePicture("connectors-pins-light");
    int const blue = bluePixels(), red = redPixels();
    EXPECT_GT(blue, 300);
    EXPECT_GT(red, 300);
    EXPECT_TRUE(ui().preview->text().contains("leave the part"));
    ThemeSwitch::setTheme(ThemeSwitch::Choice::Dark);
    settle();
    takePicture("connectors-pins-dark");
    ThemeSwitch::setTheme(ThemeSwitch::Choice::Light);
    ui().useAdvanced->click();
    settle();
    EXPECT_LT(redPixels(), red / 4);
}

TEST_F(ConnectorWindow, TheJointAndHolesHaveColoursOfTheirOwn)
{
    openStairs();
    ui().cutType->setCurrentIndex(1);
    settle();
    takePicture("connectors-joint");
    EXPECT_GT(bluePixels(), 100);
    ui().cutType->setCurrentIndex(0);
    ui().pinHole->findChildren<QRadioButton*>()[1]->click();
    settle();
    takePicture("connectors-holes");
    EXPECT_GT(pixelsOf(30, 45), 300);
}

TEST_F(ConnectorWindow, ClicksLeaveOutAndAddInTheShownView)
{
    openStairs();
    ui().preview->byHandBox()->click();
    settle();
    Point const first = connectors()[0].position;
    click(view(), positionOf(first + UVector3<float>(0, 0, 2)));
    settle();
    EXPECT_EQ(connectors()[0].state, ChosenConnector::State::LeftOut);
    std::size_t const count = connectors().size();
    Point const place(6, 6, 17);
    move(view(), positionOf(place));
    click(view(), positionOf(place));
    settle();
    takePicture("connectors-by-hand");
    ASSERT_EQ(connectors().size(), count + 1);
    EXPECT_LT((connectors().back().position - place).GetLength(), 0.5f);
}

TEST_F(ConnectorWindow, TheKeysOfUndoTakeTheLastConnectorBackAndThenThePlane)
{
    openStairs();
    ui().preview->byHandBox()->click();
    settle();
    std::size_t const count = connectors().size();
    clickAt(connectors()[0].position + UVector3<float>(0, 0, 2));
    clickAt({6, 6, 17});
    ASSERT_EQ(connectors().size(), count + 1);
    // The focus is in a field, and then in the view.
    ui().center[2]->setFocus();
    pressUndo();
    ASSERT_EQ(connectors().size(), count);
    EXPECT_EQ(connectors()[0].state, ChosenConnector::State::LeftOut);
    view().setFocus();
    pressUndo();
    EXPECT_EQ(connectors()[0].state, ChosenConnector::State::Stands);
    EXPECT_NEAR(ui().center[2]->value(), 17, 1e-4);
    pressUndo();
    EXPECT_NEAR(ui().center[2]->value(), 30, 1e-4);
    pressRedo();
    pressRedo();
    pressRedo();
    ASSERT_EQ(connectors().size(), count + 1);
    EXPECT_NEAR(ui().center[2]->value(), 17, 1e-4);
    // The parts' own history is as it was.
    EXPECT_EQ(document().getMeshObjects().size(), 1u);
    cutBySection();
    EXPECT_EQ(document().getMeshObjects().size(), 3u);
}

TEST_F(ConnectorWindow, TheWindowMayCloseWhileConnectorsStandInItsView)
{
    openStairs();
    ui().preview->byHandBox()->click();
    settle();
    QPointer<QWidget> const dialog = sectionDialog();
    window.reset();
    EXPECT_FALSE(dialog);
    EXPECT_EQ(DialogWindowManager::instance()->getDialogWindow("DialogSectioncut"), nullptr);
}
