// Finding, making and replacing children of the current node.
#include "FailingNodes.h"
#include "XmlNodes.h"

namespace
{

const char Items[] = R"(<r><other/><Item id="1"><Item id="inner"/></Item><Item id="2"/><last/></r>)";
const char OneItem[] = R"(<r><other/><Item id="1"/><last/></r>)";
const HRESULT SomeFailure = MAKE_HRESULT(SEVERITY_ERROR, FACILITY_ITF, 0x1234);

class SelectNode : public XmlNodeTest
{
protected:
    // The combinations of the flags that are not refused.
    struct Flags
    {
        bool remove;
        bool create;
    };
    static constexpr Flags AllFlags[] = {{false, false}, {false, true}, {true, true}};

    // Runs the member with stand-ins before the nodes of `utf8`, once with each of its calls failing and
    // finally with none; gives how many calls there are.
    int FailEachCall(std::string_view utf8, const wchar_t* name, Flags flags)
    {
        for (int n = 1;; ++n) {
            FailingNodes nodes;
            {
                CXMLFile file = LoadedAt(utf8);
                file.m_pXMLDoc = nodes.Before(file.m_pXMLDoc);
                file.m_pCurNode = nodes.Before(file.m_pCurNode);
                nodes.FailAny(n, SomeFailure);
                IXMLDOMNodePtr result;
                const HRESULT failure = ComFailureOf(
                    [&] { result = file.SelectNode(Writable(name), flags.remove, flags.create); });
                EXPECT_EQ(failure, nodes.HasFailed() ? SomeFailure : S_OK) << n;
                EXPECT_EQ(result != nullptr, !nodes.HasFailed()) << n;
                if (result) {
                    EXPECT_EQ(ReferencesOf(result), 1u);
                }
            }
            EXPECT_EQ(nodes.LiveObjects(), 0) << n;
            if (!nodes.HasFailed())
                return n - 1;
        }
    }
};

} // namespace

TEST_F(SelectNode, FindsTheFirstChildOfThatName)
{
    CXMLFile file = LoadedAt(Items);
    const IXMLDOMNodePtr found = file.SelectNode(Writable(L"Item"), false, false);
    ASSERT_TRUE(found);
    EXPECT_EQ(TreeOf(found), L"Item id=\"1\"(Item id=\"inner\"())");
    ExpectNoMessage();
}

TEST_F(SelectNode, FindsUnderTheCurrentNodeOnly)
{
    CXMLFile file = LoadedAt(Items, L"/r/Item");
    const IXMLDOMNodePtr found = file.SelectNode(Writable(L"Item"), false, false);
    ASSERT_TRUE(found);
    EXPECT_EQ(AttributeValue(found, L"id"), L"inner");
    EXPECT_FALSE(file.SelectNode(Writable(L"other"), false, false));
}

TEST_F(SelectNode, FindsNoGrandchild)
{
    CXMLFile file = LoadedAt("<r><a><deep/></a></r>");
    EXPECT_FALSE(file.SelectNode(Writable(L"deep"), false, false));
}

TEST_F(SelectNode, TellsUpperAndLowerCaseApart)
{
    CXMLFile file = LoadedAt("<r><item/></r>");
    EXPECT_FALSE(file.SelectNode(Writable(L"Item"), false, false));
}

TEST_F(SelectNode, AbsentChildGivesNullWithoutMessage)
{
    CXMLFile file = LoadedAt(Items);
    const std::wstring before = TreeOfDocument(file);
    EXPECT_FALSE(file.SelectNode(Writable(L"absent"), false, false));
    EXPECT_EQ(TreeOfDocument(file), before);
    ExpectNoMessage();
}

TEST_F(SelectNode, CreateReturnsTheChildThatIsThere)
{
    CXMLFile file = LoadedAt(Items);
    const std::wstring before = TreeOfDocument(file);
    const IXMLDOMNodePtr found = file.SelectNode(Writable(L"Item"), false, true);
    ASSERT_TRUE(found);
    EXPECT_EQ(AttributeValue(found, L"id"), L"1");
    EXPECT_EQ(TreeOfDocument(file), before);
}

TEST_F(SelectNode, CreateAppendsAnEmptyElementWhereNoneIsFound)
{
    CXMLFile file = LoadedAt(OneItem);
    const IXMLDOMNodePtr made = file.SelectNode(Writable(L"New"), false, true);
    ASSERT_TRUE(made);
    EXPECT_EQ(TypeOf(made), NODE_ELEMENT);
    EXPECT_EQ(TreeOfDocument(file), L"#document(r(other()Item id=\"1\"()last()New()))");
    _bstr_t space;
    made->get_namespaceURI(space.GetAddress());
    EXPECT_EQ(WideOf(space), L"");
    ExpectNoMessage();
}

