// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAction>
#include <QObject>

class QWidget;

namespace Base {

class Command;

/// An action bound to a command; needs a QApplication. A trigger by the user invokes the command:
/// with 0, or for a checkable action with its new check state. setChecked invokes nothing.
class Action : public QObject
{
    Q_OBJECT

public:
    Action(Command* command, QObject* parent);
    ~Action() override;

    virtual void setEnabled(bool enabled);
    virtual void setVisible(bool visible);
    virtual void setCheckable(bool checkable);
    virtual void setChecked(bool checked);
    /// Whether widgets show a checkable action as a check box rather than as a pressed button.
    virtual void setShowAsCheckBox(bool show);
    virtual bool isShowAsCheckBox() const;
    virtual bool isChecked() const;
    virtual void setShortcut(QString const& keys);
    virtual QString shortcut() const;
    virtual void setIcon(QIcon const& icon);
    virtual void setStatusTip(QString const& text);
    virtual QString statusTip() const;
    virtual void setText(QString const& text);
    virtual QString text() const;
    virtual void setToolTip(QString const& text);
    virtual QString toolTip() const;
    virtual void setWhatsThis(QString const& text);
    virtual QString whatsThis() const;
    virtual void setMenuRole(QAction::MenuRole role);
    virtual QAction* getQAction() const;
    /// A tool button takes it as its own action; other widgets get it appended.
    virtual void addTo(QWidget* widget);

    Command* getCommand() const { return m_command; }

public slots:
    virtual void onActivated();
    virtual void onToggled(bool checked);

private:
    Command* m_command;
    QAction* m_action;
    bool m_showAsCheckBox = false;
};

}  // namespace Base
