// The test program as a host: its application object offers the reference host's model, and notes message
// boxes instead of showing them.
#pragma once

#include "automation/AutomatedHostApp.h"

#include <string>
#include <string_view>
#include <vector>

namespace hostile
{

class CHostProgram : public velmhost::CAutomatedHostApp
{
public:
    // The texts of the message boxes since the last call.
    std::vector<std::wstring> TakeMessages() { return std::exchange(m_messages, {}); }

    int DoMessageBox(LPCTSTR prompt, UINT type, UINT idPrompt) override;

private:
    std::vector<std::wstring> m_messages;
};

CHostProgram& Host();

// Takes all menus and toolbars out of the host.
void EmptyHost();

// Entries of menus, toolbars and buttons that the host holds, sub-menus counted too. Throws EndlessWalk after
// `mostSteps` of them.
size_t HostElements(size_t mostSteps);

} // namespace hostile
