// A list with cells of every kind, for the operations of the list control.
#pragma once

#include <commctrl.h>

#include "Rounds.h"

#include "kit/Text.h"

namespace failingtest
{

class OpenList : public CXListCtrl
{
public:
    using CXListCtrl::m_bComboButtonHeld;
    using CXListCtrl::m_HeaderCtrl;
    using CXListCtrl::m_pCombo;
};

// Row 0: texts, one of them bold, and an image; row 1: check boxes; row 2: a progress bar; row 3: a
// drop-down, selected; row 4: a text that is longer than most.
class ListGround : public Ground
{
public:
    ListGround();
    ~ListGround() override;
    std::string State() override;

    // Draws all of it.
    void Paint();
    // What a click on a point of the list brings.
    void Click(CPoint point);
    CRect Cell(int row, int column);
    // Presses the button of row 3, and draws, which opens the drop-down.
    void OpenDropDown();
    // Sends a timer's message.
    void Tick(UINT_PTR timer) { list.SendMessage(WM_TIMER, timer); }

    // The parts of a state without what the drop-down is.
    static std::string WithoutDropDown(const std::string& state)
    {
        return state.substr(0, state.find("drop-down"));
    }

    static constexpr int Rows = 5;
    static constexpr int Columns = 3;

    CImageList images;
    CStringArray choices;
    CString message = L"a message for an empty list";
    CWnd parent;
    OpenList list;
    wchar_t text[40] = L"a new text that is of some length";
};

} // namespace failingtest
