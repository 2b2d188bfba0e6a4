// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/Places.h"

#include <gtest/gtest.h>

#include <QLibraryInfo>

#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

struct Include
{
    std::string file;
    int line = 0;
    std::string target;
    bool isQuoted = false;

    std::string what() const { return file + " includes " + target; }
    std::string place() const { return file + ":" + std::to_string(line) + " includes " + target; }
};

std::vector<std::string> const plugInFolders = {"drawings", "cutjobs",  "connectors",
                                                "tools",    "messages", "selection",
                                                "display",  "dialogs",  "module"};
std::vector<std::string> const allFolders = {
    "platform",  "host",    "drawings", "cutjobs", "connectors", "tools", "messages",
    "selection", "display", "dialogs",  "module",  "app",        "cli",   "python"};

/// Which rooms the files of a room may include, besides their own and platform. The rooms of host and
/// app are folders within these.
std::map<std::string, std::set<std::string>> const allowed = {
    {"platform", {}},

    {"host", {"host/view"}},
    {"host/document", {"host/formats", "host/mesh"}},
    {"host/formats", {"host/memory"}},
    {"host/jobs", {}},
    {"host/memory", {}},
    {"host/mesh", {"host/memory"}},
    {"host/services", {"host/memory", "host/mesh"}},
    {"host/ui", {}},
    {"host/view", {"host/mesh", "host/services"}},

    {"messages", {}},
    {"drawings", {}},
    {"tools", {}},
    {"connectors", {"cutjobs", "tools"}},
    {"cutjobs", {"connectors", "tools"}},
    {"display", {"tools"}},
    {"selection", {"messages", "display", "tools"}},
    {"dialogs", {"drawings", "selection", "messages", "display", "cutjobs", "connectors", "tools"}},
    {"module", {"dialogs", "selection", "messages", "display", "cutjobs", "connectors", "tools"}},

    {"cli",
     {"drawings", "display", "cutjobs", "connectors", "tools", "host/formats", "host/jobs",
      "host/mesh", "host/services"}},
    {"python", {"cli", "drawings", "connectors", "cutjobs", "host/formats", "host/jobs"}},

    {"app",
     {"app/commands", "app/files", "app/jobs", "app/modules", "app/panels", "app/recovery",
      "app/view", "app/window", "host/document", "host/ui", "host/view"}},
    {"app/commands",
     {"app/files", "app/jobs", "app/panels", "app/parts", "app/tools", "app/view", "app/window",
      "host/view"}},
    {"app/files", {"app/jobs", "host/document", "host/formats"}},
    {"app/jobs", {}},
    {"app/modules", {"host/ui"}},
    {"app/panels", {"app/jobs", "app/parts", "app/view"}},
    {"app/partlist", {"app/jobs", "app/panels", "app/parts", "app/view"}},
    {"app/parts", {"app/jobs", "host/mesh"}},
    {"app/recovery", {"app/files", "host/document", "host/formats"}},
    {"app/tools", {"app/jobs", "app/parts", "app/view", "host/view"}},
    {"app/view", {}},
    {"app/window",
     {"app/files", "app/jobs", "app/panels", "app/partlist", "app/tools", "app/view", "host/ui",
      "host/view"}},
};

/// Includes against these directions, each with its reason.
std::set<std::string> const exceptions = {
    // An edit of a record has its provider derive the outlines, and labels go with their tool.
    "tools/CentredGraphicObject.cpp includes display/TLabel.h",
    "tools/GraphicObject.cpp includes display/GraphicViewProvider.h",
    "tools/PolygonGraphicObject.cpp includes display/TLabel.h",
    "tools/SolidMeshes.cpp includes display/VolumeViewProvider.h",
    "tools/VolumeProperty.cpp includes display/GraphicViewProvider.h",
    // Signs that doubles cannot tell are left to exact numbers.
    "host/mesh/ExactSigns.cpp includes host/services/exact/ArbitrarySigns.h",
    // The hint of a running tool is that of its command; "About" tells the version.
    "app/window/ToolHint.cpp includes app/commands/HostCommand.h",
    "app/commands/WindowCommands.cpp includes app/StartOptions.h",
};

std::string firstFolderOf(std::string const& path)
{
    return path.substr(0, path.find('/'));
}

std::string roomOf(std::string const& path)
{
    std::string const first = firstFolderOf(path);
    std::size_t const second = first.size() + 1;
    if ((first != "host" && first != "app") || path.find('/', second) == std::string::npos)
        return first;
    return path.substr(0, path.find('/', second));
}

