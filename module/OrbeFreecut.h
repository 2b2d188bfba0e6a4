// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/ui/AppModule.h"

/// The module class of the plug-in. The host makes it by name; it has no state of its own.
class OrbeFreecut : public AppModule
{
public:
    static Base::Type classTypeId;
    static Base::Type getClassTypeId() { return classTypeId; }
    static void init();
    static void* create();

    Base::Type getTypeId() const override;
    std::string getClassName() const override;

    bool createModule() override;
    bool finishModule() override;
    bool deleteModule(std::string documentName) override;
};
