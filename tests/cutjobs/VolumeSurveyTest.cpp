// SPDX-License-Identifier: GPL-3.0-or-later
#include "cutjobs/PolygonCutImp.h"
#include "cutjobs/VolumeSurvey.h"
#include "cutjobs/common/Bodies.h"
#include "cutjobs/common/PartMesh.h"
#include "display/VolumeViewProvider.h"
#include "platform/jobs/Exceptions.h"
#include "tests/cutjobs/ConsoleLines.h"
#include "tests/display/DrawnTool.h"
#include "tests/support/MadeModels.h"
#include "tests/support/Validator.h"
#include "tools/CuboidGraphicObject.h"
#include "tools/CylinderGraphicObject.h"
#include "tools/PolygonGraphicObject.h"
#include "tools/VolumeOutline.h"

#include <gtest/gtest.h>

namespace {

using namespace Freecut;

SolidLoops loopsOf(VolumeGraphicObject& tool)
{
    auto const& provider = dynamic_cast<VolumeViewProvider&>(*tool.getViewProvider());
    return SolidLoops::of(*provider.getOutline());
}

VolumeForecast forecastOf(Mesh::DocumentObject* part, SolidLoops const& tool)
{
    auto const forecasts =
        surveyVolumeCut({{{part, std::make_shared<MeshKernel>(*kernelOfPart(part))}}, tool}, {});
    EXPECT_EQ(forecasts.size(), 1u);
    return forecasts.empty() ? VolumeForecast() : forecasts[0];
}

struct Cut
{
    std::vector<Soup> pieces;
    CutRemarks remarks;
    bool isDone = false;
};

/// The cut that the dialog makes with the tool.
Cut cutBy(VolumeGraphicObject& tool, Mesh::DocumentObject* part)
{
    bool const hasClearance = tool.getVolumeProperty().getClearanceEnabled();
    std::vector<UMesh<float>*> const meshes =
        hasClearance ? tool.createInandOutMesh() : std::vector{tool.createMesh()};
    PolygonCutImp worker(nullptr);
    worker.setObjects({part});
    worker.setParas(hasClearance, meshes.size() == 1);
    worker.setInOutPolygonMesh(new MeshKernel(meshes.front()),
                               meshes.size() > 1 ? new MeshKernel(meshes.back()) : nullptr);
    Cut cut;
    QObject::connect(&worker, &CutWorker::resultReady, [&](bool ok) { cut.isDone = ok; });
    worker.doWork();
    for (auto const& [object, pieces] : worker.getResult())
        for (auto const& piece : pieces)
            cut.pieces.push_back(soupOf(*piece));
    cut.remarks = worker.remarks();
    return cut;
}

/// A comb of 20 x 30 x 10 mm with its teeth along y, and a rectangle across all of them.
class Comb : public testing::Test
{
protected:
    Comb() : part(scene.add(fromFrontView({"#.#.#.#", "#.#.#.#", "#######"}), "comb"))
    {
        scene.view.OnViewType(0);
    }
    PolygonGraphicObject* drawAcross(bool hasClearance, int direction, float clearance)
    {
        // On the screen of the view from the front: x to the right, z up.
        auto* const tool =
            scene.draw<PolygonGraphicObject>({{-5, 12}, {75, 12}, {75, 40}, {-5, 40}});
        tool->getProperty().setShapeParameters(hasClearance, direction, clearance, false, 0, 178,
                                               false, 0, false, 0);
        return tool;
    }

    DrawnDocument scene;
    Mesh::DocumentObject* part;
};

}  // namespace

TEST_F(Comb, FallsIntoItsTeethAndItsBack)
{
    auto* const tool = drawAcross(false, 0, 0);
    VolumeForecast const forecast = forecastOf(part, loopsOf(*tool));
    EXPECT_EQ(forecast.inside, 4u);
    EXPECT_EQ(forecast.outside, 1u);
    EXPECT_EQ(forecast.failure, "");
    EXPECT_FALSE(forecast.remark);
    Cut const cut = cutBy(*tool, part);
    ASSERT_EQ(cut.pieces.size(), 2u);
    EXPECT_EQ(componentsOf(cut.pieces[0]), 4u);
    EXPECT_EQ(componentsOf(cut.pieces[1]), 1u);
    // Four teeth of 10 x 10 mm are cut across.
    double length = 0;
    for (auto const& [a, b] : forecast.contours)
        length += double((b - a).GetLength());
    EXPECT_NEAR(length, 4 * 40, 1e-3);
}

