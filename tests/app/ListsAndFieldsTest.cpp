// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/panels/PartInformation.h"
#include "app/partlist/PartTreeView.h"
#include "app/window/ShortcutList.h"
#include "tests/app/ToolWindow.h"

#include <QTreeWidget>

namespace {

/// The small things that lists and fields owe to those who work with them all day.
class ListsAndFields : public ToolWindow
{
protected:
    PartTreeView& list() const { return *window->findChild<PartTreeView*>(); }
    bool isSeen(Mesh::DocumentObject const* part) const
    {
        QModelIndexList const rows = list().model()->match(
            list().model()->index(0, 0), Qt::DisplayRole, QString::fromStdString(part->getName()));
        return !rows.isEmpty() &&
               list().viewport()->rect().contains(list().visualRect(rows.front()).center());
    }
    /// What the list of keys shows for words that are typed into its search.
    static QStringList foundBy(ShortcutList const& shortcuts, QString const& words)
    {
        shortcuts.findChild<QLineEdit*>()->setText(words);
        auto const* const tree = shortcuts.findChild<QTreeWidget*>();
        QStringList found;
        for (int i = 0; i < tree->topLevelItemCount(); ++i)
            if (!tree->topLevelItem(i)->isHidden())
                found << tree->topLevelItem(i)->text(0);
        return found;
    }
};

}  // namespace

TEST_F(ListsAndFields, TheListScrollsToWhatIsSelectedAnewAndNotAwayFromWhatIsSeen)
{
    constexpr int many = 80;
    std::vector<Mesh::DocumentObject*> blocks;
    for (int i = 0; i < many; ++i)
        blocks.push_back(test->add(box(1, 1, 1), "block " + std::to_string(i)));
    settle();
    EXPECT_TRUE(isSeen(blocks[0]));
    EXPECT_FALSE(isSeen(blocks[many - 1]));
    // Several, as the pieces of a cut are, and with the focus in the list.
    list().setFocus();
    for (int const i : {many - 2, many - 1})
        blocks[std::size_t(i)]->setSelected(true, true, false);
    settle();
    EXPECT_TRUE(isSeen(blocks[many - 2]));
    EXPECT_FALSE(isSeen(blocks[0]));
    blocks[0]->setSelected(true, true, false);
    settle();
    EXPECT_TRUE(isSeen(blocks[many - 2]));
    EXPECT_FALSE(isSeen(blocks[0]));
}

TEST_F(ListsAndFields, LongNamesLoseTheirMiddle)
{
    EXPECT_EQ(list().textElideMode(), Qt::ElideMiddle);
}

TEST_F(ListsAndFields, WhatCheckFindsDoesNotMoveItsButtons)
{
    auto const* const panel = window->findChild<PartInformation*>();
    auto const buttons = panel->findChildren<PushButtonAnimate*>();
    ASSERT_EQ(buttons.size(), 2);
    settle();
    auto const places = [&] {
        return std::pair(buttons[0]->mapTo(panel, QPoint()), buttons[1]->mapTo(panel, QPoint()));
    };
    auto const before = places();
    Soup open = box(60, 40, 30, {-30, -20, -15});
    open.triangles.pop_back();
    test->add(open, "open block")->setSelected(true, true, true);
    settle();
    EXPECT_EQ(places(), before);
    buttons[0]->click();
    ASSERT_TRUE(waitUntil([&] { return !panel->report().isEmpty(); }));
    settle();
    EXPECT_EQ(places(), before);
    takePicture("checked");
}

TEST_F(ListsAndFields, KeysAreFoundByWhatPeopleCallThings)
{
    {
        ShortcutList const shortcuts(commands(), ShortcutList::Preset::TurnByRight, nullptr);
        EXPECT_TRUE(foundBy(shortcuts, "wireframe").contains("Show Edges"));
        EXPECT_TRUE(foundBy(shortcuts, "ORTHO").contains("Parallel"));
        EXPECT_TRUE(foundBy(shortcuts, "remove").contains("Delete"));
        EXPECT_TRUE(foundBy(shortcuts, "Show Edges").contains("Show Edges"));
        EXPECT_TRUE(foundBy(shortcuts, "no such thing").isEmpty());
    }
    LanguageSwitch::setLanguage(LanguageSwitch::Choice::German);
    settle();
    ShortcutList const german(commands(), ShortcutList::Preset::TurnByRight, nullptr);
    EXPECT_FALSE(foundBy(german, "Drahtgitter").isEmpty());
    EXPECT_TRUE(foundBy(german, "wireframe").isEmpty());
}
