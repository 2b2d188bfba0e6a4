// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/window/ShortcutList.h"

#include "platform/ui/Action.h"
#include "platform/ui/Command.h"
#include "platform/ui/CommandManager.h"
#include "platform/ui/MellLineEdit.h"

#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QKeySequence>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

constexpr int otherWordsRole = Qt::UserRole;

struct OtherWords
{
    char const* command;
    char const* words;
};

/// What people who come from other programs call things; never shown.
constexpr OtherWords otherWords[] = {
    {"Std_Open", QT_TRANSLATE_NOOP("ShortcutWords", "import, load, add model, insert")},
    {"Std_Export", QT_TRANSLATE_NOOP("ShortcutWords", "save as STL, write, convert")},
    {"Std_ExportSelected", QT_TRANSLATE_NOOP("ShortcutWords", "save as STL, write, convert")},
    {"Std_Undo", QT_TRANSLATE_NOOP("ShortcutWords", "take back, revert, step back")},
    {"Std_Redo", QT_TRANSLATE_NOOP("ShortcutWords", "repeat, again, step forward")},
    {"Std_Delete", QT_TRANSLATE_NOOP("ShortcutWords", "remove, erase, clear")},
    {"Std_Duplicate", QT_TRANSLATE_NOOP("ShortcutWords", "copy, clone, paste")},
    {"Std_SelectNone", QT_TRANSLATE_NOOP("ShortcutWords", "deselect, clear selection")},
    {"Std_RectangleSelect", QT_TRANSLATE_NOOP("ShortcutWords", "box select, marquee, lasso")},
    {"Std_PickPoint", QT_TRANSLATE_NOOP("ShortcutWords", "coordinates, probe, measure")},
    {"Std_FitAll", QT_TRANSLATE_NOOP("ShortcutWords", "zoom to everything, home, reset view")},
    {"Std_FitSelection", QT_TRANSLATE_NOOP("ShortcutWords", "zoom to selection, focus, frame")},
    {"Std_ShowEdges", QT_TRANSLATE_NOOP("ShortcutWords", "wireframe, mesh, triangles")},
    {"Std_ShowPlate", QT_TRANSLATE_NOOP("ShortcutWords", "bed, grid, platform, floor")},
    {"Std_Parallel", QT_TRANSLATE_NOOP("ShortcutWords", "orthographic, orthogonal, projection")},
    {"Std_Perspective", QT_TRANSLATE_NOOP("ShortcutWords", "projection, camera")},
    {"Std_CutView", QT_TRANSLATE_NOOP("ShortcutWords", "clipping, look inside, cross section")},
    {"Std_DropToPlate",
     QT_TRANSLATE_NOOP("ShortcutWords", "bed, ground, floor, land, on platform")},
    {"Std_zCut", QT_TRANSLATE_NOOP("ShortcutWords", "slice, split, divide, halve")},
    {"Std_Hide", QT_TRANSLATE_NOOP("ShortcutWords", "invisible, switch off")},
    {"Std_ShowAll", QT_TRANSLATE_NOOP("ShortcutWords", "unhide, visible, switch on")},
    {"Std_Group", QT_TRANSLATE_NOOP("ShortcutWords", "combine, folder, assembly")},
    {"Std_Preferences", QT_TRANSLATE_NOOP("ShortcutWords", "settings, options, configuration")},
    {"Std_Screenshot", QT_TRANSLATE_NOOP("ShortcutWords", "screenshot, image, photo, render")},
    {"Std_Save", QT_TRANSLATE_NOOP("ShortcutWords", "store, project, keep")},
    {"Std_SelectAll", QT_TRANSLATE_NOOP("ShortcutWords", "mark everything")},
    {"Std_InvertSelection", QT_TRANSLATE_NOOP("ShortcutWords", "reverse, the other parts")},
    {"Std_Handles", QT_TRANSLATE_NOOP("ShortcutWords", "gizmo, transform, drag, move, rotate")},
    {"Std_Measure",
     QT_TRANSLATE_NOOP("ShortcutWords", "ruler, caliper, distance, thickness, angle")},
    {"Std_Arrange", QT_TRANSLATE_NOOP("ShortcutWords", "nest, pack, layout, auto place")},
    {"Std_CutAtHeights",
     QT_TRANSLATE_NOOP("ShortcutWords", "slice, several cuts, layers, every n mm")},
    {"Std_CutFaceDown", QT_TRANSLATE_NOOP("ShortcutWords", "lay flat, orient, print side")},
    {"Std_LayFlat", QT_TRANSLATE_NOOP("ShortcutWords", "orient, base, bottom, on its face")},
    {"Std_FaceDown", QT_TRANSLATE_NOOP("ShortcutWords", "lay flat, place on face, orient")},
    {"Std_Isolate", QT_TRANSLATE_NOOP("ShortcutWords", "isolate, solo, only this")},
    {"Std_DuplicateRow", QT_TRANSLATE_NOOP("ShortcutWords", "array, pattern, copies")},
    {"Std_Ungroup", QT_TRANSLATE_NOOP("ShortcutWords", "explode, dissolve, break up")},
    {"Std_Sectioncut",
     QT_TRANSLATE_NOOP("ShortcutWords", "plane cut, slice, split, connectors, pins, dowels")},
    {"Std_Polygoncut",
     QT_TRANSLATE_NOOP("ShortcutWords", "draw a cut, lasso, puzzle, dovetail, split")},
    {"Std_FullScreen", QT_TRANSLATE_NOOP("ShortcutWords", "maximize, whole screen")},
};

