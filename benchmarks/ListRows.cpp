// The list control, against the platform's plain list view with the same rows, columns and texts.

#include "VelmUtil22.h"

#include "Bench.h"

#include <algorithm>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

namespace
{

constexpr int ManyRows = 100000;
constexpr int FewRows = 50;
constexpr int Columns = 8;

// A list in a visible window of its own, kept from row to row of the benchmarks.
template <class List>
class Stage
{
public:
    Stage()
    {
        m_frame.CreateEx(0, AfxRegisterWndClass(0), L"", WS_POPUP | WS_VISIBLE, CRect(0, 0, 900, 900),
                         nullptr, 0);
        if (!m_list.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT, CRect(0, 0, 880, 880), &m_frame, 1))
            throw std::runtime_error("the list was not created");
        for (int column = 0; column < Columns; ++column)
            m_list.InsertColumn(column, L"Column", LVCFMT_LEFT, 100);
    }

    List& Get() { return m_list; }

    void Empty()
    {
        m_list.SetRedraw(FALSE);
        m_list.DeleteAllItems();
        m_list.SetRedraw(TRUE);
    }

    // What every caller does who fills a list with many rows.
    void FillQuietly(int rows, const std::function<void(int row)>& fill)
    {
        m_list.SetRedraw(FALSE);
        m_list.DeleteAllItems();
        m_list.SetItemCount(rows);
        for (int row = 0; row < rows; ++row)
            fill(row);
        m_list.SetRedraw(TRUE);
    }

private:
    CWnd m_frame;
    List m_list;
};

// Made when first needed and never destroyed: windows of a program that ends go with it.
template <class List>
Stage<List>& StageOf()
{
    static auto& stage = *new Stage<List>;
    return stage;
}

CXListCtrl& Ours()
{
    return StageOf<CXListCtrl>().Get();
}
CListCtrl& Plain()
{
    return StageOf<CListCtrl>().Get();
}

void FillPlain(int rows)
{
    StageOf<CListCtrl>().FillQuietly(rows, [](int row) {
        Plain().InsertItem(row, L"some text");
        for (int column = 1; column < Columns; ++column)
            Plain().SetItemText(row, column, L"some text");
    });
}

void FillOurs(int rows)
{
    StageOf<CXListCtrl>().FillQuietly(rows, [](int row) {
        Ours().InsertItem(row, L"some text", RGB(0, 0, 128), RGB(240, 240, 255));
        for (int column = 1; column < Columns; ++column)
            Ours().SetItemText(row, column, L"some text", RGB(0, 0, 128), RGB(240, 240, 255));
    });
}

// The bytes of all blocks on the process's heaps, the control's own among them.
size_t HeapBytes()
{
    std::vector<HANDLE> heaps(::GetProcessHeaps(0, nullptr));
    heaps.resize(
        std::min<size_t>(heaps.size(), ::GetProcessHeaps(static_cast<DWORD>(heaps.size()), heaps.data())));
    size_t bytes = 0;
    for (const HANDLE heap : heaps) {
        ::HeapLock(heap);
        PROCESS_HEAP_ENTRY entry = {};
        while (::HeapWalk(heap, &entry)) {
            if ((entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0)
                bytes += entry.cbData + entry.cbOverhead;
        }
        ::HeapUnlock(heap);
    }
    return bytes;
}

template <class List>
size_t BytesPerRow(void (*fill)(int rows))
{
    constexpr int Rows = 10000;
    StageOf<List>().Empty();
    const size_t before = HeapBytes();
    fill(Rows);
    const size_t after = HeapBytes();
    StageOf<List>().Empty();
    return (after - before) / Rows;
}

std::string MemoryNote()
{
    return "memory per row: " + std::to_string(BytesPerRow<CXListCtrl>(FillOurs)) +
           " bytes of the heap, plain " + std::to_string(BytesPerRow<CListCtrl>(FillPlain)) +
           "; one record has " + std::to_string(sizeof(XLISTCTRLDATA));
}

void PrepareOurs(int rows, int checkedState, int headerState)
{
    if (Ours().GetItemCount() != rows)
        FillOurs(rows);
    Ours().SetHeaderCheckedState(0, 0);
    Ours().SetRedraw(FALSE);
    for (int row = 0; row < rows; ++row)
        Ours().SetCheckbox(row, 0, checkedState);
    Ours().SetRedraw(TRUE);
    Ours().SetHeaderCheckedState(0, headerState);
}

size_t CheckAll()
{
    Ours().SetRedraw(FALSE);
    for (int row = 0; row < ManyRows; ++row)
        Ours().SetCheckbox(row, 0, 1);
    Ours().SetRedraw(TRUE);
    return ManyRows;
}

constexpr size_t Clicks = 200;

// Clicks on the check box of a row, with the row in sight.
size_t ClickRow(int row)
{
    CRect cell;
    Ours().GetSubItemRect(row, 0, LVIR_BOUNDS, cell);
    const LPARAM point = MAKELPARAM(cell.left + 12, cell.CenterPoint().y);
    for (size_t i = 0; i < Clicks; ++i) {
        Ours().SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, point);
        Ours().SendMessage(WM_LBUTTONUP, 0, point);
    }
    return Clicks;
}

