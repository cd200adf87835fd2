#include "controls/DlgProgressBar.h"

#include "controls/resource.h"

BEGIN_MESSAGE_MAP(CDlgProgressBar, CDialog)
END_MESSAGE_MAP()

CDlgProgressBar::CDlgProgressBar(CWnd* pParent) : CDialog(IDD_PROGRESS, pParent) {}

CDlgProgressBar::~CDlgProgressBar() = default;

void CDlgProgressBar::DoDataExchange(CDataExchange* pDX)
{
    CDialog::DoDataExchange(pDX);
    DDX_Control(pDX, IDC_PROGRESS_BAR, m_ProgressCtrl);
    DDX_Text(pDX, IDC_PROGRESS_STATUS, m_strStatus);
}

BOOL CDlgProgressBar::CreateNonModal(CWnd* pParent)
{
    return CDialog::Create(IDD_PROGRESS, pParent);
}

void CDlgProgressBar::Set(short lower, short upper, short step)
{
    ::SendMessage(m_ProgressCtrl.m_hWnd, PBM_SETRANGE, 0, MAKELPARAM(lower, upper));
    ::SendMessage(m_ProgressCtrl.m_hWnd, PBM_SETSTEP, static_cast<WPARAM>(step), 0);
}

void CDlgProgressBar::SetPos(int pos)
{
    ::SendMessage(m_ProgressCtrl.m_hWnd, PBM_SETPOS, static_cast<WPARAM>(pos), 0);
}

void CDlgProgressBar::MoveNextStep()
{
    ::SendMessage(m_ProgressCtrl.m_hWnd, PBM_STEPIT, 0, 0);
}

void CDlgProgressBar::SetStatusInfo(wchar_t* text)
{
    const HWND line = ::IsWindow(m_hWnd) ? ::GetDlgItem(m_hWnd, IDC_PROGRESS_STATUS) : nullptr;
    if (line != nullptr)
        ::SetWindowText(line, text != nullptr ? text : L"");
}
