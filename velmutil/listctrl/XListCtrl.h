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

// Messages that a list sends to its parent (or its owner, where the parent is no window of MFC's), registered
// under these names when the library loads. WPARAM is the row, LPARAM the column.
extern VELM_API UINT WM_XLISTCTRL_CHECKBOX_CLICKED; // a click has toggled a cell's check box
extern VELM_API UINT WM_XLISTCTRL_COMBO_SELECTION;  // a choice of a drop-down list became the cell's text

// A list view in report view, created by code or subclassed from a dialog template. It draws its cells
// itself, each from its record: a progress bar, a drop-down (in a selected row), a check box, or an image and
// a text.
//
// Rows and columns count from 0. A row is in range if the list has it, a column if the header has it; both
// are asked anew with each call. Setters return FALSE and getters what is said below for what is out of range
// and for rows without records; nothing throws and nothing shows a message. A setter redraws its cell at
// once unless something else is said.
//
// The records belong to the control and go with the row or the window. Their address is the row's list-view
// parameter, so the caller's own data stand in a record as well, and rows must be inserted through this
// class: its members hide those of CListCtrl of the same names. Columns added later have no records in the
// rows that are there: their cells are drawn plain, and setters refuse them.
//
// Tips are shown if the caller enables them (EnableToolTips).
class VELM_API CXListCtrl : public CListCtrl
{
public:
    CXListCtrl();
    virtual ~CXListCtrl();

    // Rows and columns

    // The number of columns. Rests on HDM_GETITEMCOUNT.
    int GetColumns();

    // Insert a row with a text, in the window's colours or in those given for its first cell, and return its
    // index. -1 for an index below 0, and what the list view returns if it refuses. Where there is no memory
    // for the records: -1, and the row stays without any. An index beyond the end means the end.
    int InsertItem(int nItem, LPCTSTR lpszItem);
    int InsertItem(int nItem, LPCTSTR lpszItem, COLORREF crText, COLORREF crBackground);

    // The same from a description, whose lParam is overwritten; the first cell's image is iImage, whatever
    // the mask says.
    int InsertItem(const LVITEM* pItem);

    // Sends LVM_SETITEM, makes iImage the cell's image, whatever the mask says, and redraws it. -1 for a row
    // below 0. The parameter is the control's own: LVIF_PARAM is taken off before the description is sent.
    BOOL SetItem(const LVITEM* pItem);

    BOOL DeleteItem(int nItem);
    BOOL DeleteAllItems();

    // Deletes every row whose first cell's check state is not 0: those without a check box there as well.
    void DeleteCheckedItems();

    // The first selected row; -1 for none.
    int GetCurSel();

    // Selects a row and gives it the focus within the list. Other selections stay.
    BOOL SetCurSel(int nItem);

    // Cells

    // Sets the text; null is the empty text. Returns what the list view does.
    BOOL SetItemText(int nItem, int nSubItem, LPCTSTR lpszText);

    // The same with colours, of which -1 (0xFFFFFFFF) is the window's own. Null leaves the text as it is.
    BOOL SetItemText(int nItem, int nSubItem, LPCTSTR lpszText, COLORREF crText, COLORREF crBackground);

    // The caller's data of a row, 32 bits; 0 if there is none. Redraws nothing.
    BOOL SetItemData(int nItem, DWORD dwData);
    DWORD GetItemData(int nItem);

    BOOL SetBold(int nItem, int nSubItem, BOOL bBold);
    BOOL GetBold(int nItem, int nSubItem);

    // A disabled row is drawn grey and does not take clicks. Redraws the whole row.
    BOOL SetEnabled(int nItem, BOOL bEnable);
    BOOL GetEnabled(int nItem);

    // The image of a cell, an index into the small image list; -1 for none. TRUE for a row without records,
    // too.
    BOOL SetItemImage(int nItem, int nSubItem, int nImage);

    // The tip of a cell, of which 79 characters are shown; the empty text for none. Redraws nothing.
    BOOL SetItemToolTipText(int nItem, int nSubItem, LPCTSTR lpszToolTipText);
    CString GetItemToolTipText(int nItem, int nSubItem);
    void DeleteAllToolTips();

    // Check boxes

    // -1: the cell has no check box; 0: unchecked; 1: checked; anything else is kept, and drawn unchecked. If
    // the column's header has a check box, it is checked when all rows are, else unchecked. The parent hears
    // nothing. Costs the same however many rows there are.
    BOOL SetCheckbox(int nItem, int nSubItem, int nCheckedState);
    // The state; -1 for what is out of range.
    int GetCheckbox(int nItem, int nSubItem);

    // How many rows are checked (exactly 1) in a column; 0 for what is out of range.
    int CountCheckedItems(int nSubItem);

    // The check box of a column's header: 0 none, 1 unchecked, 2 checked. It is the header item's image
    // index; the pictures are those of the image list that the caller gives the header.
    BOOL SetHeaderCheckedState(int nSubItem, int nCheckedState);
    // The state; -1 for what is out of range.
    int GetHeaderCheckedState(int nSubItem);

    // Drop-downs

    // Makes a cell a drop-down with the texts of `psa`, which stay the caller's and must outlive the cell; it
    // may change, and also shrink. nComboListHeight is the height of the list in rows. The text becomes that
    // of the choice nInitialComboSel, 0 if there is no such. bEnableCombo FALSE makes the cell a plain one
    // and leaves all else; psa must not be null then either.
    BOOL SetComboBox(int nItem, int nSubItem, BOOL bEnableCombo, CStringArray* psa, int nComboListHeight,
                     int nInitialComboSel);

