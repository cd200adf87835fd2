// How loading, saving and the text of the document fail.
#include "EveryException.h"
#include "FailingBstrs.h"
#include "LoadFileTest.h"
#include "ResourceModules.h"

#include <utility>

// Not every toolchain has these.
_COM_SMARTPTR_TYPEDEF(ICreateErrorInfo, __uuidof(ICreateErrorInfo));
_COM_SMARTPTR_TYPEDEF(IErrorInfo, __uuidof(IErrorInfo));

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

using GetXMLFileInStringFailure = XmlTest;

// Error information with this description; it is left for the calling thread as well.
IErrorInfoPtr LeaveErrorInfo(const wchar_t* description)
{
    ICreateErrorInfoPtr making;
    EXPECT_EQ(CreateErrorInfo(&making), S_OK);
    making->SetDescription(const_cast<wchar_t*>(description));
    const IErrorInfoPtr info = making;
    SetErrorInfo(0, info);
    return info;
}

// What an exception carried.
struct Failure
{
    HRESULT code = S_OK;
    std::wstring description;
    IErrorInfoPtr info;
};

template <class Operation>
Failure FailureOf(Operation operation)
{
    try {
        operation();
    } catch (const _com_error& e) {
        const _bstr_t description = e.Description();
        return {e.Error(), description.length() > 0 ? std::wstring(description) : std::wstring(),
                IErrorInfoPtr(e.ErrorInfo(), false)};
    }
    return {};
}

class LoadFileFailure : public LoadFileSteps
{
protected:
    void ExpectFailureWithMessage()
    {
        const size_t before = Messages().size();
        EXPECT_FALSE(m_file.LoadFile());
        ASSERT_EQ(Messages().size(), before + 1);
        EXPECT_EQ(Messages().back(), L"XML File Loading Error");
        EXPECT_THAT(m_watch.Boxes().back().buttons, ElementsAre(IDOK));
    }

    void ExpectFormerDocument(bool isKept)
    {
        m_file.m_pXMLDoc = m_formerOwner;
        ExpectFailureWithMessage();
        IXMLDOMDocument2* const now = m_file.m_pXMLDoc;
        EXPECT_EQ(now, isKept ? m_former : m_document);
        EXPECT_EQ(ReferencesOf(m_formerOwner), isKept ? 2U : 1U);
        m_file.m_pXMLDoc = nullptr;
        EXPECT_EQ(ReferencesOf(m_owner), 1U);
    }
};

class SaveDocumentFailure : public XmlTest
{
protected:
    SaveDocumentFailure() { m_file.m_pXMLDoc = m_owner; }
    ~SaveDocumentFailure() override { SetErrorInfo(0, nullptr); }

    // Lets the save fail with error information on the thread; the caller keeps a reference to it.
    void FailWithInfo(HRESULT result)
    {
        m_document->At("save", [this, result] {
            m_info = LeaveErrorInfo(L"The disk is \u00FCber-full.");
            return std::optional<HRESULT>(result);
        });
    }

    CScriptedDocument* const m_document = new CScriptedDocument;
    const IXMLDOMDocument2Ptr m_owner{m_document, false};
    IErrorInfoPtr m_info;
    CXMLFile m_file{PathOf(L"target.xml")};
};

// Hands out a part of its text and says that it failed.
class CHalfFailingDocument : public CScriptedDocument
{
public:
    STDMETHODIMP get_xml(BSTR* text) override
    {
        *text = SysAllocString(L"<half");
        return E_FAIL;
    }
};

} // namespace

TEST_F(LoadFileFailure, WithoutComShowsAMessageAndGivesFalse)
{
    bool isLoaded = true;
    bool hasDocument = true;
    std::vector<std::wstring> messages;
    OnFreshThread([&] {
        const testkit::MessageBoxWatch watch;
        CXMLFile file(PathOf(L"document.xml"));
        isLoaded = file.LoadFile();
        hasDocument = file.m_pXMLDoc.GetInterfacePtr() != nullptr;
        messages = watch.Texts();
    });
    EXPECT_FALSE(isLoaded);
    EXPECT_FALSE(hasDocument);
    EXPECT_THAT(messages, ElementsAre(L"XML File Loading Error"));
}

