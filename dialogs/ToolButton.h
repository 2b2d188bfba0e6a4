// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QToolButton>

namespace Freecut {

/// A button of a dialog that shows and triggers a command by its picture alone.
class ToolButton : public QToolButton
{
    Q_OBJECT

public:
    /// command  its name; without such a command the button stays empty
    explicit ToolButton(char const* command, QWidget* parent = nullptr);

    /// What the dialog wants; it is remembered. While the command's action is disabled the button
    /// is disabled all the same, and takes the remembered state up again after that.
    void setEnabled(bool enabled);

protected:
    void actionEvent(QActionEvent* event) override;

private:
    void followAction();

    bool m_isEnabled = true;
};

}  // namespace Freecut
