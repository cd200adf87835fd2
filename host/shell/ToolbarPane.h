// One toolbar of the model as a window.
#pragma once

#include <afxwin.h>
#include <afxcmn.h>

#include <string>
#include <vector>

#include "model/HostModel.h"
#include "shell/ButtonImages.h"
#include "shell/Handles.h"

namespace velmhost
{

class CToolbarPane;

// Told what the user does with a pane. Calls come from inside the platform's controls, so the pane must
// not be destroyed before they return.
class ToolbarPaneSite
{
public:
    // A button or fly-out was clicked.
    virtual void OnButtonClicked(CToolbarPane& pane, ElementId item) = 0;
    // The mouse went to a button (`item`), or away from all (0).
    virtual void OnButtonHot(CToolbarPane& pane, ElementId item) = 0;
    // The user wants a floating pane closed.
    virtual void OnPaneCloseWanted(CToolbarPane& pane) = 0;
    // The user moved a floating pane.
    virtual void OnPaneMoved(CToolbarPane& pane) = 0;

protected:
    ~ToolbarPaneSite() = default;
};

// A window around a ToolbarWindow32. Shows a toolbar's buttons with their pictures, a corner mark on
// fly-outs, and the buttons' names as tooltips.
class CToolbarPane : public CWnd
{
    // Construction
public:
    enum class Kind
    {
        Row,      // child window, buttons side by side, with a gripper and the toolbar's name
        Column,   // child window, buttons below one another, with a gripper
        Floating, // tool window with the toolbar's name as caption
        Flyout    // bordered pop-up without caption
    };

    // `model` and `site` must live longer than the pane.
    CToolbarPane(Kind kind, ElementId toolbar, const HostModel& model, ToolbarPaneSite& site);
    ~CToolbarPane() override;

    // Creates the window, hidden and empty. `owner` is the parent of a child, else the owner.
    BOOL Create(CWnd& owner);

    // Attributes
public:
    Kind GetKind() const { return m_kind; }
    ElementId ToolbarId() const { return m_toolbar; }
    // The number of buttons and separators shown.
    int ItemCount() const { return static_cast<int>(m_items.size()); }
    // The model's item at a position; 0 when there is none.
    ElementId ItemAt(int position) const;
    // Where the model's item stands; -1 when it is not shown.
    int PositionOf(ElementId item) const;
    // Place of a button on the screen; empty when the position is wrong.
    CRect ButtonRect(int position) const;
    // The button at a point of the screen; -1 when there is none.
    int ButtonAt(CPoint screen) const;
    // The ToolbarWindow32 inside.
    HWND Control() const { return m_control; }
    // Size that the window needs for its buttons.
    CSize WindowSize() const { return m_size; }

    // Operations
public:
    // Shows what the model has now. `limit` is how long the window may become along its row (for a column:
    // how high), in pixels; buttons wrap there. Returns whether anything changed. Does nothing when the
    // toolbar is gone.
    bool Refresh(int limit);
    // Draws a fly-out button as held down while its fly-out is open.
    void MarkOpen(ElementId item, bool open);

    // Overridables
protected:
    BOOL OnCommand(WPARAM wParam, LPARAM lParam) override;
    BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;

    // Implementation
protected:
    afx_msg void OnPaint();
    afx_msg void OnClose();
    afx_msg LRESULT OnMouseActivateMessage(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnNcActivateMessage(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnExitSizeMoveMessage(WPARAM wParam, LPARAM lParam);
    DECLARE_MESSAGE_MAP()

private:
    std::wstring Describe(const Toolbar& toolbar, const std::vector<bool>& wraps) const;
    void FillControl(const Toolbar& toolbar, const std::vector<bool>& wraps);
    void SetPictureSize(int side);
    int PictureSide() const { return m_model.LargeButtons() ? kLargePicture : kSmallPicture; }
    std::vector<bool> PlanWraps(const Toolbar& toolbar, int limit) const;
    void Measure(const Toolbar& toolbar);
    CRect ButtonsExtent() const;
    bool IsSeparator(int position) const;
    void DrawRowSeparators(HDC dc) const;
    ElementId ItemOfCommand(int command) const { return ItemAt(command - 1); }
    LRESULT OnCustomDraw(const NMTBCUSTOMDRAW& draw) const;

    Kind m_kind;
    ElementId m_toolbar;
    const HostModel& m_model;
    ToolbarPaneSite& m_site;
    HWND m_control = nullptr;
    std::vector<ElementId> m_items; // the command id of a button is its position here plus one
    std::wstring m_description;     // of what the control shows now
    std::wstring m_label;           // the name beside the gripper
    CButtonImages m_images;
    CSize m_size{0, 0};
};

} // namespace velmhost
