// CXListCtrl: a report list whose cells carry colours, check boxes, drop-downs, progress bars, images and
// tips.
#pragma once

#include <vector>

#include <afxwin.h>
#include <afxcmn.h>

#include "controls/XComboList.h"
#include "frame/Portability.h"
#include "listctrl/XHeaderCtrl.h"
#include "listctrl/XListCtrlData.h"

// Messages that a list sends to its parent (or its owner, where it has no parent window), registered under
// these names when the library loads. WPARAM is the row, LPARAM the column; the result is not looked at.
extern VELM_API UINT WM_XLISTCTRL_CHECKBOX_CLICKED; // a click has toggled a cell's check box
extern VELM_API UINT WM_XLISTCTRL_COMBO_SELECTION;  // a choice was committed by Enter or by a click

// A list view in report view, created by code or subclassed from a dialog template. It draws its cells
// itself, each from its record: a progress bar, a drop-down (in a selected row), a check box, or an image and
// a text.
//
// Rows and columns count from 0. A row is in range if the list has it at the time of the call, a column if
// the header has it. Setters return FALSE for what is out of range and, unless something else is said, for
// rows without records; what getters return then is said below. Nothing throws and nothing shows a message:
// where there is no memory for a text, setters return FALSE and change nothing and getters return the empty
// text; a cell that cannot be drawn stays undrawn, and a drop-down that cannot be filled does not open.
// A setter redraws its cell at once unless something else is said; while the list is hidden or its redraw is
// off (SetRedraw), it does not.
//
// The records belong to the control and go with the row or the window. Their address is the row's list-view
// parameter, so the caller's own data stand in a record as well, and rows must be inserted through this
// class: its members hide those of CListCtrl of the same names. Columns added later have no records in the
// rows that are there: their cells are drawn plain, and setters that need a record refuse them.
//
// A press of the left button toggles the check box of the cell wherever it lands in the cell, and opens the
// drop-down of a cell that has one when it lands on the drop button. In a disabled row, and in one without
// records, it is swallowed: not even the selection changes. The drop-down closes 50 ms after Enter or a click
// on an entry, which commit the choice, and 50 ms after Escape or a press on a cell of neither kind or beside
// the cells, which put back the entry that was selected at the opening. A press on any drop-down cell closes
// it at once and leaves the text. It stays until then, also without its row, and ends with the object or
// with its next window at the latest. Meanwhile keys copy the selected entry into the cell.
//
// In any notification or message the parent may delete rows, destroy the window or delete the object, as far
// as the list view itself bears it.
//
// Tips are shown if the caller enables them (EnableToolTips). Timers of the window are this class's: WM_TIMER
// of any other id is swallowed.
class VELM_API CXListCtrl : public CListCtrl
{
public:
    CXListCtrl();
    virtual ~CXListCtrl();

    // Rows and columns

    // The number of columns. Rests on HDM_GETITEMCOUNT.
    int GetColumns();

    // Insert a row with a text, in the window's colours or in those given for its first cell, and return its
    // index; null is the empty text. -1 for an index below 0, and what the list view returns if it refuses.
    // Where there is no memory for the records: -1, and the row stays without any. An index beyond the end
    // means the end. Rest on LVM_INSERTITEM.
    int InsertItem(int nItem, LPCTSTR lpszItem);
    int InsertItem(int nItem, LPCTSTR lpszItem, COLORREF crText, COLORREF crBackground);

    // The same from a description, whose lParam is not used; the first cell's image is iImage, whatever the
    // mask says. -1 for null.
    int InsertItem(const LVITEM* pItem);

    // Sends LVM_SETITEM, makes iImage the cell's image, whatever the mask says, and redraws it. -1 for null
    // and for a row below 0; FALSE if the list view refuses, and also, though the rest is set, for a cell
    // without a record. The parameter is the control's own: LVIF_PARAM is taken off before the description is
    // sent.
    BOOL SetItem(const LVITEM* pItem);

    // Delete a row, or all, and the records with it. Return what the list view does. Rest on LVM_DELETEITEM
    // and LVM_DELETEALLITEMS.
    BOOL DeleteItem(int nItem);
    BOOL DeleteAllItems();

    // Deletes every row whose first cell's check state is not 0: those without a check box there as well.
    void DeleteCheckedItems();

    // The first selected row; -1 for none. Rests on LVM_GETNEXTITEM.
    int GetCurSel();

    // Selects a row and gives it the focus within the list. Other selections stay. Returns what the list view
    // does, to which a row out of range is left as well. Rests on LVM_SETITEMSTATE.
    BOOL SetCurSel(int nItem);

    // Cells

