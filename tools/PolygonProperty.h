// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tools/TeethEdge.h"
#include "tools/VolumeProperty.h"

namespace Freecut {

/// The parameters of a polygon tool. Its key points are the vertices in drawing order, without a
/// closing repeat.
class PolygonProperty : public VolumeProperty
{
public:
    using PointLists = std::vector<std::vector<UPoint3<float>>>;

    /// Stores the values; depth and shown geometry follow.
    virtual void setShapeParameters(bool clearanceEnabled, int clearanceDirection, float clearance,
                                    bool cutTillEnabled, float cutTillValue, unsigned fillAlpha,
                                    bool roundCorners, float cornerRadius, bool showCoordinate,
                                    int viewIndex);

    /// Ends the edit of the teeth. Only those that were confirmed stay: an edge that has been tried
    /// out loses its teeth, and no edge keeps the points by which it was edited.
    void clearEdit();

    /// Takes the points of the teeth over into eye space.
    void storeEyeTeeth();

    /// Edge i runs from vertex i to the next one; the last edge closes the polygon.
    std::vector<TeethEdge> const& getEdgeRecords() const { return edgeRecords; }
    std::vector<TeethEdge>& getEdgeRecords() { return edgeRecords; }
    void setEdgeRecords(std::vector<TeethEdge> const& value) { edgeRecords = value; }
    bool getRoundCorners() const { return roundCorners; }
    void setRoundCorners(bool value) { roundCorners = value; }
    float getCornerRadius() const { return cornerRadius; }
    void setCornerRadius(float value) { cornerRadius = value; }
    /// Eye-space copies of the points of the teeth, one list for each edge.
    PointLists const& getEyeBasePoints() const { return eyeBasePoints; }
    void setEyeBasePoints(PointLists const& value) { eyeBasePoints = value; }
    PointLists const& getEyeHandlePoints() const { return eyeHandlePoints; }
    void setEyeHandlePoints(PointLists const& value) { eyeHandlePoints = value; }
    PointLists const& getEyeTeethPoints() const { return eyeTeethPoints; }
    void setEyeTeethPoints(PointLists const& value) { eyeTeethPoints = value; }
    PointLists const& getEyeAppliedPoints() const { return eyeAppliedPoints; }
    void setEyeAppliedPoints(PointLists const& value) { eyeAppliedPoints = value; }

private:
    std::vector<TeethEdge> edgeRecords;
    bool roundCorners = false;
    float cornerRadius = 0;
    PointLists eyeBasePoints;
    PointLists eyeHandlePoints;
    PointLists eyeTeethPoints;
    PointLists eyeAppliedPoints;
};

}  // namespace Freecut
