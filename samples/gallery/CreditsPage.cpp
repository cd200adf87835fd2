#include "CreditsPage.h"

#include <cstdlib>

#include "CreditsClock.h"
#include "shell/Screenshot.h"

namespace
{

constexpr UINT_PTR StartTimer = 1;
// So long after the last change of the size the credits begin again.
constexpr UINT StartDelay = 250;

constexpr UINT CursorId = 601;
constexpr UINT BlockId = 602;
constexpr UINT EuropeanId = 603;
constexpr UINT StartAnewId = 604;
constexpr UINT CreditsId = 605;

constexpr int CheckBoxWidth = 100;
constexpr int WideCheckBoxWidth = 150;

// Pictures: their random numbers, and their time in milliseconds.
constexpr unsigned Seed = 22;
constexpr int FilmStart = 1200;
constexpr int FilmPause = 1800;
constexpr int FramePeriod = 80;
constexpr int PosedTime = 15500;
constexpr int FilmWidth = 440;
constexpr int FilmHeight = 234;

const wchar_t* const Lines[] = {
    L"VelmUtil22",
    L"",
    L"Menus, XML and controls",
    L"for your add-ins",
    L"\x0001 3",
    L"Add your lines,",
    L"create the window,",
    L"and lean back",
    L"\x0001 3",
};

CRect ClientOnScreen(const CWnd& window)
{
    CRect client;
    window.GetClientRect(&client);
    window.ClientToScreen(&client);
    return client;
}

} // namespace

BEGIN_MESSAGE_MAP(CCreditsPage, CGalleryPage)
ON_BN_CLICKED(CursorId, &CCreditsPage::OnOptionClicked)
ON_BN_CLICKED(BlockId, &CCreditsPage::OnOptionClicked)
ON_BN_CLICKED(EuropeanId, &CCreditsPage::OnOptionClicked)
ON_BN_CLICKED(StartAnewId, &CCreditsPage::OnOptionClicked)
ON_WM_TIMER()
ON_WM_ERASEBKGND()
END_MESSAGE_MAP()

bool CCreditsPage::MakeControls()
{
    return MakeButton(m_cursor, L"Cursor", CursorId, BS_AUTOCHECKBOX) &&
           MakeButton(m_block, L"Solid block", BlockId, BS_AUTOCHECKBOX) &&
           MakeButton(m_european, L"Characters up to 255", EuropeanId, BS_AUTOCHECKBOX) &&
           MakeButton(m_startAnew, L"Start anew", StartAnewId);
}

void CCreditsPage::Fill()
{
    for (CButton* const option : {&m_cursor, &m_block, &m_european})
        option->SetCheck(BST_CHECKED);
}

void CCreditsPage::LayOut(CSize size)
{
    int left = Margin;
    const auto place = [&](CButton& option, int width) {
        option.MoveWindow(left, Margin, width, ButtonHeight);
        left += width + Gap;
    };
    place(m_cursor, CheckBoxWidth);
    place(m_block, CheckBoxWidth);
    place(m_european, WideCheckBoxWidth);
    m_startAnew.MoveWindow(size.cx - Margin - ButtonWidth, Margin, ButtonWidth, ButtonHeight);
    m_stage.SetRect(Margin, Margin + ButtonHeight + Gap, size.cx - Margin, size.cy - Margin);
    // The credits keep the size that they were made for.
    Stop();
    Invalidate();
    if (IsWindowVisible())
        SetTimer(StartTimer, StartDelay, nullptr);
}

BOOL CCreditsPage::OnEraseBkgnd(CDC* dc)
{
    const BOOL isErased = CGalleryPage::OnEraseBkgnd(dc);
    dc->FillSolidRect(&m_stage, RGB(0, 0, 0));
    return isErased;
}

void CCreditsPage::StartAnew(const CRect& place)
{
    Stop();
    const bool hasCursor = m_cursor.GetCheck() == BST_CHECKED;
    m_block.EnableWindow(hasCursor);
    m_credits = std::make_unique<CMatrixCredits>();
    for (const wchar_t* const line : Lines)
        m_credits->AddTextLine(line);
    m_credits->SetCursor(hasCursor, m_block.GetCheck() == BST_CHECKED);
    m_credits->AllowEuropeanChars(m_european.GetCheck() == BST_CHECKED);
    m_credits->Create(WS_CHILD | WS_VISIBLE, place, this, CreditsId);
}

void CCreditsPage::Stop()
{
    KillTimer(StartTimer);
    m_credits.reset();
}

void CCreditsPage::OnShown()
{
    StartAnew(m_stage);
}

void CCreditsPage::OnHidden()
{
    Stop();
}

void CCreditsPage::OnOptionClicked()
{
    StartAnew(m_stage);
}

void CCreditsPage::OnTimer(UINT_PTR timer)
{
    if (timer == StartTimer)
        StartAnew(m_stage);
}

// In the middle of the second page.
void CCreditsPage::Pose(const std::wstring&)
{
    StartAnew(m_stage);
    std::srand(Seed);
    CCreditsClock(*m_credits, FilmStart, FilmPause).Advance(PosedTime);
}

bool CCreditsPage::SaveFrames(const std::wstring& folder, int count, std::wstring& reason)
{
    const CSize border(2 * ::GetSystemMetrics(SM_CXEDGE), 2 * ::GetSystemMetrics(SM_CYEDGE));
    StartAnew(CRect(m_stage.TopLeft(), CSize(FilmWidth, FilmHeight) + border));
    std::srand(Seed);
    CCreditsClock clock(*m_credits, FilmStart, FilmPause);
    for (int frame = 1; frame <= count; ++frame) {
        clock.Advance(FramePeriod);
        m_credits->UpdateWindow();
        CString file;
        file.Format(L"%s\\frame-%04d.png", folder.c_str(), frame);
        if (!velmhost::SaveScreenArea(ClientOnScreen(*m_credits), file.GetString(), reason))
            return false;
    }
    return true;
}
