// Toolbars, buttons and fly-outs.
#include "hostmenu/CompanionOperations.h"

#include <set>

#include "Attempt.h"
#include "FlyoutToAttach.h"
#include "FlyoutToolbars.h"
#include "HostGroup.h"
#include "HostObject.h"
#include "MacroText.h"
#include "StandIns.h"
#include "TextOrEmpty.h"

namespace
{

// Makes a hidden toolbar visible for as long as its buttons are worked on: the host offers adding and
// deleting on visible toolbars only.
class CShownWhileEdited
{
    // Construction
public:
    explicit CShownWhileEdited(const CHostObject& toolbar)
        : m_toolbar(toolbar), m_mustHide(!toolbar.Flag(L"Visible"))
    {
        if (m_mustHide)
            m_toolbar.Put(L"Visible", true);
    }
    CShownWhileEdited(const CShownWhileEdited&) = delete;
    CShownWhileEdited& operator=(const CShownWhileEdited&) = delete;

    // Operations
public:
    // Puts the former state back, and throws COleDispatchException* if the host refuses.
    void Restore()
    {
        if (m_mustHide) {
            m_toolbar.Put(L"Visible", false);
            m_mustHide = false;
        }
    }

    // Implementation
public:
    ~CShownWhileEdited()
    {
        Attempt([this] { Restore(); });
    }

private:
    const CHostObject& m_toolbar;
    bool m_mustHide;
};

IDispatch* CreateFlyout(const CHostObject& host)
{
    const CHostObject toolbars = BaseGroup(host).Object(L"Toolbars");
    CFlyoutCensus census(host);
    Attempt([&census] { census.RemoveForsaken(); });
    // Nothing follows that could fail: a toolbar without its button would be left standing.
    return toolbars.CallForObject(L"Add", census.FreeName(toolbars)).Detach();
}

IDispatch* CreateNamed(const CHostObject& host, const std::wstring& name)
{
    const CHostObject toolbars = BaseGroup(host).Object(L"Toolbars");
    // Deleting and adding again would lose the place that the user gave the toolbar.
    CHostObject toolbar = FindByName(toolbars, name);
    const bool isNew = toolbar.IsNull();
    if (isNew)
        toolbar = toolbars.CallForObject(L"Add", name);
    if (!toolbar.Flag(L"Visible"))
        toolbar.Put(L"Visible", true);
    std::set<std::wstring> formerFlyouts;
    if (!isNew) {
        Attempt([&] { formerFlyouts = FlyoutsOpenedFrom(toolbar); });
        DeleteItems(toolbar);
    }
    Attempt([&] { CFlyoutCensus(host).RemoveForsaken(formerFlyouts); });
    return toolbar.Detach();
}

// A button's name is its tooltip; the host wants one.
std::wstring ButtonName(const std::wstring& tooltip, const std::wstring& macro)
{
    if (tooltip.find_first_not_of(L" \t\r\n") != std::wstring::npos)
        return tooltip;
    const std::wstring command = PrintablePart(macro);
    return command.empty() ? L"Button" : command;
}

CHostObject AddButton(const CHostObject& toolbar, long index, const std::wstring& name,
                      const std::wstring& help, const std::wstring& command)
{
    const auto add = [&](const std::wstring& macro) {
        return toolbar.CallForObject(L"AddToolbarButton", index, name, help, macro);
    };
    if (!command.empty())
        return add(command);
    return AddElse([&] { return add(command); }, [&] { return add(MacroStandIn); });
}

bool FileExists(const wchar_t* name)
{
    return name != nullptr && ::GetFileAttributesW(name) != INVALID_FILE_ATTRIBUTES;
}

void SetBitmaps(const CHostObject& button, const wchar_t* smallImage, const wchar_t* largeImage)
{
    try {
        button.Call(L"SetBitmaps", TextOrEmpty(smallImage), TextOrEmpty(largeImage));
    } catch (COleDispatchException* exception) {
        // A host may refuse files that are not there. The button works without a picture.
        if (FileExists(smallImage) && FileExists(largeImage))
            throw;
        exception->Delete();
    }
}

} // namespace

IDispatch* Create_ACADToolBar(IDispatch* application, const wchar_t* name)
{
    const CHostObject host = CHostObject::Share(application);
    const std::wstring toolbarName = TextOrEmpty(name);
    return IsFlyoutName(toolbarName) ? CreateFlyout(host) : CreateNamed(host, toolbarName);
}

bool Append_ToolBarItem(IAcadToolbar toolbar, const wchar_t* macro, const wchar_t* tooltip,
                        const wchar_t* smallImage, const wchar_t* largeImage, bool isFlyout,
                        IAcadToolbar flyout)
{
    const CHostObject target = CHostObject::Share(toolbar.m_lpDispatch);
    const CHostObject opened = CHostObject::Share(isFlyout ? flyout.m_lpDispatch : nullptr);
    const std::wstring help = TextOrEmpty(tooltip);
    const std::wstring command = TranslateCarets(TextOrEmpty(macro));

    const std::wstring name = ButtonName(help, command);

    CHostObject button;
    CFlyoutToAttach pending(opened);
    CShownWhileEdited shown(target);
    const long end = target.Count();
    if (isFlyout) {
        // The command of a fly-out button is never sent, but the host refuses an empty one.
        const std::wstring flyoutName = opened.Text(L"Name");
        button = target.CallForObject(L"AddToolbarButton", end, name, help,
                                      command.empty() ? flyoutName : command, true);
        pending.AttachTo(button);
    } else {
        button = AddButton(target, end, name, help, command);
    }
    SetBitmaps(button, smallImage, largeImage);
    shown.Restore();
    return true;
}

void IAcadToolbar::SetVisible(int visible)
{
    CHostObject::Share(m_lpDispatch).Put(L"Visible", visible != 0);
}
