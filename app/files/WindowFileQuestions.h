// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/files/FileQuestions.h"

#include <QCoreApplication>

/// Asks by dialogs on the main window. Folders and the choices of an export are remembered in the
/// settings ("/Files/folder", "/Export/...").
class WindowFileQuestions : public FileQuestions
{
    Q_DECLARE_TR_FUNCTIONS(WindowFileQuestions)

public:
    QStringList filesToOpen() override;
    QString projectToSave(QString const& suggestion) override;
    std::optional<ExportPlan> exportPlan(ExportOffer const& offer) override;
    bool mayReplace(QStringList const& files) override;
    Unsaved aboutUnsaved(QString const& documentName) override;
    Changed aboutChanged(QString const& documentName) override;
    void tell(QString const& text) override;
};
