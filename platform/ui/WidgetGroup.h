// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFrame>

class GroupHeader;
class QPropertyAnimation;
class QVBoxLayout;

/// A titled frame around a content that can be collapsed to the title, by a click on it, by Space
/// or Enter. Starts expanded and expandable.
class WidgetGroup : public QFrame
{
    Q_OBJECT

public:
    explicit WidgetGroup(QWidget* parent = nullptr);
    explicit WidgetGroup(QString const& title, QWidget* parent = nullptr);

    void setTitleName(QString const& title);
    QString titleName() const;

    /// Takes the content and owns it; one that it had before is deleted.
    void setWidget(QWidget* content);
    QWidget* widget() const { return m_content; }

    /// Shows or hides the content; `animated` lets it slide where the system wants animations.
    /// A group that is not expandable stays expanded.
    void setExpand(bool expanded, bool animated);
    bool isExpanded() const { return m_isExpanded; }

    /// Whether the title collapses the group. Taking it away expands the group.
    virtual bool isExpandable() const { return m_isExpandable; }
    virtual void setExpandable(bool expandable);

    /// Whether the title has the arrow that shows its state.
    void setIconVisible(bool visible);
    /// Gives the title a check box, checked at first; the content is enabled while it is checked.
    void setCheckable(bool checkable);
    bool isChecked() const;
    void setChecked(bool checked);

    /// Keeps the content at its natural height, above empty room.
    void addStretch();
    void setTitleContentsMargins(int left, int top, int right, int bottom);

signals:
    /// The user has expanded or collapsed the group.
    void expandChanged(bool expanded);
    void toggled(bool checked);

protected:
    /// For derived groups: a title of the second level is smaller and has no ground.
    WidgetGroup(QString const& title, bool isSecondLevel, QWidget* parent);
    void setContentMargins(int left, int top, int right, int bottom);
    void changeEvent(QEvent* event) override;

private:
    void showContent(bool shown);
    void slide(bool open, int duration);

    GroupHeader* m_header;
    QVBoxLayout* m_layout;
    QWidget* m_room;
    QVBoxLayout* m_roomLayout;
    QWidget* m_content = nullptr;
    QPropertyAnimation* m_animation = nullptr;
    bool m_isExpanded = true;
    bool m_isExpandable = true;
};
