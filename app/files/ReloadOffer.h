// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/files/PartOrigins.h"

#include <QFrame>
#include <QThreadPool>
#include <QTimer>

class DocumentFiles;
class QLabel;
class QPushButton;

/// A strip above the view that offers to read files anew that have changed on disk since their
/// parts were opened; hidden as long as none has. A file that is still being written is waited for.
///
/// The files are looked at in the background, every other moment while the window is shown.
///
/// thread  the user interface thread
class ReloadOffer : public QFrame
{
    Q_OBJECT

public:
    explicit ReloadOffer(DocumentFiles& files, QWidget* parent);
    ~ReloadOffer() override;

    /// The files that are offered.
    QStringList offered() const;

protected:
    void changeEvent(QEvent* event) override;

private:
    using Versions = std::map<QString, std::optional<FileStamp>>;

    void look();
    void take(Versions const& onDisk);
    void refresh();
    void reload();
    void keep();

    DocumentFiles& m_files;
    QLabel* m_text;
    QPushButton* m_reload;
    QPushButton* m_keep;
    QTimer m_timer;
    /// What was found the last time, and what of it is offered.
    Versions m_lastSeen;
    Versions m_offered;
    bool m_isLooking = false;
    QThreadPool m_thread;
};
