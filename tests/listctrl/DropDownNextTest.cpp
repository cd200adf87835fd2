// Drop-down lists that follow others, that cannot be opened, and that are as high as a window can be.
#include "InputTest.h"

#include "kit/ReplacedImports.h"

#include <algorithm>
#include <climits>
#include <new>

namespace
{

class NextDropDown : public InputTest
{
protected:
    void SetUp() override
    {
        InputTest::SetUp();
        AddRows(3);
    }
    // Makes a drop-down cell in the selected row, whose button is down: the next drawing opens the list.
    void MakePressed(int row, int column)
    {
        MakeCombo(row, column);
        m_list.SetCurSel(row);
        m_list.UpdateWindow();
        m_list.Record(row, column)->bComboButtonDown = TRUE;
    }
};

using DropDownFailure = NextDropDown;
using DropDownHeight = NextDropDown;
using OtherListsRelease = NextDropDown;

// Calls a function with each painting of the list.
class PaintingList : public OpenList
{
public:
    std::function<void()> onPaint;

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == WM_PAINT && onPaint)
            onPaint();
        return OpenList::WindowProc(message, wParam, lParam);
    }
};

#ifdef __MINGW32__
// Gives every drop-down list the same place, as memory that is freed and taken again may well be.
class OnePlace
{
public:
    bool IsGiven() const { return m_new.IsReplaced() && m_delete.IsReplaced(); }

private:
    static void* New(size_t size)
    {
        if (size != sizeof(CXComboList) || std::exchange(s_isTaken, true))
            return CObject::operator new(size);
        return s_place;
    }
    static void Delete(void* memory)
    {
        if (memory == s_place)
            s_isTaken = false;
        else
            CObject::operator delete(memory);
    }

    alignas(16) static inline unsigned char s_place[sizeof(CXComboList)];
    static inline bool s_isTaken = false;
    CReplacedImport m_new{"VelmAfx22.dll", "_ZN7CObjectnwEy", reinterpret_cast<void*>(&New)};
    CReplacedImport m_delete{"VelmAfx22.dll", "_ZN7CObjectdlEPv", reinterpret_cast<void*>(&Delete)};
};

// Puts a function in the place of one that the framework imports from the platform, for as long as it lives.
class ReplacedFrameworkImport
{
public:
    ReplacedFrameworkImport(const char* name, void* function, void* original)
        : m_name(name), m_original(original)
    {
        Replace(function);
    }
    ~ReplacedFrameworkImport() { Replace(m_original); }
    ReplacedFrameworkImport(const ReplacedFrameworkImport&) = delete;
    ReplacedFrameworkImport& operator=(const ReplacedFrameworkImport&) = delete;

private:
    void Replace(void* function)
    {
        const testkit::ImportReplacement replacement[] = {{"user32.dll", m_name, function}};
        EXPECT_TRUE(testkit::ReplaceImports(::GetModuleHandle(L"VelmAfx22.dll"), replacement)) << m_name;
    }

    const char* m_name;
    void* m_original;
};

int g_refusals = 0;

BOOL WINAPI FindNoClass(HINSTANCE, LPCWSTR, WNDCLASSW*)
{
    return FALSE;
}

ATOM WINAPI RegisterNoClass(const WNDCLASSW*)
{
    ++g_refusals;
    ::SetLastError(ERROR_NOT_ENOUGH_MEMORY);
    return 0;
}

HWND WINAPI CreateNoWindow(DWORD, LPCWSTR, LPCWSTR, DWORD, int, int, int, int, HWND, HMENU, HINSTANCE, void*)
{
    ++g_refusals;
    return nullptr;
}

void* NoMemoryAsFrameworkSays(size_t size)
{
    if (size != sizeof(CXComboList))
        return CObject::operator new(size);
    ++g_refusals;
    AfxThrowMemoryException();
}

void* NoMemoryAsLanguageSays(size_t size)
{
    if (size != sizeof(CXComboList))
        return CObject::operator new(size);
    ++g_refusals;
    throw std::bad_alloc();
}
#endif

} // namespace

using testing::ElementsAre;

TEST_F(NextDropDown, OpenedByTheParentThatHearsOfAChoiceStaysOpen)
{
#ifdef __MINGW32__
    const OnePlace place;
    ASSERT_TRUE(place.IsGiven());
#endif
    MakeCombo(2, 1);
    OpenCombo(1, 1);
    m_list.UnpressComboButton();
    const HWND first = m_list.m_pCombo->m_hWnd;
#ifdef __MINGW32__
    const CXComboList* const sameAddress = m_list.m_pCombo;
#endif
    React([&] { PressButton(2, 1); });
    m_list.m_pCombo->SetCurSel(2);
    Tick(3);
    EXPECT_THAT(m_parent.messages, ElementsAre(ParentMessage{WM_XLISTCTRL_COMBO_SELECTION, 1, 1}));
    EXPECT_EQ(Text(1, 1), L"two");
    ASSERT_NE(m_list.m_pCombo, nullptr);
#ifdef __MINGW32__
    EXPECT_EQ(m_list.m_pCombo, sameAddress);
#endif
    EXPECT_FALSE(::IsWindow(first));
    EXPECT_TRUE(::IsWindow(m_list.m_pCombo->m_hWnd));
    EXPECT_EQ(m_list.m_nComboItem, 2);
    m_list.UnpressComboButton();
    Tick(2);
    EXPECT_EQ(m_list.m_pCombo, nullptr);
}

