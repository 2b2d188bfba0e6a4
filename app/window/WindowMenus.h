// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QPointer>
#include <QVector>

#include <string>
#include <utility>
#include <vector>

class QLabel;
class QMainWindow;
class QMenu;
class QToolBar;

namespace Base {
class CommandManager;
}

/// The menus and tool bars of the window, filled from the commands by name. A command that is not
/// there is left out, and so is a menu that would be empty.
class WindowMenus : public QObject
{
    Q_OBJECT

public:
    WindowMenus(QMainWindow& window, Base::CommandManager& manager);

    /// Empties menus and tool bars and fills them anew, after commands have been added.
    void fill();
    void retranslate();

    // Submenus, borrowed; shown when the menus are filled next.

    void setRecentFiles(QMenu* menu) { m_recentFiles = menu; }
    void setKeptViews(QMenu* menu) { m_keptViews = menu; }
    /// The commands of the menu of modules, by name; shown when the menus are filled next.
    void setCommandsOfOthers(std::vector<std::string> names) { m_ofOthers = std::move(names); }
    /// The tool bars, whose toggles belong into the window menu.
    std::vector<QToolBar*> const& toolBars() const { return m_toolBars; }
    /// The menu to which the window adds its panels; never null after fill().
    QMenu* windowMenu() const { return m_window; }

signals:
    /// A menu is about to be shown: its actions have to be right.
    void aboutToShow();
    /// The menus have been made anew; others add their entries again.
    void filled();

private:
    QMenu* addMenu(char const* title);
    void fillMenu(QMenu& menu, std::vector<char const*> const& entries);
    void fillMenus();
    QMenu* submenu(char const* entry) const;
    void fillToolBar(QToolBar& bar, std::vector<char const*> const& entries);
    void addHeading(QMenu& menu, char const* text);

    struct Title
    {
        QMenu* menu;
        char const* text;
    };
    struct Heading
    {
        QLabel* label;
        char const* text;
    };

    QMainWindow& m_mainWindow;
    Base::CommandManager& m_manager;
    QVector<Title> m_titles;
    QVector<Heading> m_headings;
    QPointer<QMenu> m_recentFiles;
    QPointer<QMenu> m_keptViews;
    std::vector<std::string> m_ofOthers;
    QMenu* m_window = nullptr;
    std::vector<QToolBar*> m_toolBars;
};
