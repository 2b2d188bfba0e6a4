// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/ui/ThemeSwitch.h"

#include "host/ui/MellStyle.h"
#include "host/ui/StyleSheet.h"
#include "host/ui/ThemeFlags.h"
#include "platform/ui/Application.h"
#include "platform/ui/CommandManager.h"
#include "platform/ui/MainWindow.h"
#include "platform/ui/StoredSettings.h"
#include "platform/ui/Theme.h"

#include <QApplication>
#include <QFontInfo>
#include <QPalette>
#include <QPointer>
#include <QToolTip>

#include <algorithm>
#include <array>

namespace {

QString const themeKey = QStringLiteral("/Interface/theme");
QString const sizeKey = QStringLiteral("/Interface/pixelSize");
std::array<QString, 3> const themeNames{"system", "light", "dark"};

/// What the system gave the application, before a theme of ours changed it.
struct SystemLook
{
    SystemLook()
        : isDark(QGuiApplication::palette().color(QPalette::Window).lightness() < 128),
          pixelSize(QFontInfo(QApplication::font()).pixelSize())
    {}

    bool isDark;
    int pixelSize;
};

SystemLook const& systemLook()
{
    static SystemLook const look;
    return look;
}

int bounded(int pixels)
{
    return std::clamp(pixels, ThemeSwitch::smallestSize, ThemeSwitch::largestSize);
}

QPalette themePalette()
{
    QPalette palette;
    auto const set = [&palette](QPalette::ColorRole role, char const* colour,
                                char const* disabled) {
        palette.setColor(role, themeColor(colour));
        palette.setColor(QPalette::Disabled, role, themeColor(disabled));
    };
    set(QPalette::Window, "window", "window");
    set(QPalette::WindowText, "text", "disabledText");
    set(QPalette::Base, "base", "window");
    set(QPalette::AlternateBase, "surface", "window");
    set(QPalette::Text, "text", "disabledText");
    set(QPalette::Button, "surface", "window");
    set(QPalette::ButtonText, "text", "disabledText");
    set(QPalette::BrightText, "error", "disabledText");
    set(QPalette::PlaceholderText, "mutedText", "disabledText");
    set(QPalette::Highlight, "accent", "border");
    set(QPalette::HighlightedText, "accentText", "mutedText");
    set(QPalette::Link, "link", "disabledText");
    set(QPalette::LinkVisited, "link", "disabledText");
    set(QPalette::ToolTipBase, "toolTip", "toolTip");
    set(QPalette::ToolTipText, "toolTipText", "toolTipText");
    set(QPalette::Light, "surface", "surface");
    set(QPalette::Midlight, "header", "header");
    set(QPalette::Mid, "border", "border");
    set(QPalette::Dark, "controlBorder", "border");
    set(QPalette::Shadow, "controlBorder", "border");
    return palette;
}

void tellEverybody()
{
    if (Application::Instance)
        Application::Instance->commandManager().updateActionIcons();
    if (MainWindow* const window = MainWindow::getInstance())
        emit window->signalThemeColorChanged(g_ThemeColor);
}

/// The style of the application; made on first use.
void useOwnStyle()
{
    static QPointer<MellStyle> style;
    if (style)
        return;
    style = new MellStyle;
    QApplication::setStyle(style);
}

void putIntoEffect(ThemeSwitch::Choice choice, int size)
{
    SystemLook const& system = systemLook();
    bool const isDark =
        choice == ThemeSwitch::Choice::System ? system.isDark : choice == ThemeSwitch::Choice::Dark;
    g_pixelSize = bounded(size ? size : system.pixelSize);
    g_ThemeColor = isDark ? g_ThemeColor | darkTheme : g_ThemeColor & ~darkTheme;

    QFont font = QApplication::font();
    font.setPixelSize(g_pixelSize);
    // A style sheet wraps the style, so the style comes first.
    useOwnStyle();
    QApplication::setFont(font);
    QToolTip::setFont(font);
    QApplication::setPalette(themePalette());
    QToolTip::setPalette(themePalette());
    qApp->setStyleSheet(themeStyleSheet());
    tellEverybody();
}

}  // namespace

void ThemeSwitch::applyStored()
{
    putIntoEffect(choice(), interfaceSize());
}

ThemeSwitch::Choice ThemeSwitch::choice()
{
    QString const name = storedValue(themeKey).toString();
    auto const place = std::find(themeNames.begin(), themeNames.end(), name);
    return place == themeNames.end() ? Choice::System : Choice(place - themeNames.begin());
}

void ThemeSwitch::setTheme(Choice choice)
{
    storeValue(themeKey, themeNames[static_cast<std::size_t>(choice)]);
    putIntoEffect(choice, interfaceSize());
}

int ThemeSwitch::interfaceSize()
{
    int const pixels = storedValue(sizeKey, 0).toInt();
    return pixels < smallestSize || pixels > largestSize ? 0 : pixels;
}

void ThemeSwitch::setInterfaceSize(int pixels)
{
    storeValue(sizeKey, pixels == 0 ? 0 : bounded(pixels));
    putIntoEffect(choice(), interfaceSize());
}

bool ThemeSwitch::isDark()
{
    return (g_ThemeColor & darkTheme) != 0;
}
