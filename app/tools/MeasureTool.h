// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/parts/Measuring.h"
#include "app/tools/SurroundingsProbe.h"
#include "app/tools/WallProbe.h"
#include "platform/document/sigslot.h"
#include "platform/view/AbstractMouseSelection.h"

#include <QPoint>
#include <QPointer>
#include <QStringList>

#include <vector>

class OverlayLabel;

namespace Base {
class DocumentObject;
}

/// Measures on parts. While the mouse rests or moves over a part and nothing is clicked yet, the
/// wall thickness there is told. A click tells the wall thickness under the mouse, the length of the
/// edge near it and the area of the face; a second one the distance of the two places, or of what was
/// picked there, and the angle of faces or edges; the next begins anew. Near a corner of the triangle
/// under the mouse the corner is taken. Walls, edges and faces are found in the background and told
/// when they are known. Ctrl+C copies what is shown. A change of the document takes it away.
class MeasureTool : public Base::AbstractMouseSelection,
                    public sigslot::has_slots<sigslot::single_threaded>
{
public:
    static constexpr char const* name = "MeasureTool";
    static Base::Type classTypeId;
    /// May be called again.
    static void init();

    ~MeasureTool() override;
    Base::Type getTypeId() const override;
    std::string getClassName() const override;

    void initialize() override;
    void terminate() override;
    int mousePressEvent(QMouseEvent* event) override;
    int mouseMoveEvent(QMouseEvent* event) override;
    int mouseReleaseEvent(QMouseEvent* event) override;
    int keyPressEvent(QKeyEvent* event) override;
    void draw() override;

    /// What is shown, one line for each measure; empty without a place.
    QString text() const { return m_text; }

private:
    static void* create();
    void take(QPoint position);
    void clear();
    void show();
    void hover(QPoint position);
    void enterWall(std::optional<double> const& thickness);
    void showHovered(std::optional<double> const& thickness);
    void showText(QStringList const& lines);
    double millimetresPerPixel() const;
    void drawSurroundings() const;
    void objectChanged(Base::DocumentObject*) { clear(); }
    void objectWent(Base::DocumentObject*, std::string) { clear(); }

    bool m_isPressed = false;
    QPoint m_press;
    std::vector<Measuring::SurfacePoint> m_places;
    /// Of the wall at the first place, once it is known.
    QString m_wall;
    QString m_text;
    QPointer<OverlayLabel> m_label;
    WallProbe m_probe;
    SurroundingsProbe m_surroundings;
    QPoint m_hovered;
};
