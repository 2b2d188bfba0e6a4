// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/files/DocumentFiles.h"

#include "app/files/PartReload.h"
#include "host/document/DocumentProject.h"
#include "platform/ui/ActiveDocument.h"
#include "platform/ui/Application.h"
#include "platform/ui/MainWindow.h"
#include "platform/view/GLView.h"

#include <QFileInfo>
#include <QTimer>

#include <algorithm>
#include <iterator>
#include <unordered_set>
#include <utility>

namespace {

constexpr int retryMilliseconds = 50;
/// Sentences in one message; a longer one would not fit on the screen.
constexpr int mostSentences = 12;

/// The names in a document, for new ones that differ from all of them.
class TakenNames
{
public:
    explicit TakenNames(Base::Document const& document)
    {
        for (Base::DocumentObject const* const object : document.getObjectArray())
            m_names.insert(object->getName());
    }

    std::string make(std::string const& base)
    {
        std::string name = base;
        for (int number = 1; !m_names.insert(name).second; ++number)
            name = base + std::to_string(number);
        return name;
    }

private:
    std::unordered_set<std::string> m_names;
};

QString firstProject(QStringList const& files)
{
    for (QString const& file : files)
        if (Formats::isProjectFile(systemPath(file)))
            return file;
    return {};
}

}  // namespace

DocumentFiles::DocumentFiles(std::unique_ptr<FileQuestions> questions, QObject* parent)
    : QObject(parent), m_questions(std::move(questions))
{
    Application::Instance->signalActiveDocument.connect(this,
                                                        &DocumentFiles::activeDocumentChanged);
    connect(&m_job, &WindowJob::finished, this, &DocumentFiles::jobFinished);
    connect(&m_job, &WindowJob::finished, this, &DocumentFiles::openWaiting, Qt::QueuedConnection);
    activeDocumentChanged();
}

DocumentFiles::~DocumentFiles() = default;

void DocumentFiles::setPreparation(PartLoader::Preparation preparation)
{
    m_preparation = std::move(preparation);
}

void DocumentFiles::newDocument()
{
    if (mayDiscard())
        replaceDocument({});
}

void DocumentFiles::open()
{
    openFiles(m_questions->filesToOpen());
}

void DocumentFiles::openFiles(QStringList const& files)
{
    for (QString const& file : files) {
        QString const absolute = QFileInfo(file).absoluteFilePath();
        if (!m_waiting.contains(absolute))
            m_waiting.push_back(absolute);
    }
    openWaiting();
}

void DocumentFiles::openRecent(QString const& file)
{
    if (QFileInfo::exists(file)) {
        openFiles({file});
        return;
    }
    m_recent.remove(file);
    m_questions->tell(
        tr("The file \"%1\" is not there any more; it is taken off the list.").arg(file));
}

void DocumentFiles::openWaiting()
{
    if (m_waiting.isEmpty() || m_isAsking)
        return;
    if (JobGuard::instance()->isBusy()) {
        QTimer::singleShot(retryMilliseconds, this, &DocumentFiles::openWaiting);
        return;
    }
    QStringList const files = std::exchange(m_waiting, {});
    QString const project = firstProject(files);
    if (!project.isEmpty() && !mayDiscard())
        return;
    auto const loaded = std::make_shared<LoadedFiles>();
    // Before it is read: what is changed meanwhile counts as changed.
    std::optional<FileStamp> const asRead = stampOf(project);
    PartLoader const loader(files, project, m_preparation);
    m_job.start(
        QT_TRANSLATE_NOOP("JobGuard", "Opening files"),
        [loader, loaded](WindowJob::Progress const& progress) { *loaded = loader.load(progress); },
        [this, loaded, project, asRead](JobOutcome const& outcome) {
            if (outcome.isDone())
                takeOver(*loaded, project, asRead);
            else if (!outcome.problem.isEmpty())
                tellLater(outcome.problem);
        });
}

