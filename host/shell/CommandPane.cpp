#include "shell/CommandPane.h"

#include <algorithm>

namespace velmhost
{

namespace
{

constexpr wchar_t kPrompt[] = L"Command:";
constexpr int kMargin = 4;
constexpr UINT kHistoryId = 1;
constexpr UINT kEditId = 2;

std::wstring TextOf(HWND window)
{
    const int length = ::GetWindowTextLengthW(window);
    std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
    text.resize(static_cast<std::size_t>(::GetWindowTextW(window, text.data(), length + 1)));
    return text;
}

CSize TextSize(HDC dc, HFONT font, const wchar_t* text)
{
    Selection selected(dc, font);
    SIZE size{};
    ::GetTextExtentPoint32W(dc, text, ::lstrlenW(text), &size);
    return size;
}

} // namespace

BEGIN_MESSAGE_MAP(CCommandEdit, CEdit)
ON_WM_CHAR()
END_MESSAGE_MAP()

void CCommandEdit::OnChar(UINT nChar, UINT nRepCnt, UINT nFlags)
{
    if (nChar == VK_RETURN) {
        const std::wstring text = TextOf(m_hWnd);
        SetWindowText(L"");
        m_entered(text);
    } else if (nChar == VK_ESCAPE) {
        SetWindowText(L"");
    } else {
        CEdit::OnChar(nChar, nRepCnt, nFlags);
    }
}

BEGIN_MESSAGE_MAP(CCommandPane, CWnd)
ON_WM_SIZE()
ON_WM_PAINT()
ON_WM_SETFOCUS()
ON_MESSAGE(WM_CTLCOLORSTATIC, &CCommandPane::OnCtlColorMessage)
ON_MESSAGE(WM_CTLCOLOREDIT, &CCommandPane::OnCtlColorMessage)
END_MESSAGE_MAP()

BOOL CCommandPane::Create(CWnd& parent, UINT id)
{
    const wchar_t* windowClass =
        AfxRegisterWndClass(0, ::LoadCursorW(nullptr, IDC_ARROW), reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1));
    if (!CWnd::Create(windowClass, L"", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, CRect(0, 0, 0, 0), &parent,
                      id))
        return FALSE;
    m_font.reset(::CreateFontW(-12, 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, DEFAULT_CHARSET,
                               OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY,
                               FIXED_PITCH | FF_MODERN, L"Courier New"));
    {
        WindowDc dc(m_hWnd);
        m_lineHeight = TextSize(dc, m_font.get(), kPrompt).cy + 4;
    }
    m_history = ::CreateWindowExW(
        0, L"EDIT", L"", WS_CHILD | WS_VISIBLE | WS_VSCROLL | ES_MULTILINE | ES_READONLY | ES_AUTOVSCROLL, 0,
        0, 0, 0, m_hWnd, reinterpret_cast<HMENU>(static_cast<UINT_PTR>(kHistoryId)), AfxGetInstanceHandle(),
        nullptr);
    if (!m_history ||
        !m_edit.Create(WS_CHILD | WS_VISIBLE | ES_AUTOHSCROLL, CRect(0, 0, 0, 0), this, kEditId))
        return FALSE;
    for (const HWND edit : {m_history, m_edit.m_hWnd}) {
        ::SendMessageW(edit, WM_SETFONT, reinterpret_cast<WPARAM>(m_font.get()), FALSE);
        ::SendMessageW(edit, EM_SETLIMITTEXT, 0, 0);
    }
    return TRUE;
}

std::wstring CCommandPane::HistoryText() const
{
    return TextOf(m_history);
}

void CCommandPane::AddLine(const std::wstring& line)
{
    if (::SendMessageW(m_history, EM_GETLINECOUNT, 0, 0) > kMaxLines)
        DropOldestLine();
    const int end = ::GetWindowTextLengthW(m_history);
    ::SendMessageW(m_history, EM_SETSEL, static_cast<WPARAM>(end), end);
    const std::wstring text = end == 0 ? line : L"\r\n" + line;
    ::SendMessageW(m_history, EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(text.c_str()));
    ::SendMessageW(m_history, EM_SCROLLCARET, 0, 0);
}

void CCommandPane::DropOldestLine()
{
    const LRESULT second = ::SendMessageW(m_history, EM_LINEINDEX, 1, 0);
    ::SendMessageW(m_history, EM_SETSEL, 0, second);
    ::SendMessageW(m_history, EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(L""));
}

void CCommandPane::OnSize(UINT, int cx, int cy)
{
    if (!m_edit.m_hWnd)
        return;
    const CRect prompt = PromptRect();
    ::MoveWindow(m_history, kMargin, kMargin, std::max(0, cx - kMargin),
                 std::max<int>(0, prompt.top - 2 * kMargin), TRUE);
    ::MoveWindow(m_edit.m_hWnd, prompt.right, prompt.top + 2, std::max<int>(0, cx - prompt.right - kMargin),
                 std::max<int>(0, cy - prompt.top - 3), TRUE);
    Invalidate();
}

void CCommandPane::OnPaint()
{
    CPaintDC paint(this);
    CRect client;
    GetClientRect(&client);
    const CRect prompt = PromptRect();
    const RECT topEdge{0, 0, client.right, 1};
    const RECT promptEdge{0, prompt.top - 2, client.right, prompt.top - 1};
    ::FillRect(paint.m_hDC, &topEdge, ::GetSysColorBrush(COLOR_3DSHADOW));
    ::FillRect(paint.m_hDC, &promptEdge, ::GetSysColorBrush(COLOR_3DLIGHT));
    Selection font(paint.m_hDC, m_font.get());
    ::SetBkMode(paint.m_hDC, TRANSPARENT);
    ::SetTextColor(paint.m_hDC, ::GetSysColor(COLOR_GRAYTEXT));
    RECT text{kMargin, prompt.top + 2, prompt.right, client.bottom};
    ::DrawTextW(paint.m_hDC, kPrompt, -1, &text, DT_SINGLELINE | DT_TOP | DT_LEFT | DT_NOPREFIX);
}

void CCommandPane::OnSetFocus(CWnd*)
{
    ::SetFocus(m_edit.m_hWnd);
}

LRESULT CCommandPane::OnCtlColorMessage(WPARAM wParam, LPARAM)
{
    // A read-only edit box would be grey otherwise.
    const HDC dc = reinterpret_cast<HDC>(wParam);
    ::SetTextColor(dc, ::GetSysColor(COLOR_WINDOWTEXT));
    ::SetBkColor(dc, ::GetSysColor(COLOR_WINDOW));
    return reinterpret_cast<LRESULT>(::GetSysColorBrush(COLOR_WINDOW));
}

// The lowest line of the pane, up to the end of the prompt.
CRect CCommandPane::PromptRect() const
{
    CRect client;
    GetClientRect(&client);
    WindowDc dc(m_hWnd);
    const int width = TextSize(dc, m_font.get(), kPrompt).cx;
    return CRect(0, std::max<int>(0, client.bottom - m_lineHeight), kMargin + width + kMargin, client.bottom);
}

} // namespace velmhost
