// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/view/GLView.h"
#include "platform/view/NavigationStyle.h"
#include "platform/view/PointPickerMesh.h"

#include <QKeyEvent>
#include <QMouseEvent>

#include <functional>
#include <string>
#include <vector>

/// A mouse tool as a module brings it: writes down what reaches it, answers as the tools for cuts
/// do, and sets a cursor while it lives. `onPress` and `onRelease` are what it does by the way.
class RecordingTool : public Mesh::PointPickerMesh
{
public:
    static constexpr char const* name = "Recording::Tool";

    /// Enters the class, and forgets what earlier tools were told.
    static void enter()
    {
        Base::Type type;
        initSubclass(type, name, "Mesh::PointPickerMesh", create);
        log.clear();
        onPress = onRelease = nullptr;
    }
    static void* create() { return static_cast<BaseClass*>(new RecordingTool); }

    static RecordingTool* runningIn(Base::GLView const& view)
    {
        return dynamic_cast<RecordingTool*>(view.navigationStyle()->mouseModel());
    }

    ~RecordingTool() override
    {
        log.push_back("gone");
        m_view->unsetCursor();
    }
    std::string getClassName() const override { return name; }
    void initialize() override
    {
        m_view->setCursor(Qt::CrossCursor);
        Mesh::PointPickerMesh::initialize();
    }

    int mousePressEvent(QMouseEvent* event) override
    {
        note("press", event);
        if (onPress)
            onPress(*this);
        return 0;
    }
    int mouseMoveEvent(QMouseEvent* event) override
    {
        place = event->pos();
        log.push_back(event->buttons() ? "drag" : "hover");
        return 0;
    }
    int mouseReleaseEvent(QMouseEvent* event) override
    {
        note("release", event);
        if (onRelease)
            onRelease(*this);
        return 1;
    }
    int keyPressEvent(QKeyEvent* event) override
    {
        log.push_back("key " + event->text().toStdString());
        return 0;
    }

    using Mesh::PointPickerMesh::capturePress;

    QPoint place;

    static inline std::vector<std::string> log;
    static inline std::function<void(RecordingTool&)> onPress;
    static inline std::function<void(RecordingTool&)> onRelease;

private:
    void note(char const* what, QMouseEvent const* event)
    {
        place = event->pos();
        log.push_back(std::string(what) + " " + std::to_string(event->button()));
    }
};
