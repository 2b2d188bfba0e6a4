// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/DialogLapJointUI.h"
#include "dialogs/DialogPinHoleUI.h"
#include "platform/ui/CutViewSlider.h"
#include "tests/app/ToolWindow.h"

#include <QCheckBox>
#include <QComboBox>
#include <QRadioButton>
#include <QScrollArea>
#include <QStyleOption>
#include <QTabBar>
#include <QTabWidget>

#include <set>

// Dialogs on small screens, and by the keyboard alone.
namespace {

using namespace Freecut;

/// Tells what a tab shows of its text.
class TabTexts : public QTabBar
{
public:
    static QString shownBy(QTabBar const& tabs, int index)
    {
        QStyleOptionTab option;
        (tabs.*&TabTexts::initStyleOption)(&option, index);
        return option.text;
    }
};

class SmallScreens : public ToolWindow
{
protected:
    bool isInWindow(QWidget const* widget) const
    {
        QRect const place(widget->mapTo(window.get(), QPoint()), widget->size());
        return widget->isVisible() && window->rect().contains(place);
    }
    /// That the keys for help show what the value with the focus means.
    void expectHelp()
    {
        pressKey(Qt::Key_F1, Qt::ShiftModifier);
        QWidget* const help = QApplication::activePopupWidget();
        ASSERT_TRUE(help);
        // The window of the help goes with the press.
        QTest::keyPress(help->windowHandle(), Qt::Key_Escape);
        settle();
        EXPECT_FALSE(QApplication::activePopupWidget());
    }
    /// That no field of a dialog reaches below its scroll bar or out of its page.
    static void expectFieldsWhole(QWidget const* dialog)
    {
        auto const* const page = dialog->findChild<QScrollArea*>();
        ASSERT_TRUE(page);
        int fields = 0;
        for (QWidget const* const field : dialog->findChildren<QAbstractSpinBox*>())
            if (field->isVisible()) {
                ++fields;
                int const left = field->mapTo(page->viewport(), QPoint()).x();
                EXPECT_GE(left, 0);
                EXPECT_LE(left + field->width(), page->viewport()->width());
            }
        EXPECT_GT(fields, 0);
    }
};

}  // namespace

TEST_F(SmallScreens, OnASmallScreenTheDialogsScrollAndTheirButtonsStayInReach)
{
    window->resize(1024, 700);
    settle();
    addBlock();
    open("Std_Sectioncut");
    sectionDialog()->widgets().useAdvanced->click();
    settle();
    takePicture("small-section");
    EXPECT_TRUE(isInWindow(sectionDialog()->widgets().ok));
    EXPECT_TRUE(isInWindow(sectionDialog()->widgets().cancel));
    sectionDialog()->widgets().cancel->click();
    settle();
    open("Std_Polygoncut");
    takePicture("small-polygon");
    EXPECT_TRUE(isInWindow(polygonDialog()->widgets().ok));
    EXPECT_TRUE(isInWindow(polygonDialog()->widgets().cancel));
    // What lies below comes up when it gets the focus.
    QWidget* const last = polygonDialog()->widgets().showCoordinate;
    polygonDialog()->widgets().tabs->tabBar()->setFocus(Qt::TabFocusReason);
    for (int i = 0; i < 40 && !last->hasFocus(); ++i)
        QTest::keyClick(window->windowHandle(), Qt::Key_Tab);
    settle();
    EXPECT_TRUE(last->hasFocus());
    EXPECT_TRUE(isInWindow(last));
}

TEST_F(SmallScreens, TheKeyboardAloneGoesThroughTheWholeDialog)
{
    addBlock();
    placeLevelPlane({5, 5, 15}, 3);
    auto const& ui = sectionDialog()->widgets();
    ui.normal[0]->setFocus(Qt::TabFocusReason);
    settle();
    std::set<QWidget*> reached;
    auto const walk = [&](Qt::Key key, int steps) {
        for (int i = 0; i < steps; ++i) {
            reached.insert(QApplication::focusWidget());
            QTest::keyClick(window->windowHandle(), key,
                            key == Qt::Key_Backtab ? Qt::ShiftModifier : Qt::NoModifier);
        }
    };
    walk(Qt::Key_Backtab, 15);
    ui.normal[0]->setFocus(Qt::TabFocusReason);
    walk(Qt::Key_Tab, 60);
    auto const isReached = [&](QWidget* widget) {
        for (QWidget* const each : reached)
            if (each && (each == widget || widget->isAncestorOf(each)))
                return true;
        return false;
    };
    for (QWidget* const widget :
         {static_cast<QWidget*>(ui.normal[2]), static_cast<QWidget*>(ui.center[0]),
          static_cast<QWidget*>(ui.slider), static_cast<QWidget*>(ui.step),
          static_cast<QWidget*>(ui.size[1]), static_cast<QWidget*>(ui.removeOriginal),
          static_cast<QWidget*>(ui.useBoundary), static_cast<QWidget*>(ui.useAdvanced),
          static_cast<QWidget*>(ui.ok), static_cast<QWidget*>(ui.cancel)})
        EXPECT_TRUE(isReached(widget)) << widget->metaObject()->className();
    EXPECT_TRUE(isReached(ui.allParts) || isReached(ui.selectedParts));
    ui.ok->setFocus(Qt::TabFocusReason);
    QTest::keyClick(window->windowHandle(), Qt::Key_Space);
    ASSERT_TRUE(waitUntil([&] { return !sectionDialog() && !JobGuard::instance()->isBusy(); }));
    expectTwoPieces(blockVolume);
}

