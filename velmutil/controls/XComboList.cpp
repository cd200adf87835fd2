#include "controls/XComboList.h"

#include <algorithm>

UINT WM_XCOMBOLIST_VK_RETURN = RegisterWindowMessageW(L"WM_XCOMBOLIST_VK_RETURN");
UINT WM_XCOMBOLIST_VK_ESCAPE = RegisterWindowMessageW(L"WM_XCOMBOLIST_VK_ESCAPE");
UINT WM_XCOMBOLIST_KEYDOWN = RegisterWindowMessageW(L"WM_XCOMBOLIST_KEYDOWN");
UINT WM_XCOMBOLIST_LBUTTONUP = RegisterWindowMessageW(L"WM_XCOMBOLIST_LBUTTONUP");

namespace
{

constexpr UINT_PTR HotTrackTimer = 1;
constexpr UINT HotTrackPeriod = 80;
constexpr int MostVisibleItems = 15;
// What the window's own border takes.
constexpr int BorderHeight = 4;
// Creating the list and showing it move the focus twice; only what follows means that the user left.
constexpr __int64 KillFocusesToIgnore = 2;

} // namespace

BEGIN_MESSAGE_MAP(CXComboList, CWnd)
ON_WM_LBUTTONDOWN()
ON_WM_KILLFOCUS()
ON_WM_CREATE()
ON_WM_VSCROLL()
ON_WM_DESTROY()
ON_WM_TIMER()
END_MESSAGE_MAP()

CXComboList::CXComboList(CWnd* parent) : m_pParent(parent), m_nKillFocusCount(0), m_bFirstActivation(TRUE) {}

CXComboList::~CXComboList()
{
    // While the handlers of this class are still there.
    DestroyWindow();
}

INT_PTR CXComboList::AddString(CString text)
{
    return HasList() ? m_ListBox.AddString(text) : LB_ERR;
}

INT_PTR CXComboList::FindStringExact(INT_PTR start, CString text)
{
    return HasList() ? m_ListBox.FindStringExact(static_cast<int>(start), text) : LB_ERR;
}

INT_PTR CXComboList::GetCount()
{
    return HasList() ? m_ListBox.GetCount() : LB_ERR;
}

INT_PTR CXComboList::GetCurSel()
{
    return HasList() ? m_ListBox.GetCurSel() : LB_ERR;
}

INT_PTR CXComboList::SetCurSel(INT_PTR index)
{
    return HasList() ? m_ListBox.SetCurSel(static_cast<int>(index)) : LB_ERR;
}

void CXComboList::GetText(INT_PTR index, CString& text)
{
    if (HasList() && 0 <= index && index < m_ListBox.GetCount())
        m_ListBox.GetText(static_cast<int>(index), text);
}

void CXComboList::SetFont(CFont* font, BOOL redraw)
{
    if (HasList())
        m_ListBox.SendMessage(WM_SETFONT,
                              reinterpret_cast<WPARAM>(font != nullptr ? font->m_hObject : nullptr), redraw);
}

CScrollBar* CXComboList::GetScrollBarCtrl(INT_PTR)
{
    return &m_wndSBVert;
}

void CXComboList::SetActive(long scrollBarWidth)
{
    if (!HasList())
        return;
    const HWND window = m_hWnd;
    m_ListBox.SetFocus();
    // Whoever had the focus may have ended the window, and this object with it.
    if (!::IsWindow(window) || !m_bFirstActivation)
        return;
    m_bFirstActivation = FALSE;
    LayOut(scrollBarWidth);
    SetTimer(HotTrackTimer, HotTrackPeriod, nullptr);
}

