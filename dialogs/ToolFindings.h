// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QString>

#include <functional>

namespace Freecut {

class VolumeGraphicObject;

/// Finds what is wrong with the solid tool that a dialog edits. Long outlines are derived in the
/// background: until they are there, what was found last counts.
///
/// thread  the user interface thread
class ToolFindings : public QObject
{
    Q_OBJECT

public:
    /// The tool that the dialog shows, or null.
    using Tool = std::function<VolumeGraphicObject*()>;
    /// Whether a tool is drawn to its end.
    using IsComplete = std::function<bool(VolumeGraphicObject&)>;

    ToolFindings(Tool tool, IsComplete isComplete, QObject* parent);

    /// Follows the outlines of a tool from now on; null for none.
    void follow(VolumeGraphicObject const* tool);
    /// Looks at the tool anew.
    void refresh();
    /// Why the tool cannot cut; empty if it can, or if it is not complete yet.
    QString problem() const;

signals:
    /// problem  as above
    void found(QString const& problem);
    /// Outlines that were derived in the background are there.
    void derived();

private:
    Tool m_tool;
    IsComplete m_isComplete;
    QMetaObject::Connection m_outlines;
};

}  // namespace Freecut
