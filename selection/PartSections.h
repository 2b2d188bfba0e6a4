// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "display/ContourItem.h"
#include "display/NewestWork.h"
#include "platform/view/LiveCut.h"
#include "tools/PartSection.h"

#include <QPointer>

#include <memory>
#include <vector>

namespace Base {
class GLView;
}

namespace Freecut {

/// The section of the visible parts of a view by planes, to which points can be drawn. It is found in
/// the background and kept as long as parts and planes stay as they are; what holds is what is drawn.
///
/// thread  the user interface thread
class PartSections
{
public:
    PartSections();
    ~PartSections();

    /// Draws the sections over a view, and has them found if something has changed.
    ///
    /// planes  world millimetres
    void show(Base::GLView& view, std::vector<SectionPlane> const& planes);
    void hide();
    /// Takes them out of their view.
    void remove();

    /// What is drawn; empty while it is hidden, or not found yet.
    SectionLines const& section() const;
    NewestWork& work() { return m_work; }

private:
    struct Part
    {
        /// Holding it keeps the records as they are.
        std::shared_ptr<UMesh<float> const> mesh;
        UMatrix4<float> matrix;

        bool operator==(Part const& other) const;
    };
    struct Request
    {
        std::vector<Part> parts;
        std::vector<SectionPlane> planes;

        bool operator==(Request const&) const = default;
    };

    static std::vector<Part> partsIn(Base::GLView const& view);
    static SectionLines sectionOf(Request const& request, NewestWork::Poll const& poll);
    void ask(Request request);
    void draw();

    QPointer<Base::GLView> m_view;
    std::unique_ptr<ContourItem> m_item;
    Request m_request;
    SectionLines m_found;
    bool m_isShown = false;
    NewestWork m_work;
};

}  // namespace Freecut
