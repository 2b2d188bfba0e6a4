// SPDX-License-Identifier: GPL-3.0-or-later
#include "connectors/LapJointCutter.h"
#include "connectors/LapJointOutline.h"
#include "connectors/PinHoleCutter.h"
#include "connectors/PlaneRibbon.h"
#include "connectors/SectionSurvey.h"
#include "cutjobs/common/PlaneMesh.h"
#include "platform/jobs/Exceptions.h"
#include "platform/services/Intersect.h"
#include "tests/connectors/ConnectorScene.h"
#include "tests/connectors/CutterRun.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/RandomSolids.h"
#include "tests/support/TestDocument.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>

namespace {

using Point = UPoint3<float>;
using Points = std::vector<Point>;
using State = ChosenConnector::State;

/// One part in a document, and what a survey of it takes.
struct Scene
{
    TestDocument test;
    Mesh::DocumentObject* part;

    explicit Scene(Soup const& soup) : part(test.add(soup, "part")) {}

    SectionSurvey survey(Freecut::PlaneGraphicObject const& plane, ConnectorParas const& paras,
                         ConnectorChoice const& choice = {}, bool isBounded = false)
    {
        SurveyRequest request{part, PlacedMesh(*part->meshProperty->getMesh()),
                              SectionPlanes(plane, {part}, isBounded)};
        request.connectors = paras;
        request.choice = choice;
        return surveySection(request, {});
    }
};

std::vector<std::string> textsOf(CutRemarks const& remarks)
{
    std::vector<std::string> texts;
    for (CutRemark const& remark : remarks)
        if (remark.kind != CutRemark::Kind::PieceFallsApart)
            texts.push_back(remark.text);
    return texts;
}

/// The same mesh to the last bit: places of the vertices, and which triangle has which.
void expectSameMesh(MeshKernel const& a, MeshKernel const& b)
{
    auto const x = a.readMesh(), y = b.readMesh();
    ASSERT_EQ(x->vertices.size(), y->vertices.size());
    ASSERT_EQ(x->triangles.size(), y->triangles.size());
    for (std::size_t i = 0; i < x->vertices.size(); ++i) {
        Point const p = x->vertices[i]->cP(), q = y->vertices[i]->cP();
        ASSERT_EQ(std::memcmp(&p, &q, sizeof p), 0) << i;
    }
    for (std::size_t i = 0; i < x->triangles.size(); ++i)
        for (int k = 0; k < 3; ++k)
            ASSERT_EQ(x->triangles[i]->cV(k)->cID(), y->triangles[i]->cV(k)->cID()) << i;
}

/// Cuts the ribbon and the whole part, and expects one section.
void expectSectionOfWhole(MeshKernel& part, Freecut::PlaneGraphicObject const& plane,
                          UBox3<float> const& box)
{
    MeshKernel planeMesh;
    auto const& points = plane.getProperty().getKeyPoints();
    PlaneMesh::fill(
        planeMesh.getMesh().get(),
        PlaneMesh::span(box, points[0], points[1], points[2], PlaneMesh::Reach::DiagonalAlongAxes));
    PlaneRibbon const ribbon = PlaneRibbon::of(PlacedMesh(part), planeMesh);
    MeshKernel upper, lower, whole, ribbonUpper, ribbonLower, section;
    Intersect::cutByPlane(&part, &planeMesh, &upper, &lower, &whole, {}, true);
    Intersect::cutByPlane(ribbon.triangles.get(), &planeMesh, &ribbonUpper, &ribbonLower, &section,
                          {}, true);
    expectSameMesh(whole, section);
}

UBox3<float> boxOf(Soup const& soup)
{
    UBox3<float> box;
    for (Point const& p : soup.points)
        box.Add(p);
    return box;
}

PinHoleParas smallPins(bool isPin = true)
{
    PinHoleParas paras;
    paras.radius = 1;
    paras.height = 3;
    paras.isPin = isPin;
    return paras;
}

}  // namespace

// The plane runs through corners, edges and faces of some of these.
TEST(PlaneRibbon, HasTheSectionOfTheWholePartToTheLastBit)
{
    std::mt19937 random(7);
    for (NamedSoup const& mesh : closedMeshes())
        for (int i = 0; i < 12; ++i) {
            SCOPED_TRACE(mesh.name + " " + std::to_string(i));
            Soup const soup = i % 3 == 2 ? shuffled(mesh.soup, unsigned(i)) : mesh.soup;
            auto const part = kernelOf(soup);
            UBox3<float> const box = boxOf(soup);
            UVector3<float> const diagonal = box.max - box.min;
            // Whole numbers first, where coordinates coincide; then any direction.
            std::uniform_real_distribution<float> angle(0, 6.28f), share(0.1f, 0.9f);
            float const t = i < 6 ? 0 : angle(random), tilt = i < 6 ? 0 : angle(random);
            UVector3<float> const first(std::cos(t), std::sin(t), 0);
            UVector3<float> const second(-std::sin(t) * std::cos(tilt),
                                         std::cos(t) * std::cos(tilt), std::sin(tilt));
            Point const centre =
                i < 6 ? Point(std::round(box.min.X() + diagonal.X() / 2),
                              std::round(box.min.Y() + diagonal.Y() / 2),
                              std::round(box.min.Z() + diagonal.Z() * 0.2f * float(i)))
                      : box.min + diagonal * share(random);
            expectSectionOfWhole(*part, *planeAt(centre, first, second), box);
        }
}

