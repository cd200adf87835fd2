// The credits window, against the same drawing made by hand.

#include "VelmUtil22.h"

#include "Bench.h"

#include <cstdlib>
#include <stdexcept>
#include <vector>

namespace
{

constexpr int Width = 1920;
constexpr int Height = 1080;
constexpr int Lines = 20;
constexpr size_t Frames = 50;
constexpr UINT_PTR PageTimer = 0;
constexpr UINT_PTR TextTimer = 1;
constexpr UINT_PTR CursorTimer = 2;
constexpr UINT_PTR BackgroundTimer = 3;
constexpr COLORREF Black = RGB(0, 0, 0);
constexpr COLORREF BrightGreen = RGB(0, 255, 0);
constexpr COLORREF LightGreen = RGB(128, 255, 128);
constexpr const wchar_t* Line = L"A line of the credits, as long as such lines are";

// What both sides have of the framework: a frame of the window's size, and ticks that come as messages. The
// frames lie one over the other; which one is seen is up to the row.
template <class Window>
class Animated : public Window
{
public:
    // The client edge takes two pixels on each side.
    Animated()
    {
        m_frame.CreateEx(0, AfxRegisterWndClass(0), L"", WS_POPUP | WS_VISIBLE, CRect(0, 0, Width, Height),
                         nullptr, 0);
    }
    static CRect Place() { return CRect(0, 0, Width + 4, Height + 4); }

