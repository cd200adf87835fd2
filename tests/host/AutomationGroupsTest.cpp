#include "AutomationFixture.h"
#include "kit/Files.h"

using namespace hosttest;

namespace
{

class AutomationGroups : public AutomationFixture
{
protected:
    std::wstring Write(std::string_view text)
    {
        const std::filesystem::path file = m_folder / L"menu.txt";
        testkit::WriteBytes(file, text);
        return file.wstring();
    }

    testkit::TempFolder m_folder;
};

} // namespace

TEST_F(AutomationGroups, BaseGroupIsItemZeroAndHasAName)
{
    EXPECT_EQ(Groups().Get(L"Count").Number(), 1);
    EXPECT_EQ(Group().Get(L"Name").Text(), L"BASE");
    EXPECT_EQ(Group().Get(L"Type").Number(), 0);
    EXPECT_EQ(Group().Get(L"MenuFileName").Text(), L"");
    EXPECT_EQ(Object(Groups().Call(L"Item", L"base")), Group());
    EXPECT_EQ(Object(Group().Get(L"Parent")), Groups());
    EXPECT_EQ(Object(Group().Get(L"Application")), App());
    EXPECT_EQ(Object(Menus().Get(L"Parent")), Group());
    EXPECT_EQ(Object(Toolbars().Get(L"Parent")), Group());
}

TEST_F(AutomationGroups, UnknownGroupIsAnError)
{
    ExpectRefused(Groups().Call(L"Item", 1L), DISP_E_BADINDEX);
    ExpectRefused(Groups().Call(L"Item", -1L), DISP_E_BADINDEX);
    ExpectRefused(Groups().Call(L"Item", L"OTHER"), DISP_E_BADINDEX);
}

TEST_F(AutomationGroups, LoadAddsAPartialGroup)
{
    const std::wstring file = Write("group EXTRA\nmenu &E\n");
    for (const _variant_t& baseMenu : {Missing(), _variant_t(false)}) {
        const Object group = Groups().Call(L"Load", file.c_str(), baseMenu);
        EXPECT_EQ(group.Get(L"Name").Text(), L"EXTRA");
        EXPECT_EQ(group.Get(L"Type").Number(), 1);
        EXPECT_EQ(group.Get(L"MenuFileName").Text(), file);
        EXPECT_EQ(Object(group.Get(L"Menus")).Get(L"Count").Number(), 1);
        EXPECT_EQ(Groups().Get(L"Count").Number(), 2);
        EXPECT_EQ(group.Call(L"Unload").result, S_OK);
        EXPECT_EQ(Groups().Get(L"Count").Number(), 1);
        ExpectRefused(group.Get(L"Name"), RPC_E_DISCONNECTED);
    }
    EXPECT_EQ(Object(Groups().Call(L"Load", file.c_str())).Get(L"Type").Number(), 1);
}

TEST_F(AutomationGroups, LoadWithBaseMenuReplacesTheBaseGroup)
{
    const Object old = Group();
    const Object group = Groups().Call(L"Load", Write("group NEW\n").c_str(), true);
    EXPECT_EQ(group.Get(L"Type").Number(), 0);
    EXPECT_EQ(Groups().Get(L"Count").Number(), 1);
    ExpectRefused(old.Get(L"Name"), RPC_E_DISCONNECTED);
}

TEST_F(AutomationGroups, LoadFailures)
{
    ExpectRefused(Groups().Call(L"Load", (m_folder / L"none.txt").c_str()), STG_E_FILENOTFOUND);
    ExpectRefused(Groups().Call(L"Load", Write("nonsense").c_str()), HRESULT_FROM_WIN32(ERROR_INVALID_DATA));
    ExpectRefused(Groups().Call(L"Load", Write("group BASE").c_str()),
                  HRESULT_FROM_WIN32(ERROR_ALREADY_EXISTS));
}

TEST_F(AutomationGroups, SavingIsNotSupported)
{
    ExpectRefused(Group().Call(L"Save", 0L), E_NOTIMPL);
    ExpectRefused(Group().Call(L"SaveAs", L"f", 1L), E_NOTIMPL);
    EXPECT_EQ(Group().Call(L"Save").result, DISP_E_BADPARAMCOUNT);
}

TEST_F(AutomationGroups, CollectionsOfAnUnloadedGroupFail)
{
    const Object menus = Menus(), toolbars = Toolbars(), menu = AddMenu();
    Group().Call(L"Unload");
    ExpectRefused(menus.Get(L"Count"), RPC_E_DISCONNECTED);
    ExpectRefused(menus.Call(L"Add", L"x"), RPC_E_DISCONNECTED);
    ExpectRefused(menus.Invoke(DISPID_NEWENUM, DISPATCH_PROPERTYGET, {}), RPC_E_DISCONNECTED);
    ExpectRefused(toolbars.Call(L"Item", 0L), RPC_E_DISCONNECTED);
    ExpectRefused(toolbars.Get(L"LargeButtons"), RPC_E_DISCONNECTED);
    ExpectRefused(menu.Get(L"Name"), RPC_E_DISCONNECTED);
    EXPECT_EQ(Groups().Get(L"Count").Number(), 0);
}
