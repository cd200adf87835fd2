#include "AutomationFixture.h"
#include "FailingMemory.h"
#include "kit/Files.h"

#include <optional>

using namespace hosttest;
using namespace velmhost;

namespace
{

class RecordingShell : public HostShell
{
public:
    bool IsVisible() const override { return m_visible; }
    void SetVisible(bool visible) override { m_visible = visible; }
    std::wstring Caption() const override { return L"Velm Host - shell"; }
    WindowFrame Frame() const override { return m_frame; }
    void SetFrame(const WindowFrame& frame) override { m_frame = frame; }
    WindowState State() const override { return m_state; }
    void SetState(WindowState state) override { m_state = state; }
    long WindowHandle() const override { return 0x1234; }
    void Update() override { m_seen += L"update "; }
    bool IsQuiescent() const override { return !m_busy; }
    void Quit() override
    {
        if (m_busy)
            throw HostError(Refusal::Busy, L"A command is running.");
        m_seen += L"quit ";
    }
    void LoadAddIn(const std::wstring& fileName) override { m_addIns.push_back(fileName); }
    void UnloadAddIn(const std::wstring& fileName) override
    {
        if (std::erase(m_addIns, fileName) == 0)
            throw HostError(Refusal::NotFound, L"No such add-in is loaded.");
    }
    std::vector<std::wstring> AddIns() const override { return m_addIns; }

    bool m_visible = false;
    bool m_busy = false;
    WindowFrame m_frame{10, 20, 300, 200};
    WindowState m_state = WindowState::Normal;
    std::wstring m_seen;
    std::vector<std::wstring> m_addIns;
};

using AutomationApplication = AutomationFixture;

class AutomationShell : public AutomationFixture
{
protected:
    AutomationShell() { m_automation->SetShell(&m_shell); }

    RecordingShell m_shell;
};

} // namespace

TEST_F(AutomationApplication, SaysWhatItIs)
{
    EXPECT_EQ(App().Get(L"Name").Text(), L"Velm Host");
    EXPECT_EQ(App().Get(L"Version").Text(), L"22.0");
    EXPECT_EQ(Object(App().Get(L"Application")), App());
    EXPECT_EQ(App().Get(L"LocaleId").Number(), static_cast<long>(GetUserDefaultLCID()));
}

TEST_F(AutomationApplication, NamesItsProgramFile)
{
    const std::wstring folder = App().Get(L"Path").Text();
    EXPECT_EQ(std::filesystem::path(folder), testkit::ProgramFolder());
    EXPECT_EQ(App().Get(L"FullName").Text(), folder + L"\\host_tests.exe");
}

TEST_F(AutomationApplication, LeadsToGroupsAndBar)
{
    EXPECT_EQ(Groups().Get(L"Count").Number(), 1);
    EXPECT_EQ(Bar().Get(L"Count").Number(), 0);
    EXPECT_EQ(Object(Groups().Get(L"Parent")), App());
    EXPECT_EQ(Object(Bar().Get(L"Parent")), App());
    EXPECT_EQ(Object(Bar().Get(L"Application")), App());
}

TEST_F(AutomationApplication, WithoutShellReadsAsAHiddenWindow)
{
    EXPECT_FALSE(App().Get(L"Visible").Flag());
    EXPECT_EQ(App().Get(L"Caption").Text(), L"Velm Host");
    for (const wchar_t* name : {L"Width", L"Height", L"WindowLeft", L"WindowTop", L"HWND"})
        EXPECT_EQ(App().Get(name).Number(), 0) << name;
    EXPECT_EQ(App().Get(L"WindowState").Number(), 1);
    EXPECT_TRUE(Object(App().Call(L"GetAcadState")).Get(L"IsQuiescent").Flag());
    const Outcome addIns = App().Call(L"ListArx");
    ASSERT_EQ(addIns.value.vt, VT_ARRAY | VT_VARIANT);
    EXPECT_EQ(addIns.value.parray->rgsabound[0].cElements, 0u);
}

