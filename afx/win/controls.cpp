#include "afxwin.h"

IMPLEMENT_DYNAMIC(CStatic, CWnd)
IMPLEMENT_DYNAMIC(CButton, CWnd)
IMPLEMENT_DYNAMIC(CEdit, CWnd)
IMPLEMENT_DYNAMIC(CListBox, CWnd)
IMPLEMENT_DYNAMIC(CComboBox, CWnd)
IMPLEMENT_DYNAMIC(CScrollBar, CWnd)

// The window goes while the object still has the control's own message map and OnChildNotify.
CStatic::CStatic() {}
CStatic::~CStatic()
{
    DestroyWindow();
}
CButton::CButton() {}
CButton::~CButton()
{
    DestroyWindow();
}
CEdit::CEdit() {}
CEdit::~CEdit()
{
    DestroyWindow();
}
CListBox::CListBox() {}
CListBox::~CListBox()
{
    DestroyWindow();
}
CComboBox::CComboBox() {}
CComboBox::~CComboBox()
{
    DestroyWindow();
}
CScrollBar::CScrollBar() {}
CScrollBar::~CScrollBar()
{
    DestroyWindow();
}

BOOL CStatic::Create(LPCTSTR lpszText, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    return CWnd::Create(_T("STATIC"), lpszText, dwStyle, rect, pParentWnd, nID);
}

BOOL CButton::Create(LPCTSTR lpszCaption, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    return CWnd::Create(_T("BUTTON"), lpszCaption, dwStyle, rect, pParentWnd, nID);
}

BOOL CEdit::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    return CWnd::Create(_T("EDIT"), nullptr, dwStyle, rect, pParentWnd, nID);
}

BOOL CListBox::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    return CWnd::Create(_T("LISTBOX"), nullptr, dwStyle, rect, pParentWnd, nID);
}

BOOL CComboBox::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    return CWnd::Create(_T("COMBOBOX"), nullptr, dwStyle, rect, pParentWnd, nID);
}

BOOL CScrollBar::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    return CWnd::Create(_T("SCROLLBAR"), nullptr, dwStyle, rect, pParentWnd, nID);
}

void CEdit::SetSel(int nStartChar, int nEndChar, BOOL bNoScroll)
{
    AfxSend(m_hWnd, EM_SETSEL, nStartChar, nEndChar);
    if (!bNoScroll)
        AfxSend(m_hWnd, EM_SCROLLCARET, 0, 0);
}

int CEdit::GetLine(int nIndex, LPTSTR lpszBuffer, int nMaxLength) const
{
    // The message reads the buffer's size from its first word.
    const WORD nSize = static_cast<WORD>(nMaxLength);
    std::memcpy(lpszBuffer, &nSize, sizeof nSize);
    return static_cast<int>(AfxSend(m_hWnd, EM_GETLINE, nIndex, lpszBuffer));
}

UINT CListBox::ItemFromPoint(CPoint pt, BOOL& bOutside) const
{
    const DWORD dwFound = static_cast<DWORD>(AfxSend(m_hWnd, LB_ITEMFROMPOINT, 0, MAKELPARAM(pt.x, pt.y)));
    bOutside = HIWORD(dwFound);
    return LOWORD(dwFound);
}

namespace
{
void GetItemText(HWND hWnd, UINT nLengthMessage, UINT nTextMessage, int nIndex, CString& rString)
{
    const LRESULT lLength = AfxSend(hWnd, nLengthMessage, nIndex, 0);
    if (lLength < 0)
        AfxThrowInvalidArgException();
    AfxSend(hWnd, nTextMessage, nIndex, rString.GetBufferSetLength(static_cast<int>(lLength)));
    rString.ReleaseBuffer();
}
} // namespace

