#include "SurvivalGround.h"

#include <algorithm>

namespace
{

struct Block
{
    void* memory;
    size_t size;
    bool isFreed;
};

std::vector<Block> g_blocks;

void Replace(const wchar_t* module, const char* name, void* function)
{
    const testkit::ImportReplacement replacement[] = {{"user32.dll", name, function}};
    if (const HMODULE handle = ::GetModuleHandle(module))
        testkit::ReplaceImports(handle, replacement);
}

} // namespace

void* OwnPages::Take(size_t size)
{
    void* const memory = ::VirtualAlloc(nullptr, size, MEM_COMMIT | MEM_RESERVE, PAGE_READWRITE);
    if (memory != nullptr)
        g_blocks.push_back({memory, size, false});
    return memory;
}

bool OwnPages::Free(void* memory)
{
    const auto block = std::find_if(g_blocks.begin(), g_blocks.end(),
                                    [memory](const Block& candidate) { return candidate.memory == memory; });
    if (block == g_blocks.end())
        return false;
    EXPECT_FALSE(std::exchange(block->isFreed, true)) << "freed twice";
    ::VirtualFree(memory, block->size, MEM_DECOMMIT);
    return true;
}

size_t OwnPages::Count()
{
    return static_cast<size_t>(
        std::count_if(g_blocks.begin(), g_blocks.end(), [](const Block& block) { return !block.isFreed; }));
}

bool OwnPages::IsFreed(const void* address)
{
    const auto place = static_cast<const char*>(address);
    return std::any_of(g_blocks.begin(), g_blocks.end(), [place](const Block& block) {
        const auto begin = static_cast<const char*>(block.memory);
        return block.isFreed && begin <= place && place < begin + block.size;
    });
}

void OwnPages::Release()
{
    for (const Block& block : std::exchange(g_blocks, {}))
        ::VirtualFree(block.memory, 0, MEM_RELEASE);
}

GuardedMemory::GuardedMemory() : m_handler(::AddVectoredExceptionHandler(TRUE, &NoteTouch))
{
    s_touches = 0;
}

GuardedMemory::~GuardedMemory()
{
    ::RemoveVectoredExceptionHandler(m_handler);
    EXPECT_EQ(s_touches, 0) << "touched after its end";
    EXPECT_EQ(OwnPages::Count(), 0u) << "not freed";
    OwnPages::Release();
}

LONG CALLBACK GuardedMemory::NoteTouch(EXCEPTION_POINTERS* exception)
{
    const EXCEPTION_RECORD& record = *exception->ExceptionRecord;
    if (record.ExceptionCode == EXCEPTION_ACCESS_VIOLATION &&
        OwnPages::IsFreed(reinterpret_cast<const void*>(record.ExceptionInformation[1])))
        ++s_touches;
    return EXCEPTION_CONTINUE_SEARCH;
}

bool GuardedMemory::IsGuarded() const
{
#ifdef __MINGW32__
    return m_newRecords.IsReplaced() && m_deleteRecords.IsReplaced() && m_newObject.IsReplaced() &&
           m_deleteObject.IsReplaced();
#else
    return true;
#endif
}

#ifdef __MINGW32__
void* GuardedMemory::NewRecords(size_t size, const std::nothrow_t&)
{
    return OwnPages::Take(size);
}

void GuardedMemory::DeleteRecords(void* memory)
{
    if (!OwnPages::Free(memory))
        ::operator delete(memory);
}

void* GuardedMemory::NewObject(size_t size)
{
    return size == sizeof(CXComboList) ? OwnPages::Take(size) : CObject::operator new(size);
}

void GuardedMemory::DeleteObject(void* memory)
{
    if (!OwnPages::Free(memory))
        CObject::operator delete(memory);
}
#endif

void GuardedList::After(UINT message, std::function<void()> function)
{
    s_message = message;
    s_function = std::move(function);
}

LRESULT GuardedList::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    const LRESULT result = OpenList::DefWindowProc(message, wParam, lParam);
    // From here on the list may be gone.
    if (s_function && message == s_message)
        std::exchange(s_function, nullptr)();
    return result;
}

NullWindowCalls::NullWindowCalls()
{
    Replace(L"VelmUtil22.dll", "InvalidateRect", reinterpret_cast<void*>(&Invalidate));
    Replace(L"VelmUtil22.dll", "UpdateWindow", reinterpret_cast<void*>(&Update));
    Replace(L"VelmUtil22.dll", "SetTimer", reinterpret_cast<void*>(&Start));
    Replace(L"VelmAfx22.dll", "GetDC", reinterpret_cast<void*>(&Get));
}

NullWindowCalls::~NullWindowCalls()
{
    Replace(L"VelmUtil22.dll", "InvalidateRect", reinterpret_cast<void*>(&::InvalidateRect));
    Replace(L"VelmUtil22.dll", "UpdateWindow", reinterpret_cast<void*>(&::UpdateWindow));
    Replace(L"VelmUtil22.dll", "SetTimer", reinterpret_cast<void*>(&::SetTimer));
    Replace(L"VelmAfx22.dll", "GetDC", reinterpret_cast<void*>(&::GetDC));
    Take();
}