TEST_F(Comb, HasTheLinesOfBothSidesOfAGap)
{
    auto* const tool = drawAcross(true, 2, 0.5f);
    VolumeForecast const forecast = forecastOf(part, loopsOf(*tool));
    EXPECT_EQ(forecast.inside, 4u);
    EXPECT_EQ(forecast.outside, 1u);
    double low = 0, high = 0;
    for (auto const& [a, b] : forecast.contours)
        (a.Z() < 12 ? low : high) += double((b - a).GetLength());
    EXPECT_NEAR(low, 160, 1e-3);
    EXPECT_NEAR(high, 160, 1e-3);
}

TEST(VolumeSurvey, CountsThePiecesThatTheCutMakes)
{
    std::vector<NamedSoup> const parts = {{"block", box(30, 30, 30, {-15, -15, 0})},
                                          {"ring", torus(20, 6, 48, 24)},
                                          {"lattice", lattice(3)},
                                          {"plate", mechanicalPlate()},
                                          {"figure", branchedFigure()},
                                          {"vase", twistedVase()}};
    for (auto const& [name, soup] : parts)
        for (int kind = 0; kind < 6; ++kind) {
            SCOPED_TRACE(name + ", " + std::to_string(kind));
            DrawnDocument scene;
            auto* const part = scene.add(soup, name);
            UBox3<float> const box = part->getBoundingBox();
            float const x = (box.MinX() + box.MaxX()) / 2, y = (box.MinY() + box.MaxY()) / 2;
            float const size = box.MaxX() - box.MinX();
            bool const hasClearance = kind >= 3;
            VolumeGraphicObject* tool = nullptr;
            if (kind % 3 == 0) {
                auto* const polygon = scene.draw<PolygonGraphicObject>(
                    {{x - size, y - size}, {x + size, y + 0.1f * size}, {x - size, y + size}});
                polygon->getProperty().setShapeParameters(hasClearance, 2, 0.02f * size, false, 0,
                                                          178, false, 0, false, 2);
                tool = polygon;
            } else if (kind % 3 == 1) {
                auto* const cylinder = scene.draw<CylinderGraphicObject>({{x, y}});
                cylinder->getProperty().setShapeParameters(hasClearance, 1, 0.02f * size, false, 0,
                                                           178, false, 2, 0.31f * size, true,
                                                           0.1f * size, 0.1f * size, 20, 0.025f);
                tool = cylinder;
            } else {
                auto* const cuboid = scene.draw<CuboidGraphicObject>({{x + 0.2f * size, y}});
                cuboid->getProperty().setCuboidParameters(hasClearance, 0, 0.02f * size, false, 0,
                                                          178, true, 0.03f * size, false, 2,
                                                          0.3f * size, 0.9f * size, 0.4f);
                tool = cuboid;
            }
            VolumeForecast const forecast = forecastOf(part, loopsOf(*tool));
            Cut const cut = cutBy(*tool, part);
            ASSERT_TRUE(cut.isDone);
            std::size_t pieces = 0;
            for (Soup const& piece : cut.pieces)
                pieces += componentsOf(piece);
            EXPECT_EQ(forecast.pieces(), pieces);
            EXPECT_EQ(forecast.failure, "");
        }
}

TEST(VolumeSurvey, ACavityBelongsToTheBodyAroundIt)
{
    DrawnDocument scene;
    // A hollow cube with a smaller one in it: two bodies, three shells.
    auto* const part = scene.add(nestedBoxes(), "nested");
    BodyCount const count = countBodies(*kernelOfPart(part));
    EXPECT_EQ(count.shells, 3u);
    EXPECT_EQ(count.bodies, 2u);
    UBox3<float> const box = part->getBoundingBox();
    auto* const tool = scene.draw<PolygonGraphicObject>(
        {{box.MaxX() + 5, box.MinY()}, {box.MaxX() + 9, box.MinY()}, {box.MaxX() + 9, box.MaxY()}});
    tool->getProperty().setShapeParameters(false, 0, 0, false, 0, 178, false, 0, false, 2);
    VolumeForecast const forecast = forecastOf(part, loopsOf(*tool));
    EXPECT_EQ(forecast.inside, 0u);
    EXPECT_EQ(forecast.outside, 2u);
}

