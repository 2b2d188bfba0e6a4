// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/formats/PartFiles.h"
#include "tests/formats/ReadError.h"
#include "tests/formats/ScratchFolder.h"
#include "tests/support/MeshBuilders.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <csignal>
#include <limits>
#include <sys/fsuid.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Formats;
using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

MeshFormat const& format(std::string const& name)
{
    return *FormatRegistry::instance().byName(name);
}

std::string writeError(std::filesystem::path const& path, Overwrite overwrite)
{
    try {
        writePart(path, "part", *kernelOf(box(1, 2, 3)), format("stl"), {}, overwrite);
    } catch (FileError const& error) {
        return error.what();
    }
    return {};
}

std::string binaryStl(std::uint32_t count, std::vector<std::array<float, 9>> const& triangles)
{
    std::string bytes(80, 'h');
    bytes += bytesOf(count);
    for (auto const& triangle : triangles)
        bytes += bytesOf(std::array<float, 3>{}) + bytesOf(triangle) + std::string(2, '\0');
    return bytes;
}

constexpr std::array<float, 9> corner = {0, 0, 0, 1, 0, 0, 0, 1, 0};

std::string asciiStl(std::string const& coordinate)
{
    return "solid part\nfacet normal 0 0 1\nouter loop\nvertex 0 0 0\nvertex 1 0 0\nvertex 0 " +
           coordinate + " 0\nendloop\nendfacet\nendsolid part\n";
}

std::string const plyHeader =
    "ply\nformat ascii 1.0\nelement vertex 3\nproperty float x\nproperty float y\nproperty float "
    "z\n"
    "element face 1\nproperty list uchar int vertex_indices\nend_header\n";

class CancelAt
{
public:
    explicit CancelAt(int percent) : m_percent(percent) {}
    void operator()(int percent) const
    {
        if (percent >= m_percent)
            throw Mell::AbortException("Aborting...");
    }

private:
    int m_percent;
};

}  // namespace

TEST(FormatErrors, AFileThatIsNoReadableFileIsNamedWithItsReason)
{
    ScratchFolder const folder;
    EXPECT_THAT(readError(folder / "none.stl"),
                AllOf(HasSubstr("none.stl"), HasSubstr("there is no such file")));
    EXPECT_THAT(readError(folder.path()), HasSubstr("it is a folder"));
    EXPECT_THAT(readError(folder.file("empty.stl", "")), HasSubstr("it is empty"));
    ASSERT_EQ(mkfifo((folder / "pipe.stl").c_str(), 0600), 0);
    EXPECT_THAT(readError(folder / "pipe.stl"), HasSubstr("not a regular file"));
    EXPECT_THAT(readError(folder.file("letter.txt", "Dear reader,\n")),
                HasSubstr(".stl, .ply, .3mf, .obj or .off were expected"));
}

TEST(FormatErrors, AFileWithoutReadPermissionIsNamedWithItsReason)
{
    ScratchFolder const folder;
    auto const path = folder.file("secret.stl", binaryStl(1, {corner}));
    ASSERT_EQ(chmod(path.c_str(), 0), 0);
    // The superuser may read anything, so the thread acts on files as somebody else.
    ASSERT_EQ(chmod(folder.path().c_str(), 0755), 0);
    uid_t const user = uid_t(setfsuid(geteuid() == 0 ? 65534 : geteuid()));
    std::string const error = readError(path);
    setfsuid(user);
    EXPECT_THAT(error, AllOf(HasSubstr("secret.stl"), HasSubstr("no permission to read")));
}

TEST(FormatErrors, ATruncatedBinaryStlIsNamedWithTheByte)
{
    ScratchFolder const folder;
    std::string const whole = binaryStl(2, {corner, corner});
    EXPECT_THAT(readError(folder.file("short.stl", whole.substr(0, 183))),
                AllOf(HasSubstr("byte 183"), HasSubstr("announces 2 triangles"),
                      HasSubstr("end at byte 184")));
    EXPECT_THAT(readError(folder.file("header.stl", whole.substr(0, 60))),
                AllOf(HasSubstr("byte 60"), HasSubstr("84 bytes")));
    EXPECT_THAT(readError(folder.file("none.stl", binaryStl(0, {}))),
                AllOf(HasSubstr("byte 80"), HasSubstr("no triangles")));
}

TEST(FormatErrors, ABinaryStlWithMoreTrianglesThanItsHeaderSaysIsNamedWithBothNumbers)
{
    // The count was not brought up to date: reading on by it would lose triangles in silence.
    ScratchFolder const folder;
    for (int const extra : {1, 3, 200}) {
        std::string file = binaryStl(1, std::vector(std::size_t(1 + extra), corner));
        EXPECT_THAT(readError(folder.file("more.stl", file)),
                    AllOf(HasSubstr("byte 80"), HasSubstr("announces 1 triangles"),
                          HasSubstr("holds " + std::to_string(1 + extra))));
    }
}

