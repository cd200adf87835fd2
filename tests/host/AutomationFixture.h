// A model with its automation and the usual objects in hand.
#pragma once

#include <memory>

#include "AutomationClient.h"
#include "automation/DispatchObject.h"
#include "automation/HostAutomation.h"

namespace hosttest
{

// Makes the tables of the classes, which are made at first use and stay.
inline void MakeClassTables()
{
    using namespace velmhost;
    for (auto table :
         {ApplicationClass, AcadStateClass, MenuGroupsClass, MenuGroupClass, PopupMenusClass, PopupMenuClass,
          PopupMenuItemClass, MenuBarClass, ToolbarsClass, ToolbarClass, ToolbarItemClass})
        ASSERT_FALSE(table().members.empty());
}

// After every test all objects must be gone.
class AutomationFixture : public testing::Test
{
protected:
    static void SetUpTestSuite() { MakeClassTables(); }
    void TearDown() override
    {
        if (!m_automation)
            return;
        EXPECT_EQ(m_automation->LiveObjects(), 0);
        EXPECT_EQ(m_automation->OutstandingReferences(), 0);
        EXPECT_EQ(m_automation->ApplicationReferences(), 0);
    }

    Object App() const { return Object(m_automation->Application()); }
    Object Groups() const { return App().Get(L"MenuGroups"); }
    Object Group() const { return Groups().Call(L"Item", 0L); }
    Object Menus() const { return Group().Get(L"Menus"); }
    Object Toolbars() const { return Group().Get(L"Toolbars"); }
    Object Bar() const { return App().Get(L"MenuBar"); }
    Object AddMenu(const wchar_t* name = L"&Tools") const { return Menus().Call(L"Add", name); }
    Object AddToolbar(const wchar_t* name = L"Draw") const { return Toolbars().Call(L"Add", name); }
    static Object AddItem(const Object& menu, const wchar_t* label)
    {
        return menu.Call(L"AddMenuItem", 99999L, label, L"m ");
    }
    static Object AddButton(const Object& toolbar, const wchar_t* name)
    {
        return toolbar.Call(L"AddToolbarButton", 99999L, name, L"help", L"m ");
    }

    velmhost::HostModel m_model;
    std::unique_ptr<velmhost::HostAutomation> m_automation =
        std::make_unique<velmhost::HostAutomation>(m_model);
};

} // namespace hosttest
