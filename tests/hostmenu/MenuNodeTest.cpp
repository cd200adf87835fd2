#include "HostMenuTest.h"
#include "UnimplementedDom.h"

#include <algorithm>

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

class MenuNode : public HostMenuTest
{
protected:
    // Processes the root element of the text for a menu, which is "menu1" in the log.
    std::vector<std::wstring> Process(const std::wstring& text) { return ProcessNode(Root(text)); }

    static std::vector<std::wstring> ProcessNode(const IXMLDOMNodePtr& node)
    {
        {
            const IAcadPopupMenu menu(Create_ACADMenu(nullptr, L""));
            ProcessMenuNode(node, menu);
            EXPECT_EQ(recording::References()[L"menu1"], 1);
        }
        std::vector<std::wstring> log = recording::Log();
        log.erase(log.begin());
        return log;
    }
};

// A node that answers the question for its attributes with a result and a map of the test's choice.
class CRefusingNode : public CUnimplementedNode<IXMLDOMNode>
{
public:
    explicit CRefusingNode(HRESULT result, IXMLDOMNode* mapOwner = nullptr)
        : m_result(result), m_mapOwner(mapOwner)
    {
    }

    STDMETHODIMP QueryInterface(REFIID, void** object) override
    {
        *object = nullptr;
        return E_NOINTERFACE;
    }
    STDMETHODIMP get_attributes(IXMLDOMNamedNodeMap** map) override
    {
        *map = nullptr;
        if (m_mapOwner)
            m_mapOwner->get_attributes(map);
        return m_result;
    }
    STDMETHODIMP get_childNodes(IXMLDOMNodeList** list) override
    {
        ++m_childrenAsked;
        *list = nullptr;
        return S_FALSE;
    }

    int m_childrenAsked = 0;

private:
    HRESULT m_result;
    IXMLDOMNodePtr m_mapOwner;
};

} // namespace

TEST_F(MenuNode, IgnoresANullNode)
{
    EXPECT_THAT(ProcessNode(nullptr), IsEmpty());
}

TEST_F(MenuNode, MakesAnItemOfNameCmdAndHelp)
{
    EXPECT_THAT(Process(LR"(<Menu Name="Line" Cmd="LINE" Help="Draws a line"/>)"),
                ElementsAre(LR"(Append_MenuItem(menu1, "Line", "LINE ", "Draws a line", true, false))"));
}

TEST_F(MenuNode, MakesAnItemWithoutHelp)
{
    EXPECT_THAT(Process(LR"(<Menu Name="Line" Cmd="LINE"/>)"),
                ElementsAre(LR"(Append_MenuItem(menu1, "Line", "LINE ", null, true, false))"));
}

TEST_F(MenuNode, MakesAnItemWithNullCommandAndHelpOfANameAlone)
{
    EXPECT_THAT(Process(LR"(<Menu Name="Line"/>)"),
                ElementsAre(LR"(Append_MenuItem(menu1, "Line", null, null, true, false))"));
}

TEST_F(MenuNode, PassesANullLabelWithoutAName)
{
    EXPECT_THAT(Process(LR"(<Menu Cmd="LINE"/>)"),
                ElementsAre(LR"(Append_MenuItem(menu1, null, "LINE ", null, true, false))"));
}

TEST_F(MenuNode, PassesEmptyAttributesAsEmptyTexts)
{
    EXPECT_THAT(Process(LR"(<Menu Name="" Cmd="" Help=""/>)"),
                ElementsAre(LR"(Append_MenuItem(menu1, "", " ", "", true, false))"));
}

TEST_F(MenuNode, AddsOneBlankToACommandThatEndsInBlanks)
{
    EXPECT_THAT(Process(LR"(<Menu Name="L" Cmd=" LINE  "/>)"),
                ElementsAre(LR"(Append_MenuItem(menu1, "L", " LINE   ", null, true, false))"));
}

