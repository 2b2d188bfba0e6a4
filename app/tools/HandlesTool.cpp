// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/tools/HandlesTool.h"

#include "app/jobs/JobGuard.h"
#include "app/parts/PartPlacement.h"
#include "app/view/OverlayLabel.h"
#include "platform/ui/DisplayUnit.h"
#include "platform/ui/Quantity.h"
#include "platform/view/ClickReach.h"
#include "platform/view/GLView.h"
#include "platform/view/OverlayLines.h"

#include <QCoreApplication>
#include <QMouseEvent>

#include <cmath>
#include <numbers>

namespace {

constexpr double stepMm = 1, stepDegrees = 15;
constexpr unsigned axisColors[] = {0xd23c3cff, 0x2f9e44ff, 0x2f6fdcff};
constexpr unsigned activeColor = 0xffd000ff, rimColor = 0x303030ff;
constexpr float activeWidth = 4, plainWidth = 2.5f;

UMatrix4<float> operationOf(int handle, UPoint3<float> const& pivot, double amount)
{
    UMatrix4<float> matrix;
    int const axis = HandleShape::axisOf(handle);
    if (!HandleShape::isRing(handle)) {
        matrix(axis, 3) = float(amount);
        return matrix;
    }
    int const i = (axis + 1) % 3, k = (axis + 2) % 3;
    double const angle = amount * std::numbers::pi / 180;
    double const c = std::cos(angle), s = std::sin(angle);
    matrix(i, i) = matrix(k, k) = float(c);
    matrix(i, k) = float(-s);
    matrix(k, i) = float(s);
    matrix(i, 3) = float(pivot[i] - c * pivot[i] + s * pivot[k]);
    matrix(k, 3) = float(pivot[k] - s * pivot[i] - c * pivot[k]);
    return matrix;
}

QString amountText(int handle, double amount)
{
    QString const sign = amount > 0 ? QStringLiteral("+") : QString();
    QString number;
    if (HandleShape::isRing(handle))
        number = QLocale().toString(amount, 'f', 1) + QChar(0xb0);
    else
        number = Base::Quantity::toUserString(amount, Base::Unit::length, 'f',
                                              DisplayUnit::instance().decimals(), ' ', false);
    return QStringLiteral("%1  %2%3")
        .arg(QChar('X' + HandleShape::axisOf(handle)))
        .arg(sign, number);
}

}  // namespace

constinit Base::Type HandlesTool::classTypeId;

void HandlesTool::init()
{
    if (classTypeId.isBad())
        initSubclass(classTypeId, name, "Base::AbstractMouseSelection", create);
}

void* HandlesTool::create()
{
    return static_cast<BaseClass*>(new HandlesTool);
}

HandlesTool::HandlesTool() : m_noHistory(*this)
{
    setHistory(&m_noHistory);
}

HandlesTool::~HandlesTool()
{
    delete m_label;
}

Base::Type HandlesTool::getTypeId() const
{
    return classTypeId;
}

std::string HandlesTool::getClassName() const
{
    return name;
}

QString HandlesTool::NoHistory::whyNoUndo() const
{
    return QCoreApplication::translate("HandlesTool", "Let go of the handle first.");
}

void HandlesTool::terminate()
{
    putBack();
    delete m_label;
}

Mesh::Document* HandlesTool::document() const
{
    return dynamic_cast<Mesh::Document*>(m_view->getDocument());
}

HandlesTool::Parts HandlesTool::parts() const
{
    Mesh::Document const* const parts = document();
    return parts ? parts->getSelectedMeshObjects() : Parts();
}

std::optional<UPoint3<float>> HandlesTool::pivot() const
{
    if (m_drag)
        return m_drag->pivot;
    UBox3<float> const box = PartPlacement::boxOf(parts());
    if (box.Isnullptr() || JobGuard::instance()->isBusy())
        return {};
    return PartPlacement::middleOf(box);
}

int HandlesTool::mousePressEvent(QMouseEvent* event)
{
    m_isPressed = event->button() == Qt::LeftButton;
    m_press = event->pos();
    auto const middle = pivot();
    if (!m_isPressed || m_drag || !middle)
        return 0;
    int const handle = HandleShape(*m_view, *middle).at(event->pos());
    if (handle < 0 || !begin(handle, event->pos()))
        return 0;
    capturePress([this] { putBack(); });
    return 1;
}

bool HandlesTool::begin(int handle, QPoint position)
{
    UPoint3<float> const middle = *pivot();
    auto const value = HandleShape(*m_view, middle).valueAt(handle, position);
    if (!value)
        return false;
    m_drag = std::make_unique<Drag>(Drag{handle, middle, *value, 0, 0, {}});
    for (Mesh::DocumentObject* const part : parts()) {
        part->startEditing();
        m_drag->followers.push_back({part, part->getMatrix()});
    }
    label(position);
    return true;
}

