// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/files/ProjectGuard.h"

#include <QFile>

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

std::optional<FileStamp> stampOf(QString const& file)
{
    struct stat found = {};
    if (::stat(QFile::encodeName(file).constData(), &found) != 0)
        return {};
    constexpr std::int64_t nanosecondsPerSecond = 1'000'000'000;
    return FileStamp{found.st_ino, found.st_size,
                     found.st_mtim.tv_sec * nanosecondsPerSecond + found.st_mtim.tv_nsec};
}

void ProjectGuard::watch(QString const& file, std::optional<FileStamp> asKnown)
{
    release();
    m_file = file;
    m_known = asKnown;
    m_lock = ::open(QFile::encodeName(file).constData(), O_RDONLY | O_CLOEXEC);
    m_isOpenElsewhere =
        m_lock >= 0 && ::flock(m_lock, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
}

void ProjectGuard::release()
{
    if (m_lock >= 0)
        ::close(std::exchange(m_lock, -1));
    m_file.clear();
    m_known.reset();
    m_isOpenElsewhere = false;
}

bool ProjectGuard::hasChanged() const
{
    std::optional<FileStamp> const present = m_file.isEmpty() ? std::nullopt : stampOf(m_file);
    return present && present != m_known;
}
