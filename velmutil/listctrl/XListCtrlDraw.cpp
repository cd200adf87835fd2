// The drawing of CXListCtrl.
#include "listctrl/XListCtrl.h"

#include <algorithm>
#include <cstring>
#include <string>

#include "frame/Completing.h"
#include "listctrl/ImageDrawing.h"
#include "listctrl/ListWatch.h"
#include "listctrl/ProgressText.h"
#include "listctrl/RowRecords.h"

namespace
{

constexpr COLORREF Black = RGB(0, 0, 0);
constexpr COLORREF White = RGB(255, 255, 255);
constexpr COLORREF ProgressTrough = RGB(224, 224, 224);
constexpr UINT CellTextFormat = DT_VCENTER | DT_SINGLELINE;

// The stock pen of one pixel with a colour of choice, selected into a context for as long as this lives.
class CColorPen
{
public:
    CColorPen(CDC* dc, COLORREF color)
        : m_dc(dc), m_oldPen(::SelectObject(dc->m_hDC, ::GetStockObject(DC_PEN)))
    {
        SetColor(color);
    }
    ~CColorPen() { ::SelectObject(m_dc->m_hDC, m_oldPen); }
    CColorPen(const CColorPen&) = delete;
    CColorPen& operator=(const CColorPen&) = delete;

    void SetColor(COLORREF color) { m_dc->SetDCPenColor(color); }
    // Without the end point, as the platform's lines are.
    void Line(int fromX, int fromY, int toX, int toY)
    {
        m_dc->MoveTo(fromX, fromY);
        m_dc->LineTo(toX, toY);
    }

private:
    CDC* m_dc;
    HGDIOBJ m_oldPen;
};

// What a context holds, put back when this goes.
class CSavedDC
{
public:
    explicit CSavedDC(CDC* dc) : m_dc(dc), m_state(dc->SaveDC()) {}
    ~CSavedDC() { m_dc->RestoreDC(m_state); }
    CSavedDC(const CSavedDC&) = delete;
    CSavedDC& operator=(const CSavedDC&) = delete;

private:
    CDC* m_dc;
    int m_state;
};

// The text of a cell without allocating for the usual lengths.
class CCellText
{
public:
    CCellText(const CListCtrl& list, int row, int column)
    {
        LVITEM item = {};
        item.iSubItem = column;
        item.pszText = m_buffer;
        item.cchTextMax = Capacity;
        m_length = static_cast<int>(::SendMessage(list.m_hWnd, LVM_GETITEMTEXT, static_cast<WPARAM>(row),
                                                  reinterpret_cast<LPARAM>(&item)));
        if (m_length >= Capacity - 1) {
            m_long = list.GetItemText(row, column);
            m_length = m_long.GetLength();
        }
    }

    bool IsEmpty() const { return m_length == 0; }
    void Draw(CDC* dc, CRect rect, UINT format) const
    {
        if (!rect.IsRectEmpty())
            dc->DrawText(m_long.IsEmpty() ? m_buffer : m_long.GetString(), m_length, &rect, format);
    }

private:
    static constexpr int Capacity = 260;
    wchar_t m_buffer[Capacity] = {};
    CString m_long;
    int m_length;
};

// A rectangle whose sides are crossed holds no pixel; the platform would put them in order.
void Fill(CDC* dc, const CRect& rect, COLORREF color)
{
    if (!rect.IsRectEmpty())
        dc->FillSolidRect(&rect, color);
}

void SetTextColors(CDC* dc, COLORREF text, COLORREF background)
{
    dc->SetBkMode(TRANSPARENT);
    dc->SetTextColor(text);
    dc->SetBkColor(background);
}

UINT AlignmentOf(int headerFormat)
{
    switch (headerFormat & HDF_JUSTIFYMASK) {
    case HDF_LEFT:
        return DT_LEFT;
    case HDF_CENTER:
        return DT_CENTER;
    default:
        return DT_RIGHT;
    }
}

// How far the bar of a progress cell reaches, in the platform's 32-bit arithmetic for any percentage.
int BarEnd(int left, int right, int percent)
{
    const unsigned product = static_cast<unsigned>(right - left) * static_cast<unsigned>(percent);
    return left + static_cast<int>(product) / 100;
}

bool IsRowEnabled(const XLISTCTRLDATA* records)
{
    return RowRecordCount(records) == 0 || records[0].bEnabled != FALSE;
}

} // namespace

