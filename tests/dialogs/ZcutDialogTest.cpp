// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/DialogZcut.h"
#include "platform/ui/DialogWidgetGroup.h"
#include "platform/ui/DialogWindowManager.h"
#include "platform/ui/SeparateLine.h"
#include "tests/dialogs/DialogScene.h"

#include <gtest/gtest.h>

TEST(ZcutDialog, IsAFrameWithOneGroupAndAButtonThatDoesNothing)
{
    DialogScene scene;
    scene.test.add(box(1, 1, 1), "part");
    auto* const dialog =
        static_cast<Freecut::DialogZcut*>(DialogWindowManager::instance()->creatDialogWindow(
            "DialogZcut", Freecut::DialogZcut::create));
    ASSERT_TRUE(dialog);
    EXPECT_EQ(dialog->windowTitle(), "Section Cut");
    auto const groups = dialog->findChildren<DialogWidgetGroup*>();
    ASSERT_EQ(groups.size(), 1);
    EXPECT_EQ(groups[0]->titleName(), "Cut parameters");
    EXPECT_FALSE(groups[0]->isExpandable());
    EXPECT_EQ(dialog->findChildren<SeparateLine*>().size(), 1);
    dialog->setDocument(scene.test.document);
    EXPECT_EQ(dialog->getDocument(), nullptr);
    EXPECT_TRUE(dialog->getObjects().empty());
    QPushButton* cut = nullptr;
    for (QPushButton* const button : dialog->findChildren<QPushButton*>())
        if (button->text() == "Cut")
            cut = button;
    ASSERT_TRUE(cut);
    cut->click();
    EXPECT_EQ(scene.test.names(), std::vector<std::string>{"part"});
    dialog->destruct();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}
