// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/view/ViewPicture.h"

#include "host/view/PictureFrame.h"
#include "host/view/ViewScene.h"
#include "platform/view/GLView.h"

#include <QCoreApplication>
#include <QSaveFile>

#include <algorithm>

namespace {

/// Has a view draw in a frame as long as this lives.
class Framing
{
public:
    Framing(ViewScene& scene, PictureFrame& frame) : m_scene(scene) { scene.setFrame(&frame); }
    ~Framing() { m_scene.setFrame(nullptr); }
    Framing(Framing const&) = delete;
    Framing& operator=(Framing const&) = delete;

private:
    ViewScene& m_scene;
};

/// What the picture is in pixels of its own, from what it is before black and before white.
QImage withoutGround(QImage const& onBlack, QImage const& onWhite)
{
    QImage picture(onBlack.size(), QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < picture.height(); ++y) {
        auto const* const black = reinterpret_cast<QRgb const*>(onBlack.constScanLine(y));
        auto const* const white = reinterpret_cast<QRgb const*>(onWhite.constScanLine(y));
        auto* const row = reinterpret_cast<QRgb*>(picture.scanLine(y));
        for (int x = 0; x < picture.width(); ++x) {
            int const through =
                std::min({qRed(white[x]) - qRed(black[x]), qGreen(white[x]) - qGreen(black[x]),
                          qBlue(white[x]) - qBlue(black[x])});
            int const alpha = 255 - std::clamp(through, 0, 255);
            auto const part = [alpha](int level) { return std::min(level, alpha); };
            row[x] =
                qRgba(part(qRed(black[x])), part(qGreen(black[x])), part(qBlue(black[x])), alpha);
        }
    }
    return picture.convertToFormat(QImage::Format_ARGB32);
}

QImage draw(Base::GLView& view, PictureFrame const& frame)
{
    ViewScene& scene = view.scene();
    scene.standIns().rest();
    view.grabFramebuffer();
    while (scene.isPreparing()) {
        scene.finishPreparing();
        view.grabFramebuffer();
    }
    view.makeCurrent();
    return frame.image();
}

}  // namespace

QImage takePicture(Base::GLView& view, QSize pixels, bool isTransparent, QString* reason)
{
    auto const refuse = [reason](char const* text) {
        if (reason)
            *reason = QCoreApplication::translate("GLView", text);
        return QImage();
    };
    ViewScene& scene = view.scene();
    if (!view.isVisible() || !scene.isInitialized())
        return refuse(
            QT_TRANSLATE_NOOP("GLView", "There is no picture to save: show the view first."));
    view.makeCurrent();
    // What is drawn in the widget meanwhile is nothing to look at.
    view.update();
    QImage picture;
    {
        PictureFrame frame(pixels.boundedTo({largestPicture, largestPicture})
                               .expandedTo({smallestPicture, smallestPicture}),
                           view.height());
        if (!frame.isValid())
            return refuse(QT_TRANSLATE_NOOP(
                "GLView", "The picture is too large for this computer: choose a smaller one."));
        Framing const framing(scene, frame);
        if (isTransparent) {
            frame.setFlatGround(Qt::black);
            QImage const onBlack = draw(view, frame);
            frame.setFlatGround(Qt::white);
            picture = withoutGround(onBlack, draw(view, frame));
        } else {
            picture = draw(view, frame);
        }
    }
    view.doneCurrent();
    return picture;
}

bool savePicture(QImage const& picture, QString const& file, QString* reason)
{
    QSaveFile target(file);
    bool const isSaved = !picture.isNull() && target.open(QIODevice::WriteOnly) &&
                         picture.save(&target, "PNG") && target.commit();
    if (!isSaved && reason)
        *reason = picture.isNull()
                      ? QCoreApplication::translate(
                            "GLView", "There is no picture to save: show the view first.")
                      : QCoreApplication::translate("GLView",
                                                    "The picture could not be saved as %1: %2. "
                                                    "Choose another folder.")
                            .arg(file, target.errorString());
    return isSaved;
}
