#include "CellsPage.h"

#include <algorithm>
#include <iterator>

#include "Pictures.h"
#include "TaskList.h"

namespace
{

constexpr COLORREF NoteText = RGB(0, 70, 140);
constexpr COLORREF NoteBackground = RGB(228, 240, 252);

constexpr int KindWidth = 150;
constexpr int LeastGroupWidth = 362;
// Less than an image and the gap before it.
constexpr int NarrowWidth = 15;
constexpr int ChoiceColumn = 1;
constexpr int SelectedRow = 1;
// Rows of space for the list that drops down.
constexpr int DropDownSpace = 4;
constexpr int DropDownRows = 4;

struct Column
{
    const wchar_t* title;
    int format;
    int width;
};

void AddColumns(CXListCtrl& list, std::initializer_list<Column> columns)
{
    int index = 0;
    for (const Column& column : columns)
        list.InsertColumn(index++, column.title, column.format, column.width);
}

int AddRow(CXListCtrl& list, const wchar_t* kind, std::initializer_list<const wchar_t*> texts = {})
{
    const int row = list.InsertItem(list.GetItemCount(), kind);
    int column = 1;
    for (const wchar_t* const text : texts)
        list.SetItemText(row, column++, text);
    return row;
}

// The height of a list's window that shows its header and its rows, with room for some more.
int HeightFor(CXListCtrl& list, int extraRows)
{
    constexpr int Borders = 2;
    CRect room(0, 0, 1000, 1000);
    WINDOWPOS header = {};
    HDLAYOUT layout = {&room, &header};
    list.GetHeaderCtrl()->Layout(&layout);
    CRect row(0, 0, 0, 0);
    list.GetItemRect(0, &row, LVIR_BOUNDS);
    return header.cy + (list.GetItemCount() + extraRows) * row.Height() + Borders;
}

} // namespace

bool CCellsPage::MakeList(CXListCtrl& list, DWORD style)
{
    return list.Create(ChildStyle | WS_BORDER | WS_TABSTOP | LVS_REPORT | LVS_NOSORTHEADER | style,
                       CRect(0, 0, 0, 0), this, m_nextId++) != FALSE;
}

bool CCellsPage::MakeControls()
{
    const bool hasHeadings =
        MakeHeading(m_textsHeading, L"Texts and images") &&
        MakeHeading(m_checkBoxesHeading, L"Check boxes") && MakeHeading(m_dropDownsHeading, L"Drop-downs") &&
        MakeHeading(m_barsHeading, L"Progress bars") &&
        MakeHeading(m_withFocusHeading, L"Selected, full-row style, the list has the focus") &&
        MakeHeading(m_withoutFocusHeading, L"Selected, full-row style, without the focus") &&
        MakeHeading(m_firstCellHeading, L"Selected, no full-row style, without the focus");
    return hasHeadings && MakeList(m_texts, 0) && MakeList(m_checkBoxes, 0) &&
           MakeList(m_dropDowns, LVS_SHOWSELALWAYS) && MakeList(m_bars, 0) &&
           MakeList(m_withFocus, LVS_SHOWSELALWAYS) && MakeList(m_withoutFocus, LVS_SHOWSELALWAYS) &&
           MakeList(m_firstCell, LVS_SHOWSELALWAYS);
}

void CCellsPage::Fill()
{
    MakeTaskPictures(m_pictures);
    for (const wchar_t* const material : {L"Oak", L"Pine", L"Steel", L"Brass"})
        m_materials.Add(material);
    FillTexts();
    FillCheckBoxes();
    FillDropDowns();
    FillBars();
    FillSelections();
}

void CCellsPage::FillTexts()
{
    AddColumns(m_texts, {{L"Kind", LVCFMT_LEFT, KindWidth},
                         {L"Left", LVCFMT_LEFT, 64},
                         {L"Centre", LVCFMT_CENTER, 64},
                         {L"Right", LVCFMT_RIGHT, 64},
                         {L"", LVCFMT_LEFT, NarrowWidth}});
    m_texts.SetImageList(&m_pictures, LVSIL_SMALL);
    AddRow(m_texts, L"Text", {L"Oak", L"Oak", L"Oak"});
    const int bold = AddRow(m_texts, L"Bold", {L"Oak", L"Oak", L"Oak"});
    const int colored = AddRow(m_texts, L"Own colours", {L"Oak", L"Oak", L"Oak"});
    const int images = AddRow(m_texts, L"Image and text", {L"Oak", L"Oak", L"Oak"});
    const int clipped = AddRow(m_texts, L"Image, cut by its column");
    const int disabled = AddRow(m_texts, L"Disabled", {L"Oak", L"Oak", L"Oak"});
    for (int column = 1; column <= 3; ++column) {
        m_texts.SetBold(bold, column, TRUE);
        m_texts.SetItemText(colored, column, nullptr, NoteText, NoteBackground);
        m_texts.SetItemImage(images, column, DesignPicture);
        m_texts.SetItemImage(disabled, column, DesignPicture);
    }
    m_texts.SetItemImage(clipped, 4, DesignPicture);
    m_texts.SetEnabled(disabled, FALSE);
}

