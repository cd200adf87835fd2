#include "ComboListTest.h"

#include <array>

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace
{

CRect InParent(CWnd& child)
{
    CRect rect;
    child.GetWindowRect(&rect);
    child.GetParent()->ScreenToClient(&rect);
    return rect;
}

class ComboListLayout : public ComboListTest
{
protected:
    // What the layout has to be for a window of that height and style, in items of the list's height.
    void ExpectLaidOut(int height, DWORD style)
    {
        m_combo = std::make_unique<OpenComboList>(&m_opener);
        Open(30, height, style);
        CRect before, client;
        m_combo->GetWindowRect(&before);
        m_combo->GetClientRect(&client);
        const int itemHeight = ItemHeight();
        ASSERT_GT(itemHeight, 1);
        const int listHeight = std::min(15 * itemHeight, before.Height() / itemHeight * itemHeight);

        m_combo->SetActive(BarWidth);

        CRect after;
        m_combo->GetWindowRect(&after);
        EXPECT_EQ(after, CRect(before.TopLeft(), CSize(before.Width(), listHeight + 4)));
        const CRect list(CPoint(1, 1), CSize(client.Width() - 1 - BarWidth, listHeight));
        EXPECT_EQ(InParent(m_combo->m_ListBox), list);
        EXPECT_EQ(InParent(m_combo->m_wndSBVert), CRect(CPoint(list.right, 1), CSize(BarWidth, listHeight)));
        EXPECT_EQ(BarInfo().nPage, static_cast<UINT>(listHeight / itemHeight));
        m_combo->DestroyWindow();
    }
};

HFONT MakeFont(int height)
{
    return CreateFontW(height, 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, DEFAULT_CHARSET, OUT_DEFAULT_PRECIS,
                       CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY, DEFAULT_PITCH, L"Tahoma");
}

} // namespace

TEST(ComboListObject, MembersHaveTheirDefaults)
{
    CWnd parent;
    const OpenComboList combo(&parent);
    EXPECT_EQ(combo.m_pParent, &parent);
    EXPECT_EQ(combo.m_nKillFocusCount, 0);
    EXPECT_EQ(combo.m_bFirstActivation, TRUE);
    EXPECT_EQ(combo.m_ListBox.GetSafeHwnd(), nullptr);
    EXPECT_EQ(combo.m_wndSBVert.GetSafeHwnd(), nullptr);
}

TEST(ComboListObject, MembersStandInTheirOrder)
{
    const OpenComboList combo(nullptr);
    const auto address = [](const auto& member) { return reinterpret_cast<const char*>(&member); };
    EXPECT_LT(address(combo.m_ListBox), address(combo.m_wndSBVert));
    EXPECT_EQ(address(combo.m_wndSBVert) + sizeof(CScrollBar), address(combo.m_pParent));
    EXPECT_EQ(address(combo.m_nKillFocusCount) - address(combo.m_pParent), 8);
    EXPECT_EQ(address(combo.m_bFirstActivation) - address(combo.m_nKillFocusCount), 8);
    EXPECT_EQ(sizeof combo.m_nKillFocusCount, 8u);
}

TEST(ComboListObject, MessageMapIsInOrder)
{
    const AFX_MSGMAP* const map = OpenComboList::GetThisMessageMap();
    std::vector<UINT> messages;
    for (const AFX_MSGMAP_ENTRY* entry = map->lpEntries; entry->nMessage != 0; ++entry)
        messages.push_back(entry->nMessage);
    EXPECT_THAT(messages,
                ElementsAre(WM_LBUTTONDOWN, WM_KILLFOCUS, WM_CREATE, WM_VSCROLL, WM_DESTROY, WM_TIMER));
}

