// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/PlanePicture.h"

namespace Freecut {

namespace {

void append(std::vector<float>& vertices, UPoint3<float> const& point)
{
    vertices.insert(vertices.end(), {point.X(), point.Y(), point.Z()});
}

/// Ticks across two opposite sides, joined to one quad, by the midpoints of the sides.
void appendTicks(std::vector<float>& vertices, UPoint3<float> const& corner,
                 UPoint3<float> const& middle, UPoint3<float> const& opposite, float tick)
{
    UVector3<float> along = middle - corner;
    along.Normalize();
    UVector3<float> const half = along * tick * 0.5f;
    append(vertices, middle - half);
    append(vertices, middle + half);
    append(vertices, opposite + half);
    append(vertices, opposite - half);
}

}  // namespace

float divideSide(float length, float& count)
{
    if (length <= 20) {
        count = 2;
        return length * 0.1f;
    }
    if (length > 30)
        count = float((int(length / 15) + int(length / 10)) / 2);
    return 2;
}

std::vector<float> verticesOfPlane(PlaneProperty const& plane, float rows, float columns,
                                   float tickAlongRows, float tickAlongColumns)
{
    std::vector<UPoint3<float>> const& key = plane.getKeyPoints();
    UPoint3<float> const& a = key[1];
    std::vector<float> vertices;
    appendTicks(vertices, a, key[5], key[7], tickAlongRows);
    appendTicks(vertices, a, key[6], key[8], tickAlongColumns);

    UVector3<float> const side1 = key[2] - key[1];
    UVector3<float> const side2 = key[3] - key[2];
    for (float i = 0; i < rows; ++i) {
        for (float j = 0; j < columns; ++j) {
            UPoint3<float> const corner = a + side1 * i / rows + side2 * j / columns;
            UPoint3<float> const next = corner + side1 / rows;
            append(vertices, corner);
            append(vertices, next);
            append(vertices, next + side2 / columns);
            append(vertices, corner + side2 / columns);
        }
    }
    return vertices;
}

}  // namespace Freecut
