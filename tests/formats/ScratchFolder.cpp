// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/formats/ScratchFolder.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <fstream>
#include <iterator>
#include <stdlib.h>

namespace {

std::uint32_t crc32(std::string_view bytes)
{
    std::uint32_t crc = ~0u;
    for (unsigned char const byte : bytes) {
        crc ^= byte;
        for (int bit = 0; bit < 8; ++bit)
            crc = crc >> 1 ^ (crc & 1 ? 0xedb88320u : 0);
    }
    return ~crc;
}

std::string le(std::uint64_t value, int bytes)
{
    std::string text;
    for (int i = 0; i < bytes; ++i)
        text += char(value >> 8 * i & 0xff);
    return text;
}

/// What the local header and the central directory say alike about an entry.
std::string sharedFields(ZipEntry const& entry)
{
    std::size_t const size = entry.content.size();
    return le(20, 2) + le(0, 2) + le(0, 2) + le(0, 2) + le(0x21, 2) + le(crc32(entry.content), 4) +
           le(size, 4) + le(size, 4) + le(entry.name.size(), 2) + le(0, 2);
}

}  // namespace

ScratchFolder::ScratchFolder()
{
    std::string pattern = (std::filesystem::temp_directory_path() / "mell-test.XXXXXX").string();
    m_path = mkdtemp(pattern.data());
}

ScratchFolder::~ScratchFolder()
{
    std::error_code ignored;
    std::filesystem::remove_all(m_path, ignored);
}

std::filesystem::path ScratchFolder::file(std::string const& name, std::string_view content) const
{
    std::ofstream(m_path / name, std::ios::binary) << content;
    return m_path / name;
}

std::vector<std::string> ScratchFolder::names() const
{
    std::vector<std::string> names;
    for (auto const& entry : std::filesystem::directory_iterator(m_path))
        names.push_back(entry.path().filename().string());
    std::ranges::sort(names);
    return names;
}

std::string contentOf(std::filesystem::path const& path)
{
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

std::string storedZip(std::span<ZipEntry const> entries)
{
    std::string package;
    std::string directory;
    for (ZipEntry const& entry : entries) {
        directory += "PK\1\2" + le(20, 2) + sharedFields(entry) + le(0, 2) + le(0, 2) + le(0, 2) +
                     le(0, 4) + le(package.size(), 4) + entry.name;
        package += "PK\3\4" + sharedFields(entry) + entry.name + entry.content;
    }
    std::size_t const start = package.size();
    return package + directory + "PK\5\6" + le(0, 4) + le(entries.size(), 2) +
           le(entries.size(), 2) + le(directory.size(), 4) + le(start, 4) + le(0, 2);
}

std::string threeMfPackage(std::string const& unit, std::string const& resourcesAndBuild)
{
    std::string const xml = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
    std::array<ZipEntry, 3> const entries = {
        {{"[Content_Types].xml",
          xml + "<Types xmlns=\"http://schemas.openxmlformats.org/package/2006/content-types\">"
                "<Default Extension=\"rels\" "
                "ContentType=\"application/vnd.openxmlformats-package.relationships+xml\"/>"
                "<Default Extension=\"model\" "
                "ContentType=\"application/vnd.ms-package.3dmanufacturing-3dmodel+xml\"/></Types>"},
         {"_rels/.rels",
          xml + "<Relationships "
                "xmlns=\"http://schemas.openxmlformats.org/package/2006/relationships\">"
                "<Relationship Target=\"/3D/3dmodel.model\" Id=\"rel0\" "
                "Type=\"http://schemas.microsoft.com/3dmanufacturing/2013/01/3dmodel\"/>"
                "</Relationships>"},
         {"3D/3dmodel.model",
          xml + "<model unit=\"" + unit +
              "\" xml:lang=\"en-US\" "
              "xmlns=\"http://schemas.microsoft.com/3dmanufacturing/core/2015/02\">" +
              resourcesAndBuild + "</model>"}}};
    return storedZip(entries);
}
