#include "GalleryFrame.h"

#include "shell/Screenshot.h"

namespace
{

constexpr UINT_PTR MoveOnTimer = 1;
constexpr UINT_PTR PressTimer = 2;
constexpr UINT_PTR PictureTimer = 3;
constexpr UINT MoveOnPeriod = 150;
constexpr UINT PressDelay = 300;
constexpr UINT PictureDelay = 700;

constexpr int Margin = 8;
constexpr int StatusHeight = 18;
constexpr int EmptyListHeight = 90;
constexpr int RowWithDropDown = 4;

constexpr UINT TasksId = 101;
constexpr UINT EmptyId = 102;
constexpr UINT StatusId = 103;

} // namespace

BEGIN_MESSAGE_MAP(CGalleryFrame, CFrameWnd)
ON_WM_CREATE()
ON_WM_SIZE()
ON_WM_TIMER()
ON_WM_SETFOCUS()
ON_REGISTERED_MESSAGE(WM_XLISTCTRL_CHECKBOX_CLICKED, &CGalleryFrame::OnCheckboxClicked)
ON_REGISTERED_MESSAGE(WM_XLISTCTRL_COMBO_SELECTION, &CGalleryFrame::OnComboSelection)
END_MESSAGE_MAP()

CGalleryFrame::CGalleryFrame(std::wstring pictureFile) : m_pictureFile(std::move(pictureFile)) {}

int CGalleryFrame::OnCreate(LPCREATESTRUCT createStruct)
{
    if (CFrameWnd::OnCreate(createStruct) == -1)
        return -1;
    const CRect none(0, 0, 0, 0);
    const DWORD listStyle = WS_CHILD | WS_VISIBLE | WS_BORDER | WS_TABSTOP | LVS_REPORT | LVS_SHOWSELALWAYS;
    if (!m_tasks.Create(listStyle, none, this, TasksId) || !m_empty.Create(listStyle, none, this, EmptyId) ||
        !m_status.Create(L"", WS_CHILD | WS_VISIBLE | SS_NOPREFIX, none, this, StatusId))
        return -1;
    const auto font = static_cast<HFONT>(::GetStockObject(DEFAULT_GUI_FONT));
    for (CWnd* const control :
         {static_cast<CWnd*>(&m_tasks), static_cast<CWnd*>(&m_empty), static_cast<CWnd*>(&m_status)})
        control->SetFont(CFont::FromHandle(font));
    m_tasks.Fill();
    m_empty.InsertColumn(0, L"Archive", LVCFMT_LEFT, 300);
    m_empty.SetDefaultTextMessage(L"Nothing has been archived yet.");
    Tell(L"Click a check box, open a priority, or rest the mouse on a task.");
    if (m_pictureFile.empty())
        SetTimer(MoveOnTimer, MoveOnPeriod, nullptr);
    else
        SetTimer(PressTimer, PressDelay, nullptr);
    return 0;
}

void CGalleryFrame::OnSize(UINT type, int width, int height)
{
    CFrameWnd::OnSize(type, width, height);
    if (m_tasks.GetSafeHwnd() == nullptr)
        return;
    const int inner = width - 2 * Margin;
    const int status = height - Margin - StatusHeight;
    const int empty = status - Margin - EmptyListHeight;
    m_tasks.MoveWindow(Margin, Margin, inner, empty - 2 * Margin);
    m_empty.MoveWindow(Margin, empty, inner, EmptyListHeight);
    m_status.MoveWindow(Margin, status, inner, StatusHeight);
}

void CGalleryFrame::OnSetFocus(CWnd*)
{
    m_tasks.SetFocus();
}

void CGalleryFrame::OnTimer(UINT_PTR timer)
{
    switch (timer) {
    case MoveOnTimer:
        m_tasks.MoveOn();
        break;
    case PressTimer:
        KillTimer(PressTimer);
        PressDropDown();
        SetTimer(PictureTimer, PictureDelay, nullptr);
        break;
    case PictureTimer:
        KillTimer(PictureTimer);
        SavePicture();
        DestroyWindow();
        break;
    }
}

LRESULT CGalleryFrame::OnCheckboxClicked(WPARAM row, LPARAM column)
{
    const int task = static_cast<int>(row);
    const bool isDone = m_tasks.GetCheckbox(task, static_cast<int>(column)) == 1;
    m_tasks.SetItemText(task, static_cast<int>(column), isDone ? L"done" : L"open");
    Tell(m_tasks.GetComboText(task, CTaskList::TaskColumn) + (isDone ? L" is done." : L" is open again."));
    return 0;
}

LRESULT CGalleryFrame::OnComboSelection(WPARAM row, LPARAM column)
{
    const int task = static_cast<int>(row);
    Tell(m_tasks.GetComboText(task, CTaskList::TaskColumn) + L" has priority " +
         m_tasks.GetComboText(task, static_cast<int>(column)) + L" now.");
    return 0;
}

void CGalleryFrame::Tell(const CString& text)
{
    m_status.SetWindowText(text);
}

void CGalleryFrame::PressDropDown()
{
    CRect cell;
    m_tasks.GetSubItemRect(RowWithDropDown, CTaskList::PriorityColumn, LVIR_BOUNDS, cell);
    const LPARAM point = MAKELPARAM(cell.right - cell.Height() / 2, cell.CenterPoint().y);
    m_tasks.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, point);
    // The list opens with the drawing of the pressed button.
    m_tasks.UpdateWindow();
    m_tasks.SendMessage(WM_LBUTTONUP, 0, point);
}

void CGalleryFrame::SavePicture()
{
    CRect area;
    GetWindowRect(&area);
    std::wstring reason;
    m_hasFailed = !velmhost::SaveScreenArea(area, m_pictureFile, reason);
    if (m_hasFailed)
        ::OutputDebugStringW(reason.c_str());
}
