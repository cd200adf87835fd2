// The kinds of exceptions that a member of the XML class meets: the platform's, the library's, MFC's, any.
#pragma once

#include <afxwin.h>
#include <comdef.h>

#include <new>

inline constexpr int ExceptionKinds = 5;

// Throws an exception of a kind, 0 to ExceptionKinds - 1.
[[noreturn]] inline void ThrowOfKind(int kind)
{
    switch (kind) {
    case 0:
        throw _com_error(E_FAIL);
    case 1:
        throw std::bad_alloc();
    case 2:
        AfxThrowMemoryException();
    case 3:
        AfxThrowNotSupportedException();
    default:
        throw kind;
    }
}
