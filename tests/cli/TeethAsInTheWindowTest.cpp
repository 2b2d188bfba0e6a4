// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/cli/WindowCut.h"

#include <QCheckBox>
#include <QRadioButton>

namespace {

using namespace Freecut;

/// A rectangle of 20 x 15 mm in the block, with teeth as a person puts them on its edges. The last
/// point comes to stand before the first, for it lies nearest to the edge that closes the triangle.
class TeethAsInTheWindow : public WindowCut
{
protected:
    TeethAsInTheWindow()
    {
        for (auto const& [x, y] : {std::pair(5, 5), {25, 5}, {25, 20}, {5, 20}})
            addPoint({float(x), float(y), 0});
        button(ui().polygon, "Add Teeth")->click();
        teeth = ui().polygon->teethDialog();
    }

    void chooseStyle(int style) { teeth->findChild<QTabWidget*>()->setCurrentIndex(style); }
    void typeShape(int style, std::vector<double> const& values)
    {
        chooseStyle(style);
        auto const fields =
            teeth->findChild<QTabWidget*>()->widget(style)->findChildren<MellQuantitySpinBox*>();
        for (std::size_t i = 0; i < values.size(); ++i)
            type(fields[int(i)], values[i]);
    }
    void typeCount(int count)
    {
        button(teeth, "Count")->click();
        type(teeth->findChild<MellSpinBox*>(), count);
    }
    /// The fields of distance and offset, which follow those of the tabs.
    MellQuantitySpinBox* lastField(int fromEnd)
    {
        auto const fields = teeth->findChildren<MellQuantitySpinBox*>();
        return fields[fields.size() - 1 - fromEnd];
    }
    void typeOffset(double offset)
    {
        button(teeth, "Offset(O):")->click();
        type(lastField(0), offset);
    }
    void confirm() { button(teeth, "OK")->click(); }
    void expectSameAs(std::vector<std::string> const& teethOptions)
    {
        std::vector<std::string> options{"--view", "top", "--points", "5,20;5,5;25,5;25,20"};
        for (std::string const& text : teethOptions) {
            options.push_back("--teeth");
            options.push_back(text);
        }
        expectSame(cutInTheWindow(), cutByFreecut("polygon", options));
    }

    DialogAddTeethUI* teeth;
};

}  // namespace

TEST_F(TeethAsInTheWindow, WithTheValuesThatTheWindowShowsAtFirst)
{
    clickOn({15, 5, 0});
    confirm();
    expectSameAs({"jagged:2"});
}

TEST_F(TeethAsInTheWindow, DovetailsByCountOnOneEdge)
{
    typeShape(TEETH_DOVETAIL, {3, 2, 1.5});
    typeCount(4);
    clickOn({15, 5, 0});
    confirm();
    expectSameAs({"dovetail:2;width=3;lower=2;height=1.5;count=4"});
}

TEST_F(TeethAsInTheWindow, PuzzleTabsByDistanceWithAnOffset)
{
    typeShape(TEETH_PUZZLE, {3, 2});
    type(lastField(1), 4.5);
    typeOffset(1.25);
    clickOn({25, 12, 0});
    confirm();
    expectSameAs({"puzzle:3;width=3;height=2;distance=4.5;offset=1.25"});
}

TEST_F(TeethAsInTheWindow, AllEdgesFlipped)
{
    button(teeth, "Apply to all edges")->click();
    button(teeth, "Flip Teeth")->click();
    confirm();
    expectSameAs({"jagged:all;flip"});
}

TEST_F(TeethAsInTheWindow, EachEdgeWithTeethOfItsOwn)
{
    typeShape(TEETH_JAGGED, {2.5, 2});
    clickOn({15, 20, 0});
    button(teeth, "Apply")->click();
    typeShape(TEETH_DOVETAIL, {3, 2, 1});
    typeCount(3);
    clickOn({5, 12, 0});
    confirm();
    expectSameAs({"jagged:4;width=2.5;height=2", "dovetail:1;width=3;lower=2;height=1;count=3"});
}
