// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/parts/Surroundings.h"

#include <QStringList>

/// Measures as lines for a person, in the language and the unit of the interface.
namespace MeasuredText {

QString wall(std::optional<double> const& thickness);
/// The length of an edge, the area of a face.
QStringList of(Measuring::Surroundings const& surroundings);
QStringList between(Measuring::SurfacePoint const& a, Measuring::SurfacePoint const& b);

/// What a person has picked: the edge near the place, else its face, else the place itself.
struct End
{
    Measuring::SurfacePoint place;
    /// Null where nothing more is known.
    Measuring::Surroundings const* surroundings = nullptr;

    bool isEdge() const { return surroundings && surroundings->edge; }
    bool isFace() const { return surroundings && !surroundings->edge && surroundings->face; }
};

/// What is to be told beside between(): distances to edges and faces. None of two faces, of which
/// that tells, nor of two points.
QStringList betweenEnds(End const& a, End const& b);

}  // namespace MeasuredText
