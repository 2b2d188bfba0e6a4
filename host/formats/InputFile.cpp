// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/formats/InputFile.h"

#include "host/formats/FileError.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Formats {
namespace {

QString whyNotOpened(int error)
{
    switch (error) {
        case ENOENT:
            return FileError::tr("there is no such file; check the name and the folder.");
        case EACCES:
            return FileError::tr(
                "there is no permission to read it; ask its owner or change its permissions.");
        default:
            return FileError::tr("it cannot be opened: %1.").arg(systemReason(error));
    }
}

std::size_t readFully(int descriptor, std::span<std::byte> buffer, std::uint64_t offset, int& error)
{
    std::size_t done = 0;
    while (done < buffer.size()) {
        ssize_t const count =
            pread(descriptor, buffer.data() + done, buffer.size() - done, off_t(offset + done));
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            error = errno;
        if (count <= 0)
            break;
        done += std::size_t(count);
    }
    return done;
}

}  // namespace

InputFile::InputFile(std::filesystem::path path, Progress progress)
    : m_path(std::move(path)), m_progress(std::move(progress))
{
    // Without O_NONBLOCK a pipe without a writer would hang here.
    m_descriptor = open(m_path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (m_descriptor < 0)
        throw FileError(m_path, whyNotOpened(errno));
    struct stat status
    {
    };
    QString problem;
    if (fstat(m_descriptor, &status) != 0)
        problem = whyNotOpened(errno);
    else if (S_ISDIR(status.st_mode))
        problem = FileError::tr("it is a folder, but a mesh file was expected.");
    else if (!S_ISREG(status.st_mode))
        problem = FileError::tr("it is not a regular file, but a mesh file was expected.");
    else if (status.st_size == 0)
        problem = FileError::tr("it is empty, but a mesh was expected.");
    if (!problem.isEmpty()) {
        close(m_descriptor);
        throw FileError(m_path, problem);
    }
    m_size = std::uint64_t(status.st_size);
    posix_fadvise(m_descriptor, 0, 0, POSIX_FADV_SEQUENTIAL);
}

InputFile::~InputFile()
{
    close(m_descriptor);
}

std::size_t InputFile::read(std::span<std::byte> buffer)
{
    tellProgress();
    int error = 0;
    std::size_t const count = readFully(m_descriptor, buffer, m_position, error);
    m_position += count;
    if (error != 0)
        throw FileError::atByte(
            m_path, m_position,
            FileError::tr("it cannot be read on: %1.").arg(systemReason(error)));
    return count;
}

void InputFile::seek(std::uint64_t offset)
{
    m_position = offset;
}

std::size_t InputFile::peekHead(std::span<std::byte> buffer) const
{
    int error = 0;
    return readFully(m_descriptor, buffer, 0, error);
}

void InputFile::tellProgress() const
{
    if (m_progress)
        m_progress(m_position >= m_size ? 99 : int(m_position * 99 / m_size));
}

}  // namespace Formats