TEST(ComboListMessages, AreRegisteredUnderTheirNames)
{
    EXPECT_EQ(WM_XCOMBOLIST_VK_RETURN, RegisterWindowMessageW(L"WM_XCOMBOLIST_VK_RETURN"));
    EXPECT_EQ(WM_XCOMBOLIST_VK_ESCAPE, RegisterWindowMessageW(L"WM_XCOMBOLIST_VK_ESCAPE"));
    EXPECT_EQ(WM_XCOMBOLIST_KEYDOWN, RegisterWindowMessageW(L"WM_XCOMBOLIST_KEYDOWN"));
    EXPECT_EQ(WM_XCOMBOLIST_LBUTTONUP, RegisterWindowMessageW(L"WM_XCOMBOLIST_LBUTTONUP"));
}

TEST_F(ComboListTest, CreationMakesListAndBar)
{
    CreateWindowOf(*m_combo);
    EXPECT_EQ(::GetParent(List()), m_combo->m_hWnd);
    EXPECT_EQ(::GetParent(Bar()), m_combo->m_hWnd);
    EXPECT_EQ(GetWindowLongW(List(), GWL_STYLE),
              static_cast<LONG>(WS_CHILD | WS_VISIBLE | LBS_NOINTEGRALHEIGHT));
    EXPECT_EQ(GetWindowLongW(Bar(), GWL_STYLE), static_cast<LONG>(WS_CHILD | WS_VISIBLE | SBS_VERT));
    EXPECT_EQ(::GetDlgCtrlID(List()), 0);
    EXPECT_EQ(::GetDlgCtrlID(Bar()), 0);
    EXPECT_EQ(InParent(m_combo->m_ListBox), CRect());
    EXPECT_EQ(InParent(m_combo->m_wndSBVert), CRect());
    EXPECT_EQ(m_combo->m_bFirstActivation, TRUE);
}

TEST_F(ComboListTest, CreationFailsWithTheDefaultHandling)
{
    WNDCLASSW description{};
    description.lpfnWndProc = [](HWND window, UINT message, WPARAM wParam, LPARAM lParam) -> LRESULT {
        return message == WM_CREATE ? -1 : DefWindowProcW(window, message, wParam, lParam);
    };
    description.hInstance = AfxGetInstanceHandle();
    description.lpszClassName = L"VelmRefusingClass";
    ASSERT_NE(RegisterClassW(&description), 0);
    EXPECT_FALSE(
        m_combo->CreateEx(0, description.lpszClassName, L"", WS_POPUP, CRect(0, 0, 90, 90), &m_opener, 0));
    EXPECT_EQ(m_combo->m_ListBox.GetSafeHwnd(), nullptr);
    EXPECT_EQ(m_combo->m_wndSBVert.GetSafeHwnd(), nullptr);
    UnregisterClassW(description.lpszClassName, description.hInstance);
}

TEST_F(ComboListTest, ListAndBarGetTheParentsFont)
{
    const HFONT font = MakeFont(-21);
    m_opener.font = font;
    {
        const SentMessages fonts(WM_SETFONT);
        CreateWindowOf(*m_combo);
        for (const HWND child : {List(), Bar()}) {
            ASSERT_THAT(fonts.To(child), SizeIs(1));
            EXPECT_EQ(fonts.To(child)[0].wParam, reinterpret_cast<WPARAM>(font));
            EXPECT_EQ(fonts.To(child)[0].lParam, 0);
        }
    }
    EXPECT_EQ(::SendMessageW(List(), WM_GETFONT, 0, 0), reinterpret_cast<LRESULT>(font));
    m_combo->DestroyWindow();
    DeleteObject(font);
}

TEST_F(ComboListTest, ParentWithoutFontGivesNone)
{
    const SentMessages fonts(WM_SETFONT);
    CreateWindowOf(*m_combo);
    EXPECT_THAT(fonts.To(List()), IsEmpty());
    EXPECT_THAT(fonts.To(Bar()), IsEmpty());
}

TEST_F(ComboListTest, WindowWithoutParentIsCreated)
{
    ASSERT_TRUE(m_combo->CreateEx(0, AfxRegisterWndClass(0), L"", WS_POPUP, CRect(0, 0, 90, 90), nullptr, 0));
    EXPECT_TRUE(::IsWindow(List()));
    EXPECT_TRUE(::IsWindow(Bar()));
}

