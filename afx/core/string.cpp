#include "state.h"

namespace
{

// The run-time's and the system's functions, under one name for both widths.
int Count(const wchar_t* pszFormat, va_list args)
{
    return _vscwprintf(pszFormat, args);
}
int Count(const char* pszFormat, va_list args)
{
    return _vscprintf(pszFormat, args);
}
int Print(wchar_t* pch, size_t n, const wchar_t* pszFormat, va_list args)
{
    return _vsnwprintf(pch, n, pszFormat, args);
}
int Print(char* pch, size_t n, const char* pszFormat, va_list args)
{
    return _vsnprintf(pch, n, pszFormat, args);
}
DWORD FormatSystem(const wchar_t* pszFormat, wchar_t** ppsz, va_list* pArgs)
{
    return ::FormatMessageW(FORMAT_MESSAGE_FROM_STRING | FORMAT_MESSAGE_ALLOCATE_BUFFER, pszFormat, 0, 0,
                            reinterpret_cast<wchar_t*>(ppsz), 0, pArgs);
}
DWORD FormatSystem(const char* pszFormat, char** ppsz, va_list* pArgs)
{
    return ::FormatMessageA(FORMAT_MESSAGE_FROM_STRING | FORMAT_MESSAGE_ALLOCATE_BUFFER, pszFormat, 0, 0,
                            reinterpret_cast<char*>(ppsz), 0, pArgs);
}
DWORD Environment(const wchar_t* pszVar, wchar_t* pch, DWORD n)
{
    return ::GetEnvironmentVariableW(pszVar, pch, n);
}
DWORD Environment(const char* pszVar, char* pch, DWORD n)
{
    return ::GetEnvironmentVariableA(pszVar, pch, n);
}

template <typename String>
void SetFormatted(String& str, int nKept, typename String::PCXSTR pszFormat, va_list args)
{
    // Most results are short, and then one pass does.
    typename String::XCHAR szShort[256];
    va_list again;
    va_copy(again, args);
    const int nShort = Print(szShort, _countof(szShort), pszFormat, again);
    va_end(again);
    if (nShort >= 0) {
        str.Truncate(nKept);
        str.Append(szShort, nShort);
        return;
    }

    va_copy(again, args);
    const int nLength = Count(pszFormat, again);
    va_end(again);
    if (nLength < 0)
        AfxThrowInvalidArgException();
    String strLong;
    Print(strLong.GetBuffer(nLength), size_t(nLength) + 1, pszFormat, args);
    strLong.ReleaseBufferSetLength(nLength);
    str.Truncate(nKept);
    str += strLong;
}

template <typename String>
void SetFormatMessage(String& str, typename String::PCXSTR pszFormat, va_list* pArgs)
{
    typename String::PXSTR psz = NULL;
    const DWORD nLength = FormatSystem(pszFormat, &psz, pArgs);
    if (psz == NULL) {
        if (::GetLastError() == ERROR_OUTOFMEMORY || ::GetLastError() == ERROR_NOT_ENOUGH_MEMORY)
            AfxThrowMemoryException();
        str.Empty();
        return;
    }
    struct Owner
    {
        void* p;
        ~Owner() { ::LocalFree(p); }
    } owner{psz};
    str.SetString(psz, int(nLength));
}

template <typename String>
BOOL SetFromEnvironment(String& str, typename String::PCXSTR pszVar)
{
    str.Empty();
    DWORD nRoom = Environment(pszVar, NULL, 0);
    if (nRoom == 0)
        return FALSE;
    // It may be changed in between by another thread.
    for (;;) {
        const DWORD nLength = Environment(pszVar, str.GetBuffer(int(nRoom)), nRoom);
        if (nLength < nRoom) {
            str.ReleaseBufferSetLength(int(nLength));
            return TRUE;
        }
        nRoom = nLength;
    }
}

// The string where it lies in the module's resources, not terminated; NULL if there is none.
const wchar_t* FindString(HINSTANCE hInstance, UINT nID, WORD wLanguageID, int& nLength)
{
    const HRSRC hResource = ::FindResourceExW(hInstance, reinterpret_cast<LPCWSTR>(RT_STRING),
                                              MAKEINTRESOURCEW(nID / 16 + 1), wLanguageID);
    if (hResource == NULL)
        return NULL;
    const WORD* pw = static_cast<const WORD*>(::LockResource(::LoadResource(hInstance, hResource)));
    const WORD* pEnd = pw + ::SizeofResource(hInstance, hResource) / sizeof(WORD);
    if (pw == NULL)
        return NULL;
    for (UINT i = nID % 16; i > 0 && pw < pEnd; --i)
        pw += 1 + *pw;
    if (pw >= pEnd || *pw == 0 || pw + 1 + *pw > pEnd)
        return NULL;
    nLength = *pw;
    return reinterpret_cast<const wchar_t*>(pw + 1);
}

template <typename String>
BOOL SetFromResource(String& str, HINSTANCE hInstance, UINT nID, WORD wLanguageID)
{
    int nLength = 0;
    const wchar_t* pch = FindString(hInstance, nID, wLanguageID, nLength);
    if (pch == NULL)
        return FALSE;
    str = String(pch, nLength);
    return TRUE;
}

template <typename String>
BOOL SetFromResource(String& str, UINT nID)
{
    const HINSTANCE hInstance = AfxFindStringResourceHandle(nID);
    return hInstance != NULL && SetFromResource(str, hInstance, nID, 0);
}

template <typename String>
void SetFromVariant(String& str, const VARIANT& var)
{
    if (var.vt == VT_BSTR) {
        str = String(var.bstrVal, int(::SysStringLen(var.bstrVal)));
        return;
    }
    if (var.vt == VT_EMPTY || var.vt == VT_NULL) {
        str.Empty();
        return;
    }
    struct Text : VARIANT
    {
        Text() { ::VariantInit(this); }
        ~Text() { ::VariantClear(this); }
    } text;
    const HRESULT hr = ::VariantChangeType(&text, const_cast<VARIANT*>(&var), 0, VT_BSTR);
    if (FAILED(hr))
        AtlThrow(hr);
    str = String(text.bstrVal, int(::SysStringLen(text.bstrVal)));
}

int Narrowed(const wchar_t* pch, int n, char* pchTo, int nRoom)
{
    return ::WideCharToMultiByte(CP_ACP, 0, pch, n, pchTo, nRoom, NULL, NULL);
}

int Widened(const char* pch, int n, wchar_t* pchTo, int nRoom)
{
    return ::MultiByteToWideChar(CP_ACP, 0, pch, n, pchTo, nRoom);
}

template <typename String>
void SetConverted(String& str, typename String::PCYSTR pch, int nLength,
                  int (*pfnConvert)(typename String::PCYSTR, int, typename String::PXSTR, int))
{
    if (nLength == 0) {
        str.Empty();
        return;
    }
    const int nRoom = pfnConvert(pch, nLength, NULL, 0);
    if (nRoom <= 0)
        AfxThrowInvalidArgException();
    pfnConvert(pch, nLength, str.GetBuffer(nRoom), nRoom);
    str.ReleaseBufferSetLength(nRoom);
}

template <typename Char, typename Change>
void ChangeEach(Char* pch, int nLength, Change change)
{
    for (int i = 0; i < nLength; ++i)
        pch[i] = Char(change(
            std::make_unsigned_t<std::conditional_t<sizeof(Char) == 1, char, unsigned short>>(pch[i])));
}

} // namespace

