// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/mesh/UTriangle.h"
#include "platform/view/GLView.h"
#include "platform/view/LiveCut.h"

#include <optional>

namespace Mesh {

class DocumentObject;

/// A 3D view that shows a mesh document, with the build plate and the axes. A click selects the
/// part under the mouse while no tool runs; with the control key it adds to the selection. A drag
/// that begins beside the parts spans a rectangle, which selects those within it. The part that a
/// click would select is lit, where pictures are quick enough for that. A cube
/// in the upper right corner shows how the view lies; a click on one of its faces, or on the corner
/// at the front, the right and above, turns to that standard view, and no tool sees it.
class GLView : public Base::GLView
{
    Q_OBJECT

public:
    static Base::Type classTypeId;
    static Base::Type getClassTypeId() { return classTypeId; }
    static void init();

    /// A point on a part.
    struct Pick
    {
        DocumentObject* part = nullptr;
        /// For reading only; valid until the part's mesh changes.
        UTriangle<float>* triangle = nullptr;
        /// World millimetres.
        UPoint3<float> point;
    };

    explicit GLView(QWidget* parent = nullptr);

    Base::Type getTypeId() const override;
    std::string getClassName() const override;

    /// The part and triangle under a widget position that come first in the line of sight; false,
    /// with nothing changed, if there is none.
    ///
    /// onlySelected  other parts are looked through
    /// onlyFront     faces seen from behind are looked through
    /// alsoGhosts    parts that are shown as ghosts count too
    /// cost          logarithmic in the triangles; the first pick on a mesh sorts it
    bool pickFace(QPoint position, DocumentObject*& part, UTriangle<float>*& triangle,
                  bool onlySelected, bool onlyFront, bool alsoGhosts) const;
    /// The same, with the point.
    bool pickPoint(QPoint position, Pick& pick, bool onlySelected = false, bool onlyFront = false,
                   bool alsoGhosts = false) const;

    /// The size of the build plate, which lies in the plane z = 0 around the origin.
    void setPlateSize(float widthMm, float depthMm);
    void setPlateVisible(bool visible);

    /// The box around the parts that are shown, in world millimetres; null if there is none.
    UBox3<float> getPartsBox() const;

    /// Cuts the parts open for the eye; picks look through what is cut away. Tools are not cut.
    void setLiveCut(std::optional<LiveCut> const& cut);
    std::optional<LiveCut> const& liveCut() const { return m_liveCut; }

    /// Shows the lines in which the plane z = height meets the visible parts, over the picture.
    ///
    /// height  world millimetres; none for no lines
    void setSectionHeight(std::optional<float> height);
    std::optional<float> const& sectionHeight() const { return m_sectionHeight; }

    /// Shows the lines in which a plane of any direction meets the visible parts, besides those at
    /// the height; none for no lines.
    void setSectionPlane(std::optional<SectionPlane> const& plane);
    std::optional<SectionPlane> const& sectionPlane() const { return m_sectionPlane; }

    /// Draws the parts apart from each other, away from the middle of them all; the lowest stay where
    /// they are. The parts themselves do not move: picks and planes are where they are without.
    ///
    /// share  of a part's distance from the middle that is added to it; 0 for none
    void setDrawnApart(double share);
    double drawnApart() const { return m_drawnApart; }

    /// Gives parts without a colour of their own one of a few, in turn, by which pieces are told
    /// from each other.
    void setPartsTinted(bool isTinted);
    bool arePartsTinted() const { return m_arePartsTinted; }

    UPoint3<float> turningPoint(QPoint position) const override;
    void clicked(QMouseEvent* event) override;

    /// The part under the mouse that is lit; for comparing only, it may be gone. Null for none.
    DocumentObject const* hoveredPart() const;

signals:
    /// A click with the right button while no tool runs. The part under it is selected by then.
    void contextMenuRequested(QPoint position, bool isOnPart);
    void hoveredPartChanged();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void paintSurroundings() override;
    void paintOverlay() override;
    UBox3<float> surroundingsBox() const override;

private:
    void hover(int standardView);
    void hoverPart(DocumentObject const* part);
    void hoverPartAt(QPoint position);
    bool canHover() const;
    void askForMenu(QPoint position);

    float m_plateWidth = 200;
    float m_plateDepth = 200;
    bool m_isPlateVisible = true;
    std::optional<LiveCut> m_liveCut;
    std::optional<float> m_sectionHeight;
    std::optional<SectionPlane> m_sectionPlane;
    double m_drawnApart = 0;
    bool m_arePartsTinted = false;
    DocumentObject const* m_hoveredPart = nullptr;
    /// The standard views on the cube that are under the mouse, and that were pressed; -1 for none.
    int m_hoveredView = -1;
    int m_pressedView = -1;
};

}  // namespace Mesh