TEST_F(ComboListTest, SetFontIsTheListsAlone)
{
    const HFONT handle = MakeFont(-21);
    CreateWindowOf(*m_combo);
    {
        const SentMessages fonts(WM_SETFONT);
        m_combo->SetFont(CFont::FromHandle(handle), TRUE);
        m_combo->SetFont(nullptr, FALSE);
        EXPECT_THAT(fonts.To(Bar()), IsEmpty());
        const std::vector<CWPSTRUCT> sent = fonts.To(List());
        ASSERT_THAT(sent, SizeIs(2));
        EXPECT_EQ(sent[0].wParam, reinterpret_cast<WPARAM>(handle));
        EXPECT_EQ(sent[0].lParam, TRUE);
        EXPECT_EQ(sent[1].wParam, 0u);
        EXPECT_EQ(sent[1].lParam, FALSE);
    }
    DeleteObject(handle);
}

TEST_F(ComboListTest, StringsAreAddedCountedAndRead)
{
    CreateWindowOf(*m_combo);
    EXPECT_EQ(m_combo->GetCount(), 0);
    EXPECT_EQ(m_combo->AddString(L"beta"), 0);
    EXPECT_EQ(m_combo->AddString(L"alpha"), 1);
    EXPECT_EQ(m_combo->AddString(L""), 2);
    EXPECT_EQ(m_combo->GetCount(), 3);
    CString text;
    m_combo->GetText(1, text);
    EXPECT_EQ(text, L"alpha");
    m_combo->GetText(2, text);
    EXPECT_EQ(text, L"");
}

TEST_F(ComboListTest, TextOutOfRangeIsLeftAsItIs)
{
    Open(2);
    for (const INT_PTR index : {INT_PTR{-1}, INT_PTR{2}, INT_PTR{0x1'0000'0000}}) {
        CString text = L"before";
        m_combo->GetText(index, text);
        EXPECT_EQ(text, L"before") << index;
    }
}

TEST_F(ComboListTest, FindStringExactTakesTheWholeText)
{
    CreateWindowOf(*m_combo);
    for (const wchar_t* const text : {L"alpha", L"beta two", L"beta", L"alpha"})
        m_combo->AddString(text);
    EXPECT_EQ(m_combo->FindStringExact(-1, L"beta"), 2);
    EXPECT_EQ(m_combo->FindStringExact(-1, L"BETA"), 2);
    EXPECT_EQ(m_combo->FindStringExact(-1, L"alpha"), 0);
    EXPECT_EQ(m_combo->FindStringExact(0, L"alpha"), 3);
    EXPECT_EQ(m_combo->FindStringExact(3, L"alpha"), 0);
    EXPECT_EQ(m_combo->FindStringExact(-1, L"bet"), INT_PTR{-1});
}

TEST_F(ComboListTest, SelectionIsSetAndRead)
{
    Open(3);
    EXPECT_EQ(m_combo->GetCurSel(), INT_PTR{-1});
    EXPECT_EQ(m_combo->SetCurSel(2), 2);
    EXPECT_EQ(m_combo->GetCurSel(), 2);
    EXPECT_EQ(m_combo->SetCurSel(3), INT_PTR{-1});
    EXPECT_EQ(m_combo->SetCurSel(-1), INT_PTR{-1});
    EXPECT_EQ(m_combo->GetCurSel(), INT_PTR{-1});
}

