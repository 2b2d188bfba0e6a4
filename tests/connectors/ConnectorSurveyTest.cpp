// SPDX-License-Identifier: GPL-3.0-or-later
#include "connectors/LapJointCutter.h"
#include "connectors/PinHoleCutter.h"
#include "tests/connectors/ConnectorScene.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/TestDocument.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using Kind = CutRemark::Kind;
using Kinds = std::vector<Kind>;

/// What one cut by the plane at a height remarks.
template <typename Cutter, typename Paras>
CutRemarks remarksOf(Paras const& paras, Soup const& soup, float height)
{
    TestDocument test;
    auto* const part = test.add(soup, "part");
    auto const plane = planeAt({0, 0, height});
    Cutter cutter(paras, false, {part}, plane.get());
    cutter.execute({});
    for (CutRemark const& remark : cutter.remarks())
        EXPECT_EQ(remark.part, part);
    return cutter.remarks();
}

Kinds kindsOf(CutRemarks const& remarks)
{
    Kinds kinds;
    for (CutRemark const& remark : remarks)
        kinds.push_back(remark.kind);
    return kinds;
}

PinHoleParas usualPins(bool isPin = true)
{
    PinHoleParas paras;
    paras.radius = 2;
    paras.tolerance = 0.01f;
    paras.height = 5;
    paras.sidedistance = 4;
    paras.topclearance = 0.01f;
    paras.spacing = 6;
    paras.sideclearance = 0.01f;
    paras.faceclearance = 0.01f;
    paras.isSidedis = false;
    paras.isPin = isPin;
    return paras;
}

LapJointParas usualJoint()
{
    LapJointParas paras;
    paras.notchDepth = 3;
    paras.sideDistance = 2;
    paras.notchClearance = 0.2f;
    paras.frontClearance = 0.2f;
    paras.backClearance = 0.2f;
    paras.basedOn = 2;
    return paras;
}

}  // namespace

TEST(ConnectorSurvey, ConnectorsWithinThePartAreNotWorthAWord)
{
    Soup const block = box(40, 30, 20);
    EXPECT_TRUE(remarksOf<PinHoleCutter>(usualPins(), block, 10).empty());
    EXPECT_TRUE(remarksOf<PinHoleCutter>(usualPins(false), block, 10).empty());
    EXPECT_TRUE(remarksOf<LapJointCutter>(usualJoint(), block, 10).empty());
}

TEST(ConnectorSurvey, PinsOfFiveInAPlateOfOneAndAHalfLeaveIt)
{
    // The upper half is 1.5 mm thick.
    CutRemarks const remarks = remarksOf<PinHoleCutter>(usualPins(), box(40, 30, 10), 8.5f);
    ASSERT_EQ(kindsOf(remarks), (Kinds{Kind::ConnectorLeavesPart, Kind::ConnectorLeavesPart}));
    EXPECT_NE(remarks[0].text.find("only 1.5 mm"), std::string::npos) << remarks[0].text;
    EXPECT_FALSE(remarks[0].places.empty());
    EXPECT_EQ(remarks[0].places.size(), remarks[1].places.size());
}

TEST(ConnectorSurvey, AHoleThatIsDeeperThanItsPinMayOpenAlone)
{
    PinHoleParas paras = usualPins();
    paras.topclearance = 2;
    CutRemarks const remarks = remarksOf<PinHoleCutter>(paras, box(40, 30, 16), 10);
    ASSERT_EQ(kindsOf(remarks), Kinds{Kind::ConnectorLeavesPart});
    EXPECT_NE(remarks[0].text.find("holes open"), std::string::npos) << remarks[0].text;
}

TEST(ConnectorSurvey, HolesInBothHalvesAreLookedAtOnBothSides)
{
    for (float const height : {3.0f, 17.0f}) {
        CutRemarks const remarks =
            remarksOf<PinHoleCutter>(usualPins(false), box(40, 30, 20), height);
        ASSERT_EQ(kindsOf(remarks), Kinds{Kind::ConnectorLeavesPart}) << height;
        EXPECT_NE(remarks[0].text.find("only 3 mm"), std::string::npos) << remarks[0].text;
    }
}

TEST(ConnectorSurvey, AHoleBesideAContourOpensToTheSide)
{
    PinHoleParas paras = usualPins(false);
    paras.isSidedis = true;
    paras.sidedistance = 2;
    paras.sideclearance = 0.5f;
    EXPECT_EQ(kindsOf(remarksOf<PinHoleCutter>(paras, box(40, 30, 20), 10)),
              Kinds{Kind::ConnectorLeavesPart});
}

