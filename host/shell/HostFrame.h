// The host's main window.
#pragma once

#include <afxwin.h>

#include <memory>
#include <string>

#include "model/HostModel.h"
#include "shell/CommandPane.h"
#include "shell/DrawingArea.h"
#include "shell/MenuMirror.h"
#include "shell/ToolbarArea.h"

namespace velmhost
{

// What the program does for its main window.
class HostFrameSite
{
public:
    // A text goes to the command line, from a menu item, a button or the keyboard.
    virtual void OnCommandText(const std::wstring& text) = 0;
    // The window is asked to close. False refuses.
    virtual bool OnFrameClosing() = 0;
    // The window is gone, its object about to go.
    virtual void OnFrameDestroyed() = 0;

protected:
    ~HostFrameSite() = default;
};

// Shows a model: its bar as the window's menu, its toolbars around a drawing area, a command line that shows
// what items and buttons send, and a status bar with their help.
//
// Changes of the model are shown a few milliseconds later, many of them at once; a menu that is open stays as
// it is until it closes. What was removed from the model while it was still on show does nothing when
// clicked. A frame is made with new and deletes itself when its window is destroyed.
class CHostFrame : public CFrameWnd, private HostModelObserver, private ToolbarAreaSite
{
    // Construction
public:
    // `model` and `site` must live longer than the window.
    CHostFrame(HostModel& model, HostFrameSite& site);
    ~CHostFrame() override;

    // Creates the window, hidden, in the middle of the screen. A width or height of 0 leaves the size to the
    // host. FALSE when the platform refuses; the object is gone then.
    BOOL CreateShell(int width, int height);

    // Attributes
public:
    const CMenuMirror& Menus() const { return m_menus; }
    CToolbarArea& Toolbars() { return m_toolbars; }
    const CCommandPane& CommandPane() const { return m_commandPane; }
    HWND DrawingArea() const { return m_drawingArea.m_hWnd; }
    const HostModel& Model() const { return m_model; }
    // What the status bar shows.
    std::wstring StatusText() const;
    // Whether a menu of this window is open.
    bool IsMenuOpen() const { return m_menuOpen; }
    // Whether all changes of the model are on show.
    bool IsUpToDate() const { return !m_menusDirty && !m_toolbarsDirty; }
    // Whether the window has nothing left to do by itself. What an open menu holds up does not count.
    bool IsIdle() const { return !m_timerRunning && !m_raisePending; }
    // How many clicks on buttons were carried out so far.
    unsigned ButtonsDone() const { return m_buttonsDone; }
    // The part of the screen that the window and all that belongs to it take.
    CRect ScreenArea() const;

    // Operations
public:
    // Shows all changes of the model now (those of an open menu when it closes).
    void ShowChanges();
    // Does with a text what the command line does: it is echoed and handed on. QUIT and EXIT close the
    // window. An empty text, that of an item without a macro, is not sent.
    void SendToCommandLine(const std::wstring& text);
    // Adds a line to the history that no command is.
    void AddRemark(const std::wstring& text) { m_commandPane.AddLine(text); }

    // Overridables
public:
    BOOL PreTranslateMessage(MSG* pMsg) override;

protected:
    BOOL OnCommand(WPARAM wParam, LPARAM lParam) override;
    void PostNcDestroy() override;

    // Implementation
protected:
    afx_msg void OnClose();
    afx_msg void OnDestroy();
    afx_msg void OnSize(UINT nType, int cx, int cy);
    afx_msg void OnMove(int x, int y);
    afx_msg void OnSetFocus(CWnd* pOldWnd);
    afx_msg void OnTimer(UINT_PTR nIDEvent);
    afx_msg void OnGetMinMaxInfo(MINMAXINFO* lpMMI);
    afx_msg void OnMenuSelect(UINT nItemID, UINT nFlags, HMENU hSysMenu);
    afx_msg LRESULT OnWindowPosChangedMessage(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnActivateAppMessage(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnEnterMenuLoopMessage(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnExitMenuLoopMessage(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnActivateMessage(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnToolbarButtonMessage(WPARAM wParam, LPARAM lParam);
    DECLARE_MESSAGE_MAP()

private:
    void OnModelChanged(const ModelChange& change) override;
    void OnToolbarButton(HWND pane, ElementId item) override;
    void OnToolbarHelp(const std::wstring& help) override;
    void OnToolbarMacro(const std::wstring& macro) override;

    BOOL CreateParts();
    void ShowMenus();
    void ShowToolbars();
    void ArrangeParts();
    void StartChangesTimer();
    CRect CanvasOnScreen() const;
    void SetHelp(const std::wstring& help);
    void ShowPosition(int x, int y);
    void ShowShortcutMenu(CPoint at);

    HostModel& m_model;
    HostFrameSite& m_site;
    CMenuMirror m_menus;
    CToolbarArea m_toolbars;
    CCommandPane m_commandPane;
    CDrawingArea m_drawingArea;
    HWND m_statusBar = nullptr;
    bool m_observing = false;
    bool m_menuOpen = false;
    bool m_timerRunning = false;
    bool m_raisePending = false;
    bool m_menusDirty = true;
    bool m_toolbarsDirty = true;
    unsigned m_buttonsDone = 0;
};

} // namespace velmhost
