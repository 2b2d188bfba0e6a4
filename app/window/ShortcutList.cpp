// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/window/ShortcutList.h"

#include "app/window/KeyBindings.h"
#include "platform/ui/Action.h"
#include "platform/ui/Command.h"
#include "platform/ui/CommandManager.h"
#include "platform/ui/MainWindow.h"
#include "platform/ui/MellLineEdit.h"

#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QKeySequence>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

constexpr int otherWordsRole = Qt::UserRole;
constexpr int commandRole = Qt::UserRole + 1;

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
    {"Std_SaveView",
     QT_TRANSLATE_NOOP("ShortcutWords", "camera, bookmark, named view, store view")},
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

/// Not the action's text, which may name the step that would be undone.
QString titleOf(Base::Command const& command)
{
    return QCoreApplication::translate(command.className(),
                                       command.getMenuText().toUtf8().constData())
        .remove('&');
}

}  // namespace

ShortcutList::ShortcutList(Base::CommandManager const& manager, Preset preset, QWidget* parent)
    : QDialog(parent),
      m_manager(manager),
      m_list(new QTreeWidget(this)),
      m_message(new QLabel(this))
{
    m_message->setObjectName(QStringLiteral("Message"));
    m_message->setWordWrap(true);
    setObjectName(QStringLiteral("ShortcutList"));
    setWindowTitle(tr("Keyboard and Mouse"));
    m_list->setColumnCount(2);
    m_list->setHeaderLabels({tr("What it does"), tr("Keys")});
    m_list->setRootIsDecorated(false);
    m_list->setAlternatingRowColors(true);
    m_list->setSelectionMode(QAbstractItemView::SingleSelection);
    m_list->installEventFilter(this);
    m_list->setWordWrap(true);
    m_list->header()->setStretchLastSection(false);
    m_list->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    m_list->header()->setSectionResizeMode(1, QHeaderView::Fixed);
    m_list->header()->resizeSection(1, fontMetrics().height() * 15);
    addCommands();
    addMouse(preset);

    auto* const search = new MellLineEdit(this);
    search->setObjectName(QStringLiteral("Search"));
    search->setPlaceholderText(tr("Search"));
    search->setClearButtonEnabled(true);
    connect(search, &QLineEdit::textChanged, this, &ShortcutList::filter);
    search->setFocus();
    auto* const column = new QVBoxLayout(this);
    column->addWidget(search);
    column->addWidget(m_list);
    column->addWidget(m_message);
    column->addWidget(buildButtons());
    connect(m_list, &QTreeWidget::itemClicked, this, &ShortcutList::begin);
    connect(m_list, &QTreeWidget::currentItemChanged, this, &ShortcutList::end);
    end();
    int const unit = fontMetrics().height();
    resize(unit * 40, unit * 36);
}

void ShortcutList::addCommands()
{
    for (Base::Command* const command : m_manager.getAllCommands()) {
        Base::Action const* const action = command->getAction();
        // Keys of what stands in no menu would do nothing.
        if (!action || action->getQAction()->associatedWidgets().isEmpty())
            continue;
        auto* const item = new QTreeWidgetItem(m_list, {titleOf(*command), QString()});
        item->setData(0, otherWordsRole, otherWordsFor(command->getName()));
        item->setData(0, commandRole, QString::fromStdString(command->getName()));
    }
    showKeys();
}

QDialogButtonBox* ShortcutList::buildButtons()
{
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    m_clear = buttons->addButton(tr("No Key"), QDialogButtonBox::ActionRole);
    m_usual = buttons->addButton(tr("Usual Key"), QDialogButtonBox::ActionRole);
    auto* const all = buttons->addButton(tr("All Usual Keys"), QDialogButtonBox::ResetRole);
    for (QPushButton* const button : {m_clear, m_usual, all})
        button->setAutoDefault(false);
    connect(m_clear, &QPushButton::clicked, this, [this] { give({}); });
    connect(m_usual, &QPushButton::clicked, this,
            [this] { take(KeyBindings::usualKeysOf(*chosen())); });
    connect(all, &QPushButton::clicked, this, [this] {
        KeyBindings::reset(m_manager);
        end();
        showKeys();
    });
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    return buttons;
}

Base::Command* ShortcutList::commandOf(QTreeWidgetItem const* item) const
{
    QString const name = item ? item->data(0, commandRole).toString() : QString();
    return name.isEmpty() ? nullptr : m_manager.getCommandByName(name.toStdString());
}

