// Functions of the platform by their own address, past import tables in which others stand for them.
#pragma once

#include <afxwin.h>

namespace lifecycle
{

// Null where the module is not loaded or has no such function.
template <class Function>
Function* PlatformFunction(const char* module, const char* name)
{
    return reinterpret_cast<Function*>(
        reinterpret_cast<void*>(::GetProcAddress(::GetModuleHandleA(module), name)));
}

} // namespace lifecycle