typedef StrTraitMFC_DLL<wchar_t> WideTraits;
typedef StrTraitMFC_DLL<char> NarrowTraits;

int WideTraits::Length(const char* psz) noexcept
{
    return psz == NULL ? 0 : int(std::strlen(psz));
}
int NarrowTraits::Length(const wchar_t* psz) noexcept
{
    return psz == NULL ? 0 : int(std::wcslen(psz));
}
int WideTraits::Compare(const wchar_t* psz1, const wchar_t* psz2) noexcept
{
    return std::wcscmp(psz1, psz2);
}
int NarrowTraits::Compare(const char* psz1, const char* psz2) noexcept
{
    return std::strcmp(psz1, psz2);
}
int WideTraits::CompareNoCase(const wchar_t* psz1, const wchar_t* psz2) noexcept
{
    return _wcsicmp(psz1, psz2);
}
int NarrowTraits::CompareNoCase(const char* psz1, const char* psz2) noexcept
{
    return _stricmp(psz1, psz2);
}
int WideTraits::Collate(const wchar_t* psz1, const wchar_t* psz2) noexcept
{
    return std::wcscoll(psz1, psz2);
}
int NarrowTraits::Collate(const char* psz1, const char* psz2) noexcept
{
    return std::strcoll(psz1, psz2);
}
int WideTraits::CollateNoCase(const wchar_t* psz1, const wchar_t* psz2) noexcept
{
    return _wcsicoll(psz1, psz2);
}
int NarrowTraits::CollateNoCase(const char* psz1, const char* psz2) noexcept
{
    return _stricoll(psz1, psz2);
}
bool WideTraits::IsSpace(wchar_t ch) noexcept
{
    return iswspace(ch) != 0;
}
bool NarrowTraits::IsSpace(char ch) noexcept
{
    return isspace(static_cast<unsigned char>(ch)) != 0;
}
void WideTraits::MakeUpper(wchar_t* pch, int n)
{
    ChangeEach(pch, n, [](wint_t ch) { return towupper(ch); });
}
void NarrowTraits::MakeUpper(char* pch, int n)
{
    ChangeEach(pch, n, [](int ch) { return toupper(ch); });
}
void WideTraits::MakeLower(wchar_t* pch, int n)
{
    ChangeEach(pch, n, [](wint_t ch) { return towlower(ch); });
}
void NarrowTraits::MakeLower(char* pch, int n)
{
    ChangeEach(pch, n, [](int ch) { return tolower(ch); });
}

