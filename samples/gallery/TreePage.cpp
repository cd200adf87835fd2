#include "TreePage.h"

namespace
{

constexpr UINT TreeId = 301;
constexpr UINT DeleteId = 302;
constexpr UINT FillId = 303;

// What the tree knows of a drawing, and shows as its tip.
class CDrawing : public ItemDataABSTRACT
{
public:
    CDrawing(const wchar_t* sheet, int layers, const wchar_t* savedBy)
        : m_sheet(sheet), m_layers(layers), m_savedBy(savedBy)
    {
        ++s_count;
    }
    CDrawing(const CDrawing&) = delete;
    CDrawing& operator=(const CDrawing&) = delete;
    ~CDrawing() override { --s_count; }

    CString GetTipText() const override
    {
        CString text;
        text.Format(L"%s, %d layers, last saved by %s", m_sheet.GetString(), m_layers, m_savedBy.GetString());
        return text;
    }

    static int Count() { return s_count; }

private:
    static inline int s_count = 0;
    CString m_sheet;
    int m_layers;
    CString m_savedBy;
};

} // namespace

BEGIN_MESSAGE_MAP(CTreePage, CSplitPage)
ON_NOTIFY(TVN_SELCHANGED, TreeId, &CTreePage::OnSelectionChanged)
ON_BN_CLICKED(DeleteId, &CTreePage::OnDeleteClicked)
ON_BN_CLICKED(FillId, &CTreePage::OnFillClicked)
ON_WM_DESTROY()
END_MESSAGE_MAP()

bool CTreePage::MakeControls()
{
    // Of the tips only our own: the platform's tree shows one of its own for a label that is cut off.
    const DWORD style = ChildStyle | WS_BORDER | WS_TABSTOP | TVS_HASBUTTONS | TVS_HASLINES |
                        TVS_LINESATROOT | TVS_SHOWSELALWAYS | TVS_NOTOOLTIPS;
    return MakeLabel(m_treeLabel, L"Drawings") && m_tree.Create(style, CRect(0, 0, 0, 0), this, TreeId) &&
           MakeHeading(m_nameHeading, L"Selected") && MakeLabel(m_name, L"") &&
           MakeHeading(m_tipHeading, L"Its tip") && MakeLabel(m_tip, L"") &&
           MakeHeading(m_countHeading, L"Objects that the tree owns") && MakeLabel(m_count, L"") &&
           MakeButton(m_delete, L"Delete", DeleteId) && MakeButton(m_fill, L"Fill anew", FillId);
}

HTREEITEM CTreePage::AddFolder(HTREEITEM parent, const wchar_t* name)
{
    return m_tree.InsertItem(name, parent);
}

HTREEITEM CTreePage::AddDrawing(HTREEITEM folder, const wchar_t* name, const wchar_t* sheet, int layers,
                                const wchar_t* savedBy)
{
    const HTREEITEM item = m_tree.InsertItem(name, folder);
    ItemDataABSTRACT* const drawing = new CDrawing(sheet, layers, savedBy);
    m_tree.SetItemData(item, reinterpret_cast<DWORD_PTR>(drawing));
    return item;
}

