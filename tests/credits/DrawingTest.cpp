// What the animation draws, pixel by pixel.
#include "CreditsTest.h"

#include <set>
#include <utility>

#include "kit/Text.h"

namespace
{

using testkit::Picture;

// An explicit instantiation may name a private member; the friend it defines hands the member out.
template <class Tag, typename Tag::Member Pointer>
struct Opened
{
    friend typename Tag::Member MemberOf(Tag) { return Pointer; }
};

struct StringDrawing
{
    using Member = void (CMatrixCredits::*)(CDC&, int, int, const wchar_t*, int, COLORREF);
    friend Member MemberOf(StringDrawing);
};
template struct Opened<StringDrawing, &CMatrixCredits::DrawActiveString>;

constexpr COLORREF Backdrop = RGB(40, 20, 200);
constexpr COLORREF Ink = RGB(200, 30, 90);

class CreditsDrawing : public CreditsTest
{
protected:
    // Compares after every tick, in the timers' own order; `ticks` of them.
    void CompareRun(int ticks, unsigned seed)
    {
        SameTicks tick(m_credits, *m_model, m_timers, seed);
        TickClock clock;
        clock.Note(m_timers.Calls());
        bool isComposed = false;
        for (int i = 0; i < ticks; ++i) {
            const UINT_PTR id = clock.Next();
            ASSERT_TRUE(tick(id));
            clock.Note(m_timers.Calls());
            m_painter->Tick(*m_model, id);
            isComposed = isComposed || id != 0;
            ASSERT_TRUE(SamePixels(Background(), m_painter->Rain()))
                << "rain, tick " << i << ", timer " << id;
            // Before its first frame the surface holds nothing in particular.
            if (isComposed) {
                ASSERT_TRUE(SamePixels(Composite(), m_painter->Frame()))
                    << "frame, tick " << i << ", timer " << id;
            }
        }
    }
    void MakeBoth(const CreditsOptions& options, int columns, int rows)
    {
        Make(options, columns, rows);
        m_size = Cells(columns, rows);
        m_model = std::make_unique<CreditsModel>(options, m_size, m_font);
        m_painter = std::make_unique<CreditsPainter>(m_size, m_font);
        // The first painting of a new window erases it.
        m_parent.UpdateWindow();
        m_credits.UpdateWindow();
    }
    Picture Background() { return Picture::OfDc(m_credits.m_dcBackground.m_hDC, CRect(CPoint(), m_size)); }
    Picture Composite() { return Picture::OfDc(m_credits.m_dcComposite.m_hDC, CRect(CPoint(), m_size)); }

    // Draws into the composite surface, on a ground of another colour.
    Picture Draw(int row, int column, const std::wstring& text, int count)
    {
        m_credits.m_dcComposite.FillSolidRect(0, 0, m_size.cx, m_size.cy, Backdrop);
        (m_credits.*MemberOf(StringDrawing()))(m_credits.m_dcComposite, row, column, text.c_str(), count,
                                               Ink);
        return Composite();
    }
    Picture Ground() const { return {m_size.cx, m_size.cy, Backdrop}; }

