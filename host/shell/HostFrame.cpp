#include "shell/HostFrame.h"

#include <afxcmn.h>

#include <algorithm>

#include "automation/HostAutomation.h"
#include "shell/CommandText.h"
#include "shell/ShellResource.h"

namespace velmhost
{

namespace
{

constexpr UINT kDrawingAreaId = 100;
constexpr UINT kCommandPaneId = 101;
constexpr UINT kStatusBarId = 102;
constexpr UINT kToolbarButtonMessage = WM_APP + 1; // wParam: item, lParam: window of the pane
constexpr UINT_PTR kChangesTimer = 1;
constexpr UINT kChangesDelay = 10;
constexpr UINT_PTR kRaiseTimer = 2;
constexpr UINT kRaiseDelay = 50;
constexpr int kPositionWidth = 130;
constexpr int kDefaultWidth = 1000;
constexpr int kDefaultHeight = 700;
constexpr wchar_t kIdleHelp[] = L"Ready";

HICON HostIcon()
{
    // A program without the host's resources, such as a test, goes without the icon.
    return ::LoadIconW(AfxGetInstanceHandle(), MAKEINTRESOURCEW(IDR_HOST));
}

CRect StartRect(int width, int height)
{
    RECT work{};
    ::SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
    const int workWidth = work.right - work.left;
    const int workHeight = work.bottom - work.top;
    const CSize size(width > 0 ? width : std::min(kDefaultWidth, workWidth),
                     height > 0 ? height : std::min(kDefaultHeight, workHeight));
    const CPoint at(work.left + std::max<int>(0, workWidth - size.cx) / 2,
                    work.top + std::max<int>(0, workHeight - size.cy) / 2);
    return CRect(at, size);
}

} // namespace

BEGIN_MESSAGE_MAP(CHostFrame, CFrameWnd)
ON_WM_CLOSE()
ON_WM_DESTROY()
ON_WM_SIZE()
ON_WM_MOVE()
ON_WM_SETFOCUS()
ON_WM_TIMER()
ON_WM_GETMINMAXINFO()
ON_WM_MENUSELECT()
ON_MESSAGE(WM_ACTIVATEAPP, &CHostFrame::OnActivateAppMessage)
ON_MESSAGE(WM_WINDOWPOSCHANGED, &CHostFrame::OnWindowPosChangedMessage)
ON_MESSAGE(WM_ENTERMENULOOP, &CHostFrame::OnEnterMenuLoopMessage)
ON_MESSAGE(WM_EXITMENULOOP, &CHostFrame::OnExitMenuLoopMessage)
ON_MESSAGE(WM_ACTIVATE, &CHostFrame::OnActivateMessage)
ON_MESSAGE(kToolbarButtonMessage, &CHostFrame::OnToolbarButtonMessage)
END_MESSAGE_MAP()

CHostFrame::CHostFrame(HostModel& model, HostFrameSite& site)
    : m_model(model), m_site(site), m_menus(model), m_toolbars(*this, model, *this),
      m_commandPane([this](const std::wstring& text) { SendToCommandLine(text); }),
      m_drawingArea({[this](int x, int y) { ShowPosition(x, y); }, [this] { SetFocus(); },
                     [this](CPoint at) { ShowShortcutMenu(at); }})
{
    // Whether an item can be chosen is the model's affair, not that of a command handler.
    m_bAutoMenuEnable = FALSE;
}

CHostFrame::~CHostFrame()
{
    if (m_observing)
        m_model.RemoveObserver(*this);
}

BOOL CHostFrame::CreateShell(int width, int height)
{
    const wchar_t* windowClass = AfxRegisterWndClass(0, ::LoadCursorW(nullptr, IDC_ARROW),
                                                     reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1), HostIcon());
    const std::wstring title = std::wstring(kHostName) + L" " + kHostVersion;
    if (!Create(windowClass, title.c_str(), WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, StartRect(width, height)))
        return FALSE;
    if (!CreateParts()) {
        DestroyWindow();
        return FALSE;
    }
    m_model.AddObserver(*this);
    m_observing = true;
    ShowChanges();
    ArrangeParts();
    SetHelp(std::wstring());
    return TRUE;
}

