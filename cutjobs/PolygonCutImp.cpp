// SPDX-License-Identifier: GPL-3.0-or-later
#include "cutjobs/PolygonCutImp.h"

#include "cutjobs/CutSides.h"
#include "cutjobs/ToolClosing.h"
#include "cutjobs/common/PartMesh.h"
#include "cutjobs/common/ProgressScale.h"
#include "cutjobs/common/RemarkTexts.h"
#include "cutjobs/common/ServiceCall.h"

#include <QCoreApplication>

namespace {

/// Combines a part and a tool into a piece, and adds to what is to be told.
void combine(MeshKernel const& part, MeshKernel const& tool, MeshKernel& piece,
             Intersect::BooleanType type, std::function<void(int)> const& progress,
             CutFailure& failure, CombiningNotes& notes)
{
    ServiceCall::run(failure,
                     [&] { append(notes, combineWithNotes(part, tool, piece, type, progress)); });
}

/// Sees to it that there is a tool to cut with, and that it closes.
void prepareTool(MeshKernel* tool, std::function<void(int)> const& progress, CutFailure& failure)
{
    if (!tool)
        throw Mell::Exception(
            QCoreApplication::translate("CutJobs", "There is no tool to cut with. Draw one first.")
                .toStdString());
    ServiceCall::run(failure, [&] { closeTool(*tool, [&] { progress(0); }); });
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
        prepareTool(in.get(), progress, jobFailure());
        if (!isSplit)
            prepareTool(out.get(), progress, jobFailure());
    }
    for (int i = 0; i < partCount(); ++i) {
        Mesh::DocumentObject* const part = m_objects[std::size_t(i)];
        MeshKernel const* const kernel = kernelOfPart(part);
        if (!kernel)
            continue;
        jobFailure().part = part;
        VolumePieces const pieces =
            isSplit ? split(*kernel, *in, progress, i) : cutApart(*kernel, *in, *out, progress, i);
        if (auto const remark = pieces.remark(part, *kernel))
            jobRemarks().push_back(*remark);
        for (CutRemark const& remark : remarksOn(pieces.notes, part))
            jobRemarks().push_back(remark);
        storePiece(m_result, part, pieces.first);
        storePiece(m_result, part, pieces.second);
    }
    progress(100);
}

VolumePieces PolygonCutImp::split(MeshKernel const& part, MeshKernel& in,
                                  std::function<void(int)> const& progress, int index)
{
    VolumePieces pieces;
    MeshKernel copy(part);
    ServiceCall::run(jobFailure(), [&] {
        pieces.notes = splitWithNotes(
            copy, in, *pieces.first, *pieces.second,
            ProgressScale::scaled(progress, ProgressScale::splitBySolid, index, partCount()));
    });
    return pieces;
}

VolumePieces PolygonCutImp::cutApart(MeshKernel const& part, MeshKernel& in, MeshKernel& out,
                                     std::function<void(int)> const& progress, int index)
{
    VolumePieces pieces;
    MeshKernel copy(part);
    combine(copy, in, *pieces.first, Intersect::BOOLEAN_INTERSECT,
            ProgressScale::scaled(progress, ProgressScale::firstBoolean, index, partCount()),
            jobFailure(), pieces.notes);
    combine(copy, out, *pieces.second, Intersect::BOOLEAN_SUBTRACT,
            ProgressScale::scaled(progress, ProgressScale::secondBoolean, index, partCount()),
            jobFailure(), pieces.notes);
    return pieces;
}
