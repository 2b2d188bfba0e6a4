// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/batch/ResultLines.h"

#include "host/formats/OutputFile.h"

#include <cstdio>

ResultLines::ResultLines(std::string const& target, std::size_t count) : m_lines(count)
{
    if (target != "-")
        m_file = std::make_unique<Formats::OutputFile>(target, Formats::Overwrite::Allow);
}

ResultLines::~ResultLines() = default;

void ResultLines::set(std::size_t place, std::string line)
{
    m_lines[place] = std::move(line);
    while (m_written < m_lines.size() && m_lines[m_written]) {
        write(*m_lines[m_written] + '\n');
        m_lines[m_written++] = std::string();
    }
}

void ResultLines::finish()
{
    if (m_file)
        m_file->commit();
}

void ResultLines::write(std::string const& line)
{
    if (m_file) {
        m_file->write(line);
        return;
    }
    // A failure stays noted in the stream, and the exit status tells it.
    std::fwrite(line.data(), 1, line.size(), stdout);
    std::fflush(stdout);
}
