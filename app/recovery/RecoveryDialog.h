// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/recovery/RecoveryOffer.h"

#include <QDialog>

class QListWidget;

/// Shows unsaved work with its pictures and asks what is to become of it.
class RecoveryDialog : public QDialog
{
    Q_OBJECT

public:
    RecoveryDialog(std::vector<KeptWork> const& works, QWidget* parent);

    /// Waits for the answer. Closing the dialog means later.
    static RecoveryChoice ask(std::vector<KeptWork> const& works, QWidget* parent);

private:
    void buildList(std::vector<KeptWork> const& works);
    void buildButtons();
    void answer(RecoveryChoice::Kind kind);
    void discard();

    QListWidget* m_list;
    RecoveryChoice m_choice;
};
