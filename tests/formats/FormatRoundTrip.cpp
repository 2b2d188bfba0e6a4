// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/formats/PartFiles.h"
#include "tests/formats/ScratchFolder.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/SkipReasons.h"
#include "tests/support/Validator.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <locale>
#include <sys/wait.h>

using namespace Formats;

namespace {

std::vector<std::string> const formatNames = {"stl", "stl-ascii", "ply", "ply-ascii",
                                              "obj", "off",       "3mf"};

MeshFormat const& format(std::string const& name)
{
    return *FormatRegistry::instance().byName(name);
}

std::filesystem::path written(ScratchFolder const& folder, std::string const& formatName,
                              MeshKernel const& kernel)
{
    auto const& chosen = format(formatName);
    auto const path = folder / ("part-" + formatName + "." + std::string(chosen.extensions()[0]));
    writePart(path, "part", kernel, chosen, {}, Overwrite::Allow);
    return path;
}

void expectSameTriangles(Soup const& actual, Soup const& expected)
{
    ASSERT_EQ(actual.triangles.size(), expected.triangles.size());
    for (std::size_t t = 0; t < expected.triangles.size(); ++t)
        for (int corner = 0; corner < 3; ++corner) {
            auto const p = actual.points[actual.triangles[t][corner]];
            auto const q = expected.points[expected.triangles[t][corner]];
            for (int axis = 0; axis < 3; ++axis)
                ASSERT_EQ(p[axis], q[axis]) << "triangle " << t;
        }
}

/// A decimal comma for everything that asks the C++ locale.
class DecimalComma : public std::numpunct<char>
{
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

class LocaleRestorer
{
public:
    LocaleRestorer() : m_c(std::setlocale(LC_ALL, nullptr)) {}
    ~LocaleRestorer()
    {
        std::locale::global(m_cpp);
        std::setlocale(LC_ALL, m_c.c_str());
    }

private:
    std::locale m_cpp;
    std::string m_c;
};

}  // namespace

TEST(FormatRoundTrip, EveryClosedMeshComesBackClosedAndTheSame)
{
    ScratchFolder const folder;
    for (NamedSoup const& mesh : closedMeshes())
        for (std::string const& name : formatNames) {
            SCOPED_TRACE(mesh.name + " as " + name);
            auto const original = kernelOf(mesh.soup);
            auto const parts = readParts(written(folder, name, *original));
            ASSERT_EQ(parts.size(), 1u);
            MeshKernel const& kernel = *parts[0].kernel;
            EXPECT_EQ(closedSolidFaults(kernel), closedSolidFaults(mesh.soup));
            expectSameTriangles(soupOf(kernel), mesh.soup);
        }
}

TEST(FormatRoundTrip, AReadMeshHasNormalsIdentifiersCountsAndBox)
{
    ScratchFolder const folder;
    auto const original = kernelOf(torus(20, 7, 24, 12));
    for (std::string const& name : formatNames) {
        SCOPED_TRACE(name);
        auto const parts = readParts(written(folder, name, *original));
        auto const mesh = parts.at(0).kernel->readMesh();
        EXPECT_EQ(mesh->triangleCount, mesh->triangles.size());
        EXPECT_EQ(mesh->vertexCount, mesh->vertices.size());
        for (std::size_t i = 0; i < mesh->vertices.size(); ++i)
            ASSERT_EQ(mesh->vertices[i]->cID(), i);
        for (std::size_t i = 0; i < mesh->triangles.size(); ++i) {
            ASSERT_EQ(mesh->triangles[i]->cID(), i);
            ASSERT_EQ(mesh->triangles[i]->cN(), mesh->triangles[i]->ComputeNormalizedNormal());
        }
        UBox3<float> const& box = parts[0].kernel->GetBox();
        EXPECT_NEAR(box.MaxX(), 27, 1e-4);
        EXPECT_NEAR(box.MinZ(), original->GetBox().MinZ(), 1e-4);
    }
}

TEST(FormatRoundTrip, TheSamePartGivesTheSameBytes)
{
    ScratchFolder const folder;
    auto const kernel = kernelOf(lattice(2));
    for (std::string const& name : formatNames) {
        std::string const first = contentOf(written(folder, name, *kernel));
        EXPECT_EQ(contentOf(written(folder, name, *kernel)), first) << name;
        // Other records at other addresses.
        auto const again = kernelOf(lattice(2));
        EXPECT_EQ(contentOf(written(folder, name, *again)), first) << name;
    }
}

TEST(FormatRoundTrip, AMatrixIsAppliedAndAReflectionKeepsTheOutsideOutside)
{
    ScratchFolder const folder;
    auto const kernel = kernelOf(cylinder(5, 30, 16));
    double const volume = volumeOf(soupOf(*kernel));
    UMatrix4<float> mirror;
    mirror(0, 0) = -2;
    mirror(0, 3) = 7;
    kernel->getMatrix() = mirror;
    for (std::string const& name : formatNames) {
        auto const parts = readParts(written(folder, name, *kernel));
        Soup const back = soupOf(*parts.at(0).kernel);
        EXPECT_NEAR(volumeOf(back), 2 * volume, 1e-3 * volume) << name;
        EXPECT_NEAR(parts[0].kernel->GetBox().MaxX(), 17, 1e-4) << name;
    }
}

TEST(FormatRoundTrip, StaleIdentifiersDoNotReachTheFile)
{
    ScratchFolder const folder;
    Soup const soup = box(2, 3, 4);
    auto const kernel = kernelOf(soup);
    for (UVertex<float>* vertex : kernel->getMesh()->vertices)
        vertex->ID() = 4711;
    for (std::string const& name : formatNames) {
        SCOPED_TRACE(name);
        auto const parts = readParts(written(folder, name, *kernel));
        expectSameTriangles(soupOf(*parts.at(0).kernel), soup);
    }
}

TEST(FormatRoundTrip, SeveralPartsStaySeveralIn3mfAndBecomeOneElsewhere)
{
    ScratchFolder const folder;
    auto const first = kernelOf(box(1, 2, 3));
    auto const second = kernelOf(box(2, 2, 2, {10, 0, 0}));
    NamedMesh const both[] = {{"left", first.get()}, {"right", second.get()}};
    for (std::string const& name : formatNames) {
        auto const path = folder / ("both-" + name);
        writeParts(path, both, format(name), {}, Overwrite::Refuse);
        auto const parts = readParts(path);
        double volume = 0;
        for (LoadedPart const& part : parts)
            volume += volumeOf(soupOf(*part.kernel));
        EXPECT_NEAR(volume, 14, 1e-4) << name;
        ASSERT_EQ(parts.size(), name == "3mf" ? 2u : 1u);
    }
    auto const parts = readParts(folder / "both-3mf");
    EXPECT_EQ(parts[0].name, "left");
    EXPECT_EQ(parts[1].name, "right");
}

TEST(FormatRoundTrip, ADecimalCommaInTheLocaleChangesNoFile)
{
    ScratchFolder const folder;
    auto const kernel = kernelOf(sphere(12.345f, 7, 9));
    std::vector<std::string> before;
    for (std::string const& name : formatNames)
        before.push_back(contentOf(written(folder, name, *kernel)));

    LocaleRestorer const restorer;
    std::locale::global(std::locale(std::locale::classic(), new DecimalComma));
    // Where the system has such a locale, the C library's numbers get a comma too.
    for (char const* candidate : {"de_DE.UTF-8", "de_DE.utf8", "fr_FR.UTF-8", "fr_FR.utf8"})
        if (std::setlocale(LC_ALL, candidate))
            break;
    for (std::size_t i = 0; i < formatNames.size(); ++i) {
        SCOPED_TRACE(formatNames[i]);
        auto const path = written(folder, formatNames[i], *kernel);
        EXPECT_EQ(contentOf(path), before[i]);
        expectSameTriangles(soupOf(*readParts(path).at(0).kernel), soupOf(*kernel));
    }
}

TEST(FormatRoundTrip, AnIndependentProgramFindsAWrittenStlClosed)
{
    if (std::system("admesh --version > /dev/null 2>&1") != 0)
        GTEST_SKIP() << admeshIsMissing;
    ScratchFolder const folder;
    auto const kernel = kernelOf(torus(30, 10, 40, 20));
    for (std::string const name : {"stl", "stl-ascii"}) {
        auto const path = written(folder, name, *kernel);
        auto const report = folder / "report";
        std::string const command =
            "admesh '" + path.string() + "' > '" + report.string() + "' 2>&1";
        ASSERT_EQ(std::system(command.c_str()), 0);
        std::string const text = contentOf(report);
        EXPECT_NE(text.find("All facets connected.  No nearby check necessary."), text.npos)
            << text;
        EXPECT_NE(text.find("Number of parts       :     1        Volume   :"), text.npos) << text;
        for (std::string const fault :
             {"Degenerate facets     :     0", "Backwards edges       :     0",
              "Facets reversed       :     0", "Normals fixed         :     0"})
            EXPECT_NE(text.find(fault), text.npos) << fault << "\n" << text;
    }
}
