// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cutjobs/ResultIntegration.h"
#include "cutjobs/common/CutFailure.h"
#include "cutjobs/common/CutRemark.h"
#include "cutjobs/common/CutResultMap.h"
#include "platform/geometry/UPoint3.h"
#include "platform/services/Repair.h"

#include <QObject>
#include <QString>
#include <QThread>

#include <map>
#include <vector>

class ZCutImp;
template <typename T>
class UBox3;
namespace Base {
class Document;
}

namespace Freecut {

/// Splits parts of the active document at a height: the worker cuts on a thread of its own, then
/// the pieces take the place of the parts in one undoable step. One object serves one job. It tells
/// the outcome by its signal and shows no message itself.
///
/// thread  made, used and destroyed on the user interface thread, which needs an event loop. The
///         destructor waits for a job that runs
class SectionZCut : public QObject
{
    Q_OBJECT

public:
    struct ZCutParas
    {
        /// The cut is one named transaction, and the pieces get names of their own.
        bool undoable = true;
        /// Each piece is checked and, if need be, repaired.
        bool repair = true;
    };

    explicit SectionZCut(QObject* parent);
    ~SectionZCut() override;

    /// Borrowed; the parts to cut are parts of it. Called before a start.
    virtual void setDocument(Base::Document* document);
    void setPara(ZCutParas const& paras);
    /// Whether a repair mends the whole of each piece; at first only what the cut made or touched.
    void setRepairsWhole(bool repairsWhole);

    /// Cuts all parts at one height. Without a document or parts `finished` comes before the
    /// return.
    void startZCut(std::vector<Mesh::DocumentObject*> objects, float z);
    /// Cuts each part at a height of its own. A part that is null or has no mesh is passed over,
    /// and so is its height; so is a part without a height.
    void startZCutonebyone(std::vector<Mesh::DocumentObject*> objects, std::vector<float> heights);

    /// The points that describe the planes of the last start, three for each: its centre, then two
    /// corners of the rectangle around the part or parts.
    std::vector<UPoint3<float>> const& rubberPoints() const;
    /// After `finished` with code 0: why the cut failed, where the message does not tell; or empty.
    QString reason() const;
    /// The same, with the place and the part, if they are known.
    CutFailure const& failure() const;
    /// After `finished` with code 1: what a person must be told of the cut.
    CutRemarks const& remarks() const;
    /// After `finished` with code 1: the new parts of each part that was cut, upper piece first.
    /// The document owns them.
    ResultIntegration::PartMap const& newParts() const { return m_newParts; }
    /// After `finished` with code 1: what the repair did to each piece, by source part and in the
    /// order of newParts().
    std::map<Mesh::DocumentObject*, std::vector<Repair::Report>> const& repairReports() const;

signals:
    /// code     1 the pieces are in the document; 0 the cut failed; -1 there was nothing to cut or
    ///          the user has cancelled
    /// message  the worker's, for code 0; otherwise empty
    void finished(int code, QString const& message);
    /// Starts the worker.
    void signalOperate();

public slots:
    void handleResult(bool ok);
    void processEnd();

private:
    void integrate(Base::Document* document);
    void refreshViewProviders();

    Base::Document* m_document = nullptr;
    QThread m_thread;
    ZCutImp* m_worker;
    ZCutParas m_paras;
    ResultIntegration::PartMap m_newParts;
};

}  // namespace Freecut
