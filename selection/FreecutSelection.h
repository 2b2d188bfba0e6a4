// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UBox3.h"
#include "platform/view/PointPickerMesh.h"
#include "selection/EditHistory.h"
#include "selection/ToolObjects.h"

#include <QPoint>

#include <memory>
#include <vector>

namespace Freecut {

/// A mouse tool by which a cut is defined. It owns the tool objects that it puts into documents;
/// they leave when it ends. This class itself picks points on parts and no more.
class FreecutSelection : public Mesh::PointPickerMesh
{
public:
    static Base::Type classTypeId;
    static Base::Type getClassTypeId() { return classTypeId; }
    static void init();
    static void* create();

    /// Takes the cursor off the view, unless another tool of that view has set one since.
    ~FreecutSelection() override;

    Base::Type getTypeId() const override;
    std::string getClassName() const override;
    int mousePressEvent(QMouseEvent* event) override;
    int mouseMoveEvent(QMouseEvent* event) override;
    int mouseReleaseEvent(QMouseEvent* event) override;

    /// The box around all parts of the active document; null without one.
    UBox3<float> getObjectsBox() const;
    /// The size that a plane or tool has at first: the diagonal of that box, at least 0.001 mm.
    float calculateSuitableSize() const;
    /// The eight corners of that box, x running fastest, then y, from the minimum.
    std::vector<UPoint3<float>> getAllObjectsBoudingBoxEightPoints() const;

protected:
    /// Shows one of the tools' cursors on the view.
    ///
    /// name  such as "cursor_planecut"
    void showCursor(char const* name);

    /// The way of the mouse since the last event in world space, in the screen's plane.
    UVector3<float> worldDelta(QPoint position) const;

    /// Puts a new tool object into a document, which is the active one as a rule, and selects it.
    void addTool(Base::Document& document, Base::DocumentObject* tool);

    /// Keeps the edits from now on, so that they can be taken back. Called once, by the constructor
    /// of a tool that edits something.
    void keepEdits(EditHistory::Tool tool);
    /// For what is one edit to a person and several here.
    EditHistory* edits() const { return m_edits.get(); }

    QPoint lastPos;
    ToolObjects createdObjects;
    int selectedIndex = 0;
    bool isDragging = false;

private:
    std::unique_ptr<EditHistory> m_edits;
};

}  // namespace Freecut
