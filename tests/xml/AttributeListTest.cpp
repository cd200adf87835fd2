// Reading the attributes of many nodes into arrays, lists and combo boxes.
#include "AttributeReading.h"

#include <list>

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

const wchar_t ListMessage[] = L"FillStringArray Error";

class FillStringArrayByXPath : public XmlNodeTest
{
protected:
    // What is added to an array that holds "before".
    static std::vector<std::wstring> Added(CXMLFile& file, wchar_t* xpath, wchar_t* attribute)
    {
        CStringArray items;
        items.Add(L"before");
        file.FillStringArray(items, xpath, attribute);
        std::vector<std::wstring> texts = TextsOf(items);
        if (texts.empty() || texts.front() != L"before") {
            ADD_FAILURE() << "what the array held is gone";
            return texts;
        }
        texts.erase(texts.begin());
        return texts;
    }

    // That the attribute of the root gives what the text of its node in the map of attributes is, or the
    // message where the map has none.
    static void ExpectTextOfTheMap(CXMLFile file, const wchar_t* name)
    {
        IXMLDOMNamedNodeMapPtr map;
        Find(file.m_pXMLDoc, L"/*")->get_attributes(&map);
        IXMLDOMNodePtr attribute;
        map->getNamedItem(_bstr_t(name), &attribute);
        std::vector<std::wstring> expected;
        if (attribute) {
            _bstr_t text;
            attribute->get_text(text.GetAddress());
            expected.push_back(WideOf(text));
        }
        const testkit::MessageBoxWatch watch;
        EXPECT_EQ(Added(file, Writable(L"/*"), Writable(name)), expected) << testkit::Quoted(name);
        EXPECT_EQ(watch.Texts(), std::vector<std::wstring>(attribute ? 0 : 1, ListMessage))
            << testkit::Quoted(name);
    }
};

class FillStringListByXPath : public XmlNodeTest
{
protected:
    static std::vector<std::wstring> TextsOf(const std::list<CString>& list)
    {
        std::vector<std::wstring> texts;
        for (const CString& text : list)
            texts.push_back(WideOf(text));
        return texts;
    }
};

// A real combo box in a real window that is never shown.
class FillComboBoxByXPath : public XmlNodeTest
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_parent.CreateEx(0, L"Static", L"", WS_POPUP, CRect(0, 0, 300, 300), nullptr, 0));
        Create(m_box, CBS_DROPDOWNLIST);
    }
    void TearDown() override { m_parent.DestroyWindow(); }

    void Create(CComboBox& box, DWORD style)
    {
        ASSERT_TRUE(box.Create(WS_CHILD | CBS_HASSTRINGS | style, CRect(0, 0, 200, 200), &m_parent, 1));
    }

    static std::vector<std::wstring> EntriesOf(const CComboBox& box)
    {
        std::vector<std::wstring> texts;
        for (int i = 0; i < box.GetCount(); ++i) {
            CString text;
            box.GetLBText(i, text);
            texts.push_back(WideOf(text));
        }
        return texts;
    }

    CWnd m_parent;
    CComboBox m_box;
};

} // namespace

TEST_F(FillStringArrayByXPath, AppendsEveryMatchInDocumentOrder)
{
    CXMLFile file = Loaded("<r><a k='1'/><b><a k='2'/></b><a k='3'/><c k='4'/></r>");
    EXPECT_THAT(Added(file, Writable(L"//a"), Writable(L"k")), ElementsAre(L"1", L"2", L"3"));
    EXPECT_THAT(Added(file, Writable(L"r/a"), Writable(L"k")), ElementsAre(L"1", L"3"));
    EXPECT_THAT(Added(file, Writable(L"//c | //b/a"), Writable(L"k")), ElementsAre(L"2", L"4"));
    ExpectNoMessage();
}

