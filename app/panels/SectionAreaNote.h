// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UMatrix4.h"
#include "platform/geometry/UPoint3.h"
#include "platform/mesh/UMesh.h"
#include "platform/view/GLGraphicsItem.h"

#include <QObject>
#include <QThreadPool>

#include <atomic>
#include <memory>
#include <optional>
#include <vector>

class DocumentFollower;
class OverlayLabel;

namespace Mesh {
class GLView;
}

/// Tells in the corner of a view in which area a plane goes through the shown parts: that of a cut
/// plane while there is one, else that by which the view cuts the parts open. Worked out in the
/// background; what has been overtaken is given up.
///
/// thread  the user interface thread
class SectionAreaNote : public QObject, public Base::GLGraphicsItem
{
    Q_OBJECT

public:
    /// The view becomes the parent.
    explicit SectionAreaNote(Mesh::GLView& view);
    /// Waits for the work at which the thread is, which gives up.
    ~SectionAreaNote() override;

    /// What is shown; empty while nothing is.
    QString text() const;

    void paintGL() override;
    void initGL() override {}

signals:
    void changed();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Plane
    {
        UPoint3<float> point;
        UVector3<float> normal;
        bool operator==(Plane const&) const = default;
    };
    struct Slice
    {
        std::shared_ptr<UMesh<float> const> mesh;
        UMatrix4<float> placement;
        bool operator==(Slice const&) const = default;
    };
    struct Question
    {
        Plane plane;
        std::vector<Slice> slices;
        bool operator==(Question const&) const = default;
    };

    std::optional<Plane> plane() const;
    void refresh();
    void ask(Question question);
    void take(int number, std::optional<double> area);
    void show(std::optional<double> area);
    void place();
    void dropLabel();

    Mesh::GLView& m_view;
    DocumentFollower* m_follower;
    /// Null while there is nothing to tell: views are searched for labels of others.
    OverlayLabel* m_label = nullptr;
    std::optional<Plane> m_plane;
    std::optional<Question> m_asked;
    std::optional<double> m_area;
    /// Of the question that counts.
    std::shared_ptr<std::atomic<int>> m_number = std::make_shared<std::atomic<int>>(0);
    QThreadPool m_thread;
};
