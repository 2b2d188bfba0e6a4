// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/panels/PlacementPanel.h"

#include "app/jobs/JobGuard.h"
#include "app/panels/AxisButtons.h"
#include "app/panels/PanelIcon.h"
#include "app/panels/ScaleFields.h"
#include "app/panels/VectorFields.h"
#include "platform/ui/DocumentFollower.h"
#include "platform/ui/MellComboBox.h"
#include "platform/ui/MellQuantitySpinBox.h"
#include "platform/ui/MellVBoxLayout.h"
#include "platform/ui/PushButtonAnimate.h"
#include "platform/ui/Theme.h"

#include <QEvent>
#include <QGroupBox>
#include <QLabel>
#include <QSignalBlocker>

namespace {

/// Far beyond any machine, and still a tenth of a millimetre exact in float.
constexpr double rangeMm = 1e5;
constexpr double rangeDegrees = 3600;

QGroupBox* groupOf(std::initializer_list<QWidget*> widgets, QWidget* parent)
{
    auto* const group = new QGroupBox(parent);
    auto* const layout = new MellVBoxLayout(group);
    layout->setContentsMargins({});
    for (QWidget* const widget : widgets)
        layout->addWidget(widget);
    return group;
}

}  // namespace

PlacementPanel::PlacementPanel(QWidget* parent)
    : QWidget(parent), m_follower(new DocumentFollower(this))
{
    setObjectName("PlacementPanel");
    build();
    connectEdits();
    connectShaping();
    connect(m_follower, &DocumentFollower::changed, this, &PlacementPanel::refresh);
    connect(m_follower, &DocumentFollower::replaced, this, &PlacementPanel::refresh);
    connect(JobGuard::instance(), &JobGuard::busyChanged, this, &PlacementPanel::refresh);
    retranslate();
}

void PlacementPanel::build()
{
    m_hint = new QLabel(this);
    m_hint->setWordWrap(true);
    m_content = new QWidget(this);
    m_reference = new MellComboBox(this);
    m_reference->addItems({{}, {}, {}});
    m_position = new VectorFields(Base::Unit::length, rangeMm, this);
    m_offset = new VectorFields(Base::Unit::length, rangeMm, this);
    m_angles = new VectorFields(Base::Unit::none, rangeDegrees, this);
    for (int axis = 0; axis < 3; ++axis) {
        m_angles->field(axis).setSingleStep(15);
        m_angles->field(axis).setDecimals(2);
    }
    m_move = new PushButtonAnimate({}, this);
    m_rotate = new PushButtonAnimate({}, this);
    m_turns = new AxisButtons(this);
    m_turnsBack = new AxisButtons(this);
    m_mirror = new AxisButtons(this);
    m_scale = new ScaleFields(this);
    m_drop = new PushButtonAnimate({}, this);
    m_centre = new PushButtonAnimate({}, this);
    m_positionGroup = groupOf({m_reference, m_position}, m_content);
    m_moveGroup = groupOf({m_offset, m_move}, m_content);
    m_rotateGroup = groupOf({m_angles, m_rotate, m_turns, m_turnsBack}, m_content);
    m_scaleGroup = groupOf({m_scale}, m_content);
    m_mirrorGroup = groupOf({m_mirror}, m_content);

    auto* const content = new MellVBoxLayout(m_content);
    content->addWidget(m_positionGroup);
    content->addWidget(m_moveGroup);
    content->addWidget(m_rotateGroup);
    // Beside each other they would make the panel wide in languages with long words.
    content->addWidget(m_drop);
    content->addWidget(m_centre);
    content->addWidget(m_scaleGroup);
    content->addWidget(m_mirrorGroup);

    auto* const layout = new MellVBoxLayout(this);
    int const margin = themePixels("dialogWidegtMargin");
    layout->setContentsMargins(margin, margin, margin, margin);
    layout->addWidget(m_hint);
    layout->addWidget(m_content);
    layout->addStretch();
}

// What the buttons and fields do is one undo step each.
template <typename Edit>
void PlacementPanel::edit(Edit const& edit)
{
    if (!whyInactive().isEmpty())
        return;
    edit(static_cast<Mesh::Document&>(*m_follower->document()), parts());
    refresh();
}

