// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/ui/MellMessageBox.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
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

TEST(MessageBox, EnterPressesTheButtonThatHasTheFocus)
{
    auto const pressEnter = [](MellMessageBox& box, char const* focused, int key) {
        if (focused)
            buttonOf(box, focused)->setFocus(Qt::TabFocusReason);
        QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
        QCoreApplication::sendEvent(box.focusWidget() ? box.focusWidget() : &box, &press);
    };
    for (int const key : {Qt::Key_Return, Qt::Key_Enter}) {
        EXPECT_EQ(ask(-1, [&](MellMessageBox& box) { pressEnter(box, nullptr, key); }), 0);
        EXPECT_EQ(ask(-1, [&](MellMessageBox& box) { pressEnter(box, "No", key); }), 1);
        EXPECT_EQ(ask(-1, [&](MellMessageBox& box) { pressEnter(box, "Later", key); }), 2);
    }
}

TEST(MessageBox, WithoutADefaultButtonEnterPressesNone)
{
    bool isOpen = false;
    whenOpen([&](MellMessageBox& box) {
        QKeyEvent press(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
        QCoreApplication::sendEvent(box.focusWidget() ? box.focusWidget() : &box, &press);
        isOpen = box.isVisible();
        buttonOf(box, "No")->click();
    });
    EXPECT_EQ(MellMessageBox::warning(nullptr, "Attention", "Text", "Yes", "No", "", -1, -1), 1);
    EXPECT_TRUE(isOpen);
}

TEST(MessageBox, AFailureSaysWhyInASecondParagraph)
{
    whenOpen([](MellMessageBox& box) {
        auto* const reason = box.findChild<QLabel*>("Details");
        ASSERT_TRUE(reason);
        EXPECT_TRUE(reason->isVisible());
        EXPECT_EQ(reason->text(), "The part is open near (1, 2, 3).");
        EXPECT_EQ(box.text(), "An error occurred in triangulate.");
        QKeyEvent copy(QEvent::KeyPress, Qt::Key_C, Qt::ControlModifier);
        QCoreApplication::sendEvent(&box, &copy);
        box.close();
    });
    MellMessageBox::failure(nullptr, "Attention", "An error occurred in triangulate.",
                            "The part is open near (1, 2, 3).", {"OK"});
    EXPECT_EQ(QApplication::clipboard()->text(),
              "An error occurred in triangulate.\nThe part is open near (1, 2, 3).");
    whenOpen([](MellMessageBox& box) {
        EXPECT_FALSE(box.findChild<QLabel*>("Details")->isVisible());
        box.close();
    });
    MellMessageBox::failure(nullptr, "Attention", "An error occurred in triangulate.", "", {"OK"});
}

TEST(MessageBox, ALongListScrollsAndItsButtonsStayOnTheScreen)
{
    QString list;
    for (int i = 0; i < 300; ++i)
        list += QStringLiteral("part-%1.stl: The file ends too early.\n").arg(i);
    whenOpen([](MellMessageBox& box) {
        QCoreApplication::processEvents();
        EXPECT_LE(box.height(), box.screen()->availableGeometry().height());
        EXPECT_TRUE(box.rect().contains(
            buttonOf(box, "OK")->mapTo(&box, buttonOf(box, "OK")->rect().bottomRight())));
        QScrollBar const* const bar = box.findChild<QScrollArea*>()->verticalScrollBar();
        EXPECT_GT(bar->maximum(), 0);
        int const before = bar->value();
        QKeyEvent down(QEvent::KeyPress, Qt::Key_PageDown, Qt::NoModifier);
        QCoreApplication::sendEvent(&box, &down);
        EXPECT_GT(bar->value(), before);
        box.close();
    });
    MellMessageBox::warning(nullptr, "Attention", list, "OK", "", "", 0, -1);
    whenOpen([](MellMessageBox& box) {
        QCoreApplication::processEvents();
        EXPECT_EQ(box.findChild<QScrollArea*>()->verticalScrollBar()->maximum(), 0);
        box.close();
    });
    MellMessageBox::warning(nullptr, "Attention", "Short.", "OK", "", "", 0, -1);
}
