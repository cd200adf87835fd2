// Clients in other processes: a script and a small program. The test program is the host meanwhile.

#include "AutomationFixture.h"
#include "automation/Registration.h"
#include "kit/Files.h"
#include "kit/LeakGate.h"
#include "kit/Pump.h"
#include "model/ModelPrinter.h"

#include <gtest/gtest.h>

#include <memory>

using namespace hosttest;
using namespace velmhost;

namespace
{

// Runs a program and handles messages, so that it can call this one, until it ends. Returns its exit
// code, or -1 when it did not start or did not end in time.
long RunWhilePumping(std::wstring commandLine)
{
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    if (!CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup,
                        &process))
        return -1;
    CloseHandle(process.hThread);
    const auto ended = [&] { return WaitForSingleObject(process.hProcess, 0) == WAIT_OBJECT_0; };
    DWORD code = static_cast<DWORD>(-1);
    if (testkit::PumpUntil(ended, 40000))
        GetExitCodeProcess(process.hProcess, &code);
    else
        TerminateProcess(process.hProcess, 1);
    CloseHandle(process.hProcess);
    return static_cast<long>(code);
}

// Runs the script that builds menus and toolbars; 1 means that it saw a difference.
long RunScript()
{
    const std::wstring script = testkit::ProgramFolder() / L"host_scripts" / L"menus_and_toolbars.vbs";
    return RunWhilePumping(L"cscript.exe //nologo \"" + script + L"\"");
}

class OtherProcess : public AutomationFixture
{
protected:
    static void SetUpTestSuite()
    {
        ASSERT_EQ(OleInitialize(nullptr), S_OK);
        MakeClassTables();
    }
    static void TearDownTestSuite() { OleUninitialize(); }

    void SetUp() override
    {
        AddReadyMenu();
        ASSERT_EQ(RegisterHostClass(HostProgramFile()), S_OK);
        m_registration = std::make_unique<HostRegistration>(m_automation->Application());
        ASSERT_EQ(m_registration->Result(), S_OK);
    }
    void TearDown() override
    {
        m_registration.reset();
        EXPECT_EQ(UnregisterHostClass(), S_OK);
        if (m_clientReleases) {
            AutomationFixture::TearDown();
        }
    }

    // What the script expects to find.
    void AddReadyMenu()
    {
        const ElementId group = m_model.Groups()[0]->id;
        const ElementId menu = m_model.AddMenu(group, L"&Ready").id;
        m_model.AddMenuItem(menu, kAtEnd, L"First", L"_first ");
        m_model.InsertInMenuBar(menu, kAtEnd);
        m_model.AddToolbar(group, L"Ready");
    }

    std::unique_ptr<HostRegistration> m_registration;
    bool m_clientReleases = true;
};

} // namespace

TEST_F(OtherProcess, ScriptReadsAndBuildsMenusAndToolbars)
{
    ASSERT_EQ(RunScript(), 0);
    EXPECT_EQ(PrintModel(m_model),
              L"menu bar: \"&Ready\" \"&Script\"\n"
              L"large buttons: no\n"
              L"group \"BASE\" base\n"
              L"  menu \"&Ready\" on bar\n"
              L"    item \"First\" macro \"_first \"\n"
              L"  menu \"&Script\" on bar\n"
              L"    item \"&Line\" macro \"^C^C_line \" help \"Draws a line\" checked\n"
              L"    separator\n"
              L"    submenu \"&More\"\n"
              L"      item \"First\" macro \"_first \"\n"
              L"      item \"Second\" macro \"_second \"\n"
              L"  toolbar \"Ready\" visible floating\n"
              L"  toolbar \"ScriptDrop\" hidden floating\n"
              L"    button \"Circle\" macro \"^C^C_circle \" help \"Draws a circle\"\n"
              L"  toolbar \"Script\" visible top\n"
              L"    button \"Line\" macro \"^C^C_line \" help \"Draws a line\" bitmaps \"small.bmp\""
              L" \"large.bmp\"\n"
              L"    separator\n"
              L"    flyout \"More\" macro \"x\" help \"Opens more\" opens \"ScriptDrop\"\n");
}

TEST_F(OtherProcess, ScriptFailsWhenTheModelDiffers)
{
    m_clientReleases = false;
    testkit::AllowGrowth(testkit::HeapBlocks, 40, "the script ends itself with objects in its hands");
    m_model.AddMenu(m_model.Groups()[0]->id, L"&Another");
    EXPECT_EQ(RunScript(), 1);
}

TEST_F(OtherProcess, ClientFindsTheRunningHost)
{
    const std::wstring client = testkit::ProgramFolder() / L"host_client.exe";
    ASSERT_EQ(RunWhilePumping(L"\"" + client + L"\""), 0);
    EXPECT_EQ(PrintModel(m_model), L"menu bar: \"&Client\" \"&Ready\"\n"
                                   L"large buttons: no\n"
                                   L"group \"BASE\" base\n"
                                   L"  menu \"&Ready\" on bar\n"
                                   L"    item \"First\" macro \"_first \"\n"
                                   L"  menu \"&Client\" on bar\n"
                                   L"    item \"Item\" macro \"^C_item \"\n"
                                   L"  toolbar \"Ready\" visible floating\n"
                                   L"  toolbar \"Client\" visible floating\n");
}

TEST_F(OtherProcess, RevokedHostIsNotFound)
{
    m_registration.reset();
    IUnknown* running = nullptr;
    EXPECT_EQ(GetActiveObject(CLSID_VelmHostApplication, nullptr, &running), MK_E_UNAVAILABLE);
    EXPECT_EQ(running, nullptr);
    EXPECT_EQ(m_automation->ApplicationReferences(), 0);
}

TEST_F(OtherProcess, RegistryNamesTheClassAndLosesIt)
{
    CLSID classId{};
    EXPECT_EQ(CLSIDFromProgID(L"VelmHost.Application", &classId), S_OK);
    EXPECT_EQ(classId, CLSID_VelmHostApplication);
    EXPECT_EQ(CLSIDFromProgID(L"VelmHost.Application.22", &classId), S_OK);
    EXPECT_EQ(classId, CLSID_VelmHostApplication);
    EXPECT_EQ(UnregisterHostClass(), S_OK);
    EXPECT_TRUE(FAILED(CLSIDFromProgID(L"VelmHost.Application", &classId)));
    EXPECT_TRUE(FAILED(CLSIDFromProgID(L"VelmHost.Application.22", &classId)));
    EXPECT_EQ(UnregisterHostClass(), S_OK);
}
