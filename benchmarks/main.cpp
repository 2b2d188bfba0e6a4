// SPDX-License-Identifier: GPL-3.0-or-later
#include <benchmark/benchmark.h>

BENCHMARK_MAIN();
