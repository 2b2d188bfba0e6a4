// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/window/WindowMenus.h"

#include "platform/ui/Action.h"
#include "platform/ui/Command.h"
#include "platform/ui/CommandManager.h"

#include <QCoreApplication>
#include <QLabel>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>
#include <QToolButton>
#include <QWidgetAction>

#include <string_view>

namespace {

// Entries are names of commands; "-" is a separator, and what begins with "#" a heading.

struct Menu
{
    char const* title;
    std::vector<char const*> entries;
};

char const* const recentFiles = "recent files";
char const* const keptViews = "kept views";
char const* const modulesTitle = QT_TRANSLATE_NOOP("WindowMenus", "&Modules");
char const* const windowTitle = QT_TRANSLATE_NOOP("WindowMenus", "&Window");

std::vector<Menu> const& menus()
{
    static std::vector<Menu> const all = {
        {QT_TRANSLATE_NOOP("WindowMenus", "&File"),
         {"Std_New", "Std_Open", recentFiles, "-", "Std_Save", "Std_SaveAs", "Std_Export",
          "Std_ExportSelected", "-", "Std_Screenshot", "-", "Std_Quit"}},
        {QT_TRANSLATE_NOOP("WindowMenus", "&Edit"),
         {"Std_Undo", "Std_Redo", "-", "Std_Duplicate", "Std_DuplicateRow", "Std_Delete", "-",
          "Std_SelectAll", "Std_SelectNone", "Std_InvertSelection", "-", "Std_RectangleSelect",
          "Std_PickPoint", "Std_Measure", "Std_CopyMeasure", "-", "Std_Preferences"}},
        {QT_TRANSLATE_NOOP("WindowMenus", "&View"),
         {"Std_View0",
          "Std_View1",
          "Std_View2",
          "Std_View3",
          "Std_View4",
          "Std_View5",
          "Std_View6",
          keptViews,
          "-",
          "Std_FitAll",
          "Std_FitSelection",
          "-",
          "Std_Perspective",
          "Std_Parallel",
          "-",
          "Std_ShowEdges",
          "Std_ShowPlate",
          "Std_TintParts",
          "-",
          "Std_CutView"}},
        {QT_TRANSLATE_NOOP("WindowMenus", "&Part"),
         {"Std_Hide",
          "Std_Show",
          "Std_ShowAll",
          "Std_Isolate",
          "-",
          "Std_Group",
          "Std_Ungroup",
          "-",
          "Std_Handles",
          "Std_DropToPlate",
          "Std_CentreOnPlate",
          "Std_Arrange",
          "Std_CutFaceDown",
          "Std_LayFlat",
          "Std_FaceDown",
          "-",
          "Std_Check",
          "Std_Repair",
          "Std_NextFlaw",
          "Std_PreviousFlaw",
          "-",
          QT_TRANSLATE_NOOP("WindowMenus", "#Combine and split"),
          "Std_Join",
          "Std_TakeAway",
          "Std_Intersect",
          "Std_SplitByParts",
          "Std_SplitShells",
          "Std_Merge"}},
        {QT_TRANSLATE_NOOP("WindowMenus", "&Cut"),
         {QT_TRANSLATE_NOOP("WindowMenus", "#At the height of the slider"), "Std_zCut",
          "Std_CutAtHeights", QT_TRANSLATE_NOOP("WindowMenus", "#By a plane"), "Std_Sectioncut",
          "FreecutPlane3Pts", "FreecutPlaneTangent", "FreecutPlaneVertical", "FreecutPlaneXYPlane",
          "FreecutPlaneXZPlane", "FreecutPlaneYZPlane",
          QT_TRANSLATE_NOOP("WindowMenus", "#By a drawn shape"), "Std_Polygoncut", "FreecutPolygon",
          "FreecutCylinder", "FreecutCuboid"}},
        {modulesTitle, {}},
        {windowTitle, {"Std_FullScreen", "Std_ResetLayout"}},
        {QT_TRANSLATE_NOOP("WindowMenus", "&Help"), {"Std_Shortcuts", "-", "Std_About"}},
    };
    return all;
}

struct ToolBar
{
    char const* objectName;
    char const* title;
    std::vector<char const*> entries;
};

// What cuts has a bar of its own: it grows with the tools of modules, and the user may take it away
// or put it at another edge.
std::vector<ToolBar> const& barTables()
{
    static std::vector<ToolBar> const all = {
        {"MainToolBar",
         QT_TRANSLATE_NOOP("WindowMenus", "Tools"),
         {"Std_Open",
          "Std_Save",
          "-",
          "Std_Undo",
          "Std_Redo",
          "-",
          "Std_RectangleSelect",
          "Std_PickPoint",
          "-",
          "Std_Duplicate",
          "Std_Delete",
          "Std_Group",
          "Std_Hide",
          "Std_ShowAll",
          "-",
          "Std_FitAll",
          "Std_View6",
          "Std_Perspective",
          "Std_ShowEdges",
          "Std_CutView"}},
        {"CutToolBar",
         QT_TRANSLATE_NOOP("WindowMenus", "Cut"),
         {"Std_zCut", "-", "Std_Sectioncut", "FreecutPlane3Pts", "FreecutPlaneTangent",
          "FreecutPlaneVertical", "FreecutPlaneXYPlane", "FreecutPlaneXZPlane",
          "FreecutPlaneYZPlane", "-", "Std_Polygoncut", "FreecutPolygon", "FreecutCylinder",
          "FreecutCuboid"}},
    };
    return all;
}

bool isSeparator(char const* entry)
{
    return std::string_view(entry) == "-";
}

}  // namespace

