// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/parts/PartCheck.h"

#include <QWidget>

#include <array>
#include <map>

class DocumentFollower;
class FlawList;
class MeshSurvey;
class PushButtonAnimate;
class QLabel;
class QPlainTextEdit;

/// Tells the triangles, size, volume, area and errors of the selected parts, and checks and repairs
/// them in the background. A repair is one undo step, and what was found is told in words.
class PartInformation : public QWidget
{
    Q_OBJECT

public:
    enum Line
    {
        Name,
        Triangles,
        Size,
        Volume,
        Area,
        Closed,
        Errors,
        Fit,
        LineCount
    };

    /// The Application exists.
    explicit PartInformation(QWidget* parent = nullptr);
    ~PartInformation() override;

    QString text(Line line) const;
    QString report() const;
    PushButtonAnimate& checkButton() const { return *m_check; }
    PushButtonAnimate& repairButton() const { return *m_repair; }
    FlawList& flaws() const { return *m_flaws; }

    /// What the buttons do; without a selection or while a job runs they do nothing.
    void checkSelected();
    void repairSelected();

protected:
    void changeEvent(QEvent* event) override;

private:
    using Parts = std::vector<Mesh::DocumentObject*>;

    void build();
    void retranslate();
    void refresh();
    void showFacts(Parts const& parts);
    QString errorsOf(Parts const& parts) const;
    void start(PartCheck::Kind kind);
    void finish(PartCheck::Kind kind, PartCheck::Outcome outcome,
                PartCheck::Findings const& findings, QString const& reason);
    void takeOver(PartCheck::Findings const& findings);
    void remember(MeshKernel const& kernel, PartCheck::Counts const& counts);
    void showReport(QString const& text);
    Parts parts() const;
    QString whyInactive() const;
    static QString fitOf(std::vector<Mesh::DocumentObject*> const& selected);

    /// What is known of a mesh's errors.
    struct Known
    {
        std::weak_ptr<UMesh<float> const> mesh;
        PartCheck::Counts counts;
    };

    DocumentFollower* m_follower;
    std::shared_ptr<MeshSurvey> m_survey;
    std::map<UMesh<float> const*, Known> m_known;
    std::array<QLabel*, LineCount> m_titles{};
    std::array<QLabel*, LineCount> m_values{};
    QLabel* m_hint;
    QWidget* m_facts;
    PushButtonAnimate* m_check;
    PushButtonAnimate* m_repair;
    QPlainTextEdit* m_report;
    FlawList* m_flaws;
    PartCheck m_job;
};
