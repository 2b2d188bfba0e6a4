// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UPoint3.h"

#include <string>
#include <vector>

namespace Mesh {
class DocumentObject;
}

/// Something that a person must be told of a cut that has succeeded.
///
/// See docs/decisions/0011-what-a-cut-tells.md.
struct CutRemark
{
    enum class Kind
    {
        /// The piece is the part as it was.
        NothingCut,
        /// A gap that the cut leaves has taken a whole piece, or all of the part.
        GapTakesPiece,
        /// Connectors were asked for and there is no room for one.
        NoRoomForConnectors,
        /// A pin is cut short by the part's surface, or a hole opens through it.
        ConnectorLeavesPart,
        /// The connectors hold the faces apart by more than the gap that was asked for.
        FacesNeverMeet,
        /// Connectors leave a piece of more shells than the plain cut does.
        PieceFallsApart,
        /// What was asked for could not be, and something near to it was done.
        RequestChanged,
        /// Triangles of the part were turned or left out, so that the cut could be closed.
        PartPutInOrder,
        /// Rounding has left triangles of a piece that cross.
        PieceCrossesItself,
    };

    Mesh::DocumentObject* part;
    Kind kind;
    /// What is so, one sentence in the language of the interface. What to do about it depends on
    /// who asked for the cut, and is theirs to say.
    std::string text;
    /// Where, in world millimetres; may be empty.
    std::vector<UPoint3<float>> places;
};

using CutRemarks = std::vector<CutRemark>;
