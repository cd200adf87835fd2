#include "AutomationFixture.h"

using namespace hosttest;
using namespace velmhost;

namespace
{

using AutomationHooks = AutomationFixture;

}

TEST_F(AutomationHooks, LiveObjectsAndReferencesAreCounted)
{
    EXPECT_EQ(m_automation->LiveObjects(), 0);
    {
        const Object groups = Groups();
        EXPECT_EQ(m_automation->LiveObjects(), 1);
        EXPECT_EQ(m_automation->OutstandingReferences(), 1);
        const Object again = Groups();
        EXPECT_EQ(m_automation->LiveObjects(), 1);
        EXPECT_EQ(m_automation->OutstandingReferences(), 2);
        const Outcome walk = groups.Invoke(DISPID_NEWENUM, DISPATCH_PROPERTYGET, {});
        EXPECT_EQ(m_automation->LiveObjects(), 2);
        EXPECT_EQ(m_automation->OutstandingReferences(), 4); // it holds the collection
    }
    EXPECT_EQ(m_automation->LiveObjects(), 0);
    EXPECT_EQ(m_automation->OutstandingReferences(), 0);
}

TEST_F(AutomationHooks, ReferencesToTheApplicationAreCountedApart)
{
    EXPECT_EQ(m_automation->ApplicationReferences(), 0);
    const Object app = App();
    EXPECT_EQ(m_automation->ApplicationReferences(), 1);
    {
        const Object second = app.Get(L"Application");
        EXPECT_EQ(m_automation->ApplicationReferences(), 2);
    }
    EXPECT_EQ(m_automation->ApplicationReferences(), 1);
    EXPECT_EQ(m_automation->OutstandingReferences(), 0);
}

TEST_F(AutomationHooks, NthInvokeFailsWithItsTextsAndDoesNothing)
{
    const Object menus = Menus();
    InvokeFault fault;
    fault.scode = E_ABORT;
    fault.source = L"Somebody";
    fault.description = L"Something";
    m_automation->FailInvoke(2, fault);
    EXPECT_EQ(menus.Call(L"Add", L"a").result, S_OK);
    const Outcome failed = menus.Call(L"Add", L"b");
    EXPECT_EQ(failed.result, DISP_E_EXCEPTION);
    EXPECT_EQ(failed.scode, E_ABORT);
    EXPECT_EQ(failed.source, L"Somebody");
    EXPECT_EQ(failed.description, L"Something");
    EXPECT_EQ(menus.Call(L"Add", L"c").result, S_OK);
    EXPECT_EQ(menus.Get(L"Count").Number(), 2);
}

TEST_F(AutomationHooks, FaultMayHaveACodeInPlaceOfAResult)
{
    InvokeFault fault;
    fault.code = 1234;
    m_automation->FailInvoke(1, fault);
    const Outcome failed = App().Get(L"Name");
    EXPECT_EQ(failed.result, DISP_E_EXCEPTION);
    EXPECT_EQ(failed.code, 1234);
    EXPECT_EQ(failed.scode, 0);
}

TEST_F(AutomationHooks, FaultMayBeABareResult)
{
    InvokeFault fault;
    fault.result = RPC_E_CALL_REJECTED;
    m_automation->FailInvoke(1, fault);
    const Outcome failed = App().Get(L"Name");
    EXPECT_EQ(failed.result, RPC_E_CALL_REJECTED);
    EXPECT_EQ(failed.source, L"");
    EXPECT_EQ(App().Get(L"Name").result, S_OK);
}

TEST_F(AutomationHooks, FaultMayStay)
{
    InvokeFault fault;
    fault.result = E_FAIL;
    fault.forever = true;
    m_automation->FailInvoke(2, fault);
    EXPECT_EQ(App().Get(L"Name").result, S_OK);
    EXPECT_EQ(App().Get(L"Name").result, E_FAIL);
    EXPECT_EQ(App().Get(L"Name").result, E_FAIL);
    m_automation->FailInvoke(0, {});
    EXPECT_EQ(App().Get(L"Name").result, S_OK);
}

TEST_F(AutomationHooks, InvokesAreCounted)
{
    const unsigned before = m_automation->InvokeCount();
    App().Get(L"Name");
    Groups();
    App().Invoke(4711, DISPATCH_METHOD, {});
    EXPECT_EQ(m_automation->InvokeCount() - before, 3u);
}

TEST_F(AutomationHooks, LogNamesClassAndMember)
{
    m_automation->KeepLog(true);
    const Object toolbar = AddToolbar();
    toolbar.Put(L"Visible", false);
    EXPECT_EQ(
        m_automation->TakeLog(),
        (std::vector<std::wstring>{L"Application.MenuGroups get", L"MenuGroups.Item",
                                   L"MenuGroup.Toolbars get", L"Toolbars.Add", L"Toolbar.Visible put"}));
    m_automation->KeepLog(false);
    toolbar.Put(L"Visible", true);
    EXPECT_TRUE(m_automation->TakeLog().empty());
}
