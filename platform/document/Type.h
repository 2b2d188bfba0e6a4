// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace Base {

class BaseClass;

/// A class of the type system: a small value that names one entry of the table of classes, or
/// none. The table is filled by BaseClass::initSubclass and lives as long as the program.
///
/// thread  the user interface thread
class Type
{
public:
    /// The unset value.
    constexpr Type() = default;
    static constexpr Type badType() { return Type(); }

    /// The class entered under a name; badType() if there is none.
    static Type fromName(std::string const& name);

    /// Makes an object by class name. Null if the name is not entered or the class is abstract.
    /// The caller owns the object.
    static BaseClass* createInstance(std::string const& name);

    bool isBad() const { return m_index == 0; }
    /// The name it was entered under; empty for the unset value.
    std::string getName() const;
    Type getParent() const;

    /// True if this is `ancestor` or a class below it. The unset value is derived from nothing,
    /// and nothing is derived from it.
    bool isDerivedFrom(Type ancestor) const;

    constexpr bool operator==(Type const&) const = default;

private:
    friend class BaseClass;
    explicit constexpr Type(unsigned index) : m_index(index) {}

    unsigned m_index = 0;
};

}  // namespace Base
