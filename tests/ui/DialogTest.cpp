// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/ui/DialogTitleBar.h"
#include "host/ui/GlyphButton.h"
#include "platform/document/MeshDocument.h"
#include "platform/document/MeshDocumentObject.h"
#include "platform/jobs/EventNotify.h"
#include "platform/ui/Application.h"
#include "platform/ui/DialogWidgetOneOff.h"
#include "platform/ui/DialogWindowManager.h"
#include "platform/ui/DisplayUnit.h"
#include "platform/ui/MainWindow.h"
#include "platform/ui/MellQuantitySpinBox.h"
#include "platform/ui/MellVBoxLayout.h"
#include "platform/ui/PushButtonAnimate.h"
#include "platform/ui/ThemeSwitch.h"
#include "platform/view/MeshGLView.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/RecordingTool.h"
#include "tests/support/ScratchSettings.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCloseEvent>
#include <QDockWidget>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QVBoxLayout>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

namespace {

/// Writes down what reaches it.
class ProbeDialog : public DialogWidgetOneOff
{
public:
    explicit ProbeDialog(QWidget* parent) : DialogWidgetOneOff(parent, false)
    {
        setWindowTitle("Probe");
        auto* const content = new MellVBoxLayout;
        field = new MellQuantitySpinBox(this);
        content->addWidget(field);
        mainLayout()->insertLayout(0, content);
        ok = new PushButtonAnimate("OK", this);
        connect(ok, &QPushButton::clicked, this, [this] { destruct(); });
        buttonLayout()->addWidget(ok);
        ++alive;
    }
    ~ProbeDialog() override { --alive; }

    static void* create(QWidget* parent) { return new ProbeDialog(parent); }
    static void* createNothing(QWidget*) { return nullptr; }

    void retranslate() override { log.push_back("retranslate"); }
    void resetUnit() override { log.push_back("resetUnit"); }
    void slotThemeColorChanged(int theme) override { log.push_back("theme"); }
    void on_show_animate_finished() override { log.push_back("shown"); }
    void slotObjectSelectionChanged() override { log.push_back("selection"); }
    void slotNewObject(Base::DocumentObject* object) override
    {
        log.push_back("new " + object->getName());
    }
    void slotDelObject(Base::DocumentObject* object, std::string className) override
    {
        log.push_back("deleted " + object->getName() + " " + className);
    }
    void slotReplaceObject(Base::DocumentObject* object) override
    {
        log.push_back("replaced " + object->getName());
    }
    void slotModuleChanged() override { log.push_back("module"); }
    void closeEvent(QCloseEvent* event) override
    {
        closedWithDocument = getDocument() != nullptr;
        ++closed;
        DialogWidgetOneOff::closeEvent(event);
    }

    using DialogWidgetOneOff::leaveView;
    using DialogWidgetOneOff::setDocumentPointer;

    static inline int alive = 0;
    static inline int closed = 0;
    static inline bool closedWithDocument = false;
    std::vector<std::string> log;
    MellQuantitySpinBox* field;
    PushButtonAnimate* ok;
};

class Dialogs : public testing::Test
{
protected:
    Dialogs()
    {
        window.setCentralWidget(new QWidget(&window));
        window.resize(900, 600);
        window.show();
        ProbeDialog::alive = 0;
        ProbeDialog::closed = 0;
    }

    ProbeDialog* open(char const* name = "Probe")
    {
        auto* const dialog =
            static_cast<ProbeDialog*>(manager.creatDialogWindow(name, ProbeDialog::create));
        manager.activateDialog(dialog);
        settle();
        return dialog;
    }

    static void settle()
    {
        for (int round = 0; round < 3; ++round) {
            QCoreApplication::processEvents();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }
    }

    static GlyphButton* titleButton(QWidget* dialog, QString const& name)
    {
        for (auto* const button : dialog->findChildren<GlyphButton*>())
            if (button->toolTip() == name)
                return button;
        return nullptr;
    }

