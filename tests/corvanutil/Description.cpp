#include "Description.h"

namespace companiontest
{

namespace
{

void AddItem(const IAcadPopupMenu& menu, const wchar_t* label, const wchar_t* macro, const wchar_t* help)
{
    Append_MenuItem(menu, label, macro, help, true, false);
}

// Files that are there, so that a refusal of them is a failure of the host.
std::wstring PresentFile()
{
    wchar_t name[MAX_PATH] = L"";
    ::GetModuleFileNameW(nullptr, name, MAX_PATH);
    return name;
}

void AddButton(const IAcadToolbar& toolbar, const wchar_t* macro, const wchar_t* tooltip)
{
    const std::wstring image = PresentFile();
    Append_ToolBarItem(toolbar, macro, tooltip, image.c_str(), image.c_str(), false, IAcadToolbar());
}

void AddFlyout(IDispatch* application, const IAcadToolbar& toolbar, const wchar_t* macro,
               const wchar_t* tooltip, const std::function<void(const IAcadToolbar&)>& fill)
{
    const std::wstring image = PresentFile();
    IAcadToolbar flyout(Create_ACADToolBar(application, L"SubToolbar"));
    Append_ToolBarItem(toolbar, macro, tooltip, image.c_str(), image.c_str(), true, flyout);
    AddButton(flyout, macro, tooltip);
    fill(flyout);
    flyout.SetVisible(0);
}

} // namespace

void BuildDescription(IDispatch* application)
{
    IAcadPopupMenu menu(Create_ACADMenu(application, L"&Drafting"));
    AddItem(menu, L"&Line", L"^C^C_LINE ", L"Draws lines");
    AddItem(menu, nullptr, nullptr, nullptr);
    {
        IAcadPopupMenu more(Append_SubMenu(menu, L"&More"));
        AddItem(more, L"&Arc", L"ARC ", nullptr);
        IAcadPopupMenu deeper(Append_SubMenu(more, L"&Deeper"));
        AddItem(deeper, L"&Circle", L"CIRCLE ", L"Draws circles");
    }
    AddItem(menu, L"Heading", nullptr, nullptr);

    IAcadToolbar toolbar(Create_ACADToolBar(application, L"Drafting"));
    AddButton(toolbar, L"^C^C_LINE ", L"Line");
    AddFlyout(application, toolbar, L"CIRCLE ", L"Circle", [&](const IAcadToolbar& circle) {
        AddButton(circle, L"ARC ", L"Arc");
        AddFlyout(application, circle, nullptr, L"Polygon",
                  [&](const IAcadToolbar& polygon) { AddButton(polygon, L"HATCH ", L"Hatch"); });
    });
    AddFlyout(application, toolbar, L"ZOOM ", L"Zoom", [](const IAcadToolbar&) {});
    AddButton(toolbar, L"ERASE ", L"Erase");
    toolbar.SetVisible(1);
}

const wchar_t DescriptionTree[] =
    L"menu bar: \"&Drafting\"\n"
    L"large buttons: no\n"
    L"group \"BASE\" base\n"
    L"  menu \"&Drafting\" on bar\n"
    L"    item \"&Line\" macro \"^C^C_LINE \" help \"Draws lines\"\n"
    L"    separator\n"
    L"    submenu \"&More\"\n"
    L"      item \"&Arc\" macro \"ARC \"\n"
    L"      submenu \"&Deeper\"\n"
    L"        item \"&Circle\" macro \"CIRCLE \" help \"Draws circles\"\n"
    L"    item \"Heading\"\n"
    L"  toolbar \"Drafting\" visible floating\n"
    L"    button \"Line\" macro \"^C^C_LINE \" help \"Line\"\n"
    L"    flyout \"Circle\" macro \"CIRCLE \" help \"Circle\" opens \"SubToolbar\"\n"
    L"    flyout \"Zoom\" macro \"ZOOM \" help \"Zoom\" opens \"SubToolbar_3\"\n"
    L"    button \"Erase\" macro \"ERASE \" help \"Erase\"\n"
    L"  toolbar \"SubToolbar\" hidden floating\n"
    L"    button \"Circle\" macro \"CIRCLE \" help \"Circle\"\n"
    L"    button \"Arc\" macro \"ARC \" help \"Arc\"\n"
    L"    flyout \"Polygon\" macro \"SubToolbar_2\" help \"Polygon\" opens \"SubToolbar_2\"\n"
    L"  toolbar \"SubToolbar_2\" hidden floating\n"
    L"    button \"Polygon\" help \"Polygon\"\n"
    L"    button \"Hatch\" macro \"HATCH \" help \"Hatch\"\n"
    L"  toolbar \"SubToolbar_3\" hidden floating\n"
    L"    button \"Zoom\" macro \"ZOOM \" help \"Zoom\"\n";

} // namespace companiontest
