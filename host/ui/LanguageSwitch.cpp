// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/ui/LanguageSwitch.h"

#include "host/ui/LanguageTexts.h"
#include "platform/ui/Application.h"
#include "platform/ui/CommandManager.h"
#include "platform/ui/MainWindow.h"
#include "platform/ui/StoredSettings.h"

#include <QCoreApplication>
#include <QEvent>
#include <QLocale>
#include <QPointer>
#include <QRegularExpression>

#include <algorithm>
#include <array>

namespace {

QString const languageKey = QStringLiteral("/Interface/language");
std::array<QString, 3> const choiceNames{"system", "en", "de"};

/// The first is the language of the sources.
std::array<QString, 2> const languages{"en", "de"};

QString languageInEffect = languages[0];
/// Belongs to the application, which may be another one later.
QPointer<LanguageTexts> texts;

QString languageOf(LanguageSwitch::Choice choice)
{
    if (choice == LanguageSwitch::Choice::System)
        return LanguageSwitch::languageFor(QLocale::system().uiLanguages());
    return choiceNames[static_cast<std::size_t>(choice)];
}

void putIntoEffect(QString const& language)
{
    languageInEffect = language;
    // Numbers and dates are those of the language, whatever the system's are.
    QLocale::setDefault(language == QLatin1String("de")
                            ? QLocale(QLocale::German, QLocale::Germany)
                            : QLocale(QLocale::English, QLocale::UnitedStates));
    if (texts) {
        texts->take(language);
    } else {
        texts = new LanguageTexts;
        texts->setParent(QCoreApplication::instance());
        texts->take(language);
        QCoreApplication::installTranslator(texts);
    }
    if (Application::Instance) {
        Application::Instance->commandManager().languageChange();
        Application::Instance->commandManager().updateActions();
    }
    QEvent change(QEvent::LanguageChange);
    QCoreApplication::sendEvent(QCoreApplication::instance(), &change);
    // The view draws words, but only when it is asked to.
    if (MainWindow* const window = MainWindow::getInstance())
        window->updateActiveGLView();
}

}  // namespace

void LanguageSwitch::applyStored()
{
    putIntoEffect(languageOf(choice()));
}

LanguageSwitch::Choice LanguageSwitch::choice()
{
    QString const name = storedValue(languageKey).toString();
    auto const found = std::find(choiceNames.begin(), choiceNames.end(), name);
    return found == choiceNames.end() ? Choice::System : Choice(found - choiceNames.begin());
}

void LanguageSwitch::setLanguage(Choice choice)
{
    storeValue(languageKey, choiceNames[static_cast<std::size_t>(choice)]);
    putIntoEffect(languageOf(choice));
}

QString LanguageSwitch::language()
{
    return languageInEffect;
}

QString LanguageSwitch::languageFor(QStringList const& wanted)
{
    for (QString const& name : wanted)
        for (QString const& language : languages)
            if (name.section(QRegularExpression("[-_.]"), 0, 0).toLower() == language)
                return language;
    return languages[0];
}
