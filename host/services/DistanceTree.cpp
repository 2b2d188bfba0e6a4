// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/DistanceTree.h"

#include "host/memory/HugePages.h"
#include "host/services/Lanes.h"
#include "host/services/TriangleDistance.h"

#include <tbb/blocked_range.h>
#include <tbb/parallel_for.h>
#include <tbb/parallel_invoke.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>

namespace {

using Point = MeshArrays::Point;
using Range = tbb::blocked_range<std::size_t>;

/// Below this many triangles a part of the tree is built by one thread.
constexpr std::size_t grain = 8192;

/// The centre of a triangle's box and its place in the mesh.
struct Entry
{
    float centre[3];
    std::uint32_t triangle;
};

bool isFinite(Point const& p)
{
    return std::isfinite(p.X()) && std::isfinite(p.Y()) && std::isfinite(p.Z());
}

/// Reserves fresh memory, which is used at random later on.
template <typename Item>
void reserve(std::vector<Item>& list, std::size_t size)
{
    list.reserve(size);
    preferHugePages(list.data(), size * sizeof(Item));
}

/// How many levels have boxes along their patch: those of up to 4096 triangles.
constexpr std::size_t flatLevels = 6;

/// The coordinates of a point along the axes of a frame.
FloatLanes placeIn(float const (&frame)[3][4], Point const& p)
{
    return loadFloats(frame[0]) * p.X() + loadFloats(frame[1]) * p.Y() +
           loadFloats(frame[2]) * p.Z();
}

/// A float that is not below a value.
float floatAbove(double value)
{
    return float(std::min(value * (1 + 1e-7), double(std::numeric_limits<float>::infinity())));
}

/// More than rounding can change a coordinate in a frame.
float roundingOf(Point const& p)
{
    return 4e-7f * (std::abs(p.X()) + std::abs(p.Y()) + std::abs(p.Z()));
}

/// Sets a frame whose last axis is a normal; that of the coordinates if there is no normal.
void setFrame(float (&frame)[3][4], UVector3<float> const& normal)
{
    UVector3<double> axes[3] = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
    UVector3<double> unit(normal.X(), normal.Y(), normal.Z());
    unit.Normalize();
    if (double const length = unit.GetLength(); length > 0.5 && length < 2) {
        // The axis that lies most along the surface, brought into it.
        int most = 0;
        for (int axis = 1; axis < 3; ++axis)
            if (std::abs(unit[axis]) < std::abs(unit[most]))
                most = axis;
        axes[0] = axes[most] - unit * unit[most];
        axes[0].Normalize();
        axes[1] = unit * axes[0];
        axes[2] = unit;
    }
    for (int row = 0; row < 3; ++row)
        for (int axis = 0; axis < 3; ++axis)
            frame[axis][row] = float(axes[row][axis]);
}

std::vector<Entry> entriesOf(MeshArrays const& mesh)
{
    std::vector<Entry> entries;
    reserve(entries, mesh.triangles.size());
    for (std::uint32_t t = 0; t < mesh.triangles.size(); ++t) {
        Point const& a = mesh.point(t, 0);
        Point const& b = mesh.point(t, 1);
        Point const& c = mesh.point(t, 2);
        if (!isFinite(a) || !isFinite(b) || !isFinite(c))
            continue;
        Entry entry{{}, t};
        for (int axis = 0; axis < 3; ++axis)
            // Halved first, so that the sum stays finite.
            entry.centre[axis] = std::min({a[axis], b[axis], c[axis]}) * 0.5f +
                                 std::max({a[axis], b[axis], c[axis]}) * 0.5f;
        entries.push_back(entry);
    }
    return entries;
}

/// Orders entries so that every run of 4, 16, 64 ... lies close together.
class Sorter
{
public:
    Sorter(std::vector<Entry>& entries, StageProgress& progress)
        : m_entries(entries), m_progress(progress)
    {}

    /// Sorts a run that is to become four children of `capacity` entries each, the last ones with
    /// less where there are too few.
    void sort(std::size_t begin, std::size_t end, std::size_t capacity)
    {
        if (capacity == 1 || begin == end || !m_progress.add(end - begin))
            return;
        std::size_t const middle = std::min(end, begin + 2 * capacity);
        split(begin, middle, end);
        auto const sortHalf = [=, this](std::size_t from, std::size_t to) {
            std::size_t const border = std::min(to, from + capacity);
            split(from, border, to);
            both(
                to - from, [=, this] { sort(from, border, capacity / 4); },
                [=, this] { sort(border, to, capacity / 4); });
        };
        both(
            end - begin, [&] { sortHalf(begin, middle); }, [&] { sortHalf(middle, end); });
    }

private:
    template <typename First, typename Second>
    static void both(std::size_t size, First const& first, Second const& second)
    {
        if (size > grain) {
            tbb::parallel_invoke(first, second);
            return;
        }
        first();
        second();
    }

