// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

class QDialog;
class QFormLayout;

/// Lays a dialog out that asks a few things: its fields, and below them the buttons that accept and
/// reject it.
void layOutQuestion(QDialog& dialog, QFormLayout* fields, QString const& accept,
                    QString const& cancel);
