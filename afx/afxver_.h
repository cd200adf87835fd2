// Settings, calling conventions and export macros that every header of this room starts from.
#pragma once

#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef STRICT
#define STRICT 1
#endif

#include <windows.h>
#include <tchar.h>
#include <ole2.h>

#define _MFC_VER 0x0E00

// AFX_CORE_API marks what VelmAfx22.dll exports; the DLL's own sources are built with AFX_BUILD.
#ifdef AFX_BUILD
#define AFX_CORE_API __declspec(dllexport)
#else
#define AFX_CORE_API __declspec(dllimport)
#endif

#define AFX_CLASS_EXPORT __declspec(dllexport)
#define AFX_CLASS_IMPORT __declspec(dllimport)

// AFX_EXT_CLASS, AFX_EXT_API and AFX_EXT_DATA mark what an extension DLL shares: exported while it is
// built (_AFXEXT defined), imported by its users.
#ifdef _AFXEXT
#define AFX_EXT_CLASS AFX_CLASS_EXPORT
#define AFX_EXT_API AFX_CLASS_EXPORT
#define AFX_EXT_DATA AFX_CLASS_EXPORT
#else
#define AFX_EXT_CLASS AFX_CLASS_IMPORT
#define AFX_EXT_API AFX_CLASS_IMPORT
#define AFX_EXT_DATA AFX_CLASS_IMPORT
#endif
#define AFX_EXT_DATADEF

#ifndef PASCAL
#define PASCAL __stdcall
#endif
#define AFXAPI __stdcall
#define AFX_CDECL __cdecl
#define AFX_MSG_CALL
#define AFXAPIENTRY
#define AFX_INLINE inline
#define AFX_STATIC static
#define AFX_NOVTABLE
#define AFX_DATA
#define AFX_DATADEF
#define AFX_COMDAT
#define AFX_API
#define BASED_CODE
#ifndef _AFX
#define _AFX
#endif
#ifndef _AFXDLL
#define _AFXDLL
#endif

#ifndef afx_msg
#define afx_msg
#endif

// Position in a list: opaque, NULL is "none".
struct __POSITION
{
};
typedef __POSITION* POSITION;

// Each throws the exception of its name; none of them allocates memory.
[[noreturn]] AFX_CORE_API void AFXAPI AfxThrowMemoryException();
[[noreturn]] AFX_CORE_API void AFXAPI AfxThrowInvalidArgException();

// ATL's way to report a failure: E_OUTOFMEMORY becomes CMemoryException, E_INVALIDARG
// CInvalidArgException, everything else COleException with the code.
[[noreturn]] AFX_CORE_API void AFXAPI AtlThrow(HRESULT hr);

// Diagnostics. With _DEBUG a failed ASSERT names file and line in the debugger's output and stops the
// program there; without, ASSERT and TRACE vanish and VERIFY keeps its expression.
AFX_CORE_API void AFX_CDECL AfxTrace(LPCTSTR lpszFormat, ...);
AFX_CORE_API void AFX_CDECL AfxTrace(LPCSTR lpszFormat, ...);
[[noreturn]] AFX_CORE_API void AFXAPI AfxAssertFailed(LPCSTR lpszFileName, int nLine);

#ifdef _DEBUG
#define ASSERT(f) ((void)((f) || (AfxAssertFailed(__FILE__, __LINE__), 0)))
#define VERIFY(f) ASSERT(f)
#define DEBUG_ONLY(f) (f)
#define TRACE AfxTrace
#else
#define ASSERT(f) ((void)0)
#define VERIFY(f) ((void)(f))
#define DEBUG_ONLY(f) ((void)0)
#define TRACE(...) ((void)0)
#endif
#define TRACE0(sz) TRACE(_T("%s"), _T(sz))
#define TRACE1(sz, p1) TRACE(_T(sz), p1)
#define TRACE2(sz, p1, p2) TRACE(_T(sz), p1, p2)
#define TRACE3(sz, p1, p2, p3) TRACE(_T(sz), p1, p2, p3)
#define ATLASSERT(f) ASSERT(f)
#define AFXASSUME(f) ASSERT(f)

// ENSURE checks in every build: a false condition throws CInvalidArgException.
#define ENSURE_THROW(cond, exception)                                                                        \
    do {                                                                                                     \
        if (!(cond)) {                                                                                       \
            exception;                                                                                       \
        }                                                                                                    \
    } while (0)
#define ENSURE(cond) ENSURE_THROW(cond, ::AfxThrowInvalidArgException())
#define ENSURE_ARG(cond) ENSURE(cond)
#define ENSURE_VALID(p) ENSURE((p) != NULL)

#ifndef UNUSED_ALWAYS
#define UNUSED_ALWAYS(x) ((void)(x))
#endif
#ifdef _DEBUG
#define UNUSED(x)
#else
#define UNUSED(x) ((void)(x))
#endif

#define DEBUG_NEW new
