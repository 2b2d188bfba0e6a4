// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/view/PartSpread.h"

#include "host/view/MeshViewProvider.h"
#include "platform/document/CutMemory.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>

namespace {

using Vector = UVector3<double>;

struct Range
{
    double low = std::numeric_limits<double>::infinity();
    double high = -low;
    double middle() const { return (low + high) / 2; }
    void add(Range const& other)
    {
        low = std::min(low, other.low);
        high = std::max(high, other.high);
    }
};

struct Part
{
    Mesh::ViewProvider* provider;
    UBox3<float> box;
    Mesh::CutMemory memory;
};

Vector middleOf(UBox3<float> const& box)
{
    Vector middle;
    for (int axis = 0; axis < 3; ++axis)
        middle[axis] = (double(box.min[axis]) + double(box.max[axis])) / 2;
    return middle;
}

/// Whether two directions are one, up to their sign.
bool isSame(Vector const& a, Vector const& b)
{
    constexpr double sameDirection = 0.9999;
    return std::abs(a | b) > sameDirection;
}

/// Where a part lies along the normal of cuts: within its box, and on its side of each of them. The
/// box alone would not do: those of the halves of a box that was cut from edge to edge are the same.
Range rangeAlong(Vector const& normal, Part const& part)
{
    double const middle = normal | middleOf(part.box);
    double half = 0;
    for (int axis = 0; axis < 3; ++axis)
        half +=
            std::abs(normal[axis]) * (double(part.box.max[axis]) - double(part.box.min[axis])) / 2;
    Range range{middle - half, middle + half};
    for (Mesh::CutFace const& face : part.memory.faces) {
        if (!isSame(face.normal, normal))
            continue;
        if ((face.normal | normal) > 0)
            range.high = std::max(range.low, std::min(range.high, face.distance));
        else
            range.low = std::min(range.high, std::max(range.low, -face.distance));
    }
    return range;
}

std::vector<Vector> normalsOf(std::vector<Part*> const& family)
{
    std::vector<Vector> normals;
    for (Part const* const part : family)
        for (Mesh::CutFace const& face : part->memory.faces)
            if (std::none_of(normals.begin(), normals.end(),
                             [&](Vector const& known) { return isSame(known, face.normal); }))
                normals.push_back(face.normal);
    return normals;
}

/// Pieces that a drawn shape has made go along their ways: where they are spread by as much as they
/// are high together they are clear of each other.
void spreadAlongWays(std::vector<Part*> const& family, double share)
{
    for (Part const* const part : family)
        for (Vector const& way : part->memory.ways) {
            Range all;
            for (Part const* const each : family)
                all.add(rangeAlong(way, *each));
            part->provider->setApart(part->provider->apart() +
                                     way * (share * (all.high - all.low) / 2));
        }
}

/// Pieces of one part go along the normals of its cuts, and along their ways; the family goes as one
/// part does.
void spreadFamily(std::vector<Part*> const& family, Vector const& centre, double share)
{
    UBox3<float> box;
    for (Part const* const part : family)
        box.Add(part->box);
    Vector const together = (middleOf(box) - centre) * share;
    for (Part const* const part : family)
        part->provider->setApart(together);
    if (family.size() < 2)
        return;
    for (Vector const& normal : normalsOf(family)) {
        Range all;
        for (Part const* const part : family)
            all.add(rangeAlong(normal, *part));
        for (Part const* const part : family)
            part->provider->setApart(
                part->provider->apart() +
                normal * (share * (rangeAlong(normal, *part).middle() - all.middle())));
    }
    spreadAlongWays(family, share);
}

std::vector<Part> shownParts(std::vector<Base::ViewProvider*> const& providers, double share)
{
    std::vector<Part> shown;
    for (Base::ViewProvider* const provider : providers) {
        auto* const view = dynamic_cast<Mesh::ViewProvider*>(provider);
        if (!view)
            continue;
        view->setApart({});
        auto const* const part = dynamic_cast<Mesh::DocumentObject*>(view->getObject());
        if (share == 0 || !part || !view->isShow() || part->getBoundingBox().Isnullptr())
            continue;
        shown.push_back({view, part->getBoundingBox(), Mesh::cutMemoryOf(*part)});
    }
    return shown;
}

}  // namespace

void spreadParts(std::vector<Base::ViewProvider*> const& providers, double share)
{
    std::vector<Part> parts = shownParts(providers, share);
    UBox3<float> all;
    std::map<unsigned, std::vector<Part*>> families;
    for (Part& part : parts) {
        all.Add(part.box);
        if (part.memory.family == 0)
            continue;
        families[part.memory.family].push_back(&part);
    }
    for (auto const& [number, family] : families)
        spreadFamily(family, middleOf(all), share);
    double lowest = std::numeric_limits<double>::infinity();
    for (Part& part : parts) {
        if (part.memory.family == 0)
            spreadFamily({&part}, middleOf(all), share);
        lowest = std::min(lowest, part.provider->apart().Z());
    }
    for (Part const& part : parts)
        part.provider->setApart(part.provider->apart() - Vector(0, 0, lowest));
}
