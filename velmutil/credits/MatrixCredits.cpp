#include "credits/MatrixCredits.h"

#include <algorithm>
#include <cstdlib>
#include <ctime>
#include <cwchar>

namespace
{

constexpr UINT_PTR PageTimer = 0;
constexpr UINT_PTR TextTimer = 1;
constexpr UINT_PTR CursorTimer = 2;
constexpr UINT_PTR BackgroundTimer = 3;
constexpr UINT_PTR SpinTimer = 4;
constexpr UINT TextPeriod = 10;
constexpr UINT CursorPeriod = 40;
constexpr UINT BackgroundPeriod = 80;
constexpr UINT SpinPeriod = 10;
constexpr UINT MillisecondsPerSecond = 1000;

constexpr wchar_t PageEnd = 1;
constexpr wchar_t SolidBlock = 1;
constexpr wchar_t Blank = L' ';
constexpr wchar_t FirstTextCharacter = 32;

// Draws a number in any case, so that the sequence does not depend on the window's size. 0 for no range.
int RandomBelow(int count)
{
    const int number = std::rand();
    return count > 0 ? number % count : 0;
}

wchar_t RandomLetter()
{
    return static_cast<wchar_t>(L'a' + RandomBelow(26));
}

// Looks for an idle one among `count` records at random, with one try more than there are records; -1 if
// every try met a busy one.
template <class Record>
int PickIdle(const Record* records, int count)
{
    for (int tries = 1;; ++tries) {
        const int picked = RandomBelow(count);
        if (!records[picked].bActive)
            return picked;
        if (tries > count)
            return -1;
    }
}

bool EndsPage(const CString& line)
{
    return !line.IsEmpty() && line[0] == PageEnd;
}

} // namespace

BEGIN_MESSAGE_MAP(CMatrixCredits, CWnd)
ON_WM_PAINT()
ON_WM_TIMER()
END_MESSAGE_MAP()

CMatrixCredits::CMatrixCredits()
    : m_nCellHeight(0), m_nCellWidth(0), m_nRows(0), m_nColumns(0), m_chMaxChar(255), m_nStartDelay(5),
      m_nDefaultPause(5), m_nMaxPhaseCount(20), m_bCursor(TRUE), m_nCursorCol(0), m_nCursorRow(0),
      m_chCursor(SolidBlock), m_nFirstLine(0), m_nLastLine(0), m_nCurLine(-1), m_nPagePause(0),
      m_pOldFontComposite(nullptr), m_pOldBmpComposite(nullptr), m_pColumns(nullptr), m_nActiveColumns(0),
      m_nSpinCount(0), m_pSpins(nullptr), m_nActiveSpins(0), m_pOldFontBackground(nullptr),
      m_pOldBmpBackground(nullptr), m_oldFontComposite(nullptr), m_oldBmpComposite(nullptr),
      m_oldFontBackground(nullptr), m_oldBmpBackground(nullptr)
{
    std::srand(static_cast<unsigned>(_time64(nullptr)));
}

CMatrixCredits::~CMatrixCredits()
{
    // While the handlers of this class are still there.
    DestroyWindow();
    Release();
}

BOOL CMatrixCredits::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    static const CString windowClass = AfxRegisterWndClass(CS_HREDRAW | CS_VREDRAW);
    Release();
    ForgetPage();
    const BOOL isCreated =
        CreateEx(WS_EX_CLIENTEDGE, windowClass, nullptr, dwStyle, rect, pParentWnd, nID, nullptr);
    CRect client(0, 0, 0, 0);
    if (isCreated)
        GetClientRect(&client);
    try {
        CClientDC dc(this);
        MakeComposite(dc, client.Size());
        MeasureCells();
        MakeBackground(dc, client.Size());
        MakeModel(client.Size());
        if (isCreated) {
            SetTimer(PageTimer, static_cast<UINT>(m_nStartDelay) * MillisecondsPerSecond, nullptr);
            SetTimer(BackgroundTimer, BackgroundPeriod, nullptr);
            Invalidate(FALSE);
        }
    } catch (...) {
        DestroyWindow();
        Release();
        throw;
    }
    return isCreated;
}

// As if no page had begun.
void CMatrixCredits::ForgetPage()
{
    m_nFirstLine = 0;
    m_nLastLine = m_arrLines.GetSize();
    m_nCurLine = -1;
    m_arrLinePos.RemoveAll();
    m_lineWidths.RemoveAll();
    m_strCurText.Empty();
    m_arrPhase.RemoveAll();
    m_nCursorCol = m_nCursorRow = 0;
}

