// Message boxes, and texts made from string resources.
#include "afxwin.h"

int CWinApp::DoMessageBox(LPCTSTR lpszPrompt, UINT nType, UINT)
{
    EnableModeless(FALSE);
    HWND hTop = nullptr;
    const HWND hOwner = CWnd::GetSafeOwner_(nullptr, &hTop);

    if ((nType & MB_ICONMASK) == 0) {
        switch (nType & MB_TYPEMASK) {
        case MB_OK:
        case MB_OKCANCEL:
        case MB_YESNO:
        case MB_YESNOCANCEL:
            nType |= MB_ICONEXCLAMATION;
            break;
        }
    }
    const int nButton = ::MessageBox(hOwner, lpszPrompt, m_pszAppName, nType);

    if (hTop != nullptr)
        ::EnableWindow(hTop, TRUE);
    EnableModeless(TRUE);
    return nButton;
}

int AFXAPI AfxMessageBox(LPCTSTR lpszText, UINT nType, UINT nIDHelp)
{
    if (CWinApp* const pApp = AfxGetApp())
        return pApp->DoMessageBox(lpszText, nType, nIDHelp);
    return ::MessageBox(nullptr, lpszText, AfxGetAppName(), nType);
}

int AFXAPI AfxMessageBox(UINT nIDPrompt, UINT nType, UINT nIDHelp)
{
    CString text;
    text.LoadString(nIDPrompt);
    return AfxMessageBox(text, nType, nIDHelp == static_cast<UINT>(-1) ? nIDPrompt : nIDHelp);
}

namespace
{
// %1, %2 and so on stand for the texts; a % that means none of them stays.
CString ReplaceNumbers(const CString& format, const LPCTSTR* texts, int nCount)
{
    CString result;
    for (int i = 0; i < format.GetLength(); ++i) {
        const TCHAR ch = format[i];
        const int nText = ch == _T('%') && i + 1 < format.GetLength() ? format[i + 1] - _T('1') : -1;
        if (nText < 0 || nText >= nCount) {
            result += ch;
            continue;
        }
        if (texts[nText] != nullptr)
            result += texts[nText];
        ++i;
    }
    return result;
}
} // namespace

void AFXAPI AfxFormatString1(CString& rString, UINT nIDS, LPCTSTR lpsz1)
{
    CString format;
    format.LoadString(nIDS);
    rString = ReplaceNumbers(format, &lpsz1, 1);
}

void AFXAPI AfxFormatString2(CString& rString, UINT nIDS, LPCTSTR lpsz1, LPCTSTR lpsz2)
{
    const LPCTSTR texts[] = {lpsz1, lpsz2};
    CString format;
    format.LoadString(nIDS);
    rString = ReplaceNumbers(format, texts, 2);
}

BOOL AFXAPI AfxExtractSubString(CString& rString, LPCTSTR lpszFullString, int iSubString, TCHAR chSep)
{
    rString.Empty();
    if (lpszFullString == nullptr)
        return FALSE;
    for (; iSubString > 0; --iSubString) {
        lpszFullString = _tcschr(lpszFullString, chSep);
        if (lpszFullString == nullptr)
            return FALSE;
        ++lpszFullString;
    }
    const LPCTSTR lpszEnd = _tcschr(lpszFullString, chSep);
    const int nLength =
        lpszEnd == nullptr ? ::lstrlen(lpszFullString) : static_cast<int>(lpszEnd - lpszFullString);
    rString = CString(lpszFullString, nLength);
    return TRUE;
}
