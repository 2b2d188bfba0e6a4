// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/// How many threads the services may use together. Results do not depend on it.
namespace Threads {

/// Limits the services of this process from now on; a value below 1 takes the limit away. Called on
/// the main thread while no service runs.
void setThreadCount(int count);

/// The number of threads that services may use now.
int threadCount();

}  // namespace Threads
