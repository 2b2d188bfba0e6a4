// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "drawings/Drawing.h"

#include <QDialog>

#include <array>

class MellQuantitySpinBox;
class QComboBox;
class QLabel;
class QPushButton;

namespace Freecut {

/// Asks what of a drawing becomes the outline, how large it is, and where its middle goes. It shows
/// the size that comes of it, or why it cannot be.
class OutlineImportDialog : public QDialog
{
    Q_OBJECT

public:
    /// axes    the names of the two coordinates
    /// middle  where the outline's middle is to go unless told otherwise
    OutlineImportDialog(QString const& file, std::array<QString, 2> const& axes,
                        UPoint2<float> const& middle, QWidget* parent);

    /// After it was accepted.
    Drawings::Path const& path() const { return m_path; }
    UPoint2<float> middle() const;

    // For whoever looks at it.
    QComboBox* units() const { return m_units; }
    QComboBox* numbers() const { return m_numbers; }
    QLabel* outcome() const { return m_outcome; }
    QPushButton* ok() const { return m_ok; }

private:
    void readFile();
    void listPaths();
    void choose();

    QString m_file;
    std::vector<Drawings::Path> m_paths;
    Drawings::Path m_path;
    QComboBox* m_units;
    QComboBox* m_numbers;
    std::array<MellQuantitySpinBox*, 2> m_middle;
    QLabel* m_outcome;
    QPushButton* m_ok;
};

}  // namespace Freecut
