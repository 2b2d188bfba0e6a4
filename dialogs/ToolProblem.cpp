// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/ToolProblem.h"

#include "display/VolumeViewProvider.h"
#include "tools/VolumeGraphicObject.h"
#include "tools/VolumeOutline.h"
#include "tools/VolumeProperty.h"

#include <QCoreApplication>

#include <algorithm>

namespace Freecut {

namespace {

/// What is thinner for its length, seen as a share of the square of its girth, is a line: coordinates
/// are rounded to single precision.
constexpr double thinnest = 1e-7;

QString translated(char const* text)
{
    return QCoreApplication::translate("DialogPolygoncut", text);
}

bool enclosesNothing(Ring const& loop)
{
    UVector3<double> area;
    double girth = 0;
    auto const fromFirst = [&](UPoint3<float> const& point) {
        return UVector3<double>(double(point.X()) - loop[0].X(), double(point.Y()) - loop[0].Y(),
                                double(point.Z()) - loop[0].Z());
    };
    for (std::size_t i = 0; i < loop.size(); ++i) {
        UVector3<double> const here = fromFirst(loop[i]);
        UVector3<double> const next = fromFirst(loop[(i + 1) % loop.size()]);
        area += here * next;
        girth += (next - here).GetLength();
    }
    return area.GetLength() / 2 <= thinnest * girth * girth;
}

VolumeViewProvider const* providerOf(VolumeGraphicObject const& tool)
{
    return dynamic_cast<VolumeViewProvider const*>(tool.getViewProvider());
}

}  // namespace

bool hasDerivedOutlines(VolumeGraphicObject const& tool)
{
    auto const* const provider = providerOf(tool);
    return !provider || !provider->background().isBusy();
}

QString problemOfTool(VolumeGraphicObject const& tool)
{
    auto const* const provider = providerOf(tool);
    if (!provider || !provider->getOutline())
        return {};
    ToolOutlines const& outlines = provider->getOutline()->outlines();
    // What is known is of the tool as it was.
    if (QString const& failure = provider->background().failure(); !failure.isEmpty())
        return failure;
    if (!outlines.problem.empty())
        return QString::fromStdString(outlines.problem);
    if (std::all_of(outlines.solidLoops.begin(), outlines.solidLoops.end(), enclosesNothing))
        return translated(QT_TRANSLATE_NOOP(
            "DialogPolygoncut", "The outline encloses nothing. Move its points apart."));
    VolumeProperty const& record = provider->getOutline()->record();
    bool const isInward = record.getClearanceEnabled() && record.getClearanceDirection() != 1;
    if (isInward && outlines.innerLoops.empty())
        return translated(QT_TRANSLATE_NOOP(
            "DialogPolygoncut",
            "The clearance leaves nothing inside the outline, so that the parts would be cut "
            "without a gap. Choose a smaller clearance or a larger outline."));
    return {};
}

}  // namespace Freecut
