// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/DialogLapJointUI.h"
#include "dialogs/DialogPinHoleUI.h"
#include "platform/ui/MellQuantitySpinBox.h"
#include "platform/ui/Theme.h"
#include "tests/dialogs/DialogScene.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QLabel>
#include <QRadioButton>

#include <memory>

namespace {

using Freecut::DialogLapJointUI;
using Freecut::DialogPinHoleUI;

/// The fields of a page in the order in which they stand.
QList<MellQuantitySpinBox*> fieldsOf(QWidget const& page)
{
    return page.findChildren<MellQuantitySpinBox*>();
}

/// What a person does: types a number and leaves the field.
void type(MellQuantitySpinBox* field, double value)
{
    field->setValue(value);
    emit field->editingFinished();
}

template <typename Button>
Button* button(QWidget const& page, QString const& text)
{
    for (Button* const found : page.findChildren<Button*>())
        if (found->text() == text)
            return found;
    return nullptr;
}

QStringList labelsOf(QWidget const& page)
{
    QStringList texts;
    for (QLabel const* const label : page.findChildren<QLabel*>())
        if (!label->text().isEmpty())
            texts << label->text();
    return texts;
}

// In the order of construction.
enum LapField
{
    NotchDepth,
    LapSideDistance,
    NotchClearance,
    FrontClearance,
    BackClearance
};
enum PinField
{
    Radius,
    Tolerance,
    Height,
    SideDistance,
    TopClearance,
    Spacing,
    SideClearance,
    FaceClearance
};

}  // namespace

class ConnectorPages : public testing::Test
{
protected:
    DialogScene scene;
};

TEST_F(ConnectorPages, TheLapJointStartsAsTold)
{
    DialogLapJointUI page;
    LapJointParas const paras = page.paras();
    EXPECT_EQ(paras.notchDepth, 3.0f);
    EXPECT_EQ(paras.sideDistance, 2.0f);
    EXPECT_EQ(paras.notchClearance, 0.2f);
    EXPECT_EQ(paras.frontClearance, 0.2f);
    EXPECT_EQ(paras.backClearance, 0.2f);
    EXPECT_EQ(paras.basedOn, 2);
    EXPECT_EQ(page.sizeHint(), QSize(g_pixelSize, g_pixelSize));
    auto const fields = fieldsOf(page);
    ASSERT_EQ(fields.size(), 5);
    double const limits[][3] = {
        {0.001, 100000, 1}, {0.001, 100000, 1}, {0, 100, 0.1}, {0, 100, 0.1}, {0, 100, 0.1}};
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(fields[i]->minimum(), limits[i][0]) << i;
        EXPECT_EQ(fields[i]->maximum(), limits[i][1]) << i;
        EXPECT_EQ(fields[i]->singleStep(), limits[i][2]) << i;
        EXPECT_EQ(fields[i]->alignment(), Qt::AlignRight) << i;
        EXPECT_TRUE(fields[i]->unit().isLength()) << i;
    }
    EXPECT_EQ(labelsOf(page),
              (QStringList{"Notch depth(D)", "Side distance(SD)", "Side contours",
                           "Notch clearance(NC)", "Front clearance(FC)", "Back clearance(BC)"}));
}

TEST_F(ConnectorPages, TheLapJointClampsWhatIsStoredWithoutTouchingItsRanges)
{
    scene.settings.setValue("/Lapjoint/notchDepth", 1.0);
    scene.settings.setValue("/Lapjoint/sideDistance", 0.5);
    scene.settings.setValue("/Lapjoint/notchClearance", 0.75);
    scene.settings.setValue("/Lapjoint/frontClearance", 2.0);
    scene.settings.setValue("/Lapjoint/backClearance", 0.0);
    DialogLapJointUI page;
    EXPECT_EQ(page.paras().notchClearance, 0.5f);
    EXPECT_EQ(page.paras().frontClearance, 1.0f);
    EXPECT_EQ(page.paras().backClearance, 0.0f);
    EXPECT_EQ(fieldsOf(page)[FrontClearance]->minimum(), 0);
    EXPECT_EQ(fieldsOf(page)[FrontClearance]->maximum(), 100);
}

