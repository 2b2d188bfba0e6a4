// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/parts/PartCheck.h"

#include <QWidget>

class DocumentFollower;
class FlawMarks;
class QLabel;
class QListWidget;

/// The places of the errors that a check has found in the selected parts, marked in the view, and
/// shown there one by one as they are chosen. What has been found of a part is forgotten when the
/// part changes or goes; while it is not selected it is not shown.
///
/// Hidden while there is nothing to show.
class FlawList : public QWidget
{
    Q_OBJECT

public:
    explicit FlawList(QWidget* parent = nullptr);
    ~FlawList() override;

    /// What is known of these parts from now on; of others it stays.
    void take(PartCheck::Findings const& findings);

    /// How many places are listed now.
    int count() const { return int(m_shown.size()); }
    /// Chooses the place so many rows on, and goes around at the ends.
    void step(int rows);

    QListWidget& list() const { return *m_list; }

protected:
    void changeEvent(QEvent* event) override;

private:
    struct Row
    {
        Mesh::DocumentObject* part;
        std::weak_ptr<UMesh<float> const> mesh;
        UMatrix4<float> matrix;
        Repair::FlawPlace place;
    };

    static bool isTrue(Row const& row, Base::Document const& document);
    void refresh();
    void fill();
    void mark();
    void showChosen();

    DocumentFollower* m_follower;
    std::vector<Row> m_rows;
    /// The rows that are listed, by index.
    std::vector<std::size_t> m_shown;
    QLabel* m_title;
    QListWidget* m_list;
    std::unique_ptr<FlawMarks> m_marks;
};
