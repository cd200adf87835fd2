#include "shell/ToolbarArea.h"

#include <algorithm>

namespace velmhost
{

namespace
{

constexpr int kBarGap = 2;   // between docked toolbars
constexpr int kFloatGap = 8; // between floating ones, and their distance from the canvas's edges

CToolbarPane::Kind KindFor(DockStatus dock)
{
    switch (dock) {
    case DockStatus::Top:
    case DockStatus::Bottom:
        return CToolbarPane::Kind::Row;
    case DockStatus::Left:
    case DockStatus::Right:
        return CToolbarPane::Kind::Column;
    default:
        return CToolbarPane::Kind::Floating;
    }
}

CRect WindowRectOf(const CToolbarPane& pane)
{
    CRect rect;
    pane.GetWindowRect(&rect);
    return rect;
}

void Move(const CToolbarPane& pane, CPoint at)
{
    const CSize size = pane.WindowSize();
    ::SetWindowPos(pane.m_hWnd, nullptr, at.x, at.y, size.cx, size.cy,
                   SWP_NOZORDER | SWP_NOACTIVATE | SWP_SHOWWINDOW);
}

void ShowOnTop(const CToolbarPane& pane)
{
    ::SetWindowPos(pane.m_hWnd, HWND_TOP, 0, 0, 0, 0,
                   SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | SWP_SHOWWINDOW);
}

// A toolbar that has never been shown nor placed by a client.
bool HasPlace(const ToolbarFrame& frame)
{
    return frame.left != 0 || frame.top != 0 || frame.width != 0;
}

} // namespace

CToolbarArea::CToolbarArea(CWnd& frame, HostModel& model, ToolbarAreaSite& site)
    : m_frame(frame), m_model(model), m_site(site),
      m_flyouts(frame, model, *this, [this](ElementId toolbar) { return FindPane(toolbar); })
{
}

CToolbarPane* CToolbarArea::FindPane(ElementId toolbar) const
{
    const auto found = m_panes.find(toolbar);
    return found == m_panes.end() ? nullptr : found->second.get();
}

void CToolbarArea::Sync()
{
    std::erase_if(m_panes, [this](const auto& entry) {
        const Toolbar* toolbar = m_model.FindToolbar(entry.first);
        return !toolbar || !toolbar->visible || KindFor(toolbar->dock) != entry.second->GetKind();
    });
    for (const auto& group : m_model.Groups()) {
        for (const auto& toolbar : group->toolbars) {
            if (!toolbar->visible || FindPane(toolbar->id))
                continue;
            auto pane = std::make_unique<CToolbarPane>(KindFor(toolbar->dock), toolbar->id, m_model,
                                                       static_cast<ToolbarPaneSite&>(*this));
            if (pane->Create(m_frame))
                m_panes.emplace(toolbar->id, std::move(pane));
        }
    }
}

CRect CToolbarArea::Arrange(CRect area)
{
    area = ArrangeRows(DockStatus::Top, area);
    area = ArrangeRows(DockStatus::Bottom, area);
    area = ArrangeColumns(DockStatus::Left, area);
    area = ArrangeColumns(DockStatus::Right, area);
    m_flyouts.Refresh();
    return area;
}

void CToolbarArea::PlaceFloating(const CRect& canvas)
{
    const int limit = ::GetSystemMetrics(SM_CXSCREEN) * 3 / 4;
    for (CToolbarPane* pane : PanesAt(DockStatus::Floating)) {
        const Toolbar& toolbar = *m_model.FindToolbar(pane->ToolbarId());
        pane->Refresh(limit);
        CPoint at(toolbar.frame.left, toolbar.frame.top);
        if (!HasPlace(toolbar.frame))
            at = FreePlace(*pane, canvas);
        const CSize size = pane->WindowSize();
        ::SetWindowPos(pane->m_hWnd, nullptr, at.x, at.y, size.cx, size.cy, SWP_NOZORDER | SWP_NOACTIVATE);
        if (m_frame.IsWindowVisible())
            ShowOnTop(*pane);
        Report(*pane);
    }
}

void CToolbarArea::ShowFloating(bool show)
{
    for (CToolbarPane* pane : PanesAt(DockStatus::Floating)) {
        if (show)
            ShowOnTop(*pane);
        else
            pane->ShowWindow(SW_HIDE);
    }
    if (show)
        m_flyouts.Raise();
    else
        m_flyouts.CloseAll();
}

void CToolbarArea::Execute(HWND window, ElementId item)
{
    CToolbarPane* pane = PaneOfWindow(window);
    const ToolbarItem* button = m_model.FindToolbarItem(item);
    if (!pane || !button || button->parent->id != pane->ToolbarId())
        return;
    if (button->type == ToolbarItemType::Flyout) {
        m_flyouts.Toggle(*pane, item);
        return;
    }
    const std::wstring macro = button->macro;
    m_flyouts.CloseAll();
    m_site.OnToolbarMacro(macro);
}

void CToolbarArea::Clear()
{
    m_flyouts.CloseAll();
    m_panes.clear();
}

void CToolbarArea::OnButtonClicked(CToolbarPane& pane, ElementId item)
{
    m_site.OnToolbarButton(pane.m_hWnd, item);
}

// The pane that the mouse left may tell so after the one that it went to.
void CToolbarArea::OnButtonHot(CToolbarPane& pane, ElementId item)
{
    if (!item && m_hotPane != &pane)
        return;
    m_hotPane = item ? &pane : nullptr;
    const ToolbarItem* button = m_model.FindToolbarItem(item);
    m_site.OnToolbarHelp(button ? button->help : std::wstring());
}

void CToolbarArea::OnPaneCloseWanted(CToolbarPane& pane)
{
    if (m_model.FindToolbar(pane.ToolbarId()))
        m_model.SetToolbarVisible(pane.ToolbarId(), false);
}

void CToolbarArea::OnPaneMoved(CToolbarPane& pane)
{
    Report(pane);
}

std::vector<CToolbarPane*> CToolbarArea::PanesAt(DockStatus dock) const
{
    std::vector<CToolbarPane*> panes;
    for (const auto& group : m_model.Groups()) {
        for (const auto& toolbar : group->toolbars) {
            CToolbarPane* pane = toolbar->dock == dock ? FindPane(toolbar->id) : nullptr;
            if (pane && pane->GetKind() == KindFor(dock))
                panes.push_back(pane);
        }
    }
    return panes;
}

CRect CToolbarArea::ArrangeRows(DockStatus dock, CRect area)
{
    const bool top = dock == DockStatus::Top;
    int x = area.left;
    int used = 0;      // by the rows before
    int thickness = 0; // of the present row
    for (CToolbarPane* pane : PanesAt(dock)) {
        pane->Refresh(area.Width());
        const CSize size = pane->WindowSize();
        if (x > area.left && x + size.cx > area.right) {
            used += thickness;
            thickness = 0;
            x = area.left;
        }
        Move(*pane, CPoint(x, top ? area.top + used : area.bottom - used - size.cy));
        x += size.cx + kBarGap;
        thickness = std::max<int>(thickness, size.cy);
        Report(*pane);
    }
    (top ? area.top : area.bottom) += top ? used + thickness : -(used + thickness);
    return area;
}

CRect CToolbarArea::ArrangeColumns(DockStatus dock, CRect area)
{
    const bool left = dock == DockStatus::Left;
    int y = area.top;
    int used = 0;
    int thickness = 0;
    for (CToolbarPane* pane : PanesAt(dock)) {
        pane->Refresh(area.Height());
        const CSize size = pane->WindowSize();
        if (y > area.top && y + size.cy > area.bottom) {
            used += thickness;
            thickness = 0;
            y = area.top;
        }
        Move(*pane, CPoint(left ? area.left + used : area.right - used - size.cx, y));
        y += size.cy + kBarGap;
        thickness = std::max<int>(thickness, size.cx);
        Report(*pane);
    }
    (left ? area.left : area.right) += left ? used + thickness : -(used + thickness);
    return area;
}

// The first place, row by row, where the pane covers none of those that float already. A full canvas takes it
// at its corner.
CPoint CToolbarArea::FreePlace(const CToolbarPane& pane, const CRect& canvas) const
{
    const CSize size = pane.WindowSize();
    std::vector<CRect> taken;
    for (const CToolbarPane* other : PanesAt(DockStatus::Floating)) {
        if (other != &pane && HasPlace(m_model.FindToolbar(other->ToolbarId())->frame)) {
            taken.push_back(WindowRectOf(*other));
            taken.back().InflateRect(kFloatGap, kFloatGap);
        }
    }
    const CPoint corner(canvas.left + 2 * kFloatGap, canvas.top + 2 * kFloatGap);
    for (int y = corner.y; y + size.cy <= canvas.bottom; y += kFloatGap) {
        int x = corner.x;
        while (x + size.cx <= canvas.right) {
            const CRect place(CPoint(x, y), size);
            const auto blocking = std::find_if(taken.begin(), taken.end(), [&](const CRect& rect) {
                CRect common;
                return common.IntersectRect(&rect, &place) != FALSE;
            });
            if (blocking == taken.end())
                return CPoint(x, y);
            x = blocking->right;
        }
    }
    return corner;
}

CToolbarPane* CToolbarArea::PaneOfWindow(HWND window) const
{
    for (const auto& [toolbar, pane] : m_panes) {
        if (pane->m_hWnd == window)
            return pane.get();
    }
    return m_flyouts.Find(window);
}

void CToolbarArea::Report(const CToolbarPane& pane)
{
    const Toolbar* toolbar = m_model.FindToolbar(pane.ToolbarId());
    if (!toolbar)
        return;
    const CRect rect = WindowRectOf(pane);
    // A docked toolbar's model keeps the place for when it floats again.
    ToolbarFrame frame = toolbar->frame;
    if (toolbar->dock == DockStatus::Floating) {
        frame.left = rect.left;
        frame.top = rect.top;
    }
    frame.width = rect.Width();
    frame.height = rect.Height();
    m_model.ReportToolbarFrame(toolbar->id, toolbar->dock, frame);
}

} // namespace velmhost
