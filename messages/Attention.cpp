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
