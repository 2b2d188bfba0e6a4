// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Failure.h"

#include "cli/Cancel.h"
#include "cli/Errors.h"
#include "cli/ExitStatus.h"
#include "host/formats/FileError.h"

#include <cstdio>
#include <exception>
#include <new>

namespace {

/// Of what has been thrown without a sentence.
constexpr char const* unknownFailure =
    "An unknown error occurred; freecut info --check tells whether the part has errors.";

}  // namespace

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
    } catch (char const* text) {
        // A job that has failed throws an empty one.
        return {EXIT_CUT_FAILED, *text ? text : unknownFailure};
    } catch (...) {
        return {EXIT_CUT_FAILED, unknownFailure};
    }
}

void complain(std::string const& message)
{
    std::fprintf(stderr, "freecut: %s\n", message.c_str());
}
