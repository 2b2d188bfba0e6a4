// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/document/TypeEntry.h"
#include "selection/FreecutSelection.h"
#include "selection/PointLabel.h"

#include <functional>
#include <optional>

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
    /// Adds a point, in eye space, of which x and y count, as a click does. Whether it was taken.
    virtual bool addPoint(UPoint3<float> const& eyePoint);
    /// Moves the selected point to typed world coordinates.
    virtual void setSelectedPointInfo(float x, float y, float z);

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

    /// Keeps the edits of a solid tool.
    ///
    /// makeTool  makes a tool object and lets startTool() take it over; whether that has worked
    void keepSolidEdits(std::function<bool()> makeTool);
    /// What all solid tools have of their state; nothing while there is none.
    ToolState solidState() const;
    /// Puts the tool back to a state, or takes it away. What follows an edit is the caller's, by
    /// showRestored().
    ///
    /// returns  the state as it is to be now, however far the view has been turned since; none if
    ///          there is no tool
    std::optional<ToolState> restoreSolid(ToolState const& state,
                                          std::function<bool()> const& makeTool);
    void showRestored();
    QString whyFrozen() const;

    /// The way of an arrow key across the screen, in the world; none for other keys, and while
    /// nothing can be moved.
    std::optional<UVector3<float>> wayOfKey(QKeyEvent const& event) const;

    // Of the tools that stand on one point.

    /// Makes a tool with its label.
    template <typename Tool>
    bool startPointTool()
    {
        auto* const tool = new Tool;
        tool->setLabel(PointLabel::make(*tool, m_view));
        return startTool(tool);
    }
    /// Keeps the edits, and lets arrow keys move the centre.
    template <typename Tool>
    void keepPointTool()
    {
        keepSolidEdits([this] { return startPointTool<Tool>(); });
        setKeyHandler([this](QKeyEvent& event) { return nudgeCentre(event); });
    }
    bool nudgeCentre(QKeyEvent const& event);

    /// Puts the centre under an eye-space point, of which x and y count. Makes the tool if there is
    /// none yet.
    ///
    /// Tool       a cuboid or cylinder
    /// keyPoints  how many it has
    template <typename Tool>
    void placeCentre(UPoint3<float> const& eyePoint, std::size_t keyPoints)
    {
        if (!graphicObject && !startPointTool<Tool>())
            return;
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
