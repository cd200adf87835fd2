// What automation clients reach of the shell.
#pragma once

#include "model/HostShell.h"

namespace velmhost
{

class CHostApp;

// Answers the automation layer for the main window and the add-ins of a running host. Members that need the
// window refuse while there is none.
class ShellServices : public HostShell
{
    // Construction
public:
    explicit ShellServices(CHostApp& app) : m_app(app) {}

    // Overridables
public:
    bool IsVisible() const override;
    void SetVisible(bool visible) override;
    std::wstring Caption() const override;
    WindowFrame Frame() const override;
    void SetFrame(const WindowFrame& frame) override;
    WindowState State() const override;
    void SetState(WindowState state) override;
    long WindowHandle() const override;
    void Update() override;
    // False while something modal has the main window disabled, or a menu is open.
    bool IsQuiescent() const override;
    void Quit() override;
    void LoadAddIn(const std::wstring& fileName) override;
    void UnloadAddIn(const std::wstring& fileName) override;
    std::vector<std::wstring> AddIns() const override;

    // Implementation
private:
    CHostApp& m_app;
};

} // namespace velmhost
