// How a load from a resource makes its document, and how that fails.
#include "CreationCalls.h"
#include "EveryException.h"
#include "LoadFileTest.h"
#include "ResourceModules.h"

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

// A scripted document in the place of the new one, and a module with the text.
class ResourceSteps : public LoadFileSteps
{
protected:
    void SetUp() override { ASSERT_NE(m_module.Module(), nullptr); }

    bool LoadResource() { return m_file.setXMLStringFromResource(101, L"XML", L"xml_resources.dll"); }

    // The calls without those that keep the document from reaching outside itself, which may come at any
    // place before the load.
    std::vector<std::string> Calls() const
    {
        std::vector<std::string> calls = m_document->m_calls;
        std::erase_if(calls, [](const std::string& call) {
            return call.starts_with("setProperty(\"ProhibitDTD\"") ||
                   call.starts_with("put_resolveExternals");
        });
        return calls;
    }

    // That the object's document is the former one, or the new one and the former one is released.
    void ExpectFormerDocument(bool isKept)
    {
        IXMLDOMDocument2* const now = m_file.m_pXMLDoc;
        EXPECT_EQ(now, isKept ? m_former : m_document);
        EXPECT_EQ(ReferencesOf(m_formerOwner), isKept ? 2U : 1U);
        EXPECT_EQ(ReferencesOf(m_owner), isKept ? 1U : 2U);
        EXPECT_THAT(m_former->m_calls, IsEmpty());
    }

    // Runs `operation` in an object with the former document, with each kind of failure that comes before
    // or after the new document is taken.
    template <class Operation>
    void WithEachFailure(Operation operation)
    {
        struct
        {
            const char* call;
            bool isFormerKept;
        } const cases[] = {
            {"setProperty(\"SelectionLanguage\"", true}, {"put_async", false}, {"loadXML", false}};
        for (const auto& one : cases) {
            SCOPED_TRACE(one.call);
            m_document->ForgetActions();
            m_document->Fail(one.call, E_ACCESSDENIED);
            m_file.m_pXMLDoc = m_formerOwner;
            operation(E_ACCESSDENIED);
            EXPECT_TRUE(m_document->m_calls.back().starts_with(one.call)) << m_document->m_calls.back();
            ExpectFormerDocument(one.isFormerKept);
        }
        m_document->m_calls.clear();
        m_document->m_isDocument2 = false;
        m_file.m_pXMLDoc = m_formerOwner;
        operation(E_NOINTERFACE);
        ExpectFormerDocument(true);
        m_supply.m_refusal = E_ACCESSDENIED;
        operation(E_ACCESSDENIED);
        ExpectFormerDocument(true);
        EXPECT_THAT(m_document->m_calls, IsEmpty());
    }

    const CLoadedModule m_module{ModulesFolder() / L"xml_resources.dll"};
};

class ResourceFailure : public ResourceSteps
{
};

class EmptyResourceFailure : public ResourceSteps
{
protected:
    void ExpectMessage()
    {
        const size_t before = Messages().size();
        EXPECT_FALSE(m_file.LoadFileFromRes());
        ASSERT_EQ(Messages().size(), before + 1);
        EXPECT_EQ(Messages().back(), L"Resource File Loading Error");
        EXPECT_THAT(m_watch.Boxes().back().buttons, ElementsAre(IDOK));
    }
};

} // namespace

