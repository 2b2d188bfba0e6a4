// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/formats/ProjectFile.h"

#include <QByteArray>
#include <QDateTime>
#include <QString>

#include <filesystem>
#include <string>
#include <vector>

/// What the list of a kept state says: everything but the geometry, which lies in files beside it.
struct RecoveryList
{
    struct Entry
    {
        /// Without its kernel.
        Formats::ProjectObject look;
        /// Of the file with the geometry, in the same folder; empty for a group.
        std::string meshFile = {};
        UMatrix4<float> matrix = {};
    };

    QString projectFile;
    QDateTime time;
    /// Of all parts.
    std::size_t triangles = 0;
    std::vector<Entry> entries;

    std::size_t partCount() const;
    /// For a person: the name of the project file, or "Untitled".
    QString title() const;
};

/// As text; numbers come back bit by bit.
QByteArray recoveryText(RecoveryList const& list);

/// path    named by the error
/// throws  Formats::FileError for a text that is not such a list
RecoveryList parseRecoveryText(QByteArray const& text, std::filesystem::path const& path);