void CListBox::GetText(int nIndex, CString& rString) const
{
    GetItemText(m_hWnd, LB_GETTEXTLEN, LB_GETTEXT, nIndex, rString);
}
void CComboBox::GetLBText(int nIndex, CString& rString) const
{
    GetItemText(m_hWnd, CB_GETLBTEXTLEN, CB_GETLBTEXT, nIndex, rString);
}

// Owner-drawn controls give their own messages to the virtual members.

BOOL CStatic::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    if (message != WM_DRAWITEM)
        return CWnd::OnChildNotify(message, wParam, lParam, pResult);
    DrawItem(reinterpret_cast<LPDRAWITEMSTRUCT>(lParam));
    return TRUE;
}

BOOL CButton::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    if (message != WM_DRAWITEM)
        return CWnd::OnChildNotify(message, wParam, lParam, pResult);
    DrawItem(reinterpret_cast<LPDRAWITEMSTRUCT>(lParam));
    return TRUE;
}

BOOL CListBox::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    // A list box without owner-drawing sends none of the first four.
    LRESULT lResult = TRUE;
    switch (message) {
    case WM_DRAWITEM:
        DrawItem(reinterpret_cast<LPDRAWITEMSTRUCT>(lParam));
        break;
    case WM_MEASUREITEM:
        MeasureItem(reinterpret_cast<LPMEASUREITEMSTRUCT>(lParam));
        break;
    case WM_COMPAREITEM:
        lResult = CompareItem(reinterpret_cast<LPCOMPAREITEMSTRUCT>(lParam));
        break;
    case WM_DELETEITEM:
        DeleteItem(reinterpret_cast<LPDELETEITEMSTRUCT>(lParam));
        break;
    case WM_VKEYTOITEM:
        lResult = VKeyToItem(LOWORD(wParam), HIWORD(wParam));
        break;
    case WM_CHARTOITEM:
        lResult = CharToItem(LOWORD(wParam), HIWORD(wParam));
        break;
    default:
        return CWnd::OnChildNotify(message, wParam, lParam, pResult);
    }
    if (pResult != nullptr)
        *pResult = lResult;
    return TRUE;
}

BOOL CComboBox::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    LRESULT lResult = TRUE;
    switch (message) {
    case WM_DRAWITEM:
        DrawItem(reinterpret_cast<LPDRAWITEMSTRUCT>(lParam));
        break;
    case WM_MEASUREITEM:
        MeasureItem(reinterpret_cast<LPMEASUREITEMSTRUCT>(lParam));
        break;
    case WM_COMPAREITEM:
        lResult = CompareItem(reinterpret_cast<LPCOMPAREITEMSTRUCT>(lParam));
        break;
    case WM_DELETEITEM:
        DeleteItem(reinterpret_cast<LPDELETEITEMSTRUCT>(lParam));
        break;
    default:
        return CWnd::OnChildNotify(message, wParam, lParam, pResult);
    }
    if (pResult != nullptr)
        *pResult = lResult;
    return TRUE;
}

void CStatic::DrawItem(LPDRAWITEMSTRUCT) {}
void CButton::DrawItem(LPDRAWITEMSTRUCT) {}
void CListBox::DrawItem(LPDRAWITEMSTRUCT) {}
void CListBox::MeasureItem(LPMEASUREITEMSTRUCT) {}
int CListBox::CompareItem(LPCOMPAREITEMSTRUCT)
{
    return 0;
}
void CListBox::DeleteItem(LPDELETEITEMSTRUCT) {}
int CListBox::VKeyToItem(UINT, UINT)
{
    return -1;
}
int CListBox::CharToItem(UINT, UINT)
{
    return -1;
}
void CComboBox::DrawItem(LPDRAWITEMSTRUCT) {}
void CComboBox::MeasureItem(LPMEASUREITEMSTRUCT) {}
int CComboBox::CompareItem(LPCOMPAREITEMSTRUCT)
{
    return 0;
}
void CComboBox::DeleteItem(LPDELETEITEMSTRUCT) {}