void PrepareClick(int row)
{
    if (Ours().GetItemCount() != ManyRows || Ours().GetCheckbox(row, 0) == -1)
        PrepareOurs(ManyRows, 0, 1);
    Ours().EnsureVisible(row, FALSE);
    Ours().UpdateWindow();
}

size_t ClickColumn()
{
    NMLISTVIEW click = {};
    click.hdr.hwndFrom = Ours().m_hWnd;
    click.hdr.idFrom = 1;
    click.hdr.code = LVN_COLUMNCLICK;
    click.iItem = -1;
    Ours().GetParent()->SendMessage(WM_NOTIFY, 1, reinterpret_cast<LPARAM>(&click));
    return ManyRows;
}

size_t ReadAll()
{
    int checked = 0;
    for (int row = 0; row < ManyRows; ++row)
        checked += Ours().GetCheckbox(row, 0);
    return checked >= 0 ? ManyRows : 0;
}

constexpr size_t Paints = 20;

template <class List>
size_t Repaint(List& list)
{
    for (size_t i = 0; i < Paints; ++i) {
        list.Invalidate();
        list.UpdateWindow();
    }
    return Paints;
}

const bench::Registration fill{{"list: 100,000 rows by 8 columns with colours, against plain ones",
                                "row",
                                {[] {
                                     FillOurs(ManyRows);
                                     return static_cast<size_t>(ManyRows);
                                 },
                                 ManyRows, [] { StageOf<CXListCtrl>().Empty(); }},
                                {[] {
                                     FillPlain(ManyRows);
                                     return static_cast<size_t>(ManyRows);
                                 },
                                 ManyRows, [] { StageOf<CListCtrl>().Empty(); }},
                                1.5,
                                MemoryNote}};

const bench::Registration checkWithHeader{
    {"list: SetCheckbox on 100,000 rows, with a header check box against without",
     "row",
     {CheckAll, ManyRows, [] { PrepareOurs(ManyRows, 0, 1); }},
     {CheckAll, ManyRows, [] { PrepareOurs(ManyRows, 0, 0); }},
     2.0}};

const bench::Registration clickFarRow{{"list: click on row 99,990 against row 10",
                                       "click",
                                       {[] { return ClickRow(99990); }, Clicks, [] { PrepareClick(99990); }},
                                       {[] { return ClickRow(10); }, Clicks, [] { PrepareClick(10); }},
                                       1.2}};

const bench::Registration clickColumn{
    {"list: column click over 100,000 rows, against one GetCheckbox of each",
     "row",
     {ClickColumn, ManyRows, [] { PrepareOurs(ManyRows, 0, 1); }},
     {ReadAll, ManyRows, [] { PrepareOurs(ManyRows, 0, 1); }},
     10.0}};

const bench::Registration repaint{{"list: repaint of 50 rows by 8 columns, against plain ones",
                                   "window",
                                   {[] { return Repaint(Ours()); }, Paints, [] { FillOurs(FewRows); }},
                                   {[] { return Repaint(Plain()); }, Paints, [] { FillPlain(FewRows); }},
                                   1.5}};

} // namespace