TEST_F(ConnectorPages, AStoredChoiceOfContoursThatThereIsNotMeansAll)
{
    scene.settings.setValue("/Lapjoint/basedOn", 7);
    EXPECT_EQ(DialogLapJointUI().paras().basedOn, 2);
    scene.settings.setValue("/Lapjoint/basedOn", 1);
    DialogLapJointUI page;
    EXPECT_EQ(page.paras().basedOn, 1);
    EXPECT_TRUE(button<QRadioButton>(page, "Inner contours")->isChecked());
}

TEST_F(ConnectorPages, EditingTheNotchDepthLimitsFrontAndBackClearance)
{
    DialogLapJointUI page;
    auto const fields = fieldsOf(page);
    type(fields[NotchDepth], 0.1);
    for (int const i : {FrontClearance, BackClearance}) {
        EXPECT_EQ(fields[i]->minimum(), 0.001);
        EXPECT_EQ(fields[i]->maximum(), 0.1);
        EXPECT_EQ(fields[i]->value(), 0.1);
    }
    EXPECT_EQ(fields[NotchClearance]->minimum(), 0);
    type(fields[LapSideDistance], 0.15);
    EXPECT_EQ(fields[NotchClearance]->value(), 0.15);
    EXPECT_EQ(fields[NotchClearance]->minimum(), 0.001);
}

TEST_F(ConnectorPages, TheLapJointStoresItselfWhenItGoes)
{
    {
        DialogLapJointUI page;
        type(fieldsOf(page)[NotchDepth], 4.5);
        button<QRadioButton>(page, "Outer contours")->click();
    }
    EXPECT_EQ(scene.settings.value("/Lapjoint/notchDepth").toDouble(), 4.5);
    EXPECT_EQ(scene.settings.value("/Lapjoint/basedOn").toInt(), 0);
    for (char const* const key :
         {"sideDistance", "notchClearance", "frontClearance", "backClearance"})
        EXPECT_TRUE(scene.settings.value(QString("/Lapjoint/") + key).isValid()) << key;
}

TEST_F(ConnectorPages, PinsStartAsTold)
{
    DialogPinHoleUI page;
    PinHoleParas const paras = page.paras();
    EXPECT_EQ(paras.radius, 2.0f);
    EXPECT_EQ(paras.tolerance, 0.01f);
    EXPECT_EQ(paras.height, 5.0f);
    EXPECT_EQ(paras.sidedistance, 4.0f);
    EXPECT_EQ(paras.topclearance, 0.01f);
    EXPECT_EQ(paras.spacing, 6.0f);
    EXPECT_EQ(paras.sideclearance, 0.01f);
    EXPECT_EQ(paras.faceclearance, 0.01f);
    EXPECT_FALSE(paras.isSidedis);
    EXPECT_TRUE(paras.isPin);
    auto const fields = fieldsOf(page);
    ASSERT_EQ(fields.size(), 8);
    double const limits[][3] = {{0.001, 100000, 1}, {0.001, 2, 0.01},  {0.001, 100000, 1},
                                {2, 100000, 1},     {0, 100000, 0.01}, {4.02, 1000000, 1},
                                {0, 100000, 0.01},  {0, 100000, 0.01}};
    for (int i = 0; i < 8; ++i) {
        EXPECT_NEAR(fields[i]->minimum(), limits[i][0], 1e-6) << i;
        EXPECT_NEAR(fields[i]->maximum(), limits[i][1], 1e-6) << i;
        EXPECT_EQ(fields[i]->singleStep(), limits[i][2]) << i;
        EXPECT_EQ(fields[i]->alignment(), Qt::AlignRight) << i;
    }
    EXPECT_FALSE(fields[SideDistance]->isEnabled());
    EXPECT_EQ(page.windowTitle(), "Pins/Holes Setting");
    EXPECT_EQ(labelsOf(page),
              (QStringList{"Radius(R)", "Tolerance", "Height(H)", "Top clearance(T)", "Spacing(S)",
                           "Side clearance(SC)", "Face clearance(F)"}));
    EXPECT_TRUE(button<QCheckBox>(page, "Side distance(SD)"));
}

