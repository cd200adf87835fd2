// Building menus and toolbars on a failing platform and in a host whose calls fail.
//
// Left out: the members of the wrapper classes, none of which allocates or fails, but SetVisible.
#include "Suites.h"

#include <algorithm>
#include <sstream>

#include "automation/HostAutomation.h"
#include "hostmenu/CompanionOperations.h"
#include "kit/Text.h"
#include "model/HostModel.h"
#include "model/ModelPrinter.h"
#include "resource.h"

namespace
{

using namespace failingtest;

// The program as a host: its application object is that of the ground that lives.
class CHostApp : public CWinApp
{
public:
    velmhost::HostAutomation* automation = nullptr;

protected:
    LPUNKNOWN GetInterfaceHook(const void* iid) override
    {
        return automation && *static_cast<const IID*>(iid) == IID_IDispatch ? automation->Application()
                                                                            : CWinApp::GetInterfaceHook(iid);
    }
};
CHostApp theApp;

IXMLDOMNodePtr Parsed(const wchar_t* text)
{
    (void)CoInitialize(nullptr);
    IXMLDOMDocumentPtr document;
    document.CreateInstance(VelmDomDocument60, nullptr, CLSCTX_INPROC_SERVER);
    VARIANT_BOOL isLoaded = VARIANT_FALSE;
    document->loadXML(_bstr_t(text), &isLoaded);
    IXMLDOMElementPtr root;
    document->get_documentElement(&root);
    return root;
}

// A host with a menu, a toolbar and a fly-out for it, and a description.
class HostGround : public Ground
{
public:
    HostGround()
    {
        theApp.automation = &automation;
        menu = IAcadPopupMenu(Create_ACADMenu(Application(), L"&Present"));
        Append_MenuItem(menu, L"Item", L"ITEM ", L"An item", true, false);
        toolbar = IAcadToolbar(Create_ACADToolBar(Application(), L"Present"));
        Append_ToolBarItem(toolbar, L"BUTTON ", L"Button", L"b16.bmp", L"b24.bmp", false, IAcadToolbar());
        flyout = IAcadToolbar(Create_ACADToolBar(Application(), L"SubToolbar"));
    }
    ~HostGround() override { theApp.automation = nullptr; }

    IDispatch* Application() { return automation.Application(); }

    std::string State() override
    {
        return testkit::Utf8(velmhost::PrintModel(model)) + "references " +
               std::to_string(automation.OutstandingReferences()) + " on " +
               std::to_string(automation.LiveObjects()) + " objects, " +
               std::to_string(automation.ApplicationReferences()) + " on the application";
    }
    bool FailInvokeAt(unsigned n) override
    {
        automation.FailInvoke(n, {});
        return true;
    }
    unsigned InvokeCalls() override { return automation.InvokeCount(); }

