#include "shell/FlyoutStack.h"

#include <algorithm>

namespace velmhost
{

namespace
{

CRect WorkAreaAt(const RECT& rect)
{
    MONITORINFO info{};
    info.cbSize = sizeof info;
    if (!::GetMonitorInfoW(::MonitorFromRect(&rect, MONITOR_DEFAULTTONEAREST), &info))
        return CRect(0, 0, ::GetSystemMetrics(SM_CXSCREEN), ::GetSystemMetrics(SM_CYSCREEN));
    return info.rcWork;
}

bool IsButtonDown(UINT message)
{
    switch (message) {
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
    case WM_RBUTTONDOWN:
    case WM_MBUTTONDOWN:
    case WM_NCLBUTTONDOWN:
    case WM_NCLBUTTONDBLCLK:
    case WM_NCRBUTTONDOWN:
    case WM_NCMBUTTONDOWN:
        return true;
    default:
        return false;
    }
}

bool IsInside(const CToolbarPane& pane, HWND window)
{
    return pane.m_hWnd == window || ::IsChild(pane.m_hWnd, window);
}

} // namespace

CFlyoutStack::CFlyoutStack(CWnd& frame, const HostModel& model, ToolbarPaneSite& site,
                           std::function<CToolbarPane*(ElementId)> findPane)
    : m_frame(frame), m_model(model), m_site(site), m_findPane(std::move(findPane))
{
}

CToolbarPane* CFlyoutStack::At(std::size_t level) const
{
    return level < m_levels.size() ? m_levels[level].pane.get() : nullptr;
}

CToolbarPane* CFlyoutStack::Find(HWND window) const
{
    for (const Level& level : m_levels) {
        if (level.pane->m_hWnd == window)
            return level.pane.get();
    }
    return nullptr;
}

CToolbarPane* CFlyoutStack::Find(ElementId toolbar) const
{
    for (auto level = m_levels.rbegin(); level != m_levels.rend(); ++level) {
        if (level->pane->ToolbarId() == toolbar)
            return level->pane.get();
    }
    return nullptr;
}

void CFlyoutStack::Toggle(CToolbarPane& from, ElementId item)
{
    const std::size_t level = LevelAfter(from);
    const bool wasOpen = level < m_levels.size() && m_levels[level].opener == item &&
                         m_levels[level].openerToolbar == from.ToolbarId();
    CloseFrom(level);
    const ToolbarItem* button = m_model.FindToolbarItem(item);
    if (wasOpen || !button || !button->flyout)
        return;

    auto pane =
        std::make_unique<CToolbarPane>(CToolbarPane::Kind::Flyout, button->flyout->id, m_model, m_site);
    if (!pane->Create(m_frame))
        return;
    pane->Refresh(WorkAreaAt(from.ButtonRect(from.PositionOf(item))).Width() / 2);
    Place(*pane, from, item);
    from.MarkOpen(item, true);
    m_levels.push_back({std::move(pane), from.ToolbarId(), item});
}

void CFlyoutStack::Refresh()
{
    for (std::size_t level = 0; level < m_levels.size(); ++level) {
        if (!IsStillOpenable(level)) {
            CloseFrom(level);
            return;
        }
        CToolbarPane& pane = *m_levels[level].pane;
        const CToolbarPane& from = *OpenerPane(level);
        pane.Refresh(WorkAreaAt(from.ButtonRect(from.PositionOf(m_levels[level].opener))).Width() / 2);
        Place(pane, from, m_levels[level].opener);
        OpenerPane(level)->MarkOpen(m_levels[level].opener, true);
    }
}

void CFlyoutStack::Raise()
{
    for (const Level& level : m_levels)
        ::SetWindowPos(level.pane->m_hWnd, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

bool CFlyoutStack::FilterMessage(const MSG& message)
{
    if (m_levels.empty())
        return false;
    if (message.message == WM_KEYDOWN && message.wParam == VK_ESCAPE) {
        CloseFrom(m_levels.size() - 1);
        return true;
    }
    if (message.message == WM_SYSKEYDOWN)
        CloseAll();
    else if (IsButtonDown(message.message))
        CloseOutside(message);
    return false;
}

void CFlyoutStack::CloseFrom(std::size_t level)
{
    while (m_levels.size() > level) {
        if (CToolbarPane* opener = OpenerPane(m_levels.size() - 1))
            opener->MarkOpen(m_levels.back().opener, false);
        m_levels.pop_back();
    }
}

CToolbarPane* CFlyoutStack::OpenerPane(std::size_t level) const
{
    return level > 0 ? m_levels[level - 1].pane.get() : m_findPane(m_levels[level].openerToolbar);
}

// The level that a fly-out opened from `pane` has.
std::size_t CFlyoutStack::LevelAfter(const CToolbarPane& pane) const
{
    for (std::size_t level = 0; level < m_levels.size(); ++level) {
        if (m_levels[level].pane.get() == &pane)
            return level + 1;
    }
    return 0;
}

bool CFlyoutStack::IsStillOpenable(std::size_t level) const
{
    const ToolbarItem* button = m_model.FindToolbarItem(m_levels[level].opener);
    const CToolbarPane* from = OpenerPane(level);
    return button && button->flyout && button->flyout->id == m_levels[level].pane->ToolbarId() && from &&
           from->PositionOf(button->id) >= 0;
}

void CFlyoutStack::Place(CToolbarPane& pane, const CToolbarPane& from, ElementId item) const
{
    const CRect button = from.ButtonRect(from.PositionOf(item));
    const CRect work = WorkAreaAt(button);
    const CSize size = pane.WindowSize();
    CPoint at(button.left, button.bottom);
    if (from.GetKind() == CToolbarPane::Kind::Column)
        at = CPoint(button.right, button.top);
    if (at.y + size.cy > work.bottom && button.top - size.cy >= work.top)
        at.y = button.top - size.cy;
    at.x = std::max(work.left, std::min(at.x, work.right - size.cx));
    at.y = std::max(work.top, std::min(at.y, work.bottom - size.cy));
    ::SetWindowPos(pane.m_hWnd, HWND_TOP, at.x, at.y, size.cx, size.cy, SWP_NOACTIVATE | SWP_SHOWWINDOW);
}

// A click on the button from which a fly-out came closes it too, but through Toggle, which would open it
// again if it were closed here.
void CFlyoutStack::CloseOutside(const MSG& message)
{
    std::size_t keep = 0;
    for (std::size_t level = m_levels.size(); level > 0 && keep == 0; --level) {
        if (IsInside(*m_levels[level - 1].pane, message.hwnd))
            keep = level;
    }
    if (keep == m_levels.size())
        return;
    const CToolbarPane* opener = OpenerPane(keep);
    if (opener && opener->Control() == message.hwnd &&
        opener->ItemAt(opener->ButtonAt(message.pt)) == m_levels[keep].opener)
        return;
    CloseFrom(keep);
}

} // namespace velmhost
