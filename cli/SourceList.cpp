// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/SourceList.h"

#include "host/formats/FormatRegistry.h"

#include <algorithm>
#include <glob.h>

namespace fs = std::filesystem;

namespace {

bool isMeshFile(fs::directory_entry const& entry)
{
    std::error_code error;
    if (!entry.is_regular_file(error))
        return false;
    std::string extension = entry.path().extension().string();
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? char(c - 'A' + 'a') : c; });
    for (auto const& format : Formats::FormatRegistry::instance().formats())
        for (std::string_view const own : format->extensions())
            if (extension.size() == own.size() + 1 && extension.ends_with(own))
                return true;
    return false;
}

template <typename Entries>
std::vector<std::string> meshFilesOf(Entries const& entries)
{
    std::vector<std::string> files;
    for (fs::directory_entry const& entry : entries)
        if (isMeshFile(entry))
            files.push_back(entry.path().string());
    std::sort(files.begin(), files.end());
    return files;
}

std::vector<std::string> meshFilesIn(fs::path const& folder, bool isRecursive)
{
    std::vector<std::string> files;
    try {
        files = isRecursive ? meshFilesOf(fs::recursive_directory_iterator(folder))
                            : meshFilesOf(fs::directory_iterator(folder));
    } catch (fs::filesystem_error const& e) {
        throw Formats::FileError(e.path1(), QString::fromStdString(e.code().message() + "."));
    }
    if (files.empty())
        throw Formats::FileError(
            folder, isRecursive ? "the folder and those in it hold no mesh file."
                                : "the folder holds no mesh file; with --recursive those in it "
                                  "are looked through too.");
    return files;
}

bool isPattern(std::string const& text)
{
    return text.find_first_of("*?[") != text.npos;
}

std::vector<std::string> matchesOf(std::string const& pattern)
{
    glob_t found{};
    std::vector<std::string> files;
    if (glob(pattern.c_str(), 0, nullptr, &found) == 0)
        files.assign(found.gl_pathv, found.gl_pathv + found.gl_pathc);
    globfree(&found);
    if (files.empty())
        throw Formats::FileError(pattern, "no file matches this pattern.");
    return files;
}

}  // namespace

std::vector<std::string> sourceFiles(std::vector<std::string> const& given, bool isRecursive)
{
    std::vector<std::string> files;
    for (std::string const& each : given) {
        std::error_code error;
        if (fs::is_directory(each, error)) {
            auto const within = meshFilesIn(each, isRecursive);
            files.insert(files.end(), within.begin(), within.end());
        } else if (!fs::exists(fs::symlink_status(each, error)) && isPattern(each)) {
            auto const matching = matchesOf(each);
            files.insert(files.end(), matching.begin(), matching.end());
        } else {
            files.push_back(each);
        }
    }
    return files;
}
