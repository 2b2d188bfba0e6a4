// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/view/MeshGLView.h"
#include "platform/view/OpenGLPath.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/PictureCount.h"
#include "tests/support/Places.h"
#include "tests/support/SkipReasons.h"
#include "tests/support/TestDocument.h"
#include "tests/support/ViewEvents.h"
#include "tests/support/WaitUntil.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QImage>
#include <QWindow>

#include <memory>

inline bool hasDisplay()
{
    return QGuiApplication::platformName() == "xcb";
}

/// A document in a view on the screen, by one of the two versions of OpenGL.
class ShownView : public testing::TestWithParam<Base::OpenGLPath>
{
protected:
    void SetUp() override
    {
        if (!hasDisplay())
            GTEST_SKIP() << displayIsMissing;
        show(GetParam());
    }

    void show(Base::OpenGLPath path)
    {
        view.reset();
        Base::setOpenGLPath(path);
        view = std::make_unique<Mesh::GLView>();
        view->setDocument(test.document);
        view->resize(400, 300);
        view->show();
        ASSERT_TRUE(
            waitUntil([&] { return view->isValid() && view->windowHandle()->isExposed(); }));
        ASSERT_EQ(g_OPENGL_3_3, path == Base::OpenGLPath::Version33);
        settle();
    }

    /// Waits until no picture is asked for any more.
    void settle()
    {
        PictureCount pictures(*view);
        int last = -1;
        while (pictures.count != last) {
            last = pictures.count;
            QElapsedTimer timer;
            timer.start();
            while (timer.elapsed() < 60)
                QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        }
    }

    /// The picture, also written into the build folder.
    QImage picture(std::string const& name) const
    {
        QImage const image = view->grabFramebuffer().convertToFormat(QImage::Format_RGB32);
        std::string const file = name + (g_OPENGL_3_3 ? "-33" : "-21") + "-ratio" +
                                 std::to_string(int(view->devicePixelRatioF())) + ".png";
        image.save(QString::fromStdString(picturePath(file)));
        return image;
    }

    QPoint positionOf(UPoint3<float> const& world) const
    {
        int x = 0, y = 0;
        view->getWidgetcoordFromWCS(world, x, y);
        return {x, y};
    }
    QColor colorAt(QImage const& image, UPoint3<float> const& world) const
    {
        return image.pixelColor(positionOf(world) * int(view->devicePixelRatioF()));
    }

    TestDocument test;
    std::unique_ptr<Mesh::GLView> view;
};

inline std::string pathName(testing::TestParamInfo<Base::OpenGLPath> const& info)
{
    return info.param == Base::OpenGLPath::Version33 ? "OpenGL33" : "OpenGL21";
}

inline auto const bothPaths =
    testing::Values(Base::OpenGLPath::Version21, Base::OpenGLPath::Version33);
