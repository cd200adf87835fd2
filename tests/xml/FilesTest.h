// What the tests of files share.
#pragma once

#include "XmlTest.h"

// Two bytes, three, and a pair of surrogates.
inline const std::wstring Beyond = L"\u00E9\u20AC\U0001F600";
inline constexpr char BeyondUtf8[] = "\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80";

inline std::string WithoutLineEnds(std::string bytes)
{
    std::erase_if(bytes, [](char c) { return c == '\r' || c == '\n'; });
    return bytes;
}

class XmlFiles : public XmlTest
{
protected:
    static std::wstring AttributeOf(CXMLFile& file)
    {
        wchar_t name[] = L"a";
        return file.GetAttrib(L"/r", name).GetString();
    }

    static void SetAttribute(CXMLFile& file, const wchar_t* value)
    {
        wchar_t name[] = L"a";
        CString text = value;
        file.GetDOMNodePtr(L"/r", file.m_pCurNode);
        file.CreateAttrib(name, text);
    }

    // The bytes that Windows and Wine write alike, for a root with this attribute.
    static std::string Root(std::string_view value) { return "<r a=\"" + std::string(value) + "\"/>"; }

    static void ExpectEmptyDocument(CXMLFile& file)
    {
        ASSERT_NE(file.m_pXMLDoc.GetInterfacePtr(), nullptr);
        VARIANT_BOOL hasChildren = VARIANT_TRUE;
        file.m_pXMLDoc->hasChildNodes(&hasChildren);
        EXPECT_EQ(hasChildren, VARIANT_FALSE);
    }
};
