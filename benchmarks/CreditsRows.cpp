// The credits window, against the platform's bare drawing calls.

#include "VelmUtil22.h"

#include "Bench.h"

#include <stdexcept>
#include <vector>

namespace
{

constexpr int Width = 1920;
constexpr int Height = 1080;
constexpr int Lines = 20;
constexpr size_t Frames = 50;
constexpr UINT_PTR BackgroundTimer = 3;
constexpr UINT_PTR CursorTimer = 2;
constexpr UINT_PTR TextTimer = 1;
constexpr UINT_PTR PageTimer = 0;
constexpr const wchar_t* Line = L"A line of the credits, as long as such lines are";

// Open to the benchmark: what a tick has drawn with.
class BenchCredits : public CMatrixCredits
{
public:
    using CMatrixCredits::m_nActiveColumns;
    using CMatrixCredits::m_nCellHeight;
    using CMatrixCredits::m_nCellWidth;
    using CMatrixCredits::m_nColumns;
    using CMatrixCredits::m_nCurLine;
    using CMatrixCredits::m_nLastLine;

    void Tick(UINT_PTR timer) { SendMessage(WM_TIMER, timer, 0); }
};

// A window whose page of lines is complete and whose rain falls in every column. Never destroyed: windows of
// a program that ends go with it.
BenchCredits& Credits()
{
    static BenchCredits* credits = nullptr;
    if (credits != nullptr)
        return *credits;
    static auto& frame = *new CWnd;
    frame.CreateEx(0, AfxRegisterWndClass(0), L"", WS_POPUP | WS_VISIBLE, CRect(0, 0, Width, Height), nullptr,
                   0);
    credits = new BenchCredits;
    for (int i = 0; i < Lines; ++i)
        credits->AddTextLine(Line);
    credits->SetCursor(FALSE, TRUE);
    credits->SetMaxPhaseCount(0);
    // The client edge takes two pixels on each side.
    if (!credits->Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, Width + 4, Height + 4), &frame, 1))
        throw std::runtime_error("the credits were not created");
    for (UINT_PTR timer = 0; timer < 5; ++timer)
        credits->KillTimer(timer);
    credits->Tick(PageTimer);
    for (int tick = 0; tick < 10 * Lines; ++tick)
        credits->Tick(TextTimer);
    for (UINT_PTR timer = 0; timer < 5; ++timer)
        credits->KillTimer(timer);
    return *credits;
}

// The same surfaces and font, made by hand.
class HandMade
{
public:
    HandMade()
    {
        CClientDC client(&Credits());
        m_font.CreateFont(14, 0, 0, 0, FW_BOLD, 0, 0, 0, ANSI_CHARSET, 0, 0, 0, FF_SWISS, L"Courier");
        for (CDC* const dc : {&m_background, &m_composite})
            dc->CreateCompatibleDC(&client);
        m_backgroundBitmap.CreateCompatibleBitmap(&client, Width, Height);
        m_compositeBitmap.CreateCompatibleBitmap(&client, Width, Height);
        m_background.SelectObject(&m_backgroundBitmap);
        m_composite.SelectObject(&m_compositeBitmap);
        for (CDC* const dc : {&m_background, &m_composite}) {
            dc->SelectObject(&m_font);
            dc->FillSolidRect(0, 0, Width, Height, RGB(0, 0, 0));
        }
    }

    // Two copies of the window's size, and the lines of text.
    size_t DrawFrames()
    {
        const int length = static_cast<int>(wcslen(Line));
        CClientDC client(&Credits());
        for (size_t frame = 0; frame < Frames; ++frame) {
            m_composite.BitBlt(0, 0, Width, Height, &m_background, 0, 0, SRCCOPY);
            m_composite.SetTextColor(RGB(128, 255, 128));
            for (int line = 0; line < Lines; ++line)
                m_composite.ExtTextOut(700, 300 + line * Credits().m_nCellHeight, 0, nullptr, Line, length,
                                       nullptr);
            client.BitBlt(0, 0, Width, Height, &m_composite, 0, 0, SRCCOPY);
        }
        return Frames;
    }

    // Two characters for each of so many columns, a cell filled behind the bright one, and the copy of a
    // frame with its lines, as every tick ends.
    size_t DrawRain(size_t ticks, int columns)
    {
        const int length = static_cast<int>(wcslen(Line));
        for (size_t tick = 0; tick < ticks; ++tick) {
            for (int column = 0; column < columns; ++column) {
                const int x = column * Credits().m_nCellWidth;
                m_background.SetTextColor(RGB(0, 100, 0));
                m_background.ExtTextOut(x, 100, 0, nullptr, L"a", 1, nullptr);
                const CRect cell(x, 114, x + Credits().m_nCellWidth, 114 + Credits().m_nCellHeight);
                m_background.FillSolidRect(&cell, RGB(0, 0, 0));
                m_background.SetTextColor(RGB(0, 255, 0));
                m_background.ExtTextOut(x, 114, 0, nullptr, L"b", 1, nullptr);
            }
            m_composite.BitBlt(0, 0, Width, Height, &m_background, 0, 0, SRCCOPY);
            m_composite.SetTextColor(RGB(128, 255, 128));
            for (int line = 0; line < Lines; ++line)
                m_composite.ExtTextOut(700, 300 + line * Credits().m_nCellHeight, 0, nullptr, Line, length,
                                       nullptr);
        }
        return ticks;
    }

private:
    CFont m_font;
    CBitmap m_backgroundBitmap;
    CBitmap m_compositeBitmap;
    CDC m_background;
    CDC m_composite;
};

HandMade& ByHand()
{
    static auto& made = *new HandMade;
    return made;
}

// A tick that moves nothing but draws a frame, and the painting of it.
size_t DrawFrames()
{
    for (size_t frame = 0; frame < Frames; ++frame) {
        Credits().Tick(CursorTimer);
        Credits().UpdateWindow();
    }
    return Frames;
}

double g_columnsPerTick = 0;

size_t LetRain()
{
    long long columns = 0;
    for (size_t tick = 0; tick < Frames; ++tick) {
        columns += Credits().m_nActiveColumns;
        Credits().Tick(BackgroundTimer);
    }
    g_columnsPerTick = static_cast<double>(columns) / Frames;
    return Frames;
}

void FillWithRain()
{
    for (int tick = 0; tick < 400; ++tick)
        Credits().Tick(BackgroundTimer);
}

const bench::Registration draw{
    {"credits: a frame of 1920 by 1080 with 20 lines, against two copies and the text",
     "frame",
     {DrawFrames, Frames, [] { Credits(); }},
     {[] { return ByHand().DrawFrames(); }, Frames, [] { ByHand(); }},
     1.5}};

const bench::Registration rain{
    {"credits: a tick of the rain, against its bare text calls",
     "tick",
     {LetRain, Frames, FillWithRain},
     {[] { return ByHand().DrawRain(Frames, static_cast<int>(g_columnsPerTick + 0.5)); }, Frames,
      [] { ByHand(); }},
     1.2}};

} // namespace
