// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cutjobs/common/CutFailure.h"
#include "platform/jobs/Exceptions.h"

#include <QString>

/// The command line asks for something that cannot be; the text says what to change.
class UsageError : public Mell::Exception
{
public:
    using Mell::Exception::Exception;
};

/// The cut has failed; the text says why.
class CutError : public Mell::Exception
{
public:
    using Mell::Exception::Exception;
    /// Of a worker: the reason in front of the message, which is the same for every failure.
    CutError(CutFailure const& failure, QString const& message)
        : Mell::Exception(failure.reason + (failure.reason.empty() ? "" : " ") +
                          message.toStdString()),
          m_repairMayHelp(failure.repairMayHelp)
    {}
    /// The same with a sentence more.
    CutError(CutError const& error, std::string const& advice)
        : Mell::Exception(error.what() + (' ' + advice)), m_repairMayHelp(error.m_repairMayHelp)
    {}

    /// What is wrong with the part may be mended by a repair.
    bool repairMayHelp() const { return m_repairMayHelp; }

private:
    bool m_repairMayHelp = false;
};
