// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/SurveyRunner.h"

#include "platform/jobs/Exceptions.h"

#include <memory>

namespace Freecut {

namespace {

SurveyRunner::Result resultOf(SurveyRunner::Requests const& requests, NewestWork::Poll const& poll)
{
    SurveyRunner::Result result;
    for (SurveyRequest const& request : requests)
        try {
            result.surveys.push_back(surveySection(request, poll));
        } catch (Mell::AbortException const&) {
            throw;
        } catch (Mell::Exception const& reason) {
            result.failures.emplace_back(reason.what());
        }
    return result;
}

}  // namespace

SurveyRunner::SurveyRunner()
{
    // Before those who follow look at the result.
    connect(this, &NewestWork::ready, this, [this] {
        if (!failure().isEmpty())
            m_result = {{}, {failure().toStdString()}};
    });
}

void SurveyRunner::ask(Requests requests)
{
    NewestWork::ask(
        [this, asked = std::make_shared<Requests const>(std::move(requests))](Poll const& poll) {
            auto const result = std::make_shared<Result>(resultOf(*asked, poll));
            return [this, result] { m_result = std::move(*result); };
        });
}

void SurveyRunner::drop()
{
    NewestWork::drop();
    m_result = {};
}

}  // namespace Freecut