TEST_F(ResourceSteps, AreInOrder)
{
    EXPECT_TRUE(LoadResource());
    EXPECT_THAT(Calls(), ElementsAre(R"(setProperty("SelectionLanguage", "XPath"))", "put_async(false)",
                                     R"(loadXML("<rules from='module'><rule/></rules>"))"));
    EXPECT_EQ(m_supply.m_created, 1);
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(ResourceSteps, WithoutAResourceAreTheSameOnTheEmptyText)
{
    EXPECT_FALSE(m_file.LoadFileFromRes());
    EXPECT_THAT(Calls(), ElementsAre(R"(setProperty("SelectionLanguage", "XPath"))", "put_async(false)",
                                     R"(loadXML(""))"));
    EXPECT_EQ(m_supply.m_created, 1);
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(ResourceSteps, AreNotTakenWithoutText)
{
    EXPECT_FALSE(m_file.setXMLStringFromResource(103, L"XML", L"xml_resources.dll"));
    EXPECT_EQ(m_supply.m_created, 0);
    EXPECT_FALSE(m_file.m_pXMLDoc);
}

TEST_F(ResourceSteps, ForbidTheDocumentToReachOutsideBeforeTheLoad)
{
    LoadResource();
    EXPECT_LT(PlaceOf("setProperty(\"ProhibitDTD\", true)"), PlaceOf("loadXML("));
    EXPECT_LT(PlaceOf("put_resolveExternals(false)"), PlaceOf("loadXML("));
    m_document->m_calls.clear();
    m_file.LoadFileFromRes();
    EXPECT_LT(PlaceOf("setProperty(\"ProhibitDTD\", true)"), PlaceOf("loadXML("));
    EXPECT_LT(PlaceOf("put_resolveExternals(false)"), PlaceOf("loadXML("));
}

TEST_F(ResourceSteps, TakeTheNewDocumentWhenItIsMadeAndBeforeTheLoad)
{
    bool isFormerAtSetting = false;
    bool isNewAtAsync = false;
    ULONG formerAtAsync = 0;
    m_document->At("setProperty(\"SelectionLanguage\"", [&] {
        isFormerAtSetting = m_file.m_pXMLDoc.GetInterfacePtr() == m_former;
        return std::nullopt;
    });
    m_document->At("put_async", [&] {
        isNewAtAsync = m_file.m_pXMLDoc.GetInterfacePtr() == m_document;
        formerAtAsync = ReferencesOf(m_formerOwner);
        return std::nullopt;
    });
    for (const bool hasText : {true, false}) {
        SCOPED_TRACE(hasText);
        isFormerAtSetting = isNewAtAsync = false;
        m_file.m_pXMLDoc = m_formerOwner;
        EXPECT_EQ(hasText ? LoadResource() : m_file.LoadFileFromRes(), hasText);
        EXPECT_TRUE(isFormerAtSetting);
        EXPECT_TRUE(isNewAtAsync);
        EXPECT_EQ(formerAtAsync, 1U);
        ExpectFormerDocument(false);
    }
}

TEST_F(ResourceSteps, GiveWhatTheLoadReports)
{
    m_document->m_isLoaded = VARIANT_FALSE;
    EXPECT_FALSE(LoadResource());
    m_document->m_isLoaded = VARIANT_TRUE;
    EXPECT_TRUE(LoadResource());
    // Not well-formed: the result code is a success as well.
    EXPECT_TRUE(m_file.setXMLStringFromResource(102, L"XML", L"xml_resources.dll"));
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(ResourceSteps, CreateTheDocumentByItsNameInEveryContext)
{
    const CCreationCalls calls;
    if (!calls.AreNoted())
        GTEST_SKIP() << "this build imports them in another way";
    EXPECT_TRUE(LoadResource());
    EXPECT_FALSE(m_file.LoadFileFromRes());
    EXPECT_THAT(calls.m_names, ElementsAre(L"Msxml2.DOMDocument.6.0", L"Msxml2.DOMDocument.6.0"));
    // In-process server and handler, local and remote server.
    EXPECT_THAT(calls.m_contexts, ElementsAre(23U, 23U));
}

TEST_F(ResourceFailure, OfAnyStepReachesTheCallerWithItsCodeAndShowsNothing)
{
    WithEachFailure([this](HRESULT expected) { EXPECT_EQ(ComFailureOf([&] { LoadResource(); }), expected); });
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(ResourceFailure, OfWhatForbidsReachingOutsideIsNone)
{
    // Not every parser knows these settings.
    m_document->Fail("setProperty(\"ProhibitDTD\"", E_INVALIDARG);
    m_document->Fail("put_resolveExternals", E_NOTIMPL);
    EXPECT_TRUE(LoadResource());
    EXPECT_FALSE(m_file.LoadFileFromRes());
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(ResourceFailure, OfAnyOtherKindReachesTheCallerToo)
{
    int kind = 0;
    m_document->At("loadXML", [&kind]() -> std::optional<HRESULT> {
        if (kind == 0)
            throw std::bad_alloc();
        if (kind == 1)
            AfxThrowMemoryException();
        throw kind;
    });
    EXPECT_THROW(LoadResource(), std::bad_alloc);
    kind = 1;
    EXPECT_THROW(LoadResource(), CMemoryException*);
    kind = 2;
    EXPECT_THROW(LoadResource(), int);
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(EmptyResourceFailure, OfAnyStepShowsTheMessageAndGivesFalse)
{
    WithEachFailure([this](HRESULT) { ExpectMessage(); });
}

TEST_F(EmptyResourceFailure, OfAnyKindIsCaught)
{
    int kind = 0;
    m_document->At("loadXML", [&kind]() -> std::optional<HRESULT> { ThrowOfKind(kind); });
    for (kind = 0; kind < ExceptionKinds; ++kind) {
        SCOPED_TRACE(kind);
        ExpectMessage();
        EXPECT_EQ(ReferencesOf(m_owner), 2U);
    }
}
