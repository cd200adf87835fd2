#include "automation/DispatchObject.h"
#include "automation/Registration.h"

namespace velmhost
{

namespace
{

std::wstring FolderOf(const std::wstring& fileName)
{
    const size_t end = fileName.find_last_of(L"\\/");
    return end == std::wstring::npos ? std::wstring() : fileName.substr(0, end);
}

[[noreturn]] void RefuseWithoutWindow()
{
    throw HostError(Refusal::NotSupported, L"The host runs without a window.");
}

HostShell& RequireShell(const DispatchObject& self)
{
    self.Model(); // throws after the host's end
    if (HostShell* shell = self.State().shell)
        return *shell;
    RefuseWithoutWindow();
}

// Null when the host runs without a window.
const HostShell* ShellOf(const DispatchObject& self)
{
    self.Model();
    return self.State().shell;
}

WindowFrame FrameOf(const DispatchObject& self)
{
    const HostShell* shell = ShellOf(self);
    return shell ? shell->Frame() : WindowFrame();
}

template <long WindowFrame::*Side>
void GetSide(DispatchObject& self, DispatchCall& call)
{
    call.Return(FrameOf(self).*Side);
}

template <long WindowFrame::*Side>
void PutSide(DispatchObject& self, DispatchCall& call)
{
    HostShell& shell = RequireShell(self);
    WindowFrame frame = shell.Frame();
    frame.*Side = call.Number();
    shell.SetFrame(frame);
}

template <long WindowFrame::*Side>
Member SideProperty(const wchar_t* name, DISPID id)
{
    return Property(name, id, ArgumentType::Number, GetSide<Side>, PutSide<Side>);
}

void PutWindowState(DispatchObject& self, DispatchCall& call)
{
    const long state = call.Number();
    if (state < static_cast<long>(WindowState::Normal) || state > static_cast<long>(WindowState::Maximised))
        throw HostError(Refusal::Invalid, L"A window is normal (1), minimised (2) or maximised (3).");
    RequireShell(self).SetState(static_cast<WindowState>(state));
}

void RefuseDocuments(DispatchObject&, DispatchCall&)
{
    throw HostError(Refusal::NotSupported, L"This host has no documents.");
}

void RefusePreferences(DispatchObject&, DispatchCall&)
{
    throw HostError(Refusal::NotSupported, L"This host has no preferences.");
}

void RefuseMacros(DispatchObject&, DispatchCall&)
{
    throw HostError(Refusal::NotSupported, L"This host runs no projects of macros.");
}

void RefuseObjects(DispatchObject&, DispatchCall&)
{
    throw HostError(Refusal::NotSupported, L"This host creates no objects of other programs.");
}

std::vector<Member> ApplicationMembers()
{
    using D = DispatchObject;
    using C = DispatchCall;
    return {
        Property(
            L"Visible", 1, ArgumentType::Flag,
            [](D& self, C& call) {
                const HostShell* shell = ShellOf(self);
                call.Return(shell && shell->IsVisible());
            },
            [](D& self, C& call) { RequireShell(self).SetVisible(call.Flag()); }),
        Property(L"Name", 2, [](D&, C& call) { call.Return(kHostName); }),
        Property(L"Caption", 3,
                 [](D& self, C& call) {
                     const HostShell* shell = ShellOf(self);
                     call.Return(shell ? shell->Caption() : std::wstring(kHostName));
                 }),
        Property(L"Application", 4, [](D& self, C& call) { call.Return(ApplicationOf(self)); }),
        Property(L"ActiveDocument", 5, ArgumentType::Object, RefuseDocuments, RefuseDocuments),
        Property(L"FullName", 6, [](D&, C& call) { call.Return(HostProgramFile()); }),
        SideProperty<&WindowFrame::height>(L"Height", 7),
        SideProperty<&WindowFrame::left>(L"WindowLeft", 8),
        Property(L"Path", 9, [](D&, C& call) { call.Return(FolderOf(HostProgramFile())); }),
        Property(L"LocaleId", 10, [](D&, C& call) { call.Return(static_cast<long>(GetUserDefaultLCID())); }),
        SideProperty<&WindowFrame::top>(L"WindowTop", 11),
        Property(L"Version", 12, [](D&, C& call) { call.Return(kHostVersion); }),
        SideProperty<&WindowFrame::width>(L"Width", 13),
        Property(L"Preferences", 14, RefusePreferences),
        Method(L"ListArx", 18, {},
               [](D& self, C& call) {
                   const HostShell* shell = ShellOf(self);
                   call.Return(shell ? shell->AddIns() : std::vector<std::wstring>());
               }),
        Method(L"LoadArx", 19, {{L"Name", ArgumentType::Text}},
               [](D& self, C& call) { RequireShell(self).LoadAddIn(call.Text()); }),
        Method(L"GetInterfaceObject", 20, {{L"ProgID", ArgumentType::Text}}, RefuseObjects),
        Method(L"UnloadArx", 23, {{L"Name", ArgumentType::Text}},
               [](D& self, C& call) { RequireShell(self).UnloadAddIn(call.Text()); }),
        Method(L"Update", 24, {}, [](D& self, C&) { RequireShell(self).Update(); }),
        Method(L"Quit", 25, {}, [](D& self, C&) { RequireShell(self).Quit(); }),
        Property(L"MenuGroups", 28,
                 [](D& self, C& call) {
                     self.Model();
                     call.Return(ObjectFor(self, MenuGroupsClass(), 0));
                 }),
        Property(L"MenuBar", 29,
                 [](D& self, C& call) {
                     self.Model();
                     call.Return(ObjectFor(self, MenuBarClass(), 0));
                 }),
        Property(L"Documents", 32, RefuseDocuments),
        Property(
            L"WindowState", 34, ArgumentType::Number,
            [](D& self, C& call) {
                const HostShell* shell = ShellOf(self);
                call.Return(static_cast<long>(shell ? shell->State() : WindowState::Normal));
            },
            PutWindowState),
        Method(L"RunMacro", 35, {{L"path", ArgumentType::Text}}, RefuseMacros),
        Method(L"GetAcadState", 42, {},
               [](D& self, C& call) {
                   self.Model();
                   call.Return(ObjectFor(self, AcadStateClass(), 0));
               }),
        Property(L"HWND", 44,
                 [](D& self, C& call) {
                     const HostShell* shell = ShellOf(self);
                     call.Return(shell ? shell->WindowHandle() : 0L);
                 }),
    };
}

} // namespace

const ClassTable& ApplicationClass()
{
    static const ClassTable table(L"Application", nullptr, nullptr, ApplicationMembers());
    return table;
}

const ClassTable& AcadStateClass()
{
    static const ClassTable table(
        L"AcadState", [](const DispatchObject& self) { return ApplicationOf(self); }, nullptr,
        {Property(L"IsQuiescent", MemberId(0x02), [](DispatchObject& self, DispatchCall& call) {
            const HostShell* shell = ShellOf(self);
            call.Return(!shell || shell->IsQuiescent());
        })});
    return table;
}

} // namespace velmhost
