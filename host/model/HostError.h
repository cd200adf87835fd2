// What the model and the shell throw when they refuse.
#pragma once

#include <exception>
#include <string>
#include <utility>

namespace velmhost
{

// Why something was refused. The automation layer gives each reason a result code of its own.
enum class Refusal
{
    Gone,       // the element was removed
    NotFound,   // nothing has this index or name
    Invalid,    // a value that this member does not take
    Duplicate,  // the name or tag is taken
    NotAllowed, // not on an element of this kind, or not in its present state
    Busy,       // the host cannot do it now
    FileMissing,
    FileInvalid,
    NotSupported // the host has no such thing
};

// A refusal with a sentence for the user of the object. Thrown by value.
class HostError : public std::exception
{
public:
    HostError(Refusal refusal, std::wstring description)
        : m_refusal(refusal), m_description(std::move(description))
    {
    }

    Refusal Reason() const { return m_refusal; }
    const std::wstring& Description() const { return m_description; }
    const char* what() const noexcept override { return "the host refused"; }

private:
    Refusal m_refusal;
    std::wstring m_description;
};

} // namespace velmhost
