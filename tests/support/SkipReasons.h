// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/support/Places.h"
#include "tests/support/Rounds.h"

/// Why a test is passed over, in the same words everywhere: `./test` counts the tests by them.
inline std::string const modelsAreMissing = isUnderSanitizers
                                                ? "real models take too long under sanitizers"
                                                : "the real models are not in " + realModelPath("");
inline constexpr char displayIsMissing[] = "a window needs a display: run this program by xvfb-run";
inline constexpr char admeshIsMissing[] = "admesh is not installed";
