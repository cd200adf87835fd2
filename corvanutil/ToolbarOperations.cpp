// Toolbars, buttons and fly-outs.
#include "hostmenu/CompanionOperations.h"

#include <exception>
#include <set>

#include "FlyoutToolbars.h"
#include "HostGroup.h"
#include "HostObject.h"
#include "MacroText.h"

namespace
{

std::wstring TextOrEmpty(const wchar_t* text)
{
    return text == nullptr ? std::wstring() : std::wstring(text);
}

// Runs a clean-up on a path that is failing already: the first failure is the one to report.
template <class Action>
void Attempt(Action action) noexcept
{
    try {
        action();
    } catch (CException* exception) {
        exception->Delete();
    } catch (const std::exception&) {
    }
}

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
    CFlyoutCensus census(host);
    census.RemoveForsaken();
    // Nothing follows that could fail: a toolbar without its button would be left standing.
    return BaseGroup(host).Object(L"Toolbars").CallForObject(L"Add", census.FreeName()).Detach();
}

IDispatch* CreateNamed(const CHostObject& host, const std::wstring& name)
{
    const CHostObject toolbars = BaseGroup(host).Object(L"Toolbars");
    CFlyoutCensus census(host);
    std::set<std::wstring> flyouts;

    // Deleting and adding again would lose the place that the user gave the toolbar.
    CHostObject toolbar = FindByName(toolbars, name);
    const bool isNew = toolbar.IsNull();
    if (isNew)
        toolbar = toolbars.CallForObject(L"Add", name);
    if (!toolbar.Flag(L"Visible"))
        toolbar.Put(L"Visible", true);
    if (!isNew) {
        flyouts = census.OpenedFrom(toolbar);
        DeleteItems(toolbar);
    }
    census.RemoveForsaken(flyouts);
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

// A fly-out toolbar on the way to its button. If that fails, neither a button that opens nothing nor
// an empty toolbar stays on the screen; the toolbar, then hidden, goes with the next run.
class CFlyoutToAttach
{
    // Construction
public:
    // `flyout` may be null, and then nothing happens.
    explicit CFlyoutToAttach(const CHostObject& flyout) : m_flyout(flyout) {}
    CFlyoutToAttach(const CFlyoutToAttach&) = delete;
    CFlyoutToAttach& operator=(const CFlyoutToAttach&) = delete;

    // Operations
public:
    // `button` must outlive this object.
    void AttachTo(const CHostObject& button)
    {
        m_button = &button;
        const CHostObject group = BaseGroup(m_flyout.Object(L"Application"));
        button.Call(L"AttachToolbarToFlyout", group.Text(L"Name"), m_flyout.Text(L"Name"));
        m_attached = true;
        // Otherwise it also shows on its own, and for good if one of its buttons fails later.
        m_flyout.Put(L"Visible", false);
        m_hidden = true;
    }

    // Implementation
public:
    ~CFlyoutToAttach()
    {
        if (m_flyout.IsNull() || m_hidden)
            return;
        if (m_button != nullptr && !m_attached)
            Attempt([this] { m_button->Call(L"Delete"); });
        Attempt([this] { m_flyout.Put(L"Visible", false); });
    }

private:
    const CHostObject& m_flyout;
    const CHostObject* m_button = nullptr;
    bool m_attached = false;
    bool m_hidden = false;
};

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

    CHostObject button;
    CFlyoutToAttach pending(opened);
    CShownWhileEdited shown(target);
    if (isFlyout) {
        // The command of a fly-out button is never sent, but the host refuses an empty one.
        const std::wstring flyoutName = opened.Text(L"Name");
        button = target.CallForObject(L"AddToolbarButton", target.Count(), ButtonName(help, command), help,
                                      command.empty() ? flyoutName : command, true);
        pending.AttachTo(button);
    } else {
        button = target.CallForObject(L"AddToolbarButton", target.Count(), ButtonName(help, command), help,
                                      command);
    }
    SetBitmaps(button, smallImage, largeImage);
    shown.Restore();
    return true;
}

void IAcadToolbar::SetVisible(int visible)
{
    CHostObject::Share(m_lpDispatch).Put(L"Visible", visible != 0);
}
