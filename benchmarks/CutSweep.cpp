// SPDX-License-Identifier: GPL-3.0-or-later
// cut_sweep [CUTS [SEED [LARGEST [KIND [CUT]]]]]
//
// Cuts the real models that have no flaw and at most LARGEST triangles at random, by every kind of
// connector and tool or by one of them alone, all the cuts or one of them. Counts the pieces that
// are open, have edges of more than two triangles, cross themselves, cross each other, or have
// triangles without area or twice. The pieces of one cut alone are written into the working folder.
#include "cutjobs/PolygonCutImp.h"
#include "cutjobs/SectionCutImp.h"
#include "platform/jobs/ConsoleSingleton.h"
#include "platform/services/Repair.h"
#include "tests/display/DrawnTool.h"
#include "tests/support/ModelFile.h"
#include "tools/CuboidGraphicObject.h"
#include "tools/CylinderGraphicObject.h"
#include "tools/PlaneGraphicObject.h"
#include "tools/PlanePlacement.h"
#include "tools/PolygonGraphicObject.h"

#include <QApplication>

#include <array>
#include <cstdio>
#include <random>

namespace {

using Repair::EvaluateErrors;
using Counts = EvaluateErrors::Counts;
using Point = UPoint3<float>;

constexpr std::array kinds{"plane",
                           "pins",
                           "pins, one cut",
                           "pins beside contours",
                           "holes",
                           "holes beside",
                           "lap joint",
                           "lap joint, outer",
                           "lap joint, inner",
                           "lap joint, open side",
                           "polygon",
                           "polygon, clearance",
                           "polygon, rounded",
                           "cylinder",
                           "cylinder, key",
                           "cuboid",
                           "cuboid, till"};

Counts countsOf(Soup soup)
{
    soup.joinPoints();
    auto const kernel = kernelOf(soup);
    EvaluateErrors errors(kernel.get());
    errors.evaluate(EvaluateErrors::ERROR_ALL, true, true, {});
    return errors.counts();
}

/// The real models without flaws.
std::vector<NamedSoup> cleanModels(std::size_t largest)
{
    std::vector<NamedSoup> models = closedRealMeshes(largest);
    std::erase_if(models, [](NamedSoup const& m) { return countsOf(m.soup).total() > 0; });
    return models;
}

struct Tally
{
    int cuts = 0, pieces = 0, failed = 0, open = 0, edgesOfFour = 0, crossingThemselves = 0,
        crossingEachOther = 0, flat = 0;

    void add(Tally const& o)
    {
        cuts += o.cuts;
        pieces += o.pieces;
        failed += o.failed;
        open += o.open;
        edgesOfFour += o.edgesOfFour;
        crossingThemselves += o.crossingThemselves;
        crossingEachOther += o.crossingEachOther;
        flat += o.flat;
    }
    bool isGood() const
    {
        return failed + open + edgesOfFour + crossingThemselves + crossingEachOther + flat == 0;
    }
    void print(char const* what) const
    {
        std::printf("%-22s %5d %6d %6d %6d %6d %6d %6d %6d\n", what, cuts, pieces, failed, open,
                    edgesOfFour, crossingThemselves, crossingEachOther, flat);
    }
};

/// One cut of one model by random numbers.
class RandomCut
{
public:
    RandomCut(NamedSoup const& model, std::size_t kind, unsigned seed)
        : m_random(seed),
          m_kind(kind),
          m_view(int(seed % 6)),
          m_scene(m_view),
          m_part(m_scene.add(model.soup, "part"))
    {}

    Tally run()
    {
        bool const isSection = m_kind < 10;
        m_hasGap = true;
        CutResultMap const result = isSection ? cutSection() : cutByTool();
        Tally tally;
        tally.cuts = 1;
        tally.failed = m_isDone ? 0 : 1;
        if (result.contains(m_part))
            m_pieces = result.at(m_part);
        judge(m_pieces, tally);
        return tally;
    }

    std::string const& description() const { return m_text; }

    /// To piece-0.stl and so on.
    void writePieces() const
    {
        for (std::size_t i = 0; i < m_pieces.size(); ++i)
            writeStl(soupOf(*m_pieces[i]), "piece-" + std::to_string(i) + ".stl");
    }

private:
    float number(float low, float high)
    {
        return std::uniform_real_distribution<float>(low, high)(m_random);
    }
    int whole(int low, int high) { return std::uniform_int_distribution<int>(low, high)(m_random); }

    void tell(char const* name, std::initializer_list<float> values)
    {
        m_text += std::string(" ") + name;
        for (float const v : values) {
            char text[40];
            std::snprintf(text, sizeof text, " %.9g", double(v));
            m_text += text;
        }
    }

