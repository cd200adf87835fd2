// CStringT: CString's searching, cutting, formatting and conversions. Included by afxstr.h.
#pragma once

#include "atlsimpstr.h"

#include <cstdarg>
#include <utility>

// CStringT<wchar_t> and CStringT<char>. Conversions between the two widths use the ANSI code page of
// the process. Positions and lengths count characters of the string's own type. Members that take a
// text accept one that points into the string itself.
template <typename BaseType, class StringTraits>
class CStringT : public CSimpleStringT<BaseType>
{
public:
    typedef CSimpleStringT<BaseType> CThisSimpleString;
    typedef typename CThisSimpleString::XCHAR XCHAR;
    typedef typename CThisSimpleString::PXSTR PXSTR;
    typedef typename CThisSimpleString::PCXSTR PCXSTR;
    typedef typename CThisSimpleString::YCHAR YCHAR;
    typedef typename CThisSimpleString::PYSTR PYSTR;
    typedef typename CThisSimpleString::PCYSTR PCYSTR;

    CStringT() noexcept {}
    CStringT(const CStringT&) = default;
    CStringT(CStringT&&) = default;
    CStringT(const CThisSimpleString& strSrc) : CThisSimpleString(strSrc) {}
    // A value made by MAKEINTRESOURCE instead of a text loads that string resource.
    CStringT(const XCHAR* pszSrc) { SetOrLoad(pszSrc); }
    CStringT(const YCHAR* pszSrc) { SetOrLoad(pszSrc); }
    CStringT(const unsigned char* pszSrc) { *this = reinterpret_cast<const char*>(pszSrc); }
    CStringT(char ch, int nLength = 1) { Fill(ch, nLength); }
    CStringT(wchar_t ch, int nLength = 1) { Fill(ch, nLength); }
    CStringT(const XCHAR* pch, int nLength) : CThisSimpleString(pch, nLength) {}
    CStringT(const YCHAR* pch, int nLength) { SetConverted(pch, nLength); }
    // The value as VariantChangeType makes it a text; VT_NULL and VT_EMPTY give an empty string.
    CStringT(const VARIANT& varSrc) { *this = varSrc; }
    ~CStringT() = default;

    CStringT& operator=(const CStringT&) = default;
    CStringT& operator=(CStringT&&) = default;
    CStringT& operator=(const CThisSimpleString& strSrc)
    {
        CThisSimpleString::operator=(strSrc);
        return *this;
    }
    CStringT& operator=(PCXSTR pszSrc)
    {
        this->SetString(pszSrc);
        return *this;
    }
    CStringT& operator=(PCYSTR pszSrc)
    {
        SetConverted(pszSrc, StringTraits::Length(pszSrc));
        return *this;
    }
    CStringT& operator=(const unsigned char* pszSrc) { return *this = reinterpret_cast<const char*>(pszSrc); }
    CStringT& operator=(XCHAR ch)
    {
        this->SetString(&ch, 1);
        return *this;
    }
    CStringT& operator=(YCHAR ch)
    {
        SetConverted(&ch, 1);
        return *this;
    }
    CStringT& operator=(const VARIANT& var)
    {
        StringTraits::FromVariant(*this, var);
        return *this;
    }

    CStringT& operator+=(const CThisSimpleString& str)
    {
        this->Append(str.GetString(), str.GetLength());
        return *this;
    }
    CStringT& operator+=(PCXSTR pszSrc)
    {
        this->Append(pszSrc);
        return *this;
    }
    CStringT& operator+=(PCYSTR pszSrc) { return *this += CStringT(pszSrc); }
    CStringT& operator+=(XCHAR ch)
    {
        this->AppendChar(ch);
        return *this;
    }
    CStringT& operator+=(YCHAR ch) { return *this += CStringT(ch); }
    CStringT& operator+=(unsigned char ch) { return *this += CStringT(static_cast<char>(ch)); }
    CStringT& operator+=(const VARIANT& var) { return *this += CStringT(var); }

