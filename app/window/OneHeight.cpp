// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/window/OneHeight.h"

#include "platform/ui/CutView.h"
#include "platform/ui/MellViewSlider.h"

#include <QScopedValueRollback>

OneHeight::OneHeight(CutView& cutView, Base::MellViewSlider& slider, QObject* parent)
    : QObject(parent), m_cutView(cutView), m_slider(slider)
{
    connect(&cutView, &CutView::cutChanged, this, &OneHeight::takeFromCutView);
    connect(&slider, &Base::MellViewSlider::heightChanged, this, &OneHeight::takeFromSlider);
}

bool OneHeight::isHorizontal() const
{
    UPoint3<float> point;
    UVector3<float> normal;
    return m_cutView.getCutParameters(point, normal) && normal.X() == 0 && normal.Y() == 0;
}

void OneHeight::takeFromSlider()
{
    if (m_isTaking || !isHorizontal())
        return;
    QScopedValueRollback<bool> const taking(m_isTaking, true);
    m_cutView.setPosition(double(m_slider.getHeight()));
}

void OneHeight::takeFromCutView()
{
    bool const isNow = isHorizontal();
    bool const isNew = isNow && !m_wasHorizontal;
    m_wasHorizontal = isNow;
    // The height that a person has set stays when the cut view is switched on.
    if (isNew)
        takeFromSlider();
    else if (isNow && !m_isTaking) {
        QScopedValueRollback<bool> const taking(m_isTaking, true);
        m_slider.setHeight(float(m_cutView.position()));
    }
}
