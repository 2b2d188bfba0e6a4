// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

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
    CutError(QString const& reason, QString const& message)
        : Mell::Exception((reason.isEmpty() ? message : reason + ' ' + message).toStdString())
    {}
};
