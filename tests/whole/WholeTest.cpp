#include "WholeTest.h"

#include <stdexcept>

#include "kit/Files.h"
#include "kit/Input.h"
#include "kit/MenuDriver.h"
#include "kit/Pump.h"
#include "model/ModelPrinter.h"

namespace
{

velmhost::CHostApp theApp;

}

// What add-ins find the host's application object by.
extern "C" __declspec(dllexport) CWinApp* acedGetAcadWinApp()
{
    return &theApp;
}

namespace wholetest
{

using velmhost::CToolbarPane;

namespace
{

// A model has no way to forget all; a new base group takes the place of the old one and all it holds.
void EmptyModel()
{
    theApp.Model().AddGroup(L"BASE", velmhost::MenuGroupType::Base, L"");
}

void OpenHost()
{
    EmptyModel();
    velmhost::ShellOptions options;
    options.noRegister = true;
    options.width = 900;
    options.height = 640;
    if (!theApp.OpenShell(options, SW_SHOW))
        throw std::runtime_error("the host's window cannot be opened");
}

void CloseHost()
{
    theApp.CloseShell();
    testkit::PumpPending();
    theApp.Automation().FailInvoke(0, {});
    theApp.ForgetTexts();
    EmptyModel();
}

// The one host of the program keeps what grew in it: lists, tables of its automation's classes, texts. Once
// used more than any test does, it grows no more, so that the tests' own leaks can be told.
class UsedHost : public testing::Environment
{
public:
    void SetUp() override
    {
        OpenHost();
        theApp.LoadAddin(AddinFile().wstring());
        velmhost::HostModel& model = theApp.Model();
        for (int i = 0; i < 8; ++i) {
            const std::wstring name = L"Menu " + std::to_wstring(i);
            model.InsertInMenuBar(model.AddMenu(model.Groups().front()->id, name).id, velmhost::kAtEnd);
            theApp.MainFrame()->SendToCommandLine(name);
        }
        velmhost::InvokeFault fault;
        fault.description.assign(200, L'x');
        theApp.Automation().FailInvoke(0, fault);
        theApp.MainFrame()->ShowChanges();
        testkit::PumpPending();
        CloseHost();
    }
};

testing::Environment* const usedHost = testing::AddGlobalTestEnvironment(new UsedHost);

template <class List>
const auto& Named(const List& list, const std::wstring& name)
{
    for (const auto& element : list) {
        if (element->name == name)
            return *element;
    }
    throw std::runtime_error("the host has nothing of that name");
}

} // namespace

velmhost::CHostApp& Host()
{
    return theApp;
}

std::filesystem::path AddinFile()
{
    return testkit::ProgramFolder() / L"SampleAddin.arx";
}

WholeTest::WholeTest()
{
    OpenHost();
    theApp.MainFrame()->SetForegroundWindow();
    testkit::PumpPending();
}

WholeTest::~WholeTest()
{
    CloseHost();
    EXPECT_EQ(0, theApp.Automation().ApplicationReferences()) << "references to the application";
    EXPECT_EQ(0, theApp.Automation().LiveObjects()) << "objects of the host are still held";
}

std::wstring WholeTest::Tree()
{
    return velmhost::PrintModel(Model());
}

const velmhost::Toolbar& WholeTest::ToolbarNamed(const std::wstring& name)
{
    return Named(Model().Groups().front()->toolbars, name);
}

const velmhost::Menu& WholeTest::MenuNamed(const std::wstring& name)
{
    return Named(Model().Groups().front()->menus, name);
}

void WholeTest::ClickMenu(const std::vector<std::wstring>& path)
{
    theApp.MainFrame()->ShowChanges();
    testkit::MenuDriver driver(theApp.MainFrame()->m_hWnd);
    EXPECT_TRUE(driver.Choose(path)) << testing::PrintToString(driver.Problem());
    testkit::PumpPending();
}

void WholeTest::ClickButton(const std::wstring& toolbarName, const std::wstring& buttonName)
{
    velmhost::CHostFrame& frame = *theApp.MainFrame();
    frame.ShowChanges();
    testkit::PumpPending();
    const velmhost::Toolbar& toolbar = ToolbarNamed(toolbarName);
    CToolbarPane* pane = frame.Toolbars().FindPane(toolbar.id);
    if (!pane)
        pane = frame.Toolbars().Flyouts().Find(toolbar.id);
    ASSERT_NE(nullptr, pane) << "the toolbar is not on the screen";
    const velmhost::ToolbarItem& button = Named(toolbar.items, buttonName);
    const CRect place = pane->ButtonRect(pane->PositionOf(button.id));
    ASSERT_FALSE(place.IsRectEmpty());
    const unsigned done = frame.ButtonsDone();
    ASSERT_TRUE(testkit::Mouse::Click(place.CenterPoint()));
    ASSERT_TRUE(testkit::PumpUntil([&] { return frame.ButtonsDone() != done; }));
    testkit::PumpPending();
}

std::vector<std::wstring> WholeTest::LabelsOf(const std::vector<std::wstring>& path)
{
    theApp.MainFrame()->ShowChanges();
    HMENU menu = ::GetMenu(theApp.MainFrame()->m_hWnd);
    for (const std::wstring& name : path) {
        HMENU next = nullptr;
        for (int i = 0; i < ::GetMenuItemCount(menu); ++i) {
            if (testkit::ItemText(menu, i) == name)
                next = ::GetSubMenu(menu, i);
        }
        if (!next)
            throw std::runtime_error("the window has no such menu");
        menu = next;
    }
    std::vector<std::wstring> labels;
    for (int i = 0; i < ::GetMenuItemCount(menu); ++i)
        labels.push_back(testkit::ItemText(menu, i));
    return labels;
}

bool WholeTest::Unload()
{
    std::wstring reason;
    return theApp.Addins().Unload(AddinFile().wstring(), reason);
}

int WholeTest::Build(const std::filesystem::path& file)
{
    const HMODULE module = ::GetModuleHandleW(L"SampleAddin.arx");
    using BuildFunction = int(const wchar_t*);
    const auto build =
        reinterpret_cast<BuildFunction*>(reinterpret_cast<void*>(::GetProcAddress(module, "AddInBuild")));
    if (!build)
        throw std::runtime_error("the add-in is not loaded");
    return build(file.empty() ? nullptr : file.c_str());
}

std::vector<std::wstring> WholeTest::TakeSent()
{
    const std::vector<std::wstring> sent = theApp.SentTexts();
    theApp.ForgetTexts();
    return sent;
}

} // namespace wholetest
