// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/StandardStreams.h"
#include "cli/batch/JobKey.h"
#include "cli/batch/JobResult.h"

#include <filesystem>
#include <optional>

/// The folder in which a batch remembers what has been done. Several processes, also of several machines,
/// may share it: each file in it appears at once, and nobody holds a lock.
class JobStore
{
public:
    /// An empty name is a folder of its own that goes with the store.
    ///
    /// throws  Formats::FileError if no folder can be made there
    explicit JobStore(std::filesystem::path folder);

    /// None if there is none yet, or a piece of it is not there any more.
    std::optional<JobResult> find(std::string const& key) const;
    /// throws  Formats::FileError
    void keep(std::string const& key, JobResult const& result);

    /// A new empty folder for what a job writes.
    std::filesystem::path makeWorkFolder(std::string const& key);

    /// Replaces what was told of that part of the list before.
    ///
    /// lines   one for each job
    /// throws  Formats::FileError
    void keepLines(Shard const& shard, std::vector<std::string> const& lines);
    /// The lines of all parts of the list, unordered.
    ///
    /// throws  UsageError that names the parts that are missing
    std::vector<Report> allLines() const;

private:
    /// What dead processes of this machine have left.
    void removeLeftovers();
    std::filesystem::path fileOf(std::string const& key) const;

    std::optional<SpoolFolder> m_scratch;
    std::filesystem::path m_folder;
    unsigned m_serial = 0;
};
