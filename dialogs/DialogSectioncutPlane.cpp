// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/ConnectorPreview.h"
#include "dialogs/DialogSectioncut.h"
#include "dialogs/PlaneFields.h"
#include "platform/document/Document.h"
#include "platform/ui/CutViewSlider.h"
#include "platform/ui/MellQuantitySpinBox.h"
#include "platform/view/GLView.h"
#include "selection/PlanecutSelection.h"
#include "selection/RunningTool.h"
#include "selection/ToolEdit.h"
#include "tools/PlaneGraphicObject.h"

#include <QSignalBlocker>

#include <cmath>

// The plane by numbers and by the slider.
namespace Freecut {

PlaneCorners DialogSectioncut::corners() const
{
    return PlaneNumbers::cornersOf(planeObject->getProperty());
}

void DialogSectioncut::showCorners(PlaneCorners const& corners)
{
    planeObject->getProperty().setCorners(corners.c0, corners.c1, corners.c2, true);
    finishEdit(*planeObject, {.tellsListeners = false});
    refreshForecasts();
}

UVector3<float> DialogSectioncut::typedNormal() const
{
    return PlaneFields::vectorIn(ui.normal).Normalize();
}

QVector4D DialogSectioncut::getPlane() const
{
    return PlaneNumbers::planeThrough(center, typedNormal());
}

void DialogSectioncut::updateUIdata()
{
    std::array<double, 2> sizes{};
    if (planeObject) {
        PlaneCorners const plane = corners();
        center = PlaneNumbers::centerOf(plane);
        normal = PlaneNumbers::normalOf(plane);
        PlaneSize const size = sizeOf(plane);
        sizes = {double(size.height), double(size.width)};
    } else {
        center = {};
        normal = {1, 0, 0};
    }
    PlaneFields::show(ui.center, center);
    PlaneFields::show(ui.normal, normal);
    showSizes(sizes);
    if (planeObject) {
        updateSlideRange();
        updateSliderValue();
        redrawView();
    }
    refreshForecasts();
}

void DialogSectioncut::showSizes(std::array<double, 2> const& sizes)
{
    for (std::size_t i = 0; i < sizes.size(); ++i) {
        QSignalBlocker const quiet(ui.size[i]);
        ui.size[i]->setValue(sizes[i]);
    }
}

void DialogSectioncut::updateSlideRange()
{
    travel.measure(partsBox, center, typedNormal());
    stepSize = float(ui.step->value());
    if (auto* const tool = runningTool<PlanecutSelection>(view()))
        tool->setNudge(stepSize);
    QSignalBlocker const quiet(ui.slider);
    ui.slider->setRange(0, travel.stepCount(stepSize));
}

int DialogSectioncut::sliderPlace() const
{
    return travel.stepOf(getPlane(), stepSize);
}

void DialogSectioncut::updateSliderValue()
{
    ui.slider->setTracking(false);
    stepSize = float(ui.step->value());
    {
        QSignalBlocker const quiet(ui.slider);
        ui.slider->setValue(sliderPlace());
    }
    ui.slider->setTracking(true);
}

void DialogSectioncut::on_slider_changed()
{
    if (!planeObject || partsBox.Isnullptr())
        return;
    int const steps = ui.slider->value() - sliderPlace();
    UVector3<float> const way = typedNormal() * (stepSize * float(steps));
    center += way;
    PlaneFields::show(ui.center, center);
    showCorners(PlaneNumbers::movedBy(corners(), way));
}

void DialogSectioncut::on_stepsize_changed(double value)
{
    constexpr double least = 0.001, limit = 100;
    if (value >= least && value < limit) {
        updateSlideRange();
        updateSliderValue();
    } else {
        QSignalBlocker const quiet(ui.step);
        ui.step->setValue(double(stepSize));
    }
}

void DialogSectioncut::on_center_changed()
{
    if (!planeObject)
        return;
    UPoint3<float> const typed = PlaneFields::pointIn(ui.center);
    if (PlaneNumbers::areOnOneSide(travel.farPlus(), travel.farMinus(), typed, typedNormal())) {
        PlaneFields::show(ui.center, center);
        return;
    }
    center = typed;
    updateSliderValue();
    PlaneCorners const plane = corners();
    showCorners(PlaneNumbers::movedBy(plane, center - PlaneNumbers::centerOf(plane)));
}

void DialogSectioncut::on_normal_changed(double)
{
    if (!planeObject)
        return;
    UVector3<float> typed = PlaneFields::vectorIn(ui.normal);
    if (PlaneNumbers::areOnOneSide(travel.farPlus(), travel.farMinus(), center, typed)) {
        PlaneFields::show(ui.normal, normal);
        return;
    }
    if (typed == UVector3<float>()) {
        typed = {1, 0, 0};
        QSignalBlocker const quiet(ui.normal[0]);
        ui.normal[0]->setValue(1.0);
    }
    normal = typed.Normalize();
    showCorners(PlaneNumbers::turnedTo(corners(), normal));
    updateSlideRange();
    updateSliderValue();
    redrawView();
}

void DialogSectioncut::on_size_changed(double)
{
    if (!planeObject)
        return;
    float const first = float(ui.size[0]->value()), second = float(ui.size[1]->value());
    PlaneCorners const resized = PlaneNumbers::resizedTo(corners(), first, second);
    PlaneSize const size = sizeOf(resized);
    if (size.width == 0 || size.height == 0) {
        // Nothing would be left by which the plane could grow again.
        updateUIdata();
        return;
    }
    showCorners(resized);
    if (auto* const tool = runningTool<PlanecutSelection>(view()))
        tool->setPlaneSize({.width = second, .height = first});
}

}  // namespace Freecut
