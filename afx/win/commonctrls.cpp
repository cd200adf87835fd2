// The common controls' creation, and the members that are more than one message.
#include "afxcmn.h"

IMPLEMENT_DYNAMIC(CProgressCtrl, CWnd)
IMPLEMENT_DYNAMIC(CStatusBarCtrl, CWnd)
IMPLEMENT_DYNAMIC(CHeaderCtrl, CWnd)
IMPLEMENT_DYNAMIC(CListCtrl, CWnd)
IMPLEMENT_DYNAMIC(CToolBarCtrl, CWnd)
IMPLEMENT_DYNAMIC(CTreeCtrl, CWnd)

namespace
{
void InitClasses(DWORD dwClasses)
{
    const INITCOMMONCONTROLSEX classes{sizeof classes, dwClasses};
    ::InitCommonControlsEx(&classes);
}

CImageList* OwnedList(LRESULT lResult)
{
    CImageList* pList = nullptr;
    if (lResult != 0) {
        pList = new CImageList;
        pList->Attach(reinterpret_cast<HIMAGELIST>(lResult));
    }
    return pList;
}

// Gets a text of unknown length: asks with more and more room until it fits. get(buffer, size) returns
// the number of characters that were copied.
template <class Get>
CString WholeText(Get get)
{
    CString text;
    for (int nSize = 256;; nSize *= 2) {
        LPTSTR const pBuffer = text.GetBuffer(nSize);
        pBuffer[0] = 0;
        const int nCopied = get(pBuffer, nSize);
        text.ReleaseBuffer();
        if (nCopied < nSize - 1)
            return text;
    }
}
} // namespace

#define COMMON_CONTROL(theClass, windowClass, classes)                                                       \
    theClass::theClass() {}                                                                                  \
    theClass::~theClass()                                                                                    \
    {                                                                                                        \
        DestroyWindow();                                                                                     \
    }                                                                                                        \
    BOOL theClass::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)                       \
    {                                                                                                        \
        InitClasses(classes);                                                                                \
        return CWnd::Create(windowClass, nullptr, dwStyle, rect, pParentWnd, nID);                           \
    }                                                                                                        \
    BOOL theClass::CreateEx(DWORD dwExStyle, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)    \
    {                                                                                                        \
        InitClasses(classes);                                                                                \
        return CWnd::CreateEx(dwExStyle, windowClass, nullptr, dwStyle | WS_CHILD, rect, pParentWnd, nID);   \
    }

COMMON_CONTROL(CProgressCtrl, PROGRESS_CLASS, ICC_PROGRESS_CLASS)
COMMON_CONTROL(CStatusBarCtrl, STATUSCLASSNAME, ICC_BAR_CLASSES)
COMMON_CONTROL(CHeaderCtrl, WC_HEADER, ICC_LISTVIEW_CLASSES)
COMMON_CONTROL(CListCtrl, WC_LISTVIEW, ICC_LISTVIEW_CLASSES)
COMMON_CONTROL(CTreeCtrl, WC_TREEVIEW, ICC_TREEVIEW_CLASSES)

// A toolbar has to be told the size of its button records before anything else.
CToolBarCtrl::CToolBarCtrl() {}
CToolBarCtrl::~CToolBarCtrl()
{
    DestroyWindow();
}

BOOL CToolBarCtrl::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    return CreateEx(0, dwStyle, rect, pParentWnd, nID);
}

BOOL CToolBarCtrl::CreateEx(DWORD dwExStyle, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    InitClasses(ICC_BAR_CLASSES);
    if (!CWnd::CreateEx(dwExStyle, TOOLBARCLASSNAME, nullptr, dwStyle | WS_CHILD, rect, pParentWnd, nID))
        return FALSE;
    SetButtonStructSize(sizeof(TBBUTTON));
    return TRUE;
}

// Progress bar

void CProgressCtrl::GetRange(int& nLower, int& nUpper) const
{
    PBRANGE range{};
    AfxSend(m_hWnd, PBM_GETRANGE, TRUE, &range);
    nLower = range.iLow;
    nUpper = range.iHigh;
}

// Status bar

CString CStatusBarCtrl::GetText(int nPane, int* pType) const
{
    CString text;
    const int nLength = GetTextLength(nPane, pType);
    AfxSend(m_hWnd, SB_GETTEXT, nPane, text.GetBufferSetLength(nLength));
    text.ReleaseBuffer();
    return text;
}

