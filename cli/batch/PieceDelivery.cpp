// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/batch/PieceDelivery.h"

#include "host/formats/FileError.h"
#include "host/formats/OutputFile.h"

#include <algorithm>
#include <cerrno>
#include <fstream>
#include <iterator>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

constexpr std::size_t blockSize = std::size_t(1) << 20;

bool haveSameContent(fs::path const& a, fs::path const& b)
{
    std::error_code error;
    if (fs::file_size(a, error) != fs::file_size(b, error) || error)
        return false;
    std::ifstream first(a, std::ios::binary), second(b, std::ios::binary);
    std::string blockOfFirst(blockSize, 0), blockOfSecond(blockSize, 0);
    while (first && second) {
        first.read(blockOfFirst.data(), blockSize);
        second.read(blockOfSecond.data(), blockSize);
        if (first.gcount() != second.gcount() ||
            !std::equal(blockOfFirst.begin(), blockOfFirst.begin() + first.gcount(),
                        blockOfSecond.begin()))
            return false;
    }
    return first.eof() && second.eof();
}

void copyTo(fs::path const& place, fs::path const& file, Formats::Overwrite overwrite)
{
    std::ifstream source(file, std::ios::binary);
    Formats::OutputFile target(place, overwrite);
    std::string block(blockSize, 0);
    while (source.read(block.data(), blockSize) || source.gcount() > 0)
        target.write(std::string_view(block).substr(0, std::size_t(source.gcount())));
    if (!source.eof())
        throw Formats::FileError(file, "it cannot be read.");
    target.commit();
}

/// Gives the file its place, in which there is none.
void place(fs::path const& file, fs::path const& place)
{
    // Unlike a new name, a link never replaces what has come there meanwhile. Between disks, and on some
    // of them, there is none.
    if (link(file.c_str(), place.c_str()) != 0)
        copyTo(place, file, Formats::Overwrite::Refuse);
}

void replace(fs::path const& file, fs::path const& place)
{
    if (rename(file.c_str(), place.c_str()) != 0)
        copyTo(place, file, Formats::Overwrite::Allow);
}

}  // namespace

std::vector<fs::path> deliver(std::vector<fs::path> const& files, fs::path const& folder,
                              bool mayReplace)
{
    std::vector<fs::path> places, created;
    try {
        std::error_code error;
        fs::create_directories(folder, error);
        for (fs::path const& file : files) {
            fs::path const target = folder == "." ? file.filename() : folder / file.filename();
            places.push_back(target);
            if (!fs::exists(fs::symlink_status(target, error))) {
                place(file, target);
                created.push_back(target);
            } else if (!haveSameContent(file, target)) {
                if (!mayReplace)
                    throw Formats::FileError(
                        target,
                        "it exists already; give the job \"force\": true to replace it, or "
                        "another folder as \"output\".");
                replace(file, target);
            }
        }
    } catch (...) {
        std::error_code error;
        for (fs::path const& file : created)
            fs::remove(file, error);
        throw;
    }
    return places;
}
