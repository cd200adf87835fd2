// Exchanging attributes of the current node with variables.
#include "ExchangeTest.h"
#include "FailingNodes.h"

namespace
{

using testing::ElementsAre;

const HRESULT SomeFailure = MAKE_HRESULT(SEVERITY_ERROR, FACILITY_ITF, 0x1234);

class CreateAttrib : public ExchangeTest
{
};

// All that an exchange can work on, each with a value of its own.
struct Variables
{
    CString text = L"text";
    int number = 42;
    long longNumber = -43;
    float single = 2.5f;
    double real = -44.25;
    bool flag = true;

    // Runs `each` with every one of them.
    template <class Each>
    void ForEach(Each each)
    {
        each(text);
        each(number);
        each(longNumber);
        each(single);
        each(real);
        each(flag);
    }

    bool operator==(const Variables& other) const
    {
        return text == other.text && number == other.number && longNumber == other.longNumber &&
               single == other.single && real == other.real && flag == other.flag;
    }
};

// What every overload does alike.
class CreateAttribFailure : public XmlNodeTest
{
protected:
    // That every overload raises that failure in these modes, shows nothing and changes no variable.
    void ExpectFailure(CXMLFile& file, HRESULT expected, std::initializer_list<bool> modes,
                       const wchar_t* name = Name)
    {
        for (const bool isReading : modes) {
            file.m_bReadMode = isReading;
            Variables variables;
            variables.ForEach([&](auto& variable) {
                EXPECT_EQ(ComFailureOf([&] { file.CreateAttrib(Writable(name), variable); }), expected)
                    << (isReading ? "reading " : "writing ") << testkit::Quoted(name);
            });
            EXPECT_TRUE(variables == Variables());
        }
        ExpectNoMessage();
    }

    // Lets each call of every overload fail in turn; gives how many calls there are.
    int FailEachCall(std::string_view utf8, bool isReading)
    {
        for (int n = 1;; ++n) {
            bool hasFailed = false;
            Variables variables;
            variables.ForEach([&](auto& variable) {
                FailingNodes nodes;
                CXMLFile file = LoadedAt(utf8);
                const IXMLDOMNodePtr root = file.m_pCurNode;
                const std::wstring before = TreeOf(root);
                file.m_pXMLDoc = nodes.Before(file.m_pXMLDoc);
                file.m_pCurNode = nodes.Before(file.m_pCurNode);
                file.m_bReadMode = isReading;
                nodes.FailAny(n, SomeFailure);
                const HRESULT failure = ComFailureOf([&] { file.CreateAttrib(Writable(Name), variable); });
                hasFailed = nodes.HasFailed();
                EXPECT_EQ(failure, hasFailed ? SomeFailure : S_OK) << n;
                if (hasFailed) {
                    EXPECT_EQ(TreeOf(root), before) << n;
                }
                EXPECT_EQ(nodes.LiveObjects(), 2) << n;
                file.m_pCurNode = nullptr;
                file.m_pXMLDoc = nullptr;
            });
            if (!hasFailed)
                return n - 1;
            EXPECT_TRUE(variables == Variables()) << n;
        }
    }
};

} // namespace

TEST_F(CreateAttrib, WritingAddsTheAttributeAndThenChangesItInPlace)
{
    CXMLFile file = LoadedAt("<r><a/></r>");
    int value = 42;
    file.CreateAttrib(Writable(Name), value);
    EXPECT_EQ(TreeOfDocument(file), L"#document(r Width=\"42\"(a()))");
    value = 43;
    file.CreateAttrib(Writable(Name), value);
    EXPECT_EQ(TreeOfDocument(file), L"#document(r Width=\"43\"(a()))");
    ExpectNoMessage();
}

TEST_F(CreateAttrib, WritingChangesTheAttributeOfThatNameOnly)
{
    CXMLFile file = LoadedAt("<r a='1' Width='2' width='3'><Width/></r>");
    CString value = L"new";
    file.CreateAttrib(Writable(Name), value);
    EXPECT_THAT(AttributesOf(file.m_pCurNode), ElementsAre(L"a=\"1\"", L"Width=\"new\"", L"width=\"3\""));
    EXPECT_EQ(ChildrenOf(file.m_pCurNode).size(), 1u);
}

