// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

#include <optional>

/// Where and how parts are to be exported.
struct ExportPlan
{
    /// The file; with one file per part the folder.
    QString path;
    /// A name of the format registry, such as "stl".
    QString format;
    bool isOneFilePerPart = false;
    /// Hidden parts go along.
    bool takesHidden = false;
};

/// What there is to export.
struct ExportOffer
{
    /// A file name without extension.
    QString suggestion;
    /// That go along in any case.
    int parts = 0;
    /// The names of further parts, which do so if the user says so.
    QStringList hidden;
};

/// What the file operations ask of the user. A test answers in its own way.
///
/// thread  the user interface thread
class FileQuestions
{
public:
    virtual ~FileQuestions() = default;

    /// Files to open; empty if the user thinks better of it.
    virtual QStringList filesToOpen() = 0;
    /// The file to save a project in; empty for none. The user has agreed to its replacement.
    ///
    /// suggestion  a path or a file name
    virtual QString projectToSave(QString const& suggestion) = 0;
    /// How to export parts. The user has agreed to the replacement of a single file.
    virtual std::optional<ExportPlan> exportPlan(ExportOffer const& offer) = 0;
    /// Whether files that exist may be replaced.
    virtual bool mayReplace(QStringList const& files) = 0;

    enum class Unsaved
    {
        Save,
        Discard,
        Cancel
    };
    /// What to do with the unsaved changes of a document.
    virtual Unsaved aboutUnsaved(QString const& documentName) = 0;

    enum class Changed
    {
        Replace,
        SaveElsewhere,
        Cancel
    };
    /// What to do with a project file that somebody else has changed since it was opened or saved.
    virtual Changed aboutChanged(QString const& documentName) = 0;

    /// Shows a message.
    virtual void tell(QString const& text) = 0;
};
