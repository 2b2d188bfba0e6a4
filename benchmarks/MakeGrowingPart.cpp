// SPDX-License-Identifier: GPL-3.0-or-later
// Makes a part of a chosen size, to see how times grow with it: make_growing_part KIND COUNT OUT.stl,
// where COUNT is the number of shells, the length of a bar in millimetres, or the number of points
// of a contour at every height.
#include "host/formats/FormatRegistry.h"
#include "host/formats/PartFiles.h"
#include "tests/support/CorpusParts.h"
#include "tests/support/MeshBuilders.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <numbers>
#include <string>

namespace {

/// An upright prism, 10 mm high, between two rings of points around the origin.
Soup ringPrism(std::uint32_t count, float outer, float inner, float spike)
{
    Soup soup;
    for (std::uint32_t i = 0; i < count; ++i) {
        double const angle = 2 * std::numbers::pi * i / count;
        float const added = i % 2 == 0 ? spike : 0;
        for (float const radius : {outer + added, inner - added})
            for (float const z : {0.0f, 10.0f})
                soup.add({radius * float(std::cos(angle)), radius * float(std::sin(angle)), z});
    }
    auto const quad = [&](std::uint32_t a, std::uint32_t b, std::uint32_t c, std::uint32_t d) {
        soup.add(a, b, c);
        soup.add(a, c, d);
    };
    for (std::uint32_t i = 0; i < count; ++i) {
        // Outer low, outer high, inner low, inner high.
        std::uint32_t const p = i * 4;
        std::uint32_t const q = (i + 1) % count * 4;
        quad(p, q, q + 1, p + 1);
        quad(q + 2, p + 2, p + 3, q + 3);
        quad(p + 1, q + 1, q + 3, p + 3);
        quad(q, p, p + 2, q + 2);
    }
    return soup;
}

Soup made(std::string const& kind, std::uint32_t count)
{
    if (kind == "shells")
        return corpus::manyShells(count);
    if (kind == "bar")
        return box(float(count), 20, 20);
    if (kind == "ring")
        return ringPrism(count, 50, 40, 0);
    if (kind == "spikes")
        return ringPrism(count, 50, 40, 2);
    return {};
}

}  // namespace

int main(int argc, char** argv)
try {
    Soup const soup = argc == 4 ? made(argv[1], std::uint32_t(std::atol(argv[2]))) : Soup();
    if (soup.triangles.empty()) {
        std::fputs("usage: make_growing_part shells|bar|ring|spikes COUNT OUT.stl\n", stderr);
        return 2;
    }
    Formats::writePart(argv[3], "part", *kernelOf(soup),
                       *Formats::FormatRegistry::instance().byName("stl"), {},
                       Formats::Overwrite::Allow);
    return 0;
} catch (Mell::Exception const& failure) {
    std::fprintf(stderr, "%s\n", failure.what());
    return 3;
}
