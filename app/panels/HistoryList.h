// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QListWidget>

class DocumentFollower;

/// The undo steps of the active document, with the part and how much, the oldest first, and after
/// them those that were taken back. A click on a step undoes or redoes until it is the last one done. While a job runs the
/// list is disabled.
class HistoryList : public QListWidget
{
    Q_OBJECT

public:
    /// The Application exists.
    explicit HistoryList(QWidget* parent = nullptr);

    /// The row of the step that was done last; 0 stands for the document before all steps.
    int currentStep() const { return m_step; }
    /// Undoes or redoes until that row is the last one done; a row that there is not is ignored.
    void goTo(int row);

protected:
    void changeEvent(QEvent* event) override;

private:
    void refresh();
    void fill(QStringList const& steps, int current);
    void retranslate();

    DocumentFollower* m_follower;
    QStringList m_shown;
    int m_step = 0;
};
