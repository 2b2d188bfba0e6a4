// SPDX-License-Identifier: GPL-3.0-or-later
// Makes a part for benchmarks out of a smaller one: make_large_part LEVELS IN.stl OUT.stl [DEGREES].
// Each level splits every triangle into four and smooths, so that neighbours are not coplanar. With
// DEGREES the part is turned by them about its middle.
#include "host/formats/FormatRegistry.h"
#include "host/formats/PartFiles.h"
#include "tests/support/NearCopies.h"
#include "tests/support/Soup.h"

#include <cstdio>
#include <cstdlib>
#include <numbers>

int main(int argc, char** argv)
try {
    if (argc != 4 && argc != 5) {
        std::fputs("usage: make_large_part LEVELS IN.stl OUT.stl [DEGREES]\n", stderr);
        return 2;
    }
    auto const parts = Formats::readParts(argv[2]);
    Soup soup = soupOf(*parts.at(0).kernel);
    for (int level = std::atoi(argv[1]); level > 0; --level)
        soup = subdivided(soup);
    if (argc == 5)
        soup = turnedCopy(soup, std::atof(argv[4]) * std::numbers::pi / 180);
    Formats::writePart(argv[3], "part", *kernelOf(soup),
                       *Formats::FormatRegistry::instance().byName("stl"), {},
                       Formats::Overwrite::Allow);
    return 0;
} catch (Mell::Exception const& failure) {
    std::fprintf(stderr, "%s\n", failure.what());
    return 3;
}