TEST_F(MenuNode, MakesAnItemOfAnElementWhoseAttributesAreAllUnknown)
{
    EXPECT_THAT(Process(LR"(<Menu Other="x"/>)"),
                ElementsAre(LR"(Append_MenuItem(menu1, null, null, null, true, false))"));
}

// An element always has an attribute map, if an empty one.
TEST_F(MenuNode, MakesAnItemOfAnElementWithoutAnyAttribute)
{
    EXPECT_THAT(Process(L"<Menu/>"),
                ElementsAre(LR"(Append_MenuItem(menu1, null, null, null, true, false))"));
}

TEST_F(MenuNode, TellsAttributeNamesApartByCase)
{
    EXPECT_THAT(Process(LR"(<Menu name="x" CMD="y" help="z"/>)"),
                ElementsAre(LR"(Append_MenuItem(menu1, null, null, null, true, false))"));
}

TEST_F(MenuNode, MakesACascadeOfNameAndHelp)
{
    EXPECT_THAT(Process(LR"(<Menu Name="Draw" Help="Drawing"/>)"),
                ElementsAre(LR"(submenu2 = Append_SubMenu(menu1, "Draw"))"));
}

TEST_F(MenuNode, MakesACascadeOfAnEmptyHelp)
{
    EXPECT_THAT(Process(LR"(<Menu Name="Draw" Help=""/>)"),
                ElementsAre(LR"(submenu2 = Append_SubMenu(menu1, "Draw"))"));
}

TEST_F(MenuNode, MakesACascadeWithANullLabelOfHelpAlone)
{
    EXPECT_THAT(Process(LR"(<Menu Help="Drawing"/>)"),
                ElementsAre(LR"(submenu2 = Append_SubMenu(menu1, null))"));
}

TEST_F(MenuNode, ReadsAttributesInAnyOrder)
{
    std::vector<std::wstring> attributes = {LR"( Cmd="c")", LR"( Help="h")", LR"( Name="n")", LR"( X="x")"};
    do {
        std::wstring all;
        for (const std::wstring& attribute : attributes)
            all += attribute;
        recording::Reset();
        EXPECT_THAT(Process(L"<Menu" + all + L"/>"),
                    ElementsAre(LR"(Append_MenuItem(menu1, "n", "c ", "h", true, false))"))
            << testkit::Utf8(all);
    } while (std::next_permutation(attributes.begin(), attributes.end()));
}

TEST_F(MenuNode, ReadsTheAttributesOfACascadeInAnyOrder)
{
    for (const wchar_t* text : {LR"(<Menu Help="h" Name="n"/>)", LR"(<Menu Name="n" Help="h"/>)"}) {
        recording::Reset();
        EXPECT_THAT(Process(text), ElementsAre(LR"(submenu2 = Append_SubMenu(menu1, "n"))"));
    }
}

TEST_F(MenuNode, AddsTheChildrenOfACascadeToItsSubMenu)
{
    EXPECT_THAT(Process(LR"(
        <Menu Name="Draw" Help="Drawing">
          <Menu Name="Line" Cmd="LINE" Help="l"/>
          <Anything Name="Arcs" Help="a">
            <Entry Name="Arc" Cmd="ARC"/>
          </Anything>
          <Toolbar Name="Circle"/>
        </Menu>)"),
                ElementsAre(LR"(submenu2 = Append_SubMenu(menu1, "Draw"))",
                            LR"(Append_MenuItem(submenu2, "Line", "LINE ", "l", true, false))",
                            LR"(submenu3 = Append_SubMenu(submenu2, "Arcs"))",
                            LR"(Append_MenuItem(submenu3, "Arc", "ARC ", null, true, false))",
                            LR"(Append_MenuItem(submenu2, "Circle", null, null, true, false))"));
}