TEST_F(NextDropDown, WithoutEntriesHasForgottenTheTextOfTheLast)
{
    OpenCombo(1, 1, 5, 2);
    m_list.UnpressComboButton();
    ASSERT_EQ(m_list.m_strComboOpenText, L"two");
    Tick(2);
    m_choices.RemoveAll();
    PressButton(1, 1);
    ASSERT_NE(m_list.m_pCombo, nullptr);
    EXPECT_EQ(m_list.m_strComboOpenText, L"");
}

TEST_F(DropDownHeight, IsBetween0And32767PixelsForAnyNumberOfRows)
{
    const int rowHeight = Cell(1, 1).Height() - 1;
    ASSERT_GT(rowHeight, 1);
    const int most = 32767 / rowHeight;
    for (const int rows : {INT_MIN, INT_MIN + 1, -3, -1, 0, 1, most, most + 1, INT_MAX}) {
        OpenCombo(1, 1, rows);
        const int expected =
            static_cast<int>(std::clamp<long long>(static_cast<long long>(rows) * rowHeight, 0, 32767));
        EXPECT_EQ(m_list.m_rectComboList.Height(), expected) << rows;
        CPoint bottomLine(0, Cell(1, 1).bottom);
        m_list.ClientToScreen(&bottomLine);
        EXPECT_EQ(m_list.m_rectComboList.top, bottomLine.y) << rows;
        m_list.UnpressComboButton();
    }
}

TEST_F(OtherListsRelease, WithinAReleaseDoesNothing)
{
    PaintingList lists[2];
    for (PaintingList& list : lists) {
        ASSERT_TRUE(list.Create(Style, CRect(0, 0, 200, 100), &m_parent, 2));
        list.InsertColumn(0, L"First", LVCFMT_LEFT, 100);
        list.InsertItem(0, L"row");
        list.UpdateWindow();
        list.Record(0, 0)->bComboButtonDown = TRUE;
        list.m_bComboButtonHeld = TRUE;
    }
    int paints = 0;
    lists[0].onPaint = [&] {
        ++paints;
        lists[1].UnpressComboButton();
    };
    lists[0].UnpressComboButton();
    EXPECT_EQ(paints, 1);
    EXPECT_EQ(lists[0].m_bComboButtonHeld, FALSE);
    EXPECT_EQ(lists[1].m_bComboButtonHeld, TRUE);
    EXPECT_EQ(lists[1].Record(0, 0)->bComboButtonDown, TRUE);
    lists[1].UnpressComboButton();
    EXPECT_EQ(lists[1].m_bComboButtonHeld, FALSE);
    for (PaintingList& list : lists)
        list.DestroyWindow();
}

#ifdef __MINGW32__
TEST_F(DropDownFailure, OfTheWindowClassOpensNoneAndALaterOneOpens)
{
    MakePressed(1, 1);
    g_refusals = 0;
    {
        const ReplacedFrameworkImport find("GetClassInfoW", reinterpret_cast<void*>(&FindNoClass),
                                           reinterpret_cast<void*>(&::GetClassInfoW));
        const ReplacedFrameworkImport make("RegisterClassW", reinterpret_cast<void*>(&RegisterNoClass),
                                           reinterpret_cast<void*>(&::RegisterClassW));
        m_list.UpdateSubItem(1, 1);
    }
    EXPECT_GT(g_refusals, 0);
    EXPECT_EQ(m_list.m_pCombo, nullptr);
    m_list.UpdateSubItem(1, 1);
    EXPECT_NE(m_list.m_pCombo, nullptr);
}

TEST_F(DropDownFailure, OfTheWindowOpensNoneAndALaterOneOpens)
{
    MakePressed(1, 1);
    g_refusals = 0;
    {
        const ReplacedFrameworkImport make("CreateWindowExW", reinterpret_cast<void*>(&CreateNoWindow),
                                           reinterpret_cast<void*>(&::CreateWindowExW));
        m_list.UpdateSubItem(1, 1);
    }
    EXPECT_GT(g_refusals, 0);
    EXPECT_EQ(m_list.m_pCombo, nullptr);
    m_list.UpdateSubItem(1, 1);
    EXPECT_NE(m_list.m_pCombo, nullptr);
}

TEST_F(DropDownFailure, OfTheMemoryOpensNoneAndALaterOneOpens)
{
    for (void* (*const fail)(size_t) : {&NoMemoryAsFrameworkSays, &NoMemoryAsLanguageSays}) {
        MakePressed(1, 1);
        g_refusals = 0;
        {
            const CReplacedImport make("VelmAfx22.dll", "_ZN7CObjectnwEy", reinterpret_cast<void*>(fail));
            m_list.UpdateSubItem(1, 1);
        }
        EXPECT_GT(g_refusals, 0);
        EXPECT_EQ(m_list.m_pCombo, nullptr);
        m_list.UpdateSubItem(1, 1);
        EXPECT_NE(m_list.m_pCombo, nullptr);
        m_list.Record(1, 1)->bComboButtonDown = FALSE;
        Tick(2);
    }
}
#endif
