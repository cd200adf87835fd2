// The header, the drop-down list, the list box, the tree and the progress dialog on a failing platform.
//
// Left out: the header's protected members for drawing, which run with every painting, and properties that
// are set and read without anything of the platform.
#include "Suites.h"

#include <commctrl.h>

#include "kit/Text.h"

namespace
{

using namespace failingtest;

class ControlGround : public Ground
{
public:
    ControlGround()
    {
        parent.CreateEx(0, AfxRegisterWndClass(0), L"Parent", WS_POPUP | WS_VISIBLE, CRect(20, 20, 420, 320),
                        nullptr, 0);
    }
    ~ControlGround() override { parent.DestroyWindow(); }

    // Asks a control for a tip's text as the platform does, and gives it.
    static std::string TipOf(CWnd& control, UINT_PTR tool)
    {
        TOOLTIPTEXTW tip = {};
        tip.hdr = {control, tool, TTN_NEEDTEXTW};
        control.SendMessage(WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&tip));
        return testkit::Quoted(tip.szText);
    }

    CWnd parent;
    CString text = L"a text that is of some length";
};

// Header

class HeaderGround : public ControlGround
{
public:
    HeaderGround()
    {
        header.Create(WS_CHILD | WS_VISIBLE | HDS_HORZ, CRect(0, 0, 300, 24), &parent, 1);
        images.Create(16, 16, ILC_COLOR32, 2, 1);
        bitmap.CreateBitmap(16, 16, 1, 32, nullptr);
        images.Add(&bitmap, static_cast<CBitmap*>(nullptr));
        images.Add(&bitmap, static_cast<CBitmap*>(nullptr));
        header.SetImageList(&images);
        wchar_t caption[] = L"a caption of some length";
        for (int i = 0; i < 3; ++i) {
            HDITEM item = {};
            item.mask =
                HDI_TEXT | HDI_WIDTH | HDI_FORMAT | (i == 1 ? HDI_IMAGE : 0) | (i == 2 ? HDI_BITMAP : 0);
            item.fmt = HDF_STRING | (i == 1 ? HDF_IMAGE : 0) | (i == 2 ? HDF_BITMAP : 0);
            item.cxy = 90;
            item.pszText = caption;
            item.iImage = 1;
            item.hbm = bitmap;
            header.InsertItem(i, &item);
        }
        header.UpdateWindow();
    }
    std::string State() override { return std::string("items ") + Shown(header.GetItemCount()); }

    CXHeaderCtrl header;
    CImageList images;
    CBitmap bitmap;
};