    static void drag(QWidget* dialog, QPoint const& way)
    {
        auto* const title = dialog->findChild<DialogTitleBar*>();
        QPoint const start = title->mapToGlobal(QPoint(10, 10));
        auto const send = [&](QEvent::Type type, QPoint const& place, Qt::MouseButtons buttons) {
            QMouseEvent event(type, title->mapFromGlobal(place), place, Qt::LeftButton, buttons,
                              Qt::NoModifier);
            QCoreApplication::sendEvent(title, &event);
        };
        send(QEvent::MouseButtonPress, start, Qt::LeftButton);
        send(QEvent::MouseMove, start + way / 2, Qt::LeftButton);
        send(QEvent::MouseMove, start + way, Qt::LeftButton);
        send(QEvent::MouseButtonRelease, start + way, Qt::NoButton);
        settle();
    }

    ScratchSettings settings;
    Application application;
    MainWindow window;
    DialogWindowManager& manager = *DialogWindowManager::instance();
};

}  // namespace

TEST_F(Dialogs, OpenOneIsFoundByItsNameAndOnlyThen)
{
    EXPECT_EQ(manager.getDialogWindow("Probe"), nullptr);
    ProbeDialog* const dialog = open();
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(manager.getDialogWindow("Probe"), dialog);
    EXPECT_EQ(manager.getDialogWindow("Other"), nullptr);
    EXPECT_EQ(manager.creatDialogWindow("Probe", ProbeDialog::create), dialog);
    EXPECT_EQ(ProbeDialog::alive, 1);
    dialog->destruct();
    EXPECT_EQ(manager.getDialogWindow("Probe"), nullptr);
    settle();
    EXPECT_EQ(ProbeDialog::alive, 0);
    EXPECT_EQ(manager.creatDialogWindow("None", ProbeDialog::createNothing), nullptr);
    EXPECT_TRUE(manager.openDialogs().empty());
}

TEST_F(Dialogs, StandsOverTheViewAtItsRightEdgeAtFirst)
{
    ProbeDialog* const dialog = open();
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_FALSE(dialog->isWindow());
    EXPECT_EQ(dialog->parentWidget(), &window);
    QRect const view = window.centralWidget()->geometry();
    EXPECT_TRUE(view.contains(dialog->geometry()));
    EXPECT_GT(dialog->x(), view.center().x());
    window.resize(1200, 700);
    settle();
    EXPECT_TRUE(window.centralWidget()->geometry().contains(dialog->geometry()));
    EXPECT_GT(dialog->geometry().right(), 1100);
    EXPECT_EQ(dialog->log.back(), "shown");
}

TEST_F(Dialogs, BesideANarrowViewLieOverThePanelsAtTheirEdge)
{
    QDockWidget panel(&window);
    panel.setWidget(new QWidget);
    panel.widget()->setFixedWidth(300);
    window.addDockWidget(Qt::RightDockWidgetArea, &panel);
    settle();
    ProbeDialog* const dialog = open();
    QRect const view = window.centralWidget()->geometry();
    ASSERT_LT(view.width(), 2 * dialog->width());
    EXPECT_TRUE(window.rect().contains(dialog->geometry()));
    EXPECT_GT(dialog->geometry().right(), view.right() + 200);
    EXPECT_LT(view.right() - dialog->x(), view.width() / 3) << "of the view is hidden";
    // A panel that comes up stays below it.
    panel.raise();
    panel.hide();
    settle();
    EXPECT_TRUE(window.centralWidget()->geometry().contains(dialog->geometry()));
    panel.show();
    panel.raise();
    settle();
    EXPECT_EQ(window.childAt(dialog->geometry().center())->window(), &window);
    EXPECT_TRUE(dialog->isAncestorOf(window.childAt(dialog->geometry().center())));
    // With the whole window for it the dialog can be taken to the other side.
    drag(dialog, {-700, 0});
    EXPECT_EQ(window.childAt(view.right() - 20, view.center().y()), window.centralWidget());
    window.removeDockWidget(&panel);
}

