// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/document/Property.h"
#include "platform/geometry/UPoint3.h"

#include <utility>
#include <vector>

namespace Freecut {

/// The parameters of a cut tool. A record is a plain member of its tool, which it knows as its
/// container; nothing of it is stored.
class Property : public Base::Property
{
public:
    /// World points that define the tool; how many, and what each means, depends on its kind.
    std::vector<UPoint3<float>> const& getKeyPoints() const { return keyPoints; }
    std::vector<UPoint3<float>>& getKeyPoints() { return keyPoints; }
    void setKeyPoints(std::vector<UPoint3<float>> points) { keyPoints = std::move(points); }

protected:
    /// Whether the container is of the class of that name; false without one.
    bool isContainedIn(char const* className) const;

    std::vector<UPoint3<float>> keyPoints;
};

}  // namespace Freecut