TEST_F(ComboListTest, WithoutWindowNothingHappens)
{
    EXPECT_EQ(m_combo->AddString(L"x"), INT_PTR{LB_ERR});
    EXPECT_EQ(m_combo->FindStringExact(-1, L"x"), INT_PTR{LB_ERR});
    EXPECT_EQ(m_combo->GetCount(), INT_PTR{LB_ERR});
    EXPECT_EQ(m_combo->GetCurSel(), INT_PTR{LB_ERR});
    EXPECT_EQ(m_combo->SetCurSel(0), INT_PTR{LB_ERR});
    CString text = L"before";
    m_combo->GetText(0, text);
    EXPECT_EQ(text, L"before");
    m_combo->SetFont(nullptr, TRUE);
    m_combo->SetActive(17);
    EXPECT_EQ(m_combo->m_bFirstActivation, TRUE);
    EXPECT_EQ(::GetFocus(), m_opener.m_hWnd);
}

TEST_F(ComboListTest, ScrollBarIsGivenForEveryNumber)
{
    for (const INT_PTR bar : {INT_PTR{SB_HORZ}, INT_PTR{SB_VERT}, INT_PTR{SB_CTL}, INT_PTR{-1}, INT_PTR{99}})
        EXPECT_EQ(m_combo->GetScrollBarCtrl(bar), &m_combo->m_wndSBVert);
    CreateWindowOf(*m_combo);
    EXPECT_EQ(m_combo->GetScrollBarCtrl(SB_HORZ), &m_combo->m_wndSBVert);
    EXPECT_EQ(m_combo->CWnd::GetScrollBarCtrl(SB_VERT), nullptr);
}

TEST_F(ComboListTest, DestroyingTheWindowDestroysTheListBeforeIt)
{
    Open(3);
    const std::array<HWND, 3> windows{m_combo->m_hWnd, List(), Bar()};
    m_combo->SetActive(BarWidth);
    m_combo->DestroyWindow();
    for (const HWND window : windows)
        EXPECT_FALSE(::IsWindow(window));
    EXPECT_EQ(m_combo->m_ListBox.m_hWnd, nullptr);
    EXPECT_EQ(m_combo->GetCount(), INT_PTR{LB_ERR});
}

TEST_F(ComboListTest, DestructorDestroysListAndBar)
{
    Open(3);
    const std::array<HWND, 2> windows{List(), Bar()};
    m_combo.reset();
    for (const HWND window : windows)
        EXPECT_FALSE(::IsWindow(window));
    EXPECT_THAT(m_opener.told, IsEmpty());
}

TEST_F(ComboListLayout, HoldsWholeItemsAndFifteenAtMost)
{
    CreateWindowOf(*m_combo);
    const int item = ItemHeight();
    m_combo->DestroyWindow();
    for (const int height : {item, item + 1, 3 * item - 1, 3 * item, 7 * item + 5, 15 * item - 1, 15 * item,
                             15 * item + 1, 16 * item, 20 * item + 3})
    {
        SCOPED_TRACE(height);
        ExpectLaidOut(height, 0);
        ExpectLaidOut(height, WS_BORDER);
    }
}

TEST_F(ComboListLayout, WindowLowerThanAnItemHoldsNone)
{
    CreateWindowOf(*m_combo);
    const int height = ItemHeight() - 1;
    m_combo->DestroyWindow();
    ExpectLaidOut(height, 0);
}

TEST_F(ComboListLayout, ItemHeightIsTheFonts)
{
    const HFONT font = MakeFont(-31);
    m_opener.font = font;
    ExpectLaidOut(300, 0);
    DeleteObject(font);
}

TEST_F(ComboListLayout, ChildWindowKeepsItsCornerToo)
{
    ASSERT_TRUE(m_combo->CreateEx(0, AfxRegisterWndClass(0), L"", WS_CHILD | WS_VISIBLE,
                                  CRect(30, 40, 130, 140), &m_opener, 5));
    const int itemHeight = ItemHeight();
    m_combo->SetActive(BarWidth);
    EXPECT_EQ(InParent(*m_combo), CRect(CPoint(30, 40), CSize(100, 100 / itemHeight * itemHeight + 4)));
}

