// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/commands/CombineCommands.h"

#include "app/commands/HostCommand.h"
#include "app/panels/PartCombiner.h"
#include "platform/ui/CommandManager.h"
#include "platform/view/GLView.h"

#include <QCoreApplication>
#include <QPointer>

namespace {

using Operation = PartCombiner::Operation;

class CombineCommand : public HostCommand
{
public:
    CombineCommand(char const* name, Texts const& texts, Operation operation,
                   PartCombiner& combiner)
        : HostCommand(name, texts), m_operation(operation), m_combiner(&combiner)
    {}

    QString whyInactive() const override
    {
        if (PartCombiner::canTake(m_operation, PartCombiner::chosen().size()))
            return {};
        return m_operation == Operation::Shells
                   ? translated(QT_TRANSLATE_NOOP("HostCommand", "Select a single part first."))
                   : translated(
                         QT_TRANSLATE_NOOP("HostCommand", "Select two parts or more first."));
    }

    void activated(int) override
    {
        if (m_combiner)
            m_combiner->combine(m_operation);
    }

private:
    Operation m_operation;
    QPointer<PartCombiner> m_combiner;
};

class DuplicateRowCommand : public HostCommand
{
public:
    explicit DuplicateRowCommand(PartCombiner& combiner)
        : HostCommand("Std_DuplicateRow",
                      {QT_TRANSLATE_NOOP("HostCommand", "Duplicate in a Ro&w..."),
                       QT_TRANSLATE_NOOP("HostCommand",
                                         "Put copies of the selected parts in a row beside "
                                         "them."),
                       "app_row", "Ctrl+Alt+D"}),
          m_combiner(&combiner)
    {}

    QString whyInactive() const override
    {
        return PartCombiner::chosen().empty() ? whyNothingSelected() : QString();
    }

    void activated(int) override
    {
        if (m_combiner)
            m_combiner->duplicateInRow();
    }

private:
    QPointer<PartCombiner> m_combiner;
};

}  // namespace

void registerCombineCommands(Base::CommandManager& manager, Base::GLView& view)
{
    PartCombiner& combiner = *new PartCombiner(view);
    auto const add = [&](char const* name, Operation operation, HostCommand::Texts const& texts) {
        manager.addCommand(new CombineCommand(name, texts, operation, combiner));
    };
    add("Std_Join", Operation::Join,
        {QT_TRANSLATE_NOOP("HostCommand", "&Join"),
         QT_TRANSLATE_NOOP("HostCommand",
                           "Make one solid of the selected parts, without walls inside."),
         "app_join"});
    add("Std_TakeAway", Operation::TakeAway,
        {QT_TRANSLATE_NOOP("HostCommand", "Take A&way..."),
         QT_TRANSLATE_NOOP("HostCommand", "Take the other selected parts away from one of them."),
         "app_take_away"});
    add("Std_Intersect", Operation::Intersect,
        {QT_TRANSLATE_NOOP("HostCommand", "&Intersect"),
         QT_TRANSLATE_NOOP("HostCommand", "Keep what the selected parts have in common."),
         "app_intersect"});
    add("Std_SplitByParts", Operation::Split,
        {QT_TRANSLATE_NOOP("HostCommand", "Split &by Parts..."),
         QT_TRANSLATE_NOOP("HostCommand",
                           "Split one of the selected parts into what lies within the others and "
                           "the rest."),
         "app_split_by"});
    add("Std_SplitShells", Operation::Shells,
        {QT_TRANSLATE_NOOP("HostCommand", "Split into Shells"),
         QT_TRANSLATE_NOOP("HostCommand",
                           "Make a part of each piece of the selected part that hangs together; "
                           "cavities stay with theirs."),
         "app_split_shells"});
    add("Std_Merge", Operation::Merge,
        {QT_TRANSLATE_NOOP("HostCommand", "&Merge"),
         QT_TRANSLATE_NOOP("HostCommand",
                           "Put the selected parts into one as they are, walls inside "
                           "included."),
         "app_merge"});
    manager.addCommand(new DuplicateRowCommand(combiner));
}
