#include "XmlPage.h"

#include "resource.h"

namespace
{

constexpr UINT TreeId = 701;
constexpr UINT QueryId = 702;
constexpr UINT FindId = 703;
constexpr UINT NamesId = 704;
constexpr UINT AttributesId = 705;

constexpr int EditHeight = 22;
constexpr int NamesHeight = 68;
constexpr int AttributeWidth = 120;

constexpr COLORREF Own = 0xFFFFFFFF;
constexpr COLORREF ValueText = RGB(0, 70, 140);

const wchar_t* const FirstQuery = L"//Layer[@Plot='1']";

// What the tree knows of an element, and shows as its tip: the XPath that finds it.
class CElementPath : public ItemDataABSTRACT
{
public:
    explicit CElementPath(const CString& path) : m_path(path) {}
    CString GetTipText() const override { return m_path; }

private:
    CString m_path;
};

CString TextOf(BSTR text)
{
    const _bstr_t owner(text, false);
    return CString(static_cast<const wchar_t*>(owner));
}

CString NameOf(const IXMLDOMNodePtr& node)
{
    BSTR name = nullptr;
    node->get_nodeName(&name);
    return TextOf(name);
}

bool IsElement(const IXMLDOMNodePtr& node)
{
    DOMNodeType type = NODE_INVALID;
    return node && SUCCEEDED(node->get_nodeType(&type)) && type == NODE_ELEMENT;
}

// How many of the elements that follow one another are called so.
int CountOf(const CString& name, IXMLDOMNodePtr sibling,
            HRESULT (STDMETHODCALLTYPE IXMLDOMNode::*next)(IXMLDOMNode**))
{
    int count = 0;
    while (sibling) {
        IXMLDOMNodePtr other;
        (sibling->*next)(&other);
        sibling = other;
        count += IsElement(sibling) && NameOf(sibling) == name ? 1 : 0;
    }
    return count;
}

// The XPath of an element alone. Where others of its name are below its parent, it has a number, from 1.
CString PathTo(IXMLDOMNodePtr element)
{
    CString path;
    while (IsElement(element)) {
        const CString name = NameOf(element);
        const int before = CountOf(name, element, &IXMLDOMNode::get_previousSibling);
        const int after = CountOf(name, element, &IXMLDOMNode::get_nextSibling);
        CString step = L"/" + name;
        if (before + after > 0)
            step.Format(L"/%s[%d]", name.GetString(), before + 1);
        path = step + path;
        IXMLDOMNodePtr parent;
        element->get_parentNode(&parent);
        element = parent;
    }
    return path;
}

} // namespace

BEGIN_MESSAGE_MAP(CXmlPage, CSplitPage)
ON_NOTIFY(TVN_SELCHANGED, TreeId, &CXmlPage::OnSelectionChanged)
ON_BN_CLICKED(FindId, &CXmlPage::OnFindClicked)
ON_WM_DESTROY()
END_MESSAGE_MAP()

bool CXmlPage::MakeControls()
{
    const DWORD treeStyle = ChildStyle | WS_BORDER | WS_TABSTOP | TVS_HASBUTTONS | TVS_HASLINES |
                            TVS_LINESATROOT | TVS_SHOWSELALWAYS | TVS_NOTOOLTIPS;
    const DWORD boxStyle = ChildStyle | WS_BORDER | WS_TABSTOP | WS_VSCROLL | LBS_NOINTEGRALHEIGHT;
    const DWORD listStyle = ChildStyle | WS_BORDER | WS_TABSTOP | LVS_REPORT | LVS_NOSORTHEADER;
    const CRect none(0, 0, 0, 0);
    return MakeLabel(m_treeLabel, L"The document") && m_tree.Create(treeStyle, none, this, TreeId) &&
           MakeHeading(m_queryHeading, L"XPath") &&
           m_query.Create(ChildStyle | WS_BORDER | WS_TABSTOP | ES_AUTOHSCROLL, none, this, QueryId) &&
           MakeButton(m_find, L"Find", FindId) &&
           MakeHeading(m_namesHeading, L"The Name of each that it finds (FillStringArray)") &&
           m_names.Create(boxStyle, none, this, NamesId) &&
           MakeHeading(m_attributesHeading, L"Attributes of the selected element") &&
           m_attributes.Create(listStyle, none, this, AttributesId);
}

void CXmlPage::AddChildren(HTREEITEM item, const IXMLDOMNodePtr& parent)
{
    IXMLDOMNodePtr child;
    parent->get_firstChild(&child);
    while (child) {
        if (IsElement(child))
            AddElement(item, child);
        IXMLDOMNodePtr next;
        child->get_nextSibling(&next);
        child = next;
    }
}