    /// Brings the entries that are lowest along the longest side before `border`.
    void split(std::size_t begin, std::size_t border, std::size_t end)
    {
        if (border == end)
            return;
        auto const at = [&](std::size_t i) { return m_entries.begin() + std::ptrdiff_t(i); };
        switch (longestSide(begin, end)) {
            case 0:
                return std::nth_element(at(begin), at(border), at(end), isLower<0>);
            case 1:
                return std::nth_element(at(begin), at(border), at(end), isLower<1>);
            default:
                return std::nth_element(at(begin), at(border), at(end), isLower<2>);
        }
    }

    template <int axis>
    static bool isLower(Entry const& a, Entry const& b)
    {
        return a.centre[axis] < b.centre[axis];
    }

    int longestSide(std::size_t begin, std::size_t end) const
    {
        // The fourth lane is the place in the mesh, which is not looked at.
        FloatLanes low = loadFloats(m_entries[begin].centre);
        FloatLanes high = low;
        for (std::size_t i = begin + 1; i < end; ++i) {
            FloatLanes const centre = loadFloats(m_entries[i].centre);
            low = smallerLanes(low, centre);
            high = largerLanes(high, centre);
        }
        int longest = 0;
        for (int axis = 1; axis < 3; ++axis)
            if (high[axis] - low[axis] > high[longest] - low[longest])
                longest = axis;
        return longest;
    }

    std::vector<Entry>& m_entries;
    StageProgress& m_progress;
};

}  // namespace

DistanceTree::DistanceTree(MeshArrays const& mesh, StageProgress& progress)
{
    std::vector<Entry> entries = entriesOf(mesh);
    progress.add(0);
    if (entries.empty())
        return;
    std::size_t capacity = 1;
    std::size_t rounds = 1;
    for (; width * capacity < entries.size(); capacity *= width)
        ++rounds;
    progress.setAmount(rounds * entries.size());
    Sorter(entries, progress).sort(0, entries.size(), capacity);
    reserve(m_triangles, entries.size());
    m_triangles.resize(entries.size());
    std::vector<Patch> patches;
    reserve(patches, entries.size());
    patches.resize(entries.size());
    tbb::parallel_for(Range(0, entries.size(), grain), [&](Range const& range) {
        for (std::size_t i = range.begin(); i != range.end(); ++i) {
            for (int k = 0; k < 3; ++k)
                m_triangles[i][k] = mesh.point(entries[i].triangle, k);
            patches[i] = patchOf(m_triangles[i]);
        }
        progress.add(0);
    });
    for (addLevel(patches); m_levels.back().nodes.size() > 1; addLevel(patches)) {
        progress.add(0);
        for (std::size_t i = 0; i < patches.size(); ++i)
            if (i % width == 0)
                patches[i / width] = patches[i];
            else
                patches[i / width].add(patches[i]);
        patches.resize(m_levels.back().nodes.size());
    }
}

void DistanceTree::Patch::add(Patch const& other)
{
    for (int axis = 0; axis < 3; ++axis) {
        low[axis] = std::min(low[axis], other.low[axis]);
        high[axis] = std::max(high[axis], other.high[axis]);
    }
    normal += other.normal;
}

DistanceTree::Patch DistanceTree::patchOf(std::array<Point, 3> const& triangle)
{
    Patch patch{triangle[0], triangle[0], {}};
    patch.add({triangle[1], triangle[1], {}});
    patch.add({triangle[2], triangle[2], {}});
    patch.normal = (triangle[1] - triangle[0]) * (triangle[2] - triangle[0]);
    return patch;
}

void DistanceTree::addLevel(std::vector<Patch> const& patches)
{
    Level& level = m_levels.emplace_back();
    level.children = patches.size();
    std::size_t const nodes = (level.children + width - 1) / width;
    reserve(level.nodes, nodes);
    level.nodes.resize(nodes);
    tbb::parallel_for(Range(0, level.nodes.size(), 256), [&](Range const& range) {
        for (std::size_t i = range.begin(); i != range.end(); ++i)
            fillNode(level.nodes[i], i, patches);
    });
}

