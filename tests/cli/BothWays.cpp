// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/cli/BothWays.h"

#include "tests/support/Validator.h"

#include <gtest/gtest.h>

#include <filesystem>

std::vector<std::string> with(std::vector<std::string> words, std::vector<std::string> const& more)
{
    words.insert(words.end(), more.begin(), more.end());
    return words;
}

void BothWays::expectTheSame(std::vector<std::string> const& command, std::size_t leastPieces)
{
    for (char const* const folder : {"usual", "streamed"})
        std::filesystem::remove_all(path(folder));
    auto const usual = run(with(command, {"--no-repair", "-o", "usual", "--json", "-"}));
    ASSERT_EQ(usual.status, 0) << usual.errors;
    auto const streamed = run(with(command, {"--stream", "-o", "streamed", "--json", "-"}));
    ASSERT_EQ(streamed.status, 0) << streamed.errors;
    EXPECT_GE(files("usual").size(), leastPieces);
    expectTheSameFiles();
    using Json = nlohmann::ordered_json;
    EXPECT_EQ(streamed.json().value("plane", Json()), usual.json().value("plane", Json()));
    auto const part = streamed.json()["parts"][0], usualPart = usual.json()["parts"][0];
    auto const pieces = part["pieces"], expected = usualPart["pieces"];
    ASSERT_EQ(pieces.size(), expected.size());
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        EXPECT_EQ(pieces[i]["closed"], true);
        EXPECT_EQ(pieces[i]["name"], expected[i]["name"]);
        EXPECT_EQ(pieces[i]["triangles"], expected[i]["triangles"]);
        EXPECT_EQ(pieces[i]["box"], expected[i]["box"]);
        double const volume = expected[i]["volume"];
        EXPECT_NEAR(double(pieces[i]["volume"]), volume, 1e-6 * volume);
    }
    ASSERT_EQ(part.contains("section"), usualPart.contains("section"));
    if (!part.contains("section"))
        return;
    double const area = usualPart["section"]["area"];
    EXPECT_NEAR(double(part["section"]["area"]), area, 1e-5 * area);
    EXPECT_EQ(part["section"]["contours"], usualPart["section"]["contours"]);
}

void BothWays::expectTheSameFiles()
{
    ASSERT_EQ(files("streamed"), files("usual"));
    for (std::string const& name : files("usual")) {
        Soup const piece = mesh("streamed/" + name), expected = mesh("usual/" + name);
        EXPECT_EQ(closedSolidFaults(piece), "") << name;
        EXPECT_EQ(piece.triangles.size(), expected.triangles.size()) << name;
        EXPECT_NEAR(volumeOf(piece), volumeOf(expected), 1e-9 * volumeOf(expected)) << name;
        EXPECT_NEAR(areaOf(piece), areaOf(expected), 1e-9 * areaOf(expected)) << name;
    }
}
