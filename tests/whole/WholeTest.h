// What the whole-way tests share: a running host with a real window, the real add-in, and the mouse.
#pragma once

#include <afxwin.h>

#include <filesystem>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "shell/HostApp.h"

namespace wholetest
{

// The host of this program.
velmhost::CHostApp& Host();

// The sample add-in's file.
std::filesystem::path AddinFile();

// Opens the host's window over an empty model; closes it and empties the model in the end.
class WholeTest : public testing::Test
{
protected:
    WholeTest();
    ~WholeTest() override;

    // What the host has
    velmhost::HostModel& Model() { return Host().Model(); }
    std::wstring Tree();
    const velmhost::Toolbar& ToolbarNamed(const std::wstring& name);
    const velmhost::Menu& MenuNamed(const std::wstring& name);

    // What the user does
    // Clicks through the bar, a menu and its cascades. Labels without mnemonic marks.
    void ClickMenu(const std::vector<std::wstring>& path);
    // Clicks a button of a toolbar that is shown, docked or floating, or of an open fly-out.
    void ClickButton(const std::wstring& toolbar, const std::wstring& button);
    // The labels of a menu of the window, a separator as "". The path leads through the bar and cascades.
    std::vector<std::wstring> LabelsOf(const std::vector<std::wstring>& path);

    // The add-in
    bool Load() { return Host().LoadAddin(AddinFile().wstring()); }
    bool Unload();
    // Lets the loaded add-in build from a file, or from its own resource when `file` is empty.
    int Build(const std::filesystem::path& file = {});

    // Texts that the host was sent since the last call, exactly.
    std::vector<std::wstring> TakeSent();
};

} // namespace wholetest
