// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "display/VolumeViewProvider.h"
#include "platform/document/TypeEntry.h"

namespace Freecut {

class CuboidGraphicObject;

/// Shows a cuboid tool, with a handle on each corner.
class CuboidViewProvider : public Base::TypeEntry<CuboidViewProvider, VolumeViewProvider>
{
public:
    static constexpr char const* typeName = "Freecut::CuboidViewProvider";

    void initGL() override;
    void paintGL() override;
    void buildMarkers() override;

protected:
    std::unique_ptr<VolumeOutline> makeOutline() const override;
    LinePicture linePicture() const override;
    std::vector<LineRun> faces33() const override;
    std::vector<LabelledPoint> labels() const override;

private:
    CuboidGraphicObject* tool() const;
};

}  // namespace Freecut
