// What the worlds of controls share: two parents for the control under test, what must be true of its window,
// what may happen to it in the middle of something else, and its tips.
#pragma once

#include <afxwin.h>
#include <afxcmn.h>

#include <functional>
#include <optional>
#include <string>

namespace randomplay
{

// What befalls the control from inside a message or a request.
enum class Mischief
{
    None,
    Hide,
    Show,
    Resize,
    Reparent,
    Destroy,
    Count
};

// Three of four numbers mean none.
Mischief MischiefOf(uint32_t number, Mischief last = Mischief::Destroy);

class StageParent : public CWnd
{
public:
    using Call = std::function<void(const NMHDR* notification)>;
    Call onMessage;

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
};

class WorldStage
{
public:
    WorldStage();
    ~WorldStage();
    WorldStage(const WorldStage&) = delete;
    WorldStage& operator=(const WorldStage&) = delete;

    StageParent& Parent() { return m_parents[m_parent]; }
    const CRect& Rect() const { return m_rect; }
    HWND Window() const { return m_window; }
    bool IsThere() const { return m_window != nullptr; }

    // Which parent and which place the next window gets.
    void Choose(uint32_t parent, uint32_t width, uint32_t height);
    // The control has been made there, or is gone.
    void Began(HWND window, bool isVisible);
    void Ended() { m_window = nullptr; }

    // Called before either parent handles a message of a child, with the notification if it is one.
    void OnParentMessage(StageParent::Call call);

    // Anything but Destroy, which the world does itself.
    void Do(Mischief mischief, uint32_t number);
    // Ends the parent, and the control with it, and makes a new one.
    void ReplaceParent();

    // The first rule that the control's window breaks: whether it is there, shown, where and whose.
    std::string Check() const;

    CPoint PointIn(uint32_t x, uint32_t y) const;

private:
    void MakeParent(unsigned which);

    StageParent m_parents[2];
    HWND m_window = nullptr;
    bool m_isVisible = false;
    unsigned m_parent = 0;
    CRect m_rect;
};

// A control with what may happen around its handling of a tip's request.
template <class Control>
class WithTipMischief : public Control
{
public:
    std::function<void(bool isBefore)> onTipRequest;

    BOOL OnCmdMsg(UINT id, int code, void* extra, AFX_CMDHANDLERINFO* handler) override
    {
        if (HIWORD(code) != WM_NOTIFY || !onTipRequest)
            return Control::OnCmdMsg(id, code, extra, handler);
        onTipRequest(true);
        const BOOL result = Control::OnCmdMsg(id, code, extra, handler);
        onTipRequest(false);
        return result;
    }
};

// Lets a control's window hear of a mouse over it, as the program's loop would, and gives what the tip
// control that stands ready then gets as the text of the tool; nothing if it has no such tool.
std::optional<std::wstring> AskForTip(CWnd& control, CPoint client, UINT_PTR tool);

// What a tip shows of a text: 79 characters.
std::wstring TipOf(const std::wstring& text);
// The same in the thread's code page and in 79 bytes.
std::string NarrowTipOf(const std::wstring& text);

// What a tool's text is asked with; all but the head is filled with a pattern.
template <class Info>
struct TipQuestion
{
    Info info;

    TipQuestion(UINT_PTR tool, UINT code, UINT flags, HWND from = nullptr)
    {
        memset(&info, 0x5A, sizeof info);
        info.hdr = {from, tool, code};
        info.uFlags = flags;
    }
    bool IsAnswered() const { return reinterpret_cast<const unsigned char&>(info.szText[0]) != 0x5A; }
};

// Texts of all kinds: empty, plain, long, with marks, beyond ASCII.
std::wstring SomeText(uint32_t number);

} // namespace randomplay
