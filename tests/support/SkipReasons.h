// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/// Why a test is passed over, in the same words everywhere: `./test` counts the tests by them.
inline constexpr char modelsAreMissing[] = "the real models are not in " MELL_TEST_MESHES;
inline constexpr char displayIsMissing[] = "a window needs a display: run this program by xvfb-run";
inline constexpr char admeshIsMissing[] = "admesh is not installed";