void WideTraits::Convert(CStringW& str, const char* pch, int n)
{
    SetConverted(str, pch, n, Widened);
}
void NarrowTraits::Convert(CStringA& str, const wchar_t* pch, int n)
{
    SetConverted(str, pch, n, Narrowed);
}
void WideTraits::FromVariant(CStringW& str, const VARIANT& var)
{
    SetFromVariant(str, var);
}
void NarrowTraits::FromVariant(CStringA& str, const VARIANT& var)
{
    SetFromVariant(str, var);
}
void WideTraits::FormatV(CStringW& str, int nKept, const wchar_t* pszFormat, va_list args)
{
    SetFormatted(str, nKept, pszFormat, args);
}
void NarrowTraits::FormatV(CStringA& str, int nKept, const char* pszFormat, va_list args)
{
    SetFormatted(str, nKept, pszFormat, args);
}
void WideTraits::SetFormatMessageV(CStringW& str, const wchar_t* pszFormat, va_list* pArgs)
{
    SetFormatMessage(str, pszFormat, pArgs);
}
void NarrowTraits::SetFormatMessageV(CStringA& str, const char* pszFormat, va_list* pArgs)
{
    SetFormatMessage(str, pszFormat, pArgs);
}
BOOL WideTraits::LoadString(CStringW& str, UINT nID)
{
    return SetFromResource(str, nID);
}
BOOL NarrowTraits::LoadString(CStringA& str, UINT nID)
{
    return SetFromResource(str, nID);
}
BOOL WideTraits::LoadString(CStringW& str, HINSTANCE hInstance, UINT nID, WORD wLanguageID)
{
    return SetFromResource(str, hInstance, nID, wLanguageID);
}
BOOL NarrowTraits::LoadString(CStringA& str, HINSTANCE hInstance, UINT nID, WORD wLanguageID)
{
    return SetFromResource(str, hInstance, nID, wLanguageID);
}
BOOL WideTraits::GetEnvironmentVariable(CStringW& str, const wchar_t* pszVar)
{
    return SetFromEnvironment(str, pszVar);
}
BOOL NarrowTraits::GetEnvironmentVariable(CStringA& str, const char* pszVar)
{
    return SetFromEnvironment(str, pszVar);
}

BSTR WideTraits::AllocSysString(const wchar_t* pch, int nLength)
{
    const BSTR bstr = ::SysAllocStringLen(pch, UINT(nLength));
    if (bstr == NULL)
        AfxThrowMemoryException();
    return bstr;
}

BSTR NarrowTraits::AllocSysString(const char* pch, int nLength)
{
    const CStringW str(pch, nLength);
    return WideTraits::AllocSysString(str, str.GetLength());
}