TEST_F(SmallScreens, NoFieldIsHiddenByTheScrollBarInEitherLanguage)
{
    for (auto const language : {LanguageSwitch::Choice::English, LanguageSwitch::Choice::German})
        for (QSize const size : {QSize(1024, 700), QSize(1024, 600), QSize(960, 640)}) {
            LanguageSwitch::setLanguage(language);
            window->resize(size);
            settle();
            SCOPED_TRACE(window->width());
            addBlock();
            open("Std_Sectioncut");
            auto const& ui = sectionDialog()->widgets();
            ui.useAdvanced->click();
            for (int const kind : {0, 1}) {
                ui.cutType->setCurrentIndex(kind);
                settle();
                takePicture("small-" + std::to_string(int(language)) + "-" +
                            std::to_string(size.width()) + "-" + std::to_string(size.height()) +
                            "-" + std::to_string(kind));
                expectFieldsWhole(sectionDialog());
            }
            ui.cancel->click();
            settle();
            removeAllParts();
        }
}

TEST_F(SmallScreens, TheEnglishTitlesOfPanelsAreWholeAt800Pixels)
{
    window->resize(800, 600);
    settle();
    takePicture("small-titles");
    int titles = 0;
    for (QTabBar const* const tabs :
         window->findChildren<QTabBar*>(QString(), Qt::FindDirectChildrenOnly))
        for (int i = 0; tabs->isVisible() && i < tabs->count(); ++i, ++titles)
            EXPECT_EQ(TabTexts::shownBy(*tabs, i).toStdString(), tabs->tabText(i).toStdString());
    EXPECT_GT(titles, 2);
}

// No mouse at all: the plane comes from the live cut view.
TEST_F(SmallScreens, TheKeyboardAloneSetsBothConnectorPagesAndCuts)
{
    addBlock();
    trigger("Std_CutView");
    settle();
    for (int const kind : {0, 1}) {
        open("Std_Sectioncut");
        ASSERT_TRUE(planeTool() && planeTool()->getPlaneObject());
        auto const& ui = sectionDialog()->widgets();
        ASSERT_TRUE(tabTo(ui.useAdvanced));
        pressKey(Qt::Key_Space);
        EXPECT_TRUE(ui.useAdvanced->isChecked());
        ASSERT_TRUE(tabTo(ui.cutType));
        pressKey(kind == 0 ? Qt::Key_Home : Qt::Key_End);
        EXPECT_EQ(ui.cutType->currentIndex(), kind);
        QWidget const* const page =
            kind == 0 ? static_cast<QWidget*>(ui.pinHole) : static_cast<QWidget*>(ui.lapJoint);
        auto const isSet = [&](MellQuantitySpinBox const* field) {
            double const value = field->value();
            pressKey(Qt::Key_Up);
            return field->value() > value;
        };
        // In the order in which they stand.
        int last = -1;
        for (QWidget* const widget : page->findChildren<QWidget*>()) {
            auto const* const field = qobject_cast<MellQuantitySpinBox*>(widget);
            // Tab goes to one of a group of choices, and arrow keys to the others.
            bool const isChoice = widget == page->findChild<QRadioButton*>();
            if (!widget->isEnabled() || !(field || isChoice))
                continue;
            ASSERT_TRUE(tabTo(widget));
            EXPECT_TRUE(isInWindow(widget));
            EXPECT_GT(widget->mapTo(page, QPoint()).y(), last);
            last = widget->mapTo(page, QPoint()).y();
            if (field) {
                EXPECT_TRUE(isSet(field));
                expectHelp();
            }
        }
        ASSERT_TRUE(tabTo(ui.ok));
        pressKey(Qt::Key_Space);
        ASSERT_TRUE(waitUntil([&] { return !sectionDialog() && !JobGuard::instance()->isBusy(); }));
        settle();
        std::vector<Soup> const found = parts();
        ASSERT_EQ(found.size(), 3u);
        EXPECT_EQ(closedSolidFaults(found[1]), "");
        EXPECT_EQ(closedSolidFaults(found[2]), "");
        double const both = volumeOf(found[1]) + volumeOf(found[2]);
        EXPECT_LT(both, blockVolume);
        EXPECT_GT(both, 0.9 * blockVolume);
        view().setFocus();
        pressUndo();
        ASSERT_EQ(document().getMeshObjects().size(), 1u);
    }
}

TEST_F(SmallScreens, ASelectionDoesNotWidenTheWindow)
{
    Mesh::DocumentObject* const part = addBlock();
    part->setSelected(false, true, false);
    settle();
    window->resize(window->minimumSizeHint());
    settle();
    int const width = window->width();
    part->setSelected(true, true, false);
    settle();
    EXPECT_EQ(window->width(), width);
    EXPECT_EQ(window->minimumSizeHint().width(), width);
}
