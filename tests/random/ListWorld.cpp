#include "ListWorld.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace randomplay
{
namespace
{

constexpr DWORD ListStyle = WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_SHOWSELALWAYS;
constexpr int MostDepth = 4;

// In the order of ListWorld::Op: name, weight, and weight in the play of drop-downs.
struct Weighed
{
    const char* name;
    unsigned weight;
    unsigned dropDownWeight;
};
constexpr Weighed Weights[] = {
    {"InsertText", 8, 3},
    {"InsertColored", 4, 1},
    {"InsertDescribed", 4, 1},
    {"InsertPast", 2, 1},
    {"DeleteRow", 4, 2},
    {"DeleteRowPast", 2, 1},
    {"DeleteAll", 1, 1},
    {"DeleteAllPast", 1, 1},
    {"DeleteChecked", 1, 1},
    {"Select", 5, 5},
    {"InsertColumn", 2, 1},
    {"DeleteColumn", 1, 1},
    {"SizeColumn", 2, 1},
    {"OrderColumns", 1, 1},
    {"SetText", 6, 3},
    {"SetTextColors", 4, 1},
    {"SetDescribed", 3, 1},
    {"SetData", 2, 0},
    {"SetBold", 2, 0},
    {"SetEnabled", 3, 2},
    {"SetImage", 2, 0},
    {"SetTip", 4, 0},
    {"DeleteTips", 1, 0},
    {"SetCheckbox", 12, 2},
    {"SetHeaderState", 4, 0},
    {"SetCombo", 6, 8},
    {"ChangeChoices", 2, 4},
    {"SetProgress", 3, 1},
    {"UpdateProgress", 3, 0},
    {"DeleteProgress", 2, 1},
    {"Sort", 2, 1},
    {"Press", 14, 14},
    {"Release", 5, 8},
    {"ClickColumn", 4, 0},
    {"Key", 4, 2},
    {"MoveMouse", 3, 6},
    {"Tick", 8, 20},
    {"OpenDropDown", 5, 20},
    {"ComboKey", 6, 20},
    {"ComboPick", 4, 12},
    {"ComboClick", 3, 8},
    {"ToolHit", 3, 0},
    {"AskTip", 5, 0},
    {"Scroll", 3, 2},
    {"Draw", 5, 6},
    {"Resize", 3, 2},
    {"ShowList", 3, 2},
    {"ShowParent", 1, 1},
    {"SetRedraw", 3, 2},
    {"Focus", 2, 4},
    {"Reparent", 1, 1},
    {"DestroyList", 1, 1},
    {"DestroyParent", 1, 1},
    {"DeleteObject", 1, 1},
    {"MakeAgain", 14, 14},
    {"React", 14, 14},
};
constexpr size_t Count = static_cast<size_t>(ListWorld::Op::Count);
static_assert(std::size(Weights) == Count);

std::array<Operation, Count> Weigh(unsigned Weighed::*weight)
{
    std::array<Operation, Count> operations;
    for (size_t i = 0; i < Count; ++i)
        operations[i] = {Weights[i].name, Weights[i].*weight};
    return operations;
}

} // namespace

LRESULT WorldParent::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_XLISTCTRL_CHECKBOX_CLICKED || message == WM_XLISTCTRL_COMBO_SELECTION) {
        m_world.m_told.push_back({message, static_cast<int>(wParam), static_cast<int>(lParam)});
        m_world.RunReaction(message == WM_XLISTCTRL_CHECKBOX_CLICKED ? ListWorld::Moment::CheckboxMessage
                                                                     : ListWorld::Moment::ComboMessage);
    }
    if (message == WM_NOTIFY && reinterpret_cast<const NMHDR*>(lParam)->code == static_cast<UINT>(NM_CLICK))
        m_world.m_isReleased = true;
    return CWnd::WindowProc(message, wParam, lParam);
}

BOOL WorldList::OnToolTipText(UINT id, NMHDR* notification, LRESULT* result)
{
    ListWorld& world = m_world;
    world.RunReaction(ListWorld::Moment::BeforeTip);
    // Who deletes the object in its own handler must end the message there.
    if (world.m_list.get() != this)
        return TRUE;
    const BOOL isHandled = CXListCtrl::OnToolTipText(id, notification, result);
    world.RunReaction(ListWorld::Moment::AfterTip);
    return world.m_list.get() != this || isHandled;
}

std::span<const Operation> ListWorld::Operations()
{
    static const auto operations = Weigh(&Weighed::weight);
    return operations;
}

std::span<const Operation> ListWorld::DropDownOperations()
{
    static const auto operations = Weigh(&Weighed::dropDownWeight);
    return operations;
}

ListWorld::ListWorld()
{
    for (const wchar_t* const choice : {L"zero", L"one", L"two"})
        m_choices[0].Add(choice);
    for (const wchar_t* const choice : {L"", L"x", L"one"})
        m_choices[1].Add(choice);
    if (!m_platform.IsReplaced() || !m_memory.IsReplaced())
        Fail("platform: a function was not replaced");
    MakeAll();
}