void DocumentFiles::takeOver(LoadedFiles& loaded, QString const& project,
                             std::optional<FileStamp> projectAsRead)
{
    m_isTakingOver = true;
    bool const wasEmpty = loaded.project || !document() || document()->getMeshObjects().empty();
    if (loaded.project) {
        Mesh::Document* const fresh = replaceDocument(project);
        takeViews(*loaded.project);
        addProject(*fresh, std::move(*loaded.project));
        fresh->clearHistory();
        fresh->setModified(false);
        watchProject(projectAsRead);
    }
    if (!loaded.parts.empty())
        addParts(loaded);
    if (!loaded.good.isEmpty())
        m_recent.addAll(loaded.good);
    m_isTakingOver = false;
    if (wasEmpty)
        fitIntoView();
    if (!loaded.good.isEmpty())
        emit opened();

    tellProblems(loaded.problems);
}

void DocumentFiles::reload(QStringList const& files)
{
    if (JobGuard::instance()->isBusy() || files.isEmpty())
        return;
    auto const loaded = std::make_shared<LoadedFiles>();
    PartLoader const loader(files, {}, m_preparation);
    m_job.start(
        QT_TRANSLATE_NOOP("JobGuard", "Opening files"),
        [loader, loaded](WindowJob::Progress const& progress) { *loaded = loader.load(progress); },
        [this, loaded](JobOutcome const& outcome) {
            if (outcome.isDone() && document()) {
                QStringList const left = putReloaded(*document(), *loaded, m_origins);
                tellProblems(loaded->problems);
                if (!left.isEmpty())
                    tellLater(left.mid(0, mostSentences).join(QStringLiteral("\n\n")));
            } else if (!outcome.problem.isEmpty()) {
                tellLater(outcome.problem);
            }
        });
}

void DocumentFiles::tellProblems(QStringList const& problems)
{
    QStringList sentences = problems.mid(0, mostSentences);
    int const more = problems.size() - sentences.size();
    if (problems.size() > 1)
        sentences.push_front(tr("%n files could not be opened:", nullptr, problems.size()));
    if (more > 0)
        sentences.push_back(tr("The same goes for %n more.", nullptr, more));
    if (!sentences.isEmpty())
        tellLater(sentences.join(QStringLiteral("\n\n")));
}

bool DocumentFiles::recover(QString const& projectFile, QDateTime const& asOf, ReadRecovered read,
                            std::function<void()> takenOver)
{
    if (JobGuard::instance()->isBusy() || !mayDiscard())
        return false;
    auto const recovered = std::make_shared<Recovered>();
    m_job.start(
        QT_TRANSLATE_NOOP("JobGuard", "Recovering unsaved changes"),
        [recovered, read = std::move(read)](WindowJob::Progress const& progress) {
            *recovered = read(progress);
        },
        [this, recovered, projectFile, asOf,
         takenOver = std::move(takenOver)](JobOutcome const& outcome) {
            if (outcome.isDone()) {
                takeOver(*recovered, projectFile, asOf);
                takenOver();
            } else if (!outcome.problem.isEmpty()) {
                tellLater(outcome.problem);
            }
        });
    return true;
}

void DocumentFiles::takeOver(Recovered& recovered, QString const& projectFile,
                             QDateTime const& asOf)
{
    m_isTakingOver = true;
    Mesh::Document* const fresh = replaceDocument(projectFile);
    takeViews(recovered.objects);
    addProject(*fresh, std::move(recovered.objects));
    fresh->clearHistory();
    fresh->setModified(true);
    bool const isNewer = QFileInfo(projectFile).lastModified() > asOf;
    watchProject(isNewer ? std::nullopt : stampOf(projectFile));
    m_isTakingOver = false;
    fitIntoView();
    emit opened();
    if (!recovered.problems.isEmpty())
        tellLater(recovered.problems.mid(0, mostSentences).join(QStringLiteral("\n\n")));
}

void DocumentFiles::setViews(Views views)
{
    if (!document())
        return;
    m_views = std::move(views);
    m_hasChangedMeanwhile = true;
    document()->setModified(true);
    emit viewsChanged();
    emit titleChanged();
}

/// Those among the objects of a project.
void DocumentFiles::takeViews(Views const& objects)
{
    m_views.clear();
    std::copy_if(
        objects.begin(), objects.end(), std::back_inserter(m_views),
        [](auto const& object) { return object.kind == Formats::ProjectObject::Kind::View; });
    emit viewsChanged();
}

void DocumentFiles::watchProject(std::optional<FileStamp> asKnown)
{
    if (m_projectFile.isEmpty())
        return;
    m_guard.watch(m_projectFile, asKnown);
    if (m_guard.isOpenElsewhere())
        tellLater(tr("\"%1\" is open in another window too. Who saves second is asked before "
                     "anything is replaced.")
                      .arg(displayName()));
}

