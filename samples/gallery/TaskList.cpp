#include "TaskList.h"

#include <algorithm>

#include "Pictures.h"

namespace
{

constexpr COLORREF Own = 0xFFFFFFFF;
constexpr int NoBar = -1;
constexpr int NoBox = -1;
constexpr int ComboRows = 6;
constexpr int LeastNoteWidth = 190;

constexpr COLORREF OwnerText = RGB(0, 70, 140);
constexpr COLORREF OwnerBackground = RGB(228, 240, 252);
constexpr COLORREF LateText = RGB(170, 20, 20);
constexpr COLORREF LateBackground = RGB(255, 232, 226);

} // namespace

void CTaskList::MakeColumns()
{
    InsertColumn(TaskColumn, L"Task", LVCFMT_LEFT, 180);
    InsertColumn(DoneColumn, L"Done", LVCFMT_LEFT, 90);
    InsertColumn(PriorityColumn, L"Priority", LVCFMT_LEFT, 110);
    InsertColumn(ProgressColumn, L"Progress", LVCFMT_LEFT, 150);
    InsertColumn(HoursColumn, L"Hours", LVCFMT_RIGHT, 70);
    InsertColumn(OwnerColumn, L"Owner", LVCFMT_CENTER, 100);
    InsertColumn(NoteColumn, L"Note", LVCFMT_LEFT, LeastNoteWidth);
}

void CTaskList::AddTask(int picture, const wchar_t* name, int doneState, const wchar_t* priority, int percent,
                        const wchar_t* progressText, const wchar_t* owner, const wchar_t* hours,
                        const wchar_t* note)
{
    const int row = InsertItem(GetItemCount(), name);
    SetItemImage(row, TaskColumn, picture);
    SetItemToolTipText(row, TaskColumn, CString(L"Task: ") + name);
    SetCheckbox(row, DoneColumn, doneState);
    if (doneState != NoBox)
        SetItemText(row, DoneColumn, doneState == 1 ? L"done" : L"open");
    int choice = 0;
    while (choice < m_priorities.GetSize() && m_priorities[choice] != priority)
        ++choice;
    SetComboBox(row, PriorityColumn, TRUE, &m_priorities, ComboRows, choice);
    if (percent != NoBar) {
        SetProgress(row, ProgressColumn, TRUE, progressText);
        UpdateProgress(row, ProgressColumn, percent);
        // The caller's data of a row: how far its task is.
        SetItemData(row, static_cast<DWORD>(percent));
    }
    SetItemText(row, OwnerColumn, owner, OwnerText, OwnerBackground);
    SetItemText(row, HoursColumn, hours);
    SetItemText(row, NoteColumn, note);
    SetItemToolTipText(row, NoteColumn, note);
}

void CTaskList::Fill()
{
    SetExtendedStyle(LVS_EX_FULLROWSELECT);
    MakeColumns();
    MakeTaskPictures(m_taskPictures);
    SetImageList(&m_taskPictures, LVSIL_SMALL);
    MakeHeaderPictures(m_headerPictures);
    GetHeaderCtrl()->SetImageList(&m_headerPictures);
    SetHeaderCheckedState(DoneColumn, 1);
    EnableToolTips(TRUE);

    for (const wchar_t* priority : {L"Low", L"Normal", L"High", L"Urgent", L"On hold", L"Cancelled"})
        m_priorities.Add(priority);

    AddTask(SurveyPicture, L"Measure the site", 1, L"High", 100, L"", L"Ines", L"14.5",
            L"Two stations were moved");
    AddTask(SurveyPicture, L"Levels along the road", 1, L"Normal", 100, L"", L"Ines", L"6.0", L"");
    AddTask(DesignPicture, L"Alignment", 0, L"High", 57, L"", L"Tomasz", L"21.0", L"Third variant");
    AddTask(DesignPicture, L"Cross sections", 0, L"Normal", 12, L"%d of 100", L"Tomasz", L"9.5", L"");
    AddTask(DesignPicture, L"Drainage", 0, L"Urgent", 31, L"", L"Yuki", L"17.0",
            L"Late: waits for the permit");
    AddTask(ReviewPicture, L"Clash check", 0, L"Low", 0, L"", L"Amina", L"0.0", L"Not begun");
    AddTask(ReviewPicture, L"Second opinion", NoBox, L"On hold", NoBar, L"", L"Amina", L"2.0",
            L"No check box here");
    AddTask(PrintPicture, L"Plan set A", 0, L"Normal", 80, L"sheet %d", L"Oleh", L"4.0", L"");
    AddTask(PrintPicture, L"Plan set B", 0, L"Normal", 5, L"", L"Oleh", L"1.5", L"");
    AddTask(PrintPicture, L"Old plan set", 1, L"Cancelled", 40, L"stopped", L"Oleh", L"3.0",
            L"This row is disabled");

    SetBold(2, TaskColumn, TRUE);
    SetBold(4, NoteColumn, TRUE);
    SetItemText(4, NoteColumn, nullptr, LateText, LateBackground);
    SetItemText(5, NoteColumn, nullptr, RGB(90, 90, 90), Own);
    SetCheckbox(5, DoneColumn, 0);
    SetItemText(5, DoneColumn, L"");
    SetEnabled(9, FALSE);
}

void CTaskList::FitLastColumn()
{
    CRect client;
    GetClientRect(&client);
    int others = 0;
    for (int column = 0; column < NoteColumn; ++column)
        others += GetColumnWidth(column);
    SetColumnWidth(NoteColumn, std::max(static_cast<int>(client.Width()) - others, LeastNoteWidth));
}

void CTaskList::MoveOn()
{
    for (const int row : {2, 3, 4, 7, 8}) {
        const DWORD percent = (GetItemData(row) + static_cast<DWORD>(row)) % 101;
        SetItemData(row, percent);
        UpdateProgress(row, ProgressColumn, static_cast<int>(percent));
    }
}

void PressDropDown(CXListCtrl& list, int row, int column)
{
    CRect cell;
    list.GetSubItemRect(row, column, LVIR_BOUNDS, cell);
    const LPARAM point = MAKELPARAM(cell.right - cell.Height() / 2, cell.CenterPoint().y);
    list.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, point);
    // The list opens with the drawing of the pressed button.
    list.UpdateWindow();
    list.SendMessage(WM_LBUTTONUP, 0, point);
}