void CTreePage::FillTree()
{
    const HTREEITEM project = AddFolder(TVI_ROOT, L"Town hall, conversion and new entrance");
    const HTREEITEM survey = AddFolder(project, L"Survey");
    AddDrawing(survey, L"Existing building, measured after two stations were moved", L"A1, 1:100", 31,
               L"Ines");
    AddDrawing(survey, L"Levels along the road from the station to the bridge", L"A0, 1:500", 12, L"Ines");
    AddDrawing(survey, L"Trees to be kept, with heights and diameters", L"A2, 1:250", 7, L"Yuki");
    const HTREEITEM design = AddFolder(project, L"Architecture");
    m_posedItem =
        AddDrawing(design, L"Ground floor with ramp, lift and escape routes", L"A0, 1:50", 64, L"Tomasz");
    AddDrawing(design, L"Sections through the council chamber and the old stairs", L"A1, 1:50", 40,
               L"Tomasz");
    AddDrawing(design, L"Windows", L"A3, 1:10", 9, L"Amina");
    const HTREEITEM left = AddFolder(project, L"Left behind by the former office, not looked through yet");
    AddDrawing(left, L"Basement, probably never built like this", L"A1, 1:100", 22, L"nobody known");
    AddDrawing(left, L"Roof", L"A1, 1:100", 18, L"nobody known");
    for (const HTREEITEM folder : {project, survey, design, left})
        m_tree.Expand(folder, TVE_EXPAND);
    m_tree.SelectItem(m_posedItem);
    ScrollToTop();
}

void CTreePage::Fill()
{
    FillTree();
    ShowDetails();
}

// What is above the first visible item is not cleaned.
void CTreePage::ScrollToTop()
{
    const HTREEITEM first = m_tree.GetRootItem();
    if (first != nullptr)
        m_tree.SelectSetFirstVisible(first);
}

void CTreePage::LayOut(CSize size)
{
    CRect rest = LayOutLeft(size, m_treeLabel, m_tree);
    PlaceText(rest, m_nameHeading, m_name, 2);
    PlaceText(rest, m_tipHeading, m_tip, 2);
    PlaceText(rest, m_countHeading, m_count, 1);
    m_delete.MoveWindow(rest.left, rest.top + Gap, ButtonWidth, ButtonHeight);
    m_fill.MoveWindow(rest.left + ButtonWidth + Gap, rest.top + Gap, ButtonWidth, ButtonHeight);
}

void CTreePage::ShowDetails()
{
    const HTREEITEM item = m_tree.GetSelectedItem();
    CString tip;
    if (item != nullptr) {
        const auto data = reinterpret_cast<const ItemDataABSTRACT*>(m_tree.GetItemData(item));
        tip = data != nullptr ? data->GetTipText() : L"The item's own text: nothing hangs on it.";
    }
    m_name.SetWindowText(item != nullptr ? m_tree.GetItemText(item) : CString());
    m_tip.SetWindowText(tip);
    CString count;
    count.Format(L"%d", CDrawing::Count());
    m_count.SetWindowText(count);
    m_delete.EnableWindow(item != nullptr);
}

void CTreePage::OnSelectionChanged(NMHDR*, LRESULT* result)
{
    ShowDetails();
    *result = 0;
}

// An item goes with everything below it.
void CTreePage::OnDeleteClicked()
{
    const HTREEITEM item = m_tree.GetSelectedItem();
    if (item == nullptr)
        return;
    const CString name = m_tree.GetItemText(item);
    m_tree.DeleteBranchData(item);
    delete reinterpret_cast<ItemDataABSTRACT*>(m_tree.GetItemData(item));
    m_tree.SetItemData(item, 0);
    m_tree.DeleteItem(item);
    ShowDetails();
    if (m_tree.GetCount() == 0)
        m_fill.SetFocus();
    Tell(L"Deleted: " + name);
}

void CTreePage::OnFillClicked()
{
    // Nothing is selected when the data go: the items keep the values, and the details would be read from
    // them.
    m_tree.SelectItem(nullptr);
    ScrollToTop();
    m_tree.CleanItemData();
    m_tree.DeleteAllItems();
    FillTree();
    ShowDetails();
    Tell(Hint());
}

void CTreePage::OnDestroy()
{
    ScrollToTop();
    CSplitPage::OnDestroy();
}

// With the tip of a drawing whose name is cut off.
void CTreePage::Pose(const std::wstring&)
{
    CRect label;
    m_tree.GetItemRect(m_posedItem, &label, TRUE);
    PoseMouse(m_tree, CPoint(label.left + 40, label.CenterPoint().y));
}
