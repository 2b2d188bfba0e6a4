// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "connectors/ConnectorPositions.h"
#include "connectors/LapJointParas.h"
#include "connectors/PinHoleParas.h"
#include "connectors/SectionRecord.h"
#include "cutjobs/CutWorker.h"
#include "cutjobs/SectionCutType.h"
#include "cutjobs/common/CutResultMap.h"
#include "platform/document/CutMemory.h"

#include <map>
#include <memory>
#include <vector>

template <typename T>
class UMesh;
namespace Freecut {
class PlaneGraphicObject;
}

/// The worker of the section cut: splits each part by the plane that the user has defined, with
/// connectors or without. It serves any number of jobs in turn.
class SectionCutImp : public CutWorker
{
    Q_OBJECT

public:
    explicit SectionCutImp(QObject* parent);
    ~SectionCutImp() override;

    void setObjects(std::vector<Mesh::DocumentObject*> objects);
    /// What is neither the plain plane nor pins and holes is the lap joint.
    void setCutType(SECTIONCUTTYPE type);
    /// The plane ends at its drawn corners; otherwise it reaches beyond all parts.
    void setCheckBoundary(bool checkBoundary);
    /// The plane as it is now: the tool that it belongs to may move it or end while a job runs. Null for none.
    void setPlaneObject(Freecut::PlaneGraphicObject* plane);
    void setPinHoleParas(PinHoleParas const& paras);
    void setLapJointParas(LapJointParas const& paras);
    /// Whether plain cuts measure their sections too; they do not unless asked to.
    void setMeasuresSections(bool measures);
    /// Where pins or holes stand on these parts, for the jobs to come; on others the worker places
    /// them itself.
    void setConnectorPositions(ConnectorPositions positions);

    /// The pieces of the last job: side A, to which the plane's normal points, before side B in a
    /// plain cut; for connectors as their cutters tell. Empty after a connector cut that failed.
    /// After a cut with connectors, or one that measures: the sections of the parts that the plane
    /// meets.
    SectionRecords const& sections() const { return m_sections; }
    /// The plane, by the parts that were to be cut.
    ///
    /// throws  Mell::Exception without a plane
    std::map<Mesh::DocumentObject*, Mesh::CutFace> planes() const;
    CutResultMap& getResult() { return m_result; }

public slots:
    void doWork() override;

private:
    bool planeCut(std::function<void(int)> progress);
    bool pinHoleCut(std::function<void(int)> progress);
    bool lapJointCut(std::function<void(int)> progress);
    void calculateCutPlaneMesh(UMesh<float>* mesh, std::vector<Mesh::DocumentObject*> objects);
    Freecut::PlaneGraphicObject& planeObject() const;

    SECTIONCUTTYPE m_cutType = SECTIONCUT_PLANE;
    PinHoleParas m_pinHoleParas{-1, -1, -1, -1, -1, -1, -1, -1};
    LapJointParas m_lapJointParas{-1, -1, -1, -1, -1, -1};
    ConnectorPositions m_connectorPositions;
    std::unique_ptr<Freecut::PlaneGraphicObject> m_plane;
    bool m_checkBoundary = false;
    bool m_measuresSections = false;
    std::vector<Mesh::DocumentObject*> m_objects;
    CutResultMap m_result;
    SectionRecords m_sections;
};