std::vector<Operation> OfHeader()
{
    return OperationsOn<HeaderGround>({
        {"Create",
         [](HeaderGround& g) {
             CXHeaderCtrl fresh;
             const bool isCreated = fresh.Create(WS_CHILD, CRect(0, 0, 50, 20), &g.parent, 9) != FALSE;
             fresh.DestroyWindow();
             return Shown(isCreated);
         },
         Memory,
         {"false"}},
        {"ModifyProperty", [](HeaderGround& g) { return Shown(g.header.ModifyProperty(1, 8)); }},
        {"InsertItem",
         [](HeaderGround& g) {
             HDITEM item = {};
             item.mask = HDI_WIDTH;
             item.cxy = 20;
             return Shown(g.header.InsertItem(0, &item));
         },
         NoException,
         {},
         nullptr,
         Once},
        {"DeleteItem", [](HeaderGround& g) { return Shown(g.header.DeleteItem(0)); }},
        {"Paint",
         [](HeaderGround& g) {
             g.header.RedrawWindow(nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
             return "";
         }},
        {"SysColorChange",
         [](HeaderGround& g) {
             g.header.SendMessage(WM_SYSCOLORCHANGE);
             return "";
         }},
    });
}

FAILING_SUITE(FailingHeader, OfHeader());

// Drop-down list

class OpenCombo : public CXComboList
{
public:
    using CXComboList::CXComboList;
    using CXComboList::m_ListBox;
    using CXComboList::m_wndSBVert;
};

class ComboGround : public ControlGround
{
public:
    ComboGround()
    {
        Open(combo);
        for (const wchar_t* entry : {L"first entry", L"second entry", L"third entry"})
            combo.AddString(entry);
        combo.SetCurSel(1);
        combo.SetActive(17);
        font.CreatePointFont(100, L"Courier");
    }
    ~ComboGround() override
    {
        if (combo.GetSafeHwnd() != nullptr)
            combo.DestroyWindow();
    }
    bool Open(CXComboList& list)
    {
        return list.CreateEx(0, AfxRegisterWndClass(0), L"", WS_POPUP | WS_VISIBLE | WS_BORDER,
                             CRect(100, 60, 250, 200), &parent, 0) != FALSE;
    }
    std::string State() override
    {
        std::string state = std::string("entries ") + std::to_string(combo.GetCount()) + ", selected " +
                            std::to_string(combo.GetCurSel()) + ":";
        for (WPARAM i = 0; i < static_cast<WPARAM>(combo.GetCount()); ++i) {
            wchar_t entry[100] = L"";
            ::SendMessageW(combo.m_ListBox.m_hWnd, LB_GETTEXT, i, reinterpret_cast<LPARAM>(entry));
            state += std::string(" ") + testkit::Quoted(entry);
        }
        return state + ", text " + Shown(text);
    }

    OpenCombo combo{&parent};
    CFont font;
    CString third = L"third entry";
};

std::vector<Operation> OfCombo()
{
    return OperationsOn<ComboGround>({
        // Without a list box all texts are refused.
        {"CreateAndFill",
         [](ComboGround& g) {
             OpenCombo fresh(&g.parent);
             const bool isCreated = g.Open(fresh);
             const auto added = fresh.AddString(g.text);
             fresh.SetActive(17);
             if (fresh.GetSafeHwnd() != nullptr)
                 fresh.DestroyWindow();
             return Shown(isCreated) + std::to_string(added);
         },
         Memory,
         {"false-1", "true-1"},
         nullptr,
         Reported},
        {"AddString",
         [](ComboGround& g) { return std::to_string(g.combo.AddString(g.text)); },
         NoException,
         {},
         nullptr,
         Once},
        {"FindStringExact",
         [](ComboGround& g) { return std::to_string(g.combo.FindStringExact(-1, g.third)); }},
        {"GetCount", [](ComboGround& g) { return std::to_string(g.combo.GetCount()); }},
        {"SetCurSel",
         [](ComboGround& g) { return std::to_string(g.combo.SetCurSel(2)); },
         NoException,
         {},
         nullptr,
         Reported},
        {"GetText",
         [](ComboGround& g) {
             g.combo.GetText(2, g.text);
             return "";
         },
         Memory},
        {"GetTextIntoEmpty",
         [](ComboGround& g) {
             CString into;
             g.combo.GetText(2, into);
             return Shown(into);
         },
         Memory},
        {"SetFont",
         [](ComboGround& g) {
             g.combo.SetFont(&g.font, TRUE);
             return "";
         }},
        {"GetScrollBarCtrl",
         [](ComboGround& g) { return Shown(g.combo.GetScrollBarCtrl(SB_VERT) == &g.combo.m_wndSBVert); }},
        {"SetActive",
         [](ComboGround& g) {
             g.combo.SetActive(17);
             return "";
         },
         NoException,
         {},
         nullptr,
         Reported},
        {"PreTranslateMessage",
         [](ComboGround& g) {
             std::string results;
             for (const WPARAM key : {WPARAM{VK_DOWN}, WPARAM{VK_NEXT}, WPARAM{'T'}, WPARAM{VK_RETURN}}) {
                 MSG message = {};
                 message.hwnd = g.combo.m_ListBox.m_hWnd;
                 message.message = WM_KEYDOWN;
                 message.wParam = key;
                 results += Shown(g.combo.PreTranslateMessage(&message));
             }
             return results;
         }},
        {"Messages",
         [](ComboGround& g) {
             g.combo.SendMessage(WM_LBUTTONDOWN, 0, 0);
             g.combo.SendMessage(WM_VSCROLL, SB_LINEDOWN, 0);
             g.combo.SendMessage(WM_KILLFOCUS, 0, 0);
             g.combo.RedrawWindow(nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
             return "";
         },
         NoException,
         {},
         nullptr,
         Reported},
    });
}

FAILING_SUITE(FailingDropDown, OfCombo());

// List box

class ListBoxGround : public ControlGround
{
public:
    ListBoxGround()
    {
        box.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 100, 100), &parent, 1);
        box.AddString(text);
        box.AddString(L"second");
    }
    std::string State() override { return std::string("entries ") + Shown(box.GetCount()); }

    CXListBox box;
};

