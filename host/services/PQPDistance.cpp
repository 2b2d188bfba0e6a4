// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/PQPDistance.h"

#include "host/services/DistanceTree.h"

#include <cmath>

struct PQPDistance::Tree
{
    DistanceTree triangles;
};

PQPDistance::PQPDistance(MeshKernel* kernel, std::function<void(int)> progress)
{
    StageProgress stages(progress);
    stages.begin(0, 20, kernel->readMesh()->triangles.size());
    MeshArrays const mesh = copyArrays(*kernel, Frame::World, stages);
    stages.begin(20, 100, 1);
    m_tree.reset(new Tree{DistanceTree(mesh, stages)});
    stages.finish();
}

PQPDistance::~PQPDistance() = default;

double PQPDistance::distance(UPoint3<float> point) const
{
    return std::sqrt(m_tree->triangles.squaredDistance(point));
}
