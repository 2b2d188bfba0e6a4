// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/formats/GrowingStl.h"

#include "host/formats/BinaryStlRecords.h"
#include "host/formats/FileError.h"

#include <limits>

namespace Formats {

GrowingStl::GrowingStl(std::filesystem::path const& begun) : m_file(begun, Overwrite::Allow)
{
    BinaryStl::writeHeader(m_file, 0);
}

void GrowingStl::add(Facet const& facet, UVector3<float> const& normal)
{
    if (m_count == std::numeric_limits<std::uint32_t>::max())
        throw BinaryStl::tooManyTriangles(m_file.path());
    ++m_count;
    std::array<std::byte, BinaryStl::recordBytes> record;
    BinaryStl::putRecord(record.data(), facet, normal);
    m_file.write(record);
}

void GrowingStl::commitAs(std::filesystem::path const& target, Overwrite overwrite)
{
    m_file.rewrite(BinaryStl::countOffset, std::as_bytes(std::span(&m_count, 1)));
    m_file.commitAs(target, overwrite);
}

}  // namespace Formats
