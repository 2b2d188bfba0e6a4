// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/RegisterViewProviders.h"
#include "module/Commands.h"
#include "module/OrbeFreecut.h"
#include "platform/ui/Application.h"
#include "selection/RegisterSelections.h"
#include "tools/CylinderGraphicObject.h"
#include "tools/PlaneGraphicObject.h"
#include "tools/PolygonGraphicObject.h"

#include <QtGlobal>

/// The entry of the library. The host calls it once, on the user interface thread, before any
/// document exists. It enters the module class, then the commands, then the classes that the host
/// finds by name, each parent before its children. The cuboid is always made with new and has no
/// entry.
extern "C" Q_DECL_EXPORT void initDLLModule()
{
    OrbeFreecut::init();
    registerCommands(Application::Instance->commandManager());
    Freecut::GraphicObject::init();
    Freecut::PlaneGraphicObject::init();
    Freecut::VolumeGraphicObject::init();
    Freecut::PolygonGraphicObject::init();
    Freecut::CylinderGraphicObject::init();
    Freecut::registerViewProviders();
    Freecut::registerSelections();
}
