// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/RigidMotion.h"

namespace Freecut {

namespace {

using Vector = UVector3<double>;

template <typename Triple>
Vector inDouble(Triple const& v)
{
    return {double(v.X()), double(v.Y()), double(v.Z())};
}

}  // namespace

Axes Axes::ofView(UVector3<float> const& direction, UVector3<float> const& up)
{
    Vector towards = inDouble(direction);
    towards.Normalize();
    Vector across = inDouble(up) * towards;
    across.Normalize();
    return {{across, towards * across, towards}};
}

RigidMotion::RigidMotion(UPoint3<float> const& about, Axes const& from, Axes const& to)
{
    for (std::size_t row = 0; row < 3; ++row)
        for (std::size_t column = 0; column < 3; ++column) {
            double sum = 0;
            for (std::size_t i = 0; i < 3; ++i)
                sum += to.columns[i][int(row)] * from.columns[i][int(column)];
            m_turn[3 * row + column] = sum;
        }
    Vector const pivot = inDouble(about);
    m_shift = pivot - turned(pivot);
}

Vector RigidMotion::turned(Vector const& v) const
{
    auto const row = [&](std::size_t r) {
        return m_turn[3 * r] * v.X() + m_turn[3 * r + 1] * v.Y() + m_turn[3 * r + 2] * v.Z();
    };
    return {row(0), row(1), row(2)};
}

UPoint3<float> RigidMotion::operator()(UPoint3<float> const& point) const
{
    Vector const moved = turned(inDouble(point)) + m_shift;
    return {float(moved.X()), float(moved.Y()), float(moved.Z())};
}

RigidMotion RigidMotion::then(RigidMotion const& next) const
{
    RigidMotion both;
    for (std::size_t row = 0; row < 3; ++row)
        for (std::size_t column = 0; column < 3; ++column) {
            double sum = 0;
            for (std::size_t i = 0; i < 3; ++i)
                sum += next.m_turn[3 * row + i] * m_turn[3 * i + column];
            both.m_turn[3 * row + column] = sum;
        }
    both.m_shift = next.turned(m_shift) + next.m_shift;
    return both;
}

RigidMotion RigidMotion::inverse() const
{
    RigidMotion back;
    for (std::size_t row = 0; row < 3; ++row)
        for (std::size_t column = 0; column < 3; ++column)
            back.m_turn[3 * row + column] = m_turn[3 * column + row];
    back.m_shift = -back.turned(m_shift);
    return back;
}

}  // namespace Freecut