void CXmlPage::AddElement(HTREEITEM parent, const IXMLDOMNodePtr& element)
{
    const CString path = PathTo(element);
    wchar_t attribute[] = L"Name";
    const CString name = m_document.GetAttrib(path, attribute);
    CString label = NameOf(element);
    if (!name.IsEmpty())
        label += L" \"" + name + L"\"";
    const HTREEITEM item = m_tree.InsertItem(label, parent);
    ItemDataABSTRACT* const data = new CElementPath(path);
    m_tree.SetItemData(item, reinterpret_cast<DWORD_PTR>(data));
    AddChildren(item, element);
    m_tree.Expand(item, TVE_EXPAND);
}

void CXmlPage::Fill()
{
    m_attributes.InsertColumn(0, L"Attribute", LVCFMT_LEFT, AttributeWidth);
    m_attributes.InsertColumn(1, L"Value", LVCFMT_LEFT, AttributeWidth);
    m_query.SetWindowText(FirstQuery);
    CString program;
    ::GetModuleFileName(nullptr, program.GetBuffer(MAX_PATH), MAX_PATH);
    program.ReleaseBuffer();
    if (!m_document.setXMLStringFromResource(IDR_OFFICE, L"XML", program))
        return;
    AddChildren(TVI_ROOT, m_document.m_pXMLDoc);
    OnFindClicked();
}

void CXmlPage::LayOut(CSize size)
{
    CRect rest = LayOutLeft(size, m_treeLabel, m_tree);
    const auto place = [&rest](CStatic& heading, int height) {
        heading.MoveWindow(rest.left, rest.top, rest.Width(), LineHeight);
        const CRect below(rest.left, rest.top + LineHeight, rest.right, rest.top + LineHeight + height);
        rest.top = below.bottom + Gap;
        return below;
    };
    const CRect query = place(m_queryHeading, EditHeight);
    m_query.MoveWindow(query.left, query.top, query.Width() - ButtonWidth - Gap, EditHeight);
    m_find.MoveWindow(query.right - ButtonWidth, query.top, ButtonWidth, EditHeight);
    const CRect names = place(m_namesHeading, NamesHeight);
    m_names.MoveWindow(&names);
    const CRect attributes = place(m_attributesHeading, rest.Height() - LineHeight);
    m_attributes.MoveWindow(&attributes);
    CRect client;
    m_attributes.GetClientRect(&client);
    m_attributes.SetColumnWidth(1, client.Width() - AttributeWidth);
}

CString CXmlPage::PathOf(HTREEITEM item) const
{
    return reinterpret_cast<const ItemDataABSTRACT*>(m_tree.GetItemData(item))->GetTipText();
}

HTREEITEM CXmlPage::ItemOf(const CString& path, HTREEITEM first) const
{
    for (HTREEITEM item = first; item != nullptr; item = m_tree.GetNextSiblingItem(item)) {
        if (PathOf(item) == path)
            return item;
        if (const HTREEITEM below = ItemOf(path, m_tree.GetChildItem(item)))
            return below;
    }
    return nullptr;
}

void CXmlPage::ShowAttributes(HTREEITEM item)
{
    m_attributes.DeleteAllItems();
    IXMLDOMNodePtr node;
    IXMLDOMNamedNodeMapPtr attributes;
    if (item != nullptr)
        m_document.GetDOMNodePtr(PathOf(item), node);
    if (!node || FAILED(node->get_attributes(&attributes)) || !attributes)
        return;
    IXMLDOMNodePtr attribute;
    while (attributes->nextNode(&attribute) == S_OK) {
        const CString name = NameOf(attribute);
        CString value = name;
        const int row = m_attributes.InsertItem(m_attributes.GetItemCount(), name);
        value = m_document.GetAttrib(PathOf(item), value.GetBuffer());
        m_attributes.SetItemText(row, 1, value, ValueText, Own);
        attribute = nullptr;
    }
}

void CXmlPage::OnSelectionChanged(NMHDR*, LRESULT* result)
{
    ShowAttributes(m_tree.GetSelectedItem());
    *result = 0;
}

// What is no XPath is told of by the document, in a message box.
void CXmlPage::OnFindClicked()
{
    CString query;
    m_query.GetWindowText(query);
    CStringArray names;
    wchar_t attribute[] = L"Name";
    m_document.FillStringArray(names, query.GetBuffer(), attribute);
    query.ReleaseBuffer();
    m_names.ResetContent();
    ::FillListBox(names, m_names);
    IXMLDOMNodePtr first;
    m_document.GetDOMNodePtr(query, first);
    const HTREEITEM item = ItemOf(PathTo(first), m_tree.GetRootItem());
    if (item != nullptr)
        m_tree.SelectItem(item);
}

// What is above the first visible item is not cleaned.
void CXmlPage::OnDestroy()
{
    if (m_tree.GetRootItem() != nullptr)
        m_tree.SelectSetFirstVisible(m_tree.GetRootItem());
    CSplitPage::OnDestroy();
}

// With the tip of the element that was found.
void CXmlPage::Pose(const std::wstring&)
{
    CRect label;
    m_tree.GetItemRect(m_tree.GetSelectedItem(), &label, TRUE);
    PoseMouse(m_tree, CPoint(label.right - 16, label.CenterPoint().y));
}
