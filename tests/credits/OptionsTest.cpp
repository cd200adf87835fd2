// Defaults, fields, setters and the window's creation.
#include "CreditsTest.h"

#include <algorithm>
#include <climits>
#include <cstddef>
#include <ctime>
#include <type_traits>

namespace
{

using testing::ElementsAre;

class CreditsOptionsTest : public CreditsTest
{
};

#define EXPECT_TYPE(member, ...)                                                                             \
    static_assert(std::is_same_v<decltype(OpenCredits::member), __VA_ARGS__>, #member)

EXPECT_TYPE(m_nCellHeight, int);
EXPECT_TYPE(m_nCellWidth, int);
EXPECT_TYPE(m_nRows, long long);
EXPECT_TYPE(m_nColumns, int);
EXPECT_TYPE(m_chMaxChar, wchar_t);
EXPECT_TYPE(m_nStartDelay, int);
EXPECT_TYPE(m_nDefaultPause, int);
EXPECT_TYPE(m_nMaxPhaseCount, int);
EXPECT_TYPE(m_bCursor, BOOL);
EXPECT_TYPE(m_nCursorCol, int);
EXPECT_TYPE(m_nCursorRow, int);
EXPECT_TYPE(m_chCursor, wchar_t);
EXPECT_TYPE(m_arrLines, CStringArray);
EXPECT_TYPE(m_nFirstLine, long long);
EXPECT_TYPE(m_nLastLine, long long);
EXPECT_TYPE(m_arrLinePos, CArray<CPoint, CPoint&>);
EXPECT_TYPE(m_nCurLine, long long);
EXPECT_TYPE(m_strCurText, CString);
EXPECT_TYPE(m_arrPhase, CArray<int, int>);
EXPECT_TYPE(m_nPagePause, int);
EXPECT_TYPE(m_dcComposite, CDC);
EXPECT_TYPE(m_pOldFontComposite, CFont*);
EXPECT_TYPE(m_pOldBmpComposite, CBitmap*);
EXPECT_TYPE(m_bmpComposite, CBitmap);
EXPECT_TYPE(m_pColumns, MatrixColumn*);
EXPECT_TYPE(m_nActiveColumns, int);
EXPECT_TYPE(m_nSpinCount, int);
EXPECT_TYPE(m_pSpins, MatrixSpin*);
EXPECT_TYPE(m_nActiveSpins, int);
EXPECT_TYPE(m_dcBackground, CDC);
EXPECT_TYPE(m_pOldFontBackground, CFont*);
EXPECT_TYPE(m_pOldBmpBackground, CBitmap*);
EXPECT_TYPE(m_bmpBackground, CBitmap);
EXPECT_TYPE(m_font, CFont);

#undef EXPECT_TYPE

static_assert(offsetof(MatrixColumn, bActive) == 0 && offsetof(MatrixColumn, nRow) == 4 &&
              offsetof(MatrixColumn, nEndRow) == 8 && offsetof(MatrixColumn, ch) == 16 &&
              sizeof(MatrixColumn) == 24);
static_assert(std::is_same_v<decltype(MatrixSpin::pt), CPoint> &&
              std::is_same_v<decltype(MatrixSpin::nLife), int>);
static_assert(offsetof(MatrixSpin, bActive) == 0 && offsetof(MatrixSpin, nLife) == 4 &&
              offsetof(MatrixSpin, pt) == 8 && offsetof(MatrixSpin, ch) == 16 && sizeof(MatrixSpin) == 20);
static_assert(std::is_base_of_v<CWnd, CMatrixCredits>);

TEST_F(CreditsOptionsTest, ANewObjectHasItsDefaults)
{
    EXPECT_EQ(m_credits.m_chMaxChar, 255);
    EXPECT_EQ(m_credits.m_nStartDelay, 5);
    EXPECT_EQ(m_credits.m_nDefaultPause, 5);
    EXPECT_EQ(m_credits.m_nMaxPhaseCount, 20);
    EXPECT_EQ(m_credits.m_bCursor, TRUE);
    EXPECT_EQ(m_credits.m_nCursorCol, 0);
    EXPECT_EQ(m_credits.m_nCursorRow, 0);
    EXPECT_EQ(m_credits.m_chCursor, 1);
    EXPECT_TRUE(m_credits.m_arrLines.IsEmpty());
    EXPECT_EQ(m_credits.m_nFirstLine, 0);
    EXPECT_TRUE(m_credits.m_arrLinePos.IsEmpty());
    EXPECT_EQ(m_credits.m_nCurLine, -1);
    EXPECT_TRUE(m_credits.m_strCurText.IsEmpty());
    EXPECT_TRUE(m_credits.m_arrPhase.IsEmpty());
    EXPECT_EQ(m_credits.m_dcComposite.m_hDC, nullptr);
    EXPECT_EQ(m_credits.m_pOldFontComposite, nullptr);
    EXPECT_EQ(m_credits.m_pOldBmpComposite, nullptr);
    EXPECT_EQ(m_credits.m_bmpComposite.m_hObject, nullptr);
    EXPECT_EQ(m_credits.m_pColumns, nullptr);
    EXPECT_EQ(m_credits.m_nActiveColumns, 0);
    EXPECT_EQ(m_credits.m_pSpins, nullptr);
    EXPECT_EQ(m_credits.m_nActiveSpins, 0);
    EXPECT_EQ(m_credits.m_dcBackground.m_hDC, nullptr);
    EXPECT_EQ(m_credits.m_pOldFontBackground, nullptr);
    EXPECT_EQ(m_credits.m_pOldBmpBackground, nullptr);
    EXPECT_EQ(m_credits.m_bmpBackground.m_hObject, nullptr);
    EXPECT_EQ(m_credits.m_font.m_hObject, nullptr);
    EXPECT_EQ(m_credits.m_hWnd, nullptr);
}

TEST_F(CreditsOptionsTest, FieldsStandInTheirOrderBehindThoseOfTheWindow)
{
    const void* const fields[] = {&m_credits.m_nCellHeight,
                                  &m_credits.m_nCellWidth,
                                  &m_credits.m_nRows,
                                  &m_credits.m_nColumns,
                                  &m_credits.m_chMaxChar,
                                  &m_credits.m_nStartDelay,
                                  &m_credits.m_nDefaultPause,
                                  &m_credits.m_nMaxPhaseCount,
                                  &m_credits.m_bCursor,
                                  &m_credits.m_nCursorCol,
                                  &m_credits.m_nCursorRow,
                                  &m_credits.m_chCursor,
                                  &m_credits.m_arrLines,
                                  &m_credits.m_nFirstLine,
                                  &m_credits.m_nLastLine,
                                  &m_credits.m_arrLinePos,
                                  &m_credits.m_nCurLine,
                                  &m_credits.m_strCurText,
                                  &m_credits.m_arrPhase,
                                  &m_credits.m_nPagePause,
                                  &m_credits.m_dcComposite,
                                  &m_credits.m_pOldFontComposite,
                                  &m_credits.m_pOldBmpComposite,
                                  &m_credits.m_bmpComposite,
                                  &m_credits.m_pColumns,
                                  &m_credits.m_nActiveColumns,
                                  &m_credits.m_nSpinCount,
                                  &m_credits.m_pSpins,
                                  &m_credits.m_nActiveSpins,
                                  &m_credits.m_dcBackground,
                                  &m_credits.m_pOldFontBackground,
                                  &m_credits.m_pOldBmpBackground,
                                  &m_credits.m_bmpBackground,
                                  &m_credits.m_font};
    const auto* before = reinterpret_cast<const BYTE*>(static_cast<CWnd*>(&m_credits)) + sizeof(CWnd) - 8;
    for (const void* field : fields) {
        EXPECT_LT(static_cast<const void*>(before), field);
        before = static_cast<const BYTE*>(field);
    }
}

TEST_F(CreditsOptionsTest, TheConstructorSeedsTheRandomNumbersWithTheTime)
{
    std::srand(1);
    const auto from = static_cast<unsigned>(_time64(nullptr));
    const OpenCredits another;
    const int drawn[] = {std::rand(), std::rand(), std::rand()};
    const auto to = static_cast<unsigned>(_time64(nullptr));
    bool isFound = false;
    for (unsigned seed = from; seed <= to; ++seed) {
        std::srand(seed);
        const int first = std::rand(), second = std::rand(), third = std::rand();
        isFound = isFound || (first == drawn[0] && second == drawn[1] && third == drawn[2]);
    }
    EXPECT_TRUE(isFound);
}

TEST_F(CreditsOptionsTest, OnlyPaintingAndTimersAreHandled)
{
    const AFX_MSGMAP* const map = m_credits.GetMessageMap();
    EXPECT_EQ(map->lpEntries[0].nMessage, static_cast<UINT>(WM_PAINT));
    EXPECT_EQ(map->lpEntries[1].nMessage, static_cast<UINT>(WM_TIMER));
    EXPECT_EQ(map->lpEntries[2].nMessage, 0u);
    EXPECT_EQ(map->pfnGetBaseMap(), OpenCredits::BaseMap());
}

TEST_F(CreditsOptionsTest, AddTextLineKeepsTheOrderAndMarkers)
{
    m_credits.AddTextLine(L"one");
    EXPECT_EQ(m_credits.m_nLastLine, 1);
    m_credits.AddTextLine(L"\1 5");
    m_credits.AddTextLine(L"");
    ASSERT_EQ(m_credits.m_arrLines.GetSize(), 3);
    EXPECT_EQ(m_credits.m_arrLines[0], L"one");
    EXPECT_EQ(m_credits.m_arrLines[1], L"\1 5");
    EXPECT_EQ(m_credits.m_arrLines[2], L"");
    EXPECT_EQ(m_credits.m_nLastLine, 3);
}

TEST_F(CreditsOptionsTest, AllowEuropeanCharsSetsTheHighestCharacter)
{
    m_credits.AllowEuropeanChars(FALSE);
    EXPECT_EQ(m_credits.m_chMaxChar, 127);
    m_credits.AllowEuropeanChars(TRUE);
    EXPECT_EQ(m_credits.m_chMaxChar, 255);
    m_credits.AllowEuropeanChars(FALSE);
    m_credits.AllowEuropeanChars(2);
    EXPECT_EQ(m_credits.m_chMaxChar, 255);
}

TEST_F(CreditsOptionsTest, SetCursorSetsWhetherAndWhich)
{
    m_credits.SetCursor(FALSE, FALSE);
    EXPECT_EQ(m_credits.m_bCursor, FALSE);
    EXPECT_EQ(m_credits.m_chCursor, L'a');
    m_credits.SetCursor(TRUE, TRUE);
    EXPECT_EQ(m_credits.m_bCursor, TRUE);
    EXPECT_EQ(m_credits.m_chCursor, 1);
    m_credits.SetCursor(FALSE, TRUE);
    EXPECT_EQ(m_credits.m_bCursor, FALSE);
    EXPECT_EQ(m_credits.m_chCursor, 1);
}

TEST_F(CreditsOptionsTest, SetMaxPhaseCountTakesAnyNumber)
{
    for (const int count : {0, 7, -3, INT_MAX}) {
        m_credits.SetMaxPhaseCount(count);
        EXPECT_EQ(m_credits.m_nMaxPhaseCount, count);
    }
}

TEST_F(CreditsOptionsTest, CreateMakesAWindowOfABareClassWithAClientEdge)
{
    Make({});
    EXPECT_EQ(m_credits.GetExStyle() & WS_EX_CLIENTEDGE, static_cast<DWORD>(WS_EX_CLIENTEDGE));
    EXPECT_EQ(m_credits.GetStyle() & (WS_CHILD | WS_VISIBLE), static_cast<DWORD>(WS_CHILD | WS_VISIBLE));
    EXPECT_EQ(m_credits.GetDlgCtrlID(), 7);
    EXPECT_EQ(m_credits.GetParent()->m_hWnd, m_parent.m_hWnd);
    EXPECT_EQ(m_credits.GetWindowTextLength(), 0);
    const HWND window = m_credits.m_hWnd;
    EXPECT_EQ(GetClassLongPtrW(window, GCL_STYLE), static_cast<ULONG_PTR>(CS_HREDRAW | CS_VREDRAW));
    EXPECT_EQ(GetClassLongPtrW(window, GCLP_HCURSOR), 0u);
    EXPECT_EQ(GetClassLongPtrW(window, GCLP_HBRBACKGROUND), 0u);
    EXPECT_EQ(GetClassLongPtrW(window, GCLP_HICON), 0u);
}

TEST_F(CreditsOptionsTest, CreateMeasuresTheGridWithItsFont)
{
    Prepare(m_credits, {});
    const CSize client(237, 141);
    ASSERT_TRUE(Create(m_credits, client));
    CRect actual;
    m_credits.GetClientRect(&actual);
    ASSERT_EQ(actual.Size(), client);
    EXPECT_EQ(m_credits.m_nCellWidth, m_font.CellWidth());
    EXPECT_EQ(m_credits.m_nCellHeight, m_font.CellHeight());
    EXPECT_EQ(m_credits.m_nColumns, 237 / m_font.CellWidth() + 1);
    EXPECT_EQ(m_credits.m_nRows, 141 / m_font.CellHeight() + 1);
    EXPECT_EQ(m_credits.m_nSpinCount, m_credits.m_nColumns / 5);
}

TEST_F(CreditsOptionsTest, CreateMakesTheFontAndTwoSurfacesOfTheClientSize)
{
    Make({}, 15, 9);
    LOGFONTW font{};
    ASSERT_NE(GetObjectW(m_credits.m_font.m_hObject, sizeof font, &font), 0);
    EXPECT_EQ(font.lfHeight, 14);
    EXPECT_EQ(font.lfWidth, 0);
    EXPECT_EQ(font.lfWeight, 700);
    EXPECT_EQ(font.lfItalic + font.lfUnderline + font.lfStrikeOut, 0);
    EXPECT_EQ(font.lfCharSet, 0);
    EXPECT_EQ(font.lfOutPrecision + font.lfClipPrecision + font.lfQuality, 0);
    EXPECT_EQ(font.lfPitchAndFamily, 0x20);
    EXPECT_STREQ(font.lfFaceName, L"Courier");
    for (CBitmap* bitmap : {&m_credits.m_bmpComposite, &m_credits.m_bmpBackground}) {
        BITMAP data{};
        ASSERT_NE(GetObjectW(bitmap->m_hObject, sizeof data, &data), 0);
        EXPECT_EQ(CSize(data.bmWidth, data.bmHeight), Cells(15, 9));
    }
    EXPECT_EQ(GetCurrentObject(m_credits.m_dcComposite.m_hDC, OBJ_FONT), m_credits.m_font.m_hObject);
    EXPECT_EQ(GetCurrentObject(m_credits.m_dcBackground.m_hDC, OBJ_FONT), m_credits.m_font.m_hObject);
    EXPECT_EQ(GetCurrentObject(m_credits.m_dcComposite.m_hDC, OBJ_BITMAP),
              m_credits.m_bmpComposite.m_hObject);
    EXPECT_EQ(GetCurrentObject(m_credits.m_dcBackground.m_hDC, OBJ_BITMAP),
              m_credits.m_bmpBackground.m_hObject);
}

TEST_F(CreditsOptionsTest, CreateStartsThePageTimerWithTheDelayAndTheRain)
{
    Make({.startDelay = 9});
    EXPECT_THAT(m_timers.Calls(), ElementsAre(TimerCall{true, 0, 9000}, TimerCall{true, 3, 80}));
    for (const TimerCall& call : m_timers.Calls())
        EXPECT_EQ(call.window, m_credits.m_hWnd);
    EXPECT_TRUE(m_credits.GetUpdateRect(nullptr));
}

TEST_F(CreditsOptionsTest, RandomCharactersReachTheirWholeRange)
{
    for (const bool isEuropean : {true, false}) {
        OpenCredits credits;
        Prepare(credits, {.lines = {std::wstring(30, L'\x1F')},
                          .hasCursor = false,
                          .isEuropean = isEuropean,
                          .changes = 100000});
        ASSERT_TRUE(Create(credits, Cells(40, 6)));
        std::srand(5);
        Tick(credits, 0);
        wchar_t lowest = 0xFFFF, highest = 0;
        for (int i = 0; i < 1000; ++i) {
            Tick(credits, 1);
            for (int c = 0; c < credits.m_strCurText.GetLength(); ++c) {
                lowest = std::min(lowest, credits.m_strCurText[c]);
                highest = std::max(highest, credits.m_strCurText[c]);
            }
        }
        EXPECT_EQ(lowest, 32);
        EXPECT_EQ(highest, isEuropean ? 255 : 127);
        credits.DestroyWindow();
    }
}

TEST_F(CreditsOptionsTest, TheSolidCursorStaysAndTheCharacterCursorChangesOnTextTicks)
{
    Make({.lines = {L"Alpha"}});
    Tick(0);
    Tick(1, 50);
    EXPECT_EQ(m_credits.m_chCursor, 1);

    m_credits.SetCursor(TRUE, FALSE);
    std::srand(3);
    int changes = 0;
    for (int i = 0; i < 100; ++i) {
        const wchar_t before = m_credits.m_chCursor;
        Tick(2);
        Tick(3);
        Tick(4);
        EXPECT_EQ(m_credits.m_chCursor, before);
        Tick(1);
        changes += m_credits.m_chCursor != before;
    }
    EXPECT_GT(changes, 90);
}

} // namespace