std::vector<Operation> OfListBox()
{
    return OperationsOn<ListBoxGround>({
        {"Create",
         [](ListBoxGround& g) {
             CXListBox fresh;
             const bool isCreated = fresh.Create(WS_CHILD, CRect(0, 0, 50, 20), &g.parent, 9) != FALSE;
             fresh.DestroyWindow();
             return Shown(isCreated);
         },
         Memory,
         {"false"}},
        {"ItemFromPoint2",
         [](ListBoxGround& g) {
             BOOL isOutside = FALSE;
             return std::to_string(g.box.ItemFromPoint2(CPoint(5, 5), isOutside)) + Shown(isOutside);
         }},
        {"OnToolHitTest",
         [](ListBoxGround& g) {
             TOOLINFO tool = {};
             return std::to_string(g.box.OnToolHitTest(CPoint(5, 5), &tool));
         }},
        {"OnToolTipText",
         [](ListBoxGround& g) {
             TOOLTIPTEXTW tip = {};
             tip.hdr = {g.box, 0, TTN_NEEDTEXTW};
             LRESULT result = 1;
             return Shown(g.box.OnToolTipText(0, &tip.hdr, &result)) + testkit::Quoted(tip.szText);
         },
         Memory},
        {"TipMessage",
         [](ListBoxGround& g) { return ControlGround::TipOf(g.box, 0); },
         NoException,
         {"\"\""},
         nullptr,
         Reported},
    });
}

FAILING_SUITE(FailingListBox, OfListBox());

// Tree

int liveData = 0;

class Data : public ItemDataABSTRACT
{
public:
    Data() { ++liveData; }
    ~Data() override { --liveData; }
    CString GetTipText() const override { return m_tip; }

private:
    CString m_tip = L"a tip of some length";
};

class TreeGround : public ControlGround
{
public:
    TreeGround()
    {
        tree.Create(WS_CHILD | WS_VISIBLE | TVS_HASBUTTONS, CRect(0, 0, 150, 150), &parent, 1);
        root = tree.InsertItem(text);
        plain = tree.InsertItem(text);
        HTREEITEM at = root;
        for (int i = 0; i < 6; ++i) {
            at = tree.InsertItem(L"child", at);
            Own(at);
        }
        Own(root);
    }
    ~TreeGround() override { parent.DestroyWindow(); }
    std::string State() override
    {
        return std::string("items ") + Shown(static_cast<int>(tree.GetCount())) + ", data " + Shown(liveData);
    }
    void Own(HTREEITEM item)
    {
        tree.SetItemData(item, reinterpret_cast<DWORD_PTR>(static_cast<ItemDataABSTRACT*>(new Data)));
        owners.push_back(item);
    }

    CXTreeCtrl tree;
    HTREEITEM root = nullptr;
    HTREEITEM plain = nullptr;
    std::vector<HTREEITEM> owners;
};

