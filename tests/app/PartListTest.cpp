// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/jobs/JobGuard.h"
#include "app/partlist/PartList.h"
#include "app/partlist/PartTreeModel.h"
#include "app/partlist/PartTreeView.h"
#include "tests/app/PartDocument.h"

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QDropEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QMouseEvent>

namespace {

using Objects = std::vector<Base::DocumentObject*>;

class PartListTest : public testing::Test
{
protected:
    PartListTest()
    {
        list.resize(420, 300);
        list.show();
        handleEvents();
    }

    QModelIndex cell(Base::DocumentObject const* object, int column) const
    {
        return list.model()->indexOf(object).siblingAtColumn(column);
    }
    QVariant shown(Base::DocumentObject const* object, int column, int role = Qt::DisplayRole) const
    {
        return cell(object, column).data(role);
    }
    void mouse(QEvent::Type type, QPoint position, Qt::KeyboardModifiers modifiers)
    {
        auto const buttons = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
        QMouseEvent event(type, position, Qt::LeftButton, buttons, modifiers);
        QCoreApplication::sendEvent(list.view()->viewport(), &event);
    }
    void click(Base::DocumentObject const* object, int column = 0,
               Qt::KeyboardModifiers modifiers = {})
    {
        QPoint const position = list.view()->visualRect(cell(object, column)).center();
        mouse(QEvent::MouseButtonPress, position, modifiers);
        mouse(QEvent::MouseButtonRelease, position, modifiers);
        handleEvents();
    }
    void key(int code, QString const& text = {})
    {
        QWidget* const target =
            list.view()->focusWidget() ? list.view()->focusWidget() : list.view();
        QKeyEvent press(QEvent::KeyPress, code, Qt::NoModifier, text);
        QCoreApplication::sendEvent(target, &press);
        handleEvents();
    }
    void drop(Objects const& objects, QPoint position)
    {
        QModelIndexList indexes;
        for (Base::DocumentObject const* const object : objects)
            indexes << cell(object, 0);
        std::unique_ptr<QMimeData> const data(list.model()->mimeData(indexes));
        QWidget* const viewport = list.view()->viewport();
        QDragEnterEvent enter(position, Qt::MoveAction, data.get(), Qt::LeftButton, {});
        QCoreApplication::sendEvent(viewport, &enter);
        QDragMoveEvent move(position, Qt::MoveAction, data.get(), Qt::LeftButton, {});
        QCoreApplication::sendEvent(viewport, &move);
        QDropEvent drop(position, Qt::MoveAction, data.get(), Qt::LeftButton, {});
        QCoreApplication::sendEvent(viewport, &drop);
        handleEvents();
    }
    QPoint rowMiddle(Base::DocumentObject const* object) const
    {
        return list.view()->visualRect(cell(object, 0)).center();
    }
    QAction* menuAction(QMenu const& menu, QString const& text) const
    {
        for (QAction* const action : menu.actions())
            if (action->text() == text)
                return action;
        ADD_FAILURE() << "There is no " << text.toStdString();
        return nullptr;
    }
    void choose(QString const& text)
    {
        std::unique_ptr<QMenu> const menu(list.makeContextMenu());
        menuAction(*menu, text)->trigger();
        handleEvents();
    }

    PartDocument parts;
    PartList list;
    Mesh::Document& document = *parts.document;
};

}  // namespace

TEST_F(PartListTest, NamesAreReadWhereThereIsNoRoomForTheNumbersOfTriangles)
{
    QFontMetrics const metrics = list.fontMetrics();
    for (int const width : {420, 200, 420}) {
        list.resize(width, 300);
        handleEvents();
        EXPECT_EQ(list.view()->isColumnHidden(PartTreeModel::TrianglesColumn), width == 200);
        EXPECT_GT(list.view()->columnWidth(PartTreeModel::NameColumn) - list.view()->indentation(),
                  metrics.horizontalAdvance("bracket"))
            << width;
    }
}