    // Comparison
    // Less than 0, 0, more than 0, as strcmp and its kin tell it. NoCase: letters of the C locale only.
    int Compare(PCXSTR psz) const { return StringTraits::Compare(this->GetString(), OrEmpty(psz)); }
    int CompareNoCase(PCXSTR psz) const
    {
        return StringTraits::CompareNoCase(this->GetString(), OrEmpty(psz));
    }
    int Collate(PCXSTR psz) const { return StringTraits::Collate(this->GetString(), OrEmpty(psz)); }
    int CollateNoCase(PCXSTR psz) const
    {
        return StringTraits::CollateNoCase(this->GetString(), OrEmpty(psz));
    }

    // Searching
    // The first occurrence from iStart on, or -1; also -1 for a start outside the text.
    int Find(PCXSTR pszSub, int iStart = 0) const noexcept
    {
        if (pszSub == NULL || iStart < 0 || iStart > this->GetLength())
            return -1;
        return IndexOf(this->View().find(pszSub, iStart));
    }
    int Find(XCHAR ch, int iStart = 0) const noexcept
    {
        return iStart < 0 || iStart >= this->GetLength() ? -1 : IndexOf(this->View().find(ch, iStart));
    }
    int ReverseFind(XCHAR ch) const noexcept { return IndexOf(this->View().rfind(ch)); }
    // The first character that is one of the set, or -1.
    int FindOneOf(PCXSTR pszCharSet) const noexcept
    {
        return IndexOf(this->View().find_first_of(OrEmpty(pszCharSet)));
    }

    // Parts. Counts and starts out of range are brought into it.
    CStringT Mid(int iFirst) const { return Mid(iFirst, this->GetLength()); }
    CStringT Mid(int iFirst, int nCount) const
    {
        const int nLength = this->GetLength();
        const int iStart = Clamp(iFirst, 0, nLength);
        nCount = Clamp(nCount, 0, nLength - iStart);
        return nCount == nLength ? *this : CStringT(this->GetString() + iStart, nCount);
    }
    CStringT Left(int nCount) const { return Mid(0, nCount); }
    CStringT Right(int nCount) const
    {
        nCount = Clamp(nCount, 0, this->GetLength());
        return Mid(this->GetLength() - nCount, nCount);
    }
    // The longest beginning of characters that are all in the set, all not in the set. A null set
    // throws CInvalidArgException.
    CStringT SpanIncluding(PCXSTR pszCharSet) const { return Left(Span(NeedSet(pszCharSet), 0, true)); }
    CStringT SpanExcluding(PCXSTR pszCharSet) const { return Left(Span(NeedSet(pszCharSet), 0, false)); }
    // The next piece from iStart on that has no character of pszTokens; iStart then stands behind it
    // and the separator after it. No piece left: an empty string, iStart -1. Without separators the
    // rest is one piece. A negative start throws CInvalidArgException.
    CStringT Tokenize(PCXSTR pszTokens, int& iStart) const
    {
        if (iStart < 0)
            AtlThrow(E_INVALIDARG);
        const int nLength = this->GetLength();
        if (iStart < nLength) {
            const int iFirst = iStart + Span(OrEmpty(pszTokens), iStart, true);
            if (iFirst < nLength) {
                const int nPiece = Span(OrEmpty(pszTokens), iFirst, false);
                iStart = iFirst + nPiece + 1;
                return Mid(iFirst, nPiece);
            }
        }
        iStart = -1;
        return CStringT();
    }

