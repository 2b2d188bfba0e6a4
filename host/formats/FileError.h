// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/jobs/Exceptions.h"

#include <QCoreApplication>
#include <QString>

#include <cstdint>
#include <filesystem>
#include <string_view>

namespace Formats {

/// A file cannot be read or written. The text names the file, the place in it where one is known,
/// and what was expected there, in the language of the interface where it is thrown. Nothing has
/// been changed by the operation that throws it.
class FileError : public Mell::Exception
{
    Q_DECLARE_TR_FUNCTIONS(FileError)

public:
    /// problem  goes on after the name of the file; one of tr()
    FileError(std::filesystem::path const& path, QString const& problem);

    /// For binary content; `offset` counts bytes from 0.
    static FileError atByte(std::filesystem::path const& path, std::uint64_t offset,
                            QString const& problem);
    /// For text; `line` counts from 1.
    static FileError atLine(std::filesystem::path const& path, std::uint64_t line,
                            QString const& problem);

    /// The text after the name of the file.
    QString const& problem() const { return m_problem; }

private:
    QString m_problem;
};

/// At most 40 characters of what a file has in place of what was expected, for the text of an
/// error.
QString quoted(std::string_view text);

/// What the system says about an error number, without a full stop.
QString systemReason(int error);

}  // namespace Formats
