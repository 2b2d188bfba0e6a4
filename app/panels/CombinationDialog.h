// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>
#include <QStringList>

class QCheckBox;
class QComboBox;

/// Asks which of several parts is the one from which the others are taken away, or which they split,
/// and whether the others stay. The second answer is remembered.
class CombinationDialog : public QDialog
{
    Q_OBJECT

public:
    struct Texts
    {
        QString title;
        QString choice;
        QString accept;
    };

    /// names  of the parts; the first one is chosen at first
    CombinationDialog(Texts const& texts, QStringList const& names, QWidget* parent);

    int first() const;
    bool keepsOthers() const;

    void accept() override;

private:
    QComboBox* m_first;
    QCheckBox* m_keep;
};