int CStatusBarCtrl::GetTextLength(int nPane, int* pType) const
{
    const DWORD dwLength = static_cast<DWORD>(AfxSend(m_hWnd, SB_GETTEXTLENGTH, nPane, 0));
    if (pType != nullptr)
        *pType = HIWORD(dwLength);
    return LOWORD(dwLength);
}

void CStatusBarCtrl::DrawItem(LPDRAWITEMSTRUCT) {}

BOOL CStatusBarCtrl::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    if (message != WM_DRAWITEM)
        return CWnd::OnChildNotify(message, wParam, lParam, pResult);
    DrawItem(reinterpret_cast<LPDRAWITEMSTRUCT>(lParam));
    return TRUE;
}

// Header

BOOL CHeaderCtrl::GetOrderArray(LPINT piArray, int iCount)
{
    return static_cast<BOOL>(
        AfxSend(m_hWnd, HDM_GETORDERARRAY, iCount == -1 ? GetItemCount() : iCount, piArray));
}

CImageList* CHeaderCtrl::CreateDragImage(int nIndex)
{
    return OwnedList(AfxSend(m_hWnd, HDM_CREATEDRAGIMAGE, nIndex, 0));
}

void CHeaderCtrl::DrawItem(LPDRAWITEMSTRUCT) {}

BOOL CHeaderCtrl::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    if (message != WM_DRAWITEM)
        return CWnd::OnChildNotify(message, wParam, lParam, pResult);
    DrawItem(reinterpret_cast<LPDRAWITEMSTRUCT>(lParam));
    return TRUE;
}

// List view

BOOL CListCtrl::SetItem(int nItem, int nSubItem, UINT nMask, LPCTSTR lpszItem, int nImage, UINT nState,
                        UINT nStateMask, LPARAM lParam)
{
    return SetItem(nItem, nSubItem, nMask, lpszItem, nImage, nState, nStateMask, lParam, 0);
}

BOOL CListCtrl::SetItem(int nItem, int nSubItem, UINT nMask, LPCTSTR lpszItem, int nImage, UINT nState,
                        UINT nStateMask, LPARAM lParam, int nIndent)
{
    LVITEM item{};
    item.mask = nMask;
    item.iItem = nItem;
    item.iSubItem = nSubItem;
    item.state = nState;
    item.stateMask = nStateMask;
    item.pszText = const_cast<LPTSTR>(lpszItem);
    item.iImage = nImage;
    item.lParam = lParam;
    item.iIndent = nIndent;
    return SetItem(&item);
}

int CListCtrl::InsertItem(UINT nMask, int nItem, LPCTSTR lpszItem, UINT nState, UINT nStateMask, int nImage,
                          LPARAM lParam)
{
    LVITEM item{};
    item.mask = nMask;
    item.iItem = nItem;
    item.state = nState;
    item.stateMask = nStateMask;
    item.pszText = const_cast<LPTSTR>(lpszItem);
    item.iImage = nImage;
    item.lParam = lParam;
    return InsertItem(&item);
}

// A position is the item's index plus one, so that null is none.
POSITION CListCtrl::GetFirstSelectedItemPosition() const
{
    return reinterpret_cast<POSITION>(static_cast<INT_PTR>(1 + GetNextItem(-1, LVNI_SELECTED)));
}

int CListCtrl::GetNextSelectedItem(POSITION& pos) const
{
    const int nItem = static_cast<int>(reinterpret_cast<INT_PTR>(pos)) - 1;
    pos = reinterpret_cast<POSITION>(static_cast<INT_PTR>(1 + GetNextItem(nItem, LVNI_SELECTED)));
    return nItem;
}

BOOL CListCtrl::SetItemState(int nItem, UINT nState, UINT nMask)
{
    LVITEM item{};
    item.state = nState;
    item.stateMask = nMask;
    return SetItemState(nItem, &item);
}

int CListCtrl::GetItemText(int nItem, int nSubItem, LPTSTR lpszText, int nLen) const
{
    LVITEM item{};
    item.iSubItem = nSubItem;
    item.pszText = lpszText;
    item.cchTextMax = nLen;
    return static_cast<int>(AfxSend(m_hWnd, LVM_GETITEMTEXT, nItem, &item));
}

CString CListCtrl::GetItemText(int nItem, int nSubItem) const
{
    return WholeText(
        [=, this](LPTSTR pBuffer, int nSize) { return GetItemText(nItem, nSubItem, pBuffer, nSize); });
}

BOOL CListCtrl::SetItemText(int nItem, int nSubItem, LPCTSTR lpszText)
{
    LVITEM item{};
    item.iSubItem = nSubItem;
    item.pszText = const_cast<LPTSTR>(lpszText);
    return static_cast<BOOL>(AfxSend(m_hWnd, LVM_SETITEMTEXT, nItem, &item));
}

