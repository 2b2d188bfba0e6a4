// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <cstdint>
#include <optional>

/// What tells one version of a file from another; none for a file that is not there.
struct FileStamp
{
    std::uint64_t file = 0;
    std::int64_t size = 0;
    std::int64_t nanoseconds = 0;
    bool operator==(FileStamp const&) const = default;
};
std::optional<FileStamp> stampOf(QString const& file);

/// Watches over the project file of a document: whether another window has it open, told by a lock
/// that goes with the process, and whether it is still the one that was read or saved.
///
/// Where a file system knows no locks, no window knows of the others.
class ProjectGuard
{
public:
    ProjectGuard() = default;
    ~ProjectGuard() { release(); }
    ProjectGuard(ProjectGuard const&) = delete;
    ProjectGuard& operator=(ProjectGuard const&) = delete;

    /// asKnown  the version that the document has
    void watch(QString const& file, std::optional<FileStamp> asKnown);
    void release();

    /// Whether another window had the file open when watch() was called.
    bool isOpenElsewhere() const { return m_isOpenElsewhere; }
    /// Whether the file is another one by now. One that is gone can be replaced without loss.
    bool hasChanged() const;

private:
    QString m_file;
    std::optional<FileStamp> m_known;
    int m_lock = -1;
    bool m_isOpenElsewhere = false;
};
