// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/PolygonCutWidgets.h"

#include "dialogs/CuboidCutUI.h"
#include "dialogs/CutForecast.h"
#include "dialogs/CylinderCutUI.h"
#include "dialogs/DialogPolygoncut.h"
#include "dialogs/PolygonCutUI.h"
#include "dialogs/SolidFields.h"
#include "dialogs/ToolButton.h"
#include "dialogs/ToolFileButton.h"
#include "platform/ui/DialogWidgetGroup.h"
#include "platform/ui/MellGridLayout.h"
#include "platform/ui/MellHBoxLayout.h"
#include "platform/ui/MellQuantitySpinBox.h"
#include "platform/ui/MellVBoxLayout.h"
#include "platform/ui/PushButtonAnimate.h"
#include "tools/ViewAxes.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QIcon>
#include <QLabel>
#include <QRadioButton>
#include <QTabWidget>

namespace Freecut {

namespace {

constexpr char const* context = "DialogFreeCut";
constexpr char const* cutTillText = QT_TRANSLATE_NOOP("DialogFreeCut", "Cut till");

QIcon tabIcon(QString const& name)
{
    QIcon icon;
    icon.addFile(QStringLiteral(":/icons/icons/%1.png").arg(name), {}, QIcon::Normal, QIcon::On);
    icon.addFile(QStringLiteral(":/icons/icons/%126.png").arg(name), {}, QIcon::Normal, QIcon::Off);
    return icon;
}

}  // namespace

void PolygonCutWidgets::build(DialogPolygoncut& dialog)
{
    m_dialog = &dialog;
    m_texts.add([this](QString const& text) { m_dialog->setWindowTitle(text); }, "CmdPolygoncut",
                QT_TRANSLATE_NOOP("CmdPolygoncut", "Polygon Cut"));
    addGroup(buildSelection(), "PolygoncutDlg/Selection", "MellCommons",
             QT_TRANSLATE_NOOP("MellCommons", "Selection"));
    m_typeGroup = addGroup(buildType(), "PolygoncutDlg/Type", context,
                           QT_TRANSLATE_NOOP("DialogFreeCut", "Type"));
    m_optionsGroup = addGroup(buildOptions(), "PolygoncutDlg/Cutting", context,
                              QT_TRANSLATE_NOOP("DialogFreeCut", "Cutting options"));
    m_advancedGroup =
        addGroup(buildAdvanced(), "PolygoncutDlg/Advanced", context,
                 QT_TRANSLATE_NOOP("DialogFreeCut", "Advanced standard view options"));
    buildButtons();
}

void PolygonCutWidgets::retranslate() const
{
    m_texts.retranslate();
    for (SolidToolPage const* const page : pages)
        page->retranslate();
}

DialogWidgetGroup* PolygonCutWidgets::addGroup(QWidget* content, char const* key,
                                               char const* groupContext, char const* source)
{
    auto* const group =
        new DialogWidgetGroup({}, content, QString::fromLatin1(key), true, m_dialog);
    m_texts.addTitle(group, groupContext, source);
    m_dialog->mainLayout()->addWidget(group);
    return group;
}

QWidget* PolygonCutWidgets::buildSelection()
{
    auto* const content = new QWidget(m_dialog);
    auto* const row = new MellHBoxLayout(content);
    allParts = new QRadioButton(content);
    selectedParts = new QRadioButton(content);
    m_texts.addText(allParts, "MellCommons", QT_TRANSLATE_NOOP("MellCommons", "All parts"));
    m_texts.addText(selectedParts, "MellCommons",
                    QT_TRANSLATE_NOOP("MellCommons", "Selected parts"));
    row->addWidget(allParts);
    row->addWidget(selectedParts);
    return content;
}

QWidget* PolygonCutWidgets::buildType()
{
    auto* const content = new QWidget(m_dialog);
    auto* const column = new MellVBoxLayout(content);
    tabs = new QTabWidget(content);
    tabs->setObjectName(QStringLiteral("PolygonCutTab"));
    polygon = new PolygonCutUI(*m_dialog, tabs);
    pages = {polygon, new CylinderCutUI(*m_dialog, tabs), new CuboidCutUI(*m_dialog, tabs)};
    char const* const icons[] = {"cut_polygon", "cut_circle", "cut_rectangle"};
    for (int i = 0; i < 3; ++i)
        tabs->addTab(pages[std::size_t(i)], tabIcon(QString::fromLatin1(icons[i])), {});
    struct Name
    {
        char const* context;
        char const* source;
    };
    Name const names[] = {{"CmdFreecutPolygon", "Polygon"},
                          {"CmdFreecutCylinder", "Cylinder"},
                          {"CmdFreecutCuboid", "Cuboid"}};
    for (int i = 0; i < 3; ++i)
        m_texts.add([this, i](QString const& text) { tabs->setTabToolTip(i, text); },
                    names[i].context, names[i].source);
    column->addWidget(tabs);
    problem = new QLabel(content);
    problem->setWordWrap(true);
    problem->hide();
    column->addWidget(problem);
    column->addWidget(buildPreview());
    forecast = new CutForecast(content);
    column->addWidget(forecast);
    return content;
}

QWidget* PolygonCutWidgets::buildPreview()
{
    auto* const content = new QWidget(m_dialog);
    auto* const row = new MellHBoxLayout(content);
    startPreview = new ToolButton("PolygoncutPreview", content);
    stopPreview = new ToolButton("PolygoncutStopPreview", content);
    reset = new ToolButton("PolygoncutReset", content);
    startPreview->setObjectName(QStringLiteral("FreecutPreviewStart"));
    stopPreview->setObjectName(QStringLiteral("FreecutPreviewStop"));
    reset->setObjectName(QStringLiteral("FreecutReset"));
    startPreview->setEnabled(false);
    stopPreview->setEnabled(false);
    for (ToolButton* const button : {startPreview, stopPreview, reset})
        row->addWidget(button);
    row->addStretch(1);
    row->addWidget(new ToolFileButton(*m_dialog, content));
    return content;
}

QWidget* PolygonCutWidgets::buildOptions()
{
    auto* const content = new QWidget(m_dialog);
    auto* const column = new MellVBoxLayout(content);
    removeOriginal = new QCheckBox(content);
    m_texts.addText(removeOriginal, context,
                    QT_TRANSLATE_NOOP("DialogFreeCut", "Remove original parts"));
    column->addWidget(removeOriginal);
    return content;
}

QWidget* PolygonCutWidgets::buildAdvanced()
{
    auto* const content = new QWidget(m_dialog);
    auto* const grid = new MellGridLayout(content);
    cutTill = new QCheckBox(content);
    m_texts.add([this](QString const&) { showCutTillText(); }, context, cutTillText);
    cutTillValue = SolidFields::makeCoordinate(content);
    cutTillValue->setEnabled(false);
    addPoint = new PushButtonAnimate(content);
    m_texts.addText(addPoint, context, QT_TRANSLATE_NOOP("DialogFreeCut", "Add Point"));
    showCoordinate = new QCheckBox(content);
    m_texts.addText(showCoordinate, context, QT_TRANSLATE_NOOP("DialogFreeCut", "Show coordinate"));
    moveLabel = new QLabel(content);
    m_texts.addText(moveLabel, context,
                    QT_TRANSLATE_NOOP("DialogFreeCut", "Move selected point to"));
    moveLabel->setEnabled(false);
    auto* const move = new QWidget(content);
    buildMove(move);
    grid->addWidget(cutTill, 0, 0);
    grid->addWidget(cutTillValue, 0, 1);
    grid->addWidget(addPoint, 1, 0, 1, 2);
    grid->addWidget(showCoordinate, 2, 0, 1, 2);
    grid->addWidget(moveLabel, 3, 0, 1, 2);
    grid->addWidget(move, 4, 0, 1, 2);
    return content;
}

void PolygonCutWidgets::buildMove(QWidget* content)
{
    auto* const grid = new MellGridLayout(content);
    grid->setContentsMargins(0, 0, 0, 0);
    constexpr std::array<char const*, 3> names = {"X:", "Y:", "Z:"};
    for (std::size_t i = 0; i < names.size(); ++i) {
        moveLabels[i] = new QLabel(QString::fromLatin1(names[i]), content);
        moveFields[i] = SolidFields::makeCoordinate(content);
        moveLabels[i]->setBuddy(moveFields[i]);
        moveLabels[i]->setEnabled(false);
        moveFields[i]->setEnabled(false);
        moveFields[i]->setUnitTextVisible(false);
        grid->addWidget(moveLabels[i], 0, 2 * int(i));
        grid->addWidget(moveFields[i], 0, 2 * int(i) + 1);
        grid->setColumnStretch(2 * int(i) + 1, 1);
    }
}

void PolygonCutWidgets::buildButtons()
{
    ok = new PushButtonAnimate(m_dialog);
    cancel = new PushButtonAnimate(m_dialog);
    m_texts.addText(ok, "MellCommons", QT_TRANSLATE_NOOP("MellCommons", "OK"));
    m_texts.addText(cancel, "MellCommons", QT_TRANSLATE_NOOP("MellCommons", "Cancel"));
    ok->setEnabled(false);
    m_dialog->buttonLayout()->addWidget(ok);
    m_dialog->buttonLayout()->addWidget(cancel);
}

void PolygonCutWidgets::setHasParts(bool hasParts)
{
    m_typeGroup->setEnabled(hasParts);
    m_optionsGroup->setEnabled(hasParts);
}

void PolygonCutWidgets::showCutTillText()
{
    cutTill->setText(QCoreApplication::translate(context, cutTillText) +
                     QLatin1String(m_cutTillAxis));
}

void PolygonCutWidgets::showView(int viewIndex, bool hasParts)
{
    bool const isStandard = isAxisView(viewIndex);
    m_advancedGroup->setEnabled(isStandard && hasParts);
    if (isStandard) {
        constexpr std::array<char const*, 3> axes = {" X =", " Y =", " Z ="};
        m_cutTillAxis = axes[std::size_t(axisAlongView(viewIndex))];
        showCutTillText();
    }
    cutTillValue->setEnabled(cutTill->isChecked());
    bool const isShown = showCoordinate->isChecked();
    moveLabel->setEnabled(isShown);
    for (int axis = 0; axis < 3; ++axis) {
        bool const isFree = isShown && isStandard && axis != axisAlongView(viewIndex);
        moveLabels[std::size_t(axis)]->setEnabled(isFree);
        moveFields[std::size_t(axis)]->setEnabled(isFree);
    }
}

void PolygonCutWidgets::showProblem(QString const& sentence)
{
    problem->setText(sentence);
    problem->setVisible(!sentence.isEmpty());
}

}  // namespace Freecut
