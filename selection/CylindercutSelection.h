// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/document/TypeEntry.h"
#include "selection/CentredSelection.h"

namespace Freecut {

class CylinderGraphicObject;

/// The mouse tool of the cylinder: a click places its centre; the centre, the notch and the circle
/// itself are dragged. During a preview it leaves the mouse alone.
class CylindercutSelection : public Base::TypeEntry<CylindercutSelection, CentredSelection>
{
public:
    static constexpr char const* toolName = "Freecut::CylindercutSelection";
    static constexpr char const* typeName = toolName;

    CylindercutSelection();

    /// Places the centre, of which x and y count. Makes the tool if there is none yet.
    ///
    /// eyePoint  in eye space
    bool addPointOfCylinderCut(UPoint3<float> eyePoint);
    bool addPoint(UPoint3<float> const& eyePoint) override;

    /// The cylinder; null until the first click.
    CylinderGraphicObject* getCylinder() const;

protected:
    char const* ownCursor() const override;
    /// The key point, or CYLINDER_CIRCLE.
    std::optional<int> partUnder(QPoint position) const override;

private:
    void dragMoveMouseLeft(UVector3<float> delta, QMouseEvent const* event) override;
    std::function<void()> putBack() override;
    bool isCircleUnder(QPoint position) const;
};

}  // namespace Freecut
