// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/document/BaseClass.h"

namespace Base {

/// What a class has to have to take part in the type system, written once. It stands between the
/// class and its parent, and adds neither data nor places in the virtual table:
///
///     class RubberRect : public Base::TypeEntry<RubberRect, GLGraphicsItem>
///     {
///     public:
///         static constexpr char const* typeName = "Freecut::RubberRect";
///
/// A class of which nothing is made by name has a create() of its own, which gives null.
template <typename Own, typename Parent>
class TypeEntry : public Parent
{
public:
    using Parent::Parent;

    static inline constinit Type classTypeId = Type::badType();
    static Type getClassTypeId() { return classTypeId; }
    /// Enters the class below its parent, which has been entered before.
    static void init()
    {
        Parent::initSubclass(classTypeId, Own::typeName, Parent::getClassTypeId().getName().c_str(),
                             Own::create);
    }
    static void* create() { return static_cast<BaseClass*>(new Own); }

    Type getTypeId() const override { return classTypeId; }
    std::string getClassName() const override { return Own::typeName; }
};

}  // namespace Base
