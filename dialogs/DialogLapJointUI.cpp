// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/DialogLapJointUI.h"

#include "dialogs/ConnectorFields.h"
#include "dialogs/ConnectorTips.h"
#include "platform/ui/DialogWidgetGroup2rd.h"
#include "platform/ui/MainWindow.h"
#include "platform/ui/MellGridLayout.h"
#include "platform/ui/MellQuantitySpinBox.h"
#include "platform/ui/MellVBoxLayout.h"
#include "platform/ui/StoredSettings.h"
#include "platform/ui/Theme.h"

#include <QButtonGroup>
#include <QEvent>
#include <QLabel>
#include <QRadioButton>

namespace Freecut {

namespace Limits = ConnectorLimits::LapJoint;

namespace {

/// The theme flag of the pictures that are shown at their own size.
constexpr int unscaledPictures = 16;
constexpr int allContours = 2;
// The picture is wider at first than after a change of the theme.
constexpr double firstPictureWidth = 25.501;
constexpr double laterPictureWidth = 25.34;
constexpr double pictureHeight = 9.917;

/// Brings a clearance down to what it depends on.
void limitTo(MellQuantitySpinBox& clearance, MellQuantitySpinBox const& largest)
{
    if (clearance.value() > largest.value())
        clearance.setValue(largest.value());
}

void narrowTo(MellQuantitySpinBox& clearance, MellQuantitySpinBox const& largest)
{
    clearance.setRange(Limits::leastEditedClearance, largest.value());
    limitTo(clearance, largest);
}

}  // namespace

DialogLapJointUI::DialogLapJointUI(QWidget* parent) : QWidget(parent)
{
    setWindowFlags(Qt::Window | Qt::WindowCloseButtonHint);
    auto* const column = new MellVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    m_picture = new QLabel(this);
    m_picture->setAlignment(Qt::AlignCenter);
    column->addWidget(m_picture);
    buildParameters();
    buildClearances();
    showPicture(firstPictureWidth);
    loadParas();
    connect(line_notchDepth, &QAbstractSpinBox::editingFinished, this,
            &DialogLapJointUI::on_line_notchDepth_editing);
    connect(line_sideDistance, &QAbstractSpinBox::editingFinished, this,
            &DialogLapJointUI::on_line_sideDistance_editing);
    if (MainWindow const* const window = MainWindow::getInstance())
        connect(window, &MainWindowBase::signalThemeColorChanged, this,
                &DialogLapJointUI::slotThemeColorChanged);
}

DialogLapJointUI::~DialogLapJointUI()
{
    saveParas();
}

QSize DialogLapJointUI::sizeHint() const
{
    return {g_pixelSize, g_pixelSize};
}

void DialogLapJointUI::buildParameters()
{
    auto* const content = new QWidget(this);
    auto* const grid = new MellGridLayout(content);
    line_notchDepth = ConnectorFields::make(Limits::notchDepth, content);
    line_sideDistance = ConnectorFields::make(Limits::sideDistance, content);
    auto const addRow = [&](int row, char const* source, char const* tag, QWidget* field) {
        auto* const label = new QLabel(content);
        m_texts.addText(label, "DialogFreeCut", source, tag);
        grid->addWidget(label, row, 0, 1, 3);
        if (field)
            grid->addWidget(field, row, 3, 1, 3);
        return label;
    };
    QLabel* const depth =
        addRow(0, QT_TRANSLATE_NOOP("DialogFreeCut", "Notch depth"), "(D)", line_notchDepth);
    QLabel* const distance =
        addRow(1, QT_TRANSLATE_NOOP("DialogFreeCut", "Side distance"), "(SD)", line_sideDistance);
    PictureTip::give({depth, line_notchDepth}, ConnectorTips::notchDepth);
    PictureTip::give({distance, line_sideDistance}, ConnectorTips::jointSideDistance);
    addRow(2, QT_TRANSLATE_NOOP("DialogFreeCut", "Side contours"), "", nullptr);
    buildSideContours(grid);
    auto* const group = new DialogWidgetGroup2rd({}, content, true, this);
    m_texts.addTitle(group, "MellCommons", QT_TRANSLATE_NOOP("MellCommons", "Parameters"));
    layout()->addWidget(group);
}

void DialogLapJointUI::buildSideContours(QGridLayout* grid)
{
    m_basedOn = new QButtonGroup(this);
    char const* const sources[] = {QT_TRANSLATE_NOOP("DialogFreeCut", "Outer contours"),
                                   QT_TRANSLATE_NOOP("DialogFreeCut", "Inner contours"),
                                   QT_TRANSLATE_NOOP("DialogFreeCut", "All")};
    for (int id = 0; id <= allContours; ++id) {
        auto* const button = new QRadioButton(grid->parentWidget());
        m_texts.addText(button, "DialogFreeCut", sources[id]);
        PictureTip::give({button}, ConnectorTips::sideContours[id]);
        m_basedOn->addButton(button, id);
        grid->addWidget(button, 3, 2 * id, 1, 2);
    }
    m_basedOn->button(allContours)->setChecked(true);
}

void DialogLapJointUI::buildClearances()
{
    auto* const content = new QWidget(this);
    auto* const grid = new MellGridLayout(content);
    auto const addRow = [&](int row, char const* source, char const* tag,
                            ConnectorLimits::Length const& length, PictureTip::Content const& tip) {
        auto* const label = new QLabel(content);
        m_texts.addText(label, "DialogFreeCut", source, tag);
        MellQuantitySpinBox* const field = ConnectorFields::make(length, content);
        grid->addWidget(label, row, 0);
        grid->addWidget(field, row, 1);
        PictureTip::give({label, field}, tip);
        return field;
    };
    line_notchClearance = addRow(0, QT_TRANSLATE_NOOP("DialogFreeCut", "Notch clearance"), "(NC)",
                                 Limits::notchClearance, ConnectorTips::notchClearance);
    line_frontClearance = addRow(1, QT_TRANSLATE_NOOP("DialogFreeCut", "Front clearance"), "(FC)",
                                 Limits::frontClearance, ConnectorTips::frontClearance);
    line_backClearance = addRow(2, QT_TRANSLATE_NOOP("DialogFreeCut", "Back clearance"), "(BC)",
                                Limits::backClearance, ConnectorTips::backClearance);
    auto* const group = new DialogWidgetGroup2rd({}, content, true, this);
    m_texts.addTitle(group, "DialogFreeCut", QT_TRANSLATE_NOOP("DialogFreeCut", "Clearance"));
    layout()->addWidget(group);
}

void DialogLapJointUI::loadParas()
{
    int const stored = storedValue(Limits::basedOn.key, Limits::basedOn.initial).toInt();
    m_basedOn->button(stored == 0 || stored == 1 ? stored : allContours)->setChecked(true);
    ConnectorFields::load(*line_notchDepth, Limits::notchDepth);
    ConnectorFields::load(*line_sideDistance, Limits::sideDistance);
    ConnectorFields::load(*line_notchClearance, Limits::notchClearance);
    ConnectorFields::load(*line_frontClearance, Limits::frontClearance);
    ConnectorFields::load(*line_backClearance, Limits::backClearance);
    limitTo(*line_notchClearance, *line_sideDistance);
    limitTo(*line_frontClearance, *line_notchDepth);
    limitTo(*line_backClearance, *line_notchDepth);
}

void DialogLapJointUI::saveParas() const
{
    ConnectorFields::store(*line_notchDepth, Limits::notchDepth);
    ConnectorFields::store(*line_sideDistance, Limits::sideDistance);
    ConnectorFields::store(*line_notchClearance, Limits::notchClearance);
    ConnectorFields::store(*line_frontClearance, Limits::frontClearance);
    ConnectorFields::store(*line_backClearance, Limits::backClearance);
    storeValue(Limits::basedOn.key, m_basedOn->checkedId());
}

LapJointParas DialogLapJointUI::paras() const
{
    return {.notchDepth = float(line_notchDepth->value()),
            .sideDistance = float(line_sideDistance->value()),
            .notchClearance = float(line_notchClearance->value()),
            .frontClearance = float(line_frontClearance->value()),
            .backClearance = float(line_backClearance->value()),
            .basedOn = m_basedOn->checkedId()};
}

void DialogLapJointUI::setParas(LapJointParas const& paras)
{
    line_notchDepth->setValue(double(paras.notchDepth));
    line_sideDistance->setValue(double(paras.sideDistance));
    // As they are before anything is edited: a clearance may be none.
    line_notchClearance->setRange(Limits::notchClearance.least, line_sideDistance->value());
    line_frontClearance->setRange(Limits::frontClearance.least, line_notchDepth->value());
    line_backClearance->setRange(Limits::backClearance.least, line_notchDepth->value());
    line_notchClearance->setValue(double(paras.notchClearance));
    line_frontClearance->setValue(double(paras.frontClearance));
    line_backClearance->setValue(double(paras.backClearance));
    m_basedOn->button(paras.basedOn == 0 || paras.basedOn == 1 ? paras.basedOn : allContours)
        ->setChecked(true);
}

void DialogLapJointUI::on_line_notchDepth_editing()
{
    narrowTo(*line_frontClearance, *line_notchDepth);
    narrowTo(*line_backClearance, *line_notchDepth);
}

void DialogLapJointUI::on_line_sideDistance_editing()
{
    narrowTo(*line_notchClearance, *line_sideDistance);
}

void DialogLapJointUI::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        m_texts.retranslate();
}

void DialogLapJointUI::slotThemeColorChanged()
{
    showPicture(laterPictureWidth);
}

void DialogLapJointUI::showPicture(double width)
{
    QString const file = QStringLiteral(":/icons/icons/cut_lapjoint.png");
    m_picture->setPixmap(g_ThemeColor & unscaledPictures
                             ? QPixmap(file)
                             : ConnectorFields::picture(file, width, pictureHeight));
}

}  // namespace Freecut