BOOL CHostFrame::CreateParts()
{
    m_statusBar = ::CreateWindowExW(
        0, STATUSCLASSNAMEW, L"", WS_CHILD | WS_VISIBLE | SBARS_SIZEGRIP | CCS_BOTTOM, 0, 0, 0, 0, m_hWnd,
        reinterpret_cast<HMENU>(static_cast<UINT_PTR>(kStatusBarId)), AfxGetInstanceHandle(), nullptr);
    return m_statusBar && m_drawingArea.Create(*this, kDrawingAreaId) &&
           m_commandPane.Create(*this, kCommandPaneId);
}

std::wstring CHostFrame::StatusText() const
{
    const LRESULT length = LOWORD(::SendMessageW(m_statusBar, SB_GETTEXTLENGTHW, 0, 0));
    std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
    ::SendMessageW(m_statusBar, SB_GETTEXTW, 0, reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<std::size_t>(length));
    return text;
}

CRect CHostFrame::ScreenArea() const
{
    CRect area;
    GetWindowRect(&area);
    const auto addVisible = [](HWND window, LPARAM parameter) -> BOOL {
        CRect rect;
        CRect& all = *reinterpret_cast<CRect*>(parameter);
        if (::IsWindowVisible(window) && ::GetWindowRect(window, &rect) && !rect.IsRectEmpty())
            all.UnionRect(CRect(all), rect);
        return TRUE;
    };
    ::EnumThreadWindows(::GetCurrentThreadId(), addVisible, reinterpret_cast<LPARAM>(&area));
    return area;
}

void CHostFrame::ShowChanges()
{
    // A menu must not change under the platform's menu loop; the loop's end brings us back here.
    if (m_menusDirty && !m_menuOpen)
        ShowMenus();
    if (m_toolbarsDirty)
        ShowToolbars();
}

void CHostFrame::ShowMenus()
{
    m_menusDirty = false;
    const HMENU old = ::GetMenu(m_hWnd);
    ::SetMenu(m_hWnd, m_menus.BuildBar());
    if (old)
        ::DestroyMenu(old);
}

void CHostFrame::ShowToolbars()
{
    m_toolbarsDirty = false;
    m_toolbars.Sync();
    ArrangeParts();
    m_toolbars.PlaceFloating(CanvasOnScreen());
}

void CHostFrame::SendToCommandLine(const std::wstring& text)
{
    if (text.empty())
        return;
    m_commandPane.AddLine(L"Command: " + VisibleCommandText(text));
    m_site.OnCommandText(text);
    const std::wstring word = FirstCommandWord(text);
    if (word == L"QUIT" || word == L"EXIT")
        PostMessage(WM_CLOSE);
}

BOOL CHostFrame::PreTranslateMessage(MSG* pMsg)
{
    return m_toolbars.Flyouts().FilterMessage(*pMsg) ? TRUE : CFrameWnd::PreTranslateMessage(pMsg);
}

BOOL CHostFrame::OnCommand(WPARAM wParam, LPARAM lParam)
{
    const UINT command = LOWORD(wParam);
    if (lParam != 0 || command < CMenuMirror::kFirstCommand || command > CMenuMirror::kLastCommand)
        return CFrameWnd::OnCommand(wParam, lParam);
    const MenuItem* item = m_menus.FindItem(command);
    if (item && item->enabled && item->type == MenuItemType::Item)
        SendToCommandLine(item->macro);
    return TRUE;
}

void CHostFrame::OnClose()
{
    if (m_site.OnFrameClosing())
        DestroyWindow();
}

