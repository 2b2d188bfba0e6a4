// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "selection/FreecutSelection.h"

namespace Freecut {

class VolumeGraphicObject;

/// A mouse tool that draws a solid tool on the screen. Only the classes below are used.
class VolumeSelection : public FreecutSelection
{
public:
    static Base::Type classTypeId;
    static Base::Type getClassTypeId() { return classTypeId; }
    static void init();
    static void* create();

    VolumeSelection();
    ~VolumeSelection() override;

    Base::Type getTypeId() const override;
    std::string getClassName() const override;

    /// The tool object; null until the first click that is taken.
    virtual VolumeGraphicObject* getGraphicObject() const;
    /// Takes the tool object out and deletes it, so that the tool can be drawn anew.
    virtual void resetSelection();

protected:
    /// The world point under a widget position in the plane in which a tool is drawn.
    UPoint3<float> sketchPoint(QPoint position, float sketchDepth) const;

    /// Takes a new tool object over: gives it its depth and the view's camera, puts it into the
    /// active document and selects it. Without a document it is deleted, and the result is false.
    bool startTool(VolumeGraphicObject* tool);

    VolumeGraphicObject* graphicObject = nullptr;
};

}  // namespace Freecut