    // Sets the text, also of a row without records; null is the empty text. Returns what the list view does.
    // Rests on LVM_SETITEMTEXT.
    BOOL SetItemText(int nItem, int nSubItem, LPCTSTR lpszText);

    // The same with colours, of which -1 (0xFFFFFFFF) is the window's own; a row without records has none to
    // set. Null leaves the text as it is, and the result is TRUE then.
    BOOL SetItemText(int nItem, int nSubItem, LPCTSTR lpszText, COLORREF crText, COLORREF crBackground);

    // The caller's data of a row, 32 bits; 0 if there is none. Redraws nothing.
    BOOL SetItemData(int nItem, DWORD dwData);
    DWORD GetItemData(int nItem);

    // Whether the text is bold; a cell that shows a check box, a drop-down or a progress bar draws it plain.
    // GetBold returns FALSE for what is out of range and for rows without records.
    BOOL SetBold(int nItem, int nSubItem, BOOL bBold);
    BOOL GetBold(int nItem, int nSubItem);

    // A disabled row is drawn grey and does not take clicks. SetEnabled redraws the whole row. GetEnabled
    // returns FALSE for what is out of range and for rows without records.
    BOOL SetEnabled(int nItem, BOOL bEnable);
    BOOL GetEnabled(int nItem);

    // The image of a cell, an index into the small image list; -1 for none. TRUE for a row without records,
    // too.
    BOOL SetItemImage(int nItem, int nSubItem, int nImage);

    // The tip of a cell, of which 79 characters are shown; null or the empty text for none. The getter
    // returns the empty text for what is out of range and for rows without records. DeleteAllToolTips empties
    // those of all cells. They redraw nothing.
    BOOL SetItemToolTipText(int nItem, int nSubItem, LPCTSTR lpszToolTipText);
    CString GetItemToolTipText(int nItem, int nSubItem);
    void DeleteAllToolTips();

    // Check boxes

    // -1: the cell has no check box; 0: unchecked; 1: checked; anything else is kept, and drawn unchecked. If
    // the column's header has a check box, it is checked when all rows are, else unchecked; it is written
    // only if it changes. The parent hears nothing. Costs the same however many rows there are.
    BOOL SetCheckbox(int nItem, int nSubItem, int nCheckedState);
    // The state; -1 for what is out of range and for rows without records.
    int GetCheckbox(int nItem, int nSubItem);

    // How many rows are checked (exactly 1) in a column; 0 for what is out of range. The number is kept: it
    // follows SetCheckbox, clicks and rows that go, also past this class, but no state that is written into
    // a record directly.
    int CountCheckedItems(int nSubItem);

    // The check box of a column's header: 0 none, 1 unchecked, 2 checked. It is the header item's image
    // index; the pictures are those of the image list that the caller gives the header. Rests on HDM_SETITEM.
    BOOL SetHeaderCheckedState(int nSubItem, int nCheckedState);
    // The state; -1 for what is out of range. Rests on HDM_GETITEM.
    int GetHeaderCheckedState(int nSubItem);

    // Drop-downs

    // Makes a cell a drop-down with the texts of `psa`, which stay the caller's and must outlive the cell; it
    // may change, and also shrink. nComboListHeight is the height of the list in rows, each one pixel lower
    // than the cell; in all it is 0 to 32767 pixels, whatever is given. The text becomes that
    // of the choice nInitialComboSel, 0 if there is no such. bEnableCombo FALSE makes the cell a plain one
    // and leaves all else; psa must not be null then either.
    BOOL SetComboBox(int nItem, int nSubItem, BOOL bEnableCombo, CStringArray* psa, int nComboListHeight,
                     int nInitialComboSel);

    // The cell's text; empty for what is out of range. Rests on LVM_GETITEMTEXT.
    CString GetComboText(int nItem, int nSubItem);

    // Progress bars

    // Makes a cell a progress bar at 0 percent, which shows neither bar nor text. Above 0 the text stands on
    // it if wanted: lpszProgressText, in which the first "%d" (or a like conversion of one integer, with
    // width up to three digits) stands for the percentage and "%%" for "%"; all else in it is shown as it
    // is. Null or empty: the percentage with "%".
    BOOL SetProgress(int nItem, int nSubItem, BOOL bShowProgressText, LPCTSTR lpszProgressText);

    // Sets the percentage, which is not limited: above 100 the bar runs past the cell, below 0 the frame is
    // empty as at 0.
    void UpdateProgress(int nItem, int nSubItem, int nPercent);

    // Makes the cell a plain one again.
    void DeleteProgress(int nItem, int nSubItem);

    // The list

    // A word kept for the caller. Setting it returns the one before.
    DWORD SetExtendedStyleX(DWORD dwNewStyle);
    DWORD GetExtendedStyleX();