TEST_F(ComboListLayout, ListComesToTheTop)
{
    Open(3);
    ::SetWindowPos(Bar(), HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    ASSERT_EQ(::GetWindow(m_combo->m_hWnd, GW_CHILD), Bar());
    m_combo->SetActive(BarWidth);
    EXPECT_EQ(::GetWindow(m_combo->m_hWnd, GW_CHILD), List());
}

TEST_F(ComboListLayout, BarCountsItemsAndStandsAtTheSelection)
{
    OpenActive(30, 5, 7);
    const SCROLLINFO info = BarInfo();
    EXPECT_EQ(info.nMin, 0);
    EXPECT_EQ(info.nMax, 30);
    EXPECT_EQ(info.nPage, 5u);
    EXPECT_EQ(info.nPos, 7);
    EXPECT_EQ(TopItem(), 6);
}

TEST_F(ComboListLayout, BarStandsAtZeroWithoutSelection)
{
    OpenActive(30, 5, -1);
    EXPECT_EQ(BarPosition(), 0);
    EXPECT_EQ(TopItem(), 0);
}

TEST_F(ComboListLayout, FirstItemIsTheTopOne)
{
    OpenActive(30, 5, 0);
    EXPECT_EQ(TopItem(), 0);
    m_combo->DestroyWindow();
    m_combo = std::make_unique<OpenComboList>(&m_opener);
    OpenActive(30, 5, 1);
    EXPECT_EQ(TopItem(), 0);
    EXPECT_EQ(BarPosition(), 1);
}

TEST_F(ComboListLayout, LastItemLeavesTheBarWhereItCanStand)
{
    OpenActive(30, 5, 29);
    EXPECT_EQ(BarPosition(), 30 - 5 + 1);
    EXPECT_EQ(TopItem(), 25);
}

TEST_F(ComboListLayout, EmptyListHasAnEmptyRange)
{
    OpenActive(0, 5, -1);
    const SCROLLINFO info = BarInfo();
    EXPECT_EQ(info.nMin, 0);
    EXPECT_EQ(info.nMax, 0);
    EXPECT_EQ(info.nPage, 1u) << "a page of 5, cut to the range by the platform";
    EXPECT_EQ(info.nPos, 0);
}

TEST_F(ComboListLayout, BarWithNothingToScrollStaysVisible)
{
    OpenActive(3, 5, 0);
    EXPECT_NE(GetWindowLongW(Bar(), GWL_STYLE) & WS_VISIBLE, 0);
    EXPECT_EQ(BarPosition(), 0);
}

TEST_F(ComboListLayout, ActivationFocusesTheList)
{
    Open(3);
    ::SetFocus(m_opener.m_hWnd);
    m_combo->SetActive(BarWidth);
    EXPECT_EQ(::GetFocus(), List());
    EXPECT_EQ(m_combo->m_bFirstActivation, FALSE);
}

TEST_F(ComboListLayout, LaterActivationsOnlyFocus)
{
    OpenActive(30, 5, 7);
    m_combo->MoveWindow(5, 6, 99, 111);
    m_combo->SetCurSel(12);
    m_combo->KillTimer(1);
    const CRect list = InParent(m_combo->m_ListBox);
    ::SetFocus(m_opener.m_hWnd);

    m_combo->SetActive(33);

    EXPECT_EQ(::GetFocus(), List());
    CRect window;
    m_combo->GetWindowRect(&window);
    EXPECT_EQ(window, CRect(CPoint(5, 6), CSize(99, 111)));
    EXPECT_EQ(InParent(m_combo->m_ListBox), list);
    EXPECT_EQ(BarPosition(), 7);
    EXPECT_FALSE(m_combo->KillTimer(1)) << "no second timer";
}

TEST_F(ComboListLayout, ActivationAfterTheListWentDoesNothing)
{
    Open(3);
    m_combo->m_ListBox.DestroyWindow();
    CRect before, after;
    m_combo->GetWindowRect(&before);
    m_combo->SetActive(BarWidth);
    m_combo->GetWindowRect(&after);
    EXPECT_EQ(after, before);
    EXPECT_EQ(m_combo->m_bFirstActivation, TRUE);
}