    // Changes
    // Each returns the new length; positions out of range are brought into it.
    int Insert(int iIndex, PCXSTR psz) { return InsertText(iIndex, psz, this->StringLength(psz)); }
    int Insert(int iIndex, XCHAR ch) { return InsertText(iIndex, &ch, 1); }
    int Delete(int iIndex, int nCount = 1)
    {
        const int nLength = this->GetLength();
        const int iFirst = Clamp(iIndex, 0, nLength);
        nCount = Clamp(nCount, 0, nLength - iFirst);
        if (nCount == 0)
            return nLength;
        PXSTR psz = this->GetBuffer();
        std::memmove(psz + iFirst, psz + iFirst + nCount, (nLength - iFirst - nCount) * sizeof(XCHAR));
        this->SetLength(nLength - nCount);
        return nLength - nCount;
    }
    // Each returns how many were replaced or removed. An empty old text is never found.
    int Replace(XCHAR chOld, XCHAR chNew)
    {
        if (chOld == chNew)
            return 0;
        int i = Find(chOld);
        if (i < 0)
            return 0;
        int nCount = 0;
        PXSTR psz = this->GetBuffer();
        for (const int nLength = this->GetLength(); i < nLength; ++i) {
            if (psz[i] == chOld) {
                psz[i] = chNew;
                ++nCount;
            }
        }
        return nCount;
    }
    int Replace(PCXSTR pszOld, PCXSTR pszNew)
    {
        const int nOld = this->StringLength(pszOld);
        int iFound = nOld == 0 ? -1 : Find(pszOld);
        if (iFound < 0)
            return 0;
        const int nNew = this->StringLength(pszNew);
        CStringT strResult;
        int nCount = 0;
        int iDone = 0;
        for (; iFound >= 0; iFound = Find(pszOld, iDone)) {
            strResult.Append(this->GetString() + iDone, iFound - iDone);
            strResult.Append(pszNew, nNew);
            iDone = iFound + nOld;
            ++nCount;
        }
        strResult.Append(this->GetString() + iDone, this->GetLength() - iDone);
        CThisSimpleString::operator=(std::move(strResult));
        return nCount;
    }
    int Remove(XCHAR chRemove)
    {
        int iTo = Find(chRemove);
        if (iTo < 0)
            return 0;
        const int nLength = this->GetLength();
        PXSTR psz = this->GetBuffer();
        for (int iFrom = iTo; iFrom < nLength; ++iFrom)
            if (psz[iFrom] != chRemove)
                psz[iTo++] = psz[iFrom];
        this->SetLength(iTo);
        return nLength - iTo;
    }
    CStringT& MakeUpper() { return Apply(StringTraits::MakeUpper); }
    CStringT& MakeLower() { return Apply(StringTraits::MakeLower); }
    CStringT& MakeReverse()
    {
        PXSTR psz = this->GetBuffer();
        for (int i = 0, j = this->GetLength() - 1; i < j; ++i, --j)
            std::swap(psz[i], psz[j]);
        return *this;
    }

    // Without argument: white space as isspace and iswspace know it. An empty set trims nothing.
    CStringT& Trim() { return TrimRight().TrimLeft(); }
    CStringT& Trim(XCHAR chTarget) { return TrimRight(chTarget).TrimLeft(chTarget); }
    CStringT& Trim(PCXSTR pszTargets) { return TrimRight(pszTargets).TrimLeft(pszTargets); }
    CStringT& TrimLeft() { return CutLeft(StringTraits::IsSpace); }
    CStringT& TrimLeft(XCHAR chTarget)
    {
        return CutLeft([chTarget](XCHAR ch) { return ch == chTarget; });
    }
    CStringT& TrimLeft(PCXSTR pszTargets)
    {
        return CutLeft([pszTargets](XCHAR ch) { return IsIn(OrEmpty(pszTargets), ch); });
    }
    CStringT& TrimRight() { return CutRight(StringTraits::IsSpace); }
    CStringT& TrimRight(XCHAR chTarget)
    {
        return CutRight([chTarget](XCHAR ch) { return ch == chTarget; });
    }
    CStringT& TrimRight(PCXSTR pszTargets)
    {
        return CutRight([pszTargets](XCHAR ch) { return IsIn(OrEmpty(pszTargets), ch); });
    }