DWORD_PTR CListCtrl::GetItemData(int nItem) const
{
    LVITEM item{};
    item.mask = LVIF_PARAM;
    item.iItem = nItem;
    GetItem(&item);
    return static_cast<DWORD_PTR>(item.lParam);
}

BOOL CListCtrl::SetItemData(int nItem, DWORD_PTR dwData)
{
    return SetItem(nItem, 0, LVIF_PARAM, nullptr, 0, 0, 0, static_cast<LPARAM>(dwData));
}

int CListCtrl::InsertColumn(int nCol, LPCTSTR lpszColumnHeading, int nFormat, int nWidth, int nSubItem)
{
    LVCOLUMN column{};
    column.mask = LVCF_TEXT | LVCF_FMT;
    column.pszText = const_cast<LPTSTR>(lpszColumnHeading);
    column.fmt = nFormat;
    if (nWidth != -1) {
        column.mask |= LVCF_WIDTH;
        column.cx = nWidth;
    }
    if (nSubItem != -1) {
        column.mask |= LVCF_SUBITEM;
        column.iSubItem = nSubItem;
    }
    return InsertColumn(nCol, &column);
}

BOOL CListCtrl::GetColumnOrderArray(LPINT piArray, int iCount)
{
    if (iCount == -1)
        iCount = GetHeaderCtrl()->GetItemCount();
    return static_cast<BOOL>(AfxSend(m_hWnd, LVM_GETCOLUMNORDERARRAY, iCount, piArray));
}

BOOL CListCtrl::GetItemRect(int nItem, LPRECT lpRect, UINT nCode) const
{
    lpRect->left = static_cast<LONG>(nCode);
    return static_cast<BOOL>(AfxSend(m_hWnd, LVM_GETITEMRECT, nItem, lpRect));
}

BOOL CListCtrl::GetSubItemRect(int iItem, int iSubItem, int nArea, CRect& ref)
{
    RECT rect{};
    rect.top = iSubItem;
    rect.left = nArea;
    if (!AfxSend(m_hWnd, LVM_GETSUBITEMRECT, iItem, &rect))
        return FALSE;
    ref = rect;
    return TRUE;
}

int CListCtrl::HitTest(CPoint pt, UINT* pFlags) const
{
    LVHITTESTINFO hit{};
    hit.pt = pt;
    const int nItem = HitTest(&hit);
    if (pFlags != nullptr)
        *pFlags = hit.flags;
    return nItem;
}

CImageList* CListCtrl::CreateDragImage(int nItem, LPPOINT lpPoint)
{
    return OwnedList(AfxSend(m_hWnd, LVM_CREATEDRAGIMAGE, nItem, lpPoint));
}

void CListCtrl::DrawItem(LPDRAWITEMSTRUCT) {}

BOOL CListCtrl::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    if (message != WM_DRAWITEM)
        return CWnd::OnChildNotify(message, wParam, lParam, pResult);
    DrawItem(reinterpret_cast<LPDRAWITEMSTRUCT>(lParam));
    return TRUE;
}

// Tree view

HTREEITEM CTreeCtrl::InsertItem(UINT nMask, LPCTSTR lpszItem, int nImage, int nSelectedImage, UINT nState,
                                UINT nStateMask, LPARAM lParam, HTREEITEM hParent, HTREEITEM hInsertAfter)
{
    TVINSERTSTRUCT insertion{};
    insertion.hParent = hParent;
    insertion.hInsertAfter = hInsertAfter;
    insertion.item.mask = nMask;
    insertion.item.pszText = const_cast<LPTSTR>(lpszItem);
    insertion.item.iImage = nImage;
    insertion.item.iSelectedImage = nSelectedImage;
    insertion.item.state = nState;
    insertion.item.stateMask = nStateMask;
    insertion.item.lParam = lParam;
    return InsertItem(&insertion);
}

BOOL CTreeCtrl::SetItem(HTREEITEM hItem, UINT nMask, LPCTSTR lpszItem, int nImage, int nSelectedImage,
                        UINT nState, UINT nStateMask, LPARAM lParam)
{
    TVITEM item{};
    item.hItem = hItem;
    item.mask = nMask | TVIF_HANDLE;
    item.pszText = const_cast<LPTSTR>(lpszItem);
    item.iImage = nImage;
    item.iSelectedImage = nSelectedImage;
    item.state = nState;
    item.stateMask = nStateMask;
    item.lParam = lParam;
    return SetItem(&item);
}

