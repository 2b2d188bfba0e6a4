// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tools/VolumeGraphicObject.h"

namespace Freecut {

class TLabel;

/// What a solid tool has that is placed by its centre. It is no type of its own in the type system.
class CentredGraphicObject : public VolumeGraphicObject
{
public:
    ~CentredGraphicObject() override;

    /// Deletes the label.
    void freeMemory() override;

    /// The label beside the centre, which the tool owns; null until it is set.
    TLabel* getLabel() const { return label; }
    void setLabel(TLabel* owned) { label = owned; }

private:
    TLabel* label = nullptr;
};

}  // namespace Freecut
