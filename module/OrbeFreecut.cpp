// SPDX-License-Identifier: GPL-3.0-or-later
#include "module/OrbeFreecut.h"

Base::Type OrbeFreecut::classTypeId = Base::Type::badType();

void OrbeFreecut::init()
{
    initSubclass(classTypeId, "OrbeFreecut", "AppModule", create);
}

void* OrbeFreecut::create()
{
    return new OrbeFreecut;
}

Base::Type OrbeFreecut::getTypeId() const
{
    return classTypeId;
}

std::string OrbeFreecut::getClassName() const
{
    return "OrbeFreecut";
}

bool OrbeFreecut::createModule()
{
    return true;
}

bool OrbeFreecut::finishModule()
{
    return true;
}

bool OrbeFreecut::deleteModule(std::string)
{
    return true;
}
