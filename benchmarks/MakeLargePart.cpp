// SPDX-License-Identifier: GPL-3.0-or-later
// Makes a part for benchmarks out of a smaller one: make_large_part LEVELS IN.stl OUT.stl. Each
// level splits every triangle into four and smooths, so that neighbours are not coplanar.
#include "host/formats/FormatRegistry.h"
#include "host/formats/PartFiles.h"
#include "tests/support/Soup.h"

#include <cstdio>
#include <cstdlib>

int main(int argc, char** argv)
try {
    if (argc != 4) {
        std::fputs("usage: make_large_part LEVELS IN.stl OUT.stl\n", stderr);
        return 2;
    }
    auto const parts = Formats::readParts(argv[2]);
    Soup soup = soupOf(*parts.at(0).kernel);
    for (int level = std::atoi(argv[1]); level > 0; --level)
        soup = subdivided(soup);
    Formats::writePart(argv[3], "part", *kernelOf(soup),
                       *Formats::FormatRegistry::instance().byName("stl"), {},
                       Formats::Overwrite::Allow);
    return 0;
} catch (Mell::Exception const& failure) {
    std::fprintf(stderr, "%s\n", failure.what());
    return 3;
}