TEST(PlaneRibbon, HasTheSectionOfAPartUnderAMatrix)
{
    std::mt19937 random(3);
    for (int i = 0; i < 10; ++i) {
        auto const part = kernelOf(sphere(10, 40, 60));
        part->getMatrix() = randomMotion(random, 300);
        UBox3<float> const box = boxOf(soupOf(*part));
        expectSectionOfWhole(*part, *planeAt(box.min + (box.max - box.min) * 0.4f), box);
    }
}

TEST(PlaneRibbon, KnowsHowFarThePartReaches)
{
    MeshKernel plane;
    PlaneMesh::fill(plane.getMesh().get(),
                    {Point(0, 0, 4), Point(1, 0, 4), Point(1, 1, 4), Point(0, 1, 4)});
    PlaneRibbon const ribbon = PlaneRibbon::of(PlacedMesh(*kernelOf(box(10, 10, 10))), plane);
    EXPECT_EQ(ribbon.lowest, -4);
    EXPECT_EQ(ribbon.highest, 6);
    // The sides, not the ends.
    EXPECT_EQ(ribbon.triangles->readMesh()->triangles.size(), 8u);
}

TEST(SectionSurvey, SaysOfEachConnectorWhetherItLeavesThePart)
{
    // What is left above the plane or below it is 3 mm, less than a hole of both halves is deep.
    for (float const height : {3.0f, 10.0f, 17.0f})
        for (bool const isPin : {true, false}) {
            SCOPED_TRACE(testing::Message() << height << (isPin ? " pins" : " holes"));
            Scene scene(box(40, 30, 20));
            PinHoleParas paras = smallPins(isPin);
            paras.height = 5;
            auto const plane = planeAt({0, 0, height});
            SectionSurvey const survey = scene.survey(*plane, paras);
            EXPECT_FALSE(survey.connectors.empty());
            bool const leaves = height == 17 || (height == 3 && !isPin);
            for (ChosenConnector const& connector : survey.connectors)
                EXPECT_EQ(connector.leavesPart, leaves);
        }
}

TEST(SectionSurvey, FindsThePinsOfTheCutAndSaysWhatItSays)
{
    auto meshes = closedMeshes();
    for (NamedSoup& real : closedRealMeshes(20000))
        meshes.push_back(std::move(real));
    int compared = 0;
    for (NamedSoup const& mesh : meshes) {
        UBox3<float> const box = boxOf(mesh.soup);
        float const scale = 60 / (box.max - box.min).GetLength();
        float const values[16] = {scale, 0, 0, 0, 0, scale, 0, 0, 0, 0, scale, 0, 0, 0, 0, 1};
        Soup const soup = moved(mesh.soup, UMatrix4<float>(values));
        auto const plane =
            planeAt((box.min + (box.max - box.min) * 0.47f) * scale, {0.8f, 0, 0.6f}, {0, 1, 0});
        for (bool const isPin : {true, false}) {
            SCOPED_TRACE(mesh.name);
            Scene scene(soup);
            PinHoleParas const paras = smallPins(isPin);
            SectionSurvey const survey = scene.survey(*plane, paras);
            PinHoleCutter cutter(paras, false, {scene.part}, plane.get());
            cutter.execute({});
            auto const record = cutter.sections().find(scene.part);
            ASSERT_NE(record, cutter.sections().end());
            EXPECT_EQ(survey.area, record->second.area);
            EXPECT_EQ(survey.contours.size(), record->second.contours);
            EXPECT_EQ(standingPositions(survey.connectors), record->second.positions);
            EXPECT_EQ(textsOf(survey.remarks), textsOf(cutter.remarks()));
            compared += int(survey.connectors.size());
        }
    }
    EXPECT_GT(compared, 100);
}