QString otherWordsFor(std::string const& command)
{
    for (OtherWords const& each : otherWords)
        if (command == each.command)
            return QCoreApplication::translate("ShortcutWords", each.words);
    return {};
}

}  // namespace

ShortcutList::ShortcutList(Base::CommandManager const& manager, Preset preset, QWidget* parent)
    : QDialog(parent), m_list(new QTreeWidget(this))
{
    setObjectName(QStringLiteral("ShortcutList"));
    setWindowTitle(tr("Keyboard and Mouse"));
    m_list->setColumnCount(2);
    m_list->setHeaderLabels({tr("What it does"), tr("Keys")});
    m_list->setRootIsDecorated(false);
    m_list->setAlternatingRowColors(true);
    m_list->setSelectionMode(QAbstractItemView::NoSelection);
    m_list->header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    m_list->header()->setSectionResizeMode(1, QHeaderView::Stretch);
    m_list->header()->setStretchLastSection(false);
    addCommands(manager);
    addMouse(preset);

    auto* const search = new MellLineEdit(this);
    search->setObjectName(QStringLiteral("Search"));
    search->setPlaceholderText(tr("Search"));
    search->setClearButtonEnabled(true);
    connect(search, &QLineEdit::textChanged, this, &ShortcutList::filter);
    search->setFocus();
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* const column = new QVBoxLayout(this);
    column->addWidget(search);
    column->addWidget(m_list);
    column->addWidget(buttons);
    int const unit = fontMetrics().height();
    resize(unit * 30, unit * 36);
}

void ShortcutList::addCommands(Base::CommandManager const& manager)
{
    for (Base::Command* const command : manager.getAllCommands()) {
        Base::Action const* const action = command->getAction();
        QKeySequence const keys = action ? action->getQAction()->shortcut() : QKeySequence();
        // Not the action's text, which may name the step that would be undone.
        QString const text = QCoreApplication::translate(
            command->className(), command->getMenuText().toUtf8().constData());
        if (keys.isEmpty())
            continue;
        auto* const item = new QTreeWidgetItem(
            m_list, {QString(text).remove('&'), keys.toString(QKeySequence::NativeText)});
        item->setData(0, otherWordsRole, otherWordsFor(command->getName()));
    }
}

void ShortcutList::addMouse(Preset preset)
{
    bool const turnsByRight = preset == Preset::TurnByRight;
    bool const movesByRight = preset == Preset::MoveByRight;
    QString const right = tr("Drag with the right button");
    QString const turn = turnsByRight ? right : tr("Drag with the middle button");
    QString const move = turnsByRight   ? tr("Drag with the middle button, or right with Shift")
                         : movesByRight ? right
                                        : tr("Drag with the middle button and Shift");
    QString const zoom = turnsByRight || movesByRight
                             ? tr("Wheel, or drag with the right button and Ctrl")
                             : tr("Wheel, or drag with the middle button and Ctrl");
    QStringList const rows[] = {
        {tr("End the tool, or cancel the job"), tr("Esc")},
        {tr("Move the cut plane, or the selected point of a shape; with Shift, ten times as far"),
         tr("Arrow keys")},
        {tr("Remove the corner of a polygon that was drawn last"), tr("Backspace")},
        {tr("Draw a polygon's edge by 15 degrees and round lengths"), tr("Shift")},
        {tr("Draw a polygon's corner to the parts or in line with others"), tr("Ctrl")},
        {tr("Select a part; with Ctrl, one more"), tr("Left click")},
        {tr("Orbit about the point under the mouse"), turn},
        {tr("Move the view"), move},
        {tr("Zoom to the mouse"), zoom},
        {tr("Turn to a standard view"), tr("Click on the cube")},
    };
    for (QStringList const& row : rows)
        new QTreeWidgetItem(m_list, row);
}

void ShortcutList::filter(QString const& text)
{
    for (int i = 0; i < m_list->topLevelItemCount(); ++i) {
        QTreeWidgetItem* const item = m_list->topLevelItem(i);
        bool const isFound =
            item->text(0).contains(text, Qt::CaseInsensitive) ||
            item->text(1).contains(text, Qt::CaseInsensitive) ||
            item->data(0, otherWordsRole).toString().contains(text, Qt::CaseInsensitive);
        item->setHidden(!isFound);
    }
}
