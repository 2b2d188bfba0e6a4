// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/Places.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

// Entries of ctest that run a part of a folder's tests, or leave some out, name them by patterns, and tests that
// need models which not every clone has name one that does not. What is renamed would drop out of them in silence.

namespace fs = std::filesystem;

namespace {

struct WrittenTest
{
    /// "Suite.Name"; of one that runs with parameters "/Suite.Name", as a pattern sees it behind their prefix.
    std::string name;
    /// From its first line to the next test.
    std::string text;
    /// The test that does the same in every clone; empty if none is named above it.
    std::string inEveryClone;
};

void appendTestsOf(fs::path const& path, std::vector<WrittenTest>& tests)
{
    static std::regex const test(
        R"((?:// In every clone: ([\w.]+)\n)?TEST(?:_F|(_P))?\(\s*(\w+),\s*(\w+)\s*\))");
    std::ifstream file(path);
    std::string const text{std::istreambuf_iterator<char>(file), {}};
    for (std::sregex_iterator match(text.begin(), text.end(), test), end; match != end;) {
        std::smatch const here = *match++;
        auto const from = std::size_t(here.position());
        auto const to = match == end ? text.size() : std::size_t(match->position());
        tests.push_back({(here[2].matched ? "/" : "") + here[3].str() + "." + here[4].str(),
                         text.substr(from, to - from), here[1].str()});
    }
}

std::vector<WrittenTest> testsBelow(char const* folder)
{
    std::vector<WrittenTest> tests;
    for (fs::directory_entry const& entry : fs::recursive_directory_iterator(sourcePath(folder)))
        if (entry.path().extension() == ".cpp")
            appendTestsOf(entry.path(), tests);
    return tests;
}

std::set<std::string> namesBelow(char const* folder)
{
    std::set<std::string> names;
    for (WrittenTest const& test : testsBelow(folder))
        names.insert(test.name);
    return names;
}

bool needsModels(WrittenTest const& test)
{
    return test.text.find("GTEST_SKIP() << modelsAreMissing") != std::string::npos;
}

bool matchesAny(std::string const& pattern, std::set<std::string> const& names)
{
    std::string expression;
    for (char const c : pattern)
        expression += c == '*' ? ".*" : c == '.' ? "\\." : std::string(1, c);
    std::regex const expected(expression);
    for (std::string const& name : names)
        if (std::regex_match(name, expected))
            return true;
    return false;
}

/// How many patterns there are, each of which has to match a test below the folder.
int patternsThatMatch(char const* patterns, char const* folder)
{
    std::set<std::string> const names = namesBelow(folder);
    EXPECT_FALSE(names.empty());
    std::istringstream stream(patterns);
    int count = 0;
    for (std::string pattern; std::getline(stream, pattern, ':'); ++count)
        EXPECT_TRUE(matchesAny(pattern, names))
            << "No test of " << folder << " matches " << pattern;
    return count;
}

}  // namespace

TEST(NamedTests, OfTheWindowAreThere)
{
    EXPECT_GT(patternsThatMatch(MELL_NAMED_APP_TESTS, "tests/app"), 5);
}

TEST(NamedTests, OfTheViewThatAreLeftOutAreThere)
{
    EXPECT_GT(patternsThatMatch(MELL_LEFT_OUT_VIEW_TESTS, "tests/view"), 1);
}

TEST(NamedTests, WhatIsTriedOnRealModelsIsTriedInEveryClone)
{
    std::vector<WrittenTest> const tests = testsBelow("tests");
    std::set<std::string> everywhere;
    for (WrittenTest const& test : tests)
        if (!needsModels(test))
            everywhere.insert(test.name);
    int count = 0;
    for (WrittenTest const& test : tests)
        if (needsModels(test)) {
            ++count;
            EXPECT_TRUE(everywhere.contains(test.inEveryClone))
                << test.name << " is passed over where the real models are missing; above it the "
                << "test that needs none must be named, not \"" << test.inEveryClone << '"';
        }
    EXPECT_GT(count, 3);
}
