// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/CorpusParts.h"

#include "tests/support/Gyroid.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <numbers>
#include <random>

namespace corpus {
namespace {

constexpr double pi = std::numbers::pi;

UPoint3<float> point(double x, double y, double z)
{
    return {float(x), float(y), float(z)};
}

/// A grid of points with quads between them; rows and columns may close to rings.
class Sheet
{
public:
    Sheet(int rows, int columns, bool doRowsClose, bool doColumnsClose)
        : m_rows(rows),
          m_columns(columns),
          m_rowSteps(doRowsClose ? rows : rows - 1),
          m_columnSteps(doColumnsClose ? columns : columns - 1)
    {}

    template <typename Place>
    Soup build(Place const& place) const
    {
        Soup soup;
        for (int row = 0; row < m_rows; ++row)
            for (int column = 0; column < m_columns; ++column)
                soup.add(place(row, column));
        for (int row = 0; row < m_rowSteps; ++row)
            for (int column = 0; column < m_columnSteps; ++column) {
                auto const a = indexOf(row, column), b = indexOf(row, column + 1);
                auto const c = indexOf(row + 1, column + 1), d = indexOf(row + 1, column);
                soup.add(a, b, c);
                soup.add(a, c, d);
            }
        return soup;
    }

    std::uint32_t indexOf(int row, int column) const
    {
        return std::uint32_t((row % m_rows) * m_columns + column % m_columns);
    }

private:
    int m_rows;
    int m_columns;
    int m_rowSteps;
    int m_columnSteps;
};

double sixfoldVolumeOf(Soup const& soup)
{
    double sum = 0;
    for (auto const& t : soup.triangles) {
        auto const a = soup.points[t[0]], b = soup.points[t[1]], c = soup.points[t[2]];
        sum += double(a.X()) * (double(b.Y()) * c.Z() - double(b.Z()) * c.Y()) +
               double(a.Y()) * (double(b.Z()) * c.X() - double(b.X()) * c.Z()) +
               double(a.Z()) * (double(b.X()) * c.Y() - double(b.Y()) * c.X());
    }
    return sum;
}

Soup facingOutward(Soup soup)
{
    if (sixfoldVolumeOf(soup) < 0)
        soup.flip();
    return soup;
}

Soup scaled(Soup soup, float factor)
{
    for (auto& p : soup.points)
        p = {p.X() * factor, p.Y() * factor, p.Z() * factor};
    return soup;
}

Soup shifted(Soup soup, float x, float y, float z)
{
    for (auto& p : soup.points)
        p = {p.X() + x, p.Y() + y, p.Z() + z};
    return soup;
}

Soup together(std::vector<Soup> const& soups)
{
    Soup all;
    for (Soup const& soup : soups)
        all.append(soup);
    return all;
}

Soup insideOut(Soup soup)
{
    soup.flip();
    return soup;
}

/// A prism over a closed outline that is a star from the origin.
Soup starPrism(std::vector<std::array<double, 2>> const& outline, double low, double high)
{
    int const n = int(outline.size());
    Sheet const walls(2, n, false, true);
    Soup soup = walls.build([&](int row, int column) {
        auto const& [x, y] = outline[std::size_t(column)];
        return point(x, y, row == 0 ? low : high);
    });
    std::uint32_t const bottom = soup.add(point(0, 0, low)), top = soup.add(point(0, 0, high));
    for (int i = 0; i < n; ++i) {
        soup.add(bottom, walls.indexOf(0, i + 1), walls.indexOf(0, i));
        soup.add(top, walls.indexOf(1, i), walls.indexOf(1, i + 1));
    }
    return facingOutward(soup);
}

/// Three plates that have one edge in common.
Soup threePagesOfABook()
{
    Soup soup;
    for (int i = 0; i < 3; ++i) {
        // Wedges around the axis: each pair of wedges has the axis in common, not a face.
        double const first = 2 * pi * i / 3, last = first + pi / 3;
        Soup wedge;
        for (double const z : {0.0, 30.0})
            for (auto const& [x, y] :
                 {std::pair(0.0, 0.0), std::pair(20 * std::cos(first), 20 * std::sin(first)),
                  std::pair(20 * std::cos(last), 20 * std::sin(last))})
                wedge.add(point(x, y, z));
        static constexpr int faces[][3] = {{0, 2, 1}, {3, 4, 5}, {0, 1, 4}, {0, 4, 3},
                                           {1, 2, 5}, {1, 5, 4}, {2, 0, 3}, {2, 3, 5}};
        for (auto const& f : faces)
            wedge.add(std::uint32_t(f[0]), std::uint32_t(f[1]), std::uint32_t(f[2]));
        soup.append(wedge);
    }
    soup.joinPoints();
    return soup;
}

/// A box with a wall inside, which divides it: the wall's edges have three triangles.
Soup boxWithInnerWall()
{
    Soup soup = box(20, 20, 20);
    soup.append(box(20, 20, 20, {20, 0, 0}));
    soup.joinPoints();
    // Of the two walls between the boxes one goes.
    auto const isInWall = [&](auto const& t) {
        return std::all_of(t.begin(), t.end(),
                           [&](std::uint32_t i) { return soup.points[i].X() == 20; });
    };
    auto const wall = std::find_if(soup.triangles.begin(), soup.triangles.end(), isInWall);
    soup.triangles.erase(wall, wall + 2);
    return soup;
}

void addOverlapping(std::vector<Part>& list)
{
    char const* const kind = "overlapping shells";
    list.push_back({kind, "boxes-crossing", crossingBoxes()});
    list.push_back(
        {kind, "block-and-bar", together({box(30, 30, 30), box(40, 10, 10, {20, 10, 10})})});
    list.push_back({kind, "three-balls",
                    together({sphere(12, 12, 20), sphere(11, 11, 18, {9, 3, 2}),
                              sphere(10, 10, 16, {3, 11, 5})})});
    list.push_back({kind, "ring-through-ring",
                    together({torus(15, 5, 30, 14), shifted(torus(15, 5, 28, 12), 9, 2, 1)})});
    list.push_back(
        {kind, "lattice-and-ball", together({lattice(3), sphere(8, 14, 20, {9, 8, 9})})});
}

void addNested(std::vector<Part>& list)
{
    char const* const kind = "nested shells";
    list.push_back({kind, "box-in-box-both-outward",
                    together({box(30, 30, 30), box(10, 10, 10, {10, 10, 10})})});
    list.push_back({kind, "nested-boxes-with-cavity", nestedBoxes()});
    Soup onion;
    for (int i = 0; i < 6; ++i) {
        Soup skin = sphere(float(20 - 3 * i), 10, 16);
        onion.append(i % 2 ? insideOut(skin) : skin);
    }
    list.push_back({kind, "onion", onion});
}

void addTouching(std::vector<Part>& list)
{
    char const* const kind = "touching shells";
    list.push_back(
        {kind, "touch-in-a-point", together({box(20, 20, 20), box(15, 15, 15, {20, 20, 20})})});
    list.push_back(
        {kind, "touch-along-an-edge", together({box(20, 20, 20), box(20, 20, 20, {20, 20, 0})})});
    list.push_back(
        {kind, "touch-in-a-face", together({box(20, 20, 20), box(20, 20, 20, {20, 0, 0})})});
    list.push_back(
        {kind, "touch-in-part-of-a-face", together({box(20, 20, 20), box(20, 10, 9, {20, 4, 5})})});
    Soup tip = starPrism({{{12, 0}, {0, 12}, {-12, 0}, {0, -12}}}, 0, 12);
    tip.points.back() = point(0, 0, 30);
    list.push_back(
        {kind, "tip-in-a-face", together({shifted(tip, 0, 0, 0), box(30, 30, 8, {-15, -15, 30})})});
}

void addCoincident(std::vector<Part>& list)
{
    char const* const kind = "coinciding shells";
    list.push_back({kind, "box-twice", together({box(20, 30, 25), box(20, 30, 25)})});
    list.push_back({kind, "boxes-with-coplanar-sides",
                    together({box(20, 20, 20), box(20, 20, 10, {10, 0, 0})})});
    list.push_back({kind, "ball-twice-nearly",
                    together({sphere(15, 14, 20), sphere(15, 14, 20, {0.00001f, 0, 0})})});
}

void addInsideOut(std::vector<Part>& list)
{
    char const* const kind = "inside out";
    list.push_back({kind, "whole-ball-inside-out", insideOut(sphere(17, 14, 20))});
    list.push_back({kind, "one-of-two-inside-out",
                    together({box(20, 20, 20), insideOut(box(15, 15, 15, {30, 0, 3}))})});
    list.push_back(
        {kind, "crossing-one-inside-out",
         together({box(20, 20, 20), insideOut(box(20, 20, 20, {9.5f, 8.25f, 7.125f}))})});
}

void addSelfCrossing(std::vector<Part>& list)
{
    char const* const kind = "crosses itself";
    list.push_back({kind, "figure-of-eight", figureOfEight(60, 12)});
    list.push_back({kind, "folded-block", foldedBlock(24)});
    list.push_back({kind, "scan-noise-mild", noisyScan(24, 36, 0.35f, 1)});
    list.push_back({kind, "scan-noise-strong", noisyScan(24, 36, 1.0f, 2)});
    list.push_back({kind, "scan-noise-fine", noisyScan(60, 90, 0.3f, 3)});
}

void addCrowded(std::vector<Part>& list)
{
    char const* const kind = "edges of four and six";
    list.push_back({kind, "edge-of-four", boxesSharingAnEdge()});
    list.push_back({kind, "edge-of-six", threePagesOfABook()});
    list.push_back({kind, "random-voxels", scaled(randomVoxels(5, 5), 6)});
    list.push_back({kind, "inner-wall", boxWithInnerWall()});
}

void addDisordered(std::vector<Part>& list)
{
    char const* const kind = "duplicated or flipped triangles";
    list.push_back({kind, "duplicated", withDuplicates(sphere(16, 14, 20), 37)});
    list.push_back({kind, "flipped", withFlipped(sphere(16, 14, 20), 41)});
    list.push_back({kind, "duplicated-and-flipped",
                    withFlipped(withDuplicates(torus(15, 6, 30, 16), 53), 71)});
}

void addOpen(std::vector<Part>& list)
{
    char const* const kind = "open";
    list.push_back({kind, "moebius-band", moebiusBand(40)});
    list.push_back(
        {kind, "moebius-beside-a-box", together({moebiusBand(30), box(20, 20, 20, {40, 0, -10})})});
    list.push_back({kind, "open-box", openBox(20, 30, 25)});
    list.push_back({kind, "opening-beside-the-plane", boxWithOpenings({4, 34})});
    list.push_back({kind, "opening-across-the-plane", boxWithOpenings({17})});
    Soup holed = sphere(17, 20, 30);
    for (std::size_t const i : {7, 190, 555, 801})
        holed.triangles.erase(holed.triangles.begin() + std::ptrdiff_t(i));
    list.push_back({kind, "ball-without-four-triangles", holed});
}

void addClean(std::vector<Part>& list)
{
    char const* const kind = "clean";
    for (auto& [name, soup] : closedMeshes())
        if (name != "nested boxes")
            list.push_back({kind, name, std::move(soup)});
    list.push_back({kind, "scanned-head", scannedHead(50, 80)});
    list.push_back({kind, "bracket", bracketWithBores(24)});
    list.push_back({kind, "gear", gearWheel(20)});
    list.push_back({kind, "screw", screwThread(6, 24)});
    list.push_back({kind, "gyroid", gyroidBlock(2, 8)});
}

void addExtremes(std::vector<Part>& list)
{
    char const* const kind = "extreme coordinates";
    list.push_back({kind, "head-of-a-thousandth", scaled(scannedHead(20, 30), 0.00002f)});
    list.push_back({kind, "head-of-a-million", scaled(scannedHead(20, 30), 20000)});
    list.push_back(
        {kind, "gear-far-from-the-origin", shifted(gearWheel(12), 100000, -200000, 50000)});
    list.push_back({kind, "crossing-of-a-thousandth", scaled(crossingBoxes(), 0.00004f)});
    list.push_back({kind, "crossing-of-a-million", scaled(crossingBoxes(), 40000)});
}

}  // namespace

Soup scannedHead(int rings, int segments)
{
    Soup soup = sphere(1, rings, segments);
    for (auto& p : soup.points) {
        double const x = p.X(), y = p.Y(), z = p.Z();
        double const radius = 22 + 3 * std::sin(3 * x + 1) * std::cos(2 * y) +
                              1.1 * std::sin(7 * z + 2 * x) +
                              0.25 * std::sin(23 * x) * std::sin(19 * y) * std::sin(21 * z) +
                              4 * std::exp(-12 * ((x - 0.9) * (x - 0.9) + y * y + z * z));
        p = point(radius * 0.85 * x, radius * y * 0.95, radius * 1.2 * z);
    }
    return soup;
}

Soup bracketWithBores(int facets)
{
    // A plate with a bore beside a bored foot, drawn in the plane as rings around the bores.
    auto const bored = [&](double width, double depth, double low, double high, double radius) {
        Sheet const sheet(4, facets, true, true);
        return facingOutward(sheet.build([&](int row, int column) {
            double const angle = 2 * pi * (column + 0.5) / facets;
            double const c = std::cos(angle), s = std::sin(angle);
            double const z = row == 0 || row == 3 ? low : high;
            if (row >= 2)
                return point(radius * c, radius * s, z);
            double const reach = std::min(std::abs(c) > 1e-9 ? width / std::abs(c) : 1e9,
                                          std::abs(s) > 1e-9 ? depth / std::abs(s) : 1e9);
            return point(reach * c, reach * s, z);
        }));
    };
    Soup plate = bored(30, 15, 0, 8, 6);
    Soup foot = bored(12, 12, 0, 20, 4);
    for (auto& p : foot.points)
        p = point(p.X() + 60, p.Y(), p.Z());
    return together({plate, foot});
}

Soup gearWheel(int teeth)
{
    std::vector<std::array<double, 2>> outline;
    for (int i = 0; i < 8 * teeth; ++i) {
        double const angle = 2 * pi * i / (8 * teeth);
        static constexpr double radii[] = {17, 17, 17.3, 19.5, 20, 20, 19.5, 17.3};
        outline.push_back({radii[i % 8] * std::cos(angle), radii[i % 8] * std::sin(angle)});
    }
    return starPrism(outline, 0, 12);
}

Soup screwThread(int turns, int facets)
{
    int const rows = turns * 8 + 1;
    Sheet const sheet(rows, facets, false, true);
    Soup soup = sheet.build([&](int row, int column) {
        double const angle = 2 * pi * column / facets;
        double const phase = row / 8.0 - double(column) / facets;
        double const share = phase - std::floor(phase);
        double const radius = 8 + 1.5 * (1 - std::abs(2 * share - 1));
        return point(radius * std::cos(angle), radius * std::sin(angle), 3.0 * row / 8);
    });
    std::uint32_t const bottom = soup.add(point(0, 0, 0));
    std::uint32_t const top = soup.add(point(0, 0, 3.0 * (rows - 1) / 8));
    for (int i = 0; i < facets; ++i) {
        soup.add(bottom, sheet.indexOf(0, i + 1), sheet.indexOf(0, i));
        soup.add(top, sheet.indexOf(rows - 1, i), sheet.indexOf(rows - 1, i + 1));
    }
    return facingOutward(soup);
}

Soup figureOfEight(int around, int across)
{
    Sheet const sheet(around, across, true, true);
    return facingOutward(sheet.build([&](int row, int column) {
        double const t = 2 * pi * (row + 0.3) / around, u = 2 * pi * column / across;
        // The lemniscate, lifted by less than the tube is wide where it meets itself.
        double const x = 25 * std::sin(t), y = 25 * std::sin(t) * std::cos(t);
        double const dx = std::cos(t), dy = std::cos(2 * t), length = std::hypot(dx, dy);
        double const side = 4 * std::cos(u), up = 4 * std::sin(u);
        return point(x - side * dy / length, y + side * dx / length, up + 2 * std::cos(t));
    }));
}

Soup foldedBlock(int steps)
{
    std::vector<std::array<double, 2>> profile{{-20, 0}, {20, 0}};
    for (int i = 0; i <= steps; ++i) {
        // The upper side as a loop that crosses itself.
        double const t = 1 - 2.0 * i / steps;
        profile.push_back({20 * t - 26 * std::sin(pi * t) * (1 - t * t),
                           12 + 14 * (1 - t * t) * (1 - t * t) + 3 * t});
    }
    int const n = int(profile.size());
    Sheet const sheet(12, n, false, true);
    Soup soup = sheet.build([&](int row, int column) {
        auto const& [x, z] = profile[std::size_t(column)];
        return point(x, -22 + 4.0 * row, z);
    });
    // Fans as ends: they overlap where the outline crosses itself, and close the surface all the
    // same.
    for (int const row : {0, 11})
        for (int i = 1; i + 1 < n; ++i) {
            auto const a = sheet.indexOf(row, 0), b = sheet.indexOf(row, i),
                       c = sheet.indexOf(row, i + 1);
            if (row == 0)
                soup.add(a, c, b);
            else
                soup.add(a, b, c);
        }
    return facingOutward(soup);
}

Soup noisyScan(int rings, int segments, float noise, unsigned seed)
{
    Soup soup = sphere(18, rings, segments);
    std::mt19937 random(seed);
    auto const share = [&] { return 2 * (float(random()) / 4294967296.0f) - 1; };
    for (auto& p : soup.points) {
        // One point in fifteen lies far beside its place, as where a scanner has seen a reflection.
        float const reach = noise * (random() % 15 == 0 ? 6.0f : 1.0f);
        float const x = share(), y = share(), z = share();
        p = {p.X() + reach * x, p.Y() + reach * y, p.Z() + reach * z};
    }
    return soup;
}

Soup moebiusBand(int steps)
{
    Soup soup;
    for (int i = 0; i < steps; ++i) {
        double const t = 2 * pi * i / steps;
        for (double const w : {-6.0, 6.0})
            soup.add(point((20 + w * std::cos(t / 2)) * std::cos(t),
                           (20 + w * std::cos(t / 2)) * std::sin(t), w * std::sin(t / 2)));
    }
    for (int i = 0; i < steps; ++i) {
        auto const a = std::uint32_t(2 * i), b = a + 1;
        bool const isLast = i + 1 == steps;
        std::uint32_t const c = isLast ? 1 : a + 2, d = isLast ? 0 : a + 3;
        soup.add(a, c, d);
        soup.add(a, d, b);
    }
    return soup;
}

Soup boxWithOpenings(std::vector<float> const& heights)
{
    Soup soup = box(40, 40, 40);
    // The right side anew, as a grid of cells with some left out.
    std::erase_if(soup.triangles, [&](auto const& t) {
        return std::all_of(t.begin(), t.end(), [&](auto i) { return soup.points[i].X() == 40; });
    });
    Sheet const sheet(21, 21, false, false);
    Soup side = sheet.build([](int row, int column) { return point(40, 2 * column, 2 * row); });
    std::erase_if(side.triangles, [&](auto const& t) {
        return std::any_of(heights.begin(), heights.end(), [&](float height) {
            return std::all_of(t.begin(), t.end(), [&](auto i) {
                auto const& p = side.points[i];
                return std::abs(p.Z() - height) <= 3 && std::abs(p.Y() - 20) <= 4;
            });
        });
    });
    soup.append(side);
    // The other sides are fans over all points of the border that they share with the grid.
    std::vector<std::array<std::uint32_t, 3>> const triangles = std::move(soup.triangles);
    soup.triangles.clear();
    for (auto const& t : triangles) {
        std::size_t split = 3;
        for (std::size_t i = 0; i < 3; ++i)
            if (soup.points[t[i]].X() == 40 && soup.points[t[(i + 1) % 3]].X() == 40 &&
                soup.points[t[(i + 2) % 3]].X() != 40)
                split = i;
        if (split == 3) {
            soup.triangles.push_back(t);
            continue;
        }
        UPoint3<float> const from = soup.points[t[split]], to = soup.points[t[(split + 1) % 3]];
        std::uint32_t last = t[split];
        for (int i = 1; i <= 20; ++i) {
            double const share = i / 20.0;
            std::uint32_t const next = soup.add(point(40, from.Y() + share * (to.Y() - from.Y()),
                                                      from.Z() + share * (to.Z() - from.Z())));
            soup.add(last, next, t[(split + 2) % 3]);
            last = next;
        }
    }
    soup.joinPoints();
    return soup;
}

Soup withDuplicates(Soup soup, std::size_t every)
{
    std::size_t const count = soup.triangles.size();
    for (std::size_t i = 0; i < count; i += every) {
        auto const t = soup.triangles[i];
        soup.add(t[1], t[2], t[0]);
    }
    return soup;
}

Soup withFlipped(Soup soup, std::size_t every)
{
    for (std::size_t i = 0; i < soup.triangles.size(); i += every)
        std::swap(soup.triangles[i][1], soup.triangles[i][2]);
    return soup;
}

Soup manyShells(std::size_t count)
{
    Soup soup;
    auto const side = std::size_t(std::ceil(std::cbrt(double(count))));
    for (std::size_t i = 0; i < count; ++i) {
        auto const x = float(i % side), y = float(i / side % side), z = float(i / side / side);
        std::uint32_t const a = soup.add({x, y, z}), b = soup.add({x + 0.75f, y, z});
        std::uint32_t const c = soup.add({x, y + 0.75f, z}), d = soup.add({x, y, z + 0.75f});
        soup.add(a, c, b);
        soup.add(a, b, d);
        soup.add(b, c, d);
        soup.add(c, a, d);
    }
    return soup;
}

std::vector<Part> parts()
{
    std::vector<Part> list;
    addClean(list);
    addOverlapping(list);
    addNested(list);
    addTouching(list);
    addCoincident(list);
    addInsideOut(list);
    addSelfCrossing(list);
    addCrowded(list);
    addDisordered(list);
    addOpen(list);
    addExtremes(list);
    return list;
}

std::vector<Part> heavyParts()
{
    return {{"many shells", "shells-100000", manyShells(100000)},
            {"high genus", "gyroid-5", gyroidBlock(5, 10)},
            {"high genus", "lattice-8", lattice(8)}};
}

}  // namespace corpus
