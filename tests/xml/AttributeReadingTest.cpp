// Reading single attributes.
#include "AttributeReading.h"

namespace
{

using testing::ElementsAre;

const wchar_t AttributeMessage[] = L"XML File Atrribute Error";
const wchar_t SearchMessage[] = L"Some Error occurred during XML File Operation";

class GetAttrib : public XmlNodeTest
{
};

class GetAttribElement : public XmlNodeTest
{
protected:
    // Reads @k of /r where the given call does what `action` says; gives the messages.
    std::vector<std::wstring> MessagesWith(NodeCall call, FailingNodes::Action action)
    {
        FailingNodes nodes;
        CString text = L"not set";
        const testkit::MessageBoxWatch watch;
        {
            CXMLFile file = Loaded("<r k='v'/>");
            file.m_pXMLDoc = nodes.Before(file.m_pXMLDoc);
            nodes.At(call, 1, std::move(action));
            IXMLDOMElementPtr element;
            text = file.GetAttribElement(L"/r", Writable(L"k"), element);
        }
        EXPECT_TRUE(nodes.HasFailed());
        EXPECT_EQ(text, L"");
        EXPECT_EQ(nodes.LiveObjects(), 0);
        return watch.Texts();
    }

    // What is read where the platform answers with that value.
    CString ReadOf(const _variant_t& value)
    {
        FailingNodes nodes;
        CXMLFile file = Loaded("<r/>");
        file.m_pXMLDoc = nodes.Before(file.m_pXMLDoc);
        nodes.m_attributeValue = [&](VARIANT* answer) {
            return VariantCopy(answer, const_cast<_variant_t*>(&value));
        };
        const CString text = file.GetAttrib(L"/r", Writable(L"k"));
        EXPECT_EQ(nodes.CountOf(NodeCall::GetAttribute), 1);
        file.m_pXMLDoc = nullptr;
        return text;
    }
};

} // namespace

TEST_F(GetAttrib, ReadsTheFirstElementThatIsFound)
{
    CXMLFile file = Loaded("<r><a k='1'/><a k='2'/></r>");
    EXPECT_EQ(file.GetAttrib(L"//a", Writable(L"k")), L"1");
    EXPECT_EQ(file.GetAttrib(L"r/a[2]", Writable(L"k")), L"2");
    ExpectNoMessage();
}

TEST_F(GetAttrib, AbsentAndEmptyAttributesAreEmptyWithoutMessage)
{
    CXMLFile file = Loaded("<r><a k='1' e=''/><a k='2'/></r>");
    for (const wchar_t* name : {L"e", L"absent", L"K"})
        EXPECT_EQ(file.GetAttrib(L"//a", Writable(name)), L"") << testkit::Quoted(name);
    ExpectNoMessage();
}

TEST_F(GetAttrib, LooksAtTheFirstElementEvenIfAnotherHasTheAttribute)
{
    CXMLFile file = Loaded("<r><a/><a k='2'/></r>");
    EXPECT_EQ(file.GetAttrib(L"//a", Writable(L"k")), L"");
}

TEST_F(GetAttrib, NoMatchIsEmptyWithoutMessage)
{
    CXMLFile file = Loaded("<r k='1'/>");
    EXPECT_EQ(file.GetAttrib(L"//absent", Writable(L"k")), L"");
    ExpectNoMessage();
}

TEST_F(GetAttrib, NoDocumentIsEmptyWithoutMessage)
{
    CXMLFile file;
    EXPECT_EQ(file.GetAttrib(L"//a", Writable(L"k")), L"");
    EXPECT_EQ(file.GetAttrib(L"[", Writable(L"k")), L"");
    ExpectNoMessage();
}

TEST_F(GetAttrib, InvalidXPathShowsTheMessageOfTheSearchOnly)
{
    CXMLFile file = Loaded("<r k='1'/>");
    EXPECT_EQ(file.GetAttrib(L"/r[", Writable(L"k")), L"");
    ExpectOneMessage(SearchMessage);
}

