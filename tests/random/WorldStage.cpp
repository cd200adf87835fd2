#include "WorldStage.h"

#include <iterator>

namespace randomplay
{
namespace
{

constexpr int WidestControl = 260;
constexpr int HighestControl = 180;
constexpr int Margin = 10;

struct TipSearch
{
    HWND control;
    UINT_PTR tool;
    std::optional<std::wstring> text;
};

// The text of the tool, if this window is a tip control that has it.
void Ask(HWND window, TipSearch& search)
{
    wchar_t name[40]{};
    GetClassNameW(window, name, static_cast<int>(std::size(name)));
    if (lstrcmpiW(name, TOOLTIPS_CLASSW) != 0)
        return;
    TOOLINFO tool{};
    tool.cbSize = TTTOOLINFO_V1_SIZE;
    tool.hwnd = search.control;
    tool.uId = search.tool;
    wchar_t text[1100]{};
    tool.lpszText = text;
    if (!SendMessageW(window, TTM_GETTOOLINFOW, 0, reinterpret_cast<LPARAM>(&tool)))
        return;
    tool.lpszText = text;
    text[0] = L'\0';
    SendMessageW(window, TTM_GETTEXTW, 1000, reinterpret_cast<LPARAM>(&tool));
    search.text = text;
}

} // namespace

Mischief MischiefOf(uint32_t number, Mischief last)
{
    if (number % 4 != 3)
        return Mischief::None;
    return static_cast<Mischief>(1 + number / 4 % static_cast<uint32_t>(last));
}

LRESULT StageParent::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    const bool isOfChild = message == WM_COMMAND || message == WM_NOTIFY || message == WM_PARENTNOTIFY;
    if (isOfChild && onMessage)
        onMessage(message == WM_NOTIFY ? reinterpret_cast<const NMHDR*>(lParam) : nullptr);
    return CWnd::WindowProc(message, wParam, lParam);
}

WorldStage::WorldStage()
{
    MakeParent(0);
    MakeParent(1);
}

WorldStage::~WorldStage()
{
    CWnd::CancelToolTips();
    for (StageParent& parent : m_parents)
        parent.DestroyWindow();
}

void WorldStage::MakeParent(unsigned which)
{
    m_parents[which].CreateEx(0, AfxRegisterWndClass(0), L"Parent", WS_POPUP | WS_VISIBLE | WS_CLIPCHILDREN,
                              CRect(CPoint(40 + static_cast<int>(which) * 300, 40), CSize(280, 200)), nullptr,
                              0);
}

void WorldStage::Choose(uint32_t parent, uint32_t width, uint32_t height)
{
    m_parent = parent % 2;
    // 0 is the simple case, a window of some size.
    m_rect = CRect(CPoint(Margin, Margin), CSize(static_cast<int>((width + 160) % WidestControl),
                                                 static_cast<int>((height + 110) % HighestControl)));
}

void WorldStage::Began(HWND window, bool isVisible)
{
    m_window = window;
    m_isVisible = isVisible;
}

void WorldStage::OnParentMessage(StageParent::Call call)
{
    m_parents[0].onMessage = call;
    m_parents[1].onMessage = std::move(call);
}

void WorldStage::Do(Mischief mischief, uint32_t number)
{
    if (!IsThere())
        return;
    switch (mischief) {
    case Mischief::Hide:
    case Mischief::Show:
        m_isVisible = mischief == Mischief::Show;
        ShowWindow(m_window, m_isVisible ? SW_SHOWNA : SW_HIDE);
        break;
    case Mischief::Resize:
        Choose(m_parent, number % 1000, number / 1000);
        MoveWindow(m_window, m_rect.left, m_rect.top, m_rect.Width(), m_rect.Height(), TRUE);
        break;
    case Mischief::Reparent:
        m_parent = 1 - m_parent;
        SetParent(m_window, m_parents[m_parent]);
        break;
    default:
        break;
    }
}

void WorldStage::ReplaceParent()
{
    Parent().DestroyWindow();
    MakeParent(m_parent);
    Ended();
}

std::string WorldStage::Check() const
{
    if (m_window == nullptr)
        return {};
    if (!IsWindow(m_window))
        return "window: it is gone";
    if (((GetWindowLongW(m_window, GWL_STYLE) & WS_VISIBLE) != 0) != m_isVisible)
        return m_isVisible ? "window: hidden" : "window: shown";
    if (GetParent(m_window) != m_parents[m_parent].m_hWnd)
        return "window: another's child";
    CRect rect;
    GetWindowRect(m_window, &rect);
    MapWindowPoints(nullptr, m_parents[m_parent], reinterpret_cast<POINT*>(&rect), 2);
    if (rect != m_rect) {
        return "window: at " + std::to_string(rect.left) + "," + std::to_string(rect.top) + " size " +
               std::to_string(rect.Width()) + "," + std::to_string(rect.Height());
    }
    return {};
}

CPoint WorldStage::PointIn(uint32_t x, uint32_t y) const
{
    CRect client(0, 0, 0, 0);
    if (IsThere())
        GetClientRect(m_window, &client);
    // Some pixels beyond each edge as well.
    return CPoint(static_cast<int>(x % static_cast<uint32_t>(client.Width() + 8)) - 4,
                  static_cast<int>(y % static_cast<uint32_t>(client.Height() + 8)) - 4);
}

std::optional<std::wstring> AskForTip(CWnd& control, CPoint client, UINT_PTR tool)
{
    static DWORD time = 0;
    MSG message{};
    message.hwnd = control.m_hWnd;
    message.message = WM_MOUSEMOVE;
    message.lParam = MAKELPARAM(client.x, client.y);
    message.time = ++time; // or it would be taken for the move before
    message.pt = client;
    ClientToScreen(control.m_hWnd, &message.pt);
    CWnd::WalkPreTranslateTree(GetParent(control.m_hWnd), &message);

    TipSearch search{control.m_hWnd, tool, std::nullopt};
    EnumThreadWindows(
        GetCurrentThreadId(),
        [](HWND window, LPARAM found) -> BOOL {
            TipSearch& inner = *reinterpret_cast<TipSearch*>(found);
            Ask(window, inner);
            return !inner.text;
        },
        reinterpret_cast<LPARAM>(&search));
    return search.text;
}

std::wstring TipOf(const std::wstring& text)
{
    return text.substr(0, 79);
}

std::string NarrowTipOf(const std::wstring& text)
{
    std::string tip;
    for (size_t i = 0; i < text.size() && i < 79; ++i) {
        char bytes[8];
        const int count =
            WideCharToMultiByte(CP_THREAD_ACP, 0, &text[i], 1, bytes, sizeof bytes, nullptr, nullptr);
        if (tip.size() + static_cast<size_t>(count) > 79)
            break;
        tip.append(bytes, static_cast<size_t>(count));
    }
    return tip;
}

std::wstring SomeText(uint32_t number)
{
    static const std::wstring texts[] = {
        L"plain",
        L"",
        std::wstring(79, L'x') + L"y",
        L"100%s %d & more",
        L"\u00E4\u20AC\u6F22",
        L"a\tb c",
        L" blanks ",
        std::wstring(60, L'\u3042'),
        L"Zebra",
        std::wstring(300, L'i'),
        L"apple",
        std::wstring(78, L'w') + L"z",
    };
    std::wstring text = texts[number % std::size(texts)];
    if (number % 3 == 2)
        text += std::to_wstring(number % 100);
    return text;
}

} // namespace randomplay