TEST_F(Dialogs, AreNeverNarrowerThanTheirFields)
{
    window.resize(300, 500);
    settle();
    ProbeDialog* const dialog = open();
    EXPECT_GE(dialog->width(), std::min(dialog->minimumSizeHint().width(), window.width()));
    EXPECT_GE(dialog->x(), 0);
}

TEST_F(Dialogs, IsFoldedPinnedMaximisedClosedAndReopened)
{
    for (int round = 0; round < 3; ++round) {
        ProbeDialog* const dialog = open();
        dialog->setMaxRestoreEnable(true);
        int const height = dialog->height();
        titleButton(dialog, "Fold")->click();
        settle();
        EXPECT_FALSE(dialog->isMainPageVisible());
        EXPECT_FALSE(dialog->field->isVisible());
        EXPECT_LT(dialog->height(), height);
        titleButton(dialog, "Unfold")->click();
        settle();
        EXPECT_EQ(dialog->height(), height);
        titleButton(dialog, "Maximize")->click();
        settle();
        EXPECT_EQ(dialog->geometry(), window.centralWidget()->geometry());
        titleButton(dialog, "Restore")->click();
        titleButton(dialog, "Keep open")->click();
        settle();
        EXPECT_TRUE(dialog->isPinned());
        EXPECT_TRUE(dialog->isVisible());
        EXPECT_NE(qobject_cast<QDockWidget*>(dialog->parentWidget()), nullptr);
        titleButton(dialog, "Keep open")->click();
        settle();
        EXPECT_FALSE(dialog->isPinned());
        EXPECT_EQ(dialog->parentWidget(), &window);
        EXPECT_TRUE(dialog->isVisible());
        EXPECT_EQ(dialog->height(), height);
        titleButton(dialog, "Close")->click();
        EXPECT_EQ(manager.getDialogWindow("Probe"), nullptr);
        settle();
        EXPECT_EQ(ProbeDialog::alive, 0);
        EXPECT_EQ(ProbeDialog::closed, round + 1);
        EXPECT_TRUE(window.findChildren<QDockWidget*>().isEmpty());
    }
}

TEST_F(Dialogs, FoldedGivesItsDockAreaBackAndTakesItAgainUnfolded)
{
    ProbeDialog* const dialog = open();
    dialog->slotPinDialog(true);
    settle();
    int const narrow = window.centralWidget()->width();
    dialog->slotMainPageVisible(false);
    settle();
    EXPECT_TRUE(dialog->isPinned());
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_EQ(dialog->parentWidget(), &window);
    EXPECT_GT(window.centralWidget()->width(), narrow);
    manager.activateDialog(dialog);
    settle();
    EXPECT_NE(qobject_cast<QDockWidget*>(dialog->parentWidget()), nullptr);
    EXPECT_EQ(window.centralWidget()->width(), narrow);
    EXPECT_TRUE(dialog->field->isVisible());
}

TEST_F(Dialogs, ComesUpWhereItWasLast)
{
    ProbeDialog* dialog = open();
    drag(dialog, {-700, 90});
    QRect const place = dialog->geometry();
    EXPECT_LT(place.center().x(), window.width() / 2);
    EXPECT_GT(place.top(), 80);
    dialog->close();
    settle();
    dialog = open();
    EXPECT_EQ(dialog->geometry(), place);
    dialog->slotPinDialog(true);
    settle();
    auto* const dock = qobject_cast<QDockWidget*>(dialog->parentWidget());
    ASSERT_NE(dock, nullptr);
    EXPECT_EQ(window.dockWidgetArea(dock), Qt::LeftDockWidgetArea);
    drag(dialog, {700, 0});
    EXPECT_EQ(window.dockWidgetArea(dock), Qt::RightDockWidgetArea);
    dialog->close();
    settle();
    EXPECT_TRUE(window.findChildren<QDockWidget*>().isEmpty());
    dialog = open();
    EXPECT_TRUE(dialog->isPinned());
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_NE(qobject_cast<QDockWidget*>(dialog->parentWidget()), nullptr);
}

