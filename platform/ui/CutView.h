// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UBox3.h"

#include <QPointer>
#include <QWidget>

#include <memory>

namespace Mesh {
class GLView;
}

/// The page by which the user cuts the parts open in the view: a plane across an axis or along a
/// normal of the user's own, its position, which side is cut away, and whether the cut is filled.
/// The parts themselves stay whole.
///
/// thread  the user interface thread
class CutView : public QWidget
{
    Q_OBJECT

public:
    enum Axis
    {
        AlongX = 0,
        AlongY = 1,
        AlongZ = 2,
        /// The normal is that of setNormal.
        Free = 3
    };

    explicit CutView(QWidget* parent = nullptr);
    ~CutView() override;

    /// The view that shows the cut, borrowed; null for none.
    void setView(Mesh::GLView* view);

    /// The plane of the cut. False, with nothing changed, if there is no active cut.
    ///
    /// point   the middle of the parts, moved into the plane; world millimetres
    /// normal  unit vector to the side that is cut away; across an axis exactly that axis
    bool getCutParameters(UPoint3<float>& point, UVector3<float>& normal) const;

    bool isActive() const;
    void setActive(bool active);
    void setAxis(Axis axis);
    /// Of any length but 0; with 0 there is no cut.
    void setNormal(UVector3<double> const& normal);
    /// Along axis or normal, from the origin, in millimetres; kept within the parts.
    void setPosition(double position);
    double position() const;
    /// Cuts away the other side.
    void setFlipped(bool flipped);
    void setCapsVisible(bool visible);

signals:
    /// Something of the cut has changed, by the user or by code.
    void cutChanged();

protected:
    void changeEvent(QEvent* event) override;

private:
    struct Widgets;

    void build();
    void connectAll();
    void retranslate();
    void showIcons();
    void partsChanged();
    void takeRange(bool centre);
    void showPosition(double position);
    void apply();
    UVector3<double> direction() const;

    std::unique_ptr<Widgets> m_widgets;
    QPointer<Mesh::GLView> m_view;
    UBox3<float> m_box;
    double m_low = 0;
    double m_high = 0;
    double m_position = 0;
};