TEST_F(FillStringArrayByXPath, SearchesFromTheDocumentWhateverTheCurrentNode)
{
    CXMLFile file = LoadedAt("<r><a><b k='1'/></a></r>", L"/r/a");
    EXPECT_THAT(Added(file, Writable(L"b"), Writable(L"k")), IsEmpty());
    EXPECT_THAT(Added(file, Writable(L"r/a/b"), Writable(L"k")), ElementsAre(L"1"));
}

TEST_F(FillStringArrayByXPath, NoMatchChangesNothing)
{
    CXMLFile file = Loaded("<r/>");
    EXPECT_THAT(Added(file, Writable(L"//absent"), Writable(L"k")), IsEmpty());
    ExpectNoMessage();
}

TEST_F(FillStringArrayByXPath, EndsAtTheFirstNodeWithoutTheAttribute)
{
    CXMLFile file = Loaded("<r><a k='1'/><a/><a k='3'/></r>");
    EXPECT_THAT(Added(file, Writable(L"//a"), Writable(L"k")), ElementsAre(L"1"));
    ExpectOneMessage(ListMessage);
}

TEST_F(FillStringArrayByXPath, EndsAtANodeThatHasNoAttributes)
{
    for (const wchar_t* xpath : NoElements) {
        CXMLFile file = Loaded(Kinds);
        const testkit::MessageBoxWatch watch;
        EXPECT_THAT(Added(file, Writable(xpath), Writable(L"k")), IsEmpty());
        EXPECT_THAT(watch.Texts(), ElementsAre(ListMessage)) << testkit::Quoted(xpath);
    }
    CXMLFile file = Loaded("<r><a k='1'/>text<a k='3'/></r>");
    EXPECT_THAT(Added(file, Writable(L"/r/node()"), Writable(L"k")), ElementsAre(L"1"));
    ExpectOneMessage(ListMessage);
}

TEST_F(FillStringArrayByXPath, BadArgumentsAndNoDocumentShowTheMessage)
{
    CXMLFile file = Loaded("<r k='1'/>");
    for (const wchar_t* xpath : {L"", L"/r[", L"a b", L"count(//r)", L"//q:r"})
        EXPECT_THAT(Added(file, Writable(xpath), Writable(L"k")), IsEmpty()) << testkit::Quoted(xpath);
    EXPECT_EQ(Messages(), std::vector<std::wstring>(5, ListMessage));
    EXPECT_THAT(Added(file, nullptr, Writable(L"k")), IsEmpty());
    EXPECT_THAT(Added(file, Writable(L"/r"), nullptr), IsEmpty());
    EXPECT_THAT(Added(file, Writable(L"/r"), Writable(L"")), IsEmpty());
    EXPECT_EQ(Messages(), std::vector<std::wstring>(8, ListMessage));
    CXMLFile empty;
    EXPECT_THAT(Added(empty, Writable(L"/r"), Writable(L"k")), IsEmpty());
    EXPECT_EQ(Messages(), std::vector<std::wstring>(9, ListMessage));
}

TEST_F(FillStringArrayByXPath, KeepsEmptyAndEqualValues)
{
    CXMLFile file = Loaded("<r><a k=''/><a k='x'/><a k='x'/><a k=''/></r>");
    EXPECT_THAT(Added(file, Writable(L"//a"), Writable(L"k")), ElementsAre(L"", L"x", L"x", L""));
}

TEST_F(FillStringArrayByXPath, GivesTheValuesThatTheFileSpells)
{
    for (const Spelling& spelling : Spellings) {
        CXMLFile file = Loaded("<r k=\"" + std::string(spelling.file) + "\"/>");
        EXPECT_THAT(Added(file, Writable(L"/r"), Writable(L"k")), ElementsAre(spelling.value));
    }
}

