// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/view/MarkedArea.h"
#include "platform/view/GLCamera.h"
#include "tests/support/ShownView.h"

#include <array>

namespace {

/// Boxes that are seen from above, so that their outlines are rectangles.
class SelectionLine : public ShownView
{
protected:
    void SetUp() override
    {
        ShownView::SetUp();
        if (IsSkipped())
            return;
        view->setPlateVisible(false);
        view->OnViewType(2);
    }

    /// In pixels of the picture.
    QRectF seen(UBox3<float> const& box) const
    {
        double const ratio = view->devicePixelRatioF();
        QPointF const a = positionOf(box.min), b = positionOf(box.max);
        return QRectF(a * ratio, b * ratio).normalized();
    }

    /// Of how many places around the box, a little outside, the picture has another colour than
    /// before; those beside the picture do not count.
    struct Around
    {
        int changed = 0;
        int all = 0;
    };
    Around around(UBox3<float> const& box, double pixels, QImage const& before,
                  QImage const& now) const
    {
        double const away = pixels * view->devicePixelRatioF();
        QRectF const line = seen(box).adjusted(-away, -away, away, away);
        constexpr int steps = 20;
        Around found;
        auto const look = [&](QPointF const& from, QPointF const& to) {
            for (int i = 1; i < steps; ++i) {
                QPoint const at = (from + (to - from) * i / steps).toPoint();
                if (!now.rect().contains(at))
                    continue;
                ++found.all;
                found.changed += before.pixel(at) != now.pixel(at);
            }
        };
        look(line.topLeft(), line.topRight());
        look(line.topRight(), line.bottomRight());
        look(line.bottomRight(), line.bottomLeft());
        look(line.bottomLeft(), line.topLeft());
        return found;
    }

    void expectLine(Mesh::DocumentObject* part, Mesh::DocumentObject* other,
                    std::string const& name)
    {
        QImage const before = picture("line-" + name + "-before");
        part->setSelected(true, true, true);
        QImage const now = picture("line-" + name);
        Around const line = around(part->getBoundingBox(), 1, before, now);
        EXPECT_GE(line.all, 30) << name;
        EXPECT_EQ(line.changed, line.all) << name;
        for (int const away : {4, 5})
            EXPECT_EQ(around(part->getBoundingBox(), away, before, now).changed, 0)
                << name << ' ' << away;
        EXPECT_EQ(around(other->getBoundingBox(), 1, before, now).changed, 0) << name;
        part->setSelected(false, true, true);
    }
};

}  // namespace

INSTANTIATE_TEST_SUITE_P(Path, SelectionLine, bothPaths, pathName);

TEST_P(SelectionLine, GoesAllTheWayAroundWhatIsSelectedAlone)
{
    Mesh::DocumentObject* const part = test.add(box(40, 30, 20), "part");
    Mesh::DocumentObject* const other = test.add(box(15, 15, 10), "other");
    other->mirror({-10, 0, 0}, {1, 0, 0});
    view->fitAll();
    expectLine(part, other, "fit");
    part->mirror({60, 0, 0}, {1, 0, 0});
    view->fitAll();
    expectLine(part, other, "mirrored");
    view->getCamera()->zoom(0.6);
    expectLine(part, other, "near");
}

TEST(MarkedArea, HoldsWhatHasTheMarkWithAMargin)
{
    MarkedArea area;
    EXPECT_TRUE(area.inPicture({200, 100}, 5).isEmpty());
    area.add({}, QMatrix4x4());
    EXPECT_TRUE(area.inPicture({200, 100}, 5).isEmpty());
    // Of the picture the middle fifth of the width, and the upper half from the middle on.
    area.add({{-0.2f, 0, -1}, {0.2f, 1, 1}}, QMatrix4x4());
    QRect const found = area.inPicture({200, 100}, 5);
    EXPECT_TRUE(found.contains(QRect(75, 45, 50, 55)));
    EXPECT_TRUE(QRect(74, 44, 52, 56).contains(found));
    area.add({{-9, -9, 0}, {-8, -8, 0}}, QMatrix4x4());
    EXPECT_EQ(area.inPicture({200, 100}, 5).topLeft(), QPoint(0, 0));
    area.clear();
    EXPECT_TRUE(area.inPicture({200, 100}, 5).isEmpty());
}

TEST(MarkedArea, IsTheWholePictureWhereSomethingReachesBehindTheEye)
{
    QMatrix4x4 perspective;
    perspective.perspective(45, 1, 0.1f, 100);
    MarkedArea area;
    area.add({{-1, -1, -5}, {1, 1, -3}}, perspective);
    EXPECT_NE(area.inPicture({200, 200}, 0), QRect(0, 0, 200, 200));
    area.add({{-1, -1, -5}, {1, 1, 3}}, perspective);
    EXPECT_EQ(area.inPicture({200, 200}, 0), QRect(0, 0, 200, 200));
}
