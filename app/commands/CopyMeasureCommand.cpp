// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/commands/CopyMeasureCommand.h"

#include "app/commands/HostCommand.h"
#include "app/panels/SectionAreaNote.h"
#include "app/tools/MeasureTool.h"
#include "platform/ui/CommandManager.h"
#include "platform/ui/MainWindow.h"
#include "platform/view/GLView.h"
#include "platform/view/NavigationStyle.h"

#include <QClipboard>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QPointer>

namespace {

class CopyMeasureCommand : public HostCommand
{
public:
    explicit CopyMeasureCommand(SectionAreaNote& area)
        : HostCommand(
              "Std_CopyMeasure",
              {QT_TRANSLATE_NOOP("HostCommand", "Cop&y the Measure"),
               QT_TRANSLATE_NOOP("HostCommand", "Copy what is measured, or the area of the cut."),
               nullptr, "Ctrl+C"}),
          m_area(&area)
    {}

    bool changesDocument() const override { return false; }

    QString whyInactive() const override
    {
        return shown().isEmpty()
                   ? translated(QT_TRANSLATE_NOOP("HostCommand",
                                                  "Nothing is measured: use Measure or the "
                                                  "cut view first."))
                   : QString();
    }

    void activated(int) override
    {
        if (QString const text = shown(); !text.isEmpty())
            QGuiApplication::clipboard()->setText(text);
    }

private:
    QString shown() const
    {
        MainWindow const* const window = MainWindow::getInstance();
        Base::GLView const* const view = window ? window->activeGLView() : nullptr;
        auto const* const tool =
            view ? dynamic_cast<MeasureTool const*>(view->navigationStyle()->mouseModel())
                 : nullptr;
        if (tool && !tool->text().isEmpty())
            return tool->text();
        return m_area ? m_area->text() : QString();
    }

    QPointer<SectionAreaNote> m_area;
};

}  // namespace

void registerCopyMeasureCommand(Base::CommandManager& manager, SectionAreaNote& area)
{
    manager.addCommand(new CopyMeasureCommand(area));
}
