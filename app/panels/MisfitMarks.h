// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UBox3.h"
#include "platform/view/GLGraphicsItem.h"

#include <QObject>

#include <vector>

class DocumentFollower;
class OverlayLabel;
class ViewAppearance;

namespace Mesh {
class GLView;
}

/// Marks in a view the shown parts that are larger than the build volume: a red box around each, and
/// a note that says by how much. Parts that only stand elsewhere are no matter of the view. Nothing
/// is marked while the build plate is not shown or the parts are drawn apart.
class MisfitMarks : public QObject, public Base::GLGraphicsItem
{
    Q_OBJECT

public:
    /// The view becomes the parent; the appearance is that of the view.
    MisfitMarks(Mesh::GLView& view, ViewAppearance const& appearance);
    ~MisfitMarks() override;

    void paintGL() override;
    void initGL() override {}

    /// Beyond these parts have a box alone: more notes would hide what they are about.
    static constexpr std::size_t mostNotes = 6;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Mark
    {
        UBox3<float> box;
        QString text;
    };

    void refresh();
    void placeNotes();

    bool isShown() const;

    Mesh::GLView& m_view;
    ViewAppearance const& m_appearance;
    bool m_wasShown = false;
    DocumentFollower* m_follower;
    std::vector<Mark> m_marks;
    std::vector<OverlayLabel*> m_notes;
};
