// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/view/MeshGLView.h"
#include "selection/ToolEdit.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/ToolProbe.h"
#include "tools/CylinderGraphicObject.h"
#include "tools/PlaneGraphicObject.h"
#include "tools/PolygonGraphicObject.h"

#include <gtest/gtest.h>

namespace {

using Point = UPoint3<float>;
using Steps = std::vector<std::string>;

/// What happened after an edit, in order.
Steps steps;

/// Notes when it derives its geometry, and what the record of its tool said by then.
class NotingProvider : public Freecut::GraphicViewProvider
{
public:
    static constexpr char const* name = "Test::NotingProvider";
    static void enter()
    {
        Base::Type type;
        initSubclass(type, name, "Base::GraphicViewProvider",
                     [] { return static_cast<void*>(new NotingProvider); });
    }
    void updateGeometry() override
    {
        steps.push_back("provider");
        if (look)
            look();
    }
    static inline std::function<void()> look;
};

/// A tool that the noting provider shows.
template <typename Tool>
class Noted : public Tool
{
public:
    std::string getViewProviderName() const override { return NotingProvider::name; }
};

class Listener : public sigslot::has_slots<sigslot::single_threaded>
{
public:
    void changed() { steps.push_back("signal"); }
};

class NotingView : public Mesh::GLView
{
public:
    void redraw() override { steps.push_back("redraw"); }
};

class ToolEdit : public testing::Test
{
protected:
    ToolEdit()
    {
        NotingProvider::enter();
        test.add(box(10, 10, 10), "part");
        view.setDocument(test.document);
        NotingProvider::look = {};
    }
    ~ToolEdit() override
    {
        NotingProvider::look = {};
        view.setDocument(nullptr);
    }

    template <typename Tool>
    Tool& add()
    {
        auto* const tool = new Noted<Tool>;
        test.document->addObject(tool, "tool", true);
        tool->signalChanged.connect(&listener, &Listener::changed);
        steps.clear();
        return *tool;
    }

    TestDocument test;
    NotingView view;
    Listener listener;
};

}  // namespace

TEST_F(ToolEdit, RunsRecordProviderSignalAndPictureInThisOrder)
{
    auto& plane = add<Freecut::PlaneGraphicObject>();
    plane.getProperty().setCorners({0, 0, 0}, {2, 0, 0}, {2, 4, 0}, true);
    NotingProvider::look = [&] {
        // The record comes before the provider, which reads it.
        EXPECT_EQ(plane.getProperty().getKeyPoints()[0], Point(1, 2, 0));
    };
    finishEdit(plane);
    EXPECT_EQ(steps, (Steps{"provider", "signal", "redraw"}));
}

TEST_F(ToolEdit, ASolidToolHasItsEyePointsBeforeTheProviderReadsThem)
{
    auto& polygon = add<Freecut::PolygonGraphicObject>();
    polygon.getProperty().setKeyPoints({{1, 2, 3}});
    polygon.getProperty().setEdgeRecords(std::vector<Freecut::TeethEdge>(1));
    polygon.getProperty().getEdgeRecords()[0].teethPoints = {{4, 5, 6}};
    NotingProvider::look = [&] {
        EXPECT_EQ(polygon.getProperty().getEyeKeyPoints().size(), 1u);
        EXPECT_EQ(polygon.getProperty().getEyeTeethPoints().size(), 1u);
    };
    finishEdit(polygon);
    EXPECT_EQ(steps, (Steps{"provider", "signal", "redraw"}));
}

TEST_F(ToolEdit, LeavesOutWhatItIsToldTo)
{
    auto& polygon = add<Freecut::PolygonGraphicObject>();
    polygon.getProperty().setKeyPoints({{1, 2, 3}});
    polygon.getProperty().setEdgeRecords(std::vector<Freecut::TeethEdge>(1));
    finishEdit(polygon, {.updatesRecord = false});
    EXPECT_TRUE(polygon.getProperty().getEyeKeyPoints().empty());
    finishEdit(polygon, {.updatesTeeth = false});
    EXPECT_EQ(polygon.getProperty().getEyeKeyPoints().size(), 1u);

    steps.clear();
    finishEdit(polygon, {.updatesProvider = false});
    EXPECT_EQ(steps, (Steps{"signal", "redraw"}));
    steps.clear();
    finishEdit(polygon, {.tellsListeners = false});
    EXPECT_EQ(steps, (Steps{"provider", "redraw"}));
    steps.clear();
    finishEdit(polygon, {.redraws = false});
    EXPECT_EQ(steps, (Steps{"provider", "signal"}));
}

TEST_F(ToolEdit, OfAToolInNoDocumentStillTellsItsListeners)
{
    Freecut::PlaneGraphicObject plane;
    plane.signalChanged.connect(&listener, &Listener::changed);
    steps.clear();
    finishEdit(plane);
    EXPECT_EQ(steps, Steps{"signal"});
}

TEST_F(ToolEdit, EverySolidToolGivesItsOwnRecord)
{
    Freecut::CylinderGraphicObject cylinder;
    Freecut::VolumeGraphicObject& tool = cylinder;
    EXPECT_EQ(&tool.getVolumeProperty(), &cylinder.getProperty());
    tool.getVolumeProperty().setClearance(0.25f);
    EXPECT_EQ(cylinder.getProperty().getClearance(), 0.25f);
}
