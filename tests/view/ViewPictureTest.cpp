// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/view/ViewPicture.h"
#include "platform/view/ViewProvider.h"
#include "tests/support/ShownView.h"

#include <QFile>
#include <QOpenGLContext>
#include <QOpenGLFunctions>
#include <QTemporaryDir>

namespace {

/// Pictures of other sizes than the view's, of a box seen from the front.
class ViewPictures : public ShownView
{
protected:
    void SetUp() override
    {
        ShownView::SetUp();
        if (IsSkipped())
            return;
        part = test.add(box(40, 30, 20), "box");
        view->OnViewType(0);
        view->fitAll();
    }
    /// Where a point is in a picture of so many rows.
    QPoint placeIn(QImage const& image, UPoint3<float> const& world) const
    {
        int x = 0, y = 0;
        view->getWidgetcoordFromWCS(world, x, y);
        double const ratio = double(image.height()) / view->height();
        return {int(std::lround((x - view->width() / 2.0) * ratio + image.width() / 2.0)),
                int(std::lround(y * ratio))};
    }

    Mesh::DocumentObject* part = nullptr;
};

}  // namespace

INSTANTIATE_TEST_SUITE_P(Path, ViewPictures, bothPaths, pathName);

TEST_P(ViewPictures, HaveTheSizeAskedForAndShowTheSame)
{
    for (QSize const size :
         {QSize(400, 300), QSize(1000, 750), QSize(300, 600), QSize(1600, 300)}) {
        SCOPED_TRACE(testing::Message() << size.width() << " x " << size.height());
        QImage const image = takePicture(*view, size, false);
        ASSERT_EQ(image.size(), size);
        QImage const shown = picture("shown");
        QColor const onBox = colorAt(shown, {20, 0, 10});
        for (UPoint3<float> const& world : {UPoint3<float>(20, 0, 10), UPoint3<float>(18, 0, 2)}) {
            QPoint const place = placeIn(image, world);
            if (image.rect().contains(place))
                EXPECT_EQ(image.pixelColor(place), onBox);
        }
        // Beside the box and above it is the ground.
        EXPECT_NE(image.pixelColor(placeIn(image, {20, 0, 21.5f})), onBox);
    }
    EXPECT_EQ(view->context()->functions()->glGetError(), GLenum(GL_NO_ERROR));
}

TEST_P(ViewPictures, LeaveTheViewAsItWas)
{
    QImage const before = picture("before");
    UPoint3<float> const ref = view->getViewRefPoint();
    EXPECT_FALSE(takePicture(*view, {700, 200}, true).isNull());
    EXPECT_FALSE(takePicture(*view, {100, 900}, false).isNull());
    EXPECT_EQ(picture("after"), before);
    EXPECT_EQ(view->getViewRefPoint(), ref);
    int x = 0, y = 0;
    view->getCamera()->get_screen(x, y);
    EXPECT_EQ(QSize(x, y), view->size());
}

TEST_P(ViewPictures, ShowTheGroundThroughWhereItIsTransparent)
{
    QSize const size(800, 600);
    QImage const opaque = takePicture(*view, size, false);
    QImage const image = takePicture(*view, size, true);
    ASSERT_EQ(image.size(), size);
    EXPECT_EQ(image.pixelColor(0, 0).alpha(), 0);
    EXPECT_EQ(image.pixelColor(size.width() - 1, size.height() - 1).alpha(), 0);
    QPoint const onBox = placeIn(image, {20, 0, 10});
    EXPECT_EQ(image.pixelColor(onBox), opaque.pixelColor(onBox));
    EXPECT_EQ(image.pixelColor(onBox).alpha(), 255);
    // The box covers what it covers in a front view.
    double const pixelsPerMm =
        placeIn(image, {40, 0, 0}).x() / 40.0 - placeIn(image, {0, 0, 0}).x() / 40.0;
    double covered = 0;
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x)
            covered += image.pixelColor(x, y).alphaF();
    EXPECT_NEAR(covered, 40 * 20 * pixelsPerMm * pixelsPerMm, 0.01 * covered);
}

TEST_P(ViewPictures, KeepWhatIsTranslucent)
{
    view->OnViewType(0);
    part->setSelected(false, true, true);
    test.document->getViewProvider(part)->setObjectColor(0x3060f080);
    QImage const image = takePicture(*view, {400, 300}, true);
    int const alpha = image.pixelColor(placeIn(image, {20, 0, 10})).alpha();
    EXPECT_GT(alpha, 100);
    EXPECT_LT(alpha, 250);
}

TEST_P(ViewPictures, AreCutToWhatCanBeDrawnAndRefusedWithAReason)
{
    EXPECT_EQ(takePicture(*view, {1, 20}, false).size(), QSize(smallestPicture, 20));
    Mesh::GLView hidden;
    QString reason;
    EXPECT_TRUE(takePicture(hidden, {400, 300}, false, &reason).isNull());
    EXPECT_TRUE(reason.contains("show the view first")) << reason.toStdString();
    QTemporaryDir const folder;
    EXPECT_FALSE(savePicture(QImage(), folder.filePath("x.png"), &reason));
    EXPECT_FALSE(QFile::exists(folder.filePath("x.png")));
    ASSERT_TRUE(savePicture(takePicture(*view, {64, 48}, true), folder.filePath("x.png"), &reason));
    QImage const read(folder.filePath("x.png"));
    EXPECT_EQ(read.size(), QSize(64, 48));
    EXPECT_EQ(qAlpha(read.pixel(0, 0)), 0);
}
