// The font of the animation, measured apart from the window under test.
#pragma once

#include <afxwin.h>

#include <string_view>

class CellFont
{
public:
    CellFont()
        : m_font(CreateFontW(14, 0, 0, 0, 700, FALSE, FALSE, FALSE, 0, 0, 0, 0, 0x20, L"Courier")),
          m_dc(CreateCompatibleDC(nullptr)), m_before(SelectObject(m_dc, m_font))
    {
        GetTextMetricsW(m_dc, &m_metrics);
    }
    ~CellFont()
    {
        SelectObject(m_dc, m_before);
        DeleteDC(m_dc);
        DeleteObject(m_font);
    }
    CellFont(const CellFont&) = delete;
    CellFont& operator=(const CellFont&) = delete;

    HFONT Handle() const { return m_font; }
    int CellWidth() const { return m_metrics.tmAveCharWidth + 2; }
    int CellHeight() const { return m_metrics.tmHeight; }
    int WidthOf(std::wstring_view text) const
    {
        SIZE size{};
        GetTextExtentPoint32W(m_dc, text.data(), static_cast<int>(text.size()), &size);
        return size.cx;
    }

private:
    HFONT m_font;
    HDC m_dc;
    HGDIOBJ m_before;
    TEXTMETRICW m_metrics{};
};
