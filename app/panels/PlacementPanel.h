// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/parts/PartPlacement.h"

#include <QWidget>

class AxisButtons;
class DocumentFollower;
class PushButtonAnimate;
class QComboBox;
class QGroupBox;
class QLabel;
class ScaleFields;
class VectorFields;

/// Places the selected parts by numbers: where the middle or the lower corner of their box lies,
/// moves by an offset, turns about their middle, the way to the plate, scales and reflections. Every
/// edit is an undo step. Without a selection and while a job runs the panel is disabled and says why.
class PlacementPanel : public QWidget
{
    Q_OBJECT

public:
    /// The Application exists.
    explicit PlacementPanel(QWidget* parent = nullptr);

    // For tests and for those who fill the fields.

    VectorFields& position() const { return *m_position; }
    VectorFields& offset() const { return *m_offset; }
    VectorFields& angles() const { return *m_angles; }
    QComboBox& reference() const { return *m_reference; }
    PushButtonAnimate& moveButton() const { return *m_move; }
    PushButtonAnimate& rotateButton() const { return *m_rotate; }
    AxisButtons& quarterTurns(bool isBackwards) const
    {
        return isBackwards ? *m_turnsBack : *m_turns;
    }
    AxisButtons& mirrorButtons() const { return *m_mirror; }
    ScaleFields& scaleFields() const { return *m_scale; }
    PushButtonAnimate& dropButton() const { return *m_drop; }
    PushButtonAnimate& centreButton() const { return *m_centre; }

protected:
    void changeEvent(QEvent* event) override;

private:
    /// The points of a box whose place the position fields give, in the order of the choice.
    enum Reference
    {
        Middle,
        LowerCorner,
        BottomMiddle
    };

    void build();
    void connectEdits();
    void connectShaping();
    void retranslate();
    void refresh();
    QString whyInactive() const;
    UPoint3<float> referencePoint() const;
    PartPlacement::Parts parts() const;
    template <typename Edit>
    void edit(Edit const& edit);

    DocumentFollower* m_follower;
    QLabel* m_hint;
    QWidget* m_content;
    QGroupBox* m_positionGroup;
    QGroupBox* m_moveGroup;
    QGroupBox* m_rotateGroup;
    QGroupBox* m_scaleGroup;
    QGroupBox* m_mirrorGroup;
    QComboBox* m_reference;
    VectorFields* m_position;
    VectorFields* m_offset;
    VectorFields* m_angles;
    PushButtonAnimate* m_move;
    PushButtonAnimate* m_rotate;
    AxisButtons* m_turns;
    AxisButtons* m_turnsBack;
    AxisButtons* m_mirror;
    ScaleFields* m_scale;
    PushButtonAnimate* m_drop;
    PushButtonAnimate* m_centre;
};
