// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tools/CylinderProperty.h"
#include "tools/VolumeGraphicObject.h"

template <typename T>
class UMesh;

namespace Freecut {

class TLabel;

/// A round prism, with an optional key.
class CylinderGraphicObject : public VolumeGraphicObject
{
public:
    static Base::Type classTypeId;
    static Base::Type getClassTypeId() { return classTypeId; }
    static void init();
    static void* create();
    static Base::PropertyData* getPropertyDataPtr() { return &propertyData; }

    CylinderGraphicObject();
    ~CylinderGraphicObject() override;

    Base::Type getTypeId() const override;
    std::string getClassName() const override;
    Base::PropertyData const& getPropertyData() const override;
    std::string getViewProviderName() const override;
    /// Deletes the label.
    void freeMemory() override;

    VolumeProperty& getVolumeProperty() override { return property; }
    CylinderProperty& getProperty() { return property; }
    CylinderProperty const& getProperty() const { return property; }

    /// The label beside the centre, which the tool owns; null until it is set.
    TLabel* getLabel() const { return label; }
    void setLabel(TLabel* owned) { label = owned; }

    /// The nominal solid, closed and outward-facing; the caller owns it. Null if no view shows the
    /// tool.
    UMesh<float>* createMesh();
    /// The solids on both sides of the clearance, the outer one last; an inner one without
    /// vertices is left out. The caller owns them. None if no view shows the tool. Call it once
    /// after the outlines were derived.
    std::vector<UMesh<float>*> createInandOutMesh();

protected:
    static Base::PropertyData propertyData;

private:
    CylinderProperty property;
    TLabel* label = nullptr;
};

}  // namespace Freecut
