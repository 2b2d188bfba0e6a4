// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/TLabel.h"
#include "tests/support/ToolProbe.h"
#include "tools/CuboidGraphicObject.h"
#include "tools/CylinderGraphicObject.h"
#include "tools/PlaneGraphicObject.h"
#include "tools/PolygonGraphicObject.h"

#include <gtest/gtest.h>

#include <QPointer>

#include <memory>

namespace {

/// One tool of each kind that is used.
std::vector<std::unique_ptr<Freecut::GraphicObject>> oneOfEach()
{
    std::vector<std::unique_ptr<Freecut::GraphicObject>> tools;
    tools.push_back(std::make_unique<Freecut::PlaneGraphicObject>());
    tools.push_back(std::make_unique<Freecut::PolygonGraphicObject>());
    tools.push_back(std::make_unique<Freecut::CylinderGraphicObject>());
    tools.push_back(std::make_unique<Freecut::CuboidGraphicObject>());
    return tools;
}

struct DeathWatch : sigslot::has_slots<sigslot::single_threaded>
{
    void deleted(Base::DocumentObject*, std::string className) { names.push_back(className); }
    std::vector<std::string> names;
};

}  // namespace

TEST(ToolLife, EveryToolNamesWhatShowsIt)
{
    std::vector<std::string> names;
    for (auto const& tool : oneOfEach())
        names.push_back(tool->getViewProviderName());
    names.push_back(Freecut::VolumeGraphicObject().getViewProviderName());
    names.push_back(Freecut::GraphicObject().getViewProviderName());
    EXPECT_EQ(names, (std::vector<std::string>{
                         "Freecut::PlaneViewProvider", "Freecut::PolygonViewProvider",
                         "Freecut::CylinderViewProvider", "Freecut::CuboidViewProvider",
                         "Freecut::VolumeViewProvider", "Freecut::GraphicViewProvider"}));
}

TEST(ToolLife, NothingOfAToolIsCopiedLoadedOrRegistered)
{
    for (auto const& tool : oneOfEach()) {
        EXPECT_EQ(tool->deepCopy(), nullptr);
        EXPECT_FALSE(tool->load("part.stl"));
        Freecut::PlaneGraphicObject source;
        source.setName("source");
        tool->copyFrom(&source);
        EXPECT_EQ(tool->getName(), "");
        std::vector<Base::Property*> properties;
        tool->getPropertyList(properties);
        EXPECT_TRUE(properties.empty()) << tool->getClassName();
        EXPECT_FALSE(tool->SaveDocFile("file")) << tool->getClassName();
        EXPECT_FALSE(tool->RestoreDocFile("file")) << tool->getClassName();
    }
}

TEST(ToolLife, EachClassPointsAtItsParentsProperties)
{
    Freecut::GraphicObject::init();
    Freecut::VolumeGraphicObject::init();
    Freecut::PolygonGraphicObject::init();
    Freecut::PolygonGraphicObject const tool;
    EXPECT_EQ(&tool.getPropertyData(), Freecut::PolygonGraphicObject::getPropertyDataPtr());
    EXPECT_EQ(tool.getPropertyData().parent, Freecut::VolumeGraphicObject::getPropertyDataPtr());
    EXPECT_EQ(Freecut::VolumeGraphicObject::getPropertyDataPtr()->parent,
              Freecut::GraphicObject::getPropertyDataPtr());
    EXPECT_EQ(Freecut::GraphicObject::getPropertyDataPtr()->parent,
              Base::GraphicObject::getPropertyDataPtr());
}

TEST(ToolLife, ACuboidHasNoTypeUntilSomebodyEntersIt)
{
    EXPECT_TRUE(Freecut::CuboidGraphicObject().getTypeId().isBad());
    EXPECT_EQ(Freecut::CuboidGraphicObject().getClassName(), "Freecut::CuboidGraphicObject");
}

