// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/formats/FileError.h"
#include "host/formats/OutputFile.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using Formats::OutputFile;
using Formats::Overwrite;

namespace {

std::string allOf(int descriptor)
{
    std::string text;
    char block[256];
    for (ssize_t count; (count = read(descriptor, block, sizeof block)) > 0;)
        text.append(block, std::size_t(count));
    close(descriptor);
    return text;
}

}  // namespace

TEST(OutputFile, APipeIsWrittenToAndStaysAPipeAlsoBehindALink)
{
    QTemporaryDir const folder;
    std::filesystem::path const pipe = folder.filePath("pipe").toStdString();
    std::filesystem::path const link = folder.filePath("link").toStdString();
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    std::filesystem::create_symlink(pipe, link);
    for (auto const& path : {pipe, link}) {
        // Open for reading first, or the writer would wait for a reader.
        int const descriptor = open(pipe.c_str(), O_RDONLY | O_NONBLOCK);
        {
            OutputFile file(path, Overwrite::Allow);
            file.write("a report");
            file.commit();
        }
        EXPECT_EQ(allOf(descriptor), "a report");
        EXPECT_TRUE(std::filesystem::is_fifo(pipe));
        EXPECT_TRUE(std::filesystem::is_symlink(link));
    }
}

TEST(OutputFile, APipeIsNotWrittenToUnlessItMayBeReplaced)
{
    QTemporaryDir const folder;
    std::string const pipe = folder.filePath("pipe").toStdString();
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_THROW(OutputFile(pipe, Overwrite::Refuse), Formats::FileError);
}

TEST(OutputFile, ANameGivenAtTheEndIsTakenAsFarAsItMayBe)
{
    QTemporaryDir const folder;
    std::filesystem::path const begun = folder.filePath("begun").toStdString();
    std::filesystem::path const taken = folder.filePath("taken").toStdString();
    auto const contentOf = [](std::filesystem::path const& path) {
        return allOf(open(path.c_str(), O_RDONLY));
    };
    OutputFile first(begun, Overwrite::Refuse);
    first.write("0bc");
    first.rewrite(0, std::as_bytes(std::span("a", 1)));
    first.write("d");
    first.commitAs(taken, Overwrite::Refuse);
    EXPECT_EQ(contentOf(taken), "abcd");
    {
        OutputFile second(begun, Overwrite::Allow);
        second.write("second");
        EXPECT_THROW(second.commitAs(taken, Overwrite::Refuse), Formats::FileError);
    }
    EXPECT_EQ(contentOf(taken), "abcd");
    OutputFile third(begun, Overwrite::Refuse);
    third.write("third");
    third.commitAs(taken, Overwrite::Allow);
    EXPECT_EQ(contentOf(taken), "third");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path().toStdString()), {}),
              1);
}