TEST_F(Dialogs, SecondOneLeavesTheTitleOfTheFirstInView)
{
    ProbeDialog* const first = open();
    ProbeDialog* const second = open("Second");
    auto* const title = first->findChild<DialogTitleBar*>();
    EXPECT_GE(second->y(), first->y() + title->height());
    manager.activateDialog(second);
    settle();
    EXPECT_LT(second->y(), first->y() + 2 * title->height());
}

TEST_F(Dialogs, StoredPlacesThatMakeNoSenseCountAsNone)
{
    settings.setValue("/DialogWindow/Probe/side", 17);
    settings.setValue("/DialogWindow/Probe/offset", "1e99");
    settings.setValue("/DialogWindow/Probe/pinned", "perhaps");
    ProbeDialog* const dialog = open();
    EXPECT_TRUE(window.rect().contains(dialog->geometry().topLeft()));
    settings.setValue("/DialogWindow/Other/offset", 1000000);
    settings.setValue("/DialogWindow/Other/pinned", false);
    EXPECT_TRUE(window.rect().contains(open("Other")->geometry()));
}

TEST_F(Dialogs, EndsSafelyFromItsOwnSlot)
{
    Mesh::Document* const document = application.newDocument("plate");
    QPointer<ProbeDialog> const dialog = open();
    dialog->setDocument(document);
    dialog->ok->click();
    ASSERT_FALSE(dialog.isNull());
    dialog->destruct();
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_TRUE(ProbeDialog::closedWithDocument);
    settle();
    EXPECT_TRUE(dialog.isNull());
    EXPECT_EQ(ProbeDialog::closed, 1);
    document->addObject(new Mesh::DocumentObject, "part", true);
}

TEST_F(Dialogs, ReceivesTheEventsOfItsDocument)
{
    Mesh::Document* const document = application.newDocument("plate");
    ProbeDialog* const dialog = open();
    dialog->setModuleName(document->getName());
    dialog->setDocument(document);
    EXPECT_EQ(dialog->getDocument(), document);
    EXPECT_EQ(dialog->getModuleName(), "plate");
    dialog->log.clear();
    auto* const part = new Mesh::DocumentObject;
    part->meshProperty->setMesh(kernelOf(box(1, 1, 1)).release(), true);
    document->addObject(part, "part", true);
    part->setSelected(true, true, false);
    part->setVisible(false);
    document->removeObject(part);
    EXPECT_EQ(dialog->log,
              (std::vector<std::string>{"new part", "selection", "replaced part",
                                        "deleted part Mesh::DocumentObject", "selection"}));
    Mesh::Document* const other = application.newDocument("other");
    EXPECT_EQ(dialog->log.back(), "module");
    dialog->setDocument(other);
    dialog->log.clear();
    document->addObject(new Mesh::DocumentObject, "unseen", true);
    EXPECT_TRUE(dialog->log.empty());
}

TEST_F(Dialogs, HearsThatPartsWereHiddenOrShown)
{
    Mesh::Document* const document = application.newDocument("plate");
    auto* const first = new Mesh::DocumentObject;
    auto* const second = new Mesh::DocumentObject;
    document->addObject(first, "first", true);
    document->addObject(second, "second", true);
    ProbeDialog* const dialog = open();
    dialog->setDocument(document);
    auto const selections = [&] {
        settle();
        long const count = std::ranges::count(dialog->log, "selection");
        dialog->log.clear();
        return count;
    };
    EXPECT_EQ(selections(), 0);
    first->setVisible(false);
    second->setVisible(false);
    EXPECT_EQ(selections(), 1) << "once for both";
    second->setVisible(true);
    EXPECT_EQ(selections(), 1);
    second->setName("other");
    EXPECT_EQ(selections(), 0);
    first->setVisible(true);
    first->setVisible(false);
    EXPECT_EQ(selections(), 0) << "all is as it was";
    document->removeObject(second);
    EXPECT_EQ(selections(), 1);
}

