// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/CutNotes.h"

#include "platform/document/MeshDocumentObject.h"
#include "platform/jobs/ConsoleSingleton.h"
#include "platform/ui/MainWindow.h"

#include <QCoreApplication>
#include <QStatusBar>

namespace Freecut {

namespace {

/// Long enough to be read after the dialog has gone.
constexpr int shownMilliseconds = 15000;
//: The first remark, and how many others there are.
constexpr char const* moreInLog = QT_TRANSLATE_NOOP("DialogFreeCut", "%1 (%2 more in the log)");

QString lineOf(CutRemark const& remark)
{
    QString const text = QString::fromStdString(remark.text);
    if (!remark.part)
        return text;
    return QStringLiteral("%1: %2").arg(QString::fromStdString(remark.part->getName()), text);
}

QString shortOf(QStringList const& lines)
{
    if (lines.size() == 1)
        return lines.front();
    return QCoreApplication::translate("DialogFreeCut", moreInLog)
        .arg(lines.front())
        .arg(lines.size() - 1);
}

}  // namespace

CutNotes::CutNotes(CutRemarks const& remarks)
{
    for (CutRemark const& remark : remarks)
        m_lines << lineOf(remark);
}

void CutNotes::tell() const
{
    if (m_lines.isEmpty())
        return;
    for (QString const& line : m_lines)
        Base::ConsoleSingleton::Instance().Log(line.toStdString());
    if (MainWindow* const window = MainWindow::getInstance())
        window->statusBar()->showMessage(shortOf(m_lines), shownMilliseconds);
}

}  // namespace Freecut