// The windows go before the objects, and the list before the choices that its cells point to.
ListWorld::~ListWorld()
{
    m_reaction.reset();
    for (const auto& parent : m_parents) {
        if (parent && parent->GetSafeHwnd() != nullptr)
            parent->DestroyWindow();
    }
    m_list.reset();
}

// Windows

void ListWorld::MakeAll()
{
    MakeParents();
    if (!HasWindow())
        MakeList();
}

void ListWorld::MakeParents()
{
    for (size_t i = 0; i < m_parents.size(); ++i) {
        if (m_parents[i] && m_parents[i]->GetSafeHwnd() != nullptr)
            continue;
        m_parents[i] = std::make_unique<WorldParent>(*this);
        const int left = 20 + 450 * static_cast<int>(i);
        if (!m_parents[i]->CreateEx(0, AfxRegisterWndClass(0), L"Parent", WS_POPUP | WS_VISIBLE,
                                    CRect(left, 20, left + 420, 320), nullptr, 0))
            Fail("window: no parent could be made");
    }
}

void ListWorld::MakeList()
{
    if (!m_list)
        m_list = std::make_unique<WorldList>(*this);
    if (!m_list->Create(ListStyle, CRect(10, 10, 310, 260), &Parent(), 1)) {
        Fail("window: no list could be made");
        return;
    }
    m_window = m_list->m_hWnd;
    m_hasWindow = true;
    m_isRedrawOn = true;
    m_list->SetExtendedStyle(LVS_EX_FULLROWSELECT);
    m_model = {};
    for (const int column : {0, 1, 2}) {
        m_list->InsertColumn(column, L"Column", LVCFMT_LEFT, 100 - 20 * column);
        m_model.InsertColumn(column);
    }
    for (int row = 0; row < 3; ++row) {
        Expect(m_list->InsertItem(row, L"row"), m_model.InsertRow(row, L"row", true), "InsertItem");
    }
}

void ListWorld::LoseWindow()
{
    m_hasWindow = false;
    m_model = {};
}

bool ListWorld::IsShown() const
{
    return m_hasWindow && m_isRedrawOn && ::IsWindowVisible(m_window) != FALSE;
}

// Steps

std::string ListWorld::Play(const Step& step)
{
    m_told.clear();
    m_expected.clear();
    m_before = DropDownNow();
    m_isReleased = false;
    m_isComboStep = false;
    Do(step);
    ++m_steps;
    Check();
    return m_failure;
}

std::string ListWorld::End()
{
    m_isEnding = true;
    Play({static_cast<unsigned>(Op::MakeAgain), {}});
    if (m_failure.empty())
        Play({static_cast<unsigned>(Op::DestroyList), {}});
    if (m_failure.empty()) {
        m_list.reset();
        Expect(Popups().size(), 0u, "drop-down left behind");
    }
    return m_failure;
}

void ListWorld::Do(const Step& step)
{
    if (m_depth >= MostDepth)
        return;
    ++m_depth;
    const bool isDone =
        DoWindows(step) ||
        (m_list && (DoRows(step) || DoColumns(step) || DoTexts(step) || DoFields(step) || DoKinds(step))) ||
        (m_list && HasWindow() && (DoInput(step) || DoDropDown(step)));
    --m_depth;
    if (!isDone && m_list && HasWindow())
        Fail("step: no operation " + std::to_string(step.operation));
}

// Reactions

void ListWorld::Arm(const Step& step)
{
    // What ends the list comes more often than the rest.
    constexpr Op Reactions[] = {Op::DestroyList,  Op::DeleteObject,  Op::DestroyParent, Op::DestroyList,
                                Op::DeleteObject, Op::DeleteObject,  Op::Reparent,      Op::ShowList,
                                Op::ShowParent,   Op::Resize,        Op::DeleteRow,     Op::DeleteRow,
                                Op::DeleteAll,    Op::InsertText,    Op::InsertColumn,  Op::DeleteColumn,
                                Op::SetCheckbox,  Op::SetCombo,      Op::OpenDropDown,  Op::Press,
                                Op::Tick,         Op::DeleteChecked, Op::Sort,          Op::SetRedraw,
                                Op::Draw,         Op::Focus};
    constexpr auto Moments = static_cast<uint32_t>(Moment::Count);
    m_reactionMoment = static_cast<Moment>(step.numbers[0] % Moments);
    const Op reaction = Reactions[step.numbers[1] % std::size(Reactions)];
    m_reaction = {static_cast<unsigned>(reaction),
                  {step.numbers[2], step.numbers[3], step.numbers[2] / 7, step.numbers[3] / 7}};
}

void ListWorld::RunReaction(Moment moment)
{
    if (!m_reaction || m_reactionMoment != moment)
        return;
    ++reactionsRun[static_cast<size_t>(moment)];
    const Step step = *m_reaction;
    m_reaction.reset();
    m_isComboStep = true;
    Do(step);
}

