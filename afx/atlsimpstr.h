// CSimpleStringT: the shared, counted character buffer beneath CString. Included by cstringt.h.
#pragma once

#include "afxver_.h"

#include <atomic>
#include <cstring>
#include <cwchar>
#include <string_view>
#include <type_traits>
#include <utility>

struct CStringData;

// A string's block from the C run-time's heap: made (pOld NULL), resized, freed. nBytes counts the
// characters and the final zero. Throws CMemoryException, and leaves pOld as it is.
AFX_CORE_API CStringData* AFXAPI AfxReallocStringData(CStringData* pOld, size_t nBytes);
AFX_CORE_API void AFXAPI AfxFreeStringData(CStringData* pData) noexcept;

// The head of a string's block; the characters and a final zero follow it.
struct CStringData
{
    // Owners of the block; more than one: shared, to be copied before it is changed. Locked: one
    // owner, never shared. Nil: the empty text of all empty strings, never counted and never changed.
    static constexpr long Locked = -1;
    static constexpr long Nil = -2;

    std::atomic<long> nRefs;
    int nDataLength;  // characters in use, without the final zero
    int nAllocLength; // characters there is room for, without the final zero
    int nReserved;

    void* data() { return this + 1; }
    bool IsShared() const
    {
        const long refs = nRefs.load(std::memory_order_acquire);
        return refs > 1 || refs == Nil;
    }
    bool IsLocked() const { return nRefs.load(std::memory_order_relaxed) == Locked; }
    bool IsNil() const { return nRefs.load(std::memory_order_relaxed) == Nil; }
    // False if the block may not be shared.
    bool TryAddRef()
    {
        const long refs = nRefs.load(std::memory_order_relaxed);
        if (refs > 0)
            nRefs.fetch_add(1, std::memory_order_relaxed);
        return refs != Locked;
    }
    void Release()
    {
        const long refs = nRefs.load(std::memory_order_acquire);
        if (refs == Nil)
            return;
        if (refs == 1 || refs == Locked || nRefs.fetch_sub(1, std::memory_order_acq_rel) == 1)
            AfxFreeStringData(this);
    }
};

// The block of every empty string of the process, for both character widths.
struct AFX_NILSTRING
{
    CStringData head;
    wchar_t text[4];
};
extern AFX_CORE_API AFX_NILSTRING afxNilString;

// A reference-counted text of BaseType, char or wchar_t, with copy on write. Null pointers count as
// empty texts everywhere. Objects are the size of a pointer. Different objects may be used by different
// threads even when they share a text. Members that need memory throw CMemoryException when there is
// none; a length or index out of its range throws CInvalidArgException.
template <typename BaseType>
class CSimpleStringT
{
public:
    typedef BaseType XCHAR;
    typedef XCHAR* PXSTR;
    typedef const XCHAR* PCXSTR;
    typedef std::conditional_t<std::is_same_v<BaseType, char>, wchar_t, char> YCHAR;
    typedef YCHAR* PYSTR;
    typedef const YCHAR* PCYSTR;

    CSimpleStringT() noexcept : m_pszData(NilText()) {}
    CSimpleStringT(const CSimpleStringT& strSrc) : m_pszData(Share(strSrc)) {}
    CSimpleStringT(CSimpleStringT&& strSrc) noexcept : m_pszData(strSrc.m_pszData)
    {
        strSrc.m_pszData = NilText();
    }
    CSimpleStringT(PCXSTR pszSrc) : m_pszData(NilText()) { SetString(pszSrc); }
    CSimpleStringT(PCXSTR pchSrc, int nLength) : m_pszData(NilText()) { SetString(pchSrc, nLength); }
    ~CSimpleStringT() { GetData()->Release(); }

