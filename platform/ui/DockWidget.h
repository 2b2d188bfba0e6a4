// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

class CutView;
class QVBoxLayout;

/// A page of the side control: groups one below the other.
class DockWidget : public QWidget
{
    Q_OBJECT

public:
    /// name  what SideControlTab::getDock finds it by
    explicit DockWidget(QString const& name, QWidget* parent = nullptr);

    QString const& name() const { return m_name; }

    /// Puts a group below the others; the page takes ownership.
    void addGroup(QWidget* group);

    /// The live cut view on this page, or null.
    CutView* getCutView() const;

private:
    QString m_name;
    QVBoxLayout* m_groups;
};
