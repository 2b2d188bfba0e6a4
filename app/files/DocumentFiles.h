// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/files/FileQuestions.h"
#include "app/files/PartLoader.h"
#include "app/files/PartOrigins.h"
#include "app/files/ProjectGuard.h"
#include "app/files/RecentFiles.h"
#include "app/jobs/WindowJob.h"
#include "platform/document/MeshDocument.h"

#include <QDateTime>
#include <QObject>

class PartExport;

/// The one door through which documents and files meet: opening, saving and exporting, all in the
/// background, one at a time; the project file of the active document; the question before unsaved
/// work is lost; the recent files.
///
/// Mesh files add their parts to the active document, as one undo step. A project file takes the
/// document's place, after the user was asked about unsaved work; of several that are opened
/// together the first does, and the others are read as parts. What fails or is cancelled leaves the
/// document as it was.
///
/// A document counts as modified when the caller of an operation says so or when an undo step comes
/// or goes. Parts that were only opened into a document without a file and without changes can be
/// opened again, so they are no unsaved work.
///
/// thread  the user interface thread
class DocumentFiles : public QObject, public sigslot::has_slots<sigslot::single_threaded>
{
    Q_OBJECT

public:
    /// The application is there, and outlives this.
    explicit DocumentFiles(std::unique_ptr<FileQuestions> questions, QObject* parent = nullptr);
    /// Waits for the job that runs; what it has read is dropped, what it writes is finished.
    ~DocumentFiles() override;

    /// Starts anew with an empty document, after the question about unsaved work.
    void newDocument();

    /// Asks for files and opens them.
    void open();
    /// Opens files, by paths that may be relative. While the application is busy they wait for
    /// their turn. Files that cannot be read are told in one message; the others are opened.
    void openFiles(QStringList const& files);
    /// Reads mesh files anew and puts what they have in the place of the parts that came from them,
    /// as one undo step. What cannot be read is told, and its parts stay. Not while a job runs.
    void reload(QStringList const& files);
    /// Where the parts came from.
    PartOrigins& origins() { return m_origins; }
    PartOrigins const& origins() const { return m_origins; }
    /// Opens a file of the recent ones; if it is not there any more, says so and forgets it.
    void openRecent(QString const& file);

    /// Saves the project to its file, or where the user says if it has none.
    void save();
    void saveAs();

    /// Unsaved work that was kept when the program could not end in order.
    struct Recovered
    {
        std::vector<Formats::ProjectObject> objects;
        /// One sentence for each thing that is missing.
        QStringList problems;
    };
    using ReadRecovered = std::function<Recovered(WindowJob::Progress const&)>;
    /// Puts such work in the document's place, after the question about unsaved work. It is unsaved
    /// still.
    ///
    /// projectFile  where it would be saved; empty for none
    /// asOf         when it was kept: a project file that is newer counts as changed by others
    /// read         called on the job's thread
    /// takenOver    called when the work is in the document
    /// returns      false if the user keeps the document that is there, or a job runs
    bool recover(QString const& projectFile, QDateTime const& asOf, ReadRecovered read,
                 std::function<void()> takenOver);

    /// Exports the selected parts, or all of them but those that are hidden, in the way the user
    /// says, who may take the hidden ones along.
    void exportParts(bool onlySelected);

    /// Waits for running jobs, with events being handled, and then asks about unsaved work: true if
    /// there is none, it was saved, or the user gives it up. To be called before the window closes.
    bool mayDiscard();

    /// The project file; empty if there is none.
    QString const& projectFile() const { return m_projectFile; }
    /// The name for the window's title.
    QString displayName() const;
    bool isModified() const;

    /// The views of the active document that were kept by name: objects of that kind. They are saved
    /// with the project; undo does not know them.
    using Views = std::vector<Formats::ProjectObject>;
    Views const& views() const { return m_views; }
    /// Counts as a change of the document.
    void setViews(Views views);

    RecentFiles& recentFiles() { return m_recent; }
    /// Whether a file is being read or written, or waits for its turn.
    bool isWorking() const { return m_job.isRunning() || !m_waiting.isEmpty(); }

    /// What is to be done with every kernel that is read, on the loading thread, so that the first
    /// picture need not wait for it. Not while a job runs.
    void setPreparation(PartLoader::Preparation preparation);

signals:
    /// displayName() or isModified() has changed.
    void titleChanged();
    /// A job has ended and its result, if any, is in place.
    void jobFinished();
    /// Files were written.
    ///
    /// sentence  which, in the language of the interface
    void written(QString const& sentence, QString const& folder);
    /// Parts were added, or a project was opened.
    void opened();
    void viewsChanged();

private:
    void openWaiting();
    void takeOver(LoadedFiles& loaded, QString const& project,
                  std::optional<FileStamp> projectAsRead);
    void takeViews(Views const& objects);
    Views objectsToSave() const;
    void watchProject(std::optional<FileStamp> asKnown);
    void addParts(LoadedFiles& loaded);
    void tellProblems(QStringList const& problems);
    Mesh::Document* replaceDocument(QString const& projectFile);
    void fitIntoView() const;
    void startSaving(QString const& file);
    void finishSaving(QString const& file);
    void startExport(std::shared_ptr<PartExport> parts, QStringList const& leftOut);
    void takeOver(Recovered& recovered, QString const& projectFile, QDateTime const& asOf);
    void tellLater(QString const& text);
    void waitUntilIdle();

    Mesh::Document* document() const;
    void activeDocumentChanged();
    void watchedDeleted();
    void stateChanged();
    void objectAdded(Base::DocumentObject* object);
    void objectDeleted(Base::DocumentObject* object, std::string className);

    std::unique_ptr<FileQuestions> m_questions;
    RecentFiles m_recent;
    PartOrigins m_origins;
    PartLoader::Preparation m_preparation;
    QStringList m_waiting;
    QString m_projectFile;
    Views m_views;
    ProjectGuard m_guard;
    /// The document whose signals are heard.
    Base::Document* m_watched = nullptr;
    std::size_t m_knownSteps = 0;
    bool m_isTakingOver = false;
    bool m_isAsking = false;
    /// Whether the document has changed since it was handed to the writer.
    bool m_hasChangedMeanwhile = false;
    /// Last, so that its thread ends before what it uses.
    WindowJob m_job;
};
