// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/batch/BatchJob.h"

#include <string>
#include <vector>

/// Megabytes that a job will take at its peak, by its command and how many triangles its files seem to
/// have; files that cannot be looked at count as empty. Parts of ordinary shape take two thirds to one
/// and a half of it, as benchmarks/batch-memory shows.
double neededMemoryMb(BatchJob const& job, std::vector<std::string> const& files);
