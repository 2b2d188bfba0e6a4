// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/jobs/ConsoleSingleton.h"
#include "platform/jobs/Exceptions.h"
#include "tests/document/Parts.h"
#include "tests/support/Validator.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <numbers>
#include <tuple>

namespace {

double volumeOf(Mesh::DocumentObject const& part)
{
    double volume = 0;
    double area = 0;
    part.getPartVolumnAndArea(volume, area);
    return volume;
}

void expectBox(Mesh::DocumentObject const& part, UPoint3<float> low, UPoint3<float> high)
{
    UBox3<float> const box = part.getBoundingBox();
    for (int i = 0; i < 3; ++i) {
        EXPECT_NEAR(box.min[i], low[i], 1e-5) << "axis " << i;
        EXPECT_NEAR(box.max[i], high[i], 1e-5) << "axis " << i;
    }
}

// Positions by coordinate, so that meshes can be compared whatever their triangles' corners.
std::vector<UPoint3<float>> sortedPoints(Soup soup)
{
    std::sort(soup.points.begin(), soup.points.end(), [](auto const& a, auto const& b) {
        return std::tuple(a.X(), a.Y(), a.Z()) < std::tuple(b.X(), b.Y(), b.Z());
    });
    return soup.points;
}

}  // namespace

TEST(Part, StartsEmptyWithAKernel)
{
    Mesh::DocumentObject const part;
    ASSERT_NE(part.meshProperty->getMesh(), nullptr);
    EXPECT_TRUE(part.meshProperty->getMesh()->readMesh()->triangles.empty());
    EXPECT_TRUE(part.getBoundingBox().Isnullptr());
    EXPECT_EQ(volumeOf(part), 0);
    EXPECT_EQ(part.getGroup(), nullptr);
    EXPECT_TRUE(part.isVisible());
}

TEST(Part, NewKernelBringsItsBoxUpToDate)
{
    Mesh::DocumentObject part;
    auto* const kernel = new MeshKernel;
    kernel->getMesh()->vertices.swap(kernelOf(box(1, 2, 3))->getMesh()->vertices);
    part.meshProperty->setMesh(kernel, true);
    EXPECT_EQ(part.meshProperty->getMesh(), kernel);
    expectBox(part, {0, 0, 0}, {1, 2, 3});
}

TEST(Part, BorrowedKernelIsNotFreed)
{
    auto const kernel = kernelOf(box(1, 2, 3));
    {
        Mesh::DocumentObject part;
        part.meshProperty->setMesh(kernel.get(), false);
        EXPECT_EQ(part.meshProperty->getMesh(), kernel.get());
    }
    EXPECT_EQ(kernel->readMesh()->triangles.size(), 12u);
}

TEST(Part, MovingChangesTheMatrixAndNotTheRecords)
{
    Mesh::DocumentObject part;
    giveBox(part, 1, 2, 3);
    auto const records = part.meshProperty->getMesh()->readMesh();
    part.translate({10, 0, -1}, 0);
    expectBox(part, {10, 0, -1}, {11, 2, 2});
    EXPECT_EQ(part.meshProperty->getMesh()->readMesh(), records);
    EXPECT_EQ(part.getMatrix()(0, 3), 10);
}

TEST(Part, TurnsByTheRightHandRuleAboutTheCentre)
{
    Mesh::DocumentObject part;
    giveBox(part, 1, 2, 3);
    part.rotate({1, 0, 0}, std::numbers::pi_v<float> / 2, {0, 0, 2}, false);
    expectBox(part, {-1, -1, 0}, {1, 0, 3});
    part.rotate({}, 1, {}, false);
    expectBox(part, {-1, -1, 0}, {1, 0, 3});
}

TEST(Part, TurnedPartStaysOnThePlateIfAsked)
{
    Mesh::DocumentObject part;
    giveBox(part, 1, 2, 3);
    part.rotate({}, std::numbers::pi_v<float> / 2, {1, 0, 0}, true);
    expectBox(part, {0, -3, 0}, {1, 0, 2});
    part.rotate({}, std::numbers::pi_v<float>, {1, 0, 0}, true);
    EXPECT_NEAR(part.getBoundingBox().MinZ(), 0, 1e-5);
}

