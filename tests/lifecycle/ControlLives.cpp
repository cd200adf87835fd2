#include "Lives.h"

#include "Ground.h"

#include <iterator>

#include "kit/Pump.h"

namespace lifecycle
{
namespace
{

// Lists

// A list whose drop-down can be asked for.
class List : public CXListCtrl
{
public:
    using CXListCtrl::m_pCombo;
};

constexpr DWORD ListStyle = WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_SHAREIMAGELISTS;

void MakeImages(CImageList& images)
{
    ASSERT_TRUE(images.Create(16, 16, ILC_COLOR32 | ILC_MASK, 3, 1));
    CClientDC dc(CWnd::GetDesktopWindow());
    for (int i = 0; i < 3; ++i) {
        CBitmap bitmap;
        ASSERT_TRUE(bitmap.CreateCompatibleBitmap(&dc, 16, 16));
        ASSERT_EQ(images.Add(&bitmap, RGB(0, 0, 0)), i);
    }
}

// A list with every kind of cell, its header with images and a bitmap.
void FillList(List& list, CImageList& images, CBitmap& bitmap, CStringArray& choices)
{
    for (const int column : {0, 1, 2, 3})
        ASSERT_EQ(list.InsertColumn(column, L"Column", LVCFMT_LEFT, 90), column);
    list.SetImageList(&images, LVSIL_SMALL);
    list.GetHeaderCtrl()->SetImageList(&images);
    list.SetHeaderCheckedState(1, 1);
    HDITEM item{};
    item.mask = HDI_FORMAT | HDI_BITMAP;
    item.fmt = HDF_STRING | HDF_BITMAP | HDF_BITMAP_ON_RIGHT;
    item.hbm = bitmap;
    list.GetHeaderCtrl()->SetItem(3, &item);
    for (int row = 0; row < 8; ++row) {
        CString text;
        text.Format(L"row %d", 7 - row);
        ASSERT_EQ(list.InsertItem(row, text, RGB(0, 0, 128), RGB(255, 255, 224)), row);
        list.SetItemToolTipText(row, 0, text + L" and its tip");
        list.SetBold(row, 0, row % 2);
        list.SetItemImage(row, 0, row % 3);
        list.SetItemData(row, 7);
        list.SetCheckbox(row, 1, row % 2);
        list.SetComboBox(row, 2, TRUE, &choices, 5, row % 3);
        list.SetProgress(row, 3, TRUE, row % 2 != 0 ? L"%d of 100" : nullptr);
        list.UpdateProgress(row, 3, row * 10);
    }
    list.SetEnabled(6, FALSE);
    ASSERT_EQ(list.CountCheckedItems(1), 4);
}

CPoint MiddleOf(List& list, int row, int column)
{
    CRect cell;
    list.GetSubItemRect(row, column, LVIR_BOUNDS, cell);
    return cell.CenterPoint();
}

void Press(List& list, CPoint point)
{
    list.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(point.x, point.y));
    list.SendMessage(WM_LBUTTONUP, 0, MAKELPARAM(point.x, point.y));
}

void OpenDropDown(List& list, int row)
{
    list.SetItemState(-1, 0, LVIS_SELECTED);
    list.SetCurSel(row);
    CRect cell;
    list.GetSubItemRect(row, 2, LVIR_BOUNDS, cell);
    list.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(cell.right - 2, cell.top + 1));
    list.UpdateWindow();
    ASSERT_NE(list.m_pCombo, nullptr);
    ASSERT_TRUE(list.m_pCombo->IsWindowVisible());
}

void UseDropDowns(List& list)
{
    ASSERT_NO_FATAL_FAILURE(OpenDropDown(list, 1));
    list.SendMessage(WM_XCOMBOLIST_VK_RETURN);
    list.SendMessage(WM_TIMER, 3); // not waited for
    ASSERT_EQ(list.m_pCombo, nullptr);
    ASSERT_NO_FATAL_FAILURE(OpenDropDown(list, 2));
    list.SendMessage(WM_XCOMBOLIST_VK_ESCAPE);
    list.SendMessage(WM_TIMER, 2);
    ASSERT_EQ(list.m_pCombo, nullptr);
}

int CALLBACK CompareData(LPARAM first, LPARAM second, LPARAM)
{
    const auto* const a = reinterpret_cast<const XLISTCTRLDATA*>(first);
    const auto* const b = reinterpret_cast<const XLISTCTRLDATA*>(second);
    return a->nImage - b->nImage;
}

