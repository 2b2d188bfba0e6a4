// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/// Work on threads of its own beside a window, which goes on answering and drawing meanwhile.
namespace BackgroundWork {

/// Whether giveWay() does anything; it does not before this is called. Programs with a window turn it
/// on at their start.
///
/// thread  any
void setGivingWay(bool isOn);

/// Has the calling thread, and those that share its parallel loops from now on, stand back behind
/// threads that draw and answer where there are not cores enough for all. It cannot be taken back, so
/// it is not for a thread that does anything else. Linux alone; elsewhere nothing changes.
void giveWay();

}  // namespace BackgroundWork