TEST(Part, ScaleMultipliesVolumeAndKeepsTheCentre)
{
    Mesh::DocumentObject part;
    giveBox(part, 1, 2, 3);
    EXPECT_NEAR(volumeOf(part), 6, 1e-5);
    part.scale({1, 2, 3}, {2, 1, 0.5f});
    expectBox(part, {-1, 0, 1.5f}, {1, 2, 3});
    EXPECT_NEAR(volumeOf(part), 6, 1e-5);
    part.scale({}, {2, 2, 2});
    EXPECT_NEAR(volumeOf(part), 48, 1e-4);
    EXPECT_THROW(part.scale({}, {1, 0, 1}), Mell::Exception);
    EXPECT_NEAR(volumeOf(part), 48, 1e-4);
}

TEST(Part, MirroredPartKeepsItsVolume)
{
    Mesh::DocumentObject part;
    giveBox(part, 1, 2, 3);
    part.mirror({2, 0, 0}, {3, 0, 0});
    expectBox(part, {3, 0, 0}, {4, 2, 3});
    EXPECT_NEAR(volumeOf(part), 6, 1e-5);
    EXPECT_LT(part.getMatrix().linearDeterminant(), 0);
}

TEST(Part, AreaIsThatOfThePlacedPart)
{
    Mesh::DocumentObject part;
    giveBox(part, 1, 1, 1);
    part.scale({}, {2, 2, 2});
    part.translate({1e4f, 1e4f, 1e4f}, 0);
    double volume = 0;
    double area = 0;
    part.getPartVolumnAndArea(volume, area);
    EXPECT_NEAR(volume, 8, 1e-6);
    EXPECT_NEAR(area, 24, 1e-6);
}

TEST(Part, AnOpenPartsVolumeIsThatOfConesToTheOrigin)
{
    Mesh::DocumentObject part;
    part.meshProperty->setMesh(kernelOf(openBox(2, 3, 4)).release(), true);
    part.translate({5, 6, 7}, 0);
    double const expected = volumeOf(soupOf(*part.meshProperty->getMesh()));
    EXPECT_GT(std::abs(expected - 24), 1);
    EXPECT_NEAR(volumeOf(part), expected, 1e-9 * std::abs(expected));
}

TEST(Part, RealCoordinatesAreAClosedOutwardSolidForEveryPlacement)
{
    for (bool const mirrored : {false, true})
        for (auto const& [name, soup] : closedMeshes()) {
            Mesh::DocumentObject part;
            part.meshProperty->setMesh(kernelOf(soup).release(), true);
            part.meshProperty->getMesh()->getMesh()->BuildTopo({}, false);
            part.rotate({1, 2, 3}, 0.7f, {1, 1, 0}, false);
            if (mirrored)
                part.mirror({}, {0, 1, 0});
            double const volume = volumeOf(part);
            auto const before = sortedPoints(soupOf(*part.meshProperty->getMesh()));
            part.meshConvertToRealCoord();

            EXPECT_TRUE(part.getMatrix().isIdentity());
            Soup const placed = soupOf(*part.meshProperty->getMesh());
            EXPECT_EQ(sortedPoints(placed), before) << name;
            EXPECT_EQ(closedSolidFaults(placed), "") << name;
            EXPECT_NEAR(::volumeOf(placed), volume, 1e-4 * (1 + std::abs(volume))) << name;
            EXPECT_NEAR(::volumeOf(placed), ::volumeOf(soup), 1e-3 * (1 + std::abs(volume)))
                << name;
        }
}

TEST(Part, NeighbourLinksSurviveAMirror)
{
    Mesh::DocumentObject part;
    giveBox(part, 1, 2, 3);
    part.meshProperty->getMesh()->getMesh()->BuildTopo({}, false);
    part.mirror({}, {1, 0, 0});
    part.meshConvertToRealCoord();
    for (UTriangle<float>* const t : part.meshProperty->getMesh()->getMesh()->triangles)
        for (int i = 0; i < 3; ++i) {
            UTriangle<float>* const neighbour = t->FFp(i);
            ASSERT_NE(neighbour, nullptr);
            int const edge = t->FFi(i);
            EXPECT_EQ(neighbour->V(edge), t->V(UTriangle<float>::Next(i)));
            EXPECT_EQ(neighbour->V(UTriangle<float>::Next(edge)), t->V(i));
            EXPECT_EQ(neighbour->FFp(edge), t);
        }
}