TEST_F(Dialogs, MayFollowTheActiveDocumentByItself)
{
    Mesh::Document* const document = application.newDocument("plate");
    Mesh::Document* const other = application.newDocument("other");
    QPointer<ProbeDialog> const dialog = open();
    dialog->setDocument(document);
    dialog->setDocumentPointer(nullptr);
    EXPECT_EQ(dialog->getDocument(), nullptr);
    dialog->log.clear();
    document->addObject(new Mesh::DocumentObject, "part", true);
    EXPECT_EQ(dialog->log, std::vector<std::string>{"new part"});
    dialog->setDocumentPointer(other);
    EXPECT_EQ(dialog->getDocument(), other);
    dialog->log.clear();
    document->addObject(new Mesh::DocumentObject, "unseen", true);
    other->addObject(new Mesh::DocumentObject, "seen", true);
    EXPECT_EQ(dialog->log, std::vector<std::string>{"new seen"});
    dialog->setDocumentPointer(nullptr);
    application.closeDocument(other);
    settle();
    EXPECT_TRUE(dialog.isNull()) << "the end of the last document is heard";
}

TEST_F(Dialogs, LeavesTheViewAndEndsItsOwnToolAlone)
{
    RecordingTool::enter();
    Mesh::Document* const document = application.newDocument("plate");
    ProbeDialog* const dialog = open();
    dialog->leaveView({RecordingTool::name});
    dialog->setDocument(document);
    dialog->leaveView({RecordingTool::name});
    {
        Mesh::GLView view;
        view.setDocument(document);
        view.installEventFilter(dialog);
        view.startSelection("Base::RectangleSelection");
        dialog->leaveView({RecordingTool::name});
        EXPECT_EQ(view.getInteractModeName(), "Base::RectangleSelection");
        view.startSelection(RecordingTool::name);
        dialog->leaveView({"Other::Tool", RecordingTool::name});
        EXPECT_EQ(view.getInteractModeName(), "");
    }
    dialog->leaveView({RecordingTool::name});
}

TEST_F(Dialogs, EndsWithItsDocument)
{
    Mesh::Document* const document = application.newDocument("plate");
    QPointer<ProbeDialog> const dialog = open();
    dialog->setDocument(document);
    application.closeDocument(document);
    ASSERT_FALSE(dialog.isNull());
    EXPECT_EQ(dialog->getDocument(), nullptr);
    EXPECT_TRUE(ProbeDialog::closedWithDocument);
    EXPECT_EQ(manager.getDialogWindow("Probe"), nullptr);
    settle();
    EXPECT_TRUE(dialog.isNull());
}

TEST_F(Dialogs, ThatIsNotOneOffIsHiddenAndShownAgain)
{
    ProbeDialog* const dialog = open();
    dialog->setOneoff(false);
    dialog->close();
    settle();
    EXPECT_EQ(manager.getDialogWindow("Probe"), dialog);
    EXPECT_FALSE(dialog->isVisible());
    manager.activateDialog(dialog);
    EXPECT_TRUE(dialog->isVisible());
}

