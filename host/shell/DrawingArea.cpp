#include "shell/DrawingArea.h"

namespace velmhost
{

namespace
{

constexpr int kGrid = 20;   // pixels between grid lines
constexpr int kMajor = 5;   // every so many grid lines one is stronger
constexpr int kPickBox = 5; // half the side of the box where the cross-hairs meet
constexpr int kAxis = 44;   // length of the axes' mark

constexpr COLORREF kSheet = RGB(33, 40, 48);
constexpr COLORREF kMinorLine = RGB(41, 49, 58);
constexpr COLORREF kMajorLine = RGB(52, 62, 73);
constexpr COLORREF kCross = RGB(214, 220, 226);
constexpr COLORREF kAxisX = RGB(196, 78, 72);
constexpr COLORREF kAxisY = RGB(98, 168, 84);

void FillColour(HDC dc, const RECT& rect, COLORREF colour)
{
    UniqueBrush brush(::CreateSolidBrush(colour));
    ::FillRect(dc, &rect, brush.get());
}

void Label(HDC dc, int x, int y, COLORREF colour, const wchar_t* text)
{
    Selection font(dc, ::GetStockObject(DEFAULT_GUI_FONT));
    ::SetBkMode(dc, TRANSPARENT);
    ::SetTextColor(dc, colour);
    ::TextOutW(dc, x, y, text, ::lstrlenW(text));
}

} // namespace

BEGIN_MESSAGE_MAP(CDrawingArea, CWnd)
ON_WM_PAINT()
ON_WM_ERASEBKGND()
ON_WM_SIZE()
ON_WM_MOUSEMOVE()
ON_WM_LBUTTONDOWN()
ON_WM_RBUTTONUP()
ON_MESSAGE(WM_MOUSELEAVE, &CDrawingArea::OnMouseLeaveMessage)
END_MESSAGE_MAP()

BOOL CDrawingArea::Create(CWnd& parent, UINT id)
{
    const wchar_t* windowClass = AfxRegisterWndClass(0, ::LoadCursorW(nullptr, IDC_ARROW));
    return CWnd::Create(windowClass, L"", WS_CHILD | WS_VISIBLE, CRect(0, 0, 0, 0), &parent, id);
}

void CDrawingArea::OnPaint()
{
    CPaintDC paint(this);
    CRect client;
    GetClientRect(&client);
    if (client.IsRectEmpty())
        return;
    // Drawn aside and copied, so that the moving cross-hairs do not flicker.
    UniqueMemoryDc memory(::CreateCompatibleDC(paint.m_hDC));
    UniqueBitmap sheet(::CreateCompatibleBitmap(paint.m_hDC, client.Width(), client.Height()));
    if (!memory || !sheet)
        return;
    Selection selected(memory.get(), sheet.get());
    DrawGrid(memory.get(), client);
    DrawAxes(memory.get(), client);
    if (m_mouseInside)
        DrawCrossHairs(memory.get(), client);
    const RECT& dirty = paint.m_ps.rcPaint;
    ::BitBlt(paint.m_hDC, dirty.left, dirty.top, dirty.right - dirty.left, dirty.bottom - dirty.top,
             memory.get(), dirty.left, dirty.top, SRCCOPY);
}

// Lines are counted from the lower left corner, where the axes meet.
void CDrawingArea::DrawGrid(HDC dc, const CRect& client) const
{
    FillColour(dc, client, kSheet);
    for (const bool major : {false, true}) {
        UniqueBrush brush(::CreateSolidBrush(major ? kMajorLine : kMinorLine));
        for (int n = 0; n * kGrid < client.Width() || n * kGrid < client.Height(); ++n) {
            if ((n % kMajor == 0) != major)
                continue;
            const int x = n * kGrid;
            const int y = client.bottom - 1 - n * kGrid;
            const RECT vertical{x, 0, x + 1, client.bottom};
            const RECT horizontal{0, y, client.right, y + 1};
            ::FillRect(dc, &vertical, brush.get());
            ::FillRect(dc, &horizontal, brush.get());
        }
    }
}

void CDrawingArea::DrawAxes(HDC dc, const CRect& client) const
{
    const int x = kGrid;
    const int y = client.bottom - 1 - kGrid;
    FillColour(dc, CRect(x, y - 1, x + kAxis, y + 1), kAxisX);
    FillColour(dc, CRect(x, y - kAxis, x + 2, y + 1), kAxisY);
    Label(dc, x + kAxis + 4, y - 8, kAxisX, L"X");
    Label(dc, x - 3, y - kAxis - 16, kAxisY, L"Y");
}

void CDrawingArea::DrawCrossHairs(HDC dc, const CRect& client) const
{
    UniqueBrush brush(::CreateSolidBrush(kCross));
    const CPoint at = m_mouse;
    const RECT parts[] = {
        {0, at.y, at.x - kPickBox, at.y + 1},
        {at.x + kPickBox + 1, at.y, client.right, at.y + 1},
        {at.x, 0, at.x + 1, at.y - kPickBox},
        {at.x, at.y + kPickBox + 1, at.x + 1, client.bottom},
    };
    for (const RECT& part : parts) {
        if (part.right > part.left && part.bottom > part.top)
            ::FillRect(dc, &part, brush.get());
    }
    const RECT box{at.x - kPickBox, at.y - kPickBox, at.x + kPickBox + 1, at.y + kPickBox + 1};
    ::FrameRect(dc, &box, brush.get());
}

void CDrawingArea::InvalidateCrossHairs()
{
    CRect client;
    GetClientRect(&client);
    const RECT horizontal{0, m_mouse.y - kPickBox, client.right, m_mouse.y + kPickBox + 1};
    const RECT vertical{m_mouse.x - kPickBox, 0, m_mouse.x + kPickBox + 1, client.bottom};
    InvalidateRect(&horizontal, FALSE);
    InvalidateRect(&vertical, FALSE);
}

BOOL CDrawingArea::OnEraseBkgnd(CDC*)
{
    return TRUE;
}

void CDrawingArea::OnSize(UINT, int, int)
{
    Invalidate(FALSE);
}

void CDrawingArea::OnMouseMove(UINT, CPoint point)
{
    if (m_mouseInside) {
        InvalidateCrossHairs();
    } else {
        TRACKMOUSEEVENT track{};
        track.cbSize = sizeof track;
        track.dwFlags = TME_LEAVE;
        track.hwndTrack = m_hWnd;
        ::TrackMouseEvent(&track);
    }
    m_mouseInside = true;
    m_mouse = point;
    InvalidateCrossHairs();
    CRect client;
    GetClientRect(&client);
    m_events.moved(point.x, client.bottom - 1 - point.y);
}

LRESULT CDrawingArea::OnMouseLeaveMessage(WPARAM, LPARAM)
{
    InvalidateCrossHairs();
    m_mouseInside = false;
    return 0;
}

void CDrawingArea::OnLButtonDown(UINT, CPoint)
{
    m_events.clicked();
}

void CDrawingArea::OnRButtonUp(UINT, CPoint point)
{
    ClientToScreen(&point);
    m_events.menuWanted(point);
}

} // namespace velmhost
