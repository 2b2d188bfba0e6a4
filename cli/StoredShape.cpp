// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/StoredShape.h"

#include "cli/Errors.h"
#include "tools/CuboidGraphicObject.h"
#include "tools/CylinderGraphicObject.h"
#include "tools/PolygonGraphicObject.h"
#include "tools/ToolFile.h"
#include "tools/ToolFileNames.h"
#include "tools/ToolLimits.h"

using Freecut::StoredTool;

namespace {

std::unique_ptr<Freecut::VolumeGraphicObject> makeTool(StoredTool const& stored)
{
    switch (stored.kind) {
        case StoredTool::Kind::Cylinder:
            return std::make_unique<Freecut::CylinderGraphicObject>();
        case StoredTool::Kind::Cuboid:
            return std::make_unique<Freecut::CuboidGraphicObject>();
        default:
            return std::make_unique<Freecut::PolygonGraphicObject>();
    }
}

void settle(StoredTool& stored, ToolScene& scene, Freecut::VolumeProperty const& record,
            std::string const& file)
{
    try {
        stored.settle(scene.camera(), record);
    } catch (Mell::Exception const& reason) {
        throw UsageError("The tool file " + file + " cannot be used. " + reason.what());
    }
}

}  // namespace

StoredTool readStoredShape(std::string const& file, std::string const& command)
{
    StoredTool stored;
    try {
        stored = Freecut::ToolFile::read(QString::fromStdString(file));
    } catch (Mell::Exception const& reason) {
        throw UsageError(reason.what());
    }
    std::string const kind = Freecut::ToolFileNames::kinds.begin()[int(stored.kind)];
    if (kind != command)
        throw UsageError("The tool file " + file + " holds a " + kind +
                         ". Cut with it by freecut " + kind + ".");
    return stored;
}

Freecut::VolumeGraphicObject* drawStoredShape(ToolScene& scene, StoredTool stored,
                                              std::string const& file)
{
    std::unique_ptr<Freecut::VolumeGraphicObject> tool = makeTool(stored);
    Freecut::VolumeProperty& record = tool->getVolumeProperty();
    record.setViewIndex(stored.view.standard);
    record.setFillAlpha(Freecut::ToolLimits::fillAlpha);
    setValues(*tool, stored.values);
    scene.measure(record);
    settle(stored, scene, record, file);
    record.setKeyPoints(stored.points);
    if (stored.kind == StoredTool::Kind::Polygon)
        static_cast<Freecut::PolygonGraphicObject&>(*tool).getProperty().setEdgeRecords(
            stored.edges);
    scene.enter(*tool);
    return tool.release();
}
