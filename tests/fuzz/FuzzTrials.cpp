// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/fuzz/FuzzTrials.h"

#include "connectors/LapJointCutter.h"
#include "connectors/PinHoleCutter.h"
#include "platform/services/Intersect.h"
#include "platform/services/Repair.h"
#include "tests/fuzz/FuzzFiles.h"
#include "tests/fuzz/FuzzParts.h"
#include "tests/support/BooleanRuns.h"
#include "tests/support/PieceRules.h"
#include "tests/support/RandomSolids.h"
#include "tests/support/TestDocument.h"
#include "tools/PlaneGraphicObject.h"
#include "tools/PrismMesh.h"

#include <cmath>
#include <exception>
#include <functional>
#include <memory>
#include <numbers>

namespace {

using Point = UPoint3<double>;
using Vector = UVector3<double>;

constexpr std::size_t samples = 10;

std::string inputName;

double between(double low, double high, std::mt19937& random)
{
    return low + (high - low) * (double(random()) / 4294967296.0);
}

/// Runs and judges; an expected failure is a refusal, if it says why.
void carryOut(FuzzTrial& trial, judge::Source const& part, judge::Rule const& rule,
              std::function<void()> const& run)
{
    if (!inputName.empty()) {
        writeFuzzStl(inputName + "-a.stl", part.soup());
        if (!trial.tool.triangles.empty())
            writeFuzzStl(inputName + "-b.stl", trial.tool);
    }
    try {
        run();
    } catch (Mell::Exception const& failure) {
        trial.isRefused = true;
        if (std::string(failure.what()).find(' ') == std::string::npos)
            trial.faults = "refused without a sentence";
        return;
    } catch (std::exception const& failure) {
        trial.faults = std::string("thrown: ") + failure.what();
        return;
    }
    judge::PieceFaults const faults = judge::faultsOf(part, trial.pieces, rule, samples);
    trial.faults = faults.wrong + faults.open;
}

/// Two unit vectors across a plane, along the axes or in any direction.
std::pair<Vector, Vector> randomSpan(std::mt19937& random)
{
    if (random() % 2) {
        int const axis = int(random() % 3);
        Vector u, v;
        (axis == 0 ? u.Y() : axis == 1 ? u.Z() : u.X()) = 1;
        (axis == 0 ? v.Z() : axis == 1 ? v.X() : v.Y()) = 1;
        return {u, v};
    }
    Vector u(between(-1, 1, random), between(-1, 1, random), between(0.1, 1, random));
    u.Normalize();
    Vector v = u * Vector(between(0.2, 1, random), between(-1, -0.1, random), 0.3);
    v.Normalize();
    return {u, v};
}

/// A plane through a point of the part's grid, as its four corners are in float.
struct CutPlane
{
    UPoint3<float> corners[4];
    judge::Plane plane;

    CutPlane(judge::Source const& part, std::mt19937& random)
    {
        auto const& points = part.soup().points;
        UPoint3<float> const through = points[random() % points.size()];
        bool const isShifted = random() % 2;
        Point centre;
        for (int k = 0; k < 3; ++k)
            centre[k] = double(through[k]) + (isShifted ? between(-2, 2, random) : 0);
        auto const [u, v] = randomSpan(random);
        double const size = 4 * part.diagonal();
        for (int i = 0; i < 4; ++i) {
            Point const p =
                centre + u * (i == 1 || i == 2 ? size : -size) + v * (i > 1 ? size : -size);
            corners[i] = {float(p.X()), float(p.Y()), float(p.Z())};
        }
        Point const wide[3] = {at(0), at(1), at(2)};
        Vector normal = (wide[1] - wide[0]) * (wide[2] - wide[0]);
        normal.Normalize();
        plane = {wide[0], normal};
    }