TEST_F(SelectNode, TheCreatedElementIsTheOneInTheDocument)
{
    CXMLFile file = LoadedAt("<r/>");
    file.m_pCurNode = file.SelectNode(Writable(L"New"), false, true);
    CString text = L"here";
    file.CreateAttrib(Writable(L"mark"), text);
    EXPECT_EQ(TreeOfDocument(file), L"#document(r(New mark=\"here\"()))");
}

TEST_F(SelectNode, CreateTwiceAppendsOneElement)
{
    CXMLFile file = LoadedAt("<r/>");
    EXPECT_TRUE(file.SelectNode(Writable(L"Item"), false, true));
    EXPECT_TRUE(file.SelectNode(Writable(L"Item"), false, true));
    EXPECT_EQ(TreeOfDocument(file), L"#document(r(Item()))");
}

TEST_F(SelectNode, RemoveAndCreateReplacesByAnEmptyElementAtTheEnd)
{
    CXMLFile file = LoadedAt("<r><a/><Item id='1'><b/>text</Item><c/></r>");
    const IXMLDOMNodePtr made = file.SelectNode(Writable(L"Item"), true, true);
    ASSERT_TRUE(made);
    EXPECT_EQ(TreeOf(made), L"Item()");
    EXPECT_EQ(TreeOfDocument(file), L"#document(r(a()c()Item()))");
    ExpectNoMessage();
}

TEST_F(SelectNode, RemoveAndCreateRemovesTheFirstOfTwo)
{
    CXMLFile file = LoadedAt("<r><Item id='1'/><Item id='2'/></r>");
    EXPECT_TRUE(file.SelectNode(Writable(L"Item"), true, true));
    EXPECT_EQ(TreeOfDocument(file), L"#document(r(Item id=\"2\"()Item()))");
}

TEST_F(SelectNode, RemoveAndCreateAppendsWhereNothingIsFound)
{
    CXMLFile file = LoadedAt("<r><a/></r>");
    EXPECT_TRUE(file.SelectNode(Writable(L"Item"), true, true));
    EXPECT_EQ(TreeOfDocument(file), L"#document(r(a()Item()))");
}

TEST_F(SelectNode, ARemovedChildLivesOnWithItsOwner)
{
    CXMLFile file = LoadedAt("<r><Item id='1'/></r>");
    const IXMLDOMNodePtr old = Find(file.m_pXMLDoc, L"/r/Item");
    EXPECT_TRUE(file.SelectNode(Writable(L"Item"), true, true));
    EXPECT_EQ(AttributeValue(old, L"id"), L"1");
    EXPECT_FALSE(ParentOf(old));
}

TEST_F(SelectNode, RemoveWithoutCreateShowsItsMessageAndTouchesNothing)
{
    CXMLFile file = LoadedAt(Items);
    const std::wstring before = TreeOfDocument(file);
    EXPECT_FALSE(file.SelectNode(Writable(L"Item"), true, false));
    EXPECT_EQ(TreeOfDocument(file), before);
    ExpectOneMessage(L"To remove Node Itself, Create option should be true");
}

TEST_F(SelectNode, RemoveWithoutCreateIsRefusedBeforeAnythingIsLookedAt)
{
    CXMLFile file;
    EXPECT_EQ(ComFailureOf([&] { EXPECT_FALSE(file.SelectNode(nullptr, true, false)); }), S_OK);
    ExpectOneMessage(L"To remove Node Itself, Create option should be true");
}

TEST_F(SelectNode, NeverChangesTheCurrentNode)
{
    CXMLFile file = LoadedAt(Items);
    const IXMLDOMNodePtr current = file.m_pCurNode;
    for (const Flags flags : AllFlags) {
        EXPECT_TRUE(file.SelectNode(Writable(L"Item"), flags.remove, flags.create));
        EXPECT_EQ(file.m_pCurNode.GetInterfacePtr(), current.GetInterfacePtr());
    }
    EXPECT_FALSE(file.SelectNode(Writable(L"Item"), true, false));
    EXPECT_EQ(file.m_pCurNode.GetInterfacePtr(), current.GetInterfacePtr());
}

TEST_F(SelectNode, LetsTheCallerDescendByItsResults)
{
    CXMLFile file = LoadedAt("<r/>");
    for (const wchar_t* name : {L"a", L"b", L"c"})
        file.m_pCurNode = file.SelectNode(Writable(name), false, true);
    EXPECT_EQ(TreeOfDocument(file), L"#document(r(a(b(c()))))");
}

