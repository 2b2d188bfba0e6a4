// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "display/VolumeViewProvider.h"
#include "platform/document/TypeEntry.h"

namespace Freecut {

class PolygonGraphicObject;

/// Shows a polygon tool, with a handle on each vertex and on the teeth under edit.
class PolygonViewProvider : public Base::TypeEntry<PolygonViewProvider, VolumeViewProvider>
{
public:
    static constexpr char const* typeName = "Freecut::PolygonViewProvider";

    void initGL() override;
    void paintGL() override;
    void buildMarkers() override;
    /// The handles of teeth are drawn in a colour of their own.
    void drawMarkersGL21() override;
    void drawMarkersGL33() override;

protected:
    std::unique_ptr<VolumeOutline> makeOutline() const override;
    LinePicture linePicture() const override;
    std::vector<LabelledPoint> labels() const override;
    /// The teeth too.
    void storeEyeSpace() override;

private:
    PolygonGraphicObject* tool() const;
    /// How many handles stand on vertices; the rest stand on teeth.
    int vertexMarkers() const;
    /// Those that have a handle to see. Each of them can be dragged, whether it has one or not.
    std::vector<UPoint3<float>> shownVertices() const;

    int m_vertexMarkers = 0;
};

}  // namespace Freecut
