// What the tests of rows and of cells share.
#pragma once

#include "CellState.h"
#include "ListTest.h"

inline constexpr COLORREF Red = RGB(255, 0, 0);
inline constexpr COLORREF Green = RGB(0, 160, 0);
inline constexpr COLORREF WindowsOwn = 0xFFFFFFFF;
// Of the list's own, unlike the system's.
inline constexpr COLORREF ListText = RGB(1, 2, 3);
inline constexpr COLORREF ListWindow = RGB(250, 251, 252);

class CellTest : public ListTest
{
protected:
    void GiveTheListItsOwnColors()
    {
        m_list.m_crWindowText = ListText;
        m_list.m_crWindow = ListWindow;
    }

    CellState Cell(int row, int column) { return StateOf(*m_list.Record(row, column)); }

    static CellState Colored(COLORREF text, COLORREF background, int image = -1)
    {
        CellState state;
        state.crText = text;
        state.crBackground = background;
        state.nImage = image;
        return state;
    }

    CString Text(int row, int column) { return m_list.GetItemText(row, column); }

    std::vector<std::wstring> FirstTexts()
    {
        std::vector<std::wstring> texts;
        for (int row = 0; row < m_list.GetItemCount(); ++row)
            texts.push_back(Text(row, 0).GetString());
        return texts;
    }
};
