// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "display/NewestWork.h"
#include "platform/geometry/UPoint3.h"

#include <QLabel>

#include <functional>
#include <optional>
#include <vector>

namespace Mesh {
class DocumentObject;
}

namespace Freecut {

/// Warns before the cut of parts that the plane does not meet: a line of text with their names, or
/// nothing. It is told of every change by refresh() and looks once the events are done: at the boxes
/// of the parts at once, at the points of those whose box is met in the background.
class MissedParts : public QLabel
{
    Q_OBJECT

public:
    struct Scene
    {
        UPoint3<float> point;
        UVector3<float> normal;
        /// Borrowed for the event.
        std::vector<Mesh::DocumentObject*> parts;
    };

    explicit MissedParts(QWidget* parent);

    /// scene  asked after a change; gives nothing where there is no plane yet
    void setScene(std::function<std::optional<Scene>()> scene) { m_scene = std::move(scene); }
    /// Something may have changed.
    void refresh();
    /// What looks at points.
    NewestWork const& work() const { return m_work; }

protected:
    void changeEvent(QEvent* event) override;

private:
    void look();
    void tell(QStringList const& missed);

    std::function<std::optional<Scene>()> m_scene;
    bool m_isPending = false;
    NewestWork m_work;
};

}  // namespace Freecut
