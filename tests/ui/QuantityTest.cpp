// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/ui/QuantityExpression.h"
#include "platform/ui/DisplayUnit.h"
#include "platform/ui/Quantity.h"
#include "tests/support/ScratchSettings.h"

#include <gtest/gtest.h>

#include <QLocale>

#include <cmath>
#include <random>
#include <string>

namespace {

Base::Unit const lengthUnit(1);
Base::Unit const noUnit(0);

class Quantities : public testing::Test
{
protected:
    void SetUp() override { QLocale::setDefault(QLocale::c()); }
    void TearDown() override
    {
        DisplayUnit::instance().setLength(DisplayUnit::Millimetre);
        QLocale::setDefault(QLocale::c());
    }

    static double lengthOf(char const* text)
    {
        QuantityExpression const read = QuantityExpression::read(text, lengthUnit);
        EXPECT_TRUE(read.isValid()) << text << ": " << read.error.toStdString();
        return read.value;
    }

    static std::string errorOf(char const* text, Base::Unit const& unit = lengthUnit)
    {
        return QuantityExpression::read(text, unit).error.toStdString();
    }

    ScratchSettings settings;
};

}  // namespace

TEST_F(Quantities, SumsOfPlainNumbersAreInTheDisplayUnit)
{
    EXPECT_DOUBLE_EQ(lengthOf("25.4/2"), 12.7);
    EXPECT_DOUBLE_EQ(lengthOf("2*(3+1)"), 8);
    EXPECT_DOUBLE_EQ(lengthOf(" - ( 1 - 3 ) * 2.5"), 5);
    EXPECT_DOUBLE_EQ(lengthOf("1+2*3-4/8"), 6.5);
    EXPECT_DOUBLE_EQ(lengthOf("8/4/2"), 1);
    EXPECT_DOUBLE_EQ(lengthOf("--2"), 2);
    EXPECT_DOUBLE_EQ(lengthOf("1.5e2"), 150);
    EXPECT_DOUBLE_EQ(lengthOf(".5"), 0.5);
    DisplayUnit::instance().setLength(DisplayUnit::Inch);
    EXPECT_DOUBLE_EQ(lengthOf("1/2"), 12.7);
}

TEST_F(Quantities, UnitsMayBeMixed)
{
    EXPECT_DOUBLE_EQ(lengthOf("1 in + 3mm"), 28.4);
    EXPECT_DOUBLE_EQ(lengthOf("2 * (1cm + 5)"), 30);
    EXPECT_DOUBLE_EQ(lengthOf("1\""), 25.4);
    EXPECT_DOUBLE_EQ(lengthOf("1' + 1 m"), 1304.8);
    EXPECT_DOUBLE_EQ(lengthOf("(1+1)in"), 50.8);
    EXPECT_DOUBLE_EQ(lengthOf("10mm/4"), 2.5);
    EXPECT_DOUBLE_EQ(lengthOf("500um"), 0.5);
    DisplayUnit::instance().setLength(DisplayUnit::Inch);
    EXPECT_DOUBLE_EQ(lengthOf("3mm + 1"), 28.4);
}

TEST_F(Quantities, DecimalCommaOfTheLocaleIsTakenBesideThePoint)
{
    EXPECT_FALSE(errorOf("2,5").empty());
    QLocale::setDefault(QLocale(QLocale::German));
    EXPECT_DOUBLE_EQ(lengthOf("2,5 + 0.5"), 3);
    EXPECT_EQ(Base::Quantity::toUserString(1234.5, lengthUnit, 'f', 2, ' ', true), "1234,50");
}

TEST_F(Quantities, WrongTextsAreExplained)
{
    EXPECT_EQ(errorOf("2*(3+1"), "A closing bracket is missing.");
    EXPECT_EQ(errorOf("2)"), "There is a closing bracket without an opening one.");
    EXPECT_EQ(errorOf("1/0"), "A division by zero has no result.");
    EXPECT_EQ(errorOf("2mm*3mm"), "The result is not a length.");
    EXPECT_EQ(errorOf("3 furlong"), "\"furlong\" is no unit; use mm, cm, m or in.");
    EXPECT_EQ(errorOf("3mm", noUnit), "This field takes a plain number; leave out \"mm\".");
    EXPECT_EQ(errorOf("3 +"), "A number is missing at the end.");
    EXPECT_EQ(errorOf("3 + abc"), "A number is expected before \"abc\".");
    EXPECT_EQ(errorOf("1e999"), "The number is too large.");
    EXPECT_EQ(errorOf("1e300*1e300"), "The number is too large.");
    EXPECT_FALSE(errorOf("").empty());
    EXPECT_FALSE(errorOf("1 2").empty());
    EXPECT_FALSE(errorOf("1.2.3").empty());
    EXPECT_FALSE(errorOf("nan").empty());
    EXPECT_FALSE(errorOf("0x10").empty());
}

TEST_F(Quantities, DeepBracketsEndInAnError)
{
    std::string const deep(100000, '(');
    EXPECT_EQ(errorOf(deep.c_str()), "There are too many brackets.");
    std::string const signs(100000, '-');
    EXPECT_DOUBLE_EQ(lengthOf((signs + "1").c_str()), 1);
}

TEST_F(Quantities, AnyTextIsReadOrRefusedWithoutAValueThatIsNone)
{
    std::mt19937 random(7);
    std::string const signs = "0123456789.,+-*/()mincft\"' e";
    for (int run = 0; run < 20000; ++run) {
        QString text;
        for (unsigned i = 0; i < random() % 12; ++i)
            text += QChar(signs[random() % signs.size()]);
        QuantityExpression const read = QuantityExpression::read(text, lengthUnit);
        EXPECT_TRUE(!read.isValid() || std::isfinite(read.value)) << text.toStdString();
    }
}

TEST_F(Quantities, AreWrittenInTheDisplayUnit)
{
    auto const text = [](double value, Base::Unit const& unit, bool numberOnly) {
        return Base::Quantity::toUserString(value, unit, 'f', 3, ' ', numberOnly).toStdString();
    };
    EXPECT_EQ(text(25.4, lengthUnit, false), "25.400 mm");
    EXPECT_EQ(text(25.4, lengthUnit, true), "25.400");
    EXPECT_EQ(text(-0.0001, lengthUnit, true), "0.000");
    EXPECT_EQ(text(25.4, noUnit, false), "25.400");
    DisplayUnit::instance().setLength(DisplayUnit::Inch);
    EXPECT_EQ(text(25.4, lengthUnit, false), "1.000 in");
    EXPECT_EQ(text(25.4, noUnit, true), "25.400");
}

TEST_F(Quantities, DisplayUnitIsKeptAndWrongStoredOnesCountAsMillimetres)
{
    DisplayUnit& unit = DisplayUnit::instance();
    int changes = 0;
    QObject context;
    QObject::connect(&unit, &DisplayUnit::changed, &context, [&] { ++changes; });
    unit.setLength(DisplayUnit::Inch);
    unit.setLength(DisplayUnit::Inch);
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(settings.value("/Interface/lengthUnit"), "inch");
    unit.readStored();
    EXPECT_EQ(unit.length(), DisplayUnit::Inch);
    settings.setValue("/Interface/lengthUnit", "parsec");
    unit.readStored();
    EXPECT_EQ(unit.length(), DisplayUnit::Millimetre);
    EXPECT_EQ(changes, 2);
}
