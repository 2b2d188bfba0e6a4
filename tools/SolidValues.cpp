// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/SolidValues.h"

#include "tools/CuboidGraphicObject.h"
#include "tools/CylinderGraphicObject.h"
#include "tools/PolygonGraphicObject.h"

namespace Freecut {

namespace {

template <typename Record>
void readCorners(Record const& record, SolidValues& values)
{
    values.hasRoundCorners = record.getRoundCorners();
    values.cornerRadius = record.getCornerRadius();
}

template <typename Record>
void writeCorners(Record& record, SolidValues const& values)
{
    record.setRoundCorners(values.hasRoundCorners);
    record.setCornerRadius(values.cornerRadius);
}

void readOwn(CuboidProperty const& record, SolidValues& values)
{
    readCorners(record, values);
    values.length = record.getCuboidLength();
    values.width = record.getCuboidWidth();
    values.angle = record.getCuboidAngle();
}

void writeOwn(CuboidProperty& record, SolidValues const& values)
{
    writeCorners(record, values);
    record.setCuboidLength(values.length);
    record.setCuboidWidth(values.width);
    record.setCuboidAngle(values.angle);
}

void readOwn(CylinderProperty const& record, SolidValues& values)
{
    values.radius = record.getRadius();
    values.tolerance = record.getCircleTolerance();
    values.hasNotch = record.getUseNotch();
    values.length = record.getNotchLength();
    values.width = record.getNotchWidth();
    values.angle = record.getNotchAngle();
}

void writeOwn(CylinderProperty& record, SolidValues const& values)
{
    record.setRadius(values.radius);
    record.setCircleTolerance(values.tolerance);
    record.setUseNotch(values.hasNotch);
    record.setNotchLength(values.length);
    record.setNotchWidth(values.width);
    record.setNotchAngle(values.angle);
}

void readOwn(PolygonProperty const& record, SolidValues& values)
{
    readCorners(record, values);
}

void writeOwn(PolygonProperty& record, SolidValues const& values)
{
    writeCorners(record, values);
}

/// Calls an action with the record of its own kind.
template <typename Action>
void withRecord(VolumeGraphicObject& tool, Action const& action)
{
    std::string const name = tool.getClassName();
    if (name == "Freecut::PolygonGraphicObject")
        action(static_cast<PolygonGraphicObject&>(tool).getProperty());
    else if (name == "Freecut::CylinderGraphicObject")
        action(static_cast<CylinderGraphicObject&>(tool).getProperty());
    else if (name == "Freecut::CuboidGraphicObject")
        action(static_cast<CuboidGraphicObject&>(tool).getProperty());
}

}  // namespace

SolidValues valuesOf(VolumeGraphicObject& tool)
{
    VolumeProperty const& record = tool.getVolumeProperty();
    SolidValues values;
    values.isClearanceEnabled = record.getClearanceEnabled();
    values.clearanceDirection = record.getClearanceDirection();
    values.clearance = record.getClearance();
    values.isCutTillEnabled = record.getCutTillEnabled();
    values.cutTill = record.getCutTillValue();
    withRecord(tool, [&](auto& own) { readOwn(own, values); });
    return values;
}

void setValues(VolumeGraphicObject& tool, SolidValues const& values)
{
    VolumeProperty& record = tool.getVolumeProperty();
    record.setClearanceEnabled(values.isClearanceEnabled);
    record.setClearanceDirection(values.clearanceDirection);
    record.setClearance(values.clearance);
    record.setCutTillEnabled(values.isCutTillEnabled);
    record.setCutTillValue(values.cutTill);
    withRecord(tool, [&](auto& own) { writeOwn(own, values); });
    record.updateDepth();
}

}  // namespace Freecut
