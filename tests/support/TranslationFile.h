// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

#include <vector>

/// A text of a translation file.
struct TranslatedText
{
    QString context;
    QString source;
    /// One, or one for each form of the plural.
    QStringList translations;
    bool hasPlural = false;
    bool isFinished = true;

    QString place() const { return context + ": " + source; }
};

/// What a file holds.
///
/// throws  std::runtime_error if it cannot be read
std::vector<TranslatedText> readTranslationFile(QString const& path);
