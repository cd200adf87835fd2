#include "GalleryFrame.h"

#include <algorithm>

#include "CellsPage.h"
#include "CreditsPage.h"
#include "HelpersPage.h"
#include "ListBoxPage.h"
#include "ListPage.h"
#include "ProgressPage.h"
#include "TreePage.h"
#include "XmlPage.h"

#include "shell/Console.h"
#include "shell/Screenshot.h"

namespace
{

constexpr UINT_PTR PictureTimer = 1;
constexpr UINT PicturePeriod = 100;
// A posed page is drawn within these steps; one that is not posed after so many never will be.
constexpr int StepsToDraw = 4;
constexpr int MostSteps = 100;

constexpr int Margin = 6;
constexpr int TabPadding = 12;

constexpr UINT TabsId = 11;
constexpr UINT StatusId = 12;
constexpr UINT FirstPageId = 21;

} // namespace

BEGIN_MESSAGE_MAP(CGalleryFrame, CFrameWnd)
ON_WM_CREATE()
ON_WM_SIZE()
ON_WM_GETMINMAXINFO()
ON_WM_SETFOCUS()
ON_WM_TIMER()
ON_NOTIFY(TCN_SELCHANGE, TabsId, &CGalleryFrame::OnTabChanged)
END_MESSAGE_MAP()

CGalleryFrame::CGalleryFrame(GalleryOptions options) : m_options(std::move(options)) {}

bool CGalleryFrame::MakeFonts()
{
    NONCLIENTMETRICS metrics = {};
    metrics.cbSize = sizeof(metrics);
    if (!::SystemParametersInfo(SPI_GETNONCLIENTMETRICS, sizeof(metrics), &metrics, 0))
        return false;
    LOGFONT font = metrics.lfMessageFont;
    if (!m_fonts.plain.CreateFontIndirect(&font))
        return false;
    font.lfWeight = FW_BOLD;
    return m_fonts.bold.CreateFontIndirect(&font) != FALSE;
}

bool CGalleryFrame::MakePages()
{
    m_pages.push_back(std::make_unique<CListPage>());
    m_pages.push_back(std::make_unique<CCellsPage>());
    m_pages.push_back(std::make_unique<CTreePage>());
    m_pages.push_back(std::make_unique<CListBoxPage>());
    m_pages.push_back(std::make_unique<CProgressPage>());
    m_pages.push_back(std::make_unique<CCreditsPage>());
    m_pages.push_back(std::make_unique<CXmlPage>());
    m_pages.push_back(std::make_unique<CHelpersPage>());
    UINT id = FirstPageId;
    for (const auto& page : m_pages) {
        if (!page->CreateOn(this, id++, m_fonts,
                            [this](const CString& text) { m_status.SetText(text, 0, 0); }))
            return false;
        TCITEM item = {};
        item.mask = TCIF_TEXT;
        item.pszText = const_cast<wchar_t*>(page->Title());
        TabCtrl_InsertItem(m_tabs.m_hWnd, TabCtrl_GetItemCount(m_tabs.m_hWnd), &item);
    }
    return true;
}

