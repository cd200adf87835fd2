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
    BOOL bActive;
    int nLife; // ticks that are left
    CPoint pt; // x the column, y the row
    wchar_t ch;
};

// The caller adds its lines, sets the options, and calls Create; the window's timers do the rest. A page of
// lines shows after the start delay of five seconds, stays for a while when it is complete, and makes room
// for the next; after the last comes the first. A line that begins with the character U+0001 ends a page: the
// rest of it is the seconds for which that page stays (other pages stay for five). A page must have at least
// one line, and there must be lines where the cursor is enabled: otherwise a tick of a timer raises MFC's
// invalid-argument exception.
//
// Everything happens on the window's thread. Random numbers are the run-time library's (rand), seeded with
// the time when the object is made. Surfaces and grid keep the size that the window has when it is made. A
// window of fewer than three rows of characters has its drops begin in the first row; one of fewer than five
// columns has no flickering letters; one without any area shows nothing. Where the cursor is enabled, a line
// that does not end before the last column is never complete, and its page stays.
class VELM_API CMatrixCredits : public CWnd
{
public:
    CMatrixCredits();
    virtual ~CMatrixCredits();

    // Makes the window, with a client edge, and starts the animation. The result is that of CreateEx; no
    // timer runs without a window. Raises MFC's resource exception when there are no surfaces to be had.
    // After the window's end it may be called again.
    virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

    // Adds a line, or the end of a page, at the end. The next page is the first again then.
    void AddTextLine(const wchar_t* line);

    // Whether random characters of the text go up to 255 (so at first) or to 127 only.
    void AllowEuropeanChars(BOOL allow);

    // Whether a cursor sweeps across each line (so at first), and whether it is a solid block (so at first)
    // or a changing character.
    void SetCursor(BOOL enable, BOOL solidBlock);

    // How many random changes a character may make before it settles; 20 at first.
    void SetMaxPhaseCount(int count);

protected:
    afx_msg void OnPaint();
    afx_msg void OnTimer(UINT_PTR id);

    DECLARE_MESSAGE_MAP()

    int m_nCellHeight;
    int m_nCellWidth;
    __int64 m_nRows;
    int m_nColumns;
    wchar_t m_chMaxChar;
    int m_nStartDelay;
    int m_nDefaultPause;
    int m_nMaxPhaseCount;
    BOOL m_bCursor;
    int m_nCursorCol;
    int m_nCursorRow;
    wchar_t m_chCursor;
    CStringArray m_arrLines;
    __int64 m_nFirstLine;
    __int64 m_nLastLine;
    CArray<CPoint, CPoint&> m_arrLinePos;
    __int64 m_nCurLine;
    CString m_strCurText;
    CArray<int, int> m_arrPhase;
    int m_nPagePause;
    CDC m_dcComposite;
    CFont* m_pOldFontComposite;
    CBitmap* m_pOldBmpComposite;
    CBitmap m_bmpComposite;
    MatrixColumn* m_pColumns;
    int m_nActiveColumns;
    int m_nSpinCount;
    MatrixSpin* m_pSpins;
    int m_nActiveSpins;
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
    void DrawActiveBackgroundChar(int column);
    void DrawFadedBackgroundChar(int column);
    void DrawSpin();
    void DrawTextW();
    void DrawCursor();
    void Draw();

    void MakeSurfaces(CSize size);
    void MakeModel(CSize size);
    void Release();
    CPoint& PositionOf(__int64 line) { return m_arrLinePos[line - m_nFirstLine]; }
    wchar_t RandomTextCharacter() const;
    void EndPage();

    // The handles behind the pointers of the same purpose, which MFC may drop when it is idle.
    HGDIOBJ m_oldFontComposite;
    HGDIOBJ m_oldBmpComposite;
    HGDIOBJ m_oldFontBackground;
    HGDIOBJ m_oldBmpBackground;
};
