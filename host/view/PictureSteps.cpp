// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/view/PictureSteps.h"

#include <QElapsedTimer>

#include <algorithm>
#include <utility>

namespace {

constexpr double stepMs = 15;
constexpr std::size_t firstBatch = 20000;
constexpr std::size_t leastBatch = 2000;
/// How often it is looked whether steps are still held back.
constexpr int heldBackMs = 50;

}  // namespace

PictureSteps::PictureSteps(Draw draw, Drawn drawn)
    : m_draw(std::move(draw)), m_drawn(std::move(drawn))
{
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { next(); });
}

void PictureSteps::begin(std::uint64_t fingerprint, std::size_t cost)
{
    if (isWorking() && fingerprint == m_fingerprint)
        return;
    m_fingerprint = fingerprint;
    m_cost = cost;
    m_done = 0;
    m_batch = firstBatch;
    m_timer.start(0);
}

bool PictureSteps::isWhole(std::uint64_t fingerprint) const
{
    return m_cost > 0 && m_done >= m_cost && fingerprint == m_fingerprint;
}

void PictureSteps::drop()
{
    m_timer.stop();
    m_cost = m_done = 0;
}

void PictureSteps::next()
{
    QElapsedTimer timer;
    timer.start();
    std::size_t const to = std::min(m_cost, m_done + m_batch);
    Outcome const outcome = m_draw(m_done, to);
    if (outcome == Outcome::Changed)
        drop();
    else if (outcome == Outcome::NotNow)
        m_timer.start(heldBackMs);
    else
        drawn(to, double(timer.nsecsElapsed()) / 1e6);
}

void PictureSteps::drawn(std::size_t to, double ms)
{
    bool const isFirst = m_done == 0;
    m_ms = isFirst ? 0 : m_ms + ms;
    m_timedCost = isFirst ? 0 : m_timedCost + (to - m_done);
    // By what the step took, at most twice as much next time.
    double const share = std::min(2.0, stepMs / std::max(ms, 0.1));
    m_batch = std::max(leastBatch, std::size_t(double(m_batch) * share));
    m_done = to;
    m_done < m_cost ? m_timer.start(0) : m_timer.stop();
    if (!isFirst)
        m_drawn(m_ms * double(m_cost) / double(m_timedCost), m_cost);
}
