// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/Places.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

// Programs and libraries share one table of symbols: of two classes with one name, the functions of the
// program's class would run in the place of those of the library's.

namespace fs = std::filesystem;

namespace {

/// The text without comments and string literals, whose braces and words are none.
std::string bareCode(fs::path const& path)
{
    std::ifstream file(path);
    std::stringstream text;
    text << file.rdbuf();
    static std::regex const noCode(R"(//[^\n]*|"(\\.|[^"\\\n])*"|'(\\.|[^'\\\n])')");
    return std::regex_replace(text.str(), noCode, "");
}

/// Collects the classes that a file defines, with their namespaces; those of unnamed ones are left out.
std::set<std::string> classesOf(fs::path const& path)
{
    static std::regex const opensNamespace(R"(^(?:inline )?namespace\s*([\w:]*)\s*\{.*)");
    static std::regex const definesClass(
        R"(^(?:class|struct)\s+(?:alignas\(\d+\)\s*)?(\w+)\s*(?:final)?\s*(?:\{.*|:[^:].*)?$)");
    struct Scope
    {
        long depth;
        std::string name;
    };
    std::set<std::string> classes;
    std::vector<Scope> scopes;
    long depth = 0;
    std::istringstream lines(bareCode(path));
    for (std::string line; std::getline(lines, line);) {
        std::smatch match;
        bool const isUnnamed = std::any_of(scopes.begin(), scopes.end(),
                                           [](Scope const& scope) { return scope.name.empty(); });
        if (std::regex_match(line, match, opensNamespace))
            scopes.push_back({depth, match[1]});
        else if (!isUnnamed && depth == long(scopes.size()) &&
                 std::regex_match(line, match, definesClass)) {
            std::string name;
            for (Scope const& scope : scopes)
                name += scope.name + "::";
            classes.insert(name + match[1].str());
        }
        depth +=
            std::count(line.begin(), line.end(), '{') - std::count(line.begin(), line.end(), '}');
        while (!scopes.empty() && depth <= scopes.back().depth)
            scopes.pop_back();
    }
    return classes;
}

/// All that may be in one process.
std::vector<fs::path> sources()
{
    std::vector<fs::path> files;
    for (char const* const folder :
         {"platform", "host", "cutjobs", "connectors", "tools", "messages", "selection", "display",
          "dialogs", "module", "app", "cli", "python", "tests"})
        for (auto const& entry : fs::recursive_directory_iterator(sourcePath(folder))) {
            std::string const end = entry.path().extension().string();
            if (end == ".h" || end == ".cpp")
                files.push_back(entry.path());
        }
    return files;
}

std::string placeOf(fs::path const& file)
{
    return fs::relative(file, sourcePath("")).string();
}

std::map<std::string, std::vector<std::string>> placesOfClasses()
{
    std::map<std::string, std::vector<std::string>> places;
    for (fs::path const& file : sources())
        for (std::string const& name : classesOf(file))
            places[name].push_back(placeOf(file));
    return places;
}

}  // namespace

TEST(Names, AClassIsDefinedInOnePlaceOnly)
{
    auto const places = placesOfClasses();
    EXPECT_GT(places.size(), 500u);
    EXPECT_TRUE(places.count("MeshKernel"));
    EXPECT_TRUE(places.count("Freecut::PlanecutSelection"));
    for (auto const& [name, files] : places)
        EXPECT_EQ(files.size(), 1u) << name << " in " << files[0] << " and " << files.back();
}

// A build without a compiler cache reads Qt's headers before every file: these words mean nothing else there.
TEST(Names, WordsOfQtNameNothingElse)
{
    static std::regex const sectionOfAClass(
        R"(\b(?:(?:public|protected|private)\s+slots|signals)\s*:(?!:))");
    static std::regex const word(R"(\b(?:slots|signals|foreach|forever)\b)");
    for (fs::path const& file : sources()) {
        std::string const code = std::regex_replace(bareCode(file), sectionOfAClass, "");
        std::smatch match;
        EXPECT_FALSE(std::regex_search(code, match, word))
            << match.str() << " in " << placeOf(file);
    }
}

// Compilers name their sanitizers differently: code that asks one of them quietly checks less with the others.
TEST(Names, SanitizersAreKnownByWhatTheBuildFilesSay)
{
    static std::regex const compilersOwn(R"(__SANITIZE_\w+|__has_feature)");
    static std::regex const ours(R"(\bMELL_(?:ADDRESS|THREAD)_SANITIZER\b)");
    std::size_t askedFor = 0;
    for (fs::path const& file : sources()) {
        std::string const code = bareCode(file);
        std::smatch match;
        EXPECT_FALSE(std::regex_search(code, match, compilersOwn))
            << match.str() << " in " << placeOf(file);
        askedFor += std::regex_search(code, ours);
    }
    EXPECT_GT(askedFor, 5u);
}
