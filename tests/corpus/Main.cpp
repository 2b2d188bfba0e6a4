// SPDX-License-Identifier: GPL-3.0-or-later
// Runs every operation of the command line on every part of a corpus, each in a process with limits
// of time and memory, judges the pieces by winding numbers, and prints a table of success:
//
//     test_corpus [FOLDER] [--only TEXT] [--operation TEXT] [--freecut PROGRAM] [--keep FOLDER]
//                 [--samples N] [--seconds S] [--heavy] [--list FILE] [--quick]
//
// Without a folder it makes the corpus itself. --only and --operation take the parts and operations
// whose names contain the text. With --keep the parts that failed stay in a folder. --quick takes a
// small part of the built-in corpus with few samples, all of which has to pass. The exit status is
// 1 if anything failed that must not.
#include "tests/corpus/ModelFolder.h"
#include "tests/corpus/SuccessTable.h"
#include "tests/support/CorpusParts.h"
#include "tests/support/Places.h"

#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <iostream>
#include <optional>
#include <string>

namespace {

namespace fs = std::filesystem;

struct Options
{
    std::string folder;
    std::string only;
    std::string operation;
    std::string program = builtPath("freecut");
    std::string keep;
    std::string list;
    std::size_t samples = 1000;
    corpus::Limits limits;
    bool isHeavy = false;
    bool isQuick = false;
};

/// A number, or none.
std::optional<int> numberIn(char const* text)
{
    char* end = nullptr;
    long const number = std::strtol(text, &end, 10);
    return *text && !*end && number > 0 && number < 1'000'000'000 ? std::optional(int(number))
                                                                  : std::nullopt;
}

bool readValue(Options& options, char const* name, char const* value)
{
    for (auto const& [option, target] :
         {std::pair("--only", &options.only), std::pair("--operation", &options.operation),
          std::pair("--freecut", &options.program), std::pair("--keep", &options.keep),
          std::pair("--list", &options.list)})
        if (std::strcmp(name, option) == 0) {
            *target = value;
            return true;
        }
    auto const number = numberIn(value);
    if (std::strcmp(name, "--samples") == 0 && number)
        options.samples = std::size_t(*number);
    else if (std::strcmp(name, "--seconds") == 0 && number)
        options.limits.seconds = *number;
    else
        return false;
    return true;
}

bool readOptions(int argc, char** argv, Options& options)
{
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], "--heavy") == 0)
            options.isHeavy = true;
        else if (std::strcmp(argv[i], "--quick") == 0)
            options.isQuick = true;
        else if (argv[i][0] != '-' && options.folder.empty())
            options.folder = argv[i];
        else if (i + 1 == argc || !readValue(options, argv[i], argv[i + 1]))
            return false;
        else
            ++i;
    }
    return true;
}

/// What takes part in --quick.
bool isQuickPart(std::string const& name)
{
    for (char const* const quick : {"box", "torus", "gear", "touch-in-a-face", "onion"})
        if (name == quick)
            return true;
    return false;
}

class Corpus
{
public:
    explicit Corpus(Options const& options) : m_options(options)
    {
        for (corpus::Operation const& operation : corpus::operations())
            if (operation.name.find(options.operation) != std::string::npos)
                m_operations.push_back(operation);
    }

    void run(corpus::Part const& part)
    {
        if (part.name.find(m_options.only) == std::string::npos ||
            (m_options.isQuick && !isQuickPart(part.name)) || part.soup.triangles.empty())
            return;
        fs::path const folder = m_scratch.path().toStdString();
        corpus::writeStl(folder / "part.stl", part.soup);
        judge::Source const source(corpus::readStl(folder / "part.stl"));
        for (corpus::Operation const& operation : m_operations) {
            corpus::Trial const trial = corpus::tryOut(operation, source, m_options.program, folder,
                                                       m_options.limits, m_options.samples);
            m_table.add(part.kind, part.name, operation.name, trial);
            std::fprintf(stderr, "%-28s %-16s %-8s %7.2f s %5zu MB  %s\n", part.name.c_str(),
                         operation.name.c_str(), nameOf(trial.result), trial.seconds,
                         trial.peakMegabytes, trial.text.c_str());
            if (isFailure(trial.result) && !m_options.keep.empty())
                keepFiles(folder, part.name + "-" + operation.name);
        }
    }

    corpus::SuccessTable const& table() const { return m_table; }

private:
    void keepFiles(fs::path const& folder, std::string const& name) const
    {
        fs::path const target = fs::path(m_options.keep) / name;
        fs::remove_all(target);
        fs::create_directories(target);
        fs::copy(folder, target, fs::copy_options::recursive);
    }

    Options const& m_options;
    std::vector<corpus::Operation> m_operations;
    QTemporaryDir m_scratch;
    corpus::SuccessTable m_table;
};

void runAll(Corpus& corpus, Options const& options)
{
    if (!options.folder.empty()) {
        corpus::forEachModel(options.folder, [&](corpus::Part const& part) { corpus.run(part); });
        return;
    }
    for (corpus::Part const& part : corpus::parts())
        corpus.run(part);
    if (options.isHeavy)
        for (corpus::Part const& part : corpus::heavyParts())
            corpus.run(part);
}

}  // namespace

int main(int argc, char** argv)
{
    Options options;
    if (!readOptions(argc, argv, options)) {
        std::fputs(
            "usage: test_corpus [FOLDER] [--only TEXT] [--operation TEXT] [--freecut PROGRAM] "
            "[--keep FOLDER] [--samples N] [--seconds S] [--heavy] [--list FILE] [--quick]\n",
            stderr);
        return 2;
    }
    if (options.isQuick)
        options.samples = std::min<std::size_t>(options.samples, 250);
    options.program = fs::absolute(options.program);
    Corpus corpus(options);
    runAll(corpus, options);
    corpus.table().print(std::cout);
    if (!options.list.empty()) {
        std::ofstream list(options.list);
        corpus.table().print(list);
    }
    // What is quick is sound: there a refusal is a failure too.
    bool const isRight =
        options.isQuick ? corpus.table().isAllOk() : corpus.table().failures() == 0;
    return isRight ? 0 : 1;
}
