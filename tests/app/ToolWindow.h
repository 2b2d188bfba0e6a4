// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/window/StatusLine.h"
#include "dialogs/ConnectorPreview.h"
#include "dialogs/DialogPolygoncut.h"
#include "dialogs/DialogSectioncut.h"
#include "dialogs/ToolButton.h"
#include "platform/ui/DialogWindowManager.h"
#include "platform/ui/DisplayUnit.h"
#include "platform/ui/LanguageSwitch.h"
#include "platform/ui/MellQuantitySpinBox.h"
#include "platform/ui/PushButtonAnimate.h"
#include "platform/ui/ThemeSwitch.h"
#include "platform/view/NavigationStyle.h"
#include "selection/PlanecutSelection.h"
#include "selection/PolygoncutSelection.h"
#include "selection/RunningTool.h"
#include "tests/app/AppWindow.h"
#include "tests/support/SkipReasons.h"
#include "tests/support/Validator.h"
#include "tests/support/ViewEvents.h"
#include "tools/PlaneGraphicObject.h"
#include "tools/PolygonGraphicObject.h"

#include <QLineEdit>
#include <QTest>

/// The shown window with the tools that draw in its view, and their dialogs, as hands use them.
class ToolWindow : public AppWindow
{
protected:
    using Point = UPoint3<float>;
    using Points = std::vector<Point>;

    void SetUp() override
    {
        if (!hasDisplay())
            GTEST_SKIP() << displayIsMissing;
        AppWindow::SetUp();
        window->resize(1400, 950);
        show();
    }
    void TearDown() override
    {
        ThemeSwitch::setTheme(ThemeSwitch::Choice::Light);
        LanguageSwitch::setLanguage(LanguageSwitch::Choice::English);
        DisplayUnit::instance().setLength(DisplayUnit::Millimetre);
        if (window)
            AppWindow::TearDown();
    }

    Mesh::GLView& view() const { return window->view(); }
    Mesh::Document& document() const
    {
        return static_cast<Mesh::Document&>(*test->application.activeDocument());
    }
    template <typename Dialog>
    Dialog* dialogOf(char const* name) const
    {
        return static_cast<Dialog*>(DialogWindowManager::instance()->getDialogWindow(name));
    }
    Freecut::DialogSectioncut* sectionDialog() const
    {
        return dialogOf<Freecut::DialogSectioncut>("DialogSectioncut");
    }
    Freecut::DialogPolygoncut* polygonDialog() const
    {
        return dialogOf<Freecut::DialogPolygoncut>("DialogPolygoncut");
    }
    Freecut::PlanecutSelection* planeTool() const
    {
        return Freecut::runningTool<Freecut::PlanecutSelection>(&view());
    }
    Freecut::PolygoncutSelection* polygonTool() const
    {
        return Freecut::runningTool<Freecut::PolygoncutSelection>(&view());
    }
    Freecut::PlaneProperty const& plane() const
    {
        return planeTool()->getPlaneObject()->getProperty();
    }
    /// The corners of the polygon.
    Points drawn() const { return polygonTool()->getPolygon()->getPoints(); }

    /// Until the window rests, with the connectors of the section dialog shown, and what it misses.
    void settle() const
    {
        auto const isLooking = [this] {
            return sectionDialog() && (sectionDialog()->widgets().preview->runner().isBusy() ||
                                       sectionDialog()->widgets().missed->work().isBusy());
        };
        QElapsedTimer timer;
        timer.start();
        while (timer.elapsed() < 120 || isLooking())
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    }
    QPoint positionOf(Point const& world) const
    {
        int x, y;
        view().getWidgetcoordFromWCS(world, x, y);
        return {x, y};
    }
    /// A click on what lies there.
    void clickAt(Point const& world, Qt::KeyboardModifiers modifiers = {}) const
    {
        click(view(), positionOf(world), Qt::LeftButton, modifiers);
        settle();
    }
    /// To whatever has the focus, as from a keyboard.
    void pressKey(int key, Qt::KeyboardModifiers modifiers = {}) const
    {
        QTest::keyClick(window->windowHandle(), Qt::Key(key), modifiers);
        settle();
    }
    void pressUndo() const { pressKey(Qt::Key_Z, Qt::ControlModifier); }
    void pressRedo() const { pressKey(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier); }
    /// A number that has been typed into a field, which is then left.
    static void enter(MellQuantitySpinBox* field, double value)
    {
        field->setValue(value);
        emit field->editingFinished();
    }

