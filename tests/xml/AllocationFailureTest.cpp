// Texts for the platform that cannot be allocated.
#include "FailingBstrs.h"
#include "ResourceModules.h"
#include "XmlNodes.h"

namespace
{

using testing::AllOf;
using testing::AnyOf;
using testing::Each;
using testing::SizeIs;

class TextAllocation : public XmlNodeTest
{
protected:
    void SetUp() override
    {
        const CFailingBstrs probe(0);
        if (!probe.AreReplaced())
            GTEST_SKIP() << "this build imports them in another way";
    }

    // Runs `operation` on a new document with its first allocation failing, then with its second, and so
    // on, and finally with none. Each failure must give `result` and, unless the operation may leave its
    // work half done, change nothing. Gives how many there are.
    template <class Operation>
    int FailEach(const char* utf8, HRESULT result, Operation operation, bool mayBeHalfDone = false)
    {
        for (int n = 0;; ++n) {
            SCOPED_TRACE(n);
            CXMLFile file = LoadedAt(utf8);
            const std::wstring before = TreeOfDocument(file);
            const CFailingBstrs bstrs(n);
            const HRESULT failure = ComFailureOf([&] { operation(file); });
            EXPECT_EQ(failure, bstrs.HasFailed() ? result : S_OK);
            if (!bstrs.HasFailed())
                return n;
            if (!mayBeHalfDone) {
                EXPECT_EQ(TreeOfDocument(file), before);
            }
        }
    }

    void ExpectMessages(int count, const std::wstring& text) const
    {
        EXPECT_THAT(Messages(), AllOf(SizeIs(static_cast<size_t>(count)), Each(text)));
    }
};

} // namespace

TEST_F(TextAllocation, OfSelectNodeIsOutOfMemory)
{
    // The path.
    EXPECT_GE(FailEach("<r><Item/></r>", E_OUTOFMEMORY,
                       [](CXMLFile& file) { file.SelectNode(Writable(L"Item"), false, false); }),
              1);
    // The path and the name.
    EXPECT_GE(FailEach("<r/>", E_OUTOFMEMORY,
                       [](CXMLFile& file) { file.SelectNode(Writable(L"Item"), false, true); }),
              2);
    ExpectNoMessage();
}

TEST_F(TextAllocation, OfSelectNodeMakesNoElementAlsoAfterTheRemoval)
{
    const auto replace = [](CXMLFile& file) {
        const HRESULT failure = ComFailureOf([&] { file.SelectNode(Writable(L"Item"), true, true); });
        if (SUCCEEDED(failure)) {
            EXPECT_EQ(TreeOfDocument(file), L"#document(r(a()Item()))");
        } else {
            EXPECT_THAT(TreeOfDocument(file),
                        AnyOf(L"#document(r(Item k=\"v\"()a()))", L"#document(r(a()))"));
        }
        _com_util::CheckError(failure);
    };
    EXPECT_GE(FailEach("<r><Item k='v'/><a/></r>", E_OUTOFMEMORY, replace, true), 2);
    ExpectNoMessage();
}

TEST_F(TextAllocation, OfCreateNodeIsOutOfMemory)
{
    EXPECT_GE(FailEach("<r/>", E_OUTOFMEMORY, [](CXMLFile& file) { file.CreateNode(Writable(L"Item")); }), 1);
    ExpectNoMessage();
}

TEST_F(TextAllocation, OfDeleteXmlNodeIsOutOfMemory)
{
    // The two paths.
    EXPECT_GE(
        FailEach("<r><a/></r>", E_OUTOFMEMORY, [](CXMLFile& file) { file.DeleteXMLNode(L"/r", L"/r/a"); }),
        2);
    ExpectNoMessage();
}

TEST_F(TextAllocation, OfCreateAttribIsOutOfMemory)
{
    const auto write = [](CXMLFile& file) {
        CString value = L"new";
        file.CreateAttrib(Writable(L"k"), value);
    };
    // The name and the value.
    EXPECT_GE(FailEach("<r/>", E_OUTOFMEMORY, write), 2);
    EXPECT_GE(FailEach("<r k='old'/>", E_OUTOFMEMORY, write), 2);
    EXPECT_GE(FailEach("<r/>", E_OUTOFMEMORY,
                       [](CXMLFile& file) {
                           double value = 2.5;
                           file.CreateAttrib(Writable(L"k"), value);
                       }),
              2);
    ExpectNoMessage();
}

