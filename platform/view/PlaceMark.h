// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/document/sigslot.h"
#include "platform/geometry/UPoint3.h"

#include <QWidget>

#include <string>

namespace Base {

class DocumentObject;
class GLView;

/// A ring over the view around a place of a part that a person is to look at. It follows the
/// camera, is hidden by no part, and leaves the mouse to the view. It goes when a part changes,
/// comes or goes, when something else is selected, when a job starts, and when another place is
/// shown.
class PlaceMark : public QWidget, public sigslot::has_slots<sigslot::single_threaded>
{
    Q_OBJECT

public:
    /// Brings a place into the middle of the picture, near enough to be seen, and marks it. The
    /// view keeps its direction, and while a tool is drawn in it the depth of its reference plane.
    ///
    /// place  world millimetres
    /// part   it lies on; null if that is not known. Its size says how near the view goes
    static void show(GLView& view, UPoint3<float> const& place, DocumentObject const* part);
    /// The mark that stands in a view; null without one.
    static PlaceMark* in(GLView const& view);

    UPoint3<float> const& place() const { return m_place; }

protected:
    void paintEvent(QPaintEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    PlaceMark(GLView& view, UPoint3<float> const& place);
    void follow();
    void leave();
    void objectCameOrChanged(DocumentObject* object);
    void objectWent(DocumentObject* object, std::string className);

    GLView& m_view;
    UPoint3<float> m_place;
};

}  // namespace Base