void CXListCtrl::OnCustomDraw(NMHDR* pNMHDR, LRESULT* pResult)
{
    const auto draw = reinterpret_cast<NMLVCUSTOMDRAW*>(pNMHDR);
    *pResult = CDRF_DODEFAULT;
    switch (draw->nmcd.dwDrawStage) {
    case CDDS_PREPAINT:
    case CDDS_ITEMPREPAINT:
        *pResult = CDRF_NOTIFYITEMDRAW;
        break;
    case CDDS_ITEMPREPAINT | CDDS_SUBITEM: {
        const HDC dc = draw->nmcd.hdc;
        const HGDIOBJ font = ::GetCurrentObject(dc, OBJ_FONT);
        // What there is no memory for is not drawn; a bold font must not stay for the next cell.
        if (!Completes([&] { DrawCell(*draw); }))
            ::SelectObject(dc, font);
        *pResult = CDRF_SKIPDEFAULT;
        break;
    }
    }
}

void CXListCtrl::DrawCell(NMLVCUSTOMDRAW& draw)
{
    const int row = static_cast<int>(draw.nmcd.dwItemSpec);
    const int column = draw.iSubItem;
    CDC* const dc = CDC::FromHandle(draw.nmcd.hdc);
    const auto records = reinterpret_cast<XLISTCTRLDATA*>(draw.nmcd.lItemlParam);
    const XLISTCTRLDATA* const record = RowRecord(records, column);

    COLORREF text = m_crWindowText;
    COLORREF background = m_crWindow;
    if (record != nullptr) {
        text = record->crText;
        background = record->crBackground;
    }
    if (!IsRowEnabled(records))
        text = m_crGrayText;
    draw.clrText = text;
    draw.clrTextBk = background;
    CRect rect = CellRect(row, column);
    // The first column's, once another stands before it: what it drew would lie on its neighbour.
    if (rect.Width() <= 0)
        return;

    if (record != nullptr && record->bShowProgress) {
        DrawProgress(row, column, dc, text, background, rect, records);
    } else if (record != nullptr && record->bCombo) {
        if (IsSelected(row))
            DrawComboBox(row, column, dc, text, background, rect, records);
        else
            DrawText(row, column, dc, text, background, rect, records);
    } else if (record != nullptr && record->nCheckedState != -1) {
        DrawCheckbox(row, column, dc, text, background, rect, records);
    } else {
        rect.left += DrawImage(row, column, dc, text, background, rect, records);
        DrawText(row, column, dc, text, background, rect, records);
    }
}

void CXListCtrl::GetDrawColors(int nItem, int nSubItem, COLORREF& crText, COLORREF& crBkgnd)
{
    if (!IsSelected(nItem))
        return;
    if ((GetExtendedStyle() & LVS_EX_FULLROWSELECT) == 0 && nSubItem != 0)
        return;
    if (::GetFocus() == m_hWnd) {
        crText = m_crHighLightText;
        crBkgnd = m_crHighLight;
    } else if ((GetStyle() & LVS_SHOWSELALWAYS) != 0) {
        crText = m_crWindowText;
        crBkgnd = m_crBtnFace;
    }
}

