// The reference host inside this program, without a window.
#pragma once

#include <string>
#include <vector>

#include "automation/AutomatedHostApp.h"

namespace velmmenu
{

// The program's application object. The library and its companion find it as any host's, by the export
// acedGetAcadWinApp, and build into its model.
class CToolHost : public velmhost::CAutomatedHostApp
{
public:
    // Hands the text to Append_MenuToolBar, once in the life of the program. Returns the texts of the
    // message boxes that this would have shown.
    std::vector<std::wstring> Build(const std::wstring& text);

    // What was built; null where it was not.
    const velmhost::Menu* BuiltMenu();
    const velmhost::Toolbar* BuiltToolBar();

    // The name of a bitmap file within its folder, from what a button of the model says.
    static std::wstring BitmapName(const std::wstring& modelName);

    int DoMessageBox(LPCTSTR prompt, UINT type, UINT idPrompt) override;

private:
    std::vector<std::wstring> m_messages;
};

CToolHost& Host();

} // namespace velmmenu