    Soup soup() const
    {
        Soup soup;
        for (auto const& corner : corners)
            soup.add(corner);
        soup.add(0, 1, 2);
        soup.add(0, 2, 3);
        return soup;
    }

private:
    Point at(int i) const { return {corners[i].X(), corners[i].Y(), corners[i].Z()}; }
};

FuzzTrial cutByPlane(judge::Source const& part, std::mt19937& random)
{
    CutPlane const plane(part, random);
    FuzzTrial trial{.operation = "cut by the plane of the second file", .tool = plane.soup()};
    carryOut(trial, part, judge::planeRule(plane.plane, part.margin()), [&] {
        MeshKernel sideA, sideB, section;
        Intersect::cutByPlane(kernelOf(part.soup()).get(), kernelOf(trial.tool).get(), &sideA,
                              &sideB, &section, {}, true);
        trial.pieces = {soupOf(sideA), soupOf(sideB)};
    });
    return trial;
}

FuzzTrial combine(judge::Source const& part, Soup tool, judge::Combination combination,
                  std::string const& name)
{
    FuzzTrial trial{.operation = name, .tool = std::move(tool)};
    carryOut(trial, part, judge::combinationRule(trial.tool, combination, part.margin()), [&] {
        if (combination == judge::Combination::Split) {
            auto [within, outside] = split(part.soup(), trial.tool);
            trial.pieces = {std::move(within), std::move(outside)};
        } else {
            trial.pieces = {combined(
                part.soup(), trial.tool,
                combination == judge::Combination::Union          ? Intersect::BOOLEAN_UNION
                : combination == judge::Combination::Intersection ? Intersect::BOOLEAN_INTERSECT
                                                                  : Intersect::BOOLEAN_SUBTRACT)};
        }
    });
    return trial;
}

/// Of two parts, either of which may be broken.
FuzzTrial combineAny(judge::Source const& part, std::mt19937& random)
{
    static constexpr char const* names[] = {"union", "intersection", "difference", "split"};
    unsigned const which = unsigned(random() % 4);
    return combine(part, randomBrokenPart(random, false), judge::Combination(which), names[which]);
}

/// The part itself, moved a little.
FuzzTrial combineWithNearCopy(judge::Source const& part, std::mt19937& random)
{
    static constexpr float steps[] = {0, 1e-7f, 1e-6f, 1e-5f, 1e-3f};
    float const step = steps[random() % 5];
    Soup copy = part.soup();
    for (auto& p : copy.points)
        p = {p.X() + step, p.Y() - step / 2, p.Z()};
    bool const doesSplit = random() % 2;
    return combine(part, copy,
                   doesSplit ? judge::Combination::Split : judge::Combination::Difference,
                   doesSplit ? "split by a near copy" : "less a near copy");
}

FuzzTrial splitByPrism(judge::Source const& part, std::mt19937& random)
{
    unsigned const corners = 3 + random() % 6;
    float const low = random() % 2 ? -9.0f : 1.0f;
    Freecut::Ring top, bottom;
    for (unsigned i = 0; i < corners; ++i) {
        double const angle = 2 * std::numbers::pi * i / corners;
        double const radius = between(0.5, 3, random);
        auto const x = float(2 + radius * std::cos(angle));
        auto const y = float(2 + radius * std::sin(angle));
        top.emplace_back(x, y, 9.0f);
        bottom.emplace_back(x, y, low);
    }
    auto* const mesh = new UMesh<float>;
    MeshKernel const prism(mesh);
    Freecut::fillWithPrisms(*mesh, {top}, {bottom}, {0, 0, 1});
    return combine(part, soupOf(prism), judge::Combination::Split, "split by a prism");
}

std::unique_ptr<Freecut::PlaneGraphicObject> planeObject(CutPlane const& plane)
{
    auto object = std::make_unique<Freecut::PlaneGraphicObject>();
    auto const& c = plane.corners;
    UPoint3<float> const centre = c[0] + (c[2] - c[0]) * 0.5f;
    object->getProperty().setKeyPoints({centre, c[0], c[1], c[2], c[3]});
    return object;
}

template <typename Cutter, typename Paras>
FuzzTrial connect(judge::Source const& part, std::mt19937& random, Paras const& paras, double reach,
                  std::string const& name)
{
    CutPlane const plane(part, random);
    FuzzTrial trial{.operation = name + ", plane of the second file", .tool = plane.soup()};
    carryOut(trial, part, judge::connectorRule(plane.plane, part.margin(), reach), [&] {
        TestDocument document;
        auto* const object = document.add(part.soup(), "part");
        auto const drawn = planeObject(plane);
        Cutter cutter(paras, false, {object}, drawn.get());
        cutter.execute({});
        for (auto const& piece : cutter.getResult()[object])
            trial.pieces.push_back(soupOf(*piece));
    });
    // A cut that leaves one piece does not say which: it has to be one of the two.
    if (trial.pieces.size() == 1 && !trial.faults.empty())
        trial.faults = [&] {
            auto const other =
                judge::faultsOf(part, {Soup{}, trial.pieces[0]},
                                judge::connectorRule(plane.plane, part.margin(), reach), samples);
            return other.wrong.empty() ? other.open : trial.faults;
        }();
    return trial;
}

FuzzTrial pinsOrHoles(judge::Source const& part, std::mt19937& random)
{
    PinHoleParas paras;
    paras.radius = 0.25f;
    paras.tolerance = 0.05f;
    paras.height = 0.5f;
    paras.spacing = 1;
    paras.topclearance = paras.sideclearance = 0.02f;
    paras.faceclearance = 0.03f;
    paras.isPin = random() % 2;
    paras.isSidedis = random() % 4 == 0;
    paras.sidedistance = 0.5f;
    return connect<PinHoleCutter>(part, random, paras, 0.6, paras.isPin ? "pins" : "holes");
}

FuzzTrial lapJoint(judge::Source const& part, std::mt19937& random)
{
    LapJointParas paras;
    paras.notchDepth = 0.4f;
    paras.sideDistance = 0.25f;
    paras.notchClearance = paras.frontClearance = paras.backClearance = 0.03f;
    paras.basedOn = int(random() % 3);
    return connect<LapJointCutter>(part, random, paras, 0.5, "lap joint");
}

FuzzTrial repair(judge::Source const& part, std::mt19937&)
{
    FuzzTrial trial{.operation = "repair"};
    carryOut(trial, part, judge::sameSolidRule(), [&] {
        auto const kernel = kernelOf(part.soup());
        Repair::RepairMethods(kernel.get()).autoRepair_simple_advanced({});
        trial.pieces = {soupOf(*kernel)};
    });
    return trial;
}

}  // namespace

void writeFuzzInputs(std::string const& name)
{
    inputName = name;
}

std::vector<FuzzOperation> const& fuzzOperations()
{
    static std::vector<FuzzOperation> const all{{"plane", cutByPlane, 350},
                                                {"combine", combineAny, 300},
                                                {"near copy", combineWithNearCopy, 80},
                                                {"prism", splitByPrism, 100},
                                                {"pins", pinsOrHoles, 40},
                                                {"lap joint", lapJoint, 30},
                                                {"repair", repair, 100}};
    return all;
}
