#include "AutomationFixture.h"
#include "automation/AutomatedHostApp.h"

using namespace hosttest;
using namespace velmhost;

namespace
{

// The program's application object.
CAutomatedHostApp& TestHost()
{
    return *static_cast<CAutomatedHostApp*>(AfxGetApp());
}

class AutomatedApp : public testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        MakeClassTables();
        // The one model keeps the room that it has once needed.
        TestHost().Model().InsertInMenuBar(AddMenu(), kAtEnd);
        RemoveMenus();
    }
    void TearDown() override
    {
        EXPECT_EQ(TestHost().Automation().ApplicationReferences(), 0);
        EXPECT_EQ(TestHost().Automation().LiveObjects(), 0);
    }

    static ElementId AddMenu()
    {
        return TestHost().Model().AddMenu(TestHost().Model().Groups().front()->id, L"&Driver").id;
    }
    static void RemoveMenus()
    {
        HostModel& model = TestHost().Model();
        while (!model.Groups().empty())
            model.RemoveGroup(model.Groups().front()->id);
        model.AddGroup(L"BASE", MenuGroupType::Base, L"");
    }
};

} // namespace

TEST_F(AutomatedApp, GivesTheAutomationApplicationAsItsDispatch)
{
    EXPECT_EQ(TestHost().GetIDispatch(FALSE), TestHost().Automation().Application());
}

TEST_F(AutomatedApp, ReferenceOfGetIDispatchIsTakenBackByRelease)
{
    IDispatch* dispatch = AfxGetApp()->GetIDispatch(TRUE);
    EXPECT_EQ(TestHost().Automation().ApplicationReferences(), 1);
    dispatch->AddRef();
    EXPECT_EQ(TestHost().Automation().ApplicationReferences(), 2);
    dispatch->Release();
    dispatch->Release();
    EXPECT_EQ(TestHost().Automation().ApplicationReferences(), 0);
}

TEST_F(AutomatedApp, GetIDispatchWithoutReferenceAddsNone)
{
    TestHost().GetIDispatch(FALSE);
    EXPECT_EQ(TestHost().Automation().ApplicationReferences(), 0);
}

TEST_F(AutomatedApp, QueriedInterfacesAreCountedToo)
{
    IDispatch* dispatch = TestHost().GetIDispatch(TRUE);
    IUnknown* unknown = nullptr;
    ASSERT_EQ(dispatch->QueryInterface(IID_IUnknown, reinterpret_cast<void**>(&unknown)), S_OK);
    EXPECT_EQ(TestHost().Automation().ApplicationReferences(), 2);
    unknown->Release();
    dispatch->Release();
}

TEST_F(AutomatedApp, DriverReachesTheModel)
{
    const ElementId menu = AddMenu();
    {
        COleDispatchDriver application(AfxGetApp()->GetIDispatch(TRUE));
        LPDISPATCH bar = nullptr;
        application.InvokeHelper(29, DISPATCH_PROPERTYGET, VT_DISPATCH, &bar, nullptr);
        COleDispatchDriver menuBar(bar);
        long count = -1;
        menuBar.GetProperty(0x60020002, VT_I4, &count);
        EXPECT_EQ(count, 0);
        TestHost().Model().InsertInMenuBar(menu, kAtEnd);
        menuBar.GetProperty(0x60020002, VT_I4, &count);
        EXPECT_EQ(count, 1);
    }
    RemoveMenus();
}

TEST_F(AutomatedApp, RefusalsReachADriverAsItsException)
{
    COleDispatchDriver application(AfxGetApp()->GetIDispatch(TRUE));
    try {
        LPDISPATCH documents = nullptr;
        application.InvokeHelper(32, DISPATCH_PROPERTYGET, VT_DISPATCH, &documents, nullptr);
        FAIL() << "was not refused";
    } catch (COleDispatchException* exception) {
        EXPECT_STREQ(exception->m_strSource, L"VelmHost.Application");
        EXPECT_STREQ(exception->m_strDescription, L"This host has no documents.");
        exception->Delete();
    }
}
