// An owner for the strings of COM.
#pragma once

#include <afxwin.h>
#include <comdef.h>

// Owns one BSTR, which may be null. Raises _com_error (E_OUTOFMEMORY) when none can be made.
class CBstr
{
public:
    CBstr() = default;
    // The text up to its final zero; null gives the null string.
    explicit CBstr(const wchar_t* text) : m_text(SysAllocString(text)) { CheckMade(text != nullptr); }
    // The whole text, embedded zeros included.
    explicit CBstr(const CString& text)
        : m_text(SysAllocStringLen(text.GetString(), static_cast<UINT>(text.GetLength())))
    {
        CheckMade(true);
    }
    CBstr(const CBstr&) = delete;
    CBstr& operator=(const CBstr&) = delete;
    ~CBstr() { SysFreeString(m_text); }

    operator BSTR() const { return m_text; }
    CString Text() const { return CString(m_text, static_cast<int>(SysStringLen(m_text))); }

    // Where a call puts the string that it hands out; what was owned before is freed.
    BSTR* Receive()
    {
        SysFreeString(m_text);
        m_text = nullptr;
        return &m_text;
    }

private:
    void CheckMade(bool isWanted) const
    {
        if (isWanted && m_text == nullptr)
            _com_issue_error(E_OUTOFMEMORY);
    }

    BSTR m_text = nullptr;
};
