// The builder when the document model fails.
#include "FailingDocument.h"
#include "HostMenuTest.h"
#include "HostProgram.h"

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

const wchar_t Description[] = LR"(
    <r>
      <Menus Name="m">
        <Menu Name="c" Help="h"><Menu Name="n" Cmd="N"/></Menu>
      </Menus>
      <Toolbars Name="t">
        <Toolbar Cmd="F" ToolTip="f" ImageList="f"><Toolbar ImageList="g"/></Toolbar>
      </Toolbars>
    </r>)";

class DocumentFailure : public HostMenuTest
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

    static void ExpectBalance()
    {
        for (const auto& [name, references] : recording::References())
            EXPECT_EQ(references, 0) << testkit::Utf8(name);
    }

    // Builds with a document whose n-th such call fails; the code of the exception that comes of it, S_OK
    // without one.
    HRESULT BuildWith(DomCall call, int n, HRESULT failure)
    {
        recording::Reset();
        recording::NameApplication(ApplicationDispatch());
        HRESULT thrown = S_OK;
        CFailingDocuments documents;
        documents.Fail(call, n, failure);
        try {
            Build(Description);
        } catch (const _com_error& e) {
            thrown = e.Error();
        }
        EXPECT_TRUE(documents.Failed().has_value()) << "there is no such call";
        EXPECT_EQ(documents.LiveObjects(), 0);
        ExpectBalance();
        return thrown;
    }

private:
    long m_applicationReferences = 0;
};

} // namespace

