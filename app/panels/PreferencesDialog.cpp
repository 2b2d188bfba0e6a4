// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/panels/PreferencesDialog.h"

#include "app/view/ViewAppearance.h"
#include "app/view/ViewPreferences.h"
#include "platform/ui/DisplayUnit.h"
#include "platform/ui/LanguageSwitch.h"
#include "platform/ui/MellHBoxLayout.h"
#include "platform/ui/MellQuantitySpinBox.h"
#include "platform/ui/MellSpinBox.h"
#include "platform/ui/MellVBoxLayout.h"
#include "platform/ui/Theme.h"
#include "platform/ui/ThemeSwitch.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QEvent>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>

namespace {

QComboBox* choiceOf(int count, QWidget* parent)
{
    auto* const box = new QComboBox(parent);
    // The texts change their length with the language.
    box->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    for (int i = 0; i < count; ++i)
        box->addItem({});
    return box;
}

QFormLayout* formOf(QGroupBox* group)
{
    auto* const form = new QFormLayout(group);
    form->setContentsMargins({});
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    form->setLabelAlignment(Qt::AlignLeft);
    return form;
}

void setTexts(QComboBox& box, QStringList const& texts)
{
    for (int i = 0; i < texts.size(); ++i)
        box.setItemText(i, texts[i]);
}

void setLabel(QFormLayout& form, QWidget* field, QString const& text)
{
    auto* const label = qobject_cast<QLabel*>(form.labelForField(field));
    if (label)
        label->setText(text);
    field->setAccessibleName(text);
}

}  // namespace

PreferencesDialog::PreferencesDialog(ViewAppearance& appearance, ViewPreferences& view,
                                     QWidget* parent)
    : QDialog(parent), m_appearance(appearance), m_preferences(view)
{
    setObjectName("PreferencesDialog");
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    buildInterface();
    buildView();
    m_buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(m_buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* const layout = new MellVBoxLayout(this);
    int const margin = themePixels("dialogWidegtMargin");
    layout->setContentsMargins(margin, margin, margin, margin);
    layout->addWidget(m_interfaceGroup);
    layout->addWidget(m_viewGroup);
    layout->addStretch();
    layout->addWidget(m_buttons);
    load();
    connectInterface();
    connectView();
    connect(&m_appearance, &ViewAppearance::changed, this, &PreferencesDialog::load);
    m_isBuilt = true;
    retranslate();
}

void PreferencesDialog::buildInterface()
{
    m_interfaceGroup = new QGroupBox(this);
    m_interfaceForm = formOf(m_interfaceGroup);
    m_theme = choiceOf(3, this);
    m_language = choiceOf(3, this);
    m_unit = choiceOf(2, this);
    // In the order in which the keyboard goes through them.
    m_size = new MellSpinBox(this);
    m_systemSize = new QCheckBox(this);
    m_size->setRange(ThemeSwitch::smallestSize, ThemeSwitch::largestSize);
    m_size->setSuffix(QStringLiteral(" px"));
    // A size takes effect when it is typed, not while.
    m_size->setKeyboardTracking(false);
    m_size->setMinimumWidth(6 * g_pixelSize);
    auto* const size = new QWidget(this);
    auto* const sizeLayout = new MellHBoxLayout(size);
    sizeLayout->addWidget(m_size);
    sizeLayout->addWidget(m_systemSize, 1);
    m_interfaceForm->addRow(QStringLiteral(" "), m_theme);
    m_interfaceForm->addRow(QStringLiteral(" "), m_language);
    m_interfaceForm->addRow(QStringLiteral(" "), m_unit);
    m_interfaceForm->addRow(QStringLiteral(" "), size);
}

void PreferencesDialog::buildView()
{
    m_viewGroup = new QGroupBox(this);
    m_viewForm = formOf(m_viewGroup);
    m_navigation = choiceOf(4, this);
    m_projection = choiceOf(2, this);
    m_plateWidth = new MellQuantitySpinBox(this);
    m_plateDepth = new MellQuantitySpinBox(this);
    m_buildHeight = new MellQuantitySpinBox(this);
    m_volumes = BuildVolume::known();
    m_printer = choiceOf(int(m_volumes.size()) + 1, this);
    for (std::size_t i = 0; i < m_volumes.size(); ++i)
        m_printer->setItemText(int(i) + 1, m_volumes[i].name);
    for (MellQuantitySpinBox* const field : {m_plateWidth, m_plateDepth, m_buildHeight}) {
        field->setUnit(Base::Unit::length);
        field->setRange(ViewPreferences::smallestPlateMm, ViewPreferences::largestPlateMm);
        field->setSingleStep(10);
    }
    m_viewForm->addRow(QStringLiteral(" "), m_navigation);
    m_viewForm->addRow(QStringLiteral(" "), m_projection);
    for (QWidget* const field :
         {static_cast<QWidget*>(m_printer), static_cast<QWidget*>(m_plateWidth),
          static_cast<QWidget*>(m_plateDepth), static_cast<QWidget*>(m_buildHeight)})
        m_viewForm->addRow(QStringLiteral(" "), field);
}

void PreferencesDialog::load()
{
    m_theme->setCurrentIndex(int(ThemeSwitch::choice()));
    m_language->setCurrentIndex(int(LanguageSwitch::choice()));
    m_unit->setCurrentIndex(DisplayUnit::instance().length());
    m_systemSize->setChecked(ThemeSwitch::interfaceSize() == 0);
    m_size->setValue(g_pixelSize);
    m_size->setEnabled(!m_systemSize->isChecked());
    m_navigation->setCurrentIndex(int(m_preferences.navigation()));
    m_projection->setCurrentIndex(m_appearance.isPerspective());
    m_plateWidth->setValue(m_preferences.plateSize().width());
    m_plateDepth->setValue(m_preferences.plateSize().height());
    m_buildHeight->setValue(BuildVolume::stored().height);
}

void PreferencesDialog::connectInterface()
{
    auto const chosen = qOverload<int>(&QComboBox::currentIndexChanged);
    connect(m_theme, chosen, this,
            [](int index) { ThemeSwitch::setTheme(ThemeSwitch::Choice(index)); });
    connect(m_language, chosen, this,
            [](int index) { LanguageSwitch::setLanguage(LanguageSwitch::Choice(index)); });
    connect(m_unit, chosen, this,
            [](int index) { DisplayUnit::instance().setLength(DisplayUnit::Length(index)); });
    connect(m_systemSize, &QCheckBox::toggled, this, [this](bool isSystem) {
        ThemeSwitch::setInterfaceSize(isSystem ? 0 : m_size->value());
        load();
    });
    connect(m_size, qOverload<int>(&QSpinBox::valueChanged), this, [this](int pixels) {
        if (!m_systemSize->isChecked())
            ThemeSwitch::setInterfaceSize(pixels);
    });
}

void PreferencesDialog::connectView()
{
    auto const chosen = qOverload<int>(&QComboBox::currentIndexChanged);
    connect(m_navigation, chosen, this,
            [this](int index) { m_preferences.setNavigation(ViewPreferences::Preset(index)); });
    connect(m_projection, chosen, this, [this](int index) {
        if (m_appearance.isPerspective() != (index == 1))
            m_appearance.setPerspective(index == 1);
    });
    connect(m_plateWidth, &MellQuantitySpinBox::valueChanged, this, &PreferencesDialog::setPlate);
    connect(m_plateDepth, &MellQuantitySpinBox::valueChanged, this, &PreferencesDialog::setPlate);
    connect(m_buildHeight, &MellQuantitySpinBox::valueChanged, this, &BuildVolume::storeHeight);
    connect(m_printer, qOverload<int>(&QComboBox::activated), this,
            &PreferencesDialog::takePrinter);
}

void PreferencesDialog::takePrinter(int index)
{
    if (index < 1)
        return;
    BuildVolume const& volume = m_volumes[std::size_t(index) - 1];
    m_plateWidth->setValue(volume.width);
    m_plateDepth->setValue(volume.depth);
    m_buildHeight->setValue(volume.height);
}

void PreferencesDialog::setPlate()
{
    m_preferences.setPlateSize({m_plateWidth->value(), m_plateDepth->value()});
}

void PreferencesDialog::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange && m_isBuilt)
        retranslate();
    if (event->type() == QEvent::FontChange && m_isBuilt)
        m_size->setMinimumWidth(6 * g_pixelSize);
    QDialog::changeEvent(event);
}

