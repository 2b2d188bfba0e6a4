// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

class CutView;

namespace Base {
class MellViewSlider;
}

/// While the cut view cuts the parts open at a height, that is the height of the slider: whichever
/// is moved takes the other one along, so that what is seen cut open is what a cut at the height
/// would part.
class OneHeight : public QObject
{
    Q_OBJECT

public:
    /// Both outlive this.
    OneHeight(CutView& cutView, Base::MellViewSlider& slider, QObject* parent);

private:
    void takeFromSlider();
    void takeFromCutView();
    bool isHorizontal() const;

    CutView& m_cutView;
    Base::MellViewSlider& m_slider;
    bool m_wasHorizontal = false;
    bool m_isTaking = false;
};
