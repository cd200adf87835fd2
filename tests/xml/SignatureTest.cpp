// What the members take and return, as callers were compiled against it.
#include "XmlTest.h"

#include <type_traits>

namespace
{

template <class Member, class Signature>
constexpr bool Is = std::is_same_v<Member, Signature CXMLFile::*>;

static_assert(Is<decltype(&CXMLFile::SetXMLFilePath), void(CString)>);
static_assert(Is<decltype(&CXMLFile::LoadFile), bool()>);
static_assert(Is<decltype(&CXMLFile::UnLoadFile), void()>);
static_assert(Is<decltype(&CXMLFile::SaveDocument), void()>);
static_assert(Is<decltype(&CXMLFile::GetXMLDocument), void(IXMLDOMDocument2Ptr&)>);
static_assert(Is<decltype(&CXMLFile::GetXMLFileInString), CString()>);
static_assert(Is<decltype(&CXMLFile::SelectNode), IXMLDOMNodePtr(wchar_t*, bool, bool)>);
static_assert(Is<decltype(&CXMLFile::GetDOMNodePtr), void(CString, IXMLDOMNodePtr&)>);
static_assert(Is<decltype(&CXMLFile::GetAttrib), CString(CString, wchar_t*)>);
static_assert(Is<decltype(&CXMLFile::GetAttribElement), CString(CString, wchar_t*, IXMLDOMElementPtr&)>);
static_assert(Is<decltype(&CXMLFile::FillStringArray), void(CStringArray&, wchar_t*, wchar_t*)>);
static_assert(Is<decltype(&CXMLFile::FillStringList), void(std::list<CString>&, wchar_t*, wchar_t*)>);
static_assert(Is<decltype(&CXMLFile::FillComboBox), void(CComboBox&, wchar_t*, wchar_t*)>);
static_assert(Is<decltype(&CXMLFile::CreateRuleXMLString), void(CString&)>);
static_assert(Is<decltype(&CXMLFile::CreateNode), IXMLDOMNodePtr(wchar_t*)>);
static_assert(Is<decltype(&CXMLFile::DeleteXMLNode), void(CString, CString)>);
static_assert(Is<decltype(&CXMLFile::setXMLStringFromResource), bool(__int64, CString, CString)>);
static_assert(Is<decltype(&CXMLFile::LoadFileFromRes), bool()>);

template <class Value>
concept HasCreateAttrib = requires(void (CXMLFile::*member)(wchar_t*, Value&))
{
    member = &CXMLFile::CreateAttrib;
};
static_assert(HasCreateAttrib<CString> && HasCreateAttrib<int> && HasCreateAttrib<long>);
static_assert(HasCreateAttrib<float> && HasCreateAttrib<double> && HasCreateAttrib<bool>);

template <class File>
concept HasOpenResourceText = requires(File file)
{
    file.GetStringFromResource(1, CString());
};
template <class File>
concept HasOpenTempFile = requires(File file)
{
    file.WriteTempFile(CString(), CString());
};
static_assert(!HasOpenResourceText<CXMLFile> && !HasOpenTempFile<CXMLFile>);

} // namespace

// The checks above are the compiler's; this one is for fragments, which no other test puts under a file.
TEST_F(XmlTest, AnElementGoesUnderAFragment)
{
    CXMLFile file = Loaded("<r/>");
    IXMLDOMDocumentFragment* fragment = nullptr;
    ASSERT_EQ(file.m_pXMLDoc->createDocumentFragment(&fragment), S_OK);
    file.m_pCurNode = fragment;
    fragment->Release();
    wchar_t name[] = L"Item";
    file.CreateNode(name);
    IXMLDOMNodePtr child;
    ASSERT_EQ(file.m_pCurNode->get_firstChild(&child), S_OK);
    _bstr_t childName;
    child->get_nodeName(childName.GetAddress());
    EXPECT_STREQ(static_cast<const wchar_t*>(childName), L"Item");
}
