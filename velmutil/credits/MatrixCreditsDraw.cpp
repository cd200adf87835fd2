// The drawing of CMatrixCredits.
#include "credits/MatrixCredits.h"

#include <cstdlib>

namespace
{

constexpr COLORREF Black = RGB(0, 0, 0);
constexpr COLORREF BrightGreen = RGB(0, 255, 0);
constexpr COLORREF LightGreen = RGB(128, 255, 128);
constexpr wchar_t SolidBlock = 1;
constexpr wchar_t Blank = L' ';

// A new shade each time, so that a trail shimmers.
COLORREF FadedGreen()
{
    return RGB(0, 75 + std::rand() % 76, 0);
}

// Selects an object and keeps what was selected, as handle and as MFC's object.
template <class Object>
void SelectKeeping(CDC& dc, Object& object, Object*& oldObject, HGDIOBJ& oldHandle)
{
    oldObject = dc.SelectObject(&object);
    oldHandle = oldObject != nullptr ? oldObject->m_hObject : nullptr;
}

void SelectBack(CDC& dc, HGDIOBJ& oldHandle)
{
    if (oldHandle != nullptr)
        ::SelectObject(dc.m_hDC, oldHandle);
    oldHandle = nullptr;
}

} // namespace

void CMatrixCredits::MakeComposite(CDC& client, CSize size)
{
    m_font.CreateFont(14, 0, 0, 0, FW_BOLD, FALSE, FALSE, FALSE, ANSI_CHARSET, OUT_DEFAULT_PRECIS,
                      CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY, DEFAULT_PITCH | FF_SWISS, L"Courier");
    m_dcComposite.CreateCompatibleDC(&client);
    m_bmpComposite.CreateCompatibleBitmap(&client, size.cx, size.cy);
    SelectKeeping(m_dcComposite, m_bmpComposite, m_pOldBmpComposite, m_oldBmpComposite);
    SelectKeeping(m_dcComposite, m_font, m_pOldFontComposite, m_oldFontComposite);
}

void CMatrixCredits::MakeBackground(CDC& client, CSize size)
{
    m_dcBackground.CreateCompatibleDC(&client);
    m_bmpBackground.CreateCompatibleBitmap(&client, size.cx, size.cy);
    SelectKeeping(m_dcBackground, m_bmpBackground, m_pOldBmpBackground, m_oldBmpBackground);
    SelectKeeping(m_dcBackground, m_font, m_pOldFontBackground, m_oldFontBackground);
    m_dcBackground.FillSolidRect(0, 0, size.cx, size.cy, Black);
    // What fades relies on it. Not every version of MFC leaves the colour of a fill behind.
    m_dcBackground.SetBkColor(Black);
}

void CMatrixCredits::Release()
{
    SelectBack(m_dcComposite, m_oldBmpComposite);
    SelectBack(m_dcComposite, m_oldFontComposite);
    SelectBack(m_dcBackground, m_oldBmpBackground);
    SelectBack(m_dcBackground, m_oldFontBackground);
    m_pOldBmpComposite = m_pOldBmpBackground = nullptr;
    m_pOldFontComposite = m_pOldFontBackground = nullptr;
    delete[] m_pColumns;
    delete[] m_pSpins;
    m_pColumns = nullptr;
    m_pSpins = nullptr;
    m_nActiveColumns = m_nActiveSpins = 0;
    m_dcComposite.DeleteDC();
    m_dcBackground.DeleteDC();
    m_bmpComposite.DeleteObject();
    m_bmpBackground.DeleteObject();
    m_font.DeleteObject();
}

void CMatrixCredits::DrawActiveString(CDC& dc, int row, int col, const wchar_t* text, int count,
                                      COLORREF color)
{
    if (count > 0)
        DrawMeasured(dc, row, col, text, count, dc.GetTextExtent(text, count).cx, color);
}

void CMatrixCredits::DrawMeasured(CDC& dc, int row, int col, const wchar_t* text, int count, int width,
                                  COLORREF color)
{
    CRect cells(m_nCellWidth * col, m_nCellHeight * row, m_nCellWidth * (col + count),
                m_nCellHeight * (row + 1));
    if (count > 1)
        cells.right = cells.left + width;
    if (count == 1 && text[0] == SolidBlock) {
        dc.FillSolidRect(&cells, color);
        return;
    }
    dc.SetBkColor(Black);
    dc.SetTextColor(color);
    const int offset = count == 1 ? (m_nCellWidth - width) / 2 : 0;
    // One call fills the cells and draws the text.
    dc.ExtTextOut(cells.left + offset, cells.top, ETO_OPAQUE, &cells, text, static_cast<UINT>(count),
                  nullptr);
}

void CMatrixCredits::DrawActiveBackgroundChar(int column)
{
    MatrixColumn& drop = m_pColumns[column];
    if (drop.ch != Blank)
        drop.ch = static_cast<wchar_t>(L'a' + std::rand() % 26);
    DrawActiveString(m_dcBackground, drop.nRow, column, &drop.ch, 1, BrightGreen);
}

void CMatrixCredits::DrawFadedBackgroundChar(int column)
{
    const MatrixColumn& drop = m_pColumns[column];
    const int width = m_dcBackground.GetTextExtent(&drop.ch, 1).cx;
    m_dcBackground.SetTextColor(FadedGreen());
    // The black background of the text covers what was bright.
    m_dcBackground.TextOut(column * m_nCellWidth + (m_nCellWidth - width) / 2,
                           (drop.nRow - 1) * m_nCellHeight, &drop.ch, 1);
}

void CMatrixCredits::DrawSpin()
{
    for (int slot = 0; slot < m_nSpinCount; ++slot) {
        const MatrixSpin& spin = m_pSpins[slot];
        if (spin.bActive)
            DrawActiveString(m_dcComposite, spin.pt.y, spin.pt.x, &spin.ch, 1, BrightGreen);
    }
}

void CMatrixCredits::DrawTextW()
{
    for (__int64 line = m_nFirstLine; line < m_nCurLine; ++line) {
        const CPoint& position = PositionOf(line);
        const CString& text = m_arrLines[line];
        if (!text.IsEmpty()) {
            DrawMeasured(m_dcComposite, position.y, position.x, text, text.GetLength(),
                         m_lineWidths[line - m_nFirstLine], LightGreen);
        }
    }
    if (m_nCurLine >= 0) {
        const CPoint& position = PositionOf(m_nCurLine);
        DrawActiveString(m_dcComposite, position.y, position.x, m_strCurText, m_strCurText.GetLength(),
                         LightGreen);
    }
}

void CMatrixCredits::DrawCursor()
{
    if (m_bCursor)
        DrawActiveString(m_dcComposite, m_nCursorRow, m_nCursorCol, &m_chCursor, 1, LightGreen);
}

void CMatrixCredits::Draw()
{
    CRect client;
    GetClientRect(&client);
    m_dcComposite.BitBlt(0, 0, client.Width(), client.Height(), &m_dcBackground, 0, 0, SRCCOPY);
    DrawSpin();
    DrawTextW();
    DrawCursor();
    Invalidate(FALSE);
}

void CMatrixCredits::OnPaint()
{
    if (m_pOldBmpComposite == nullptr)
        return;
    CRect client;
    GetClientRect(&client);
    CPaintDC dc(this);
    dc.BitBlt(0, 0, client.Width(), client.Height(), &m_dcComposite, 0, 0, SRCCOPY);
}
