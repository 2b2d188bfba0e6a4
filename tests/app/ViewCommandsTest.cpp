// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/view/WindowSettings.h"
#include "app/window/StatusLine.h"
#include "platform/view/ViewProvider.h"
#include "tests/app/AppWindow.h"
#include "tests/support/RecordingTool.h"

#include <QLabel>
#include <QTest>
#include <QTreeWidget>

TEST_F(AppWindow, StandardViewsHaveKeysAndNumbersOfTheirOwn)
{
    for (int type = 0; type <= 6; ++type) {
        trigger("Std_View" + std::to_string(type));
        EXPECT_EQ(window->view().viewIndex(), type);
    }
}

TEST_F(AppWindow, ProjectionIsOneOfTwoAndTheActionsShowIt)
{
    trigger("Std_Perspective");
    EXPECT_EQ(window->view().projection(), GLCamera::Projection::Perspective);
    // Once more is not the other one.
    trigger("Std_Perspective");
    QCoreApplication::processEvents();
    EXPECT_EQ(window->view().projection(), GLCamera::Projection::Perspective);
    EXPECT_TRUE(action("Std_Perspective")->isChecked());
    EXPECT_FALSE(action("Std_Parallel")->isChecked());
    trigger("Std_Parallel");
    QCoreApplication::processEvents();
    EXPECT_EQ(window->view().projection(), GLCamera::Projection::Parallel);
    EXPECT_FALSE(action("Std_Perspective")->isChecked());
}

TEST_F(AppWindow, EdgesShowOnPartsThatComeLaterToo)
{
    auto const modeOf = [&](Mesh::DocumentObject const* part) {
        return test->document->getViewProvider(part)->getRenderMode();
    };
    Mesh::DocumentObject const* const first = test->add(box(10, 10, 10), "first");
    EXPECT_EQ(modeOf(first), Base::ViewProvider::Shaded);
    trigger("Std_ShowEdges");
    Mesh::DocumentObject const* const second = test->add(box(10, 10, 10), "second");
    EXPECT_EQ(modeOf(first), Base::ViewProvider::ShadedWithEdges);
    EXPECT_EQ(modeOf(second), Base::ViewProvider::ShadedWithEdges);
}

TEST_F(AppWindow, AppearanceIsRememberedAndNonsenseFallsBack)
{
    trigger("Std_ShowEdges");
    trigger("Std_ShowPlate");
    start();
    EXPECT_TRUE(action("Std_ShowEdges")->isChecked());
    EXPECT_TRUE(WindowSettings::flag("View/Edges", false));
    EXPECT_FALSE(WindowSettings::flag("View/Plate", true));
    QSettings(g_AppSettingFormat, QSettings::UserScope, "orbe", getSettingName())
        .setValue("View/Plate", "perhaps");
    EXPECT_TRUE(WindowSettings::flag("View/Plate", true));
}

TEST_F(AppWindow, NonsenseInTheStoredPlacesOfWindowsIsIgnored)
{
    WindowSettings::setBytes("Window/Geometry", "nonsense");
    WindowSettings::setBytes("Window/State", "nonsense");
    start();
    EXPECT_GE(window->width(), 800);
}

TEST_F(AppWindow, ToolsSwitchOnAndOffAndTheStatusLineSaysWhatTheyWaitFor)
{
    test->add(box(10, 10, 10), "box");
    QCoreApplication::processEvents();
    QString const without = window->statusLine().hint();
    trigger("Std_PickPoint");
    QCoreApplication::processEvents();
    EXPECT_EQ(window->view().getInteractModeName(), "Mesh::PointPickerMesh");
    EXPECT_TRUE(action("Std_PickPoint")->isChecked());
    EXPECT_NE(window->statusLine().hint(), without);
    trigger("Std_RectangleSelect");
    QCoreApplication::processEvents();
    EXPECT_EQ(window->view().getInteractModeName(), "Base::RectangleSelection");
    EXPECT_FALSE(action("Std_PickPoint")->isChecked());
    trigger("Std_RectangleSelect");
    QCoreApplication::processEvents();
    EXPECT_EQ(window->view().getInteractModeName(), "");
    EXPECT_EQ(window->statusLine().hint(), without);
}

TEST_F(AppWindow, TheHintOfAModulesToolComesFromItsCommand)
{
    RecordingTool::enter();
    ASSERT_TRUE(window->view().startSelection(RecordingTool::name));
    QCoreApplication::processEvents();
    EXPECT_EQ(window->statusLine().hint(), "Esc ends the tool.");
    action("FreecutPlane3Pts")->setChecked(true);
    test->add(box(10, 10, 10), "box");
    QCoreApplication::processEvents();
    EXPECT_EQ(
        window->statusLine().hint(),
        "3 points plane: Create a cutting plane by clicking 3 points on part(s). Esc ends the "
        "tool.");
}

