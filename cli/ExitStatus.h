// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/// How the program ends. After a cancel it is 128 and the signal's number, 130 for Ctrl-C.
enum ExitStatus
{
    EXIT_DONE = 0,
    EXIT_CUT_FAILED = 1,
    EXIT_WRONG_USAGE = 2,
    EXIT_FILE_FAILED = 3,
    /// The pieces are written, but one of them is not closed.
    EXIT_PIECE_OPEN = 4,
};
