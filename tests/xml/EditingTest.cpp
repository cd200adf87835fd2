// Making elements and removing nodes.
#include "FailingNodes.h"
#include "XmlNodes.h"

namespace
{

const HRESULT SomeFailure = MAKE_HRESULT(SEVERITY_ERROR, FACILITY_ITF, 0x1234);

// Texts that no element may be called.
const wchar_t* const NoNames[] = {
    L"",     L" ",     L"1a",     L"-a",  L".a",          L"a b",     L" a",       L"a ",
    L"<",    L"a&b",   L"a/b",    L"@a",  L"*",           L"a:",      L":a",       L"a:b:c",
    L":",    L"a:1",   L"a\tb",   L"a=b", L"a\"",         L"\u00D7",  L"a\u2003b", L"\u037E",
    L"\x01", L"a\x7F", L"\u00B7", L"a;b", L"\U000F0000x", L"\uFFFEa", L"\u2190",   L"xyz>"};

class CreateNode : public XmlNodeTest
{
};

class DeleteXMLNode : public XmlNodeTest
{
protected:
    static std::wstring TreeAfterDeleting(CXMLFile& file, const wchar_t* parent, const wchar_t* child)
    {
        file.DeleteXMLNode(parent, child);
        return TreeOfDocument(file);
    }

    // That the one cannot be removed from the other.
    void ExpectRefused(const wchar_t* parent, const wchar_t* child)
    {
        CXMLFile file = Loaded("<r k='v'><a k='v'><b/></a><c/>text</r>");
        const std::wstring before = TreeOfDocument(file);
        EXPECT_TRUE(FAILED(ComFailureOf([&] { file.DeleteXMLNode(parent, child); })))
            << testkit::Quoted(parent) << testkit::Quoted(child);
        EXPECT_EQ(TreeOfDocument(file), before);
        ExpectNoMessage();
    }
};

} // namespace

TEST_F(CreateNode, AppendsAnEmptyElementAsTheLastChild)
{
    CXMLFile file = LoadedAt("<r><a/>text<!--c--></r>");
    const IXMLDOMNodePtr made = file.CreateNode(Writable(L"New"));
    ASSERT_TRUE(made);
    EXPECT_EQ(TypeOf(made), NODE_ELEMENT);
    EXPECT_EQ(TreeOfDocument(file), L"#document(r(a()'text'#comment(c)New()))");
    _bstr_t space;
    made->get_namespaceURI(space.GetAddress());
    EXPECT_EQ(WideOf(space), L"");
    ExpectNoMessage();
}

TEST_F(CreateNode, GivesTheElementThatIsInTheDocument)
{
    CXMLFile file = LoadedAt("<r/>");
    IXMLDOMElementPtr(file.CreateNode(Writable(L"New")))->setAttribute(_bstr_t(L"k"), _variant_t(L"v"));
    EXPECT_EQ(TreeOfDocument(file), L"#document(r(New k=\"v\"()))");
}

TEST_F(CreateNode, TwiceGivesTwoElementsInCallOrder)
{
    CXMLFile file = LoadedAt("<r/>");
    for (const wchar_t* mark : {L"1", L"2"}) {
        IXMLDOMElementPtr made = file.CreateNode(Writable(L"Item"));
        made->setAttribute(_bstr_t(L"k"), _variant_t(mark));
    }
    EXPECT_EQ(TreeOfDocument(file), L"#document(r(Item k=\"1\"()Item k=\"2\"()))");
}

TEST_F(CreateNode, DoesNotChangeTheCurrentNode)
{
    CXMLFile file = LoadedAt("<r><a/></r>", L"/r/a");
    const IXMLDOMNodePtr current = file.m_pCurNode;
    file.CreateNode(Writable(L"b"));
    EXPECT_EQ(file.m_pCurNode.GetInterfacePtr(), current.GetInterfacePtr());
    EXPECT_EQ(TreeOfDocument(file), L"#document(r(a(b())))");
}

TEST_F(CreateNode, KeepsTheNameUnchanged)
{
    CXMLFile file = LoadedAt("<r/>");
    const std::wstring longName(20000, L'n');
    for (const wchar_t* name : {L"Item", L"iTEM", L"_", L"a-.9", L"\u00C4rger", L"\u9805\u76EE",
                                L"\U00020000", L"a\u00B7\u0301\u203F", L"xml", longName.c_str()})
        EXPECT_EQ(NameOf(file.CreateNode(Writable(name))), name);
}

TEST_F(CreateNode, TakesANameWithAPrefix)
{
    CXMLFile file = LoadedAt("<r xmlns:p='urn:p'/>");
    EXPECT_EQ(NameOf(file.CreateNode(Writable(L"p:Item"))), L"p:Item");
}

