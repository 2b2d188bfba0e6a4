// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "connectors/ConnectorProgress.h"
#include "connectors/PinHoleParas.h"
#include "connectors/SectionContour.h"

class PlaneFrame;

/// Decides where on a section the connectors stand.
class PinPlacement
{
public:
    /// poll  called often; may be empty; what it throws passes
    PinPlacement(PinHoleParas const& paras, PlaneFrame const& frame,
                 ConnectorProgress::Poll poll = {})
        : m_paras(paras), m_frame(frame), m_poll(std::move(poll))
    {}

    /// The positions, every two at least the spacing apart, in order of placing.
    ///
    /// With isSidedis they lie at the side distance from a contour, on the section or less than the
    /// radius beside it. Otherwise they lie on the centre lines. The ends of each piece of these
    /// are more than the hole's radius and 0.1 mm from every contour; between them a line may pass
    /// a corner more closely, and with keepClear a position there is left out.
    ///
    /// contours  of the section, as extractSectionContours gives them
    /// cap       the section face that they were extracted from
    /// cost      O(n log n) for the contours and triangles, plus each line against each position
    std::vector<UPoint3<float>> computePositions(std::vector<SectionContour> const& contours,
                                                 MeshKernel* cap) const;

    /// Each contour moved inward, as closed lines. The contour of a hole moves into the hole.
    std::vector<std::vector<UPoint3<float>>> linesBesideContours(
        std::vector<SectionContour> const& contours) const;

private:
    static std::vector<std::vector<UPoint3<float>>> linesAt(
        float inset, std::vector<SectionContour> const& contours, PlaneFrame const& frame);
    std::vector<UPoint3<float>> besideContours(std::vector<SectionContour> const& contours,
                                               MeshKernel* cap) const;
    std::vector<UPoint3<float>> onCentreLines(std::vector<SectionContour> const& contours,
                                              MeshKernel* cap) const;

    PinHoleParas const& m_paras;
    PlaneFrame const& m_frame;
    ConnectorProgress::Poll m_poll;
};
