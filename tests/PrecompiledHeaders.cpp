// SPDX-License-Identifier: GPL-3.0-or-later
// Nothing but the place where the precompiled header of all tests is made; see CMakeLists.txt.
