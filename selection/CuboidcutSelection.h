// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/document/TypeEntry.h"
#include "selection/CentredSelection.h"

namespace Freecut {

class CuboidGraphicObject;

/// The mouse tool of the cuboid: a click places its centre, its handles move, size and turn it.
/// During a preview it leaves the mouse alone.
class CuboidcutSelection : public Base::TypeEntry<CuboidcutSelection, CentredSelection>
{
public:
    static constexpr char const* toolName = "Freecut::CuboidcutSelection";
    static constexpr char const* typeName = toolName;

    CuboidcutSelection();

    /// Places the centre, of which x and y count. Makes the tool if there is none yet.
    ///
    /// eyePoint  in eye space
    bool addPointOfCuboidCut(UPoint3<float> eyePoint);
    bool addPoint(UPoint3<float> const& eyePoint) override;

    /// The cuboid; null until the first click.
    CuboidGraphicObject* getCuboid() const;

protected:
    char const* ownCursor() const override;
    std::optional<int> partUnder(QPoint position) const override;
    char const* cursorOver(int part) const override;

private:
    void dragMoveMouseLeft(UVector3<float> delta, QMouseEvent const* event) override;
    std::function<void()> putBack() override;
};

}  // namespace Freecut
