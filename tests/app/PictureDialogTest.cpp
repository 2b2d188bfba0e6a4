// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/commands/PictureDialog.h"
#include "platform/ui/MellSpinBox.h"
#include "platform/ui/Settings.h"
#include "platform/ui/StoredSettings.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QSettings>
#include <QTemporaryDir>

namespace {

class PictureDialogs : public testing::Test
{
protected:
    PictureDialogs()
    {
        QSettings::setPath(g_AppSettingFormat, QSettings::UserScope, folder.path());
    }

    static QComboBox& choice(PictureDialog& dialog) { return *dialog.findChild<QComboBox*>(); }
    static void choose(PictureDialog& dialog, int index)
    {
        choice(dialog).setCurrentIndex(index);
        emit choice(dialog).activated(index);
    }

    QTemporaryDir folder;
};

}  // namespace

TEST_F(PictureDialogs, BeginWithTheSizeOfTheView)
{
    PictureDialog dialog({801, 603}, nullptr);
    EXPECT_EQ(dialog.pictureSize(), QSize(801, 603));
    EXPECT_FALSE(dialog.isTransparent());
    EXPECT_EQ(choice(dialog).currentIndex(), 0);
    choose(dialog, 2);
    EXPECT_EQ(dialog.pictureSize(), QSize(1920, 1080));
    dialog.findChild<MellSpinBox*>("Width")->setValue(1234);
    EXPECT_EQ(choice(dialog).currentText(), "Another size");
    EXPECT_EQ(dialog.pictureSize(), QSize(1234, 1080));
    choose(dialog, 0);
    EXPECT_EQ(dialog.pictureSize(), QSize(801, 603));
}

TEST_F(PictureDialogs, RememberWhatWasAccepted)
{
    {
        PictureDialog dialog({800, 600}, nullptr);
        choose(dialog, 3);
        dialog.findChild<QCheckBox*>()->setChecked(true);
        dialog.reject();
    }
    {
        PictureDialog dialog({800, 600}, nullptr);
        EXPECT_EQ(dialog.pictureSize(), QSize(800, 600));
        choose(dialog, 3);
        dialog.findChild<QCheckBox*>()->setChecked(true);
        dialog.accept();
    }
    {
        PictureDialog dialog({640, 480}, nullptr);
        EXPECT_EQ(dialog.pictureSize(), QSize(3840, 2160));
        EXPECT_TRUE(dialog.isTransparent());
        choose(dialog, 0);
        dialog.accept();
    }
    // The size of the view, whatever it is then.
    PictureDialog dialog({700, 500}, nullptr);
    EXPECT_EQ(dialog.pictureSize(), QSize(700, 500));
}

TEST_F(PictureDialogs, TakeNoNonsenseFromTheSettings)
{
    storeValue("/Picture/width", -5);
    storeValue("/Picture/height", 99999);
    PictureDialog dialog({800, 600}, nullptr);
    EXPECT_EQ(dialog.pictureSize(), QSize(800, 600));
}
