// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/MeshErrors.h"
#include "platform/services/Repair.h"

#include <cassert>

namespace Repair {

EvaluateErrors::EvaluateErrors(MeshKernel* kernel) : m_kernel(kernel)
{
    assert(kernel);
}

std::size_t EvaluateErrors::evaluate(ErrorType type, bool firstOnly, bool parallel,
                                     std::function<void(int)> progress)
{
    m_counts = {};
    StageProgress stages(progress);
    stages.begin(0, 10, m_kernel->readMesh() ? m_kernel->readMesh()->triangles.size() : 0);
    MeshArrays const mesh = copyArrays(*m_kernel, Frame::World, stages);
    m_counts = findErrors(mesh, unsigned(type), stages, 10).counts;
    return m_counts.total();
}

}  // namespace Repair
