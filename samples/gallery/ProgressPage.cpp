#include "ProgressPage.h"

namespace
{

constexpr UINT_PTR JobTimer = 1;
constexpr UINT JobPeriod = 50;
constexpr UINT StartId = 501;
constexpr UINT ResultsId = 502;
constexpr UINT StopCommand = 503;

constexpr short Blocks = 100;
constexpr int BlockSize = 50000;
constexpr int PosedBlock = 57;

// The dialog has no button to stop a job with; its keys do it.
class CJobDialog : public CDlgProgressBar
{
public:
    explicit CJobDialog(CWnd* page) : CDlgProgressBar(page), m_page(page) {}

protected:
    // Enter would close the dialog.
    void OnOK() override {}
    // Posted: the page deletes the dialog then.
    void OnCancel() override { m_page->PostMessage(WM_COMMAND, StopCommand); }

private:
    CWnd* m_page;
};

bool IsPrime(int number)
{
    if (number < 4)
        return number > 1;
    if (number % 2 == 0)
        return false;
    for (int divisor = 3; divisor * divisor <= number; divisor += 2) {
        if (number % divisor == 0)
            return false;
    }
    return true;
}

int CountPrimes(int first, int last)
{
    int count = 0;
    for (int number = first; number <= last; ++number)
        count += IsPrime(number) ? 1 : 0;
    return count;
}

} // namespace

BEGIN_MESSAGE_MAP(CProgressPage, CGalleryPage)
ON_BN_CLICKED(StartId, &CProgressPage::OnStartClicked)
ON_COMMAND(StopCommand, &CProgressPage::OnStop)
ON_WM_TIMER()
END_MESSAGE_MAP()

bool CProgressPage::MakeControls()
{
    const DWORD style = ChildStyle | WS_BORDER | WS_TABSTOP | WS_VSCROLL | LBS_NOTIFY | LBS_NOINTEGRALHEIGHT;
    return MakeLabel(m_intro,
                     L"Counts the prime numbers up to five million, a block at each tick of a timer.\n"
                     L"The window stays alive meanwhile, and the dialog tells how far the job is.") &&
           MakeButton(m_start, L"Start", StartId) && MakeLabel(m_resultsLabel, L"Results") &&
           m_results.Create(style, CRect(0, 0, 0, 0), this, ResultsId);
}

void CProgressPage::LayOut(CSize size)
{
    const int inner = size.cx - 2 * Margin;
    m_intro.MoveWindow(Margin, Margin, inner - ButtonWidth - Gap, 2 * LineHeight);
    m_start.MoveWindow(size.cx - Margin - ButtonWidth, Margin, ButtonWidth, ButtonHeight);
    const int label = Margin + 2 * LineHeight + Gap;
    const int list = label + LineHeight + Gap / 2;
    m_resultsLabel.MoveWindow(Margin, label, inner, LineHeight);
    m_results.MoveWindow(Margin, list, inner, size.cy - Margin - list);
}

bool CProgressPage::Start()
{
    m_dialog = std::make_unique<CJobDialog>(this);
    if (!m_dialog->CreateNonModal(this)) {
        m_dialog.reset();
        return false;
    }
    m_dialog->Set(0, Blocks, 1);
    m_dialog->CenterWindow();
    m_dialog->ShowWindow(SW_SHOW);
    m_block = 0;
    m_found = 0;
    m_results.ResetContent();
    m_start.SetWindowText(L"Stop");
    return true;
}

void CProgressPage::OnStartClicked()
{
    if (m_dialog)
        OnStop();
    else if (Start())
        SetTimer(JobTimer, JobPeriod, nullptr);
    else
        Tell(L"The dialog cannot be made.");
}

void CProgressPage::OnStop()
{
    if (!m_dialog)
        return;
    Finish();
    CString text;
    text.Format(L"Stopped after %d of %d blocks.", m_block, static_cast<int>(Blocks));
    Tell(text);
}

void CProgressPage::DoBlock()
{
    const int first = m_block * BlockSize + 1;
    const int last = first + BlockSize - 1;
    const int found = CountPrimes(first, last);
    ++m_block;
    m_found += found;
    CString line;
    line.Format(L"%d to %d: %d", first, last, found);
    m_results.SetTopIndex(m_results.AddString(line));
    CString status;
    status.Format(L"Block %d of %d, %d prime numbers so far", m_block, static_cast<int>(Blocks), m_found);
    m_dialog->MoveNextStep();
    m_dialog->SetStatusInfo(status.GetBuffer());
    status.ReleaseBuffer();
}

void CProgressPage::OnTimer(UINT_PTR timer)
{
    if (timer != JobTimer || !m_dialog)
        return;
    DoBlock();
    if (m_block < Blocks)
        return;
    Finish();
    CString text;
    text.Format(L"There are %d prime numbers up to %d.", m_found, Blocks * BlockSize);
    Tell(text);
}

void CProgressPage::Finish()
{
    KillTimer(JobTimer);
    if (!m_dialog)
        return;
    m_dialog->DestroyWindow();
    m_dialog.reset();
    m_start.SetWindowText(L"Start");
    m_start.SetFocus();
}

// In the middle of the job.
void CProgressPage::Pose(const std::wstring&)
{
    if (!Start())
        return;
    while (m_block < PosedBlock)
        DoBlock();
}
