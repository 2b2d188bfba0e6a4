// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "connectors/SectionSurvey.h"
#include "display/NewestWork.h"

#include <string>
#include <vector>

namespace Freecut {

/// Surveys sections in the background; the newest request wins.
///
/// thread  the user interface thread; nothing of it waits but finish() and the destructor
class SurveyRunner : public NewestWork
{
    Q_OBJECT

public:
    SurveyRunner();

    using Requests = std::vector<SurveyRequest>;
    struct Result
    {
        /// Of the parts that could be surveyed, in the order of the requests.
        std::vector<SectionSurvey> surveys;
        /// Why others could not; the reason alone where the whole request failed.
        std::vector<std::string> failures;
    };

    /// Asks for a survey of these parts in place of all that was asked for before.
    void ask(Requests requests);
    /// Forgets what was asked for, and what is known.
    void drop();

    /// Of the newest request that is done.
    Result const& result() const { return m_result; }

private:
    Result m_result;
};

}  // namespace Freecut