TEST_F(CreateAttrib, EveryOverloadWritesAndReadsBack)
{
    CXMLFile file = LoadedAt("<r/>");
    Variables variables;
    int i = 0;
    variables.ForEach(
        [&](auto& variable) { file.CreateAttrib(Writable(L"v" + std::to_wstring(i++)), variable); });
    EXPECT_THAT(AttributesOf(file.m_pCurNode), ElementsAre(L"v0=\"text\"", L"v1=\"42\"", L"v2=\"-43\"",
                                                           L"v3=\"2.500\"", L"v4=\"-44.250\"", L"v5=\"1\""));
    file.m_bReadMode = true;
    Variables read = {L"", 0, 0, 0, 0, false};
    i = 0;
    read.ForEach([&](auto& variable) { file.CreateAttrib(Writable(L"v" + std::to_wstring(i++)), variable); });
    EXPECT_TRUE(read == variables);
}

TEST_F(CreateAttrib, AnAbsentAttributeLeavesATextAndClearsTheRest)
{
    CXMLFile file = LoadedAt("<r/>");
    file.m_bReadMode = true;
    Variables variables;
    variables.ForEach([&](auto& variable) { file.CreateAttrib(Writable(Name), variable); });
    EXPECT_TRUE(variables == (Variables{L"text", 0, 0, 0, 0, false}));
    EXPECT_EQ(TreeOfDocument(file), L"#document(r())");
    ExpectNoMessage();
}

TEST_F(CreateAttrib, ReadingNeedsNoDocument)
{
    CXMLFile file = LoadedAt("<r Width='7'/>");
    file.m_pXMLDoc = nullptr;
    file.m_bReadMode = true;
    int value = 0;
    file.CreateAttrib(Writable(Name), value);
    EXPECT_EQ(value, 7);
    file.CreateAttrib(Writable(L"absent"), value);
    EXPECT_EQ(value, 0);
}

TEST_F(CreateAttrib, ChangingAnAttributeNeedsNoDocument)
{
    CXMLFile file = LoadedAt("<r Width='7'/>");
    file.m_pXMLDoc = nullptr;
    int value = 8;
    file.CreateAttrib(Writable(Name), value);
    EXPECT_EQ(AttributeValue(file.m_pCurNode, Name), L"8");
}

TEST_F(CreateAttrib, ANewAttributeIsInNoNamespace)
{
    for (const char* utf8 : {"<r/>", "<r xmlns='urn:d'/>", "<p:r xmlns:p='urn:p'/>"}) {
        CXMLFile file = LoadedAt(utf8);
        int value = 42;
        file.CreateAttrib(Writable(Name), value);
        IXMLDOMNamedNodeMapPtr attributes;
        file.m_pCurNode->get_attributes(&attributes);
        IXMLDOMNodePtr made;
        EXPECT_EQ(attributes->getNamedItem(_bstr_t(Name), &made), S_OK) << utf8;
        ASSERT_TRUE(made);
        _bstr_t space(L"not asked");
        EXPECT_TRUE(SUCCEEDED(made->get_namespaceURI(space.GetAddress())));
        EXPECT_EQ(WideOf(space), L"") << utf8;
    }
}

TEST_F(CreateAttrib, ReadingANameThatIsNoneFindsNothing)
{
    CXMLFile file = LoadedAt("<r a='1'/>");
    file.m_bReadMode = true;
    for (const wchar_t* name : {L"a b", L"<", L"1a", L"@a", L"*"}) {
        CString text = L"kept";
        file.CreateAttrib(Writable(name), text);
        EXPECT_EQ(text, L"kept");
    }
}

TEST_F(CreateAttrib, ReadingAnEmptyOrNullNameFindsNothingOrRaisesThePlatformsError)
{
    CXMLFile file = LoadedAt("<r a='1'/>");
    file.m_bReadMode = true;
    IXMLDOMNamedNodeMapPtr attributes;
    ASSERT_EQ(file.m_pCurNode->get_attributes(&attributes), S_OK);
    wchar_t empty[] = L"";
    for (wchar_t* const name : {empty, static_cast<wchar_t*>(nullptr)}) {
        const _bstr_t nameText(SysAllocString(name), false);
        IXMLDOMNodePtr none;
        const HRESULT platforms = attributes->getNamedItem(nameText, &none);
        CString text = L"kept";
        const auto read = [&] { file.CreateAttrib(name, text); };
        EXPECT_EQ(ComFailureOf(read), FAILED(platforms) ? platforms : S_OK);
        EXPECT_EQ(text, L"kept");
    }
    ExpectNoMessage();
}

