// The command line at the foot of the main window, with the history above it.
#pragma once

#include <afxwin.h>
#include <afxcmn.h>

#include <functional>
#include <string>

#include "shell/Handles.h"

namespace velmhost
{

// The edit box of the command line. Enter hands its text on, Escape empties it.
class CCommandEdit : public CEdit
{
    // Construction
public:
    // `entered` is called with the text at Enter, and must live as long as this.
    explicit CCommandEdit(std::function<void(const std::wstring&)> entered) : m_entered(std::move(entered)) {}

    // Implementation
protected:
    afx_msg void OnChar(UINT nChar, UINT nRepCnt, UINT nFlags);
    DECLARE_MESSAGE_MAP()

private:
    std::function<void(const std::wstring&)> m_entered;
};

// History (read only) above prompt and edit box.
class CCommandPane : public CWnd
{
    // Construction
public:
    static constexpr int kHeight = 112; // in pixels
    static constexpr int kMaxLines = 400;

    // `entered` is called with what the user typed, without the Enter.
    explicit CCommandPane(std::function<void(const std::wstring&)> entered) : m_edit(std::move(entered)) {}

    BOOL Create(CWnd& parent, UINT id);

    // Attributes
public:
    // The whole of the history, lines ended by CR LF.
    std::wstring HistoryText() const;
    HWND EditControl() const { return m_edit.m_hWnd; }
    HWND HistoryControl() const { return m_history; }

    // Operations
public:
    // Adds a line to the history and shows it; of more than kMaxLines the oldest go.
    void AddLine(const std::wstring& line);

    // Implementation
protected:
    afx_msg void OnSize(UINT nType, int cx, int cy);
    afx_msg void OnPaint();
    afx_msg void OnSetFocus(CWnd* pOldWnd);
    afx_msg LRESULT OnCtlColorMessage(WPARAM wParam, LPARAM lParam);
    DECLARE_MESSAGE_MAP()

private:
    CRect PromptRect() const;
    void DropOldestLine();

    CCommandEdit m_edit;
    HWND m_history = nullptr;
    UniqueFont m_font;
    int m_lineHeight = 0;
};

} // namespace velmhost