TEST_F(SelectNode, WithoutCurrentNodeRaisesPointerError)
{
    CXMLFile file = Loaded(Items);
    for (const Flags flags : AllFlags) {
        EXPECT_EQ(ComFailureOf([&] { file.SelectNode(Writable(L"Item"), flags.remove, flags.create); }),
                  E_POINTER);
    }
    ExpectNoMessage();
}

TEST_F(SelectNode, NeedsTheDocumentOnlyToMakeAnElement)
{
    CXMLFile file = LoadedAt(Items);
    const IXMLDOMDocument2Ptr document = file.m_pXMLDoc;
    const std::wstring before = TreeOf(document);
    file.m_pXMLDoc = nullptr;
    EXPECT_TRUE(file.SelectNode(Writable(L"Item"), false, false));
    EXPECT_TRUE(file.SelectNode(Writable(L"Item"), false, true));
    EXPECT_FALSE(file.SelectNode(Writable(L"absent"), false, false));
    EXPECT_EQ(ComFailureOf([&] { file.SelectNode(Writable(L"absent"), false, true); }), E_POINTER);
    EXPECT_EQ(ComFailureOf([&] { file.SelectNode(Writable(L"absent"), true, true); }), E_POINTER);
    EXPECT_EQ(TreeOf(document), before);
    ExpectNoMessage();
}

TEST_F(SelectNode, WithoutDocumentTheOldChildIsGoneBeforeTheFailure)
{
    CXMLFile file = LoadedAt("<r><Item/><a/></r>");
    file.m_pXMLDoc = nullptr;
    EXPECT_EQ(ComFailureOf([&] { file.SelectNode(Writable(L"Item"), true, true); }), E_POINTER);
    EXPECT_EQ(TreeOf(file.m_pCurNode), L"r(a())");
}

TEST_F(SelectNode, TakesTheNameAsAnXPathStep)
{
    CXMLFile file = LoadedAt("<r k='v'>text<Item id='1'/><Item id='2'><deep/></Item><!--c--></r>");
    const auto treeFound = [&](const wchar_t* name, bool create) {
        const IXMLDOMNodePtr found = file.SelectNode(Writable(name), false, create);
        return found ? TreeOf(found) : L"nothing";
    };
    for (const bool create : {false, true}) {
        EXPECT_EQ(treeFound(L"Item[2]", create), L"Item id=\"2\"(deep())");
        EXPECT_EQ(treeFound(L"Item[@id='2']", create), L"Item id=\"2\"(deep())");
        EXPECT_EQ(treeFound(L"*", create), L"Item id=\"1\"()");
        EXPECT_EQ(treeFound(L"Item/deep", create), L"deep()");
        EXPECT_EQ(treeFound(L"/deep", create), L"deep()");
        EXPECT_EQ(treeFound(L"text()", create), L"'text'");
        EXPECT_EQ(TypeOf(file.SelectNode(Writable(L"@k"), false, create)), NODE_ATTRIBUTE);
        EXPECT_EQ(TypeOf(file.SelectNode(Writable(L"comment()"), false, create)), NODE_COMMENT);
    }
    EXPECT_EQ(treeFound(L"Item[3]", false), L"nothing");
}

TEST_F(SelectNode, AStepThatIsNoNameIsNeitherMadeNorRemoved)
{
    CXMLFile file = LoadedAt("<r k='v'><Item id='1'/><Item id='2'/></r>");
    const std::wstring before = TreeOfDocument(file);
    for (const wchar_t* name : {L"Item[3]", L"absent/deep", L"@absent", L"text()"}) {
        for (const bool remove : {false, true}) {
            EXPECT_EQ(ComFailureOf([&] { file.SelectNode(Writable(name), remove, true); }), E_INVALIDARG)
                << testkit::Quoted(name);
        }
    }
    for (const wchar_t* name : {L"Item[2]", L"*", L"@k", L"."}) {
        EXPECT_EQ(ComFailureOf([&] { file.SelectNode(Writable(name), true, true); }), E_INVALIDARG)
            << testkit::Quoted(name);
    }
    EXPECT_EQ(TreeOfDocument(file), before);
    ExpectNoMessage();
}

