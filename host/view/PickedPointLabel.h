// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UPoint3.h"

#include <QLabel>

/// The coordinates of a picked point as a label over the view, in the unit and language of the
/// moment. The mouse does not see it.
class PickedPointLabel : public QLabel
{
    Q_OBJECT

public:
    explicit PickedPointLabel(QWidget* view);

    /// point  world millimetres
    void setPoint(UPoint3<float> const& point);

protected:
    void changeEvent(QEvent* event) override;

private:
    void showPoint();

    UPoint3<float> m_point;
};
