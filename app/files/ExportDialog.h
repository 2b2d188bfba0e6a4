// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/files/FileQuestions.h"

#include <QDialog>

class QCheckBox;
class QComboBox;
class QLabel;
class QRadioButton;

/// Asks for the format of an export, whether each part gets a file of its own, and whether hidden
/// parts go along. Format and files are remembered when they are accepted. Files that were never
/// chosen are one for each part, except in 3MF, which holds many parts.
class ExportDialog : public QDialog
{
    Q_OBJECT

public:
    /// One part alone is always one file.
    ExportDialog(ExportOffer const& offer, QWidget* parent);

    /// The format's name in the registry.
    QString format() const;
    bool isOneFilePerPart() const;
    bool takesHidden() const;

    void accept() override;

private:
    void fillFormats();
    void build();
    void buildHiddenChoice();
    void restore();
    void proposeFiles();
    void countParts();
    int parts() const;

    QComboBox* m_formats;
    QRadioButton* m_oneFile;
    QRadioButton* m_fileEach;
    QCheckBox* m_hidden;
    QLabel* m_filesLabel = nullptr;
    ExportOffer m_offer;
    bool m_hasChosenFiles = false;
};
