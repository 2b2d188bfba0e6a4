// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/panels/LogConsole.h"

#include "app/panels/LogRecorder.h"

#include <QContextMenuEvent>
#include <QEvent>
#include <QMenu>

#include <memory>

LogConsole::LogConsole(LogRecorder& recorder, QWidget* parent) : QPlainTextEdit(parent)
{
    setObjectName("LogConsole");
    setReadOnly(true);
    setUndoRedoEnabled(false);
    setFrameShape(QFrame::NoFrame);
    setLineWrapMode(NoWrap);
    setMaximumBlockCount(LogRecorder::capacity);
    append(recorder.lines());
    connect(&recorder, &LogRecorder::added, this, &LogConsole::append);
    retranslate();
}

void LogConsole::append(QStringList const& lines)
{
    // Keeps the end in sight by itself when it was.
    if (!lines.isEmpty())
        appendPlainText(lines.join(QLatin1Char('\n')));
}

void LogConsole::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QPlainTextEdit::changeEvent(event);
}

void LogConsole::retranslate()
{
    setWindowTitle(tr("Log"));
    setAccessibleName(tr("Log"));
    setPlaceholderText(tr("What the application has to tell about its work comes here."));
}

void LogConsole::contextMenuEvent(QContextMenuEvent* event)
{
    std::unique_ptr<QMenu> const menu(createStandardContextMenu());
    menu->addSeparator();
    QAction* const clearing = menu->addAction(tr("Clear"));
    connect(clearing, &QAction::triggered, this, &QPlainTextEdit::clear);
    menu->exec(event->globalPos());
}
