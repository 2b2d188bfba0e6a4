// SPDX-License-Identifier: GPL-3.0-or-later
#include "connectors/ConnectorPreset.h"
#include "platform/jobs/Exceptions.h"

#include <gtest/gtest.h>

namespace {

std::string refusalOf(char const* text)
{
    try {
        ConnectorPreset::fromText(text);
    } catch (Mell::Exception const& reason) {
        return reason.what();
    }
    return {};
}

}  // namespace

TEST(ConnectorPreset, ComesBackAsItWasWritten)
{
    ConnectorPreset preset;
    preset.name = QStringLiteral("fine \"0.1\"");
    preset.kind = ConnectorPreset::Kind::Holes;
    preset.pins = PinHoleParas{1.25f, 0.02f, 7, 3, 0.3f, 12.5f, 0.15f, 0, true, false, true};
    preset.lapJoint = LapJointParas{4, 2.5f, 0.1f, 0, 0.35f, 1};
    ConnectorPreset const read = ConnectorPreset::fromText(preset.toText());
    EXPECT_EQ(read.name, preset.name);
    EXPECT_EQ(read.kind, preset.kind);
    EXPECT_EQ(read.pins->radius, 1.25f);
    EXPECT_EQ(read.pins->tolerance, 0.02f);
    EXPECT_EQ(read.pins->height, 7);
    EXPECT_EQ(read.pins->sidedistance, 3);
    EXPECT_EQ(read.pins->topclearance, 0.3f);
    EXPECT_EQ(read.pins->spacing, 12.5f);
    EXPECT_EQ(read.pins->sideclearance, 0.15f);
    EXPECT_EQ(read.pins->faceclearance, 0);
    EXPECT_TRUE(read.pins->isSidedis);
    EXPECT_FALSE(read.pins->isPin);
    EXPECT_TRUE(read.pins->keepClear);
    EXPECT_EQ(read.lapJoint->notchDepth, 4);
    EXPECT_EQ(read.lapJoint->sideDistance, 2.5f);
    EXPECT_EQ(read.lapJoint->notchClearance, 0.1f);
    EXPECT_EQ(read.lapJoint->frontClearance, 0);
    EXPECT_EQ(read.lapJoint->backClearance, 0.35f);
    EXPECT_EQ(read.lapJoint->basedOn, 1);
    // Lengths are written as they are typed.
    EXPECT_TRUE(preset.toText().contains("0.15,")) << preset.toText().toStdString();
}

TEST(ConnectorPreset, WhatIsNotGivenAgreesWithWhatIs)
{
    ConnectorPreset const preset =
        ConnectorPreset::fromText(R"({"pins": {"radius": 8}, "lapJoint": {"notchDepth": 0.1}})");
    EXPECT_EQ(preset.kind, ConnectorPreset::Kind::Pins);
    EXPECT_EQ(preset.pins->sidedistance, 8);
    EXPECT_EQ(preset.pins->spacing, 16.02f);
    EXPECT_EQ(preset.pins->height, 5);
    EXPECT_EQ(preset.lapJoint->frontClearance, 0.1f);
    EXPECT_EQ(preset.lapJoint->backClearance, 0.1f);
}

TEST(ConnectorPreset, SaysWhatIsWrong)
{
    EXPECT_NE(refusalOf("[]").find("{ }"), std::string::npos);
    EXPECT_NE(refusalOf("{,}").find("not JSON"), std::string::npos);
    EXPECT_NE(refusalOf("{}").find("\"pins\""), std::string::npos);
    EXPECT_NE(refusalOf(R"({"connector": "lapJoint", "pins": {}})").find("\"lapJoint\""),
              std::string::npos);
    EXPECT_NE(refusalOf(R"({"connector": "glue", "pins": {}})").find("pins, holes, lapJoint"),
              std::string::npos);
    EXPECT_NE(refusalOf(R"({"pins": {"height": "5"}})").find("\"height\""), std::string::npos);
    EXPECT_NE(refusalOf(R"({"pins": {"height": -5}})").find("0.001"), std::string::npos);
    EXPECT_NE(refusalOf(R"({"pins": {"spacing": 4}})").find("4.02"), std::string::npos);
    EXPECT_NE(refusalOf(R"({"pins": {"keepClear": 1}})").find("true or false"), std::string::npos);
    EXPECT_NE(refusalOf(R"({"lapJoint": {"notchClearance": 3}})").find("from 0 to 2 mm"),
              std::string::npos);
    EXPECT_NE(refusalOf(R"({"pins": 3})").find("braces"), std::string::npos);
}