    void Show()
    {
        m_frame.SetWindowPos(&CWnd::wndTop, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
        m_frame.RedrawWindow(nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
    }
    void Tick(UINT_PTR timer) { this->SendMessage(WM_TIMER, timer, 0); }

protected:
    CWnd m_frame;
};

// Open to the benchmark: what a tick has drawn with.
class BenchCredits : public Animated<CMatrixCredits>
{
public:
    using CMatrixCredits::m_nCellHeight;
    using CMatrixCredits::m_nCellWidth;
    using CMatrixCredits::m_nColumns;
    using CMatrixCredits::m_nCursorCol;
    using CMatrixCredits::m_nRows;
    using CMatrixCredits::m_pColumns;

    // With its page of lines complete, and without timers that run.
    BenchCredits()
    {
        for (int i = 0; i < Lines; ++i)
            AddTextLine(Line);
        SetCursor(FALSE, TRUE);
        SetMaxPhaseCount(0);
        if (!Create(WS_CHILD | WS_VISIBLE, Place(), &m_frame, 1))
            throw std::runtime_error("the credits were not created");
        EndTimers();
        Tick(PageTimer);
        for (int tick = 0; tick < 10 * Lines; ++tick)
            Tick(TextTimer);
        EndTimers();
        if (m_nCurLine != m_nLastLine || m_strCurText != Line)
            throw std::runtime_error("the page is not complete");
    }

private:
    void EndTimers()
    {
        for (UINT_PTR timer = 0; timer < 5; ++timer)
            KillTimer(timer);
    }
};

// Never destroyed: windows of a program that ends go with it.
BenchCredits& Credits()
{
    static auto& credits = *new BenchCredits;
    return credits;
}

// The animation as one would write it for this one font and size: a window of the framework with two surfaces
// and a message map for its timer and its painting. It writes the same lines, and for each falling drop of
// the real window the same two characters, in the same cells and with letters and shades as random. What need
// not be measured or set more than once is so: widths of letters, the black behind all text, the colour of
// the lines. As in every animated window a tick invalidates the window at its end.
class HandMade : public Animated<CWnd>
{
public:
    HandMade()
    {
        if (!CreateEx(WS_EX_CLIENTEDGE, AfxRegisterWndClass(CS_HREDRAW | CS_VREDRAW), nullptr,
                      WS_CHILD | WS_VISIBLE, Place(), &m_frame, 1))
            throw std::runtime_error("the window was not created");
        CClientDC client(this);
        m_font.CreateFont(14, 0, 0, 0, FW_BOLD, 0, 0, 0, ANSI_CHARSET, 0, 0, 0, FF_SWISS, L"Courier");
        MakeSurface(client, m_background, m_backgroundBitmap);
        MakeSurface(client, m_composite, m_compositeBitmap);
        for (int letter = 0; letter < 26; ++letter) {
            const wchar_t text = static_cast<wchar_t>(L'a' + letter);
            m_indents[letter] = (Credits().m_nCellWidth - m_background.GetTextExtent(&text, 1).cx) / 2;
        }
        const int height = Credits().m_nCellHeight;
        for (int line = 0; line < Lines; ++line)
            m_lines.emplace_back((Width - m_composite.GetTextExtent(Line, Length()).cx) / 2,
                                 (Height / height - Lines) / 2 * height + line * height);
    }

    // Takes over the drops that fall in the real window.
    void TakeDrops()
    {
        m_drops.clear();
        for (int column = 0; column < Credits().m_nColumns; ++column) {
            const MatrixColumn& drop = Credits().m_pColumns[column];
            if (drop.bActive)
                m_drops.push_back({column, drop.nRow, drop.ch});
        }
    }

    // A frame without a tick: a copy, the lines, and the copy to the window.
    void DrawFrame(CDC& client)
    {
        Compose();
        client.BitBlt(0, 0, Width, Height, &m_composite, 0, 0, SRCCOPY);
    }

protected:
    afx_msg void OnTimer(UINT_PTR id)
    {
        if (id == BackgroundTimer)
            Rain();
        Compose();
        Invalidate(FALSE);
        Default();
    }
    afx_msg void OnPaint()
    {
        CPaintDC dc(this);
        dc.BitBlt(0, 0, Width, Height, &m_composite, 0, 0, SRCCOPY);
    }
    DECLARE_MESSAGE_MAP()

private:
    struct Drop
    {
        int column;
        int row;
        wchar_t letter;
    };

    static int Length() { return static_cast<int>(wcslen(Line)); }

    void MakeSurface(CDC& client, CDC& surface, CBitmap& bitmap)
    {
        surface.CreateCompatibleDC(&client);
        bitmap.CreateCompatibleBitmap(&client, Width, Height);
        surface.SelectObject(&bitmap);
        surface.SelectObject(&m_font);
        surface.FillSolidRect(0, 0, Width, Height, Black);
        surface.SetBkColor(Black);
        surface.SetTextColor(LightGreen);
    }

    void Compose()
    {
        m_composite.BitBlt(0, 0, Width, Height, &m_background, 0, 0, SRCCOPY);
        for (const CPoint& place : m_lines)
            m_composite.ExtTextOut(place.x, place.y, 0, nullptr, Line, Length(), nullptr);
    }

    // One character fades, and the next lights up in its cell.
    void Rain()
    {
        const int width = Credits().m_nCellWidth, height = Credits().m_nCellHeight;
        const int rows = static_cast<int>(Credits().m_nRows);
        for (Drop& drop : m_drops) {
            const int x = drop.column * width;
            m_background.SetTextColor(RGB(0, 75 + std::rand() % 76, 0));
            m_background.ExtTextOut(x + Indent(drop), (drop.row - 1) * height, 0, nullptr, &drop.letter, 1,
                                    nullptr);
            if (drop.letter != L' ')
                drop.letter = static_cast<wchar_t>(L'a' + std::rand() % 26);
            const CRect cell(x, drop.row * height, x + width, (drop.row + 1) * height);
            m_background.SetTextColor(BrightGreen);
            m_background.ExtTextOut(x + Indent(drop), cell.top, ETO_OPAQUE, &cell, &drop.letter, 1, nullptr);
            drop.row = drop.row < rows ? drop.row + 1 : 1;
        }
    }
    int Indent(const Drop& drop) const { return drop.letter == L' ' ? 0 : m_indents[drop.letter - L'a']; }

    CFont m_font;
    CBitmap m_backgroundBitmap;
    CBitmap m_compositeBitmap;
    CDC m_background;
    CDC m_composite;
    std::vector<CPoint> m_lines;
    std::vector<Drop> m_drops;
    int m_indents[26];
};

BEGIN_MESSAGE_MAP(HandMade, CWnd)
ON_WM_PAINT()
ON_WM_TIMER()
END_MESSAGE_MAP()

HandMade& ByHand()
{
    static auto& made = *new HandMade;
    return made;
}

// A cursor that is off: the tick moves nothing that is seen and draws a frame. The cursor does not get to
// the last column, where it would end its timer.
void PrepareFrames()
{
    Credits().m_nCursorCol = 0;
    Credits().Show();
}

size_t DrawFrames()
{
    for (size_t frame = 0; frame < Frames; ++frame)
        Credits().Tick(CursorTimer);
    return Frames;
}

size_t DrawFramesByHand()
{
    CClientDC client(&ByHand());
    for (size_t frame = 0; frame < Frames; ++frame)
        ByHand().DrawFrame(client);
    return Frames;
}

template <class Window>
size_t PaintFrames(Window& window)
{
    for (size_t frame = 0; frame < Frames; ++frame) {
        window.Tick(CursorTimer);
        window.UpdateWindow();
    }
    return Frames;
}

template <class Window>
size_t LetRain(Window& window)
{
    for (size_t tick = 0; tick < Frames; ++tick)
        window.Tick(BackgroundTimer);
    return Frames;
}

// Until as many drops end as begin.
void FillWithRain()
{
    Credits().Show();
    for (int tick = 0; tick < 400; ++tick)
        Credits().Tick(BackgroundTimer);
}

void TakeRain()
{
    ByHand().Show();
    ByHand().TakeDrops();
}

// Ours: a tick's message and the drawing of the frame, as far as the invalidation. Beside it two copies of
// that size, one of them to the window, and the text.
const bench::Registration draw{
    {"credits: a frame of 1920 by 1080 with 20 lines, against two copies and the text",
     "frame",
     {DrawFrames, Frames, PrepareFrames},
     {DrawFramesByHand, Frames, [] { ByHand().Show(); }},
     1.5}};

// The same with the painting that follows, which is the platform's for the most part. Both sides take a
// message, compose the frame, invalidate the window and paint it.
const bench::Registration paint{{"credits: the same frame with its painting, against a window made by hand",
                                 "frame",
                                 {[] { return PaintFrames(Credits()); }, Frames, PrepareFrames},
                                 {[] { return PaintFrames(ByHand()); }, Frames, [] { ByHand().Show(); }},
                                 1.5}};

// Both sides take a message, write two characters for each drop, compose the frame, and invalidate.
const bench::Registration rain{{"credits: a tick of the rain, against its bare text calls",
                                "tick",
                                {[] { return LetRain(Credits()); }, Frames, FillWithRain},
                                {[] { return LetRain(ByHand()); }, Frames, TakeRain},
                                1.2}};

} // namespace
