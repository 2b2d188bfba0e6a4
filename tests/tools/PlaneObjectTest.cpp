// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/PlaneGraphicObject.h"

#include <gtest/gtest.h>

namespace {

using Points = std::vector<UPoint3<float>>;

struct Listener : sigslot::has_slots<sigslot::single_threaded>
{
    void changed() { ++count; }
    int count = 0;
};

}  // namespace

TEST(PlaneObject, StartsWithNineKeyPointsAndKnowsItsPlane)
{
    Freecut::PlaneGraphicObject plane;
    EXPECT_EQ(plane.getProperty().getKeyPoints(), Points(9));
    EXPECT_EQ(plane.getProperty().getCorners(), Points(3));
    EXPECT_EQ(plane.getProperty().getContainer(), &plane);
    EXPECT_EQ(plane.getClassName(), "Freecut::PlaneGraphicObject");
    EXPECT_EQ(plane.getViewProviderName(), "Freecut::PlaneViewProvider");
}

TEST(PlaneObject, CornersAreStoredAndAnnounced)
{
    Freecut::PlaneGraphicObject plane;
    Listener listener;
    plane.signalChanged.connect(&listener, &Listener::changed);
    plane.getProperty().setCorners({1, 0, 0}, {0, 2, 0}, {0, 0, 3}, false);
    EXPECT_EQ(plane.getProperty().getCorners(), (Points{{1, 0, 0}, {0, 2, 0}, {0, 0, 3}}));
    EXPECT_EQ(listener.count, 1);
    EXPECT_EQ(plane.getProperty().getKeyPoints(), Points(9)) << "key points follow separately";
}

TEST(PlaneObject, SilentCornersReachNobody)
{
    Freecut::PlaneGraphicObject plane;
    Listener listener;
    plane.signalChanged.connect(&listener, &Listener::changed);
    plane.getProperty().setCorners({1, 0, 0}, {0, 2, 0}, {0, 0, 3}, true);
    EXPECT_EQ(plane.getProperty().getCorners(), (Points{{1, 0, 0}, {0, 2, 0}, {0, 0, 3}}));
    EXPECT_EQ(listener.count, 0);
}

TEST(PlaneObject, ARecordWithoutAPlaneOnlyStores)
{
    Freecut::PlaneProperty record;
    record.setCorners({1, 0, 0}, {0, 2, 0}, {0, 0, 3}, false);
    EXPECT_EQ(record.getCorners().front(), UPoint3<float>(1, 0, 0));
    Base::GraphicObject other;
    record.setContainer(&other);
    record.setCorners({4, 0, 0}, {0, 2, 0}, {0, 0, 3}, false);
    EXPECT_EQ(record.getCorners().front(), UPoint3<float>(4, 0, 0));
}

TEST(PlaneObject, KeyPointsAreCentreCornersAndMidpoints)
{
    Freecut::PlaneProperty record;
    record.setCorners({0, 0, 1}, {4, 0, 1}, {4, 2, 1}, true);
    record.updateKeyPoints();
    EXPECT_EQ(record.getKeyPoints(), (Points{{2, 1, 1},
                                             {0, 0, 1},
                                             {4, 0, 1},
                                             {4, 2, 1},
                                             {0, 2, 1},
                                             {2, 0, 1},
                                             {0, 1, 1},
                                             {2, 2, 1},
                                             {4, 1, 1}}));
}