    // Formatting, with the platform's conventions: in a wide string %s and %c take wide text, %S and %C
    // narrow, %hs and %ls always what they say. The UINT forms load the format from that string resource
    // and throw CInvalidArgException when it is missing. Arguments may be parts of this string.
    void __cdecl Format(PCXSTR pszFormat, ...)
    {
        va_list args;
        va_start(args, pszFormat);
        FormatV(pszFormat, args);
        va_end(args);
    }
    void __cdecl Format(UINT nFormatID, ...)
    {
        const CStringT strFormat = NeedResource(nFormatID);
        va_list args;
        va_start(args, nFormatID);
        FormatV(strFormat, args);
        va_end(args);
    }
    void FormatV(PCXSTR pszFormat, va_list args)
    {
        StringTraits::FormatV(*this, 0, NeedSet(pszFormat), args);
    }
    void __cdecl AppendFormat(PCXSTR pszFormat, ...)
    {
        va_list args;
        va_start(args, pszFormat);
        AppendFormatV(pszFormat, args);
        va_end(args);
    }
    void __cdecl AppendFormat(UINT nFormatID, ...)
    {
        const CStringT strFormat = NeedResource(nFormatID);
        va_list args;
        va_start(args, nFormatID);
        AppendFormatV(strFormat, args);
        va_end(args);
    }
    void AppendFormatV(PCXSTR pszFormat, va_list args)
    {
        StringTraits::FormatV(*this, this->GetLength(), NeedSet(pszFormat), args);
    }
    // With the insertions %1, %2 ... of the FormatMessage function of the system.
    void __cdecl FormatMessage(PCXSTR pszFormat, ...)
    {
        va_list args;
        va_start(args, pszFormat);
        FormatMessageV(pszFormat, &args);
        va_end(args);
    }
    void __cdecl FormatMessage(UINT nFormatID, ...)
    {
        const CStringT strFormat = NeedResource(nFormatID);
        va_list args;
        va_start(args, nFormatID);
        FormatMessageV(strFormat, &args);
        va_end(args);
    }
    void FormatMessageV(PCXSTR pszFormat, va_list* pArgList)
    {
        CStringT strResult;
        StringTraits::SetFormatMessageV(strResult, NeedSet(pszFormat), pArgList);
        CThisSimpleString::operator=(std::move(strResult));
    }

    // The system
    // Loads a string resource: found through the module chain, or in the module given. FALSE and an
    // unchanged string if there is none of that number.
    BOOL LoadString(UINT nID) { return StringTraits::LoadString(*this, nID); }
    BOOL LoadString(HINSTANCE hInstance, UINT nID)
    {
        return StringTraits::LoadString(*this, hInstance, nID, 0);
    }
    BOOL LoadString(HINSTANCE hInstance, UINT nID, WORD wLanguageID)
    {
        return StringTraits::LoadString(*this, hInstance, nID, wLanguageID);
    }
    // A BSTR with the text, which the caller frees with SysFreeString.
    BSTR AllocSysString() const { return StringTraits::AllocSysString(this->GetString(), this->GetLength()); }
    // The same into *pbstr, whose old text is freed.
    BSTR SetSysString(BSTR* pbstr) const
    {
        if (pbstr == NULL)
            AtlThrow(E_INVALIDARG);
        const BSTR bstr = AllocSysString();
        ::SysFreeString(*pbstr);
        return *pbstr = bstr;
    }
    // The variable's value; FALSE and an empty string if there is none.
    BOOL GetEnvironmentVariable(PCXSTR pszVar) { return StringTraits::GetEnvironmentVariable(*this, pszVar); }