TEST(ToolLife, AToolLivesInADocumentWithoutAView)
{
    TestDocument test;
    for (auto& made : oneOfEach()) {
        Freecut::GraphicObject* const tool = made.release();
        std::string const className = tool->getClassName();
        test.document->addObject(tool, "tool", true);
        tool->setSelected(true, true, false);
        EXPECT_EQ(tool->getViewProvider(), nullptr);
        EXPECT_EQ(test.document->getSelectedObjects().back(), tool);
        DeathWatch watch;
        test.document->signalDelObject.connect(&watch, &DeathWatch::deleted);
        test.document->removeObject(tool);
        EXPECT_EQ(watch.names, std::vector<std::string>{className});
    }
    EXPECT_TRUE(test.document->getObjectArray().empty());
    EXPECT_TRUE(test.document->getSelectedObjects().empty());
}

TEST(ToolLife, AToolThatIsDeletedLeavesItsDocument)
{
    TestDocument test;
    for (auto const& tool : oneOfEach())
        test.document->addObject(tool.get(), "tool", true);
    EXPECT_TRUE(test.document->getObjectArray().empty()) << "the tools have been deleted";
}

TEST(ToolLife, AToolIsNoPart)
{
    TestDocument test;
    for (auto& tool : oneOfEach())
        test.document->addObject(tool.release(), "tool", true);
    EXPECT_TRUE(test.document->getMeshObjects().empty());
    EXPECT_EQ(test.document->getObjectArray().size(), 4u);
}

TEST(ToolLife, AViewShowsAToolWhileItIsInTheDocument)
{
    CountingProvider::enter("Freecut::PolygonViewProvider");
    ViewedDocument test;
    auto* const tool = new Freecut::PolygonGraphicObject;
    EXPECT_EQ(tool->getViewProvider(), nullptr);
    test.document->addObject(tool, "tool", true);
    EXPECT_EQ(tool->getViewProvider(), test.document->getViewProvider(tool));
    EXPECT_EQ(CountingProvider::alive, 1);
    test.document->removeObject(tool);
    EXPECT_EQ(CountingProvider::alive, 0);
}

TEST(ToolLife, FreeingMemoryReleasesLabelsAndTeeth)
{
    QWidget view;
    Freecut::PolygonGraphicObject polygon;
    QPointer<Freecut::TLabel> const first = new Freecut::TLabel(&view);
    QPointer<Freecut::TLabel> const second = new Freecut::TLabel(&view);
    polygon.getPointLabels() = {first, second};
    polygon.getProperty().setKeyPoints({{1, 2, 3}, {4, 5, 6}});
    polygon.getProperty().setEdgeRecords({{}, {}});
    polygon.freeMemory();
    EXPECT_TRUE(first.isNull() && second.isNull());
    EXPECT_TRUE(polygon.getPointLabels().empty());
    EXPECT_TRUE(polygon.getProperty().getEdgeRecords().empty());
    EXPECT_EQ(polygon.getPoints().size(), 2u);
    polygon.freeMemory();

    Freecut::CylinderGraphicObject cylinder;
    QPointer<Freecut::TLabel> const label = new Freecut::TLabel(&view);
    EXPECT_EQ(cylinder.getLabel(), nullptr);
    cylinder.setLabel(label);
    cylinder.freeMemory();
    EXPECT_TRUE(label.isNull());
    EXPECT_EQ(cylinder.getLabel(), nullptr);
    cylinder.freeMemory();
}

TEST(ToolLife, ADeletedToolTakesItsLabelsAlong)
{
    QWidget view;
    QPointer<Freecut::TLabel> const ofCuboid = new Freecut::TLabel(&view);
    QPointer<Freecut::TLabel> const ofPolygon = new Freecut::TLabel(&view);
    {
        Freecut::CuboidGraphicObject cuboid;
        cuboid.setLabel(ofCuboid);
        Freecut::PolygonGraphicObject polygon;
        polygon.getPointLabels().push_back(ofPolygon);
    }
    EXPECT_TRUE(ofCuboid.isNull());
    EXPECT_TRUE(ofPolygon.isNull());
}
