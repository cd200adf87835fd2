#include "afxwin.h"
#include "win/state.h"

IMPLEMENT_DYNCREATE(CMenu, CObject)

CMenu::CMenu() : m_hMenu(nullptr) {}
CMenu::~CMenu()
{
    DestroyMenu();
}

CMenu* PASCAL CMenu::FromHandle(HMENU hMenu)
{
    return AfxGetWindowState().menus.FromHandle(hMenu, [](HMENU) { return new CMenu; });
}

CMenu* PASCAL CMenu::FromHandlePermanent(HMENU hMenu)
{
    return AfxGetWindowState().menus.Permanent(hMenu);
}
void PASCAL CMenu::DeleteTempMap()
{
    AfxGetWindowState().menus.DeleteTemporary();
}

BOOL CMenu::Attach(HMENU hMenu)
{
    if (hMenu == nullptr)
        return FALSE;
    // What the object held would be lost without an owner.
    DestroyMenu();
    AfxGetWindowState().menus.SetPermanent(hMenu, this);
    m_hMenu = hMenu;
    return TRUE;
}

HMENU CMenu::Detach()
{
    const HMENU hMenu = std::exchange(m_hMenu, nullptr);
    if (hMenu != nullptr)
        AfxGetWindowState().menus.RemovePermanent(hMenu, this);
    return hMenu;
}

BOOL CMenu::DestroyMenu()
{
    const HMENU hMenu = Detach();
    return hMenu != nullptr && ::DestroyMenu(hMenu);
}

BOOL CMenu::LoadMenu(LPCTSTR lpszResourceName)
{
    return Attach(::LoadMenu(AfxFindResourceHandle(lpszResourceName, RT_MENU), lpszResourceName));
}

BOOL CMenu::TrackPopupMenu(UINT nFlags, int x, int y, CWnd* pWnd, LPCRECT lpRect)
{
    return ::TrackPopupMenu(m_hMenu, nFlags, x, y, 0, AfxSafe(pWnd), lpRect);
}

BOOL CMenu::TrackPopupMenuEx(UINT fuFlags, int x, int y, CWnd* pWnd, LPTPMPARAMS lptpm)
{
    return ::TrackPopupMenuEx(m_hMenu, fuFlags, x, y, AfxSafe(pWnd), lptpm);
}

namespace
{
LPCTSTR BitmapItem(const CBitmap* pBmp)
{
    return static_cast<LPCTSTR>(AfxSafe(static_cast<const CGdiObject*>(pBmp)));
}
} // namespace

BOOL CMenu::AppendMenu(UINT nFlags, UINT_PTR nIDNewItem, const CBitmap* pBmp)
{
    return ::AppendMenu(m_hMenu, nFlags | MF_BITMAP, nIDNewItem, BitmapItem(pBmp));
}

BOOL CMenu::InsertMenu(UINT nPosition, UINT nFlags, UINT_PTR nIDNewItem, const CBitmap* pBmp)
{
    return ::InsertMenu(m_hMenu, nPosition, nFlags | MF_BITMAP, nIDNewItem, BitmapItem(pBmp));
}

BOOL CMenu::ModifyMenu(UINT nPosition, UINT nFlags, UINT_PTR nIDNewItem, const CBitmap* pBmp)
{
    return ::ModifyMenu(m_hMenu, nPosition, nFlags | MF_BITMAP, nIDNewItem, BitmapItem(pBmp));
}

BOOL CMenu::SetMenuItemBitmaps(UINT nPosition, UINT nFlags, const CBitmap* pBmpUnchecked,
                               const CBitmap* pBmpChecked)
{
    return ::SetMenuItemBitmaps(m_hMenu, nPosition, nFlags,
                                static_cast<HBITMAP>(AfxSafe(static_cast<const CGdiObject*>(pBmpUnchecked))),
                                static_cast<HBITMAP>(AfxSafe(static_cast<const CGdiObject*>(pBmpChecked))));
}

int CMenu::GetMenuString(UINT nIDItem, CString& rString, UINT nFlags) const
{
    const int nLength = ::GetMenuString(m_hMenu, nIDItem, nullptr, 0, nFlags);
    ::GetMenuString(m_hMenu, nIDItem, rString.GetBufferSetLength(nLength), nLength + 1, nFlags);
    rString.ReleaseBuffer();
    return rString.GetLength();
}

void CMenu::DrawItem(LPDRAWITEMSTRUCT) {}
void CMenu::MeasureItem(LPMEASUREITEMSTRUCT) {}