    UVector3<float> normal()
    {
        for (;;) {
            bool const isWhole = whole(0, 1) == 0;
            UVector3<float> n;
            for (int k = 0; k < 3; ++k)
                n[k] = isWhole ? float(whole(-3, 3)) : number(-1, 1);
            if (n.GetLength() > 0.1f)
                return n.Normalize();
        }
    }

    CutResultMap cutSection()
    {
        UBox3<float> const box = m_part->getBoundingBox();
        Point centre;
        for (int k = 0; k < 3; ++k)
            centre[k] = box.min[k] + (box.max[k] - box.min[k]) * number(0.2f, 0.8f);
        UVector3<float> const n = normal();
        tell("centre", {centre.X(), centre.Y(), centre.Z()});
        tell("normal", {n.X(), n.Y(), n.Z()});
        auto const plane = Freecut::makeTangentPlane(centre, n, {.width = 50, .height = 50});
        SectionCutImp worker(nullptr);
        worker.setObjects({m_part});
        worker.setPlaneObject(plane.get());
        worker.setPinHoleParas(pins());
        worker.setLapJointParas(joint());
        worker.setCutType(m_kind == 0  ? SECTIONCUT_PLANE
                          : m_kind < 6 ? SECTIONCUT_PINHOLE
                                       : SECTIONCUT_LAPJOINT);
        m_hasGap = m_kind != 0 && m_kind != 2;
        run(worker);
        return worker.getResult();
    }

    PinHoleParas pins()
    {
        PinHoleParas paras;
        paras.radius = number(0.5f, 3);
        paras.height = number(1, 8);
        paras.spacing = 2 * paras.radius + number(0.1f, 8);
        paras.faceclearance = m_kind == 2 ? 0 : number(0.01f, 0.3f);
        paras.sideclearance = number(0.01f, 0.05f);
        paras.sidedistance = paras.radius + number(0.1f, 2);
        paras.isSidedis = m_kind == 3 || m_kind == 5;
        paras.isPin = m_kind < 4;
        tell("pins", {paras.radius, paras.height, paras.spacing, paras.faceclearance,
                      paras.sideclearance, paras.sidedistance});
        return paras;
    }

    LapJointParas joint()
    {
        LapJointParas paras;
        paras.sideDistance = number(0.5f, 4);
        paras.notchClearance =
            m_kind == 9 ? paras.sideDistance : number(0.05f, 0.9f) * paras.sideDistance;
        paras.notchDepth = number(1, 6);
        paras.frontClearance = number(0.01f, 0.3f);
        paras.backClearance = number(0.01f, 0.3f);
        paras.basedOn = m_kind == 7 ? 0 : m_kind == 8 ? 1 : 2;
        tell("joint", {paras.sideDistance, paras.notchClearance, paras.notchDepth,
                       paras.frontClearance, paras.backClearance});
        return paras;
    }

    CutResultMap cutByTool()
    {
        UBox3<float> const box = m_part->getBoundingBox();
        Point eye = (box.min + box.max) * 0.5f;
        m_scene.view.getEyePointFromWCSPoint(eye);
        float const x = eye.X() + number(-20, 20), y = eye.Y() + number(-20, 20);
        bool const hasClearance = m_kind == 11 || m_kind == 12 || m_kind == 14 || m_kind == 16;
        float const clearance = number(0.05f, 1);
        int const direction = whole(0, 2);
        tell("at", {x, y, clearance, float(direction)});
        if (m_kind < 13)
            return cutByPolygon(x, y, hasClearance, direction, clearance);
        if (m_kind < 15) {
            auto* const tool = m_scene.draw<Freecut::CylinderGraphicObject>({{x, y}});
            tool->getProperty().setShapeParameters(hasClearance, direction, clearance, false, 0,
                                                   178, false, viewIndex(), number(3, 25),
                                                   m_kind == 14, number(1, 5), number(1, 5),
                                                   number(-90, 90), number(0.01f, 0.1f));
            return cutBy(*tool);
        }
        auto* const tool = m_scene.draw<Freecut::CuboidGraphicObject>({{x, y}});
        bool const isTill = m_kind == 16;
        float const till =
            box.min[axis()] + (box.max[axis()] - box.min[axis()]) * number(0.2f, 0.8f);
        tool->getProperty().setCuboidParameters(hasClearance, direction, clearance, isTill, till,
                                                178, isTill, number(0.2f, 5), false, viewIndex(),
                                                number(5, 50), number(5, 50), number(-3, 3));
        return cutBy(*tool);
    }

    int viewIndex() const { return m_view; }
    int axis() const { return viewIndex() / 2 == 0 ? 1 : viewIndex() / 2 == 1 ? 2 : 0; }

