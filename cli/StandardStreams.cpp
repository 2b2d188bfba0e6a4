// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/StandardStreams.h"

#include "cli/Cancel.h"
#include "cli/Errors.h"
#include "cli/PieceFiles.h"
#include "cli/PieceForms.h"
#include "host/formats/FileError.h"
#include "host/formats/OutputFile.h"

#include <cerrno>
#include <cstdio>
#include <fstream>
#include <poll.h>
#include <stdlib.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

constexpr std::size_t blockSize = std::size_t(1) << 20;

/// Waits until there is something, or its end, to read.
void awaitInput()
{
    pollfd input{STDIN_FILENO, POLLIN, 0};
    constexpr int patienceMs = 50;
    int ready = 0;
    do {
        if (Cancel::isRequested())
            throw Mell::AbortException("Aborting...");
        ready = poll(&input, 1, patienceMs);
        // Reading would be taken up again after the signal that has ended the wait.
    } while (ready == 0 || (ready < 0 && errno == EINTR));
}

std::size_t readInput(std::span<std::byte> block)
{
    for (;;) {
        awaitInput();
        ssize_t const count = read(STDIN_FILENO, block.data(), block.size());
        if (count >= 0)
            return std::size_t(count);
        if (errno != EINTR)
            throw Formats::FileError("standard input",
                                     "it cannot be read: " + Formats::systemReason(errno) + '.');
    }
}

CutPiece& onlyPieceOf(std::vector<CutPart>& parts)
{
    CutPiece* only = nullptr;
    std::size_t count = 0;
    for (CutPart& part : parts)
        for (CutPiece& piece : part.pieces) {
            only = &piece;
            ++count;
        }
    if (count != 1)
        throw UsageError("Standard output takes one piece, but there are " + std::to_string(count) +
                         "; use -o DIR.");
    return *only;
}

void copyToStandardOutput(fs::path const& path)
{
    std::ifstream file(path, std::ios::binary);
    std::string block(blockSize, 0);
    while (file.read(block.data(), std::streamsize(blockSize)) || file.gcount() > 0) {
        if (Cancel::isRequested())
            throw Mell::AbortException("Aborting...");
        auto const count = std::size_t(file.gcount());
        if (std::fwrite(block.data(), 1, count, stdout) != count)
            throw Formats::FileError("standard output", "the piece cannot be written to it.");
    }
}

}  // namespace

SpoolFolder::SpoolFolder()
{
    std::string name = (fs::temp_directory_path() / "freecut-XXXXXX").string();
    if (!mkdtemp(name.data()))
        throw Formats::FileError(
            name, "this folder cannot be made: " + Formats::systemReason(errno) + '.');
    m_path = name;
}

SpoolFolder::~SpoolFolder()
{
    std::error_code error;
    fs::remove_all(m_path, error);
}

fs::path spoolStandardInput(SpoolFolder const& folder)
{
    fs::path const path = folder.path() / "stdin";
    Formats::OutputFile file(path, Formats::Overwrite::Refuse);
    std::vector<std::byte> block(blockSize);
    while (std::size_t const count = readInput(block))
        file.write(std::span(block).first(count));
    file.commit();
    return path;
}

std::size_t readStandardInput(std::span<std::byte> buffer)
{
    std::size_t done = 0;
    while (done < buffer.size()) {
        std::size_t const count = readInput(buffer.subspan(done));
        if (count == 0)
            break;
        done += count;
    }
    return done;
}

void writeToStandardOutput(std::vector<CutPart>& parts, PieceOptions const& options)
{
    CutPiece& only = onlyPieceOf(parts);
    settleForms(parts, options);
    SpoolFolder const folder;
    PieceFiles files(folder.path(), Formats::Overwrite::Refuse);
    fs::path const path = files.reserve("stdout", *only.format);
    files.write(path, only);
    copyToStandardOutput(path);
    only.file = standardStream;
}
