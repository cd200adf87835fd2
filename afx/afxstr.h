// CString, CStringA, CStringW, and how they rest on the C run-time and the system. Included by afx.h.
#pragma once

#include "cstringt.h"

// What CStringT needs to know about a character type: the run-time's and the system's functions for it.
template <typename BaseType>
struct StrTraitMFC_DLL;

typedef CStringT<wchar_t, StrTraitMFC_DLL<wchar_t>> CStringW;
typedef CStringT<char, StrTraitMFC_DLL<char>> CStringA;
typedef CStringT<TCHAR, StrTraitMFC_DLL<TCHAR>> CString;

#define AFX_STRING_TRAITS_(Char, OtherChar)                                                                  \
    template <>                                                                                              \
    struct AFX_CORE_API StrTraitMFC_DLL<Char>                                                                \
    {                                                                                                        \
        typedef CStringT<Char, StrTraitMFC_DLL<Char>> String;                                                \
        static int Length(const OtherChar* psz) noexcept;                                                    \
        static int Compare(const Char* psz1, const Char* psz2) noexcept;                                     \
        static int CompareNoCase(const Char* psz1, const Char* psz2) noexcept;                               \
        static int Collate(const Char* psz1, const Char* psz2) noexcept;                                     \
        static int CollateNoCase(const Char* psz1, const Char* psz2) noexcept;                               \
        static bool IsSpace(Char ch) noexcept;                                                               \
        static void MakeUpper(Char* pch, int nLength);                                                       \
        static void MakeLower(Char* pch, int nLength);                                                       \
        static void Convert(String& str, const OtherChar* pch, int nLength);                                 \
        static void FromVariant(String& str, const VARIANT& var);                                            \
        /* What stands before nKept stays; args may point into str. */                                       \
        static void FormatV(String& str, int nKept, const Char* pszFormat, va_list args);                    \
        static void SetFormatMessageV(String& str, const Char* pszFormat, va_list* pArgList);                \
        static BOOL LoadString(String& str, UINT nID);                                                       \
        static BOOL LoadString(String& str, HINSTANCE hInstance, UINT nID, WORD wLanguageID);                \
        static BSTR AllocSysString(const Char* pch, int nLength);                                            \
        static BOOL GetEnvironmentVariable(String& str, const Char* pszVar);                                 \
    };

AFX_STRING_TRAITS_(wchar_t, char)
AFX_STRING_TRAITS_(char, wchar_t)
#undef AFX_STRING_TRAITS_
