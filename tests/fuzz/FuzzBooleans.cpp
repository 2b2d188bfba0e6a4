// SPDX-License-Identifier: GPL-3.0-or-later
// Runs boolean operations on random solids whose faces, edges and corners coincide more often than
// not, then all operations on random broken parts, and judges every result; then reads spoilt
// files:
//
//     test_fuzz [--seconds S] [--seed N] [--runs R] [--failures F] [--exact 1] [--tell S]
//               [--kind solids|broken|small|files] [--operation NAME] [--inverted 1]
//
// What has been done is told every minute, or every --tell seconds, and at the end, which SIGTERM
// and SIGINT bring about after the seed that runs.
// Without --kind each has a fourth of the time. Small are booleans of parts of some tens of
// triangles, hundreds or thousands in a second. With --exact 1 it judges the exact combination,
// which the operations fall back to. --operation takes one of the operations on broken parts only,
// and --inverted 1 adds shells that are inside out and triangles that miss, come twice or are
// turned.
// Each run has the seed after that of the one before. A failure is told with its seed, and what
// went in is written into the working folder; `--seed N --runs 1` with the same options repeats it
// and writes the files before it runs. What crashes tells its seed too.
#include "host/services/boolean/ExactCombination.h"
#include "tests/fuzz/BrokenRuns.h"
#include "tests/fuzz/FileRuns.h"
#include "tests/fuzz/FuzzFiles.h"
#include "tests/fuzz/FuzzProgress.h"
#include "tests/fuzz/FuzzSolids.h"
#include "tests/fuzz/SmallRuns.h"
#include "tests/support/BooleanRuns.h"

#include <array>
#include <charconv>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <exception>
#include <functional>
#include <iterator>
#include <limits>
#include <string>
#include <unistd.h>

namespace {

using Clock = std::chrono::steady_clock;

struct Options
{
    unsigned seconds = 60;
    unsigned seed = 1;
    unsigned runs = std::numeric_limits<unsigned>::max();
    unsigned failures = 20;
    unsigned exact = 0;
    unsigned inverted = 0;
    unsigned tell = 60;
    std::string kind;
    std::string operation;
};

bool readNumber(char const* text, unsigned& number)
{
    char const* const end = text + std::strlen(text);
    auto const read = std::from_chars(text, end, number);
    return read.ec == std::errc() && read.ptr == end;
}

bool readOption(char const* name, char const* value, Options& options)
{
    for (auto const& [option, number] :
         {std::pair("--seconds", &options.seconds), std::pair("--seed", &options.seed),
          std::pair("--runs", &options.runs), std::pair("--failures", &options.failures),
          std::pair("--exact", &options.exact), std::pair("--inverted", &options.inverted),
          std::pair("--tell", &options.tell)})
        if (std::strcmp(name, option) == 0)
            return readNumber(value, *number);
    if (std::strcmp(name, "--operation") == 0)
        options.operation = value;
    else if (std::strcmp(name, "--kind") == 0)
        options.kind = value;
    else
        return false;
    return options.kind.empty() || options.kind == "solids" || options.kind == "broken" ||
           options.kind == "small" || options.kind == "files";
}

bool readOptions(int argc, char** argv, Options& options)
{
    for (int i = 1; i < argc; i += 2)
        if (i + 1 == argc || !readOption(argv[i], argv[i + 1], options))
            return false;
    return true;
}

/// As a user gets them where the exact way is taken: rounded, mended and held against the operands.
BooleanPieces exactPiecesOf(Soup const& a, Soup const& b)
{
    std::function<void(int)> const unasked;
    StageProgress progress(unasked);
    static constexpr std::array wanted{BooleanPiece::united, BooleanPiece::common,
                                       BooleanPiece::difference};
    CombiningNotes notes;
    auto results = combineExactly({a.points, a.triangles}, {b.points, b.triangles}, wanted, {},
                                  notes, progress);
    auto const soup = [&](std::size_t i) { return soupOf(MeshKernel(results[i].mesh.release())); };
    Soup const united = soup(0), common = soup(1), difference = soup(2);
    return {united, common, difference, common, difference};
}

class Fuzzing
{
public:
    explicit Fuzzing(bool isExact) : m_isExact(isExact) {}

    /// Runs all steps of one seed. Returns false at the first failure.
    bool run(unsigned seed)
    {
        std::mt19937 random(seed);
        Soup part = moved(randomFuzzSolid(random), randomFuzzMotion(random));
        for (int step = 0; step < 4; ++step) {
            Soup const tool = moved(randomFuzzSolid(random), randomFuzzMotion(random));
            BooleanPieces pieces;
            std::string const faults = judge(part, tool, pieces, random);
            if (!faults.empty()) {
                report(seed, step, part, tool, faults);
                return false;
            }
            Soup* const results[] = {&pieces.united, &pieces.common, &pieces.difference};
            Soup& next = *results[random() % 3];
            if (next.triangles.size() > 1500 || !isSoundSolid(next))
                break;
            part = std::move(next);
        }
        return true;
    }

