// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/parts/PartCheck.h"

#include "platform/jobs/Exceptions.h"
#include "platform/jobs/SequencerLauncher.h"
#include "platform/mesh/TakenMesh.h"

#include <cstdint>
#include <new>

namespace {

using Progress = std::function<void(int)>;

Progress share(Progress const& progress, int from, int to)
{
    return [&progress, from, to](int percent) { progress(from + percent * (to - from) / 100); };
}

PartCheck::Counts findErrors(MeshKernel& kernel, std::vector<Repair::FlawPlace>& places,
                             Progress const& progress)
{
    Repair::EvaluateErrors errors(&kernel);
    errors.evaluate(Repair::EvaluateErrors::ERROR_ALL, false, true, progress);
    places = Repair::placesOf(*errors.survey(), PartCheck::mostPlaces);
    return errors.counts();
}

}  // namespace

PartCheck::~PartCheck()
{
    m_isStopping = true;
    m_thread.waitForDone();
}

bool PartCheck::start(Kind kind, std::vector<Mesh::DocumentObject*> const& parts)
{
    if (JobGuard::instance()->isBusy() || parts.empty())
        return false;
    Findings findings;
    for (Mesh::DocumentObject* const part : parts) {
        Finding finding;
        finding.part = part;
        finding.name = part->getName();
        finding.kernel = part->meshProperty->shareMesh();
        if (finding.kernel)
            findings.push_back(std::move(finding));
    }
    m_hold = std::make_unique<JobGuard::Hold>();
    m_thread.start([this, kind, findings = std::move(findings)] { run(kind, findings); });
    return true;
}

void PartCheck::inspect(Kind kind, Finding& finding, Progress const& progress) const
{
    bool const isRepair = kind == Kind::Repair;
    finding.before =
        findErrors(*finding.kernel, finding.places, share(progress, 0, isRepair ? 30 : 100));
    if (!isRepair || finding.before.total() == 0)
        return;
    MeshKernel copy(*finding.kernel);
    copy.toRclMesh();
    Repair::RepairMethods(&copy).autoRepair_simple_advanced(share(progress, 30, 80));
    std::vector<Repair::FlawPlace> left;
    finding.after = findErrors(copy, left, share(progress, 80, 100));
    if (finding.after.total() >= finding.before.total())
        return;
    finding.mended = asReadOnly(copy);
    finding.places = std::move(left);
}

void PartCheck::run(Kind kind, Findings findings)
{
    Outcome outcome = Outcome::Done;
    QString reason;
    try {
        Base::SequencerLauncher display(kind == Kind::Check
                                            ? QT_TRANSLATE_NOOP("JobGuard", "Checking parts")
                                            : QT_TRANSLATE_NOOP("JobGuard", "Repairing parts"),
                                        100, true);
        display.setCancelEnabled(true);
        int const count = int(findings.size());
        for (int i = 0; i < count; ++i)
            inspect(kind, findings[std::size_t(i)], [&](int percent) {
                if (m_isStopping)
                    throw Mell::AbortException("Aborting...");
                display.setProgress(std::uint64_t((100 * i + percent) / count));
            });
    } catch (Mell::AbortException const&) {
        outcome = Outcome::Cancelled;
    } catch (Mell::Exception const& failure) {
        outcome = Outcome::Failed;
        reason = QString::fromUtf8(failure.what());
    } catch (std::bad_alloc const&) {
        outcome = Outcome::Failed;
        reason = tr("There is not enough memory; close other programs, or take fewer parts.");
    }
    if (outcome != Outcome::Done)
        findings.clear();
    QMetaObject::invokeMethod(
        this,
        [this, kind, outcome, findings = std::move(findings), reason] {
            emit finished(kind, outcome, findings, reason);
            m_hold.reset();
        },
        Qt::QueuedConnection);
}