TEST_F(PartListTest, GroupsHoldTheirPartsInTheDocumentsOrder)
{
    QAbstractItemModelTester const tester(list.model());
    ASSERT_EQ(list.model()->rowCount(), 2);
    EXPECT_EQ(list.model()->index(0, 0).data().toString(), "first");
    EXPECT_EQ(list.model()->index(1, 0).data().toString(), "pair");
    ASSERT_EQ(list.model()->rowCount(list.model()->index(1, 0)), 2);
    EXPECT_EQ(shown(parts.first, PartTreeModel::TrianglesColumn), "12");
    EXPECT_EQ(shown(parts.group, PartTreeModel::TrianglesColumn), "24");
    EXPECT_TRUE(list.view()->isExpanded(cell(parts.group, 0)));
}

TEST_F(PartListTest, TheModelKeepsItsPromisesThroughEditsUndoAndRedo)
{
    QAbstractItemModelTester const tester(list.model());
    PartEdits::group(document, {parts.first, parts.second}, "Group");
    handleEvents();
    PartEdits::duplicate(document, document.getMeshObjects());
    handleEvents();
    EXPECT_EQ(list.model()->partCount(), 6u);
    PartEdits::remove(document, {parts.second, parts.group});
    handleEvents();
    PartEdits::ungroup(document, document.getGroups());
    for (int i = 0; i < 4; ++i) {
        document.undo();
        if (i % 2)
            handleEvents();
    }
    handleEvents();
    EXPECT_EQ(list.model()->partCount(), 3u);
    EXPECT_EQ(cell(parts.second, 0).parent(), cell(parts.group, 0));
    while (document.redo())
        handleEvents();
    EXPECT_EQ(list.model()->partCount(), document.getMeshObjects().size());
}

TEST_F(PartListTest, AnObjectThatIsGoneIsNeverTouchedAgain)
{
    document.removeObject(parts.first);
    auto* const other = parts.add(box(1, 1, 1), "other");
    EXPECT_EQ(list.model()->index(0, 0).data().toString(), "first");
    EXPECT_EQ(list.model()->objectAt(list.model()->index(0, 0)), nullptr);
    handleEvents();
    EXPECT_EQ(list.model()->indexOf(parts.group).row(), 0);
    EXPECT_EQ(list.model()->indexOf(other).row(), 1);
}

TEST_F(PartListTest, ASelectionInTheListIsTheDocuments)
{
    click(parts.first);
    EXPECT_EQ(document.getSelectedObjects(), Objects{parts.first});
    click(parts.second, 0, Qt::ControlModifier);
    EXPECT_EQ(document.getSelectedObjects(), (Objects{parts.first, parts.second}));
    click(parts.first, 0, Qt::ControlModifier);
    EXPECT_EQ(document.getSelectedObjects(), Objects{parts.second});
    click(parts.first);
    click(parts.third, 0, Qt::ShiftModifier);
    EXPECT_EQ(document.getSelectedMeshObjects().size(), 3u);
    EXPECT_TRUE(document.undoNames().empty());
}

TEST_F(PartListTest, ASelectionInTheDocumentIsTheLists)
{
    document.select(parts.second, true, true, true);
    document.select(parts.third, true, true, false);
    handleEvents();
    auto const rows = list.view()->selectionModel()->selectedRows();
    ASSERT_EQ(rows.size(), 2);
    EXPECT_EQ(list.model()->objectAt(rows[0]), parts.second);
    document.clearSelection();
    handleEvents();
    EXPECT_FALSE(list.view()->selectionModel()->hasSelection());
}

