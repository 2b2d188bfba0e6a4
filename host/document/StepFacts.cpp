// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/document/StepFacts.h"

#include "host/document/History.h"
#include "platform/document/CutMemory.h"
#include "platform/document/MeshDocumentObject.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace Base {

namespace {

using Vector = UVector3<double>;

/// Placements are floats, and turns products of several.
constexpr double sameLinear = 1e-5;
constexpr double sameLength = 1e-3;

/// The rows of the linear part that takes parts from where they were to where they are, and what it
/// leaves of the way.
struct Placing
{
    Vector rows[3];
    Vector way;
};

Vector rowOf(UMatrix4<float> const& matrix, int row)
{
    return {matrix(row, 0), matrix(row, 1), matrix(row, 2)};
}

/// The linear parts of both, the second after the inverse of the first.
Placing placingOf(UMatrix4<float> const& before, UMatrix4<float> const& after)
{
    Vector const a = rowOf(before, 0), b = rowOf(before, 1), c = rowOf(before, 2);
    double const volume = a | (b * c);
    // The columns of the inverse.
    Vector const inverse[3] = {(b * c) * (1 / volume), (c * a) * (1 / volume),
                               (a * b) * (1 / volume)};
    Placing placing;
    for (int i = 0; i < 3; ++i) {
        for (int j = 0; j < 3; ++j)
            placing.rows[i][j] = rowOf(after, i) | inverse[j];
        placing.way[i] = double(after(i, 3)) - double(before(i, 3));
    }
    return placing;
}

bool isSameTurn(Placing const& a, Placing const& b)
{
    for (int i = 0; i < 3; ++i)
        if (!((a.rows[i] - b.rows[i]).GetLength() < sameLinear))
            return false;
    return true;
}

bool isDiagonal(Placing const& placing)
{
    for (int i = 0; i < 3; ++i)
        for (int j = 0; j < 3; ++j)
            if (i != j && !(std::abs(placing.rows[i][j]) < sameLinear))
                return false;
    return true;
}

/// By the angle's cosine and sine.
std::optional<StepFacts::Turn> turnOf(Placing const& placing)
{
    Vector const* const r = placing.rows;
    for (int i = 0; i < 3; ++i)
        for (int j = 0; j < 3; ++j)
            if (!(std::abs((r[i] | r[j]) - (i == j ? 1 : 0)) < sameLinear))
                return {};
    if ((r[0] | (r[1] * r[2])) < 0)
        return {};
    Vector const twice(r[2][1] - r[1][2], r[0][2] - r[2][0], r[1][0] - r[0][1]);
    double const sine = twice.GetLength() / 2;
    double const cosine = (r[0][0] + r[1][1] + r[2][2] - 1) / 2;
    StepFacts::Turn turn{twice, std::atan2(sine, cosine) * 180 / std::numbers::pi};
    // A half turn has no such axis; the longest column of the matrix plus one is along it.
    if (sine < sameLinear) {
        int longest = 0;
        for (int i = 1; i < 3; ++i)
            if (r[i][i] > r[longest][longest])
                longest = i;
        turn.axis = r[longest];
        turn.axis[longest] += 1;
    }
    double const length = turn.axis.GetLength();
    if (length == 0)
        return {};
    turn.axis = turn.axis * (1 / length);
    return turn;
}

/// One of a step's changes and the part that it is of.
struct Change
{
    ObjectChange const* change;
    Mesh::DocumentObject const* part;

    bool isRemoved() const { return change->present && *change->present; }
    bool isAdded() const { return change->present && !*change->present; }
    std::string nameBefore() const { return change->name.value_or(part->getName()); }
};

/// That of one part, if nothing but its placement has changed there.
std::optional<Placing> placingOf(Change const& changed)
{
    auto const& kernel = changed.part->meshProperty->shareMesh();
    for (auto const& [placed, before] : changed.change->matrices)
        if (placed == kernel && !changed.change->kernel)
            return placingOf(before, kernel->getMatrix());
    return {};
}

void tellPlacing(StepFacts& facts, std::vector<Change> const& changed)
{
    auto const first = changed.empty() ? std::nullopt : placingOf(changed[0]);
    if (!first)
        return;
    bool isOneWay = true;
    for (Change const& each : changed) {
        auto const placing = placingOf(each);
        if (!placing || !isSameTurn(*placing, *first))
            return;
        isOneWay = isOneWay && (placing->way - first->way).GetLength() < sameLength;
    }
    Placing const still{{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}, {}};
    Vector const diagonal(first->rows[0][0], first->rows[1][1], first->rows[2][2]);
    if (isSameTurn(*first, still)) {
        if (isOneWay)
            facts.moved = first->way;
    } else if (isDiagonal(*first) && diagonal[0] > 0 && diagonal[1] > 0 && diagonal[2] > 0) {
        facts.scaled = diagonal;
    } else {
        facts.turned = turnOf(*first);
    }
}

void addHeight(std::vector<double>& heights, double height)
{
    auto const isNear = [&](double other) { return std::abs(other - height) < sameLength; };
    if (std::none_of(heights.begin(), heights.end(), isNear))
        heights.push_back(height);
}

std::vector<double> heightsOf(std::vector<Change> const& parts)
{
    std::vector<double> heights;
    for (Change const& each : parts)
        for (Mesh::CutFace const& face : Mesh::cutMemoryOf(*each.part).faces)
            if (std::abs(std::abs(face.normal[2]) - 1) < 1e-9)
                addHeight(heights, face.distance / face.normal[2]);
    return heights;
}

/// Those of the pieces that the parts they come from had not.
void tellHeights(StepFacts& facts, std::vector<Change> const& sources,
                 std::vector<Change> const& pieces)
{
    std::vector<double> known = heightsOf(sources);
    std::size_t const before = known.size();
    for (double const height : heightsOf(pieces))
        addHeight(known, height);
    facts.heights.assign(known.begin() + std::ptrdiff_t(before), known.end());
    std::sort(facts.heights.begin(), facts.heights.end());
}

}  // namespace

StepFacts factsOf(Transaction const& step)
{
    StepFacts facts;
    facts.name = step.name;
    std::vector<Change> removed, changed, added;
    for (auto const& [key, change] : step.changes) {
        auto const* const part =
            dynamic_cast<Mesh::DocumentObject const*>(change.entry->object.get());
        if (!part)
            continue;
        Change const each{&change, part};
        (each.isRemoved() ? removed : each.isAdded() ? added : changed).push_back(each);
    }
    std::vector<Change> subjects = removed;
    // What took others in, as in a merge, is one of those that were merged.
    if (added.empty())
        subjects.insert(subjects.begin(), changed.begin(), changed.end());
    if (subjects.empty())
        subjects = changed.empty() ? added : changed;
    for (Change const& each : subjects)
        facts.parts.push_back(each.nameBefore());
    if (removed.empty() && changed.size() == 1 && changed[0].change->name)
        facts.renamed = changed[0].part->getName();
    if (removed.empty() && added.empty())
        tellPlacing(facts, changed);
    if (!removed.empty() && !added.empty())
        tellHeights(facts, removed, added);
    return facts;
}

std::vector<StepFacts> stepFacts(Document const& document)
{
    return History::of(document).facts();
}

}  // namespace Base
