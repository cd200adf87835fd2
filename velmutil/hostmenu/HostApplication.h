// The way to the host's application object.
#pragma once

#include <afxwin.h>
#include <comdef.h>

// Not every toolchain's <comdef.h> brings it.
_COM_SMARTPTR_TYPEDEF(IDispatch, __uuidof(IDispatch));

// The host application's dispatch interface, counted for the caller; null when the running program
// offers none. The program offers it by exporting `CWinApp* acedGetAcadWinApp()`, plain or under the
// name that a C++ compiler gives to it; the application object must have automation enabled. The export
// is looked up at each call, so the library also loads in programs that are no host. Rests on
// GetProcAddress and CCmdTarget::GetIDispatch.
IDispatchPtr FindHostApplication();

// `application` as it is, if it is not null. Throws COleDispatchException* otherwise: to callers, a
// program without an application object is a host that fails.
IDispatch* RequireHostApplication(const IDispatchPtr& application);
