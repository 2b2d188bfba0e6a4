// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/formats/InputFile.h"

#include <cstddef>

namespace Formats {

/// The content of a file as memory that the system fills where it is looked at. A file that becomes
/// shorter meanwhile ends the program.
class MappedFile
{
public:
    /// Throws FileError.
    explicit MappedFile(InputFile const& input);
    ~MappedFile();
    MappedFile(MappedFile const&) = delete;
    MappedFile& operator=(MappedFile const&) = delete;

    std::byte const* data() const { return m_data; }
    /// Gives the memory back; what is looked at afterwards is filled again.
    void release();

private:
    std::byte* m_data = nullptr;
    std::size_t m_size;
};

}  // namespace Formats
