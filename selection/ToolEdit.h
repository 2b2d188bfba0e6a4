// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace Freecut {

class PlaneGraphicObject;
class VolumeGraphicObject;

/// The steps that follow a change of a tool's record, in their order. A step that an edit has to
/// leave out is named where it is.
struct EditSteps
{
    /// The record derives what follows from the change: the key points of a plane, the eye-space
    /// points of a solid tool.
    bool updatesRecord = true;
    /// The record takes the teeth of a polygon over into eye space. Others have none.
    bool updatesTeeth = true;
    /// What shows the tool derives its geometry anew.
    bool updatesProvider = true;
    /// The tool's signalChanged, by which dialogs follow.
    bool tellsListeners = true;
    /// The view paints.
    bool redraws = true;
};

/// Runs what follows an edit of a tool's record: record, view provider, signal, picture, and the
/// history of edits. The view provider reads what the record has derived, so the record always comes
/// first. Each step does nothing where there is nobody for it: a tool in no document, a document
/// without a view.
///
/// thread  the user interface thread
void finishEdit(PlaneGraphicObject& tool, EditSteps const& steps = {});
void finishEdit(VolumeGraphicObject& tool, EditSteps const& steps = {});

}  // namespace Freecut
