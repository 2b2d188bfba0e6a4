// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/ui/DisplayUnit.h"
#include "platform/ui/MellQuantitySpinBox.h"
#include "tests/support/ScratchSettings.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QLocale>
#include <QRegExpValidator>
#include <QSignalBlocker>
#include <QToolTip>
#include <QWheelEvent>

#include <cmath>
#include <limits>
#include <vector>

namespace {

class SpinBox : public testing::Test
{
protected:
    SpinBox()
    {
        QLocale::setDefault(QLocale::c());
        box.setUnit(Base::Unit(1));
        box.setRange(-1000, 1000);
        QObject::connect(&box, &MellQuantitySpinBox::valueChanged,
                         [this](double value) { values.push_back(value); });
        QObject::connect(&box, &MellQuantitySpinBox::editingFinished, [this] { ++finished; });
        box.show();
    }
    ~SpinBox() override { DisplayUnit::instance().setLength(DisplayUnit::Millimetre); }

    void press(int key, QString const& text = {})
    {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, text);
        QCoreApplication::sendEvent(&box, &event);
    }

    void type(QString const& text)
    {
        box.selectAll();
        for (QChar const sign : text)
            press(sign.toUpper().unicode(), sign);
    }

    void leave()
    {
        QFocusEvent event(QEvent::FocusOut, Qt::TabFocusReason);
        QCoreApplication::sendEvent(&box, &event);
    }

    std::string text() const { return box.lineEdit()->text().toStdString(); }

    ScratchSettings settings;
    MellQuantitySpinBox box;
    std::vector<double> values;
    int finished = 0;
};

}  // namespace

TEST(QuantitySpinBox, AMinimumAloneClampsNoSizeOfAPart)
{
    MellQuantitySpinBox box;
    box.setMinimum(0.001);
    box.setValue(300);
    EXPECT_EQ(box.value(), 300);
    box.setValue(1e7);
    EXPECT_EQ(box.value(), 1e7);
    box.setValue(0);
    EXPECT_EQ(box.value(), 0.001);
}

TEST_F(SpinBox, StartsAtZero)
{
    MellQuantitySpinBox fresh(nullptr);
    EXPECT_EQ(fresh.value(), 0);
    EXPECT_EQ(fresh.unit(), Base::Unit(0));
    EXPECT_EQ(text(), "0.000");
}

TEST_F(SpinBox, ValueKeepsMoreThanItsTextShows)
{
    double const third = 1.0 / 3;
    box.setValue(third);
    EXPECT_EQ(text(), "0.333");
    box.selectAll();
    leave();
    press(Qt::Key_Return);
    type("0.333");
    press(Qt::Key_Return);
    EXPECT_EQ(box.value(), third);
    DisplayUnit::instance().setLength(DisplayUnit::Inch);
    leave();
    DisplayUnit::instance().setLength(DisplayUnit::Millimetre);
    EXPECT_EQ(box.value(), third);
    EXPECT_EQ(values, std::vector{third});
}

TEST_F(SpinBox, TypedSumBecomesTheValueAtTheEndOfTheEditing)
{
    type("25.4/2");
    EXPECT_TRUE(values.empty());
    press(Qt::Key_Return);
    EXPECT_DOUBLE_EQ(box.value(), 12.7);
    EXPECT_EQ(text(), "12.700");
    EXPECT_EQ(finished, 1);
    type("1 in + 3mm");
    leave();
    EXPECT_DOUBLE_EQ(box.value(), 28.4);
    EXPECT_EQ(finished, 2);
    EXPECT_EQ(values.size(), 2u);
}

TEST_F(SpinBox, WrongTextStaysForMendingAndSaysWhy)
{
    box.setValue(4);
    for (int const key : {Qt::Key_Return, Qt::Key_Tab, Qt::Key_Backtab}) {
        type("2*(3");
        QToolTip::hideText();
        press(key);
        EXPECT_EQ(text(), "2*(3") << key;
        EXPECT_EQ(QToolTip::text(), "A closing bracket is missing.") << key;
        EXPECT_EQ(box.value(), 4);
        EXPECT_EQ(finished, 0);
        press(Qt::Key_Escape);
        EXPECT_EQ(text(), "4.000");
    }
    type("2*(3");
    press(Qt::Key_ParenRight, ")");
    press(Qt::Key_Return);
    EXPECT_EQ(box.value(), 6);
    EXPECT_EQ(finished, 1);
}

TEST_F(SpinBox, WrongTextThatIsLeftByTheMouseShowsTheValueThatCountsAgain)
{
    box.setValue(4);
    type("2*(3");
    QFocusEvent event(QEvent::FocusOut, Qt::MouseFocusReason);
    QCoreApplication::sendEvent(&box, &event);
    EXPECT_EQ(text(), "4.000");
    EXPECT_EQ(QToolTip::text(), "A closing bracket is missing.");
}

