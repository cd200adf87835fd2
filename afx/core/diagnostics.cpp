#include "../afx.h"
#include "../afxdisp.h"

void AFX_CDECL AfxTrace(LPCTSTR lpszFormat, ...)
{
    CString str;
    va_list args;
    va_start(args, lpszFormat);
    str.FormatV(lpszFormat, args);
    va_end(args);
    ::OutputDebugString(str);
}

void AFX_CDECL AfxTrace(LPCSTR lpszFormat, ...)
{
    CStringA str;
    va_list args;
    va_start(args, lpszFormat);
    str.FormatV(lpszFormat, args);
    va_end(args);
    ::OutputDebugStringA(str);
}

void AFXAPI AfxAssertFailed(LPCSTR lpszFileName, int nLine)
{
    AfxTrace("Assertion failed: %s(%d)\n", lpszFileName, nLine);
    std::abort();
}

void AFXAPI AtlThrow(HRESULT hr)
{
    switch (hr) {
    case E_OUTOFMEMORY:
        AfxThrowMemoryException();
    case E_INVALIDARG:
        AfxThrowInvalidArgException();
    default:
        AfxThrowOleException(hr);
    }
}
