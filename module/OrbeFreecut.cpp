// SPDX-License-Identifier: GPL-3.0-or-later
#include "module/OrbeFreecut.h"

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
