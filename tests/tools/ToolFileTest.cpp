// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/jobs/Exceptions.h"
#include "tests/support/Rounds.h"
#include "tests/support/TextChanges.h"
#include "tests/support/UncheckedLeaks.h"
#include "tools/TeethParas.h"
#include "tools/ToolFile.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <random>

namespace {

using namespace Freecut;

QByteArray const polygonText = R"({
  "format": "drawn tool",
  "version": 1,
  "tool": "polygon",
  "view": {"from": "top", "reference": [0.1, 0, -3]},
  "depth": 20.2,
  "points": [
    [5, 5, 20.2],
    [25, 5, 20.2],
    [25, 20, 20.2]
  ],
  "teeth": [
    {"edge": 1, "style": "dovetail", "width": 3, "lower": 2, "height": 1.5, "count": 2, "offset": 1, "side": "right", "points": [[6, 5, 20.2], [5.5, 3.5, 20.2], [8.5, 3.5, 20.2], [8, 5, 20.2]]},
    {"edge": 3, "style": "puzzle", "width": 3, "height": 2, "distance": 4.5, "side": "left"}
  ],
  "round": 0.3,
  "clearance": {"width": 0.15, "side": "both"},
  "cutTill": 7.25
}
)";
QByteArray const cylinderText = R"({
  "format": "drawn tool",
  "version": 1,
  "tool": "cylinder",
  "view": {"direction": [0.48, -0.6, 0.64], "up": [-0.4, 0.5, 0.768], "reference": [1, 2, 3]},
  "center": [1.5, 2.25, 1e-05],
  "radius": 4.3333335,
  "tolerance": 0.01,
  "notch": {"width": 2.5, "length": 1, "angle": -33.3}
}
)";
QByteArray const cuboidText = R"({
  "format": "drawn tool",
  "version": 1,
  "tool": "cuboid",
  "view": {"from": "left"},
  "center": [1.5, 2.25, 3],
  "length": 12,
  "width": 8,
  "angle": 30,
  "clearance": {"width": 0.001, "side": "inside"}
}
)";

/// Qt's reader forgets some of what it has read where a text is spoilt.
StoredTool toolOfSpoiltText(QByteArray const& text)
{
    UncheckedLeaks const unchecked;
    return ToolFile::toolOf(text);
}

/// Why a text is refused; empty if it is read.
std::string refusalOf(QByteArray const& text)
{
    try {
        toolOfSpoiltText(text);
        return {};
    } catch (Mell::Exception const& reason) {
        return reason.what();
    }
}

QByteArray replaced(QByteArray text, char const* what, char const* by)
{
    EXPECT_TRUE(text.contains(what)) << what;
    return text.replace(what, by);
}

}  // namespace

TEST(ToolFile, APolygonsValuesAreRead)
{
    StoredTool const tool = ToolFile::toolOf(polygonText);
    EXPECT_EQ(tool.kind, StoredTool::Kind::Polygon);
    EXPECT_EQ(tool.view.standard, 2);
    EXPECT_EQ(tool.view.reference, UPoint3<float>(0.1f, 0, -3));
    EXPECT_EQ(tool.depth, 20.2f);
    ASSERT_EQ(tool.points.size(), 3u);
    EXPECT_EQ(tool.points[1], UPoint3<float>(25, 5, 20.2f));
    ASSERT_EQ(tool.edges.size(), 3u);
    TeethEdge const& dovetails = tool.edges[0];
    EXPECT_TRUE(dovetails.hasTeeth && dovetails.applied && dovetails.flip && dovetails.useOffset);
    EXPECT_EQ(dovetails.teethStyle, TEETH_DOVETAIL);
    EXPECT_EQ(dovetails.upperWidth, 3);
    EXPECT_EQ(dovetails.lowerWidth, 2);
    EXPECT_EQ(dovetails.doveHeight, 1.5f);
    EXPECT_EQ(dovetails.teethMethod, 0);
    EXPECT_EQ(dovetails.teethCount, 2);
    EXPECT_EQ(dovetails.teethOffset, 1);
    EXPECT_EQ(dovetails.appliedPoints.size(), 4u);
    EXPECT_FALSE(tool.edges[1].hasTeeth);
    TeethEdge const& tabs = tool.edges[2];
    EXPECT_TRUE(tabs.hasTeeth && !tabs.applied && !tabs.flip && !tabs.useOffset);
    EXPECT_EQ(tabs.teethMethod, 1);
    EXPECT_EQ(tabs.teethDistance, 4.5f);
    EXPECT_TRUE(tool.values.hasRoundCorners && tool.values.isClearanceEnabled);
    EXPECT_EQ(tool.values.cornerRadius, 0.3f);
    EXPECT_EQ(tool.values.clearance, 0.15f);
    EXPECT_EQ(tool.values.clearanceDirection, 2);
    EXPECT_TRUE(tool.values.isCutTillEnabled);
    EXPECT_EQ(tool.values.cutTill, 7.25f);
}