TEST_F(PartListTest, AGroupAndItsPartsAreSelectedTogether)
{
    click(parts.group);
    EXPECT_EQ(document.getSelectedMeshObjects().size(), 2u);
    EXPECT_EQ(list.view()->selectionModel()->selectedRows().size(), 3);
    click(parts.second, 0, Qt::ControlModifier);
    EXPECT_EQ(document.getSelectedObjects(), Objects{parts.third});
    click(parts.group);
    click(parts.second);
    EXPECT_EQ(document.getSelectedObjects(), Objects{parts.second});
    click(parts.group);
    click(parts.group, 0, Qt::ControlModifier);
    EXPECT_TRUE(document.getSelectedObjects().empty());
    list.view()->selectAll();
    EXPECT_EQ(document.getSelectedObjects().size(), 4u);
}

TEST_F(PartListTest, ASelectionSurvivesChangesOfTheRows)
{
    click(parts.second);
    PartEdits::moveToGroup(document, {parts.second}, nullptr);
    handleEvents();
    EXPECT_EQ(document.getSelectedObjects(), Objects{parts.second});
    EXPECT_TRUE(list.view()->selectionModel()->isSelected(cell(parts.second, 0)));
    document.removeObject(parts.first);
    handleEvents();
    EXPECT_EQ(document.getSelectedObjects(), Objects{parts.second});
}

TEST_F(PartListTest, TheEyeHidesAndShowsWithoutSelecting)
{
    click(parts.first);
    click(parts.second, PartTreeModel::EyeColumn);
    EXPECT_FALSE(parts.second->isVisible());
    EXPECT_EQ(document.getSelectedObjects(), Objects{parts.first});
    EXPECT_EQ(shown(parts.group, 0, PartTreeModel::EyeRole), int(PartNode::Eye::Half));
    click(parts.group, PartTreeModel::EyeColumn);
    EXPECT_TRUE(parts.second->isVisible());
    click(parts.group, PartTreeModel::EyeColumn);
    EXPECT_FALSE(parts.second->isVisible());
    EXPECT_FALSE(parts.third->isVisible());
    EXPECT_EQ(document.undoNames().size(), 3u);
}

TEST_F(PartListTest, TheEyeOfASelectedPartIsThatOfAllSelectedParts)
{
    list.view()->selectAll();
    click(parts.first, PartTreeModel::EyeColumn);
    for (Mesh::DocumentObject const* const part : document.getMeshObjects())
        EXPECT_FALSE(part->isVisible());
    EXPECT_EQ(document.undoNames(), std::vector<std::string>{"Hide"});
}

TEST_F(PartListTest, TheSwatchAsksForAColour)
{
    QColor asked;
    list.setColorChooser([&](QColor const& initial, QWidget*) {
        asked = initial;
        return QColor(1, 2, 3, 255);
    });
    parts.first->setColor(0x0a0b0cff);
    click(parts.first, PartTreeModel::ColorColumn);
    EXPECT_EQ(asked, QColor(10, 11, 12, 255));
    EXPECT_EQ(parts.first->getColor(), 0x010203ffu);
    EXPECT_EQ(document.undoNames(), std::vector<std::string>{"Colour"});

    list.setColorChooser([](QColor const&, QWidget*) { return QColor(); });
    click(parts.first, PartTreeModel::ColorColumn);
    EXPECT_EQ(document.undoNames().size(), 1u);
}

TEST_F(PartListTest, ANameIsEditedInTheRow)
{
    click(parts.first);
    list.view()->setFocus();
    key(Qt::Key_F2);
    auto* const editor = list.view()->viewport()->findChild<QLineEdit*>();
    ASSERT_TRUE(editor);
    editor->setText("flange");
    QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QCoreApplication::sendEvent(editor, &enter);
    // The delegate takes the text over some events later.
    EXPECT_TRUE(waitUntil([&] { return parts.first->getName() == "flange"; }));
    handleEvents();
    EXPECT_EQ(shown(parts.first, 0), "flange");
    EXPECT_EQ(document.undoNames(), std::vector<std::string>{"Rename"});
    EXPECT_FALSE(list.model()->setData(cell(parts.first, 0), "  ", Qt::EditRole));
    EXPECT_EQ(parts.first->getName(), "flange");
}

