// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

namespace Freecut {

/// A text that several dialogs and commands share, in the language of the interface.
///
/// text  in the source language; its context is "MellCommons"
QString commonText(char const* text);

/// Warns on the main window, under the title "Attention" and with the button "OK", and returns once
/// it has been read.
///
/// message  in the language of the interface
/// context  of the translations of title and button
/// thread   the user interface thread
void warnAttention(QString const& message, char const* context = "MellCommons");

/// Warns in the same way of a job that has failed.
///
/// message  what the user is told of every failure of that kind
/// reason   why this one has failed, in a second paragraph; empty if nobody knows
/// waysOut  the texts of further buttons, in the language of the interface
/// returns  the index of the way out that was chosen; -1 for none
int warnFailure(QString const& message, QString const& reason, QStringList const& waysOut);

/// Asks on the main window, under the title "Question", and returns once it has been answered.
///
/// message  in the language of the interface
/// returns  whether the answer is "Yes"; a box that is closed counts as "No"
/// thread   the user interface thread
bool askQuestion(QString const& message);

}  // namespace Freecut