TEST_F(TextAllocation, OfCreateAttribLeavesTheVariableThatIsRead)
{
    int value = 42;
    EXPECT_GE(FailEach("<r k='7'/>", E_OUTOFMEMORY,
                       [&value](CXMLFile& file) {
                           EXPECT_EQ(value, 42);
                           file.m_bReadMode = true;
                           file.CreateAttrib(Writable(L"k"), value);
                       }),
              1);
    EXPECT_EQ(value, 7);
}

TEST_F(TextAllocation, OfTheSearchShowsItsMessageAndKeepsTheNode)
{
    IXMLDOMNodePtr found;
    bool isFound = false;
    const int searches = FailEach("<r k='v'/>", S_OK, [&](CXMLFile& file) {
        EXPECT_FALSE(isFound);
        found = file.m_pCurNode;
        file.GetDOMNodePtr(L"/", found);
        isFound = found.GetInterfacePtr() != file.m_pCurNode.GetInterfacePtr();
    });
    EXPECT_GE(searches, 1);
    ExpectMessages(searches, L"Some Error occurred during XML File Operation");
    EXPECT_TRUE(isFound);
    EXPECT_EQ(TypeOf(found), NODE_DOCUMENT);
}

TEST_F(TextAllocation, OfTheListsShowsTheirMessageAndAddsNothing)
{
    CStringArray items;
    const int failures = FailEach("<r k='v'/>", S_OK, [&](CXMLFile& file) {
        EXPECT_EQ(items.GetSize(), 0);
        file.FillStringArray(items, Writable(L"/r"), Writable(L"k"));
    });
    // The path and the name.
    EXPECT_GE(failures, 2);
    ExpectMessages(failures, L"FillStringArray Error");
    EXPECT_EQ(items.GetSize(), 1);
}

TEST_F(TextAllocation, OfAnAttributeGivesTheEmptyTextAndOneMessage)
{
    std::vector<CString> texts;
    const int failures = FailEach(
        "<r k='v'/>", S_OK, [&](CXMLFile& file) { texts.push_back(file.GetAttrib(L"/r", Writable(L"k"))); });
    // The path and the name.
    ASSERT_GE(failures, 2);
    EXPECT_EQ(texts.back(), L"v");
    texts.pop_back();
    EXPECT_THAT(texts, Each(CString()));
    ASSERT_EQ(Messages().size(), static_cast<size_t>(failures));
    EXPECT_EQ(Messages().front(), L"Some Error occurred during XML File Operation");
    EXPECT_EQ(Messages().back(), L"XML File Atrribute Error");
}

TEST_F(TextAllocation, OfTheResourcesTextIsOutOfMemory)
{
    const CLoadedModule module(ModulesFolder() / L"xml_resources.dll");
    int failures = 0;
    for (bool isFormerKept = true;; ++failures) {
        SCOPED_TRACE(failures);
        CXMLFile file = Loaded("<former/>");
        IXMLDOMDocument2* const former = file.m_pXMLDoc;
        const CFailingBstrs bstrs(failures);
        const HRESULT failure =
            ComFailureOf([&] { file.setXMLStringFromResource(101, L"XML", L"xml_resources.dll"); });
        EXPECT_EQ(failure, bstrs.HasFailed() ? E_OUTOFMEMORY : S_OK);
        if (!bstrs.HasFailed()) {
            // The text comes last, when the new document is in place.
            EXPECT_FALSE(isFormerKept);
            break;
        }
        isFormerKept = file.m_pXMLDoc.GetInterfacePtr() == former;
        EXPECT_EQ(TreeOfDocument(file), isFormerKept ? L"#document(former())" : L"#document()");
    }
    // "SelectionLanguage", "XPath" and the text at least.
    EXPECT_GE(failures, 3);
    ExpectNoMessage();
}

TEST_F(TextAllocation, OfTheEmptyResourceShowsItsMessage)
{
    CXMLFile file;
    int failures = 0;
    for (;; ++failures) {
        const CFailingBstrs bstrs(failures);
        EXPECT_FALSE(file.LoadFileFromRes());
        if (!bstrs.HasFailed())
            break;
    }
    EXPECT_GE(failures, 2);
    ExpectMessages(failures, L"Resource File Loading Error");
}