TEST_F(CreateNode, WhatItMakesCanBeSavedAndLoadedAgain)
{
    CXMLFile file = LoadedAt("<r/>");
    for (const wchar_t* name : {L"Item", L"\u00C4rger", L"\U00020000"})
        file.m_pCurNode = file.CreateNode(Writable(name));
    file.SaveDocument();
    CXMLFile again(file.m_strXMLFilePath);
    ASSERT_TRUE(again.LoadFile());
    EXPECT_EQ(TreeOf(Find(again.m_pXMLDoc, L"/r")), L"r(Item(\u00C4rger(\U00020000())))");
}

TEST_F(CreateNode, WhatIsNoNameRaisesInvalidArgumentAndChangesNothing)
{
    CXMLFile file = LoadedAt("<r><a/></r>");
    const std::wstring before = TreeOfDocument(file);
    for (const wchar_t* name : NoNames) {
        EXPECT_EQ(ComFailureOf([&] { file.CreateNode(Writable(name)); }), E_INVALIDARG)
            << testkit::Quoted(name);
    }
    const wchar_t halves[][3] = {{0xD800, 0}, {L'a', 0xDC00, 0}, {0xD800, L'a', 0}, {L'a', 0xDBFF, 0}};
    for (const auto& half : halves)
        EXPECT_EQ(ComFailureOf([&] { file.CreateNode(Writable(half)); }), E_INVALIDARG);
    EXPECT_EQ(ComFailureOf([&] { file.CreateNode(nullptr); }), E_INVALIDARG);
    EXPECT_EQ(TreeOfDocument(file), before);
    ExpectNoMessage();
}

TEST_F(CreateNode, WithoutCurrentNodeRaisesPointerErrorAfterMakingTheElement)
{
    FailingNodes nodes;
    CXMLFile file = Loaded("<r/>");
    file.m_pXMLDoc = nodes.Before(file.m_pXMLDoc);
    EXPECT_EQ(ComFailureOf([&] { file.CreateNode(Writable(L"Item")); }), E_POINTER);
    EXPECT_EQ(nodes.CountOf(NodeCall::CreateNode), 1);
    EXPECT_EQ(nodes.LiveObjects(), 1);
    file.m_pXMLDoc = nullptr;
    ExpectNoMessage();
}

TEST_F(CreateNode, WithoutDocumentRaisesPointerError)
{
    CXMLFile file = LoadedAt("<r/>");
    file.m_pXMLDoc = nullptr;
    EXPECT_EQ(ComFailureOf([&] { file.CreateNode(Writable(L"Item")); }), E_POINTER);
    EXPECT_EQ(TreeOf(file.m_pCurNode), L"r()");
    CXMLFile empty;
    EXPECT_EQ(ComFailureOf([&] { empty.CreateNode(Writable(L"Item")); }), E_POINTER);
    ExpectNoMessage();
}

TEST_F(CreateNode, UnderWhatHasNoChildrenRaisesAndChangesNothing)
{
    for (const wchar_t* kind : {L"/r/text()", L"/r/@k", L"/r/comment()", L"/r/processing-instruction()"}) {
        CXMLFile file = LoadedAt("<r k='v'>text<!--c--><?pi data?></r>", kind);
        const std::wstring before = TreeOfDocument(file);
        EXPECT_TRUE(FAILED(ComFailureOf([&] { file.CreateNode(Writable(L"Item")); })))
            << testkit::Quoted(kind);
        EXPECT_EQ(TreeOfDocument(file), before);
    }
    ExpectNoMessage();
}

TEST_F(CreateNode, MakesTheRootOfADocumentThatHasNone)
{
    CXMLFile file(PathOf(L"missing.xml"));
    EXPECT_FALSE(file.LoadFile());
    file.m_pCurNode = file.m_pXMLDoc;
    file.CreateNode(Writable(L"r"));
    EXPECT_EQ(TreeOfDocument(file), L"#document(r())");
}

TEST_F(CreateNode, ASecondRootElementRaisesInvalidArgumentAndChangesNothing)
{
    CXMLFile file = LoadedAt("<r/>", L"/");
    EXPECT_EQ(ComFailureOf([&] { file.CreateNode(Writable(L"r")); }), E_INVALIDARG);
    EXPECT_EQ(ComFailureOf([&] { file.CreateNode(Writable(L"s")); }), E_INVALIDARG);
    EXPECT_EQ(TreeOfDocument(file), L"#document(r())");
    ExpectNoMessage();
}

