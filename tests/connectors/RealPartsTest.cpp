// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/Intersect.h"
#include "platform/services/Repair.h"
#include "tests/connectors/CutterRun.h"
#include "tests/support/MadeModels.h"
#include "tests/support/Rounds.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>

namespace {

UBox3<float> boxOf(Soup const& soup)
{
    UBox3<float> box;
    for (auto const& p : soup.points)
        box.Add(p);
    return box;
}

/// The part with a diagonal of 150 mm, so that connectors find room.
Soup sized(Soup const& soup)
{
    UBox3<float> const box = boxOf(soup);
    float const s = 150 / (box.max - box.min).GetLength();
    float const values[16] = {s, 0, 0, 0, 0, s, 0, 0, 0, 0, s, 0, 0, 0, 0, 1};
    return moved(soup, UMatrix4<float>(values));
}

/// Solids that cross themselves cannot be combined with others.
bool crossesItself(Soup const& soup)
{
    auto const kernel = kernelOf(soup);
    return Repair::EvaluateErrors(kernel.get())
               .evaluate(Repair::EvaluateErrors::ERROR_INTERSECTIONS, true, true, {}) > 0;
}

/// Across the middle, upright and oblique.
std::vector<std::unique_ptr<Freecut::PlaneGraphicObject>> planesAcross(UBox3<float> const& box)
{
    UPoint3<float> const centre = (box.min + box.max) * 0.5f;
    std::vector<std::unique_ptr<Freecut::PlaneGraphicObject>> planes;
    planes.push_back(planeAt(centre, {0, 0, 1}, {1, 0, 0}));
    planes.push_back(planeAt(centre, {0.6f, 0.8f, 0}, {-0.48f, 0.36f, 0.8f}));
    return planes;
}

class RealParts : public ::testing::Test
{
protected:
    void SetUp() override
    {
        for (NamedSoup const& mesh : stoutModels(25000))
            if (!crossesItself(mesh.soup))
                m_parts.push_back({mesh.name, sized(mesh.soup)});
    }

    /// gap           between the faces
    /// hasConnector  whether every section has room for one
    template <typename Cutter, typename Paras>
    void cutAll(Paras const& paras, float gap, bool hasConnector = true)
    {
        std::size_t number = 0;
        for (auto const& [name, part] : m_parts)
            for (auto const& plane : planesAcross(boxOf(part))) {
                if (!isTried(number++))
                    continue;
                SCOPED_TRACE(testing::Message()
                             << name << " normal " << frameOf(*plane).normal().X() << " "
                             << frameOf(*plane).normal().Y());
                Pieces const pieces = cutWith<Cutter>(paras, part, *plane);
                expectFit(part, pieces, frameOf(*plane).normal() * gap);
                if (hasConnector) {
                    EXPECT_GT(std::abs(volumeOf(pieces.lower) - volumeBelow(part, *plane)), 10);
                }
            }
    }

    std::vector<NamedSoup> m_parts;
};

PinHoleParas pins(bool isSidedis, bool isPin)
{
    PinHoleParas p;
    p.isSidedis = isSidedis;
    p.isPin = isPin;
    p.faceclearance = 0.1f;
    p.sideclearance = 0.15f;
    p.topclearance = 0.2f;
    return p;
}

}  // namespace

TEST_F(RealParts, PiecesWithPinsFit)
{
    cutAll<PinHoleCutter>(pins(false, true), 0.1f);
}

TEST_F(RealParts, PiecesWithPinsBesideTheContoursFit)
{
    cutAll<PinHoleCutter>(pins(true, true), 0.1f);
}

TEST_F(RealParts, PiecesWithHolesFit)
{
    cutAll<PinHoleCutter>(pins(true, false), 0.1f);
}

TEST_F(RealParts, PiecesWithALapJointFit)
{
    for (int basedOn : {0, 1, 2}) {
        LapJointParas paras;
        paras.basedOn = basedOn;
        // Inner contours are rare.
        cutAll<LapJointCutter>(paras, paras.frontClearance, basedOn != 1);
    }
}
