// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/ui/MellMessageBox.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QTimer>

#include <functional>

namespace {

// Acts on the box that is open once its event loop runs.
void whenOpen(std::function<void(MellMessageBox&)> act)
{
    QTimer::singleShot(0, [act = std::move(act)] {
        auto* const box = qobject_cast<MellMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        act(*box);
    });
}

QPushButton* buttonOf(MellMessageBox& box, QString const& text)
{
    for (QPushButton* const button : box.findChildren<QPushButton*>())
        if (button->text() == text)
            return button;
    return nullptr;
}

int ask(int escapeButton, std::function<void(MellMessageBox&)> act)
{
    whenOpen(std::move(act));
    return MellMessageBox::warning(nullptr, "Attention", "Text", "Yes", "No", "Later", 0,
                                   escapeButton);
}

}  // namespace

TEST(MessageBox, ShowsTitleTextAndOnlyTheNamedButtons)
{
    QString title;
    QString text;
    int buttons = 0;
    whenOpen([&](MellMessageBox& box) {
        title = box.windowTitle();
        text = box.text();
        buttons = box.findChildren<QPushButton*>().size();
        EXPECT_TRUE(box.isModal());
        EXPECT_TRUE(buttonOf(box, "OK")->isDefault());
        buttonOf(box, "OK")->click();
    });
    EXPECT_EQ(MellMessageBox::warning(nullptr, "Attention", "An error <b>occurred</b>.", "OK", "",
                                      "", 0, -1),
              0);
    EXPECT_EQ(title, "Attention");
    EXPECT_EQ(text, "An error <b>occurred</b>.");
    EXPECT_EQ(buttons, 1);
}

TEST(MessageBox, AnswersWithTheIndexOfTheButton)
{
    EXPECT_EQ(ask(-1, [](MellMessageBox& box) { buttonOf(box, "Yes")->click(); }), 0);
    EXPECT_EQ(ask(-1, [](MellMessageBox& box) { buttonOf(box, "No")->click(); }), 1);
    EXPECT_EQ(ask(-1, [](MellMessageBox& box) { buttonOf(box, "Later")->click(); }), 2);
}

TEST(MessageBox, ClosedBoxAnswersWithTheEscapeButton)
{
    EXPECT_EQ(ask(1, [](MellMessageBox& box) { box.close(); }), 1);
    EXPECT_EQ(ask(-1, [](MellMessageBox& box) { box.close(); }), 2);
}

TEST(MessageBox, CopyTakesTheText)
{
    MellMessageBox box(nullptr);
    box.setText("Remove?");
    QKeyEvent copy(QEvent::KeyPress, Qt::Key_C, Qt::ControlModifier);
    QCoreApplication::sendEvent(&box, &copy);
    EXPECT_EQ(QApplication::clipboard()->text(), "Remove?");
}

TEST(MessageBox, AsAnObjectItAnswersWithTheStandardButton)
{
    auto const answer = [](std::function<void(MellMessageBox&)> act) {
        MellMessageBox box(nullptr);
        box.setText("Remove?");
        box.setStandardButtons(QDialogButtonBox::Yes | QDialogButtonBox::Cancel);
        box.setDefaultButton(QDialogButtonBox::Yes);
        box.button(QDialogButtonBox::Yes)->setText("Remove");
        EXPECT_TRUE(box.button(QDialogButtonBox::Yes)->isDefault());
        EXPECT_EQ(box.button(QDialogButtonBox::No), nullptr);
        whenOpen(std::move(act));
        return box.exec();
    };
    EXPECT_EQ(answer([](MellMessageBox& box) { buttonOf(box, "Remove")->click(); }),
              QDialogButtonBox::Yes);
    EXPECT_EQ(answer([](MellMessageBox& box) { box.close(); }), QDialogButtonBox::Cancel);
}
