// SPDX-License-Identifier: GPL-3.0-or-later
#include "module/CommandTexts.h"
#include "tests/support/Places.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QIcon>
#include <QPainter>
#include <QPixmap>
#include <QStringList>

#include <cmath>

namespace {

QColor const lightGround(0xff, 0xff, 0xff);
QColor const darkGround(0x2b, 0x2f, 0x36);

QString pathOf(QString const& name)
{
    return ":/icons/icons/" + name + ".png";
}

QStringList applicationIcons()
{
    QString const names =
        "new open save save_as export undo redo delete duplicate group ungroup hide show "
        "show_all select_all rectangle fit_all fit_selection view_front view_back view_top "
        "view_bottom view_left view_right view_iso perspective parallel wireframe plate "
        "screenshot settings info check repair log history parts place cutview eye eye_off "
        "closed open_part cancel pick help flip drop rename color quit";
    QStringList paths;
    for (QString const& name : names.split(' '))
        paths << "app_" + name;
    return paths;
}

QStringList toolIcons()
{
    QString const names =
        "freecut polygoncut cut_3points cut_tangent cut_vertical cut_xy cut_xz cut_yz cut_polygon "
        "cut_circle cut_rectangle cut_rectangle_dark cut_polygon26 cut_circle26 cut_rectangle26 "
        "cut_startPreview cut_stopPreview cut_reset";
    return names.split(' ');
}

QStringList cursors()
{
    QString const names =
        "cursor_planecut cursor_polygoncut cursor_addteeth cursor_cylindercut cursor_cuboidcut "
        "cursor_freecutmove cursor_2drotate cursor_3drotate";
    return names.split(' ');
}

QStringList pictures()
{
    return {"cut_pin", "cut_hole", "cut_lapjoint", "cut_jagged", "cut_dove", "cut_puzzle"};
}

/// The drawings of tool tips that there are.
QStringList tips()
{
    QStringList names;
    for (QString const& file : QDir(":/icons/icons").entryList({"tip_*.png"}))
        if (!file.contains("@2x") && !file.contains("_dark"))
            names << QString(file).remove(".png");
    return names;
}

double luminanceOf(QColor const& colour)
{
    auto const linear = [](double value) {
        return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

double contrast(QColor const& a, QColor const& b)
{
    double const la = luminanceOf(a);
    double const lb = luminanceOf(b);
    return (std::max(la, lb) + 0.05) / (std::min(la, lb) + 0.05);
}

/// The least contrast of the fully covered pixels with a ground; -1 without such a pixel.
double leastContrast(QString const& name, QColor const& ground)
{
    QImage const image(pathOf(name));
    double least = -1;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (QColor const colour = image.pixelColor(x, y); colour.alpha() == 255) {
                double const value = contrast(colour, ground);
                least = least < 0 ? value : std::min(least, value);
            }
    return least;
}

/// Draws a page of icons at a size, for looking at, into the build folder.
void drawSheet(QString const& file, QStringList const& names, QColor const& ground, int side)
{
    int const columns = 12;
    int const cell = side + 16;
    int const rows = (names.size() + columns - 1) / columns;
    QPixmap sheet(columns * cell, rows * cell);
    sheet.fill(ground);
    QPainter painter(&sheet);
    for (int i = 0; i < names.size(); ++i)
        QIcon(pathOf(names[i]))
            .paint(&painter, (i % columns) * cell + 8, (i / columns) * cell + 8, side, side);
    sheet.save(QString::fromStdString(picturePath(file.toStdString())));
}

}  // namespace

TEST(Icons, EveryPixmapOfACommandIsThere)
{
    for (CommandTexts const& texts : commandTexts())
        for (char const* const path : {texts.pixmap, texts.pixmapDark, texts.toolTipPicture})
            if (path) {
                EXPECT_FALSE(QPixmap(QString::fromUtf8(path)).isNull()) << path;
            }
}

TEST(Icons, AreThereInBothThemesAndForBothPixelRatios)
{
    for (QString const& name : applicationIcons())
        for (char const* const theme : {"", "_dark"}) {
            QString const icon = name + theme;
            EXPECT_EQ(QImage(pathOf(icon)).size(), QSize(48, 48)) << qPrintable(icon);
            EXPECT_EQ(QImage(pathOf(icon + "@2x")).size(), QSize(96, 96)) << qPrintable(icon);
        }
}

TEST(Icons, OfToolsAreThereForBothPixelRatios)
{
    for (QString const& name : toolIcons()) {
        EXPECT_EQ(QImage(pathOf(name)).size(), QSize(48, 48)) << qPrintable(name);
        EXPECT_EQ(QImage(pathOf(name + "@2x")).size(), QSize(96, 96)) << qPrintable(name);
    }
}

TEST(Icons, OfToolTipsAreThereForBothGroundsAndBothPixelRatios)
{
    ASSERT_FALSE(tips().isEmpty());
    for (QString const& name : tips())
        for (char const* const ground : {"", "_dark"}) {
            QSize const size = QImage(pathOf(name + ground)).size();
            EXPECT_EQ(size, QSize(220, 130)) << qPrintable(name);
            EXPECT_EQ(QImage(pathOf(name + ground + "@2x")).size(), size * 2) << qPrintable(name);
        }
    for (int i = 0; i < tips().size(); ++i)
        for (int j = i + 1; j < tips().size(); ++j)
            EXPECT_NE(QImage(pathOf(tips()[i])), QImage(pathOf(tips()[j])))
                << qPrintable(tips()[j]);
}

TEST(Icons, StandOutFromTheGroundOfTheirTheme)
{
    for (QString const& name : applicationIcons()) {
        EXPECT_GE(leastContrast(name, lightGround), 3.0) << qPrintable(name);
        EXPECT_GE(leastContrast(name + "_dark", darkGround), 3.0) << qPrintable(name);
    }
}

TEST(Icons, OfToolsStandOutFromBothGrounds)
{
    for (QString const& name : toolIcons()) {
        EXPECT_GE(leastContrast(name, lightGround), 2.7) << qPrintable(name);
        EXPECT_GE(leastContrast(name, darkGround), 2.7) << qPrintable(name);
    }
}

TEST(Icons, AreAllDifferent)
{
    QStringList const names = applicationIcons() + toolIcons();
    for (int i = 0; i < names.size(); ++i)
        for (int j = i + 1; j < names.size(); ++j)
            if (names[j] != "cut_rectangle_dark") {
                EXPECT_NE(QImage(pathOf(names[i])), QImage(pathOf(names[j])))
                    << qPrintable(names[i]) << " and " << qPrintable(names[j]);
            }
}

TEST(Icons, HaveASecondPictureOnScreensWithTwoPixelsToOne)
{
    QList<QSize> const sizes = QIcon(pathOf("app_open")).availableSizes();
    EXPECT_TRUE(sizes.contains(QSize(48, 48)));
    EXPECT_EQ(sizes.contains(QSize(96, 96)), qApp->devicePixelRatio() > 1);
}

TEST(Icons, AreDrawnOnASheetForLookingAt)
{
    QStringList dark;
    for (QString const& name : applicationIcons())
        dark << name + "_dark";
    for (int const side : {20, 48}) {
        QString const end = QStringLiteral("_%1.png").arg(side);
        drawSheet("icons_light" + end, applicationIcons() + toolIcons() + cursors(), lightGround,
                  side);
        drawSheet("icons_dark" + end, dark + toolIcons() + cursors(), darkGround, side);
        EXPECT_TRUE(
            QFile::exists(QString::fromStdString(picturePath("icons_dark" + end.toStdString()))));
    }
}

TEST(Cursors, HaveTheirHotSpotInACoveredCorner)
{
    for (QString const& name : cursors()) {
        QImage const image(pathOf(name));
        EXPECT_EQ(image.size(), QSize(32, 32)) << qPrintable(name);
        EXPECT_GT(image.pixelColor(1, 1).alpha(), 128) << qPrintable(name);
        EXPECT_EQ(image.pixelColor(31, 0).alpha(), 0) << qPrintable(name);
    }
}

TEST(Cursors, StandOutFromBothGrounds)
{
    for (QString const& name : cursors()) {
        QImage const image(pathOf(name));
        double best[2] = {0, 0};
        for (int y = 0; y < 32; ++y)
            for (int x = 0; x < 32; ++x)
                if (QColor const colour = image.pixelColor(x, y); colour.alpha() > 200) {
                    best[0] = std::max(best[0], contrast(colour, Qt::white));
                    best[1] = std::max(best[1], contrast(colour, Qt::black));
                }
        EXPECT_GE(best[0], 7) << qPrintable(name);
        EXPECT_GE(best[1], 7) << qPrintable(name);
    }
}

TEST(Pictures, HaveTheProportionsOfTheirPlaces)
{
    for (QString const& name : pictures())
        EXPECT_FALSE(QPixmap(pathOf(name)).isNull()) << qPrintable(name);
    for (char const* const name : {"cut_pin", "cut_hole", "cut_lapjoint"}) {
        QSize const size = QImage(pathOf(name)).size();
        EXPECT_NEAR(double(size.width()) / size.height(), 25.34 / 9.917, 0.01) << name;
    }
}
