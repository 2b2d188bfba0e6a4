// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTimer>

#include <cstdint>
#include <functional>

/// Where the drawing of an exact picture stands that is done in steps between events, so that the
/// window goes on answering. What is drawn lies in a buffer that nobody sees before it is whole.
///
/// thread  the user interface thread
class PictureSteps
{
public:
    enum class Outcome
    {
        Drawn,
        /// The time is needed for other pictures.
        NotNow,
        /// The picture is not the one that was begun any more.
        Changed
    };
    /// Draws what costs from `from` to `to`, and waits until it is drawn.
    using Draw = std::function<Outcome(std::size_t from, std::size_t to)>;
    /// Told after each step but the first, in which the device gets what is new.
    ///
    /// ms  that the whole picture is going to take
    using Drawn = std::function<void(double ms, std::size_t cost)>;

    PictureSteps(Draw draw, Drawn drawn);

    /// What is to be drawn, by what a DrawTrace tells of it. What has been drawn of the same picture
    /// stays.
    void begin(std::uint64_t fingerprint, std::size_t cost);
    bool isWhole(std::uint64_t fingerprint) const;
    std::uint64_t fingerprint() const { return m_fingerprint; }
    /// Steps are due.
    bool isWorking() const { return m_timer.isActive(); }
    /// The buffer is needed for another picture: begins anew.
    void lose() { m_done = 0; }
    /// Nobody waits for it any more.
    void drop();

private:
    void next();
    void drawn(std::size_t to, double ms);

    Draw m_draw;
    Drawn m_drawn;
    QTimer m_timer;
    std::uint64_t m_fingerprint = 0;
    std::size_t m_cost = 0;
    std::size_t m_done = 0;
    std::size_t m_batch = 0;
    double m_ms = 0;
    std::size_t m_timedCost = 0;
};
