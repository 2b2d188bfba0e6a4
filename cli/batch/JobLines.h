// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/CommandTexts.h"
#include "cli/batch/BatchJob.h"

/// Understands lists of jobs, which are JSON objects, one a line:
///
///     {"command": "zcut", "files": ["a.stl"], "height": 40, "output": "pieces"}
///
/// Options go by the names that they have on the command line. Switches are true or false, numbers
/// may be numbers, and what is a list there may be one here.
class JobLines
{
public:
    /// texts  of the program and all its commands
    explicit JobLines(std::vector<CommandText> texts) : m_texts(std::move(texts)) {}

    /// Empty lines are left out.
    ///
    /// name    of the list, for messages
    /// throws  UsageError that names the line
    std::vector<BatchJob> read(std::string const& text, std::string const& name) const;

    /// The jobs that a command line stands for: one for each of its files, of which patterns and folders
    /// are looked up now; but a command that takes two files is one job.
    ///
    /// throws  UsageError; Formats::FileError for a pattern that nothing matches
    std::vector<BatchJob> make(std::string const& commandLine) const;

    /// The files that a job reads: its parts, and what its options name.
    std::vector<std::string> filesReadBy(BatchJob const& job) const;
    /// Whether its command leaves files in a folder.
    bool writesPieces(BatchJob const& job) const;

private:
    CommandText const& commandNamed(std::string const& name) const;
    BatchJob jobOf(Report const& fields) const;
    /// With hyphens, as the command line knows it; for switches the value is empty.
    void setOption(BatchJob& job, std::string const& name, std::string const& value,
                   bool hasValue) const;

    std::vector<CommandText> m_texts;
};