TEST(ToolFile, WhatIsWrittenIsWhatWasRead)
{
    for (QByteArray const& text : {polygonText, cylinderText, cuboidText})
        EXPECT_EQ(ToolFile::textOf(ToolFile::toolOf(text)).toStdString(), text.toStdString());
}

TEST(ToolFile, EveryBitOfANumberIsKept)
{
    std::mt19937 random(7);
    std::uniform_real_distribution<float> coordinate(-300, 300), size(0.001f, 80);
    for (int run = 0; run < rounds(2000); ++run) {
        StoredTool tool = ToolFile::toolOf(cuboidText);
        tool.points[0] = {coordinate(random), coordinate(random), coordinate(random)};
        tool.depth = coordinate(random);
        tool.view.reference = UPoint3<float>(coordinate(random), 0, coordinate(random));
        tool.values.length = size(random);
        tool.values.angle = coordinate(random) / 50;
        tool.values.clearance = size(random);
        StoredTool const again = ToolFile::toolOf(ToolFile::textOf(tool));
        EXPECT_EQ(again.points, tool.points);
        EXPECT_EQ(again.depth, tool.depth);
        EXPECT_EQ(again.view.reference, tool.view.reference);
        EXPECT_EQ(again.values, tool.values);
    }
}

TEST(ToolFile, WhatCannotBeUsedIsRefusedWithPlaceAndAdvice)
{
    struct Row
    {
        QByteArray text;
        char const* why;
    };
    Row const rows[] = {
        {"", "It is not JSON at line 1, column 1"},
        {"{\n  \"format\": \"drawn tool\",\n  oops\n}", "It is not JSON at line 3, column 4"},
        {"[1, 2]", "The text must be a record in braces"},
        {"{}", "format is missing. Add it."},
        {replaced(polygonText, "drawn tool", "preset"), "format must be \"drawn tool\""},
        {replaced(polygonText, "\"version\": 1", "\"version\": 2"),
         "version is 2, but only version 1 can be read."},
        {replaced(polygonText, "\"version\": 1", "\"version\": \"1\""), "version must be a number"},
        {replaced(polygonText, "\"tool\": \"polygon\"", "\"tool\": \"cone\""),
         "tool must be one of \"polygon\", \"cylinder\", \"cuboid\"."},
        {replaced(polygonText, "\"top\"", "\"above\""), "view.from must be one of \"front\""},
        {replaced(polygonText, "20.2],\n    [25, 5", "20.2, 1],\n    [25, 5"),
         "points[1] must be a list of 3 to 3 values"},
        {replaced(polygonText, "[25, 5,", "[1e9, 5,"), "points[2][1] must be a number from"},
        {replaced(polygonText, "\"edge\": 3", "\"edge\": 1"), "teeth[2].edge has teeth already."},
        {replaced(polygonText, "\"edge\": 3", "\"edge\": 4"),
         "teeth[2].edge must be a whole number from 1 to 3."},
        {replaced(polygonText, "\"count\": 2", "\"count\": 2.5"),
         "teeth[1].count must be a whole number from 1 to 9999."},
        {replaced(polygonText, "\"count\": 2", "\"count\": 2, \"distance\": 1"),
         "teeth[1] needs either \"count\" or \"distance\""},
        {replaced(polygonText, "\"puzzle\",", "\"puzzle\", \"lower\": 1,"),
         "teeth[2].lower is for dovetails alone."},
        {replaced(polygonText, "\"width\": 0.15", "\"width\": 0"),
         "clearance.width must be a number from 0.001 to 10000000."},
        {replaced(polygonText, "\"round\"", "\"rounded\""), "rounded has no meaning here."},
        {replaced(cylinderText, "\"radius\": 4.3333335,", ""), "radius is missing."},
        {replaced(cylinderText, "\"radius\"", "\"length\": 1, \"radius\""),
         "length has no meaning here."},
        {replaced(cylinderText, "\"angle\": -33.3", "\"angle\": 361"),
         "notch.angle must be a number from -360 to 360."},
        {replaced(cylinderText, "[0.48, -0.6, 0.64]", "[0, 0, 0]"),
         "view.direction must have a length of about 1"},
        {replaced(cylinderText, "[-0.4, 0.5, 0.768]", "[0.48, -0.6, 0.64]"),
         "view.up must not point along the direction."},
        {replaced(cylinderText, "\"tolerance\"", "\"cutTill\": 1, \"tolerance\""),
         "cutTill is for standard views alone."},
        {replaced(cuboidText, "{\"width\": 0.001, \"side\": \"inside\"}", "0.1"),
         "clearance must be a record in braces"},
    };
    for (Row const& row : rows)
        EXPECT_NE(refusalOf(row.text).find(row.why), std::string::npos)
            << row.why << "\n  but: " << refusalOf(row.text);
}

