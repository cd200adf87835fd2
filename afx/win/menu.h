// CMenu: a menu, a pop-up or a menu bar.
//
// A CMenu owns the menu that it created, loaded or had attached: its destructor destroys it, with
// the pop-ups in it. A menu that has been given to a window or into another menu is destroyed with
// that: Detach it. FromHandle and GetSubMenu give temporary objects, which own nothing.
// Members without a comment call the function of the like name and return its result.
#pragma once

class AFX_CORE_API CMenu : public CObject
{
    DECLARE_DYNCREATE(CMenu)

public:
    HMENU m_hMenu; // null when there is none

    CMenu();
    virtual ~CMenu();

    // Life
public:
    // The object for hMenu, a temporary one if none owns it; null for a null handle.
    static CMenu* PASCAL FromHandle(HMENU hMenu);
    // The owning object, or null.
    static CMenu* PASCAL FromHandlePermanent(HMENU hMenu);
    static void PASCAL DeleteTempMap();
    BOOL Attach(HMENU hMenu);
    HMENU Detach();
    operator HMENU() const { return m_hMenu; }
    // The handle, or null for a null pointer.
    HMENU GetSafeHmenu() const;
    BOOL operator==(const CMenu& menu) const { return m_hMenu == menu.m_hMenu; }
    BOOL CreateMenu() { return Attach(::CreateMenu()); }
    BOOL CreatePopupMenu() { return Attach(::CreatePopupMenu()); }
    // Load from the module of the resource chain that holds the menu; FALSE when none does.
    BOOL LoadMenu(LPCTSTR lpszResourceName);
    BOOL LoadMenu(UINT nIDResource) { return LoadMenu(MAKEINTRESOURCE(nIDResource)); }
    BOOL LoadMenuIndirect(const void* lpMenuTemplate) { return Attach(::LoadMenuIndirect(lpMenuTemplate)); }
    BOOL DestroyMenu();

    // Pop-up
public:
    // Shows the pop-up at a screen position; its commands go to pWnd.
    BOOL TrackPopupMenu(UINT nFlags, int x, int y, CWnd* pWnd, LPCRECT lpRect = nullptr);
    BOOL TrackPopupMenuEx(UINT fuFlags, int x, int y, CWnd* pWnd, LPTPMPARAMS lptpm);

    // Items
public:
    BOOL AppendMenu(UINT nFlags, UINT_PTR nIDNewItem = 0, LPCTSTR lpszNewItem = nullptr)
    {
        return ::AppendMenu(m_hMenu, nFlags, nIDNewItem, lpszNewItem);
    }
    BOOL AppendMenu(UINT nFlags, UINT_PTR nIDNewItem, const CBitmap* pBmp);
    BOOL InsertMenu(UINT nPosition, UINT nFlags, UINT_PTR nIDNewItem = 0, LPCTSTR lpszNewItem = nullptr)
    {
        return ::InsertMenu(m_hMenu, nPosition, nFlags, nIDNewItem, lpszNewItem);
    }
    BOOL InsertMenu(UINT nPosition, UINT nFlags, UINT_PTR nIDNewItem, const CBitmap* pBmp);
    BOOL InsertMenuItem(UINT uItem, LPMENUITEMINFO lpMenuItemInfo, BOOL fByPos = FALSE)
    {
        return ::InsertMenuItem(m_hMenu, uItem, fByPos, lpMenuItemInfo);
    }
    BOOL ModifyMenu(UINT nPosition, UINT nFlags, UINT_PTR nIDNewItem = 0, LPCTSTR lpszNewItem = nullptr)
    {
        return ::ModifyMenu(m_hMenu, nPosition, nFlags, nIDNewItem, lpszNewItem);
    }
    BOOL ModifyMenu(UINT nPosition, UINT nFlags, UINT_PTR nIDNewItem, const CBitmap* pBmp);
    BOOL RemoveMenu(UINT nPosition, UINT nFlags) { return ::RemoveMenu(m_hMenu, nPosition, nFlags); }
    BOOL DeleteMenu(UINT nPosition, UINT nFlags) { return ::DeleteMenu(m_hMenu, nPosition, nFlags); }
    UINT CheckMenuItem(UINT nIDCheckItem, UINT nCheck)
    {
        return ::CheckMenuItem(m_hMenu, nIDCheckItem, nCheck);
    }
    BOOL CheckMenuRadioItem(UINT nIDFirst, UINT nIDLast, UINT nIDItem, UINT nFlags)
    {
        return ::CheckMenuRadioItem(m_hMenu, nIDFirst, nIDLast, nIDItem, nFlags);
    }
    UINT EnableMenuItem(UINT nIDEnableItem, UINT nEnable)
    {
        return ::EnableMenuItem(m_hMenu, nIDEnableItem, nEnable);
    }
    UINT GetMenuItemCount() const { return static_cast<UINT>(::GetMenuItemCount(m_hMenu)); }
    UINT GetMenuItemID(int nPos) const { return ::GetMenuItemID(m_hMenu, nPos); }
    UINT GetMenuState(UINT nID, UINT nFlags) const { return ::GetMenuState(m_hMenu, nID, nFlags); }
    int GetMenuString(UINT nIDItem, LPTSTR lpString, int nMaxCount, UINT nFlags) const
    {
        return ::GetMenuString(m_hMenu, nIDItem, lpString, nMaxCount, nFlags);
    }
    int GetMenuString(UINT nIDItem, CString& rString, UINT nFlags) const;
    BOOL GetMenuItemInfo(UINT uItem, LPMENUITEMINFO lpMenuItemInfo, BOOL fByPos = FALSE)
    {
        return ::GetMenuItemInfo(m_hMenu, uItem, fByPos, lpMenuItemInfo);
    }
    BOOL SetMenuItemInfo(UINT uItem, LPMENUITEMINFO lpMenuItemInfo, BOOL fByPos = FALSE)
    {
        return ::SetMenuItemInfo(m_hMenu, uItem, fByPos, lpMenuItemInfo);
    }
    BOOL SetMenuItemBitmaps(UINT nPosition, UINT nFlags, const CBitmap* pBmpUnchecked,
                            const CBitmap* pBmpChecked);
    // The pop-up behind an item; null when it has none.
    CMenu* GetSubMenu(int nPos) const { return FromHandle(::GetSubMenu(m_hMenu, nPos)); }
    BOOL SetDefaultItem(UINT uItem, BOOL fByPos = FALSE)
    {
        return ::SetMenuDefaultItem(m_hMenu, uItem, fByPos);
    }
    UINT GetDefaultItem(UINT gmdiFlags, BOOL fByPos = FALSE)
    {
        return ::GetMenuDefaultItem(m_hMenu, fByPos, gmdiFlags);
    }
    BOOL GetMenuInfo(LPMENUINFO lpcmi) const { return ::GetMenuInfo(m_hMenu, lpcmi); }
    BOOL SetMenuInfo(LPCMENUINFO lpcmi) { return ::SetMenuInfo(m_hMenu, lpcmi); }
    DWORD GetMenuContextHelpId() const { return ::GetMenuContextHelpId(m_hMenu); }
    BOOL SetMenuContextHelpId(DWORD dwContextHelpId)
    {
        return ::SetMenuContextHelpId(m_hMenu, dwContextHelpId);
    }

    // Overridables
public:
    // Owner-drawn items of the menu; the defaults do nothing.
    virtual void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct);
    virtual void MeasureItem(LPMEASUREITEMSTRUCT lpMeasureItemStruct);
};
