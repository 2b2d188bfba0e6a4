// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Failure.h"

#include "cli/Cancel.h"
#include "cli/Errors.h"
#include "cli/ExitStatus.h"
#include "host/formats/FileError.h"

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <new>
#include <string_view>
#include <unistd.h>

namespace {

/// Of what has been thrown without a sentence.
constexpr char const* unknownFailure =
    "An unknown error occurred; freecut info --check tells whether the part has errors.";

std::string_view environment(char const* name)
{
    char const* const value = std::getenv(name);
    return value ? value : "";
}

bool showsColours()
{
    return isatty(STDERR_FILENO) != 0 && environment("NO_COLOR").empty() &&
           environment("TERM") != "dumb";
}

/// colour  a number of ECMA-48's, for the program's name
void printMessage(std::string const& message, int colour)
{
    if (showsColours())
        std::fprintf(stderr, "\033[%dmfreecut:\033[0m %s\n", colour, message.c_str());
    else
        std::fprintf(stderr, "freecut: %s\n", message.c_str());
}

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
    constexpr int red = 31;
    printMessage(message, red);
}

void remark(std::string const& message)
{
    constexpr int yellow = 33;
    printMessage(message, yellow);
}
