// Where Wine's parser differs from what XML and Windows's parser say, and CXMLFile cannot make it good:
// both outcomes, so that a change of either is noticed.
#include "DocumentTree.h"

#include "xml/XmlTest.h"

namespace
{

bool IsWine()
{
    return GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
}

class XmlParserDifferences : public XmlTest
{
protected:
    // The texts and CDATA sections of a document that is well-formed.
    std::vector<std::wstring> TextsOf(std::string_view utf8)
    {
        std::vector<std::wstring> texts;
        for (const TreeNode& node : TreeOf(Loaded(utf8).m_pXMLDoc)) {
            if (node.type == NODE_TEXT || node.type == NODE_CDATA_SECTION)
                texts.push_back(node.text);
        }
        return texts;
    }
};

using Texts = std::vector<std::wstring>;

TEST_F(XmlParserDifferences, DeclarationsOfNamespacesAreAttributesButNotAllForWine)
{
    CXMLFile file = Loaded("<a xmlns='urn:one' xmlns:p='urn:two' b='3'/>");
    wchar_t name[] = L"xmlns";
    wchar_t prefixed[] = L"xmlns:p";
    EXPECT_EQ(file.GetAttrib(L"/*", name), IsWine() ? L"" : L"urn:one");
    EXPECT_EQ(file.GetAttrib(L"/*", prefixed), L"urn:two");
    EXPECT_EQ(TreeOf(file.m_pXMLDoc).at(0).attributes.size(), IsWine() ? 1u : 3u);
    EXPECT_EQ(TreeOf(file.m_pXMLDoc).at(0).space, L"urn:one");
}

TEST_F(XmlParserDifferences, WhiteSpaceThatBeginsTextBeforeAReferenceIsKeptButForWine)
{
    EXPECT_EQ(TextsOf("<a> &amp; y</a>"), Texts{IsWine() ? L"& y" : L" & y"});
}

TEST_F(XmlParserDifferences, WhiteSpaceThatBeginsTextBeforeANonAsciiCharacterIsKeptButForWine)
{
    EXPECT_EQ(TextsOf("<a>x<b/> \xc3\xa9</a>"), (Texts{L"x", IsWine() ? L"\u00e9" : L" \u00e9"}));
}

TEST_F(XmlParserDifferences, WhiteSpaceThatEndsTextAfterAReferenceIsKeptButForWine)
{
    EXPECT_EQ(TextsOf("<a>x &amp; <b/>y</a>"), (Texts{IsWine() ? L"x &" : L"x & ", L"y"}));
}

TEST_F(XmlParserDifferences, TheTextOfAnAttributeOfWhiteSpaceIsItsValueButForWine)
{
    CXMLFile file = Loaded("<a q=' '/>");
    const CString text = IsWine() ? L"" : L" ";
    wchar_t xpath[] = L"/a";
    wchar_t name[] = L"q";
    EXPECT_EQ(file.GetAttrib(xpath, name), L" "); // does not read the text
    CStringArray found;
    file.FillStringArray(found, xpath, name);
    ASSERT_EQ(found.GetSize(), 1);
    EXPECT_EQ(found[0], text);
    file.GetDOMNodePtr(xpath, file.m_pCurNode);
    file.m_bReadMode = true;
    CString value = L"before";
    file.CreateAttrib(name, value);
    EXPECT_EQ(value, text);
}

TEST_F(XmlParserDifferences, CDataSectionsApartByWhiteSpaceStayApartButForWine)
{
    EXPECT_EQ(TextsOf("<a><![CDATA[x]]> <![CDATA[y]]></a>"), IsWine() ? Texts{L"xy"} : (Texts{L"x", L"y"}));
}

TEST_F(XmlParserDifferences, DefaultsOfADtdAreReadByGetAttribOnlyUnderWineAndNotLoadedElsewhere)
{
    testkit::WriteBytes(m_folder / L"dtd.xml", "<!DOCTYPE a [<!ATTLIST a q CDATA 'v'>]><a/>");
    CXMLFile file(PathOf(L"dtd.xml"));
    ASSERT_EQ(file.LoadFile(), IsWine());
    wchar_t name[] = L"q";
    EXPECT_EQ(file.GetAttrib(L"/a", name), IsWine() ? L"v" : L"");
    CStringArray found;
    wchar_t xpath[] = L"//*[@q]";
    file.FillStringArray(found, xpath, name);
    EXPECT_EQ(found.GetSize(), 0);
    EXPECT_THAT(Messages(), testing::IsEmpty());
}

TEST_F(XmlParserDifferences, EntitiesOfAnExternalDtdAreReadAsNothingUnderWineAndNotLoadedElsewhere)
{
    testkit::WriteBytes(m_folder / L"dtd.dtd", "<!ENTITY e 'v'>");
    testkit::WriteBytes(m_folder / L"external.xml", "<!DOCTYPE a SYSTEM 'dtd.dtd'><a q='1&e;2'/>");
    CXMLFile file(PathOf(L"external.xml"));
    ASSERT_EQ(file.LoadFile(), IsWine());
    wchar_t name[] = L"q";
    EXPECT_EQ(file.GetAttrib(L"/a", name), IsWine() ? L"12" : L"");
    EXPECT_THAT(Messages(), testing::IsEmpty());
}

TEST_F(XmlParserDifferences, AnAmpersandInANamespaceIsSavedAsReferenceButForWine)
{
    CXMLFile file = Loaded("<a xmlns:p='urn:b&amp;c'/>");
    file.SaveDocument();
    EXPECT_EQ(file.LoadFile(), !IsWine());
}

TEST_F(XmlParserDifferences, WhatIsDeclaredAsAsciiIsSavedAsItButForWine)
{
    CXMLFile file = Loaded("<?xml version='1.0' encoding='us-ascii'?><a b='&#233;'/>");
    file.SaveDocument();
    EXPECT_EQ(file.LoadFile(), !IsWine());
    EXPECT_EQ(testkit::ReadBytes(m_folder / L"document.xml").find("\xc3\xa9") != std::string::npos, IsWine());
}

} // namespace
