// SPDX-License-Identifier: GPL-3.0-or-later
#include "cutjobs/VolumeSurvey.h"

#include "cutjobs/ToolClosing.h"
#include "cutjobs/VolumePieces.h"
#include "cutjobs/common/Bodies.h"
#include "platform/jobs/Exceptions.h"

#include <exception>

namespace {

using Kernels = std::vector<std::unique_ptr<MeshKernel>>;

Kernels solidsOf(Freecut::SolidLoops const& tool)
{
    Kernels solids;
    for (auto& mesh : tool.solids())
        solids.push_back(std::make_unique<MeshKernel>(mesh.release()));
    return solids;
}

class Survey
{
public:
    Survey(Kernels const& solids, std::function<void()> const& poll) : m_solids(solids)
    {
        if (poll)
            m_progress = [&poll](int) { poll(); };
    }

    VolumeForecast of(VolumeRequest::Part const& part) const
    {
        VolumeForecast forecast;
        forecast.object = part.object;
        try {
            VolumePieces const pieces = cut(*part.kernel, forecast.contours);
            forecast.inside = countBodies(*pieces.first).bodies;
            forecast.outside = countBodies(*pieces.second).bodies;
            forecast.remark = pieces.remark(part.object, *part.kernel);
        } catch (Mell::AbortException const&) {
            throw;
        } catch (Mell::Exception const& reason) {
            return failed(part, reason.what());
        } catch (std::exception const& reason) {
            return failed(part, reason.what());
        }
        return forecast;
    }

private:
    static VolumeForecast failed(VolumeRequest::Part const& part, char const* reason)
    {
        VolumeForecast forecast;
        forecast.object = part.object;
        forecast.failure = reason;
        return forecast;
    }

    VolumePieces cut(MeshKernel const& part, ContourLines& contours) const
    {
        VolumePieces pieces;
        MeshKernel const& in = *m_solids.front();
        if (m_solids.size() == 1) {
            contours =
                splitWithContours(part, in, pieces.first.get(), pieces.second.get(), m_progress);
            return pieces;
        }
        contours = splitWithContours(part, in, pieces.first.get(), nullptr, m_progress);
        ContourLines const outer =
            splitWithContours(part, *m_solids.back(), nullptr, pieces.second.get(), m_progress);
        contours.insert(contours.end(), outer.begin(), outer.end());
        return pieces;
    }

    Kernels const& m_solids;
    std::function<void(int)> m_progress;
};

}  // namespace

std::vector<VolumeForecast> surveyVolumeCut(VolumeRequest const& request,
                                            std::function<void()> const& poll)
{
    Kernels const solids = solidsOf(request.tool);
    if (solids.empty() || solids.front()->readMesh()->triangles.empty())
        return {};
    for (auto const& solid : solids)
        closeTool(*solid, poll);
    Survey const survey(solids, poll);
    std::vector<VolumeForecast> forecasts;
    for (VolumeRequest::Part const& part : request.parts) {
        if (poll)
            poll();
        forecasts.push_back(survey.of(part));
    }
    return forecasts;
}
