// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>

class QComboBox;
class QRadioButton;

/// Asks for the format of an export, and whether each part gets a file of its own. The choices are
/// remembered when they are accepted.
class ExportDialog : public QDialog
{
    Q_OBJECT

public:
    /// parts  how many are to be exported; one alone is always one file
    ExportDialog(int parts, QWidget* parent);

    /// The format's name in the registry.
    QString format() const;
    bool isOneFilePerPart() const;

    void accept() override;

private:
    void fillFormats();
    void buildFileChoice(int parts);
    void restore();

    QComboBox* m_formats;
    QRadioButton* m_oneFile;
    QRadioButton* m_fileEach;
};
