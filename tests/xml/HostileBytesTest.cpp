// Documents of wrong, cut off and changed bytes.
#include "HostileTest.h"

#include <random>

class HostileBytes : public HostileTest
{
protected:
    // The text in all places of a document where characters may stand.
    template <class Text>
    static std::vector<Text> InAllPlaces(const Text& text)
    {
        const auto around = [&](std::string_view before, std::string_view behind) {
            return Text(before.begin(), before.end()) + text + Text(behind.begin(), behind.end());
        };
        return {around("<r>a", "b</r>"),   around("<r v='a", "b'/>"),
                around("<r", "/>"),        around("<r><![CDATA[", "]]></r>"),
                around("<!--", "--><r/>"), around("<?p ", "?><r/>"),
                around("<r ", "='1'/>")};
    }

    void ExpectRefusedInAllPlaces(const std::string& bytes)
    {
        for (const std::string& document : InAllPlaces(bytes))
            ExpectFileRefused(document);
    }

    void ExpectRefusedInAllPlaces(const std::wstring& text)
    {
        for (const std::wstring& document : InAllPlaces(text)) {
            ExpectFileRefused(Utf16File(document));
            ExpectTextRefused(document);
        }
    }

    // Some of everything, and no proper part of it is well-formed.
    static constexpr std::string_view Small =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?><!DOCTYPE r [<!ENTITY e 'x'><!ATTLIST r w CDATA 'd'>]>"
        "<?p q?><!-- c --><r xmlns:n='urn:n' v=\"1 &amp; 2\"><n:a n:b='&#x41;'/>&e;<![CDATA[<>]]>"
        "t\xC3\xA9xt &lt; \xF0\x9F\x98\x80</r>";
    static constexpr std::string_view Plain = "<r v='1'><!-- c --><a b='&#65;'/><![CDATA[<>]]>text</r>";
};

TEST_F(HostileBytes, ControlCharactersAreRefused)
{
    for (char c = 1; c < ' '; ++c)
        if (c != '\t' && c != '\n' && c != '\r')
            ExpectRefusedInAllPlaces(std::string(1, c));
}

TEST_F(HostileBytes, NonCharactersAreRefused)
{
    for (const wchar_t* text : {L"\xFFFE", L"\xFFFF"})
        ExpectRefusedInAllPlaces(std::wstring(text));
    for (const char* utf8 : {"\xEF\xBF\xBE", "\xEF\xBF\xBF"})
        ExpectRefusedInAllPlaces(std::string(utf8));
}

TEST_F(HostileBytes, ReferencesToNoCharacterAreRefused)
{
    for (const std::string number :
         {"0",         "1",         "8",          "11",         "31",
          "-1",        "x0",        "x1F",        "xD800",      "xDBFF",
          "xDC00",     "xDFFF",     "xFFFE",      "xFFFF",      "x110000",
          "x7FFFFFFF", "xFFFFFFFF", "x100000041", "4294967361", "18446744073709551681",
          "",          "x",         "xG",         "A"})
    {
        ExpectRefused("<r>&#" + number + ";</r>");
        ExpectRefused("<r v='&#" + number + ";'/>");
    }
    ExpectRefused("<r>&#xD83D;&#xDE00;</r>");
    ExpectRefused("<r>&#65</r>");
}

TEST_F(HostileBytes, HalfSurrogatePairsAreRefused)
{
    for (const wchar_t* text : {L"\xD83D", L"\xDE00", L"\xDE00\xD83D", L"\xD83D\xD83D\xDE00"})
        ExpectRefusedInAllPlaces(std::wstring(text));
    for (const char* utf8 : {"\xED\xA0\xBD", "\xED\xB8\x80", "\xED\xA0\xBD\xED\xB8\x80"})
        ExpectRefusedInAllPlaces(std::string(utf8));
}

TEST_F(HostileBytes, OverlongAndImpossibleUtf8IsRefused)
{
    for (const char* utf8 : {"\xC0\x80", "\xC0\xBC", "\xC1\xA1", "\xE0\x80\xBC", "\xE0\x9F\xBF",
                             "\xF0\x80\x80\xBC", "\xF0\x8F\xBF\xBF", "\xF4\x90\x80\x80", "\xF5\x80\x80\x80",
                             "\xF8\x88\x80\x80\x80", "\xFC\x84\x80\x80\x80\x80", "\xFE", "\xFF"})
        ExpectRefusedInAllPlaces(std::string(utf8));
}