TEST(SectionSurvey, FindsTheJointOfTheCutAndSaysWhatItSays)
{
    for (Soup const& soup : {box(40, 30, 20), tube(20, 8, 20, 48), box(3, 3, 20)})
        for (float const height : {10.0f, 18.0f, 19.9f}) {
            Scene scene(soup);
            LapJointParas const paras;
            auto const plane = planeAt({0, 0, height});
            SectionSurvey const survey = scene.survey(*plane, paras);
            LapJointCutter cutter(paras, false, {scene.part}, plane.get());
            cutter.execute({});
            EXPECT_EQ(textsOf(survey.remarks), textsOf(cutter.remarks())) << height;
            auto const& remarks = cutter.remarks();
            bool const hasJoint = std::none_of(remarks.begin(), remarks.end(), [](auto const& r) {
                return r.kind == CutRemark::Kind::NoRoomForConnectors;
            });
            EXPECT_EQ(survey.tongue.size() != 0 && survey.notch.size() != 0, hasJoint) << height;
        }
}

TEST(SectionSurvey, TellsWhatThePlaneMissesAndWhatTheGapTakes)
{
    PinHoleParas wide = smallPins();
    wide.faceclearance = 12;
    PinHoleParas none = smallPins();
    none.faceclearance = 0;
    for (PinHoleParas const& paras : {smallPins(), wide, none})
        for (float const height : {-20.0f, -5.0f, -1.0f, 0.0f, 1.0f, 5.0f, 9.0f, 10.0f, 15.0f}) {
            Scene scene(box(10, 10, 10));
            auto const plane = planeAt({0, 0, height});
            SectionSurvey const survey = scene.survey(*plane, paras);
            PinHoleCutter cutter(paras, false, {scene.part}, plane.get());
            cutter.execute({});
            EXPECT_EQ(textsOf(survey.remarks), textsOf(cutter.remarks()))
                << height << " " << paras.faceclearance;
        }
}

TEST(SectionSurvey, ABoundedPlaneIsSurveyedLikeItCuts)
{
    // A bridge on two posts: a plane over one post, over both, and over a half.
    Soup const bridge = fromFrontView({"###", "#.#"});
    for (float const half : {6.0f, 30.0f, 3.0f}) {
        Scene scene(bridge);
        auto const plane = planeAt({5, 5, 5}, {1, 0, 0}, {0, 1, 0}, half);
        SectionSurvey const survey = scene.survey(*plane, smallPins(), {}, true);
        PinHoleCutter cutter(smallPins(), true, {scene.part}, plane.get());
        cutter.execute({});
        EXPECT_EQ(survey.area, cutter.sections().at(scene.part).area) << half;
        EXPECT_EQ(standingPositions(survey.connectors), cutter.sections().at(scene.part).positions);
        EXPECT_EQ(textsOf(survey.remarks), textsOf(cutter.remarks()));
    }
}

TEST(SectionSurvey, MarksTheConnectorsThatLeaveThePart)
{
    // A step: on one side the part ends 2 mm above the plane.
    Soup stairs = fromFrontView({"#..", "###"});
    Scene scene(stairs);
    PinHoleParas paras = smallPins();
    auto const plane = planeAt({0, 0, 8});
    SectionSurvey const survey = scene.survey(*plane, paras);
    std::size_t leaving = 0;
    for (ChosenConnector const& connector : survey.connectors) {
        EXPECT_EQ(connector.leavesPart, connector.position.X() > 9.01f - paras.radius)
            << connector.position.X();
        leaving += connector.leavesPart;
    }
    EXPECT_GT(leaving, 0u);
    EXPECT_LT(leaving, survey.connectors.size());
}

TEST(SectionSurvey, EndsWhenItsPollThrows)
{
    Scene scene(sphere(10, 200, 300));
    auto const plane = planeAt({0, 0, 0});
    SurveyRequest request{scene.part, PlacedMesh(*scene.part->meshProperty->getMesh()),
                          SectionPlanes(*plane, {scene.part}, false)};
    request.connectors = smallPins();
    for (int const allowed : {0, 1, 2, 5}) {
        int calls = 0;
        EXPECT_THROW(surveySection(request,
                                   [&] {
                                       if (calls++ >= allowed)
                                           throw Mell::AbortException("Aborting...");
                                   }),
                     Mell::AbortException)
            << allowed;
    }
}

TEST(SectionSurvey, SaysWhyAnOpenPartCannotBeCut)
{
    Scene scene(openBox(10, 10, 10));
    EXPECT_THROW(scene.survey(*planeAt({5, 5, 5}, {0, 1, 0}, {0, 0, 1}), smallPins()),
                 Mell::Exception);
}