    // Implementation
private:
    static PCXSTR OrEmpty(PCXSTR psz) noexcept
    {
        static constexpr XCHAR chNone = 0;
        return psz == NULL ? &chNone : psz;
    }
    static PCXSTR NeedSet(PCXSTR psz)
    {
        if (psz == NULL)
            AtlThrow(E_INVALIDARG);
        return psz;
    }
    static CStringT NeedResource(UINT nID)
    {
        CStringT str;
        if (!str.LoadString(nID))
            AtlThrow(E_INVALIDARG);
        return str;
    }
    static int Clamp(int n, int nLow, int nHigh) noexcept { return n < nLow ? nLow : n > nHigh ? nHigh : n; }
    static int IndexOf(size_t nFound) noexcept
    {
        return nFound == size_t(-1) ? -1 : static_cast<int>(nFound);
    }
    static bool IsIn(PCXSTR pszSet, XCHAR ch) noexcept
    {
        for (; *pszSet != 0; ++pszSet)
            if (*pszSet == ch)
                return true;
        return false;
    }
    // Characters from iFirst on that are in the set (bIn) or not in it.
    int Span(PCXSTR pszSet, int iFirst, bool bIn) const noexcept
    {
        const PCXSTR pszFirst = this->GetString() + iFirst;
        const PCXSTR pszEnd = this->GetString() + this->GetLength();
        PCXSTR psz = pszFirst;
        while (psz < pszEnd && IsIn(pszSet, *psz) == bIn)
            ++psz;
        return static_cast<int>(psz - pszFirst);
    }
    template <typename Char>
    void SetOrLoad(const Char* psz)
    {
        if (psz != NULL && IS_INTRESOURCE(psz))
            LoadString(static_cast<UINT>(reinterpret_cast<ULONG_PTR>(psz)));
        else
            *this = psz;
    }
    void SetConverted(PCYSTR pch, int nLength)
    {
        if (nLength < 0 || (pch == NULL && nLength > 0))
            AtlThrow(E_INVALIDARG);
        StringTraits::Convert(*this, pch, nLength);
    }
    void Fill(XCHAR ch, int nLength)
    {
        if (nLength <= 0)
            return;
        PXSTR psz = this->GetBufferSetLength(nLength);
        for (int i = 0; i < nLength; ++i)
            psz[i] = ch;
    }
    void Fill(YCHAR ch, int nLength)
    {
        const CStringT str(&ch, 1);
        for (int i = 0; i < nLength; ++i)
            *this += str;
    }
    int InsertText(int iIndex, PCXSTR psz, int nCount)
    {
        const int nLength = this->GetLength();
        iIndex = Clamp(iIndex, 0, nLength);
        if (nCount == 0)
            return nLength;
        if (this->OffsetInside(psz) >= 0) {
            const CStringT strCopy(psz, nCount);
            return InsertText(iIndex, strCopy.GetString(), nCount);
        }
        PXSTR pszBuffer = this->GetBuffer(this->AddLengths(nLength, nCount));
        std::memmove(pszBuffer + iIndex + nCount, pszBuffer + iIndex, (nLength - iIndex) * sizeof(XCHAR));
        std::memcpy(pszBuffer + iIndex, psz, nCount * sizeof(XCHAR));
        this->SetLength(nLength + nCount);
        return nLength + nCount;
    }
    template <typename Predicate>
    CStringT& CutLeft(Predicate isCut)
    {
        int n = 0;
        while (n < this->GetLength() && isCut(this->GetString()[n]))
            ++n;
        Delete(0, n);
        return *this;
    }
    template <typename Predicate>
    CStringT& CutRight(Predicate isCut)
    {
        int n = this->GetLength();
        while (n > 0 && isCut(this->GetString()[n - 1]))
            --n;
        if (n < this->GetLength())
            this->Truncate(n);
        return *this;
    }
    CStringT& Apply(void (*pfnChange)(PXSTR, int))
    {
        if (!this->IsEmpty())
            pfnChange(this->GetBuffer(), this->GetLength());
        return *this;
    }

