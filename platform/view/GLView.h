// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/document/BaseClass.h"
#include "platform/view/GLCamera.h"

#include <QOpenGLWidget>

#include <functional>
#include <memory>

class ViewScene;

namespace Base {

class Document;
class GLGraphicsItem;
class NavigationStyle;
class ViewProvider;

/// A view that shows a document. Conversions, standard views and fitting work from the camera
/// alone, also in a view that was never shown; only painting needs OpenGL. A picture is drawn when
/// one is asked for, and several requests in a row make one.
///
/// thread  the user interface thread
class GLView : public QOpenGLWidget, public BaseClass
{
    Q_OBJECT

public:
    static Type classTypeId;
    static Type getClassTypeId() { return classTypeId; }
    static void init();

    explicit GLView(QWidget* parent = nullptr);
    /// Ends the tool, and takes itself out of its document.
    ~GLView() override;

    Type getTypeId() const override;
    std::string getClassName() const override;

    /// The document, borrowed, or null. Setting it makes the document's view providers. The running
    /// tool, whose objects are in the old document, ends first; it also ends with the document.
    Document* getDocument() const;
    void setDocument(Document* document);

    /// Repaints.
    virtual void redraw();

    /// Never null.
    NavigationStyle* navigationStyle() const;
    /// The class name of the running mouse tool; empty without one.
    std::string getInteractModeName() const;
    /// Makes a mouse tool by class name and makes it the running one. False, with nothing changed,
    /// if the name is not that of a mouse tool, or the running one is locked. While a tool other than "Mesh::PointPickerMesh"
    /// runs the projection is parallel: what a tool draws on the screen goes straight into depth.
    bool startSelection(std::string className);
    /// Ends and deletes the running tool. That is for its owner, and so a lock does not prevent it.
    void stopSelection();

    /// Asked whenever something is wanted of the running tool. While it says yes the tool sees
    /// neither presses nor drags nor keys, only where the mouse is, and no other one is started;
    /// the view can be turned, moved and zoomed. An empty function takes the lock off.
    void setToolLock(std::function<bool()> isLocked);
    bool isToolLocked() const;

    /// Items over the picture; they stay the caller's, who takes them out before deleting them.
    void addGraphicsItem(GLGraphicsItem* item);
    void removeGraphicsItem(GLGraphicsItem* item);

    /// The camera; follows the size of the widget.
    GLCamera* getCamera() const;
    /// The projection that is wanted; see startSelection.
    void setProjection(GLCamera::Projection projection);
    GLCamera::Projection projection() const { return m_projection; }

    // Widget positions are pixels independent of the device pixel ratio.

    /// The point of the reference plane under a widget position, in eye space.
    UPoint3<float> getEyePointOnScreen(UPoint2<float> position) const;
    void getEyePointFromWCSPoint(UPoint3<float>& point) const;
    void getWCSPointFromEyePoint(UPoint3<float>& point) const;
    /// The nearest pixel.
    void getWidgetcoordFromWCS(UPoint3<float> point, int& x, int& y) const;

    UPoint3<float> getViewRefPoint() const;
    UVector3<float> getViewUpDirection() const;
    /// Unit vector from the reference point towards the eye.
    UVector3<float> getViewDirection() const;

    /// Turns to a standard view about the middle of the picture; the scale stays. Other numbers do
    /// nothing.
    ///
    /// type  0 front, 1 back (along y); 2 top, 3 bottom (along z); 4 left, 5 right (along x);
    ///       6 isometric, from the front, the right and above
    void OnViewType(int type);
    /// The standard view that is shown, 0 to 6; -1 for a free view.
    int viewIndex() const;

    /// Shows all that is visible, or what is selected; the direction stays. While a tool runs or
    /// stands in the document, the depth of the reference plane stays too.
    void fitAll();
    void fitSelection();

    /// The box around what is shown, in world millimetres; null if there is nothing.
    virtual UBox3<float> getSceneBox(bool onlySelected) const;

    /// Writes the picture to a PNG file, as large as the widget in device pixels. On failure a file
    /// of that name stays as it was.
    ///
    /// reason  takes a sentence that says what to do
    bool saveScreenshot(QString const& file, QString* reason = nullptr);

    // Called by view providers.

    void addViewProvider(ViewProvider* provider);
    void removeViewProvider(ViewProvider* provider);
    /// A provider's render data have been made anew; asks for a picture.
    virtual void renderDataUpdated(ViewProvider* provider);

    // Called by the navigation.

    /// The point about which the view turns that is being turned from a widget position.
    virtual UPoint3<float> turningPoint(QPoint position) const;
    /// A click while no tool runs: with one, the selection is the tool's.
    virtual void clicked(QMouseEvent* event);
    /// Paints at once if the camera has been turned or moved since the last picture, so that the
    /// tools see turns and moves one by one: they take them in different ways. Without a tool it
    /// does nothing.
    void paintPending();
    /// Whether a tool runs or stands in the document, to which the depth of the reference plane
    /// matters.
    bool isDrawnIn() const;

    /// What draws in this view, for the host's own classes.
    ViewScene& scene() const { return *m_scene; }

signals:
    /// A mouse tool was started or has ended.
    void signalInteractModeChanged();
    /// A press for the running tool, or the start of another one, has been refused by the lock.
    void signalToolRefused();
    /// The camera was moved by mouse or keys, or by an operation of this class.
    void signalCameraChanged();

protected:
    bool event(QEvent* event) override;
    void initializeGL() override;
    void paintGL() override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;

    /// Paints what stands around the parts before them, and what lies over the picture after them.
    virtual void paintSurroundings();
    virtual void paintOverlay();
    /// The box around the surroundings; null if there are none.
    virtual UBox3<float> surroundingsBox() const;
    /// Makes the camera's depth range that of all there is to see, with room to spare.
    void setDepthRange() const;

private:
    void fit(UBox3<float> const& box);
    void applyProjection();
    void paintBackground();
    void releaseGL();

    std::unique_ptr<GLCamera> m_camera;
    /// As it was for the last picture.
    GLCamera m_paintedCamera;
    GLCamera::Projection m_projection = GLCamera::Projection::Parallel;
    std::unique_ptr<ViewScene> m_scene;
    std::unique_ptr<NavigationStyle> m_navigation;
    std::function<bool()> m_isToolLocked;
};

}  // namespace Base
