// CXComboList: the part of an in-cell combo box that drops down.
#pragma once

#include <afxwin.h>

#include "frame/Portability.h"

// Messages that a CXComboList sends to its opener, registered under these names when the library loads.
// WPARAM and LPARAM are 0, the result is not looked at.
extern VELM_API UINT WM_XCOMBOLIST_VK_RETURN; // Enter was pressed
extern VELM_API UINT WM_XCOMBOLIST_VK_ESCAPE; // Escape was pressed, or the focus went for good
extern VELM_API UINT WM_XCOMBOLIST_KEYDOWN;   // a key is about to move the selection
extern VELM_API UINT WM_XCOMBOLIST_LBUTTONUP; // the left button was released over the list, or pressed on the
                                              // window itself

// A window with a list box and a scroll bar of its own beside it. The selection follows the mouse; keys and
// clicks are told to the opener, which reads the selection and decides what becomes of it. The opener
// makes the object, creates the window (of any style; its rectangle is the largest that the list may
// take), adds the texts, selects one, calls SetActive, and destroys the window when it is done.
//
// Everything that needs the list box does nothing while there is none: the texts are LB_ERR or empty then.
class VELM_API CXComboList : public CWnd
{
public:
    // `parent` receives the registered messages and must outlive the object; null: nothing is sent.
    explicit CXComboList(CWnd* parent);
    virtual ~CXComboList();

    // Each sends the list box's message of the like name and returns its result.
    INT_PTR AddString(CString text);
    INT_PTR FindStringExact(INT_PTR start, CString text);
    INT_PTR GetCount();
    INT_PTR GetCurSel();
    INT_PTR SetCurSel(INT_PTR index);

    // The text of an entry; left as it is without such an entry, and when CMemoryException* is thrown because
    // there is no memory for it.
    void GetText(INT_PTR index, CString& text);

    // The font of the list box alone; null is the system's font. The font stays the caller's and must live
    // as long as the window.
    void SetFont(CFont* font, BOOL redraw);

    // The scroll bar, whatever bar is asked for. Stands beside the member of CWnd of that name.
    virtual CScrollBar* GetScrollBarCtrl(INT_PTR bar);

    // Gives the list box the focus. The first call lays the window out as well, for a scroll bar of that
    // width in pixels: as high as the whole entries that fit into the window's rectangle, 15 at most, and 4
    // pixels more, however many entries there are; and makes the selection follow the mouse from then on, by
    // a timer of 80 ms.
    void SetActive(long scrollBarWidth);

    // Tells the opener of keys and of the mouse button; the list box gets them all the same.
    virtual BOOL PreTranslateMessage(MSG* message);

protected:
    // Sends a message to the opener, if it has a window.
    void SendRegisteredMessage(UINT message, WPARAM wParam, LPARAM lParam);

    // Tell the opener of a press on the window itself and of the focus that goes, make and lay out the two
    // children, scroll the list, end the timer, let the selection follow the mouse.
    afx_msg void OnLButtonDown(UINT flags, CPoint point);
    afx_msg void OnKillFocus(CWnd* newWindow);
    afx_msg int OnCreate(LPCREATESTRUCT createStruct);
    afx_msg void OnVScroll(UINT code, UINT position, CScrollBar* bar);
    afx_msg void OnDestroy();
    afx_msg void OnTimer(UINT_PTR timer);

    DECLARE_MESSAGE_MAP()

    CListBox m_ListBox;        // fills the window but for the bar
    CScrollBar m_wndSBVert;    // stands at its right
    CWnd* m_pParent;           // the opener; may be null
    __int64 m_nKillFocusCount; // the first two losses of the focus come of opening
    BOOL m_bFirstActivation;   // TRUE until SetActive has laid the window out

private:
    bool HasList() const { return ::IsWindow(m_ListBox.GetSafeHwnd()) != FALSE; }
    void LayOut(long scrollBarWidth);
    // Tells the opener of a key that moves the selection, and moves the scroll bar there.
    void ScrollTo(int position, int maximum);
    // The entry from `start` on that begins with a letter; LB_ERR if there is none, 0 without a list.
    int FindLetter(wchar_t letter, int start);
};
