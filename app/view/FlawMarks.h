// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UPoint3.h"
#include "platform/view/GLGraphicsItem.h"
#include "platform/view/GLView.h"

#include <QPointer>

#include <vector>

/// Lines that mark flaws over the picture of a view, and those of one flaw more strongly. Where parts
/// stand before them they are pale.
///
/// thread  the user interface thread
class FlawMarks : public Base::GLGraphicsItem
{
public:
    using Lines = std::vector<UPoint3<float>>;

    explicit FlawMarks(Base::GLView& view);
    ~FlawMarks() override;

    /// lines  pairs of ends, in world millimetres
    void setLines(Lines lines);
    void setChosen(Lines lines);

    void paintGL() override;
    void initGL() override {}

private:
    QPointer<Base::GLView> m_view;
    Lines m_lines;
    Lines m_chosen;
};
