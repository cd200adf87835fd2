#include "HostMenuTest.h"

namespace
{

class GetAttribValTest : public HostMenuTest
{
protected:
    static CString Value(const IXMLDOMNodePtr& node, std::wstring xpath)
    {
        return GetAttribVal(node, xpath.data());
    }
};

} // namespace

TEST_F(GetAttribValTest, ReadsAnAttribute)
{
    const IXMLDOMNodePtr root = Root(LR"(<r Name=" two  blanks "><c Name="child"/></r>)");
    EXPECT_EQ(Value(root, L"@Name"), L" two  blanks ");
    EXPECT_EQ(Value(root, L"c/@Name"), L"child");
}

TEST_F(GetAttribValTest, ReadsTextNodes)
{
    EXPECT_EQ(Value(Root(L"<r>\u00E4 text</r>"), L"text()"), L"\u00E4 text");
}

TEST_F(GetAttribValTest, GivesNothingForANullNode)
{
    EXPECT_EQ(Value(nullptr, L"@Name"), L"");
}

TEST_F(GetAttribValTest, GivesNothingWhenNothingIsSelected)
{
    const IXMLDOMNodePtr root = Root(LR"(<r Name="n"/>)");
    EXPECT_EQ(Value(root, L"@name"), L"");
    EXPECT_EQ(Value(root, L"c/@Name"), L"");
}

TEST_F(GetAttribValTest, GivesNothingForAnElementWhoseValueIsNull)
{
    EXPECT_EQ(Value(Root(L"<r><c>text</c></r>"), L"c"), L"");
}

TEST_F(GetAttribValTest, ThrowsForAnExpressionThatIsNotValid)
{
    const IXMLDOMNodePtr root = Root(L"<r/>");
    EXPECT_THROW(Value(root, L"@@"), _com_error);
    EXPECT_THROW(GetAttribVal(root, nullptr), _com_error);
}

TEST_F(GetAttribValTest, GivesLongValuesWhole)
{
    const std::wstring value(5000, L'v');
    EXPECT_EQ(Value(Root(L"<r Name=\"" + value + L"\"/>"), L"@Name"), value.c_str());
}

TEST_F(GetAttribValTest, ReleasesItsOwnCopyOfTheNode)
{
    const IXMLDOMNodePtr root = Root(LR"(<r Name="n"/>)");
    root->AddRef();
    const ULONG before = root->Release();
    Value(root, L"@Name");
    root->AddRef();
    EXPECT_EQ(root->Release(), before);
}
