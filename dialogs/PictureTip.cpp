// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/PictureTip.h"

#include "platform/ui/Theme.h"

#include <QCoreApplication>
#include <QEvent>
#include <QWidget>

#include <utility>

namespace Freecut {

namespace {

/// Below this lightness a ground is a dark one.
constexpr int middleLightness = 128;

}  // namespace

PictureTip::PictureTip(QWidget& widget, Source source)
    : QObject(&widget), m_widget(widget), m_source(std::move(source))
{
    widget.installEventFilter(this);
    renew();
}

void PictureTip::give(std::initializer_list<QWidget*> widgets, Content const& content)
{
    give(widgets, [content] { return content; });
}

void PictureTip::give(std::initializer_list<QWidget*> widgets, Source const& source)
{
    for (QWidget* const widget : widgets)
        new PictureTip(*widget, source);
}

QString PictureTip::fileOf(char const* picture)
{
    // Tool tips may be dark in a light theme.
    bool const isDark = themeColor("toolTip").lightness() < middleLightness;
    return QStringLiteral(":/icons/icons/tip_%1%2.png")
        .arg(QLatin1String(picture), QLatin1String(isDark ? "_dark" : ""));
}

bool PictureTip::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
        case QEvent::ToolTip:
        case QEvent::LanguageChange:
        case QEvent::PaletteChange:
        case QEvent::FocusIn:
            renew();
            break;
        default:
            break;
    }
    return QObject::eventFilter(watched, event);
}

void PictureTip::renew()
{
    Content const content = m_source();
    QString const text = QCoreApplication::translate("Freecut::PictureTip", content.text);
    QString const tip = QStringLiteral(
                            "<table width=\"220\"><tr><td><img src=\"%1\"></td></tr>"
                            "<tr><td>%2</td></tr></table>")
                            .arg(fileOf(content.picture), text.toHtmlEscaped());
    m_widget.setToolTip(tip);
    m_widget.setWhatsThis(tip);
    m_widget.setAccessibleDescription(text);
}

}  // namespace Freecut
