// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/document/TypeEntry.h"
#include "selection/ClickTaker.h"
#include "selection/EditsBeside.h"
#include "selection/FreecutSelection.h"
#include "selection/PickMarkers.h"
#include "selection/PlaneDefinition.h"
#include "selection/PlaneDrag.h"

#include <optional>

namespace Freecut {

class PlaneGraphicObject;

/// The mouse tool of the section cut: picks on a part make a plane, and its nine handles move, turn
/// and tilt it, or change its size while the control key is held. Once the plane stands, what
/// touches no handle picks points as its base does.
class PlanecutSelection : public Base::TypeEntry<PlanecutSelection, FreecutSelection>
{
public:
    static constexpr char const* toolName = "Freecut::PlanecutSelection";
    static constexpr char const* typeName = toolName;

    using PlaneType = Freecut::PlaneType;
    using enum Freecut::PlaneType;

    /// Starts with the type that the last such tool had.
    PlanecutSelection();
    ~PlanecutSelection() override;

    void initialize() override;
    int mousePressEvent(QMouseEvent* event) override;
    int mouseMoveEvent(QMouseEvent* event) override;
    int mouseReleaseEvent(QMouseEvent* event) override;

    /// How the next plane is defined; a plane that stands stays.
    void setPlaneType(PlaneType type);
    PlaneType getPlaneType() const { return planeType; }
    /// Whether what touches no handle picks points.
    void setEnablePointPickMesh(bool enabled) { enablePointPickMesh = enabled; }

    /// Who takes what touches no handle once the plane stands, in the place of the point picker;
    /// borrowed, null for nobody.
    void setClickTaker(ClickTaker* taker) { clickTaker = taker; }

    /// What is taken back with the edits of the plane; borrowed, null for nothing. What it holds
    /// already is no edit.
    void setEditsBeside(EditsBeside* beside);

    /// Places a plane from numbers if none stands yet. The tangent and vertical types ignore it.
    /// Always 1.
    int setPlaneByCenterAndNormal(UPoint3<float> center, UVector3<float> normal);

    /// Takes plane and picks away, so that the plane can be defined anew. The size stays.
    void resetSelection();

    /// The plane; null while it is being picked.
    PlaneGraphicObject* getPlaneObject() const { return planeObject; }
    /// The size of the plane as it was last; -1 for what was never set.
    PlaneSize getPlaneSize() const { return {planeWidth, planeHeight}; }
    /// What the next plane is sized like. The one that stands is left alone.
    void setPlaneSize(PlaneSize const& size);
    /// How far an arrow key moves the plane along its normal, in millimetres.
    void setNudge(float way) { m_nudge = way; }
    /// The points picked so far.
    std::vector<UPoint3<float>> getPicks() const { return pickMarkers.points(); }

private:
    void pick(QPoint position);
    void getCutPlanePara(UPoint3<float> const& point);
    void getCutPlaneParaByCenterAndNormal(UPoint3<float> const& center,
                                          UVector3<float> const& normal);
    void makePlane();
    void placePlaneAt(PlaneRectangle const& rectangle);
    void sizeByScene();

    ToolState editState() const;
    void restore(ToolState const& state);
    bool useKey(QKeyEvent const& event);

    void dragMoveMouseLeft(UVector3<float> const& delta);
    void dragMoveMouseRight(UVector3<float> const& delta);
    void takeCorners(PlaneCorners const& corners);
    /// For a drag that is given up.
    void putBack(PlaneCorners const& corners, PlaneSize const& size);
    PlaneCorners corners() const;
    bool hasTakenOver() const { return clickTaker && planeObject; }
    bool isHandleUnder(QPoint position, int& handle) const;
    void showHandleCursor(bool isResizeWanted);

    float planeWidth = -1;
    float planeHeight = -1;
    PlaneGraphicObject* planeObject = nullptr;
    PickMarkers pickMarkers;
    PlaneType planeType;
    bool isResizing = false;
    bool enablePointPickMesh = false;
    ClickTaker* clickTaker = nullptr;
    EditsBeside* editsBeside = nullptr;
    /// Of a click that is the taker's.
    std::optional<QPoint> takenPress;
    UVector3<float> pickNormal;
    float m_nudge = 0.1f;
};

}  // namespace Freecut