    // What a list without rows shows; "There are no items to show in this view." if it is empty. Redraws
    // nothing.
    void SetDefaultTextMessage(CString strMessage);

    // The rectangle of a cell in client coordinates; nArea is LVIR_BOUNDS, LVIR_ICON or LVIR_LABEL. If there
    // are more columns, that of column 0 ends where column 1 begins, instead of spanning the row, and the
    // result is that of asking for column 1. For what is out of range `rect` stays as it is. Rests on
    // LVM_GETSUBITEMRECT.
    BOOL GetSubItemRect(int nItem, int nSubItem, int nArea, CRect& rect);

    // Redraws a cell at once, if the list is visible and its redraw is on. Rests on InvalidateRect and
    // UpdateWindow.
    void UpdateSubItem(int nItem, int nSubItem);

    // The tool under the mouse: the cell's number, row x 1000 + column + 1 in 32 bits; -1 off every text.
    // Writes window, id, text (LPSTR_TEXTCALLBACK) and rectangle (the client area) of *pTI, nothing where
    // there is no tool. Null is allowed.
    virtual INT_PTR OnToolHitTest(CPoint point, TOOLINFO* pTI) const;

protected:
    // Takes over the header.
    virtual void PreSubclassWindow();
    // Puts the tip of the cell under the mouse into the notification, up to 79 characters.
    virtual BOOL OnToolTipText(UINT id, NMHDR* pNMHDR, LRESULT* pResult);

    // Makes m_HeaderCtrl the list's header, once for each window.
    void SubclassHeaderControl();
    // Raises the drop button that is held, and draws it. The open list stays. Does nothing within itself.
    void UnpressComboButton();

    // Drawing. `rect` is the cell, `records` its row's own array (a hidden count stands before it), null for
    // a row without; all but DrawImage may change the rectangle. What has its left side beyond its right one
    // is empty: nothing is filled or written there. The list draws no cell without width.

    // Keeps the bold font for the next cell.
    void DrawText(int nItem, int nSubItem, CDC* pDC, COLORREF crText, COLORREF crBkgnd, CRect& rect,
                  XLISTCTRLDATA* records);
    // Returns the gap and the whole width of the image, also where that is cut; 0 without an image or room.
    int DrawImage(int nItem, int nSubItem, CDC* pDC, COLORREF crText, COLORREF crBkgnd, CRect rect,
                  XLISTCTRLDATA* records);
    void DrawCheckbox(int nItem, int nSubItem, CDC* pDC, COLORREF crText, COLORREF crBkgnd, CRect& rect,
                      XLISTCTRLDATA* records);
    // Gives a cell without text its initial choice as text, unless that is empty, and opens the list if the
    // button is pressed.
    void DrawComboBox(int nItem, int nSubItem, CDC* pDC, COLORREF crText, COLORREF crBkgnd, CRect& rect,
                      XLISTCTRLDATA* records);
    // The label stays inside the context's clip region, which is the same afterwards.
    void DrawProgress(int nItem, int nSubItem, CDC* pDC, COLORREF crText, COLORREF crBkgnd, CRect& rect,
                      XLISTCTRLDATA* records);
    // Replaces a cell's colours by those of the selection, where they are to be shown.
    void GetDrawColors(int nItem, int nSubItem, COLORREF& crText, COLORREF& crBkgnd);