int CGalleryFrame::OnCreate(LPCREATESTRUCT createStruct)
{
    const CRect none(0, 0, 0, 0);
    const DWORD tabsStyle = WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | WS_TABSTOP;
    if (CFrameWnd::OnCreate(createStruct) == -1 || !MakeFonts() ||
        !m_tabs.Create(WC_TABCONTROL, L"", tabsStyle, none, this, TabsId) ||
        !m_status.Create(WS_CHILD | WS_VISIBLE | SBARS_SIZEGRIP, none, this, StatusId))
        return -1;
    m_tabs.SetFont(&m_fonts.plain);
    TabCtrl_SetPadding(m_tabs.m_hWnd, TabPadding, TabPadding / 3);
    if (!MakePages())
        return -1;

    const auto wanted = std::find_if(m_pages.begin(), m_pages.end(), [this](const auto& page) {
        return m_options.pictureFile.empty() ? m_options.page == page->Name()
                                             : page->HasPicture(m_options.page);
    });
    if (wanted == m_pages.end()) {
        velmhost::PrintError(L"gallery: there is no page " + m_options.page + L"\n");
        return -1;
    }
    if (m_options.IsPictureWanted()) {
        const CSize size = (*wanted)->PictureSize();
        SetWindowPos(nullptr, 0, 0, size.cx, size.cy, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
        SetTimer(PictureTimer, PicturePeriod, nullptr);
    }
    ShowPage(static_cast<std::size_t>(wanted - m_pages.begin()));
    return 0;
}

void CGalleryFrame::ShowPage(std::size_t page)
{
    CGalleryPage& before = Page();
    m_page = page;
    TabCtrl_SetCurSel(m_tabs.m_hWnd, static_cast<int>(page));
    Page().SetWindowPos(&wndTop, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | SWP_SHOWWINDOW);
    if (&before != &Page() && before.IsWindowVisible()) {
        before.ShowWindow(SW_HIDE);
        before.OnHidden();
    }
    if (!m_options.IsPictureWanted())
        Page().OnShown();
    m_status.SetText(Page().Hint(), 0, 0);
}

void CGalleryFrame::OnTabChanged(NMHDR*, LRESULT* result)
{
    ShowPage(static_cast<std::size_t>(TabCtrl_GetCurSel(m_tabs.m_hWnd)));
    *result = 0;
}

void CGalleryFrame::OnSize(UINT type, int width, int height)
{
    CFrameWnd::OnSize(type, width, height);
    if (m_status.GetSafeHwnd() == nullptr || type == SIZE_MINIMIZED)
        return;
    m_status.SendMessage(WM_SIZE);
    CRect status;
    m_status.GetWindowRect(&status);
    CRect tabs(Margin, Margin, width - Margin, height - status.Height() - Margin);
    m_tabs.MoveWindow(&tabs);
    TabCtrl_AdjustRect(m_tabs.m_hWnd, FALSE, &tabs);
    for (const auto& page : m_pages)
        page->MoveWindow(&tabs);
}

void CGalleryFrame::OnGetMinMaxInfo(MINMAXINFO* info)
{
    if (m_pages.empty() || m_options.IsPictureWanted())
        return;
    CRect window;
    CRect page;
    GetWindowRect(&window);
    Page().GetWindowRect(&page);
    for (const auto& each : m_pages) {
        const CSize least = each->LeastSize() + window.Size() - page.Size();
        info->ptMinTrackSize.x = std::max(info->ptMinTrackSize.x, least.cx);
        info->ptMinTrackSize.y = std::max(info->ptMinTrackSize.y, least.cy);
    }
}

void CGalleryFrame::OnSetFocus(CWnd*)
{
    if (!m_pages.empty())
        Page().FirstControl().SetFocus();
}

BOOL CGalleryFrame::PreTranslateMessage(MSG* message)
{
    if (CFrameWnd::PreTranslateMessage(message))
        return TRUE;
    if (message->message < WM_KEYFIRST || message->message > WM_KEYLAST)
        return FALSE;
    const bool isControlDown = ::GetKeyState(VK_CONTROL) < 0;
    if (message->message == WM_KEYDOWN && message->wParam == VK_TAB && isControlDown) {
        const std::size_t step = ::GetKeyState(VK_SHIFT) < 0 ? m_pages.size() - 1 : 1;
        ShowPage((m_page + step) % m_pages.size());
        Page().FirstControl().SetFocus();
        return TRUE;
    }
    return IsDialogMessage(message);
}

void CGalleryFrame::OnTimer(UINT_PTR timer)
{
    if (timer == PictureTimer)
        StepToPicture();
}

void CGalleryFrame::StepToPicture()
{
    ++m_steps;
    std::wstring reason;
    if (!m_options.framesFolder.empty()) {
        KillTimer(PictureTimer);
        auto& credits = static_cast<CCreditsPage&>(Page());
        EndPicture(credits.SaveFrames(m_options.framesFolder, m_options.frameCount, reason), reason);
        return;
    }
    if (m_steps == StepsToDraw)
        Page().Pose(m_options.page);
    if (m_steps < StepsToDraw)
        return;
    m_stepsPosed = Page().IsPosed() ? m_stepsPosed + 1 : 0;
    if (m_stepsPosed > StepsToDraw) {
        const bool isSaved = velmhost::SaveScreenArea(Page().PictureArea(), m_options.pictureFile, reason);
        EndPicture(isSaved, reason);
    } else if (m_steps > MostSteps) {
        EndPicture(false, L"The page does not come to show what its picture is to show.");
    }
}

void CGalleryFrame::EndPicture(bool isSaved, const std::wstring& reason)
{
    if (!isSaved) {
        s_exitCode = 1;
        velmhost::PrintError(L"gallery: " + reason + L"\n");
    }
    DestroyWindow();
}
