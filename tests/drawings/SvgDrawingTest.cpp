// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/drawings/PathChecks.h"

#include <gtest/gtest.h>

namespace {

using namespace Drawings;

/// A drawing of one unit for each millimetre, 100 mm high.
QByteArray page(char const* content, char const* size =
                                         "width=\"200mm\" height=\"100mm\" "
                                         "viewBox=\"0 0 200 100\"")
{
    return QByteArray("<?xml version=\"1.0\"?>\n<svg xmlns=\"http://www.w3.org/2000/svg\" ") +
           size + ">\n" + content + "\n</svg>\n";
}

std::vector<Path> read(char const* content)
{
    return svgPaths(page(content), {});
}

}  // namespace

TEST(SvgDrawing, LinesStandAsSeenFromTheLowerLeftCornerOfThePage)
{
    auto const paths = read("<path d='M10,20 h30 v10 L10 30 z'/>");
    ASSERT_EQ(paths.size(), 1u);
    EXPECT_TRUE(paths[0].isClosed);
    expectPoints(paths[0], {{10, 80}, {40, 80}, {40, 70}, {10, 70}});
}

TEST(SvgDrawing, UnitsComeFromThePageOrFromTheUser)
{
    char const* const square = "<path d='M0 0H10V10H0z'/>";
    struct Row
    {
        char const* page;
        Unit unit;
        double side;
    };
    for (Row const& row : {Row{"width='200mm' height='100mm' viewBox='0 0 200 100'", {}, 10},
                           {"width='20cm' height='10cm' viewBox='0 0 400 200'", {}, 5},
                           {"width='2in' viewBox='0 0 20 10'", {}, 25.4},
                           {"width='100%' height='100%' viewBox='0 0 20 10'", {}, 254.0 / 96},
                           {"width='192' height='96'", {}, 254.0 / 96},
                           {"", {}, 254.0 / 96},
                           {"width='72pt' height='72pt' viewBox='0 0 1 1'", {}, 254},
                           {"width='2in' viewBox='0 0 20 10'", 1.0, 10},
                           {"width='2in' viewBox='0 0 20 10'", unitOfName("in"), 254},
                           {"width='2in' viewBox='0 0 20 10'", unitOfName("px"), 254.0 / 96}}) {
        auto const paths = svgPaths(page(square, row.page), row.unit);
        ASSERT_EQ(paths.size(), 1u);
        EXPECT_NEAR(extentOf(paths[0]).width(), row.side, 1e-6) << row.page;
        EXPECT_NEAR(extentOf(paths[0]).height(), row.side, 1e-6) << row.page;
    }
}

TEST(SvgDrawing, ShapesAndTransformsAreRead)
{
    auto const paths = read(
        "<g transform='translate(100 50) rotate(90)'><rect x='1' y='2' width='3' height='4'/></g>"
        "<polygon points='0,0 10,0 5,8'/><polyline points='0 0 10 0 10 10 0 0'/>"
        "<rect width='10mm' height='20' transform='matrix(2 0 0 .5 1 1)'/>"
        "<line x1='1' y1='1' x2='5' y2='1'/>");
    ASSERT_EQ(paths.size(), 5u);
    // Ninety degrees take x down the page: (x, y) goes to (100 - y, 50 + x).
    expectPoints(paths[0], {{98, 49}, {98, 46}, {94, 46}, {94, 49}});
    EXPECT_TRUE(paths[1].isClosed);
    EXPECT_TRUE(paths[2].isClosed);
    // 10 mm are 37.795 pixels, which are user units.
    EXPECT_NEAR(extentOf(paths[3]).width(), 2 * 960 / 25.4, 1e-6);
    EXPECT_NEAR(extentOf(paths[3]).height(), 10, 1e-6);
    EXPECT_FALSE(paths[4].isClosed);
}

// Every point lies on the circle, and no chord is further from it than 0.01 mm.
TEST(SvgDrawing, CirclesAndArcsAreFollowedWithinAHundredthOfAMillimetre)
{
    for (char const* const shape :
         {"<circle cx='100' cy='50' r='40'/>", "<ellipse cx='100' cy='50' rx='40' ry='40'/>",
          "<path d='M60 50a40 40 0 0 1 80 0a40,40 0 0 1-80,0z'/>",
          "<path d='M60 50a40 40 0 1080 0 40 40 0 10-80 0'/>",
          "<rect x='60' y='10' width='80' height='80' rx='50'/>",
          "<circle cx='10' cy='5' r='4' transform='scale(10)'/>"}) {
        auto const paths = read(shape);
        ASSERT_EQ(paths.size(), 1u) << shape;
        ASSERT_TRUE(paths[0].isClosed) << shape;
        expectCircle(paths[0], {100, 50}, 40);
    }
    // A kilometre of it is no fault either.
    auto const paths = svgPaths(
        page("<circle cx='0' cy='0' r='400'/>", "width='1000mm' viewBox='0 0 1000 1000'"), {});
    expectCircle(paths.at(0), {0, 1000}, 400);
}

TEST(SvgDrawing, CurvesAreFollowedWithinAHundredthOfAMillimetre)
{
    // The same curve as one command and in its smooth halves; against points of the curve itself.
    auto const whole = read("<path d='M10 50C10 0 90 100 90 50'/>");
    auto const halves = read("<path d='M10 50C10 25 30 37.5 50 50S90 75 90 50'/>");
    for (auto const& paths : {whole, halves}) {
        ASSERT_EQ(paths.size(), 1u);
        for (int i = 0; i <= 1000; ++i) {
            double const t = i / 1000.0, s = 1 - t;
            Point const p(10 * s * s * s + 30 * s * s * t + 270 * s * t * t + 90 * t * t * t,
                          100 - (50 * s * s * s + 300 * s * t * t + 50 * t * t * t));
            EXPECT_LT(distanceFrom(paths[0], p), 0.01);
        }
    }
    auto const quadratic = read("<path d='M0 0Q50 100 100 0T200 0'/>");
    for (int i = 0; i <= 1000; ++i) {
        double const t = i / 1000.0, s = 1 - t;
        EXPECT_LT(distanceFrom(quadratic.at(0), {100 * t, 100 - 200 * s * t}), 0.01);
        EXPECT_LT(distanceFrom(quadratic.at(0), {100 + 100 * t, 100 + 200 * s * t}), 0.01);
    }
}