BOOL WINAPI NullWindowCalls::Invalidate(HWND window, const RECT* rect, BOOL erase)
{
    Note("InvalidateRect", window);
    return ::InvalidateRect(window, rect, erase);
}

BOOL WINAPI NullWindowCalls::Update(HWND window)
{
    Note("UpdateWindow", window);
    return ::UpdateWindow(window);
}

UINT_PTR WINAPI NullWindowCalls::Start(HWND window, UINT_PTR id, UINT period, TIMERPROC procedure)
{
    Note("SetTimer", window);
    return window != nullptr ? ::SetTimer(window, id, period, procedure) : 0;
}

HDC WINAPI NullWindowCalls::Get(HWND window)
{
    Note("GetDC", window);
    return ::GetDC(window);
}

void SurvivalTest::SetUp()
{
    InputTest::SetUp();
    ASSERT_TRUE(IsGuarded());
    m_list.DestroyWindow();
    m_victim.reset(new GuardedList);
    ASSERT_TRUE(m_victim->Create(Style, CRect(10, 10, 310, 260), &m_parent, 2));
    m_window = m_victim->m_hWnd;
    m_victim->SetExtendedStyle(LVS_EX_FULLROWSELECT);
    for (const int column : {0, 1, 2})
        m_victim->InsertColumn(column, L"Column", LVCFMT_LEFT, 80);
    for (const int row : {0, 1, 2})
        ASSERT_EQ(m_victim->InsertItem(row, L"row"), row);
    m_victim->UpdateWindow();
    m_parent.SetFocus();
    NullWindowCalls::Take();
}

void SurvivalTest::TearDown()
{
    GuardedList::After(0, nullptr);
    m_probe.reset();
    m_victim.reset();
    InputTest::TearDown();
}

void SurvivalTest::TakeAway()
{
    ++m_losses;
    if (GetParam() == Loss::Window)
        m_victim->DestroyWindow();
    else
        m_victim.reset();
}

void SurvivalTest::TakeAfter(UINT message)
{
    GuardedList::After(message, [this] { TakeAway(); });
}

void SurvivalTest::TakeWhen(Condition condition)
{
    m_probe = std::make_unique<MessageProbe>(m_parent.m_hWnd,
                                             [this, condition](UINT message, WPARAM wParam, LPARAM lParam) {
                                                 if (m_losses == 0 && condition(message, wParam, lParam))
                                                     TakeAway();
                                             });
}

SurvivalTest::Condition SurvivalTest::Notification(UINT code)
{
    return [code](UINT message, WPARAM, LPARAM lParam) {
        return message == WM_NOTIFY && reinterpret_cast<const NMHDR*>(lParam)->code == code;
    };
}

void SurvivalTest::ExpectSurvived()
{
    EXPECT_EQ(m_losses, 1);
    EXPECT_FALSE(::IsWindow(m_window));
    EXPECT_THAT(NullWindowCalls::Take(), testing::IsEmpty());
}

CRect SurvivalTest::CellOf(int row, int column)
{
    CRect rect;
    m_victim->GetSubItemRect(row, column, LVIR_BOUNDS, rect);
    return rect;
}

void SurvivalTest::MakeDropDown(int row, int column)
{
    ASSERT_TRUE(m_victim->SetComboBox(row, column, TRUE, &m_choices, 5, 0));
    m_victim->SetCurSel(row);
    m_victim->UpdateWindow();
}

void SurvivalTest::OpenDropDown(int row, int column)
{
    MakeDropDown(row, column);
    PressAt(ButtonOf(row, column));
    m_victim->UpdateWindow();
    ASSERT_NE(m_victim->m_pCombo, nullptr);
    m_victim->UnpressComboButton();
    // The press has given the focus to the list.
    Send(WM_TIMER, 1);
    ASSERT_EQ(::GetParent(::GetFocus()), m_victim->m_pCombo->m_hWnd);
}

void SurvivalTest::DrawDropDown(int row, int column, bool isDown)
{
    XLISTCTRLDATA* const record = m_victim->Record(row, column);
    record->bComboButtonDown = isDown;
    CClientDC dc(&m_parent);
    CRect cell = CellOf(row, column);
    m_victim->DrawComboBox(row, column, &dc, RGB(0, 0, 0), RGB(255, 255, 255), cell, record - column);
}

void SurvivalTest::ClickColumn(int column)
{
    NMLISTVIEW click = {};
    click.hdr = {m_window, 2, static_cast<UINT>(LVN_COLUMNCLICK)};
    click.iItem = -1;
    click.iSubItem = column;
    m_parent.SendMessage(WM_NOTIFY, 2, reinterpret_cast<LPARAM>(&click));
}
