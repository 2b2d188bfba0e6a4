// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/PieceFiles.h"

#include "cli/CutPart.h"
#include "host/formats/FileError.h"
#include "host/formats/GrowingStl.h"
#include "host/formats/PartFiles.h"
#include "platform/jobs/SequencerLauncher.h"

#include <array>
#include <cstring>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

/// The folder itself, or of its parents the first one that exists.
fs::path existingPartOf(fs::path const& folder)
{
    fs::path path = fs::absolute(folder);
    while (!fs::exists(path) && path.has_relative_path())
        path = path.parent_path();
    return path;
}

void checkFolder(fs::path const& folder)
{
    fs::path const existing = existingPartOf(folder);
    if (!fs::is_directory(existing))
        throw Formats::FileError(existing, "it is not a folder; choose another one with -o.");
    if (access(existing.c_str(), W_OK | X_OK) != 0)
        throw Formats::FileError(
            existing, "no file can be made in this folder: " + Formats::systemReason(errno) + '.');
}

/// Long enough for any name a person gives; the rest is room for number and extension.
constexpr std::size_t longestName = 200;

}  // namespace

PieceFiles::PieceFiles(fs::path folder, Formats::Overwrite overwrite)
    : m_folder(std::move(folder)), m_overwrite(overwrite)
{
    try {
        checkFolder(m_folder);
    } catch (fs::filesystem_error const& e) {
        throw Formats::FileError(m_folder, QString::fromStdString(e.code().message() + "."));
    }
}

PieceFiles::~PieceFiles()
{
    std::error_code error;
    for (fs::path const& file : m_created)
        fs::remove(file, error);
}

fs::path PieceFiles::fileNamed(std::string const& stem, Formats::MeshFormat const& format) const
{
    std::string file = stem + '.';
    file += format.extensions().front();
    return m_folder == "." ? fs::path(file) : m_folder / file;
}

fs::path PieceFiles::fileFor(std::string const& name, Formats::MeshFormat const& format) const
{
    return fileNamed(safeFileName(name), format);
}

fs::path PieceFiles::reserve(std::string const& name, Formats::MeshFormat const& format)
{
    std::string const stem = safeFileName(name);
    fs::path path = fileNamed(stem, format);
    for (int number = 2; !m_reserved.insert(path).second; ++number)
        path = fileNamed(stem + '_' + std::to_string(number), format);
    std::error_code error;
    if (m_overwrite == Formats::Overwrite::Refuse && fs::exists(fs::symlink_status(path, error)))
        throw Formats::FileError(
            path, "it exists already; use --force to replace it, or another folder with -o.");
    return path;
}

void PieceFiles::write(fs::path const& path, CutPiece const& piece)
{
    Base::SequencerLauncher display(("Writing " + path.string()).c_str(), 100, true);
    display.setCancelEnabled(true);
    display.setProgress(0);
    std::error_code error;
    fs::create_directories(m_folder, error);
    bool const isNew = !fs::exists(path, error);
    std::array const parts{Formats::NamedMesh{piece.name, piece.kernel.get(), piece.color}};
    Formats::writeParts(
        path, parts, *piece.format,
        [&](int percent) { display.setProgress(std::uint64_t(percent)); }, m_overwrite);
    if (isNew)
        m_created.push_back(path);
}

fs::path PieceFiles::begin(std::string const& name, Formats::MeshFormat const& format) const
{
    std::error_code error;
    fs::create_directories(m_folder, error);
    return fileFor(name, format);
}

void PieceFiles::complete(Formats::GrowingStl& file, fs::path const& path)
{
    std::error_code error;
    bool const isNew = !fs::exists(path, error);
    file.commitAs(path, m_overwrite);
    if (isNew)
        m_created.push_back(path);
}

std::string safeFileName(std::string const& name)
{
    std::string safe = name.substr(0, longestName);
    // A cut inside a UTF-8 sequence leaves no half character.
    if (name.size() > longestName)
        while (!safe.empty() && (static_cast<unsigned char>(name[safe.size()]) & 0xC0) == 0x80)
            safe.pop_back();
    for (char& c : safe)
        if (static_cast<unsigned char>(c) < 0x20 || c == 0x7F || std::strchr("/\\:*?\"<>|", c))
            c = '_';
    while (!safe.empty() && (safe.back() == '.' || safe.back() == ' '))
        safe.pop_back();
    if (!safe.empty() && (safe.front() == '.' || safe.front() == '-'))
        safe.front() = '_';
    return safe.empty() ? "piece" : safe;
}