TEST_F(DocumentFailure, IsNotThereWhenNothingFails)
{
    CFailingDocuments documents;
    Build(Description);
    EXPECT_EQ(documents.Count(DomCall::CreateDocument), 1);
    EXPECT_EQ(documents.Count(DomCall::QueryNode), 1);
    EXPECT_EQ(documents.Count(DomCall::LoadXml), 1);
    EXPECT_EQ(documents.Count(DomCall::QueryDocument2), 1);
    EXPECT_EQ(documents.Count(DomCall::SelectSingleNode), 2);
    EXPECT_EQ(documents.Count(DomCall::SelectNodes), 2);
    EXPECT_EQ(documents.LiveObjects(), 0);
    EXPECT_EQ(recording::CallCount(), 10);
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(DocumentFailure, OfTheCreationIsThrown)
{
    EXPECT_EQ(BuildWith(DomCall::CreateDocument, 1, CLASS_E_CLASSNOTAVAILABLE), CLASS_E_CLASSNOTAVAILABLE);
    EXPECT_THAT(recording::Log(), IsEmpty());
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(DocumentFailure, OfTheQueryForANodeEndsTheCallInSilence)
{
    for (const HRESULT failure : {E_NOINTERFACE, E_FAIL}) {
        EXPECT_EQ(BuildWith(DomCall::QueryNode, 1, failure), S_OK);
        EXPECT_THAT(recording::Log(), IsEmpty());
    }
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(DocumentFailure, OfLoadingIsThrown)
{
    EXPECT_EQ(BuildWith(DomCall::LoadXml, 1, E_ACCESSDENIED), E_ACCESSDENIED);
    EXPECT_THAT(recording::Log(), IsEmpty());
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(DocumentFailure, OfTheQueryForTheDocumentEndsTheCallInSilenceWhenItIsNotSupported)
{
    EXPECT_EQ(BuildWith(DomCall::QueryDocument2, 1, E_NOINTERFACE), S_OK);
    EXPECT_THAT(recording::Log(), IsEmpty());
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(DocumentFailure, OfTheQueryForTheDocumentIsThrownOtherwise)
{
    EXPECT_EQ(BuildWith(DomCall::QueryDocument2, 1, E_OUTOFMEMORY), E_OUTOFMEMORY);
    EXPECT_THAT(recording::Log(), IsEmpty());
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(DocumentFailure, OfTheSelectionOfAHolderIsThrown)
{
    EXPECT_EQ(BuildWith(DomCall::SelectSingleNode, 1, E_FAIL), E_FAIL);
    EXPECT_THAT(recording::Log(), IsEmpty());
    EXPECT_EQ(BuildWith(DomCall::SelectSingleNode, 2, E_FAIL), E_FAIL);
    EXPECT_EQ(recording::CallCount(), 3);
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(DocumentFailure, OfTheToolbarsHolderIsThrownBeforeTheFolderIsLookedUp)
{
    CFailingDocuments documents;
    documents.Fail(DomCall::SelectSingleNode, 2, E_FAIL);
    EXPECT_THROW(Build(Description, L"NoSuchModule.arx"), _com_error);
}

TEST_F(DocumentFailure, OfAHoldersAttributesIsThrown)
{
    EXPECT_EQ(BuildWith(DomCall::Attributes, 1, E_FAIL), E_FAIL);
    EXPECT_THAT(recording::Log(), IsEmpty());
}

TEST_F(DocumentFailure, OfAnEntrysAttributesCountsAsNone)
{
    // The second to be asked is the cascade: then its item is not added either.
    EXPECT_EQ(BuildWith(DomCall::Attributes, 2, E_FAIL), S_OK);
    EXPECT_THAT(recording::Log()[1], testing::HasSubstr(L"Create_ACADToolBar"));
    // The last to be asked is the button inside the fly-out.
    CFailingDocuments documents;
    recording::Reset();
    Build(Description);
    const int all = documents.Count(DomCall::Attributes);
    documents.Fail(DomCall::Attributes, 2 * all, E_FAIL);
    recording::Reset();
    Build(Description);
    EXPECT_EQ(recording::CallCount(), 9);
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(DocumentFailure, OfAnAttributesLookUpIsThrown)
{
    // Name of the holder; Name, Cmd, Help of the cascade and of the item; Name of the holder; Name, Cmd,
    // ToolTip, ImageList of the fly-out and of the button in it.
    for (int n = 1; n <= 1 + 3 + 3 + 1 + 4 + 4; ++n)
        EXPECT_EQ(BuildWith(DomCall::NamedItem, n, E_FAIL), E_FAIL) << n;
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(DocumentFailure, OfAnAttributesValueIsThrown)
{
    // As above, but only of attributes that are there.
    for (int n = 1; n <= 1 + 2 + 2 + 1 + 3 + 1; ++n)
        EXPECT_EQ(BuildWith(DomCall::NodeValue, n, E_UNEXPECTED), E_UNEXPECTED) << n;
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(DocumentFailure, OfTheSelectionOfEntriesIsThrown)
{
    EXPECT_EQ(BuildWith(DomCall::SelectNodes, 1, E_FAIL), E_FAIL);
    EXPECT_EQ(recording::CallCount(), 1);
    EXPECT_EQ(BuildWith(DomCall::SelectNodes, 2, E_FAIL), E_FAIL);
    EXPECT_EQ(recording::CallCount(), 4);
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(DocumentFailure, OfAListIsThrown)
{
    // Lists: the entries, the cascade's children, the item's; the entries, the fly-out's children, the
    // button's. Those that have nodes have one each.
    for (int n = 1; n <= 6; ++n)
        EXPECT_EQ(BuildWith(DomCall::Length, n, E_FAIL), E_FAIL) << n;
    for (int n = 1; n <= 4; ++n)
        EXPECT_EQ(BuildWith(DomCall::NextNode, n, E_FAIL), E_FAIL) << n;
    for (int n = 1; n <= 4; ++n)
        EXPECT_EQ(BuildWith(DomCall::ChildNodes, n, E_FAIL), E_FAIL) << n;
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(DocumentFailure, LeavesWhatWasAddedBeforeIt)
{
    EXPECT_EQ(BuildWith(DomCall::ChildNodes, 2, E_FAIL), E_FAIL);
    EXPECT_THAT(recording::Log(), ElementsAre(LR"(menu1 = Create_ACADMenu(app, "m"))",
                                              LR"(submenu2 = Append_SubMenu(menu1, "c"))",
                                              LR"(Append_MenuItem(submenu2, "n", "N ", null, true, false))"));
}

TEST_F(DocumentFailure, AsksForEachLengthOnceAndForThatManyNodes)
{
    CFailingDocuments documents;
    Build(LR"(<r><Menus><Menu Name="1"/><Menu Name="2"/><Menu Name="3" Cmd="c"><x/><y/></Menu></Menus></r>)",
          L"NoSuchModule.arx");
    // The selection of three, and the children of each of them.
    EXPECT_EQ(documents.Count(DomCall::Length), 4);
    EXPECT_EQ(documents.Count(DomCall::NextNode), 3 + 0 + 0 + 2);
}

TEST_F(DocumentFailure, AsksForTheLengthOfAFlyoutOnce)
{
    CFailingDocuments documents;
    Build(
        LR"(<r><Toolbars><Toolbar ImageList="a"><x ImageList="b"/><y ImageList="c"/></Toolbar></Toolbars></r>)");
    // The two selections, the fly-out's children, and the children of each of them.
    EXPECT_EQ(documents.Count(DomCall::Length), 2 + 1 + 2);
    EXPECT_EQ(documents.Count(DomCall::NextNode), 1 + 2);
}

TEST_F(DocumentFailure, OfGetAttribValIsThrown)
{
    for (const DomCall call : {DomCall::SelectSingleNode, DomCall::NodeValue}) {
        CFailingDocuments documents;
        {
            const IXMLDOMDocumentPtr document = Load(LR"(<r Name="n"/>)");
            documents.Fail(call, 1, E_ACCESSDENIED);
            wchar_t xpath[] = L"/r/@Name";
            try {
                GetAttribVal(document, xpath);
                ADD_FAILURE() << "no exception";
            } catch (const _com_error& e) {
                EXPECT_EQ(e.Error(), E_ACCESSDENIED);
            }
            // The next call does not fail.
            EXPECT_EQ(GetAttribVal(document, xpath), L"n");
        }
        EXPECT_EQ(documents.LiveObjects(), 0);
    }
}

TEST_F(DocumentFailure, AnywhereLeavesNothingBehind)
{
    int failures = 0;
    for (int n = 1;; ++n) {
        recording::Reset();
        CFailingDocuments documents;
        documents.FailAny(n, E_FAIL);
        try {
            Build(Description);
        } catch (const _com_error& e) {
            EXPECT_EQ(e.Error(), E_FAIL) << n;
        }
        EXPECT_EQ(documents.LiveObjects(), 0) << n;
        ExpectBalance();
        if (!documents.Failed())
            break;
        ++failures;
    }
    EXPECT_GT(failures, 50);
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(DocumentFailure, InOneOfTheWalkersLeavesNothingBehind)
{
    for (const auto& [text, call] : std::initializer_list<std::pair<const wchar_t*, DomCall>>{
             {LR"(<m Name="x" Help="h"><n/></m>)", DomCall::NextNode},
             {LR"(<m Name="x" Help="h"><n/></m>)", DomCall::NodeValue}})
    {
        recording::Reset();
        CFailingDocuments documents;
        {
            IXMLDOMNodePtr root;
            const IXMLDOMDocumentPtr document = Load(text);
            ASSERT_EQ(document->selectSingleNode(_bstr_t(L"/m"), &root), S_OK);
            documents.Fail(call, 1, E_FAIL);
            EXPECT_THROW(ProcessMenuNode(root, IAcadPopupMenu()), _com_error);
        }
        EXPECT_EQ(documents.LiveObjects(), 0);
        ExpectBalance();
    }
}
