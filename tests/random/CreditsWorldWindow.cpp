#include "CreditsWorldWindow.h"

namespace randomplay
{

CreditsTimers* CreditsTimers::s_current = nullptr;

LRESULT OpenCredits::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message != WM_TIMER || !aroundTimer)
        return CMatrixCredits::WindowProc(message, wParam, lParam);
    aroundTimer(true);
    const LRESULT result = CMatrixCredits::WindowProc(message, wParam, lParam);
    aroundTimer(false);
    return result;
}

CreditsTimers::CreditsTimers()
    : m_set("user32.dll", "SetTimer", reinterpret_cast<void*>(&CreditsTimers::Set)),
      m_kill("user32.dll", "KillTimer", reinterpret_cast<void*>(&CreditsTimers::Kill))
{
    s_current = this;
}

UINT_PTR WINAPI CreditsTimers::Set(HWND window, UINT_PTR id, UINT period, TIMERPROC)
{
    s_current->m_running[id] = period;
    s_current->m_window = window;
    return 1;
}

BOOL WINAPI CreditsTimers::Kill(HWND, UINT_PTR id)
{
    return s_current->m_running.erase(id) != 0;
}

CreditsHandles::CreditsHandles(OpenCredits& credits)
    : font(credits.m_font.m_hObject), composite(credits.m_bmpComposite.m_hObject),
      background(credits.m_bmpBackground.m_hObject), compositeDc(credits.m_dcComposite.m_hDC),
      backgroundDc(credits.m_dcBackground.m_hDC)
{
}

std::string CreditsHandles::CheckGivenBack(const CreditsHandles& now) const
{
    const auto isKept = [](HGDIOBJ was, HGDIOBJ is) {
        return was != nullptr && was != is && GetObjectType(was) != 0;
    };
    if (isKept(font, now.font))
        return "handles: a font is kept";
    if (isKept(compositeDc, now.compositeDc) || isKept(backgroundDc, now.backgroundDc))
        return "handles: a device context is kept";
    // The platform's bitmap without area is one and the same for all, and is never given back.
    if (composite != background && (isKept(composite, now.composite) || isKept(background, now.background)))
        return "handles: a bitmap is kept";
    return {};
}

std::string CreditsHandles::CheckThere(bool isExpected) const
{
    if (!isExpected)
        return font == nullptr && compositeDc == nullptr ? std::string() : "handles: before the window";
    if (GetObjectType(font) != OBJ_FONT || GetObjectType(compositeDc) != OBJ_MEMDC ||
        GetObjectType(backgroundDc) != OBJ_MEMDC)
        return "handles: one is not there";
    const bool isSelected = GetCurrentObject(static_cast<HDC>(compositeDc), OBJ_BITMAP) == composite &&
                            GetCurrentObject(static_cast<HDC>(backgroundDc), OBJ_BITMAP) == background &&
                            GetCurrentObject(static_cast<HDC>(compositeDc), OBJ_FONT) == font &&
                            GetCurrentObject(static_cast<HDC>(backgroundDc), OBJ_FONT) == font;
    return isSelected ? std::string() : "handles: one is not selected";
}

} // namespace randomplay
