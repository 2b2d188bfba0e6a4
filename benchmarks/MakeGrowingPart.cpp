// SPDX-License-Identifier: GPL-3.0-or-later
// Makes a part of a chosen size, to see how times grow with it: make_growing_part KIND COUNT OUT.stl,
// where COUNT is the number of shells, the length of a bar in millimetres, the number of points of a
// contour at every height, of triangles of a wavy plate, or of pegs that stand through it.
#include "host/formats/FormatRegistry.h"
#include "host/formats/PartFiles.h"
#include "tests/support/CorpusParts.h"
#include "tests/support/MeshBuilders.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <numbers>
#include <random>
#include <string>

namespace {

/// An upright prism, 10 mm high, between two rings of points around the origin, every second of which
/// stands out by `spike`, and each by up to `roughness` at random.
Soup ringPrism(std::uint32_t count, float outer, float inner, float spike, float roughness = 0)
{
    Soup soup;
    std::mt19937 random(1);
    for (std::uint32_t i = 0; i < count; ++i) {
        double const angle = 2 * std::numbers::pi * i / count;
        float const rough = roughness * float(double(random()) / double(std::mt19937::max()));
        float const added = (i % 2 == 0 ? spike : 0) + rough;
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

constexpr float plateSize = 100;

/// A plate of about 5 mm, with waves on its upper side.
Soup wavyPlate(std::uint32_t triangles)
{
    std::uint32_t const cells = std::uint32_t(std::sqrt(double(triangles) / 4)), row = cells + 1;
    Soup soup;
    for (bool const isUpper : {false, true})
        for (std::uint32_t i = 0; i < row * row; ++i) {
            float const x = float(i % row) * plateSize / float(cells),
                        y = float(i / row) * plateSize / float(cells);
            soup.add({x, y, isUpper ? 1 + std::sin(x * 0.3f) * std::cos(y * 0.2f) : -5});
        }
    auto const quad = [&](std::uint32_t a, std::uint32_t b, std::uint32_t c, std::uint32_t d) {
        soup.add(a, b, c);
        soup.add(a, c, d);
    };
    std::uint32_t const up = row * row;
    for (std::uint32_t y = 0; y < cells; ++y)
        for (std::uint32_t x = 0; x < cells; ++x) {
            std::uint32_t const p = y * row + x;
            quad(up + p, up + p + 1, up + p + row + 1, up + p + row);
            quad(p, p + row, p + row + 1, p + 1);
        }
    for (std::uint32_t i = 0; i < cells; ++i) {
        std::uint32_t const left = i * row, right = left + cells, back = cells * row + i;
        quad(i, i + 1, up + i + 1, up + i);
        quad(back + 1, back, up + back, up + back + 1);
        quad(left + row, left, up + left, up + left + row);
        quad(right, right + row, up + right + row, up + right);
    }
    return soup;
}

/// Cylinders of 64 facets, radius 0.3 mm, that stand aslant through the upper side of the plate.
Soup pegs(std::uint32_t count)
{
    constexpr std::uint32_t facets = 64;
    std::uint32_t const row = std::uint32_t(std::ceil(std::sqrt(double(count))));
    Soup soup;
    for (std::uint32_t peg = 0; peg < count; ++peg) {
        float const x = (float(peg % row) + 0.5f) * plateSize / float(row),
                    y = (float(peg / row) + 0.5f) * plateSize / float(row);
        std::uint32_t const first = std::uint32_t(soup.points.size());
        float const lean = 0.03f * float(peg % 7) - 0.09f;
        for (float const z : {-2.0f, 4.0f}) {
            soup.add({x + lean * z, y, z});
            for (std::uint32_t i = 0; i < facets; ++i) {
                double const angle = 2 * std::numbers::pi * (i + 0.3) / facets;
                soup.add({x + lean * z + 0.3f * float(std::cos(angle)),
                          y + 0.3f * float(std::sin(angle)), z});
            }
        }
        for (std::uint32_t i = 0; i < facets; ++i) {
            std::uint32_t const a = first + 1 + i, b = first + 1 + (i + 1) % facets,
                                up = facets + 1;
            soup.add(first, b, a);
            soup.add(first + up, a + up, b + up);
            soup.add(a, b, b + up);
            soup.add(a, b + up, a + up);
        }
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
    if (kind == "rough")
        return ringPrism(count, 50, 40, 0, 1);
    if (kind == "spikes")
        return ringPrism(count, 50, 40, 2);
    if (kind == "plate")
        return wavyPlate(count);
    if (kind == "pegs")
        return pegs(count);
    return {};
}

}  // namespace

int main(int argc, char** argv)
try {
    Soup const soup = argc == 4 ? made(argv[1], std::uint32_t(std::atol(argv[2]))) : Soup();
    if (soup.triangles.empty()) {
        std::fputs(
            "usage: make_growing_part shells|bar|ring|rough|spikes|plate|pegs COUNT OUT.stl\n",
            stderr);
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
