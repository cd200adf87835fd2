#include "ProgressDialogTest.h"

#include <climits>
#include <tuple>
#include <utility>

using testing::ElementsAre;
using testing::IsEmpty;

namespace
{

// While it lives, notes the messages of the progress bar's own range that reach the window.
class BarMessages
{
public:
    using Message = std::tuple<UINT, WPARAM, LPARAM>;

    explicit BarMessages(HWND bar) : m_bar(bar)
    {
        s_messages = &m_messages;
        s_before = reinterpret_cast<WNDPROC>(
            SetWindowLongPtrW(bar, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Procedure)));
    }
    ~BarMessages() { SetWindowLongPtrW(m_bar, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(s_before)); }
    BarMessages(const BarMessages&) = delete;
    BarMessages& operator=(const BarMessages&) = delete;

    std::vector<Message> Taken() { return std::exchange(m_messages, {}); }

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
    {
        if (PBM_SETRANGE <= message && message <= PBM_SETSTATE)
            s_messages->push_back({message, wParam, lParam});
        return CallWindowProcW(s_before, window, message, wParam, lParam);
    }

    static inline std::vector<Message>* s_messages = nullptr;
    static inline WNDPROC s_before = nullptr;
    HWND m_bar;
    std::vector<Message> m_messages;
};

class ProgressDialogBar : public ProgressDialog
{
};
class ProgressDialogStatus : public ProgressDialog
{
};

} // namespace

TEST_F(ProgressDialogBar, TenStepsOfTenFillIt)
{
    Create();
    m_dialog->Set(0, 100, 10);
    for (int step = 1; step <= 10; ++step) {
        m_dialog->MoveNextStep();
        EXPECT_EQ(Position(), 10 * step);
    }
}

TEST_F(ProgressDialogBar, StepPastTheEndBeginsAnewAsThePlatformsBarDoes)
{
    Create();
    const HWND plain =
        CreateWindowExW(0, PROGRESS_CLASSW, L"", WS_CHILD, 0, 0, 90, 9, m_parent, nullptr, nullptr, nullptr);
    ::SendMessageW(plain, PBM_SETRANGE, 0, MAKELPARAM(20, 100));
    ::SendMessageW(plain, PBM_SETSTEP, 30, 0);
    m_dialog->Set(20, 100, 30);
    std::vector<int> positions, expected;
    for (int step = 0; step < 6; ++step) {
        m_dialog->MoveNextStep();
        ::SendMessageW(plain, PBM_STEPIT, 0, 0);
        positions.push_back(Position());
        expected.push_back(static_cast<int>(::SendMessageW(plain, PBM_GETPOS, 0, 0)));
    }
    EXPECT_EQ(positions, expected);
    // From 20 to 50 and 80; the third step would lead to 110.
    EXPECT_EQ(positions[0], 50);
    EXPECT_EQ(positions[1], 80);
    EXPECT_GE(positions[2], 20);
    EXPECT_LT(positions[2], 50);
}

TEST_F(ProgressDialogBar, PositionIsSetWithinTheRange)
{
    Create();
    m_dialog->Set(10, 60, 1);
    m_dialog->SetPos(33);
    EXPECT_EQ(Position(), 33);
    m_dialog->SetPos(61);
    EXPECT_EQ(Position(), 60);
    m_dialog->SetPos(9);
    EXPECT_EQ(Position(), 10);
}

TEST_F(ProgressDialogBar, RangeOfTheLargestNumberIsHeld)
{
    Create();
    m_dialog->Set(0, SHRT_MAX, SHRT_MAX);
    m_dialog->MoveNextStep();
    EXPECT_EQ(Position(), SHRT_MAX);
}

TEST_F(ProgressDialogBar, GetsRangeAndStepInTheirMessages)
{
    Create();
    BarMessages messages(Control(BarNumber));
    const auto expect = [&](short lower, short upper, short step, LPARAM range, WPARAM stride) {
        m_dialog->Set(lower, upper, step);
        EXPECT_THAT(messages.Taken(), ElementsAre(BarMessages::Message(PBM_SETRANGE, 0, range),
                                                  BarMessages::Message(PBM_SETSTEP, stride, 0)));
    };
    expect(1, 0x1234, 7, 0x12340001, 7);
    expect(0, SHRT_MAX, SHRT_MAX, 0x7FFF0000, 0x7FFF);
    expect(SHRT_MIN, -1, -1, static_cast<LPARAM>(0xFFFF8000u), static_cast<WPARAM>(-1ll));
    expect(SHRT_MAX, SHRT_MIN, SHRT_MIN, static_cast<LPARAM>(0x80007FFFu), static_cast<WPARAM>(-32768ll));
    expect(0, 0, 0, 0, 0);
}

