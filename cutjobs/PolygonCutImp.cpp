// SPDX-License-Identifier: GPL-3.0-or-later
#include "cutjobs/PolygonCutImp.h"

#include "cutjobs/CutSides.h"
#include "cutjobs/ToolClosing.h"
#include "cutjobs/common/PartMesh.h"
#include "cutjobs/common/ProgressScale.h"
#include "cutjobs/common/RemarkTexts.h"
#include "cutjobs/common/ServiceCall.h"
#include "cutjobs/common/SolidCombining.h"

#include <QCoreApplication>

#include <array>
#include <vector>

struct PolygonCutImp::Pieces
{
    std::shared_ptr<MeshKernel> first = std::make_shared<MeshKernel>();
    std::shared_ptr<MeshKernel> second = std::make_shared<MeshKernel>();
};

namespace {

void combine(MeshKernel& part, MeshKernel& tool, MeshKernel& piece, Intersect::BooleanType type,
             std::function<void(int)> const& progress, std::string& reason)
{
    ServiceCall::run(reason, [&] { combineSolids(part, tool, piece, type, progress); });
}

bool isEmpty(MeshKernel const& kernel)
{
    return kernel.readMesh()->triangles.empty();
}

using Triangles = std::vector<std::array<UPoint3<float>, 3>>;

/// The triangles that have an area, in their final places.
Triangles trianglesOf(MeshKernel const& kernel)
{
    UMatrix4<float> const& matrix = kernel.getMatrix();
    bool const isPlain = matrix.isIdentity();
    Triangles triangles;
    for (UTriangle<float> const* const t : kernel.readMesh()->triangles) {
        std::array<UPoint3<float>, 3> corners{t->cP(0), t->cP(1), t->cP(2)};
        for (UPoint3<float>& corner : corners)
            corner = isPlain ? corner : matrix * corner;
        if (((corners[1] - corners[0]) * (corners[2] - corners[0])).GetLength() > 0)
            triangles.push_back(corners);
    }
    return triangles;
}

/// Sees to it that there is a tool to cut with, and that it closes.
void prepareTool(MeshKernel* tool, std::string& reason)
{
    if (!tool)
        throw Mell::Exception(
            QCoreApplication::translate("CutJobs", "There is no tool to cut with. Draw one first.")
                .toStdString());
    ServiceCall::run(reason, [&] { closeTool(*tool); });
}

}  // namespace

PolygonCutImp::PolygonCutImp(QObject* parent) : CutWorker(parent) {}

PolygonCutImp::~PolygonCutImp() = default;

void PolygonCutImp::setObjects(std::vector<Mesh::DocumentObject*> objects)
{
    m_objects = std::move(objects);
}

void PolygonCutImp::setParas(bool useClearance, bool singleTool)
{
    m_useClearance = useClearance;
    m_singleTool = singleTool;
}

void PolygonCutImp::setInOutPolygonMesh(MeshKernel* in, MeshKernel* out)
{
    m_in.reset(in);
    m_out.reset(out);
}

void PolygonCutImp::doWork()
{
    m_result.clear();
    runJob("Polygon Cut", [this](std::function<void(int)> const& progress) { run(progress); });
}

void PolygonCutImp::run(std::function<void(int)> progress)
{
    // However the job ends, its tools go with it.
    std::unique_ptr<MeshKernel> const in = std::move(m_in);
    std::unique_ptr<MeshKernel> const out = std::move(m_out);
    bool const isSplit = !m_useClearance || m_singleTool;
    if (partCount() > 0) {
        prepareTool(in.get(), failureReason());
        if (!isSplit)
            prepareTool(out.get(), failureReason());
    }
    for (int i = 0; i < partCount(); ++i) {
        Mesh::DocumentObject* const part = m_objects[std::size_t(i)];
        MeshKernel const* const kernel = kernelOfPart(part);
        if (!kernel)
            continue;
        Pieces const pieces =
            isSplit ? split(*kernel, *in, progress, i) : cutApart(*kernel, *in, *out, progress, i);
        remarkOn(part, *kernel, pieces);
        storePiece(m_result, part, pieces.first);
        storePiece(m_result, part, pieces.second);
    }
    progress(100);
}

void PolygonCutImp::remarkOn(Mesh::DocumentObject* part, MeshKernel const& kernel,
                             Pieces const& pieces)
{
    bool const hasFirst = !isEmpty(*pieces.first);
    bool const hasSecond = !isEmpty(*pieces.second);
    if (isEmpty(kernel) || (hasFirst && hasSecond))
        return;
    if (!hasFirst && !hasSecond)
        jobRemarks().push_back(gapTakesPart(part));
    // What a tool does not touch keeps its triangles in their order.
    else if (trianglesOf(hasFirst ? *pieces.first : *pieces.second) == trianglesOf(kernel))
        jobRemarks().push_back(hasFirst ? toolHoldsPart(part) : toolMisses(part));
    else
        jobRemarks().push_back(hasFirst ? gapTakesOutside(part) : gapTakesInside(part));
}

PolygonCutImp::Pieces PolygonCutImp::split(MeshKernel const& part, MeshKernel& in,
                                           std::function<void(int)> const& progress, int index)
{
    Pieces pieces;
    MeshKernel copy(part);
    ServiceCall::run(failureReason(), [&] {
        Intersect::boolean_subtract_keep(
            &copy, &in, pieces.first.get(), pieces.second.get(),
            ProgressScale::scaled(progress, ProgressScale::splitBySolid, index, partCount()), 1);
    });
    return pieces;
}

PolygonCutImp::Pieces PolygonCutImp::cutApart(MeshKernel const& part, MeshKernel& in,
                                              MeshKernel& out,
                                              std::function<void(int)> const& progress, int index)
{
    Pieces pieces;
    MeshKernel copy(part);
    combine(copy, in, *pieces.first, Intersect::BOOLEAN_INTERSECT,
            ProgressScale::scaled(progress, ProgressScale::firstBoolean, index, partCount()),
            failureReason());
    combine(copy, out, *pieces.second, Intersect::BOOLEAN_SUBTRACT,
            ProgressScale::scaled(progress, ProgressScale::secondBoolean, index, partCount()),
            failureReason());
    return pieces;
}
