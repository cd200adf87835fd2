#include "hostmenu/ToolBarNode.h"

#include "hostmenu/CompanionOperations.h"
#include "hostmenu/Entries.h"
#include "hostmenu/HostApplication.h"
#include "hostmenu/NodeWalk.h"

namespace
{

// What a button is made of.
struct Button
{
    std::optional<CString> command;
    std::optional<CString> toolTip;
    CString smallImage;
    CString largeImage;

    void AddTo(const IAcadToolbar& toolbar, bool isFlyout, const IAcadToolbar& flyout) const
    {
        Append_ToolBarItem(toolbar, PointerOrNull(command), PointerOrNull(toolTip), smallImage, largeImage,
                           isFlyout, flyout);
    }
};

// None for an entry that is not built.
std::optional<Button> ReadButton(IXMLDOMNode* node, const CString& folder)
{
    const std::optional<ToolBarEntry> entry = ReadToolBarEntry(node);
    if (!entry || entry->Kind() != ToolBarEntryKind::Button)
        return std::nullopt;
    const CString imageName = entry->ImageName();
    const CString images = folder + ImageFolder + L"\\";
    return Button{entry->command, entry->toolTip, images + ImageFileName(imageName, SmallImageSize),
                  images + ImageFileName(imageName, LargeImageSize)};
}

void AddFlyout(const Button& button, const IAcadToolbar& toolbar, IXMLDOMNodeList* children, long count,
               const CString& folder)
{
    const IDispatchPtr application = FindHostApplication();
    IAcadToolbar flyout(Create_ACADToolBar(RequireHostApplication(application), L"SubToolbar"));
    button.AddTo(toolbar, true, flyout);
    button.AddTo(flyout, false, IAcadToolbar());
    ForEachNode(children, count, [&](IXMLDOMNodePtr& child) { ProcessTBarNode(child, flyout, folder); });
    flyout.SetVisible(0);
}

} // namespace

void ProcessTBarNode(IXMLDOMNodePtr node, IAcadToolbar toolbar, CString folder)
{
    if (!node)
        return;
    const std::optional<Button> button = ReadButton(node, folder);
    if (!button)
        return;

    IXMLDOMNodeListPtr children;
    _com_util::CheckError(node->get_childNodes(&children));
    const long count = NodeCount(children);
    if (OpensFlyout(count))
        AddFlyout(*button, toolbar, children, count, folder);
    else
        button->AddTo(toolbar, false, IAcadToolbar());
}