void DocumentFiles::addParts(LoadedFiles& loaded)
{
    Mesh::Document* const target = document() ? document() : replaceDocument({});
    bool const holdsWork = target->isModified() || !m_projectFile.isEmpty();
    QString const step = loaded.good.size() == 1
                             ? tr("Open %1").arg(QFileInfo(loaded.good.front()).fileName())
                             : tr("Open %n files", nullptr, loaded.good.size());
    TakenNames names(*target);
    target->openTransaction(step.toUtf8().constData());
    for (std::size_t i = 0; i < loaded.parts.size(); ++i) {
        std::unique_ptr<Mesh::DocumentObject>& part = loaded.parts[i];
        part->setName(names.make(part->getName()));
        m_origins.remember(*part, loaded.origins[i]);
        target->addObject(part.release(), nullptr, true);
    }
    target->commitTransaction();
    if (holdsWork)
        target->setModified(true);
}

Mesh::Document* DocumentFiles::replaceDocument(QString const& projectFile)
{
    Mesh::Document* const old = document();
    MainWindow const* const window = MainWindow::getInstance();
    Base::GLView* view = old ? old->getView() : nullptr;
    if (!view && window)
        view = window->activeGLView();
    // A tool holds objects of the old document.
    if (view)
        view->stopSelection();
    QString const name =
        projectFile.isEmpty() ? tr("Untitled") : QFileInfo(projectFile).completeBaseName();
    Mesh::Document* const fresh = Application::Instance->newDocument(name.toStdString());
    if (view)
        view->setDocument(fresh);
    if (old)
        Application::Instance->closeDocument(old);
    m_projectFile = projectFile;
    m_guard.release();
    emit titleChanged();
    return fresh;
}

void DocumentFiles::fitIntoView() const
{
    if (document() && document()->getView())
        document()->getView()->fitAll();
}

void DocumentFiles::tellLater(QString const& text)
{
    // When the job has ended for everybody: the message waits for the user.
    QMetaObject::invokeMethod(
        this, [this, text] { m_questions->tell(text); }, Qt::QueuedConnection);
}

QString DocumentFiles::displayName() const
{
    return m_projectFile.isEmpty() ? tr("Untitled") : QFileInfo(m_projectFile).fileName();
}

bool DocumentFiles::isModified() const
{
    return document() && document()->isModified();
}

Mesh::Document* DocumentFiles::document() const
{
    return dynamic_cast<Mesh::Document*>(activeDocument());
}

void DocumentFiles::activeDocumentChanged()
{
    Base::Document* const active = activeDocument();
    if (active == m_watched)
        return;
    if (m_watched) {
        m_watched->signalStateChanged.disconnect(this);
        m_watched->signalNewObject.disconnect(this);
        m_watched->signalDelObject.disconnect(this);
        m_watched->signalDocumentDeleted.disconnect(this);
    }
    m_watched = active;
    m_projectFile.clear();
    takeViews({});
    m_guard.release();
    m_knownSteps = active ? active->undoNames().size() : 0;
    if (active) {
        active->signalStateChanged.connect(this, &DocumentFiles::stateChanged);
        active->signalNewObject.connect(this, &DocumentFiles::objectAdded);
        active->signalDelObject.connect(this, &DocumentFiles::objectDeleted);
        active->signalDocumentDeleted.connect(this, &DocumentFiles::watchedDeleted);
    }
    emit titleChanged();
}

void DocumentFiles::watchedDeleted()
{
    m_watched = nullptr;
}

void DocumentFiles::stateChanged()
{
    std::size_t const steps = m_watched->undoNames().size();
    bool const isNewStep = steps > m_knownSteps;
    m_hasChangedMeanwhile = m_hasChangedMeanwhile || steps != m_knownSteps;
    m_knownSteps = steps;
    if (isNewStep && !m_isTakingOver)
        m_watched->setModified(true);
    emit titleChanged();
}

void DocumentFiles::objectAdded(Base::DocumentObject*)
{
    m_hasChangedMeanwhile = true;
}

void DocumentFiles::objectDeleted(Base::DocumentObject*, std::string)
{
    m_hasChangedMeanwhile = true;
}
