#include "Lives.h"

#include "Host.h"
#include "hostmenu/CompanionOperations.h"

#include <iterator>
#include <string>

#include "kit/MessageBoxWatch.h"
#include "kit/Pump.h"

namespace lifecycle
{
namespace
{

// Items, a separator, cascades in cascades; buttons, a separator, a fly-out in a fly-out.
constexpr wchar_t Description[] =
    L"<r><Menus Name='&amp;Drafting'>"
    L"<Menu Name='&amp;Line' Cmd='^C^CLINE' Help='Draws a line'/><Menu/>"
    L"<Menu Name='C&amp;ircle' Help='Circles'>"
    L"<Item Name='2 points' Cmd='^C^CCIRCLE 2' Help='Through two points'/>"
    L"<Item Name='Tangent' Help='That touch others'><Item Name='Radius' Cmd='^C^CTTR'/></Item>"
    L"</Menu></Menus><Toolbars Name='Drafting'>"
    L"<Toolbar Name='Line' Cmd='^C^CLINE' ToolTip='Line' ImageList='line'/>"
    L"<Toolbar Name='Separator'/>"
    L"<Toolbar Name='Circle' Cmd='^C^CCIRCLE' ToolTip='Circle' ImageList='circle'>"
    L"<Button Name='Arc' Cmd='^C^CARC' ToolTip='Arc' ImageList='arc'>"
    L"<Button Name='Text' Cmd='^C^CTEXT' ToolTip='Text' ImageList='text'/>"
    L"</Button></Toolbar></Toolbars></r>";

void Build(const wchar_t* text)
{
    wchar_t module[] = L"lifecycle_tests.exe";
    Append_MenuToolBar(CString(text), module);
}

size_t MenuCount()
{
    return Host().Model().Groups().front()->menus.size();
}

size_t ToolbarCount()
{
    return Host().Model().Groups().front()->toolbars.size();
}

void BuildAndRebuild()
{
    EmptyHost();
    Build(Description);
    ASSERT_EQ(MenuCount(), 1u);
    ASSERT_EQ(ToolbarCount(), 3u);
    Build(Description);
    ASSERT_EQ(MenuCount(), 1u);
    ASSERT_EQ(ToolbarCount(), 3u);
    EmptyHost();
    ASSERT_EQ(MenuCount(), 0u);
}

void BuildFromAResource()
{
    EmptyHost();
    wchar_t module[] = L"lifecycle_tests.exe";
    Append_MenuToolBar(103, L"XML", module);
    ASSERT_EQ(MenuCount(), 1u);
    ASSERT_EQ(ToolbarCount(), 1u);
    EmptyHost();
}

// A menu and a toolbar of the caller's own, filled entry by entry.
void BuildByHand()
{
    EmptyHost();
    IXMLDOMDocumentPtr document;
    ASSERT_TRUE(SUCCEEDED(document.CreateInstance(VelmDomDocument60, nullptr, CLSCTX_INPROC_SERVER)));
    VARIANT_BOOL isLoaded = VARIANT_FALSE;
    ASSERT_TRUE(SUCCEEDED(document->loadXML(_bstr_t(Description), &isLoaded)) && isLoaded);
    IDispatch* const application = Host().GetIDispatch(FALSE);
    const IAcadPopupMenu menu(Create_ACADMenu(application, L"By hand"));
    IAcadToolbar toolbar(Create_ACADToolBar(application, L"By hand"));
    for (const wchar_t* const path : {L"//Menus/Menu[1]", L"//Menus/Menu[3]", L"//Toolbars/Toolbar[3]"}) {
        IXMLDOMNodePtr node;
        ASSERT_EQ(document->selectSingleNode(_bstr_t(path), &node), S_OK);
        wchar_t name[] = L"@Name";
        ASSERT_FALSE(GetAttribVal(node, name).IsEmpty());
        if (std::wstring(path).find(L"Menu[") != std::wstring::npos)
            ProcessMenuNode(node, menu);
        else
            ProcessTBarNode(node, toolbar, L"C:\\none\\");
    }
    toolbar.SetVisible(0);
    const IAcadToolbar copy(toolbar);
    IAcadToolbar other;
    other = copy;
    EmptyHost();
    // The toolbar is gone, the references are not.
    bool isRefused = false;
    try {
        other.SetVisible(1);
    } catch (COleDispatchException* exception) {
        exception->Delete();
        isRefused = true;
    }
    ASSERT_TRUE(isRefused);
}

void BuildInAWindow()
{
    EmptyHost();
    velmhost::ShellOptions options;
    options.noRegister = true;
    options.width = 700;
    options.height = 500;
    ASSERT_TRUE(Host().OpenShell(options, SW_SHOW));
    for (int run = 0; run < 2; ++run) {
        Build(Description);
        Host().MainFrame()->ShowChanges();
        Host().MainFrame()->UpdateWindow();
        testkit::PumpPending();
    }
    Host().Model().RemoveToolbar(
        Host().Model().ToolbarAt(Host().Model().Groups().front()->id, L"Drafting").id);
    Host().MainFrame()->ShowChanges();
    testkit::PumpPending();
    Host().CloseShell();
    testkit::PumpPending();
    EmptyHost();
    Host().ForgetTexts();
}

// The host refuses one of its calls, or all from that one on; each life another.
void BuildAgainstARefusal()
{
    static constexpr unsigned calls[] = {1, 2, 4, 7, 11, 16, 25, 40};
    static unsigned lives = 0;
    const unsigned call = calls[lives++ % std::size(calls)];
    EmptyHost();
    testkit::MessageBoxWatch boxes;
    velmhost::InvokeFault fault;
    fault.forever = call % 2 != 0;
    Host().Automation().FailInvoke(call, fault);
    Build(Description);
    Host().Automation().FailInvoke(0, fault);
    ASSERT_GE(boxes.Boxes().size(), call < 20 ? 2u : 0u) << call;
    EmptyHost();
}

void BuildFromBadTexts()
{
    EmptyHost();
    testkit::MessageBoxWatch boxes;
    Build(L"<r><Menus>");
    Build(L"");
    wchar_t module[] = L"lifecycle_tests.exe", none[] = L"none.arx";
    Append_MenuToolBar(999, L"XML", module);
    ASSERT_EQ(boxes.Boxes().size(), 3u);
    Append_MenuToolBar(CString(Description), none);
    ASSERT_EQ(ToolbarCount(), 0u);
    EmptyHost();
}

} // namespace

std::vector<Life> BuilderLives()
{
    return {
        {"MenusAndToolbarsBuiltAndRebuilt", &BuildAndRebuild},
        {"MenusAndToolbarsOfAResource", &BuildFromAResource},
        {"MenusAndToolbarsByHand", &BuildByHand},
        {"MenusAndToolbarsInAWindow", &BuildInAWindow},
        {"MenusAndToolbarsThatTheHostRefuses", &BuildAgainstARefusal},
        {"BadDescriptions", &BuildFromBadTexts},
    };
}

} // namespace lifecycle
