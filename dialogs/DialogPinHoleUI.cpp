// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/DialogPinHoleUI.h"

#include "dialogs/ConnectorFields.h"
#include "dialogs/ConnectorTips.h"
#include "platform/ui/DialogWidgetGroup2rd.h"
#include "platform/ui/MainWindow.h"
#include "platform/ui/MellGridLayout.h"
#include "platform/ui/MellQuantitySpinBox.h"
#include "platform/ui/MellVBoxLayout.h"
#include "platform/ui/PushButtonAnimate.h"
#include "platform/ui/StoredSettings.h"
#include "platform/ui/Theme.h"

#include <QCheckBox>
#include <QEvent>
#include <QLabel>
#include <QRadioButton>

namespace Freecut {

namespace Limits = ConnectorLimits::PinHole;

namespace {

using ConnectorTips::PinHoleTip;

constexpr double pictureWidth = 25.34;
constexpr double pictureHeight = 9.917;

/// Puts a label and its field into a row of a grid, and a text on the label.
class Rows
{
public:
    /// pin  whether the values are those of pins
    Rows(QWidget* content, DialogTexts& texts, QRadioButton const* pin)
        : m_content(content), m_grid(new MellGridLayout(content)), m_texts(texts), m_pin(pin)
    {}

    /// label  made anew if null; anything with a text
    template <typename Label = QLabel>
    MellQuantitySpinBox* add(char const* context, char const* source, char const* tag,
                             ConnectorLimits::Length const& length, PinHoleTip const& tip,
                             Label* label = nullptr)
    {
        if (!label)
            label = new Label(m_content);
        m_texts.addText(label, context, source, tag);
        MellQuantitySpinBox* const field = ConnectorFields::make(length, m_content);
        m_grid->addWidget(label, m_next, 0);
        m_grid->addWidget(field, m_next++, 1);
        PictureTip::give({label, field}, [pin = m_pin, tip] {
            return pin->isChecked() ? tip.ofPins : tip.ofHoles;
        });
        return field;
    }
    /// Into the second column of the next row.
    void addAlone(QWidget* widget) { m_grid->addWidget(widget, m_next++, 1); }

private:
    QWidget* m_content;
    QGridLayout* m_grid;
    DialogTexts& m_texts;
    QRadioButton const* m_pin;
    int m_next = 0;
};

}  // namespace

DialogPinHoleUI::DialogPinHoleUI(QWidget* parent) : QWidget(parent)
{
    setWindowFlags(Qt::Window | Qt::WindowCloseButtonHint);
    m_texts.add([this](QString const& text) { setWindowTitle(text); }, "DialogFreeCut",
                QT_TRANSLATE_NOOP("DialogFreeCut", "Pins/Holes Setting"));
    auto* const column = new MellVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    buildType();
    buildCylinder();
    buildClearances();
    loadParas();
    connectAll();
}

QSize DialogPinHoleUI::sizeHint() const
{
    return {g_pixelSize, g_pixelSize};
}

void DialogPinHoleUI::buildType()
{
    auto* const content = new QWidget(this);
    auto* const grid = new MellGridLayout(content);
    pin = new QRadioButton(content);
    hole = new QRadioButton(content);
    m_picture = new QLabel(content);
    m_picture->setAlignment(Qt::AlignCenter);
    m_texts.addText(pin, "DialogFreeCut", QT_TRANSLATE_NOOP("DialogFreeCut", "Pins"));
    m_texts.addText(hole, "DialogFreeCut", QT_TRANSLATE_NOOP("DialogFreeCut", "Holes"));
    pin->setChecked(true);
    grid->addWidget(pin, 0, 0);
    grid->addWidget(hole, 0, 1);
    grid->addWidget(m_picture, 1, 0, 1, 2);
    auto* const group = new DialogWidgetGroup2rd({}, content, true, this);
    m_texts.addTitle(group, "DialogFreeCut", QT_TRANSLATE_NOOP("DialogFreeCut", "Connector type"));
    layout()->addWidget(group);
}

void DialogPinHoleUI::buildCylinder()
{
    auto* const content = new QWidget(this);
    Rows rows(content, m_texts, pin);
    line_radius = rows.add("DialogFreeCut", QT_TRANSLATE_NOOP("DialogFreeCut", "Radius"), "(R)",
                           Limits::radius, ConnectorTips::radius);
    line_tolerance =
        rows.add("DialogRemesh", QT_TRANSLATE_NOOP("DialogRemesh", "Tolerance"), "",
                 Limits::tolerance, {ConnectorTips::tolerance, ConnectorTips::tolerance});
    line_height = rows.add("DockWidgetPerf", QT_TRANSLATE_NOOP("DockWidgetPerf", "Height"), "(H)",
                           Limits::height, ConnectorTips::height);
    sidis = new QCheckBox(content);
    line_sideDis = rows.add("DialogFreeCut", QT_TRANSLATE_NOOP("DialogFreeCut", "Side distance"),
                            "(SD)", Limits::sideDistance,
                            {ConnectorTips::sideDistance, ConnectorTips::sideDistance}, sidis);
    line_sideDis->setEnabled(false);
    auto* const group = new DialogWidgetGroup2rd({}, content, true, this);
    m_texts.addTitle(group, "DialogFreeCut", QT_TRANSLATE_NOOP("DialogFreeCut", "Cylinder"));
    layout()->addWidget(group);
}

void DialogPinHoleUI::buildClearances()
{
    auto* const content = new QWidget(this);
    Rows rows(content, m_texts, pin);
    line_topClear = rows.add("DialogFreeCut", QT_TRANSLATE_NOOP("DialogFreeCut", "Top clearance"),
                             "(T)", Limits::topClearance, ConnectorTips::topClearance);
    line_spacing =
        rows.add("DialogStructure", QT_TRANSLATE_NOOP("DialogStructure", "Spacing"), "(S)",
                 Limits::spacing, {ConnectorTips::spacing, ConnectorTips::spacing});
    line_sideClear = rows.add("DialogFreeCut", QT_TRANSLATE_NOOP("DialogFreeCut", "Side clearance"),
                              "(SC)", Limits::sideClearance, ConnectorTips::sideClearance);
    line_faceClear = rows.add("DialogFreeCut", QT_TRANSLATE_NOOP("DialogFreeCut", "Face clearance"),
                              "(F)", Limits::faceClearance, ConnectorTips::faceClearance);
    save = new PushButtonAnimate(content);
    m_texts.addText(save, "MellCommons", QT_TRANSLATE_NOOP("MellCommons", "Save"));
    rows.addAlone(save);
    auto* const group = new DialogWidgetGroup2rd({}, content, true, this);
    m_texts.addTitle(group, "DialogFreeCut",
                     QT_TRANSLATE_NOOP("DialogFreeCut", "Clearance and spacing"));
    layout()->addWidget(group);
}

void DialogPinHoleUI::connectAll()
{
    connect(line_radius, &QAbstractSpinBox::editingFinished, this,
            &DialogPinHoleUI::on_line_radius_editing);
    connect(line_sideClear, &QAbstractSpinBox::editingFinished, this,
            &DialogPinHoleUI::on_line_sideClear_editing);
    connect(save, &QAbstractButton::clicked, this, &DialogPinHoleUI::on_save_clicked);
    connect(pin, &QAbstractButton::clicked, this, &DialogPinHoleUI::on_pin_clicked);
    connect(hole, &QAbstractButton::clicked, this, &DialogPinHoleUI::on_hole_clicked);
    connect(sidis, &QAbstractButton::toggled, this, &DialogPinHoleUI::on_sidis_checked);
    if (MainWindow const* const window = MainWindow::getInstance())
        connect(window, &MainWindowBase::signalThemeColorChanged, this,
                &DialogPinHoleUI::showPicture);
}

void DialogPinHoleUI::loadParas()
{
    ConnectorFields::load(*line_radius, Limits::radius);
    line_tolerance->setRange(Limits::tolerance.least, line_radius->value());
    ConnectorFields::load(*line_tolerance, Limits::tolerance);
    ConnectorFields::load(*line_height, Limits::height);
    ConnectorFields::load(*line_sideDis, Limits::sideDistance);
    ConnectorFields::load(*line_topClear, Limits::topClearance);
    ConnectorFields::load(*line_spacing, Limits::spacing);
    ConnectorFields::load(*line_sideClear, Limits::sideClearance);
    ConnectorFields::load(*line_faceClear, Limits::faceClearance);
    sidis->setChecked(storedValue(Limits::isSidedis.key, Limits::isSidedis.initial).toBool());
    line_sideDis->setEnabled(sidis->isChecked());
    bool const isPin = storedValue(Limits::isPin.key, Limits::isPin.initial).toBool();
    (isPin ? pin : hole)->setChecked(true);
    showPicture();
    limitToRadius();
}

void DialogPinHoleUI::on_save_clicked()
{
    ConnectorFields::store(*line_radius, Limits::radius);
    ConnectorFields::store(*line_tolerance, Limits::tolerance);
    ConnectorFields::store(*line_height, Limits::height);
    ConnectorFields::store(*line_sideDis, Limits::sideDistance);
    ConnectorFields::store(*line_topClear, Limits::topClearance);
    ConnectorFields::store(*line_spacing, Limits::spacing);
    ConnectorFields::store(*line_sideClear, Limits::sideClearance);
    ConnectorFields::store(*line_faceClear, Limits::faceClearance);
    storeValue(Limits::isSidedis.key, sidis->isChecked());
    storeValue(Limits::isPin.key, pin->isChecked());
}

PinHoleParas DialogPinHoleUI::paras() const
{
    return {.radius = float(line_radius->value()),
            .tolerance = float(line_tolerance->value()),
            .height = float(line_height->value()),
            .sidedistance = float(line_sideDis->value()),
            .topclearance = float(line_topClear->value()),
            .spacing = float(line_spacing->value()),
            .sideclearance = float(line_sideClear->value()),
            .faceclearance = float(line_faceClear->value()),
            .isSidedis = sidis->isChecked(),
            .isPin = pin->isChecked()};
}

void DialogPinHoleUI::setParas(PinHoleParas const& paras)
{
    // The radius first: it moves the limits of others.
    line_radius->setValue(double(paras.radius));
    line_sideClear->setValue(double(paras.sideclearance));
    on_line_radius_editing();
    line_tolerance->setValue(double(paras.tolerance));
    line_height->setValue(double(paras.height));
    line_sideDis->setValue(double(paras.sidedistance));
    line_topClear->setValue(double(paras.topclearance));
    line_spacing->setValue(double(paras.spacing));
    line_faceClear->setValue(double(paras.faceclearance));
    sidis->setChecked(paras.isSidedis);
    (paras.isPin ? pin : hole)->setChecked(true);
    showPicture();
}

double DialogPinHoleUI::leastSpacing() const
{
    return Limits::leastSpacing(line_radius->value(), line_sideClear->value());
}

void DialogPinHoleUI::on_line_radius_editing()
{
    line_tolerance->setRange(Limits::tolerance.least, line_radius->value());
    limitToRadius();
}

void DialogPinHoleUI::limitToRadius()
{
    double const radius = line_radius->value();
    line_sideDis->setRange(radius, Limits::sideDistance.largest);
    line_spacing->setRange(leastSpacing(), Limits::spacing.largest);
    if (line_tolerance->value() > radius)
        line_tolerance->setValue(radius);
    if (line_sideDis->value() < radius)
        line_sideDis->setValue(radius);
    if (line_spacing->value() < leastSpacing())
        line_spacing->setValue(leastSpacing());
}

void DialogPinHoleUI::on_line_sideClear_editing()
{
    double const minimum = double(float(leastSpacing()));
    line_spacing->setRange(minimum, Limits::spacing.largest);
    if (line_spacing->value() < minimum)
        line_spacing->setValue(minimum);
}

void DialogPinHoleUI::on_pin_clicked()
{
    showPicture();
}

void DialogPinHoleUI::on_hole_clicked()
{
    showPicture();
}

void DialogPinHoleUI::on_sidis_checked(bool checked)
{
    line_sideDis->setEnabled(checked);
}

void DialogPinHoleUI::showPicture()
{
    QString const file = pin->isChecked() ? QStringLiteral(":/icons/icons/cut_pin.png")
                                          : QStringLiteral(":/icons/icons/cut_hole.png");
    m_picture->setPixmap(ConnectorFields::picture(file, pictureWidth, pictureHeight));
}

void DialogPinHoleUI::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        m_texts.retranslate();
}

}  // namespace Freecut
