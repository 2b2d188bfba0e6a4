// SPDX-License-Identifier: GPL-3.0-or-later
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

    std::string place() const { return file + ":" + std::to_string(line) + " includes " + target; }
};

std::string const plugInFolders[] = {"cutjobs",   "connectors", "tools",   "messages",
                                     "selection", "display",    "dialogs", "module"};

/// Which of the project's folders the files of a folder may include.
std::map<std::string, std::set<std::string>> const allowed = {
    {"platform", {"platform"}},
    {"host", {"host", "platform"}},
    {"tools", {"tools", "display", "platform"}},
    {"connectors", {"connectors", "cutjobs", "tools", "platform"}},
    {"cutjobs", {"cutjobs", "connectors", "tools", "platform"}},
    {"display", {"display", "tools", "platform"}},
    {"messages", {"messages", "platform"}},
    {"selection", {"selection", "messages", "display", "tools", "platform"}},
    {"dialogs",
     {"dialogs", "selection", "messages", "display", "cutjobs", "connectors", "tools", "platform"}},
    {"module",
     {"module", "dialogs", "selection", "messages", "display", "cutjobs", "connectors", "tools",
      "platform"}},
};

std::string firstFolderOf(std::string const& path)
{
    return path.substr(0, path.find('/'));
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
    fs::path const root = MELL_SOURCE_DIR;
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
        fs::path const root = MELL_SOURCE_DIR;
        for (Include const& include : includesOf(root, root / header))
            if (include.isQuoted ? areBehind(include.target) : isWidgetHeader(include.target))
                return m_known[header] = true;
        return false;
    }

private:
    std::map<std::string, bool> m_known;
};

}  // namespace

TEST(Includes, FollowTheDirectionOfKnowledge)
{
    for (auto const& [folder, targets] : allowed)
        for (Include const& include : includesBelow(folder))
            if (include.isQuoted)
                EXPECT_TRUE(targets.contains(firstFolderOf(include.target))) << include.place();
}

TEST(Includes, ConnectorsKnowOfTheJobsOnlyTheCommonParts)
{
    // The jobs know the connectors, so what the connectors share with them must know nobody.
    std::string const common = "cutjobs/common/";
    for (Include const& include : includesBelow("connectors"))
        if (include.target.starts_with("cutjobs/"))
            EXPECT_TRUE(include.target.starts_with(common)) << include.place();
    for (Include const& include : includesBelow("cutjobs/common"))
        if (include.isQuoted && !include.target.starts_with("platform/"))
            EXPECT_TRUE(include.target.starts_with(common)) << include.place();
}

TEST(Includes, PlatformHasHeadersOnly)
{
    for (auto const& entry :
         fs::recursive_directory_iterator(fs::path(MELL_SOURCE_DIR) / "platform"))
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
        if (heavyHeaders.contains(include.target))
            EXPECT_TRUE(include.file.starts_with("host/services/exact/")) << include.place();
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
    std::set<std::string> const exceptions = {
        "cutjobs/SectionZCut.cpp includes platform/view/GLView.h",
        "tools/CuboidGraphicObject.cpp includes display/TLabel.h",
        "tools/CuboidProperty.cpp includes platform/view/GLView.h",
        "tools/CylinderGraphicObject.cpp includes display/TLabel.h",
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
                std::string const what = include.file + " includes " + include.target;
                EXPECT_TRUE(exceptions.contains(what)) << include.place();
                found.insert(what);
            }
    EXPECT_EQ(found, exceptions) << "an exception that is none any more goes from the list";
}

TEST(Includes, ModuleIsKnownToNobody)
{
    for (std::string const& folder : plugInFolders)
        for (Include const& include : includesBelow(folder))
            if (folder != "module")
                EXPECT_NE(firstFolderOf(include.target), "module") << include.place();
}
