// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QReadWriteLock>
#include <QTranslator>

#include <memory>
#include <vector>

/// The texts of one language from several files. It stays installed and takes other files in, so
/// that a change of the language reaches the widgets once and not once per file.
///
/// thread  texts are looked up on any thread, also while the files change
class LanguageTexts : public QTranslator
{
public:
    /// Takes the texts of a language in the place of those before. Files that are not there are
    /// left out, their texts stay in the source language.
    ///
    /// language  such as "de"
    void take(QString const& language);

    bool isEmpty() const override { return false; }
    QString translate(char const* context, char const* text, char const* disambiguation,
                      int count) const override;

private:
    using Files = std::vector<std::unique_ptr<QTranslator>>;

    static Files filesOf(QString const& language);

    mutable QReadWriteLock m_lock;
    Files m_files;
};