void ChangeRows(List& list, CStringArray& choices)
{
    Press(list, MiddleOf(list, 0, 1));
    ASSERT_EQ(list.CountCheckedItems(1), 5);
    ASSERT_TRUE(list.SortItems(CompareData, 0));
    list.SetItemText(0, 0, L"another text", RGB(128, 0, 0), RGB(255, 255, 255));
    list.DeleteProgress(0, 3);
    list.SetComboBox(3, 2, FALSE, &choices, 0, 0);
    LVITEM item{};
    item.mask = LVIF_TEXT | LVIF_IMAGE;
    item.iItem = 8;
    item.iImage = 1;
    wchar_t text[] = L"from a description";
    item.pszText = text;
    ASSERT_EQ(list.InsertItem(&item), 8);
    ASSERT_TRUE(list.DeleteItem(0));
    list.UpdateWindow();
}

enum class End
{
    Window, // of the list, with the drop-down open
    Parent, // the same with its parent's window
    Object, // the same with the object
    Rows    // all rows are deleted, the drop-down is closed, then the object ends
};
constexpr End Ends[] = {End::Window, End::Parent, End::Object, End::Rows};

// Each life has the next end.
void LiveAsList()
{
    static unsigned lives = 0;
    const End end = Ends[lives++ % std::size(Ends)];
    CStringArray choices;
    for (const wchar_t* const choice : {L"zero", L"one", L"two"})
        choices.Add(choice);
    CImageList images;
    ASSERT_NO_FATAL_FAILURE(MakeImages(images));
    CBitmap bitmap;
    ASSERT_TRUE(bitmap.CreateBitmap(12, 10, 1, 1, nullptr));
    Ground ground;
    List list;
    ASSERT_TRUE(list.Create(ListStyle, CRect(10, 10, 400, 260), &ground, 1));
    list.SetDefaultTextMessage(L"nothing yet");
    list.UpdateWindow();
    ASSERT_NO_FATAL_FAILURE(FillList(list, images, bitmap, choices));
    list.SetExtendedStyle(LVS_EX_FULLROWSELECT);
    list.EnableToolTips(TRUE);
    list.UpdateWindow();
    ASSERT_TRUE(ShowsTip(list, MiddleOf(list, 0, 0), MiddleOf(list, 3, 0)));
    ASSERT_NO_FATAL_FAILURE(UseDropDowns(list));
    ASSERT_NO_FATAL_FAILURE(ChangeRows(list, choices));
    if (end == End::Rows) {
        list.SetCheckbox(2, 0, 0);
        list.DeleteCheckedItems(); // all but those with a check box in the first cell
        ASSERT_EQ(list.GetItemCount(), 1);
        ASSERT_TRUE(list.DeleteAllItems());
        list.UpdateWindow();
        return;
    }
    ASSERT_NO_FATAL_FAILURE(OpenDropDown(list, 4)); // row 1 is disabled since the rows were sorted
    if (end == End::Window)
        list.DestroyWindow();
    else if (end == End::Parent)
        ground.DestroyWindow();
}

void LiveAsHeader()
{
    CImageList images;
    ASSERT_NO_FATAL_FAILURE(MakeImages(images));
    CBitmap bitmap;
    ASSERT_TRUE(bitmap.CreateBitmap(12, 10, 1, 1, nullptr));
    Ground ground;
    CXHeaderCtrl header;
    ASSERT_TRUE(header.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 300, 24), &ground, 2));
    header.SetImageList(&images);
    header.ModifyProperty(3, 1);
    header.SetSpacing(4);
    for (const int index : {0, 1, 2}) {
        HDITEM item{};
        item.mask = HDI_TEXT | HDI_FORMAT | HDI_WIDTH | HDI_IMAGE | HDI_BITMAP;
        wchar_t text[] = L"a caption that is too long for its item";
        item.pszText = text;
        item.fmt = HDF_STRING | HDF_IMAGE | HDF_BITMAP | HDF_BITMAP_ON_RIGHT;
        item.cxy = 90;
        item.iImage = index;
        item.hbm = bitmap;
        ASSERT_EQ(header.InsertItem(index, &item), index);
    }
    header.UpdateWindow();
    header.DeleteItem(1);
    header.SendMessage(WM_SYSCOLORCHANGE);
    header.RedrawWindow();
}

// The other controls