void CCellsPage::FillCheckBoxes()
{
    AddColumns(m_checkBoxes, {{L"Kind", LVCFMT_LEFT, KindWidth},
                              {L"With a text", LVCFMT_LEFT, 100},
                              {L"Alone", LVCFMT_LEFT, 100}});
    const auto add = [this](const wchar_t* kind, int state) {
        const int row = AddRow(m_checkBoxes, kind, {state == 1 ? L"done" : L"open"});
        m_checkBoxes.SetCheckbox(row, 1, state);
        m_checkBoxes.SetCheckbox(row, 2, state);
        return row;
    };
    add(L"Not checked", 0);
    add(L"Checked", 1);
    m_checkBoxes.SetEnabled(add(L"Disabled, not checked", 0), FALSE);
    m_checkBoxes.SetEnabled(add(L"Disabled, checked", 1), FALSE);
}

void CCellsPage::FillDropDowns()
{
    AddColumns(m_dropDowns, {{L"Kind", LVCFMT_LEFT, KindWidth}, {L"Material", LVCFMT_LEFT, 120}});
    m_dropDowns.SetExtendedStyle(LVS_EX_FULLROWSELECT);
    for (const wchar_t* const kind : {L"Row not selected", L"Row selected"}) {
        const int row = AddRow(m_dropDowns, kind);
        m_dropDowns.SetComboBox(row, ChoiceColumn, TRUE, &m_materials, DropDownRows, row);
    }
    m_dropDowns.SetCurSel(SelectedRow);
}

void CCellsPage::FillBars()
{
    // A bar beyond 100 percent runs past its column, into the free space behind it.
    AddColumns(m_bars, {{L"Kind", LVCFMT_LEFT, KindWidth}, {L"Bar", LVCFMT_LEFT, 90}});
    const auto add = [this](const wchar_t* kind, int percent, const wchar_t* text = L"") {
        const int row = AddRow(m_bars, kind);
        m_bars.SetProgress(row, 1, TRUE, text);
        m_bars.UpdateProgress(row, 1, percent);
        return row;
    };
    add(L"0 percent", 0);
    add(L"1 percent", 1);
    add(L"57 percent", 57);
    add(L"57 percent, own text", 57, L"%d of 100");
    add(L"100 percent", 100);
    m_bars.SetEnabled(add(L"57 percent, disabled", 57), FALSE);
    add(L"250 percent", 250);
}

void CCellsPage::FillSelections()
{
    for (CXListCtrl* const list : {&m_withFocus, &m_withoutFocus, &m_firstCell}) {
        AddColumns(*list, {{L"Part", LVCFMT_LEFT, 90},
                           {L"Done", LVCFMT_LEFT, 70},
                           {L"Material", LVCFMT_LEFT, 80},
                           {L"Drawn", LVCFMT_LEFT, 80}});
        list->SetImageList(&m_pictures, LVSIL_SMALL);
        list->SetExtendedStyle(list == &m_firstCell ? 0 : LVS_EX_FULLROWSELECT);
        for (const wchar_t* const part : {L"Door", L"Frame"}) {
            const int row = AddRow(*list, part, {L"open"});
            list->SetItemImage(row, 0, DesignPicture);
            list->SetCheckbox(row, 1, 0);
            list->SetComboBox(row, 2, TRUE, &m_materials, DropDownRows, 0);
            list->SetProgress(row, 3, TRUE, nullptr);
            list->UpdateProgress(row, 3, 57);
        }
        list->SetCurSel(0);
    }
}

std::vector<CCellsPage::Group> CCellsPage::LeftGroups()
{
    return {{&m_textsHeading, &m_texts, 0},
            {&m_checkBoxesHeading, &m_checkBoxes, 0},
            {&m_dropDownsHeading, &m_dropDowns, DropDownSpace}};
}

std::vector<CCellsPage::Group> CCellsPage::RightGroups()
{
    return {{&m_barsHeading, &m_bars, 0},
            {&m_withFocusHeading, &m_withFocus, 0},
            {&m_withoutFocusHeading, &m_withoutFocus, 0},
            {&m_firstCellHeading, &m_firstCell, 0}};
}

CSize CCellsPage::LeastSize()
{
    const auto height = [](const std::vector<Group>& groups) {
        int sum = 2 * Margin - Gap;
        for (const Group& group : groups)
            sum += LineHeight + HeightFor(*group.list, group.extraRows) + Gap;
        return sum;
    };
    return CSize(2 * Margin + 2 * LeastGroupWidth + 2 * Gap,
                 std::max(height(LeftGroups()), height(RightGroups())));
}

void CCellsPage::LayOut(CSize size)
{
    const int width = (size.cx - 2 * Margin - 2 * Gap) / 2;
    const auto layOut = [width](int left, const std::vector<Group>& groups) {
        int top = Margin;
        for (const Group& group : groups) {
            group.heading->MoveWindow(left, top, width, LineHeight);
            top += LineHeight;
            const int height = HeightFor(*group.list, group.extraRows);
            group.list->MoveWindow(left, top, width, height);
            top += height + Gap;
        }
    };
    layOut(Margin, LeftGroups());
    layOut(size.cx - Margin - width, RightGroups());
}

void CCellsPage::Pose(const std::wstring& name)
{
    m_isDropDownPosed = name == DropDownPicture;
    if (m_isDropDownPosed)
        PressDropDown(m_dropDowns, SelectedRow, ChoiceColumn);
    else
        m_withFocus.SetFocus();
}

CRect CCellsPage::PictureArea() const
{
    if (!m_isDropDownPosed)
        return ScreenRectOf(*this);
    CRect area = ScreenRectOf(m_dropDownsHeading);
    area.UnionRect(&area, CRect(ScreenRectOf(m_dropDowns)));
    area.InflateRect(Gap, Gap);
    return area;
}
