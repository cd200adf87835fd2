// What the tests with hostile documents share: the two ways into the parser, and what may come out.
#pragma once

#include "XmlTest.h"
#include "XmlNodes.h"

#include <algorithm>

inline std::string Times(std::string_view part, size_t count)
{
    std::string text;
    text.reserve(part.size() * count);
    while (count-- > 0)
        text += part;
    return text;
}

// The text in UTF-16 with a byte order mark.
inline std::string Utf16File(std::wstring_view text)
{
    std::string bytes = "\xFF\xFE";
    for (const wchar_t unit : text) {
        bytes += static_cast<char>(unit & 0xFF);
        bytes += static_cast<char>(unit >> 8);
    }
    return bytes;
}

class HostileTest : public XmlTest
{
protected:
    void TearDown() override { EXPECT_THAT(Messages(), testing::IsEmpty()); }

    bool LoadBytes(CXMLFile& file, std::string_view bytes)
    {
        testkit::WriteBytes(m_folder / L"hostile.xml", bytes);
        file.SetXMLFilePath(PathOf(L"hostile.xml"));
        return file.LoadFile();
    }

    // Past the checks of the library, into a new document that it has made.
    static bool LoadText(CXMLFile& file, std::wstring_view text)
    {
        file.LoadFileFromRes();
        IXMLDOMDocument2Ptr document;
        file.GetXMLDocument(document);
        const _bstr_t string(SysAllocStringLen(text.data(), static_cast<UINT>(text.size())), false);
        VARIANT_BOOL isLoaded = VARIANT_FALSE;
        EXPECT_TRUE(SUCCEEDED(document->loadXML(string, &isLoaded)));
        return isLoaded != VARIANT_FALSE;
    }

    // Loads plain ASCII both ways, and has both results looked at.
    template <class Check>
    void LoadBothWays(std::string_view ascii, Check check)
    {
        for (const bool asText : {false, true}) {
            m_isPastTheLibrary = asText;
            SCOPED_TRACE(asText ? "as text" : "as file");
            SCOPED_TRACE(ascii.substr(0, 300));
            CXMLFile file;
            const bool isLoaded =
                asText ? LoadText(file, std::wstring(ascii.begin(), ascii.end())) : LoadBytes(file, ascii);
            check(file, isLoaded);
        }
    }

    static void ExpectNothingLoaded(CXMLFile& file, bool isLoaded)
    {
        EXPECT_FALSE(isLoaded);
        ASSERT_TRUE(file.m_pXMLDoc);
        EXPECT_TRUE(ChildrenOf(file.m_pXMLDoc).empty());
        EXPECT_EQ(file.GetXMLFileInString(), L"");
    }

    void ExpectFileRefused(std::string_view bytes)
    {
        SCOPED_TRACE(testkit::Quoted(
            std::wstring(bytes.begin(), bytes.begin() + std::min<size_t>(bytes.size(), 100))));
        CXMLFile file;
        const bool isLoaded = LoadBytes(file, bytes);
        ExpectNothingLoaded(file, isLoaded);
    }

    void ExpectTextRefused(std::wstring_view text)
    {
        SCOPED_TRACE(testkit::Quoted(text));
        CXMLFile file;
        const bool isLoaded = LoadText(file, text);
        ExpectNothingLoaded(file, isLoaded);
    }

    void ExpectRefused(std::string_view ascii)
    {
        LoadBothWays(ascii, [](CXMLFile& file, bool isLoaded) { ExpectNothingLoaded(file, isLoaded); });
    }

    // Whether a document with a DTD must be refused: where the parser can forbid them, which it must then
    // have been told to, and by the library itself if it declares entities.
    bool MustRefuse(CXMLFile& file, std::string_view document) const
    {
        if (!m_isPastTheLibrary && document.find("<!ENTITY") != document.npos)
            return true;
        _variant_t isForbidden;
        if (FAILED(file.m_pXMLDoc->getProperty(_bstr_t(L"ProhibitDTD"), &isForbidden)))
            return false;
        EXPECT_TRUE(static_cast<bool>(isForbidden));
        return true;
    }

    // A document with a DTD: refused where the parser can forbid them. Elsewhere loaded, with exactly this
    // text in the root element r and in its attribute v.
    void ExpectForbiddenOrHolding(std::string_view ascii, std::wstring_view text, std::wstring_view v = L"")
    {
        LoadBothWays(ascii, [&](CXMLFile& file, bool isLoaded) {
            if (MustRefuse(file, ascii)) {
                ExpectNothingLoaded(file, isLoaded);
                return;
            }
            EXPECT_TRUE(isLoaded);
            EXPECT_TRUE(TextOfRoot(file) == text) << testkit::Quoted(TextOfRoot(file).substr(0, 200));
            EXPECT_TRUE(AttributeV(file) == v) << testkit::Quoted(AttributeV(file).substr(0, 200));
        });
    }

    // What is loaded now is given to the parser by the test.
    bool m_isPastTheLibrary = false;

    static std::wstring TextOfRoot(CXMLFile& file)
    {
        const IXMLDOMNodePtr root = Find(file.m_pXMLDoc, L"/r");
        if (!root)
            return L"(no root element)";
        _bstr_t text;
        root->get_text(text.GetAddress());
        return WideOf(text);
    }

    static std::wstring AttributeV(CXMLFile& file) { return WideOf(file.GetAttrib(L"/r", Writable(L"v"))); }
};