TEST_F(FillStringArrayByXPath, TakesTheTextOfTheAttributeWhole)
{
    for (const wchar_t* const outer : {L"", L" "}) {
        FailingNodes nodes;
        CXMLFile file = Loaded("<r k='1'/>");
        file.m_pXMLDoc = nodes.Before(file.m_pXMLDoc);
        const std::wstring whole = outer + std::wstring(L"a\0b", 3) + outer;
        const auto give = [&] { return SysAllocStringLen(whole.c_str(), static_cast<UINT>(whole.size())); };
        nodes.m_attributeValue = [&](VARIANT* value) {
            value->vt = VT_BSTR;
            value->bstrVal = give();
            return S_OK;
        };
        nodes.m_text = [&](BSTR* text) {
            *text = give();
            return S_OK;
        };
        EXPECT_THAT(Added(file, Writable(L"/r"), Writable(L"k")), ElementsAre(whole));
        file.m_pXMLDoc = nullptr;
    }
}

TEST_F(FillStringArrayByXPath, GivesTheTextsThatTheMapHas)
{
    const CXMLFile file = Loaded("<r xmlns:p='urn:p' k='1' p:k='2' xml:lang='en' xmlns='urn:d' o=' x ' "
                                 "t='&#9;x' n='x&#10;'/>");
    for (const wchar_t* name :
         {L"k", L"p:k", L"xml:lang", L"xmlns:p", L"xmlns", L"o", L"t", L"n", L"lang", L"p"})
        ExpectTextOfTheMap(file, name);
}

TEST_F(FillStringArrayByXPath, GivesDefaultsWhereTheMapHasThem)
{
    testkit::WriteBytes(m_folder / L"dtd.xml",
                        "<!DOCTYPE r [<!ATTLIST r k CDATA 'default' d CDATA 'default'>]><r k='1'/>");
    CXMLFile file(PathOf(L"dtd.xml"));
    if (!file.LoadFile())
        GTEST_SKIP() << "the parser refuses document types";
    ExpectTextOfTheMap(file, L"k");
    ExpectTextOfTheMap(file, L"d");
}

TEST_F(FillStringArrayByXPath, TakesThousandsOfNodes)
{
    std::string text = "<r>";
    std::vector<std::wstring> expected;
    for (int i = 0; i < 3000; ++i) {
        text += "<a k='" + std::to_string(i) + "'/>";
        expected.push_back(std::to_wstring(i));
    }
    CXMLFile file = Loaded(text + "</r>");
    EXPECT_EQ(Added(file, Writable(L"//a"), Writable(L"k")), expected);
}

TEST_F(FillStringArrayByXPath, AFailureShowsOneMessageAndKeepsWhatWasGathered)
{
    // Blanks at the ends: read by the text of the attribute's node only, which may be without them.
    for (const std::string blank : {"", " "}) {
        int n = 1;
        for (bool hasFailed = true; hasFailed; ++n) {
            FailingNodes nodes;
            std::vector<std::wstring> added;
            const testkit::MessageBoxWatch watch;
            {
                CXMLFile file =
                    Loaded("<r><a k='1" + blank + "'/><a k='2" + blank + "'/><a k='3" + blank + "'/></r>");
                file.m_pXMLDoc = nodes.Before(file.m_pXMLDoc);
                nodes.FailAny(n, SomeFailure);
                added = Added(file, Writable(L"//a"), Writable(L"k"));
            }
            hasFailed = nodes.HasFailed();
            EXPECT_EQ(nodes.LiveObjects(), 0) << n;
            for (size_t i = 0; i < added.size(); ++i)
                EXPECT_EQ(added[i].substr(0, 1), std::to_wstring(i + 1)) << n;
            if (watch.Texts().empty()) {
                EXPECT_EQ(added.size(), 3u) << n;
            } else {
                EXPECT_TRUE(hasFailed);
                EXPECT_THAT(watch.Texts(), ElementsAre(ListMessage)) << n;
                const int asked = nodes.CountOf(NodeCall::Item);
                EXPECT_EQ(added.size(), static_cast<size_t>(asked > 0 ? asked - 1 : 0)) << n;
            }
        }
        EXPECT_GE(n - 2, 2 + 3);
    }
}