    CutResultMap cutByPolygon(float x, float y, bool hasClearance, int direction, float clearance)
    {
        int const corners = whole(3, 14);
        float const radius = number(5, 40);
        std::vector<UPoint2<float>> points;
        for (int i = 0; i < corners; ++i) {
            float const t = float(i) * 2 * float(M_PI) / float(corners),
                        r = radius * number(0.3f, 1);
            points.push_back({x + r * std::cos(t), y + r * std::sin(t)});
        }
        auto* const tool = m_scene.draw<Freecut::PolygonGraphicObject>(points);
        tool->getProperty().setShapeParameters(hasClearance, direction, clearance, false, 0, 178,
                                               m_kind == 12, number(0.2f, 4), false, viewIndex());
        return cutBy(*tool);
    }

    template <typename Tool>
    CutResultMap cutBy(Tool& tool)
    {
        bool const hasClearance = tool.getProperty().getClearanceEnabled();
        std::vector<UMesh<float>*> meshes;
        if (hasClearance)
            meshes = tool.createInandOutMesh();
        else
            meshes = {tool.createMesh()};
        PolygonCutImp worker(nullptr);
        worker.setObjects({m_part});
        worker.setParas(hasClearance, hasClearance && meshes.size() == 1);
        worker.setInOutPolygonMesh(new MeshKernel(meshes.front()),
                                   meshes.size() > 1 ? new MeshKernel(meshes.back()) : nullptr);
        // Both tools end in the same plane.
        m_hasGap = meshes.size() > 1 && m_kind != 16;
        run(worker);
        return worker.getResult();
    }

    void run(CutWorker& worker)
    {
        Base::ConsoleSingleton::Instance().setListener(
            [this](std::string const& line) { m_text += " | " + line; });
        QObject::connect(&worker, &CutWorker::resultReady, [this](bool ok) { m_isDone = ok; });
        worker.doWork();
        Base::ConsoleSingleton::Instance().setListener({});
    }

    void judge(std::vector<std::shared_ptr<MeshKernel>> const& pieces, Tally& tally) const
    {
        std::size_t own = 0;
        Soup all;
        for (auto const& piece : pieces) {
            Soup const soup = soupOf(*piece);
            Counts const counts = countsOf(soup);
            ++tally.pieces;
            tally.open += counts.borderEdges + counts.inconsistentEdges > 0;
            tally.edgesOfFour += counts.nonManifoldEdges > 0;
            tally.crossingThemselves += counts.selfIntersections > 0;
            tally.flat += counts.degenerateTriangles + counts.duplicateTriangles > 0;
            own += counts.selfIntersections;
            all.append(soup);
        }
        // Faces without a gap lie on each other.
        if (m_hasGap && pieces.size() > 1)
            tally.crossingEachOther += countsOf(all).selfIntersections > own;
    }

    std::mt19937 m_random;
    std::size_t m_kind;
    int m_view;
    DrawnDocument m_scene;
    Mesh::DocumentObject* m_part;
    bool m_isDone = false;
    bool m_hasGap = true;
    std::vector<std::shared_ptr<MeshKernel>> m_pieces;
    std::string m_text;
};

}  // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication const application(argc, argv);
    auto const argument = [&](int i, int standard) {
        return argc > i ? std::atoi(argv[i]) : standard;
    };
    int const cuts = argument(1, 2000);
    unsigned const seed = unsigned(argument(2, 1));
    std::size_t const largest = std::size_t(argument(3, 100000));
    int const onlyKind = argument(4, -1), onlyCut = argument(5, -1);
    std::vector<NamedSoup> const models = cleanModels(largest);
    if (models.empty()) {
        std::fprintf(stderr, "The real models are not there.\n");
        return 1;
    }
    std::array<Tally, kinds.size()> tallies;
    for (int i = std::max(0, onlyCut); i < (onlyCut >= 0 ? onlyCut + 1 : cuts); ++i) {
        std::size_t const kind =
            onlyKind >= 0 ? std::size_t(onlyKind) : std::size_t(i) % kinds.size();
        NamedSoup const& model = models[std::size_t(i) / kinds.size() % models.size()];
        RandomCut cut(model, kind, seed * 1000003u + unsigned(i));
        Tally const tally = cut.run();
        tallies[kind].add(tally);
        if (onlyCut >= 0)
            cut.writePieces();
        if (!tally.isGood()) {
            tally.print(kinds[kind]);
            std::printf("  cut %d of %s:%s\n", i, model.name.c_str(), cut.description().c_str());
            std::fflush(stdout);
        }
    }
    std::printf("%-22s %5s %6s %6s %6s %6s %6s %6s %6s\n", "", "cuts", "pieces", "failed", "open",
                "of 4", "self", "other", "flat");
    Tally all;
    for (std::size_t k = 0; k < kinds.size(); ++k) {
        tallies[k].print(kinds[k]);
        all.add(tallies[k]);
    }
    all.print("all");
    return all.isGood() ? 0 : 1;
}
