// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/formats/OutputFile.h"

#include <filesystem>
#include <set>
#include <string>
#include <vector>

struct CutPiece;
namespace Formats {
class GrowingStl;
class MeshFormat;
}  // namespace Formats

/// The files that a cut leaves: all of them, or none that is new.
class PieceFiles
{
public:
    /// Throws Formats::FileError if the folder is none or no file can be made in it. A folder that
    /// does not exist yet is made when the first piece is written.
    PieceFiles(std::filesystem::path folder, Formats::Overwrite overwrite);
    /// Without keep() the files that write() has made are removed; those that it has replaced stay.
    ~PieceFiles();
    PieceFiles(PieceFiles const&) = delete;
    PieceFiles& operator=(PieceFiles const&) = delete;

    /// The file for a piece of that name, if no other piece has it.
    std::filesystem::path fileFor(std::string const& name, Formats::MeshFormat const& format) const;

    /// Reserves the file for a piece and returns its path. Names are made safe, and different
    /// within one cut. Throws Formats::FileError if the file exists and must not be replaced.
    std::filesystem::path reserve(std::string const& name, Formats::MeshFormat const& format);

    /// Writes a piece, which has its format, behind a progress display.
    ///
    /// throws  Formats::FileError; Mell::AbortException if the user cancels
    void write(std::filesystem::path const& path, CutPiece const& piece);

    /// What names a piece in messages until its file is complete. Makes the folder.
    std::filesystem::path begin(std::string const& name, Formats::MeshFormat const& format) const;
    /// Gives a file that was begun so its path, as reserve() has given it. Throws Formats::FileError.
    void complete(Formats::GrowingStl& file, std::filesystem::path const& path);

    /// All pieces are written.
    void keep() { m_created.clear(); }

private:
    std::filesystem::path fileNamed(std::string const& stem,
                                    Formats::MeshFormat const& format) const;

    std::filesystem::path m_folder;
    Formats::Overwrite m_overwrite;
    std::set<std::filesystem::path> m_reserved;
    std::vector<std::filesystem::path> m_created;
};

/// A file name that works everywhere, from any text: separators, control characters and what other
/// systems forbid become "_".
std::string safeFileName(std::string const& name);
