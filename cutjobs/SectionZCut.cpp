// SPDX-License-Identifier: GPL-3.0-or-later
#include "cutjobs/SectionZCut.h"

#include "cutjobs/WorkerThread.h"
#include "cutjobs/ZCutImp.h"
#include "cutjobs/common/PartMesh.h"
#include "platform/document/Document.h"
#include "platform/document/MeshDocumentObject.h"
#include "platform/jobs/EventNotify.h"
#include "platform/ui/ActiveDocument.h"
#include "platform/ui/MellViewSlider.h"
#include "platform/view/GLView.h"
#include "platform/view/ViewProvider.h"

#include <QCoreApplication>

namespace Freecut {

namespace {

/// The three points that describe the horizontal plane over a box: its middle, then the corners
/// that make the plane face upward.
void appendPlane(std::vector<UPoint3<float>>& points, UBox3<float> const& box, float margin,
                 float z)
{
    UPoint3<float> const a(box.MinX() - margin, box.MinY() - margin, z);
    UPoint3<float> const b(box.MaxX() + margin, box.MaxY() + margin, z);
    UPoint3<float> const c(box.MaxX() + margin, box.MinY() - margin, z);
    points.insert(points.end(), {(a + b) * 0.5f, a, c});
}

}  // namespace

SectionZCut::SectionZCut(QObject* parent) : QObject(parent), m_worker(new ZCutImp(nullptr))
{
    WorkerThread::start(m_thread, m_worker, this);
}

SectionZCut::~SectionZCut()
{
    WorkerThread::end(m_thread);
}

void SectionZCut::setDocument(Base::Document* document)
{
    m_document = document;
}

void SectionZCut::setPara(ZCutParas const& paras)
{
    m_paras = paras;
}

void SectionZCut::setRepairsWhole(bool repairsWhole)
{
    m_worker->setRepairsWhole(repairsWhole);
}

RepairReportMap const& SectionZCut::repairReports() const
{
    return m_worker->getRepairReports();
}

void SectionZCut::startZCut(std::vector<Mesh::DocumentObject*> objects, float z)
{
    if (!m_document || objects.empty()) {
        emit finished(-1, QString());
        return;
    }
    constexpr float margin = 5.0f;
    UBox3<float> const box = boxOfParts(objects);
    m_worker->setObjects(objects);
    m_worker->setZCutonebyone(false);
    m_worker->setZheight(z);
    m_worker->setReapir(m_paras.repair);
    std::vector<UPoint3<float>> points;
    appendPlane(points, box, margin, z);
    m_worker->setRubPts(points);
    emit signalOperate();
}

void SectionZCut::startZCutonebyone(std::vector<Mesh::DocumentObject*> objects,
                                    std::vector<float> heights)
{
    if (!m_document || objects.empty()) {
        emit finished(-1, QString());
        return;
    }
    constexpr float margin = 10.0f;
    m_worker->setZCutonebyone(true);
    m_worker->setReapir(m_paras.repair);
    std::vector<Mesh::DocumentObject*> validParts;
    std::vector<UPoint3<float>> points;
    for (std::size_t i = 0; i < objects.size(); ++i) {
        if (!kernelOfPart(objects[i]) || i >= heights.size())
            continue;
        validParts.push_back(objects[i]);
        appendPlane(points, boxOfParts({objects[i]}), margin, heights[i]);
    }
    m_worker->setObjects(validParts);
    m_worker->setRubPts(points);
    emit signalOperate();
}

std::vector<UPoint3<float>> const& SectionZCut::rubberPoints() const
{
    return m_worker->getRubPts();
}

QString SectionZCut::reason() const
{
    return m_worker->reason();
}

CutFailure const& SectionZCut::failure() const
{
    return m_worker->failure();
}

CutRemarks const& SectionZCut::remarks() const
{
    return m_worker->remarks();
}

void SectionZCut::handleResult(bool ok)
{
    if (!ok) {
        emit finished(0, m_worker->getErrorMessage());
        return;
    }
    Base::Document* const active = activeDocument();
    if (!active) {
        emit finished(-1, QString());
        return;
    }
    integrate(active);
    emit finished(1, QString());
}

void SectionZCut::integrate(Base::Document* document)
{
    QCoreApplication::translate("UndoRedoName", "Section Cut");
    IntegrationRules rules;
    rules.undoable = m_paras.undoable;
    rules.marksModifiedFirst = false;
    rules.naming =
        m_paras.undoable ? IntegrationRules::Naming::Unique : IntegrationRules::Naming::SourceName;
    rules.removesSources = true;
    rules.keepsGroup = true;
    rules.selectsPieces = true;
    rules.writesCounts = true;
    rules.planes = m_worker->planes();
    ResultIntegration integration(document, rules);
    m_newParts = integration.begin(m_worker->getResult());
    refreshViewProviders();
    integration.end();
    if (Base::GLView* const view = document->getView())
        view->redraw();
    Base::MellViewSlider::instance()->refresh();
}

void SectionZCut::refreshViewProviders()
{
    for (auto const& [source, parts] : m_newParts)
        for (Mesh::DocumentObject* const part : parts)
            if (Base::ViewProvider* const provider = m_document->getViewProvider(part)) {
                part->meshProperty->getMesh()->UpdateBoundingBox();
                provider->updateRenderData();
            }
}

void SectionZCut::processEnd()
{
    EventNotify::instance()->emitEndEvent();
    emit finished(-1, QString());
}

}  // namespace Freecut