TEST_F(ProgressDialogBar, GetsPositionAndStepsInTheirMessages)
{
    Create();
    BarMessages messages(Control(BarNumber));
    for (const int position : {0, 70000, INT_MAX}) {
        m_dialog->SetPos(position);
        EXPECT_THAT(messages.Taken(),
                    ElementsAre(BarMessages::Message(PBM_SETPOS, static_cast<WPARAM>(position), 0)));
    }
    for (const int position : {-1, INT_MIN}) {
        m_dialog->SetPos(position);
        const std::vector<BarMessages::Message> taken = messages.Taken();
        ASSERT_EQ(taken.size(), 1u);
        EXPECT_EQ(std::get<0>(taken[0]), static_cast<UINT>(PBM_SETPOS));
        EXPECT_EQ(static_cast<int>(std::get<1>(taken[0])), position);
    }
    m_dialog->MoveNextStep();
    EXPECT_THAT(messages.Taken(), ElementsAre(BarMessages::Message(PBM_STEPIT, 0, 0)));
}

TEST_F(ProgressDialogBar, IsNotTouchedByTheLine)
{
    Create();
    BarMessages messages(Control(BarNumber));
    wchar_t text[] = L"text";
    m_dialog->SetStatusInfo(text);
    EXPECT_THAT(messages.Taken(), IsEmpty());
}

TEST_F(ProgressDialogBar, MembersDoNothingWithoutWindow)
{
    CDlgProgressBar dialog;
    dialog.Set(0, 100, 10);
    dialog.SetPos(5);
    dialog.MoveNextStep();
    EXPECT_EQ(dialog.m_hWnd, nullptr);
    ASSERT_TRUE(dialog.CreateNonModal(&m_parent));
    EXPECT_EQ(dialog.m_ProgressCtrl.GetPos(), 0);
    dialog.DestroyWindow();
    dialog.SetPos(5);
    EXPECT_EQ(dialog.m_hWnd, nullptr);
}

TEST_F(ProgressDialogStatus, IsEmptyAfterCreation)
{
    Create();
    EXPECT_EQ(Status(), L"");
    EXPECT_EQ(m_dialog->m_strStatus, L"");
}

TEST_F(ProgressDialogStatus, BeginsWithTheMembersText)
{
    m_dialog = std::make_unique<OpenProgress>();
    m_dialog->m_strStatus = L"ready";
    ASSERT_TRUE(m_dialog->CreateNonModal(&m_parent));
    EXPECT_EQ(Status(), L"ready");
}

TEST_F(ProgressDialogStatus, IsSetAsWindowTextAndLeavesTheMemberAlone)
{
    Create();
    m_dialog->m_strStatus = L"member";
    for (const wchar_t* const text : {L"50%", L"caf\u00E9", L"", L"a && b\nc"}) {
        std::wstring changeable(text);
        m_dialog->SetStatusInfo(changeable.data());
        EXPECT_EQ(Status(), text);
        EXPECT_EQ(changeable, text);
    }
    EXPECT_EQ(m_dialog->m_strStatus, L"member");
}

TEST_F(ProgressDialogStatus, NullEmptiesIt)
{
    Create();
    wchar_t text[] = L"text";
    m_dialog->SetStatusInfo(text);
    m_dialog->SetStatusInfo(nullptr);
    EXPECT_EQ(Status(), L"");
}

TEST_F(ProgressDialogStatus, ExchangeGoesBothWays)
{
    Create();
    wchar_t text[] = L"from the line";
    m_dialog->SetStatusInfo(text);
    ASSERT_TRUE(m_dialog->UpdateData(TRUE));
    EXPECT_EQ(m_dialog->m_strStatus, L"from the line");
    m_dialog->m_strStatus = L"from the member";
    ASSERT_TRUE(m_dialog->UpdateData(FALSE));
    EXPECT_EQ(Status(), L"from the member");
}

TEST_F(ProgressDialogStatus, MissingLineIsNoMatter)
{
    Create();
    ::DestroyWindow(Control(StatusNumber));
    wchar_t text[] = L"text";
    m_dialog->SetStatusInfo(text);
    m_dialog->SetStatusInfo(nullptr);
    EXPECT_EQ(TextOf(*m_dialog), L"");
    EXPECT_EQ(TextOf(Control(BarNumber)), L"Progress1");
}

TEST_F(ProgressDialogStatus, CallWithoutWindowDoesNothing)
{
    CDlgProgressBar dialog;
    wchar_t text[] = L"text";
    dialog.SetStatusInfo(text);
    dialog.SetStatusInfo(nullptr);
    ASSERT_TRUE(dialog.CreateNonModal(&m_parent));
    EXPECT_EQ(TextOf(::GetDlgItem(dialog, StatusNumber)), L"");
    dialog.DestroyWindow();
    dialog.SetStatusInfo(text);
    EXPECT_EQ(dialog.m_strStatus, L"");
}