WindowMenus::WindowMenus(QMainWindow& window, Base::CommandManager& manager)
    : QObject(&window), m_mainWindow(window), m_manager(manager)
{
    for (ToolBar const& entry : barTables()) {
        auto* const bar = new QToolBar(&window);
        bar->setObjectName(QString::fromLatin1(entry.objectName));
        bar->setMovable(entry.objectName != barTables().front().objectName);
        bar->setToolButtonStyle(Qt::ToolButtonIconOnly);
        bar->setContextMenuPolicy(Qt::PreventContextMenu);
        window.addToolBar(Qt::TopToolBarArea, bar);
        m_toolBars.push_back(bar);
    }
}

void WindowMenus::fill()
{
    // The menu bar keeps the menus that it shows no longer. Submenus come behind theirs.
    while (!m_titles.empty()) {
        delete m_titles.back().menu;
        m_titles.pop_back();
    }
    m_headings.clear();
    m_mainWindow.menuBar()->clear();
    fillMenus();
    for (std::size_t i = 0; i < m_toolBars.size(); ++i)
        fillToolBar(*m_toolBars[i], barTables()[i].entries);
    retranslate();
    emit filled();
}

void WindowMenus::fillMenus()
{
    for (Menu const& entry : menus()) {
        QMenu* const menu = addMenu(entry.title);
        fillMenu(*menu, entry.entries);
        if (entry.title == modulesTitle)
            for (std::string const& name : m_ofOthers)
                m_manager.addTo(name.c_str(), menu);
        if (entry.title == windowTitle)
            m_window = menu;
        else if (menu->isEmpty())
            m_mainWindow.menuBar()->removeAction(menu->menuAction());
    }
}

QMenu* WindowMenus::addMenu(char const* title)
{
    QMenu* const menu = m_mainWindow.menuBar()->addMenu(QString());
    menu->setToolTipsVisible(true);
    m_titles.push_back({menu, title});
    connect(menu, &QMenu::aboutToShow, this, &WindowMenus::aboutToShow);
    return menu;
}

void WindowMenus::fillMenu(QMenu& menu, std::vector<char const*> const& entries)
{
    // Separators and headings wait until an entry follows.
    bool isSeparated = true;
    char const* heading = nullptr;
    for (char const* const entry : entries) {
        if (isSeparator(entry)) {
            isSeparated = false;
        } else if (*entry == '#') {
            heading = entry;
        } else if (QMenu* const below = submenu(entry)) {
            menu.addMenu(below);
        } else if (m_manager.getCommandByName(entry)) {
            if (!isSeparated && !menu.isEmpty())
                menu.addSeparator();
            if (heading)
                addHeading(menu, heading);
            m_manager.addTo(entry, &menu);
            isSeparated = true;
            heading = nullptr;
        }
    }
}

// Null for an entry that is none, or for one that nobody has set.
QMenu* WindowMenus::submenu(char const* entry) const
{
    return entry == recentFiles ? m_recentFiles.data()
           : entry == keptViews ? m_keptViews.data()
                                : nullptr;
}

void WindowMenus::addHeading(QMenu& menu, char const* text)
{
    auto* const label = new QLabel(&menu);
    label->setObjectName(QStringLiteral("MenuHeading"));
    label->setEnabled(false);
    int const margin = label->fontMetrics().height() / 3;
    label->setContentsMargins(2 * margin, margin, 2 * margin, margin);
    auto* const entry = new QWidgetAction(&menu);
    entry->setDefaultWidget(label);
    entry->setEnabled(false);
    menu.addAction(entry);
    m_headings.push_back({label, text});
}

void WindowMenus::fillToolBar(QToolBar& bar, std::vector<char const*> const& entries)
{
    bar.clear();
    bool isSeparated = true;
    for (char const* const name : entries) {
        if (isSeparator(name)) {
            isSeparated = false;
            continue;
        }
        if (!m_manager.getCommandByName(name))
            continue;
        if (!isSeparated && !bar.actions().isEmpty())
            bar.addSeparator();
        isSeparated = true;
        m_manager.addTo(name, &bar);
    }
}

void WindowMenus::retranslate()
{
    for (Title const& title : m_titles)
        title.menu->setTitle(tr(title.text));
    for (Heading const& heading : m_headings)
        heading.label->setText(tr(heading.text).mid(1));
    for (std::size_t i = 0; i < m_toolBars.size(); ++i)
        m_toolBars[i]->setWindowTitle(tr(barTables()[i].title));
}
