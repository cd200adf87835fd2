// Reading the attributes of the menu and toolbar description.
#pragma once

#include <cstddef>
#include <optional>

#include "frame/Msxml.h"

// An attribute's name as the document model takes it: a BSTR that is written out at compile time, length
// in bytes before the text, because a description asks for the same few names again and again. Whoever
// it is given to only reads it.
template <std::size_t Size>
class CAttributeName
{
public:
    consteval CAttributeName(const wchar_t (&text)[Size]) : m_bytes((Size - 1) * sizeof(wchar_t)), m_text{}
    {
        for (std::size_t i = 0; i < Size; ++i)
            m_text[i] = text[i];
    }

    BSTR AsBstr() const
    {
        // What a reader of a BSTR counts on: the length right before the text.
        static_assert(sizeof(m_bytes) == 4 && sizeof(OLECHAR) == sizeof(wchar_t));
        static_assert(offsetof(CAttributeName, m_text) ==
                      offsetof(CAttributeName, m_bytes) + sizeof(m_bytes));
        static_assert(sizeof(m_text) == Size * sizeof(wchar_t));
        return const_cast<BSTR>(m_text);
    }

private:
    UINT m_bytes;
    wchar_t m_text[Size];
};

inline constexpr CAttributeName NameAttribute(L"Name");
inline constexpr CAttributeName CommandAttribute(L"Cmd");
inline constexpr CAttributeName HelpAttribute(L"Help");
inline constexpr CAttributeName ToolTipAttribute(L"ToolTip");
inline constexpr CAttributeName ImageListAttribute(L"ImageList");

// The attributes of one node of the description. An absent attribute and an empty one are different:
// the first has no value.
class CEntryAttributes
{
public:
    // Asks `node`, which must not be null, for its attribute map and keeps what it answers.
    explicit CEntryAttributes(IXMLDOMNode* node);

    // What the node answered. Other nodes than elements say S_FALSE.
    HRESULT Result() const { return m_result; }

    // Whether the node has an attribute map: it answered S_OK.
    bool Exist() const { return m_result == S_OK && m_map != nullptr; }

    // The text of the attribute `name`; none if it is absent or if there is no map. Throws _com_error
    // when the document model fails or the value cannot be had as text.
    template <std::size_t Size>
    std::optional<CString> Value(const CAttributeName<Size>& name) const
    {
        return ValueOf(name.AsBstr());
    }

    // The command of an entry: the attribute Cmd with a blank behind it, which ends it for the host.
    std::optional<CString> Command() const;

private:
    std::optional<CString> ValueOf(BSTR name) const;

    IXMLDOMNamedNodeMapPtr m_map;
    HRESULT m_result;
};

// The value of `node` as text; empty when it is null. Throws _com_error when the document model fails or
// the value cannot be had as text.
CString NodeValueText(IXMLDOMNode* node);

// The text as the companion's operations take it: null when there is none.
inline const wchar_t* PointerOrNull(const std::optional<CString>& text)
{
    return text ? text->GetString() : nullptr;
}
