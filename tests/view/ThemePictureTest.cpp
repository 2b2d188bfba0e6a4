// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/ui/HeightSlider.h"
#include "platform/ui/CutView.h"
#include "platform/ui/DockWidget.h"
#include "platform/ui/MellViewSlider.h"
#include "platform/ui/SideControlTab.h"
#include "platform/ui/ThemeSwitch.h"
#include "platform/view/ViewProvider.h"
#include "tests/support/MadeModels.h"
#include "tests/support/Places.h"
#include "tests/support/ScratchSettings.h"
#include "tests/support/ShownView.h"

#include <QHBoxLayout>
#include <QScreen>

// The view and what stands beside it, in both themes.
namespace {

class ThemePictures : public ShownView
{
protected:
    ~ThemePictures() override
    {
        ThemeSwitch::setTheme(ThemeSwitch::Choice::Light);
        if (view)
            view->setParent(nullptr);
    }

    /// The window as it is on the screen, also written into the build folder.
    QImage windowPicture(QWidget& window, std::string const& name)
    {
        settle();
        QImage const image = window.screen()->grabWindow(window.winId()).toImage();
        std::string const file = name + (g_OPENGL_3_3 ? "-33" : "-21") + "-ratio" +
                                 std::to_string(int(view->devicePixelRatioF())) + ".png";
        image.save(QString::fromStdString(picturePath(file)));
        return image;
    }

    void addParts()
    {
        Mesh::DocumentObject* const part = test.add(branchedFigure(), "part");
        UBox3<float> const bounds = part->getBoundingBox();
        part->translate({-(bounds.MinX() + bounds.MaxX()) / 2, -(bounds.MinY() + bounds.MaxY()) / 2,
                         -bounds.MinZ()},
                        0);
        Mesh::DocumentObject* const chosen = test.add(tube(15, 8, 30, 64), "chosen");
        chosen->translate({60, -50, 0}, 0);
        chosen->setSelected(true, true, true);
        test.add(openBox(30, 30, 20), "open")->translate({-80, -60, 0}, 0);
    }

    ScratchSettings settings;
};

}  // namespace

INSTANTIATE_TEST_SUITE_P(Path, ThemePictures, bothPaths, pathName);

TEST_P(ThemePictures, OfAWindowWithACutAndALine)
{
    QWidget window;
    QHBoxLayout layout(&window);
    layout.setContentsMargins(0, 0, 0, 0);
    SideControlTab control;
    HeightSlider slider;
    control.setFixedWidth(300);
    layout.addWidget(&control);
    layout.addWidget(view.get(), 1);
    layout.addWidget(&slider);
    window.resize(1200, 800);
    window.show();
    ASSERT_TRUE(waitUntil([&] { return window.windowHandle()->isExposed(); }));
    addParts();
    view->OnViewType(6);
    view->fitAll();
    slider.setView(view.get());
    CutView& cut = *control.getDock("Preparing")->getCutView();
    cut.setView(view.get());
    int lightness[2];
    for (int const isDark : {0, 1}) {
        ThemeSwitch::setTheme(isDark ? ThemeSwitch::Choice::Dark : ThemeSwitch::Choice::Light);
        std::string const suffix = isDark ? "-dark" : "-light";
        cut.setActive(false);
        windowPicture(window, "window" + suffix);
        cut.setActive(true);
        cut.setAxis(CutView::AlongY);
        cut.setFlipped(true);
        windowPicture(window, "window-cut" + suffix);
        for (Base::DocumentObject const* const object : test.document->getObjectArray())
            test.document->getViewProvider(object)->setRenderMode(1);
        cut.setNormal({1, -2, 1});
        windowPicture(window, "window-edges" + suffix);
        for (Base::DocumentObject const* const object : test.document->getObjectArray())
            test.document->getViewProvider(object)->setRenderMode(0);
        lightness[isDark] = picture("theme" + suffix).pixelColor(2, 2).lightness();
    }
    EXPECT_GT(lightness[0], 200);
    EXPECT_LT(lightness[1], 80);
    layout.removeWidget(view.get());
    view->setParent(nullptr);
}

TEST_P(ThemePictures, AreSavedAsLargeAsTheViewIsInDevicePixels)
{
    addParts();
    view->fitAll();
    QTemporaryDir folder;
    QString const file = folder.filePath("view.png");
    QString reason;
    ASSERT_TRUE(view->saveScreenshot(file, &reason)) << reason.toStdString();
    QImage const saved(file);
    EXPECT_EQ(saved.size(), view->size() * view->devicePixelRatioF());
    EXPECT_EQ(saved.convertToFormat(QImage::Format_RGB32), picture("screenshot"));
    EXPECT_FALSE(view->saveScreenshot(folder.filePath("missing/view.png"), &reason));
    EXPECT_TRUE(reason.contains("view.png")) << reason.toStdString();
}
