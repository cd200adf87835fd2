#include "HelpersPage.h"

namespace
{

constexpr UINT TextId = 801;
constexpr UINT SeparatorId = 802;
constexpr UINT TokensId = 803;
constexpr UINT WholeId = 804;
constexpr UINT NumbersId = 805;

constexpr int LabelWidth = 70;
constexpr int EditHeight = 22;
constexpr int SeparatorWidth = 60;
constexpr int BoxHeight = 124;
constexpr int NumberWidth = 150;

constexpr COLORREF Own = 0xFFFFFFFF;
constexpr COLORREF NumberText = RGB(0, 70, 140);

const wchar_t* const FirstText = L"Oak 12.5 mm, Steel 3 mm, , Brass";
const wchar_t* const FirstSeparator = L", ";

} // namespace

BEGIN_MESSAGE_MAP(CHelpersPage, CGalleryPage)
ON_EN_CHANGE(TextId, &CHelpersPage::OnTextChanged)
ON_EN_CHANGE(SeparatorId, &CHelpersPage::OnTextChanged)
END_MESSAGE_MAP()

bool CHelpersPage::MakeControls()
{
    const DWORD editStyle = ChildStyle | WS_BORDER | WS_TABSTOP | ES_AUTOHSCROLL;
    const DWORD boxStyle = ChildStyle | WS_BORDER | WS_TABSTOP | WS_VSCROLL | LBS_NOINTEGRALHEIGHT;
    const DWORD listStyle = ChildStyle | WS_BORDER | WS_TABSTOP | LVS_REPORT | LVS_NOSORTHEADER;
    const CRect none(0, 0, 0, 0);
    return MakeLabel(m_textLabel, L"Text") && m_text.Create(editStyle, none, this, TextId) &&
           MakeLabel(m_separatorLabel, L"Separator") &&
           m_separator.Create(editStyle, none, this, SeparatorId) &&
           MakeHeading(m_tokensHeading, L"Split2Array, as tokens: at any of its characters") &&
           m_tokens.Create(boxStyle, none, this, TokensId) &&
           MakeHeading(m_wholeHeading, L"Split2Array, not as tokens: at the whole of it") &&
           m_whole.Create(boxStyle, none, this, WholeId) &&
           MakeHeading(m_numbersHeading, L"The numbers in the pieces at the right") &&
           m_numbers.Create(listStyle, none, this, NumbersId);
}

void CHelpersPage::Fill()
{
    m_numbers.InsertColumn(0, L"Piece", LVCFMT_LEFT, NumberWidth);
    m_numbers.InsertColumn(1, L"GetNumberFromText", LVCFMT_RIGHT, NumberWidth);
    m_numbers.InsertColumn(2, L"GetStrToDouble", LVCFMT_RIGHT, NumberWidth);
    m_numbers.InsertColumn(3, L"GetStringFrom", LVCFMT_RIGHT, NumberWidth);
    // Each of the two edits tells of its change.
    m_text.SetWindowText(FirstText);
    m_separator.SetWindowText(FirstSeparator);
}

void CHelpersPage::LayOut(CSize size)
{
    constexpr int LabelDrop = 3;
    const int inner = size.cx - 2 * Margin;
    int top = Margin;
    m_textLabel.MoveWindow(Margin, top + LabelDrop, LabelWidth, LineHeight);
    m_text.MoveWindow(Margin + LabelWidth, top, inner - LabelWidth, EditHeight);
    top += EditHeight + Gap;
    m_separatorLabel.MoveWindow(Margin, top + LabelDrop, LabelWidth, LineHeight);
    m_separator.MoveWindow(Margin + LabelWidth, top, SeparatorWidth, EditHeight);
    top += EditHeight + Gap;
    const int half = (inner - Margin) / 2;
    const int right = size.cx - Margin - half;
    m_tokensHeading.MoveWindow(Margin, top, half, LineHeight);
    m_wholeHeading.MoveWindow(right, top, half, LineHeight);
    top += LineHeight;
    m_tokens.MoveWindow(Margin, top, half, BoxHeight);
    m_whole.MoveWindow(right, top, half, BoxHeight);
    top += BoxHeight + Gap;
    m_numbersHeading.MoveWindow(Margin, top, inner, LineHeight);
    top += LineHeight;
    m_numbers.MoveWindow(Margin, top, inner, size.cy - Margin - top);
    CRect client;
    m_numbers.GetClientRect(&client);
    for (int column = 0; column < 4; ++column)
        m_numbers.SetColumnWidth(column, client.Width() / 4);
}

// Empty pieces would not be seen.
void CHelpersPage::ShowPieces(CStringArray& pieces, CListBox& box)
{
    for (INT_PTR i = 0; i < pieces.GetSize(); ++i) {
        if (pieces[i].IsEmpty())
            pieces[i] = L"(empty)";
    }
    box.ResetContent();
    FillListBox(pieces, box);
    box.SetCurSel(-1);
}

void CHelpersPage::ShowNumbers(const CStringArray& pieces)
{
    m_numbers.DeleteAllItems();
    for (INT_PTR i = 0; i < pieces.GetSize(); ++i) {
        const CString number = GetNumberFromText(pieces[i]);
        const double value = GetStrToDouble(number);
        const int row = m_numbers.InsertItem(static_cast<int>(i), pieces[i]);
        CString read;
        read.Format(L"%g", value);
        m_numbers.SetItemText(row, 1, number);
        m_numbers.SetItemText(row, 2, read, NumberText, Own);
        m_numbers.SetItemText(row, 3, GetStringFrom(value), NumberText, Own);
    }
}

void CHelpersPage::OnTextChanged()
{
    CString text;
    CString separator;
    m_text.GetWindowText(text);
    m_separator.GetWindowText(separator);
    CStringArray tokens;
    CStringArray whole;
    Split2Array(text, separator, tokens, true);
    Split2Array(text, separator, whole, false);
    ShowNumbers(whole);
    ShowPieces(tokens, m_tokens);
    ShowPieces(whole, m_whole);
}
