// Finding a node of the document by an XPath.
#include "FailingNodes.h"
#include "XmlNodes.h"

#include <stdexcept>

namespace
{

using testing::ElementsAre;

const HRESULT SomeFailure = MAKE_HRESULT(SEVERITY_ERROR, FACILITY_ITF, 0x1234);

class GetDOMNodePtr : public XmlNodeTest
{
protected:
    const std::wstring Message = L"Some Error occurred during XML File Operation";
};

} // namespace

TEST_F(GetDOMNodePtr, FindsByAbsoluteAndByRelativePath)
{
    CXMLFile file = Loaded("<Menus><Menu id='1'/><Menu id='2'/><Deep><Menu id='3'/></Deep></Menus>");
    for (const wchar_t* xpath : {L"Menus/Menu", L"/Menus/Menu", L"//Menu", L"./Menus/Menu", L"//Menu[1]"}) {
        IXMLDOMNodePtr node;
        file.GetDOMNodePtr(xpath, node);
        ASSERT_TRUE(node) << testkit::Quoted(xpath);
        EXPECT_EQ(TreeOf(node), L"Menu id=\"1\"()");
    }
    IXMLDOMNodePtr deep;
    file.GetDOMNodePtr(L"//Deep/Menu[@id > 2]", deep);
    EXPECT_EQ(AttributeValue(deep, L"id"), L"3");
    ExpectNoMessage();
}

TEST_F(GetDOMNodePtr, SearchesFromTheDocumentWhateverTheCurrentNode)
{
    CXMLFile file = LoadedAt("<r><a><b/></a></r>", L"/r/a");
    IXMLDOMNodePtr node;
    file.GetDOMNodePtr(L"b", node);
    EXPECT_FALSE(node);
    file.GetDOMNodePtr(L"r/a/b", node);
    EXPECT_TRUE(node);
}

TEST_F(GetDOMNodePtr, NoMatchGivesNullAndReleasesWhatWasThere)
{
    FailingNodes nodes;
    CXMLFile file = LoadedAt("<r/>");
    IXMLDOMNodePtr node = nodes.Before(file.m_pCurNode);
    ASSERT_EQ(nodes.LiveObjects(), 1);
    file.GetDOMNodePtr(L"//absent", node);
    EXPECT_FALSE(node);
    EXPECT_EQ(nodes.LiveObjects(), 0);
    ExpectNoMessage();
}

TEST_F(GetDOMNodePtr, AMatchReleasesWhatWasThere)
{
    FailingNodes nodes;
    CXMLFile file = LoadedAt("<r/>");
    IXMLDOMNodePtr node = nodes.Before(file.m_pCurNode);
    file.GetDOMNodePtr(L"/r", node);
    EXPECT_EQ(TreeOf(node), L"r()");
    EXPECT_EQ(nodes.LiveObjects(), 0);
}

TEST_F(GetDOMNodePtr, GivesOneReference)
{
    FailingNodes nodes;
    CXMLFile file = Loaded("<r/>");
    file.m_pXMLDoc = nodes.Before(file.m_pXMLDoc);
    IXMLDOMNodePtr node;
    file.GetDOMNodePtr(L"/r", node);
    ASSERT_TRUE(node);
    EXPECT_EQ(ReferencesOf(node), 1u);
    EXPECT_EQ(nodes.LiveObjects(), 2);
    node = nullptr;
    file.m_pXMLDoc = nullptr;
    EXPECT_EQ(nodes.LiveObjects(), 0);
}

TEST_F(GetDOMNodePtr, WithoutDocumentLeavesTheNodeAsItWas)
{
    CXMLFile file = LoadedAt("<r/>");
    file.m_pXMLDoc = nullptr;
    IXMLDOMNodePtr node = file.m_pCurNode;
    file.GetDOMNodePtr(L"/r", node);
    EXPECT_EQ(node.GetInterfacePtr(), file.m_pCurNode.GetInterfacePtr());
    file.GetDOMNodePtr(L"[", node);
    EXPECT_EQ(node.GetInterfacePtr(), file.m_pCurNode.GetInterfacePtr());
    ExpectNoMessage();
}

TEST_F(GetDOMNodePtr, InvalidXPathShowsItsMessageAndKeepsTheNode)
{
    for (const wchar_t* xpath : {L"", L"//", L"/r[", L"a b", L"'", L"count(//r)", L"//q:r", L"r/"}) {
        CXMLFile file = LoadedAt("<r/>");
        const testkit::MessageBoxWatch watch;
        IXMLDOMNodePtr node = file.m_pCurNode;
        file.GetDOMNodePtr(xpath, node);
        EXPECT_THAT(watch.Texts(), ElementsAre(Message)) << testkit::Quoted(xpath);
        EXPECT_EQ(node.GetInterfacePtr(), file.m_pCurNode.GetInterfacePtr());
    }
}