    // What presses, clicks, timers and the drop-down do is said at the class; the drawing is done at the list
    // view's custom draw.
    afx_msg BOOL OnClick(NMHDR* pNMHDR, LRESULT* pResult);
    afx_msg BOOL OnColumnClick(NMHDR* pNMHDR, LRESULT* pResult);
    afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct);
    afx_msg void OnCustomDraw(NMHDR* pNMHDR, LRESULT* pResult);
    afx_msg BOOL OnDeleteItem(NMHDR* pNMHDR, LRESULT* pResult);
    afx_msg BOOL OnDeleteAllItems(NMHDR* pNMHDR, LRESULT* pResult);
    afx_msg BOOL OnItemChange(NMHDR* pNMHDR, LRESULT* pResult);
    afx_msg void OnDestroy();
    afx_msg void OnLButtonDown(UINT nFlags, CPoint point);
    afx_msg void OnPaint();
    afx_msg void OnSysColorChange();
    afx_msg LRESULT OnSetRedraw(WPARAM wParam, LPARAM lParam);
    afx_msg void OnTimer(UINT_PTR nIDEvent);
    afx_msg LRESULT OnComboEscape(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnComboReturn(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnComboKeydown(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnComboLButtonUp(WPARAM wParam, LPARAM lParam);

    DECLARE_MESSAGE_MAP()

    // The header taken over, the system's colours as last read, the drop-down and its cell (m_pCombo is null
    // while none is open) and the text of an empty list. m_cImageList is a derived class's to use.
    CXHeaderCtrl m_HeaderCtrl;
    CImageList m_cImageList;
    BOOL m_bHeaderSubclassed;
    DWORD m_dwExtendedStyleX;
    COLORREF m_cr3DFace;
    COLORREF m_cr3DHighLight;
    COLORREF m_cr3DShadow;
    COLORREF m_crBtnFace;
    COLORREF m_crBtnShadow;
    COLORREF m_crBtnText;
    COLORREF m_crGrayText;
    COLORREF m_crHighLight;
    COLORREF m_crHighLightText;
    COLORREF m_crWindow;
    COLORREF m_crWindowText;
    BOOL m_bComboButtonHeld;
    int m_nComboItem;
    int m_nComboSubItem;
    CRect m_rectComboButton;
    CRect m_rectComboList;
    CXComboList* m_pCombo;
    CFont m_fontComboList;
    BOOL m_bComboFontCreated;
    CString m_strComboOpenText;
    CString m_strNoItemsMessage;

private:
    class Watch;

    // The messages that every access needs go straight to the list view, past the message map.
    int RowCount() { return m_hWnd != nullptr ? static_cast<int>(DefWindowProc(LVM_GETITEMCOUNT, 0, 0)) : 0; }
    bool HasRow(int row) { return 0 <= row && row < RowCount(); }
    bool HasCell(int row, int column) { return HasRow(row) && 0 <= column && column < GetColumns(); }
    // Whether its cells can be seen to be redrawn.
    bool IsDrawn() const { return m_isRedrawOn && IsWindowVisible(); }
    // Whether the row, or the cell, is in range; then its row's records, or null.
    bool FindRow(int row, XLISTCTRLDATA*& records);
    bool FindCell(int row, int column, XLISTCTRLDATA*& records);
    // Null for a row out of range and for one without records.
    XLISTCTRLDATA* RecordsOf(int row);
    // Null for a cell out of range and for one without a record.
    XLISTCTRLDATA* RecordOf(int row, int column);
    bool SetRecords(int row, XLISTCTRLDATA* records);
    // The records of a new row, with these in its first cell; null if there is no memory.
    XLISTCTRLDATA* NewRecords(COLORREF text, COLORREF background, int image);
    int InsertWithRecords(LVITEM item, COLORREF text, COLORREF background, int image);
    void FreeRecords(int row);
    void FreeAllRecords();
    CRect CellRect(int row, int column);
    void RedrawCell(int row, int column);
    BOOL SetTextOf(int row, int column, LPCTSTR text);
    CString TextOf(int row, int column) const { return CListCtrl::GetItemText(row, column); }
    void SetCheckedState(XLISTCTRLDATA& record, int column, int state);
    void AdjustCheckedCount(int column, int state, int change);
    void UpdateHeaderCheckbox(int column);
    void ReadSystemColors();

    int RowAt(CPoint point);
    int ColumnAt(int row, CPoint point);
    bool SendToParent(UINT message, int row, int column);
    void ToggleCheckbox(int row, int column);
    void PressComboButton(int row, int column, CPoint point);
    void OpenComboList(int row, int column, CDC* pDC, const CRect& cell);
    // Whether the list is still that one and open.
    bool FillComboList(int row, int column, const XLISTCTRLDATA& record);
    // The end of a press that is none of a cell of this class.
    void CloseOpenComboListAndGoOn();
    void DestroyComboList();
    bool TakeComboSelection();
    void CommitComboSelection();

    bool IsSelected(int row) const { return (GetItemState(row, LVIS_SELECTED) & LVIS_SELECTED) != 0; }
    void DrawCell(NMLVCUSTOMDRAW& draw);
    void DrawCheckMark(CDC* pDC, const CRect& box, COLORREF color);
    void DrawComboButton(CDC* pDC, CRect button, bool isDown);
    CFont* BoldFontOf(CDC* pDC);

    // How many rows are checked in each column, so that nobody has to count them.
    std::vector<int> m_checkedCounts;
    bool m_isClosingCombo = false;
    bool m_isRedrawOn = true;
    bool m_isSettingRecords = false;
    bool m_isChoosing = false;
    // The innermost of those that watch the list, and how often records were freed.
    Watch* m_watch = nullptr;
    unsigned m_recordsFreed = 0;
    // How often a drop-down has ended: the next one may have the address of the last.
    unsigned m_combosEnded = 0;
    CFont m_fontBold;
    LOGFONT m_boldLogFont;
};