void CMatrixCredits::MeasureCells()
{
    TEXTMETRIC metrics = {};
    m_dcComposite.GetTextMetrics(&metrics);
    m_nCellWidth = metrics.tmAveCharWidth + 2;
    m_nCellHeight = std::max<int>(metrics.tmHeight, 1);
}

void CMatrixCredits::MakeModel(CSize size)
{
    m_nColumns = size.cx / m_nCellWidth + 1;
    m_nRows = size.cy / m_nCellHeight + 1;
    m_pColumns = new MatrixColumn[static_cast<size_t>(m_nColumns)];
    for (int column = 0; column < m_nColumns; ++column)
        m_pColumns[column].bActive = FALSE;
    m_nSpinCount = static_cast<int>(static_cast<float>(m_nColumns) * 0.2f);
    m_pSpins = new MatrixSpin[static_cast<size_t>(m_nSpinCount)];
    for (int slot = 0; slot < m_nSpinCount; ++slot) {
        m_pSpins[slot].pt = CPoint(0, 0);
        m_pSpins[slot].bActive = FALSE;
    }
}

void CMatrixCredits::AddTextLine(const wchar_t* line)
{
    m_arrLines.Add(line);
    m_nLastLine = m_arrLines.GetSize();
}

void CMatrixCredits::AllowEuropeanChars(BOOL allow)
{
    m_chMaxChar = allow ? 255 : 127;
}

void CMatrixCredits::SetCursor(BOOL enable, BOOL solidBlock)
{
    m_bCursor = enable;
    m_chCursor = solidBlock ? SolidBlock : L'a';
}

void CMatrixCredits::SetMaxPhaseCount(int count)
{
    m_nMaxPhaseCount = count;
}

void CMatrixCredits::OnTimer(UINT_PTR id)
{
    // A derived class may have ended the window before it passes the tick on. Timers would then be the
    // thread's, and nothing would end them.
    if (m_hWnd == nullptr)
        return;
    switch (id) {
    case PageTimer:
        InitText();
        InitCursor();
        break;
    case TextTimer:
        UpdateSpin();
        UpdateText();
        Draw();
        break;
    case CursorTimer:
        UpdateCursor();
        Draw();
        break;
    case BackgroundTimer:
        UpdateBackground();
        Draw();
        break;
    case SpinTimer:
        UpdateSpin();
        Draw();
        break;
    }
    Default();
}

// Text

void CMatrixCredits::InitText()
{
    const __int64 count = m_arrLines.GetSize();
    if (count == 0)
        return;
    const __int64 formerLastLine = m_nLastLine;
    m_nFirstLine = m_nLastLine + 2;
    if (m_nFirstLine >= count)
        m_nFirstLine = 0;
    m_nCurLine = m_nLastLine = m_nFirstLine;
    try {
        EndPage();
        CRect client;
        GetClientRect(&client);
        const __int64 lines = m_nLastLine - m_nFirstLine + 1;
        const int topRow = static_cast<int>((m_nRows - lines - 1) / 2);
        m_arrLinePos.RemoveAll();
        m_lineWidths.RemoveAll();
        for (__int64 j = 0; j < lines; ++j) {
            const int width = m_dcComposite.GetTextExtent(m_arrLines[m_nFirstLine + j]).cx;
            CPoint position((client.Width() - width) / 2 / m_nCellWidth, topRow + static_cast<int>(j));
            m_arrLinePos.Add(position);
            m_lineWidths.Add(width);
        }
    } catch (CMemoryException*) {
        // The next tick begins the same page; until then none is shown.
        m_nLastLine = formerLastLine;
        m_nCurLine = -1;
        m_arrLinePos.RemoveAll();
        m_lineWidths.RemoveAll();
        throw;
    }
    m_strCurText.Empty();
    m_arrPhase.RemoveAll();
    KillTimer(PageTimer);
    KillTimer(SpinTimer);
    SetTimer(TextTimer, TextPeriod, nullptr);
}

// Finds the last line of the page that begins at the last line, and how long the page stays.
void CMatrixCredits::EndPage()
{
    for (__int64 scan = m_nLastLine;; ++scan) {
        m_nLastLine = scan;
        const CString& line = m_arrLines[scan];
        if (EndsPage(line)) {
            CString pause = line.Mid(1);
            pause.TrimLeft();
            m_nPagePause = _wtoi(pause);
            m_nLastLine = scan - 1;
            return;
        }
        if (scan == m_arrLines.GetSize() - 1) {
            m_nPagePause = m_nDefaultPause;
            return;
        }
    }
}

void CMatrixCredits::InitCursor()
{
    if (!m_bCursor)
        return;
    m_nCursorCol = 0;
    m_nCursorRow = PositionOf(m_nCurLine).y;
    SetTimer(CursorTimer, CursorPeriod, nullptr);
}