CFont* CXListCtrl::BoldFontOf(CDC* pDC)
{
    CFont* const current = pDC->GetCurrentFont();
    LOGFONT logFont = {};
    if (current == nullptr || current->GetLogFont(&logFont) == 0)
        return nullptr;
    logFont.lfWeight = FW_BOLD;
    if (m_fontBold.GetSafeHandle() == nullptr || std::memcmp(&logFont, &m_boldLogFont, sizeof(logFont)) != 0)
    {
        m_fontBold.DeleteObject();
        if (!m_fontBold.CreateFontIndirect(&logFont))
            return nullptr;
        m_boldLogFont = logFont;
    }
    return &m_fontBold;
}

void CXListCtrl::DrawText(int nItem, int nSubItem, CDC* pDC, COLORREF crText, COLORREF crBkgnd, CRect& rect,
                          XLISTCTRLDATA* records)
{
    // The image before it may have used more than the cell has: then a fill would reach into the next one.
    if (rect.Width() <= 0)
        return;
    GetDrawColors(nItem, nSubItem, crText, crBkgnd);
    Fill(pDC, rect, crBkgnd);
    const CCellText text(*this, nItem, nSubItem);
    if (text.IsEmpty())
        return;

    HDITEM header = {};
    header.mask = HDI_FORMAT;
    m_HeaderCtrl.GetItem(nSubItem, &header);
    const XLISTCTRLDATA* const record = RowRecord(records, nSubItem);
    CFont* const bold = record != nullptr && record->bBold ? BoldFontOf(pDC) : nullptr;
    CFont* const oldFont = bold != nullptr ? pDC->SelectObject(bold) : nullptr;
    SetTextColors(pDC, crText, crBkgnd);
    text.Draw(pDC, rect, AlignmentOf(header.fmt) | CellTextFormat);
    if (oldFont != nullptr)
        pDC->SelectObject(oldFont);
}

int CXListCtrl::DrawImage(int nItem, int nSubItem, CDC* pDC, COLORREF crText, COLORREF crBkgnd, CRect rect,
                          XLISTCTRLDATA* records)
{
    GetDrawColors(nItem, nSubItem, crText, crBkgnd);
    Fill(pDC, rect, crBkgnd);
    const int spacing = m_HeaderCtrl.GetSpacing();
    rect.left += spacing;

    CImageList* const images = GetImageList(LVSIL_SMALL);
    const XLISTCTRLDATA* const record = RowRecord(records, nSubItem);
    if (images == nullptr || record == nullptr || record->nImage < 0 || rect.Width() < 1)
        return 0;
    const CSize image = ImageSize(images->GetSafeHandle(), record->nImage).value_or(CSize(0, 0));
    const CPoint position(rect.left, (rect.top + rect.bottom) / 2 - image.cy / 2);
    const CSize shown(std::min<int>(rect.Width(), image.cx), std::min<int>(rect.Height(), image.cy));
    DrawImageOver(pDC, images, record->nImage, position, shown, crBkgnd);
    return spacing + image.cx;
}

void CXListCtrl::DrawCheckbox(int nItem, int nSubItem, CDC* pDC, COLORREF crText, COLORREF crBkgnd,
                              CRect& rect, XLISTCTRLDATA* records)
{
    GetDrawColors(nItem, nSubItem, crText, crBkgnd);
    Fill(pDC, rect, crBkgnd);
    const CCellText text(*this, nItem, nSubItem);

    CRect box(rect);
    box.bottom -= 1;
    box.left = text.IsEmpty() ? rect.left - 1 + (rect.Width() / 2 - box.Height() / 2) : rect.left + 9;
    box.right = box.left + box.Height();
    Fill(pDC, box, m_crWindow);
    box.left += 1;
    pDC->DrawEdge(&box, EDGE_SUNKEN, BF_RECT);

    const XLISTCTRLDATA* const record = RowRecord(records, nSubItem);
    if (record != nullptr && record->nCheckedState == 1)
        DrawCheckMark(pDC, box, IsRowEnabled(records) ? Black : m_crGrayText);
    if (!text.IsEmpty()) {
        SetTextColors(pDC, crText, crBkgnd);
        text.Draw(pDC, CRect(box.right + 4, rect.top, rect.right, rect.bottom), DT_LEFT | CellTextFormat);
    }
}

