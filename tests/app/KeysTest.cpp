// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/window/KeyBindings.h"
#include "app/window/ShortcutList.h"
#include "platform/ui/StoredSettings.h"
#include "tests/app/MouseInWindow.h"
#include "tests/app/ShownWindow.h"

#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>

namespace {

/// A hand changes keys in the list of them.
class Keys : public ShownWindow
{
protected:
    void prepare() override
    {
        test->add(box(10, 10, 10), "part");
        open();
    }
    void open()
    {
        trigger("Std_Shortcuts");
        dialog = window->findChild<ShortcutList*>();
        ASSERT_TRUE(dialog && waitUntil([&] { return dialog->windowHandle()->isExposed(); }));
        dialog->activateWindow();
        QCoreApplication::processEvents();
        tree = dialog->findChild<QTreeWidget*>();
    }
    QTreeWidgetItem* row(QString const& title) const
    {
        auto const found = tree->findItems(title, Qt::MatchExactly);
        return found.isEmpty() ? nullptr : found[0];
    }
    void clickOn(QString const& title)
    {
        QTreeWidgetItem* const item = row(title);
        ASSERT_TRUE(item) << qPrintable(title);
        tree->scrollToItem(item);
        MouseInWindow(*dialog).click(*tree->viewport(), tree->visualItemRect(item).center());
    }
    void press(int key, Qt::KeyboardModifiers modifiers = {}) const
    {
        QTest::keyClick(tree, Qt::Key(key), modifiers);
    }
    void clickButton(QString const& text) const
    {
        for (QPushButton* const button : dialog->findChildren<QPushButton*>())
            if (button->text() == text)
                button->click();
    }
    QString keys(QString const& title) const { return row(title)->text(1); }
    QString message() const { return dialog->findChild<QLabel*>("Message")->text(); }
    QKeySequence shortcut(std::string const& name) const { return action(name)->shortcut(); }

    ShortcutList* dialog = nullptr;
    QTreeWidget* tree = nullptr;
};

}  // namespace

TEST_F(Keys, AClickAndAPressGiveACommandOtherKeys)
{
    EXPECT_EQ(keys("Fit All"), "F");
    clickOn("Fit All");
    EXPECT_EQ(keys("Fit All"), "Press the keys...");
    press(Qt::Key_Home, Qt::ControlModifier);
    EXPECT_EQ(keys("Fit All"), "Ctrl+Home");
    EXPECT_EQ(shortcut("Std_FitAll"), QKeySequence("Ctrl+Home"));
    // A command that came without keys.
    clickOn("Colour Parts in Turn");
    press(Qt::Key_T);
    EXPECT_EQ(shortcut("Std_TintParts"), QKeySequence("T"));
    takePicture("keys");
    dialog->close();
    // The next time too.
    start();
    EXPECT_EQ(shortcut("Std_FitAll"), QKeySequence("Ctrl+Home"));
    EXPECT_EQ(shortcut("Std_TintParts"), QKeySequence("T"));
    EXPECT_EQ(shortcut("Std_FitSelection"), QKeySequence("Shift+F"));
}

TEST_F(Keys, TheNewKeysWorkInTheWindowAndTheOldOnesDoNot)
{
    clickOn("Show Edges");
    press(Qt::Key_K);
    dialog->close();
    window->activateWindow();
    window->view().setFocus();
    QCoreApplication::processEvents();
    bool const before = action("Std_ShowEdges")->isChecked();
    QTest::keyClick(window->windowHandle(), Qt::Key_W);
    QCoreApplication::processEvents();
    EXPECT_EQ(action("Std_ShowEdges")->isChecked(), before);
    QTest::keyClick(window->windowHandle(), Qt::Key_K);
    EXPECT_TRUE(waitUntil([&] { return action("Std_ShowEdges")->isChecked() != before; }));
}

TEST_F(Keys, ThoseOfAnotherCommandAreToldAndTakenAtTheSecondPress)
{
    clickOn("Fit All");
    press(Qt::Key_W);
    EXPECT_EQ(message(), "W belongs to \"Show Edges\". Once more takes it from there.");
    EXPECT_EQ(shortcut("Std_FitAll"), QKeySequence("F"));
    EXPECT_EQ(shortcut("Std_ShowEdges"), QKeySequence("W"));
    press(Qt::Key_W);
    EXPECT_EQ(message(), "\"Show Edges\" has no keys now.");
    EXPECT_EQ(keys("Fit All"), "W");
    EXPECT_EQ(keys("Show Edges"), "");
    EXPECT_TRUE(shortcut("Std_ShowEdges").isEmpty());
    dialog->close();
    start();
    EXPECT_EQ(shortcut("Std_FitAll"), QKeySequence("W"));
    EXPECT_TRUE(shortcut("Std_ShowEdges").isEmpty());
}

TEST_F(Keys, EscapeLeavesThemAndOneThatViewsNeedIsRefused)
{
    clickOn("Fit All");
    press(Qt::Key_Shift, Qt::ShiftModifier);
    EXPECT_EQ(keys("Fit All"), "Press the keys...");
    press(Qt::Key_Left);
    EXPECT_TRUE(message().contains("Press other keys")) << qPrintable(message());
    press(Qt::Key_Escape);
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_EQ(keys("Fit All"), "F");
    press(Qt::Key_K);
    EXPECT_EQ(shortcut("Std_FitAll"), QKeySequence("F"));
}

TEST_F(Keys, GoBackToTheUsualOnesOneByOneAndAllTogether)
{
    clickOn("Fit All");
    clickButton("No Key");
    EXPECT_TRUE(shortcut("Std_FitAll").isEmpty());
    clickButton("Usual Key");
    EXPECT_EQ(shortcut("Std_FitAll"), QKeySequence("F"));
    clickOn("Fit All");
    press(Qt::Key_W);
    press(Qt::Key_W);
    clickButton("All Usual Keys");
    EXPECT_EQ(shortcut("Std_FitAll"), QKeySequence("F"));
    EXPECT_EQ(shortcut("Std_ShowEdges"), QKeySequence("W"));
    dialog->close();
    start();
    EXPECT_EQ(shortcut("Std_ShowEdges"), QKeySequence("W"));
}

TEST_F(Keys, NonsenseInTheSettingsCountsAsNoChoice)
{
    storeValue("/Keys/Std_FitAll", "nothing that is a key");
    storeValue("/Keys/Std_ShowEdges", "Esc");
    storeValue("/Keys/Std_ShowPlate", "Ctrl+K, Ctrl+L");
    start();
    EXPECT_EQ(shortcut("Std_FitAll"), QKeySequence("F"));
    EXPECT_EQ(shortcut("Std_ShowEdges"), QKeySequence("W"));
    EXPECT_EQ(shortcut("Std_ShowPlate"), QKeySequence("B"));
}
