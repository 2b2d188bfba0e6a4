// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/recovery/AutoSave.h"

#include "app/files/DocumentFiles.h"
#include "platform/jobs/Exceptions.h"
#include "platform/ui/ActiveDocument.h"

#include <exception>
#include <sys/resource.h>
#include <utility>

namespace {

/// How far the writing thread stands back behind what the user waits for.
constexpr int writingNiceness = 10;

/// What came of a piece of work, as a sentence for the user; empty if it went well.
QString problemOf(std::function<void()> const& work)
{
    QString reason;
    try {
        work();
        return {};
    } catch (Mell::Exception const& error) {
        reason = QString::fromUtf8(error.what());
    } catch (std::exception const& error) {
        reason = QString::fromUtf8(error.what());
    } catch (...) {
        // Nothing is known but that it failed.
    }
    return (AutoSave::tr("Unsaved changes cannot be kept for recovery; save the project soon.") +
            ' ' + reason)
        .trimmed();
}

}  // namespace

AutoSave::AutoSave(DocumentFiles& files, std::unique_ptr<RecoveryFolder> folder,
                   std::chrono::milliseconds delay)
    : m_files(files), m_folder(std::move(folder))
{
    m_thread.setMaxThreadCount(1);
    m_thread.setExpiryTimeout(-1);
    m_thread.start([] {
        // On Linux the priority of one thread; a refusal does no harm.
        (void)::setpriority(PRIO_PROCESS, 0, writingNiceness);
    });
    m_timer.setSingleShot(true);
    m_timer.setInterval(delay);
    connect(&m_timer, &QTimer::timeout, this, &AutoSave::save);
    connect(&m_files, &DocumentFiles::titleChanged, this, &AutoSave::documentChanged);
    connect(&m_files, &DocumentFiles::jobFinished, this, &AutoSave::documentChanged);
}

AutoSave::~AutoSave()
{
    m_thread.waitForDone();
    m_folder->remove();
}

void AutoSave::adopt(std::shared_ptr<RecoveryFolder> folder)
{
    m_thread.waitForDone();
    m_folder->remove();
    m_folder = std::move(folder);
    m_isKeeping = m_folder->hasState();
}

void AutoSave::documentChanged()
{
    if (m_files.isModified()) {
        if (!m_timer.isActive())
            m_timer.start();
        return;
    }
    m_timer.stop();
    if (!m_isKeeping)
        return;
    m_isKeeping = false;
    write([](RecoveryFolder& folder) { folder.clear(); });
}

void AutoSave::save()
{
    auto const* const document = dynamic_cast<Mesh::Document const*>(activeDocument());
    if (!document || !m_files.isModified())
        return;
    // A step that is under way is no state to come back to.
    if (m_writing > 0 || document->hasOpenTransaction()) {
        m_timer.start();
        return;
    }
    m_isKeeping = true;
    auto const state =
        std::make_shared<RecoveryState>(recoveryStateOf(*document, m_files.projectFile()));
    for (Formats::ProjectObject const& view : m_files.views())
        state->objects.push_back({view});
    write([state](RecoveryFolder& folder) { folder.write(*state); });
}

void AutoSave::write(std::function<void(RecoveryFolder&)> const& work)
{
    ++m_writing;
    m_thread.start([this, work, folder = m_folder] {
        QString const problem = problemOf([&] { work(*folder); });
        QMetaObject::invokeMethod(this, [this, problem] { written(problem); });
    });
}

void AutoSave::written(QString const& problem)
{
    --m_writing;
    if (problem.isEmpty()) {
        m_hasToldProblem = false;
        if (m_isKeeping)
            emit kept();
    } else if (!std::exchange(m_hasToldProblem, true)) {
        emit failed(problem);
    }
}