// What the numbers stand for

int ListWorld::RowOf(uint32_t number) const
{
    const auto rows = static_cast<uint32_t>(m_model.Rows());
    if (number % 16 == 15)
        return number % 32 == 31 ? -1 : m_model.Rows();
    return rows == 0 ? 0 : static_cast<int>(number / 16 % rows);
}

int ListWorld::ColumnOf(uint32_t number) const
{
    const auto columns = static_cast<uint32_t>(m_model.Columns());
    if (number % 16 == 15)
        return number % 32 == 31 ? -1 : m_model.Columns();
    return columns == 0 ? 0 : static_cast<int>(number / 16 % columns);
}

const std::wstring& ListWorld::TextOf(uint32_t number)
{
    static const std::wstring texts[] = {
        L"", L"a", L"row", L"one", L"two", L"Gr\u00f6\u00dfe \u4e2d", L"100% & more", std::wstring(90, L'w')};
    return texts[number % std::size(texts)];
}

COLORREF ListWorld::ColorOf(uint32_t number)
{
    return number % 4 == 0 ? 0xFFFFFFFF : RGB(number % 256, number / 256 % 256, number / 65536 % 256);
}

CPoint ListWorld::PointOf(const Step& step)
{
    const int row = RowOf(step.numbers[0]), column = ColumnOf(step.numbers[1]);
    if (!m_model.HasCell(row, column)) {
        CRect client;
        ::GetClientRect(m_window, &client);
        return CPoint(static_cast<int>(step.numbers[2] % 400) - 20,
                      static_cast<int>(step.numbers[3] % 300) - 10);
    }
    const CRect cell = CellRect(row, column);
    switch (step.numbers[2] % 4) {
    case 0:
        return cell.TopLeft() + CPoint(4, 3);
    case 1:
        return cell.CenterPoint();
    case 2: // the drop button's zone
        return CPoint(cell.right - 2, cell.top + 1);
    default: // just beside it
        return CPoint(cell.right - cell.Height() - 1, cell.top + 1);
    }
}

// The list view itself

CRect ListWorld::RowRect(int row) const
{
    CRect rect(0, 0, 0, 0);
    rect.left = LVIR_BOUNDS;
    if (!Read(LVM_GETITEMRECT, static_cast<WPARAM>(row), &rect))
        rect.SetRectEmpty();
    return rect;
}

CRect ListWorld::CellRect(int row, int column) const
{
    const auto ask = [&](int asked) {
        CRect rect(LVIR_BOUNDS, asked, 0, 0);
        Read(LVM_GETSUBITEMRECT, static_cast<WPARAM>(row), &rect);
        return rect;
    };
    CRect rect = ask(column);
    if (column == 0 && m_model.Columns() >= 2)
        rect.right = ask(1).left;
    return rect;
}

int ListWorld::RowAt(CPoint point) const
{
    for (int row = 0; row < m_model.Rows(); ++row) {
        if (RowRect(row).PtInRect(point))
            return row;
    }
    return -1;
}

int ListWorld::ColumnAt(int row, CPoint point) const
{
    for (int column = 0; column < m_model.Columns(); ++column) {
        if (CellRect(row, column).PtInRect(point))
            return column;
    }
    return -1;
}

std::vector<bool> ListWorld::Selection() const
{
    std::vector<bool> selection;
    for (int row = 0; row < m_model.Rows(); ++row)
        selection.push_back(
            Read(LVM_GETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<void*>(LVIS_SELECTED)) != 0);
    return selection;
}

XLISTCTRLDATA* ListWorld::RecordsOf(int row) const
{
    LVITEM item = {};
    item.mask = LVIF_PARAM;
    item.iItem = row;
    Read(LVM_GETITEM, 0, &item);
    return reinterpret_cast<XLISTCTRLDATA*>(item.lParam);
}

ListWorld::DropDown ListWorld::DropDownNow() const
{
    DropDown now;
    if (!m_list || m_list->m_pCombo == nullptr)
        return now;
    now.row = m_list->m_nComboItem;
    now.column = m_list->m_nComboSubItem;
    now.openText = m_list->m_strComboOpenText;
    const INT_PTR count = m_list->m_pCombo->GetCount();
    for (INT_PTR entry = 0; entry < count; ++entry) {
        CString text;
        m_list->m_pCombo->GetText(entry, text);
        now.entries.emplace_back(text);
    }
    return now;
}

std::vector<HWND> ListWorld::Popups() const
{
    std::vector<HWND> popups;
    const LPCTSTR name = AfxRegisterWndClass(CS_SAVEBITS | CS_CLASSDC, ::LoadCursor(nullptr, IDC_ARROW));
    // Other programs may have such windows as well.
    for (HWND window = nullptr; (window = ::FindWindowEx(nullptr, window, name, nullptr)) != nullptr;) {
        if (::GetWindowThreadProcessId(window, nullptr) == ::GetCurrentThreadId())
            popups.push_back(window);
    }
    return popups;
}

} // namespace randomplay
