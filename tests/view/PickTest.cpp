// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/view/PickTree.h"
#include "platform/view/MeshGLView.h"
#include "tests/support/MadeModels.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/TestDocument.h"
#include "tests/support/ViewEvents.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace {

using Point = UPoint3<float>;
using Vector = UVector3<double>;

/// The first hit by trying all triangles, with another method than the tree's: the plane's
/// equation, and angles of the corners seen from the point. Negative for none.
double slowDistance(MeshKernel const& kernel, PickTree::Ray const& ray)
{
    double best = -1;
    for (UTriangle<float> const* const t : kernel.readMesh()->triangles) {
        auto const corner = [&](int k) {
            return UPoint3<double>(t->cP(k).X(), t->cP(k).Y(), t->cP(k).Z());
        };
        Vector const normal = (corner(1) - corner(0)) * (corner(2) - corner(0));
        double const speed = normal | ray.direction;
        if (speed == 0)
            continue;
        double const distance = (normal | (corner(0) - ray.origin)) / speed;
        UPoint3<double> const p = ray.origin + ray.direction * distance;
        bool isInside = distance >= 0;
        for (int k = 0; k < 3; ++k)
            isInside =
                isInside && (((corner((k + 1) % 3) - corner(k)) * (p - corner(k))) | normal) >= 0;
        if (isInside && (best < 0 || distance < best))
            best = distance;
    }
    return best;
}

class Picking : public testing::Test
{
protected:
    Picking()
    {
        view.resize(800, 600);
        view.setDocument(test.document);
    }

    QPoint positionOf(Point const& world) const
    {
        int x = 0, y = 0;
        view.getWidgetcoordFromWCS(world, x, y);
        return {x, y};
    }
    Mesh::DocumentObject* partAt(QPoint position) const
    {
        Mesh::GLView::Pick pick;
        return view.pickPoint(position, pick) ? pick.part : nullptr;
    }

    TestDocument test;
    Mesh::GLView view;
};

}  // namespace

TEST(PickTree, FindsWhatASearchOfAllTrianglesFinds)
{
    std::vector<NamedSoup> meshes = closedMeshes();
    meshes.push_back({"figure", branchedFigure()});
    std::mt19937 random(11);
    std::uniform_real_distribution<double> share(0, 1);
    for (NamedSoup const& named : meshes) {
        auto const kernel = kernelOf(named.soup);
        PickTree const tree(*kernel);
        UBox3<float> const box = kernel->GetBox();
        Vector const size((box.max - box.min).X(), (box.max - box.min).Y(),
                          (box.max - box.min).Z());
        auto const anywhere = [&](double spare) {
            auto const along = [&](float low, double extent) {
                return low + extent * ((1 + 2 * spare) * share(random) - spare);
            };
            return UPoint3<double>(along(box.MinX(), size.X()), along(box.MinY(), size.Y()),
                                   along(box.MinZ(), size.Z()));
        };
        int hits = 0;
        for (int i = 0; i < 200; ++i) {
            UPoint3<double> const origin = anywhere(1);
            PickTree::Ray const ray{origin, anywhere(0) - origin};
            auto const hit = tree.firstHit(*kernel->readMesh(), ray);
            double const expected = slowDistance(*kernel, ray);
            EXPECT_EQ(hit.has_value(), expected >= 0) << named.name;
            if (!hit)
                continue;
            EXPECT_NEAR(hit->distance, expected, 1e-6) << named.name;
            ++hits;
        }
        if (!named.soup.triangles.empty()) {
            EXPECT_GT(hits, 20) << named.name;
        }
    }
}

