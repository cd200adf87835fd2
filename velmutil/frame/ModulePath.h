// Where loaded modules lie.
//
// Modules are named as GetModuleHandleW takes them: a file name or a full path, in any case, ".dll"
// being assumed where there is no extension. None of these functions loads anything or reports
// anything. Where memory runs out they throw std::bad_alloc or CMemoryException*, and the caller's texts
// stay as they were.
#pragma once

#include <afxwin.h>

#include "frame/Portability.h"

// If a module named by the text in the buffer is loaded, overwrites the buffer with that module's full
// file name. The buffer must have room for 512 characters. It stays as it was when no such module is
// loaded, when the file name needs more than 512 characters with its final zero, and when the pointer
// is null. Rests on GetModuleHandleW and GetModuleFileNameW.
VELM_API void GetAppPath(wchar_t* nameInOut);

// The drive and the directory, with the trailing backslash, of the loaded module `moduleName`, however
// long they are. Null means the running program. When no such module is loaded the name itself is
// taken apart instead: a bare name gives the empty string, a name with a path that path's drive and
// directory. Rests on GetModuleHandleW, GetModuleFileNameW and _wsplitpath_s.
VELM_API CString GetProjectPath(wchar_t* moduleName);

// The drive ("C:") and the directory (with leading and trailing backslash) of the loaded module
// VelmUtil.dll. Both are empty when no module of exactly that file name is loaded; this library's own
// file name, which bears a version, is not that name.
VELM_API void GetAppDriveAndDir(CString& drive, CString& dir);