TEST(ConnectorSurvey, FacesThatCannotMeetAreTold)
{
    PinHoleParas pins = usualPins();
    pins.faceclearance = 0.5f;
    EXPECT_EQ(kindsOf(remarksOf<PinHoleCutter>(pins, box(40, 30, 20), 10)),
              Kinds{Kind::FacesNeverMeet});
    LapJointParas joint = usualJoint();
    joint.frontClearance = 0.5f;
    EXPECT_EQ(kindsOf(remarksOf<LapJointCutter>(joint, box(40, 30, 20), 10)),
              Kinds{Kind::FacesNeverMeet});
}

TEST(ConnectorSurvey, ATongueWithoutMaterialIsTold)
{
    // Of 3 mm there are 2 above the plane.
    CutRemarks const remarks = remarksOf<LapJointCutter>(usualJoint(), box(40, 30, 12), 10);
    Kinds const kinds = kindsOf(remarks);
    ASSERT_GE(kinds.size(), 2u);
    EXPECT_EQ(kinds[0], Kind::ConnectorLeavesPart);
    EXPECT_EQ(kinds[1], Kind::ConnectorLeavesPart);
    EXPECT_NE(remarks[0].text.find("only 2 mm"), std::string::npos) << remarks[0].text;
}

TEST(ConnectorSurvey, ATongueThatLeavesThePartAtOneCornerIsTold)
{
    // Each corner of the top in turn, since the outline may begin at any.
    Soup const block = box(40, 30, 20);
    int lowered = 0;
    for (std::size_t corner = 0; corner < block.points.size(); ++corner) {
        if (block.points[corner].Z() < 20)
            continue;
        Soup dented = block;
        dented.points[corner].Z() = 11;
        ++lowered;
        CutRemarks const remarks = remarksOf<LapJointCutter>(usualJoint(), dented, 10);
        ASSERT_FALSE(remarks.empty()) << corner;
        EXPECT_EQ(remarks[0].text.find("The tongue leaves the part"), 0u) << remarks[0].text;
    }
    EXPECT_EQ(lowered, 4);
}

TEST(ConnectorSurvey, APieceThatConnectorsBreakApartIsTold)
{
    // A tube whose wall the notch splits from its face to its end.
    LapJointParas joint = usualJoint();
    joint.notchDepth = 4;
    joint.sideDistance = 1;
    CutRemarks const split = remarksOf<LapJointCutter>(joint, tube(12, 8, 13, 64), 10);
    EXPECT_EQ(split.back().kind, Kind::PieceFallsApart);
    EXPECT_NE(split.back().text.find("2 shells"), std::string::npos) << split.back().text;
}

TEST(ConnectorSurvey, ASectionWithoutRoomIsTold)
{
    PinHoleParas pins = usualPins();
    pins.radius = 20;
    EXPECT_EQ(kindsOf(remarksOf<PinHoleCutter>(pins, box(40, 30, 20), 10)),
              Kinds{Kind::NoRoomForConnectors});
    LapJointParas joint = usualJoint();
    joint.sideDistance = 20;
    EXPECT_EQ(kindsOf(remarksOf<LapJointCutter>(joint, box(40, 30, 20), 10)),
              Kinds{Kind::NoRoomForConnectors});
}

TEST(ConnectorSurvey, TheRunKeepsTheSections)
{
    TestDocument test;
    auto* const part = test.add(box(40, 30, 20), "part");
    auto* const beside = test.add(box(40, 30, 5), "beside");
    auto const plane = planeAt({0, 0, 10});
    PinHoleCutter cutter(usualPins(), false, {part, beside}, plane.get());
    cutter.execute({});
    SectionRecord const& section = cutter.sections().at(part);
    EXPECT_NEAR(section.area, 1200, 1e-3);
    EXPECT_EQ(section.contours, 1u);
    EXPECT_FALSE(section.positions.empty());
    EXPECT_EQ(cutter.sections().at(beside).contours, 0u);
}

TEST(ConnectorSurvey, WhatIsPutInOrderAtThePlaneIsTold)
{
    Soup turned = box(40, 30, 20);
    for (auto& triangle : turned.triangles) {
        auto const isBelow = [&](std::uint32_t corner) { return turned.points[corner].Z() < 10; };
        if (std::ranges::any_of(triangle, isBelow) && !std::ranges::all_of(triangle, isBelow)) {
            std::swap(triangle[1], triangle[2]);
            break;
        }
    }
    EXPECT_EQ(kindsOf(remarksOf<PinHoleCutter>(usualPins(), turned, 10)),
              Kinds{Kind::PartPutInOrder});
    EXPECT_EQ(kindsOf(remarksOf<PinHoleCutter>(usualPins(false), turned, 10)),
              Kinds{Kind::PartPutInOrder});
    EXPECT_EQ(kindsOf(remarksOf<LapJointCutter>(usualJoint(), turned, 10)),
              Kinds{Kind::PartPutInOrder});
}