int HandlesTool::mouseMoveEvent(QMouseEvent* event)
{
    if (m_drag) {
        follow(event->pos(), event->modifiers() & Qt::ShiftModifier);
        return 1;
    }
    if (isBeyondClick(event->pos() - m_press))
        m_isPressed = false;
    auto const middle = pivot();
    if (event->buttons() == Qt::NoButton)
        hover(middle ? HandleShape(*m_view, *middle).at(event->pos()) : -1);
    return 0;
}

int HandlesTool::mouseReleaseEvent(QMouseEvent* event)
{
    if (m_drag) {
        if (event->button() == Qt::LeftButton)
            finish();
        else if (event->button() == Qt::NoButton)
            putBack();
        return 1;
    }
    if (!m_isPressed || event->button() != Qt::LeftButton)
        return 0;
    m_isPressed = false;
    bool const isAdding = event->modifiers() & Qt::ControlModifier;
    selectModel(event->x(), event->y(), isAdding, isAdding, true, false, false);
    m_view->redraw();
    return 1;
}

void HandlesTool::follow(QPoint position, bool isFree)
{
    if (!areUntouched())
        return putBack();
    bool const isRing = HandleShape::isRing(m_drag->handle);
    auto const value = HandleShape(*m_view, m_drag->pivot).valueAt(m_drag->handle, position);
    if (!value)
        return;
    double const way = *value - m_drag->last;
    m_drag->last = *value;
    m_drag->sum += isRing ? std::remainder(way, 360) : way;
    double const step = isRing ? stepDegrees : stepMm;
    show(isFree ? m_drag->sum : std::round(m_drag->sum / step) * step);
    label(position);
}

void HandlesTool::show(double amount)
{
    // No negative zero.
    m_drag->shown = amount + 0.0;
    UMatrix4<float> const operation = operationOf(m_drag->handle, m_drag->pivot, amount);
    for (Follower& follower : m_drag->followers) {
        follower.part->loadMatrixWithEditing(operation);
        follower.shown = follower.part->getMatrix();
    }
    m_view->redraw();
}

/// Whether the parts are there, and where the drag has put them.
bool HandlesTool::areUntouched() const
{
    Mesh::Document const* const parts = document();
    return parts && std::ranges::all_of(m_drag->followers, [&](Follower const& follower) {
               return parts->contains(follower.part) &&
                      follower.part->getMatrix() == follower.shown;
           });
}

void HandlesTool::putBack()
{
    if (!m_drag)
        return;
    Mesh::Document const* const parts = document();
    for (Follower const& follower : m_drag->followers) {
        if (!parts || !parts->contains(follower.part))
            continue;
        if (follower.part->getMatrix() == follower.shown)
            follower.part->loadMatrixWithEditing(UMatrix4<float>());
        follower.part->finishEditing();
    }
    m_drag.reset();
    delete m_label;
    m_view->redraw();
}

void HandlesTool::finish()
{
    bool const isOurs = areUntouched();
    Drag const done = *m_drag;
    putBack();
    if (!isOurs || done.shown == 0 || JobGuard::instance()->isBusy())
        return;
    Parts parts;
    for (Follower const& follower : done.followers)
        parts.push_back(follower.part);
    UVector3<double> amount;
    amount[HandleShape::axisOf(done.handle)] = done.shown;
    if (HandleShape::isRing(done.handle))
        PartPlacement::rotate(*document(), parts, amount);
    else
        PartPlacement::move(*document(), parts,
                            {float(amount.X()), float(amount.Y()), float(amount.Z())});
}

void HandlesTool::hover(int handle)
{
    if (handle == m_hovered)
        return;
    m_hovered = handle;
    m_view->redraw();
}

void HandlesTool::label(QPoint position)
{
    if (!m_label)
        m_label = new OverlayLabel(*m_view, "HandleAmount");
    m_label->setText(amountText(m_drag->handle, m_drag->shown));
    m_label->putBeside(position);
    m_label->show();
}

void HandlesTool::draw()
{
    auto const middle = pivot();
    if (!middle)
        return;
    HandleShape const shape(*m_view, *middle);
    for (int handle = 0; handle < HandleShape::count; ++handle) {
        bool const isActive = m_drag ? m_drag->handle == handle : m_hovered == handle;
        if (m_drag && !isActive)
            continue;
        auto const lines = shape.lines(handle);
        Base::OverlayLook look;
        look.isHiddenByParts = false;
        // A rim keeps it off parts of its own colour.
        look.rgba = rimColor;
        look.width = activeWidth + 2.5f;
        if (isActive)
            Base::drawLines(*m_view, lines, look);
        look.rgba = isActive ? activeColor : axisColors[HandleShape::axisOf(handle)];
        look.width = isActive ? activeWidth : plainWidth;
        Base::drawLines(*m_view, lines, look);
    }
}