TEST(FormatErrors, AHugeCountIsRefusedBeforeMemoryIsTaken)
{
    ScratchFolder const folder;
    auto const path = folder.file("huge.stl", binaryStl(4000000000u, {corner}));
    EXPECT_THAT(readError(path), HasSubstr("announces 4000000000 triangles"));
    // A file that really has that size, without a block of the disk behind it.
    if (truncate(path.c_str(), off_t(84) + off_t(50) * 4000000000) != 0)
        GTEST_SKIP() << "the file system takes no file of 200 GB";
    EXPECT_THAT(readError(path), AllOf(HasSubstr("4000000000 triangles need"), HasSubstr("MiB")));
    // The same in a PLY header, against the size of the file.
    std::string ply = plyHeader;
    ply.replace(ply.find("vertex 3"), 8, "vertex 4000000000");
    EXPECT_THAT(readError(folder.file("huge.ply", ply + "0 0 0\n")), HasSubstr("truncated"));
}

TEST(FormatErrors, ACoordinateThatIsNotFiniteIsNamedWithItsPlace)
{
    ScratchFolder const folder;
    for (float const bad : {std::nanf(""), std::numeric_limits<float>::infinity(),
                            -std::numeric_limits<float>::infinity()}) {
        auto second = corner;
        second[7] = bad;
        // The third corner of the second triangle.
        EXPECT_THAT(readError(folder.file("bad.stl", binaryStl(2, {corner, second}))),
                    AllOf(HasSubstr("byte 170"), HasSubstr("not a finite number")));
    }
    for (std::string const bad : {"nan", "inf", "-INF", "1e39", "1e400"}) {
        EXPECT_THAT(readError(folder.file("bad.stl", asciiStl(bad))),
                    AllOf(HasSubstr("line 6"), HasSubstr("not a finite number")))
            << bad;
        EXPECT_THAT(readError(folder.file("bad.obj", "v 0 0 0\nv 0 " + bad + " 0\n")),
                    AllOf(HasSubstr("line 2"), HasSubstr("not a finite number")));
        EXPECT_THAT(readError(folder.file("bad.ply",
                                          plyHeader + "0 0 0\n0 0 0\n0 0 " + bad + "\n3 0 1 2\n")),
                    AllOf(HasSubstr("line 12"), HasSubstr("vertex 2")));
    }
}

TEST(FormatErrors, TextThatIsNotTheFormatIsNamedWithLineAndExpectation)
{
    ScratchFolder const folder;
    EXPECT_THAT(
        readError(folder.file("comma.stl", asciiStl("1,5"))),
        AllOf(HasSubstr("line 6"), HasSubstr("a coordinate was expected"), HasSubstr("'1,5'")));
    std::string const whole = asciiStl("1");
    EXPECT_THAT(
        readError(folder.file("cut.stl", whole.substr(0, whole.find("endloop")))),
        AllOf(HasSubstr("line 6"), HasSubstr("endloop was expected"), HasSubstr("truncated")));
    EXPECT_THAT(readError(folder.file("end.stl", whole.substr(0, whole.find("endsolid")))),
                HasSubstr("'endsolid' was expected"));
    EXPECT_THAT(readError(folder.file("cut.ply", plyHeader + "0 0 0\n1 0 0\n0 1 0\n3 0 1\n")),
                AllOf(HasSubstr("line 13"), HasSubstr("truncated")));
    EXPECT_THAT(readError(folder.file("header.ply", plyHeader.substr(0, 40))),
                HasSubstr("'end_header' was expected"));
    EXPECT_THAT(readError(folder.file("faceless.obj", "v 0 0 0\nv 1 0 0\nv 0 1 0\n")),
                AllOf(HasSubstr("line 3"), HasSubstr("without a face")));
}

