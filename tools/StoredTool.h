// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tools/SolidValues.h"
#include "tools/TeethEdge.h"
#include "tools/ViewPlace.h"

#include <vector>

class GLCamera;

namespace Freecut {

class VolumeGraphicObject;
class VolumeProperty;

/// A solid tool as it is kept outside of a document: what a person has drawn, and from where. In the
/// same parts it cuts the same pieces, byte for byte.
struct StoredTool
{
    /// As the tabs of the dialog count them.
    enum class Kind
    {
        Polygon,
        Cylinder,
        Cuboid
    };

    Kind kind = Kind::Polygon;
    ViewPlace view;
    /// Eye-space Z of the plane in which the points lie; none if their place along the view is to be
    /// found anew.
    std::optional<float> depth;
    /// The corners of a polygon; else the centre. In the world.
    std::vector<UPoint3<float>> points;
    SolidValues values;
    /// Of a polygon, one for each edge. An edge with teeth that were not applied yet has no points;
    /// settle() gives it them.
    std::vector<TeethEdge> edges;

    /// The tool as it is, with its confirmed teeth.
    static StoredTool of(VolumeGraphicObject& tool, ViewPlace const& view);

    /// Moves the points along the view into the plane in which a tool is drawn now, if they lie in
    /// another one, and puts teeth on the edges whose teeth have no points.
    ///
    /// camera  at the place of `view`
    /// record  with depth and extrudeVector as they are to be
    /// throws  Mell::Exception that names the edge if teeth do not fit
    void settle(GLCamera const& camera, VolumeProperty const& record);

    /// The class name of the tool's object.
    char const* className() const;
};

}  // namespace Freecut
