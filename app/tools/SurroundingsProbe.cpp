// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/tools/SurroundingsProbe.h"

#include <memory>
#include <new>
#include <utility>

namespace {

/// Nothing if the memory does not suffice.
Measuring::Surroundings foundAt(MeshKernel const& part, Measuring::SurfacePoint const& at,
                                double reach)
{
    try {
        return Measuring::surroundingsOf(part, at, reach);
    } catch (std::bad_alloc const&) {
        return {};
    }
}

}  // namespace

SurroundingsProbe::SurroundingsProbe()
{
    m_thread.setMaxThreadCount(1);
}

SurroundingsProbe::~SurroundingsProbe()
{
    m_thread.clear();
    m_thread.waitForDone();
}

void SurroundingsProbe::ask(int number, MeshKernel const& part, Measuring::SurfacePoint const& at,
                            double reach)
{
    m_thread.start([this, round = m_round, number, at, reach,
                    kernel = std::make_shared<MeshKernel const>(part)] {
        auto surroundings = foundAt(*kernel, at, reach);
        QMetaObject::invokeMethod(
            this,
            [this, round, number, found = std::move(surroundings)] { enter(round, number, found); },
            Qt::QueuedConnection);
    });
}

void SurroundingsProbe::clear()
{
    m_thread.clear();
    m_found.clear();
    ++m_round;
}

Measuring::Surroundings const* SurroundingsProbe::at(int number) const
{
    auto const place = m_found.find(number);
    return place == m_found.end() ? nullptr : &place->second;
}

void SurroundingsProbe::enter(int round, int number, Measuring::Surroundings surroundings)
{
    if (round != m_round)
        return;
    m_found[number] = std::move(surroundings);
    emit found();
}