void DistanceTree::fillNode(Node& node, std::size_t place, std::vector<Patch> const& patches) const
{
    std::size_t const first = place * width;
    int const count = int(std::min<std::size_t>(width, patches.size() - first));
    bool const isFlat = m_levels.size() <= flatLevels;
    UVector3<float> normal;
    for (int i = 0; i < count; ++i)
        normal += patches[first + std::size_t(i)].normal;
    setFrame(node.frame, isFlat ? normal : UVector3<float>());
    // Places that are left over repeat the first one.
    for (int i = 0; i < width; ++i) {
        std::size_t const child = first + std::size_t(i < count ? i : 0);
        if (isFlat) {
            std::size_t const span = std::size_t(1) << 2 * (m_levels.size() - 1);
            fillChild(node, i, child * span, std::min((child + 1) * span, m_triangles.size()));
            continue;
        }
        for (int axis = 0; axis < 3; ++axis) {
            node.low[axis][i] = patches[child].low[axis];
            node.high[axis][i] = patches[child].high[axis];
        }
    }
}

/// The box of some triangles in the frame of a node.
void DistanceTree::fillChild(Node& node, int child, std::size_t begin, std::size_t end) const
{
    FloatLanes low = FloatLanes{} + std::numeric_limits<float>::infinity();
    FloatLanes high = -low;
    float slack = 0;
    for (std::size_t t = begin; t < end; ++t)
        for (Point const& corner : m_triangles[t]) {
            slack = std::max(slack, roundingOf(corner));
            FloatLanes const place = placeIn(node.frame, corner);
            low = smallerLanes(place, low);
            high = largerLanes(place, high);
        }
    for (int axis = 0; axis < 3; ++axis) {
        node.low[axis][child] = low[axis] - slack;
        node.high[axis][child] = high[axis] + slack;
    }
}

/// Fetches what a child needs while others are looked at.
inline void DistanceTree::prefetch(std::uint32_t child, int level) const
{
    if (level < 0) {
        __builtin_prefetch(&m_triangles[child]);
        return;
    }
    char const* const node = reinterpret_cast<char const*>(&m_levels[level].nodes[child]);
    for (std::size_t line = 0; line < sizeof(Node); line += 64)
        __builtin_prefetch(node + line);
}

/// A point, and the square of the distance from what is nearest so far.
struct DistanceTree::Search
{
    Point point;
    TriangleDistance::Point exact;
    FloatLanes slack;
    double nearest;
    /// Not below `nearest`.
    FloatLanes limit;

    explicit Search(Point const& p)
        : point(p), exact(TriangleDistance::widened(p)), slack(FloatLanes{} + roundingOf(p))
    {
        setNearest(std::numeric_limits<double>::infinity());
    }
    void setNearest(double square)
    {
        nearest = square;
        limit = FloatLanes{} + floatAbove(square);
    }
};

/// Fills in the children of a node that are not certainly farther than the nearest triangle,
/// farthest first, and returns their number.
inline int DistanceTree::candidates(Search const& search, std::uint32_t node, int level,
                                    Candidate* found) const
{
    Node const& boxes = m_levels[level].nodes[node];
    FloatLanes const place = placeIn(boxes.frame, search.point);
    FloatLanes squares = {};
    for (int axis = 0; axis < 3; ++axis) {
        FloatLanes const beside = largerLanes(loadFloats(boxes.low[axis]) - place[axis],
                                              place[axis] - loadFloats(boxes.high[axis]));
        FloatLanes const outside = largerLanes(beside - search.slack, FloatLanes{});
        squares += outside * outside;
    }
    // A frame of floats stretches, and rounding makes a square too large, by less than this; beyond
    // the range of float a square says no more than that.
    squares *= 1 - 2e-6f;
    squares = smallerLanes(squares, FloatLanes{} + std::numeric_limits<float>::max());
    int count = 0;
    for (auto nearer = bitsOf(squares < search.limit); nearer != 0; nearer &= nearer - 1) {
        int const i = std::countr_zero(nearer);
        std::uint32_t const child = node * width + std::uint32_t(i);
        if (child >= m_levels[level].children)
            break;
        prefetch(child, level - 1);
        int k = count++;
        for (; k > 0 && found[k - 1].bound < squares[i]; --k)
            found[k] = found[k - 1];
        found[k] = {squares[i], child, level - 1};
    }
    return count;
}

double DistanceTree::squaredDistance(Point const& point) const
{
    Search search(point);
    if (m_levels.empty() || !isFinite(point))
        return search.nearest;
    Candidate open[maximumLevels * (width - 1) + width];
    int count = candidates(search, 0, int(m_levels.size()) - 1, open);
    while (count > 0) {
        Candidate const next = open[--count];
        if (next.bound >= search.nearest)
            continue;
        if (next.level >= 0) {
            count += candidates(search, next.place, next.level, open + count);
            continue;
        }
        double const square =
            TriangleDistance::squaredToTriangle(search.exact, m_triangles[next.place]);
        if (square < search.nearest)
            search.setNearest(square);
    }
    return search.nearest;
}
