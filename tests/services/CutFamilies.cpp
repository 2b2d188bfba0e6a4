// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/services/CutFamilies.h"

#include "tests/support/Rounds.h"

#include <cmath>

std::unique_ptr<MeshKernel> planeMesh(UPoint3<float> const& centre, UVector3<float> const& normal,
                                      float reach)
{
    UVector3<float> n = normal;
    n.Normalize();
    UVector3<float> u =
        std::abs(n.Z()) < 0.9f ? n * UVector3<float>(0, 0, 1) : n * UVector3<float>(0, 1, 0);
    u.Normalize();
    UVector3<float> const v = n * u;
    Soup soup;
    soup.points = {centre + u * reach, centre + v * reach, centre - u * reach, centre - v * reach};
    soup.triangles = {{0, 1, 2}, {2, 3, 0}};
    return kernelOf(soup);
}

std::unique_ptr<MeshKernel> levelPlane(UPoint2<float> const& low, UPoint2<float> const& high,
                                       float height, bool isUpward)
{
    Soup soup;
    soup.points = {{low.X(), low.Y(), height},
                   {high.X(), low.Y(), height},
                   {high.X(), high.Y(), height},
                   {low.X(), high.Y(), height}};
    soup.triangles = {{0, 1, 2}, {2, 3, 0}};
    if (!isUpward)
        soup.flip();
    return kernelOf(soup);
}

std::vector<float> bytesOf(MeshKernel const& kernel)
{
    std::vector<float> coordinates;
    auto const mesh = kernel.readMesh();
    for (auto const* const triangle : mesh->triangles)
        for (int i = 0; i < 3; ++i)
            for (int axis = 0; axis < 3; ++axis)
                coordinates.push_back(triangle->cP(i)[axis]);
    return coordinates;
}

std::unique_ptr<CutOutcome> cut(MeshKernel& part, MeshKernel& plane,
                                std::function<void(int)> progress)
{
    auto outcome = std::make_unique<CutOutcome>();
    Intersect::cutByPlane(&part, &plane, &outcome->above, &outcome->below, &outcome->section,
                          std::move(progress), true);
    return outcome;
}

std::unique_ptr<CutOutcome> cut(Soup const& part, UPoint3<float> const& centre,
                                UVector3<float> const& normal)
{
    auto const kernel = kernelOf(part);
    UBox3<float> box = kernel->GetBox();
    box.Add(centre);
    auto const plane = planeMesh(centre, normal, 3 * (box.max - box.min).GetLength());
    return cut(*kernel, *plane);
}

std::vector<NamedPlane> planesAcross(Soup const& soup)
{
    UBox3<float> box;
    for (auto const& p : soup.points)
        box.Add(p);
    UPoint3<float> const middle = (box.min + box.max) * 0.5f;
    std::vector<NamedPlane> planes;
    UVector3<float> const axes[] = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}, {0, 0, -1}};
    for (auto const& axis : axes) {
        planes.push_back({"axis in the middle", middle, axis});
        planes.push_back({"axis off the middle", middle + (box.max - box.min) * 0.173f, axis});
        planes.push_back({"axis in the face of the box", box.max, axis});
    }
    planes.push_back({"oblique", middle, {1, 2, 3}});
    planes.push_back({"nearly level", middle, {0.001f, 0.002f, 1}});
    auto const at = [&](std::size_t i) {
        return soup.points[(i * 2654435761u) % soup.points.size()];
    };
    for (std::size_t i = 0; i < 6; ++i) {
        planes.push_back({"axis through a vertex", at(i), axes[i % 4]});
        planes.push_back({"oblique through a vertex", at(i), {0.3f, -0.5f, 0.8f}});
        auto const& t = soup.triangles[(i * 40503u) % soup.triangles.size()];
        auto const along = soup.points[t[1]] - soup.points[t[0]];
        planes.push_back(
            {"along an edge", soup.points[t[0]], along * UVector3<float>(0.2f, 0.7f, 0.4f)});
        planes.push_back(
            {"in a face", soup.points[t[0]], along * (soup.points[t[2]] - soup.points[t[0]])});
    }
    std::size_t number = soup.triangles.size();
    std::erase_if(planes, [&](NamedPlane const&) { return !isTried(number++); });
    return planes;
}