Base::Command* ShortcutList::chosen() const
{
    return commandOf(m_list->currentItem());
}

void ShortcutList::showKeys()
{
    for (int i = 0; i < m_list->topLevelItemCount(); ++i) {
        QTreeWidgetItem* const item = m_list->topLevelItem(i);
        if (Base::Command* const command = commandOf(item))
            item->setText(1, KeyBindings::keysOf(*command).toString(QKeySequence::NativeText));
    }
}

// A click on a command waits for its keys.
void ShortcutList::begin(QTreeWidgetItem* item)
{
    end();
    if (!commandOf(item))
        return;
    m_waiting = item;
    item->setText(1, tr("Press the keys..."));
}

void ShortcutList::end()
{
    m_waiting = nullptr;
    m_refused = {};
    showKeys();
    m_clear->setEnabled(chosen());
    m_usual->setEnabled(chosen());
    m_message->setText(tr("Click on a command to change its keys."));
}

bool ShortcutList::eventFilter(QObject* watched, QEvent* event)
{
    bool const isKey =
        event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride;
    if (watched != m_list || !m_waiting || !isKey)
        return QDialog::eventFilter(watched, event);
    event->accept();
    if (event->type() == QEvent::KeyPress)
        pressed(*static_cast<QKeyEvent*>(event));
    return true;
}

void ShortcutList::pressed(QKeyEvent const& event)
{
    int const key = event.key();
    bool const isModifier = key == Qt::Key_Shift || key == Qt::Key_Control || key == Qt::Key_Alt ||
                            key == Qt::Key_Meta || key == Qt::Key_AltGr;
    if (isModifier || key == 0 || key == Qt::Key_unknown)
        return;
    if (key == Qt::Key_Escape) {
        end();
        return;
    }
    // Shift is in the sign already: "?" is not Shift and "?".
    bool const isSign =
        key < Qt::Key_Escape && !(key >= Qt::Key_A && key <= Qt::Key_Z) && key != Qt::Key_Space;
    int const modifiers =
        int(event.modifiers() & ~Qt::KeypadModifier) & ~(isSign ? int(Qt::ShiftModifier) : 0);
    take(QKeySequence(key | modifiers));
}

/// What others have is given at the second press alone.
void ShortcutList::take(QKeySequence const& keys)
{
    Base::Command* const command = chosen();
    if (!command)
        return;
    QString const text = keys.toString(QKeySequence::NativeText);
    if (KeyBindings::areTaken(keys)) {
        m_message->setText(
            tr("%1 means something in the view and in lists. Press other keys.").arg(text));
        return;
    }
    Base::Command* const other = KeyBindings::holder(m_manager, keys, *command);
    if (other && m_refused != keys) {
        m_refused = keys;
        m_message->setText(
            tr("%1 belongs to \"%2\". Once more takes it from there.").arg(text, titleOf(*other)));
        return;
    }
    if (other)
        KeyBindings::setKeys(*other, {});
    give(keys);
    if (other)
        m_message->setText(tr("\"%1\" has no keys now.").arg(titleOf(*other)));
}

void ShortcutList::give(QKeySequence const& keys)
{
    KeyBindings::setKeys(*chosen(), keys);
    end();
    if (MainWindow* const window = MainWindow::getInstance())
        emit window->signalUpdateToolbuttonState();
}

void ShortcutList::addMouse(Preset preset)
{
    bool const turnsByRight = preset == Preset::TurnByRight;
    bool const movesByRight = preset == Preset::MoveByRight;
    bool const turnsByLeft = preset == Preset::TurnByLeft;
    QString const right = tr("Drag with the right button");
    QString const turn = turnsByLeft ? tr("Drag with the left button; with Alt while a tool runs")
                         : turnsByRight ? right
                                        : tr("Drag with the middle button");
    QString const move = turnsByLeft    ? tr("Drag with the left button and Shift")
                         : turnsByRight ? tr("Drag with the middle button, or right with Shift")
                         : movesByRight ? right
                                        : tr("Drag with the middle button and Shift");
    QString const zoom = turnsByRight || movesByRight || turnsByLeft
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
        {tr("Select the parts within a rectangle"),
         turnsByLeft ? tr("Drag beside the parts, with Ctrl") : tr("Drag beside the parts")},
        {tr("Menu of the part, or of the view"), tr("Right click")},
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
