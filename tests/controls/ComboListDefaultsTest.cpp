// What a drop-down list leaves to the platform of the messages that it handles, and what it tells.
#include "ComboListTest.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace
{

// Notes which messages come to the default handling.
class PassingOnList : public OpenComboList
{
public:
    using OpenComboList::OpenComboList;

    std::vector<UINT> passedOn;

protected:
    LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        passedOn.push_back(message);
        return OpenComboList::DefWindowProc(message, wParam, lParam);
    }
};

class ComboListDefaults : public ComboListTest
{
protected:
    void SetUp() override
    {
        ComboListTest::SetUp();
        auto list = std::make_unique<PassingOnList>(&m_opener);
        m_list = list.get();
        m_combo = std::move(list);
        Open(3);
        m_list->passedOn.clear();
        m_list->m_nKillFocusCount = 0;
    }

    PassingOnList* m_list = nullptr;
};

} // namespace

TEST_F(ComboListDefaults, LossOfFocusGoesToThePlatformToo)
{
    m_list->SendMessage(WM_KILLFOCUS);
    EXPECT_THAT(m_list->passedOn, ElementsAre(WM_KILLFOCUS));
    EXPECT_THAT(m_opener.told, IsEmpty());
}

TEST_F(ComboListDefaults, PressOnTheWindowGoesToThePlatformToo)
{
    m_list->SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(3, 4));
    EXPECT_THAT(m_list->passedOn, ElementsAre(WM_LBUTTONDOWN));
}

TEST_F(ComboListDefaults, PressOnTheWindowIsToldWithoutParameters)
{
    m_list->SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(3, 4));
    EXPECT_THAT(m_opener.told, ElementsAre("button"));
    EXPECT_THAT(m_opener.parameters, ElementsAre(std::pair<WPARAM, LPARAM>(0, 0)));
}

TEST_F(ComboListDefaults, LossOfFocusIsToldWithoutParameters)
{
    for (int loss = 0; loss < 3; ++loss)
        m_list->SendMessage(WM_KILLFOCUS);
    EXPECT_THAT(m_opener.told, ElementsAre("escape"));
    EXPECT_THAT(m_opener.parameters, ElementsAre(std::pair<WPARAM, LPARAM>(0, 0)));
}