    static CStringT Join(PCXSTR psz1, int n1, PCXSTR psz2, int n2)
    {
        CStringT str;
        str.Preallocate(CThisSimpleString::AddLengths(n1, n2));
        str.Append(psz1, n1);
        str.Append(psz2, n2);
        return str;
    }

public:
    friend CStringT operator+(const CStringT& str1, const CStringT& str2)
    {
        return Join(str1, str1.GetLength(), str2, str2.GetLength());
    }
    friend CStringT operator+(const CStringT& str1, PCXSTR psz2)
    {
        return Join(str1, str1.GetLength(), psz2, str1.StringLength(psz2));
    }
    friend CStringT operator+(PCXSTR psz1, const CStringT& str2)
    {
        return Join(psz1, str2.StringLength(psz1), str2, str2.GetLength());
    }
    friend CStringT operator+(const CStringT& str1, char ch2) { return str1 + CStringT(ch2); }
    friend CStringT operator+(const CStringT& str1, wchar_t ch2) { return str1 + CStringT(ch2); }
    friend CStringT operator+(char ch1, const CStringT& str2) { return CStringT(ch1) + str2; }
    friend CStringT operator+(wchar_t ch1, const CStringT& str2) { return CStringT(ch1) + str2; }

    // The comparisons see what Compare sees: the text up to the first zero.
    friend bool operator==(const CStringT& str1, const CStringT& str2) noexcept
    {
        return str1.GetString() == str2.GetString() || str1.Compare(str2) == 0;
    }
    friend bool operator==(const CStringT& str1, PCXSTR psz2) noexcept { return str1.Compare(psz2) == 0; }
    friend bool operator==(PCXSTR psz1, const CStringT& str2) noexcept { return str2.Compare(psz1) == 0; }
    friend bool operator==(const CStringT& str1, PCYSTR psz2) { return str1 == CStringT(psz2); }
    friend bool operator==(PCYSTR psz1, const CStringT& str2) { return CStringT(psz1) == str2; }
    friend bool operator==(const CStringT& str1, XCHAR ch2) noexcept
    {
        return str1.GetLength() == 1 && str1.GetString()[0] == ch2;
    }
    friend bool operator==(XCHAR ch1, const CStringT& str2) noexcept { return str2 == ch1; }
    friend bool operator!=(const CStringT& str1, const CStringT& str2) noexcept { return !(str1 == str2); }
    friend bool operator!=(const CStringT& str1, PCXSTR psz2) noexcept { return !(str1 == psz2); }
    friend bool operator!=(PCXSTR psz1, const CStringT& str2) noexcept { return !(str2 == psz1); }
    friend bool operator!=(const CStringT& str1, PCYSTR psz2) { return !(str1 == psz2); }
    friend bool operator!=(PCYSTR psz1, const CStringT& str2) { return !(psz1 == str2); }
    friend bool operator!=(const CStringT& str1, XCHAR ch2) noexcept { return !(str1 == ch2); }
    friend bool operator!=(XCHAR ch1, const CStringT& str2) noexcept { return !(str2 == ch1); }

    friend bool operator<(const CStringT& str1, const CStringT& str2) { return str1.Compare(str2) < 0; }
    friend bool operator<(const CStringT& str1, PCXSTR psz2) { return str1.Compare(psz2) < 0; }
    friend bool operator<(PCXSTR psz1, const CStringT& str2) { return str2.Compare(psz1) > 0; }
    friend bool operator>(const CStringT& str1, const CStringT& str2) { return str1.Compare(str2) > 0; }
    friend bool operator>(const CStringT& str1, PCXSTR psz2) { return str1.Compare(psz2) > 0; }
    friend bool operator>(PCXSTR psz1, const CStringT& str2) { return str2.Compare(psz1) < 0; }
    friend bool operator<=(const CStringT& str1, const CStringT& str2) { return str1.Compare(str2) <= 0; }
    friend bool operator<=(const CStringT& str1, PCXSTR psz2) { return str1.Compare(psz2) <= 0; }
    friend bool operator<=(PCXSTR psz1, const CStringT& str2) { return str2.Compare(psz1) >= 0; }
    friend bool operator>=(const CStringT& str1, const CStringT& str2) { return str1.Compare(str2) >= 0; }
    friend bool operator>=(const CStringT& str1, PCXSTR psz2) { return str1.Compare(psz2) >= 0; }
    friend bool operator>=(PCXSTR psz1, const CStringT& str2) { return str2.Compare(psz1) <= 0; }
};