void CXComboList::LayOut(long scrollBarWidth)
{
    CRect window;
    CRect client;
    GetWindowRect(&window);
    GetClientRect(&client);
    const int itemHeight = std::max(m_ListBox.GetItemHeight(0), 1);
    const int usableHeight = window.Height() - window.Height() % itemHeight;
    const int listHeight = std::min(MostVisibleItems * itemHeight, usableHeight);
    const int visibleItems = listHeight / itemHeight;

    // The corner stays, whether the coordinates are the screen's or a parent's.
    SetWindowPos(nullptr, 0, 0, window.Width(), listHeight + BorderHeight,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    const CRect list(CPoint(client.left + 1, client.top + 1),
                     CSize(client.Width() - 1 - scrollBarWidth, listHeight));
    m_ListBox.SetWindowPos(&CWnd::wndTop, list.left, list.top, list.Width(), list.Height(), SWP_NOACTIVATE);
    m_wndSBVert.MoveWindow(list.right, list.top, scrollBarWidth, list.Height(), TRUE);

    const int count = m_ListBox.GetCount();
    const int position = std::max(m_ListBox.GetCurSel(), 0);
    m_ListBox.SetTopIndex(std::max(position - 1, 0));
    SCROLLINFO info = {};
    info.cbSize = sizeof(info);
    info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS | SIF_DISABLENOSCROLL;
    info.nMin = 0;
    info.nMax = count < 0 ? 1 : count;
    info.nPage = static_cast<UINT>(visibleItems);
    info.nPos = position;
    m_wndSBVert.SetScrollInfo(&info, TRUE);
    m_wndSBVert.SetScrollPos(position, TRUE);
}

void CXComboList::SendRegisteredMessage(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (m_pParent != nullptr && m_pParent->GetSafeHwnd() != nullptr)
        m_pParent->SendMessage(message, wParam, lParam);
}

int CXComboList::FindLetter(wchar_t letter, int start)
{
    const wchar_t prefix[] = {letter, L'\0'};
    return HasList() ? m_ListBox.FindString(start, prefix) : 0;
}

void CXComboList::ScrollTo(int position, int maximum)
{
    const HWND window = m_hWnd;
    SendRegisteredMessage(WM_XCOMBOLIST_KEYDOWN, 0, 0);
    if (::IsWindow(window))
        m_wndSBVert.SetScrollPos(std::clamp(position, 0, std::max(maximum, 0)), TRUE);
}

BOOL CXComboList::PreTranslateMessage(MSG* message)
{
    const HWND window = m_hWnd;
    if (message->message == WM_KEYDOWN) {
        SCROLLINFO info = {};
        info.cbSize = sizeof(info);
        if (::IsWindow(m_wndSBVert.GetSafeHwnd()))
            m_wndSBVert.GetScrollInfo(&info);
        const int current = static_cast<int>(std::max<INT_PTR>(GetCurSel(), 0));
        const int page = static_cast<int>(info.nPage);
        const WPARAM key = message->wParam;
        switch (key) {
        case VK_RETURN:
            SendRegisteredMessage(WM_XCOMBOLIST_VK_RETURN, 0, 0);
            break;
        case VK_ESCAPE:
            SendRegisteredMessage(WM_XCOMBOLIST_VK_ESCAPE, 0, 0);
            break;
        case VK_PRIOR:
            ScrollTo(current - page + 1, info.nMax);
            break;
        case VK_NEXT:
            ScrollTo(current + page - 1, info.nMax);
            break;
        case VK_END:
            ScrollTo(info.nMax, info.nMax);
            break;
        case VK_HOME:
            ScrollTo(0, info.nMax);
            break;
        case VK_UP:
            ScrollTo(current - 1, info.nMax);
            break;
        case VK_DOWN:
            ScrollTo(current + 1, info.nMax);
            break;
        default:
            if ('A' <= key && key <= 'Z') {
                const int found = FindLetter(static_cast<wchar_t>(key), current);
                if (found != LB_ERR)
                    ScrollTo(found, info.nMax);
            }
        }
    } else if (message->message == WM_LBUTTONUP) {
        SendRegisteredMessage(WM_XCOMBOLIST_LBUTTONUP, 0, 0);
    }
    // The opener may have taken the window away, and this object with it.
    return ::IsWindow(window) ? CWnd::PreTranslateMessage(message) : FALSE;
}

void CXComboList::OnLButtonDown(UINT, CPoint)
{
    const HWND window = m_hWnd;
    SendRegisteredMessage(WM_XCOMBOLIST_LBUTTONUP, 0, 0);
    if (::IsWindow(window))
        Default();
}

void CXComboList::OnKillFocus(CWnd*)
{
    Default();
    ++m_nKillFocusCount;
    if (m_nKillFocusCount > KillFocusesToIgnore)
        SendRegisteredMessage(WM_XCOMBOLIST_VK_ESCAPE, 0, 0);
}

int CXComboList::OnCreate(LPCREATESTRUCT)
{
    if (Default() == -1)
        return -1;
    const CRect empty(0, 0, 0, 0);
    m_ListBox.Create(WS_CHILD | WS_VISIBLE | LBS_NOINTEGRALHEIGHT, empty, this, 0);
    m_wndSBVert.Create(WS_CHILD | WS_VISIBLE | SBS_VERT, empty, this, 0);
    CWnd* const parent = GetParent();
    CFont* const font = parent != nullptr ? parent->GetFont() : nullptr;
    if (font != nullptr) {
        m_ListBox.SetFont(font, FALSE);
        m_wndSBVert.SetFont(font, FALSE);
    }
    return 0;
}

void CXComboList::OnVScroll(UINT code, UINT position, CScrollBar*)
{
    if (!HasList())
        return;
    const MSG* const message = GetCurrentMessage();
    m_ListBox.SendMessage(WM_VSCROLL, message->wParam, message->lParam);

    SCROLLINFO info = {};
    info.cbSize = sizeof(info);
    m_wndSBVert.GetScrollInfo(&info);
    int moved = info.nPos;
    switch (code) {
    case SB_LINEUP:
        --moved;
        break;
    case SB_LINEDOWN:
        ++moved;
        break;
    case SB_PAGEUP:
        moved -= static_cast<int>(info.nPage);
        break;
    case SB_PAGEDOWN:
        moved += static_cast<int>(info.nPage);
        break;
    case SB_THUMBPOSITION:
    case SB_THUMBTRACK:
        moved = static_cast<int>(position);
        break;
    case SB_TOP:
        moved = 0;
        break;
    case SB_BOTTOM:
        moved = info.nMax;
        break;
    case SB_ENDSCROLL:
        return;
    }
    m_wndSBVert.SetScrollPos(std::min(std::max(moved, 0), info.nMax), TRUE);
}

void CXComboList::OnDestroy()
{
    KillTimer(HotTrackTimer);
    if (HasList())
        m_ListBox.DestroyWindow();
    CWnd::OnDestroy();
}

void CXComboList::OnTimer(UINT_PTR)
{
    if (!HasList())
        return;
    CPoint point;
    GetCursorPos(&point);
    ScreenToClient(&point);
    // The list box asks for its own coordinates; it lies one pixel inside the window.
    BOOL isOutside = TRUE;
    const int item = static_cast<int>(m_ListBox.ItemFromPoint(point, isOutside));
    if (!isOutside && item != m_ListBox.GetCurSel() && 0 <= item && item < m_ListBox.GetCount())
        m_ListBox.SetCurSel(item);
}