TEST_F(ConnectorPages, ALargerRadiusTakesItsDependantsAlong)
{
    DialogPinHoleUI page;
    auto const fields = fieldsOf(page);
    type(fields[Radius], 5);
    EXPECT_EQ(fields[SideDistance]->value(), 5);
    EXPECT_GE(fields[Spacing]->value(), 10.02 - 1e-6);
    EXPECT_EQ(fields[Tolerance]->maximum(), 5);
    type(fields[Radius], 0.005);
    EXPECT_EQ(fields[Tolerance]->value(), 0.005);
}

TEST_F(ConnectorPages, ALargerSideClearanceRaisesTheSpacing)
{
    DialogPinHoleUI page;
    auto const fields = fieldsOf(page);
    type(fields[SideClearance], 1);
    EXPECT_EQ(fields[Spacing]->minimum(), 6);
    EXPECT_GE(fields[Spacing]->value(), 6);
    type(fields[SideClearance], 1.3);
    EXPECT_EQ(fields[Spacing]->value(), double(float(2 * (2.0 + 1.3))));
}

TEST_F(ConnectorPages, TheSideDistanceKeepsItsValueWhileItIsOff)
{
    DialogPinHoleUI page;
    auto* const switched = button<QCheckBox>(page, "Side distance(SD)");
    switched->click();
    EXPECT_TRUE(fieldsOf(page)[SideDistance]->isEnabled());
    type(fieldsOf(page)[SideDistance], 7);
    switched->click();
    EXPECT_FALSE(fieldsOf(page)[SideDistance]->isEnabled());
    EXPECT_EQ(page.paras().sidedistance, 7.0f);
    EXPECT_FALSE(page.paras().isSidedis);
}

TEST_F(ConnectorPages, PinsAreStoredBySaveAlone)
{
    {
        DialogPinHoleUI page;
        type(fieldsOf(page)[Radius], 3);
    }
    EXPECT_FALSE(scene.settings.value("/Sectioncut/radius").isValid());
    DialogPinHoleUI page;
    EXPECT_EQ(page.paras().radius, 2.0f);
    type(fieldsOf(page)[Radius], 3);
    button<QRadioButton>(page, "Holes")->click();
    button<QPushButton>(page, "Save")->click();
    for (char const* const key :
         {"radius", "tolerance", "height", "sidedistance", "topclearance", "spacing",
          "sideclearance", "faceclearance", "isSidedis", "isPin"})
        EXPECT_TRUE(scene.settings.value(QString("/Sectioncut/") + key).isValid()) << key;
    DialogPinHoleUI again;
    EXPECT_EQ(again.paras().radius, 3.0f);
    EXPECT_FALSE(again.paras().isPin);
}

TEST_F(ConnectorPages, StoredPinsAreBroughtInsideTheLimits)
{
    scene.settings.setValue("/Sectioncut/radius", 10.0);
    scene.settings.setValue("/Sectioncut/sidedistance", 1.0);
    scene.settings.setValue("/Sectioncut/spacing", 5.0);
    scene.settings.setValue("/Sectioncut/isSidedis", true);
    DialogPinHoleUI page;
    EXPECT_EQ(page.paras().sidedistance, 10.0f);
    EXPECT_NEAR(page.paras().spacing, 20.02, 1e-4);
    EXPECT_TRUE(fieldsOf(page)[SideDistance]->isEnabled());
}

TEST_F(ConnectorPages, ThePictureFollowsTheKindOfConnector)
{
    DialogPinHoleUI page;
    auto const picture = [&] {
        for (QLabel const* const label : page.findChildren<QLabel*>())
            if (label->pixmap())
                return label->pixmap()->toImage();
        return QImage();
    };
    QSize const most(int(g_pixelSize * 25.34), int(g_pixelSize * 9.917));
    auto const scaled = [&](char const* file) {
        return QPixmap(file)
            .scaled(most.width(), most.height(), Qt::KeepAspectRatio, Qt::SmoothTransformation)
            .toImage();
    };
    EXPECT_EQ(picture(), scaled(":/icons/icons/cut_pin.png"));
    button<QRadioButton>(page, "Holes")->click();
    EXPECT_EQ(picture(), scaled(":/icons/icons/cut_hole.png"));
}
