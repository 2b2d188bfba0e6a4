// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/formats/FileError.h"
#include "host/formats/ZipReader.h"
#include "host/formats/ZipWriter.h"
#include "tests/formats/ScratchFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace Formats;
using testing::HasSubstr;

namespace {

std::string packageOf(std::string_view text)
{
    std::string bytes;
    ZipWriter writer([&](std::string_view more) { bytes += more; });
    writer.addEntry("text", text);
    writer.finish();
    return bytes;
}

std::string linesOf(std::size_t bytes)
{
    std::string text;
    for (std::size_t i = 0; text.size() < bytes; ++i)
        text += "<vertex x=\"" + std::to_string(i * i % 9973) + "\"/>\n";
    return text;
}

std::string textIn(std::filesystem::path const& path)
{
    InputFile input(path, {});
    ZipReader const package(input);
    return ZipEntryStream(input, package.entries().at(0)).readAll();
}

/// What reading says; empty if nothing is wrong.
std::string errorOf(std::filesystem::path const& path)
{
    try {
        textIn(path);
    } catch (FileError const& error) {
        return error.what();
    }
    return {};
}

}  // namespace

TEST(ZipEntries, OfAnyLengthComeBack)
{
    ScratchFolder const folder;
    // The last one is too long to be unpacked at once.
    for (std::size_t const bytes :
         {0ul, 1ul, 1000ul, 1ul << 18, (1ul << 20) + 7, (1ul << 27) + 1}) {
        std::string const text = linesOf(bytes);
        EXPECT_TRUE(textIn(folder.file("package", packageOf(text))) == text) << bytes;
    }
}

TEST(ZipEntries, AreDamagedOrTheSameWithAnyByteChanged)
{
    ScratchFolder const folder;
    std::string const text = linesOf(3000);
    std::string const whole = packageOf(text);
    std::size_t const headerBytes = 34;
    int damaged = 0;
    for (std::size_t i = headerBytes; i < whole.find("PK\1\2"); i += 5) {
        std::string changed = whole;
        changed[i] = char(changed[i] ^ 0x10);
        auto const path = folder.file("package", changed);
        // A bit that only fills a byte is not read.
        std::string const error = errorOf(path);
        damaged += !error.empty();
        if (error.empty())
            EXPECT_TRUE(textIn(path) == text) << i;
        else
            EXPECT_THAT(error, HasSubstr("is damaged")) << i;
    }
    EXPECT_GT(damaged, 50);
}

TEST(ZipEntries, AreDamagedWhereTheirSizeOrChecksumIsAnother)
{
    ScratchFolder const folder;
    std::string const whole = packageOf(linesOf(3000));
    std::size_t const directory = whole.find("PK\1\2");
    std::size_t const checksumPlace = directory + 16, sizePlace = directory + 24;
    for (std::size_t const place : {checksumPlace, sizePlace}) {
        for (int const change : {-1, 1}) {
            std::string changed = whole;
            changed[place] = char(changed[place] + change);
            auto const path = folder.file("package", changed);
            EXPECT_THAT(errorOf(path), HasSubstr("is damaged")) << place;
        }
    }
}
