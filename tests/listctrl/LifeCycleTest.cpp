// Many lists one after the other: everything that they take is given back.
#include "InputTest.h"

#include "kit/LeakGate.h"
#include "kit/Program.h"
#include "kit/Watchdog.h"

#include <winternl.h>

namespace
{

#ifdef __MINGW32__
// One of the platform's handles, of any process.
struct HandleEntry
{
    void* object;
    ULONG_PTR process;
    ULONG_PTR handle;
    ULONG access;
    USHORT creator;
    USHORT type;
    ULONG attributes;
    ULONG reserved;
};
struct HandleTable
{
    ULONG_PTR count;
    ULONG_PTR reserved;
    HandleEntry entries[1];
};

// Where GetProcessHandleCount does not count, the system's table of handles does.
long long HandlesInTable()
{
    constexpr auto extendedHandleInformation = static_cast<SYSTEM_INFORMATION_CLASS>(64);
    const auto query = reinterpret_cast<decltype(&::NtQuerySystemInformation)>(reinterpret_cast<void*>(
        ::GetProcAddress(::GetModuleHandle(L"ntdll.dll"), "NtQuerySystemInformation")));
    std::vector<ULONG_PTR> buffer(1 << 16);
    ULONG needed = 0;
    for (;;) {
        const NTSTATUS status = query(extendedHandleInformation, buffer.data(),
                                      static_cast<ULONG>(buffer.size() * sizeof(ULONG_PTR)), &needed);
        if (status >= 0)
            break;
        if (buffer.size() > (1 << 24))
            return -1;
        buffer.resize(buffer.size() * 2);
    }
    const auto table = reinterpret_cast<const HandleTable*>(buffer.data());
    long long count = 0;
    for (ULONG_PTR i = 0; i < table->count; ++i)
        count += table->entries[i].process == ::GetCurrentProcessId();
    return count;
}
#endif

long long CountHandles()
{
    DWORD count = 0;
    ::GetProcessHandleCount(::GetCurrentProcess(), &count);
#ifdef __MINGW32__
    return count != 0 ? static_cast<long long>(count) : HandlesInTable();
#else
    return count;
#endif
}

constexpr const char* Handles = "handles";

struct Holdings
{
    long long heap = testkit::CountNow(testkit::HeapBlocks);
    long long gdi = testkit::CountNow(testkit::GdiObjects);
    long long windows = testkit::CountNow(testkit::Windows);
    long long handles = testkit::CountNow(Handles);
};

class LifeCycle : public testing::Test
{
protected:
    // What the platform makes at the first use of all this and keeps is not the lists'.
    static void SetUpTestSuite()
    {
        testkit::AddCounter(Handles, &CountHandles);
        LiveInEveryWay();
    }
    static void TearDownTestSuite() { testkit::RemoveCounter(Handles); }

    // How a list comes to its end.
    enum class End
    {
        Committed,
        Escaped,
        OpenWithItsWindow,
        OpenWithItsObject,
        OpenWithItsParent,
    };
    static constexpr End Ends[] = {End::Committed, End::Escaped, End::OpenWithItsWindow,
                                   End::OpenWithItsObject, End::OpenWithItsParent};

    static Holdings HoldingsNow()
    {
        testkit::PumpPending();
        testkit::DropTemporaries();
        return Holdings();
    }

    // A window whose lists come and go, and at last take it with them.
    static void LiveInEveryWay()
    {
        CStringArray choices;
        for (const wchar_t* const choice : {L"zero", L"one", L"two"})
            choices.Add(choice);
        ListParent parent;
        ASSERT_TRUE(parent.CreateEx(0, AfxRegisterWndClass(0), L"Parent", WS_POPUP | WS_VISIBLE,
                                    CRect(20, 20, 420, 320), nullptr, 0));
        for (const End end : Ends)
            ASSERT_NO_FATAL_FAILURE(LiveOnce(parent, choices, end));
        ASSERT_EQ(parent.GetSafeHwnd(), nullptr);
    }

private:
    static void LiveOnce(CWnd& parent, CStringArray& choices, End end)
    {
        OpenList list;
        ASSERT_TRUE(list.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT, CRect(10, 10, 310, 260), &parent, 1));
        for (const int column : {0, 1, 2})
            list.InsertColumn(column, L"Column", LVCFMT_LEFT, 80);
        Fill(list, choices);
        list.SetCurSel(1);
        list.Record(1, 1)->bComboButtonDown = TRUE;
        list.UpdateSubItem(1, 1);
        ASSERT_NE(list.m_pCombo, nullptr);
        ASSERT_TRUE(::IsWindowVisible(list.m_pCombo->m_hWnd));
        Finish(list, parent, end);
    }
    static void Fill(OpenList& list, CStringArray& choices)
    {
        for (int row = 0; row < 5; ++row) {
            ASSERT_EQ(list.InsertItem(row, L"row", RGB(0, 0, 128), RGB(255, 255, 224)), row);
            list.SetItemToolTipText(row, 0, L"tip");
            list.SetBold(row, 0, TRUE);
            list.SetComboBox(row, 1, TRUE, &choices, 5, row % 3);
            list.SetCheckbox(row, 2, row % 2);
        }
        list.SetProgress(4, 0, TRUE, L"%d of 100");
        list.UpdateProgress(4, 0, 40);
    }

    static void Finish(OpenList& list, CWnd& parent, End end)
    {
        switch (end) {
        case End::Committed:
            list.SendMessage(WM_XCOMBOLIST_VK_RETURN);
            list.SendMessage(WM_TIMER, 3);
            ASSERT_EQ(list.m_pCombo, nullptr);
            list.DestroyWindow();
            break;
        case End::Escaped:
            list.SendMessage(WM_XCOMBOLIST_VK_ESCAPE);
            list.SendMessage(WM_TIMER, 2);
            ASSERT_EQ(list.m_pCombo, nullptr);
            list.DestroyWindow();
            break;
        case End::OpenWithItsWindow:
            list.DestroyWindow();
            break;
        case End::OpenWithItsParent:
            parent.DestroyWindow();
            break;
        case End::OpenWithItsObject:
            break;
        }
    }
};

} // namespace

TEST_F(LifeCycle, HandlesAreCounted)
{
    const long long before = testkit::CountNow(Handles);
    const HANDLE event = ::CreateEvent(nullptr, FALSE, FALSE, nullptr);
    EXPECT_EQ(testkit::CountNow(Handles), before + 1);
    ::CloseHandle(event);
    EXPECT_EQ(testkit::CountNow(Handles), before);
}

TEST_F(LifeCycle, AThousandListsWithOpenDropDownsGiveEverythingBack)
{
    // From 14 seconds to nearly a minute were seen.
    testkit::AllowTime(240);
    constexpr int lists = 1000;
    const Holdings before = HoldingsNow();
    for (int i = 0; i < lists; i += static_cast<int>(std::size(Ends)))
        ASSERT_NO_FATAL_FAILURE(LiveInEveryWay()) << i;
    const Holdings after = HoldingsNow();
    EXPECT_EQ(after.heap, before.heap);
    EXPECT_EQ(after.gdi, before.gdi);
    EXPECT_EQ(after.windows, before.windows);
    EXPECT_EQ(after.handles, before.handles);
}