TEST_F(AutomationApplication, WithoutShellRefusesToActOnTheWindow)
{
    ExpectRefused(App().Put(L"Visible", true), E_NOTIMPL);
    ExpectRefused(App().Put(L"Width", 10L), E_NOTIMPL);
    ExpectRefused(App().Put(L"WindowState", 3L), E_NOTIMPL);
    ExpectRefused(App().Call(L"Update"), E_NOTIMPL);
    ExpectRefused(App().Call(L"Quit"), E_NOTIMPL);
    ExpectRefused(App().Call(L"LoadArx", L"x.arx"), E_NOTIMPL);
    ExpectRefused(App().Call(L"UnloadArx", L"x.arx"), E_NOTIMPL);
}

TEST_F(AutomationApplication, RefusesWhatTheHostDoesNotHave)
{
    ExpectRefused(App().Get(L"ActiveDocument"), E_NOTIMPL);
    ExpectRefused(App().Put(L"ActiveDocument", _variant_t(App().Raw())), E_NOTIMPL);
    ExpectRefused(App().Get(L"Documents"), E_NOTIMPL);
    ExpectRefused(App().Get(L"Preferences"), E_NOTIMPL);
    ExpectRefused(App().Call(L"RunMacro", L"x"), E_NOTIMPL);
    ExpectRefused(App().Call(L"GetInterfaceObject", L"x.y"), E_NOTIMPL);
}

TEST_F(AutomationShell, WindowIsTheShells)
{
    EXPECT_EQ(App().Get(L"Caption").Text(), L"Velm Host - shell");
    EXPECT_EQ(App().Get(L"HWND").Number(), 0x1234);
    EXPECT_EQ(App().Put(L"Visible", true).result, S_OK);
    EXPECT_TRUE(m_shell.m_visible);
    EXPECT_TRUE(App().Get(L"Visible").Flag());
    EXPECT_EQ(App().Call(L"Update").result, S_OK);
    EXPECT_EQ(m_shell.m_seen, L"update ");
}

TEST_F(AutomationShell, EachSideOfTheWindowIsSetAlone)
{
    EXPECT_EQ(App().Get(L"WindowLeft").Number(), 10);
    EXPECT_EQ(App().Get(L"WindowTop").Number(), 20);
    EXPECT_EQ(App().Get(L"Width").Number(), 300);
    EXPECT_EQ(App().Get(L"Height").Number(), 200);
    App().Put(L"Width", 640L);
    EXPECT_EQ(m_shell.m_frame.width, 640);
    EXPECT_EQ(m_shell.m_frame.height, 200);
    App().Put(L"Height", 480L);
    App().Put(L"WindowLeft", 1L);
    App().Put(L"WindowTop", 2L);
    EXPECT_EQ(m_shell.m_frame.left, 1);
    EXPECT_EQ(m_shell.m_frame.top, 2);
    EXPECT_EQ(m_shell.m_frame.width, 640);
    EXPECT_EQ(m_shell.m_frame.height, 480);
}

TEST_F(AutomationShell, WindowStateTakesOneToThree)
{
    EXPECT_EQ(App().Put(L"WindowState", 3L).result, S_OK);
    EXPECT_EQ(m_shell.m_state, WindowState::Maximised);
    EXPECT_EQ(App().Get(L"WindowState").Number(), 3);
    ExpectRefused(App().Put(L"WindowState", 0L), E_INVALIDARG);
    ExpectRefused(App().Put(L"WindowState", 4L), E_INVALIDARG);
}

TEST_F(AutomationShell, QuitIsRefusedWhileBusy)
{
    m_shell.m_busy = true;
    ExpectRefused(App().Call(L"Quit"), RPC_E_SERVERCALL_RETRYLATER);
    EXPECT_FALSE(Object(App().Call(L"GetAcadState")).Get(L"IsQuiescent").Flag());
    m_shell.m_busy = false;
    EXPECT_EQ(App().Call(L"Quit").result, S_OK);
    EXPECT_EQ(m_shell.m_seen, L"quit ");
}

