// The empty sheet in the middle of the main window.
#pragma once

#include <afxwin.h>

#include <functional>

#include "shell/Handles.h"

namespace velmhost
{

// A dark canvas with a grid, the axes' mark in the lower left corner, and cross-hairs that follow the mouse.
class CDrawingArea : public CWnd
{
    // Construction
public:
    // Callbacks: the point below the mouse, in pixels from the lower left corner; a click, which gives the
    // command line the focus back; a right click, at a point of the screen.
    struct Events
    {
        std::function<void(int x, int y)> moved;
        std::function<void()> clicked;
        std::function<void(CPoint)> menuWanted;
    };
    explicit CDrawingArea(Events events) : m_events(std::move(events)) {}

    BOOL Create(CWnd& parent, UINT id);

    // Implementation
protected:
    afx_msg void OnPaint();
    afx_msg BOOL OnEraseBkgnd(CDC* pDC);
    afx_msg void OnSize(UINT nType, int cx, int cy);
    afx_msg void OnMouseMove(UINT nFlags, CPoint point);
    afx_msg void OnLButtonDown(UINT nFlags, CPoint point);
    afx_msg void OnRButtonUp(UINT nFlags, CPoint point);
    afx_msg LRESULT OnMouseLeaveMessage(WPARAM wParam, LPARAM lParam);
    DECLARE_MESSAGE_MAP()

private:
    void DrawGrid(HDC dc, const CRect& client) const;
    void DrawAxes(HDC dc, const CRect& client) const;
    void DrawCrossHairs(HDC dc, const CRect& client) const;
    void InvalidateCrossHairs();

    Events m_events;
    CPoint m_mouse{0, 0};
    bool m_mouseInside = false;
};

} // namespace velmhost