    CSimpleStringT& operator=(const CSimpleStringT& strSrc)
    {
        if (m_pszData != strSrc.m_pszData) {
            if (GetData()->IsLocked()) {
                SetString(strSrc.m_pszData, strSrc.GetLength());
            } else {
                PXSTR pszNew = Share(strSrc);
                GetData()->Release();
                m_pszData = pszNew;
            }
        }
        return *this;
    }
    CSimpleStringT& operator=(CSimpleStringT&& strSrc)
    {
        if (GetData()->IsLocked() || strSrc.GetData()->IsLocked())
            return *this = static_cast<const CSimpleStringT&>(strSrc);
        std::swap(m_pszData, strSrc.m_pszData);
        return *this;
    }
    CSimpleStringT& operator=(PCXSTR pszSrc)
    {
        SetString(pszSrc);
        return *this;
    }

    CSimpleStringT& operator+=(const CSimpleStringT& strSrc)
    {
        Append(strSrc.m_pszData, strSrc.GetLength());
        return *this;
    }
    CSimpleStringT& operator+=(PCXSTR pszSrc)
    {
        Append(pszSrc);
        return *this;
    }
    CSimpleStringT& operator+=(XCHAR ch)
    {
        AppendChar(ch);
        return *this;
    }

    // Attributes
    int GetLength() const noexcept { return GetData()->nDataLength; }
    bool IsEmpty() const noexcept { return GetLength() == 0; }
    // Characters that fit without a new block.
    int GetAllocLength() const noexcept { return GetData()->nAllocLength; }
    PCXSTR GetString() const noexcept { return m_pszData; }
    operator PCXSTR() const noexcept { return m_pszData; }
    // iChar from 0 to the length, which gives the final zero.
    XCHAR GetAt(int iChar) const
    {
        if (iChar < 0 || iChar > GetLength())
            AtlThrow(E_INVALIDARG);
        return m_pszData[iChar];
    }
    XCHAR operator[](int iChar) const { return GetAt(iChar); }
    // iChar from 0 to the length less 1.
    void SetAt(int iChar, XCHAR ch)
    {
        if (iChar < 0 || iChar >= GetLength())
            AtlThrow(E_INVALIDARG);
        const int nLength = GetLength();
        GetBuffer()[iChar] = ch;
        SetLength(nLength);
    }

    // Operations
    void Append(PCXSTR pszSrc) { Append(pszSrc, StringLength(pszSrc)); }
    // nLength characters, zeros among them too; -1 for all up to the first zero. pszSrc may point into
    // this string.
    void Append(PCXSTR pszSrc, int nLength)
    {
        if (nLength < 0)
            nLength = StringLength(pszSrc);
        if (nLength == 0 || pszSrc == NULL)
            return;
        const int nOldLength = GetLength();
        if (nLength > GetAllocLength() - nOldLength || GetData()->IsShared()) {
            const ptrdiff_t nOffset = OffsetInside(pszSrc);
            PrepareWrite(AddLengths(nOldLength, nLength));
            if (nOffset >= 0)
                pszSrc = m_pszData + nOffset;
        }
        std::memmove(m_pszData + nOldLength, pszSrc, nLength * sizeof(XCHAR));
        GetData()->nDataLength = nOldLength + nLength;
        m_pszData[nOldLength + nLength] = 0;
    }
    void Append(const CSimpleStringT& strSrc) { Append(strSrc.m_pszData, strSrc.GetLength()); }
    void AppendChar(XCHAR ch)
    {
        CStringData* pData = GetData();
        const int nLength = pData->nDataLength;
        if (nLength >= pData->nAllocLength || pData->IsShared()) {
            PrepareWrite(AddLengths(nLength, 1));
            pData = GetData();
        }
        m_pszData[nLength] = ch;
        m_pszData[nLength + 1] = 0;
        pData->nDataLength = nLength + 1;
    }
    void SetString(PCXSTR pszSrc) { SetString(pszSrc, StringLength(pszSrc)); }
    // pszSrc may point into this string.
    void SetString(PCXSTR pszSrc, int nLength)
    {
        if (nLength < 0 || (pszSrc == NULL && nLength > 0))
            AtlThrow(E_INVALIDARG);
        if (nLength == 0) {
            Empty();
            return;
        }
        const ptrdiff_t nOffset = OffsetInside(pszSrc);
        PXSTR pszBuffer = PrepareWrite(nLength);
        if (nOffset >= 0)
            pszSrc = pszBuffer + nOffset;
        std::memmove(pszBuffer, pszSrc, nLength * sizeof(XCHAR));
        SetLength(nLength);
    }
    // Empties the string and frees its block, unless that is locked.
    void Empty() noexcept
    {
        CStringData* pData = GetData();
        if (pData->nDataLength == 0 && pData->IsNil())
            return;
        if (pData->IsLocked()) {
            SetLength(0);
        } else {
            pData->Release();
            m_pszData = NilText();
        }
    }
    // Gives back the room beyond the text.
    void FreeExtra()
    {
        CStringData* pData = GetData();
        if (pData->IsLocked() || pData->IsNil() || RoundedUp(pData->nDataLength) >= pData->nAllocLength)
            return;
        const int nLength = pData->nDataLength;
        PXSTR pszNew = NilText();
        if (nLength > 0) {
            pszNew = Allocate(RoundedUp(nLength));
            std::memcpy(pszNew, m_pszData, (nLength + 1) * sizeof(XCHAR));
            HeadOf(pszNew)->nDataLength = nLength;
        }
        pData->Release();
        m_pszData = pszNew;
    }
    // Makes room for a text of nLength characters.
    void Preallocate(int nLength)
    {
        const int nOldLength = GetLength();
        PrepareWrite(nLength);
        SetLength(nOldLength);
    }
    // Cuts the text to nNewLength characters, at most its length.
    void Truncate(int nNewLength)
    {
        if (nNewLength < 0 || nNewLength > GetLength())
            AtlThrow(E_INVALIDARG);
        GetBuffer();
        SetLength(nNewLength);
    }

