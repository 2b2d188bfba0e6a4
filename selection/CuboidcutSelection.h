// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "selection/VolumeSelection.h"

namespace Freecut {

class CuboidGraphicObject;

/// The mouse tool of the cuboid: a click places its centre, its handles move, size and turn it.
/// During a preview it leaves the mouse alone.
class CuboidcutSelection : public VolumeSelection
{
public:
    static constexpr char const* toolName = "Freecut::CuboidcutSelection";
    static Base::Type classTypeId;
    static Base::Type getClassTypeId() { return classTypeId; }
    static void init();
    static void* create();

    CuboidcutSelection();

    Base::Type getTypeId() const override;
    std::string getClassName() const override;
    void initialize() override;
    int mousePressEvent(QMouseEvent* event) override;
    int mouseMoveEvent(QMouseEvent* event) override;
    int mouseReleaseEvent(QMouseEvent* event) override;

    /// Places the centre, of which x and y count. Makes the tool if there is none yet.
    ///
    /// eyePoint  in eye space
    bool addPointOfCuboidCut(UPoint3<float> eyePoint);
    /// Moves the centre to typed world coordinates.
    void setSelectedPointInfo(float x, float y, float z);

    /// The cuboid; null until the first click.
    CuboidGraphicObject* getCuboid() const;

private:
    void dragMoveMouseLeft(UVector3<float> delta, QMouseEvent const* event);
    /// Takes the cuboid back to what it is now.
    std::function<void()> putBack();
};

}  // namespace Freecut
