// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/DialogLapJointUI.h"
#include "dialogs/DialogPinHoleUI.h"
#include "dialogs/PictureTip.h"
#include "dialogs/PresetButton.h"
#include "platform/ui/LanguageSwitch.h"
#include "platform/ui/MellQuantitySpinBox.h"
#include "platform/ui/Theme.h"
#include "platform/ui/ThemeSwitch.h"
#include "tests/dialogs/DialogScene.h"

#include <gtest/gtest.h>

#include <QHelpEvent>
#include <QImage>
#include <QLabel>
#include <QRadioButton>
#include <QRegularExpression>

namespace {

using namespace Freecut;

class PictureTips : public testing::Test
{
protected:
    ~PictureTips() override
    {
        ThemeSwitch::setTheme(ThemeSwitch::Choice::Light);
        LanguageSwitch::setLanguage(LanguageSwitch::Choice::English);
    }

    DialogScene scene;
};

/// The tip as it is when a person rests the mouse on the widget.
QString tipOf(QWidget* widget)
{
    QHelpEvent event(QEvent::ToolTip, {}, {});
    QCoreApplication::sendEvent(widget, &event);
    return widget->toolTip();
}

QString fileIn(QString const& tip)
{
    static QRegularExpression const source("<img src=\"([^\"]+)\">");
    return source.match(tip).captured(1);
}

template <typename Page>
void expectTipsOfAllFields()
{
    Page page;
    QStringList files;
    for (MellQuantitySpinBox* const field : page.template findChildren<MellQuantitySpinBox*>()) {
        QString const tip = tipOf(field);
        EXPECT_FALSE(QImage(fileIn(tip)).isNull()) << tip.toStdString();
        EXPECT_EQ(field->whatsThis(), tip);
        EXPECT_FALSE(field->accessibleDescription().isEmpty());
        EXPECT_TRUE(tip.contains(field->accessibleDescription().toHtmlEscaped()));
        files << fileIn(tip);
    }
    EXPECT_EQ(files.removeDuplicates(), 0);
}

}  // namespace

TEST_F(PictureTips, EveryValueOfTheConnectorPagesHasAPictureOfItsOwn)
{
    expectTipsOfAllFields<DialogPinHoleUI>();
    expectTipsOfAllFields<DialogLapJointUI>();
}

TEST_F(PictureTips, TheLabelBesideAFieldHasItsTip)
{
    DialogPinHoleUI page;
    MellQuantitySpinBox* const radius = page.findChildren<MellQuantitySpinBox*>()[0];
    for (QLabel* const label : page.findChildren<QLabel*>())
        if (label->text() == "Radius(R)") {
            EXPECT_EQ(tipOf(label), tipOf(radius));
            return;
        }
    FAIL() << "no label";
}

TEST_F(PictureTips, TheKindOfConnectorDecidesOnThePicture)
{
    DialogPinHoleUI page;
    MellQuantitySpinBox* const height = page.findChildren<MellQuantitySpinBox*>()[2];
    EXPECT_TRUE(fileIn(tipOf(height)).contains("tip_pin_height"));
    page.findChildren<QRadioButton*>()[1]->click();
    EXPECT_TRUE(fileIn(tipOf(height)).contains("tip_hole_height"));
    EXPECT_TRUE(tipOf(height).contains("How far the rod reaches into each piece."));
}

TEST_F(PictureTips, ThePictureStandsOutFromTheGroundOfTheTipsInEachTheme)
{
    for (auto const theme : {ThemeSwitch::Choice::Light, ThemeSwitch::Choice::Dark}) {
        ThemeSwitch::setTheme(theme);
        QLabel label;
        PictureTip::give({&label}, {"spacing", "text"});
        QImage const picture(fileIn(tipOf(&label)));
        ASSERT_FALSE(picture.isNull());
        // The lines, which alone are opaque.
        int const ground = themeColor("toolTip").lightness();
        int lines = 0, distance = 0;
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < picture.width(); ++x)
                if (QColor const color = picture.pixelColor(x, y); color.alpha() == 255) {
                    ++lines;
                    distance += std::abs(color.lightness() - ground);
                }
        ASSERT_GT(lines, 100);
        EXPECT_GT(distance / lines, 80);
    }
}

TEST_F(PictureTips, TheSentenceFollowsTheLanguage)
{
    DialogLapJointUI page;
    MellQuantitySpinBox* const depth = page.findChildren<MellQuantitySpinBox*>()[0];
    QString const english = depth->accessibleDescription();
    LanguageSwitch::setLanguage(LanguageSwitch::Choice::German);
    QString const tip = tipOf(depth);
    EXPECT_NE(depth->accessibleDescription(), english);
    EXPECT_TRUE(tip.contains(depth->accessibleDescription().toHtmlEscaped()));
}

// The classes of the plug-in ask for their texts by their full names.
TEST_F(PictureTips, TextsOfTheClassesBesideThemFollowTheLanguageToo)
{
    LanguageSwitch::setLanguage(LanguageSwitch::Choice::German);
    EXPECT_EQ(PresetButton(nullptr).text().toStdString(), "Voreinstellungen");
}
