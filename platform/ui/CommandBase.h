// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace Base {

class Action;

/// The texts and pictures of a command, which a subclass's constructor fills, and its action. Texts
/// are in the source language; they are translated in the context className().
class CommandBase
{
public:
    CommandBase() = default;
    CommandBase(CommandBase const&) = delete;
    CommandBase& operator=(CommandBase const&) = delete;

    virtual ~CommandBase() = default;
    /// The command's action, made on first use; needs a QApplication. Null if there is none.
    virtual Action* getAction() = 0;
    /// Translates the action's texts anew.
    virtual void languageChange() = 0;
    virtual Action* createAction() = 0;
    /// Brings the action in line with a state that the command keeps; here it keeps none.
    virtual void updateAction(int state);
    virtual char const* className() const = 0;

    virtual QString getMenuText() const { return m_menuText; }
    virtual QString getToolTipText() const { return m_toolTipText; }
    virtual QString getToolTipExtText() const { return m_toolTipExtText; }
    /// The translated tool tip as rich text, with the picture that the extended text names.
    virtual QString getToolTipHTML() const;
    virtual QString getStatusTip() const { return m_statusTip; }
    virtual QString getWhatsThis() const { return m_whatsThis; }
    // Resource paths and key sequences; null if there is none.
    virtual char const* getPixmap() const { return m_pixmap; }
    virtual char const* getPixmapDark() const { return m_pixmapDark; }
    virtual char const* getAccel() const { return m_accel; }
    /// The picture of the tool tip and of the menu under the current theme.
    virtual QString getToopTipPixmap() const;
    virtual QString getMenuPixmap() const;

protected:
    QString m_menuText;
    QString m_toolTipText;
    QString m_toolTipExtText;
    QString m_statusTip;
    QString m_whatsThis;
    char const* m_pixmap = nullptr;
    char const* m_pixmapDark = nullptr;
    char const* m_accel = nullptr;
    QString m_group;
};

}  // namespace Base