TEST_F(SpinBox, EscapeTakesTheTypedTextBack)
{
    box.setValue(4);
    type("17");
    press(Qt::Key_Escape);
    leave();
    EXPECT_EQ(box.value(), 4);
    EXPECT_EQ(text(), "4.000");
}

TEST_F(SpinBox, EmptyTextLastsUntilTheEndOfTheEditing)
{
    box.setValue(4);
    QString seen = "never";
    auto const emptied = QObject::connect(&box, &MellQuantitySpinBox::editingFinished, [&] {
        seen = box.text();
        if (seen.isEmpty())
            box.setValue(0);
    });
    box.lineEdit()->clear();
    leave();
    EXPECT_EQ(seen, "");
    EXPECT_EQ(box.value(), 0);
    EXPECT_EQ(text(), "0.000");
    QObject::disconnect(emptied);
    box.setValue(4);
    box.lineEdit()->clear();
    press(Qt::Key_Return);
    EXPECT_EQ(text(), "4.000");
}

TEST_F(SpinBox, ValuesStayInTheRange)
{
    box.setValue(5000);
    EXPECT_EQ(box.value(), 1000);
    box.setRange(0.001, 7);
    EXPECT_EQ(box.value(), 7);
    type("9");
    press(Qt::Key_Return);
    EXPECT_EQ(box.value(), 7);
    EXPECT_EQ(QToolTip::text(), "The value has to lie between 0.001 and 7.000.");
    box.setMinimum(9);
    EXPECT_EQ(box.value(), 9);
    EXPECT_EQ(box.maximum(), 9);
    box.setValue(std::numeric_limits<double>::quiet_NaN());
    EXPECT_EQ(box.value(), 9);
    EXPECT_EQ(values, (std::vector<double>{1000, 7, 9}));
}

TEST_F(SpinBox, SetValueTellsOnlyChangesAndNothingWhileBlocked)
{
    box.setValue(3);
    box.setValue(3);
    {
        QSignalBlocker const blocker(&box);
        box.setValue(5);
    }
    EXPECT_EQ(text(), "5.000");
    EXPECT_EQ(values, std::vector<double>{3});
}

TEST_F(SpinBox, StepsAreRoundInBothUnits)
{
    box.setSingleStep(0.1);
    press(Qt::Key_Up);
    press(Qt::Key_Up);
    press(Qt::Key_Down);
    EXPECT_DOUBLE_EQ(box.value(), 0.1);
    DisplayUnit::instance().setLength(DisplayUnit::Inch);
    box.setValue(0);
    press(Qt::Key_Up);
    EXPECT_DOUBLE_EQ(box.value(), 0.005 * 25.4);
    EXPECT_EQ(text(), "0.0050");
}

TEST_F(SpinBox, StepTakesATypedTextFirst)
{
    type("12");
    press(Qt::Key_Up);
    EXPECT_DOUBLE_EQ(box.value(), 13);
}

TEST_F(SpinBox, WheelChangesNothingWithoutFocus)
{
    MellQuantitySpinBox other(nullptr);
    QWheelEvent event(QPointF(5, 5), QPointF(5, 5), QPoint(), QPoint(0, 120), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&other, &event);
    EXPECT_EQ(other.value(), 0);
    EXPECT_FALSE(event.isAccepted());
}

TEST_F(SpinBox, ValidatorOnItsLineEditDecidesWhatCanBeTyped)
{
    QString const pattern = "^(-?[0]|-?[1-9][0-9]{0,6})(?:\\.\\d{1,3})?$|(^\\t?$)";
    box.lineEdit()->setValidator(new QRegExpValidator(QRegExp(pattern), &box));
    type("1x2.5mm");
    press(Qt::Key_Return);
    EXPECT_DOUBLE_EQ(box.value(), 12.5);
}

TEST_F(SpinBox, ShowsTheUnitBesideTheNumberAndLeavesItOutOnRequest)
{
    int const withUnit = box.lineEdit()->textMargins().right();
    EXPECT_GT(withUnit, 0);
    EXPECT_EQ(text(), "0.000");
    box.setUnitTextVisible(false);
    EXPECT_EQ(box.lineEdit()->textMargins().right(), 0);
    box.setUnitTextVisible(true);
    box.setUnit(Base::Unit(0));
    EXPECT_EQ(box.lineEdit()->textMargins().right(), 0);
}

TEST_F(SpinBox, FollowsTheDisplayUnit)
{
    box.setValue(25.4);
    DisplayUnit::instance().setLength(DisplayUnit::Inch);
    EXPECT_EQ(text(), "1.0000");
    type("2");
    press(Qt::Key_Return);
    EXPECT_DOUBLE_EQ(box.value(), 50.8);
    type("3mm");
    press(Qt::Key_Return);
    EXPECT_DOUBLE_EQ(box.value(), 3);
}