TEST(PickTree, NoRayGetsThroughAnEdgeOrACornerOfAClosedSurface)
{
    Soup const soup = sphere(10, 12, 24);
    auto const kernel = kernelOf(soup);
    PickTree const tree(*kernel);
    UPoint3<double> const origin(1, 2, 3);
    for (auto const& corners : soup.triangles)
        for (int k = 0; k < 3; ++k)
            for (double const share : {0.0, 0.5, 0.37}) {
                Point const a = soup.points[corners[k]], b = soup.points[corners[(k + 1) % 3]];
                UPoint3<double> const target(a.X() + share * (b.X() - a.X()),
                                             a.Y() + share * (b.Y() - a.Y()),
                                             a.Z() + share * (b.Z() - a.Z()));
                auto const hit = tree.firstHit(*kernel->readMesh(), {origin, target - origin});
                ASSERT_TRUE(hit.has_value());
                EXPECT_NEAR(hit->distance, 1, 1e-3);
            }
}

TEST(PickTree, TellsFrontsFromBacks)
{
    auto const kernel = kernelOf(box(2, 2, 2));
    PickTree const tree(*kernel);
    PickTree::Ray ray{{1, 1, 10}, {0, 0, -1}};
    ray.onlyFront = true;
    EXPECT_DOUBLE_EQ(tree.firstHit(*kernel->readMesh(), ray)->distance, 8);
    ray.origin = {1, 1, 1};
    EXPECT_FALSE(tree.firstHit(*kernel->readMesh(), ray));
    ray.onlyFront = false;
    EXPECT_DOUBLE_EQ(tree.firstHit(*kernel->readMesh(), ray)->distance, 1);
}

TEST(PickTree, AnEmptyMeshIsNeverHit)
{
    MeshKernel const kernel;
    PickTree const tree(kernel);
    EXPECT_FALSE(tree.firstHit(*kernel.readMesh(), {{0, 0, 0}, {0, 0, 1}}));
}

TEST_F(Picking, FindsPartTriangleAndPoint)
{
    Mesh::DocumentObject* const part = test.add(box(20, 20, 20), "box");
    for (auto const projection :
         {GLCamera::Projection::Parallel, GLCamera::Projection::Perspective}) {
        view.setProjection(projection);
        view.OnViewType(2);
        view.fitAll();
        Mesh::DocumentObject* found = nullptr;
        UTriangle<float>* triangle = nullptr;
        Mesh::GLView::Pick pick;
        QPoint const position = positionOf({6, 13, 20});
        ASSERT_TRUE(view.pickFace(position, found, triangle, false, false, false));
        ASSERT_TRUE(view.pickPoint(position, pick));
        EXPECT_EQ(found, part);
        EXPECT_EQ(triangle->cN().Z(), 1);
        EXPECT_EQ(pick.triangle, triangle);
        EXPECT_NEAR(pick.point.X(), 6, 0.05);
        EXPECT_NEAR(pick.point.Y(), 13, 0.05);
        EXPECT_NEAR(pick.point.Z(), 20, 1e-4);
    }
}

TEST_F(Picking, NothingUnderTheMouseChangesNothing)
{
    test.add(box(20, 20, 20), "box");
    view.OnViewType(2);
    view.fitAll();
    Mesh::DocumentObject* found = nullptr;
    UTriangle<float>* triangle = nullptr;
    EXPECT_FALSE(view.pickFace({1, 1}, found, triangle, false, false, false));
    EXPECT_EQ(found, nullptr);
    EXPECT_EQ(triangle, nullptr);
}

TEST_F(Picking, TakesTheNearestOfSeveralParts)
{
    Mesh::DocumentObject* const low = test.add(box(20, 20, 5), "low");
    Mesh::DocumentObject* const high = test.add(box(10, 10, 5, {0, 0, 20}), "high");
    view.OnViewType(2);
    view.fitAll();
    EXPECT_EQ(partAt(positionOf({5, 5, 25})), high);
    EXPECT_EQ(partAt(positionOf({15, 15, 5})), low);
    view.OnViewType(3);
    EXPECT_EQ(partAt(positionOf({5, 5, 0})), low);
}

