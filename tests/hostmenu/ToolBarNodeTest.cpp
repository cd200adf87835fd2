#include "HostMenuTest.h"
#include "HostProgram.h"
#include "UnimplementedDom.h"

#include <algorithm>

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

class ToolBarNode : public HostMenuTest
{
protected:
    void SetUp() override
    {
        HostMenuTest::SetUp();
        recording::NameApplication(ApplicationDispatch());
        m_applicationReferences = ApplicationReferences();
    }

    void TearDown() override
    {
        EXPECT_EQ(ApplicationReferences(), m_applicationReferences);
        HostMenuTest::TearDown();
    }

    // Processes the root element of the text for a toolbar, which is "toolbar1" in the log.
    static std::vector<std::wstring> Process(const std::wstring& text, const std::wstring& folder = L"F:\\")
    {
        return ProcessNode(Root(text), folder);
    }

    static std::vector<std::wstring> ProcessNode(const IXMLDOMNodePtr& node,
                                                 const std::wstring& folder = L"F:\\")
    {
        {
            const IAcadToolbar toolbar(Create_ACADToolBar(nullptr, L""));
            ProcessTBarNode(node, toolbar, CString(folder.c_str()));
            EXPECT_EQ(recording::References()[L"toolbar1"], 1);
        }
        std::vector<std::wstring> log = recording::Log();
        log.erase(log.begin());
        return log;
    }

private:
    long m_applicationReferences = 0;
};

// A node that answers the question for its attributes with a result and a map of the test's choice, and
// must not be asked for its children.
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
        ADD_FAILURE() << "asked for children";
        *list = nullptr;
        return S_FALSE;
    }

private:
    HRESULT m_result;
    IXMLDOMNodePtr m_mapOwner;
};

// A node with the attributes of a real one, but without a child list.
class CNodeWithoutList : public CUnimplementedNode<IXMLDOMNode>
{
public:
    explicit CNodeWithoutList(const IXMLDOMNodePtr& real) : m_real(real) {}

    STDMETHODIMP QueryInterface(REFIID, void** object) override
    {
        *object = nullptr;
        return E_NOINTERFACE;
    }
    STDMETHODIMP get_attributes(IXMLDOMNamedNodeMap** map) override { return m_real->get_attributes(map); }
    STDMETHODIMP get_childNodes(IXMLDOMNodeList** list) override
    {
        *list = nullptr;
        return S_FALSE;
    }

private:
    IXMLDOMNodePtr m_real;
};

} // namespace

TEST_F(ToolBarNode, IgnoresANullNode)
{
    EXPECT_THAT(ProcessNode(nullptr), IsEmpty());
}

TEST_F(ToolBarNode, MakesAButtonOfCmdToolTipAndImageList)
{
    EXPECT_THAT(Process(LR"(<Toolbar Name="Line" Cmd="LINE" ToolTip="Draws" ImageList="line"/>)"),
                ElementsAre(LR"(Append_ToolBarItem(toolbar1, "LINE ", "Draws", )"
                            LR"("F:\Bmps\line16.bmp", "F:\Bmps\line24.bmp", false, null))"));
}

TEST_F(ToolBarNode, PassesNullForAbsentAttributes)
{
    EXPECT_THAT(
        Process(LR"(<Toolbar ImageList="line"/>)"),
        ElementsAre(
            LR"(Append_ToolBarItem(toolbar1, null, null, "F:\Bmps\line16.bmp", "F:\Bmps\line24.bmp", false, null))"));
}

TEST_F(ToolBarNode, PassesEmptyAttributesAsEmptyTexts)
{
    EXPECT_THAT(
        Process(LR"(<Toolbar Cmd="" ToolTip="" ImageList="line"/>)"),
        ElementsAre(
            LR"(Append_ToolBarItem(toolbar1, " ", "", "F:\Bmps\line16.bmp", "F:\Bmps\line24.bmp", false, null))"));
}

TEST_F(ToolBarNode, AddsNothingForASeparatorInAnyCase)
{
    for (const wchar_t* name : {L"Separator", L"separator", L"SEPARATOR", L"sEpArAtOr"}) {
        recording::Reset();
        EXPECT_THAT(Process(std::wstring(L"<Toolbar Name=\"") + name +
                            L"\" Cmd=\"C\" ImageList=\"i\"><Toolbar ImageList=\"j\"/></Toolbar>"),
                    IsEmpty());
    }
}