std::vector<Operation> OfTree()
{
    return OperationsOn<TreeGround>({
        {"Create",
         [](TreeGround& g) {
             CXTreeCtrl fresh;
             const bool isCreated = fresh.Create(WS_CHILD, CRect(0, 0, 50, 20), &g.parent, 9) != FALSE;
             fresh.DestroyWindow();
             return Shown(isCreated);
         },
         Memory,
         {"false"}},
        {"CleanItemData",
         [](TreeGround& g) {
             g.tree.CleanItemData();
             for (const HTREEITEM item : g.owners)
                 g.tree.SetItemData(item, 0);
             return "";
         },
         Memory},
        {"DeleteBranchData",
         [](TreeGround& g) {
             g.tree.DeleteBranchData(g.root);
             for (size_t i = 0; i + 1 < g.owners.size(); ++i)
                 g.tree.SetItemData(g.owners[i], 0);
             return "";
         },
         Memory},
        {"OnToolHitTest",
         [](TreeGround& g) {
             CRect rect;
             g.tree.GetItemRect(g.root, &rect, TRUE);
             TOOLINFO tool = {};
             return Shown(g.tree.OnToolHitTest(rect.CenterPoint(), &tool) ==
                          reinterpret_cast<INT_PTR>(g.root));
         }},
        {"OnToolTipText",
         [](TreeGround& g) {
             std::string texts;
             for (const HTREEITEM item : {g.root, g.plain}) {
                 TOOLTIPTEXTW tip = {};
                 tip.hdr = {g.tree, reinterpret_cast<UINT_PTR>(item), TTN_NEEDTEXTW};
                 LRESULT result = 1;
                 texts += Shown(g.tree.OnToolTipText(0, &tip.hdr, &result)) + testkit::Quoted(tip.szText);
             }
             return texts;
         },
         Memory},
        {"End",
         [](TreeGround& g) {
             g.tree.DestroyWindow();
             return Shown(liveData);
         },
         NoException,
         {},
         nullptr,
         Once},
        {"Press",
         [](TreeGround& g) {
             // Beside the items: on one the tree waits for the release itself.
             g.tree.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(140, 140));
             g.tree.SendMessage(WM_LBUTTONUP, 0, MAKELPARAM(140, 140));
             return "";
         }},
    });
}

FAILING_SUITE(FailingTree, OfTree());

// Progress dialog

class ProgressGround : public ControlGround
{
public:
    ProgressGround()
    {
        dialog.CreateNonModal(&parent);
        dialog.m_strStatus = text;
    }
    ~ProgressGround() override { dialog.DestroyWindow(); }
    std::string State() override
    {
        wchar_t line[100] = L"";
        if (dialog.GetSafeHwnd() != nullptr)
            ::GetDlgItemTextW(dialog, 700, line, 100);
        return std::string("at ") +
               std::to_string(::SendMessageW(dialog.m_ProgressCtrl.m_hWnd, PBM_GETPOS, 0, 0)) + ", " +
               testkit::Quoted(line) + ", " + Shown(dialog.m_strStatus);
    }

    CDlgProgressBar dialog;
    wchar_t status[30] = L"the work goes on";
};

std::vector<Operation> OfProgressDialog()
{
    return OperationsOn<ProgressGround>({
        {"CreateNonModal",
         [](ProgressGround& g) {
             CDlgProgressBar fresh(&g.parent);
             struct End
             {
                 CDlgProgressBar& dialog;
                 ~End() { dialog.DestroyWindow(); }
             } end{fresh};
             const bool isCreated = fresh.CreateNonModal(&g.parent) != FALSE;
             fresh.SetPos(5);
             return Shown(isCreated) + Shown(fresh.GetSafeHwnd() != nullptr);
         },
         Memory,
         {"falsefalse"},
         nullptr,
         Reported},
        {"Set",
         [](ProgressGround& g) {
             g.dialog.Set(0, 10, 2);
             return "";
         }},
        {"SetPos",
         [](ProgressGround& g) {
             g.dialog.SetPos(5);
             return "";
         }},
        {"MoveNextStep",
         [](ProgressGround& g) {
             g.dialog.Set(0, 100, 3);
             g.dialog.SetPos(0);
             g.dialog.MoveNextStep();
             return "";
         }},
        {"SetStatusInfo",
         [](ProgressGround& g) {
             g.dialog.SetStatusInfo(g.status);
             return "";
         }},
        {"UpdateData",
         [](ProgressGround& g) { return Shown(g.dialog.UpdateData(FALSE)); },
         Memory,
         {"0"},
         nullptr,
         Reported},
        {"Paint",
         [](ProgressGround& g) {
             g.dialog.RedrawWindow(nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
             return "";
         }},
    });
}

FAILING_SUITE(FailingProgressDialog, OfProgressDialog());

} // namespace