    // The text for writing, not shared with any other string, good until the string is changed;
    // ReleaseBuffer tells the new length afterwards. With nMinBufferLength there is room for so many
    // characters and a zero.
    PXSTR GetBuffer() { return GetBuffer(0); }
    PXSTR GetBuffer(int nMinBufferLength)
    {
        if (nMinBufferLength < 0)
            AtlThrow(E_INVALIDARG);
        const int nLength = GetLength();
        if (nMinBufferLength < nLength)
            nMinBufferLength = nLength;
        if (nMinBufferLength == 0 && !GetData()->IsShared())
            return m_pszData;
        return PrepareWrite(nMinBufferLength);
    }
    PXSTR GetBufferSetLength(int nLength)
    {
        PXSTR pszBuffer = GetBuffer(nLength);
        SetLength(nLength);
        return pszBuffer;
    }
    // -1: the length is found by the first zero.
    void ReleaseBuffer(int nNewLength = -1)
    {
        if (nNewLength == -1)
            nNewLength = LengthWithin(m_pszData, GetAllocLength());
        ReleaseBufferSetLength(nNewLength);
    }
    void ReleaseBufferSetLength(int nNewLength)
    {
        if (nNewLength < 0 || nNewLength > GetAllocLength())
            AtlThrow(E_INVALIDARG);
        SetLength(nNewLength);
    }
    // Keeps the buffer from being shared: copies of the string get a text of their own.
    PXSTR LockBuffer()
    {
        if (!GetData()->IsLocked()) {
            PrepareWrite(GetLength());
            GetData()->nRefs.store(CStringData::Locked, std::memory_order_relaxed);
        }
        return m_pszData;
    }
    void UnlockBuffer() noexcept
    {
        if (GetData()->IsLocked())
            GetData()->nRefs.store(1, std::memory_order_relaxed);
    }

    static int StringLength(PCXSTR psz) noexcept
    {
        return psz == NULL ? 0 : static_cast<int>(std::char_traits<XCHAR>::length(psz));
    }
    static void CopyChars(PXSTR pchDest, PCXSTR pchSrc, int nChars) noexcept
    {
        if (nChars > 0)
            std::memcpy(pchDest, pchSrc, nChars * sizeof(XCHAR));
    }

