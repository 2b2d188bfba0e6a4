// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

/// The user's choice of the interface's language, kept in the settings, and its effect on the whole
/// application: texts of ours and of Qt's own dialogs, the texts of all commands, and a
/// QEvent::LanguageChange at every widget. How numbers are written follows the system's region, not
/// the language.
///
/// thread  the user interface thread, with an application; texts may be translated on any thread
class LanguageSwitch
{
public:
    enum class Choice
    {
        System,
        English,
        German
    };

    /// Puts the stored choice into effect; once, before the first window is made. A stored value
    /// that makes no sense counts as System.
    static void applyStored();

    /// What is stored; System if nothing is.
    static Choice choice();
    /// Stores the choice and puts it into effect.
    static void setLanguage(Choice choice);

    /// The language in effect, "en" or "de".
    static QString language();
    /// The first of the wanted languages, such as "de-CH", that there is; else "en".
    static QString languageFor(QStringList const& wanted);
};
