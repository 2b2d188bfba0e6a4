// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/FlawSurvey.h"
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
    m_survey.reset();
    StageProgress stages(progress);
    stages.begin(0, 10, m_kernel->readMesh() ? m_kernel->readMesh()->triangles.size() : 0);
    auto const survey = std::make_shared<FlawSurvey>();
    survey->mesh = copyArrays(*m_kernel, Frame::World, stages);
    survey->errors = findErrors(survey->mesh, unsigned(type), stages, 10);
    m_counts = survey->errors.counts;
    if (type == ERROR_ALL)
        m_survey = survey;
    return m_counts.total();
}

}  // namespace Repair