void CHostFrame::OnDestroy()
{
    if (m_observing)
        m_model.RemoveObserver(*this);
    m_observing = false;
    KillTimer(kChangesTimer);
    KillTimer(kRaiseTimer);
    m_toolbars.Clear();
    // With the window the platform destroys the menu that it has now, so it goes without one.
    if (const HMENU menu = ::GetMenu(m_hWnd)) {
        ::SetMenu(m_hWnd, nullptr);
        ::DestroyMenu(menu);
    }
    CFrameWnd::OnDestroy();
}

void CHostFrame::PostNcDestroy()
{
    m_site.OnFrameDestroyed();
    CFrameWnd::PostNcDestroy();
}

void CHostFrame::OnSize(UINT nType, int, int)
{
    if (nType != SIZE_MINIMIZED && m_observing)
        ArrangeParts();
}

void CHostFrame::OnMove(int, int)
{
    m_toolbars.Flyouts().CloseAll();
}

void CHostFrame::OnSetFocus(CWnd*)
{
    if (m_commandPane.EditControl())
        ::SetFocus(m_commandPane.EditControl());
}

void CHostFrame::OnTimer(UINT_PTR nIDEvent)
{
    if (nIDEvent == kChangesTimer) {
        KillTimer(kChangesTimer);
        m_timerRunning = false;
        ShowChanges();
    } else if (nIDEvent == kRaiseTimer) {
        KillTimer(kRaiseTimer);
        m_raisePending = false;
        if (IsWindowVisible())
            m_toolbars.ShowFloating(true);
    } else {
        CFrameWnd::OnTimer(nIDEvent);
    }
}

// What floats is shown once the window itself is: shown earlier, it would end up behind it.
LRESULT CHostFrame::OnWindowPosChangedMessage(WPARAM, LPARAM lParam)
{
    const UINT flags = reinterpret_cast<const WINDOWPOS*>(lParam)->flags;
    const LRESULT result = Default();
    if (flags & (SWP_SHOWWINDOW | SWP_HIDEWINDOW))
        m_toolbars.ShowFloating((flags & SWP_SHOWWINDOW) != 0);
    return result;
}

// A window that becomes active comes to the front of the screen. A desktop without a window manager does so
// some milliseconds later, and leaves behind what the window owns, which is therefore brought to the front
// again.
LRESULT CHostFrame::OnActivateMessage(WPARAM wParam, LPARAM)
{
    if (LOWORD(wParam) != WA_INACTIVE)
        m_raisePending = SetTimer(kRaiseTimer, kRaiseDelay, nullptr) != 0;
    return Default();
}

void CHostFrame::OnGetMinMaxInfo(MINMAXINFO* lpMMI)
{
    lpMMI->ptMinTrackSize.x = 320;
    lpMMI->ptMinTrackSize.y = 240;
}

void CHostFrame::OnMenuSelect(UINT nItemID, UINT nFlags, HMENU hSysMenu)
{
    const MenuItem* item = nullptr;
    if (nFlags & MF_POPUP)
        item = hSysMenu ? m_menus.FindItem(hSysMenu, static_cast<int>(nItemID)) : nullptr;
    else if (!(nFlags & MF_SYSMENU))
        item = m_menus.FindItem(nItemID);
    SetHelp(item ? item->help : std::wstring());
}

LRESULT CHostFrame::OnActivateAppMessage(WPARAM wParam, LPARAM)
{
    if (!wParam)
        m_toolbars.Flyouts().CloseAll();
    return Default();
}

LRESULT CHostFrame::OnEnterMenuLoopMessage(WPARAM, LPARAM)
{
    m_menuOpen = true;
    m_toolbars.Flyouts().CloseAll();
    return Default();
}

LRESULT CHostFrame::OnExitMenuLoopMessage(WPARAM, LPARAM)
{
    m_menuOpen = false;
    SetHelp(std::wstring());
    if (m_menusDirty)
        StartChangesTimer();
    return Default();
}

