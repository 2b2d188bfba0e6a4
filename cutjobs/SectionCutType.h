// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/// What a section cut does with the two faces it makes.
enum SECTIONCUTTYPE
{
    SECTIONCUT_PLANE = 0,
    SECTIONCUT_PINHOLE = 1,
    SECTIONCUT_LAPJOINT = 2,
};
