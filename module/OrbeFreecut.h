// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/document/TypeEntry.h"
#include "platform/ui/AppModule.h"

/// The module class of the plug-in. The host makes it by name; it has no state of its own.
class OrbeFreecut : public Base::TypeEntry<OrbeFreecut, AppModule>
{
public:
    static constexpr char const* typeName = "OrbeFreecut";

    bool createModule() override;
    bool finishModule() override;
    bool deleteModule(std::string documentName) override;
};