BOOL CTreeCtrl::GetItemImage(HTREEITEM hItem, int& nImage, int& nSelectedImage) const
{
    TVITEM item{};
    item.hItem = hItem;
    item.mask = TVIF_HANDLE | TVIF_IMAGE | TVIF_SELECTEDIMAGE;
    const BOOL bFound = GetItem(&item);
    nImage = item.iImage;
    nSelectedImage = item.iSelectedImage;
    return bFound;
}

CString CTreeCtrl::GetItemText(HTREEITEM hItem) const
{
    return WholeText([=, this](LPTSTR pBuffer, int nSize) {
        TVITEM item{};
        item.hItem = hItem;
        item.mask = TVIF_HANDLE | TVIF_TEXT;
        item.pszText = pBuffer;
        item.cchTextMax = nSize;
        if (!GetItem(&item))
            return 0;
        // The control may have pointed to a text of its own.
        if (item.pszText != pBuffer)
            ::lstrcpyn(pBuffer, item.pszText, nSize);
        return ::lstrlen(pBuffer);
    });
}

DWORD_PTR CTreeCtrl::GetItemData(HTREEITEM hItem) const
{
    TVITEM item{};
    item.hItem = hItem;
    item.mask = TVIF_HANDLE | TVIF_PARAM;
    GetItem(&item);
    return static_cast<DWORD_PTR>(item.lParam);
}

BOOL CTreeCtrl::ItemHasChildren(HTREEITEM hItem) const
{
    TVITEM item{};
    item.hItem = hItem;
    item.mask = TVIF_HANDLE | TVIF_CHILDREN;
    GetItem(&item);
    return item.cChildren != 0;
}

BOOL CTreeCtrl::GetItemRect(HTREEITEM hItem, LPRECT lpRect, BOOL bTextOnly) const
{
    // The message finds the item's handle where it leaves the rectangle.
    std::memcpy(lpRect, &hItem, sizeof hItem);
    return static_cast<BOOL>(AfxSend(m_hWnd, TVM_GETITEMRECT, bTextOnly, lpRect));
}

HTREEITEM CTreeCtrl::HitTest(CPoint pt, UINT* pFlags) const
{
    TVHITTESTINFO hit{};
    hit.pt = pt;
    const HTREEITEM hItem = HitTest(&hit);
    if (pFlags != nullptr)
        *pFlags = hit.flags;
    return hItem;
}

CImageList* CTreeCtrl::CreateDragImage(HTREEITEM hItem)
{
    return OwnedList(AfxSend(m_hWnd, TVM_CREATEDRAGIMAGE, 0, hItem));
}

// Toolbar

int CToolBarCtrl::AddBitmap(int nNumButtons, UINT nBitmapID)
{
    TBADDBITMAP addition{};
    addition.hInst = AfxFindResourceHandle(MAKEINTRESOURCE(nBitmapID), RT_BITMAP);
    addition.nID = nBitmapID;
    return static_cast<int>(AfxSend(m_hWnd, TB_ADDBITMAP, nNumButtons, &addition));
}

int CToolBarCtrl::AddBitmap(int nNumButtons, CBitmap* pBitmap)
{
    TBADDBITMAP addition{};
    addition.nID = reinterpret_cast<UINT_PTR>(AfxSafe(static_cast<CGdiObject*>(pBitmap)));
    return static_cast<int>(AfxSend(m_hWnd, TB_ADDBITMAP, nNumButtons, &addition));
}

int CToolBarCtrl::AddString(UINT nStringID)
{
    const HINSTANCE hInstance = AfxFindStringResourceHandle(nStringID);
    return hInstance == nullptr
               ? -1
               : static_cast<int>(AfxSend(m_hWnd, TB_ADDSTRING, hInstance, MAKELONG(nStringID, 0)));
}

int CToolBarCtrl::GetString(int nString, CString& str) const
{
    const int nLength = GetString(nString, nullptr, 0);
    if (nLength < 0)
        return nLength;
    GetString(nString, str.GetBufferSetLength(nLength), nLength + 1);
    str.ReleaseBuffer();
    return str.GetLength();
}

CString CToolBarCtrl::GetButtonText(int idButton) const
{
    CString text;
    const int nLength = static_cast<int>(AfxSend(m_hWnd, TB_GETBUTTONTEXT, idButton, 0));
    if (nLength > 0) {
        AfxSend(m_hWnd, TB_GETBUTTONTEXT, idButton, text.GetBufferSetLength(nLength));
        text.ReleaseBuffer();
    }
    return text;
}
