// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/tools/HandleShape.h"
#include "platform/document/MeshDocument.h"
#include "platform/document/MeshDocumentObject.h"
#include "platform/view/AbstractMouseSelection.h"
#include "platform/view/ToolHistory.h"

#include <QPointer>

#include <memory>
#include <vector>

class OverlayLabel;

/// Handles at the middle of the selected parts, by which they are moved along an axis and turned
/// about one, in steps of 1 mm and 15 degrees; with Shift by any amount. The parts follow the mouse,
/// and the amount stands beside it; the end of a drag is an undo step, as of the same numbers typed
/// in. A drag that is given up, or in which somebody else changes the parts, leaves them as they
/// were. A click beside the handles selects. While a job runs there are none.
class HandlesTool : public Base::AbstractMouseSelection
{
public:
    static constexpr char const* name = "HandlesTool";
    static Base::Type classTypeId;
    /// May be called again.
    static void init();

    HandlesTool();
    ~HandlesTool() override;
    Base::Type getTypeId() const override;
    std::string getClassName() const override;

    void terminate() override;
    int mousePressEvent(QMouseEvent* event) override;
    int mouseMoveEvent(QMouseEvent* event) override;
    int mouseReleaseEvent(QMouseEvent* event) override;
    void draw() override;

private:
    using Parts = std::vector<Mesh::DocumentObject*>;

    /// While something is dragged nothing can be undone.
    class NoHistory : public Base::ToolHistory
    {
    public:
        explicit NoHistory(HandlesTool const& tool) : m_tool(tool) {}
        bool isInUse() const override { return m_tool.m_drag != nullptr; }
        QString whyNoUndo() const override;
        QString whyNoRedo() const override { return whyNoUndo(); }
        void undo() override {}
        void redo() override {}

    private:
        HandlesTool const& m_tool;
    };

    /// A part that follows the mouse.
    struct Follower
    {
        Mesh::DocumentObject* part;
        UMatrix4<float> shown;
    };
    struct Drag
    {
        int handle;
        UPoint3<float> pivot;
        double last;
        /// As the mouse went, and as it is shown: in steps.
        double sum = 0;
        double shown = 0;
        std::vector<Follower> followers;
    };

    static void* create();
    Mesh::Document* document() const;
    Parts parts() const;
    std::optional<UPoint3<float>> pivot() const;
    bool begin(int handle, QPoint position);
    void follow(QPoint position, bool isFree);
    void show(double amount);
    bool areUntouched() const;
    void putBack();
    void finish();
    void hover(int handle);
    void label(QPoint position);

    NoHistory m_noHistory;
    std::unique_ptr<Drag> m_drag;
    int m_hovered = -1;
    bool m_isPressed = false;
    QPoint m_press;
    QPointer<OverlayLabel> m_label;
};
