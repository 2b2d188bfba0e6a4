// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/document/BaseClass.h"

namespace Base {
class Document;
}

/// A loadable module of the application. A library enters its module class in its exported function
/// `initDLLModule`; the host then makes the module by class name and calls createModule().
class AppModule : public Base::BaseClass
{
public:
    static Base::Type classTypeId;
    static Base::Type getClassTypeId() { return classTypeId; }
    static void init();

    AppModule();
    AppModule(AppModule const&);
    AppModule& operator=(AppModule const&);
    ~AppModule() override;

    Base::Type getTypeId() const override;
    std::string getClassName() const override;

    /// Called once after the module was made; false refuses to be used.
    virtual bool createModule() = 0;
    /// Called before the application ends.
    virtual bool finishModule() = 0;
    /// Called before what the module holds for the document of that name goes.
    virtual bool deleteModule(std::string documentName) = 0;
    virtual std::string getName() const;
    virtual void setName(std::string name);
    virtual Base::Document* getDocument() const;
    virtual void setDocument(Base::Document* document);
    /// The user turns to the module; a module without an interface of its own does nothing.
    virtual void activate();
    /// Whether the views use the newer of their two drawing paths.
    virtual void setSupportNewShader(bool supported);

private:
    std::string m_name;
    Base::Document* m_document = nullptr;
    bool m_supportsNewShader = false;
};
