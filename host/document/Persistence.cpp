// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/document/Persistence.h"

namespace Base {

constinit Type Persistence::classTypeId;

void Persistence::init()
{
    initSubclass(classTypeId, "Base::Persistence", "Base::BaseClass", nullptr);
}

Type Persistence::getTypeId() const
{
    return classTypeId;
}

std::string Persistence::getClassName() const
{
    return "Base::Persistence";
}

std::size_t Persistence::getMemSize() const
{
    return 0;
}

void Persistence::save(Writer& writer) const {}

void Persistence::restore(XMLReader& reader) {}

bool Persistence::SaveDocFile(std::string file) const
{
    return false;
}

bool Persistence::SaveDocFile(Writer& writer, std::function<void(int)> progress) const
{
    return false;
}

bool Persistence::RestoreDocFile(std::string file)
{
    return false;
}

bool Persistence::RestoreDocFile(Reader& reader, std::function<void(int)> progress)
{
    return false;
}

}  // namespace Base
