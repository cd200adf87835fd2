// The platform's declarations, as every header of the kit needs them: MFC's headers where a program
// has MFC, which must then come before all others, and the bare Windows headers where it has not.
#pragma once

#ifndef NOMINMAX
#define NOMINMAX
#endif

#if defined(TESTKIT_WITH_MFC) && !defined(TESTKIT_BARE_PLATFORM)
#include <afxwin.h>
#else
#include <windows.h>
#endif
