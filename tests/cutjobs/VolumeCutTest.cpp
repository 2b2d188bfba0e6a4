// SPDX-License-Identifier: GPL-3.0-or-later
#include "cutjobs/PolygonCutImp.h"
#include "cutjobs/ResultIntegration.h"
#include "tests/display/DrawnTool.h"
#include "tests/support/BooleanJudge.h"
#include "tests/support/MadeModels.h"
#include "tests/support/Validator.h"
#include "tools/CuboidGraphicObject.h"
#include "tools/CylinderGraphicObject.h"
#include "tools/PolygonGraphicObject.h"

#include <gtest/gtest.h>

namespace {

using Freecut::CuboidGraphicObject;
using Freecut::CylinderGraphicObject;
using Freecut::PolygonGraphicObject;

/// Hands the tool's solids to a worker and cuts, as a dialog does.
template <typename Tool>
CutResultMap cutBy(Tool& tool, std::vector<Mesh::DocumentObject*> const& parts)
{
    bool const useClearance = tool.getProperty().getClearanceEnabled();
    std::vector<UMesh<float>*> meshes;
    if (useClearance)
        meshes = tool.createInandOutMesh();
    else
        meshes = {tool.createMesh()};
    PolygonCutImp worker(nullptr);
    worker.setObjects(parts);
    worker.setParas(useClearance, useClearance && meshes.size() == 1);
    worker.setInOutPolygonMesh(new MeshKernel(meshes.front()),
                               meshes.size() > 1 ? new MeshKernel(meshes.back()) : nullptr);
    bool isDone = false;
    QObject::connect(&worker, &CutWorker::resultReady, [&](bool ok) { isDone = ok; });
    worker.doWork();
    EXPECT_TRUE(isDone);
    return worker.getResult();
}

std::vector<Soup> piecesOf(CutResultMap const& result, Mesh::DocumentObject* part)
{
    std::vector<Soup> pieces;
    auto const found = result.find(part);
    if (found != result.end())
        for (auto const& piece : found->second) {
            EXPECT_EQ(closedSolidFaults(*piece), "");
            pieces.push_back(soupOf(*piece));
        }
    return pieces;
}

double gapVolume(Soup const& part, std::vector<Soup> const& pieces)
{
    double volume = volumeOf(part);
    for (Soup const& piece : pieces)
        volume -= volumeOf(piece);
    return volume;
}

/// The triangles that look sideways of the tool: its walls. Parts have none in their middle.
std::vector<UPoint3<double>> wallPoints(Soup const& piece, UBox3<float> const& within)
{
    std::vector<UPoint3<double>> points;
    for (auto const& t : piece.triangles) {
        UPoint3<float> const a = piece.points[t[0]], b = piece.points[t[1]], c = piece.points[t[2]];
        UVector3<float> const n = ((b - a) * (c - a)).Normalize();
        if (std::abs(n.Z()) > 0.01f)
            continue;
        for (auto const& [u, v] :
             {std::pair(0.2f, 0.2f), {0.6f, 0.2f}, {0.2f, 0.6f}, {0.33f, 0.33f}}) {
            UPoint3<float> const p = a + (b - a) * u + (c - a) * v;
            if (p.X() > within.MinX() && p.X() < within.MaxX() && p.Y() > within.MinY() &&
                p.Y() < within.MaxY())
                points.push_back({p.X(), p.Y(), p.Z()});
        }
    }
    return points;
}

/// Expects every point of one piece's wall to be a clearance away from the other piece.
void expectGap(Soup const& piece, Soup const& other, UBox3<float> const& within, double clearance)
{
    auto const points = wallPoints(piece, within);
    ASSERT_GT(points.size(), 20u);
    for (auto const& p : points)
        EXPECT_NEAR(distanceFrom(other, p), clearance, 0.003);
}

}  // namespace