TEST_F(CreateNode, GivesOneReference)
{
    FailingNodes nodes;
    CXMLFile file = LoadedAt("<r/>");
    file.m_pXMLDoc = nodes.Before(file.m_pXMLDoc);
    file.m_pCurNode = nodes.Before(file.m_pCurNode);
    EXPECT_EQ(ReferencesOf(file.CreateNode(Writable(L"Item"))), 1u);
    EXPECT_EQ(nodes.LiveObjects(), 2);
    file.m_pCurNode = nullptr;
    file.m_pXMLDoc = nullptr;
}

TEST_F(CreateNode, AFailureOfAnyCallReachesTheCallerAndAppendsNothing)
{
    int n = 1;
    for (bool hasFailed = true; hasFailed; ++n) {
        FailingNodes nodes;
        CXMLFile file = LoadedAt("<r/>");
        const IXMLDOMNodePtr root = file.m_pCurNode;
        file.m_pXMLDoc = nodes.Before(file.m_pXMLDoc);
        file.m_pCurNode = nodes.Before(file.m_pCurNode);
        nodes.FailAny(n, SomeFailure);
        const HRESULT failure = ComFailureOf([&] { file.CreateNode(Writable(L"Item")); });
        hasFailed = nodes.HasFailed();
        EXPECT_EQ(failure, hasFailed ? SomeFailure : S_OK) << n;
        EXPECT_EQ(TreeOf(root), hasFailed ? L"r()" : L"r(Item())") << n;
        EXPECT_EQ(nodes.LiveObjects(), 2) << n;
        file.m_pCurNode = nullptr;
        file.m_pXMLDoc = nullptr;
    }
    // At the least the making and the appending.
    EXPECT_GE(n - 2, 2);
    ExpectNoMessage();
}

TEST_F(CreateNode, AFailureCarriesTheErrorInformationOfItsObject)
{
    const IID offers[] = {__uuidof(IXMLDOMNode), __uuidof(IXMLDOMElement)};
    for (const IID& offer : offers) {
        FailingNodes nodes;
        CXMLFile file = LoadedAt("<r/>");
        file.m_pCurNode = nodes.Before(file.m_pCurNode);
        nodes.m_errorInfoOf = &offer;
        nodes.At(NodeCall::AppendChild, 1, [] {
            _com_ptr_t<_com_IIID<ICreateErrorInfo, &__uuidof(ICreateErrorInfo)>> information;
            CreateErrorInfo(&information);
            information->SetDescription(_bstr_t(L"no room"));
            _com_ptr_t<_com_IIID<IErrorInfo, &__uuidof(IErrorInfo)>> left(information);
            SetErrorInfo(0, left);
            return SomeFailure;
        });
        std::wstring description = L"nothing raised";
        try {
            file.CreateNode(Writable(L"Item"));
        } catch (const _com_error& e) {
            description = WideOf(e.Description());
        }
        // Only for the interface that was called.
        EXPECT_EQ(description, IsEqualIID(offer, __uuidof(IXMLDOMNode)) ? L"no room" : L"");
        SetErrorInfo(0, nullptr);
        file.m_pCurNode = nullptr;
    }
}

TEST_F(DeleteXMLNode, RemovesTheChildFromItsParent)
{
    CXMLFile file = Loaded("<r><a><b/>text</a><c/></r>");
    EXPECT_EQ(TreeAfterDeleting(file, L"/r", L"/r/a"), L"#document(r(c()))");
    ExpectNoMessage();
}

TEST_F(DeleteXMLNode, RemovesTheFirstThatIsFound)
{
    CXMLFile file = Loaded("<r><a k='1'/><a k='2'/></r>");
    EXPECT_EQ(TreeAfterDeleting(file, L"//r", L"//a"), L"#document(r(a k=\"2\"()))");
    EXPECT_EQ(TreeAfterDeleting(file, L"r", L"r/a[@k='2']"), L"#document(r())");
}

TEST_F(DeleteXMLNode, LooksFromTheDocumentAndNotFromTheCurrentNode)
{
    CXMLFile file = LoadedAt("<r><a><b/></a></r>", L"/r/a");
    EXPECT_EQ(TreeAfterDeleting(file, L"a", L"b"), L"#document(r(a(b())))");
    EXPECT_EQ(TreeAfterDeleting(file, L"r/a", L"r/a/b"), L"#document(r(a()))");
    EXPECT_EQ(TreeOf(file.m_pCurNode), L"a()");
}

TEST_F(DeleteXMLNode, NothingFoundChangesNothingAndRaisesNothing)
{
    CXMLFile file = Loaded("<r><a/></r>");
    EXPECT_EQ(TreeAfterDeleting(file, L"/r", L"/r/absent"), L"#document(r(a()))");
    EXPECT_EQ(TreeAfterDeleting(file, L"/absent", L"/r/a"), L"#document(r(a()))");
    EXPECT_EQ(TreeAfterDeleting(file, L"/absent", L"/gone"), L"#document(r(a()))");
    ExpectNoMessage();
}