TEST_F(AppWindow, TipsOfModulesStandAsTheyAreAndGetTheReasonWhereTheyAreOff)
{
    QString const tip = "Section cut the selected part(s) or all parts.";
    QCoreApplication::processEvents();
    ASSERT_FALSE(action("Std_zCut")->isEnabled());
    EXPECT_EQ(action("Std_zCut")->toolTip(), tip + "\nOpen a part first.");
    test->add(box(10, 10, 10), "box")->setSelected(true, true, true);
    QCoreApplication::processEvents();
    ASSERT_TRUE(action("Std_zCut")->isEnabled());
    EXPECT_EQ(action("Std_zCut")->toolTip(), tip);
}

TEST_F(AppWindow, AMessageInTheStatusLineStandsInPlaceOfTheHint)
{
    ASSERT_NO_FATAL_FAILURE(show());
    auto const* const label = window->statusLine().findChild<QLabel*>("Hint");
    QString const hint = label->text();
    EXPECT_EQ(hint, window->statusLine().hint());
    window->statusLine().showMessage("Message");
    // A widget that appears beside it must not bring the hint back.
    window->statusLine().addPermanentWidget(new QLabel("another"));
    QCoreApplication::processEvents();
    EXPECT_EQ(label->text(), "Message");
    window->statusLine().clearMessage();
    EXPECT_EQ(label->text(), hint);
    EXPECT_TRUE(label->isVisible());
}

TEST_F(AppWindow, EscEndsTheTool)
{
    ASSERT_NO_FATAL_FAILURE(show());
    test->add(box(10, 10, 10), "box");
    trigger("Std_PickPoint");
    window->view().setFocus();
    QTest::keyClick(&window->view(), Qt::Key_Escape);
    EXPECT_EQ(window->view().getInteractModeName(), "");
}

TEST_F(AppWindow, TheKeyOfACommandThatIsOffTellsWhatIsMissing)
{
    ASSERT_NO_FATAL_FAILURE(show());
    test->add(box(10, 10, 10), "box");
    QCoreApplication::processEvents();
    window->view().setFocus();
    QTest::keyClick(&window->view(), Qt::Key_H);
    EXPECT_EQ(window->statusLine().currentMessage(), "Select a part first.");
    window->statusLine().clearMessage();
    QTest::keyClick(&window->view(), Qt::Key_F6);
    EXPECT_EQ(window->statusLine().currentMessage(), "");
}

TEST_F(AppWindow, TheQuestionMarkListsAllShortcuts)
{
    ASSERT_NO_FATAL_FAILURE(show());
    // Shortcuts are those of the active window, which it is some time after it is shown.
    ASSERT_TRUE(waitUntil([&] { return window->isActiveWindow(); }));
    QTest::keyClick(window->windowHandle(), Qt::Key_Question);
    auto* const list = window->findChild<QTreeWidget*>();
    ASSERT_TRUE(list);
    for (Base::Command* const command : commands().getAllCommands()) {
        QString const keys = command->getAction()->getQAction()->shortcut().toString();
        if (!keys.isEmpty()) {
            EXPECT_EQ(list->findItems(keys, Qt::MatchExactly, 1).size(), 1) << keys.toStdString();
        }
    }
}

TEST_F(AppWindow, TheStatusLineCountsTheSelection)
{
    test->add(box(10, 10, 10), "a")->setSelected(true, true, false);
    test->add(box(10, 10, 10), "b")->setSelected(true, true, false);
    QCoreApplication::processEvents();
    auto const* const summary = window->findChild<QLabel*>("SelectionSummary");
    EXPECT_EQ(summary->text().toStdString(), "2 parts, 24 triangles");
}

TEST_F(AppWindow, TheStatusLineCountsTrianglesOfPiecesWhoseMeshSaysNone)
{
    // As pieces of a section cut have it.
    auto mesh = std::make_unique<UMesh<float>>();
    auto const source = kernelOf(box(10, 10, 10));
    mesh->triangles.swap(source->getMesh()->triangles);
    mesh->vertices.swap(source->getMesh()->vertices);
    auto* const piece = new Mesh::DocumentObject;
    piece->meshProperty->setMesh(new MeshKernel(mesh.release()), true);
    test->document->addObject(piece, "piece", true);
    piece->setSelected(true, true, false);
    QCoreApplication::processEvents();
    EXPECT_EQ(window->findChild<QLabel*>("SelectionSummary")->text().toStdString(),
              "1 part, 12 triangles");
}

TEST_F(AppWindow, TheViewShowsWhicheverDocumentIsActive)
{
    EXPECT_EQ(window->view().getDocument(), test->document);
    Mesh::Document* const other = test->application.newDocument("other");
    EXPECT_EQ(window->view().getDocument(), other);
    test->application.closeDocument(other);
    EXPECT_EQ(window->view().getDocument(), test->document);
}