TEST_F(LoadFileFailure, OfTheCreationKeepsTheFormerDocument)
{
    m_supply.m_refusal = E_ACCESSDENIED;
    ExpectFormerDocument(true);
    EXPECT_THAT(m_document->m_calls, IsEmpty());
}

TEST_F(LoadFileFailure, OfTheQueryForTheDocumentKeepsTheFormerDocument)
{
    m_document->m_isDocument2 = false;
    ExpectFormerDocument(true);
    EXPECT_THAT(m_document->m_calls, IsEmpty());
}

TEST_F(LoadFileFailure, BeforeTheNewDocumentIsTakenKeepsTheFormerDocument)
{
    for (const char* call : {"setProperty(\"SelectionLanguage\"", "createProcessingInstruction",
                             "appendChild", "get_parseError"})
    {
        SCOPED_TRACE(call);
        m_document->ForgetActions();
        m_document->Fail(call, E_ACCESSDENIED);
        ExpectFormerDocument(true);
        EXPECT_TRUE(m_document->m_calls.back().starts_with(call)) << m_document->m_calls.back();
    }
}

TEST_F(LoadFileFailure, OfTheReasonKeepsTheFormerDocument)
{
    auto* const reason = new CReason(L"reason");
    const IXMLDOMParseErrorPtr owner(reason, false);
    reason->m_answer = E_FAIL;
    m_document->m_parseError = reason;
    ExpectFormerDocument(true);
}

TEST_F(LoadFileFailure, AfterTheNewDocumentIsTakenLeavesTheNewOne)
{
    for (const char* call : {"put_async", "load"}) {
        SCOPED_TRACE(call);
        m_document->ForgetActions();
        m_document->Fail(call, E_ACCESSDENIED);
        ExpectFormerDocument(false);
        EXPECT_TRUE(m_document->m_calls.back().starts_with(call)) << m_document->m_calls.back();
    }
}

TEST_F(LoadFileFailure, AfterTheNewDocumentIsTakenLeavesItWithItsDeclaration)
{
    m_document->m_parseError = new CReason(L"");
    const IXMLDOMParseErrorPtr owner(m_document->m_parseError, false);
    for (const char* call : {"put_async", "load"}) {
        SCOPED_TRACE(call);
        VARIANT_BOOL isLoaded = VARIANT_FALSE;
        m_document->m_real->loadXML(_bstr_t(L""), &isLoaded); // empty again
        m_document->ForgetActions();
        m_document->Fail(call, E_ACCESSDENIED);
        ExpectFailureWithMessage();
        CXMLFile left;
        left.m_pXMLDoc = m_document->m_real;
        EXPECT_THAT(NamesOfChildren(left), ElementsAre(L"xml"));
    }
}

