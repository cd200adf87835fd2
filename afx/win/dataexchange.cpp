#include "afxwin.h"

#include <cfloat>
#include <cmath>
#include <climits>

CDataExchange::CDataExchange(CWnd* pDlgWnd, BOOL bSaveAndValidate)
    : m_bSaveAndValidate(bSaveAndValidate), m_pDlgWnd(pDlgWnd), m_hWndLastControl(nullptr),
      m_bEditLastControl(FALSE)
{
}

HWND CDataExchange::PrepareCtrl(int nIDC)
{
    const HWND hControl = ::GetDlgItem(m_pDlgWnd->m_hWnd, nIDC);
    if (hControl == nullptr)
        AfxThrowNotSupportedException();
    m_hWndLastControl = hControl;
    m_bEditLastControl = FALSE;
    return hControl;
}

HWND CDataExchange::PrepareEditCtrl(int nIDC)
{
    const HWND hControl = PrepareCtrl(nIDC);
    m_bEditLastControl = TRUE;
    return hControl;
}

void CDataExchange::Fail()
{
    if (m_bSaveAndValidate && m_hWndLastControl != nullptr) {
        ::SetFocus(m_hWndLastControl);
        if (m_bEditLastControl)
            AfxSend(m_hWndLastControl, EM_SETSEL, 0, -1);
    }
    AfxThrowUserException();
}

void AFXAPI DDX_Control(CDataExchange* pDX, int nIDC, CWnd& rControl)
{
    if (rControl.m_hWnd != nullptr)
        return;
    const HWND hControl = pDX->PrepareCtrl(nIDC);
    if (!rControl.SubclassWindow(hControl))
        AfxThrowNotSupportedException();
}

namespace
{
CString TextOf(HWND hControl)
{
    CString text;
    const int nLength = ::GetWindowTextLength(hControl);
    ::GetWindowText(hControl, text.GetBufferSetLength(nLength), nLength + 1);
    text.ReleaseBuffer();
    return text;
}

void SetText(HWND hControl, LPCTSTR text)
{
    // The same text again would flicker and tell EN_CHANGE for nothing.
    if (TextOf(hControl) != text)
        ::SetWindowText(hControl, text);
}

bool OnlyBlanks(LPCTSTR text)
{
    while (*text == _T(' ') || *text == _T('\t'))
        ++text;
    return *text == 0;
}

[[noreturn]] void Refuse(CDataExchange* pDX, LPCTSTR prompt)
{
    AfxMessageBox(prompt);
    pDX->Fail();
}

// A number of the member's own range, or the user is told.
template <class Number>
void ExchangeInteger(CDataExchange* pDX, int nIDC, Number& value)
{
    const HWND hControl = pDX->PrepareEditCtrl(nIDC);
    if (!pDX->m_bSaveAndValidate) {
        CString text;
        text.Format(_T("%I64d"), static_cast<long long>(value));
        SetText(hControl, text);
        return;
    }
    const CString text = TextOf(hControl);
    LPTSTR end = nullptr;
    errno = 0;
    const long long number = _tcstoi64(text, &end, 10);
    const bool bNumber = end != static_cast<LPCTSTR>(text) && OnlyBlanks(end) && errno == 0;
    if (!bNumber || number < static_cast<long long>((std::numeric_limits<Number>::min)()) ||
        number > static_cast<long long>((std::numeric_limits<Number>::max)()))
        Refuse(pDX, std::is_signed_v<Number> ? _T("Please enter a whole number.")
                                             : _T("Please enter a whole number that is not negative."));
    value = static_cast<Number>(number);
}

template <class Number>
void ExchangeReal(CDataExchange* pDX, int nIDC, Number& value, int nDigits)
{
    const HWND hControl = pDX->PrepareEditCtrl(nIDC);
    if (!pDX->m_bSaveAndValidate) {
        CString text;
        text.Format(_T("%.*g"), nDigits, static_cast<double>(value));
        SetText(hControl, text);
        return;
    }
    const CString text = TextOf(hControl);
    LPTSTR end = nullptr;
    const double number = _tcstod(text, &end);
    if (end == static_cast<LPCTSTR>(text) || !OnlyBlanks(end) || !std::isfinite(static_cast<Number>(number)))
        Refuse(pDX, _T("Please enter a number."));
    value = static_cast<Number>(number);
}
} // namespace

void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, CString& value)
{
    const HWND hControl = pDX->PrepareEditCtrl(nIDC);
    if (pDX->m_bSaveAndValidate)
        value = TextOf(hControl);
    else
        SetText(hControl, value);
}

void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, BYTE& value)
{
    ExchangeInteger(pDX, nIDC, value);
}
void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, short& value)
{
    ExchangeInteger(pDX, nIDC, value);
}
void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, int& value)
{
    ExchangeInteger(pDX, nIDC, value);
}
void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, UINT& value)
{
    ExchangeInteger(pDX, nIDC, value);
}
void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, long& value)
{
    ExchangeInteger(pDX, nIDC, value);
}
void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, DWORD& value)
{
    ExchangeInteger(pDX, nIDC, value);
}
void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, float& value)
{
    ExchangeReal(pDX, nIDC, value, FLT_DIG);
}
void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, double& value)
{
    ExchangeReal(pDX, nIDC, value, DBL_DIG);
}

