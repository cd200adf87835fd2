// What the tests of clicks, drop-down lists and tips share.
#pragma once

#include "ListTest.h"

#include <functional>
#include <memory>
#include <utility>

// While it lives, a function is called with every message that a window gets, before the window gets it. What
// the function destroys gets no message any more.
class MessageProbe
{
public:
    using Function = std::function<void(UINT message, WPARAM wParam, LPARAM lParam)>;

    MessageProbe(HWND window, Function function);
    ~MessageProbe();
    MessageProbe(const MessageProbe&) = delete;
    MessageProbe& operator=(const MessageProbe&) = delete;

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                      DWORD_PTR data);

    HWND m_window;
    Function m_function;
};

// A parent with handlers of its own for the list's notifications, as a dialog has them.
class HandlingParent : public CWnd
{
public:
    static constexpr UINT ListId = 1;
    std::vector<UINT> heard;

protected:
    afx_msg void OnNote(NMHDR* notification, LRESULT* result);
    DECLARE_MESSAGE_MAP()
};

// A list of three columns with full-row selection, three choices for drop-downs, and the cursor far away.
class InputTest : public ListTest
{
protected:
    // The window class of the drop-down list has a device context of its own, made with its first window.
    static void SetUpTestSuite();

    void SetUp() override;
    void TearDown() override;

    // Calls `function` whenever the list tells its parent of a click or a choice.
    void React(std::function<void()> function);

    void Press(CPoint point) { m_list.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(point.x, point.y)); }
    // Whether the list view itself got the press: it takes the focus then.
    bool PressIsPassedOn(CPoint point)
    {
        m_parent.SetFocus();
        Press(point);
        return ::GetFocus() == m_list.m_hWnd;
    }

    void Tick(UINT_PTR timer) { m_list.SendMessage(WM_TIMER, timer, 0); }
    // Whether a timer runs; it does not afterwards.
    bool StopTimer(UINT_PTR timer) { return m_list.KillTimer(timer) != FALSE; }

    void AddPlainRow() { m_list.CListCtrl::InsertItem(m_list.GetItemCount(), L"plain"); }
    bool IsSelected(int row) { return m_list.GetItemState(row, LVIS_SELECTED) != 0; }
    CString Text(int row, int column) { return m_list.GetItemText(row, column); }
    void MoveColumns(std::vector<int> order)
    {
        ASSERT_TRUE(m_list.SendMessage(LVM_SETCOLUMNORDERARRAY, order.size(),
                                       reinterpret_cast<LPARAM>(order.data())));
    }
    // The pixels of the check mark, as they stand on the screen, in a cell without text.
    int BlackPixels(int row, int column);

    CPoint BelowRows()
    {
        CRect last;
        m_list.GetItemRect(m_list.GetItemCount() - 1, &last, LVIR_BOUNDS);
        return CPoint(last.left + 5, last.bottom + 3);
    }
    CPoint BesideRow(int row)
    {
        const CRect last = Cell(row, 2);
        return CPoint(last.right + 5, last.CenterPoint().y);
    }
    CPoint Middle(int row, int column) { return Cell(row, column).CenterPoint(); }
    // A point of the drop button, and the first one to the left of its zone.
    CPoint Button(int row, int column)
    {
        const CRect cell = Cell(row, column);
        return CPoint(cell.right - 2, cell.top + 1);
    }
    CPoint BesideButton(int row, int column)
    {
        const CRect cell = Cell(row, column);
        return CPoint(cell.right - cell.Height() - 1, cell.top + 1);
    }

    void MakeCombo(int row, int column, int height = 5, int selection = 0)
    {
        ASSERT_TRUE(m_list.SetComboBox(row, column, TRUE, &m_choices, height, selection));
    }
    // Presses the button of a combo cell in the selected row, and lets the list draw.
    void PressButton(int row, int column)
    {
        m_list.SetItemState(-1, 0, LVIS_SELECTED);
        m_list.SetCurSel(row);
        Press(Button(row, column));
        m_list.UpdateWindow();
    }
    void OpenCombo(int row, int column, int height = 5, int selection = 0)
    {
        MakeCombo(row, column, height, selection);
        PressButton(row, column);
        ASSERT_NE(m_list.m_pCombo, nullptr);
    }
    HWND ListBox() { return ::GetWindow(m_list.m_pCombo->m_hWnd, GW_CHILD); }
    std::vector<std::wstring> Entries();

    // A key of the open list, as the message loop handles it.
    void PressKey(WPARAM key);

    CStringArray m_choices;

private:
    std::unique_ptr<MessageProbe> m_reaction;
};
