// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/Places.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <set>
#include <string>

namespace fs = std::filesystem;

namespace {

using Names = std::set<std::string>;

Names pages()
{
    Names names;
    for (fs::directory_entry const& entry : fs::directory_iterator(sourcePath("docs/decisions")))
        names.insert("docs/decisions/" + entry.path().filename().string());
    return names;
}

void collect(fs::path const& path, Names& names)
{
    static std::regex const page(R"(docs/decisions/[\w-]+\.md)");
    std::ifstream file(path);
    std::string const text{std::istreambuf_iterator<char>(file), {}};
    for (std::sregex_iterator match(text.begin(), text.end(), page), end; match != end; ++match)
        names.insert(match->str());
}

/// The pages that the sources name, and what builds them.
Names namedPages()
{
    Names const extensions{".h", ".cpp", ".cmake"};
    Names names;
    for (char const* const folder :
         {"platform", "host", "drawings", "cutjobs", "connectors", "tools", "messages", "selection",
          "display", "dialogs", "module", "app", "cli", "python", "cmake"})
        for (fs::directory_entry const& entry :
             fs::recursive_directory_iterator(sourcePath(folder)))
            if (extensions.contains(entry.path().extension().string()))
                collect(entry.path(), names);
    return names;
}

}  // namespace

TEST(Decisions, AreNamedByTheCodeThatFollowsThem)
{
    EXPECT_EQ(namedPages(), pages());
}
