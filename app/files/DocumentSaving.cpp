// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/files/DocumentFiles.h"
#include "app/files/PartExport.h"
#include "host/document/DocumentProject.h"

#include <QEventLoop>
#include <QFileInfo>
#include <QTimer>

#include <algorithm>

// The side of the class that writes, and that asks before work is lost.
namespace {

constexpr int pollMilliseconds = 20;
constexpr char projectEnding[] = ".3mf";

QStringList existingOf(QStringList const& files)
{
    QStringList existing;
    for (QString const& file : files)
        if (QFileInfo::exists(file))
            existing.push_back(file);
    return existing;
}

using Parts = std::vector<Mesh::DocumentObject*>;

/// Takes the hidden ones out of parts.
Parts takeHidden(Parts& parts)
{
    auto const hidden = std::stable_partition(parts.begin(), parts.end(),
                                              [](auto const* part) { return part->isVisible(); });
    Parts taken(hidden, parts.end());
    parts.erase(hidden, parts.end());
    return taken;
}

QStringList namesOf(Parts const& parts)
{
    QStringList names;
    for (Mesh::DocumentObject const* const part : parts)
        names << QString::fromStdString(part->getName());
    return names;
}

/// Names for a line of text.
QString shortList(QStringList const& names)
{
    constexpr int most = 3;
    QString const list = names.mid(0, most).join(QStringLiteral(", "));
    return names.size() > most ? list + QStringLiteral(", ...") : list;
}

}  // namespace

void DocumentFiles::save()
{
    using Changed = FileQuestions::Changed;
    Changed const answer = m_projectFile.isEmpty() ? Changed::SaveElsewhere
                           : m_guard.hasChanged()  ? m_questions->aboutChanged(displayName())
                                                   : Changed::Replace;
    if (answer == Changed::SaveElsewhere)
        saveAs();
    else if (answer == Changed::Replace)
        startSaving(m_projectFile);
}

void DocumentFiles::saveAs()
{
    QString file = m_questions->projectToSave(
        m_projectFile.isEmpty() ? displayName() + QLatin1String(projectEnding) : m_projectFile);
    if (file.isEmpty())
        return;
    if (!file.endsWith(QLatin1String(projectEnding), Qt::CaseInsensitive)) {
        file += QLatin1String(projectEnding);
        if (QFileInfo::exists(file) && !m_questions->mayReplace({file}))
            return;
    }
    startSaving(QFileInfo(file).absoluteFilePath());
}

void DocumentFiles::startSaving(QString const& file)
{
    if (JobGuard::instance()->isBusy()) {
        tellLater(JobGuard::instance()->reason());
        return;
    }
    if (!document())
        return;
    m_hasChangedMeanwhile = false;
    m_job.start(
        QT_TRANSLATE_NOOP("JobGuard", "Saving the project"),
        [objects = objectsToSave(), file](WindowJob::Progress const& progress) {
            Formats::writeProject(systemPath(file), objects, progress, Formats::Overwrite::Allow);
        },
        [this, file, saved = document()](JobOutcome const& outcome) {
            if (outcome.isDone() && document() == saved)
                finishSaving(file);
            else if (!outcome.problem.isEmpty())
                tellLater(tr("The project was not saved.") + "\n\n" + outcome.problem);
        });
}

DocumentFiles::Views DocumentFiles::objectsToSave() const
{
    Views objects = projectOf(*document());
    objects.insert(objects.end(), m_views.begin(), m_views.end());
    return objects;
}

void DocumentFiles::finishSaving(QString const& file)
{
    m_projectFile = file;
    m_guard.watch(file, stampOf(file));
    bool const hasChanged = m_hasChangedMeanwhile;
    document()->setName(QFileInfo(file).completeBaseName().toStdString());
    if (!hasChanged)
        document()->setModified(false);
    m_recent.add(file);
    emit titleChanged();
    emit written(tr("Saved %1.").arg(QFileInfo(file).fileName()), QFileInfo(file).absolutePath());
}

void DocumentFiles::exportParts(bool onlySelected)
{
    if (!document() || JobGuard::instance()->isBusy())
        return;
    // What is selected is asked for, hidden or not.
    auto parts = onlySelected ? document()->getSelectedMeshObjects() : document()->getMeshObjects();
    Parts const hidden = onlySelected ? Parts() : takeHidden(parts);
    if (parts.empty() && hidden.empty())
        return;
    Mesh::DocumentObject const& first = parts.empty() ? *hidden.front() : *parts.front();
    bool const isNamed = !m_projectFile.isEmpty() && parts.size() != 1;
    ExportOffer const offer{isNamed ? QFileInfo(m_projectFile).completeBaseName()
                                    : QString::fromStdString(first.getName()),
                            int(parts.size()), namesOf(hidden)};
    auto const plan = m_questions->exportPlan(offer);
    Formats::MeshFormat const* const format =
        plan ? Formats::FormatRegistry::instance().byName(plan->format.toStdString()) : nullptr;
    if (!format)
        return;
    if (plan->takesHidden)
        parts = document()->getMeshObjects();
    auto const job = std::make_shared<PartExport>(parts, *format);
    if (job->isEmpty()) {
        m_questions->tell(tr("These parts have no triangles to export; choose others."));
        return;
    }
    if (plan->isOneFilePerPart) {
        job->toFolder(plan->path);
        QStringList const existing = existingOf(job->files());
        if (!existing.isEmpty() && !m_questions->mayReplace(existing))
            return;
    } else {
        job->toFile(plan->path);
    }
    startExport(job, plan->takesHidden ? QStringList() : offer.hidden);
}

void DocumentFiles::startExport(std::shared_ptr<PartExport> parts, QStringList const& leftOut)
{
    m_job.start(
        QT_TRANSLATE_NOOP("JobGuard", "Exporting parts"),
        [parts](WindowJob::Progress const& progress) { parts->run(progress); },
        [this, parts, leftOut](JobOutcome const& outcome) {
            if (!outcome.problem.isEmpty())
                tellLater(tr("Not all parts were exported.") + "\n\n" + outcome.problem);
            if (!outcome.isDone())
                return;
            QFileInfo const first(parts->files().front());
            QString sentence = parts->files().size() == 1
                                   ? tr("Exported %1.").arg(first.fileName())
                                   : tr("Exported %n files.", nullptr, parts->files().size());
            if (!leftOut.isEmpty())
                sentence += ' ' + tr("Left out as hidden: %1.").arg(shortList(leftOut));
            emit written(sentence, first.absolutePath());
        });
}

bool DocumentFiles::mayDiscard()
{
    if (m_isAsking)
        return false;
    m_isAsking = true;
    waitUntilIdle();
    bool mayGo = true;
    if (isModified()) {
        FileQuestions::Unsaved const answer = m_questions->aboutUnsaved(displayName());
        mayGo = answer == FileQuestions::Unsaved::Discard;
        if (answer == FileQuestions::Unsaved::Save) {
            save();
            waitUntilIdle();
            mayGo = !isModified();
        }
    }
    m_isAsking = false;
    if (!m_waiting.isEmpty())
        QTimer::singleShot(0, this, &DocumentFiles::openWaiting);
    return mayGo;
}

void DocumentFiles::waitUntilIdle()
{
    // Asked again and again: a job that is over very soon is announced by nobody.
    QEventLoop loop;
    QTimer timer;
    connect(&timer, &QTimer::timeout, &loop, [&loop] {
        if (!JobGuard::instance()->isBusy())
            loop.quit();
    });
    if (!JobGuard::instance()->isBusy())
        return;
    timer.start(pollMilliseconds);
    loop.exec();
}
