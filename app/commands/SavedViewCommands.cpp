// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/commands/SavedViewCommands.h"

#include "app/commands/HostCommand.h"
#include "app/commands/SavedViews.h"
#include "platform/ui/CommandManager.h"
#include "platform/ui/MainWindow.h"

#include <QCoreApplication>
#include <QInputDialog>
#include <QMenu>
#include <QPointer>

#include <iterator>

namespace {

class SavedViewCommand : public HostCommand
{
public:
    SavedViewCommand(char const* name, Texts const& texts, SavedViews& views)
        : HostCommand(name, texts), m_views(&views)
    {}

    bool changesDocument() const override { return false; }

protected:
    QStringList names() const { return m_views ? m_views->names() : QStringList(); }

    QPointer<SavedViews> m_views;
};

class SaveViewCommand : public SavedViewCommand
{
public:
    explicit SaveViewCommand(SavedViews& views)
        : SavedViewCommand(
              "Std_SaveView",
              {QT_TRANSLATE_NOOP("HostCommand", "&Keep This View..."),
               QT_TRANSLATE_NOOP("HostCommand",
                                 "Keep where you look from by a name, with the project."),
               nullptr, "Ctrl+Shift+V"},
              views)
    {}

    QString whyInactive() const override
    {
        return names().size() < SavedViews::most
                   ? QString()
                   : translated(QT_TRANSLATE_NOOP("HostCommand",
                                                  "There are nine views: remove one first."));
    }

    void activated(int) override
    {
        if (!m_views)
            return;
        bool isGiven = false;
        QString const name =
            QInputDialog::getText(MainWindow::getInstance(),
                                  translated(QT_TRANSLATE_NOOP("HostCommand", "Keep This View")),
                                  translated(QT_TRANSLATE_NOOP("HostCommand", "Name of the view:")),
                                  QLineEdit::Normal, m_views->freeName(), &isGiven)
                .simplified();
        if (isGiven && !name.isEmpty())
            m_views->save(name);
    }
};

class RemoveViewCommand : public SavedViewCommand
{
public:
    explicit RemoveViewCommand(SavedViews& views)
        : SavedViewCommand("Std_RemoveView",
                           {QT_TRANSLATE_NOOP("HostCommand", "&Remove a View..."),
                            QT_TRANSLATE_NOOP("HostCommand", "Forget a view that was kept.")},
                           views)
    {}

    QString whyInactive() const override
    {
        return names().isEmpty() ? translated(QT_TRANSLATE_NOOP("HostCommand", "No view was kept."))
                                 : QString();
    }

    void activated(int) override
    {
        bool isChosen = false;
        QString const name =
            QInputDialog::getItem(MainWindow::getInstance(),
                                  translated(QT_TRANSLATE_NOOP("HostCommand", "Remove a View")),
                                  translated(QT_TRANSLATE_NOOP("HostCommand", "View to remove:")),
                                  names(), 0, false, &isChosen);
        if (isChosen && m_views)
            m_views->remove(name);
    }
};

struct Place
{
    char const* name;
    char const* text;
    char const* keys;
};

constexpr Place places[] = {
    {"Std_SavedView1", QT_TRANSLATE_NOOP("HostCommand", "Kept View 1"), "Alt+1"},
    {"Std_SavedView2", QT_TRANSLATE_NOOP("HostCommand", "Kept View 2"), "Alt+2"},
    {"Std_SavedView3", QT_TRANSLATE_NOOP("HostCommand", "Kept View 3"), "Alt+3"},
    {"Std_SavedView4", QT_TRANSLATE_NOOP("HostCommand", "Kept View 4"), "Alt+4"},
    {"Std_SavedView5", QT_TRANSLATE_NOOP("HostCommand", "Kept View 5"), "Alt+5"},
    {"Std_SavedView6", QT_TRANSLATE_NOOP("HostCommand", "Kept View 6"), "Alt+6"},
    {"Std_SavedView7", QT_TRANSLATE_NOOP("HostCommand", "Kept View 7"), "Alt+7"},
    {"Std_SavedView8", QT_TRANSLATE_NOOP("HostCommand", "Kept View 8"), "Alt+8"},
    {"Std_SavedView9", QT_TRANSLATE_NOOP("HostCommand", "Kept View 9"), "Alt+9"},
};
static_assert(std::size(places) == SavedViews::most);

class ShowViewCommand : public SavedViewCommand
{
public:
    ShowViewCommand(int number, SavedViews& views)
        : SavedViewCommand(places[number].name,
                           {places[number].text,
                            QT_TRANSLATE_NOOP("HostCommand", "Look from where you kept a view."),
                            nullptr, places[number].keys},
                           views),
          m_number(number)
    {}

    QString whyInactive() const override
    {
        return m_number < names().size() ? QString()
                                         : translated(QT_TRANSLATE_NOOP(
                                               "HostCommand", "So many views were not kept yet."));
    }

    QString currentText() const override
    {
        return m_number < names().size()
                   ? QString(names()[m_number]).replace('&', QStringLiteral("&&"))
                   : HostCommand::currentText();
    }

    void activated(int) override
    {
        if (m_views)
            m_views->show(m_number);
    }

private:
    int m_number;
};

}  // namespace

void registerSavedViewCommands(Base::CommandManager& manager, SavedViews& views)
{
    manager.addCommand(new SaveViewCommand(views));
    manager.addCommand(new RemoveViewCommand(views));
    for (int number = 0; number < SavedViews::most; ++number)
        manager.addCommand(new ShowViewCommand(number, views));
}

void fillSavedViewMenu(QMenu& menu, Base::CommandManager& manager)
{
    menu.clear();
    menu.setTitle(QCoreApplication::translate("HostCommand", "&Kept Views"));
    manager.addTo("Std_SaveView", &menu);
    menu.addSeparator();
    for (Place const& place : places)
        manager.addTo(place.name, &menu);
    menu.addSeparator();
    manager.addTo("Std_RemoveView", &menu);
}