TEST_F(CreateAttrib, KeepsItsAttributesThroughSavingAndLoading)
{
    const wchar_t* const texts[] = {L"plain", L"", L"<>&\"'", L"a\tb\nc", L"\u00E4\u20AC\u6F22\U0001F600",
                                    L"&amp;"};
    for (const wchar_t* text : texts) {
        CXMLFile file = LoadedAt("<r/>");
        CString value = text;
        file.CreateAttrib(Writable(Name), value);
        file.SaveDocument();
        ASSERT_TRUE(file.LoadFile());
        file.GetDOMNodePtr(L"/r", file.m_pCurNode);
        file.m_bReadMode = true;
        value = L"not read";
        file.CreateAttrib(Writable(Name), value);
        EXPECT_EQ(value, text);
    }
}

TEST_F(CreateAttrib, TakesNamesBeyondAscii)
{
    CXMLFile file = LoadedAt("<r/>");
    for (const wchar_t* name : {L"L\u00E4nge", L"\u9805\u76EE", L"\U00020000", L"_-.9"}) {
        int value = 5;
        file.m_bReadMode = false;
        file.CreateAttrib(Writable(name), value);
        value = 0;
        file.m_bReadMode = true;
        file.CreateAttrib(Writable(name), value);
        EXPECT_EQ(value, 5) << testkit::Quoted(name);
    }
    EXPECT_EQ(AttributeNodes(file.m_pCurNode).size(), 4u);
}

TEST_F(CreateAttrib, WritesANameWithAPrefixAsItIs)
{
    CXMLFile file = LoadedAt("<r/>");
    int value = 1;
    file.CreateAttrib(Writable(L"p:Width"), value);
    ASSERT_EQ(AttributeNodes(file.m_pCurNode).size(), 1u);
    EXPECT_EQ(NameOf(AttributeNodes(file.m_pCurNode)[0]), L"p:Width");
}

TEST_F(CreateAttrib, ReadsAndChangesAnAttributeWithAPrefix)
{
    CXMLFile file = LoadedAt("<r xmlns:p='urn:p' p:Width='7'/>");
    const size_t count = AttributeNodes(file.m_pCurNode).size();
    int value = 8;
    file.CreateAttrib(Writable(L"p:Width"), value);
    EXPECT_EQ(AttributeNodes(file.m_pCurNode).size(), count);
    value = 0;
    file.m_bReadMode = true;
    file.CreateAttrib(Writable(L"p:Width"), value);
    EXPECT_EQ(value, 8);
}

TEST_F(CreateAttrib, WritesTextsAsTheyAre)
{
    for (const wchar_t* text :
         {L"", L" ", L"  a  ", L"<>&\"'", L"&amp;", L"\u00E4\u20AC\u6F22", L"\U0001F600"})
        EXPECT_EQ(Written(CString(text)), text);
}

TEST_F(CreateAttrib, ReadsTextsAsTheyAre)
{
    EXPECT_EQ(Read("plain", CString(L"x")), L"plain");
    EXPECT_EQ(Read("", CString(L"x")), L"");
    EXPECT_EQ(Read("a\tb\r\nc", CString()), L"a b c");
    EXPECT_EQ(Read("a&#9;b&#10;c&#13;d", CString()), L"a\tb\nc\rd");
    EXPECT_EQ(Read("&lt;&gt;&amp;&quot;&apos;", CString()), L"<>&\"'");
    EXPECT_EQ(Read("\xC3\xA4\xF0\x9F\x98\x80", CString()), L"\u00E4\U0001F600");
}

TEST_F(CreateAttrib, GivesThePlatformATextWhole)
{
    FailingNodes nodes;
    CXMLFile file = LoadedAt("<r/>");
    file.m_pXMLDoc = nodes.Before(file.m_pXMLDoc);
    file.m_pCurNode = nodes.Before(file.m_pCurNode);
    CString text(L"a\0b", 3);
    file.CreateAttrib(Writable(Name), text);
    EXPECT_THAT(nodes.m_putTexts, ElementsAre(std::wstring(L"a\0b", 3)));
    EXPECT_EQ(WideOf(text), std::wstring(L"a\0b", 3));
    file.m_pCurNode = nullptr;
    file.m_pXMLDoc = nullptr;
}

TEST_F(CreateAttrib, TakesATextFromThePlatformWhole)
{
    FailingNodes nodes;
    CXMLFile file = LoadedAt("<r Width=''/>");
    file.m_pCurNode = nodes.Before(file.m_pCurNode);
    file.m_bReadMode = true;
    nodes.m_text = [](BSTR* text) {
        *text = SysAllocStringLen(L" 12\0b ", 6);
        return S_OK;
    };
    CString text;
    file.CreateAttrib(Writable(Name), text);
    EXPECT_EQ(WideOf(text), std::wstring(L" 12\0b ", 6));
    int number = 0;
    file.CreateAttrib(Writable(Name), number);
    EXPECT_EQ(number, 12);
    nodes.m_text = [](BSTR* none) {
        *none = nullptr;
        return S_OK;
    };
    file.CreateAttrib(Writable(Name), text);
    EXPECT_EQ(text, L"");
    file.m_pCurNode = nullptr;
}