TEST(SvgDrawing, EveryPartOfAPathIsAPathOfItsOwn)
{
    auto const paths = read("<path d='M0 0h10v10h-10z m2 2h2v2h-2z l50 0 0 50z M70 70l5 5'/>");
    ASSERT_EQ(paths.size(), 4u);
    expectPoints(paths[1], {{2, 98}, {4, 98}, {4, 96}, {2, 96}});
    expectPoints(paths[2], {{2, 98}, {52, 98}, {52, 48}});
    EXPECT_FALSE(paths[3].isClosed);
    EXPECT_EQ(&chosenPath(paths, {}), &paths[2]);
    EXPECT_EQ(&chosenPath(paths, 2), &paths[1]);
}

TEST(SvgDrawing, WhatIsNotSeenIsLeftOut)
{
    EXPECT_EQ(read("<defs><path d='M0 0h9v9z'/></defs><g style='display: none'><rect width='9' "
                   "height='9'/></g><text>A</text><rect width='5' height='5' visibility='hidden'/>"
                   "<circle r='0'/><rect width='3' height='0'/><path d='M1 1'/>")
                  .size(),
              0u);
}

TEST(SvgDrawing, WhatAStyleSheetHidesIsLeftOut)
{
    char const* const shapes =
        "<defs><style>/* .seen { display: none } */ .gone, #also { display : none; fill: red }\n"
        "circle { visibility: hidden } .back { display: inline } g .deep { display: none }</style>"
        "</defs><rect class='fine gone' width='1' height='1'/><rect id='also' width='2' "
        "height='1'/>"
        "<circle r='3'/><rect class='seen' width='4' height='1'/>"
        "<rect class='gone back' width='5' height='1'/>"
        "<rect class='gone' style='display:inline' width='6' height='1'/>"
        "<rect display='none' class='back' width='7' height='1'/>"
        "<g class='gone'><rect width='8' height='1'/></g>";
    std::vector<float> widths;
    for (Path const& path : read(shapes))
        widths.push_back(path.points[1].X());
    EXPECT_EQ(widths, (std::vector<float>{4, 5, 6, 7}));
}

TEST(SvgDrawing, AShapeThatItsStyleMovesIsRefused)
{
    char const* const sheet = "<style>.away { transform: translate(5px, 0) }</style>";
    QByteArray const moved =
        page((QByteArray(sheet) + "<rect class='away' width='3' height='3'/>").constData());
    EXPECT_NE(refusalOf(moved, svgPaths).find("It moves a shape by its style at line 3"),
              std::string::npos);
    EXPECT_EQ(read("<rect transform='translate( 5 0 )' width='3' height='3'/>").size(), 1u);
    EXPECT_EQ(read("<rect style='transform:none' width='3' height='3'/>").size(), 1u);
}

TEST(SvgDrawing, WhatCannotBeReadIsRefusedWithASentence)
{
    struct Row
    {
        QByteArray text;
        char const* why;
    };
    for (Row const& row :
         {Row{"", "It is no SVG at line"},
          {"<html></html>", "It is no SVG. Save it as SVG."},
          {page("<g>"), "It is no SVG at line 4"},
          {page("<use href='#a'/>"), "a clone or a drawing within the drawing at line 3"},
          {page("<rect width='5%' height='1'/>"), "The length \"5%\" cannot be read."},
          {page("<path transform='spin(3)' d='M0 0h1v1z'/>"), "The transform \"spin(3)\""},
          {page("<path d='M0 0h1e9v1z'/>"), "larger than a kilometre"},
          {page("", "width='0' viewBox='0 0 1 1'"), "Its page has no size"},
          {page(""), "The drawing has no path."},
          {page("<path d='M0 0h10v10'/>"),
           "Path 1 is open: it begins at (0, 100) and ends at (10, 90)."},
          {page("<rect width='3' height='3'/><path d='M0 0h10v10'/>"), "Path 2 is open"},
          {page("<path d='M0 0h10h-5z'/>"), "Path 1 encloses nothing."}})
        EXPECT_NE(refusalOf(row.text, svgPaths).find(row.why), std::string::npos)
            << row.why << "\n  but: " << refusalOf(row.text, svgPaths);
    auto const paths = read("<rect width='3' height='3'/>");
    EXPECT_THROW(chosenPath(paths, 0), Mell::Exception);
    EXPECT_THROW(chosenPath(paths, 2), Mell::Exception);
}

TEST(SvgDrawing, SmallChangesGivePathsOrASentence)
{
    expectNoHarm({page("<g transform='translate(1 2) rotate(30)'><path d='M10,20 "
                       "c1 2 3 4 5 6 s1 1 2 2 q3 4 5 6 t1 1 a5 6 30 1 0 7 8 z'/></g><circle "
                       "cx='5' cy='5' r='4'/><rect width='9' height='8' rx='2'/>"),
                  page("<polygon points='0,0 10,0 5,8'/><ellipse rx='3' ry='4'/><path "
                       "d='M1 1H9V8H1zm1 1h1v1z'/>")},
                 svgPaths);
}
