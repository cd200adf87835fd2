#include "hostmenu/ToolBarNode.h"

#include "hostmenu/CompanionOperations.h"
#include "hostmenu/EntryAttributes.h"
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

CString ImageFile(const CString& folder, const CString& imageList, const wchar_t* size)
{
    return folder + L"Bmps" + L"\\" + imageList + size + L".bmp";
}

// None for an entry that is not built.
std::optional<Button> ReadButton(IXMLDOMNode* node, const CString& folder)
{
    const CEntryAttributes attributes(node);
    if (!attributes.Exist())
        return std::nullopt;
    const CString name = attributes.Value(NameAttribute).value_or(CString());
    Button button{attributes.Command(), attributes.Value(ToolTipAttribute), CString(), CString()};
    CString imageList = attributes.Value(ImageListAttribute).value_or(CString());
    // A blank ImageList is built all the same: it is trimmed only after this.
    if (name.CompareNoCase(L"Separator") == 0 || imageList.IsEmpty())
        return std::nullopt;
    imageList.Trim();
    button.smallImage = ImageFile(folder, imageList, L"16");
    button.largeImage = ImageFile(folder, imageList, L"24");
    return button;
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
    if (count != 0)
        AddFlyout(*button, toolbar, children, count, folder);
    else
        button->AddTo(toolbar, false, IAcadToolbar());
}
