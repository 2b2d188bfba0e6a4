// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/panels/ApartSlider.h"

#include "platform/ui/MellHBoxLayout.h"
#include "platform/ui/Theme.h"
#include "platform/view/MeshGLView.h"

#include <QEvent>
#include <QLabel>
#include <QSlider>

namespace {

/// At its end the distances from the middle are three times what they are.
constexpr int steps = 200;
constexpr double sharePerStep = 0.01;

}  // namespace

ApartSlider::ApartSlider(Mesh::GLView& view, QWidget* parent)
    : QWidget(parent),
      m_view(view),
      m_label(new QLabel(this)),
      m_slider(new QSlider(Qt::Horizontal, this))
{
    setObjectName("ApartSlider");
    m_slider->setRange(0, steps);
    m_slider->setPageStep(steps / 8);
    m_label->setBuddy(m_slider);
    auto* const layout = new MellHBoxLayout(this);
    int const margin = themePixels("dialogWidegtMargin");
    layout->setContentsMargins(margin, 0, margin, margin);
    layout->addWidget(m_label);
    layout->addWidget(m_slider, 1);
    connect(m_slider, &QSlider::valueChanged, this,
            [this](int value) { m_view.setDrawnApart(value * sharePerStep); });
    connect(&view, &Base::GLView::signalInteractModeChanged, this, &ApartSlider::follow);
    retranslate();
}

void ApartSlider::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}

void ApartSlider::follow()
{
    bool const isFree = m_view.getInteractModeName().empty();
    if (!isFree)
        m_slider->setValue(0);
    m_slider->setEnabled(isFree);
    retranslate();
}

void ApartSlider::retranslate()
{
    m_label->setText(tr("Draw apart"));
    m_slider->setAccessibleName(m_label->text());
    m_slider->setToolTip(
        m_slider->isEnabled()
            ? tr("Draws the parts apart from each other. They stay where they are.")
            : tr("End the tool first: it goes by where the parts are."));
}
