#include "controls/XListBox.h"

#include "frame/TipText.h"

namespace
{

constexpr UINT NoItem = 0xFFFFFFFF;

} // namespace

BEGIN_MESSAGE_MAP(CXListBox, CWnd)
ON_NOTIFY_EX_RANGE(TTN_NEEDTEXTW, 0, 0xFFFF, &CXListBox::OnToolTipText)
ON_NOTIFY_EX_RANGE(TTN_NEEDTEXTA, 0, 0xFFFF, &CXListBox::OnToolTipText)
END_MESSAGE_MAP()

CXListBox::CXListBox() = default;

CXListBox::~CXListBox() = default;

void CXListBox::PreSubclassWindow()
{
    CListBox::PreSubclassWindow();
    EnableToolTips(TRUE);
}

UINT CXListBox::ItemFromPoint2(CPoint pt, BOOL& bOutside) const
{
    bOutside = TRUE;
    // No further than the last item: there is no rectangle of one behind it.
    const int count = GetCount();
    for (int item = GetTopIndex(); item < count; ++item) {
        CRect rect;
        if (GetItemRect(item, &rect) != LB_ERR && rect.PtInRect(pt)) {
            bOutside = FALSE;
            return static_cast<UINT>(item);
        }
    }
    return NoItem;
}

INT_PTR CXListBox::OnToolHitTest(CPoint point, TOOLINFO* pTI) const
{
    BOOL isOutside = FALSE;
    const UINT item = ItemFromPoint(point, isOutside);
    // An empty list box answers with an item that it does not have.
    if (item == NoItem || static_cast<int>(item) >= GetCount())
        return -1;
    if (pTI != nullptr) {
        GetItemRect(static_cast<int>(item), &pTI->rect);
        pTI->hwnd = m_hWnd;
        pTI->uId = item;
        pTI->lpszText = LPSTR_TEXTCALLBACK;
    }
    return static_cast<INT_PTR>(item);
}

BOOL CXListBox::OnToolTipText(UINT, NMHDR* pNMHDR, LRESULT* pResult)
{
    // The tip may have waited while items went.
    CString text;
    const auto item = static_cast<INT_PTR>(pNMHDR->idFrom);
    if (0 <= item && item < GetCount())
        GetText(static_cast<int>(item), text);
    PutTipText(pNMHDR, text);
    *pResult = 0;
    return TRUE;
}