TEST_F(DeleteXMLNode, RemovesNodesOfOtherKinds)
{
    CXMLFile file = Loaded("<r>text<!--c--><?pi data?><a/></r>");
    EXPECT_EQ(TreeAfterDeleting(file, L"/r", L"/r/comment()"), L"#document(r('text'pi(data)a()))");
    EXPECT_EQ(TreeAfterDeleting(file, L"/r", L"/r/text()"), L"#document(r(pi(data)a()))");
    EXPECT_EQ(TreeAfterDeleting(file, L"/r", L"/r/processing-instruction()"), L"#document(r(a()))");
}

TEST_F(DeleteXMLNode, RemovesTheRootFromTheDocument)
{
    CXMLFile file = Loaded("<r/>");
    EXPECT_EQ(TreeAfterDeleting(file, L"/", L"/r"), L"#document()");
}

TEST_F(DeleteXMLNode, ARemovedNodeLivesOnWithItsOwner)
{
    CXMLFile file = LoadedAt("<r><a k='1'/></r>", L"/r/a");
    file.DeleteXMLNode(L"/r", L"/r/a");
    EXPECT_EQ(TreeOf(file.m_pCurNode), L"a k=\"1\"()");
    EXPECT_FALSE(ParentOf(file.m_pCurNode));
}

TEST_F(DeleteXMLNode, WhatIsNoChildOfTheParentRaisesAndChangesNothing)
{
    const std::pair<const wchar_t*, const wchar_t*> pairs[] = {
        {L"/r", L"/r/a/b"},      {L"/r/a", L"/r/c"}, {L"/r/a/b", L"/r"},  {L"/r", L"/r"},
        {L"/r/text()", L"/r/a"}, {L"/r", L"/"},      {L"/r/@k", L"/r/a"}, {L"/", L"/r/a"},
        {L"/r", L"/r/a/@k"},     {L"/", L"/r/@k"}};
    for (const auto& [parent, child] : pairs)
        ExpectRefused(parent, child);
}

TEST_F(DeleteXMLNode, AnAttributeIsNoChildOfItsElement)
{
    ExpectRefused(L"/r", L"/r/@k");
}

TEST_F(DeleteXMLNode, AnInvalidXPathRaisesAndChangesNothing)
{
    CXMLFile file = Loaded("<r><a/></r>");
    const std::wstring before = TreeOfDocument(file);
    for (const wchar_t* xpath : {L"", L"/r[", L"a b", L"count(//r)", L"//q:r"}) {
        EXPECT_TRUE(FAILED(ComFailureOf([&] { file.DeleteXMLNode(xpath, L"/r/a"); })));
        EXPECT_TRUE(FAILED(ComFailureOf([&] { file.DeleteXMLNode(L"/r", xpath); })));
        // Both are evaluated, whatever the other finds.
        EXPECT_TRUE(FAILED(ComFailureOf([&] { file.DeleteXMLNode(L"/absent", xpath); })));
    }
    EXPECT_EQ(TreeOfDocument(file), before);
    ExpectNoMessage();
}

TEST_F(DeleteXMLNode, WithoutDocumentRaisesPointerError)
{
    CXMLFile file;
    EXPECT_EQ(ComFailureOf([&] { file.DeleteXMLNode(L"/r", L"/r/a"); }), E_POINTER);
    ExpectNoMessage();
}

TEST_F(DeleteXMLNode, AFailureOfAnyCallReachesTheCallerAndRemovesNothing)
{
    int n = 1;
    for (bool hasFailed = true; hasFailed; ++n) {
        FailingNodes nodes;
        CXMLFile file = LoadedAt("<r><a/></r>");
        file.m_pXMLDoc = nodes.Before(file.m_pXMLDoc);
        nodes.FailAny(n, SomeFailure);
        const HRESULT failure = ComFailureOf([&] { file.DeleteXMLNode(L"/r", L"/r/a"); });
        hasFailed = nodes.HasFailed();
        EXPECT_EQ(failure, hasFailed ? SomeFailure : S_OK) << n;
        EXPECT_EQ(TreeOf(file.m_pCurNode), hasFailed ? L"r(a())" : L"r()") << n;
        EXPECT_EQ(nodes.LiveObjects(), 1) << n;
        file.m_pXMLDoc = nullptr;
    }
    // At the least two searches and the removal.
    EXPECT_GE(n - 2, 3);
    ExpectNoMessage();
}
