// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tools/PolygonProperty.h"
#include "tools/ToolTypeEntry.h"
#include "tools/VolumeGraphicObject.h"

namespace Freecut {

class TLabel;

/// A prism over a drawn polygon, whose edges may carry teeth.
class PolygonGraphicObject : public ToolTypeEntry<PolygonGraphicObject, VolumeGraphicObject>
{
public:
    static constexpr char const* typeName = "Freecut::PolygonGraphicObject";

    PolygonGraphicObject();
    ~PolygonGraphicObject() override;

    std::string getViewProviderName() const override;
    /// Deletes the labels and the records of the teeth.
    void freeMemory() override;

    VolumeProperty& getVolumeProperty() override { return property; }
    PolygonProperty& getProperty() { return property; }
    PolygonProperty const& getProperty() const { return property; }

    /// The vertices in drawing order, without a closing repeat.
    std::vector<UPoint3<float>> getPoints() const { return property.getKeyPoints(); }

    /// One for each vertex, in the same order; the tool owns them.
    std::vector<TLabel*> const& getPointLabels() const { return pointLabels; }
    std::vector<TLabel*>& getPointLabels() { return pointLabels; }

private:
    PolygonProperty property;
    std::vector<TLabel*> pointLabels;
};

}  // namespace Freecut
