#include "hostmenu/MenuToolBar.h"

#include <afxdisp.h>

#include "frame/ModulePath.h"
#include "frame/ResourceText.h"
#include "hostmenu/CompanionOperations.h"
#include "hostmenu/Entries.h"
#include "hostmenu/HostApplication.h"
#include "hostmenu/MenuNode.h"
#include "hostmenu/NodeWalk.h"
#include "hostmenu/ToolBarNode.h"
#include "xml/Prolog.h"

namespace
{

// The Name of the first element that `xpath` selects; empty without one.
CString HolderName(IXMLDOMNode* document, const wchar_t* xpath)
{
    IXMLDOMNodePtr holder;
    _com_util::CheckError(document->selectSingleNode(_bstr_t(xpath), &holder));
    if (!holder)
        return CString();
    const CEntryAttributes attributes(holder);
    _com_util::CheckError(attributes.Result());
    return attributes.Value(NameAttribute).value_or(CString());
}

template <class Visit>
void ForEachSelected(IXMLDOMNode* document, const wchar_t* xpath, Visit visit)
{
    IXMLDOMNodeListPtr nodes;
    _com_util::CheckError(document->selectNodes(_bstr_t(xpath), &nodes));
    ForEachNode(nodes, NodeCount(nodes), visit);
}

void BuildMenu(IXMLDOMNode* document, const IDispatchPtr& application)
{
    const CString name = HolderName(document, MenuHolderPath);
    const IAcadPopupMenu menu(Create_ACADMenu(RequireHostApplication(application), name));
    ForEachSelected(document, MenuEntriesPath, [&](IXMLDOMNodePtr& entry) { ProcessMenuNode(entry, menu); });
}

void BuildToolBar(IXMLDOMNode* document, const IDispatchPtr& application, wchar_t* moduleName)
{
    const CString name = HolderName(document, ToolBarHolderPath);
    const CString folder = GetProjectPath(moduleName);
    if (folder.IsEmpty())
        return;
    IAcadToolbar toolbar(Create_ACADToolBar(RequireHostApplication(application), name));
    ForEachSelected(document, ToolBarEntriesPath,
                    [&](IXMLDOMNodePtr& entry) { ProcessTBarNode(entry, toolbar, folder); });
    toolbar.SetVisible(1);
}

// Runs one phase; a failure of the host ends it with two messages, and only it.
template <class Phase>
void RunReported(const wchar_t* failure, Phase phase)
{
    try {
        phase();
    } catch (COleDispatchException* e) {
        AfxMessageBox(failure);
        e->ReportError();
        e->Delete();
    }
}

} // namespace

void Append_MenuToolBar(CString xmlText, wchar_t* moduleName)
{
    // Left initialised on purpose: the host's objects outlive this call.
    (void)CoInitialize(nullptr);

    IXMLDOMDocumentPtr document;
    _com_util::CheckError(document.CreateInstance(VelmDomDocument60, nullptr, CLSCTX_INPROC_SERVER));
    IXMLDOMNodePtr documentNode;
    if (FAILED(document->QueryInterface(__uuidof(IXMLDOMNode), reinterpret_cast<void**>(&documentNode))))
        return;

    VARIANT_BOOL isLoaded = VARIANT_FALSE;
    if (!TextDeclaresEntities(xmlText))
        _com_util::CheckError(document->loadXML(_bstr_t(xmlText.GetString()), &isLoaded));
    if (isLoaded == VARIANT_FALSE) {
        AfxMessageBox(L"MenuToolbar XML is not loaded");
        return;
    }

    // Raises every failure but a missing interface, which leaves it null.
    const IXMLDOMDocument2Ptr loaded(document);
    if (!loaded)
        return;

    const IDispatchPtr application = FindHostApplication();
    RunReported(L"Unable to Load Menu", [&] { BuildMenu(loaded, application); });
    RunReported(L"Unable to Load Toolbar", [&] { BuildToolBar(loaded, application, moduleName); });
}

void Append_MenuToolBar(unsigned __int64 resourceId, CString resourceType, wchar_t* moduleName)
{
    CString text = NarrowResourceText(GetModuleHandleW(moduleName), LOWORD(resourceId), resourceType);
    text.Trim();
    if (text.IsEmpty()) {
        AfxMessageBox(L"XML File String is empty");
        return;
    }
    Append_MenuToolBar(text, moduleName);
}

CString GetAttribVal(IXMLDOMNodePtr node, wchar_t* xpath)
{
    if (!node)
        return CString();
    IXMLDOMNodePtr selected;
    _com_util::CheckError(node->selectSingleNode(_bstr_t(xpath), &selected));
    return selected ? NodeValueText(selected) : CString();
}
