// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/formats/FileError.h"

#include <QCoreApplication>

#include <cstring>

namespace Formats {

namespace {

// What the system says in English of what happens to users; the rest stays as it is.
[[maybe_unused]] char const* const systemReasons[] = {
    QT_TRANSLATE_NOOP("FileError", "Disk quota exceeded"),
    QT_TRANSLATE_NOOP("FileError", "File name too long"),
    QT_TRANSLATE_NOOP("FileError", "File too large"),
    QT_TRANSLATE_NOOP("FileError", "Input/output error"),
    QT_TRANSLATE_NOOP("FileError", "Is a directory"),
    QT_TRANSLATE_NOOP("FileError", "No space left on device"),
    QT_TRANSLATE_NOOP("FileError", "No such device or address"),
    QT_TRANSLATE_NOOP("FileError", "No such file or directory"),
    QT_TRANSLATE_NOOP("FileError", "Not a directory"),
    QT_TRANSLATE_NOOP("FileError", "Operation not permitted"),
    QT_TRANSLATE_NOOP("FileError", "Permission denied"),
    QT_TRANSLATE_NOOP("FileError", "Read-only file system"),
    QT_TRANSLATE_NOOP("FileError", "Stale file handle"),
    QT_TRANSLATE_NOOP("FileError", "Too many open files"),
};

}  // namespace

FileError::FileError(std::filesystem::path const& path, QString const& problem)
    : Mell::Exception(FileError::tr("File '%1': %2")
                          .arg(QString::fromStdString(path.string()), problem)
                          .toStdString()),
      m_problem(problem)
{}

FileError FileError::atByte(std::filesystem::path const& path, std::uint64_t offset,
                            QString const& problem)
{
    return FileError(path, FileError::tr("byte %1: %2").arg(offset).arg(problem));
}

FileError FileError::atLine(std::filesystem::path const& path, std::uint64_t line,
                            QString const& problem)
{
    return FileError(path, FileError::tr("line %1: %2").arg(line).arg(problem));
}

QString quoted(std::string_view text)
{
    if (text.empty())
        return FileError::tr("nothing");
    QString shown;
    for (char const c : text.substr(0, 40))
        shown += QLatin1Char(c >= 0x20 && c < 0x7f ? c : '?');
    return '\'' + shown + (text.size() > 40 ? "..." : "") + '\'';
}

QString systemReason(int error)
{
    return FileError::tr(std::strerror(error));
}

}  // namespace Formats
