// The builder in a program that exports its application object under the name that Visual C++ gives to
// the function, and whose application object has no automation.
#include "HostMenuTest.h"

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

CWinApp theApp;
int timesAsked = 0;

class DecoratedHost : public HostMenuTest
{
};

} // namespace

// The module definition file gives the exported name.
extern "C" CWinApp* GetApplicationOfDecoratedHost()
{
    ++timesAsked;
    return &theApp;
}

TEST_F(DecoratedHost, IsAskedForItsApplication)
{
    ASSERT_EQ(GetProcAddress(GetModuleHandleW(nullptr), "acedGetAcadWinApp"), nullptr);
    timesAsked = 0;
    Build(L"<r/>", L"NoSuchModule.arx");
    EXPECT_EQ(timesAsked, 1);
}

TEST_F(DecoratedHost, IsNotAskedWhenTheTextIsNotLoaded)
{
    timesAsked = 0;
    Build(L"<r>");
    EXPECT_EQ(timesAsked, 0);
    EXPECT_THAT(Messages(), ElementsAre(L"MenuToolbar XML is not loaded"));
}

TEST_F(DecoratedHost, WithoutAutomationIsReportedInBothPhases)
{
    timesAsked = 0;
    Build(L"<r/>");
    EXPECT_EQ(timesAsked, 1);
    EXPECT_THAT(Messages(),
                ElementsAre(L"Unable to Load Menu", L"The host application is not available.",
                            L"Unable to Load Toolbar", L"The host application is not available."));
    EXPECT_THAT(recording::Log(), IsEmpty());
}