TEST(Part, RealCoordinatesCanBeUndone)
{
    PartsDocument plate;
    plate.bunny->translate({5, 0, 0}, 0);
    DocumentState const before(plate.document);
    plate.document.openTransaction("Bake");
    plate.bunny->meshConvertToRealCoord();
    plate.document.commitTransaction();
    expectBox(*plate.bunny, {5, 0, 0}, {6, 2, 3});
    plate.document.undo();
    EXPECT_EQ(DocumentState(plate.document), before);
    EXPECT_NEAR(volumeOf(*plate.bunny), 6, 1e-5);
}

TEST(Part, CopiesAreIndependent)
{
    Mesh::DocumentObject part;
    part.setName("bunny");
    part.setColor(7u);
    giveBox(part, 1, 2, 3);
    part.translate({1, 0, 0}, 0);
    std::unique_ptr<Mesh::DocumentObject> const deep(part.deepCopy());
    std::unique_ptr<Mesh::DocumentObject> const shallow(part.shallowCopy());
    for (Mesh::DocumentObject const* const copy : {deep.get(), shallow.get()}) {
        EXPECT_EQ(copy->getName(), "bunny");
        EXPECT_EQ(copy->getColor(), 7u);
        EXPECT_EQ(copy->getParentUuid(), part.getUuid());
        EXPECT_NE(copy->getUuid(), part.getUuid());
        EXPECT_EQ(copy->getDocument(), nullptr);
        expectBox(*copy, {1, 0, 0}, {2, 2, 3});
    }
    EXPECT_NE(deep->meshProperty->getMesh()->readMesh(), part.meshProperty->getMesh()->readMesh());

    shallow->meshProperty->getMesh()->getMesh()->vertices[0]->P() = {99, 99, 99};
    shallow->setMeshModified(true);
    part.setMeshModified(true);
    EXPECT_EQ(shallow->getBoundingBox().MaxX(), 100);
    expectBox(part, {1, 0, 0}, {2, 2, 3});
}

TEST(Part, MergeAddsTheOthersAsTheyArePlaced)
{
    PartsDocument plate;
    giveBox(*plate.hand, 1, 1, 1);
    plate.hand->translate({0, 0, 10}, 0);
    plate.bunny->translate({5, 0, 0}, 0);
    DocumentState const before(plate.document);

    plate.document.openTransaction("Merge");
    plate.bunny->merge(plate.hand);
    plate.document.commitTransaction();
    expectBox(*plate.bunny, {0, 0, 0}, {6, 2, 11});
    EXPECT_NEAR(volumeOf(*plate.bunny), 7, 1e-5);
    EXPECT_EQ(closedSolidFaults(*plate.bunny->meshProperty->getMesh()), "");
    EXPECT_EQ(componentsOf(soupOf(*plate.bunny->meshProperty->getMesh())), 2u);
    EXPECT_NEAR(volumeOf(*plate.hand), 1, 1e-5);

    plate.document.undo();
    EXPECT_EQ(DocumentState(plate.document), before);
}

TEST(Part, DragCountsFromWhereTheEditingBegan)
{
    Mesh::DocumentObject part;
    giveBox(part, 1, 1, 1);
    UMatrix4<float> step;
    step(0, 3) = 2;
    part.startEditing();
    part.loadMatrixWithEditing(step);
    step(0, 3) = 5;
    part.loadMatrixWithEditing(step);
    part.finishEditing();
    expectBox(part, {5, 0, 0}, {6, 1, 1});
    part.loadMatrix(step);
    expectBox(part, {10, 0, 0}, {11, 1, 1});
}

TEST(Part, MatrixCanBeSetWithoutTheBox)
{
    Mesh::DocumentObject part;
    giveBox(part, 1, 1, 1);
    UMatrix4<float> matrix;
    matrix(2, 3) = 4;
    part.setMatrix(matrix, false, false);
    expectBox(part, {0, 0, 0}, {1, 1, 1});
    part.updateBoundingBox();
    expectBox(part, {0, 0, 4}, {1, 1, 5});
}

