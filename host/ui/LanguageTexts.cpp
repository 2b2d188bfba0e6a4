// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/ui/LanguageTexts.h"

#include <QLibraryInfo>

#include <cstring>

void LanguageTexts::take(QString const& language)
{
    Files files = filesOf(language);
    QWriteLocker const locker(&m_lock);
    m_files = std::move(files);
}

QString LanguageTexts::translate(char const* context, char const* text, char const* disambiguation,
                                 int count) const
{
    QReadLocker const locker(&m_lock);
    // A class asks by its full name, and lupdate enters its texts without the namespaces.
    char const* const lastColon = std::strrchr(context, ':');
    for (char const* const name : {context, lastColon ? lastColon + 1 : context})
        for (auto const& file : m_files)
            if (QString const found = file->translate(name, text, disambiguation, count);
                !found.isNull())
                return found;
    return {};
}

LanguageTexts::Files LanguageTexts::filesOf(QString const& language)
{
    QString const paths[] = {
        ":/translations/orbe_" + language + ".qm",
        QLibraryInfo::location(QLibraryInfo::TranslationsPath) + "/qtbase_" + language + ".qm"};
    Files files;
    for (QString const& path : paths)
        if (auto file = std::make_unique<QTranslator>(); file->load(path))
            files.push_back(std::move(file));
    return files;
}