TEST(FormatErrors, WhatIsWrongInAnOffFileIsNamedWithItsLine)
{
    ScratchFolder const folder;
    std::string const points = "0 0 0\n1 0 0\n0 1 0\n";
    auto const errorOf = [&](std::string const& text) {
        return readError(folder.file("bad.off", text));
    };
    EXPECT_THAT(errorOf("OFF\n3 1 0\n" + points),
                AllOf(HasSubstr("line 5"), HasSubstr("truncated")));
    EXPECT_THAT(
        errorOf("OFF\n4000000000 1 0\n" + points),
        AllOf(HasSubstr("line 2"), HasSubstr("4000000000 vertices"), HasSubstr("truncated")));
    EXPECT_THAT(errorOf("OFF\n0 0 0\n"),
                AllOf(HasSubstr("line 2"), HasSubstr("a mesh was expected")));
    EXPECT_THAT(errorOf("OFF\nthree 1 0\n" + points + "3 0 1 2\n"),
                AllOf(HasSubstr("line 2"), HasSubstr("'three'")));
    EXPECT_THAT(errorOf("OFF BINARY\n\x01\x02"), AllOf(HasSubstr("line 1"), HasSubstr("binary")));
    EXPECT_THAT(errorOf("dear reader\n"),
                AllOf(HasSubstr("line 1"), HasSubstr("OFF was expected")));
    EXPECT_THAT(
        errorOf("OFF\n3 1 0\n0 0 0\n1 x 0\n0 1 0\n3 0 1 2\n"),
        AllOf(HasSubstr("line 4"), HasSubstr("a coordinate was expected"), HasSubstr("'x'")));
    EXPECT_THAT(errorOf("OFF\n3 1 0\n0 0 0\n1 0\n0 1 0\n3 0 1 2\n"),
                AllOf(HasSubstr("line 4"), HasSubstr("a coordinate was expected")));
    EXPECT_THAT(errorOf("OFF\n3 1 0\n0 0 0\n1 nan 0\n0 1 0\n3 0 1 2\n"),
                AllOf(HasSubstr("line 4"), HasSubstr("not a finite number")));
    for (std::string const bad : {"3", "-1"})
        EXPECT_THAT(
            errorOf("OFF\n3 1 0\n" + points + "3 0 1 " + bad + "\n"),
            AllOf(HasSubstr("line 6"), HasSubstr("vertex " + bad), HasSubstr("3 vertices")));
    EXPECT_THAT(errorOf("OFF\n3 1 0\n" + points + "2 0 1 # a line\n"),
                AllOf(HasSubstr("line 6"), HasSubstr("there are 2")));
    EXPECT_THAT(errorOf("OFF\n3 1 0\n" + points + "3 0 1 1\n"),
                HasSubstr("three different corners"));
}

TEST(FormatErrors, AnIndexOutOfRangeIsNamedWithItsPlace)
{
    ScratchFolder const folder;
    std::string const points = "v 0 0 0\nv 1 0 0\nv 0 1 0\n";
    for (std::string const bad : {"4", "0", "-4", "99999999999"})
        EXPECT_THAT(readError(folder.file("bad.obj", points + "f 1 2 " + bad + "\n")),
                    AllOf(HasSubstr("line 4"), HasSubstr("position " + bad),
                          HasSubstr("3 positions above it")));
    for (std::string const bad : {"3", "-1"})
        EXPECT_THAT(readError(folder.file("bad.ply",
                                          plyHeader + "0 0 0\n1 0 0\n0 1 0\n3 0 1 " + bad + "\n")),
                    AllOf(HasSubstr("line 13"), HasSubstr("vertex " + bad)));
    std::string binary = plyHeader;
    binary.replace(binary.find("ascii"), 5, "binary_big_endian");
    std::string const vertices(36, '\0');
    EXPECT_THAT(
        readError(folder.file("bad.ply", binary + vertices + std::string("\3", 1) +
                                             std::string("\0\0\0\0\0\0\0\1\0\0\0\7", 12))),
        AllOf(HasSubstr("byte " + std::to_string(binary.size() + 36 + 9)), HasSubstr("vertex 7")));
}

TEST(FormatErrors, ADamagedPackageIsAnErrorWithTheFilesName)
{
    ScratchFolder const folder;
    auto const whole = folder / "whole.3mf";
    writePart(whole, "part", *kernelOf(box(1, 2, 3)), format("3mf"), {}, Overwrite::Refuse);
    std::string const content = contentOf(whole);
    EXPECT_THAT(readError(folder.file("cut.3mf", content.substr(0, content.size() / 2))),
                AllOf(HasSubstr("cut.3mf"), HasSubstr("3MF")));
    std::string const noBuild = threeMfPackage("millimeter", "<resources/><build/>");
    EXPECT_THAT(readError(folder.file("nothing.3mf", noBuild)), HasSubstr("nothing.3mf"));
    std::string const outOfRange = threeMfPackage(
        "millimeter",
        "<resources><object id=\"1\" type=\"model\"><mesh><vertices><vertex x=\"0\" y=\"0\" "
        "z=\"0\"/>"
        "<vertex x=\"1\" y=\"0\" z=\"0\"/><vertex x=\"0\" y=\"1\" z=\"0\"/></vertices><triangles>"
        "<triangle v1=\"0\" v2=\"1\" "
        "v3=\"3\"/></triangles></mesh></object></resources><build><item "
        "objectid=\"1\"/></build>");
    EXPECT_THAT(readError(folder.file("index.3mf", outOfRange)), HasSubstr("index.3mf"));
}

