#include "shell/ShellServices.h"

#include "model/HostError.h"
#include "shell/HostApp.h"

namespace velmhost
{

namespace
{

CHostFrame& RequireFrame(const CHostApp& app)
{
    if (!app.MainFrame())
        throw HostError(Refusal::NotAllowed, L"The host has no window now.");
    return *app.MainFrame();
}

} // namespace

bool ShellServices::IsVisible() const
{
    return RequireFrame(m_app).IsWindowVisible() != FALSE;
}

void ShellServices::SetVisible(bool visible)
{
    RequireFrame(m_app).ShowWindow(visible ? SW_SHOW : SW_HIDE);
}

std::wstring ShellServices::Caption() const
{
    CString caption;
    RequireFrame(m_app).GetWindowText(caption);
    return std::wstring(caption.GetString());
}

WindowFrame ShellServices::Frame() const
{
    CRect rect;
    RequireFrame(m_app).GetWindowRect(&rect);
    return {rect.left, rect.top, rect.Width(), rect.Height()};
}

void ShellServices::SetFrame(const WindowFrame& frame)
{
    RequireFrame(m_app).MoveWindow(frame.left, frame.top, frame.width, frame.height);
}

WindowState ShellServices::State() const
{
    const CHostFrame& frame = RequireFrame(m_app);
    if (frame.IsIconic())
        return WindowState::Minimised;
    return frame.IsZoomed() ? WindowState::Maximised : WindowState::Normal;
}

void ShellServices::SetState(WindowState state)
{
    const int show = state == WindowState::Minimised   ? SW_MINIMIZE
                     : state == WindowState::Maximised ? SW_MAXIMIZE
                                                       : SW_RESTORE;
    RequireFrame(m_app).ShowWindow(show);
}

long ShellServices::WindowHandle() const
{
    return m_app.MainFrame() ? ::HandleToLong(m_app.MainFrame()->m_hWnd) : 0;
}

void ShellServices::Update()
{
    CHostFrame& frame = RequireFrame(m_app);
    frame.ShowChanges();
    frame.RedrawWindow(nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
}

bool ShellServices::IsQuiescent() const
{
    const CHostFrame& frame = RequireFrame(m_app);
    return frame.IsWindowEnabled() && !frame.IsMenuOpen();
}

void ShellServices::Quit()
{
    if (!IsQuiescent())
        throw HostError(Refusal::Busy, L"The host is busy and cannot close now.");
    RequireFrame(m_app).PostMessage(WM_CLOSE);
}

void ShellServices::LoadAddIn(const std::wstring& fileName)
{
    std::wstring reason;
    if (!m_app.Addins().Load(fileName, reason))
        throw HostError(Refusal::Invalid, fileName + L" could not be loaded. " + reason);
}

void ShellServices::UnloadAddIn(const std::wstring& fileName)
{
    std::wstring reason;
    if (!m_app.Addins().Unload(fileName, reason))
        throw HostError(Refusal::NotFound, fileName + L" could not be unloaded. " + reason);
}

std::vector<std::wstring> ShellServices::AddIns() const
{
    return m_app.Addins().FileNames();
}

} // namespace velmhost