TEST_F(SelectNode, ANameThatIsNoXPathStepRaisesAndChangesNothing)
{
    CXMLFile file = LoadedAt(Items);
    const std::wstring before = TreeOfDocument(file);
    const IXMLDOMNodePtr current = file.m_pCurNode;
    for (const wchar_t* name : {L"", L" ", L"Item[", L"1a", L"a b", L"<", L"a&b", L"a:", L"'", L"Item]"}) {
        for (const Flags flags : AllFlags) {
            EXPECT_TRUE(FAILED(ComFailureOf([&] {
                file.SelectNode(Writable(name), flags.remove, flags.create);
            }))) << testkit::Quoted(name);
        }
    }
    for (const Flags flags : AllFlags) {
        EXPECT_TRUE(FAILED(ComFailureOf([&] { file.SelectNode(nullptr, flags.remove, flags.create); })));
    }
    EXPECT_EQ(TreeOfDocument(file), before);
    EXPECT_EQ(file.m_pCurNode.GetInterfacePtr(), current.GetInterfacePtr());
    ExpectNoMessage();
}

TEST_F(SelectNode, ANameThatIsNoXPathStepRaisesThePlatformsErrorFirst)
{
    CXMLFile file = LoadedAt(Items);
    for (const std::wstring name : {L"", L" ", L"Item[", L"1a", L"a b", L"<", L"a&b", L"a:", L"Item]"}) {
        IXMLDOMNodePtr none;
        const HRESULT expected = file.m_pCurNode->selectSingleNode(_bstr_t((L"./" + name).c_str()), &none);
        EXPECT_TRUE(FAILED(expected)) << testkit::Quoted(name);
        for (const Flags flags : AllFlags) {
            const auto select = [&] { file.SelectNode(Writable(name), flags.remove, flags.create); };
            EXPECT_EQ(ComFailureOf(select), expected) << testkit::Quoted(name);
        }
    }
    FailingNodes nodes;
    file.m_pCurNode = nodes.Before(file.m_pCurNode);
    nodes.Fail(NodeCall::SelectSingleNode, 1, SomeFailure);
    EXPECT_EQ(ComFailureOf([&] { file.SelectNode(Writable(L"no name"), true, true); }), SomeFailure);
    file.m_pCurNode = nullptr;
}

TEST_F(SelectNode, LeavesTheCallersNameAlone)
{
    CXMLFile file = LoadedAt("<r><Item/></r>");
    wchar_t name[] = L"Item\0behind";
    const std::wstring before(std::begin(name), std::end(name));
    EXPECT_TRUE(file.SelectNode(name, true, true));
    EXPECT_EQ(std::wstring(std::begin(name), std::end(name)), before);
    EXPECT_EQ(TreeOfDocument(file), L"#document(r(Item()))");
}

TEST_F(SelectNode, FindsAndMakesNamesBeyondAscii)
{
    CXMLFile file = LoadedAt("<r><Gr\xC3\xB6\xC3\x9F"
                             "e id='1'/></r>");
    const IXMLDOMNodePtr found = file.SelectNode(Writable(L"Gr\u00F6\u00DFe"), false, true);
    EXPECT_EQ(AttributeValue(found, L"id"), L"1");
    for (const wchar_t* name : {L"\u9805\u76EE", L"_a\u0301-.9"}) {
        EXPECT_EQ(NameOf(file.SelectNode(Writable(name), false, true)), name);
        EXPECT_EQ(NameOf(file.SelectNode(Writable(name), false, false)), name);
    }
    EXPECT_EQ(ChildrenOf(file.m_pCurNode).size(), 3u);
}

TEST_F(SelectNode, TakesVeryLongNames)
{
    CXMLFile file = LoadedAt("<r/>");
    const std::wstring name(20000, L'n');
    EXPECT_EQ(NameOf(file.SelectNode(Writable(name), false, true)), name);
    EXPECT_TRUE(file.SelectNode(Writable(name), false, false));
    EXPECT_EQ(ChildrenOf(file.m_pCurNode).size(), 1u);
}

TEST_F(SelectNode, PrefixesAreThoseOfTheSelection)
{
    CXMLFile file = LoadedAt("<r xmlns:p='urn:p'><p:Item id='1'/></r>");
    const std::wstring before = TreeOfDocument(file);
    EXPECT_TRUE(FAILED(ComFailureOf([&] { file.SelectNode(Writable(L"p:Item"), false, true); })));
    EXPECT_EQ(TreeOfDocument(file), before);
    file.m_pXMLDoc->setProperty(_bstr_t(L"SelectionNamespaces"), _variant_t(L"xmlns:z='urn:p'"));
    const IXMLDOMNodePtr found = file.SelectNode(Writable(L"z:Item"), false, true);
    ASSERT_TRUE(found);
    EXPECT_EQ(AttributeValue(found, L"id"), L"1");
    EXPECT_FALSE(file.SelectNode(Writable(L"Item"), false, false));
}