    /// The same by the keys of a keyboard.
    void typeInto(MellQuantitySpinBox* field, QString const& text) const
    {
        field->setFocus(Qt::TabFocusReason);
        field->selectAll();
        QTest::keyClicks(field->lineEdit(), text);
        QTest::keyClick(field->lineEdit(), Qt::Key_Return);
        settle();
    }
    /// Presses Tab until a widget, or one within it, has the focus.
    testing::AssertionResult tabTo(QWidget const* wanted) const
    {
        constexpr int mostPresses = 150;
        QWidget const* focus = nullptr;
        for (int i = 0; i <= mostPresses; ++i) {
            focus = QApplication::focusWidget();
            if (focus && (focus == wanted || wanted->isAncestorOf(focus)))
                return testing::AssertionSuccess();
            QTest::keyClick(window->windowHandle(), Qt::Key_Tab);
        }
        auto failure = testing::AssertionFailure() << "the focus is on";
        for (; focus; focus = focus->parentWidget())
            failure << " " << focus->metaObject()->className();
        return failure;
    }

    void open(char const* command)
    {
        trigger(command);
        settle();
    }
    void lookFrom(int viewType) const
    {
        view().OnViewType(viewType);
        view().fitAll();
        settle();
    }
    /// A block of 60 x 40 x 30 mm about the origin, seen from above.
    Mesh::DocumentObject* addBlock(float scale = 1)
    {
        Mesh::DocumentObject* const part = test->add(
            box(60 * scale, 40 * scale, 30 * scale, {-30 * scale, -20 * scale, -15 * scale}),
            "block");
        lookFrom(2);
        return part;
    }
    static constexpr double blockVolume = 60 * 40 * 30;

    /// Opens the section dialog, and defines a plane of a kind by a click on a part.
    void placePlane(Freecut::PlaneType type, Point const& on)
    {
        open("Std_Sectioncut");
        if (planeTool()->getPlaneType() != type)
            sectionDialog()->widgets().planeButtons[type]->click();
        clickAt(on);
        ASSERT_TRUE(planeTool() && planeTool()->getPlaneObject());
    }
    /// A level plane.
    void placeLevelPlane(Point const& on, double height)
    {
        placePlane(Freecut::PLANE_XY, on);
        enter(sectionDialog()->widgets().center[2], height);
        settle();
    }
    void drawTriangle()
    {
        open("Std_Polygoncut");
        for (Point const& p : {Point(-20, -10, 0), Point(20, -10, 0), Point(0, 15, 0)})
            clickAt(p);
        ASSERT_TRUE(polygonTool() && polygonTool()->getPolygon());
    }
    /// Presses OK, and waits for the end of the job and of the dialog.
    void cutBySection() { cut(sectionDialog(), "DialogSectioncut"); }
    void cutByShape() { cut(polygonDialog(), "DialogPolygoncut"); }
    std::vector<Soup> parts() const
    {
        std::vector<Soup> found;
        for (Mesh::DocumentObject const* const part : document().getMeshObjects())
            found.push_back(soupOf(part));
        return found;
    }
    /// The whole part and two closed pieces that add up to it.
    void expectTwoPieces(double volume) const
    {
        std::vector<Soup> const found = parts();
        ASSERT_EQ(found.size(), 3u);
        EXPECT_EQ(closedSolidFaults(found[1]), "");
        EXPECT_EQ(closedSolidFaults(found[2]), "");
        EXPECT_NEAR(volumeOf(found[1]) + volumeOf(found[2]), volume, 1e-4 * volume);
    }
    void removeAllParts() const
    {
        for (Mesh::DocumentObject* const part : document().getMeshObjects())
            document().removeObject(part);
        settle();
    }
    /// What the status line says.
    QString status() const { return window->statusLine().currentMessage(); }

private:
    template <typename Dialog>
    void cut(Dialog const* open, char const* name)
    {
        ASSERT_TRUE(open && open->widgets().ok->isEnabled());
        open->widgets().ok->click();
        ASSERT_TRUE(waitUntil([&] {
            return !DialogWindowManager::instance()->getDialogWindow(name) &&
                   !JobGuard::instance()->isBusy();
        }));
        settle();
    }
};