TEST_F(LoadFileFailure, OfWhatForbidsReachingOutsideIsNone)
{
    // Not every parser knows these settings.
    m_document->Fail("setProperty(\"ProhibitDTD\"", E_INVALIDARG);
    m_document->Fail("put_resolveExternals", E_NOTIMPL);
    EXPECT_TRUE(m_file.LoadFile());
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(LoadFileFailure, OfAnyKindOfExceptionIsCaught)
{
    int kind = 0;
    m_document->At("load", [&kind]() -> std::optional<HRESULT> { ThrowOfKind(kind); });
    for (kind = 0; kind < ExceptionKinds; ++kind) {
        SCOPED_TRACE(kind);
        ExpectFailureWithMessage();
        EXPECT_EQ(ReferencesOf(m_owner), 2U);
    }
}

TEST_F(LoadFileFailure, OfAnyTextAllocationIsCaught)
{
    int failures = 0;
    for (;; ++failures) {
        const CFailingBstrs bstrs(failures);
        if (!bstrs.AreReplaced())
            GTEST_SKIP() << "this build imports them in another way";
        const bool isLoaded = m_file.LoadFile();
        EXPECT_NE(isLoaded, bstrs.HasFailed()) << failures;
        if (!bstrs.HasFailed())
            break;
        m_file.m_pXMLDoc = nullptr;
        EXPECT_EQ(ReferencesOf(m_owner), 1U);
    }
    // "SelectionLanguage", "XPath", "xml", the declaration's data and the path at least.
    EXPECT_GE(failures, 5);
    EXPECT_THAT(Messages(),
                testing::AllOf(testing::SizeIs(failures), testing::Each(L"XML File Loading Error")));
}

TEST_F(SaveDocumentFailure, ReachesTheCallerWithItsCodeAndShowsNothing)
{
    HRESULT result = S_OK;
    m_document->At("save", [&result] { return std::optional<HRESULT>(result); });
    for (const HRESULT each : {E_ACCESSDENIED, E_FAIL, HRESULT_FROM_WIN32(ERROR_DISK_FULL)}) {
        result = each;
        EXPECT_EQ(ComFailureOf([&] { m_file.SaveDocument(); }), each);
        EXPECT_EQ(m_file.m_pXMLDoc.GetInterfacePtr(), m_document);
        EXPECT_EQ(ReferencesOf(m_owner), 2U);
    }
    EXPECT_THAT(m_document->m_calls, testing::SizeIs(3));
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(SaveDocumentFailure, CarriesTheErrorInformationOfTheDocument)
{
    m_document->m_hasErrorInfo = true;
    FailWithInfo(E_ACCESSDENIED);
    {
        const Failure failure = FailureOf([&] { m_file.SaveDocument(); });
        EXPECT_EQ(failure.code, E_ACCESSDENIED);
        EXPECT_EQ(failure.description, L"The disk is \u00FCber-full.");
        EXPECT_EQ(failure.info.GetInterfacePtr(), m_info.GetInterfacePtr());
    }
    EXPECT_EQ(ReferencesOf(m_info), 1U);
}

TEST_F(SaveDocumentFailure, CarriesNoErrorInformationThatIsNotTheDocuments)
{
    m_document->m_hasErrorInfo = false;
    FailWithInfo(E_ACCESSDENIED);
    const Failure failure = FailureOf([&] { m_file.SaveDocument(); });
    EXPECT_EQ(failure.code, E_ACCESSDENIED);
    EXPECT_EQ(failure.description, L"");
    EXPECT_EQ(failure.info.GetInterfacePtr(), nullptr);
}

TEST_F(SaveDocumentFailure, CarriesNoneWhereTheDocumentLeftNone)
{
    m_document->m_hasErrorInfo = true;
    m_document->Fail("save", E_ACCESSDENIED);
    const Failure failure = FailureOf([&] { m_file.SaveDocument(); });
    EXPECT_EQ(failure.code, E_ACCESSDENIED);
    EXPECT_EQ(failure.info.GetInterfacePtr(), nullptr);
}

TEST_F(SaveDocumentFailure, OfThePathsAllocationIsOutOfMemory)
{
    const CFailingBstrs bstrs(0);
    if (!bstrs.AreReplaced())
        GTEST_SKIP() << "this build imports them in another way";
    EXPECT_EQ(ComFailureOf([&] { m_file.SaveDocument(); }), E_OUTOFMEMORY);
    EXPECT_THAT(m_document->m_calls, IsEmpty());
}

TEST_F(GetXMLFileInStringFailure, WithoutADocumentRaisesPointer)
{
    CXMLFile file;
    EXPECT_EQ(ComFailureOf([&] { file.GetXMLFileInString(); }), E_POINTER);
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(GetXMLFileInStringFailure, IgnoresAFailureAndIsEmptyThen)
{
    auto* const document = new CScriptedDocument;
    CXMLFile file;
    file.m_pXMLDoc.Attach(document);
    document->Fail("get_xml", E_OUTOFMEMORY);
    CString text = L"before";
    EXPECT_NO_THROW(text = file.GetXMLFileInString());
    EXPECT_EQ(text, L"");
    EXPECT_THAT(document->m_calls, ElementsAre("get_xml()"));
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(GetXMLFileInStringFailure, IsEmptyAlsoWhereTextWasHandedOut)
{
    CXMLFile file;
    file.m_pXMLDoc.Attach(new CHalfFailingDocument);
    CString text = L"before";
    EXPECT_NO_THROW(text = file.GetXMLFileInString());
    EXPECT_EQ(text, L"");
    EXPECT_THAT(Messages(), IsEmpty());
}