TEST_F(PartListTest, AChangeOfTheRowLeavesANameThatIsBeingTyped)
{
    click(parts.first);
    key(Qt::Key_F2);
    auto* const editor = list.view()->viewport()->findChild<QLineEdit*>();
    ASSERT_TRUE(editor);
    editor->setText("fl");
    parts.first->setColor(0x0a0b0cff);
    parts.second->setVisible(false);
    handleEvents();
    EXPECT_EQ(editor->text(), "fl");
    parts.first->setName("renamed elsewhere");
    handleEvents();
    EXPECT_EQ(editor->text(), "renamed elsewhere");
}

TEST_F(PartListTest, PartsAreDraggedIntoAGroupAndOutOfIt)
{
    drop({parts.first}, rowMiddle(parts.group));
    EXPECT_EQ(parts.first->getGroup(), parts.group);
    EXPECT_EQ(document.undoNames().front(), "Move to Group");
    drop({parts.first, parts.third}, {10, list.view()->viewport()->height() - 5});
    EXPECT_EQ(parts.first->getGroup(), nullptr);
    EXPECT_EQ(parts.third->getGroup(), nullptr);
    drop({parts.first}, rowMiddle(parts.second));
    EXPECT_EQ(parts.first->getGroup(), parts.group);
    EXPECT_EQ(document.getMeshObjects().size(), 3u);
}

TEST_F(PartListTest, ADropFromAnotherProgramIsRefused)
{
    QMimeData files;
    files.setText("x");
    EXPECT_FALSE(list.model()->canDropMimeData(&files, Qt::MoveAction, -1, -1, {}));
    QMimeData forged;
    forged.setData(list.model()->mimeTypes().front(), QByteArray(24, '\x7f'));
    EXPECT_FALSE(list.model()->dropMimeData(&forged, Qt::MoveAction, -1, -1, {}));
    EXPECT_TRUE(document.undoNames().empty());
}

TEST_F(PartListTest, OpenPartsSayHowOpenTheyAre)
{
    auto* const open = parts.add(openBox(5, 5, 5), "tray");
    handleEvents();
    ASSERT_TRUE(waitUntil([&] {
        return shown(open, 0, PartTreeModel::ClosedRole).isValid() &&
               shown(parts.third, 0, PartTreeModel::ClosedRole).isValid();
    }));
    EXPECT_FALSE(shown(open, 0, PartTreeModel::ClosedRole).toBool());
    EXPECT_EQ(shown(open, PartTreeModel::ClosedColumn, Qt::ToolTipRole), "open: 4 open edges");
    EXPECT_TRUE(shown(parts.first, 0, PartTreeModel::ClosedRole).toBool());
    EXPECT_EQ(shown(parts.first, PartTreeModel::ClosedColumn, Qt::ToolTipRole), "closed");
}

TEST_F(PartListTest, AMeshThatChangesIsCheckedAgain)
{
    auto const isClosed = [&](bool closed) {
        QVariant const value = shown(parts.first, 0, PartTreeModel::ClosedRole);
        return value.isValid() && value.toBool() == closed;
    };
    ASSERT_TRUE(waitUntil([&] { return isClosed(true); }));
    parts.first->meshProperty->setMesh(kernelOf(openBox(5, 5, 5)).release(), true);
    EXPECT_TRUE(waitUntil([&] { return isClosed(false); }));

    // In place: the same list, another triangle count; and the same count, other corners.
    parts.first->meshProperty->setMesh(kernelOf(box(5, 5, 5)).release(), true);
    ASSERT_TRUE(waitUntil([&] { return isClosed(true); }));
    auto& triangles = parts.first->meshProperty->getMesh()->getMesh()->triangles;
    std::swap(triangles[0]->V0(0), triangles[0]->V0(1));
    triangles[0]->V0(0) = triangles[0]->V0(1);
    parts.first->setMeshModified(true);
    EXPECT_TRUE(waitUntil([&] { return isClosed(false); }));
}

