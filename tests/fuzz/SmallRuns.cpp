// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/fuzz/SmallRuns.h"

#include "tests/fuzz/FuzzFiles.h"
#include "tests/fuzz/QuickField.h"
#include "tests/support/BooleanRuns.h"
#include "tests/support/SmallParts.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <exception>
#include <iterator>

namespace {

/// How near to a surface points are judged: some ten times what rounding moves it.
constexpr double margin = 1e-5;
constexpr std::size_t samples = 16;

using Point = UPoint3<double>;

double between(double low, double high, std::mt19937& random)
{
    return low + (high - low) * (double(random()) / 4294967296.0);
}

/// A point on one side or the other of a triangle, well inside it.
Point pointBeside(Soup const& soup, std::mt19937& random)
{
    auto const& t = soup.triangles[random() % soup.triangles.size()];
    Point p[3];
    for (std::size_t k = 0; k < 3; ++k) {
        auto const& q = soup.points[t[k]];
        p[k] = {q.X(), q.Y(), q.Z()};
    }
    double u = between(0.02, 0.98, random), v = between(0.02, 0.98, random);
    if (u + v > 1)
        u = 1 - u, v = 1 - v;
    UVector3<double> normal = (p[1] - p[0]) * (p[2] - p[0]);
    normal.Normalize();
    return p[0] + (p[1] - p[0]) * u + (p[2] - p[0]) * v +
           normal * (random() % 2 ? 5 * margin : -5 * margin);
}

/// The most triangles at an edge, and whether as many run one way as the other; corners at one place
/// are one.
struct Edges
{
    explicit Edges(Soup soup)
    {
        soup.joinPoints();
        std::vector<std::pair<std::uint64_t, int>> uses;
        for (auto const& t : soup.triangles)
            for (std::size_t k = 0; k < 3; ++k) {
                auto const [low, high] = std::minmax(t[k], t[(k + 1) % 3]);
                uses.emplace_back(std::uint64_t(low) << 32 | high, low == t[k] ? 1 : -1);
            }
        std::sort(uses.begin(), uses.end());
        for (std::size_t begin = 0, end = 0; begin < uses.size(); begin = end) {
            int balance = 0;
            for (; end < uses.size() && uses[end].first == uses[begin].first; ++end)
                balance += uses[end].second;
            isClosed &= balance == 0;
            most = std::max(most, end - begin);
        }
    }
    bool isClosed = true;
    std::size_t most = 0;
};

/// Whether a part winds below zero somewhere beside its triangles: what the pieces should be then,
/// nobody says.
bool windsBelowZero(Soup const& part, std::mt19937& random)
{
    QuickField const field(part, margin);
    for (std::size_t i = 0; i < 4 * part.triangles.size(); ++i)
        if (field.windingAt(pointBeside(part, random)).value_or(0) < 0)
            return true;
    return false;
}

struct Operands
{
    Soup part;
    Soup tool;
};

std::string faultAt(Point const& p, std::string const& what)
{
    char text[160];
    std::snprintf(text, sizeof text, "%s at (%.7g, %.7g, %.7g)", what.c_str(), p.X(), p.Y(), p.Z());
    return text;
}

std::string faultsOf(Operands const& operands, std::vector<Soup> const& pieces,
                     judge::Combination combination, std::mt19937& random, unsigned long& points)
{
    for (Soup const& piece : pieces)
        if (!Edges(piece).isClosed)
            return "a piece is open";
    QuickField const part(operands.part, margin), tool(operands.tool, margin);
    std::vector<QuickField> fields;
    std::vector<Soup const*> surfaces{&operands.part, &operands.tool};
    for (Soup const& piece : pieces) {
        fields.emplace_back(piece, margin);
        if (!piece.triangles.empty())
            surfaces.push_back(&piece);
    }
    for (std::size_t i = 0; i < samples; ++i) {
        Point const p = pointBeside(*surfaces[i % surfaces.size()], random);
        auto const ofPart = part.windingAt(p), ofTool = ofPart ? tool.windingAt(p) : ofPart;
        // Beside a wall inside another body the rule speaks of points as well.
        if (!ofPart || !ofTool || *ofPart < 0)
            continue;
        judge::Expected const expected = judge::combined(combination, *ofPart, *ofTool > 0);
        for (std::size_t k = 0; k < pieces.size(); ++k) {
            auto const winding = fields[k].windingAt(p);
            if (!winding)
                continue;
            ++points;
            auto const [low, high] = expected.pieces[k];
            if (*winding < low || *winding > high)
                return faultAt(p, "a piece winds " + std::to_string(*winding) +
                                      " times, the part " + std::to_string(*ofPart) +
                                      ", the tool " + std::to_string(*ofTool));
        }
    }
    return {};
}

std::vector<Soup> combine(Operands const& operands, judge::Combination combination)
{
    auto const& [part, tool] = operands;
    switch (combination) {
        case judge::Combination::Union:
            return {combined(part, tool, Intersect::BOOLEAN_UNION)};
        case judge::Combination::Intersection:
            return {combined(part, tool, Intersect::BOOLEAN_INTERSECT)};
        case judge::Combination::Difference:
            return {combined(part, tool, Intersect::BOOLEAN_SUBTRACT)};
        case judge::Combination::Split:
            break;
    }
    auto [within, outside] = split(part, tool);
    return {std::move(within), std::move(outside)};
}

void report(unsigned seed, Operands const& operands, std::string const& name,
            std::string const& faults)
{
    std::string const file = "fuzz-small-" + std::to_string(seed);
    writeFuzzStl(file + "-a.stl", operands.part);
    writeFuzzStl(file + "-b.stl", operands.tool);
    std::printf(
        "small, seed %u, %s: %s\n  operands of %zu and %zu triangles in %s-a.stl and -b.stl\n",
        seed, name.c_str(), faults.c_str(), operands.part.triangles.size(),
        operands.tool.triangles.size(), file.c_str());
    std::fflush(stdout);
}

}  // namespace

bool SmallRuns::run(unsigned seed)
{
    static constexpr char const* names[] = {"union", "intersection", "difference", "split"};
    std::mt19937 random(seed);
    Operands operands{randomSmallPart(random), randomSmallPart(random)};
    while (windsBelowZero(operands.part, random))
        operands.part = randomSmallPart(random);
    unsigned const which = unsigned(random() % 4);
    auto const combination = judge::Combination(which);
    std::string faults;
    try {
        ++m_operations;
        faults = faultsOf(operands, combine(operands, combination), combination, random, m_points);
    } catch (Mell::Exception const& refusal) {
        std::string sentence = refusal.what();
        // Places differ from one to the next.
        sentence.erase(std::min(sentence.size(), sentence.find('(')));
        ++m_refusals[sentence];
    } catch (std::exception const& failure) {
        faults = std::string("thrown: ") + failure.what();
    }
    if (faults.empty())
        return true;
    report(seed, operands, names[which], faults);
    return false;
}

void SmallRuns::printCounts() const
{
    std::printf("  %lu winding numbers of pieces\n", m_points);
    for (auto const& [sentence, count] : m_refusals)
        std::printf("  %9lu refused: %s...\n", count, sentence.c_str());
}
