// The fly-outs that are open.
#pragma once

#include <afxwin.h>

#include <functional>
#include <memory>
#include <vector>

#include "shell/ToolbarPane.h"

namespace velmhost
{

// Fly-outs open one out of the other: the first from a button of a toolbar, each further one from a button of
// the one before. Closing one closes those that came out of it.
class CFlyoutStack
{
    // Construction
public:
    // `frame` owns the pop-ups. `findPane` leads to the pane of a toolbar that is docked or floats, null when
    // there is none. All arguments must live longer than this.
    CFlyoutStack(CWnd& frame, const HostModel& model, ToolbarPaneSite& site,
                 std::function<CToolbarPane*(ElementId)> findPane);

    // Attributes
public:
    bool IsEmpty() const { return m_levels.empty(); }
    std::size_t Count() const { return m_levels.size(); }
    // An open fly-out, 0 being the first opened; null beyond the last.
    CToolbarPane* At(std::size_t level) const;
    // The open fly-out with this window or toolbar; null when there is none. Of two with the same toolbar,
    // the one opened last.
    CToolbarPane* Find(HWND window) const;
    CToolbarPane* Find(ElementId toolbar) const;

    // Operations
public:
    // Opens the fly-out of `item`, a fly-out button of `from`, beneath the button; closes it if it is open.
    // Does nothing when the button has no toolbar.
    void Toggle(CToolbarPane& from, ElementId item);
    void CloseAll() { CloseFrom(0); }
    // Brings what is open to the front of the screen.
    void Raise();
    // Follows the model: closes what has lost its button or toolbar, refreshes the rest.
    void Refresh();
    // Looks at a message before it is dispatched: Escape closes the innermost fly-out (true: the message is
    // done with), a click outside closes those that it is outside of.
    bool FilterMessage(const MSG& message);

    // Implementation
private:
    struct Level
    {
        std::unique_ptr<CToolbarPane> pane;
        ElementId openerToolbar;
        ElementId opener;
    };
    void CloseFrom(std::size_t level);
    CToolbarPane* OpenerPane(std::size_t level) const;
    std::size_t LevelAfter(const CToolbarPane& pane) const;
    bool IsStillOpenable(std::size_t level) const;
    void Place(CToolbarPane& pane, const CToolbarPane& from, ElementId item) const;
    void CloseOutside(const MSG& message);

    CWnd& m_frame;
    const HostModel& m_model;
    ToolbarPaneSite& m_site;
    std::function<CToolbarPane*(ElementId)> m_findPane;
    std::vector<Level> m_levels;
};

} // namespace velmhost