TEST_F(FillStringArrayByXPath, EachCallThatIsNeededShowsTheMessageWhenItFails)
{
    const std::pair<NodeCall, size_t> calls[] = {{NodeCall::SelectNodes, 1}, {NodeCall::Length, 1},
                                                 {NodeCall::Item, 3},        {NodeCall::Attributes, 3},
                                                 {NodeCall::NamedItem, 3},   {NodeCall::Text, 3}};
    for (const auto& [call, count] : calls) {
        for (size_t n = 1; n <= count; ++n) {
            FailingNodes nodes;
            CXMLFile file = Loaded("<r><a k='1 '/><a k='2 '/><a k='3 '/></r>");
            file.m_pXMLDoc = nodes.Before(file.m_pXMLDoc);
            nodes.Fail(call, static_cast<int>(n), SomeFailure);
            const testkit::MessageBoxWatch watch;
            EXPECT_EQ(Added(file, Writable(L"//a"), Writable(L"k")).size(), n - 1);
            EXPECT_TRUE(nodes.HasFailed());
            EXPECT_THAT(watch.Texts(), ElementsAre(ListMessage));
            file.m_pXMLDoc = nullptr;
        }
    }
}

TEST_F(FillStringArrayByXPath, CatchesEveryKindOfException)
{
    for (const FailingNodes::Action& action : Exceptions) {
        for (const NodeCall call : {NodeCall::SelectNodes, NodeCall::Attributes, NodeCall::Text}) {
            FailingNodes nodes;
            CXMLFile file = Loaded("<r k='1 '/>");
            file.m_pXMLDoc = nodes.Before(file.m_pXMLDoc);
            nodes.At(call, 1, action);
            const testkit::MessageBoxWatch watch;
            EXPECT_THAT(Added(file, Writable(L"/r"), Writable(L"k")), IsEmpty());
            EXPECT_THAT(watch.Texts(), ElementsAre(ListMessage));
            file.m_pXMLDoc = nullptr;
        }
    }
}

TEST_F(FillStringArrayByXPath, ANodeThatTheListDoesNotGiveShowsTheMessage)
{
    for (const NodeCall call : {NodeCall::SelectNodes, NodeCall::Item, NodeCall::Attributes}) {
        FailingNodes nodes;
        CXMLFile file = Loaded("<r k='1 '/>");
        file.m_pXMLDoc = nodes.Before(file.m_pXMLDoc);
        nodes.Fail(call, 1, S_FALSE);
        const testkit::MessageBoxWatch watch;
        EXPECT_THAT(Added(file, Writable(L"/r"), Writable(L"k")), IsEmpty());
        EXPECT_THAT(watch.Texts(), ElementsAre(ListMessage));
        file.m_pXMLDoc = nullptr;
    }
}

TEST_F(FillStringListByXPath, AppendsEveryMatchToTheEnd)
{
    CXMLFile file = Loaded("<r><a k='1'/><a k=''/><a k='3'/></r>");
    std::list<CString> list = {L"before"};
    file.FillStringList(list, Writable(L"//a"), Writable(L"k"));
    EXPECT_THAT(TextsOf(list), ElementsAre(L"before", L"1", L"", L"3"));
    ExpectNoMessage();
}

TEST_F(FillStringListByXPath, NoMatchChangesNothing)
{
    CXMLFile file = Loaded("<r/>");
    std::list<CString> list = {L"before"};
    file.FillStringList(list, Writable(L"//absent"), Writable(L"k"));
    EXPECT_THAT(TextsOf(list), ElementsAre(L"before"));
    ExpectNoMessage();
}

TEST_F(FillStringListByXPath, PassesOnWhatWasGatheredBeforeAFailure)
{
    CXMLFile file = Loaded("<r><a k='1'/><a/><a k='3'/></r>");
    std::list<CString> list = {L"before"};
    file.FillStringList(list, Writable(L"//a"), Writable(L"k"));
    EXPECT_THAT(TextsOf(list), ElementsAre(L"before", L"1"));
    ExpectOneMessage(ListMessage);
}

