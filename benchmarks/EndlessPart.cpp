// SPDX-License-Identifier: GPL-3.0-or-later
// Writes a binary STL of any size to standard output, a row of triangles at a time: a rippled tube around a
// wavy ring, closed, whose sections have as many points as a row.
//
//   endless_part ROWS POINTS | freecut zcut - --height 31.7 --stream -o pieces
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <numbers>
#include <vector>

namespace {

using Point = std::array<float, 3>;

std::vector<Point> rowAt(std::uint32_t row, std::uint32_t rows, std::uint32_t points)
{
    constexpr double turn = 2 * std::numbers::pi;
    double const a = turn * (row % rows) / rows;
    std::vector<Point> places;
    for (std::uint32_t i = 0; i < points; ++i) {
        double const g = turn * i / points;
        double const pipe = 10 * (1 + 0.05 * std::sin(40 * g + 3 * a));
        double const ring = 60 + pipe * std::cos(g);
        places.push_back({float(ring * std::cos(a)), float(ring * std::sin(a)),
                          float(pipe * std::sin(g) + 30 + 8 * std::sin(7 * a))});
    }
    return places;
}

class Records
{
public:
    void add(Point const& a, Point const& b, Point const& c)
    {
        std::array<char, 50> record{};
        std::size_t place = 12;
        for (Point const& corner : {a, b, c}) {
            std::memcpy(&record[place], corner.data(), sizeof corner);
            place += sizeof corner;
        }
        std::fwrite(record.data(), record.size(), 1, stdout);
    }
};

}  // namespace

int main(int count, char** arguments)
{
    if (count != 3) {
        std::fputs("endless_part ROWS POINTS > part.stl\n", stderr);
        return 2;
    }
    auto const rows = std::uint32_t(std::atol(arguments[1]));
    auto const points = std::uint32_t(std::atol(arguments[2]));
    std::array<char, 80> const header{"made"};
    std::uint32_t const triangles = rows * points * 2;
    std::fwrite(header.data(), header.size(), 1, stdout);
    std::fwrite(&triangles, sizeof triangles, 1, stdout);
    Records records;
    std::vector<Point> here = rowAt(0, rows, points);
    for (std::uint32_t row = 0; row < rows; ++row) {
        std::vector<Point> const next = rowAt(row + 1, rows, points);
        for (std::uint32_t i = 0; i < points; ++i) {
            std::uint32_t const j = (i + 1) % points;
            records.add(here[i], next[i], next[j]);
            records.add(here[i], next[j], here[j]);
        }
        here = next;
    }
    return std::ferror(stdout) || std::fflush(stdout) ? 1 : 0;
}
