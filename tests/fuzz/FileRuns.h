// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTemporaryDir>

#include <random>
#include <string>
#include <vector>

/// Reads files of all formats that have been spoilt: some bytes changed, taken out, put in,
/// repeated. They must be read or refused with a sentence.
class FileRuns
{
public:
    FileRuns();

    /// False if something is wrong; it has been told then.
    bool run(unsigned seed);

    unsigned long operations() const { return m_operations; }

private:
    struct Seed
    {
        std::string extension;
        std::string bytes;
    };

    QTemporaryDir m_folder;
    std::vector<Seed> m_seeds;
    unsigned long m_operations = 0;
};
