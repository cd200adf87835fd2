// The host's shell in the test program, opened for each test over an otherwise empty model.
#pragma once

#include <afxwin.h>
#include <afxcmn.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "shell/HostApp.h"

namespace hosttest
{

class ShellFixture : public testing::Test
{
protected:
    static void SetUpTestSuite();
    ShellFixture();
    ~ShellFixture() override;

    // Opens the shell with other options than the usual ones: visible, unregistered, nobody to be asked.
    void Reopen(const velmhost::ShellOptions& options, int showCommand = SW_SHOW);
    static velmhost::ShellOptions QuietOptions();

    velmhost::CHostApp& App();
    velmhost::CHostFrame& Frame();
    velmhost::HostModel& Model();
    const std::vector<std::wstring>& Sent() { return App().SentTexts(); }
    bool RunSteps(const std::vector<velmhost::Step>& steps) { return App().RunSteps(steps); }

    velmhost::ElementId Base();
    // A menu at the right end of the bar.
    velmhost::ElementId AddBarMenu(const wchar_t* name);
    velmhost::ElementId AddItem(velmhost::ElementId menu, const wchar_t* label,
                                const wchar_t* macro = L"macro ", const wchar_t* help = L"");
    // The sub-menu itself.
    velmhost::ElementId AddSubMenu(velmhost::ElementId menu, const wchar_t* label);
    velmhost::ElementId AddToolbar(const wchar_t* name);
    velmhost::ElementId AddButton(velmhost::ElementId toolbar, const wchar_t* name,
                                  const wchar_t* macro = L"macro ", const wchar_t* help = L"");
    // A fly-out button that opens a toolbar of the base group, which it hides.
    velmhost::ElementId AddFlyout(velmhost::ElementId toolbar, const wchar_t* name,
                                  velmhost::ElementId opened);

    // Shows the model's changes and lets everything be painted.
    void Show();
    // The pane of a toolbar that is docked or floats; fails the test when there is none.
    velmhost::CToolbarPane& Pane(velmhost::ElementId toolbar);
    // The middle of a button on the screen.
    CPoint ButtonPoint(const velmhost::CToolbarPane& pane, velmhost::ElementId item);
    // Clicks a button with the mouse and handles what comes of it.
    void Click(const velmhost::CToolbarPane& pane, velmhost::ElementId item);
    // Takes the mouse where it touches no control: to the middle of the drawing area.
    void ParkMouse();

private:
    static void EmptyModel();
};

// Writes a bitmap file of 24 bits for each pixel.
void WriteBitmap(const std::filesystem::path& file, int width, int height,
                 const std::function<COLORREF(int x, int y)>& colour);

} // namespace hosttest
