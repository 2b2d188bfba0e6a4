// SPDX-License-Identifier: GPL-3.0-or-later
#include "messages/Attention.h"

#include "platform/ui/MainWindow.h"
#include "platform/ui/MellMessageBox.h"

#include <QCoreApplication>

QString Freecut::commonText(char const* text)
{
    return QCoreApplication::translate("MellCommons", text);
}

void Freecut::warnAttention(QString const& message, char const* context)
{
    MellMessageBox::warning(MainWindow::getInstance(),
                            QCoreApplication::translate(context, "Attention"), message,
                            QCoreApplication::translate(context, "OK"), "", "", 0, -1);
}

int Freecut::warnFailure(QString const& message, QString const& reason, QStringList const& waysOut)
{
    return MellMessageBox::failure(
               MainWindow::getInstance(), commonText(QT_TRANSLATE_NOOP("MellCommons", "Attention")),
               message, reason,
               QStringList(commonText(QT_TRANSLATE_NOOP("MellCommons", "OK"))) + waysOut) -
           1;
}

bool Freecut::askQuestion(QString const& message)
{
    constexpr int yes = 0, no = 1;
    return MellMessageBox::warning(
               MainWindow::getInstance(), commonText(QT_TRANSLATE_NOOP("MellCommons", "Question")),
               message, commonText(QT_TRANSLATE_NOOP("MellCommons", "Yes")),
               commonText(QT_TRANSLATE_NOOP("MellCommons", "No")), "", yes, no) == yes;
}
