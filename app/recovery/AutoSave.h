// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/recovery/RecoveryFolder.h"

#include <QObject>
#include <QThreadPool>
#include <QTimer>

#include <chrono>
#include <functional>
#include <memory>

class DocumentFiles;

/// Keeps the changes that nobody has saved yet in a recovery folder, some seconds after they were
/// made. The window only notes which meshes there are; geometry is written in the background, and
/// once. When the document is saved or given up, or the program ends in order, nothing is kept.
///
/// thread  the user interface thread
class AutoSave : public QObject
{
    Q_OBJECT

public:
    /// files   outlive this
    /// folder  where to keep the changes
    /// delay   from a change until it is kept
    AutoSave(DocumentFiles& files, std::unique_ptr<RecoveryFolder> folder,
             std::chrono::milliseconds delay = std::chrono::seconds(4));
    /// Waits for what is being written, and takes the folder away.
    ~AutoSave() override;

    /// Goes on in a folder that was left over, whose state is the document's now. The folder so far
    /// is taken away.
    void adopt(std::shared_ptr<RecoveryFolder> folder);

    /// Whether all changes are kept, and nothing is being written.
    bool isIdle() const { return m_writing == 0 && !m_timer.isActive(); }

signals:
    /// A state has been kept.
    void kept();
    /// Changes could not be kept. Told once, until it goes well again.
    ///
    /// problem  what to do, in a sentence
    void failed(QString const& problem);

private:
    void documentChanged();
    void save();
    void write(std::function<void(RecoveryFolder&)> const& work);
    void written(QString const& problem);

    DocumentFiles& m_files;
    /// Used by the thread while something is written.
    std::shared_ptr<RecoveryFolder> m_folder;
    QTimer m_timer;
    int m_writing = 0;
    /// Whether a state is in the folder, or on its way there.
    bool m_isKeeping = false;
    bool m_hasToldProblem = false;
    /// One thread, so that what is begun first ends first.
    QThreadPool m_thread;
};
