// What the automation layer asks of the host's window and add-in loader.
#pragma once

#include <string>
#include <vector>

#include "model/HostElements.h"

namespace velmhost
{

// The numbers are those that automation clients see.
enum class WindowState
{
    Normal = 1,
    Minimised = 2,
    Maximised = 3
};

// Place of the main window on the screen, in pixels.
struct WindowFrame
{
    long left = 0;
    long top = 0;
    long width = 0;
    long height = 0;
};

// Implemented by the shell, called on the thread of the model. Members that cannot do what they are
// asked throw HostError, whose description goes to the client.
class HostShell
{
public:
    virtual bool IsVisible() const = 0;
    virtual void SetVisible(bool visible) = 0;
    virtual std::wstring Caption() const = 0;
    virtual WindowFrame Frame() const = 0;
    virtual void SetFrame(const WindowFrame& frame) = 0;
    virtual WindowState State() const = 0;
    virtual void SetState(WindowState state) = 0;
    // The handle of the main window, in its 32 significant bits; 0 when there is none.
    virtual long WindowHandle() const = 0;
    // Redraws what is waiting to be redrawn.
    virtual void Update() = 0;
    // True when no command is running.
    virtual bool IsQuiescent() const = 0;
    // Begins to close the host; the caller may be answered before it has closed. Refusal::Busy while a
    // command is running.
    virtual void Quit() = 0;

    virtual void LoadAddIn(const std::wstring& fileName) = 0;
    virtual void UnloadAddIn(const std::wstring& fileName) = 0;
    // File names of the loaded add-ins, in order of loading.
    virtual std::vector<std::wstring> AddIns() const = 0;

protected:
    ~HostShell() = default;
};

} // namespace velmhost
