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

// Entries of ctest that run a part of the window's tests name them by patterns. What is renamed would drop
// out of them in silence.

namespace fs = std::filesystem;

namespace {

/// Every test of the window, as "Suite.Name".
std::set<std::string> appTests()
{
    static std::regex const test(R"(TEST(?:_F|_P)?\(\s*(\w+),\s*(\w+)\s*\))");
    std::set<std::string> names;
    for (fs::directory_entry const& entry : fs::directory_iterator(sourcePath("tests/app"))) {
        if (entry.path().extension() != ".cpp")
            continue;
        std::ifstream file(entry.path());
        std::string const text{std::istreambuf_iterator<char>(file), {}};
        for (std::sregex_iterator match(text.begin(), text.end(), test), end; match != end; ++match)
            names.insert((*match)[1].str() + "." + (*match)[2].str());
    }
    return names;
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

}  // namespace

TEST(NamedTests, OfTheWindowAreThere)
{
    std::set<std::string> const names = appTests();
    EXPECT_GT(names.size(), 300u);
    std::istringstream patterns(MELL_NAMED_APP_TESTS);
    int count = 0;
    for (std::string pattern; std::getline(patterns, pattern, ':'); ++count)
        EXPECT_TRUE(matchesAny(pattern, names)) << "No test of the window matches " << pattern;
    EXPECT_GT(count, 5);
}
