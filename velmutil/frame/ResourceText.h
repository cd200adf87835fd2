// Text resources.
#pragma once

#include <afxwin.h>

// The text of the resource `id` of type `type` in `module` (null: the running program): its bytes up to
// the first zero byte, or to the end of the resource when there is none, read in the process's ANSI
// code page. A resource that is not there, or cannot be loaded, gives the empty string. Rests on
// FindResourceW, LoadResource, LockResource and MultiByteToWideChar.
CString NarrowResourceText(HMODULE module, WORD id, const wchar_t* type);