TEST_F(SelectNode, WhatHasNoChildrenGivesNullAndTakesNone)
{
    for (const wchar_t* kind : {L"/r/text()", L"/r/@k", L"/r/comment()", L"/r/processing-instruction()"}) {
        CXMLFile file = LoadedAt("<r k='v'>text<!--c--><?pi data?></r>", kind);
        const std::wstring before = TreeOfDocument(file);
        EXPECT_FALSE(file.SelectNode(Writable(L"Item"), false, false)) << testkit::Quoted(kind);
        EXPECT_TRUE(FAILED(ComFailureOf([&] { file.SelectNode(Writable(L"Item"), false, true); })))
            << testkit::Quoted(kind);
        EXPECT_EQ(TreeOfDocument(file), before);
    }
    ExpectNoMessage();
}

TEST_F(SelectNode, UnderTheDocumentItFindsAndReplacesTheRoot)
{
    CXMLFile file = LoadedAt("<r id='1'/>", L"/");
    EXPECT_EQ(AttributeValue(file.SelectNode(Writable(L"r"), false, true), L"id"), L"1");
    EXPECT_TRUE(file.SelectNode(Writable(L"r"), true, true));
    EXPECT_EQ(TreeOfDocument(file), L"#document(r())");
}

TEST_F(SelectNode, MakesTheRootOfAnEmptyDocument)
{
    CXMLFile file(PathOf(L"missing.xml"));
    EXPECT_FALSE(file.LoadFile());
    file.m_pCurNode = file.m_pXMLDoc;
    EXPECT_TRUE(file.SelectNode(Writable(L"r"), false, true));
    EXPECT_EQ(TreeOfDocument(file), L"#document(r())");
}

TEST_F(SelectNode, ASecondRootElementRaisesAndChangesNothing)
{
    CXMLFile file = LoadedAt("<!--c--><r/>", L"/");
    const std::wstring before = TreeOfDocument(file);
    for (const bool remove : {false, true})
        EXPECT_EQ(ComFailureOf([&] { file.SelectNode(Writable(L"s"), remove, true); }), E_INVALIDARG);
    EXPECT_EQ(TreeOfDocument(file), before);
    ExpectNoMessage();
}

TEST_F(SelectNode, WorksUnderANodeThatOutlivesItsDocument)
{
    CXMLFile file = LoadedAt("<r><Item id='old'/></r>");
    testkit::WriteBytes(m_folder / L"document.xml", "<r><Item id='new'/></r>");
    ASSERT_TRUE(file.LoadFile());
    EXPECT_EQ(AttributeValue(file.SelectNode(Writable(L"Item"), false, false), L"id"), L"old");
}

TEST_F(SelectNode, AFailureOfAnyCallReachesTheCaller)
{
    // Found: the search. Made: the search, the node, what kind its parent is, the appending.
    EXPECT_GE(FailEachCall(Items, L"Item", {false, false}), 1);
    EXPECT_GE(FailEachCall(Items, L"New", {false, true}), 3);
    EXPECT_GE(FailEachCall(Items, L"Item", {true, true}), 4);
    ExpectNoMessage();
}

TEST_F(SelectNode, AFailedRemovalLeavesTheChildAndMakesNone)
{
    FailingNodes nodes;
    CXMLFile file = LoadedAt(Items);
    const std::wstring before = TreeOfDocument(file);
    const IXMLDOMDocument2Ptr document = file.m_pXMLDoc;
    file.m_pXMLDoc = nodes.Before(file.m_pXMLDoc);
    file.m_pCurNode = nodes.Before(file.m_pCurNode);
    nodes.Fail(NodeCall::RemoveChild, 1, E_ACCESSDENIED);
    EXPECT_EQ(ComFailureOf([&] { file.SelectNode(Writable(L"Item"), true, true); }), E_ACCESSDENIED);
    EXPECT_EQ(TreeOf(document), before);
    EXPECT_EQ(nodes.CountOf(NodeCall::AppendChild), 0);
    file.m_pCurNode = nullptr;
    file.m_pXMLDoc = nullptr;
}

TEST_F(SelectNode, ADocumentThatMakesNoNodeCountsAsOutOfMemory)
{
    FailingNodes nodes;
    CXMLFile file = LoadedAt("<r/>");
    file.m_pXMLDoc = nodes.Before(file.m_pXMLDoc);
    nodes.Fail(NodeCall::CreateNode, 1, S_FALSE);
    EXPECT_EQ(ComFailureOf([&] { file.SelectNode(Writable(L"Item"), false, true); }), E_OUTOFMEMORY);
    EXPECT_EQ(TreeOf(file.m_pCurNode), L"r()");
    file.m_pXMLDoc = nullptr;
}