std::vector<Include> includesOf(fs::path const& root, fs::path const& path)
{
    std::vector<Include> includes;
    std::ifstream file(path);
    std::string text;
    for (int line = 1; std::getline(file, text); ++line) {
        if (!text.starts_with("#include "))
            continue;
        char const open = text[9];
        std::size_t const end = text.find(open == '<' ? '>' : '"', 10);
        includes.push_back({fs::relative(path, root).generic_string(), line,
                            text.substr(10, end - 10), open == '"'});
    }
    return includes;
}

std::vector<Include> includesBelow(std::string const& folder)
{
    fs::path const root = sourcePath("");
    std::vector<Include> includes;
    if (!fs::exists(root / folder))
        return includes;
    for (auto const& entry : fs::recursive_directory_iterator(root / folder))
        if (entry.path().extension() == ".h" || entry.path().extension() == ".cpp")
            for (Include& include : includesOf(root, entry.path()))
                includes.push_back(std::move(include));
    return includes;
}

bool isWidgetHeader(std::string const& name)
{
    fs::path const headers = QLibraryInfo::location(QLibraryInfo::HeadersPath).toStdString();
    return name.starts_with("QtWidgets") || fs::exists(headers / "QtWidgets" / name);
}

/// Knows which of the project's headers bring a widget along.
class WidgetHeaders
{
public:
    bool areBehind(std::string const& header)
    {
        auto const [known, isNew] = m_known.emplace(header, false);
        if (!isNew)
            return known->second;
        fs::path const root = sourcePath("");
        for (Include const& include : includesOf(root, root / header))
            if (include.isQuoted ? areBehind(include.target) : isWidgetHeader(include.target))
                return m_known[header] = true;
        return false;
    }

private:
    std::map<std::string, bool> m_known;
};

/// Header and source of one name are one unit.
std::string unitOf(std::string const& file)
{
    return file.substr(0, file.rfind('.'));
}

/// What each unit of some folders includes.
class Units
{
public:
    explicit Units(std::vector<std::string> const& folders)
    {
        for (std::string const& folder : folders)
            for (Include const& include : includesBelow(folder))
                if (include.isQuoted && unitOf(include.file) != unitOf(include.target))
                    m_known[unitOf(include.file)].insert(unitOf(include.target));
    }

    /// The units through which a unit comes back to itself; empty if it does not.
    std::vector<std::string> circleOf(std::string const& unit) const
    {
        std::set<std::string> seen;
        std::vector<std::string> way;
        return isReached(unit, unit, seen, way) ? way : std::vector<std::string>();
    }

    std::map<std::string, std::set<std::string>> const& known() const { return m_known; }

private:
    bool isReached(std::string const& wanted, std::string const& from, std::set<std::string>& seen,
                   std::vector<std::string>& way) const
    {
        auto const targets = m_known.find(from);
        if (targets == m_known.end())
            return false;
        way.push_back(from);
        for (std::string const& target : targets->second)
            if (target == wanted ||
                (seen.insert(target).second && isReached(wanted, target, seen, way)))
                return true;
        way.pop_back();
        return false;
    }

    std::map<std::string, std::set<std::string>> m_known;
};

}  // namespace

TEST(Includes, FollowTheDirectionOfKnowledge)
{
    std::set<std::string> unused = exceptions;
    for (std::string const& folder : allFolders)
        for (Include const& include : includesBelow(folder)) {
            std::string const from = roomOf(include.file), to = roomOf(include.target);
            if (!include.isQuoted || to == from || to == "platform")
                continue;
            ASSERT_TRUE(allowed.contains(from)) << from << " has to be told what it may know";
            bool const isException = unused.erase(include.what()) != 0;
            EXPECT_TRUE(isException || allowed.at(from).contains(to)) << include.place();
        }
    EXPECT_EQ(unused, std::set<std::string>())
        << "what is no exception any more goes from the list";
}

TEST(Includes, ConnectorsKnowOfTheJobsOnlyTheCommonParts)
{
    // The jobs know the connectors, so what the connectors share with them must know nobody.
    std::string const common = "cutjobs/common/";
    for (Include const& include : includesBelow("connectors"))
        if (include.target.starts_with("cutjobs/")) {
            EXPECT_TRUE(include.target.starts_with(common)) << include.place();
        }
    for (Include const& include : includesBelow("cutjobs/common"))
        if (include.isQuoted && !include.target.starts_with("platform/")) {
            EXPECT_TRUE(include.target.starts_with(common)) << include.place();
        }
}

