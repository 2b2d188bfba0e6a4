// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace Mell {

/// A failure whose text is one sentence that tells a person what is wrong or what to do.
class Exception
{
public:
    explicit Exception(char const* message) : m_message(message) {}
    explicit Exception(std::string message) : m_message(std::move(message)) {}
    Exception(Exception const&) = default;
    Exception& operator=(Exception const&) = default;

    virtual ~Exception() = default;
    virtual char const* what() const noexcept { return m_message.c_str(); }

private:
    std::string m_message;
};

/// Leaves a running job. With exactly the text "Aborting..." it is the user's cancel.
class AbortException : public Exception
{
public:
    explicit AbortException(char const* message) : Exception(message) {}
    AbortException(AbortException const&) = default;
};

}  // namespace Mell