TEST_F(FillStringListByXPath, BadArgumentsAndNoDocumentShowTheMessage)
{
    CXMLFile file = Loaded("<r k='1'/>");
    CXMLFile empty;
    std::list<CString> list;
    file.FillStringList(list, Writable(L"["), Writable(L"k"));
    file.FillStringList(list, nullptr, Writable(L"k"));
    file.FillStringList(list, Writable(L"/r"), nullptr);
    empty.FillStringList(list, Writable(L"/r"), Writable(L"k"));
    EXPECT_THAT(TextsOf(list), IsEmpty());
    EXPECT_EQ(Messages(), std::vector<std::wstring>(4, ListMessage));
}

TEST_F(FillComboBoxByXPath, AddsEveryMatchAndSelectsTheFirstEntry)
{
    CXMLFile file = Loaded("<r><a k='z'/><a k=''/><a k='\xC3\x84\xF0\x9F\x98\x80'/></r>");
    m_box.AddString(L"before");
    m_box.AddString(L"too");
    m_box.SetCurSel(1);
    file.FillComboBox(m_box, Writable(L"//a"), Writable(L"k"));
    EXPECT_THAT(EntriesOf(m_box), ElementsAre(L"before", L"too", L"z", L"", L"\u00C4\U0001F600"));
    EXPECT_EQ(m_box.GetCurSel(), 0);
    ExpectNoMessage();
}

TEST_F(FillComboBoxByXPath, ASortedBoxSorts)
{
    CXMLFile file = Loaded("<r><a k='b'/><a k='a'/></r>");
    CComboBox sorted;
    Create(sorted, CBS_DROPDOWN | CBS_SORT);
    file.FillComboBox(sorted, Writable(L"//a"), Writable(L"k"));
    EXPECT_THAT(EntriesOf(sorted), ElementsAre(L"a", L"b"));
    EXPECT_EQ(sorted.GetCurSel(), 0);
}

TEST_F(FillComboBoxByXPath, NoMatchStillSelectsTheFirstEntry)
{
    CXMLFile file = Loaded("<r/>");
    file.FillComboBox(m_box, Writable(L"//a"), Writable(L"k"));
    EXPECT_EQ(m_box.GetCount(), 0);
    EXPECT_EQ(m_box.GetCurSel(), CB_ERR);
    m_box.AddString(L"first");
    m_box.AddString(L"second");
    m_box.SetCurSel(1);
    file.FillComboBox(m_box, Writable(L"//a"), Writable(L"k"));
    EXPECT_THAT(EntriesOf(m_box), ElementsAre(L"first", L"second"));
    EXPECT_EQ(m_box.GetCurSel(), 0);
    ExpectNoMessage();
}

TEST_F(FillComboBoxByXPath, PassesOnWhatWasGatheredBeforeAFailure)
{
    CXMLFile file = Loaded("<r><a k='1'/><a/><a k='3'/></r>");
    file.FillComboBox(m_box, Writable(L"//a"), Writable(L"k"));
    EXPECT_THAT(EntriesOf(m_box), ElementsAre(L"1"));
    EXPECT_EQ(m_box.GetCurSel(), 0);
    ExpectOneMessage(ListMessage);
}

TEST_F(FillComboBoxByXPath, BadArgumentsAndNoDocumentShowTheMessage)
{
    CXMLFile file = Loaded("<r k='1'/>");
    CXMLFile empty;
    file.FillComboBox(m_box, Writable(L"["), Writable(L"k"));
    file.FillComboBox(m_box, nullptr, Writable(L"k"));
    file.FillComboBox(m_box, Writable(L"/r"), nullptr);
    empty.FillComboBox(m_box, Writable(L"/r"), Writable(L"k"));
    EXPECT_EQ(m_box.GetCount(), 0);
    EXPECT_EQ(Messages(), std::vector<std::wstring>(4, ListMessage));
}
