// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cutjobs/CutWorker.h"
#include "cutjobs/VolumePieces.h"
#include "cutjobs/common/CutResultMap.h"

#include <memory>
#include <vector>

/// The worker of the volume cut: splits each part into what lies within a solid tool and what lies
/// outside it. With a clearance the tool is two solids, and what lies between them goes. It serves
/// any number of jobs in turn, each with tools of its own.
class PolygonCutImp : public CutWorker
{
    Q_OBJECT

public:
    explicit PolygonCutImp(QObject* parent);
    ~PolygonCutImp() override;

    void setObjects(std::vector<Mesh::DocumentObject*> objects);
    /// useClearance  the tool has a clearance
    /// singleTool    but gave only one solid, by which the parts are split
    void setParas(bool useClearance, bool singleTool);
    /// The tools of the next job; the worker takes them over and deletes them when the job ends.
    ///
    /// in   the solid that the first piece lies in
    /// out  the solid that the second piece lies outside of; null if `in` serves for both
    void setInOutPolygonMesh(MeshKernel* in, MeshKernel* out);
    /// Of the edges of the tools, towards where they were drawn from; of no length if they have none.
    void setDirection(UVector3<float> const& direction) { m_direction = direction; }
    UVector3<float> const& direction() const { return m_direction; }

    /// The pieces of the last job: what lies within the tool before what lies outside.
    CutResultMap getResult() const { return m_result; }

public slots:
    void doWork() override;

private:
    void run(std::function<void(int)> progress);
    VolumePieces split(MeshKernel const& part, MeshKernel& in,
                       std::function<void(int)> const& progress, int index);
    VolumePieces cutApart(MeshKernel const& part, MeshKernel& in, MeshKernel& out,
                          std::function<void(int)> const& progress, int index);
    int partCount() const { return int(m_objects.size()); }

    std::vector<Mesh::DocumentObject*> m_objects;
    CutResultMap m_result;
    bool m_useClearance = false;
    bool m_singleTool = false;
    UVector3<float> m_direction;
    std::unique_ptr<MeshKernel> m_in;
    std::unique_ptr<MeshKernel> m_out;
};