void CXListCtrl::DrawCheckMark(CDC* pDC, const CRect& box, COLORREF color)
{
    constexpr int LongArm = 4;
    constexpr int ShortArm = 3;
    constexpr int Stroke = 3;
    CColorPen pen(pDC, color);
    int x = box.left + 9;
    int y = box.top + 3;
    for (int i = 0; i < LongArm; ++i, --x, ++y)
        pen.Line(x, y, x, y + Stroke);
    // From the lowest stroke upwards.
    y -= 2;
    for (int i = 0; i < ShortArm; ++i, --x, --y)
        pen.Line(x, y, x, y + Stroke);
}

void CXListCtrl::DrawComboBox(int nItem, int nSubItem, CDC* pDC, COLORREF, COLORREF, CRect& rect,
                              XLISTCTRLDATA* records)
{
    const XLISTCTRLDATA* record = RowRecord(records, nSubItem);
    if (record == nullptr)
        return;
    rect.bottom += 1;
    rect.left += 1;
    rect.right -= 2;
    {
        CColorPen pen(pDC, m_crBtnShadow);
        pen.Line(rect.left, rect.bottom - 2, rect.right, rect.bottom - 2);
        pen.Line(rect.left, rect.top, rect.right, rect.top);
        pen.Line(rect.left, rect.top, rect.left, rect.bottom - 2);
        pen.Line(rect.right, rect.top, rect.right, rect.bottom - 1);
    }
    CRect inside(rect);
    inside.DeflateRect(2, 2);
    Fill(pDC, inside, White);

    CRect button(rect);
    button.right = rect.right + 1;
    button.left = button.right - rect.Height();
    button.DeflateRect(2, 2);

    const CStringArray* const choices = record->pComboStrings;
    const int initial = record->nComboInitialSel;
    // A text that somebody refuses would be set again by the drawing that follows.
    if (!m_isChoosing && CCellText(*this, nItem, nSubItem).IsEmpty() && choices != nullptr && 0 <= initial &&
        initial < choices->GetSize() && !choices->GetAt(initial).IsEmpty())
    {
        const Watch watch(*this);
        m_isChoosing = true;
        // A copy: who hears of the text may change the choices.
        const CString choice = choices->GetAt(initial);
        SetItemText(nItem, nSubItem, choice);
        if (!watch.IsDeleted())
            m_isChoosing = false;
        if (watch.IsGone())
            return;
        if (watch.AreRecordsFreed()) {
            records = RecordsOf(nItem);
            record = RowRecord(records, nSubItem);
            if (record == nullptr)
                return;
        }
    }
    const CCellText text(*this, nItem, nSubItem);
    if (!text.IsEmpty()) {
        SetTextColors(pDC, IsRowEnabled(records) ? m_crWindowText : m_crGrayText, m_crWindow);
        text.Draw(pDC, CRect(rect.left + 2, rect.top - 1, button.left - 1, rect.bottom),
                  DT_LEFT | CellTextFormat);
    }

    const bool isDown = record->bComboButtonDown != FALSE;
    if (isDown)
        m_rectComboButton = button;
    DrawComboButton(pDC, button, isDown);
    if (isDown && m_pCombo == nullptr)
        OpenComboList(nItem, nSubItem, pDC, rect);
}