TEST_F(GetAttrib, ANodeThatIsNoElementShowsTheMessage)
{
    for (const wchar_t* xpath : NoElements) {
        CXMLFile file = Loaded(Kinds);
        const testkit::MessageBoxWatch watch;
        EXPECT_EQ(file.GetAttrib(xpath, Writable(L"k")), L"");
        EXPECT_THAT(watch.Texts(), ElementsAre(AttributeMessage)) << testkit::Quoted(xpath);
    }
}

TEST_F(GetAttrib, ItsMessageHasAnOkButton)
{
    CXMLFile file = Loaded(Kinds);
    file.GetAttrib(L"/r/text()", Writable(L"k"));
    ExpectOneMessage(AttributeMessage);
}

TEST_F(GetAttrib, ANullOrEmptyNameShowsTheMessage)
{
    CXMLFile file = Loaded("<r k='1'/>");
    EXPECT_EQ(file.GetAttrib(L"/r", nullptr), L"");
    EXPECT_EQ(file.GetAttrib(L"/r", Writable(L"")), L"");
    EXPECT_THAT(Messages(), ElementsAre(AttributeMessage, AttributeMessage));
}

TEST_F(GetAttrib, GivesTheValueThatTheFileSpells)
{
    for (const Spelling& spelling : Spellings) {
        CXMLFile file = Loaded("<r k=\"" + std::string(spelling.file) + "\"/>");
        EXPECT_EQ(file.GetAttrib(L"/r", Writable(L"k")), spelling.value);
    }
}

TEST_F(GetAttrib, KeepsBlanksAtBothEnds)
{
    CXMLFile file = Loaded("<r a='  x  ' b='&#9;x&#10;' c='   '/>");
    EXPECT_EQ(file.GetAttrib(L"/r", Writable(L"a")), L"  x  ");
    EXPECT_EQ(file.GetAttrib(L"/r", Writable(L"b")), L"\tx\n");
    EXPECT_EQ(file.GetAttrib(L"/r", Writable(L"c")), L"   ");
}

TEST_F(GetAttrib, GivesVeryLongValuesWhole)
{
    const std::string value(1000000, 'x');
    CXMLFile file = Loaded("<r k='" + value + "end'/>");
    EXPECT_EQ(WideOf(file.GetAttrib(L"/r", Writable(L"k"))), testkit::Wide(value) + L"end");
}

TEST_F(GetAttrib, TakesNamesBeyondAsciiAndWithPrefix)
{
    CXMLFile file = Loaded("<r xmlns:p='urn:p' k='plain' p:k='of p' xml:lang='en' l\xC3\xA4nge='7'/>");
    EXPECT_EQ(file.GetAttrib(L"/r", Writable(L"l\u00E4nge")), L"7");
    EXPECT_EQ(file.GetAttrib(L"/r", Writable(L"k")), L"plain");
    EXPECT_EQ(file.GetAttrib(L"/r", Writable(L"p:k")), L"of p");
    EXPECT_EQ(file.GetAttrib(L"/r", Writable(L"xml:lang")), L"en");
    ExpectNoMessage();
}

TEST_F(GetAttribElement, GivesTheElementAndItsAttribute)
{
    FailingNodes nodes;
    CXMLFile file = LoadedAt("<r><a k='1' i='2'/></r>");
    IXMLDOMElementPtr element(nodes.Before(file.m_pCurNode));
    ASSERT_EQ(nodes.LiveObjects(), 1);
    EXPECT_EQ(file.GetAttribElement(L"//a", Writable(L"k"), element), L"1");
    ASSERT_TRUE(element);
    EXPECT_EQ(TreeOf(element), L"a k=\"1\" i=\"2\"()");
    EXPECT_EQ(nodes.LiveObjects(), 0);
    ExpectNoMessage();
}

TEST_F(GetAttribElement, GivesTheElementEvenWithoutTheAttribute)
{
    CXMLFile file = Loaded("<r><a i='2'/></r>");
    IXMLDOMElementPtr element;
    EXPECT_EQ(file.GetAttribElement(L"//a", Writable(L"k"), element), L"");
    ASSERT_TRUE(element);
    EXPECT_EQ(TreeOf(element), L"a i=\"2\"()");
    ExpectNoMessage();
}

