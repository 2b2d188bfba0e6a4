// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UPoint2.h"
#include "platform/services/Intersect.h"
#include "tests/support/MeshBuilders.h"

#include <string>
#include <vector>

/// A cut and what came of it.
struct CutOutcome
{
    MeshKernel above;
    MeshKernel below;
    MeshKernel section;
};

/// A square of two triangles through `centre`, `reach` from the centre to each corner, its normal
/// along `normal`.
std::unique_ptr<MeshKernel> planeMesh(UPoint3<float> const& centre, UVector3<float> const& normal,
                                      float reach);

/// A level rectangle, its normal along Z or against it.
std::unique_ptr<MeshKernel> levelPlane(UPoint2<float> const& low, UPoint2<float> const& high,
                                       float height, bool isUpward = true);

/// What a mesh looks like to a file: the coordinates of its triangles, in order.
std::vector<float> bytesOf(MeshKernel const& kernel);

std::unique_ptr<CutOutcome> cut(MeshKernel& part, MeshKernel& plane,
                                std::function<void(int)> progress = {});
std::unique_ptr<CutOutcome> cut(Soup const& part, UPoint3<float> const& centre,
                                UVector3<float> const& normal);

struct NamedPlane
{
    std::string name;
    UPoint3<float> centre;
    UVector3<float> normal;
};

/// Planes across a mesh: along the axes and oblique, in the middle and off it, through vertices,
/// along edges and in faces. Under sanitizers some of them, others for every mesh.
std::vector<NamedPlane> planesAcross(Soup const& soup);