    CSize m_size;
    std::unique_ptr<CreditsModel> m_model;
    std::unique_ptr<CreditsPainter> m_painter;
};

TEST_F(CreditsDrawing, SurfacesBeginWithBlackRain)
{
    MakeBoth({}, 12, 8);
    EXPECT_TRUE(SamePixels(Background(), Picture(m_size.cx, m_size.cy, RGB(0, 0, 0))));
}

TEST_F(CreditsDrawing, TheBlockCursorSweepsOverDecodingLines)
{
    MakeBoth({.lines = {L"Alpha", L"Q", L"", L"Beta and more", PageEnd(L"1"), L"Gamma"}, .startDelay = 1}, 18,
             9);
    CompareRun(3000, 1);
}

TEST_F(CreditsDrawing, TheCharacterCursorFlickers)
{
    MakeBoth({.lines = {L"Alpha", L"Q", L"Beta"}, .isBlock = false, .startDelay = 1, .usualPause = 1}, 20, 7);
    CompareRun(2000, 2);
}

TEST_F(CreditsDrawing, WithoutCursorTheTextStandsAlone)
{
    MakeBoth({.lines = {L"Alpha", L"x", L"Beta", PageEnd(L"2"), L"y"}, .hasCursor = false, .startDelay = 1},
             30, 12);
    CompareRun(3000, 3);
}

TEST_F(CreditsDrawing, LinesThatHaveNoRoomRunOutOfTheWindow)
{
    MakeBoth({.lines = {L"A line that is much too long", L"b", L"c", L"d", L"e", L"f"},
              .hasCursor = false,
              .changes = 2,
              .startDelay = 0,
              .usualPause = 1},
             6, 4);
    CompareRun(2000, 4);
}

TEST_F(CreditsDrawing, RainAloneFallsForever)
{
    MakeBoth({.hasCursor = false}, 26, 14);
    CompareRun(2000, 5);
}

TEST_F(CreditsDrawing, SpinsLieUnderTheTextAndTheTextUnderTheCursor)
{
    MakeBoth({.lines = {L"Alpha"}}, 20, 7);
    Tick(0);
    const CPoint place = m_credits.m_arrLinePos[0];
    m_credits.m_strCurText = L"Alpha";
    m_credits.m_nCursorCol = place.x + 1;
    for (int i = 0; i < 2; ++i) {
        MatrixSpin& spin = m_credits.m_pSpins[i];
        spin.bActive = TRUE;
        spin.pt = CPoint(place.x + 2 * i + 1, place.y);
        spin.ch = L'w';
    }
    Tick(2);
    Picture expected(m_size.cx, m_size.cy, RGB(0, 0, 0));
    for (int i = 0; i < 2; ++i)
        m_painter->String(expected, CPoint(place.x + 2 * i + 1, place.y), L"w", RGB(0, 255, 0));
    m_painter->String(expected, place, L"Alpha", RGB(128, 255, 128));
    m_painter->Block(expected, CPoint(place.x + 2, place.y), RGB(128, 255, 128));
    EXPECT_TRUE(SamePixels(Composite(), expected));
}

TEST_F(CreditsDrawing, RainHasBlackPureGreenAndShadesFrom75To150Alone)
{
    MakeBoth({.hasCursor = false}, 20, 12);
    std::srand(77);
    std::set<int> shades;
    for (int i = 0; i < 400; ++i) {
        Tick(3);
        const Picture picture = Background();
        for (int y = 0; y < picture.Height(); ++y) {
            for (int x = 0; x < picture.Width(); ++x) {
                const COLORREF color = picture.Pixel(x, y);
                ASSERT_EQ(color & 0xFF00FF, 0u) << "at (" << x << ", " << y << ")";
                shades.insert(GetGValue(color));
            }
        }
    }
    EXPECT_EQ(shades.size(), 78u);
    EXPECT_TRUE(shades.erase(0) == 1 && shades.erase(255) == 1);
    EXPECT_EQ(*shades.begin(), 75);
    EXPECT_EQ(*shades.rbegin(), 150);
}

TEST_F(CreditsDrawing, APageTickDrawsNothing)
{
    MakeBoth({.lines = {L"Alpha"}}, 20, 10);
    Tick(3, 30);
    const Picture before = Composite();
    m_credits.UpdateWindow();
    Tick(0);
    Tick(99);
    EXPECT_TRUE(SamePixels(Composite(), before));
    EXPECT_FALSE(m_credits.GetUpdateRect(nullptr));
}

TEST_F(CreditsDrawing, EveryFrameInvalidatesTheWholeWindowWithoutErasing)
{
    MakeBoth({.lines = {L"Alpha"}}, 20, 10);
    Tick(0);
    for (UINT_PTR id = 1; id <= 4; ++id) {
        m_credits.erasings = 0;
        Tick(id);
        CRect part;
        EXPECT_TRUE(m_credits.GetUpdateRect(&part)) << "timer " << id;
        EXPECT_EQ(part, CRect(CPoint(), m_size)) << "timer " << id;
        m_credits.UpdateWindow();
        EXPECT_EQ(m_credits.erasings, 0) << "timer " << id;
        EXPECT_FALSE(m_credits.GetUpdateRect(nullptr)) << "timer " << id;
    }
}

TEST_F(CreditsDrawing, PaintingCopiesTheLastFrame)
{
    MakeBoth({.lines = {L"Alpha", L"Beta"}}, 20, 10);
    SameTicks tick(m_credits, *m_model, m_timers, 8);
    for (int i = 0; i < 200; ++i) {
        const UINT_PTR id = i == 10 ? 0 : i > 10 && i % 2 == 0 ? 1 : i % 3 == 0 ? 2 : 3;
        ASSERT_TRUE(tick(id));
        m_painter->Tick(*m_model, id);
        ASSERT_TRUE(SamePixels(Picture::OfClient(m_credits.m_hWnd), m_painter->Frame())) << "tick " << i;
    }
}

TEST_F(CreditsDrawing, WithoutSurfacePaintingLeavesTheWindowInvalid)
{
    MakeBoth({}, 10, 5);
    CBitmap* const before = std::exchange(m_credits.m_pOldBmpComposite, nullptr);
    m_credits.Invalidate(FALSE);
    m_credits.SendMessage(WM_PAINT);
    EXPECT_TRUE(m_credits.GetUpdateRect(nullptr));
    m_credits.m_pOldBmpComposite = before;
    m_credits.SendMessage(WM_PAINT);
    EXPECT_FALSE(m_credits.GetUpdateRect(nullptr));
}

TEST_F(CreditsDrawing, AResizedWindowKeepsSurfacesAndGridButCentresInItsNewWidth)
{
    for (const CSize change : {CSize(-60, -40), CSize(130, 50)}) {
        OpenCredits credits;
        const CreditsOptions options{.lines = {L"Alpha", L"Beta"}, .hasCursor = false, .usualPause = 1};
        Prepare(credits, options);
        m_size = Cells(25, 12);
        m_timers.Clear();
        ASSERT_TRUE(Create(credits, m_size));
        CreditsModel model(options, m_size, m_font);
        CreditsPainter painter(m_size, m_font);
        SameTicks tick(credits, model, m_timers, 12);
        for (int i = 0; i < 300; ++i) {
            if (i == 100) {
                CRect window;
                credits.GetWindowRect(&window);
                const CSize size = window.Size() + change;
                credits.SetWindowPos(nullptr, 0, 0, size.cx, size.cy, SWP_NOMOVE | SWP_NOZORDER);
                model.client += change;
            }
            const UINT_PTR id = i == 10 || i == 150 ? 0 : i > 10 && i % 2 == 0 ? 1 : 3;
            ASSERT_TRUE(tick(id));
            painter.Tick(model, id);
            const Picture drawn = Picture::OfDc(credits.m_dcComposite.m_hDC, CRect(CPoint(), m_size));
            if (id != 0) {
                ASSERT_TRUE(SamePixels(drawn, painter.Frame())) << "tick " << i;
            }
        }
        BITMAP bitmap{};
        ASSERT_NE(GetObjectW(credits.m_bmpComposite.m_hObject, sizeof bitmap, &bitmap), 0);
        EXPECT_EQ(CSize(bitmap.bmWidth, bitmap.bmHeight), m_size);
        credits.DestroyWindow();
    }
}

// The drawing of one text

TEST_F(CreditsDrawing, ATextWithoutCharactersDrawsNothing)
{
    MakeBoth({}, 10, 5);
    EXPECT_TRUE(SamePixels(Draw(1, 1, L"Alpha", 0), Ground()));
    EXPECT_TRUE(SamePixels(Draw(1, 1, L"Alpha", -1), Ground()));
}

TEST_F(CreditsDrawing, OneCharacterIsCentredInItsBlackCell)
{
    MakeBoth({}, 10, 5);
    for (const wchar_t letter : {L'i', L'W', L'\u00e9', L' ', L'1'}) {
        Picture expected = Ground();
        m_painter->String(expected, CPoint(4, 2), std::wstring_view(&letter, 1), Ink);
        EXPECT_TRUE(SamePixels(Draw(2, 4, std::wstring(1, letter) + L"more", 1), expected))
            << static_cast<int>(letter);
    }
}

TEST_F(CreditsDrawing, ALongerTextIsBlackAsFarAsItsMeasuredWidth)
{
    MakeBoth({}, 20, 5);
    Picture expected = Ground();
    m_painter->String(expected, CPoint(3, 1), L"Alpha", Ink);
    const Picture drawn = Draw(1, 3, L"Alpha and more", 5);
    EXPECT_TRUE(SamePixels(drawn, expected));
    const int left = 3 * m_font.CellWidth(), right = left + m_font.WidthOf(L"Alpha");
    const int top = m_font.CellHeight();
    EXPECT_NE(drawn.Pixel(right - 1, top), Backdrop);
    EXPECT_EQ(drawn.Pixel(right, top), Backdrop);
    EXPECT_EQ(drawn.Pixel(left - 1, top), Backdrop);
}

TEST_F(CreditsDrawing, OddCharactersLeaveNothingOfTheGroundInTheirCells)
{
    MakeBoth({}, 40, 5);
    const std::wstring texts[] = {L"\t\t",
                                  L"\n\r",
                                  L"   ",
                                  L"\x7F\x80\xAD\xA0",
                                  L"a\x0301\x0302",
                                  L"\xD83D\xDE00",
                                  L"\x05D0\x05D1",
                                  L"\x0645\x0631\x062D",
                                  L"\x200B\x200F\xFEFF",
                                  L"\x3042\x30A2\x6F22",
                                  L"fj\xC5y\xFF"};
    for (const std::wstring& text : texts) {
        Picture expected = Ground();
        m_painter->String(expected, CPoint(5, 2), text, Ink);
        EXPECT_TRUE(SamePixels(Draw(2, 5, text, static_cast<int>(text.size())), expected))
            << testkit::Quoted(text);
    }
    for (wchar_t letter = 2; letter < 256; ++letter) {
        Picture expected = Ground();
        m_painter->String(expected, CPoint(5, 2), std::wstring_view(&letter, 1), Ink);
        ASSERT_TRUE(SamePixels(Draw(2, 5, std::wstring(1, letter), 1), expected)) << static_cast<int>(letter);
    }
}

TEST_F(CreditsDrawing, TextIsBlackBehindAfterABlock)
{
    MakeBoth({}, 10, 5);
    Picture expected = Ground();
    m_painter->String(expected, CPoint(1, 1), L"ab", Ink);
    const auto draw = MemberOf(StringDrawing());
    m_credits.m_dcComposite.FillSolidRect(0, 0, m_size.cx, m_size.cy, Backdrop);
    m_painter->Block(expected, CPoint(6, 3), Ink);
    (m_credits.*draw)(m_credits.m_dcComposite, 3, 6, L"\1", 1, Ink);
    m_credits.m_dcComposite.SetBkColor(Ink);
    (m_credits.*draw)(m_credits.m_dcComposite, 1, 1, L"ab", 2, Ink);
    EXPECT_TRUE(SamePixels(Composite(), expected));
}

TEST_F(CreditsDrawing, TheCharacterOneAloneIsASolidCell)
{
    MakeBoth({}, 10, 5);
    Picture expected = Ground();
    m_painter->Block(expected, CPoint(2, 3), Ink);
    EXPECT_TRUE(SamePixels(Draw(3, 2, L"\1", 1), expected));
    EXPECT_EQ(expected.Count(Ink), m_font.CellWidth() * m_font.CellHeight());
}

TEST_F(CreditsDrawing, TheCharacterOneInALongerTextIsNoSolidCell)
{
    MakeBoth({}, 10, 5);
    Picture expected = Ground();
    m_painter->String(expected, CPoint(2, 3), L"\1a", Ink);
    EXPECT_TRUE(SamePixels(Draw(3, 2, L"\1a", 2), expected));
}

} // namespace
