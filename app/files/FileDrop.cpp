// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/files/FileDrop.h"

#include "app/files/DocumentFiles.h"
#include "app/files/DropHighlight.h"
#include "app/jobs/JobGuard.h"

#include <QDropEvent>
#include <QFileInfo>
#include <QMimeData>
#include <QUrl>
#include <QWidget>

FileDrop::FileDrop(QWidget* target, QWidget& highlighted, DocumentFiles& files)
    : QObject(target), m_files(files), m_highlight(new DropHighlight(highlighted))
{
    target->setAcceptDrops(true);
    target->installEventFilter(this);
}

QStringList FileDrop::filesIn(QMimeData const* data)
{
    QStringList files;
    for (QUrl const& url : data->urls())
        if (url.isLocalFile() && QFileInfo(url.toLocalFile()).isFile())
            files.push_back(url.toLocalFile());
    return files;
}

bool FileDrop::eventFilter(QObject* watched, QEvent* event)
{
    bool const isDrop = event->type() == QEvent::Drop;
    if (isDrop || event->type() == QEvent::DragLeave)
        m_highlight->setFiles(0);
    if (!isDrop && event->type() != QEvent::DragEnter && event->type() != QEvent::DragMove)
        return QObject::eventFilter(watched, event);
    auto& drop = *static_cast<QDropEvent*>(event);
    QStringList const files = filesIn(drop.mimeData());
    if (files.isEmpty() || JobGuard::instance()->isBusy()) {
        drop.ignore();
        return true;
    }
    drop.setDropAction(Qt::CopyAction);
    drop.accept();
    if (event->type() == QEvent::DragEnter)
        m_highlight->setFiles(files.size());
    // The program that the files come from waits until this returns.
    if (isDrop)
        QMetaObject::invokeMethod(
            &m_files, [this, files] { m_files.openFiles(files); }, Qt::QueuedConnection);
    return true;
}
