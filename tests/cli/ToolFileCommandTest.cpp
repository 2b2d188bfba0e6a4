// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/CuboidCutUI.h"
#include "dialogs/CylinderCutUI.h"
#include "dialogs/ToolFileButton.h"
#include "platform/view/ToolHistory.h"
#include "selection/EditHistory.h"
#include "tests/cli/WindowCut.h"
#include "tools/VolumeProperty.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QRadioButton>

namespace {

using namespace Freecut;

/// Tools that are saved from the window and cut with by freecut.
class SavedTools : public WindowCut
{
protected:
    SavedTools() : WindowCut(cylinder(14, 25, 24)) {}

    static ToolFileButton* fileButton() { return dialog()->findChild<ToolFileButton*>(); }
    QString toolFile() const { return QString::fromStdString(files.path("tool.json")); }
    void save() { fileButton()->saveTo(toolFile()); }
    void open() { fileButton()->openFrom(toolFile()); }
    static MellQuantitySpinBox* field(QWidget* page, int index)
    {
        return page->findChildren<MellQuantitySpinBox*>()[index];
    }
    void setClearance(QWidget* page, char const* side, double clearance)
    {
        button(page, "Clearance")->click();
        button(page, side)->click();
        // The window for teeth is a child of its page, too.
        type(page->findChildren<MellQuantitySpinBox*>(QString(), Qt::FindDirectChildrenOnly).last(),
             clearance);
    }
    void drawTriangle()
    {
        for (auto const& [x, y] : {std::pair(-9.5f, -17.3f), {16.1f, -2.7f}, {-4.2f, 15.9f}})
            addPoint({x, y, 0});
    }
    void addDovetails()
    {
        button(ui().polygon, "Add Teeth")->click();
        DialogAddTeethUI* const teeth = ui().polygon->teethDialog();
        teeth->findChild<QTabWidget*>()->setCurrentIndex(1);
        button(teeth, "Count")->click();
        type(teeth->findChild<MellSpinBox*>(), 3);
        clickOn({3.3f, -10, 0});
        ASSERT_FALSE(edges()[0].basePoints.empty());
        // A tooth is slid: no parameters say where it stands now.
        UPoint3<float> const tooth = edges()[0].basePoints[1];
        int x, y;
        scene.view.getWidgetcoordFromWCS(tooth, x, y);
        drag(scene.view, {x, y}, {x + 6, y - 3}, Qt::LeftButton);
        ASSERT_NE(edges()[0].basePoints[1], tooth);
        button(teeth, "OK")->click();
    }
    std::vector<TeethEdge> const& edges() const
    {
        return polygonTool()->getPolygon()->getProperty().getEdgeRecords();
    }
    /// The same file in the window, in a new dialog, and by freecut.
    void expectSameEverywhere(std::string const& command)
    {
        save();
        auto const byFreecut = cutByFreecut(command, {"--tool", "tool.json"});
        std::string const text = files.read("tool.json");
        dialog()->destruct();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        // Another place and another tab.
        scene.view.OnViewType(5);
        scene.view.getCamera()->pan(3.7, -1.3);
        scene.test.application.commandManager().getCommandByName("Std_Polygoncut")->invoke(0);
        paint();
        open();
        save();
        EXPECT_EQ(files.read("tool.json"), text);
        expectSame(cutInTheWindow(), byFreecut);
    }
};

}  // namespace

TEST_F(SavedTools, APolygonWithASlidToothAndAGap)
{
    scene.view.getCamera()->pan(0.7123, -1.9371);
    drawTriangle();
    addDovetails();
    setClearance(ui().polygon, "Both sides", 0.15);
    save();
    auto const byFreecut = cutByFreecut("polygon", {"--tool", "tool.json"});
    expectSame(cutInTheWindow(), byFreecut);
}

TEST_F(SavedTools, APolygonComesBackAsItWas)
{
    drawTriangle();
    addDovetails();
    button(ui().polygon, "Round corners")->click();
    setClearance(ui().polygon, "Outside", 0.15);
    expectSameEverywhere("polygon");
}

TEST_F(SavedTools, ACylinderWithAKeyComesBackAsItWas)
{
    ui().tabs->setCurrentIndex(1);
    paint();
    addPoint({2.3f, -3.1f, 0});
    button(ui().pages[1], "Use Notch")->click();
    setClearance(ui().pages[1], "Inside", 0.2);
    expectSameEverywhere("cylinder");
}

TEST_F(SavedTools, ARoundedCuboidThatEndsInThePartComesBackAsItWas)
{
    ui().tabs->setCurrentIndex(2);
    paint();
    addPoint({2.3f, -3.1f, 0});
    type(field(ui().pages[2], 2), 33.0);
    button(ui().pages[2], "Round corners")->click();
    ui().cutTill->click();
    type(ui().cutTillValue, 6.5);
    expectSameEverywhere("cuboid");
}