TEST_F(MenuNode, IgnoresTheChildrenOfAnItem)
{
    EXPECT_THAT(
        Process(LR"(<Menu Name="x" Cmd="" Help="h"><Menu Name="y" Help="h"/><Menu Name="z"/></Menu>)"),
        ElementsAre(LR"(Append_MenuItem(menu1, "x", " ", "h", true, false))"));
    recording::Reset();
    EXPECT_THAT(Process(LR"(<Menu Name="x"><Menu Name="y" Help="h"/></Menu>)"),
                ElementsAre(LR"(Append_MenuItem(menu1, "x", null, null, true, false))"));
}

TEST_F(MenuNode, SkipsChildrenThatAreNoElements)
{
    EXPECT_THAT(Process(LR"(
        <Menu Name="Draw" Help="h"><!-- comment -->text<![CDATA[Name="x"]]>
          <Menu Name="Line"/>
          more text<!-- end -->
        </Menu>)"),
                ElementsAre(LR"(submenu2 = Append_SubMenu(menu1, "Draw"))",
                            LR"(Append_MenuItem(submenu2, "Line", null, null, true, false))"));
}

TEST_F(MenuNode, SkipsProcessingInstructions)
{
    EXPECT_THAT(Process(LR"(<Menu Name="Draw" Help="h"><?host some data?></Menu>)"),
                ElementsAre(LR"(submenu2 = Append_SubMenu(menu1, "Draw"))"));
}

TEST_F(MenuNode, AddsNothingForACommentOrATextItself)
{
    for (const wchar_t* text : {L"<a><!-- Name --></a>", L"<a>text</a>", L"<a><![CDATA[text]]></a>"}) {
        recording::Reset();
        IXMLDOMNodePtr child;
        Root(text)->get_firstChild(&child);
        ASSERT_NE(child, nullptr);
        EXPECT_THAT(ProcessNode(child), IsEmpty());
    }
}

TEST_F(MenuNode, TakesAnswersOtherThanOkForNoAttributes)
{
    for (const HRESULT result : {S_FALSE, S_OK, E_FAIL}) {
        recording::Reset();
        CRefusingNode* const node = new CRefusingNode(result);
        const IXMLDOMNodePtr owner(node, false);
        EXPECT_THAT(ProcessNode(owner), IsEmpty());
        EXPECT_EQ(node->m_childrenAsked, 1);
    }
}

TEST_F(MenuNode, DoesNotDescendIntoANodeWithoutAttributes)
{
    // A document has child nodes, but no attributes.
    EXPECT_THAT(ProcessNode(Load(LR"(<m Name="x" Help="h"><n Name="y"/></m>)")), IsEmpty());
}

TEST_F(MenuNode, DoesNotReadAMapThatCameWithAnotherAnswerThanOk)
{
    const IXMLDOMNodePtr node(new CRefusingNode(S_FALSE, Root(LR"(<m Name="x"/>)")), false);
    EXPECT_THAT(ProcessNode(node), IsEmpty());
}

TEST_F(MenuNode, ReleasesItsOwnCopiesOfTheArguments)
{
    const IXMLDOMNodePtr node = Root(LR"(<Menu Name="x" Help="h"><Menu/></Menu>)");
    node->AddRef();
    const ULONG before = node->Release();
    Process(LR"(<Menu/>)");
    recording::Reset();
    ProcessNode(node);
    node->AddRef();
    EXPECT_EQ(node->Release(), before);
}

TEST_F(MenuNode, IgnoresTheChildrenWhenTheCompanionGivesNoSubMenu)
{
    recording::ReturnNullInCall(2);
    EXPECT_THAT(Process(LR"(<Menu Name="x" Help="h"><Menu Name="y"/></Menu>)"),
                ElementsAre(LR"(submenu2 = Append_SubMenu(menu1, "x"))"));
}

