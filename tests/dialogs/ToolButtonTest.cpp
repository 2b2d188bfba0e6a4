// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/NumberPattern.h"
#include "dialogs/ToolButton.h"
#include "platform/ui/Theme.h"
#include "tests/dialogs/DialogScene.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QRegExpValidator>

TEST(ToolButton, ShowsThePictureOfItsCommandAlone)
{
    DialogScene scene;
    Freecut::ToolButton const button("FreecutPlaneXYPlane");
    ASSERT_TRUE(button.defaultAction());
    EXPECT_EQ(button.objectName(), "FreeCutButton");
    EXPECT_EQ(button.defaultAction()->text(), "XY plane");
    EXPECT_EQ(button.toolButtonStyle(), Qt::ToolButtonIconOnly);
    EXPECT_EQ(button.arrowType(), Qt::NoArrow);
    int const size = int(g_pixelSize * 2.17);
    EXPECT_EQ(button.iconSize(), QSize(size, size));
}

TEST(ToolButton, OfNoCommandStaysEmpty)
{
    DialogScene scene;
    EXPECT_EQ(Freecut::ToolButton("NoSuchCommand").defaultAction(), nullptr);
}

TEST(ToolButton, KeepsWhatItsDialogWantsWhenTheActionChanges)
{
    DialogScene scene;
    Freecut::ToolButton button("FreecutPlaneXYPlane");
    button.setEnabled(false);
    button.defaultAction()->setStatusTip("changed");
    EXPECT_FALSE(button.isEnabled());
    button.setEnabled(true);
    button.defaultAction()->setEnabled(false);
    EXPECT_FALSE(button.isEnabled());
    button.defaultAction()->setEnabled(true);
    EXPECT_TRUE(button.isEnabled());
}

TEST(NumberPattern, TakesSevenDigitsAndThreeDecimals)
{
    QLocale::setDefault(QLocale::c());
    QObject owner;
    QRegExpValidator const* const plain = Freecut::NumberPattern::makeUnsigned(&owner);
    QRegExpValidator const* const withSign = Freecut::NumberPattern::makeSigned(&owner);
    auto const isTaken = [](QRegExpValidator const* validator, QString text) {
        int position = 0;
        return validator->validate(text, position) == QValidator::Acceptable;
    };
    for (char const* const good : {"0", "1234567", "12.125", "0.5", ""}) {
        EXPECT_TRUE(isTaken(plain, good)) << good;
        EXPECT_TRUE(isTaken(withSign, good)) << good;
    }
    for (char const* const bad : {"12345678", "1.2345", "01", "1,5", "x"}) {
        EXPECT_FALSE(isTaken(plain, bad)) << bad;
        EXPECT_FALSE(isTaken(withSign, bad)) << bad;
    }
    EXPECT_TRUE(isTaken(withSign, "-12.5"));
    EXPECT_FALSE(isTaken(plain, "-12.5"));
}
