// CXListBox: a list box that shows its items in tips.
#pragma once

#include <afxwin.h>
#include <afxcmn.h>

#include "frame/Portability.h"

// Subclasses a list box and shows the text of the item under the mouse as a tip, so that items wider than the
// box can be read. 79 characters are shown. Made for single-column list boxes of strings with up to 65,535
// items, which is what the list box finds by a point.
class VELM_API CXListBox : public CListBox
{
public:
    CXListBox();
    virtual ~CXListBox();

    // The item that contains the point (client coordinates); bOutside tells whether there is none, and
    // the result is 0xFFFFFFFF then. Never a nearest item, unlike ItemFromPoint. Items from the top index on
    // are found, also below the box, but none above it. Rests on LB_GETITEMRECT.
    UINT ItemFromPoint2(CPoint pt, BOOL& bOutside) const;

    // The tool is the item nearest to the point; its index is the result. -1 for a list box without items.
    virtual INT_PTR OnToolHitTest(CPoint point, TOOLINFO* pTI) const;

    // Puts the text of the item whose index is the tool's number into the notification, an empty one when
    // there is no such item. The text is narrow for TTN_NEEDTEXTA and wide for any other code; *pResult is
    // set to 0. Always TRUE.
    BOOL OnToolTipText(UINT id, NMHDR* pNMHDR, LRESULT* pResult);

protected:
    // Enables tips.
    virtual void PreSubclassWindow();

    DECLARE_MESSAGE_MAP()
};