TEST(VolumeCut, PiecesOfEveryToolAddUpToThePart)
{
    for (int const kind : {0, 1, 2}) {
        DrawnDocument scene;
        auto* const part = scene.add(box(30, 30, 30), "part");
        CutResultMap result;
        double expected = 0;
        if (kind == 0) {
            auto* const tool = scene.draw<PolygonGraphicObject>({{5, 5}, {25, 5}, {5, 25}});
            tool->getProperty().setShapeParameters(false, 0, 0, false, 0, 178, false, 0, false, 2);
            expected = 200 * 30;
            result = cutBy(*tool, {part});
        } else if (kind == 1) {
            auto* const tool = scene.draw<CylinderGraphicObject>({{15, 15}});
            tool->getProperty().setShapeParameters(false, 0, 0, false, 0, 178, false, 2, 5, false,
                                                   2, 2, 0, 0.025f);
            expected = 32 * 12.5 * std::sin(2 * M_PI / 32) * 30;
            result = cutBy(*tool, {part});
        } else {
            auto* const tool = scene.draw<CuboidGraphicObject>({{15, 15}});
            tool->getProperty().setCuboidParameters(false, 0, 0, false, 0, 178, false, 0, false, 2,
                                                    6, 8, 0.3f);
            expected = 48 * 30;
            result = cutBy(*tool, {part});
        }
        auto const pieces = piecesOf(result, part);
        ASSERT_EQ(pieces.size(), 2u) << kind;
        EXPECT_NEAR(volumeOf(pieces[0]), expected, expected * 1e-5);
        EXPECT_NEAR(gapVolume(box(30, 30, 30), pieces), 0, 0.01);
    }
}

TEST(VolumeCut, TheGapIsTheClearanceEverywhereAlongTheWall)
{
    for (int const direction : {0, 1, 2}) {
        double const gap = direction == 2 ? 0.6 : 0.3;
        DrawnDocument scene;
        auto* const part = scene.add(box(40, 40, 20), "part");
        auto* const tool = scene.draw<CylinderGraphicObject>({{20, 20}});
        tool->getProperty().setShapeParameters(true, direction, 0.3f, false, 0, 178, false, 2, 8,
                                               false, 2, 2, 0, 0.01f);
        auto const pieces = piecesOf(cutBy(*tool, {part}), part);
        ASSERT_EQ(pieces.size(), 2u);
        UBox3<float> const middle({1, 1, -1}, {39, 39, 21});
        expectGap(pieces[0], pieces[1], middle, gap);
        expectGap(pieces[1], pieces[0], middle, gap);
    }
}

TEST(VolumeCut, TheGapOfANotchAndOfADrawnPolygonIsTheClearance)
{
    UBox3<float> const middle({1, 1, -1}, {39, 39, 21});
    DrawnDocument scene;
    auto* const part = scene.add(box(40, 40, 20), "part");
    auto* const notched = scene.draw<CylinderGraphicObject>({{20, 20}});
    notched->getProperty().setShapeParameters(true, 1, 0.25f, false, 0, 178, false, 2, 8, true, 4,
                                              3, 30, 0.01f);
    auto const ofNotch = piecesOf(cutBy(*notched, {part}), part);
    ASSERT_EQ(ofNotch.size(), 2u);
    // Inner corners of the outer wall are as far away as the clearance or farther.
    expectGap(ofNotch[1], ofNotch[0], middle, 0.25);
    auto* const polygon =
        scene.draw<PolygonGraphicObject>({{5, 5}, {33, 8}, {25, 18}, {34, 34}, {6, 30}});
    polygon->getProperty().setShapeParameters(true, 1, 0.25f, false, 0, 178, false, 0, false, 2);
    auto const ofPolygon = piecesOf(cutBy(*polygon, {part}), part);
    ASSERT_EQ(ofPolygon.size(), 2u);
    expectGap(ofPolygon[1], ofPolygon[0], middle, 0.25);
}

