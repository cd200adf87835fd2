#include "ListPage.h"

namespace
{

constexpr UINT_PTR MoveOnTimer = 1;
constexpr UINT MoveOnPeriod = 150;

constexpr int EmptyListHeight = 90;
constexpr int RowWithDropDown = 4;

constexpr UINT TasksId = 101;
constexpr UINT EmptyId = 102;

} // namespace

BEGIN_MESSAGE_MAP(CListPage, CGalleryPage)
ON_WM_TIMER()
ON_REGISTERED_MESSAGE(WM_XLISTCTRL_CHECKBOX_CLICKED, &CListPage::OnCheckboxClicked)
ON_REGISTERED_MESSAGE(WM_XLISTCTRL_COMBO_SELECTION, &CListPage::OnComboSelection)
END_MESSAGE_MAP()

bool CListPage::MakeControls()
{
    const CRect none(0, 0, 0, 0);
    const DWORD style = ChildStyle | WS_BORDER | WS_TABSTOP | LVS_REPORT | LVS_SHOWSELALWAYS;
    return m_tasks.Create(style, none, this, TasksId) && m_empty.Create(style, none, this, EmptyId);
}

void CListPage::Fill()
{
    m_tasks.Fill();
    m_empty.InsertColumn(0, L"Archive", LVCFMT_LEFT, 300);
    m_empty.SetDefaultTextMessage(L"Nothing has been archived yet.");
}

void CListPage::LayOut(CSize size)
{
    const int inner = size.cx - 2 * Margin;
    const int empty = size.cy - Margin - EmptyListHeight;
    m_tasks.MoveWindow(Margin, Margin, inner, empty - Gap - Margin);
    m_empty.MoveWindow(Margin, empty, inner, EmptyListHeight);
    m_tasks.FitLastColumn();
    CRect client;
    m_empty.GetClientRect(&client);
    m_empty.SetColumnWidth(0, client.Width());
}

void CListPage::OnShown()
{
    SetTimer(MoveOnTimer, MoveOnPeriod, nullptr);
}

void CListPage::OnHidden()
{
    KillTimer(MoveOnTimer);
}

void CListPage::OnTimer(UINT_PTR timer)
{
    if (timer == MoveOnTimer)
        m_tasks.MoveOn();
}

LRESULT CListPage::OnCheckboxClicked(WPARAM row, LPARAM column)
{
    const int task = static_cast<int>(row);
    const bool isDone = m_tasks.GetCheckbox(task, static_cast<int>(column)) == 1;
    m_tasks.SetItemText(task, static_cast<int>(column), isDone ? L"done" : L"open");
    Tell(m_tasks.GetComboText(task, CTaskList::TaskColumn) + (isDone ? L" is done." : L" is open again."));
    return 0;
}

LRESULT CListPage::OnComboSelection(WPARAM row, LPARAM column)
{
    const int task = static_cast<int>(row);
    Tell(m_tasks.GetComboText(task, CTaskList::TaskColumn) + L" has priority " +
         m_tasks.GetComboText(task, static_cast<int>(column)) + L" now.");
    return 0;
}

// With a drop-down open.
void CListPage::Pose(const std::wstring&)
{
    PressDropDown(m_tasks, RowWithDropDown, CTaskList::PriorityColumn);
}
