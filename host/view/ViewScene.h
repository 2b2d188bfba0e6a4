// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/view/DeviceWork.h"
#include "host/view/MarkedArea.h"
#include "host/view/PartPreparer.h"
#include "host/view/PartShape.h"
#include "host/view/PartTints.h"
#include "host/view/PictureSteps.h"
#include "host/view/SampledPicture.h"
#include "host/view/StandIns.h"
#include "platform/document/Document.h"

#include <functional>
#include <vector>

class DrawTrace;

namespace Base {
class GLGraphicsItem;
class GLView;
class ViewProvider;
}  // namespace Base

class PictureFrame;

/// What a view shows, and the order in which it is painted:
///
/// 1. the surroundings;
/// 2. providers of parts and whatever else has no tool, first those that are not transparent;
/// 3. providers of tools, Base::GraphicViewProvider and below;
/// 4. the mouse tool's drawing;
/// 5. the overlay;
/// 6. the graphics items;
/// 7. what is topmost.
///
/// Within each the order is that in which they came. Each provider and item starts from the same
/// state of OpenGL.
class ViewScene : public sigslot::has_slots<sigslot::single_threaded>
{
public:
    explicit ViewScene(Base::GLView* view);

    Base::GLView& view() const { return *m_view; }
    Base::Document* document() const { return m_document; }
    void setDocument(Base::Document* document);

    std::vector<Base::ViewProvider*> const& providers() const { return m_providers; }
    void add(Base::ViewProvider* provider);
    void remove(Base::ViewProvider* provider);
    void add(Base::GLGraphicsItem* item);
    void remove(Base::GLGraphicsItem* item);

    /// With the context current: makes the device and initializes what has come before it.
    void initialize();
    /// With the context current: frees all that the device has made for the host.
    void release();
    bool isInitialized() const { return m_device != nullptr; }

    /// Null before initialize().
    DrawDevice* device() const { return m_device.get(); }
    /// Makes the view's context current. Within a picture it is, and the widget's operation would
    /// turn away from where the picture is being drawn.
    void makeCurrent();
    /// A part that is shown is selected.
    bool hasSelection() const;
    bool hasTools() const;

    // A picture.

    using Paint = std::function<void()>;
    /// Paints what is there. A picture for the screen that would take long shows large parts
    /// coarsely, or what was shown before, until all has been drawn in steps.
    ///
    /// ground  1. of the above; it is called again for steps
    /// rest    4. and 5.
    void paintPicture(Paint const& ground, Paint const& rest);
    /// Whether pictures go to the screen now. Others are painted at once.
    void setForScreen(bool isForScreen) { m_isForScreen = isForScreen; }
    /// Around a change of the widget's size, which takes the picture away. Qt would have one painted
    /// within the change, and the same again afterwards.
    void setResizing(bool isResizing);
    bool isResizing() const { return m_isResizing; }
    /// The framebuffer object in which the picture is being drawn.
    GLuint target() const;
    /// Pictures are drawn in the frame, borrowed, and not in the widget; null for the widget again.
    void setFrame(PictureFrame* frame) { m_frame = frame; }
    PictureFrame const* frame() const { return m_frame; }
    /// The size of pictures, in pixels independent of the device, and how many of the device's each
    /// of them has.
    QSize logicalSize() const;
    double pixelRatio() const;
    QSize pixelSize() const;
    /// An exact picture is being drawn in steps.
    bool isDrawingInSteps() const { return m_steps.isWorking(); }

    PartPreparer& preparer() { return m_preparer; }
    StandIns& standIns() { return m_standIns; }
    PartTints& tints() { return m_tints; }
    DeviceWork& deviceWork() { return m_deviceWork; }
    /// A part that is shown is not ready to be painted.
    bool isPreparing() const;
    /// Waits until all that is shown is ready for the next picture, or for those that it asks for.
    void finishPreparing();
    /// A part that is taken out is painted as it was until those that may have come for it are
    /// ready.
    void keepForNow(PaintedPart part) { m_leaving.push_back(std::move(part)); }
    /// A part that has never been painted is not yet, since those that are shown with it are not
    /// ready and what they come from still stands in their place.
    bool isHeldBack(PaintedPart const& part) const;
    void paint(PaintedPart& part);
    /// Paints what nothing may cover, the items included.
    void setTopmost(Paint paint) { m_paintTopmost = std::move(paint); }

    /// Draws points of the moment: uploads, draws and forgets them.
    void drawOnce(std::vector<UPoint3<float>> const& points, std::span<DrawRun const> runs,
                  QMatrix4x4 const& toClip);

    /// Draws the line around what is selected into the picture that is being painted.
    ///
    /// width  in pixels independent of the device
    void drawOutline(float width, unsigned rgba);

    /// World to clip space.
    QMatrix4x4 toClip() const;

private:
    /// Where the picture is to be in the end.
    GLuint goal() const;
    void beginFrame();
    void endFrame();
    void askForPicture();
    void dropLeaving();
    void paintLeaving();
    void prepareParts();
    void arrangeParts();
    std::vector<std::shared_ptr<PartShape>> shownShapes() const;

    enum class Way
    {
        AtOnce,
        Coarse,
        /// What was shown before stays.
        Kept,
        /// All but the rest has been drawn in steps.
        Finished
    };
    Way wayOfPicture(Paint const& ground);
    bool hasPicture() const;
    void clearPicture();
    void paintWhole(Paint const& ground, Paint const& rest);
    void paintRest(Paint const& rest);
    void paintGroundAndParts(Paint const& ground);
    void trace(DrawTrace& trace, Paint const& ground);
    PictureSteps::Outcome drawStep(std::size_t from, std::size_t to);
    void stepDrawn(double ms, std::size_t cost);
    void paintProviders(bool areTools);
    void paintItems();
    void objectChanged(Base::DocumentObject*) { askForPicture(); }
    void objectDeleted(Base::DocumentObject*, std::string) { askForPicture(); }
    void documentDeleted();

    Base::GLView* m_view;
    Base::Document* m_document = nullptr;
    std::vector<Base::ViewProvider*> m_providers;
    std::vector<Base::GLGraphicsItem*> m_items;
    std::unique_ptr<DrawDevice> m_device;
    PartTints m_tints;
    /// Of the picture that was painted or traced last.
    MarkedArea m_marked;
    SampledPicture m_samples;
    PictureFrame* m_frame = nullptr;
    std::function<void()> m_paintTopmost;
    bool m_isSampled = false;
    bool m_isForScreen = false;
    bool m_isResizing = false;
    /// Where the last picture was put; none is there if the framebuffer object is another now.
    GLuint m_pictureTarget = 0;
    QSize m_pictureSize;
    bool m_isKept = false;
    std::vector<PaintedPart> m_leaving;
    DeviceWork m_deviceWork;
    StandIns m_standIns;
    /// The ground of the picture that is drawn in steps.
    Paint m_ground;
    PictureSteps m_steps;
    PartPreparer m_preparer;
};