    // Implementation
protected:
    std::basic_string_view<XCHAR> View() const noexcept
    {
        return {m_pszData, static_cast<size_t>(GetLength())};
    }
    // Where psz points to in the text (its final zero included), or -1.
    ptrdiff_t OffsetInside(PCXSTR psz) const noexcept
    {
        const size_t nOffset = reinterpret_cast<size_t>(psz) - reinterpret_cast<size_t>(m_pszData);
        return nOffset <= GetLength() * sizeof(XCHAR) ? ptrdiff_t(nOffset / sizeof(XCHAR)) : -1;
    }
    static int AddLengths(int nLength, int nMore)
    {
        if (nMore > MaxLength() - nLength)
            AtlThrow(E_OUTOFMEMORY);
        return nLength + nMore;
    }
    void SetLength(int nLength) noexcept
    {
        CStringData* pData = GetData();
        if (pData->IsNil())
            return;
        pData->nDataLength = nLength;
        m_pszData[nLength] = 0;
    }

    static constexpr int MaxLength()
    {
        return (0x7FFFFFFF - int(sizeof(CStringData))) / int(sizeof(XCHAR)) - 8;
    }

private:
    PXSTR m_pszData;

    static CStringData* HeadOf(PCXSTR psz) noexcept
    {
        return reinterpret_cast<CStringData*>(const_cast<PXSTR>(psz)) - 1;
    }
    CStringData* GetData() const noexcept { return HeadOf(m_pszData); }
    static PXSTR NilText() noexcept { return static_cast<PXSTR>(static_cast<void*>(afxNilString.text)); }
    static int LengthWithin(PCXSTR psz, int nMax) noexcept
    {
        int nLength = 0;
        while (nLength < nMax && psz[nLength] != 0)
            ++nLength;
        return nLength;
    }
    // With the final zero, blocks hold a multiple of eight characters.
    static int RoundedUp(int nLength) noexcept { return nLength | 7; }

    static PXSTR Allocate(int nAllocLength) { return Reallocate(NULL, nAllocLength); }
    static PXSTR Reallocate(CStringData* pOld, int nAllocLength)
    {
        if (nAllocLength > MaxLength() + 7)
            AtlThrow(E_OUTOFMEMORY);
        CStringData* pData = AfxReallocStringData(pOld, (size_t(nAllocLength) + 1) * sizeof(XCHAR));
        pData->nAllocLength = nAllocLength;
        return static_cast<PXSTR>(pData->data());
    }
    static PXSTR Share(const CSimpleStringT& strSrc)
    {
        CStringData* pData = strSrc.GetData();
        if (pData->TryAddRef())
            return strSrc.m_pszData;
        const int nLength = pData->nDataLength;
        PXSTR pszNew = Allocate(RoundedUp(nLength));
        std::memcpy(pszNew, strSrc.m_pszData, (nLength + 1) * sizeof(XCHAR));
        HeadOf(pszNew)->nDataLength = nLength;
        return pszNew;
    }
    // Makes the block this string's own, with room for nLength characters; the text stays.
    PXSTR PrepareWrite(int nLength)
    {
        if (nLength < 0)
            AtlThrow(E_INVALIDARG);
        CStringData* pData = GetData();
        if (pData->IsShared())
            Fork(nLength);
        else if (nLength > pData->nAllocLength)
            Grow(nLength);
        return m_pszData;
    }
    void Fork(int nLength)
    {
        CStringData* pOld = GetData();
        const int nKept = pOld->nDataLength;
        PXSTR pszNew = Allocate(RoundedUp(nLength > nKept ? nLength : nKept));
        std::memcpy(pszNew, m_pszData, (nKept + 1) * sizeof(XCHAR));
        HeadOf(pszNew)->nDataLength = nKept;
        pOld->Release();
        m_pszData = pszNew;
    }
    // Half as much again as there is, so that appending costs the same for each character.
    void Grow(int nLength)
    {
        CStringData* pData = GetData();
        const int nOld = pData->nAllocLength;
        const int nGrown = nOld > MaxLength() - nOld / 2 ? MaxLength() : nOld + nOld / 2;
        m_pszData = Reallocate(pData, RoundedUp(nLength > nGrown ? nLength : nGrown));
    }
};