TEST_F(PartListTest, TheMenuDoesWhatItSaysAndSaysWhyNot)
{
    std::unique_ptr<QMenu> menu(list.makeContextMenu());
    EXPECT_FALSE(menuAction(*menu, "Hide")->isEnabled());
    EXPECT_EQ(menuAction(*menu, "Hide")->toolTip(), "Select a part first.");
    click(parts.first);
    choose("Hide");
    EXPECT_FALSE(parts.first->isVisible());
    choose("Show All");
    EXPECT_TRUE(parts.first->isVisible());
    choose("Group");
    EXPECT_EQ(parts.first->getGroup()->getName(), "Group 1");
    choose("Ungroup");
    EXPECT_EQ(parts.first->getGroup(), nullptr);
    choose("Duplicate");
    EXPECT_EQ(document.getMeshObjects().size(), 4u);
    choose("Delete");
    EXPECT_EQ(document.getMeshObjects().size(), 3u);
    EXPECT_TRUE(document.contains(parts.first));
}

TEST_F(PartListTest, WhileAJobRunsNothingCanBeEdited)
{
    click(parts.first);
    {
        JobGuard::Hold const job;
        handleEvents();
        click(parts.first, PartTreeModel::EyeColumn);
        EXPECT_TRUE(parts.first->isVisible());
        EXPECT_EQ(shown(parts.first, PartTreeModel::EyeColumn, Qt::ToolTipRole).toString(),
                  JobGuard::instance()->reason());
        EXPECT_FALSE(cell(parts.first, 0).flags() & Qt::ItemIsEditable);
        EXPECT_FALSE(list.model()->setData(cell(parts.first, 0), "other", Qt::EditRole));
        drop({parts.first}, rowMiddle(parts.group));
        EXPECT_EQ(parts.first->getGroup(), nullptr);
        std::unique_ptr<QMenu> const menu(list.makeContextMenu());
        for (QAction const* const action : menu->actions())
            if (!action->isSeparator()) {
                EXPECT_FALSE(action->isEnabled()) << action->text().toStdString();
                EXPECT_EQ(action->toolTip(), JobGuard::instance()->reason());
            }
        click(parts.second);
        EXPECT_EQ(document.getSelectedObjects(), Objects{parts.second});
    }
    handleEvents();
    EXPECT_TRUE(cell(parts.first, 0).flags() & Qt::ItemIsEditable);
    EXPECT_TRUE(document.undoNames().empty());
}

TEST_F(PartListTest, TheListFollowsTheActiveDocument)
{
    parts.application.newDocument("other");
    EXPECT_EQ(list.model()->rowCount(), 0);
    parts.application.closeDocument(parts.application.activeDocument());
    handleEvents();
    EXPECT_EQ(list.model()->partCount(), 3u);
    parts.application.closeDocument(&document);
    handleEvents();
    EXPECT_EQ(list.model()->rowCount(), 0);
    EXPECT_EQ(list.makeContextMenu(), nullptr);
}

TEST_F(PartListTest, AThousandPartsKeepOneRowEach)
{
    std::vector<Mesh::DocumentObject*> many;
    for (int i = 0; i < 1000; ++i)
        many.push_back(parts.add(box(1, 1, 1), "part" + std::to_string(i)));
    handleEvents();
    EXPECT_EQ(list.model()->partCount(), 1003u);
    list.view()->selectAll();
    EXPECT_EQ(document.getSelectedMeshObjects().size(), 1003u);
    choose("Hide");
    EXPECT_FALSE(many.back()->isVisible());
    choose("Delete");
    EXPECT_EQ(list.model()->rowCount(), 0);
    document.undo();
    document.undo();
    handleEvents();
    EXPECT_EQ(list.model()->partCount(), 1003u);
    EXPECT_EQ(shown(many.front(), 0, PartTreeModel::EyeRole), int(PartNode::Eye::Open));
}
