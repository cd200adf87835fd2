// Random use of the list control and of the drop-down in its cells.

#include "ListWorld.h"

#include "kit/Depth.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace randomplay;

namespace
{

class RandomUse : public testing::Test
{
protected:
    // The window class of the drop-down has one device context, made with its first window and kept.
    static void SetUpTestSuite()
    {
        CWnd window;
        const LPCTSTR name = AfxRegisterWndClass(CS_SAVEBITS | CS_CLASSDC, ::LoadCursor(nullptr, IDC_ARROW));
        ASSERT_TRUE(window.CreateEx(0, name, L"", WS_POPUP | WS_VISIBLE | WS_BORDER, CRect(0, 0, 50, 50),
                                    nullptr, 0));
        const CClientDC dc(&window);
        window.DestroyWindow();
    }

    void SetUp() override
    {
        ListWorld::reactionsRun.fill(0);
        ListWorld::dropDownsOpened = 0;
    }
};

using ListControlRandomUse = RandomUse;
using DropDownRandomUse = RandomUse;

TEST_F(ListControlRandomUse, HoldsAllRules)
{
    ExpectAllHold({"list control", ListWorld::Operations(), [] { return std::make_unique<ListWorld>(); },
                   testkit::ByDepth(4000, 350000)});
    // Or the play went past what it is for.
    EXPECT_THAT(ListWorld::reactionsRun, testing::Each(testing::Gt(0u)));
    EXPECT_GT(ListWorld::dropDownsOpened, 0u);
}

TEST_F(DropDownRandomUse, HoldsAllRules)
{
    ExpectAllHold({"drop-down", ListWorld::DropDownOperations(), [] { return std::make_unique<ListWorld>(); },
                   testkit::ByDepth(3000, 200000)});
    EXPECT_GT(ListWorld::reactionsRun[static_cast<size_t>(ListWorld::Moment::ComboMessage)], 0u);
    EXPECT_GT(ListWorld::dropDownsOpened, 20u);
}

} // namespace
