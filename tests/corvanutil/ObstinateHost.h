// A host that lastingly refuses some of its members.
#pragma once

#include <afxwin.h>

#include <functional>
#include <string>

namespace companiontest
{

// A call that a client is about to make.
struct PendingCall
{
    // The host's object, and the member as the client called it.
    IDispatch* object = nullptr;
    std::wstring member;
    bool isPut = false;

    // The object's Name; empty when it has none.
    std::wstring ObjectName() const;
    // Whether it is a call of `wanted` on an object called `name`.
    bool Is(const wchar_t* name, const wchar_t* wanted) const;
};

// Whether the host refuses a call, with E_ACCESSDENIED and without having done anything.
using Refuses = std::function<bool(const PendingCall& call)>;

// Stands before `object` and everything that is reached through it, and hands on what is not refused. The
// caller owns the one reference that it is returned with.
IDispatch* MakeObstinate(IDispatch* object, const Refuses& refuses);

} // namespace companiontest