    // The cell's text; empty for what is out of range.
    CString GetComboText(int nItem, int nSubItem);

    // Progress bars

    // Makes a cell a progress bar at 0 percent, which shows neither bar nor text. Above 0 the text stands on
    // it if wanted: lpszProgressText, in which the first "%d" (or a like conversion of one integer, with
    // width up to three digits) stands for the percentage and "%%" for "%"; all else in it is shown as it
    // is. Null or empty: the percentage with "%".
    BOOL SetProgress(int nItem, int nSubItem, BOOL bShowProgressText, LPCTSTR lpszProgressText);

    // Sets the percentage, which is not limited: above 100 the bar runs past the cell.
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

    // The rectangle of a cell in client coordinates. That of column 0 ends where column 1 begins, instead of
    // spanning the row. Rests on LVM_GETSUBITEMRECT.
    BOOL GetSubItemRect(int nItem, int nSubItem, int nArea, CRect& rect);

    // Redraws a cell at once.
    void UpdateSubItem(int nItem, int nSubItem);

    // The tool under the mouse: the cell's number, row x 1000 + column + 1; -1 off every text.
    virtual INT_PTR OnToolHitTest(CPoint point, TOOLINFO* pTI) const;

protected:
    virtual void PreSubclassWindow();
    // Puts the tip of the cell under the mouse into the notification, up to 79 characters.
    virtual BOOL OnToolTipText(UINT id, NMHDR* pNMHDR, LRESULT* pResult);

    void SubclassHeaderControl();
    void UnpressComboButton();

    // Drawing. `rect` is the cell, `records` the row's, null for a row without; all but DrawImage may change
    // the rectangle.
    void DrawText(int nItem, int nSubItem, CDC* pDC, COLORREF crText, COLORREF crBkgnd, CRect& rect,
                  XLISTCTRLDATA* records);
    // Returns the width that gap and image use; 0 without an image.
    int DrawImage(int nItem, int nSubItem, CDC* pDC, COLORREF crText, COLORREF crBkgnd, CRect rect,
                  XLISTCTRLDATA* records);
    void DrawCheckbox(int nItem, int nSubItem, CDC* pDC, COLORREF crText, COLORREF crBkgnd, CRect& rect,
                      XLISTCTRLDATA* records);
    void DrawComboBox(int nItem, int nSubItem, CDC* pDC, COLORREF crText, COLORREF crBkgnd, CRect& rect,
                      XLISTCTRLDATA* records);
    void DrawProgress(int nItem, int nSubItem, CDC* pDC, COLORREF crText, COLORREF crBkgnd, CRect& rect,
                      XLISTCTRLDATA* records);
    // Replaces a cell's colours by those of the selection, where they are to be shown.
    void GetDrawColors(int nItem, int nSubItem, COLORREF& crText, COLORREF& crBkgnd);

    afx_msg BOOL OnClick(NMHDR* pNMHDR, LRESULT* pResult);
    afx_msg BOOL OnColumnClick(NMHDR* pNMHDR, LRESULT* pResult);
    afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct);
    afx_msg void OnCustomDraw(NMHDR* pNMHDR, LRESULT* pResult);
    afx_msg BOOL OnDeleteItem(NMHDR* pNMHDR, LRESULT* pResult);
    afx_msg void OnDestroy();
    afx_msg void OnLButtonDown(UINT nFlags, CPoint point);
    afx_msg void OnPaint();
    afx_msg void OnSysColorChange();
    afx_msg void OnTimer(UINT_PTR nIDEvent);
    afx_msg LRESULT OnComboEscape(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnComboReturn(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnComboKeydown(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnComboLButtonUp(WPARAM wParam, LPARAM lParam);

    DECLARE_MESSAGE_MAP()

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
    // The messages that every access needs go straight to the list view, past the message map.
    int RowCount() { return static_cast<int>(DefWindowProc(LVM_GETITEMCOUNT, 0, 0)); }
    bool HasRow(int row) { return 0 <= row && row < RowCount(); }
    bool HasCell(int row, int column) { return HasRow(row) && 0 <= column && column < GetColumns(); }
    XLISTCTRLDATA* RecordsOf(int row);
    // Null for a cell out of range and for one without a record.
    XLISTCTRLDATA* RecordOf(int row, int column);
    void SetRecords(int row, XLISTCTRLDATA* records);
    int AttachRecords(int row, COLORREF text, COLORREF background, int image);
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
    void OpenComboList(int row, int column, CDC* pDC, const CRect& cell, const XLISTCTRLDATA& record);
    void FillComboList(int row, int column, const XLISTCTRLDATA& record);
    void CloseOpenComboList();
    void DestroyComboList();
    bool TakeComboSelection();

    bool IsSelected(int row) const { return (GetItemState(row, LVIS_SELECTED) & LVIS_SELECTED) != 0; }
    void DrawCell(NMLVCUSTOMDRAW& draw);
    void DrawCheckMark(CDC* pDC, const CRect& box, COLORREF color);
    void DrawComboButton(CDC* pDC, CRect button, bool isDown);
    CFont* BoldFontOf(CDC* pDC);

    // How many rows are checked in each column, so that nobody has to count them.
    std::vector<int> m_checkedCounts;
    bool m_isClosingCombo = false;
    CFont m_fontBold;
    LOGFONT m_boldLogFont;
};
