#include "kit/MessageBoxWatch.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>

namespace testkit
{
namespace
{

constexpr int TextId = 0xFFFF; // of the static control that holds a message box's text
constexpr wchar_t TakenMark[] = L"testkit.MessageBoxTaken";

bool IsClass(HWND window, const wchar_t* name)
{
    wchar_t own[40] = L"";
    GetClassNameW(window, own, static_cast<int>(std::size(own)));
    return lstrcmpiW(own, name) == 0;
}

std::wstring TextOf(HWND window)
{
    std::wstring text(static_cast<size_t>(GetWindowTextLengthW(window)), L'\0');
    if (!text.empty()) {
        text.resize(
            static_cast<size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()) + 1)));
    }
    return text;
}

UINT IconOf(HWND control)
{
    const auto icon = reinterpret_cast<HICON>(SendMessageW(control, STM_GETICON, 0, 0));
    if (!icon) {
        return 0;
    }
    // The system's own icons are shared, so equal icons have equal handles.
    const struct
    {
        LPCWSTR name;
        UINT style;
    } known[] = {{IDI_ERROR, MB_ICONERROR},
                 {IDI_QUESTION, MB_ICONQUESTION},
                 {IDI_WARNING, MB_ICONWARNING},
                 {IDI_INFORMATION, MB_ICONINFORMATION}};
    for (const auto& entry : known) {
        if (LoadIconW(nullptr, entry.name) == icon) {
            return entry.style;
        }
    }
    return 0;
}

struct Parts
{
    MessageBoxRecord record;
    std::vector<HWND> buttons;
    bool hasText = false;
    bool hasOthers = false;

    bool IsMessageBox() const { return hasText && !buttons.empty() && !hasOthers; }
};

BOOL CALLBACK ReadControl(HWND control, LPARAM address)
{
    Parts& parts = *reinterpret_cast<Parts*>(address);
    const int id = GetDlgCtrlID(control);
    if (IsClass(control, L"Button") && id > 0 && id <= IDCONTINUE) {
        if (IsWindowVisible(control) || (GetWindowLongW(control, GWL_STYLE) & WS_VISIBLE)) {
            parts.record.buttons.push_back(id);
            parts.buttons.push_back(control);
        }
    } else if (IsClass(control, L"Static")) {
        if ((id & 0xFFFF) == TextId) {
            parts.hasText = true;
            parts.record.text = TextOf(control);
        } else if ((GetWindowLongW(control, GWL_STYLE) & SS_TYPEMASK) == SS_ICON) {
            parts.record.icon = IconOf(control);
        }
    } else {
        parts.hasOthers = true;
    }
    return TRUE;
}

} // namespace

thread_local MessageBoxWatch* MessageBoxWatch::s_innermost = nullptr;

MessageBoxWatch::MessageBoxWatch()
    : m_hook(SetWindowsHookExW(WH_CBT, Hook, nullptr, GetCurrentThreadId())), m_outer(s_innermost)
{
    s_innermost = this;
}

MessageBoxWatch::~MessageBoxWatch()
{
    s_innermost = m_outer;
    UnhookWindowsHookEx(m_hook);
}

void MessageBoxWatch::Answer(int button)
{
    m_answers.push_back(button);
}

std::vector<std::wstring> MessageBoxWatch::Texts() const
{
    std::vector<std::wstring> texts;
    for (const MessageBoxRecord& box : m_boxes) {
        texts.push_back(box.text);
    }
    return texts;
}

LRESULT CALLBACK MessageBoxWatch::Hook(int code, WPARAM first, LPARAM second)
{
    const auto window = reinterpret_cast<HWND>(first);
    if (code == HCBT_ACTIVATE && s_innermost && IsClass(window, L"#32770") && !GetPropW(window, TakenMark)) {
        s_innermost->Take(window);
    }
    return CallNextHookEx(nullptr, code, first, second);
}

void MessageBoxWatch::Take(HWND box)
{
    Parts parts;
    EnumChildWindows(box, ReadControl, reinterpret_cast<LPARAM>(&parts));
    if (!parts.IsMessageBox()) {
        return;
    }
    SetPropW(box, TakenMark, box); // a box may be activated more than once
    MessageBoxRecord& record = parts.record;
    record.caption = TextOf(box);

    size_t press = 0;
    if (!m_answers.empty()) {
        const int answer = m_answers.front();
        m_answers.pop_front();
        const auto found = std::find(record.buttons.begin(), record.buttons.end(), answer);
        // The only button of a plain box may bear either id, and ends it with IDOK.
        const bool onlyButton = record.buttons.size() == 1 && answer == IDOK;
        if (found != record.buttons.end()) {
            press = static_cast<size_t>(found - record.buttons.begin());
        } else if (!onlyButton) {
            ADD_FAILURE() << "The message box has no button " << answer;
        }
    }
    record.pressed = record.buttons[press];
    PostMessageW(box, WM_COMMAND, MAKEWPARAM(record.pressed, BN_CLICKED),
                 reinterpret_cast<LPARAM>(parts.buttons[press]));
    m_boxes.push_back(std::move(record));
}

} // namespace testkit
