// The toolbars around the drawing area.
#pragma once

#include <afxwin.h>

#include <map>
#include <memory>

#include "shell/FlyoutStack.h"
#include "shell/ToolbarPane.h"

namespace velmhost
{

// What the main window does for its toolbars.
class ToolbarAreaSite
{
public:
    // A button was clicked; to be answered with CToolbarArea::Execute once the control has returned.
    virtual void OnToolbarButton(HWND pane, ElementId item) = 0;
    // The help of the button under the mouse; empty when the mouse left the buttons.
    virtual void OnToolbarHelp(const std::wstring& help) = 0;
    // The text of a button that was pressed.
    virtual void OnToolbarMacro(const std::wstring& macro) = 0;

protected:
    ~ToolbarAreaSite() = default;
};

// Keeps a pane for each visible toolbar of the model: those that are docked in rows at the top and bottom and
// in columns at the left and right of the main window, those that float as tool windows.
class CToolbarArea : private ToolbarPaneSite
{
    // Construction
public:
    // All arguments must live longer than this.
    CToolbarArea(CWnd& frame, HostModel& model, ToolbarAreaSite& site);

    // Attributes
public:
    // The pane of a toolbar that is docked or floats; null when it is not shown.
    CToolbarPane* FindPane(ElementId toolbar) const;
    CFlyoutStack& Flyouts() { return m_flyouts; }

    // Operations
public:
    // Makes and removes panes as the model has it now. Follow with Arrange and PlaceFloating.
    void Sync();
    // Places the docked toolbars along the edges of `area` (client coordinates of the main window) and
    // returns what they leave.
    CRect Arrange(CRect area);
    // Places the floating toolbars where the model has them; new ones, without a place, side by side on
    // `canvas` (screen coordinates). Shows them when the main window is visible. Tells the model where they
    // are.
    void PlaceFloating(const CRect& canvas);
    // Shows or hides all that floats, with the main window.
    void ShowFloating(bool show);
    // Does what the button of a pane is for: opens or closes a fly-out, or sends its text. The pane or item
    // may be gone by now; nothing is done then.
    void Execute(HWND pane, ElementId item);
    // Destroys all panes.
    void Clear();

    // Overridables
private:
    void OnButtonClicked(CToolbarPane& pane, ElementId item) override;
    void OnButtonHot(CToolbarPane& pane, ElementId item) override;
    void OnPaneCloseWanted(CToolbarPane& pane) override;
    void OnPaneMoved(CToolbarPane& pane) override;

    // Implementation
private:
    std::vector<CToolbarPane*> PanesAt(DockStatus dock) const;
    CRect ArrangeRows(DockStatus dock, CRect area);
    CRect ArrangeColumns(DockStatus dock, CRect area);
    CPoint FreePlace(const CToolbarPane& pane, const CRect& canvas) const;
    CToolbarPane* PaneOfWindow(HWND window) const;
    void Report(const CToolbarPane& pane);

    CWnd& m_frame;
    HostModel& m_model;
    ToolbarAreaSite& m_site;
    std::map<ElementId, std::unique_ptr<CToolbarPane>> m_panes;
    const CToolbarPane* m_hotPane = nullptr; // the last in which a button became hot; only to compare
    CFlyoutStack m_flyouts;
};

} // namespace velmhost