void PlacementPanel::connectEdits()
{
    connect(m_reference, qOverload<int>(&QComboBox::currentIndexChanged), this,
            &PlacementPanel::refresh);
    connect(m_position, &VectorFields::edited, this, [this] {
        edit([this](Mesh::Document& document, PartPlacement::Parts const& moved) {
            UVector3<double> const wanted = m_position->values();
            UPoint3<float> const present = referencePoint();
            UVector3<float> offset;
            for (int axis = 0; axis < 3; ++axis)
                offset[axis] = float(wanted[axis] - double(present[axis]));
            PartPlacement::move(document, moved, offset);
        });
    });
    connect(m_move, &QPushButton::clicked, this, [this] {
        edit([this](Mesh::Document& document, PartPlacement::Parts const& moved) {
            UVector3<double> const by = m_offset->values();
            PartPlacement::move(document, moved, {float(by[0]), float(by[1]), float(by[2])});
        });
    });
    connect(m_rotate, &QPushButton::clicked, this, [this] {
        edit([this](Mesh::Document& document, PartPlacement::Parts const& turned) {
            PartPlacement::rotate(document, turned, m_angles->values());
        });
    });
    connect(m_drop, &QPushButton::clicked, this, [this] { edit(PartPlacement::dropToPlate); });
    connect(m_centre, &QPushButton::clicked, this, [this] { edit(PartPlacement::centreOnPlate); });
}

void PlacementPanel::connectShaping()
{
    for (bool const isBackwards : {false, true})
        connect(&quarterTurns(isBackwards), &AxisButtons::clicked, this,
                [this, isBackwards](int axis) {
                    edit([&](Mesh::Document& document, PartPlacement::Parts const& turned) {
                        PartPlacement::quarterTurn(document, turned, axis, isBackwards);
                    });
                });
    connect(m_mirror, &AxisButtons::clicked, this, [this](int axis) {
        edit([&](Mesh::Document& document, PartPlacement::Parts const& mirrored) {
            PartPlacement::mirror(document, mirrored, axis);
        });
    });
    connect(m_scale, &ScaleFields::wanted, this, [this](UVector3<double> const& factors) {
        edit([&](Mesh::Document& document, PartPlacement::Parts const& scaled) {
            PartPlacement::scale(document, scaled, factors);
        });
    });
}

void PlacementPanel::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}

void PlacementPanel::retranslate()
{
    setWindowTitle(tr("Placement"));
    m_positionGroup->setTitle(tr("Position"));
    m_moveGroup->setTitle(tr("Move By"));
    m_rotateGroup->setTitle(tr("Turn By (Degrees)"));
    m_reference->setItemText(Middle, tr("Middle of the box"));
    m_reference->setItemText(LowerCorner, tr("Lower corner of the box"));
    m_reference->setItemText(BottomMiddle, tr("Middle of the bottom"));
    m_reference->setAccessibleName(tr("Point that the position gives"));
    m_move->setText(tr("Move"));
    m_rotate->setText(tr("Turn"));
    m_turns->setTexts(tr("%1 +90°"), tr("Turn by 90 degrees about %1"));
    m_turnsBack->setTexts(tr("%1 −90°"), tr("Turn back by 90 degrees about %1"));
    m_scaleGroup->setTitle(tr("Size"));
    m_scale->retranslate();
    m_mirrorGroup->setTitle(tr("Mirror Along"));
    m_mirror->setTexts(QStringLiteral("%1"), tr("Mirror along %1"));
    m_drop->setText(tr("Drop to Plate"));
    m_centre->setText(tr("Centre on Plate"));
    refresh();
}

PartPlacement::Parts PlacementPanel::parts() const
{
    auto const* const document = dynamic_cast<Mesh::Document*>(m_follower->document());
    return document ? document->getSelectedMeshObjects() : PartPlacement::Parts();
}

QString PlacementPanel::whyInactive() const
{
    if (JobGuard::instance()->isBusy())
        return JobGuard::instance()->reason();
    if (PartPlacement::boxOf(parts()).Isnullptr())
        return tr("Select a part first.");
    return {};
}

UPoint3<float> PlacementPanel::referencePoint() const
{
    UBox3<float> const box = PartPlacement::boxOf(parts());
    UPoint3<float> point = PartPlacement::middleOf(box);
    if (m_reference->currentIndex() == LowerCorner)
        return box.min;
    if (m_reference->currentIndex() == BottomMiddle)
        point.Z() = box.MinZ();
    return point;
}

void PlacementPanel::refresh()
{
    QString const why = whyInactive();
    m_hint->setText(why);
    m_hint->setVisible(!why.isEmpty());
    m_content->setEnabled(why.isEmpty());
    m_content->setToolTip(why);
    m_drop->setIcon(panelIcon("app_drop"));
    m_centre->setIcon(panelIcon("app_plate"));
    UBox3<float> const box = PartPlacement::boxOf(parts());
    if (box.Isnullptr())
        return;
    UVector3<float> const size = box.max - box.min;
    m_scale->showSize({size.X(), size.Y(), size.Z()});
    UPoint3<float> const point = referencePoint();
    m_position->setValues({point.X(), point.Y(), point.Z()});
}
