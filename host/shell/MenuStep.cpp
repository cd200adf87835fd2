#include "shell/StepAction.h"

#include <algorithm>
#include <vector>

#include "shell/CommandText.h"
#include "shell/RealInput.h"

namespace velmhost
{

namespace
{

// The window that shows a pop-up menu; null when none does.
HWND FindPopupWindow(HMENU menu)
{
    const DWORD thread = ::GetCurrentThreadId();
    for (HWND window = ::FindWindowExW(nullptr, nullptr, L"#32768", nullptr); window;
         window = ::FindWindowExW(nullptr, window, L"#32768", nullptr))
    {
        if (::GetWindowThreadProcessId(window, nullptr) == thread && ::IsWindowVisible(window) &&
            reinterpret_cast<HMENU>(::SendMessageW(window, MN_GETHMENU, 0, 0)) == menu)
            return window;
    }
    return nullptr;
}

UINT StateAt(HMENU menu, int position)
{
    MENUITEMINFOW info{};
    info.cbSize = sizeof info;
    info.fMask = MIIM_STATE | MIIM_FTYPE;
    ::GetMenuItemInfoW(menu, static_cast<UINT>(position), TRUE, &info);
    return info.fState;
}

bool IsSeparator(HMENU menu, int position)
{
    MENUITEMINFOW info{};
    info.cbSize = sizeof info;
    info.fMask = MIIM_FTYPE;
    ::GetMenuItemInfoW(menu, static_cast<UINT>(position), TRUE, &info);
    return (info.fType & MFT_SEPARATOR) != 0;
}

// Opens menus level by level along a path of labels; the last entry is opened or pressed.
class MenuStep : public StepAction
{
public:
    MenuStep(CHostFrame& frame, const std::wstring& path, bool press)
        : m_frame(frame), m_labels(SplitLabelPath(path)), m_press(press)
    {
    }

    Progress Tick() override
    {
        switch (m_phase) {
        case Phase::Begin:
            return Begin();
        case Phase::Act:
            return Act();
        case Phase::WaitOpen:
            return WaitOpen();
        case Phase::WaitClosed:
            return m_frame.IsMenuOpen() ? Progress::Again : Progress::Done;
        }
        return Progress::Done;
    }

private:
    enum class Phase
    {
        Begin,
        Act,
        WaitOpen,
        WaitClosed
    };

    Progress Begin()
    {
        if (m_frame.IsMenuOpen()) {
            ::EndMenu();
            return Progress::Again;
        }
        m_frame.ShowChanges();
        if (!FindPositions())
            return Progress::Failed;
        m_frame.SetForegroundWindow();
        m_menu = ::GetMenu(m_frame.m_hWnd);
        m_phase = Phase::Act;
        return Progress::Again;
    }

    // From labels to positions, in the model: the menus on show are its mirror now.
    bool FindPositions()
    {
        const HostModel& model = m_frame.Model();
        const auto& bar = model.MenuBar();
        const auto onBar = std::find_if(bar.begin(), bar.end(), [&](const Menu* menu) {
            return LabelAnswersTo(menu->name, m_labels[0]);
        });
        if (onBar == bar.end()) {
            Fail(L"there is no menu \"" + m_labels[0] + L"\" on the bar");
            return false;
        }
        m_positions.push_back(static_cast<int>(onBar - bar.begin()));
        const Menu* menu = *onBar;
        for (std::size_t level = 1; level < m_labels.size(); ++level) {
            const MenuItem* item = menu ? FindItem(*menu, m_labels[level]) : nullptr;
            if (!item) {
                Fail(L"there is no \"" + m_labels[level] + L"\" in \"" + m_labels[level - 1] + L"\"");
                return false;
            }
            m_positions.push_back(static_cast<int>(HostModel::PositionOf(*item)));
            if (!item->enabled) {
                Fail(L"\"" + m_labels[level] + L"\" is disabled");
                return false;
            }
            menu = item->subMenu.get();
        }
        if (m_press == (menu != nullptr)) {
            Fail(L"\"" + m_labels.back() +
                 (m_press ? L"\" is a menu, not an item" : L"\" is an item, not a menu"));
            return false;
        }
        return true;
    }

    static const MenuItem* FindItem(const Menu& menu, const std::wstring& label)
    {
        for (const auto& item : menu.items) {
            if (item->type != MenuItemType::Separator && LabelAnswersTo(item->label, label))
                return item.get();
        }
        return nullptr;
    }

    Progress Act()
    {
        if (m_level > 0 && !m_frame.IsMenuOpen())
            return Fail(L"the menu closed before \"" + m_labels[m_level] + L"\" was reached");
        const int position = m_positions[m_level];
        CRect rect;
        const HWND popup = m_level == 0 ? nullptr : FindPopupWindow(m_menu);
        if (!::GetMenuItemRect(m_level == 0 ? m_frame.m_hWnd : nullptr, m_menu, static_cast<UINT>(position),
                               &rect))
            return Fail(L"\"" + m_labels[m_level] + L"\" has no place on the screen");
        if (popup && !IsVisibleIn(popup, rect)) {
            if (!MoveSelectionTo(position))
                return Progress::Again;
            PressKey(::GetSubMenu(m_menu, position) ? VK_RIGHT : VK_RETURN);
        } else {
            ClickAt(rect.CenterPoint());
        }
        const bool pressed = m_press && m_level + 1 == m_positions.size();
        m_phase = pressed ? Phase::WaitClosed : Phase::WaitOpen;
        return Progress::Again;
    }

    // Of a menu that is higher than the screen, only a part is on show.
    static bool IsVisibleIn(HWND popup, const CRect& rect)
    {
        CRect window;
        ::GetWindowRect(popup, &window);
        return window.PtInRect(rect.CenterPoint()) && ::WindowFromPoint(rect.CenterPoint()) == popup;
    }

    // Moves the menu's selection with the arrow keys; true when it is there.
    bool MoveSelectionTo(int position)
    {
        int selected = -1;
        const int count = ::GetMenuItemCount(m_menu);
        for (int i = 0; i < count && selected < 0; ++i) {
            if (StateAt(m_menu, i) & MFS_HILITE)
                selected = i;
        }
        if (selected == position)
            return true;
        int steps = 0;
        for (int i = std::min(selected, position) + 1; i <= std::max(selected, position); ++i)
            steps += IsSeparator(m_menu, i) ? 0 : 1;
        PressKey(selected < position ? VK_DOWN : VK_UP, std::max(1, steps));
        return false;
    }

    Progress WaitOpen()
    {
        const HMENU opened = ::GetSubMenu(m_menu, m_positions[m_level]);
        if (!FindPopupWindow(opened))
            return Progress::Again;
        if (m_level + 1 == m_positions.size())
            return Progress::Done;
        m_menu = opened;
        ++m_level;
        m_phase = Phase::Act;
        return Progress::Again;
    }

    CHostFrame& m_frame;
    std::vector<std::wstring> m_labels;
    bool m_press;
    Phase m_phase = Phase::Begin;
    std::vector<int> m_positions;
    std::size_t m_level = 0;
    HMENU m_menu = nullptr;
};

} // namespace

std::unique_ptr<StepAction> MakeMenuStep(CHostFrame& frame, const std::wstring& path, bool press)
{
    return std::make_unique<MenuStep>(frame, path, press);
}

} // namespace velmhost
