// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/ToolReport.h"

#include "cli/Numbers.h"
#include "tools/VolumeProperty.h"

#include <algorithm>

namespace {

Report loopsReport(ToolScene const& scene, Freecut::Loops const& loops)
{
    Report report = Report::array();
    for (Freecut::Ring const& ring : loops) {
        Report points = Report::array();
        // Loops of a polygon repeat their first point.
        bool const isRepeated = ring.size() > 1 && ring.front() == ring.back();
        for (std::size_t i = 0; i + (isRepeated ? 1 : 0) < ring.size(); ++i) {
            UPoint2<float> const p = scene.freeCoordinates(ring[i]);
            points.push_back({tidy(p.X()), tidy(p.Y())});
        }
        report.push_back(points);
    }
    return report;
}

}  // namespace

Report toolReport(ToolScene const& scene, Freecut::VolumeGraphicObject& tool)
{
    Freecut::ToolOutlines const& outlines = scene.outlinesOf(tool);
    UVector3<float> const extrudeVector = tool.getVolumeProperty().getExtrudeVector();
    UPoint3<float> const corner = tool.getVolumeProperty().getKeyPoints().front();
    float const top = scene.depthCoordinate(corner);
    float const bottom = scene.depthCoordinate(corner - extrudeVector);
    Report report;
    report["depth"] = tidy(extrudeVector.GetLength());
    report["reach"] = {tidy(std::min(top, bottom)), tidy(std::max(top, bottom))};
    report["outlines"] = {{"nominal", loopsReport(scene, outlines.solidLoops)},
                          {"rounded", loopsReport(scene, outlines.roundedLoops)},
                          {"inner", loopsReport(scene, outlines.innerLoops)},
                          {"outer", loopsReport(scene, outlines.outerLoops)},
                          {"dropped", loopsReport(scene, outlines.residualLoops)}};
    return report;
}
