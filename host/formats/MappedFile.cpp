// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/formats/MappedFile.h"

#include "host/formats/FileError.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

namespace Formats {

MappedFile::MappedFile(InputFile const& input) : m_size(input.size())
{
    int const file = open(input.path().c_str(), O_RDONLY | O_CLOEXEC);
    void* const data =
        file < 0 ? MAP_FAILED : mmap(nullptr, m_size, PROT_READ, MAP_PRIVATE, file, 0);
    int const error = errno;
    if (file >= 0)
        close(file);
    if (data == MAP_FAILED)
        throw FileError(input.path(),
                        FileError::tr("it cannot be opened: %1.").arg(systemReason(error)));
    m_data = static_cast<std::byte*>(data);
}

MappedFile::~MappedFile()
{
    munmap(m_data, m_size);
}

void MappedFile::release()
{
    // Nothing is lost if the system does not: the pages are the file's.
    [[maybe_unused]] int const result = madvise(m_data, m_size, MADV_DONTNEED);
}

}  // namespace Formats
