// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "selection/VolumeSelection.h"

namespace Freecut {

class CylinderGraphicObject;

/// The mouse tool of the cylinder: a click places its centre; the centre, the notch and the circle
/// itself are dragged. During a preview it leaves the mouse alone.
class CylindercutSelection : public VolumeSelection
{
public:
    static constexpr char const* toolName = "Freecut::CylindercutSelection";
    static Base::Type classTypeId;
    static Base::Type getClassTypeId() { return classTypeId; }
    static void init();
    static void* create();

    CylindercutSelection();

    Base::Type getTypeId() const override;
    std::string getClassName() const override;
    void initialize() override;
    int mousePressEvent(QMouseEvent* event) override;
    int mouseMoveEvent(QMouseEvent* event) override;
    int mouseReleaseEvent(QMouseEvent* event) override;

    /// Places the centre, of which x and y count. Makes the tool if there is none yet.
    ///
    /// eyePoint  in eye space
    bool addPointOfCylinderCut(UPoint3<float> eyePoint);
    /// Moves the centre to typed world coordinates.
    void setSelectedPointInfo(float x, float y, float z);

    /// The cylinder; null until the first click.
    CylinderGraphicObject* getCylinder() const;

private:
    void dragMoveMouseLeft(UVector3<float> delta, QMouseEvent const* event);
    /// Takes the cylinder back to what it is now.
    std::function<void()> putBack();
    /// The key point, or CYLINDER_CIRCLE, that is under the mouse.
    std::optional<int> partUnder(QPoint position) const;
    bool isCircleUnder(QPoint position) const;
};

}  // namespace Freecut
