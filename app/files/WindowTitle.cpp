// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/files/WindowTitle.h"

#include "app/files/DocumentFiles.h"

#include <QCoreApplication>
#include <QEvent>
#include <QGuiApplication>
#include <QWidget>

WindowTitle::WindowTitle(QWidget* window, DocumentFiles& files)
    : QObject(window), m_window(window), m_files(files)
{
    window->installEventFilter(this);
    connect(&files, &DocumentFiles::titleChanged, this, &WindowTitle::update);
    update();
}

bool WindowTitle::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        update();
    return QObject::eventFilter(watched, event);
}

void WindowTitle::update()
{
    // "[*]" stands for the mark; two of them for the characters themselves.
    QString name = m_files.displayName();
    name.replace(QStringLiteral("[*]"), QStringLiteral("[*][*]"));
    m_window->setWindowTitle(
        QStringLiteral("%1[*] - %2").arg(name, QGuiApplication::applicationDisplayName()));
    m_window->setWindowFilePath(m_files.projectFile());
    m_window->setWindowModified(m_files.isModified());
}