TEST_F(Dialogs, CannotBeClosedOrEditedWhileAJobRunsButEnd)
{
    ProbeDialog* const dialog = open();
    EventNotify::instance()->emitStartEvent();
    EXPECT_FALSE(dialog->field->isEnabled());
    EXPECT_FALSE(dialog->ok->isEnabled());
    EXPECT_FALSE(titleButton(dialog, "Close")->isEnabled());
    EXPECT_FALSE(dialog->close());
    EXPECT_FALSE(manager.closeAll());
    EXPECT_TRUE(dialog->isVisible());
    EventNotify::instance()->emitEndEvent();
    EXPECT_TRUE(dialog->field->isEnabled());
    EventNotify::instance()->emitStartEvent();
    dialog->destruct();
    EventNotify::instance()->emitEndEvent();
    settle();
    EXPECT_EQ(ProbeDialog::alive, 0);
    open();
    EXPECT_TRUE(manager.closeAll());
    EXPECT_TRUE(manager.openDialogs().empty());
}

TEST_F(Dialogs, EnterInAFieldPressesNoButtonAndEscapeCloses)
{
    QPointer<ProbeDialog> const dialog = open();
    QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QCoreApplication::sendEvent(dialog->field, &enter);
    settle();
    ASSERT_FALSE(dialog.isNull());
    QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QCoreApplication::sendEvent(dialog, &escape);
    settle();
    EXPECT_TRUE(dialog.isNull());
}

TEST_F(Dialogs, FollowThemeUnitAndLanguage)
{
    ProbeDialog* const dialog = open();
    dialog->log.clear();
    ThemeSwitch::setTheme(ThemeSwitch::Choice::Light);
    DisplayUnit::instance().setLength(DisplayUnit::Inch);
    DisplayUnit::instance().setLength(DisplayUnit::Millimetre);
    QEvent language(QEvent::LanguageChange);
    QCoreApplication::sendEvent(dialog, &language);
    EXPECT_EQ(dialog->log,
              (std::vector<std::string>{"theme", "resetUnit", "resetUnit", "retranslate"}));
}

TEST_F(Dialogs, GoWithTheMainWindow)
{
    auto other = std::make_unique<MainWindow>();
    other->show();
    ProbeDialog* const floating = open();
    ProbeDialog* const docked = open("Docked");
    docked->slotPinDialog(true);
    settle();
    EXPECT_EQ(floating->window(), other.get());
    other.reset();
    EXPECT_EQ(ProbeDialog::alive, 0);
    EXPECT_TRUE(manager.openDialogs().empty());
}

TEST(DialogFrame, DisabledPageLeavesTitleButtonsAndWindowsOnIt)
{
    ProbeDialog dialog(nullptr);
    Dialog before(dialog.field, false);
    dialog.setMainPageEnable(false);
    Dialog after(dialog.field, false);
    EXPECT_FALSE(dialog.field->isEnabled());
    EXPECT_TRUE(dialog.ok->isEnabled());
    EXPECT_TRUE(before.isEnabled());
    EXPECT_TRUE(after.isEnabled());
    dialog.setMainPageEnable(true);
    EXPECT_TRUE(dialog.field->isEnabled());
}

TEST(DialogFrame, ClosingTellsOnceThoughItsRejectionLeadsBackToTheCloseSlot)
{
    Dialog dialog(nullptr, false);
    int closed = 0;
    QObject::connect(&dialog, &Dialog::signalClosed, [&] { ++closed; });
    QObject::connect(&dialog, &QDialog::rejected, &dialog, [&] { dialog.on_close_clicked(); });
    dialog.show();
    dialog.on_close_clicked();
    EXPECT_EQ(closed, 1);
    EXPECT_FALSE(dialog.isVisible());
    dialog.show();
    dialog.on_start_hide_animate();
    EXPECT_EQ(closed, 2);
    dialog.show();
    dialog.close();
    EXPECT_EQ(closed, 3);
}

TEST(DialogFrame, WithoutAPinButtonThereIsNone)
{
    ProbeDialog dialog(nullptr);
    dialog.setPinEnable(false);
    dialog.show();
    int visible = 0;
    for (auto* const button : dialog.findChildren<GlyphButton*>())
        visible += button->isVisible();
    EXPECT_EQ(visible, 2);
    EXPECT_FALSE(dialog.isPinEnabled());
}
