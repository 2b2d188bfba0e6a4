// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/document/Type.h"

#include <string>

namespace Base {

/// The root of all classes that are found, made and told apart by name.
///
/// A class that takes part has a static `classTypeId`, static getClassTypeId(), init() and
/// create(), and overrides getTypeId() and getClassName(). It has BaseClass as its first base, so
/// that the pointer create() returns is that of its BaseClass.
class BaseClass
{
public:
    static Type classTypeId;
    static Type getClassTypeId() { return classTypeId; }

    virtual ~BaseClass() = default;
    virtual Type getTypeId() const;
    virtual std::string getClassName() const;

protected:
    BaseClass() = default;
    BaseClass(BaseClass const&) = default;
    BaseClass& operator=(BaseClass const&) = default;

    /// Enters a class and sets `id` to its entry. A name that is entered already keeps its entry.
    ///
    /// parent  the parent's name; it has been entered before, otherwise the class counts as a root
    /// create  makes an object, null for an abstract class; may return null
    static void initSubclass(Type& id, char const* name, char const* parent, void* (*create)());
};

}  // namespace Base