void PreferencesDialog::retranslate()
{
    setWindowTitle(tr("Preferences"));
    m_interfaceGroup->setTitle(tr("Interface"));
    m_viewGroup->setTitle(tr("View"));
    setLabel(*m_interfaceForm, m_theme, tr("Theme"));
    setLabel(*m_interfaceForm, m_language, tr("Language"));
    setLabel(*m_interfaceForm, m_unit, tr("Lengths in"));
    setLabel(*m_interfaceForm, m_size->parentWidget(), tr("Size"));
    setLabel(*m_viewForm, m_navigation, tr("Mouse"));
    setLabel(*m_viewForm, m_projection, tr("Projection"));
    setLabel(*m_viewForm, m_printer, tr("Printer"));
    m_printer->setItemText(0, tr("Choose a size..."));
    m_printer->setToolTip(
        tr("Printers of your own can be added in %1, one in each line: name;width;depth;height")
            .arg(BuildVolume::ownFile()));
    setLabel(*m_viewForm, m_buildHeight, tr("Build height"));
    setLabel(*m_viewForm, m_plateWidth, tr("Plate width"));
    setLabel(*m_viewForm, m_plateDepth, tr("Plate depth"));
    setTexts(*m_theme, {tr("As the system"), tr("Light"), tr("Dark")});
    // Languages are called by their own names, to be found by those who speak them.
    setTexts(*m_language,
             {tr("As the system"), QStringLiteral("English"), QStringLiteral("Deutsch")});
    setTexts(*m_unit, {tr("Millimetres"), tr("Inches")});
    setTexts(*m_navigation,
             {tr("Turn: right; move: middle"), tr("Turn: middle; move: Shift + middle"),
              tr("Turn: middle; move: right"), tr("Touchpad: turn: left; move: Shift + left")});
    setTexts(*m_projection, {tr("Parallel"), tr("Perspective")});
    m_systemSize->setText(tr("As the system"));
    m_buttons->button(QDialogButtonBox::Close)->setText(tr("Close"));
    growToTexts();
}

void PreferencesDialog::growToTexts()
{
    if (!isVisible())
        return;
    layout()->activate();
    resize(QWidget::size().expandedTo(sizeHint()));
}