TEST_F(Picking, LeavesOutWhatIsHiddenAndTakesGhostsOnDemand)
{
    Mesh::DocumentObject* const part = test.add(box(20, 20, 20), "box");
    view.OnViewType(2);
    view.fitAll();
    QPoint const position = positionOf({10, 10, 20});
    part->setVisible(false);
    EXPECT_EQ(partAt(position), nullptr);
    part->setSemiVisible(true);
    EXPECT_EQ(partAt(position), nullptr);
    Mesh::GLView::Pick pick;
    EXPECT_TRUE(view.pickPoint(position, pick, false, false, true));
}

TEST_F(Picking, LooksThroughUnselectedPartsAndBacksOnDemand)
{
    test.add(box(20, 20, 5, {0, 0, 20}), "high");
    Mesh::DocumentObject* const low = test.add(openBox(20, 20, 5), "low");
    low->setSelected(true, false, true);
    view.OnViewType(3);
    view.fitAll();
    QPoint const position = positionOf({10, 10, 0});
    Mesh::GLView::Pick pick;
    view.OnViewType(2);
    ASSERT_TRUE(view.pickPoint(position, pick, true));
    EXPECT_EQ(pick.part, low);
    EXPECT_NEAR(pick.point.Z(), 0, 1e-4);
    view.OnViewType(3);
    ASSERT_TRUE(view.pickPoint(position, pick, false, true));
    EXPECT_NEAR(pick.point.Z(), 0, 1e-4);
}

TEST_F(Picking, SeesPartsAsTheyArePlaced)
{
    Mesh::DocumentObject* const part = test.add(box(20, 20, 20), "box");
    part->rotate({0, 0, 0}, float(M_PI / 6), {0, 0, 1}, false);
    part->scale({0, 0, 0}, {2, 3, 4});
    part->mirror({0, 0, 0}, {1, 0, 0});
    part->translate({30, 0, 0}, 0);
    view.OnViewType(2);
    view.fitAll();
    for (bool const onlyFront : {false, true}) {
        Mesh::GLView::Pick pick;
        QPoint const middle =
            positionOf((part->getBoundingBox().min + part->getBoundingBox().max) * 0.5f);
        ASSERT_TRUE(view.pickPoint(middle, pick, false, onlyFront));
        EXPECT_NEAR(pick.point.Z(), 80, 1e-3);
    }
    EXPECT_EQ(partAt(positionOf({60, 100, 80})), nullptr);
}

TEST_F(Picking, FollowsANewMesh)
{
    Mesh::DocumentObject* const part = test.add(box(20, 20, 20), "box");
    view.OnViewType(2);
    view.fitAll();
    QPoint const position = positionOf({10, 10, 0});
    Mesh::GLView::Pick pick;
    ASSERT_TRUE(view.pickPoint(position, pick));
    part->meshProperty->setMesh(kernelOf(box(20, 20, 7)).release(), true);
    ASSERT_TRUE(view.pickPoint(position, pick));
    EXPECT_NEAR(pick.point.Z(), 7, 1e-4);
}

TEST_F(Picking, AClickSelectsAndControlAddsAndTakesOut)
{
    Mesh::DocumentObject* const a = test.add(box(10, 10, 10), "a");
    Mesh::DocumentObject* const b = test.add(box(10, 10, 10, {20, 0, 0}), "b");
    view.OnViewType(2);
    view.fitAll();
    QPoint const onA = positionOf({5, 5, 10}), onB = positionOf({25, 5, 10});
    using Objects = std::vector<Base::DocumentObject*>;
    click(view, onA);
    EXPECT_EQ(test.document->getSelectedObjects(), Objects{a});
    click(view, onB);
    EXPECT_EQ(test.document->getSelectedObjects(), Objects{b});
    click(view, onA, Qt::LeftButton, Qt::ControlModifier);
    EXPECT_EQ(test.document->getSelectedObjects(), (Objects{b, a}));
    click(view, onB, Qt::LeftButton, Qt::ControlModifier);
    EXPECT_EQ(test.document->getSelectedObjects(), Objects{a});
    click(view, {2, 2});
    EXPECT_TRUE(test.document->getSelectedObjects().empty());
}