BOOL CMatrixCredits::CursorFinished()
{
    return m_nCursorCol >= m_nColumns;
}

void CMatrixCredits::UpdateCursor()
{
    m_nCursorCol += 1;
    if (CursorFinished())
        KillTimer(CursorTimer);
}

wchar_t CMatrixCredits::RandomTextCharacter() const
{
    return static_cast<wchar_t>(FirstTextCharacter + RandomBelow(m_chMaxChar - (FirstTextCharacter - 1)));
}

void CMatrixCredits::UpdateText()
{
    if (m_bCursor && m_chCursor != SolidBlock)
        m_chCursor = RandomTextCharacter();

    const CString& line = m_arrLines[m_nCurLine];
    bool isDone = true;
    for (int i = 0; i < line.GetLength(); ++i) {
        if (m_bCursor && i >= m_nCursorCol - PositionOf(m_nCurLine).x) {
            isDone = false;
            break;
        }
        if (i >= m_strCurText.GetLength()) {
            // The number first: a character without one would fail in every tick.
            m_arrPhase.Add(0);
            m_strCurText += RandomTextCharacter();
            isDone = false;
        } else if (m_arrPhase[i] >= m_nMaxPhaseCount) {
            m_strCurText.SetAt(i, line[i]);
        } else if (m_strCurText[i] != line[i]) {
            m_strCurText.SetAt(i, RandomTextCharacter());
            m_arrPhase[i] += 1;
            isDone = false;
        }
    }
    if (m_bCursor && !line.IsEmpty() && !CursorFinished())
        return;
    if (!isDone)
        return;
    if (m_nCurLine != m_nLastLine) {
        m_nCurLine += 1;
        m_strCurText.Empty();
        m_arrPhase.RemoveAll();
        InitCursor();
        return;
    }
    KillTimer(TextTimer);
    SetTimer(PageTimer, static_cast<UINT>(m_nPagePause) * MillisecondsPerSecond, nullptr);
    SetTimer(SpinTimer, SpinPeriod, nullptr);
}

// Rain and flickering letters

void CMatrixCredits::UpdateBackground()
{
    if (m_nActiveColumns < m_nColumns) {
        const int started = PickIdle(m_pColumns, m_nColumns);
        if (started >= 0) {
            m_pColumns[started].bActive = TRUE;
            InitBackgroundCharacters(started);
            DrawActiveBackgroundChar(started);
            m_pColumns[started].nRow += 1;
            m_nActiveColumns += 1;
        }
    }
    for (int c = 0; c < m_nColumns; ++c) {
        MatrixColumn& column = m_pColumns[c];
        if (!column.bActive)
            continue;
        DrawFadedBackgroundChar(c);
        if (column.nRow < column.nEndRow) {
            DrawActiveBackgroundChar(c);
            column.nRow += 1;
        } else {
            column.bActive = FALSE;
            m_nActiveColumns -= 1;
        }
    }
}

void CMatrixCredits::InitBackgroundCharacters(int column)
{
    const int rows = static_cast<int>(m_nRows);
    MatrixColumn& drop = m_pColumns[column];
    drop.nRow = 0;
    if (RandomBelow(2) == 0)
        drop.nRow = RandomBelow(rows - 2);
    drop.nEndRow = m_nRows;
    if (RandomBelow(2) == 0)
        drop.nEndRow = std::min<__int64>(drop.nRow + 3 + RandomBelow(rows - drop.nRow - 2), m_nRows);
    drop.ch = RandomBelow(5) == 0 ? Blank : RandomLetter();
}

void CMatrixCredits::UpdateSpin()
{
    if (m_nActiveSpins < m_nSpinCount && RandomBelow(101) == 0) {
        const int started = PickIdle(m_pSpins, m_nSpinCount);
        if (started >= 0) {
            MatrixSpin& spin = m_pSpins[started];
            spin.bActive = TRUE;
            spin.nLife = 300 + RandomBelow(501);
            spin.pt.x = RandomBelow(m_nColumns + 1);
            spin.pt.y = RandomBelow(static_cast<int>(m_nRows) + 1);
            m_nActiveSpins += 1;
        }
    }
    for (int slot = 0; slot < m_nSpinCount; ++slot) {
        MatrixSpin& spin = m_pSpins[slot];
        if (!spin.bActive)
            continue;
        if (spin.nLife <= 0) {
            spin.bActive = FALSE;
            m_nActiveSpins -= 1;
        } else {
            spin.ch = RandomLetter();
            spin.nLife -= 1;
        }
    }
}