TEST(VolumeCut, CutTillEndsTheToolInsideAtAndBeyondTheParts)
{
    // Seen from above: the tool ends at a height. Beyond the upper end it stands above the part.
    for (auto const& [till, expected] :
         {std::pair(12.0f, 100.0 * 18), {0.0f, 100.0 * 30}, {-5.0f, 100.0 * 30}, {30.0f, 0.0}}) {
        DrawnDocument scene;
        auto* const part = scene.add(box(30, 30, 30), "part");
        auto* const tool = scene.draw<CuboidGraphicObject>({{15, 15}});
        tool->getProperty().setCuboidParameters(false, 0, 0, true, till, 178, false, 0, false, 2,
                                                10, 10, 0);
        auto const pieces = piecesOf(cutBy(*tool, {part}), part);
        ASSERT_EQ(pieces.size(), expected > 0 ? 2u : 1u) << till;
        if (expected > 0) {
            EXPECT_NEAR(volumeOf(pieces[0]), expected, 0.05) << till;
        }
        EXPECT_NEAR(gapVolume(box(30, 30, 30), pieces), 0, 0.01);
    }
}

TEST(VolumeCut, AToolThatEndsAboveItsOwnTopLeavesThePartWhole)
{
    DrawnDocument scene;
    auto* const part = scene.add(box(30, 30, 30), "part");
    auto* const polygon = scene.draw<PolygonGraphicObject>({{5, 5}, {25, 5}, {5, 25}});
    polygon->getProperty().setShapeParameters(false, 0, 0, true, 50, 178, false, 0, false, 2);
    EXPECT_EQ(piecesOf(cutBy(*polygon, {part}), part).size(), 1u);
    auto* const cuboid = scene.draw<CuboidGraphicObject>({{15, 15}});
    cuboid->getProperty().setCuboidParameters(false, 0, 0, true, 50, 178, false, 0, false, 2, 10,
                                              10, 0);
    EXPECT_EQ(piecesOf(cutBy(*cuboid, {part}), part).size(), 1u);
}

TEST(VolumeCut, AFreeViewCutsAlongItself)
{
    DrawnDocument scene(6);
    Soup const body = box(30, 30, 30);
    auto* const part = scene.add(body, "part");
    UPoint3<float> middle(15, 15, 15);
    scene.view.getEyePointFromWCSPoint(middle);
    auto* const tool = scene.draw<CuboidGraphicObject>({{middle.X(), middle.Y()}});
    tool->getProperty().setCuboidParameters(true, 2, 0.2f, false, 0, 178, true, 1, false, -1, 6, 8,
                                            0);
    auto const pieces = piecesOf(cutBy(*tool, {part}), part);
    ASSERT_EQ(pieces.size(), 2u);
    double const gap = gapVolume(body, pieces);
    EXPECT_GT(gap, 0.4 * 26 * 40);
    EXPECT_LT(gap, 0.4 * 28 * 52);
}

TEST(VolumeCut, ACapWithoutEarsFarFromThePartDoesNotSpoilTheCut)
{
    // Rounded twice, this outline has points in pairs of equal position, and no ears at its end.
    DrawnDocument scene(6);
    Soup const body = box(20, 20, 20, {-10, -10, -10});
    auto* const part = scene.add(body, "part");
    auto* const tool = scene.draw<PolygonGraphicObject>({{-3, -2}, {-3, 5}, {4, -2}});
    tool->getProperty().setShapeParameters(true, 2, 0.25f, false, 0, 178, true, 0.5f, false, 6);
    auto const pieces = piecesOf(cutBy(*tool, {part}), part);
    ASSERT_EQ(pieces.size(), 2u);
    EXPECT_GT(volumeOf(pieces[0]), 100);
    EXPECT_GT(gapVolume(body, pieces), 100);
    EXPECT_LT(gapVolume(body, pieces), 0.5 * 24 * 35);
}