    unsigned long operations() const { return m_operations; }

private:
    std::string judge(Soup const& part, Soup const& tool, BooleanPieces& pieces,
                      std::mt19937& random)
    {
        constexpr std::size_t samples = 12;
        try {
            pieces = m_isExact ? exactPiecesOf(part, tool) : booleansOf(part, tool);
            // Union, intersection, difference and split.
            m_operations += 4;
            return faultsOfPieces(part, tool, pieces, samples, random);
        } catch (Mell::Exception const& failure) {
            return std::string("thrown: ") + failure.what();
        } catch (std::exception const& failure) {
            return std::string("thrown: ") + failure.what();
        }
    }

    static void report(unsigned seed, int step, Soup const& part, Soup const& tool,
                       std::string const& faults)
    {
        std::string const name = "fuzz-" + std::to_string(seed);
        writeFuzzStl(name + "-a.stl", part);
        writeFuzzStl(name + "-b.stl", tool);
        std::printf(
            "seed %u, step %d: %s\n  operands of %zu and %zu triangles in %s-a.stl and "
            "%s-b.stl\n",
            seed, step, faults.c_str(), part.triangles.size(), tool.triangles.size(), name.c_str(),
            name.c_str());
        std::fflush(stdout);
    }

    bool m_isExact;
    unsigned long m_operations = 0;
};

}  // namespace

namespace {

volatile std::sig_atomic_t currentSeed = 0;

/// Tells the seed with calls that are allowed in a signal handler, and lets the program crash.
extern "C" void tellSeed(int signal)
{
    char digits[12];
    char* first = std::end(digits);
    *--first = '\n';
    for (auto rest = unsigned(currentSeed); first == std::end(digits) - 1 || rest > 0; rest /= 10)
        *--first = char('0' + rest % 10);
    static constexpr char text[] = "crash at seed ";
    [[maybe_unused]] auto const told =
        write(2, text, sizeof text - 1) + write(2, first, std::size_t(std::end(digits) - first));
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

/// Runs seed after seed until time, runs or failures are used up or a signal comes; returns the
/// failures.
template <typename Runs>
unsigned repeat(char const* kind, Runs& runs, Options const& options, unsigned seconds)
{
    auto const end = Clock::now() + std::chrono::seconds(seconds);
    FuzzProgress progress(kind, options.seed, std::chrono::seconds(options.tell));
    while (progress.seeds() < options.runs && Clock::now() < end &&
           progress.failures() < options.failures && !isFuzzEndedBySignal()) {
        unsigned const seed = progress.nextSeed();
        currentSeed = std::sig_atomic_t(seed);
        bool const isRight = runs.run(seed);
        progress.count(isRight, runs.operations());
    }
    progress.tell();
    return progress.failures();
}

}  // namespace

int main(int argc, char** argv)
{
    Options options;
    if (!readOptions(argc, argv, options)) {
        std::fputs(
            "usage: test_fuzz [--seconds S] [--seed N] [--runs R] [--failures F] [--exact 1] "
            "[--tell S] [--kind solids|broken|small|files] [--operation NAME] [--inverted 1]\n",
            stderr);
        return 2;
    }
    for (int const signal : {SIGSEGV, SIGABRT, SIGFPE, SIGBUS})
        std::signal(signal, tellSeed);
    endFuzzBySignals();
    unsigned const seconds = options.kind.empty() ? options.seconds / 4 : options.seconds;
    unsigned failures = 0;
    auto const isAskedFor = [&](char const* kind) {
        return options.kind.empty() || options.kind == kind;
    };
    if (isAskedFor("solids")) {
        Fuzzing solids(options.exact != 0);
        failures += repeat("solids", solids, options, seconds);
    }
    if (isAskedFor("broken")) {
        if (options.runs == 1)
            writeFuzzInputs("fuzz-broken-" + std::to_string(options.seed));
        BrokenRuns broken(options.operation, options.inverted != 0);
        failures += repeat("broken parts", broken, options, seconds);
        broken.printCounts();
    }
    if (isAskedFor("small")) {
        SmallRuns small;
        failures += repeat("small parts", small, options, seconds);
        small.printCounts();
    }
    if (isAskedFor("files")) {
        FileRuns files;
        failures += repeat("files", files, options, seconds);
    }
    return failures == 0 ? 0 : 1;
}
