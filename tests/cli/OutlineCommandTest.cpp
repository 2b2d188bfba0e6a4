// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/OutlineImportDialog.h"
#include "dialogs/ToolFileButton.h"
#include "selection/EditHistory.h"
#include "tests/cli/WindowCut.h"
#include "tests/support/Validator.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>

#include <cmath>

namespace {

using namespace Freecut;
using Names = std::vector<std::string>;

/// A round hole in a square, the square with a corner cut off; one unit is half a millimetre.
std::string const svg =
    "<svg xmlns='http://www.w3.org/2000/svg' width='40mm' height='30mm' viewBox='0 0 80 60'>"
    "<circle cx='20' cy='20' r='6'/><path d='M10 10H50V40L40 50H10z'/>"
    "<path d='M60 10h10v10'/></svg>";
double const area = (40 * 40 - 50) / 4.0;

/// Drawings as outlines, in the window and by freecut.
class DrawnOutlines : public WindowCut
{
protected:
    DrawnOutlines() { files.addFile("drawing.svg", svg); }

    FreecutFolder::Result run(Names more)
    {
        more.insert(more.begin(), {"polygon", "part.stl", "--outline", "drawing.svg"});
        return files.run(more);
    }
    /// The volume of the piece within.
    double volumeWithin(Names more)
    {
        more.insert(more.end(), {"--json", "-", "--force"});
        auto const result = run(more);
        EXPECT_EQ(result.status, 0) << result.errors;
        std::string const file = result.json()["parts"][0]["pieces"][0]["file"];
        EXPECT_EQ(closedSolidFaults(files.mesh(file)), "");
        return volumeOf(files.mesh(file));
    }
    static ToolFileButton* fileButton() { return dialog()->findChild<ToolFileButton*>(); }
    QString drawing() const { return QString::fromStdString(files.path("drawing.svg")); }
};

}  // namespace

TEST_F(DrawnOutlines, TheLargestPathCutsUnlessAnotherIsChosen)
{
    // The block is 20 mm high.
    EXPECT_NEAR(volumeWithin({"--view", "top"}), area * 20, 0.5);
    EXPECT_NEAR(volumeWithin({"--view", "top", "--path", "1"}), M_PI * 9 * 20, 2);
    EXPECT_NEAR(volumeWithin({"--view", "top", "--center", "20,15"}), area * 20, 0.5);
    EXPECT_NEAR(
        volumeWithin({"--view", "top", "--path", "1", "--outline-unit", "mm", "--center", "20,15"}),
        M_PI * 36 * 20, 4);
}

TEST_F(DrawnOutlines, ItStandsInTheViewAsInTheFile)
{
    // The corner cut off is to the lower right of the screen.
    struct Row
    {
        char const* view;
        double x, y;
    };
    for (Row const& row : {Row{"top", 1, -1},
                           {"bottom", 1, 1},
                           {"front", 1, -1},
                           {"back", -1, -1},
                           {"right", 1, -1},
                           {"left", -1, -1}}) {
        auto const result =
            run({"--view", row.view, "--center", "0,0", "--dry-run", "--json", "-"});
        ASSERT_EQ(result.status, 0) << result.errors;
        auto const report = result.json();
        auto const points = report["tool"]["outlines"]["nominal"][0];
        ASSERT_EQ(points.size(), 5u);
        double nearest = 1e9;
        for (auto const& p : points)
            nearest = std::min(nearest, std::hypot(p[0].get<double>() - 10 * row.x,
                                                   p[1].get<double>() - 10 * row.y));
        // Nobody stands in that corner, and the two beside it are 5 mm away.
        EXPECT_NEAR(nearest, 5, 0.01) << row.view;
    }
}

TEST_F(DrawnOutlines, WhatCannotBeIsRefused)
{
    struct Row
    {
        Names more;
        char const* why;
    };
    for (Row const& row :
         {Row{{"--view", "top", "--path", "3"}, "Path 3 is open: it begins at (30, 25)"},
          {{"--view", "top", "--path", "4"}, "There is no path 4. Choose one from 1 to 3."},
          {{"--view", "top", "--points", "0,0;1,0;0,1"}, "--points"},
          {{"--view", "top", "--outline-unit", "ell"}, "--outline-unit"},
          {{}, "--view is required"}}) {
        auto const result = run(row.more);
        EXPECT_NE(result.status, 0);
        EXPECT_NE(result.errors.find(row.why), std::string::npos) << result.errors;
    }
    files.addFile("drawing.png", "");
    auto const result =
        files.run({"polygon", "part.stl", "--view", "top", "--outline", "drawing.png"});
    EXPECT_EQ(result.status, 2);
    EXPECT_NE(result.errors.find("Only SVG and DXF are read."), std::string::npos) << result.errors;
}

TEST_F(DrawnOutlines, TheWindowCutsTheSame)
{
    button(ui().polygon, "Clearance")->click();
    button(ui().polygon, "Outside")->click();
    OutlineImportDialog const question(drawing(), {"X", "Y"}, {17.5f, 14.25f}, nullptr);
    EXPECT_TRUE(question.ok()->isEnabled());
    EXPECT_EQ(question.outcome()->text(), "20.00 × 20.00 mm, 5 corners");
    fileButton()->importPath(question.path(), {17.5f, 14.25f, 0});
    ASSERT_TRUE(polygonTool()->getPolygon());
    EXPECT_TRUE(ui().polygon->isClearanceOn());
    auto const byFreecut =
        cutByFreecut("polygon", {"--view", "top", "--outline", "drawing.svg", "--center",
                                 "17.5,14.25", "--clearance", "0.1", "--direction", "outside"});
    expectSame(cutInTheWindow(), byFreecut);
}

TEST_F(DrawnOutlines, ImportingIsOneEdit)
{
    OutlineImportDialog const question(drawing(), {"X", "Y"}, {20, 15}, nullptr);
    for (auto const& [x, y] : {std::pair(5, 5), {25, 5}, {25, 20}})
        addPoint({float(x), float(y), 0});
    auto const drawn = polygonTool()->getPolygon()->getPoints();
    fileButton()->importPath(question.path(), {20, 15, 0});
    EXPECT_EQ(polygonTool()->getPolygon()->getPoints().size(), 5u);
    runningHistory(&scene.view)->undo();
    EXPECT_EQ(polygonTool()->getPolygon()->getPoints(), drawn);
}

TEST_F(DrawnOutlines, TheQuestionTellsWhatComesOfIt)
{
    OutlineImportDialog const question(drawing(), {"X", "Y"}, {0, 0}, nullptr);
    EXPECT_EQ(question.numbers()->count(), 4);
    EXPECT_EQ(question.numbers()->itemText(3), "3: 5.00 × 5.00 mm, open");
    question.units()->setCurrentIndex(3);
    EXPECT_EQ(question.outcome()->text(), "1,016.00 × 1,016.00 mm, 5 corners");
    question.numbers()->setCurrentIndex(3);
    EXPECT_FALSE(question.ok()->isEnabled());
    EXPECT_NE(question.outcome()->text().indexOf("Path 3 is open"), -1);
    OutlineImportDialog const nothing("no.svg", {"X", "Y"}, {0, 0}, nullptr);
    EXPECT_FALSE(nothing.ok()->isEnabled());
}