TEST_F(GetAttribElement, LeavesTheElementUntouchedWhereNothingIsFound)
{
    CXMLFile file = LoadedAt("<r/>");
    IXMLDOMElementPtr element = file.m_pCurNode;
    const IXMLDOMElementPtr before = element;
    EXPECT_EQ(file.GetAttribElement(L"//absent", Writable(L"k"), element), L"");
    EXPECT_EQ(element.GetInterfacePtr(), before.GetInterfacePtr());
    ExpectNoMessage();
    EXPECT_EQ(file.GetAttribElement(L"[", Writable(L"k"), element), L"");
    EXPECT_EQ(element.GetInterfacePtr(), before.GetInterfacePtr());
    ExpectOneMessage(SearchMessage);
    file.m_pXMLDoc = nullptr;
    EXPECT_EQ(file.GetAttribElement(L"/r", Writable(L"k"), element), L"");
    EXPECT_EQ(element.GetInterfacePtr(), before.GetInterfacePtr());
}

TEST_F(GetAttribElement, ANodeThatIsNoElementMakesTheElementNull)
{
    for (const wchar_t* xpath : NoElements) {
        CXMLFile file = LoadedAt(Kinds);
        IXMLDOMElementPtr element = file.m_pCurNode;
        EXPECT_EQ(file.GetAttribElement(xpath, Writable(L"k"), element), L"");
        EXPECT_FALSE(element) << testkit::Quoted(xpath);
    }
    EXPECT_EQ(Messages(), std::vector<std::wstring>(std::size(NoElements), AttributeMessage));
}

TEST_F(GetAttribElement, GivesOneReference)
{
    FailingNodes nodes;
    CXMLFile file = Loaded("<r k='1'/>");
    file.m_pXMLDoc = nodes.Before(file.m_pXMLDoc);
    IXMLDOMElementPtr element;
    file.GetAttribElement(L"/r", Writable(L"k"), element);
    ASSERT_TRUE(element);
    EXPECT_EQ(ReferencesOf(element), 1u);
    element = nullptr;
    EXPECT_EQ(file.GetAttrib(L"/r", Writable(L"k")), L"1");
    EXPECT_EQ(nodes.LiveObjects(), 1);
    file.m_pXMLDoc = nullptr;
}

TEST_F(GetAttribElement, EachFailureShowsOneMessageAndGivesTheEmptyText)
{
    const FailingNodes::Action failure = [] { return SomeFailure; };
    EXPECT_THAT(MessagesWith(NodeCall::QueryElement, failure), ElementsAre(AttributeMessage));
    std::vector<FailingNodes::Action> actions(std::begin(Exceptions), std::end(Exceptions));
    actions.push_back(failure);
    for (const FailingNodes::Action& action : actions) {
        EXPECT_THAT(MessagesWith(NodeCall::SelectSingleNode, action), ElementsAre(SearchMessage));
        EXPECT_THAT(MessagesWith(NodeCall::GetAttribute, action), ElementsAre(AttributeMessage));
    }
}

TEST_F(GetAttribElement, TakesTheStringOfWhateverIsNotNull)
{
    EXPECT_EQ(ReadOf(_variant_t(L"text")), L"text");
    EXPECT_EQ(ReadOf(_variant_t(42L)), L"42");
    _variant_t null;
    null.vt = VT_NULL;
    EXPECT_EQ(ReadOf(null), L"");
    ExpectNoMessage();
}

TEST_F(GetAttribElement, TakesAStringWhole)
{
    _variant_t value;
    value.vt = VT_BSTR;
    value.bstrVal = SysAllocStringLen(L"a\0b", 3);
    EXPECT_EQ(WideOf(ReadOf(value)), std::wstring(L"a\0b", 3));
}

TEST_F(GetAttribElement, AValueWithoutAStringShowsTheMessage)
{
    _variant_t value;
    value.vt = VT_UNKNOWN;
    value.punkVal = nullptr;
    EXPECT_EQ(ReadOf(value), L"");
    ExpectOneMessage(AttributeMessage);
}

TEST(CreateRuleXMLString, LeavesTheStringAsItIs)
{
    CXMLFile file;
    CString rule = L"rule";
    file.CreateRuleXMLString(rule);
    EXPECT_EQ(rule, L"rule");
    CString empty;
    file.CreateRuleXMLString(empty);
    EXPECT_EQ(empty, L"");
}