TEST(Part, LoadsAllThatAFileHolds)
{
    QTemporaryDir const directory;
    std::string const file = directory.filePath("bun\u0148y.stl").toStdString();
    std::ofstream stream(std::filesystem::path(reinterpret_cast<char8_t const*>(file.c_str())));
    stream << "solid bunny\n";
    Soup const soup = box(1, 2, 3);
    for (auto const& triangle : soup.triangles) {
        stream << "facet normal 0 0 0\nouter loop\n";
        for (auto const corner : triangle)
            stream << "vertex " << soup.points[corner].X() << ' ' << soup.points[corner].Y() << ' '
                   << soup.points[corner].Z() << '\n';
        stream << "endloop\nendfacet\n";
    }
    stream << "endsolid bunny\n";
    stream.close();

    Mesh::DocumentObject part;
    ASSERT_TRUE(part.load(file.c_str()));
    EXPECT_FALSE(part.getName().empty());
    EXPECT_EQ(closedSolidFaults(*part.meshProperty->getMesh()), "");
    expectBox(part, {0, 0, 0}, {1, 2, 3});
}

TEST(Part, FileThatCannotBeReadLeavesThePartAlone)
{
    std::vector<std::string> lines;
    Base::ConsoleSingleton::Instance().setListener(
        [&](std::string const& line) { lines.push_back(line); });
    Mesh::DocumentObject part;
    giveBox(part, 1, 2, 3);
    MeshKernel const* const kernel = part.meshProperty->getMesh();
    EXPECT_FALSE(part.load("/nowhere/bunny.stl"));
    Base::ConsoleSingleton::Instance().setListener({});
    EXPECT_EQ(part.meshProperty->getMesh(), kernel);
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_NE(lines[0].find("bunny.stl"), std::string::npos) << lines[0];
}

TEST(Part, CompressFreesUnusedVertices)
{
    Mesh::DocumentObject part;
    giveBox(part, 1, 1, 1);
    std::size_t const used = part.meshProperty->getMemSize();
    part.meshProperty->getMesh()->getMesh()->AddVertex(new UVertex<float>({50, 0, 0}));
    EXPECT_GT(part.meshProperty->getMemSize(), used);
    part.compress();
    EXPECT_EQ(part.meshProperty->getMemSize(), used);
    expectBox(part, {0, 0, 0}, {1, 1, 1});
}

TEST(Part, PlainPartHasNoSupports)
{
    Mesh::DocumentObject part;
    giveBox(part, 1, 1, 1);
    EXPECT_FALSE(part.hasSupportCheck());
    EXPECT_FALSE(part.partSupportCheck());
    EXPECT_EQ(part.getSupportMesh(), nullptr);
    EXPECT_EQ(part.getSupportMeshDeepCopy(), nullptr);
    EXPECT_TRUE(part.getSolidSupportTris().empty());
    EXPECT_TRUE(part.getSupportBox().Isnullptr());
    EXPECT_TRUE(part.translateCheck() && part.rotateCheck() && part.mirrorCheck());
}

TEST(Group, TakesInPiecesUnderTheirNames)
{
    PartsDocument plate;
    auto* const piece = new CountedPart;
    plate.group->addObject(piece, "bunny_cut1");
    EXPECT_EQ(piece->getName(), "bunny_cut1");
    EXPECT_EQ(piece->getGroup(), plate.group);
    EXPECT_TRUE(plate.document.contains(piece));
    EXPECT_EQ(plate.group->getObjects(),
              (std::vector<Mesh::DocumentObject*>{plate.bunny, plate.gear, piece}));
    plate.group->removeObject(plate.bunny);
    plate.group->removeObject(plate.hand);
    EXPECT_EQ(plate.bunny->getGroup(), nullptr);
    EXPECT_TRUE(plate.document.contains(plate.bunny));
    EXPECT_EQ(plate.document.getGroups(), std::vector{plate.group});
}

TEST(Group, PartIsInOneGroupAtMost)
{
    PartsDocument plate;
    auto* const other = new Mesh::DocumentObjectGroup;
    plate.document.addObject(other, "other", true);
    other->addObject(plate.bunny, nullptr);
    EXPECT_EQ(plate.bunny->getGroup(), other);
    EXPECT_EQ(plate.group->getObjects(), (std::vector<Mesh::DocumentObject*>{plate.gear}));
}

TEST(Group, WithoutADocumentItRefusesParts)
{
    Mesh::DocumentObjectGroup group;
    Mesh::DocumentObject part;
    EXPECT_THROW(group.addObject(&part, "a"), Mell::Exception);
    EXPECT_EQ(part.getGroup(), nullptr);
}

TEST(Group, RemovedGroupLetsItsPartsOut)
{
    PartsDocument plate;
    plate.document.removeObject(plate.group);
    EXPECT_EQ(plate.bunny->getGroup(), nullptr);
    EXPECT_TRUE(plate.document.contains(plate.bunny));
}