TEST(Includes, PlatformHasHeadersOnly)
{
    for (auto const& entry : fs::recursive_directory_iterator(fs::path(sourcePath("platform"))))
        EXPECT_NE(entry.path().extension(), ".cpp") << entry.path();
}

TEST(Includes, ExactGeometryLibraryIsSeenByItsFolderAlone)
{
    std::vector<Include> all;
    for (char const* const folder :
         {"platform", "host", "cutjobs", "connectors", "tools", "messages", "selection", "display",
          "dialogs", "module", "app", "cli", "tests"})
        for (Include& include : includesBelow(folder))
            all.push_back(std::move(include));
    std::set<std::string> heavyHeaders;
    for (Include const& include : all)
        if (include.target.starts_with("CGAL/")) {
            EXPECT_TRUE(include.file.starts_with("host/services/exact/")) << include.place();
            heavyHeaders.insert(include.file);
        }
    for (Include const& include : all)
        if (heavyHeaders.contains(include.target)) {
            EXPECT_TRUE(include.file.starts_with("host/services/exact/")) << include.place();
        }
}

TEST(Includes, CutsKnowNothingOfTheRepair)
{
    for (char const* const folder : {"host/services/boolean", "host/services/planecut"})
        for (Include const& include : includesBelow(folder))
            EXPECT_FALSE(include.target.starts_with("host/services/repair/")) << include.place();
}

TEST(Includes, ClipperIsSeenOnlyWherePolygonsAreOffset)
{
    std::set<std::string> const folders = {"platform/services", "host/services", "connectors",
                                           "tools"};
    for (char const* const folder : {"platform", "host", "cutjobs", "connectors", "tools",
                                     "selection", "display", "dialogs", "module", "app", "cli"})
        for (Include const& include : includesBelow(folder))
            if (include.target.starts_with("polyclipping/")) {
                std::string const parent = fs::path(include.file).parent_path().generic_string();
                EXPECT_TRUE(folders.contains(parent)) << include.place();
            }
}

TEST(Includes, JobsConnectorsAndToolsKnowNoWidgets)
{
    // Eye space belongs to the view, and a tool's labels go with it.
    std::set<std::string> const widgetExceptions = {
        "cutjobs/SectionZCut.cpp includes platform/view/GLView.h",
        "tools/CentredGraphicObject.cpp includes display/TLabel.h",
        "tools/CuboidProperty.cpp includes platform/view/GLView.h",
        "tools/CylinderProperty.cpp includes platform/view/GLView.h",
        "tools/PolygonGraphicObject.cpp includes display/TLabel.h",
        "tools/PolygonProperty.cpp includes platform/view/GLView.h",
        "tools/VolumeProperty.cpp includes platform/view/GLView.h",
    };
    WidgetHeaders headers;
    ASSERT_TRUE(headers.areBehind("platform/view/GLView.h")) << "the view is a widget";
    std::set<std::string> found;
    for (char const* const folder : {"cutjobs", "connectors", "tools"})
        for (Include const& include : includesBelow(folder))
            if (include.isQuoted ? headers.areBehind(include.target)
                                 : isWidgetHeader(include.target)) {
                EXPECT_TRUE(widgetExceptions.contains(include.what())) << include.place();
                found.insert(include.what());
            }
    EXPECT_EQ(found, widgetExceptions) << "an exception that is none any more goes from the list";
}

TEST(Includes, WhatIsDoneWithPartsKnowsNoWidgets)
{
    // The window is made of panels that use this, the commands do without them.
    WidgetHeaders headers;
    for (Include const& include : includesBelow("app/parts"))
        EXPECT_FALSE(include.isQuoted ? headers.areBehind(include.target)
                                      : isWidgetHeader(include.target))
            << include.place();
}

TEST(Includes, FilesKnowEachOtherInOneDirection)
{
    // Not so tools and display, the pages and their dialog, and some of host, by design.
    Units const units(
        {"app", "cli", "module", "selection", "messages", "cutjobs", "connectors", "platform"});
    ASSERT_FALSE(units.known().empty());
    for (auto const& [unit, targets] : units.known())
        EXPECT_EQ(units.circleOf(unit), std::vector<std::string>());
}

TEST(Includes, ModuleIsKnownToNobody)
{
    for (std::string const& folder : plugInFolders)
        for (Include const& include : includesBelow(folder))
            if (folder != "module") {
                EXPECT_NE(firstFolderOf(include.target), "module") << include.place();
            }
}