TEST_F(ToolBarNode, MakesAButtonOfANameThatOnlyContainsSeparator)
{
    for (const wchar_t* name : {L"Separators", L" Separator", L"Separator ", L"Separato"}) {
        recording::Reset();
        EXPECT_THAT(Process(std::wstring(L"<Toolbar Name=\"") + name + L"\" ImageList=\"i\"/>"),
                    ElementsAre(ButtonLine(L"toolbar1", L"null", L"null", L"i", L"null", L"F:\\")));
    }
}

TEST_F(ToolBarNode, AddsNothingWithoutAnImageListEvenWithChildren)
{
    EXPECT_THAT(Process(LR"(<Toolbar Name="x" Cmd="C"><Toolbar ImageList="j"/></Toolbar>)"), IsEmpty());
    recording::Reset();
    EXPECT_THAT(Process(LR"(<Toolbar Name="x" Cmd="C" ImageList=""><Toolbar ImageList="j"/></Toolbar>)"),
                IsEmpty());
    recording::Reset();
    EXPECT_THAT(Process(L"<Toolbar/>"), IsEmpty());
}

TEST_F(ToolBarNode, TrimsTheImageList)
{
    EXPECT_THAT(Process(LR"(<Toolbar ImageList="  my line &#9;&#10;"/>)"),
                ElementsAre(ButtonLine(L"toolbar1", L"null", L"null", L"my line", L"null", L"F:\\")));
}

TEST_F(ToolBarNode, TrimsWhiteSpaceBeyondAscii)
{
    EXPECT_THAT(Process(L"<Toolbar ImageList=\"\u3000\u2003my\u3000line\u2003\u3000\"/>"),
                ElementsAre(ButtonLine(L"toolbar1", L"null", L"null", L"my\u3000line", L"null", L"F:\\")));
}

TEST_F(ToolBarNode, BuildsABlankImageList)
{
    EXPECT_THAT(
        Process(LR"(<Toolbar ImageList="   "/>)"),
        ElementsAre(
            LR"(Append_ToolBarItem(toolbar1, null, null, "F:\Bmps\16.bmp", "F:\Bmps\24.bmp", false, null))"));
}

TEST_F(ToolBarNode, TakesTheFolderAsItIs)
{
    EXPECT_THAT(Process(LR"(<Toolbar ImageList="i"/>)", L"\u00C4 %s\\"),
                ElementsAre(L"Append_ToolBarItem(toolbar1, null, null, \"\u00C4 %s\\Bmps\\i16.bmp\", "
                            L"\"\u00C4 %s\\Bmps\\i24.bmp\", false, null)"));
}

TEST_F(ToolBarNode, CutsNothingOffLongNames)
{
    const std::wstring image(5000, L'i');
    const std::wstring folder = L"F:\\" + std::wstring(5000, L'f') + L"\\";
    const std::wstring command(5000, L'c');
    const std::wstring toolTip(5000, L't');
    const std::wstring text =
        L"<Toolbar Cmd=\"" + command + L"\" ToolTip=\"" + toolTip + L"\" ImageList=\"" + image + L"\"/>";
    EXPECT_THAT(Process(text, folder), ElementsAre(ButtonLine(L"toolbar1", InQuotes(command + L" "),
                                                              InQuotes(toolTip), image, L"null", folder)));
}

TEST_F(ToolBarNode, ReadsAttributesInAnyOrder)
{
    std::vector<std::wstring> attributes = {LR"( Cmd="c")", LR"( ImageList="i")", LR"( Name="n")",
                                            LR"( ToolTip="t")", LR"( X="x")"};
    do {
        std::wstring all;
        for (const std::wstring& attribute : attributes)
            all += attribute;
        recording::Reset();
        EXPECT_THAT(Process(L"<Toolbar" + all + L"/>"),
                    ElementsAre(ButtonLine(L"toolbar1", LR"("c ")", LR"("t")", L"i", L"null", L"F:\\")))
            << testkit::Utf8(all);
    } while (std::next_permutation(attributes.begin(), attributes.end()));
}

TEST_F(ToolBarNode, TakesTextsBeyondAscii)
{
    const std::wstring text = L"\U0001F600e\u0301\u05E9\u6F22";
    EXPECT_THAT(
        Process(L"<b Cmd=\"" + text + L"\" ToolTip=\"" + text + L"\" ImageList=\"" + text + L"\"/>"),
        ElementsAre(ButtonLine(L"toolbar1", InQuotes(text + L" "), InQuotes(text), text, L"null", L"F:\\")));
}

TEST_F(ToolBarNode, MakesAFlyoutOfAnEntryWithChildren)
{
    EXPECT_THAT(Process(LR"(
        <Toolbar Name="Draw" Cmd="DRAW" ToolTip="d" ImageList="draw">
          <Toolbar Cmd="LINE" ImageList="line"/>
          <Other Cmd="ARC" ToolTip="a" ImageList="arc"/>
        </Toolbar>)"),
                ElementsAre(LR"(toolbar2 = Create_ACADToolBar(app, "SubToolbar"))",
                            ButtonLine(L"toolbar1", LR"("DRAW ")", LR"("d")", L"draw", L"toolbar2", L"F:\\"),
                            ButtonLine(L"toolbar2", LR"("DRAW ")", LR"("d")", L"draw", L"null", L"F:\\"),
                            ButtonLine(L"toolbar2", LR"("LINE ")", L"null", L"line", L"null", L"F:\\"),
                            ButtonLine(L"toolbar2", LR"("ARC ")", LR"("a")", L"arc", L"null", L"F:\\"),
                            L"SetVisible(toolbar2, 0)"));
}

TEST_F(ToolBarNode, NestsFlyouts)
{
    EXPECT_THAT(Process(LR"(
        <t ImageList="a">
          <t ImageList="b"><t ImageList="c"/></t>
          <t ImageList="d"/>
        </t>)"),
                ElementsAre(LR"(toolbar2 = Create_ACADToolBar(app, "SubToolbar"))",
                            ButtonLine(L"toolbar1", L"null", L"null", L"a", L"toolbar2", L"F:\\"),
                            ButtonLine(L"toolbar2", L"null", L"null", L"a", L"null", L"F:\\"),
                            LR"(toolbar3 = Create_ACADToolBar(app, "SubToolbar"))",
                            ButtonLine(L"toolbar2", L"null", L"null", L"b", L"toolbar3", L"F:\\"),
                            ButtonLine(L"toolbar3", L"null", L"null", L"b", L"null", L"F:\\"),
                            ButtonLine(L"toolbar3", L"null", L"null", L"c", L"null", L"F:\\"),
                            L"SetVisible(toolbar3, 0)",
                            ButtonLine(L"toolbar2", L"null", L"null", L"d", L"null", L"F:\\"),
                            L"SetVisible(toolbar2, 0)"));
}

TEST_F(ToolBarNode, MakesAFlyoutOfAnyKindOfChild)
{
    for (const wchar_t* child :
         {L"<!-- comment -->", L"text", L"<![CDATA[data]]>", L"<?host data?>", L"<empty/>"})
    {
        recording::Reset();
        recording::NameApplication(ApplicationDispatch());
        EXPECT_THAT(Process(std::wstring(L"<t ImageList=\"a\">") + child + L"</t>"),
                    ElementsAre(LR"(toolbar2 = Create_ACADToolBar(app, "SubToolbar"))",
                                ButtonLine(L"toolbar1", L"null", L"null", L"a", L"toolbar2", L"F:\\"),
                                ButtonLine(L"toolbar2", L"null", L"null", L"a", L"null", L"F:\\"),
                                L"SetVisible(toolbar2, 0)"))
            << testkit::Utf8(child);
    }
}

TEST_F(ToolBarNode, MakesAPlainButtonWhenOnlyBlanksStandInside)
{
    EXPECT_THAT(Process(L"<t ImageList=\"a\">  \n </t>"),
                ElementsAre(ButtonLine(L"toolbar1", L"null", L"null", L"a", L"null", L"F:\\")));
}

TEST_F(ToolBarNode, MakesAPlainButtonWithoutAChildList)
{
    const IXMLDOMNodePtr node(new CNodeWithoutList(Root(LR"(<t ImageList="a"><b/></t>)")), false);
    EXPECT_THAT(ProcessNode(node),
                ElementsAre(ButtonLine(L"toolbar1", L"null", L"null", L"a", L"null", L"F:\\")));
}

TEST_F(ToolBarNode, DoesNotLookAtTheChildrenOfANodeWithoutAttributes)
{
    for (const HRESULT result : {S_FALSE, S_OK, E_FAIL}) {
        recording::Reset();
        const IXMLDOMNodePtr node(new CRefusingNode(result), false);
        EXPECT_THAT(ProcessNode(node), IsEmpty());
    }
}

TEST_F(ToolBarNode, DoesNotReadAMapThatCameWithAnotherAnswerThanOk)
{
    const IXMLDOMNodePtr node(new CRefusingNode(S_FALSE, Root(LR"(<t ImageList="a"/>)")), false);
    EXPECT_THAT(ProcessNode(node), IsEmpty());
}

TEST_F(ToolBarNode, DescendsTwoHundredLevels)
{
    std::wstring text = LR"(<t ImageList="leaf"/>)";
    for (int i = 0; i < 200; ++i)
        text = LR"(<t ImageList="x">)" + text + L"</t>";
    const std::vector<std::wstring> log = Process(text);
    // A toolbar, two buttons and the hiding for each level, and the leaf.
    ASSERT_EQ(log.size(), 200u * 4 + 1);
    EXPECT_EQ(log[600], ButtonLine(L"toolbar201", L"null", L"null", L"leaf", L"null", L"F:\\"));
    EXPECT_EQ(log[601], L"SetVisible(toolbar201, 0)");
    EXPECT_EQ(log[800], L"SetVisible(toolbar2, 0)");
}

TEST_F(ToolBarNode, HoldsTheFlyoutUntilItIsHidden)
{
    std::vector<long> references;
    for (const int call : {3, 4, 5, 6})
        recording::InCall(call, [&] { references.push_back(recording::References()[L"toolbar2"]); });
    const std::vector<std::wstring> log = Process(LR"(<t ImageList="a"><t ImageList="b"/></t>)");
    ASSERT_EQ(log.back(), L"SetVisible(toolbar2, 0)");
    // That of the entry itself; that of the companion, which is given it to open and to add to; for the
    // child also that of the child's call.
    EXPECT_THAT(references, ElementsAre(2, 2, 3, 1));
}

TEST_F(ToolBarNode, PassesOnANullFlyout)
{
    recording::ReturnNullInCall(2);
    const std::vector<std::wstring> log = Process(LR"(<t ImageList="a"><t ImageList="b"/></t>)");
    EXPECT_THAT(log, ElementsAre(LR"(toolbar2 = Create_ACADToolBar(app, "SubToolbar"))",
                                 testing::HasSubstr(L", true, null)"),
                                 testing::StartsWith(L"Append_ToolBarItem(null,"),
                                 testing::StartsWith(L"Append_ToolBarItem(null,"), L"SetVisible(null, 0)"));
}

TEST_F(ToolBarNode, ThrowsForAFlyoutWithoutAHostApplication)
{
    const IXMLDOMNodePtr node = Root(LR"(<t ImageList="a"><t ImageList="b"/></t>)");
    OfferApplication(false);
    try {
        ProcessTBarNode(node, IAcadToolbar(), L"F:\\");
        ADD_FAILURE() << "no exception";
    } catch (COleDispatchException* e) {
        EXPECT_FALSE(e->m_strDescription.IsEmpty());
        e->Delete();
    }
    OfferApplication(true);
    EXPECT_THAT(recording::Log(), IsEmpty());
}

TEST_F(ToolBarNode, LetsAHostFailureInAFlyoutPass)
{
    // The calls 2 to 6: make the fly-out, its button, its first button, the child's button, hide it.
    for (int call = 2; call <= 6; ++call) {
        recording::Reset();
        recording::NameApplication(ApplicationDispatch());
        recording::InCall(call, [] { AfxThrowOleDispatchException(0, L"refused"); });
        const IXMLDOMNodePtr node = Root(LR"(<t ImageList="a"><t ImageList="b"/></t>)");
        const IAcadToolbar toolbar(Create_ACADToolBar(nullptr, L""));
        try {
            ProcessTBarNode(node, toolbar, L"F:\\");
            ADD_FAILURE() << "no exception in call " << call;
        } catch (COleDispatchException* e) {
            EXPECT_EQ(e->m_strDescription, L"refused");
            e->Delete();
        }
        EXPECT_EQ(recording::CallCount(), call);
        for (const auto& [name, references] : recording::References())
            EXPECT_EQ(references, name == L"toolbar1" ? 1 : 0) << testkit::Utf8(name);
    }
}
