// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/files/RecentMenu.h"

#include "app/files/DocumentFiles.h"
#include "app/jobs/JobGuard.h"

#include <QEvent>
#include <QFileInfo>

RecentMenu::RecentMenu(DocumentFiles& files, QWidget* parent) : QMenu(parent), m_files(files)
{
    setToolTipsVisible(true);
    connect(this, &QMenu::aboutToShow, this, &RecentMenu::fill);
    connect(&files.recentFiles(), &RecentFiles::changed, this, &RecentMenu::update);
    connect(JobGuard::instance(), &JobGuard::busyChanged, this, &RecentMenu::update);
    update();
}

void RecentMenu::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        update();
    QMenu::changeEvent(event);
}

void RecentMenu::update()
{
    setTitle(tr("Open &Recent"));
    QString const reason = m_files.recentFiles().files().isEmpty() ? tr("No file was opened yet.")
                                                                   : JobGuard::instance()->reason();
    menuAction()->setEnabled(reason.isEmpty());
    menuAction()->setToolTip(reason);
}

void RecentMenu::fill()
{
    clear();
    int number = 0;
    for (QString const& file : m_files.recentFiles().files()) {
        QString name = QFileInfo(file).fileName();
        name.replace('&', QStringLiteral("&&"));
        QString const mark = ++number < 10 ? QStringLiteral("&%1  ") : QStringLiteral("%1  ");
        QAction* const action = addAction(mark.arg(number) + name);
        action->setToolTip(file);
        action->setStatusTip(file);
        connect(action, &QAction::triggered, this, [this, file] { m_files.openRecent(file); });
    }
    addSeparator();
    connect(addAction(tr("&Clear List")), &QAction::triggered, &m_files.recentFiles(),
            &RecentFiles::clear);
}
