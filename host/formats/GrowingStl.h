// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/formats/Facet.h"
#include "host/formats/OutputFile.h"
#include "platform/geometry/UVector3.h"

#include <cstdint>

namespace Formats {

/// A binary STL whose triangles come one by one, so that their number is known at the end.
class GrowingStl
{
public:
    /// begun  names it in messages, and its folder, until it has its own name. Throws FileError
    explicit GrowingStl(std::filesystem::path const& begun);

    /// normal  of length one, or zero. Throws FileError when there are more than can be counted
    void add(Facet const& facet, UVector3<float> const& normal);
    std::uint32_t count() const { return m_count; }
    /// The file is complete and gets its name, in the same folder. Throws FileError as
    /// OutputFile::commit() does.
    void commitAs(std::filesystem::path const& target, Overwrite overwrite);

private:
    OutputFile m_file;
    std::uint32_t m_count = 0;
};

}  // namespace Formats