TEST_F(SavedTools, AToolOfAFreeViewCutsTheSame)
{
    scene.view.getCamera()->turn({0.36, 0.48, 0.8}, 0.7);
    scene.view.getCamera()->pan(1.234567, 7.654321);
    paint();
    ASSERT_EQ(dialog()->viewIndex(), -1);
    for (QPoint const& place : {QPoint(150, 100), QPoint(260, 120), QPoint(210, 220)})
        click(scene.view, place);
    ASSERT_EQ(polygonTool()->getPolygon()->getPoints().size(), 3u);
    setClearance(ui().polygon, "Outside", 0.3);
    expectSameEverywhere("polygon");
}

TEST_F(SavedTools, OpeningIsOneEditThatCanBeTakenBack)
{
    drawTriangle();
    save();
    std::vector<UPoint3<float>> const saved = polygonTool()->getPolygon()->getPoints();
    addPoint({-19, -19, 0});
    setClearance(ui().polygon, "Outside", 0.4);
    std::vector<UPoint3<float>> const drawn = polygonTool()->getPolygon()->getPoints();
    open();
    EXPECT_EQ(polygonTool()->getPolygon()->getPoints(), saved);
    EXPECT_FALSE(ui().polygon->isClearanceOn());
    runningHistory(&scene.view)->undo();
    EXPECT_EQ(polygonTool()->getPolygon()->getPoints(), drawn);
    EXPECT_TRUE(ui().polygon->isClearanceOn());
    runningHistory(&scene.view)->redo();
    EXPECT_EQ(polygonTool()->getPolygon()->getPoints(), saved);
}

TEST_F(SavedTools, AFileThatCannotBeUsedLeavesToolAndViewAlone)
{
    drawTriangle();
    std::vector<UPoint3<float>> const drawn = polygonTool()->getPolygon()->getPoints();
    files.addFile("tool.json",
                  R"({"format": "drawn tool", "version": 1, "tool": "polygon",
                     "view": {"from": "front", "reference": [0, 0, 0]},
                     "points": [[0, 0, 0], [10, 0, 0], [5, 0, 8]],
                     "teeth": [{"edge": 2, "style": "jagged", "width": 40, "height": 1, "count": 2}]})");
    AnsweredMessages messages;
    open();
    ASSERT_EQ(messages.texts.size(), 1);
    EXPECT_EQ(messages.texts[0],
              "The teeth of edge 2 do not fit it. Choose fewer, smaller or other ones.");
    EXPECT_EQ(scene.view.viewIndex(), 2);
    EXPECT_EQ(polygonTool()->getPolygon()->getPoints(), drawn);
}

namespace {

/// The options that go with a file.
class ToolFileOptions : public testing::Test
{
protected:
    ToolFileOptions()
    {
        files.addStl(box(40, 30, 20), "part.stl");
        files.addFile("tool.json",
                      R"({"format": "drawn tool", "version": 1, "tool": "polygon",
                          "view": {"from": "top"},
                          "points": [[5, 5, 0], [25, 5, 0], [25, 20, 0], [5, 20, 0]],
                          "teeth": [{"edge": 1, "style": "dovetail", "width": 3, "lower": 2,
                                     "height": 1.5, "count": 4}],
                          "clearance": {"width": 0.1, "side": "outside"}})");
    }
    FreecutFolder::Result run(std::string const& command, std::vector<std::string> more)
    {
        more.insert(more.begin(), {command, "part.stl"});
        return files.run(more);
    }
    void expectRefused(std::string const& command, std::vector<std::string> const& more,
                       std::string const& why)
    {
        auto const result = run(command, more);
        EXPECT_EQ(result.status, 2);
        EXPECT_NE(result.errors.find(why), std::string::npos) << result.errors;
        EXPECT_EQ(files.files(), (std::vector<std::string>{"part.stl", "tool.json"}));
    }

    FreecutFolder files;
};

}  // namespace

TEST_F(ToolFileOptions, AFileWrittenByHandCutsAsTheOptionsDo)
{
    ASSERT_EQ(run("polygon", {"--tool", "tool.json", "-o", "a"}).status, 0);
    auto const result = run("polygon", {"--view", "top", "--points", "5,5;25,5;25,20;5,20",
                                        "--teeth", "dovetail:1;width=3;lower=2;height=1.5;count=4",
                                        "--clearance", "0.1", "--direction", "outside", "-o", "b"});
    ASSERT_EQ(result.status, 0) << result.errors;
    ASSERT_EQ(files.files("a").size(), 2u);
    for (std::string const& name : files.files("a"))
        EXPECT_TRUE(files.read("a/" + name) == files.read("b/" + name)) << name;
}

TEST_F(ToolFileOptions, TheFileStandsForTheWholeShape)
{
    expectRefused("polygon", {"--tool", "tool.json", "--clearance", "1"}, "--clearance");
    expectRefused("polygon", {"--tool", "tool.json", "--view", "top"}, "--view");
    expectRefused("polygon", {"--view", "top"},
                  "--points is required, or --outline with a drawing, or --tool");
    expectRefused("cylinder", {"--tool", "tool.json"},
                  "tool.json holds a polygon. Cut with it by freecut polygon.");
    expectRefused("polygon", {"--tool", "no.json"}, "no.json cannot be read");
    expectRefused("polygon", {"--tool", "part.stl"}, "part.stl cannot be used. It is not JSON");
}
