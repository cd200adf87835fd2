// Loading, saving and handing out the document. How they fail is in LoadSaveFailureTest.cpp.
#include "CreationCalls.h"
#include "LoadFileTest.h"
#include "ResourceModules.h"

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

using GetXMLDocument = XmlTest;
using GetXMLFileInString = XmlTest;
using SaveDocument = XmlTest;
using SetXMLFilePath = XmlTest;
using UnLoadFile = XmlTest;

} // namespace

TEST_F(LoadFile, ReadsTheFileThatThePathNames)
{
    testkit::WriteBytes(m_folder / L"first.xml", "<first/>");
    testkit::WriteBytes(m_folder / L"second.xml", "<second/>");
    CXMLFile file(PathOf(L"first.xml"));
    EXPECT_TRUE(file.LoadFile());
    EXPECT_THAT(NamesOfChildren(file), ElementsAre(L"first"));
    file.SetXMLFilePath(PathOf(L"second.xml"));
    EXPECT_TRUE(file.LoadFile());
    EXPECT_THAT(NamesOfChildren(file), ElementsAre(L"second"));
    file.m_strXMLFilePath = PathOf(L"first.xml");
    EXPECT_TRUE(file.LoadFile());
    EXPECT_THAT(NamesOfChildren(file), ElementsAre(L"first"));
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(LoadFile, LeavesTheFileAsItWas)
{
    const std::string bytes = "<!-- c -->\r\n<r a='1' >\n\n</r >\n";
    Loaded(bytes);
    EXPECT_EQ(testkit::ReadBytes(m_folder / L"document.xml"), bytes);
}

TEST_F(LoadFile, FirstChildIsTheFilesOwnFirstNode)
{
    CXMLFile element = Loaded("<r/>");
    EXPECT_THAT(NamesOfChildren(element), ElementsAre(L"r"));
    CXMLFile comment = Loaded("<!--c--><r/>");
    EXPECT_THAT(NamesOfChildren(comment), ElementsAre(L"#comment", L"r"));
    CXMLFile instruction = Loaded("<?make it?><r/>");
    EXPECT_THAT(NamesOfChildren(instruction), ElementsAre(L"make", L"r"));
}

TEST_F(LoadFile, KeepsTheFilesOwnDeclaration)
{
    CXMLFile file = Loaded("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><r/>");
    EXPECT_THAT(NamesOfChildren(file), ElementsAre(L"xml", L"r"));
    EXPECT_NE(file.GetXMLFileInString().Find(L"ISO-8859-1"), -1);
    EXPECT_EQ(file.GetXMLFileInString().Find(L"UTF-8"), -1);
}

TEST_F(LoadFile, MissingFileGivesFalseAndAnEmptyDocumentWithoutMessage)
{
    CXMLFile file(PathOf(L"missing.xml"));
    EXPECT_FALSE(file.LoadFile());
    ExpectEmptyDocument(file);
    EXPECT_FALSE(std::filesystem::exists(m_folder / L"missing.xml"));
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(LoadFile, MissingFolderGivesFalseAndAnEmptyDocumentWithoutMessage)
{
    CXMLFile file(PathOf(L"missing\\document.xml"));
    EXPECT_FALSE(file.LoadFile());
    ExpectEmptyDocument(file);
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(LoadFile, EmptyPathGivesFalseAndAnEmptyDocumentWithoutMessage)
{
    CXMLFile file;
    EXPECT_FALSE(file.LoadFile());
    ExpectEmptyDocument(file);
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(LoadFile, DropsTheFormerDocumentAlsoWhenItFails)
{
    testkit::WriteBytes(m_folder / L"bad.xml", "<r>");
    for (const wchar_t* name : {L"missing.xml", L"bad.xml"}) {
        CXMLFile file = Loaded("<r/>");
        file.SetXMLFilePath(PathOf(name));
        EXPECT_FALSE(file.LoadFile());
        ExpectEmptyDocument(file);
    }
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(LoadFile, CanSucceedAfterAFailure)
{
    CXMLFile file(PathOf(L"document.xml"));
    EXPECT_FALSE(file.LoadFile());
    testkit::WriteBytes(m_folder / L"document.xml", "<r/>");
    EXPECT_TRUE(file.LoadFile());
    EXPECT_THAT(NamesOfChildren(file), ElementsAre(L"r"));
}

TEST_F(LoadFile, DropsChangesThatWereNotSaved)
{
    wchar_t name[] = L"child";
    CXMLFile file = Loaded("<r/>");
    file.GetDOMNodePtr(L"/r", file.m_pCurNode);
    file.CreateNode(name);
    EXPECT_TRUE(file.LoadFile());
    IXMLDOMNodePtr child;
    file.GetDOMNodePtr(L"/r/child", child);
    EXPECT_EQ(child, nullptr);
}

TEST_F(LoadFile, LeavesTheOtherMembersAsTheyAre)
{
    CXMLFile file = Loaded("<r a='1'/>");
    file.m_strExtra = L"extra";
    file.m_bReadMode = true;
    file.GetDOMNodePtr(L"/r", file.m_pCurNode);
    IXMLDOMNode* const node = file.m_pCurNode;
    for (const wchar_t* name : {L"document.xml", L"missing.xml"}) {
        file.m_strXMLFilePath = PathOf(name);
        file.LoadFile();
        EXPECT_EQ(file.m_pCurNode.GetInterfacePtr(), node);
        EXPECT_EQ(file.m_strXMLFilePath, PathOf(name));
        EXPECT_EQ(file.m_strExtra, L"extra");
        EXPECT_TRUE(file.m_bReadMode);
    }
    // The node outlives its document.
    CString value;
    wchar_t name[] = L"a";
    file.CreateAttrib(name, value);
    EXPECT_EQ(value, L"1");
}

TEST_F(LoadFile, IsFinishedWhenItReturns)
{
    CXMLFile file = Loaded("<r/>");
    VARIANT_BOOL isAsync = VARIANT_TRUE;
    EXPECT_EQ(file.m_pXMLDoc->get_async(&isAsync), S_OK);
    EXPECT_EQ(isAsync, VARIANT_FALSE);
    long state = 0;
    EXPECT_EQ(file.m_pXMLDoc->get_readyState(&state), S_OK);
    EXPECT_EQ(state, 4);
}

TEST_F(LoadFile, MakesADocumentThatSelectsByXPath)
{
    CXMLFile file = Loaded("<r><a i='1'/><a i='2'/></r>");
    wchar_t name[] = L"i";
    EXPECT_EQ(file.GetAttrib(L"/r/a[position() = last()]", name), L"2");
}

TEST_F(LoadFileSteps, AreInOrder)
{
    EXPECT_TRUE(m_file.LoadFile());
    std::vector<std::string> calls = m_document->m_calls;
    // What keeps the document from reaching outside itself may come at any place before the load.
    std::erase_if(calls, [](const std::string& call) {
        return call.starts_with("setProperty(\"ProhibitDTD\"") || call.starts_with("put_resolveExternals");
    });
    const std::wstring path(PathOf(L"document.xml"));
    EXPECT_THAT(calls, ElementsAre(R"(setProperty("SelectionLanguage", "XPath"))",
                                   R"(createProcessingInstruction("xml", "version='1.0' encoding='UTF-8'"))",
                                   "appendChild()", "get_parseError()", "put_async(false)",
                                   "load(" + testkit::Quoted(path) + ")"));
    EXPECT_EQ(m_supply.m_created, 1);
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(LoadFileSteps, ForbidTheDocumentToReachOutsideBeforeTheLoad)
{
    EXPECT_TRUE(m_file.LoadFile());
    EXPECT_LT(PlaceOf("setProperty(\"ProhibitDTD\", true)"), PlaceOf("load("));
    EXPECT_LT(PlaceOf("put_resolveExternals(false)"), PlaceOf("load("));
}

TEST_F(LoadFileSteps, PutTheDeclarationIntoTheEmptyDocument)
{
    std::vector<std::wstring> children;
    m_document->At("get_parseError", [&] {
        CXMLFile view;
        view.m_pXMLDoc = m_document->m_real;
        children = NamesOfChildren(view);
        return std::nullopt;
    });
    EXPECT_TRUE(m_file.LoadFile());
    EXPECT_THAT(children, ElementsAre(L"xml"));
}

TEST_F(LoadFileSteps, TakeTheNewDocumentAfterTheParseErrorAndBeforeTheLoad)
{
    m_file.m_pXMLDoc = m_formerOwner;
    bool isFormerAtParseError = false;
    bool isNewAtAsync = false;
    ULONG formerAtAsync = 0;
    m_document->At("get_parseError", [&] {
        isFormerAtParseError = m_file.m_pXMLDoc.GetInterfacePtr() == m_former;
        return std::nullopt;
    });
    m_document->At("put_async", [&] {
        isNewAtAsync = m_file.m_pXMLDoc.GetInterfacePtr() == m_document;
        formerAtAsync = ReferencesOf(m_formerOwner);
        return std::nullopt;
    });
    EXPECT_TRUE(m_file.LoadFile());
    EXPECT_TRUE(isFormerAtParseError);
    EXPECT_TRUE(isNewAtAsync);
    EXPECT_EQ(formerAtAsync, 1U);
    EXPECT_THAT(m_former->m_calls, IsEmpty());
}

TEST_F(LoadFileSteps, LeaveOneReferenceToTheDocument)
{
    EXPECT_TRUE(m_file.LoadFile());
    EXPECT_EQ(ReferencesOf(m_owner), 2U);
    m_file.m_pXMLDoc = nullptr;
    EXPECT_EQ(ReferencesOf(m_owner), 1U);
}

TEST_F(LoadFileSteps, GiveWhatTheLoadReports)
{
    m_document->m_isLoaded = VARIANT_FALSE;
    EXPECT_FALSE(m_file.LoadFile());
    m_document->m_isLoaded = VARIANT_TRUE;
    EXPECT_TRUE(m_file.LoadFile());
    // A path without a file: the result code is a success as well.
    m_file.SetXMLFilePath(PathOf(L"missing.xml"));
    EXPECT_TRUE(m_file.LoadFile());
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(LoadFileSteps, ShowWhatTheEmptyDocumentComplainsOfAndGoOn)
{
    auto* const reason = new CReason(L"It is \u00FCnwell.\r\n");
    const IXMLDOMParseErrorPtr owner(reason, false);
    m_document->m_parseError = reason;
    EXPECT_TRUE(m_file.LoadFile());
    EXPECT_THAT(Messages(), ElementsAre(L"It is \u00FCnwell.\r\n"));
    EXPECT_THAT(m_watch.Boxes().at(0).buttons, ElementsAre(IDOK));
    EXPECT_EQ(ReferencesOf(owner), 1U);
}

TEST_F(LoadFileSteps, ShowNothingForAnEmptyReason)
{
    auto* const reason = new CReason(std::wstring());
    const IXMLDOMParseErrorPtr owner(reason, false);
    m_document->m_parseError = reason;
    for (const HRESULT answer : {S_OK, S_FALSE}) {
        reason->m_answer = answer;
        EXPECT_TRUE(m_file.LoadFile());
    }
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(SaveDocument, WithoutADocumentDoesNothing)
{
    testkit::WriteBytes(m_folder / L"old.xml", "old");
    CXMLFile file(PathOf(L"old.xml"));
    EXPECT_NO_THROW(file.SaveDocument());
    EXPECT_EQ(testkit::ReadBytes(m_folder / L"old.xml"), "old");
    file.SetXMLFilePath(PathOf(L"new.xml"));
    EXPECT_NO_THROW(file.SaveDocument());
    EXPECT_FALSE(std::filesystem::exists(m_folder / L"new.xml"));
    CXMLFile withoutPath;
    EXPECT_NO_THROW(withoutPath.SaveDocument());
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(SaveDocument, WritesWhatLoadFileReadsBack)
{
    wchar_t child[] = L"child";
    CXMLFile file = Loaded("<?xml version=\"1.0\" encoding=\"UTF-8\"?><r a=\"&lt;&amp;&quot;\"><b>t</b></r>");
    file.GetDOMNodePtr(L"/r", file.m_pCurNode);
    file.CreateNode(child);
    file.SaveDocument();
    CXMLFile again(PathOf(L"document.xml"));
    ASSERT_TRUE(again.LoadFile());
    wchar_t name[] = L"a";
    EXPECT_EQ(again.GetAttrib(L"/r[b = 't'][child]", name), L"<&\"");
}

TEST_F(SaveDocument, WritesToThePathAsItIsNow)
{
    CXMLFile file = Loaded("<r/>");
    file.m_strXMLFilePath = PathOf(L"other.xml");
    file.SaveDocument();
    EXPECT_EQ(testkit::ReadBytes(m_folder / L"document.xml"), "<r/>");
    EXPECT_TRUE(testkit::ReadBytes(m_folder / L"other.xml").starts_with("<r/>"));
}

TEST_F(SaveDocument, CallsSaveOnceWithThePathAsAString)
{
    auto* const document = new CScriptedDocument;
    CXMLFile file(PathOf(L"target.xml"));
    file.m_pXMLDoc.Attach(document);
    file.SaveDocument();
    const std::wstring path(PathOf(L"target.xml"));
    EXPECT_THAT(document->m_calls, ElementsAre("save(" + testkit::Quoted(path) + ")"));
}

TEST_F(SaveDocument, TakesEverySuccessForOne)
{
    auto* const document = new CScriptedDocument;
    document->Fail("save", S_FALSE);
    CXMLFile file(PathOf(L"target.xml"));
    file.m_pXMLDoc.Attach(document);
    EXPECT_NO_THROW(file.SaveDocument());
}

TEST_F(GetXMLFileInString, GivesWhatTheDocumentSays)
{
    CXMLFile file = Loaded("<?xml version=\"1.0\"?><!--c--><r a=\"\xC3\xA9\xF0\x9F\x98\x80\"><b>t</b></r>");
    BSTR text = nullptr;
    ASSERT_EQ(file.m_pXMLDoc->get_xml(&text), S_OK);
    EXPECT_EQ(file.GetXMLFileInString(), text);
    SysFreeString(text);
    EXPECT_NE(file.GetXMLFileInString().Find(L"a=\"\u00E9\U0001F600\""), -1);
    EXPECT_NE(file.GetXMLFileInString().Find(L"<!--c-->"), -1);
}

TEST_F(GetXMLFileInString, GivesLongTextsWhole)
{
    CXMLFile file = Loaded("<r>" + std::string(1000000, 't') + "</r>");
    const CString text = file.GetXMLFileInString();
    EXPECT_GE(text.GetLength(), 1000000 + 7);
    EXPECT_NE(text.Find(L"t</r>"), -1);
}

TEST_F(LoadFile, CreatesTheDocumentByItsNameInEveryContext)
{
    testkit::WriteBytes(m_folder / L"document.xml", "<r/>");
    const CCreationCalls calls;
    if (!calls.AreNoted())
        GTEST_SKIP() << "this build imports them in another way";
    CXMLFile file(PathOf(L"document.xml"));
    EXPECT_TRUE(file.LoadFile());
    EXPECT_THAT(calls.m_names, ElementsAre(L"Msxml2.DOMDocument.6.0"));
    // In-process server and handler, local and remote server.
    EXPECT_THAT(calls.m_contexts, ElementsAre(23U));
}

TEST_F(SetXMLFilePath, SetsThePathAndNothingElse)
{
    CXMLFile file = Loaded("<r/>");
    file.m_strExtra = L"extra";
    file.m_bReadMode = true;
    IXMLDOMDocument2* const document = file.m_pXMLDoc;
    file.SetXMLFilePath(L"nowhere.xml");
    EXPECT_EQ(file.m_strXMLFilePath, L"nowhere.xml");
    EXPECT_EQ(file.m_strExtra, L"extra");
    EXPECT_TRUE(file.m_bReadMode);
    EXPECT_EQ(file.m_pXMLDoc.GetInterfacePtr(), document);
}

TEST_F(SetXMLFilePath, LoadsNothing)
{
    testkit::WriteBytes(m_folder / L"document.xml", "<r/>");
    CXMLFile file;
    file.SetXMLFilePath(PathOf(L"document.xml"));
    EXPECT_EQ(file.m_pXMLDoc.GetInterfacePtr(), nullptr);
}

TEST_F(GetXMLDocument, GivesTheDocumentWithAReferenceOfItsOwn)
{
    auto* const document = new CScriptedDocument;
    CXMLFile file;
    file.m_pXMLDoc.Attach(document);
    IXMLDOMDocument2Ptr got;
    file.GetXMLDocument(got);
    EXPECT_EQ(got.GetInterfacePtr(), document);
    EXPECT_EQ(file.m_pXMLDoc.GetInterfacePtr(), document);
    EXPECT_EQ(ReferencesOf(got), 2U);
    EXPECT_THAT(document->m_calls, IsEmpty());
}

TEST_F(GetXMLDocument, ReleasesWhatThePointerHad)
{
    const IXMLDOMDocument2Ptr other(new CScriptedDocument, false);
    IXMLDOMDocument2Ptr got = other;
    CXMLFile file = Loaded("<r/>");
    file.GetXMLDocument(got);
    EXPECT_EQ(ReferencesOf(other), 1U);
    EXPECT_EQ(got.GetInterfacePtr(), file.m_pXMLDoc.GetInterfacePtr());
}

TEST_F(GetXMLDocument, GivesNullWithoutADocument)
{
    const IXMLDOMDocument2Ptr other(new CScriptedDocument, false);
    IXMLDOMDocument2Ptr got = other;
    CXMLFile file;
    file.GetXMLDocument(got);
    EXPECT_EQ(got.GetInterfacePtr(), nullptr);
    EXPECT_EQ(ReferencesOf(other), 1U);
}

TEST_F(GetXMLDocument, IntoTheObjectsOwnPointerKeepsIt)
{
    auto* const document = new CScriptedDocument;
    CXMLFile file;
    file.m_pXMLDoc.Attach(document);
    file.GetXMLDocument(file.m_pXMLDoc);
    EXPECT_EQ(file.m_pXMLDoc.GetInterfacePtr(), document);
    EXPECT_EQ(ReferencesOf(file.m_pXMLDoc), 1U);
}

TEST_F(UnLoadFile, UndoesOneCoInitialize)
{
    std::vector<HRESULT> results;
    OnFreshThread([&results] {
        CXMLFile file;
        (void)CoInitialize(nullptr);
        file.UnLoadFile();
        results.push_back(CoInitialize(nullptr)); // S_OK: the first on this thread again
        results.push_back(CoInitialize(nullptr)); // S_FALSE: there was one before
        file.UnLoadFile();
        results.push_back(CoInitialize(nullptr)); // S_FALSE: of the two, one is left
        CoUninitialize();
        CoUninitialize();
    });
    EXPECT_THAT(results, ElementsAre(S_OK, S_FALSE, S_FALSE));
}

TEST_F(UnLoadFile, LeavesEverythingInPlaceAndSaveDocumentWorks)
{
    CXMLFile file = Loaded("<r/>");
    file.GetDOMNodePtr(L"/r", file.m_pCurNode);
    file.m_strExtra = L"extra";
    file.m_bReadMode = true;
    const CXMLFile before(file);
    ASSERT_EQ(CoInitialize(nullptr), S_FALSE);
    file.UnLoadFile();
    EXPECT_EQ(file.m_pXMLDoc.GetInterfacePtr(), before.m_pXMLDoc.GetInterfacePtr());
    EXPECT_EQ(file.m_pCurNode.GetInterfacePtr(), before.m_pCurNode.GetInterfacePtr());
    EXPECT_EQ(file.m_strXMLFilePath, PathOf(L"document.xml"));
    EXPECT_EQ(file.m_strExtra, L"extra");
    EXPECT_TRUE(file.m_bReadMode);
    file.SetXMLFilePath(PathOf(L"saved.xml"));
    file.SaveDocument();
    EXPECT_TRUE(testkit::ReadBytes(m_folder / L"saved.xml").starts_with("<r/>"));
}
