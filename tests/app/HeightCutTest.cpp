// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/panels/HeightCutDialog.h"
#include "app/panels/LogConsole.h"
#include "host/mesh/MeshFacts.h"
#include "platform/document/CutMemory.h"
#include "platform/services/HeightSlices.h"
#include "platform/ui/CutView.h"
#include "tests/app/ToolWindow.h"
#include "tests/support/AnsweredMessages.h"

#include <QComboBox>
#include <QLabel>
#include <QRadioButton>
#include <QTimer>

#include <numbers>

namespace {

class HeightCutWindow : public ToolWindow
{
protected:
    /// Presses the keys of the command, fills the dialog in and leaves it by a key.
    void cut(std::function<void(HeightCutDialog&)> const& fillIn, int key = Qt::Key_Return)
    {
        QTimer answer;
        QObject::connect(&answer, &QTimer::timeout, [&] {
            auto* const dialog = qobject_cast<HeightCutDialog*>(QApplication::activeModalWidget());
            if (!dialog || !dialog->isVisible())
                return;
            answer.stop();
            fillIn(*dialog);
            summary = dialog->findChild<QLabel*>("HeightSummary")->text();
            dialog->grab().save(QString::fromStdString(picturePath("height-cut-dialog.png")));
            QTest::keyClick(dialog, Qt::Key(key));
            // What does not make sense is not taken.
            if (dialog->isVisible())
                QTest::keyClick(dialog, Qt::Key_Escape);
        });
        answer.start(20);
        // Without a window manager the keys do not come back after a dialog.
        trigger("Std_CutAtHeights");
        waitUntil([] { return !JobGuard::instance()->isBusy(); });
        settle();
    }
    static void type(HeightCutDialog& dialog, QString const& text)
    {
        auto* const field = dialog.findChild<QLineEdit*>();
        field->selectAll();
        QTest::keyClicks(field, text);
    }
    std::vector<std::string> names() const { return test->names(); }
    std::vector<MeshFacts> pieces() const
    {
        std::vector<MeshFacts> facts;
        for (Mesh::DocumentObject const* const part : document().getMeshObjects())
            facts.push_back(measureMesh(*part->meshProperty->getMesh()));
        return facts;
    }
    Mesh::DocumentObject* addSelected(Soup const& soup, char const* name)
    {
        Mesh::DocumentObject* const part = test->add(soup, name);
        part->setSelected(true, true, false);
        settle();
        return part;
    }

    QString summary;
};

}  // namespace

TEST(HeightCut, HeightsAreThoseWithinEachOnceFromBelow)
{
    UBox3<float> const box({0, 0, 10}, {1, 1, 40});
    EXPECT_EQ(HeightSlices::within(box, {30, 10, 20, 40, 30, -5, 20.000000001}),
              (std::vector<double>{20, 30}));
    EXPECT_EQ(HeightSlices::everyDistance(box, 10), (std::vector<double>{20, 30}));
    EXPECT_EQ(HeightSlices::everyDistance(box, 12), (std::vector<double>{22, 34}));
    EXPECT_TRUE(HeightSlices::everyDistance(box, 0).empty());
    EXPECT_TRUE(HeightSlices::everyDistance(box, -1).empty());
    EXPECT_TRUE(HeightSlices::everyDistance({}, 1).empty());
    EXPECT_EQ(HeightSlices::everyDistance(box, 1e-9).size(), HeightSlices::mostHeights);
}

TEST(HeightCut, NumbersAreReadWithEitherSignAndTheFirstWrongWordIsTold)
{
    QString wrong;
    EXPECT_EQ(HeightCutDialog::heightsIn(" 1.5; 2\t30 ", wrong), (std::vector<double>{1.5, 2, 30}));
    EXPECT_TRUE(wrong.isEmpty());
    EXPECT_TRUE(HeightCutDialog::heightsIn("1 two 3 four", wrong).empty());
    EXPECT_EQ(wrong, "two");
    EXPECT_TRUE(HeightCutDialog::heightsIn("nan", wrong).empty());
    EXPECT_EQ(wrong, "nan");
}

TEST(HeightCut, ACommaDividesWhereTheLanguageHasItSo)
{
    QLocale const former;
    QLocale::setDefault(QLocale::German);
    QString wrong;
    auto const heights = HeightCutDialog::heightsIn("45,500 1,5 2.5 1.000,25", wrong);
    QLocale::setDefault(former);
    EXPECT_EQ(heights, (std::vector<double>{45.5, 1.5, 2.5, 1000.25}));
}

TEST_F(HeightCutWindow, HasAKeyThatOpensTheDialog)
{
    addSelected(box(10, 10, 50), "bar");
    bool isOpen = false;
    QTimer answer;
    QObject::connect(&answer, &QTimer::timeout, [&] {
        if (auto* const dialog =
                qobject_cast<HeightCutDialog*>(QApplication::activeModalWidget())) {
            isOpen = true;
            dialog->reject();
        }
    });
    answer.start(20);
    pressKey(Qt::Key_C, Qt::ShiftModifier);
    EXPECT_TRUE(isOpen);
    EXPECT_TRUE(document().undoNames().empty());
}

