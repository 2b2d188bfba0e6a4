// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "selection/VolumeSelection.h"

namespace Freecut {

/// The frame of the mouse tools whose solid stands on one point: a click places the centre, a drag
/// takes what was under the mouse along. During a preview the mouse is left alone.
class CentredSelection : public VolumeSelection
{
public:
    void initialize() override;
    int mousePressEvent(QMouseEvent* event) override;
    int mouseMoveEvent(QMouseEvent* event) override;
    int mouseReleaseEvent(QMouseEvent* event) override;

    /// Moves the centre to typed world coordinates.
    void setSelectedPointInfo(float x, float y, float z) override;

protected:
    virtual char const* ownCursor() const = 0;
    /// What is under the mouse that can be dragged, by its number; there is a solid.
    virtual std::optional<int> partUnder(QPoint position) const = 0;
    virtual char const* cursorOver(int part) const;

private:
    /// A step of the drag of `selectedIndex`, with what follows an edit.
    virtual void dragMoveMouseLeft(UVector3<float> delta, QMouseEvent const* event) = 0;
    /// Takes the solid back to what it is now.
    virtual std::function<void()> putBack() = 0;
};

}  // namespace Freecut