void CXListCtrl::DrawComboButton(CDC* pDC, CRect button, bool isDown)
{
    CPoint arrow;
    if (isDown) {
        pDC->SetDCBrushColor(m_cr3DShadow);
        ::FrameRect(pDC->m_hDC, &button, static_cast<HBRUSH>(::GetStockObject(DC_BRUSH)));
        button.DeflateRect(1, 1);
        arrow = CPoint(button.left + 3, button.top + 4);
    } else {
        pDC->DrawEdge(&button, EDGE_RAISED, BF_RECT);
        button.DeflateRect(2, 2);
        arrow = CPoint(button.left + 1, button.top + 2);
    }
    Fill(pDC, button, m_crBtnFace);
    CColorPen pen(pDC, Black);
    for (int row = 0; row < 3; ++row)
        pen.Line(arrow.x + row, arrow.y + row, arrow.x + 5 - row, arrow.y + row);
}

void CXListCtrl::DrawProgress(int, int nSubItem, CDC* pDC, COLORREF crText, COLORREF crBkgnd, CRect& rect,
                              XLISTCTRLDATA* records)
{
    const XLISTCTRLDATA* const record = RowRecord(records, nSubItem);
    if (record == nullptr)
        return;
    rect.bottom -= 1;
    rect.left += 1;
    rect.right -= 2;
    {
        CColorPen pen(pDC, m_crBtnShadow);
        pen.Line(rect.left, rect.bottom, rect.right + 1, rect.bottom);
        pen.Line(rect.left, rect.top, rect.right, rect.top);
        pen.Line(rect.left, rect.top, rect.left, rect.bottom);
        pen.Line(rect.right, rect.top, rect.right, rect.bottom);
        Fill(pDC, CRect(rect.left + 1, rect.top + 1, rect.right, rect.bottom), ProgressTrough);
        pen.SetColor(Black);
        pen.Line(rect.left + 1, rect.top + 1, rect.right, rect.top + 1);
        pen.Line(rect.left + 1, rect.top + 1, rect.left + 1, rect.bottom);
    }
    const int percent = record->nProgressPercent;
    if (percent <= 0)
        return;
    const int barEnd = BarEnd(rect.left + 2, rect.right, percent);
    const CRect bar(rect.left + 2, rect.top + 2, barEnd, rect.bottom);
    Fill(pDC, bar, m_crHighLight);
    if (!record->bShowProgressText)
        return;

    const CString label = ProgressText(record->strProgressText, percent);
    CRect labelRect(rect);
    labelRect.DeflateRect(1, 1);
    labelRect.top += 1;
    const auto drawClipped = [&](const CRect& clip, COLORREF color) {
        if (clip.IsRectEmpty() || labelRect.IsRectEmpty())
            return;
        const CSavedDC saved(pDC);
        pDC->IntersectClipRect(&clip);
        SetTextColors(pDC, color, crBkgnd);
        CRect place(labelRect);
        pDC->DrawText(label, &place, DT_CENTER | CellTextFormat);
    };
    drawClipped(bar, crBkgnd);
    drawClipped(CRect(barEnd + 1, rect.top + 2, rect.right, rect.bottom), crText);
}

void CXListCtrl::OnPaint()
{
    const Watch watch(*this);
    Default();
    if (watch.IsGone() || RowCount() > 0)
        return;
    CClientDC dc(this);
    const CSavedDC saved(&dc);
    CRect area;
    GetWindowRect(&area);
    ScreenToClient(&area);
    CRect header(0, 0, 0, 0);
    const auto headerWindow = reinterpret_cast<HWND>(DefWindowProc(LVM_GETHEADER, 0, 0));
    if (headerWindow != nullptr)
        ::SendMessage(headerWindow, HDM_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&header));
    area.top += header.bottom + 10;

    if (m_strNoItemsMessage.IsEmpty())
        m_strNoItemsMessage = L"There are no items to show in this view.";
    Fill(&dc, area, m_crWindow);
    SetTextColors(&dc, m_crWindowText, m_crWindow);
    dc.SelectStockObject(ANSI_VAR_FONT);
    dc.DrawText(m_strNoItemsMessage, &area, DT_CENTER | DT_WORDBREAK | DT_NOPREFIX | DT_NOCLIP);
}
