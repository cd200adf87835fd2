// The message boxes, as the library asks MFC for them.
#include "LoadFileTest.h"
#include "XmlNodes.h"
#include "kit/ReplacedImports.h"

namespace
{

struct Box
{
    std::wstring text;
    UINT type;
    UINT helpContext;
};
std::vector<Box>* theBoxes = nullptr;

int AFXAPI NoteMessageBox(LPCTSTR text, UINT type, UINT helpContext)
{
    theBoxes->push_back({text, type, helpContext});
    return IDOK;
}

class MessageBoxes : public LoadFileSteps
{
protected:
    void SetUp() override
    {
        theBoxes = &m_boxes;
        if (!m_import.IsReplaced())
            GTEST_SKIP() << "this build imports AfxMessageBox in another way";
    }
    void TearDown() override { theBoxes = nullptr; }

    // That exactly one box was asked for: that text, an OK button alone, no icon and no help.
    void ExpectBox(const wchar_t* text) const
    {
        ASSERT_EQ(m_boxes.size(), 1u);
        EXPECT_EQ(m_boxes[0].text, text);
        EXPECT_EQ(m_boxes[0].type, static_cast<UINT>(MB_OK));
        EXPECT_EQ(m_boxes[0].helpContext, 0U);
    }

    // A real document of that text.
    CXMLFile& Real(const wchar_t* text)
    {
        m_real.m_pXMLDoc = m_document->m_real;
        VARIANT_BOOL isLoaded = VARIANT_FALSE;
        EXPECT_EQ(m_real.m_pXMLDoc->loadXML(_bstr_t(text), &isLoaded), S_OK);
        EXPECT_EQ(isLoaded, VARIANT_TRUE);
        return m_real;
    }

    std::vector<Box> m_boxes;
    const CReplacedImport m_import{"VelmAfx22.dll", "_Z13AfxMessageBoxPKwjj",
                                   reinterpret_cast<void*>(&NoteMessageBox)};
    CXMLFile m_real;
};

} // namespace

TEST_F(MessageBoxes, OfLoadFileHasAnOkButtonAndNoHelp)
{
    m_supply.m_refusal = E_FAIL;
    EXPECT_FALSE(m_file.LoadFile());
    ExpectBox(L"XML File Loading Error");
}

TEST_F(MessageBoxes, OfTheParsersReasonHasAnOkButtonAndNoHelp)
{
    auto* const reason = new CReason(L"It is \u00FCnwell.\r\n");
    const IXMLDOMParseErrorPtr owner(reason, false);
    m_document->m_parseError = reason;
    EXPECT_TRUE(m_file.LoadFile());
    ExpectBox(L"It is \u00FCnwell.\r\n");
}

TEST_F(MessageBoxes, OfLoadFileFromResHasAnOkButtonAndNoHelp)
{
    m_supply.m_refusal = E_FAIL;
    EXPECT_FALSE(m_file.LoadFileFromRes());
    ExpectBox(L"Resource File Loading Error");
}

TEST_F(MessageBoxes, OfSelectNodeHasAnOkButtonAndNoHelp)
{
    EXPECT_FALSE(m_file.SelectNode(Writable(L"a"), true, false));
    ExpectBox(L"To remove Node Itself, Create option should be true");
}

TEST_F(MessageBoxes, OfGetDOMNodePtrHasAnOkButtonAndNoHelp)
{
    IXMLDOMNodePtr node;
    Real(L"<r/>").GetDOMNodePtr(L"[", node);
    ExpectBox(L"Some Error occurred during XML File Operation");
}

TEST_F(MessageBoxes, OfGetAttribHasAnOkButtonAndNoHelp)
{
    EXPECT_EQ(Real(L"<r>text</r>").GetAttrib(L"/r/text()", Writable(L"k")), L"");
    ExpectBox(L"XML File Atrribute Error");
}

TEST_F(MessageBoxes, OfFillStringArrayHasAnOkButtonAndNoHelp)
{
    CStringArray items;
    Real(L"<r/>").FillStringArray(items, Writable(L"/r"), Writable(L"k"));
    ExpectBox(L"FillStringArray Error");
}
