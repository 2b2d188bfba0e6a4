// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "dialogs/CutForecast.h"
#include "dialogs/DialogAddTeethUI.h"
#include "dialogs/DialogCoordinateUI.h"
#include "dialogs/PolygonCutUI.h"
#include "platform/ui/MellSpinBox.h"
#include "selection/CuboidcutSelection.h"
#include "selection/CylindercutSelection.h"
#include "tests/app/ToolWindow.h"
#include "tests/selection/ModalAnswer.h"
#include "tools/CuboidGraphicObject.h"
#include "tools/CylinderGraphicObject.h"

#include <QCheckBox>
#include <QRadioButton>
#include <QTabWidget>

/// The dialog of the solid tools in the shown window, on a block of 60 x 40 x 30 mm seen from above.
class ShapeWindow : public ToolWindow
{
protected:
    void SetUp() override
    {
        ToolWindow::SetUp();
        if (IsSkipped())
            return;
        addBlock();
        open("Std_Polygoncut");
        ASSERT_TRUE(polygonDialog());
    }

    Freecut::PolygonCutWidgets const& ui() const { return polygonDialog()->widgets(); }
    template <typename Widget>
    static Widget* find(QWidget* parent, QString const& text)
    {
        for (Widget* const widget : parent->findChildren<Widget*>())
            if (widget->text() == text)
                return widget;
        return nullptr;
    }
    void openTab(int tab) const
    {
        ui().tabs->setCurrentIndex(tab);
        settle();
    }
    void hover(Point const& world) const { move(view(), positionOf(world)); }
    void dragTo(Point const& from, Point const& to) const
    {
        hover(from);
        drag(view(), positionOf(from), positionOf(to), Qt::LeftButton);
        settle();
    }

    // The polygon.

    /// 40 by 20 mm about the middle.
    void drawRectangle() const
    {
        for (Point const& p :
             {Point(20, -10, 0), Point(20, 10, 0), Point(-20, 10, 0), Point(-20, -10, 0)})
            clickAt(p);
    }
    Freecut::PolygonProperty& polygon() const { return polygonTool()->getPolygon()->getProperty(); }
    std::vector<Freecut::TeethEdge> const& edges() const { return polygon().getEdgeRecords(); }
    /// The number of the edge that lies there.
    std::size_t edgeAt(Point const& world) const
    {
        hover(world);
        return std::size_t(polygonTool()->getHoverEdge());
    }
    Freecut::TeethEdge const& edgeRecordAt(Point const& world) const
    {
        return edges().at(edgeAt(world));
    }
    /// Chooses it, in teeth mode.
    Freecut::TeethEdge const& chooseEdge(Point const& world) const
    {
        std::size_t const edge = edgeAt(world);
        clickAt(world);
        return edges().at(edge);
    }

    // The window for teeth, once it is open.

    void openTeeth() const
    {
        find<PushButtonAnimate>(ui().polygon, "Add Teeth")->click();
        settle();
        ASSERT_TRUE(teeth() && teeth()->isVisible());
    }
    Freecut::DialogAddTeethUI* teeth() const { return ui().polygon->teethDialog(); }
    void pressInTeeth(QString const& button) const
    {
        find<PushButtonAnimate>(teeth(), button)->click();
        settle();
    }
    QTabWidget* styles() const { return teeth()->findChild<QTabWidget*>(); }
    MellQuantitySpinBox* sizeField(int style, int row) const
    {
        return styles()->widget(style)->findChildren<MellQuantitySpinBox*>()[row];
    }
    /// Below the sizes of all styles.
    MellQuantitySpinBox* distanceField() const { return fieldFromEnd(2); }
    MellQuantitySpinBox* offsetField() const { return fieldFromEnd(1); }
    void setCount(int count) const
    {
        find<QRadioButton>(teeth(), "Count")->click();
        auto* const field = teeth()->findChild<MellSpinBox*>();
        field->setValue(count);
        emit field->editingFinished();
    }
    void setDistance(double distance) const
    {
        find<QRadioButton>(teeth(), "Distance(D)")->click();
        enter(distanceField(), distance);
    }
    void setOffset(double offset) const
    {
        if (!offsetField()->isEnabled())
            find<QCheckBox>(teeth(), "Offset(O):")->click();
        enter(offsetField(), offset);
    }
    QCheckBox* allEdges() const { return find<QCheckBox>(teeth(), "Apply to all edges"); }

private:
    MellQuantitySpinBox* fieldFromEnd(int place) const
    {
        auto const fields = teeth()->findChildren<MellQuantitySpinBox*>();
        return fields[fields.size() - place];
    }
};
