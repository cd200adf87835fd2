// What the tests of the companion library share: a host without a window, and looks at it.
#pragma once

#include <afxwin.h>
#include <afxdisp.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "automation/HostAutomation.h"
#include "hostmenu/CompanionOperations.h"
#include "model/HostModel.h"

namespace companiontest
{

// A copy of what an exception of the host carries.
struct Failure
{
    WORD code = 0;
    SCODE status = S_OK;
    std::wstring source;
    std::wstring description;
    std::wstring helpFile;
    DWORD helpContext = 0;
};

// Control characters and characters beyond ASCII as \uXXXX, for the names of tests.
std::string Escaped(const std::wstring& text);

// Runs `action`; what it threw as COleDispatchException*, which is deleted. Other exceptions pass.
std::optional<Failure> FailureOf(const std::function<void()>& action);

// A host model with its automation. Asks at the end whether clients gave all references back.
class Host
{
public:
    Host() = default;
    ~Host();
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;

    velmhost::HostModel model;
    velmhost::HostAutomation automation{model};

    IDispatch* Application() { return automation.Application(); }
    const velmhost::MenuGroup& Base() const { return *model.Groups().front(); }
    // First of that exact name in the base group; null when there is none.
    const velmhost::Menu* FindMenu(const std::wstring& name) const;
    const velmhost::Toolbar* FindToolbar(const std::wstring& name) const;
    // Names in the order of the base group and of the bar.
    std::vector<std::wstring> MenuNames() const;
    std::vector<std::wstring> ToolbarNames() const;
    std::vector<std::wstring> BarNames() const;

private:
    long m_references = automation.ApplicationReferences();
};

class CompanionTest : public testing::Test
{
protected:
    Host host;

    IAcadPopupMenu NewMenu(const wchar_t* name)
    {
        return IAcadPopupMenu(Create_ACADMenu(host.Application(), name));
    }
    IAcadToolbar NewToolbar(const wchar_t* name)
    {
        return IAcadToolbar(Create_ACADToolBar(host.Application(), name));
    }
    // As the builder of descriptions calls them.
    static bool AddItem(const IAcadPopupMenu& menu, const wchar_t* label, const wchar_t* macro,
                        const wchar_t* help)
    {
        return Append_MenuItem(menu, label, macro, help, true, false);
    }
    static bool AddSeparator(const IAcadPopupMenu& menu) { return AddItem(menu, nullptr, nullptr, nullptr); }
    static bool AddButton(const IAcadToolbar& toolbar, const wchar_t* macro, const wchar_t* tooltip,
                          const wchar_t* smallImage = L"a16.bmp", const wchar_t* largeImage = L"a24.bmp")
    {
        return Append_ToolBarItem(toolbar, macro, tooltip, smallImage, largeImage, false, IAcadToolbar());
    }
    static bool AddFlyout(const IAcadToolbar& toolbar, const wchar_t* macro, const wchar_t* tooltip,
                          const IAcadToolbar& flyout)
    {
        return Append_ToolBarItem(toolbar, macro, tooltip, L"f16.bmp", L"f24.bmp", true, flyout);
    }
    // A fly-out with its button, made and filled as the builder of descriptions does it.
    IAcadToolbar NewFlyout(const IAcadToolbar& toolbar, const wchar_t* name);
};

} // namespace companiontest
