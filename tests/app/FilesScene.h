// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/files/DocumentFiles.h"
#include "platform/document/DocumentObjectGroup.h"
#include "tests/cutjobs/RecordingSink.h"
#include "tests/formats/ScratchFolder.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/ScratchSettings.h"
#include "tests/support/TestDocument.h"

#include <QEventLoop>
#include <QTimer>

#include <string>
#include <vector>

/// What the questions were answered, and how they are to be.
struct FileAnswers
{
    QStringList filesToOpen;
    QString projectToSave;
    std::optional<ExportPlan> plan;
    bool mayReplace = true;
    FileQuestions::Unsaved unsaved = FileQuestions::Unsaved::Cancel;
    FileQuestions::Changed changed = FileQuestions::Changed::Cancel;

    QStringList suggestions;
    std::vector<QStringList> hidden;
    std::vector<QStringList> replacements;
    QStringList unsavedNames;
    QStringList changedNames;
    QStringList messages;
};

class AnsweredQuestions : public FileQuestions
{
public:
    explicit AnsweredQuestions(FileAnswers& answers) : m_answers(answers) {}

    QStringList filesToOpen() override { return m_answers.filesToOpen; }
    QString projectToSave(QString const& suggestion) override
    {
        m_answers.suggestions.push_back(suggestion);
        return m_answers.projectToSave;
    }
    std::optional<ExportPlan> exportPlan(ExportOffer const& offer) override
    {
        m_answers.suggestions.push_back(offer.suggestion);
        m_answers.hidden.push_back(offer.hidden);
        return m_answers.plan;
    }
    bool mayReplace(QStringList const& files) override
    {
        m_answers.replacements.push_back(files);
        return m_answers.mayReplace;
    }
    Unsaved aboutUnsaved(QString const& name) override
    {
        m_answers.unsavedNames.push_back(name);
        return m_answers.unsaved;
    }
    Changed aboutChanged(QString const& name) override
    {
        m_answers.changedNames.push_back(name);
        return m_answers.changed;
    }
    void tell(QString const& text) override { m_answers.messages.push_back(text); }

private:
    FileAnswers& m_answers;
};

/// An application with a document, its files, and a folder.
class FilesScene
{
public:
    ScratchSettings settings;
    ScratchFolder folder;
    TestDocument scene;
    PluggedSink sink;
    FileAnswers answers;
    DocumentFiles files{std::make_unique<AnsweredQuestions>(answers)};

    Mesh::Document* document() const
    {
        return static_cast<Mesh::Document*>(scene.application.activeDocument());
    }
    std::vector<std::string> names() const
    {
        std::vector<std::string> names;
        for (Base::DocumentObject const* const object : document()->getObjectArray())
            names.push_back(object->getName());
        return names;
    }
    QString path(std::string const& name) const
    {
        return QString::fromStdString((folder / name).string());
    }
    /// Writes a part file and gives its path.
    QString partFile(std::string const& name, Soup const& soup) const;

    /// Handles events until no file is read or written.
    void finish()
    {
        settle();
        while (files.isWorking())
            settle();
        settle();
    }

private:
    static void settle()
    {
        QEventLoop loop;
        QTimer::singleShot(2, &loop, &QEventLoop::quit);
        loop.exec();
    }
};