    velmhost::HostModel model;
    velmhost::HostAutomation automation{model};
    IAcadPopupMenu menu;
    IAcadToolbar toolbar;
    IAcadToolbar flyout;
    IXMLDOMNodePtr menuEntry = Parsed(L"<Menu Name='Cascade' Help='h'><Menu Name='A' Cmd='A' Help='a'/>"
                                      L"<Menu Name='B' Cmd='B'/></Menu>");
    IXMLDOMNodePtr buttonEntry =
        Parsed(L"<Toolbar Name='Opens' Cmd='O' ToolTip='o' ImageList='o'>"
               L"<Toolbar Name='Inner' Cmd='I' ToolTip='i' ImageList='i'/></Toolbar>");
    CString description = L"<D><Menus Name='&amp;Built'><Menu Name='A' Cmd='A' Help='a'/></Menus>"
                          L"<Toolbars Name='Built'><Toolbar Name='B' Cmd='B' ToolTip='b' ImageList='b'/>"
                          L"</Toolbars></D>";
    CString notWellFormed = L"<D>";
    CString folder = L"C:\\a folder\\";
    CString resourceType = L"XML";
    wchar_t module[30] = L"failing_tests.exe";
    wchar_t xpath[20] = L"@Name";
};

using Step = Row<HostGround>;

std::vector<std::string> LinesOf(const std::string& text)
{
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}

// The element that a line of a state names, without its properties.
std::string ElementOf(const std::string& line)
{
    const size_t first = line.find('"');
    return first == std::string::npos ? line : line.substr(0, line.find('"', first + 1) + 1);
}

// All elements that were there still are, and no reference was lost or kept; what was added may stay.
bool IsNothingLost(const std::string& before, const std::string&, const Outcome& failed)
{
    const std::vector<std::string> was = LinesOf(before);
    std::vector<std::string> is = LinesOf(failed.state);
    if (is.back() != was.back())
        return false;
    // The first line is the bar's, which may have become longer.
    for (size_t line = 1; line < was.size(); ++line) {
        const auto found = std::find_if(is.begin(), is.end(), [&](const std::string& one) {
            return ElementOf(one) == ElementOf(was[line]);
        });
        if (found == is.end())
            return false;
        is.erase(is.begin(), found + 1);
    }
    return true;
}

// As that, but that the element of this name may have lost what it holds.
auto IsNothingLostBut(const char* emptied)
{
    return [=](const std::string& before, const std::string& done, const Outcome& failed) {
        std::string without = before;
        const size_t inside = without.find('\n', without.find(emptied)) + 1;
        without.erase(inside, without.find('\n', inside) + 1 - inside);
        return IsNothingLost(without, done, failed);
    };
}

std::string Released(IDispatch* object)
{
    if (object == nullptr)
        return "null";
    object->Release();
    return "object";
}

constexpr unsigned CompanionMayThrow = Memory | HostFailure;

std::vector<Operation> CompanionOperations()
{
    const auto adding = [](const wchar_t* label, const wchar_t* macro, const wchar_t* help) {
        return [=](HostGround& g) { return Shown(Append_MenuItem(g.menu, label, macro, help, true, false)); };
    };
    return OperationsOn<HostGround>({
        {"CreateMenu",
         [](HostGround& g) { return Released(Create_ACADMenu(g.Application(), L"&Fresh menu")); },
         CompanionMayThrow,
         {},
         IsNothingLost},
        {"CreateMenuRefused",
         [](HostGround& g) {
             try {
                 return Released(Create_ACADMenu(g.Application(), L"POP0"));
             } catch (COleDispatchException* e) {
                 e->Delete();
                 return std::string("refused");
             }
         },
         CompanionMayThrow},
        {"CreateToolbar",
         [](HostGround& g) { return Released(Create_ACADToolBar(g.Application(), L"Fresh toolbar")); },
         CompanionMayThrow,
         {},
         IsNothingLost},
        {"CreateMenuAgain",
         [](HostGround& g) { return Released(Create_ACADMenu(g.Application(), L"&Present")); },
         CompanionMayThrow,
         {},
         IsNothingLostBut("  menu \"&Present\"")},
        {"CreateToolbarAgain",
         [](HostGround& g) { return Released(Create_ACADToolBar(g.Application(), L"Present")); },
         CompanionMayThrow,
         {},
         IsNothingLostBut("  toolbar \"Present\"")},
        {"CreateFlyout",
         [](HostGround& g) { return Released(Create_ACADToolBar(g.Application(), L"SubToolbar")); },
         CompanionMayThrow,
         {},
         IsNothingLost},
        {"AppendItem",
         adding(L"A label that is long", L"^C^CMACRO that is long ", L"A help that is long"),
         CompanionMayThrow,
         {},
         IsNothingLost},
        {"AppendHeading",
         adding(L"A label that is long", nullptr, nullptr),
         CompanionMayThrow,
         {},
         IsNothingLost},
        {"AppendSeparator", adding(nullptr, nullptr, nullptr), CompanionMayThrow, {}, IsNothingLost, Once},
        {"AppendSubMenu",
         [](HostGround& g) { return Released(Append_SubMenu(g.menu, L"A sub-menu's long label")); },
         CompanionMayThrow,
         {},
         IsNothingLost},
        {"AppendSubMenuWithoutLabel",
         [](HostGround& g) { return Released(Append_SubMenu(g.menu, nullptr)); },
         CompanionMayThrow,
         {},
         IsNothingLost},
        {"AppendButton",
         [](HostGround& g) {
             return Shown(Append_ToolBarItem(g.toolbar, L"^C^CMACRO that is long ", L"A long tool tip",
                                             L"a name of a file 16.bmp", L"a name of a file 24.bmp", false,
                                             IAcadToolbar()));
         },
         CompanionMayThrow,
         {},
         IsNothingLost},
        {"AppendButtonToHidden",
         [](HostGround& g) {
             g.toolbar.SetVisible(0);
             return Shown(Append_ToolBarItem(g.toolbar, nullptr, nullptr, L"16.bmp", L"24.bmp", false,
                                             IAcadToolbar()));
         },
         CompanionMayThrow,
         {},
         IsNothingLost},
        {"SetVisible",
         [](HostGround& g) {
             g.toolbar.SetVisible(0);
             return "";
         },
         CompanionMayThrow,
         {}},
    });
}

FAILING_SUITE(FailingCompanion, CompanionOperations());

// A fly-out that cannot be attached is hidden or, where that fails too, deleted.
bool IsAtMostTheFlyoutLost(const std::string& before, const std::string& done, const Outcome& failed)
{
    if (IsNothingLost(before, done, failed))
        return true;
    std::string without = before;
    const size_t flyout = without.find("  toolbar \"SubToolbar\"");
    without.erase(flyout, without.find('\n', flyout) + 1 - flyout);
    return IsNothingLost(without, done, failed);
}

std::vector<Operation> FlyoutOperations()
{
    return OperationsOn<HostGround>({
        {"AppendFlyout",
         [](HostGround& g) {
             return Shown(Append_ToolBarItem(g.toolbar, L"^C^CMACRO that is long ", L"A long tool tip",
                                             L"a name of a file 16.bmp", L"a name of a file 24.bmp", true,
                                             g.flyout));
         },
         CompanionMayThrow,
         {},
         IsAtMostTheFlyoutLost,
         Once},
        {"AppendFlyoutWithoutMacro",
         [](HostGround& g) {
             return Shown(
                 Append_ToolBarItem(g.toolbar, nullptr, nullptr, L"16.bmp", L"24.bmp", true, g.flyout));
         },
         CompanionMayThrow,
         {},
         IsAtMostTheFlyoutLost,
         Once},
    });
}

FAILING_SUITE(FailingFlyout, FlyoutOperations());

std::vector<Operation> BuilderOperations()
{
    const std::vector<std::string> phases = {" [Unable to Load Menu]*", " [Unable to Load Toolbar]*"};
    return OperationsOn<HostGround>({
        {"AppendMenuToolBar",
         [](HostGround& g) {
             Append_MenuToolBar(g.description, g.module);
             return "";
         },
         Memory | ComMemory, phases, IsNothingLost},
        {"AppendMenuToolBarNotWellFormed",
         [](HostGround& g) {
             Append_MenuToolBar(g.notWellFormed, g.module);
             return "";
         },
         Memory | ComMemory},
        {"AppendMenuToolBarFromResource",
         [](HostGround& g) {
             Append_MenuToolBar(IDR_FAILING_MENUS, g.resourceType, g.module);
             return "";
         },
         Memory | ComMemory, phases, IsNothingLost},
        {"ProcessMenuNode",
         [](HostGround& g) {
             ProcessMenuNode(g.menuEntry, g.menu);
             return "";
         },
         Memory | ComMemory | HostFailure,
         {},
         IsNothingLost},
        {"ProcessTBarNode",
         [](HostGround& g) {
             ProcessTBarNode(g.buttonEntry, g.toolbar, g.folder);
             return "";
         },
         Memory | ComMemory | HostFailure,
         {},
         IsNothingLost},
        {"GetAttribVal", [](HostGround& g) { return Shown(GetAttribVal(g.menuEntry, g.xpath)); },
         Memory | ComMemory},
    });
}

FAILING_SUITE(FailingBuilder, BuilderOperations());

} // namespace

extern "C" __declspec(dllexport) CWinApp* acedGetAcadWinApp()
{
    return &theApp;
}
