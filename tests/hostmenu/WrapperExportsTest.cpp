// What VelmUtil22.dll exports of the wrappers.
#include "VelmUtil22.h"

#include <gtest/gtest.h>
#include <string>

// The names are those that this toolchain gives to the members.
#ifdef __MINGW32__

TEST(WrapperExports, AreTheFiveMembersOfEachClass)
{
    const HMODULE library = GetModuleHandleW(L"VelmUtil22.dll");
    ASSERT_NE(library, nullptr);
    for (const std::string name :
         {"IAcadApplication", "IAcadMenuGroups", "IAcadMenuGroup", "IAcadPopupMenus", "IAcadPopupMenu",
          "IAcadPopupMenuItem", "IAcadMenuBar", "IAcadToolbars", "IAcadToolbar", "IAcadToolbarItem"})
    {
        const std::string prefix = "_ZN" + std::to_string(name.size()) + name;
        for (const char* member : {"C1Ev", "C1EP9IDispatch", "C1ERKS_", "aSERKS_", "D1Ev"})
            EXPECT_NE(GetProcAddress(library, (prefix + member).c_str()), nullptr) << prefix << member;
    }
}

TEST(WrapperExports, LeaveSetVisibleToTheCompanion)
{
    const char name[] = "_ZN12IAcadToolbar10SetVisibleEi";
    EXPECT_EQ(GetProcAddress(GetModuleHandleW(L"VelmUtil22.dll"), name), nullptr);
    EXPECT_NE(GetProcAddress(GetModuleHandleW(L"CorvanUtil22.dll"), name), nullptr);
}

#endif
