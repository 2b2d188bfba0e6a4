// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/jobs/Exceptions.h"

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
};
