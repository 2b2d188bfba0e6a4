// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/files/DocumentFiles.h"
#include "app/files/PartExport.h"
#include "host/document/DocumentProject.h"

#include <QEventLoop>
#include <QFileInfo>
#include <QTimer>

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
        [objects = projectOf(*document()), file](FileJob::Progress const& progress) {
            Formats::writeProject(systemPath(file), objects, progress, Formats::Overwrite::Allow);
        },
        [this, file, saved = document()](JobOutcome const& outcome) {
            if (outcome.isDone() && document() == saved)
                finishSaving(file);
            else if (!outcome.problem.isEmpty())
                tellLater(tr("The project was not saved.") + "\n\n" + outcome.problem);
        });
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
}

void DocumentFiles::exportParts(bool onlySelected)
{
    if (!document() || JobGuard::instance()->isBusy())
        return;
    auto const parts =
        onlySelected ? document()->getSelectedMeshObjects() : document()->getMeshObjects();
    if (parts.empty())
        return;
    QString const suggestion = parts.size() == 1 ? QString::fromStdString(parts[0]->getName())
                                                 : QFileInfo(displayName()).completeBaseName();
    auto const plan = m_questions->exportPlan(suggestion, int(parts.size()));
    Formats::MeshFormat const* const format =
        plan ? Formats::FormatRegistry::instance().byName(plan->format.toStdString()) : nullptr;
    if (!format)
        return;
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
    startExport(job);
}

void DocumentFiles::startExport(std::shared_ptr<PartExport> parts)
{
    m_job.start(
        QT_TRANSLATE_NOOP("JobGuard", "Exporting parts"),
        [parts](FileJob::Progress const& progress) { parts->run(progress); },
        [this](JobOutcome const& outcome) {
            if (!outcome.problem.isEmpty())
                tellLater(tr("Not all parts were exported.") + "\n\n" + outcome.problem);
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