TEST_F(MenuNode, TakesTextsBeyondAscii)
{
    // A surrogate pair, a combining accent, right-to-left letters, control characters for direction.
    const std::wstring text = L"\U0001F600 e\u0301 \u05E9\u05DC\u05D5\u05DD \u202E\u6F22\u200F";
    EXPECT_THAT(Process(L"<Menu Name=\"" + text + L"\" Cmd=\"" + text + L"\" Help=\"" + text + L"\"/>"),
                ElementsAre(L"Append_MenuItem(menu1, \"" + text + L"\", \"" + text + L" \", \"" + text +
                            L"\", true, false)"));
}

TEST_F(MenuNode, TakesEntitiesAsTheCharactersTheyStandFor)
{
    EXPECT_THAT(
        Process(LR"(<Menu Name="&amp;Tools &lt;&gt;&quot;&apos;" Cmd="&#x1F600;&#65;"/>)"),
        ElementsAre(L"Append_MenuItem(menu1, \"&Tools <>\"'\", \"\U0001F600A \", null, true, false)"));
}

TEST_F(MenuNode, TakesLineEndsInAttributesAsBlanks)
{
    EXPECT_THAT(Process(L"<Menu Name=\"a\nb\tc\r\nd\"/>"),
                ElementsAre(LR"(Append_MenuItem(menu1, "a b c d", null, null, true, false))"));
}

TEST_F(MenuNode, KeepsLineEndsThatAreWrittenAsCharacterReferences)
{
    EXPECT_THAT(Process(LR"(<Menu Name="a&#10;b"/>)"),
                ElementsAre(L"Append_MenuItem(menu1, \"a\nb\", null, null, true, false)"));
}

TEST_F(MenuNode, TakesLongTextsWhole)
{
    const std::wstring name(5000, L'n');
    const std::wstring command(5000, L'c');
    const std::wstring help(5000, L'h');
    EXPECT_THAT(Process(L"<Menu Name=\"" + name + L"\" Cmd=\"" + command + L"\" Help=\"" + help + L"\"/>"),
                ElementsAre(ItemLine(L"menu1", InQuotes(name), InQuotes(command + L" "), InQuotes(help))));
}

TEST_F(MenuNode, DescendsTwoHundredLevels)
{
    std::wstring text = LR"(<m Name="leaf" Cmd="C"/>)";
    for (int i = 0; i < 200; ++i)
        text = LR"(<m Name="x" Help="h">)" + text + L"</m>";
    const std::vector<std::wstring> log = Process(text);
    ASSERT_EQ(log.size(), 201u);
    EXPECT_EQ(log[199], LR"(submenu201 = Append_SubMenu(submenu200, "x"))");
    EXPECT_EQ(log[200], LR"(Append_MenuItem(submenu201, "leaf", "C ", null, true, false))");
}

TEST_F(MenuNode, KeepsTheSubMenuUntilItsLastChildIsAdded)
{
    std::vector<long> references;
    for (const int call : {3, 4})
        recording::InCall(call, [&] { references.push_back(recording::References()[L"submenu2"]); });
    Process(LR"(<m Name="x" Help="h"><a Name="1"/><a Name="2"/></m>)");
    // That of the cascade, that of the child's call, and that of the companion.
    EXPECT_THAT(references, ElementsAre(3, 3));
}

TEST_F(MenuNode, LetsAHostFailurePass)
{
    recording::InCall(3, [] { AfxThrowOleDispatchException(0, L"refused"); });
    const IXMLDOMNodePtr node = Root(LR"(<m Name="x" Help="h"><a Name="1"/><a Name="2"/></m>)");
    const IAcadPopupMenu menu(Create_ACADMenu(nullptr, L""));
    try {
        ProcessMenuNode(node, menu);
        FAIL() << "no exception";
    } catch (COleDispatchException* e) {
        EXPECT_EQ(e->m_strDescription, L"refused");
        e->Delete();
    }
    EXPECT_EQ(recording::CallCount(), 3);
    EXPECT_EQ(recording::References()[L"submenu2"], 0);
}
