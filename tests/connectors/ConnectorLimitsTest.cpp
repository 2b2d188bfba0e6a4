// SPDX-License-Identifier: GPL-3.0-or-later
#include "connectors/ConnectorLimits.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>

namespace {

using ConnectorLimits::Length;

std::tuple<std::string, double, double, double, double> valuesOf(Length const& length)
{
    return {length.key, length.initial, length.least, length.largest, length.step};
}

void expectValues(Length const& length, char const* key, double initial, double least,
                  double largest, double step)
{
    EXPECT_EQ(valuesOf(length), std::tuple(std::string(key), initial, least, largest, step));
}

}  // namespace

TEST(ConnectorLimits, OfPinsAndHoles)
{
    namespace Limits = ConnectorLimits::PinHole;
    expectValues(Limits::radius, "/Sectioncut/radius", 2.0, 0.001, 100000.0, 1.0);
    expectValues(Limits::tolerance, "/Sectioncut/tolerance", 0.01, 0.001, 100000.0, 0.01);
    expectValues(Limits::height, "/Sectioncut/height", 5.0, 0.001, 100000.0, 1.0);
    expectValues(Limits::sideDistance, "/Sectioncut/sidedistance", 4.0, 0.001, 100000.0, 1.0);
    expectValues(Limits::topClearance, "/Sectioncut/topclearance", 0.01, 0.0, 100000.0, 0.01);
    expectValues(Limits::spacing, "/Sectioncut/spacing", 6.0, 0.002, 1000000.0, 1.0);
    expectValues(Limits::sideClearance, "/Sectioncut/sideclearance", 0.01, 0.0, 100000.0, 0.01);
    expectValues(Limits::faceClearance, "/Sectioncut/faceclearance", 0.01, 0.0, 100000.0, 0.01);
    EXPECT_STREQ(Limits::isSidedis.key, "/Sectioncut/isSidedis");
    EXPECT_FALSE(Limits::isSidedis.initial);
    EXPECT_STREQ(Limits::isPin.key, "/Sectioncut/isPin");
    EXPECT_TRUE(Limits::isPin.initial);
}

TEST(ConnectorLimits, OfTheLapJoint)
{
    namespace Limits = ConnectorLimits::LapJoint;
    expectValues(Limits::notchDepth, "/Lapjoint/notchDepth", 3.0, 0.001, 100000.0, 1.0);
    expectValues(Limits::sideDistance, "/Lapjoint/sideDistance", 2.0, 0.001, 100000.0, 1.0);
    expectValues(Limits::notchClearance, "/Lapjoint/notchClearance", 0.2, 0.0, 100.0, 0.1);
    expectValues(Limits::frontClearance, "/Lapjoint/frontClearance", 0.2, 0.0, 100.0, 0.1);
    expectValues(Limits::backClearance, "/Lapjoint/backClearance", 0.2, 0.0, 100.0, 0.1);
    EXPECT_EQ(Limits::leastEditedClearance, 0.001);
    EXPECT_STREQ(Limits::basedOn.key, "/Lapjoint/basedOn");
    EXPECT_EQ(Limits::basedOn.initial, 2);
}

TEST(ConnectorLimits, NeighbouringHolesDoNotMeet)
{
    EXPECT_EQ(ConnectorLimits::PinHole::leastSpacing(2, 1), 6);
    EXPECT_DOUBLE_EQ(ConnectorLimits::PinHole::leastSpacing(5, 0.01), 10.02);
    EXPECT_EQ(ConnectorLimits::PinHole::leastSpacing(0.001, 0),
              ConnectorLimits::PinHole::spacing.least);
}

TEST(ConnectorLimits, TheDefaultsAgreeWithEachOther)
{
    using namespace ConnectorLimits;
    EXPECT_LE(PinHole::tolerance.initial, PinHole::radius.initial);
    EXPECT_GE(PinHole::sideDistance.initial, PinHole::radius.initial);
    EXPECT_GE(PinHole::spacing.initial,
              PinHole::leastSpacing(PinHole::radius.initial, PinHole::sideClearance.initial));
    EXPECT_LE(LapJoint::notchClearance.initial, LapJoint::sideDistance.initial);
    EXPECT_LE(LapJoint::frontClearance.initial, LapJoint::notchDepth.initial);
    EXPECT_LE(LapJoint::backClearance.initial, LapJoint::notchDepth.initial);
}
