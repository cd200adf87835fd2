// The steps of mouse, keyboard, timers and drawing, of the drop-down and of the windows.
#include "ListWorld.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace randomplay
{
namespace
{

constexpr UINT_PTR ButtonTimer = 1;
constexpr UINT_PTR CloseTimer = 2;
constexpr UINT_PTR CommitTimer = 3;
constexpr UINT_PTR CopyTimer = 4;

// Handles the posted messages of a window, of one kind, as the program's loop does.
void HandlePosted(HWND window, UINT first, UINT last)
{
    MSG message;
    while (::IsWindow(window) && ::PeekMessage(&message, window, first, last, PM_REMOVE)) {
        if (!AfxPreTranslateMessage(&message))
            ::DispatchMessage(&message);
    }
}

void Post(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    ::PostMessage(window, message, wParam, lParam);
    HandlePosted(window, message, message);
}

} // namespace

bool ListWorld::DoInput(const Step& step)
{
    const auto [a, b, c, d] = step.numbers;
    m_isComboStep = true;
    switch (static_cast<Op>(step.operation)) {
    case Op::Press:
        PressAt(PointOf(step), d % 4 == 3);
        return true;
    case Op::Release: {
        const CPoint point = PointOf(step);
        if (d % 4 == 3)
            Post(m_window, WM_LBUTTONUP, 0, MAKELPARAM(point.x, point.y));
        else
            Ask(WM_LBUTTONUP, 0, MAKELPARAM(point.x, point.y));
        return true;
    }
    case Op::ClickColumn:
        ClickColumn(ColumnOf(a));
        return true;
    case Op::Key: {
        constexpr WPARAM Keys[] = {VK_DOWN,  VK_UP,     VK_HOME, VK_END,    VK_PRIOR, VK_NEXT,
                                   VK_SPACE, VK_RETURN, VK_LEFT, VK_ESCAPE, VK_TAB,   'R'};
        const WPARAM key = Keys[a % std::size(Keys)];
        if (b % 2 == 1)
            Post(m_window, WM_KEYDOWN, key, 1);
        else
            Ask(WM_KEYDOWN, key, 1);
        if (HasWindow() && c % 4 == 3)
            Ask(WM_CHAR, 'r', 1);
        return true;
    }
    case Op::MoveMouse: {
        const CPoint point = PointOf(step);
        CPoint screen = point;
        ::ClientToScreen(m_window, &screen);
        QuietPlatform::PutMouse(screen);
        if (m_list->m_pCombo != nullptr && d % 2 == 1) {
            CRect popup;
            m_list->m_pCombo->GetWindowRect(&popup);
            QuietPlatform::PutMouse(popup.TopLeft() + CPoint(5, static_cast<int>(c % 60)));
        }
        Ask(WM_MOUSEMOVE, 0, MAKELPARAM(point.x, point.y));
        return true;
    }
    case Op::Tick:
        Tick(step);
        return true;
    case Op::ToolHit:
        ToolHit(PointOf(step));
        return true;
    case Op::AskTip:
        AskTip(step);
        return true;
    case Op::Scroll:
        if (a % 2 == 1)
            Ask(LVM_ENSUREVISIBLE, static_cast<WPARAM>(RowOf(b)), FALSE);
        else
            Ask(LVM_SCROLL, static_cast<WPARAM>(static_cast<int>(b % 200) - 100),
                static_cast<int>(c % 200) - 100);
        return true;
    case Op::Draw:
        if (a % 2 == 1)
            ::UpdateWindow(m_window);
        else
            ::RedrawWindow(m_window, nullptr, nullptr,
                           RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW | RDW_ALLCHILDREN);
        return true;
    default:
        return false;
    }
}

void ListWorld::PressAt(CPoint point, bool isPosted)
{
    const int row = RowAt(point);
    const RowModel* const pressed = m_model.Row(row);
    const bool isSwallowed = pressed != nullptr && !(pressed->HasRecords() && pressed->isEnabled);
    const int column = row >= 0 ? ColumnAt(row, point) : -1;
    CellModel* const cell = isSwallowed ? nullptr : m_model.Cell(row, column);
    const std::vector<bool> selection = Selection();
    const HWND dropDown = m_list->m_pCombo != nullptr ? m_list->m_pCombo->GetSafeHwnd() : nullptr;

    const bool isToggled = cell != nullptr && cell->checkedState >= 0;
    const bool isDropDown = !isToggled && cell != nullptr && cell->isCombo;
    if (isToggled) {
        cell->checkedState = cell->checkedState == 0 ? 1 : 0;
        m_expected.push_back({WM_XLISTCTRL_CHECKBOX_CLICKED, row, column});
    } else if (!isSwallowed && !isDropDown && dropDown != nullptr) {
        // The entry of the opening comes back.
        PutBack();
    } else if (isDropDown) {
        const CRect rect = CellRect(row, column);
        // So it has always been: the lower edge of the zone is where its right one is.
        if (point.x >= rect.right - rect.Height() && point.y <= rect.right)
            cell->isDown = true;
    }
    const unsigned long long reactions = Reactions();
    const LPARAM place = MAKELPARAM(point.x, point.y);
    if (isPosted)
        Post(m_window, WM_LBUTTONDOWN, MK_LBUTTON, place);
    else
        Ask(WM_LBUTTONDOWN, MK_LBUTTON, place);
    if (!HasWindow())
        return;
    if (isToggled)
        m_model.FollowRows(column);
    if (isSwallowed) {
        Expect(Selection(), selection, "selection after a press that is swallowed", row, column);
        Expect(m_list->m_pCombo != nullptr ? m_list->m_pCombo->GetSafeHwnd() : nullptr, dropDown,
               "drop-down after a press that is swallowed", row, column);
    }
    if (isDropDown && Reactions() == reactions && dropDown != nullptr)
        Expect(::IsWindow(dropDown) != FALSE, false, "drop-down after a press on a drop-down cell", row,
               column);
}

void ListWorld::ClickColumn(int column)
{
    NMLISTVIEW click = {};
    click.hdr = {m_window, 1, static_cast<UINT>(LVN_COLUMNCLICK)};
    click.iItem = -1;
    click.iSubItem = column;
    if (0 <= column && column < m_model.Columns() && m_model.HeaderState(column) != 0) {
        const int state = m_model.HeaderState(column) == 1 ? 1 : 0;
        m_model.HeaderState(column) = state + 1;
        for (int row = 0; row < m_model.Rows(); ++row) {
            CellModel* const cell = m_model.Cell(row, column);
            if (cell != nullptr && cell->checkedState != -1)
                cell->checkedState = state;
        }
    }
    Parent().SendMessage(WM_NOTIFY, 1, reinterpret_cast<LPARAM>(&click));
}

void ListWorld::Tick(const Step& step)
{
    const std::vector<QuietPlatform::Timer> timers = QuietPlatform::Timers();
    if (timers.empty() || step.numbers[0] % 8 == 7) {
        TickList(1 + step.numbers[1] % 6);
        return;
    }
    const auto [window, id] = timers[step.numbers[1] % timers.size()];
    if (window == m_window)
        TickList(id);
    else
        ::SendMessage(window, WM_TIMER, id, 0);
}

void ListWorld::TickList(UINT_PTR id)
{
    CXComboList* const dropDown = m_list->m_pCombo;
    const int row = m_list->m_nComboItem, column = m_list->m_nComboSubItem;
    if (dropDown != nullptr && (id == CommitTimer || id == CopyTimer) && dropDown->GetCurSel() >= 0 &&
        m_model.HasCell(row, column))
    {
        CString text;
        dropDown->GetText(dropDown->GetCurSel(), text);
        m_model.Text(row, column) = text;
        if (id == CommitTimer)
            m_expected.push_back({WM_XLISTCTRL_COMBO_SELECTION, row, column});
    }
    m_isReleased = m_isReleased || id == ButtonTimer;
    const unsigned long long reactions = Reactions();
    Ask(WM_TIMER, id);
    if (!HasWindow() || Reactions() != reactions)
        return;
    // A list that goes with the focus tells so, which starts the timer of closing once more.
    if (id == CommitTimer || id == CopyTimer || (id == CloseTimer && dropDown == nullptr))
        Expect(QuietPlatform::Runs(m_window, id), false, "timer runs on", static_cast<int>(id));
    // Where a button is down, the next drawing opens the list again.
    if ((id == CloseTimer || id == CommitTimer) && !m_model.IsAnyDown())
        Expect(m_list->m_pCombo == nullptr, true, "drop-down is closed by a timer", static_cast<int>(id));
}

void ListWorld::ToolHit(CPoint point)
{
    LVHITTESTINFO hit = {};
    hit.pt = point;
    Ask(LVM_SUBITEMHITTEST, 0, reinterpret_cast<LPARAM>(&hit));
    const bool isHit = (hit.flags & LVHT_ONITEMLABEL) != 0;
    TOOLINFO tool = {};
    tool.cbSize = sizeof(tool);
    const INT_PTR number = m_list->OnToolHitTest(point, &tool);
    Expect(number, static_cast<INT_PTR>(isHit ? hit.iItem * 1000 + hit.iSubItem + 1 : -1), "OnToolHitTest");
    Expect(tool.hwnd, isHit ? m_window : nullptr, "tool's window");
    Expect(tool.uId, isHit ? static_cast<UINT_PTR>(number) : 0, "tool's id");
    Expect(m_list->OnToolHitTest(point, nullptr), number, "OnToolHitTest without a tool");
}

void ListWorld::AskTip(const Step& step)
{
    CPoint point = PointOf(step);
    LVHITTESTINFO hit = {};
    hit.pt = point;
    Ask(LVM_SUBITEMHITTEST, 0, reinterpret_cast<LPARAM>(&hit));
    std::wstring expected = L"?";
    if (const CellModel* const cell = m_model.Cell(hit.iItem, hit.iSubItem);
        cell != nullptr && (hit.flags & LVHT_ONITEMLABEL) != 0 && !cell->tip.empty())
        expected = cell->tip.substr(0, 79);
    ::ClientToScreen(m_window, &point);
    QuietPlatform::PutMouse(point);

    NMTTDISPINFO tip = {};
    tip.hdr = {m_window, 1, static_cast<UINT>(TTN_NEEDTEXT)};
    tip.lpszText = tip.szText;
    tip.szText[0] = L'?';
    const auto before = reactionsRun[static_cast<size_t>(Moment::BeforeTip)];
    Ask(WM_NOTIFY, 1, reinterpret_cast<LPARAM>(&tip));
    if (reactionsRun[static_cast<size_t>(Moment::BeforeTip)] == before)
        Expect(std::wstring(tip.lpszText), expected, "tip that was asked for", hit.iItem, hit.iSubItem);
}

// The drop-down

bool ListWorld::DoDropDown(const Step& step)
{
    const auto [a, b, c, d] = step.numbers;
    m_isComboStep = true;
    CXComboList* const dropDown = m_list->m_pCombo;
    const HWND window = dropDown != nullptr ? dropDown->GetSafeHwnd() : nullptr;
    const HWND listBox = window != nullptr ? ::GetWindow(window, GW_CHILD) : nullptr;
    switch (static_cast<Op>(step.operation)) {
    case Op::OpenDropDown:
        OpenDropDown(RowOf(a), ColumnOf(b), step);
        return true;
    case Op::ComboKey:
        if (dropDown != nullptr)
            ComboKey(listBox, a);
        return true;
    case Op::ComboPick:
        if (dropDown != nullptr && dropDown->GetCount() > 0) {
            const auto entry = static_cast<INT_PTR>(a % static_cast<uint32_t>(dropDown->GetCount()));
            dropDown->SetCurSel(entry);
            Expect(dropDown->GetCurSel(), entry, "SetCurSel of the drop-down");
        }
        return true;
    case Op::ComboClick: {
        const LPARAM place = MAKELPARAM(3, c % 60);
        if (dropDown == nullptr)
            return true;
        if (a % 4 == 3) {
            ::SendMessage(window, WM_LBUTTONDOWN, MK_LBUTTON, place);
        } else {
            Post(listBox, WM_LBUTTONDOWN, MK_LBUTTON, place);
            Post(listBox, WM_LBUTTONUP, 0, place);
        }
        Expect(QuietPlatform::Runs(m_window, CommitTimer), true, "timer after a click in the drop-down");
        return true;
    }
    default:
        return false;
    }
}

void ListWorld::PutBack()
{
    const int row = m_list->m_nComboItem, column = m_list->m_nComboSubItem;
    if (m_model.HasCell(row, column))
        m_model.Text(row, column) = m_list->m_strComboOpenText;
}

// Makes a cell a drop-down, whatever it was, and presses its button.
void ListWorld::OpenDropDown(int row, int column, const Step& step)
{
    if (m_model.Cell(row, column) == nullptr)
        return;
    const uint32_t cell = static_cast<uint32_t>(row) * 16, place = static_cast<uint32_t>(column) * 16;
    const auto play = [&](Op op, uint32_t first, uint32_t second) {
        if (HasWindow() && m_model.Cell(row, column) != nullptr)
            Do({static_cast<unsigned>(op), {cell, place, first, second}});
    };
    play(Op::SetCheckbox, 0, 0);
    play(Op::DeleteProgress, 0, 0);
    play(Op::SetEnabled, 0, 0);
    play(Op::SetCombo, step.numbers[2] % 2, 8 + 7);
    if (!HasWindow() || m_model.Cell(row, column) == nullptr)
        return;
    m_list->SetItemState(-1, 0, LVIS_SELECTED);
    m_list->SetCurSel(row);
    Ask(LVM_ENSUREVISIBLE, static_cast<WPARAM>(row), FALSE);

    const bool isAnyDown = m_model.IsAnyDown();
    const CRect rect = CellRect(row, column);
    const CPoint point(rect.right - 2, rect.top + 1);
    CRect client, parent, list;
    ::GetClientRect(m_window, &client);
    ::GetWindowRect(m_window, &list);
    ::GetClientRect(::GetParent(m_window), &parent);
    ::MapWindowPoints(::GetParent(m_window), nullptr, reinterpret_cast<POINT*>(&parent), 2);
    // Below the header, and not up to the right edge: the list of a cell that ends exactly there was seen not
    // to open at the first drawing.
    client.top = rect.Height() + 10;
    client.right -= 1;
    const auto isWithin = [](const CRect& inner, const CRect& outer) {
        CRect common;
        return common.IntersectRect(&inner, &outer) && common == inner;
    };
    const bool isSeen = IsShown() && rect.Width() > 2 * rect.Height() && isWithin(rect, client) &&
                        isWithin(list, parent) && RowAt(point) == row && ColumnAt(row, point) == column;
    PressAt(point, false);
    // Another button that is down may open its own list.
    const CellModel* const pressed = HasWindow() ? m_model.Cell(row, column) : nullptr;
    if (pressed == nullptr || !pressed->isDown || !isSeen || isAnyDown)
        return;
    ::UpdateWindow(m_window);
    if (!HasWindow())
        return;
    Expect(m_list->m_pCombo != nullptr, true, "drop-down opens at a press", row, column);
    Expect(m_list->m_nComboItem, row, "drop-down's row", row, column);
    Expect(m_list->m_nComboSubItem, column, "drop-down's column", row, column);
}

void ListWorld::ComboKey(HWND listBox, uint32_t number)
{
    constexpr WPARAM Keys[] = {VK_RETURN, VK_ESCAPE, VK_DOWN, VK_UP, VK_NEXT, VK_PRIOR,
                               VK_HOME,   VK_END,    'O',     'Z',   VK_TAB};
    const WPARAM key = Keys[number % std::size(Keys)];
    if (key == VK_ESCAPE)
        PutBack();
    ::randomplay::Post(listBox, WM_KEYDOWN, key, 1);
    if (!HasWindow())
        return;
    if (key == VK_RETURN)
        Expect(QuietPlatform::Runs(m_window, CommitTimer), true, "timer after Enter in the drop-down");
    if (key == VK_ESCAPE)
        Expect(QuietPlatform::Runs(m_window, CloseTimer), true, "timer after Escape in the drop-down");
}

// Brings about the moment that the reaction waits for, in some cell.
void ListWorld::Provoke(int row, int column)
{
    if (m_model.Cell(row, column) == nullptr)
        return;
    const uint32_t cell = static_cast<uint32_t>(row) * 16, place = static_cast<uint32_t>(column) * 16;
    const auto play = [&](Op op, std::array<uint32_t, 4> numbers) {
        if (m_list && HasWindow())
            Do({static_cast<unsigned>(op), numbers});
    };
    switch (m_reactionMoment) {
    case Moment::CheckboxMessage:
        play(Op::SetEnabled, {cell, place, 0, 0});
        play(Op::SetCheckbox, {cell, place, 1, 0});
        play(Op::Press, {cell, place, 1, 0});
        break;
    case Moment::ComboMessage:
        play(Op::OpenDropDown, {cell, place, 0, 0});
        play(Op::ComboPick, {static_cast<uint32_t>(row), 0, 0, 0});
        play(Op::ComboKey, {0, 0, 0, 0});
        if (m_list && HasWindow())
            TickList(CommitTimer);
        break;
    default:
        play(Op::AskTip, {cell, place, 0, 0});
    }
}

// Windows

bool ListWorld::DoWindows(const Step& step)
{
    const auto [a, b, c, d] = step.numbers;
    m_isComboStep = m_isComboStep || step.operation >= static_cast<unsigned>(Op::Resize);
    const HWND parent = Parent().GetSafeHwnd();
    switch (static_cast<Op>(step.operation)) {
    case Op::Resize:
        if (HasWindow())
            m_list->SetWindowPos(nullptr, static_cast<int>(a % 40), static_cast<int>(b % 40),
                                 c % 4 == 0 ? 300 : static_cast<int>(c % 400),
                                 c % 4 == 0 ? 250 : static_cast<int>(d % 300), SWP_NOZORDER);
        return true;
    case Op::ShowList:
        if (HasWindow())
            m_list->ShowWindow(a % 3 == 0 ? SW_HIDE : SW_SHOW);
        return true;
    case Op::ShowParent:
        if (parent != nullptr)
            ::ShowWindow(parent, a % 3 == 0 ? SW_HIDE : SW_SHOW);
        return true;
    case Op::SetRedraw:
        if (HasWindow()) {
            m_isRedrawOn = a % 3 != 0;
            Ask(WM_SETREDRAW, m_isRedrawOn);
        }
        return true;
    case Op::Focus:
        ::SetFocus(HasWindow() && a % 3 == 0 ? m_window : m_parents[a % 2]->GetSafeHwnd());
        return true;
    case Op::Reparent:
        if (HasWindow() && m_parents[1 - m_parentIndex]->GetSafeHwnd() != nullptr) {
            m_parentIndex = 1 - m_parentIndex;
            m_list->SetParent(&Parent());
        }
        return true;
    case Op::DestroyList:
        if (HasWindow()) {
            m_list->DestroyWindow();
            LoseWindow();
        }
        return true;
    case Op::DestroyParent:
        if (parent != nullptr) {
            Parent().DestroyWindow();
            LoseWindow();
        }
        return true;
    case Op::DeleteObject:
        if (m_list) {
            m_list.reset();
            LoseWindow();
        }
        return true;
    case Op::MakeAgain:
        MakeAll();
        return true;
    case Op::React:
        Arm(step);
        if (d % 4 != 0 && m_list && HasWindow())
            Provoke(RowOf(b / 64), ColumnOf(c / 64));
        return true;
    default:
        return false;
    }
}

} // namespace randomplay
