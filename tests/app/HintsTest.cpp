// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/app/ToolWindow.h"

#include <QLabel>
#include <QMenu>
#include <QMenuBar>

namespace {

/// What the window says by itself: states of entries, and hints.
class Hints : public ToolWindow
{
protected:
    QString shown() const { return window->statusLine().findChild<QLabel*>("Hint")->text(); }
};

}  // namespace

TEST_F(Hints, MenusShowTheStateOfWhatCanBeSwitched)
{
    addBlock();
    for (char const* const name :
         {"Std_Perspective", "Std_Parallel", "Std_ShowEdges", "Std_ShowPlate", "Std_CutView"}) {
        EXPECT_TRUE(action(name)->isCheckable()) << name;
        EXPECT_FALSE(action(name)->isIconVisibleInMenu()) << name;
        EXPECT_FALSE(action(name)->icon().isNull()) << name;
    }
    EXPECT_NE(action("Std_Perspective")->isChecked(), action("Std_Parallel")->isChecked());
    EXPECT_TRUE(action("Std_ShowPlate")->isChecked());
    trigger("Std_ShowPlate");
    settle();
    EXPECT_FALSE(action("Std_ShowPlate")->isChecked());
    trigger("Std_ShowPlate");
    EXPECT_TRUE(action("Std_FitAll")->isIconVisibleInMenu());
}

TEST_F(Hints, AReasonForARefusalGoesWithTheReason)
{
    Mesh::DocumentObject* const part = addBlock();
    settle();
    pressKey(Qt::Key_C);
    EXPECT_EQ(shown(), "Select a part first.");
    part->setSelected(true, true, false);
    settle();
    EXPECT_NE(shown(), "Select a part first.");
    {
        JobGuard::Hold const hold;
        settle();
        pressKey(Qt::Key_Delete);
        EXPECT_EQ(shown(), "Wait until the running job has finished.");
    }
    settle();
    ASSERT_TRUE(waitUntil([&] { return !JobGuard::instance()->isBusy(); }));
    settle();
    EXPECT_NE(shown(), "Wait until the running job has finished.");
    EXPECT_EQ(document().getMeshObjects().size(), 1u);
}

TEST_F(Hints, NoneStaysInTheLanguageThatWas)
{
    addBlock();
    placeLevelPlane({5, 5, 15}, 3);
    EXPECT_TRUE(shown().startsWith("Drag the middle square")) << qPrintable(shown());
    LanguageSwitch::setLanguage(LanguageSwitch::Choice::German);
    settle();
    EXPECT_FALSE(shown().contains("Drag")) << qPrintable(shown());
    EXPECT_TRUE(shown().contains("Esc beendet")) << qPrintable(shown());
}

TEST_F(Hints, OfAToolGoesWithTheTool)
{
    addBlock();
    placeLevelPlane({5, 5, 15}, 3);
    sectionDialog()->widgets().cancel->click();
    settle();
    EXPECT_TRUE(shown().startsWith("Click a part to select it.")) << qPrintable(shown());
}

TEST_F(Hints, WhatHasNoRoomEndsInDots)
{
    auto* const label = window->statusLine().findChild<QLabel*>("Hint");
    auto const pictureOf = [&](QString const& text) {
        label->setTextFormat(Qt::PlainText);
        label->setText(text);
        return label->grab().toImage();
    };
    QString const sentence = "Drag an arrow to move the selected parts, or a ring to turn them.";
    label->resize(label->fontMetrics().horizontalAdvance(sentence) / 2, label->height());
    QImage const shown = pictureOf(sentence);
    QString const cut = label->fontMetrics().elidedText(sentence, Qt::ElideRight, label->width());
    ASSERT_NE(cut, sentence);
    EXPECT_EQ(shown, pictureOf(cut));
    EXPECT_NE(shown, pictureOf(sentence.left(cut.size() - 1)));
}
