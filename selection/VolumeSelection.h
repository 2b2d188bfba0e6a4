// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/document/TypeEntry.h"
#include "selection/FreecutSelection.h"
#include "selection/PointLabel.h"

#include <functional>

namespace Freecut {

class VolumeGraphicObject;

/// A mouse tool that draws a solid tool on the screen. Only the classes below are used.
class VolumeSelection : public Base::TypeEntry<VolumeSelection, FreecutSelection>
{
public:
    static constexpr char const* typeName = "Freecut::VolumeSelection";

    VolumeSelection();
    ~VolumeSelection() override;

    /// The tool object; null until the first click that is taken.
    virtual VolumeGraphicObject* getGraphicObject() const;
    /// Takes the tool object out and deletes it, so that the tool can be drawn anew.
    virtual void resetSelection();

protected:
    /// The world point under a widget position in the plane in which a tool is drawn.
    UPoint3<float> sketchPoint(QPoint position, float sketchDepth) const;

    /// Takes a new tool object over: gives it its depth and the view's camera, puts it into the
    /// active document and selects it. Without a document it is deleted, and the result is false.
    bool startTool(VolumeGraphicObject* tool);

    /// The eye-space point of the reference plane under a widget position.
    UPoint3<float> eyePointUnder(QPoint position) const;

    bool isInPreview() const;
    /// There is nothing to edit: no tool yet, or one in a preview.
    bool isFrozen() const { return !graphicObject || isInPreview(); }
    /// The drag of a handle is the tool's from now on.
    ///
    /// putBack  puts what is dragged back; what follows an edit is done after it
    void beginDrag(int handle, std::function<void()> putBack);
    void captureDrag(std::function<void()> putBack);

    // Of the tools that stand on one point.

    /// Puts the centre under an eye-space point, of which x and y count. Makes the tool if there is
    /// none yet.
    ///
    /// Tool       a cuboid or cylinder
    /// keyPoints  how many it has
    template <typename Tool>
    void placeCentre(UPoint3<float> const& eyePoint, std::size_t keyPoints)
    {
        if (!graphicObject) {
            auto* const tool = new Tool;
            tool->setLabel(PointLabel::make(*tool, m_view));
            if (!startTool(tool))
                return;
        }
        putCentre(eyePoint, keyPoints);
    }
    /// Moves the centre to typed world coordinates, of which those count that the standard view
    /// leaves free.
    void moveCentreToTyped(UPoint3<float> const& typed);

    VolumeGraphicObject* graphicObject = nullptr;

private:
    void putCentre(UPoint3<float> const& eyePoint, std::size_t keyPoints);
};

}  // namespace Freecut
