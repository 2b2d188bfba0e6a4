// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/document/TypeEntry.h"
#include "selection/DrawnPoint.h"
#include "selection/HoverLine.h"
#include "selection/TeethEditing.h"
#include "selection/VolumeSelection.h"

namespace Freecut {

class PolygonGraphicObject;

/// The mouse tool of the polygon cut: clicks draw the outline of a prism in any order, drags move
/// its corners. In teeth mode a click chooses the edge whose teeth are edited; teeth are slid along
/// their edge and reshaped by their handles. During a preview it leaves the mouse alone.
///
/// Shift and control hold a point that is drawn or dragged to something, as RunningEdge says; the
/// status line tells lengths and angles of its edges. With both of them a drag within the outline
/// moves all of it, with its teeth. Backspace removes the point that was drawn
/// last, the arrow keys nudge the selected one.
class PolygoncutSelection : public Base::TypeEntry<PolygoncutSelection, VolumeSelection>
{
public:
    static constexpr char const* toolName = "Freecut::PolygoncutSelection";
    static constexpr char const* typeName = toolName;

    PolygoncutSelection();
    ~PolygoncutSelection() override;

    void initialize() override;
    int mousePressEvent(QMouseEvent* event) override;
    int mouseMoveEvent(QMouseEvent* event) override;
    int mouseReleaseEvent(QMouseEvent* event) override;
    void resetSelection() override;

    /// Adds a vertex, of which x and y count. Makes the tool if there is none yet.
    ///
    /// eyePoint  in eye space
    /// returns   whether the vertex was added; why not, the user has been told
    bool addPointOfPolygonCut(UPoint3<float> eyePoint);
    /// At which index a world point belongs in the outline.
    int insertPointInPolygon(UPoint3<float> worldPoint) const;
    /// Whether an outline, in thousandths of a millimetre, touches itself as it is seen.
    bool overlappingdetect(std::vector<UPoint3<float>> points) const;
    bool addPoint(UPoint3<float> const& eyePoint) override;
    /// Moves the selected vertex to typed world coordinates.
    void setSelectedPointInfo(float x, float y, float z) override;
    /// Takes the line over the edge under the mouse away.
    void deleteHightLightedLine();

    // Teeth. Without a tool these change parameters alone.

    void setAddTeeth(bool on);
    bool getAddTeeth() const { return addTeeth; }
    void setTeethParas(int style, float width, float height, float upperWidth, float lowerWidth,
                       float doveHeight, int count, float distance, int method, bool useOffset,
                       float offset, bool applyAllEdges, bool flipTeeth);
    void setTeethParas(TeethParas const& paras) { teeth.setParas(paras); }
    TeethParas const& getTeethParas() const { return teeth.paras(); }
    void setApplyAllEdges(bool on) { teeth.setApplyAllEdges(on); }
    /// Makes the teeth under edit anew; false if the parameters do not fit, which the user has been
    /// told. The two halves of it follow.
    bool teethAlgorithm();
    bool calculateTeethBasePoints();
    void updateTeethData();
    /// Confirms the teeth under edit.
    void applyTeeth();
    /// The record of an edge that has no teeth.
    TeethEdge freshEdge() const { return teeth.freshEdge(); }

    /// The polygon; null until the first click.
    PolygonGraphicObject* getPolygon() const;
    int getSelectedIndex() const { return selectedIndex; }
    /// The edge under the mouse; -1 for none.
    int getHoverEdge() const { return hoverEdge; }
    /// To which points are drawn while control is held.
    PartSections& getSections() { return drawn.sections(); }

private:
    ToolState editState() const;
    void restore(ToolState const& state);
    bool useKey(QKeyEvent const& event);
    void removeNewestPoint();

    /// Shows the section of the parts while control is held.
    void showSections(Qt::KeyboardModifiers keys);
    void dragVertex(UVector3<float> const& delta, QMouseEvent const& event);
    void showDrawnEdges(QMouseEvent const& event);
    void addPointAt(QMouseEvent const& event);

    void dragMoveMouseLeft(UVector3<float> delta);
    void BasePntDragMove(UVector3<float> delta, QMouseEvent const* event);
    void WidthHeightDragMove(UVector3<float> delta, QMouseEvent const* event);
    bool dragStep(QMouseEvent const& event);
    bool isDragRunning() const
    {
        return isDragging || draggingBasePoint || draggingHandle || draggingOutline;
    }
    /// The mouse would move the whole outline.
    bool isOutlineUnder(QMouseEvent const& event) const;
    bool endDrag();
    void beginToothDrag(ToothHit const& hit);
    /// Takes the outline and its teeth back to what they are now.
    std::function<void()> putBack();
    bool isHandleUnder(QPoint position) const;
    void hover(QMouseEvent const& event);
    void releaseOnContour(QMouseEvent const& event);
    void releaseOnTeeth(QMouseEvent const& event);
    void showMenu(std::vector<char const*> const& commands);

    bool addTeeth = false;
    int hoverEdge = -1;
    HoverLine hoverLine;
    DrawnPoint drawn{[this] { return getObjectsBox(); }};
    /// Where the mouse has dragged the vertex, held to something or not.
    UPoint3<float> draggedTo;
    TeethEditing teeth;
    bool draggingBasePoint = false;
    bool draggingHandle = false;
    bool draggingOutline = false;
    int selectedEdge = 0;
    /// A drag was refused: the release that ends it is no click.
    bool isPressSpent = false;
};

}  // namespace Freecut