void AFXAPI DDX_Check(CDataExchange* pDX, int nIDC, int& value)
{
    const HWND hControl = pDX->PrepareCtrl(nIDC);
    if (pDX->m_bSaveAndValidate) {
        value = static_cast<int>(AfxSend(hControl, BM_GETCHECK, 0, 0));
        return;
    }
    if (value < 0 || value > 2)
        value = 0;
    AfxSend(hControl, BM_SETCHECK, value, 0);
}

void AFXAPI DDX_Radio(CDataExchange* pDX, int nIDC, int& value)
{
    HWND hControl = pDX->PrepareCtrl(nIDC);
    if (pDX->m_bSaveAndValidate)
        value = -1;
    int nButton = 0;
    do {
        // Other controls may stand between the buttons.
        if ((AfxSend(hControl, WM_GETDLGCODE, 0, 0) & DLGC_RADIOBUTTON) != 0) {
            if (!pDX->m_bSaveAndValidate)
                AfxSend(hControl, BM_SETCHECK, nButton == value, 0);
            else if (AfxSend(hControl, BM_GETCHECK, 0, 0) != 0)
                value = nButton;
            ++nButton;
        }
        hControl = ::GetWindow(hControl, GW_HWNDNEXT);
    } while (hControl != nullptr && (::GetWindowLong(hControl, GWL_STYLE) & WS_GROUP) == 0);
}

void AFXAPI DDX_LBIndex(CDataExchange* pDX, int nIDC, int& index)
{
    const HWND hControl = pDX->PrepareCtrl(nIDC);
    if (pDX->m_bSaveAndValidate)
        index = static_cast<int>(AfxSend(hControl, LB_GETCURSEL, 0, 0));
    else
        AfxSend(hControl, LB_SETCURSEL, index, 0);
}

namespace
{
CString ChosenText(HWND hControl)
{
    CString text;
    const LRESULT lIndex = AfxSend(hControl, LB_GETCURSEL, 0, 0);
    if (lIndex < 0)
        return text;
    const int nLength = static_cast<int>(AfxSend(hControl, LB_GETTEXTLEN, lIndex, 0));
    AfxSend(hControl, LB_GETTEXT, lIndex, text.GetBufferSetLength(nLength));
    text.ReleaseBuffer();
    return text;
}
} // namespace

void AFXAPI DDX_LBString(CDataExchange* pDX, int nIDC, CString& value)
{
    const HWND hControl = pDX->PrepareCtrl(nIDC);
    if (pDX->m_bSaveAndValidate)
        value = ChosenText(hControl);
    else
        AfxSend(hControl, LB_SELECTSTRING, -1, static_cast<LPCTSTR>(value));
}

void AFXAPI DDX_LBStringExact(CDataExchange* pDX, int nIDC, CString& value)
{
    const HWND hControl = pDX->PrepareCtrl(nIDC);
    if (pDX->m_bSaveAndValidate) {
        value = ChosenText(hControl);
        return;
    }
    const LRESULT lIndex = AfxSend(hControl, LB_FINDSTRINGEXACT, -1, static_cast<LPCTSTR>(value));
    if (lIndex >= 0)
        AfxSend(hControl, LB_SETCURSEL, lIndex, 0);
}

void AFXAPI DDX_CBIndex(CDataExchange* pDX, int nIDC, int& index)
{
    const HWND hControl = pDX->PrepareCtrl(nIDC);
    if (pDX->m_bSaveAndValidate)
        index = static_cast<int>(AfxSend(hControl, CB_GETCURSEL, 0, 0));
    else
        AfxSend(hControl, CB_SETCURSEL, index, 0);
}

void AFXAPI DDX_CBString(CDataExchange* pDX, int nIDC, CString& value)
{
    const HWND hControl = pDX->PrepareCtrl(nIDC);
    if (pDX->m_bSaveAndValidate)
        value = TextOf(hControl);
    else if (AfxSend(hControl, CB_SELECTSTRING, -1, static_cast<LPCTSTR>(value)) < 0)
        SetText(hControl, value);
}

void AFXAPI DDX_CBStringExact(CDataExchange* pDX, int nIDC, CString& value)
{
    const HWND hControl = pDX->PrepareCtrl(nIDC);
    if (pDX->m_bSaveAndValidate) {
        value = TextOf(hControl);
        return;
    }
    const LRESULT lIndex = AfxSend(hControl, CB_FINDSTRINGEXACT, -1, static_cast<LPCTSTR>(value));
    if (lIndex >= 0)
        AfxSend(hControl, CB_SETCURSEL, lIndex, 0);
    else
        SetText(hControl, value);
}

void AFXAPI DDX_Scroll(CDataExchange* pDX, int nIDC, int& value)
{
    const HWND hControl = pDX->PrepareCtrl(nIDC);
    if (pDX->m_bSaveAndValidate)
        value = ::GetScrollPos(hControl, SB_CTL);
    else
        ::SetScrollPos(hControl, SB_CTL, value, TRUE);
}