TEST_F(HeightCutWindow, CutsAtAllHeightsInOneStep)
{
    addSelected(cylinder(10, 60, 48), "rod");
    double const volume = pieces()[0].volume;
    cut([](HeightCutDialog& dialog) { type(dialog, "45 15 30"); });
    EXPECT_EQ(summary, "3 heights go through the parts.");
    EXPECT_EQ(names(), (std::vector<std::string>{"rod_cut1", "rod_cut2", "rod_cut3", "rod_cut4"}));
    double low = 0;
    for (MeshFacts const& piece : pieces()) {
        EXPECT_TRUE(piece.closed);
        EXPECT_NEAR(piece.volume, volume / 4, 1e-3 * volume);
        EXPECT_FLOAT_EQ(piece.box.MinZ(), float(low));
        low += 15;
    }
    EXPECT_EQ(document().getSelectedMeshObjects().size(), 4u);
    EXPECT_EQ(Mesh::cutMemoryOf(*document().getMeshObjects()[1]).faces.size(), 3u);
    EXPECT_EQ(window->statusLine().currentMessage(), "Pieces now: 4.");
    EXPECT_EQ(document().undoNames(), std::vector<std::string>{"Cut at Heights"});
    takePicture("cut-at-heights");
    trigger("Std_Undo");
    EXPECT_EQ(names(), std::vector<std::string>{"rod"});
    trigger("Std_Redo");
    EXPECT_EQ(names().size(), 4u);
}

TEST_F(HeightCutWindow, EverySoManyMillimetresAndOnePieceAlone)
{
    addSelected(box(10, 10, 50), "bar");
    cut([](HeightCutDialog& dialog) {
        dialog.findChildren<QRadioButton*>()[1]->click();
        enter(dialog.findChild<MellQuantitySpinBox*>(), 20);
        dialog.findChild<QComboBox*>()->setCurrentIndex(1);
    });
    EXPECT_EQ(names(), std::vector<std::string>{"bar_cut"});
    EXPECT_EQ(pieces()[0].box.MinZ(), 40);
    EXPECT_EQ(pieces()[0].box.MaxZ(), 50);
    trigger("Std_Undo");
    cut([](HeightCutDialog& dialog) {
        type(dialog, "20 40");
        dialog.findChild<QComboBox*>()->setCurrentIndex(2);
    });
    EXPECT_EQ(pieces()[0].box.MinZ(), 0);
    EXPECT_EQ(pieces()[0].box.MaxZ(), 20);
}

TEST_F(HeightCutWindow, WhatMakesNoSenseIsToldInTheDialogAndCutsNothing)
{
    addSelected(box(10, 10, 50), "bar");
    for (auto const& [text, told] :
         {std::pair{"1 x", "\"x\" is no number."}, {"70", "No height goes through the parts."}}) {
        cut([&, typed = text](HeightCutDialog& dialog) { type(dialog, typed); }, Qt::Key_Return);
        EXPECT_EQ(summary, told);
        EXPECT_EQ(names(), std::vector<std::string>{"bar"});
    }
    EXPECT_TRUE(document().undoNames().empty());
}

TEST_F(HeightCutWindow, APartThatCannotBeCutIsNamedAndNothingIsCut)
{
    addSelected(box(10, 10, 50, {30, 0, 0}), "bar");
    // The opening is at its side, over all heights.
    addSelected(openBox(10, 50, 10), "open")
        ->rotate({}, std::numbers::pi_v<float> / 2, {1, 0, 0}, false);
    AnsweredMessages const messages("OK");
    cut([](HeightCutDialog& dialog) { type(dialog, "20"); });
    ASSERT_EQ(messages.texts.size(), 1);
    EXPECT_TRUE(messages.texts[0].startsWith("open: ")) << qPrintable(messages.texts[0]);
    EXPECT_EQ(names(), (std::vector<std::string>{"bar", "open"}));
    EXPECT_TRUE(document().undoNames().empty());
}

TEST_F(HeightCutWindow, TheHeightOfTheCutViewIsThatOfTheSlider)
{
    test->add(box(10, 10, 50), "bar");
    auto& slider = *MainWindow::getViewSlider();
    auto& cutView = *window->findChild<CutView*>();
    slider.setHeight(12);
    trigger("Std_CutView");
    settle();
    EXPECT_EQ(slider.getHeight(), 12);
    EXPECT_EQ(cutView.position(), 12);
    slider.setHeight(33);
    EXPECT_EQ(cutView.position(), 33);
    cutView.setPosition(21);
    EXPECT_EQ(slider.getHeight(), 21);
    // Across another axis, and switched off, they know nothing of each other.
    cutView.setAxis(CutView::AlongX);
    cutView.setPosition(4);
    EXPECT_EQ(slider.getHeight(), 21);
    slider.setHeight(30);
    EXPECT_EQ(cutView.position(), 4);
    cutView.setAxis(CutView::AlongZ);
    EXPECT_EQ(cutView.position(), 30);
    cutView.setActive(false);
    slider.setHeight(5);
    EXPECT_EQ(cutView.position(), 30);
}
