// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/formats/OutputFile.h"

#include "host/formats/FileError.h"

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace Formats {
namespace {

QString existsAlready()
{
    return FileError::tr(
        "it exists already and is not replaced; choose another name or allow overwriting.");
}

QString whyNotWritten()
{
    int const error = errno;
    return FileError::tr("it cannot be written: %1.").arg(systemReason(error));
}

QString whyNotNamed(int error)
{
    return FileError::tr("it cannot be given its name: %1.").arg(systemReason(error));
}

std::string folderOf(std::filesystem::path const& target)
{
    return target.has_parent_path() ? target.parent_path().string() : ".";
}

/// What stands for an open file among those of the process.
std::filesystem::path placeOf(int descriptor)
{
    return "/proc/self/fd/" + std::to_string(descriptor);
}

/// Opens a file without a name beside the target: it goes with the process, however that ends. -1 where
/// the file system knows none, or where none could be given a name later.
int openNameless(std::filesystem::path const& target)
{
    int const descriptor = open(folderOf(target).c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, 0666);
    if (descriptor < 0 || access(placeOf(descriptor).c_str(), F_OK) == 0)
        return descriptor;
    close(descriptor);
    return -1;
}

/// Whether a temporary file that is open has no name, but its place instead.
bool isNameless(std::filesystem::path const& temporary, int descriptor)
{
    return descriptor >= 0 && temporary == placeOf(descriptor);
}

std::filesystem::path targetBehindLinks(std::filesystem::path const& path)
{
    std::error_code error;
    if (!std::filesystem::is_symlink(path, error))
        return path;
    auto const target = std::filesystem::canonical(path, error);
    return error ? path : target;
}

std::filesystem::path temporaryName(std::filesystem::path const& target)
{
    static std::atomic<unsigned> serial = 0;
    std::string suffix = ".";
    suffix += std::to_string(getpid());
    suffix += '-';
    suffix += std::to_string(serial++);
    suffix += ".part";
    // A name near the system's limit has no room for the suffix.
    std::string name = ".";
    name += target.filename().string().substr(0, 200);
    return target.parent_path() / (name + suffix);
}

/// A temporary name under which something could be made; empty if it could not, for the reason that
/// errno has.
template <typename Make>
std::filesystem::path underTemporaryName(std::filesystem::path const& target, Make const& make)
{
    // A leftover of a process that was killed may bear the name.
    for (int attempt = 0; attempt < 100; ++attempt) {
        std::filesystem::path name = temporaryName(target);
        if (make(name.c_str()))
            return name;
        if (errno != EEXIST)
            break;
    }
    return {};
}

/// Gives a file without a name a temporary one. Its own it gets by a rename, which replaces another
/// file of that name where that is allowed.
std::filesystem::path withTemporaryName(std::filesystem::path const& place,
                                        std::filesystem::path const& target)
{
    auto name = underTemporaryName(target, [&](char const* candidate) {
        return linkat(AT_FDCWD, place.c_str(), AT_FDCWD, candidate, AT_SYMLINK_FOLLOW) == 0;
    });
    if (name.empty())
        throw FileError(target, whyNotNamed(errno));
    return name;
}

}  // namespace

OutputFile::OutputFile(std::filesystem::path target, Overwrite overwrite)
    : m_target(targetBehindLinks(target)),
      m_overwrite(overwrite),
      m_buffer(std::make_unique_for_overwrite<std::byte[]>(bufferSize))
{
    std::error_code error;
    auto const status = std::filesystem::symlink_status(m_target, error);
    if (std::filesystem::is_directory(status))
        throw FileError(m_target, FileError::tr("it is a folder, but a file name was expected."));
    if (std::filesystem::exists(status) && overwrite == Overwrite::Refuse)
        throw FileError(m_target, existsAlready());
    if (std::filesystem::is_other(std::filesystem::status(m_target, error)))
        openStream();
    else
        createTemporary();
    if (std::filesystem::is_regular_file(status))
        keepPermissionsOfTarget();
}

OutputFile::~OutputFile()
{
    bool const hasName = !m_temporary.empty() && !isNameless(m_temporary, m_descriptor);
    if (m_descriptor >= 0)
        close(m_descriptor);
    if (!m_isCommitted && hasName)
        unlink(m_temporary.c_str());
}

void OutputFile::openStream()
{
    m_descriptor = open(m_target.c_str(), O_WRONLY | O_CLOEXEC);
    if (m_descriptor < 0)
        throw FileError(m_target, whyNotWritten());
}

void OutputFile::createTemporary()
{
    m_descriptor = openNameless(m_target);
    if (m_descriptor >= 0) {
        m_temporary = placeOf(m_descriptor);
        return;
    }
    m_temporary = underTemporaryName(m_target, [&](char const* name) {
        m_descriptor = open(name, O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        return m_descriptor >= 0;
    });
    if (!m_temporary.empty())
        return;
    int const error = errno;
    throw FileError(m_target,
                    FileError::tr("no file can be made in the folder '%1': %2.")
                        .arg(QString::fromStdString(folderOf(m_target)), systemReason(error)));
}

void OutputFile::keepPermissionsOfTarget() const
{
    struct stat status
    {
    };
    if (stat(m_target.c_str(), &status) == 0 && fchmod(m_descriptor, status.st_mode & 0777) != 0) {
        // The file is then written with the permissions of a new one.
    }
}

void OutputFile::write(std::span<std::byte const> bytes)
{
    if (bytes.size() > bufferSize - m_filled)
        flush();
    if (bytes.size() >= bufferSize) {
        writeThrough(bytes);
        return;
    }
    std::memcpy(m_buffer.get() + m_filled, bytes.data(), bytes.size());
    m_filled += bytes.size();
}

void OutputFile::write(std::string_view text)
{
    write(std::as_bytes(std::span(text)));
}

void OutputFile::writeThrough(std::span<std::byte const> bytes)
{
    while (!bytes.empty()) {
        ssize_t const count = ::write(m_descriptor, bytes.data(), bytes.size());
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            throw FileError(m_target, whyNotWritten());
        bytes = bytes.subspan(std::size_t(count));
    }
}

void OutputFile::flush()
{
    std::size_t const filled = std::exchange(m_filled, 0);
    writeThrough({m_buffer.get(), filled});
}

void OutputFile::rewrite(std::uint64_t offset, std::span<std::byte const> bytes)
{
    flush();
    while (!bytes.empty()) {
        ssize_t const count = pwrite(m_descriptor, bytes.data(), bytes.size(), off_t(offset));
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            throw FileError(m_target, whyNotWritten());
        offset += std::uint64_t(count);
        bytes = bytes.subspan(std::size_t(count));
    }
}

void OutputFile::commitAs(std::filesystem::path const& target, Overwrite overwrite)
{
    m_target = targetBehindLinks(target);
    m_overwrite = overwrite;
    std::error_code error;
    if (std::filesystem::is_regular_file(m_target, error))
        keepPermissionsOfTarget();
    commit();
}

void OutputFile::commit()
{
    flush();
    bool const isStream = m_temporary.empty();
    if (m_overwrite == Overwrite::Allow && !isStream)
        sync();
    if (isNameless(m_temporary, m_descriptor))
        m_temporary = withTemporaryName(m_temporary, m_target);
    // A network file system may report a full disk only now.
    if (close(std::exchange(m_descriptor, -1)) != 0)
        throw FileError(m_target, whyNotWritten());
    if (!isStream)
        rename();
    m_isCommitted = true;
}

void OutputFile::sync() const
{
    std::error_code ignored;
    if (!std::filesystem::exists(m_target, ignored))
        return;
    // Not every file system can.
    if (fdatasync(m_descriptor) != 0 && errno != EINVAL && errno != EROFS)
        throw FileError(m_target, whyNotWritten());
}

void OutputFile::rename()
{
    int result = 0;
    if (m_overwrite == Overwrite::Allow) {
        result = std::rename(m_temporary.c_str(), m_target.c_str());
    } else {
        result =
            renameat2(AT_FDCWD, m_temporary.c_str(), AT_FDCWD, m_target.c_str(), RENAME_NOREPLACE);
        // Not every file system knows that flag; a hard link does not replace either.
        if (result != 0 && errno == EINVAL) {
            result = link(m_temporary.c_str(), m_target.c_str());
            if (result == 0)
                unlink(m_temporary.c_str());
        }
    }
    if (result == 0)
        return;
    int const error = errno;
    throw FileError(m_target, error == EEXIST ? existsAlready() : whyNotNamed(error));
}

}  // namespace Formats