TEST(ConnectorChoice, AddedConnectorsMakeThoseInTheirWayGive)
{
    PinHoleParas const paras = smallPins();
    PlaneFrame const frame = frameOf(*planeAt({0, 0, 5}));
    ConnectorChoice choice;
    choice.added = {{1.5f, 0, 5}, {20, 0, 7}, {20.5f, 0, 5}};
    choice.leftOut = {{9, 0, 5}};
    auto const found = connectorsOf({{0, 0, 5}, {10, 0, 5}, {30, 0, 5}}, choice, paras, frame);
    ASSERT_EQ(found.size(), 6u);
    EXPECT_EQ(found[0].state, State::GivesWay);
    EXPECT_EQ(found[1].state, State::LeftOut);
    EXPECT_EQ(found[2].state, State::Stands);
    EXPECT_EQ(found[3].state, State::Stands);
    // It follows the plane along the normal.
    EXPECT_EQ(found[4].position, Point(20, 0, 5));
    EXPECT_EQ(found[4].state, State::Stands);
    EXPECT_EQ(found[5].state, State::GivesWay);
    EXPECT_EQ(standingPositions(found), (Points{{30, 0, 5}, {1.5f, 0, 5}, {20, 0, 5}}));
}

TEST(ConnectorChoice, WhatIsLeftOutStaysSoWhileItMovesALittle)
{
    PinHoleParas paras = smallPins();
    paras.spacing = 6;
    PlaneFrame const frame = frameOf(*planeAt({0, 0, 5}));
    ConnectorChoice choice;
    choice.leftOut = {{0, 0, 5}};
    EXPECT_EQ(connectorsOf({{2.9f, 0, 5}}, choice, paras, frame)[0].state, State::LeftOut);
    EXPECT_EQ(connectorsOf({{3.1f, 0, 5}}, choice, paras, frame)[0].state, State::Stands);
    choice = {};
    choice.leavesOutAutomatic = true;
    choice.added = {{0, 0, 5}};
    auto const found = connectorsOf({{8, 0, 5}}, choice, paras, frame);
    EXPECT_EQ(found[0].state, State::LeftOut);
    EXPECT_EQ(found[1].state, State::Stands);
}

TEST(PinHoleCutter, PutsPinsWhereAListSays)
{
    Soup const block = box(40, 30, 20);
    TestDocument test;
    auto* const part = test.add(block, "part");
    auto const plane = planeAt({0, 0, 10});
    PinHoleParas paras = smallPins();
    paras.faceclearance = 0;
    for (Points const& list : {Points{{5, 5, 10}, {31, 22, 10}}, Points{}}) {
        PinHoleCutter cutter(paras, false, {part}, plane.get());
        cutter.setPositions({{part, list}});
        cutter.execute({});
        EXPECT_EQ(cutter.sections().at(part).positions, list);
        EXPECT_TRUE(cutter.remarks().empty());
        auto const& pieces = cutter.getResult().at(part);
        ASSERT_EQ(pieces.size(), 2u);
        if (list.empty())
            continue;
        Soup const lower = soupOf(*pieces[0]), upper = soupOf(*pieces[1]);
        expectFit(block, {lower, upper}, {0, 0, 0});
        for (Point const& p : list) {
            EXPECT_EQ(crossingsAlongZ(lower, p.X() + 0.1f, p.Y() + 0.05f).back(), 13);
            EXPECT_NEAR(crossingsAlongZ(upper, p.X() + 0.1f, p.Y() + 0.05f).front(), 13.01f, 1e-5);
        }
        EXPECT_EQ(crossingsAlongZ(lower, 20.1f, 15.2f).back(), 10);
    }
}

TEST(PinHoleCutter, RefusesAListOfConnectorsThatOverlap)
{
    TestDocument test;
    auto* const part = test.add(box(40, 30, 20), "part");
    auto const plane = planeAt({0, 0, 10});
    PinHoleCutter cutter(smallPins(), false, {part}, plane.get());
    cutter.setPositions({{part, {{5, 5, 10}, {6.5f, 5, 10}}}});
    EXPECT_THROW(cutter.execute({}), Mell::Exception);
    EXPECT_TRUE(cutter.getResult().empty());
}

// A pin half beside the part, and one that touches nothing of it.
TEST(PinHoleCutter, PinsBesideTheSectionLeaveClosedPieces)
{
    Soup const block = box(40, 30, 20);
    TestDocument test;
    auto* const part = test.add(block, "part");
    auto const plane = planeAt({0, 0, 10});
    for (Point const& place : {Point(0, 15, 10), Point(-30, 15, 10), Point(-1, -1, 10)})
        for (bool const isPin : {true, false}) {
            PinHoleCutter cutter(smallPins(isPin), false, {part}, plane.get());
            cutter.setPositions({{part, {place}}});
            cutter.execute({});
            auto const& pieces = cutter.getResult().at(part);
            ASSERT_EQ(pieces.size(), 2u) << place.X();
            for (auto const& piece : pieces)
                EXPECT_EQ(closedSolidFaults(*piece), "") << place.X();
            ASSERT_FALSE(cutter.remarks().empty());
            EXPECT_EQ(cutter.remarks()[0].kind, CutRemark::Kind::ConnectorLeavesPart);
        }
}
