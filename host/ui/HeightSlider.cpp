// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/ui/HeightSlider.h"

#include "host/ui/HeightScale.h"
#include "host/ui/HeightWarning.h"
#include "platform/ui/DisplayUnit.h"
#include "platform/ui/DocumentFollower.h"
#include "platform/ui/MellQuantitySpinBox.h"
#include "platform/ui/MellVBoxLayout.h"
#include "platform/ui/MellViewSlider.h"
#include "platform/ui/Quantity.h"
#include "platform/ui/StoredSettings.h"
#include "platform/ui/Theme.h"
#include "platform/view/MeshGLView.h"

#include <QEvent>
#include <QSignalBlocker>
#include <QToolButton>

#include <algorithm>
#include <cmath>

namespace {

/// Of the field, and what it needs beside its text, in base sizes of the interface.
constexpr double narrowest = 5;
constexpr double fieldMargins = 1.6;
char const* const lineKey = "View/SectionLine";
char const* const icons[] = {":/icons/icons/app_cutview.png", ":/icons/icons/app_cutview_dark.png"};

Base::MellViewSlider& slider()
{
    return *Base::MellViewSlider::instance();
}

}  // namespace

HeightSlider::HeightSlider(QWidget* parent) : QWidget(parent)
{
    build();
    retranslate();
    showIcons();
    connect(&slider(), &Base::MellViewSlider::heightChanged, this, &HeightSlider::heightChanged);
    connect(m_field, &MellQuantitySpinBox::valueChanged, this,
            [](double height) { slider().setHeight(float(height)); });
    connect(m_line, &QToolButton::toggled, this, [this](bool shows) {
        storeValue(lineKey, shows);
        updateLine();
    });
    m_follower = new DocumentFollower(this);
    connect(m_follower, &DocumentFollower::changed, this, &HeightSlider::partsChanged);
    connect(&DisplayUnit::instance(), &DisplayUnit::changed, this, &HeightSlider::partsChanged);
    partsChanged();
    heightChanged(slider().getHeight());
}

HeightSlider::~HeightSlider()
{
    setView(nullptr);
}

void HeightSlider::build()
{
    auto* const column = new MellVBoxLayout(this);
    int const margin = themePixels("layoutSpacing");
    column->setContentsMargins(margin, margin, margin, margin);
    m_field = new MellQuantitySpinBox(this);
    m_field->setObjectName("height");
    m_field->setUnit(Base::Unit(Base::Unit::length));
    m_field->setUnitTextVisible(false);
    m_field->setRange(-1e6, 1e6);
    m_field->setSingleStep(HeightScale::step());
    m_field->setAlignment(Qt::AlignRight);
    m_field->setButtonSymbols(QAbstractSpinBox::NoButtons);
    m_field->setMinimumWidth(int(narrowest * g_pixelSize));
    m_field->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    m_warning = new HeightWarning(this);
    m_scale = new HeightScale(this);
    m_line = new QToolButton(this);
    m_line->setObjectName("line");
    m_line->setCheckable(true);
    m_line->setChecked(storedValue(lineKey, true).toBool());
    m_line->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    column->addWidget(m_field);
    column->addWidget(m_warning);
    column->addWidget(m_scale, 1);
    column->addWidget(m_line);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
}

void HeightSlider::setView(Mesh::GLView* view)
{
    if (m_view && view != m_view)
        m_view->setSectionHeight({});
    m_view = view;
    updateLine();
}

bool HeightSlider::showsLine() const
{
    return m_line->isChecked();
}

void HeightSlider::setShowsLine(bool shows)
{
    m_line->setChecked(shows);
}

void HeightSlider::partsChanged()
{
    bool const wasEmpty = slider().getMaximum() <= slider().getMinimum();
    slider().refresh();
    float const low = slider().getMinimum(), high = slider().getMaximum();
    bool const isEmpty = high <= low;
    for (QWidget* const widget : {static_cast<QWidget*>(m_field), static_cast<QWidget*>(m_scale)})
        widget->setEnabled(!isEmpty);
    // The first parts: a height at which there is something to cut.
    showWholeNumbers(low, high);
    float const height = slider().getHeight();
    if (wasEmpty && !isEmpty && (height <= low || height >= high))
        slider().setHeight((low + high) / 2);
    warn();
}

/// Gives the field the width of the longest number that it will show.
void HeightSlider::showWholeNumbers(float low, float high)
{
    double width = narrowest * g_pixelSize;
    for (float const end : {low, high}) {
        QString const text = Base::Quantity::toUserString(
            double(end), Base::Unit::length, 'f', DisplayUnit::instance().decimals(), ' ', true);
        width = std::max(
            width, m_field->fontMetrics().horizontalAdvance(text) + fieldMargins * g_pixelSize);
    }
    m_field->setMinimumWidth(int(std::ceil(width)));
}

void HeightSlider::heightChanged(float height)
{
    QSignalBlocker const quiet(m_field);
    m_field->setValue(height);
    updateLine();
    warn();
}

void HeightSlider::warn()
{
    m_warning->refresh(m_follower->document(), slider().getHeight());
}

void HeightSlider::updateLine()
{
    if (!m_view)
        return;
    bool const isShown = isVisible() && m_line->isChecked();
    m_view->setSectionHeight(isShown ? std::optional(slider().getHeight()) : std::nullopt);
}

void HeightSlider::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    updateLine();
}

void HeightSlider::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    updateLine();
}

void HeightSlider::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    else if (event->type() == QEvent::PaletteChange)
        showIcons();
    QWidget::changeEvent(event);
}

void HeightSlider::showIcons()
{
    QString const file = icons[g_ThemeColor & 16 ? 1 : 0];
    QIcon const icon(file);
    bool const hasIcon = !icon.pixmap(g_pixelSize).isNull();
    m_line->setIcon(icon);
    m_line->setToolButtonStyle(hasIcon ? Qt::ToolButtonIconOnly : Qt::ToolButtonTextOnly);
}

void HeightSlider::retranslate()
{
    m_field->setToolTip(tr("The height at which a horizontal cut is made."));
    m_scale->setToolTip(tr("Drag, or press Up and Down, to set the height of the cut."));
    m_line->setText(tr("Line"));
    m_line->setToolTip(tr("Shows on the parts where they would be cut."));
}
