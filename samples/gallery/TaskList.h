// The gallery's list: every kind of cell at work.
#pragma once

#include "VelmUtil22.h"

class CTaskList : public CXListCtrl
{
public:
    enum Column
    {
        TaskColumn,
        DoneColumn,
        PriorityColumn,
        ProgressColumn,
        HoursColumn,
        OwnerColumn,
        NoteColumn
    };

    // Fills the list, whose window must have been made.
    void Fill();

    // Lets the last column take what room the others leave.
    void FitLastColumn();

    // Moves the bars of the tasks that run a little on.
    void MoveOn();

private:
    void MakeColumns();
    void AddTask(int picture, const wchar_t* name, int doneState, const wchar_t* priority, int percent,
                 const wchar_t* progressText, const wchar_t* owner, const wchar_t* hours,
                 const wchar_t* note);

    CImageList m_taskPictures;
    CImageList m_headerPictures;
    CStringArray m_priorities;
};

// Opens the drop-down of a cell as a click on its button does.
void PressDropDown(CXListCtrl& list, int row, int column);
