// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/parts/PartCheck.h"

#include "platform/mesh/TakenMesh.h"

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
    places = Repair::placesOf(*errors.survey(), PartCheck::mostPlaces, [&] { progress(100); });
    return errors.counts();
}

}  // namespace

PartCheck::~PartCheck()
{
    m_job.stop();
}

bool PartCheck::start(Kind kind, std::vector<Mesh::DocumentObject*> const& parts)
{
    if (JobGuard::instance()->isBusy() || parts.empty())
        return false;
    auto const findings = std::make_shared<Findings>();
    for (Mesh::DocumentObject* const part : parts) {
        Finding finding;
        finding.part = part;
        finding.name = part->getName();
        finding.kernel = part->meshProperty->shareMesh();
        if (finding.kernel)
            findings->push_back(std::move(finding));
    }
    m_job.start(
        kind == Kind::Check ? QT_TRANSLATE_NOOP("JobGuard", "Checking parts")
                            : QT_TRANSLATE_NOOP("JobGuard", "Repairing parts"),
        [kind, findings](Progress const& progress) {
            int const count = int(findings->size());
            for (int i = 0; i < count; ++i)
                inspect(kind, (*findings)[std::size_t(i)],
                        [&](int percent) { progress((100 * i + percent) / count); });
        },
        [this, kind, findings](JobOutcome const& outcome) { take(kind, *findings, outcome); });
    return true;
}

void PartCheck::inspect(Kind kind, Finding& finding, Progress const& progress)
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

void PartCheck::take(Kind kind, Findings& findings, JobOutcome const& outcome)
{
    if (!outcome.isDone())
        findings.clear();
    emit finished(kind,
                  outcome.isCancelled ? Outcome::Cancelled
                  : outcome.isDone()  ? Outcome::Done
                                      : Outcome::Failed,
                  findings, outcome.problem);
}