void LiveAsDropDown()
{
    Ground ground;
    CFont font;
    ASSERT_TRUE(font.CreatePointFont(90, L"Tahoma"));
    CXComboList list(&ground);
    const LPCTSTR name = AfxRegisterWndClass(CS_SAVEBITS | CS_CLASSDC, ::LoadCursor(nullptr, IDC_ARROW));
    ASSERT_TRUE(list.CreateEx(0, name, L"", WS_POPUP | WS_VISIBLE | WS_BORDER, CRect(120, 120, 240, 220),
                              &ground, 0));
    for (int i = 0; i < 30; ++i) {
        CString text;
        text.Format(L"entry %d", i);
        ASSERT_EQ(list.AddString(text), i);
    }
    list.SetFont(&font, TRUE);
    ASSERT_EQ(list.SetCurSel(20), 20);
    list.SetActive(16);
    list.UpdateWindow();
    list.SendMessage(WM_VSCROLL, SB_PAGEDOWN,
                     reinterpret_cast<LPARAM>(list.GetScrollBarCtrl(SB_VERT)->m_hWnd));
    MSG key{};
    key.hwnd = ::GetFocus();
    key.message = WM_KEYDOWN;
    key.wParam = VK_UP;
    list.PreTranslateMessage(&key);
    list.SendMessage(WM_TIMER, 1, 0);
    CString text;
    list.GetText(list.GetCurSel(), text);
    ASSERT_FALSE(text.IsEmpty());
    list.DestroyWindow();
}

void LiveAsListBox()
{
    Ground ground;
    CXListBox box;
    ASSERT_TRUE(
        box.Create(WS_CHILD | WS_VISIBLE | WS_VSCROLL | LBS_NOTIFY, CRect(10, 10, 110, 110), &ground, 3));
    for (int i = 0; i < 40; ++i) {
        CString text;
        text.Format(L"an item that is wider than the box: %d", i);
        box.AddString(text);
    }
    box.UpdateWindow();
    ASSERT_TRUE(ShowsTip(box, CPoint(20, 5), CPoint(20, 40)));
    box.DeleteString(3);
    box.ResetContent();
}

// What hangs on items; counted as heap blocks.
class Note : public ItemDataABSTRACT
{
public:
    explicit Note(CString text) : m_text(std::move(text)) {}
    CString GetTipText() const override { return m_text; }

private:
    CString m_text;
};

HTREEITEM AddNote(CXTreeCtrl& tree, HTREEITEM parent, const CString& text)
{
    const HTREEITEM item = tree.InsertItem(text, parent);
    ItemDataABSTRACT* const note = new Note(L"note of " + text);
    EXPECT_TRUE(tree.SetItemData(item, reinterpret_cast<DWORD_PTR>(note)));
    return item;
}

void LiveAsTree()
{
    Ground ground;
    CXTreeCtrl tree;
    ASSERT_TRUE(
        tree.Create(WS_CHILD | WS_VISIBLE | TVS_HASBUTTONS | TVS_HASLINES | TVS_LINESATROOT | TVS_NOTOOLTIPS,
                    CRect(10, 10, 210, 210), &ground, 4));
    HTREEITEM roots[3];
    for (int i = 0; i < 3; ++i) {
        CString text;
        text.Format(L"root %d", i);
        roots[i] = AddNote(tree, TVI_ROOT, text);
        for (int j = 0; j < 4; ++j)
            AddNote(tree, AddNote(tree, roots[i], L"child"), L"grandchild");
    }
    tree.UpdateWindow();
    CRect first, second;
    ASSERT_TRUE(tree.GetItemRect(roots[0], &first, TRUE) && tree.GetItemRect(roots[2], &second, TRUE));
    ASSERT_TRUE(ShowsTip(tree, first.CenterPoint(), second.CenterPoint()));
    tree.Expand(roots[1], TVE_EXPAND);
    tree.UpdateWindow();
    // A branch goes by the caller's request, all else with the window.
    tree.DeleteBranchData(roots[1]);
    while (const HTREEITEM child = tree.GetChildItem(roots[1])) {
        for (HTREEITEM below = tree.GetChildItem(child); below; below = tree.GetNextSiblingItem(below))
            tree.SetItemData(below, 0);
        tree.SetItemData(child, 0);
        tree.DeleteItem(child);
    }
    tree.SelectSetFirstVisible(roots[0]);
}

void LiveAsProgressDialog()
{
    Ground ground;
    CDlgProgressBar progress;
    ASSERT_TRUE(progress.CreateNonModal(&ground));
    progress.Set(0, 10, 1);
    progress.ShowWindow(SW_SHOW);
    for (int i = 0; i < 10; ++i) {
        wchar_t text[] = L"Working";
        progress.SetStatusInfo(text);
        progress.MoveNextStep();
        progress.UpdateWindow();
        testkit::PumpPending();
    }
    progress.SetPos(3);
    progress.DestroyWindow();
}

} // namespace

std::vector<Life> ControlLives()
{
    return {
        {"List", &LiveAsList},       {"Header", &LiveAsHeader}, {"DropDown", &LiveAsDropDown},
        {"ListBox", &LiveAsListBox}, {"Tree", &LiveAsTree},     {"ProgressDialog", &LiveAsProgressDialog},
    };
}

} // namespace lifecycle
