// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cutjobs/CutWorker.h"
#include "cutjobs/common/CutResultMap.h"
#include "platform/document/CutMemory.h"
#include "platform/geometry/UPoint3.h"
#include "platform/services/Repair.h"

#include <map>
#include <vector>

class MeshKernel;
struct CutSides;
template <typename T>
class UMesh;

/// Source part to what the repair did to each of its pieces.
using RepairReportMap = std::map<Mesh::DocumentObject*, std::vector<Repair::Report>>;

/// The worker of the Z cut: splits each part by a horizontal plane. It serves one job, because a
/// second one would add to the first one's result.
class ZCutImp : public CutWorker
{
    Q_OBJECT

public:
    explicit ZCutImp(QObject* parent);

    void setObjects(std::vector<Mesh::DocumentObject*> objects);
    /// Kept with the job; the cut itself takes the height from the rubber points.
    void setZheight(float height);
    /// Whether each piece is checked and, if need be, repaired.
    void setReapir(bool repair);
    /// Whether a repair mends the whole piece and not only what the cut made or touched.
    void setRepairsWhole(bool repairsWhole);
    /// One plane for each part instead of one for all.
    void setZCutonebyone(bool onebyone);
    /// Three points for each plane: its centre and a point in each of two directions. One triple in
    /// the common form; one for each part, in the parts' order, in the one-by-one form.
    void setRubPts(std::vector<UPoint3<float>> points);
    std::vector<UPoint3<float>> const& getRubPts() const { return m_rubberPoints; }

    /// The planes, by the parts that were to be cut.
    std::map<Mesh::DocumentObject*, Mesh::CutFace> planes() const;
    CutResultMap getResult() const { return m_result; }
    /// What the repair did to each piece of the result: same parts, same order.
    RepairReportMap const& getRepairReports() const { return m_repairReports; }

public slots:
    void doWork() override;

private:
    bool zCut(std::function<void(int)> progress);
    void finish(CutSides const& sides, Mesh::DocumentObject* part,
                std::function<void(int)> const& progress, int shown);
    void calculatezCutMesh(UMesh<float>* mesh, std::vector<Mesh::DocumentObject*> objects);
    void calculatezCutMeshonebyone(UMesh<float>* mesh, std::vector<Mesh::DocumentObject*> objects,
                                   int index);

    float m_height = 0;
    bool m_repair = false;
    bool m_repairsWhole = false;
    bool m_onebyone = false;
    std::vector<UPoint3<float>> m_rubberPoints;
    std::vector<Mesh::DocumentObject*> m_objects;
    CutResultMap m_result;
    RepairReportMap m_repairReports;
};