TEST_F(CreateAttrib, TakesVeryLongTexts)
{
    const std::wstring text = std::wstring(2000000, L'x') + L"end";
    EXPECT_EQ(WideOf(Back(CString(text.c_str()))), text);
}

TEST_F(CreateAttrib, MayExchangeTheFilesOwnFields)
{
    CXMLFile file = LoadedAt("<r Width='7'/>");
    file.m_bReadMode = true;
    file.CreateAttrib(Writable(Name), file.m_strExtra);
    EXPECT_EQ(file.m_strExtra, L"7");
}

TEST_F(CreateAttribFailure, WithoutCurrentNodeIsAPointerError)
{
    CXMLFile file = Loaded("<r Width='7'/>");
    ExpectFailure(file, E_POINTER, {false, true});
    CXMLFile empty;
    ExpectFailure(empty, E_POINTER, {false, true});
}

TEST_F(CreateAttribFailure, AWrittenAttributeNeedsTheDocumentToBeMade)
{
    CXMLFile file = LoadedAt("<r/>");
    file.m_pXMLDoc = nullptr;
    ExpectFailure(file, E_POINTER, {false});
    EXPECT_EQ(TreeOf(file.m_pCurNode), L"r()");
}

TEST_F(CreateAttribFailure, ANodeWithoutAttributesIsAPointerError)
{
    for (const wchar_t* kind :
         {L"/r/text()", L"/r/@Width", L"/r/comment()", L"/r/processing-instruction()", L"/"})
    {
        SCOPED_TRACE(testkit::Quoted(kind));
        CXMLFile file = LoadedAt("<r Width='7'>text<!--c--><?pi Width='7'?></r>", kind);
        const std::wstring before = TreeOfDocument(file);
        ExpectFailure(file, E_POINTER, {false, true});
        EXPECT_EQ(TreeOfDocument(file), before);
    }
}

TEST_F(CreateAttribFailure, WritingANameThatIsNoneIsAnInvalidArgumentAndChangesNothing)
{
    CXMLFile file = LoadedAt("<r a='1'/>");
    for (const wchar_t* name : {L"a b", L"1a", L"<", L"a&b", L"a:", L":a", L"a:b:c", L" a", L"@a", L"a=\"1\"",
                                L"*", L"\u00D7", L"-"})
        ExpectFailure(file, E_INVALIDARG, {false}, name);
    EXPECT_EQ(TreeOfDocument(file), L"#document(r a=\"1\"())");
}

TEST_F(CreateAttribFailure, AnEmptyOrNullNameRaisesAndChangesNothing)
{
    CXMLFile file = LoadedAt("<r a='1'/>");
    Variables variables;
    variables.ForEach([&](auto& variable) {
        EXPECT_EQ(ComFailureOf([&] { file.CreateAttrib(Writable(L""), variable); }), E_INVALIDARG);
        EXPECT_EQ(ComFailureOf([&] { file.CreateAttrib(nullptr, variable); }), E_INVALIDARG);
    });
    EXPECT_TRUE(variables == Variables());
    EXPECT_EQ(TreeOfDocument(file), L"#document(r a=\"1\"())");
    ExpectNoMessage();
}

TEST_F(CreateAttribFailure, AFailureOfAnyCallReachesTheCallerAndChangesNothing)
{
    // Making: the attributes, the one, the making, its text, the adding. Else: the attributes, the one,
    // its text.
    EXPECT_EQ(FailEachCall("<r/>", false), 5);
    EXPECT_EQ(FailEachCall("<r Width='7'/>", false), 3);
    EXPECT_EQ(FailEachCall("<r Width='7'/>", true), 3);
    EXPECT_EQ(FailEachCall("<r/>", true), 2);
    ExpectNoMessage();
}

TEST_F(CreateAttribFailure, ANodeThatThePlatformDoesNotMakeIsAFailure)
{
    FailingNodes nodes;
    CXMLFile file = LoadedAt("<r/>");
    file.m_pXMLDoc = nodes.Before(file.m_pXMLDoc);
    nodes.Fail(NodeCall::CreateNode, 1, S_FALSE);
    int value = 5;
    EXPECT_EQ(ComFailureOf([&] { file.CreateAttrib(Writable(Name), value); }), E_OUTOFMEMORY);
    EXPECT_EQ(TreeOf(file.m_pCurNode), L"r()");
    file.m_pXMLDoc = nullptr;
}
