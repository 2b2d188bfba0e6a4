// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/DialogAddTeethUI.h"

#include "dialogs/ConnectorFields.h"
#include "dialogs/DialogPolygoncut.h"
#include "dialogs/SolidFields.h"
#include "dialogs/ToolTips.h"
#include "dialogs/UndoKeys.h"
#include "platform/ui/DialogWidgetGroup.h"
#include "platform/ui/DialogWidgetGroup2rd.h"
#include "platform/ui/MainWindow.h"
#include "platform/ui/MellGridLayout.h"
#include "platform/ui/MellLineEdit.h"
#include "platform/ui/MellQuantitySpinBox.h"
#include "platform/ui/MellSpinBox.h"
#include "platform/ui/MellVBoxLayout.h"
#include "platform/ui/PushButtonAnimate.h"
#include "platform/ui/Theme.h"
#include "platform/view/GLView.h"
#include "selection/EditHistory.h"
#include "selection/PolygoncutSelection.h"
#include "selection/RunningTool.h"
#include "selection/ToolEdit.h"
#include "tools/PolygonGraphicObject.h"
#include "tools/TeethLayout.h"

#include <QCheckBox>
#include <QLabel>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QTabWidget>

namespace Freecut {

namespace {

constexpr char const* context = "DialogFreeCut";
constexpr std::array<char const*, 3> pictureFiles = {
    ":/icons/icons/cut_jagged.png", ":/icons/icons/cut_dove.png", ":/icons/icons/cut_puzzle.png"};
constexpr double pictureWidth = 25.34;
constexpr double pictureHeight = 9.917;

}  // namespace

DialogAddTeethUI::DialogAddTeethUI(QWidget* parent) : Dialog(parent, false)
{
    setObjectName(QStringLiteral("FreecutAddTeechDialog"));
    m_texts.add([this](QString const& text) { setWindowTitle(text); }, context,
                QT_TRANSLATE_NOOP("DialogFreeCut", "Add Teeth"));
    int const margin = g_pixelSize / 2;
    mainLayout()->setContentsMargins(margin, margin, margin, margin);
    auto* const styles = new QWidget(this);
    auto* const column = new MellVBoxLayout(styles);
    m_styles = new QTabWidget(styles);
    column->addWidget(m_styles);
    char const* const names[] = {QT_TRANSLATE_NOOP("DialogFreeCut", "Jagged"),
                                 QT_TRANSLATE_NOOP("DialogFreeCut", "Dove Tailed"),
                                 QT_TRANSLATE_NOOP("DialogFreeCut", "Puzzle")};
    m_styles->addTab(buildTab(buildJagged()), {});
    m_styles->addTab(buildTab(buildDovetail()), {});
    m_styles->addTab(buildTab(buildPuzzle()), {});
    for (int i = 0; i < 3; ++i)
        m_texts.add([this, i](QString const& text) { m_styles->setTabText(i, text); }, context,
                    names[i]);
    auto* const styleGroup =
        new DialogWidgetGroup({}, styles, QStringLiteral("AddteechDlg/Style"), true, this);
    auto* const methodGroup =
        new DialogWidgetGroup({}, buildMethod(), QStringLiteral("AddteechDlg/Method"), true, this);
    m_texts.addTitle(styleGroup, context, QT_TRANSLATE_NOOP("DialogFreeCut", "Teeth Style"));
    m_texts.addTitle(methodGroup, context,
                     QT_TRANSLATE_NOOP("DialogFreeCut", "Teeth setting method"));
    mainLayout()->addWidget(styleGroup);
    mainLayout()->addWidget(methodGroup);
    buildButtons();
    showPictures();
    followChecks();
    connectFields();
    new UndoKeys(*this);
    connect(this, &QDialog::rejected, this, [this] { on_close_clicked(); });
    if (MainWindow const* const window = MainWindow::getInstance())
        connect(window, &MainWindowBase::signalThemeColorChanged, this,
                &DialogAddTeethUI::showPictures);
}

MellQuantitySpinBox* DialogAddTeethUI::addField(QWidget* content, MellGridLayout* grid,
                                                char const* source, char const* tag, double initial,
                                                PictureTip::Content const& tip)
{
    auto* const label = new QLabel(content);
    m_texts.addText(label, context, source, tag);
    MellQuantitySpinBox* const field = SolidFields::makeLength(content, initial);
    label->setBuddy(field);
    PictureTip::give({label, field}, tip);
    int const row = grid->rowCount();
    grid->addWidget(label, row, 0);
    grid->addWidget(field, row, 1);
    return field;
}

void DialogAddTeethUI::addEmptyRow(QWidget* content, MellGridLayout* grid)
{
    auto* const empty = new MellLineEdit(content);
    empty->setEnabled(false);
    empty->setStyleSheet(QStringLiteral("background:transparent;border-color:transparent;"));
    int const row = grid->rowCount();
    grid->addWidget(new QLabel(content), row, 0);
    grid->addWidget(empty, row, 1);
}

QWidget* DialogAddTeethUI::buildJagged()
{
    auto* const content = new QWidget(this);
    auto* const grid = new MellGridLayout(content);
    m_width[TEETH_JAGGED] = addField(content, grid, QT_TRANSLATE_NOOP("DialogFreeCut", "Width"),
                                     "(W):", 2.0, ToolTips::jaggedWidth);
    m_height[TEETH_JAGGED] = addField(content, grid, QT_TRANSLATE_NOOP("DialogFreeCut", "Height"),
                                      "(H):", 1.0, ToolTips::jaggedHeight);
    addEmptyRow(content, grid);
    return content;
}

QWidget* DialogAddTeethUI::buildDovetail()
{
    auto* const content = new QWidget(this);
    auto* const grid = new MellGridLayout(content);
    m_upperWidth = addField(content, grid, QT_TRANSLATE_NOOP("DialogFreeCut", "Upper width"),
                            "(W1):", 2.0, ToolTips::doveUpper);
    m_lowerWidth = addField(content, grid, QT_TRANSLATE_NOOP("DialogFreeCut", "Lower width"),
                            "(W2):", 1.0, ToolTips::doveLower);
    m_doveHeight = addField(content, grid, QT_TRANSLATE_NOOP("DialogFreeCut", "Height"),
                            "(H):", 1.0, ToolTips::doveHeight);
    return content;
}

QWidget* DialogAddTeethUI::buildPuzzle()
{
    auto* const content = new QWidget(this);
    auto* const grid = new MellGridLayout(content);
    m_width[TEETH_PUZZLE] = addField(content, grid, QT_TRANSLATE_NOOP("DialogFreeCut", "Width"),
                                     "(W):", 2.0, ToolTips::puzzleWidth);
    m_height[TEETH_PUZZLE] = addField(content, grid, QT_TRANSLATE_NOOP("DialogFreeCut", "Height"),
                                      "(H):", 1.0, ToolTips::puzzleHeight);
    addEmptyRow(content, grid);
    return content;
}

QWidget* DialogAddTeethUI::buildTab(QWidget* fields)
{
    auto* const tab = new QWidget(m_styles);
    auto* const column = new MellVBoxLayout(tab);
    auto* const picture = new QLabel(tab);
    picture->setAlignment(Qt::AlignCenter);
    m_pictures[std::size_t(m_styles->count())] = picture;
    column->addWidget(picture);
    auto* const group = new DialogWidgetGroup2rd({}, fields, true, tab);
    m_texts.addTitle(group, context, QT_TRANSLATE_NOOP("DialogFreeCut", "Parameters"));
    column->addWidget(group);
    return tab;
}

QWidget* DialogAddTeethUI::buildMethod()
{
    auto* const content = new QWidget(this);
    auto* const grid = new MellGridLayout(content);
    m_byCount = new QRadioButton(content);
    m_texts.addText(m_byCount, context, QT_TRANSLATE_NOOP("DialogFreeCut", "Count"));
    m_count = new MellSpinBox(content);
    m_count->setRange(1, mostTeeth);
    m_count->setValue(4);
    m_byDistance = new QRadioButton(content);
    m_texts.addText(m_byDistance, context, QT_TRANSLATE_NOOP("DialogFreeCut", "Distance"), "(D)");
    m_byDistance->setChecked(true);
    m_distance = SolidFields::makeLength(content, 3.0);
    m_useOffset = new QCheckBox(content);
    m_texts.addText(m_useOffset, context, QT_TRANSLATE_NOOP("DialogFreeCut", "Offset"), "(O):");
    m_offset = SolidFields::makeWay(content, 0.0);
    m_applyAll = new QCheckBox(content);
    m_texts.addText(m_applyAll, context, QT_TRANSLATE_NOOP("DialogFreeCut", "Apply to all edges"));
    m_flip = new PushButtonAnimate(content);
    m_texts.addText(m_flip, context, QT_TRANSLATE_NOOP("DialogFreeCut", "Flip Teeth"));
    PictureTip::give({m_byCount, m_count}, ToolTips::count);
    PictureTip::give({m_byDistance, m_distance}, ToolTips::toothDistance);
    PictureTip::give({m_useOffset, m_offset}, ToolTips::offset);
    PictureTip::give({m_applyAll}, ToolTips::allEdges);
    PictureTip::give({m_flip}, ToolTips::flip);
    grid->addWidget(m_byCount, 0, 0);
    grid->addWidget(m_count, 0, 1);
    grid->addWidget(m_byDistance, 1, 0);
    grid->addWidget(m_distance, 1, 1);
    grid->addWidget(m_useOffset, 2, 0);
    grid->addWidget(m_offset, 2, 1);
    grid->addWidget(m_applyAll, 3, 0, 1, 2);
    grid->addWidget(m_flip, 4, 0, 1, 2);
    return content;
}

void DialogAddTeethUI::buildButtons()
{
    struct Button
    {
        char const* source;
        void (DialogAddTeethUI::*slot)();
    };
    for (auto const& [source, slot] :
         {Button{QT_TRANSLATE_NOOP("MellCommons", "Apply"), &DialogAddTeethUI::on_bt_apply_clicked},
          Button{QT_TRANSLATE_NOOP("MellCommons", "OK"), &DialogAddTeethUI::on_bt_confirm_clicked},
          Button{QT_TRANSLATE_NOOP("MellCommons", "Cancel"),
                 &DialogAddTeethUI::on_bt_cancel_clicked}}) {
        auto* const button = new PushButtonAnimate(this);
        m_texts.addText(button, "MellCommons", source);
        connect(button, &QAbstractButton::clicked, this, slot);
        buttonLayout()->addWidget(button);
    }
    connect(m_flip, &QAbstractButton::clicked, this, &DialogAddTeethUI::on_bt_flipTeeth_clicked);
}

void DialogAddTeethUI::connectFields()
{
    connect(m_styles, &QTabWidget::currentChanged, this, &DialogAddTeethUI::on_valueChanged);
    for (QAbstractButton* const button :
         {static_cast<QAbstractButton*>(m_byCount), static_cast<QAbstractButton*>(m_byDistance),
          static_cast<QAbstractButton*>(m_useOffset), static_cast<QAbstractButton*>(m_applyAll)})
        connect(button, &QAbstractButton::clicked, this, &DialogAddTeethUI::on_valueChanged);
    for (QAbstractSpinBox* const field : findChildren<QAbstractSpinBox*>())
        connect(field, &QAbstractSpinBox::editingFinished, this,
                &DialogAddTeethUI::on_valueChanged);
}

// A field that loses the focus as the window closes changes nothing any more.
void DialogAddTeethUI::disconnectFields()
{
    for (QAbstractSpinBox* const field : findChildren<QAbstractSpinBox*>())
        disconnect(field, &QAbstractSpinBox::editingFinished, this,
                   &DialogAddTeethUI::on_valueChanged);
}

void DialogAddTeethUI::showPictures()
{
    for (std::size_t i = 0; i < m_pictures.size(); ++i)
        m_pictures[i]->setPixmap(
            ConnectorFields::picture(pictureFiles[i], pictureWidth, pictureHeight));
}

void DialogAddTeethUI::retranslate()
{
    m_texts.retranslate();
}

PolygoncutSelection* DialogAddTeethUI::selection() const
{
    return m_dialog ? m_dialog->getPolygoncutSelection() : nullptr;
}

TeethParas DialogAddTeethUI::typedParas() const
{
    TeethParas paras;
    paras.teethStyle = m_styles->currentIndex();
    std::size_t const fields = paras.teethStyle == TEETH_PUZZLE ? TEETH_PUZZLE : TEETH_JAGGED;
    paras.teethWidth = float(m_width[fields]->value());
    paras.teethHeight = float(m_height[fields]->value());
    paras.upperWidth = float(m_upperWidth->value());
    paras.lowerWidth = float(m_lowerWidth->value());
    paras.doveHeight = float(m_doveHeight->value());
    paras.teethCount = m_count->value();
    paras.teethDistance = float(m_distance->value());
    paras.teethMethod = m_byCount->isChecked() ? 0 : 1;
    paras.useOffset = m_useOffset->isChecked();
    paras.teethOffset = float(m_offset->value());
    paras.applyAllEdges = m_applyAll->isChecked();
    return paras;
}

bool DialogAddTeethUI::applyFields(bool makesTeeth)
{
    PolygoncutSelection* const tool = selection();
    PolygonGraphicObject* const polygon = tool ? tool->getPolygon() : nullptr;
    if (!polygon)
        return false;
    EditHistory::OneStep const oneStep(runningHistory(m_dialog->view()));
    TeethParas paras = typedParas();
    if (tool->getTeethParas().applyAllEdges && !paras.applyAllEdges)
        polygon->getProperty().clearEdit();
    paras.flipTeeth = tool->getTeethParas().flipTeeth;
    tool->setTeethParas(paras);
    return !makesTeeth || tool->teethAlgorithm();
}

void DialogAddTeethUI::on_valueChanged()
{
    if (!isVisible())
        return;
    std::vector<QSignalBlocker> blockers;
    for (QAbstractSpinBox* const field : findChildren<QAbstractSpinBox*>())
        blockers.emplace_back(field);
    bool const fits = applyFields(true);
    followChecks();
    if (!fits)
        m_applyAll->setChecked(false);
}

void DialogAddTeethUI::followChecks()
{
    m_count->setEnabled(m_byCount->isChecked());
    m_distance->setEnabled(m_byDistance->isChecked());
    SolidFields::followCheck(m_useOffset, m_offset);
}

void DialogAddTeethUI::showParas()
{
    PolygoncutSelection const* const tool = selection();
    if (!tool)
        return;
    TeethParas const& paras = tool->getTeethParas();
    QSignalBlocker const quiet(m_styles);
    m_styles->setCurrentIndex(paras.teethStyle);
    if (paras.teethStyle != TEETH_DOVETAIL) {
        m_width[std::size_t(paras.teethStyle)]->setValue(double(paras.teethWidth));
        m_height[std::size_t(paras.teethStyle)]->setValue(double(paras.teethHeight));
    }
    m_upperWidth->setValue(double(paras.upperWidth));
    m_lowerWidth->setValue(double(paras.lowerWidth));
    m_doveHeight->setValue(double(paras.doveHeight));
    (paras.isByCount() ? m_byCount : m_byDistance)->setChecked(true);
    m_count->setValue(paras.teethCount);
    m_distance->setValue(double(paras.teethDistance));
    m_useOffset->setChecked(paras.useOffset);
    m_offset->setValue(double(paras.teethOffset));
    followChecks();
}

void DialogAddTeethUI::on_bt_flipTeeth_clicked()
{
    PolygoncutSelection* const tool = selection();
    if (!tool)
        return;
    TeethParas paras = tool->getTeethParas();
    paras.flipTeeth = !paras.flipTeeth;
    tool->setTeethParas(paras);
    tool->teethAlgorithm();
}

void DialogAddTeethUI::on_bt_apply_clicked()
{
    if (PolygoncutSelection* const tool = selection())
        tool->applyTeeth();
}

void DialogAddTeethUI::on_bt_confirm_clicked()
{
    on_bt_apply_clicked();
    if (!isPinned())
        closeWindow();
}

void DialogAddTeethUI::on_bt_cancel_clicked()
{
    if (PolygoncutSelection* const tool = selection()) {
        tool->setAddTeeth(false);
        if (PolygonGraphicObject* const polygon = tool->getPolygon()) {
            polygon->getProperty().clearEdit();
            finishEdit(*polygon, {.updatesRecord = false, .tellsListeners = false});
        }
    }
    closeWindow();
}

void DialogAddTeethUI::closeWindow()
{
    disconnectFields();
    close();
}

}  // namespace Freecut
