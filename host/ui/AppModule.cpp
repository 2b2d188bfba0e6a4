// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/ui/AppModule.h"

constinit Base::Type AppModule::classTypeId;

void AppModule::init()
{
    initSubclass(classTypeId, "AppModule", "Base::BaseClass", nullptr);
}

AppModule::AppModule() = default;
AppModule::AppModule(AppModule const&) = default;
AppModule& AppModule::operator=(AppModule const&) = default;
AppModule::~AppModule() = default;

Base::Type AppModule::getTypeId() const
{
    return classTypeId;
}

std::string AppModule::getClassName() const
{
    return "AppModule";
}

std::string AppModule::getName() const
{
    return m_name;
}

void AppModule::setName(std::string name)
{
    m_name = std::move(name);
}

Base::Document* AppModule::getDocument() const
{
    return m_document;
}

void AppModule::setDocument(Base::Document* document)
{
    m_document = document;
}

void AppModule::activate() {}

void AppModule::setSupportNewShader(bool supported)
{
    m_supportsNewShader = supported;
}
