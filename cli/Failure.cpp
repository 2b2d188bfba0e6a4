// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Failure.h"

#include "cli/Cancel.h"
#include "cli/Errors.h"
#include "cli/ExitStatus.h"
#include "host/formats/FileError.h"

#include <cstdio>
#include <new>

Failure failureInFlight()
{
    try {
        throw;
    } catch (Mell::AbortException const&) {
        return {Cancel::exitStatus(), "Cancelled."};
    } catch (UsageError const& e) {
        return {EXIT_WRONG_USAGE, e.what()};
    } catch (Formats::FileError const& e) {
        return {EXIT_FILE_FAILED, e.what()};
    } catch (Mell::Exception const& e) {
        return {EXIT_CUT_FAILED, e.what()};
    } catch (std::bad_alloc const&) {
        return {EXIT_CUT_FAILED,
                "There is not enough memory; close other programs or cut the parts one at a time."};
    } catch (std::exception const& e) {
        return {EXIT_CUT_FAILED, e.what()};
    }
}

void complain(std::string const& message)
{
    std::fprintf(stderr, "freecut: %s\n", message.c_str());
}