TEST(FormatErrors, ATargetIsReplacedOnlyWithPermission)
{
    ScratchFolder const folder;
    auto const path = folder.file("part.stl", "precious");
    EXPECT_THAT(writeError(path, Overwrite::Refuse), HasSubstr("exists already"));
    EXPECT_EQ(contentOf(path), "precious");
    EXPECT_EQ(writeError(path, Overwrite::Allow), "");
    EXPECT_NE(contentOf(path), "precious");
    EXPECT_THAT(writeError(folder.path(), Overwrite::Allow), HasSubstr("it is a folder"));
    EXPECT_THAT(writeError(folder / "none" / "part.stl", Overwrite::Allow),
                HasSubstr("no file can be made in the folder"));
    EXPECT_THAT(folder.names(), ElementsAre("part.stl"));
}

TEST(FormatErrors, AFileThatAppearsWhileWritingIsNotReplaced)
{
    ScratchFolder const folder;
    OutputFile output(folder / "part.stl", Overwrite::Refuse);
    output.write("mine");
    folder.file("part.stl", "theirs");
    EXPECT_THROW(output.commit(), FileError);
    EXPECT_EQ(contentOf(folder / "part.stl"), "theirs");
}

TEST(FormatErrors, ALinkStaysALinkAndPermissionsAreKept)
{
    ScratchFolder const folder;
    auto const target = folder.file("real.stl", "old");
    ASSERT_EQ(chmod(target.c_str(), 0640), 0);
    std::filesystem::create_symlink("real.stl", folder / "link.stl");
    EXPECT_EQ(writeError(folder / "link.stl", Overwrite::Allow), "");
    EXPECT_TRUE(std::filesystem::is_symlink(folder / "link.stl"));
    EXPECT_EQ(readParts(target).size(), 1u);
    struct stat status
    {
    };
    ASSERT_EQ(stat(target.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0640u);
}

TEST(FormatErrors, ACancelledWriteLeavesEverythingAsItWas)
{
    ScratchFolder const folder;
    auto const path = folder.file("part", "precious");
    auto const kernel = kernelOf(torus(20, 7, 300, 120));
    for (auto const& each : FormatRegistry::instance().formats())
        for (int const percent : {0, 40, 100}) {
            SCOPED_TRACE(std::string(each->name()) + " at " + std::to_string(percent));
            EXPECT_THROW(
                writePart(path, "part", *kernel, *each, CancelAt(percent), Overwrite::Allow),
                Mell::AbortException);
            EXPECT_EQ(contentOf(path), "precious");
            EXPECT_THAT(folder.names(), ElementsAre("part"));
        }
}

TEST(FormatErrors, AFullDiskLeavesEverythingAsItWas)
{
    ScratchFolder const folder;
    auto const path = folder.file("part", "precious");
    auto const kernel = kernelOf(torus(20, 7, 100, 60));
    // A limit on the size of files stands for the disk.
    rlimit before{};
    getrlimit(RLIMIT_FSIZE, &before);
    auto* const handler = std::signal(SIGXFSZ, SIG_IGN);
    rlimit const limit{20000, before.rlim_max};
    for (auto const& each : FormatRegistry::instance().formats()) {
        setrlimit(RLIMIT_FSIZE, &limit);
        EXPECT_THROW(writePart(path, "part", *kernel, *each, {}, Overwrite::Allow), FileError)
            << each->name();
        setrlimit(RLIMIT_FSIZE, &before);
        EXPECT_EQ(contentOf(path), "precious") << each->name();
        EXPECT_THAT(folder.names(), ElementsAre("part"));
    }
    std::signal(SIGXFSZ, handler);
}

TEST(FormatErrors, ACancelledReadLetsTheExceptionPass)
{
    ScratchFolder const folder;
    auto const kernel = kernelOf(torus(20, 7, 300, 120));
    for (auto const& each : FormatRegistry::instance().formats()) {
        auto const path = folder / std::string(each->name());
        writePart(path, "part", *kernel, *each, {}, Overwrite::Refuse);
        for (int const percent : {0, 100})
            EXPECT_THROW(readParts(path, CancelAt(percent)), Mell::AbortException) << each->name();
        EXPECT_EQ(readParts(path).size(), 1u);
    }
}

TEST(FormatErrors, AnEmptyPartIsNotWritten)
{
    ScratchFolder const folder;
    MeshKernel const empty;
    for (auto const& each : FormatRegistry::instance().formats())
        EXPECT_THROW(writePart(folder / "part", "part", empty, *each, {}, Overwrite::Refuse),
                     FileError);
    EXPECT_THAT(folder.names(), ElementsAre());
    EXPECT_THROW(FormatRegistry::instance().forNewFile("part.step"), FileError);
}
