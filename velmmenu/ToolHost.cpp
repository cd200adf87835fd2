#include "ToolHost.h"

#include "frame/ModulePath.h"
#include "hostmenu/Entries.h"
#include "hostmenu/MenuToolBar.h"

namespace
{

velmmenu::CToolHost theApp;

// The folder that the library puts before the name of every bitmap: no module's name means the program.
std::wstring BitmapFolder()
{
    return std::wstring((GetProjectPath(nullptr) + ImageFolder + L"\\").GetString());
}

} // namespace

// What the library finds the host by.
extern "C" __declspec(dllexport) CWinApp* acedGetAcadWinApp()
{
    return &theApp;
}

namespace velmmenu
{

CToolHost& Host()
{
    return theApp;
}

std::vector<std::wstring> CToolHost::Build(const std::wstring& text)
{
    m_messages.clear();
    Append_MenuToolBar(CString(text.c_str()), nullptr);
    return m_messages;
}

const velmhost::Menu* CToolHost::BuiltMenu()
{
    const auto& bar = Model().MenuBar();
    return bar.empty() ? nullptr : bar.front();
}

const velmhost::Toolbar* CToolHost::BuiltToolBar()
{
    const auto& toolbars = Model().Groups().front()->toolbars;
    return toolbars.empty() ? nullptr : toolbars.front().get();
}

std::wstring CToolHost::BitmapName(const std::wstring& modelName)
{
    const std::wstring folder = BitmapFolder();
    return modelName.starts_with(folder) ? modelName.substr(folder.size()) : modelName;
}

int CToolHost::DoMessageBox(LPCTSTR prompt, UINT, UINT)
{
    m_messages.emplace_back(prompt);
    return IDOK;
}

} // namespace velmmenu
