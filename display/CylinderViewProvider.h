// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "display/VolumeViewProvider.h"
#include "platform/document/TypeEntry.h"

namespace Freecut {

class CylinderGraphicObject;

/// Shows a cylinder tool, with a handle on the centre, and on the notch if there is one.
class CylinderViewProvider : public Base::TypeEntry<CylinderViewProvider, VolumeViewProvider>
{
public:
    static constexpr char const* typeName = "Freecut::CylinderViewProvider";

    void initGL() override;
    void paintGL() override;
    void buildMarkers() override;

protected:
    std::unique_ptr<VolumeOutline> makeOutline() const override;
    LinePicture linePicture() const override;
    std::vector<LabelledPoint> labels() const override;

private:
    CylinderGraphicObject* tool() const;
};

}  // namespace Freecut