TEST(ToolFile, AFileIsNamedInWhatIsWrongWithIt)
{
    QTemporaryDir folder;
    QString const file = folder.filePath("tool.json");
    EXPECT_THROW(ToolFile::read(file), Mell::Exception);
    QFile target(file);
    ASSERT_TRUE(target.open(QIODevice::WriteOnly));
    target.write("{}");
    target.close();
    try {
        ToolFile::read(file);
        FAIL();
    } catch (Mell::Exception const& reason) {
        EXPECT_EQ(std::string(reason.what()), "The tool file " + file.toStdString() +
                                                  " cannot be used. format is missing. Add it.");
    }
    // Nothing is left of a file that cannot be written.
    EXPECT_THROW(
        ToolFile::write(folder.filePath("no/such/tool.json"), ToolFile::toolOf(cuboidText)),
        Mell::Exception);
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList{"tool.json"});
}

// Each change of a few bytes gives a tool within the limits or a sentence, and nothing else.
TEST(ToolFile, SmallChangesGiveAToolOrASentence)
{
    std::mt19937 random(1);
    QByteArray const seeds[] = {polygonText, cylinderText, cuboidText};
    QByteArray const pieces = "{}[]\",:.-+eE0123456789 tfn\n\\";
    int readable = 0;
    for (int run = 0; run < rounds(30000); ++run) {
        QByteArray text = seeds[run % 3];
        changeText(text, pieces, {3, 12}, random);
        try {
            StoredTool const tool = toolOfSpoiltText(text);
            ++readable;
            ASSERT_GE(tool.points.size(), tool.kind == StoredTool::Kind::Polygon ? 3u : 1u);
            ASSERT_EQ(tool.edges.size(),
                      tool.kind == StoredTool::Kind::Polygon ? tool.points.size() : 0u);
            for (UPoint3<float> const& point : tool.points)
                for (int axis = 0; axis < 3; ++axis)
                    ASSERT_LE(std::abs(point[axis]), 1e7f);
        } catch (Mell::Exception const& reason) {
            ASSERT_FALSE(std::string(reason.what()).empty());
        }
    }
    EXPECT_GT(readable, rounds(300));
}
