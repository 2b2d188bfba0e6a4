// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/ui/CommandBase.h"

#include "host/ui/ThemeFlags.h"
#include "platform/ui/Theme.h"

#include <QCoreApplication>

namespace Base {

void CommandBase::updateAction(int state) {}

QString CommandBase::getToolTipHTML() const
{
    auto const translated = [this](QString const& text) {
        return QCoreApplication::translate(className(), text.toUtf8().constData()).toHtmlEscaped();
    };
    QString html = QStringLiteral("<b>%1</b>").arg(translated(getMenuText()).remove("&amp;"));
    if (!getToolTipText().isEmpty())
        html += QStringLiteral("<p>%1</p>").arg(translated(getToolTipText()));
    if (!getToopTipPixmap().isEmpty())
        html += QStringLiteral("<img src=\"%1\">").arg(getToopTipPixmap().toHtmlEscaped());
    return html;
}

QString CommandBase::getToopTipPixmap() const
{
    return getToolTipExtText();
}

QString CommandBase::getMenuPixmap() const
{
    bool const isDark = (g_ThemeColor & darkTheme) != 0;
    char const* const path = isDark && getPixmapDark() ? getPixmapDark() : getPixmap();
    return QString::fromUtf8(path);
}

}  // namespace Base