TEST_F(GetDOMNodePtr, ItsMessageHasAnOkButton)
{
    CXMLFile file = Loaded("<r/>");
    IXMLDOMNodePtr node;
    file.GetDOMNodePtr(L"[", node);
    ExpectOneMessage(Message);
}

TEST_F(GetDOMNodePtr, FindsNodesOfEveryKind)
{
    CXMLFile file = Loaded("<r k='v'>text<!--c--><?pi data?></r>");
    const std::pair<const wchar_t*, DOMNodeType> kinds[] = {
        {L"/", NODE_DOCUMENT},           {L"/r", NODE_ELEMENT},
        {L"/r/@k", NODE_ATTRIBUTE},      {L"/r/text()", NODE_TEXT},
        {L"/r/comment()", NODE_COMMENT}, {L"/r/processing-instruction()", NODE_PROCESSING_INSTRUCTION},
    };
    for (const auto& [xpath, type] : kinds) {
        IXMLDOMNodePtr node;
        file.GetDOMNodePtr(xpath, node);
        ASSERT_TRUE(node) << testkit::Quoted(xpath);
        EXPECT_EQ(TypeOf(node), type) << testkit::Quoted(xpath);
    }
    ExpectNoMessage();
}

TEST_F(GetDOMNodePtr, MayMoveTheCurrentNodeItself)
{
    CXMLFile file = LoadedAt("<r><a/></r>");
    file.GetDOMNodePtr(L"/r/a", file.m_pCurNode);
    EXPECT_EQ(NameOf(file.m_pCurNode), L"a");
    file.GetDOMNodePtr(L"[", file.m_pCurNode);
    EXPECT_EQ(NameOf(file.m_pCurNode), L"a");
}

TEST_F(GetDOMNodePtr, TakesTextBeyondAsciiAndBeyondTheBasicPlane)
{
    CXMLFile file = Loaded("<r><a n='\xC3\xA9' i='1'/><a n='\xF0\x9F\x98\x80' i='2'/></r>");
    IXMLDOMNodePtr node;
    file.GetDOMNodePtr(L"//a[@n='\u00E9']", node);
    EXPECT_EQ(AttributeValue(node, L"i"), L"1");
    file.GetDOMNodePtr(L"//a[@n='\U0001F600']", node);
    EXPECT_EQ(AttributeValue(node, L"i"), L"2");
}

TEST_F(GetDOMNodePtr, TakesVeryLongExpressions)
{
    const std::string value(200000, 'x');
    CXMLFile file = Loaded("<r><a n='" + value + "'/></r>");
    IXMLDOMNodePtr node;
    file.GetDOMNodePtr((L"//a[@n='" + testkit::Wide(value) + L"']").c_str(), node);
    EXPECT_TRUE(node);
    file.GetDOMNodePtr((L"//a[@n='" + testkit::Wide(value) + L"x']").c_str(), node);
    EXPECT_FALSE(node);
    ExpectNoMessage();
}

TEST_F(GetDOMNodePtr, CatchesEveryKindOfException)
{
    const FailingNodes::Action actions[] = {
        [] { return SomeFailure; },
        []() -> HRESULT { throw std::runtime_error("model"); },
        []() -> HRESULT { throw std::bad_alloc(); },
        []() -> HRESULT { AfxThrowMemoryException(); },
        []() -> HRESULT { AfxThrowFileException(CFileException::genericException); },
        []() -> HRESULT { throw 1; },
    };
    for (const FailingNodes::Action& action : actions) {
        FailingNodes nodes;
        CXMLFile file = LoadedAt("<r/>");
        file.m_pXMLDoc = nodes.Before(file.m_pXMLDoc);
        nodes.At(NodeCall::SelectSingleNode, 1, action);
        const testkit::MessageBoxWatch watch;
        IXMLDOMNodePtr node = file.m_pCurNode;
        file.GetDOMNodePtr(L"/r", node);
        EXPECT_THAT(watch.Texts(), ElementsAre(Message));
        EXPECT_EQ(node.GetInterfacePtr(), file.m_pCurNode.GetInterfacePtr());
        file.m_pXMLDoc = nullptr;
    }
}
