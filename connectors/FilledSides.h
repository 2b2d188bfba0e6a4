// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cutjobs/common/CutRemark.h"

/// Which sides of a plane cut have triangles.
struct FilledSides
{
    bool lower;
    bool upper;

    bool isUncut() const { return lower != upper; }
    bool operator==(FilledSides const&) const = default;
};

/// Says what became of a part between the base plane and the moved one.
///
/// bounded  the plane ends at its rectangle
void remarkOnCuts(CutRemarks& remarks, Mesh::DocumentObject* part, FilledSides const& atBase,
                  FilledSides const& atOffset, bool bounded);
