// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/panels/FitText.h"
#include "app/panels/PartInformation.h"
#include "app/panels/PreferencesDialog.h"
#include "app/parts/PlateArranging.h"
#include "app/view/ViewAppearance.h"
#include "app/view/ViewPreferences.h"
#include "app/window/WindowPanels.h"
#include "tests/app/ToolWindow.h"

#include <QComboBox>
#include <QFile>

#include <random>

namespace {

using PlateArranging::Parts;
using PlateArranging::Volume;

class Arrange : public testing::Test
{
protected:
    bool arrange(Parts const& parts)
    {
        return PlateArranging::arrange(*test.document, parts, room, gap, outcome);
    }
    /// Whether no two boxes come nearer to each other than the gap, in x or in y.
    bool areApart(Parts const& parts) const
    {
        for (std::size_t i = 0; i < parts.size(); ++i)
            for (std::size_t j = 0; j < i; ++j) {
                UBox3<float> const a = parts[i]->getBoundingBox(), b = parts[j]->getBoundingBox();
                double between = -1e9;
                for (int axis = 0; axis < 2; ++axis)
                    between = std::max({between, double(a.min[axis]) - double(b.max[axis]),
                                        double(b.min[axis]) - double(a.max[axis])});
                if (between < gap - 1e-3)
                    return false;
            }
        return true;
    }

    TestDocument test;
    Volume room{200, 150, 100};
    double gap = 3;
    PlateArranging::Outcome outcome;
};

class ArrangeWindow : public ToolWindow
{
};

}  // namespace

TEST_F(Arrange, PartsStandApartOnThePlateInOneStep)
{
    Parts parts;
    for (int i = 0; i < 12; ++i)
        parts.push_back(
            test.add(box(10.0f + float(i), 30.0f - float(i), 5, {float(i), 0, float(i)}), "p"));
    ASSERT_TRUE(arrange(parts));
    EXPECT_TRUE(areApart(parts));
    for (Mesh::DocumentObject const* const part : parts) {
        EXPECT_TRUE(PlateArranging::isInside(part->getBoundingBox(), room));
        EXPECT_NEAR(part->getBoundingBox().MinZ(), 0, 1e-5);
    }
    EXPECT_TRUE(outcome.tooLarge.empty());
    EXPECT_TRUE(outcome.onFurtherPlates.empty());
    EXPECT_EQ(test.document->undoNames(), std::vector<std::string>{"Arrange"});
}

TEST_F(Arrange, FiveHundredPartsOfAllSizesStandApartOnSeveralPlates)
{
    std::mt19937 random(3);
    std::uniform_real_distribution<float> size(2, 60);
    Parts parts;
    for (int i = 0; i < 500; ++i)
        parts.push_back(test.add(box(size(random), size(random), size(random)), "p"));
    ASSERT_TRUE(arrange(parts));
    EXPECT_TRUE(areApart(parts));
    EXPECT_GT(outcome.onFurtherPlates.size(), 100u);
    EXPECT_LT(outcome.onFurtherPlates.size(), 500u);
}

TEST_F(Arrange, WhatIsTooLargeStaysAndItIsToldByHowMuch)
{
    Mesh::DocumentObject* const large = test.add(box(210, 20, 130, {500, 0, 0}), "large");
    Mesh::DocumentObject* const small = test.add(box(20, 20, 20, {500, 0, 0}), "small");
    ASSERT_TRUE(arrange({large, small}));
    EXPECT_EQ(outcome.tooLarge, Parts{large});
    EXPECT_EQ(large->getBoundingBox().MinX(), 500);
    EXPECT_EQ(PlateArranging::excess(large->getBoundingBox(), room), (Volume{10, 0, 30}));
    EXPECT_NEAR(small->getBoundingBox().MinX(), -10, 1e-4);
    // Turned by a quarter it would fit.
    EXPECT_TRUE(PlateArranging::fits(PlateArranging::excess({{0, 0, 0}, {100, 190, 10}}, room)));
    EXPECT_FALSE(PlateArranging::fits(PlateArranging::excess({{0, 0, 0}, {160, 190, 10}}, room)));
    EXPECT_FALSE(arrange({large}));
}

TEST(BuildVolume, ListsAreReadAndWhatIsNoneIsLeftOut)
{
    auto const volumes = BuildVolume::read(
        "# remark\nMine; 210.5;200;180\n;1;2;3\nTiny;1;1;1\nWord;a;b;c\nShort;100;100\n");
    ASSERT_EQ(volumes.size(), 1u);
    EXPECT_EQ(volumes[0].name, "Mine");
    EXPECT_EQ(volumes[0].width, 210.5);
    EXPECT_EQ(volumes[0].depth, 200);
    EXPECT_EQ(volumes[0].height, 180);
    EXPECT_GE(BuildVolume::known().size(), 10u);
}

TEST_F(ArrangeWindow, TheKeyArrangesWhatIsShownAndTheInformationSaysWhatDoesNotFit)
{
    Mesh::DocumentObject* const tall = test->add(box(20, 20, 230), "tall");
    Mesh::DocumentObject* const first = test->add(box(30, 30, 10), "first");
    Mesh::DocumentObject* const second = test->add(box(30, 30, 10), "second");
    settle();
    pressKey(Qt::Key_A, Qt::ShiftModifier);
    EXPECT_EQ(document().undoNames(), std::vector<std::string>{"Arrange"});
    EXPECT_NE(first->getBoundingBox().MinX(), second->getBoundingBox().MinX());
    EXPECT_EQ(window->statusLine().currentMessage(), "tall: 30.00 mm too high");
    tall->setSelected(true, true, true);
    settle();
    PartInformation const& information = window->panels().information();
    EXPECT_EQ(information.text(PartInformation::Fit), "30.00 mm too high");
    takePicture("does-not-fit");
    first->setSelected(true, true, true);
    settle();
    EXPECT_EQ(information.text(PartInformation::Fit), "fits");
    first->translate({150, 0, 0}, 0);
    first->setSelected(true, true, true);
    settle();
    EXPECT_EQ(information.text(PartInformation::Fit), "fits, but reaches beyond the plate");
}

TEST_F(ArrangeWindow, APrinterIsTakenOverFromTheListWithOnesOwn)
{
    QFile own(BuildVolume::ownFile());
    QDir().mkpath(QFileInfo(own).absolutePath());
    ASSERT_TRUE(own.open(QIODevice::WriteOnly));
    own.write("My printer;310;320;330\n");
    own.close();
    ViewAppearance appearance(view());
    PreferencesDialog dialog(appearance, window->panels().viewPreferences(), window.get());
    QComboBox& printer = dialog.printer();
    int const last = printer.count() - 1;
    EXPECT_EQ(printer.itemText(last), "My printer");
    printer.setCurrentIndex(last);
    emit printer.activated(last);
    EXPECT_EQ(BuildVolume::stored().width, 310);
    EXPECT_EQ(BuildVolume::stored().depth, 320);
    EXPECT_EQ(BuildVolume::stored().height, 330);
    EXPECT_EQ(window->panels().viewPreferences().plateSize(), QSizeF(310, 320));
}