TEST_F(AutomationShell, RefusalGoesOutWithoutMemory)
{
    if (!FailingMemory::IsPossible())
        GTEST_SKIP() << "this build's memory cannot be made to fail";
    // Refuses with a text that is short enough to need no memory, and leaves none.
    class ExhaustingShell : public RecordingShell
    {
    public:
        void Quit() override
        {
            m_failing.emplace();
            throw HostError(Refusal::Busy, L"busy");
        }
        std::optional<FailingMemory> m_failing;
    };
    ExhaustingShell shell;
    m_automation->SetShell(&shell);
    const Object app = App();
    const DISPID quit = app.IdOf(L"Quit");
    DISPPARAMS none{};
    EXCEPINFO exception{};
    const HRESULT result =
        app.Raw()->Invoke(quit, IID_NULL, 0, DISPATCH_METHOD, &none, nullptr, &exception, nullptr);
    shell.m_failing.reset();
    EXPECT_EQ(result, DISP_E_EXCEPTION);
    EXPECT_EQ(exception.scode, RPC_E_SERVERCALL_RETRYLATER);
    EXPECT_STREQ(exception.bstrDescription, L"busy");
    EXPECT_STREQ(exception.bstrSource, L"VelmHost.Application");
    SysFreeString(exception.bstrDescription);
    SysFreeString(exception.bstrSource);
    m_automation->SetShell(nullptr);
}

TEST_F(AutomationShell, ShellThatWentIsAsNone)
{
    m_automation->SetShell(nullptr);
    EXPECT_EQ(App().Get(L"Caption").Text(), L"Velm Host");
    EXPECT_EQ(App().Get(L"Width").Number(), 0);
    ExpectRefused(App().Call(L"Update"), E_NOTIMPL);
}

TEST_F(AutomationShell, AddInsAreLoadedListedAndUnloaded)
{
    EXPECT_EQ(App().Call(L"LoadArx", L"a.arx").result, S_OK);
    EXPECT_EQ(App().Call(L"LoadArx", L"b.arx").result, S_OK);
    const Outcome list = App().Call(L"ListArx");
    ASSERT_EQ(list.value.vt, VT_ARRAY | VT_VARIANT);
    ASSERT_EQ(list.value.parray->rgsabound[0].cElements, 2u);
    const auto* names = static_cast<const VARIANT*>(list.value.parray->pvData);
    ASSERT_EQ(names[1].vt, VT_BSTR);
    EXPECT_STREQ(names[1].bstrVal, L"b.arx");
    EXPECT_EQ(App().Call(L"UnloadArx", L"a.arx").result, S_OK);
    EXPECT_EQ(m_shell.m_addIns, std::vector<std::wstring>{L"b.arx"});
    ExpectRefused(App().Call(L"UnloadArx", L"a.arx"), DISP_E_BADINDEX);
}

TEST_F(AutomationApplication, ObjectsOutliveTheHostAndFail)
{
    const Object app = App(), groups = Groups(), menu = AddMenu(), item = AddItem(menu, L"a");
    const Object toolbars = Toolbars();
    m_automation.reset();
    for (const Outcome& outcome :
         {groups.Get(L"Count"), menu.Get(L"Name"), menu.Get(L"Application"), item.Put(L"Label", L"x"),
          toolbars.Call(L"Add", L"x"), app.Call(L"Quit"), app.Call(L"RunMacro", L"x"), app.Call(L"ListArx")})
        ExpectRefused(outcome, RPC_E_DISCONNECTED);
    for (const wchar_t* property : {L"Visible", L"Name", L"Caption", L"Application", L"ActiveDocument",
                                    L"FullName", L"Path", L"LocaleId", L"Version", L"Preferences",
                                    L"MenuGroups", L"MenuBar", L"Documents", L"WindowState", L"HWND"})
    {
        SCOPED_TRACE(property);
        ExpectRefused(app.Get(property), RPC_E_DISCONNECTED);
    }
}