LRESULT CHostFrame::OnToolbarButtonMessage(WPARAM wParam, LPARAM lParam)
{
    m_toolbars.Execute(reinterpret_cast<HWND>(lParam), static_cast<ElementId>(wParam));
    ++m_buttonsDone;
    return 0;
}

void CHostFrame::OnModelChanged(const ModelChange& change)
{
    switch (change.what) {
    case ModelChange::What::Menu:
    case ModelChange::What::MenuItem:
    case ModelChange::What::MenuBar:
        m_menusDirty = true;
        break;
    case ModelChange::What::Toolbar:
    case ModelChange::What::ToolbarItem:
    case ModelChange::What::LargeButtons:
        m_toolbarsDirty = true;
        break;
    case ModelChange::What::Group:
        m_menusDirty = m_toolbarsDirty = true;
        break;
    }
    StartChangesTimer();
}

// Not started anew while it runs: somebody who changes the model without a pause shall see the changes.
void CHostFrame::StartChangesTimer()
{
    if (!m_timerRunning)
        m_timerRunning = SetTimer(kChangesTimer, kChangesDelay, nullptr) != 0;
}

void CHostFrame::OnToolbarButton(HWND pane, ElementId item)
{
    PostMessage(kToolbarButtonMessage, item, reinterpret_cast<LPARAM>(pane));
}

void CHostFrame::OnToolbarHelp(const std::wstring& help)
{
    SetHelp(help);
}

void CHostFrame::OnToolbarMacro(const std::wstring& macro)
{
    SendToCommandLine(macro);
}

void CHostFrame::ArrangeParts()
{
    CRect area;
    GetClientRect(&area);
    if (area.IsRectEmpty())
        return;
    ::SendMessageW(m_statusBar, WM_SIZE, 0, 0);
    const int parts[] = {std::max<int>(0, area.right - kPositionWidth - ::GetSystemMetrics(SM_CXVSCROLL)),
                         -1};
    ::SendMessageW(m_statusBar, SB_SETPARTS, 2, reinterpret_cast<LPARAM>(parts));
    CRect status;
    ::GetWindowRect(m_statusBar, &status);
    area.bottom -= status.Height();

    const CRect command(area.left, std::max(area.top, area.bottom - CCommandPane::kHeight), area.right,
                        area.bottom);
    area.bottom = command.top;
    m_commandPane.MoveWindow(&command);
    const CRect canvas = m_toolbars.Arrange(area);
    m_drawingArea.MoveWindow(&canvas);
}

CRect CHostFrame::CanvasOnScreen() const
{
    CRect rect;
    m_drawingArea.GetWindowRect(&rect);
    return rect;
}

void CHostFrame::SetHelp(const std::wstring& help)
{
    const std::wstring text = help.empty() ? kIdleHelp : help;
    ::SendMessageW(m_statusBar, SB_SETTEXTW, 0, reinterpret_cast<LPARAM>(text.c_str()));
}

void CHostFrame::ShowPosition(int x, int y)
{
    const std::wstring text = L" " + std::to_wstring(x) + L", " + std::to_wstring(y);
    ::SendMessageW(m_statusBar, SB_SETTEXTW, 1, reinterpret_cast<LPARAM>(text.c_str()));
}

// The first group with a shortcut menu that holds something provides the one of the drawing area.
void CHostFrame::ShowShortcutMenu(CPoint at)
{
    for (const auto& group : m_model.Groups()) {
        for (const auto& menu : group->menus) {
            if (!menu->shortcut || menu->items.empty())
                continue;
            const HMENU popup = m_menus.BuildPopup(*menu);
            ::TrackPopupMenu(popup, TPM_LEFTALIGN | TPM_RIGHTBUTTON, at.x, at.y, 0, m_hWnd, nullptr);
            ::DestroyMenu(popup);
            return;
        }
    }
}

} // namespace velmhost