TEST_F(HostileBytes, TruncatedUtf8IsRefused)
{
    for (const char* utf8 : {"\x80", "\xBF", "\xC3", "\xE2\x82", "\xE2", "\xF0\x9F\x98", "\xF0\x9F", "\xF0"})
        ExpectRefusedInAllPlaces(std::string(utf8));
    for (const char* end : {"\xC3", "\xE2\x82", "\xF0\x9F\x98"})
        ExpectFileRefused("<r>" + std::string(end));
}

TEST_F(HostileBytes, ZeroBytesInsideAreRefused)
{
    using namespace std::string_literals;
    ExpectRefusedInAllPlaces("\0"s);
    ExpectRefusedInAllPlaces(L"\0"s);
    ExpectRefused("\0<r/>"s);
    ExpectRefused("<r>\0</r>"s);
    ExpectRefused("<r><a/>\0<b/></r>"s);
    ExpectRefused(std::string(1000, '\0'));
}

TEST_F(HostileBytes, WhatStandsBehindTheDocumentIsRefusedOrLeftOut)
{
    using namespace std::string_literals;
    for (const std::string& bytes :
         {"<r/>\0"s, "<r/>\0\0\0"s, "<r/>\n\0"s, "<r/>\0<r/>"s, Utf16File(L"<r/>\0"s),
          Utf16File(L"<r/>\xD83D"), Utf16File(L"<r/>") + "x"})
    {
        SCOPED_TRACE(testkit::Quoted(std::wstring(bytes.begin(), bytes.end())));
        CXMLFile file;
        const bool isLoaded = LoadBytes(file, bytes);
        if (isLoaded)
            EXPECT_EQ(file.GetXMLFileInString(), L"<r/>\r\n");
        else
            ExpectNothingLoaded(file, isLoaded);
    }
}

TEST_F(HostileBytes, DocumentTruncatedAtAnyByteIsRefused)
{
    for (const std::string_view whole : {Small, Plain}) {
        for (size_t size = 0; size < whole.size(); ++size)
            ExpectFileRefused(whole.substr(0, size));
    }
    const std::string utf16 = Utf16File(testkit::Wide(Plain));
    for (size_t size = 0; size < utf16.size(); ++size)
        ExpectFileRefused(std::string_view(utf16).substr(0, size));
    CXMLFile file;
    EXPECT_TRUE(LoadBytes(file, utf16));
    EXPECT_TRUE(LoadBytes(file, Plain));
}

TEST_F(HostileBytes, RandomlyChangedDocumentIsLoadedOrRefused)
{
    std::mt19937 random(20);
    const auto below = [&](size_t limit) { return static_cast<size_t>(random() % limit); };
    constexpr std::string_view special = "<>&;'\"/=!?[]#%:- \n";
    int loadedCount = 0;
    constexpr int rounds = 1000;
    for (int round = 0; round < rounds; ++round) {
        std::string bytes(round % 2 == 0 ? Small : Plain);
        for (size_t changes = 1 + below(4); changes > 0; --changes) {
            const size_t at = below(bytes.size());
            switch (below(4)) {
            case 0:
                bytes[at] = static_cast<char>(below(256));
                break;
            case 1:
                bytes[at] = special[below(special.size())];
                break;
            case 2:
                bytes.erase(at, 1 + below(8));
                break;
            default:
                bytes.insert(at, bytes.substr(below(bytes.size()), below(20)));
            }
        }
        SCOPED_TRACE(testkit::Quoted(std::wstring(bytes.begin(), bytes.end())));
        CXMLFile file;
        const bool isLoaded = LoadBytes(file, bytes);
        if (!isLoaded) {
            ExpectNothingLoaded(file, isLoaded);
            continue;
        }
        ++loadedCount;
        EXPECT_TRUE(Find(file.m_pXMLDoc, L"/*"));
        EXPECT_NE(file.GetXMLFileInString(), L"");
    }
    EXPECT_GT(loadedCount, 0);
    EXPECT_LT(loadedCount, rounds);
}
