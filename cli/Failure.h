// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

/// What a failure means to whoever has called the program.
struct Failure
{
    /// How the program ends.
    int status;
    /// One sentence or two, without the program's name.
    std::string message;
};

/// Inside a handler: what the exception in flight means, whatever its type.
Failure failureInFlight();

/// Writes a line to standard error, after the program's name: what went wrong, or, by remark(), what is
/// worth knowing. On a terminal the name is red or yellow, unless the environment has NO_COLOR or the
/// terminal is a dumb one.
void complain(std::string const& message);
void remark(std::string const& message);
