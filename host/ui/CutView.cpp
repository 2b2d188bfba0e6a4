// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/ui/CutView.h"

#include "host/ui/CutViewWidgets.h"
#include "platform/ui/DocumentFollower.h"
#include "platform/view/MeshGLView.h"

#include <QEvent>
#include <QSignalBlocker>

#include <algorithm>
#include <cmath>

// The plane of the cut: what the page says, kept within the parts, and shown in the view.

namespace {

constexpr int sliderSteps = 1000;

UVector3<double> alongAxis(int axis)
{
    UVector3<double> direction;
    direction[axis] = 1;
    return direction;
}

double along(UVector3<double> const& direction, UPoint3<float> const& p)
{
    return direction.X() * p.X() + direction.Y() * p.Y() + direction.Z() * p.Z();
}

}  // namespace

CutView::CutView(QWidget* parent) : QWidget(parent), m_widgets(std::make_unique<Widgets>())
{
    build();
    retranslate();
    connectAll();
    auto* const follower = new DocumentFollower(this);
    connect(follower, &DocumentFollower::changed, this, &CutView::partsChanged);
    takeRange(true);
}

CutView::~CutView()
{
    setView(nullptr);
}

void CutView::setView(Mesh::GLView* view)
{
    if (m_view && view != m_view)
        m_view->setLiveCut({});
    m_view = view;
    partsChanged();
}

bool CutView::isActive() const
{
    return m_widgets->active->isChecked();
}

void CutView::setActive(bool active)
{
    m_widgets->active->setChecked(active);
}

void CutView::setAxis(Axis axis)
{
    m_widgets->axes->button(axis)->setChecked(true);
    takeRange(true);
}

void CutView::setNormal(UVector3<double> const& normal)
{
    for (int i = 0; i < 3; ++i) {
        QSignalBlocker const quiet(m_widgets->normal[i]);
        m_widgets->normal[i]->setValue(normal[i]);
    }
    setAxis(Free);
}

double CutView::position() const
{
    return m_position;
}

void CutView::setPosition(double position)
{
    showPosition(std::clamp(position, m_low, m_high));
    apply();
}

void CutView::setFlipped(bool flipped)
{
    m_widgets->flip->setChecked(flipped);
}

void CutView::setCapsVisible(bool visible)
{
    m_widgets->caps->setChecked(visible);
}

UVector3<double> CutView::direction() const
{
    int const axis = m_widgets->axes->checkedId();
    if (axis != Free)
        return alongAxis(axis);
    auto const& n = m_widgets->normal;
    UVector3<double> normal(n[0]->value(), n[1]->value(), n[2]->value());
    return normal.Normalize();
}

bool CutView::getCutParameters(UPoint3<float>& point, UVector3<float>& normal) const
{
    UVector3<double> const n = direction();
    // Without a visible part there is nothing that a plane could go through.
    if (!isActive() || n == UVector3<double>() || m_box.Isnullptr())
        return false;
    UPoint3<float> const middle = (m_box.min + m_box.max) * 0.5f;
    double const way = m_position - along(n, middle);
    double const sign = m_widgets->flip->isChecked() ? -1 : 1;
    for (int i = 0; i < 3; ++i) {
        point[i] = float(middle[i] + n[i] * way);
        // A zero stays without a sign.
        normal[i] = n[i] == 0 ? 0.0f : float(n[i] * sign);
    }
    return true;
}

void CutView::partsChanged()
{
    UBox3<float> const before = m_box;
    m_box = m_view ? m_view->getPartsBox() : UBox3<float>();
    takeRange(before.Isnullptr());
}

void CutView::takeRange(bool centre)
{
    UVector3<double> const n = direction();
    m_low = m_high = 0;
    if (!m_box.Isnullptr()) {
        UPoint3<float> const middle = (m_box.min + m_box.max) * 0.5f;
        double reach = 0;
        for (int i = 0; i < 3; ++i)
            reach += std::abs(n[i]) * (double(m_box.max[i]) - m_box.min[i]) / 2;
        m_low = along(n, middle) - reach;
        m_high = along(n, middle) + reach;
    }
    QSignalBlocker const quiet(m_widgets->position);
    m_widgets->position->setRange(m_low, m_high);
    showPosition(centre ? (m_low + m_high) / 2 : std::clamp(m_position, m_low, m_high));
    apply();
}

void CutView::showPosition(double position)
{
    m_position = position;
    QSignalBlocker const quiet(m_widgets->position), quietSlider(m_widgets->slider);
    m_widgets->position->setValue(position);
    double const share = m_high > m_low ? (position - m_low) / (m_high - m_low) : 0;
    m_widgets->slider->setRange(0, m_high > m_low ? sliderSteps : 0);
    m_widgets->slider->setValue(int(std::lround(share * sliderSteps)));
}

void CutView::connectAll()
{
    Widgets const& w = *m_widgets;
    connect(w.active, &QCheckBox::toggled, this, &CutView::apply);
    connect(w.caps, &QCheckBox::toggled, this, &CutView::apply);
    connect(w.flip, &QToolButton::toggled, this, &CutView::apply);
    connect(w.axes, &QButtonGroup::idClicked, this, [this] { takeRange(true); });
    for (MellQuantitySpinBox* const box : w.normal)
        connect(box, &MellQuantitySpinBox::valueChanged, this, [this] { takeRange(true); });
    connect(w.position, &MellQuantitySpinBox::valueChanged, this, &CutView::setPosition);
    connect(w.slider, &QAbstractSlider::valueChanged, this,
            [this](int step) { setPosition(m_low + (m_high - m_low) * step / sliderSteps); });
}

void CutView::apply()
{
    Widgets const& w = *m_widgets;
    bool const isFree = w.axes->checkedId() == Free;
    w.normalRow->setVisible(isFree);
    w.normalHint->setVisible(isFree && direction() == UVector3<double>());
    for (QWidget* const widget :
         {static_cast<QWidget*>(w.slider), static_cast<QWidget*>(w.flip),
          static_cast<QWidget*>(w.position), w.normalRow, static_cast<QWidget*>(w.caps)})
        widget->setEnabled(isActive());
    for (QAbstractButton* const button : w.axes->buttons())
        button->setEnabled(isActive());
    if (m_view) {
        LiveCut cut;
        cut.hasCaps = w.caps->isChecked();
        bool const isCut = getCutParameters(cut.point, cut.normal);
        m_view->setLiveCut(isCut ? std::optional(cut) : std::nullopt);
    }
    emit cutChanged();
}

void CutView::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    else if (event->type() == QEvent::PaletteChange)
        showIcons();
    QWidget::changeEvent(event);
}