TEST(VolumeCut, ToolsThatEndWithinThePartCloseWhereTheirPointsCoincide)
{
    // Rounded twice, some of these outlines have points in one place, and no ears at their end: the
    // cap that this leaves open lies within the part, which is cut till half its height.
    int openTools = 0;
    for (int step = 0; step < 90; ++step) {
        DrawnDocument scene;
        Soup const body = box(60, 60, 20);
        auto* const part = scene.add(body, "part");
        auto* const tool = scene.draw<CuboidGraphicObject>({{29.3f, 31.1f}});
        float const length = 30.17f, width = 21.63f, clearance = 0.4f;
        auto const shape = [&] {
            tool->getProperty().setCuboidParameters(true, 2, clearance, true, 10, 178, true,
                                                    0.2f + 0.017f * float(step), false, 2, width,
                                                    length, float(step));
        };
        shape();
        for (UMesh<float>* const mesh : tool->createInandOutMesh()) {
            Soup soup = soupOf(mesh);
            soup.joinPoints();
            openTools += borderEdgesOf(soup) > 0;
        }
        shape();
        auto const pieces = piecesOf(cutBy(*tool, {part}), part);
        ASSERT_EQ(pieces.size(), 2u) << step;
        double const inner = (length - 2 * clearance) * (width - 2 * clearance) * 10;
        double const outer = (length + 2 * clearance) * (width + 2 * clearance) * 10;
        // What rounding takes off the four corners, twice.
        double const corners = 2 * (4 - M_PI) * 25 * 10;
        // Points are whole thousandths.
        EXPECT_LT(volumeOf(pieces[0]), inner + 1) << step;
        EXPECT_GT(volumeOf(pieces[0]), inner - corners) << step;
        EXPECT_GT(volumeOf(pieces[1]), volumeOf(body) - outer) << step;
        EXPECT_LT(volumeOf(pieces[1]), volumeOf(body) - outer + corners) << step;
    }
    EXPECT_GT(openTools, 0);
}

TEST(VolumeCut, PiecesReplaceTheirPartInOneStep)
{
    DrawnDocument scene;
    auto* const part = scene.add(box(30, 30, 30), "part");
    auto* const tool = scene.draw<CuboidGraphicObject>({{15, 15}});
    tool->getProperty().setCuboidParameters(false, 0, 0, false, 0, 178, false, 0, false, 2, 10, 10,
                                            0);
    IntegrationRules rules;
    rules.transactionName = "Polygon Cut";
    rules.removesSources = true;
    ResultIntegration integration(scene.document, rules);
    CutResultMap const result = cutBy(*tool, {part});
    integration.begin(result);
    integration.end();
    EXPECT_EQ(scene.document->getMeshObjects().size(), 2u);
    EXPECT_EQ(std::ranges::count(scene.document->getMeshObjects(), part), 0);
}

TEST(VolumeCut, PiecesOfModelsAddUp)
{
    for (auto const& [name, soup] : closedModels(200000)) {
        DrawnDocument scene;
        auto* const part = scene.add(soup, name);
        UBox3<float> const box = part->getBoundingBox();
        UPoint3<float> const middle = (box.min + box.max) * 0.5f;
        float const size = std::min(box.MaxX() - box.MinX(), box.MaxY() - box.MinY());
        UPoint3<float> eye = middle;
        scene.view.getEyePointFromWCSPoint(eye);
        auto* const tool = scene.draw<CylinderGraphicObject>({{eye.X(), eye.Y()}});
        tool->getProperty().setShapeParameters(false, 0, 0, false, 0, 178, false, 2, size * 0.3f,
                                               true, size * 0.1f, size * 0.1f, 40, size * 0.001f);
        auto const pieces = piecesOf(cutBy(*tool, {part}), part);
        double const whole = volumeOf(soup);
        EXPECT_GE(pieces.size(), 1u) << name;
        EXPECT_NEAR(gapVolume(soup, pieces), 0, std::abs(whole) * 1e-5) << name;
        tool->getProperty().setShapeParameters(true, 1, size * 0.005f, false, 0, 178, false, 2,
                                               size * 0.3f, false, 1, 1, 0, size * 0.001f);
        auto const apart = piecesOf(cutBy(*tool, {part}), part);
        EXPECT_GE(gapVolume(soup, apart), -std::abs(whole) * 1e-5) << name;
    }
}