TEST(VolumeSurvey, RemarksAsTheCutDoes)
{
    DrawnDocument scene;
    auto* const part = scene.add(box(10, 10, 10), "block");
    struct Case
    {
        std::vector<UPoint2<float>> points;
        float clearance;
    };
    // Beside the part, around it, and a gap that takes one of the pieces or both.
    Case const cases[] = {{{{20, 0}, {30, 0}, {20, 10}}, 0},
                          {{{-30, -30}, {60, -30}, {-30, 60}}, 0},
                          {{{-1, -1}, {11, -1}, {11, 0.1f}, {-1, 0.1f}}, 0.5f},
                          {{{-1, -1}, {11, -1}, {11, 9.9f}, {-1, 9.9f}}, 0.5f}};
    for (auto const& [points, clearance] : cases) {
        SCOPED_TRACE(points[0].X());
        auto* const tool = scene.draw<PolygonGraphicObject>(points);
        tool->getProperty().setShapeParameters(clearance > 0, 2, clearance, false, 0, 178, false, 0,
                                               false, 2);
        VolumeForecast const forecast = forecastOf(part, loopsOf(*tool));
        Cut const cut = cutBy(*tool, part);
        ASSERT_EQ(cut.remarks.size(), 1u);
        ASSERT_TRUE(forecast.remark);
        EXPECT_EQ(forecast.remark->kind, cut.remarks[0].kind);
        EXPECT_EQ(forecast.remark->text, cut.remarks[0].text);
        scene.document->removeObject(tool);
    }
}

TEST(VolumeSurvey, SaysWhyAPartCannotBeCut)
{
    DrawnDocument scene;
    auto* const part = scene.add(openBox(10, 10, 10), "open");
    auto* const sound = scene.add(box(10, 10, 10), "closed");
    // Its walls run through the opening.
    auto* const tool = scene.draw<PolygonGraphicObject>({{5, -5}, {20, -5}, {20, 15}, {5, 15}});
    tool->getProperty().setShapeParameters(false, 0, 0, false, 0, 178, false, 0, false, 2);
    SolidLoops const loops = loopsOf(*tool);
    VolumeForecast const forecast = forecastOf(part, loops);
    EXPECT_NE(forecast.failure.find("open"), std::string::npos) << forecast.failure;
    EXPECT_EQ(forecast.pieces(), 0u);
    EXPECT_TRUE(forecast.contours.empty());
    EXPECT_EQ(forecastOf(sound, loops).pieces(), 2u);
}

TEST(VolumeSurvey, IsLeftWhenSomebodyAsksItTo)
{
    DrawnDocument scene;
    auto* const part = scene.add(scannedHead(60), "head");
    UBox3<float> const box = part->getBoundingBox();
    auto* const tool = scene.draw<CylinderGraphicObject>(
        {{(box.MinX() + box.MaxX()) / 2, (box.MinY() + box.MaxY()) / 2}});
    tool->getProperty().setShapeParameters(false, 0, 0, false, 0, 178, false, 2, 10, false, 2, 2, 0,
                                           0.025f);
    VolumeRequest const request{{{part, std::make_shared<MeshKernel>(*kernelOfPart(part))}},
                                loopsOf(*tool)};
    int polls = 0;
    EXPECT_THROW(surveyVolumeCut(request,
                                 [&] {
                                     if (++polls > 5)
                                         throw Mell::AbortException("Aborting...");
                                 }),
                 Mell::AbortException);
}

TEST(VolumeSurvey, SolidsAreThoseOfTheTool)
{
    DrawnDocument scene;
    scene.add(box(30, 30, 30), "block");
    for (bool const hasClearance : {false, true})
        for (bool const isRounded : {false, true}) {
            auto* const tool =
                scene.draw<PolygonGraphicObject>({{5, 5}, {25, 5}, {22, 20}, {15, 9}, {5, 25}});
            tool->getProperty().setShapeParameters(hasClearance, 2, 0.3f, false, 0, 178, isRounded,
                                                   0.4f, false, 2);
            auto solids = loopsOf(*tool).solids();
            std::vector<UMesh<float>*> const meshes =
                hasClearance ? tool->createInandOutMesh() : std::vector{tool->createMesh()};
            ASSERT_EQ(solids.size(), meshes.size());
            for (std::size_t i = 0; i < meshes.size(); ++i) {
                Soup const a = soupOf(meshes[i]), b = soupOf(solids[i].release());
                EXPECT_EQ(a.points, b.points);
                EXPECT_EQ(a.triangles, b.triangles);
            }
            scene.document->removeObject(tool);
        }
}
