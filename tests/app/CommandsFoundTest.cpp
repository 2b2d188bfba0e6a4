// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/window/ShortcutList.h"
#include "tests/app/AppWindow.h"

#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QTreeWidget>

// By what a person finds a command: its icon, its words.
namespace {

QStringList foundBy(ShortcutList& list, QString const& words)
{
    list.findChild<QLineEdit*>(QStringLiteral("Search"))->setText(words);
    auto const* const tree = list.findChild<QTreeWidget*>();
    QStringList found;
    for (int i = 0; i < tree->topLevelItemCount(); ++i)
        if (!tree->topLevelItem(i)->isHidden())
            found << tree->topLevelItem(i)->text(0).remove("...");
    return found;
}

}  // namespace

TEST_F(AppWindow, CommandsOnPartsHaveIcons)
{
    int count = 0;
    for (QAction const* const menu : window->menuBar()->actions())
        for (QAction const* const entry : menu->menu()->actions())
            if (QString(menu->text()).remove('&') == "Part" && !entry->objectName().isEmpty() &&
                !entry->menu()) {
                EXPECT_FALSE(entry->icon().isNull()) << entry->text().toStdString();
                ++count;
            }
    EXPECT_GT(count, 10);
}

TEST_F(AppWindow, ShortcutsAreFoundByWhatPeopleCallThings)
{
    ShortcutList list(commands(), ShortcutList::Preset{}, nullptr);
    std::pair<char const*, char const*> const words[] = {
        {"ruler", "Measure"},
        {"nest", "Arrange on the Plate"},
        {"gizmo", "Move and Turn by Handles"},
        {"solo", "Hide Others"},
        {"array", "Duplicate in a Row"},
        {"layers", "Cut at Heights"},
        {"print side", "Place the Cut Face Down"},
    };
    for (auto const& [word, command] : words)
        EXPECT_TRUE(foundBy(list, word).contains(command))
            << word << ": " << foundBy(list, word).join(", ").toStdString();
    EXPECT_TRUE(foundBy(list, "no such word").isEmpty());
}
