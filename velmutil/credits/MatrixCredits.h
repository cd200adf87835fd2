// CMatrixCredits: a window in which lines of text decode out of a rain of green characters.
#pragma once

#include <afxwin.h>
#include <afxcoll.h>
#include <afxtempl.h>

#include "frame/Portability.h"

// A drop of the rain; each column has one.
struct MatrixColumn
{
    BOOL bActive;    // it falls
    int nRow;        // where the next bright character is drawn
    __int64 nEndRow; // where it stops
    wchar_t ch;      // its character; a drop of blanks erases
};

// A letter that flickers in its place.
struct MatrixSpin
{
    BOOL bActive; // it flickers
    int nLife;    // ticks that are left
    CPoint pt;    // x the column, y the row
    wchar_t ch;   // the letter
};

// The caller adds its lines, sets the options, and calls Create, or does so at least before the first page
// begins; the window's timers do the rest. A page of lines shows after the start delay of five seconds, stays
// for a while when it is complete, and makes room for the next; after the last comes the first. A line that
// begins with the character U+0001 ends a page: the rest of it is the seconds for which that page stays
// (other pages stay for five).
//
// A page must have at least one line, there must be lines where the cursor is enabled, and none may be added
// while a page decodes: otherwise ticks of the timers raise MFC's invalid-argument exception. MFC reports
// what a tick raises in a message box, and further ticks come while the box is open: boxes pile up. Where
// memory runs out, the tick that needs it raises MFC's exception, and a later one of its timer goes on there.
//
// Everything happens on the window's thread. Random numbers are the run-time library's (rand), seeded with
// the time when the object is made. Surfaces and grid keep the size that the window has when it is made. In
// both directions the grid has one cell more than there are whole ones in the client area (size / cell + 1).
// Up to three rows, which is less than three cells of height, all drops begin in the first row; with a single
// row a drop ends on the tick that begins it. Fewer than five columns, which is less than four cells of
// width, have no flickering letters. A window without any area shows nothing. Where the cursor is enabled, a
// line with characters behind the last column, one cell for each from the line's first cell on, is never
// complete, and its page stays.
class VELM_API CMatrixCredits : public CWnd
{
public:
    CMatrixCredits();
    virtual ~CMatrixCredits();

    // Makes the window, with a client edge, and starts the animation with the first page. The result is that
    // of CreateEx; without a window the grid is set up, but no timer runs and nothing is invalidated. Raises
    // MFC's resource exception when the window class cannot be registered or there is no device context of
    // the window, and MFC's or the standard library's exception where memory runs out; then there is no
    // window. Other failures of GDI are not reported: a window without its surfaces shows nothing and stays
    // invalid, so that WM_PAINT comes again and again. After the window's end it may be called again.
    virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

    // Adds a line, or the end of a page, at the end. The next page is the first again then. Not to be called
    // while a page decodes: the page does not end any more, and when its last line is complete each tick
    // raises MFC's invalid-argument exception.
    void AddTextLine(const wchar_t* line);

    // Whether random characters of the text go up to 255 (so at first) or to 127 only.
    void AllowEuropeanChars(BOOL allow);

    // Whether a cursor sweeps across each line (so at first), and whether it is a solid block (so at first)
    // or a changing character.
    void SetCursor(BOOL enable, BOOL solidBlock);

    // How many random changes a character may make before it settles; 20 at first.
    void SetMaxPhaseCount(int count);

protected:
    // Shows the picture that was composed last; moves the animation on, by the number of the timer.
    afx_msg void OnPaint();
    afx_msg void OnTimer(UINT_PTR id);

    DECLARE_MESSAGE_MAP()

    // The grid: the size of a cell in pixels, rows and columns.
    int m_nCellHeight;
    int m_nCellWidth;
    __int64 m_nRows;
    int m_nColumns;

    // The options: the last random character, start delay and stay of a page in seconds, changes of a
    // character before it settles, the cursor.
    wchar_t m_chMaxChar;
    int m_nStartDelay;
    int m_nDefaultPause;
    int m_nMaxPhaseCount;
    BOOL m_bCursor;
    int m_nCursorCol;
    int m_nCursorRow;
    wchar_t m_chCursor;

    // The lines, those of the page that shows, where they begin, the one that decodes, its text so far and
    // how often each of its characters may still change, the seconds for which the page stays.
    CStringArray m_arrLines;
    __int64 m_nFirstLine;
    __int64 m_nLastLine;
    CArray<CPoint, CPoint&> m_arrLinePos;
    __int64 m_nCurLine;
    CString m_strCurText;
    CArray<int, int> m_arrPhase;
    int m_nPagePause;

    // The surface that is shown, what was selected into it before, and its bitmap.
    CDC m_dcComposite;
    CFont* m_pOldFontComposite;
    CBitmap* m_pOldBmpComposite;
    CBitmap m_bmpComposite;

    // The drops and the letters that flicker, with how many of them are at it.
    MatrixColumn* m_pColumns;
    int m_nActiveColumns;
    int m_nSpinCount;
    MatrixSpin* m_pSpins;
    int m_nActiveSpins;

    // The surface that keeps the rain, and the font of both.
    CDC m_dcBackground;
    CFont* m_pOldFontBackground;
    CBitmap* m_pOldBmpBackground;
    CBitmap m_bmpBackground;
    CFont m_font;

private:
    BOOL CursorFinished();
    void InitText();
    void InitCursor();
    void UpdateText();
    void UpdateCursor();
    void UpdateSpin();
    void UpdateBackground();
    void InitBackgroundCharacters(int column);

    void DrawActiveString(CDC& dc, int row, int col, const wchar_t* text, int count, COLORREF color);
    void DrawMeasured(CDC& dc, int row, int col, const wchar_t* text, int count, int width, COLORREF color);
    void DrawActiveBackgroundChar(int column);
    void DrawFadedBackgroundChar(int column);
    void DrawSpin();
    void DrawTextW();
    void DrawCursor();
    void Draw();

    void MakeComposite(CDC& client, CSize size);
    void MakeBackground(CDC& client, CSize size);
    void MakeModel(CSize size);
    void MeasureCells();
    void ForgetPage();
    void Release();
    CPoint& PositionOf(__int64 line) { return m_arrLinePos[line - m_nFirstLine]; }
    wchar_t RandomTextCharacter() const;
    void EndPage();

    // The handles behind the pointers of the same purpose, which MFC may drop when it is idle.
    HGDIOBJ m_oldFontComposite;
    HGDIOBJ m_oldBmpComposite;
    HGDIOBJ m_oldFontBackground;
    HGDIOBJ m_oldBmpBackground;

    // Of the page's lines in pixels: every frame draws them again.
    CArray<int, int> m_lineWidths;
};
