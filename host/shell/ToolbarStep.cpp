#include "shell/StepAction.h"

#include <vector>

#include "shell/CommandText.h"
#include "shell/RealInput.h"

namespace velmhost
{

namespace
{

// Opens fly-outs level by level along a path of names; the last button is pressed, or opened.
class ToolbarStep : public StepAction
{
public:
    ToolbarStep(CHostFrame& frame, const std::wstring& path, bool press)
        : m_frame(frame), m_names(SplitLabelPath(path)), m_press(press)
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
        case Phase::WaitDone:
            return m_frame.ButtonsDone() == m_buttonsBefore ? Progress::Again : Progress::Done;
        }
        return Progress::Done;
    }

private:
    enum class Phase
    {
        Begin,
        Act,
        WaitOpen,
        WaitDone
    };

    Progress Begin()
    {
        if (m_frame.IsMenuOpen()) {
            ::EndMenu();
            return Progress::Again;
        }
        m_frame.ShowChanges();
        if (m_names.size() < 2)
            return Fail(L"a path needs a toolbar and a button");
        m_frame.SetForegroundWindow();
        m_phase = Phase::Act;
        return Progress::Again;
    }

    // The pane that the button of this level is on.
    CToolbarPane* FindPane()
    {
        if (m_level > 0)
            return m_frame.Toolbars().Flyouts().At(m_level - 1);
        for (const auto& group : m_frame.Model().Groups()) {
            for (const auto& toolbar : group->toolbars) {
                CToolbarPane* pane = m_frame.Toolbars().FindPane(toolbar->id);
                if (pane && LabelAnswersTo(toolbar->name, m_names[0]))
                    return pane;
            }
        }
        return nullptr;
    }

    const ToolbarItem* FindButton(const CToolbarPane& pane) const
    {
        const Toolbar* toolbar = m_frame.Model().FindToolbar(pane.ToolbarId());
        if (!toolbar)
            return nullptr;
        for (const auto& item : toolbar->items) {
            if (item->type != ToolbarItemType::Separator && LabelAnswersTo(item->name, m_names[m_level + 1]))
                return item.get();
        }
        return nullptr;
    }

    Progress Act()
    {
        CToolbarPane* pane = FindPane();
        if (!pane)
            return Fail(L"there is no toolbar \"" + m_names[m_level] + L"\" on show");
        const ToolbarItem* button = FindButton(*pane);
        if (!button)
            return Fail(L"there is no button \"" + m_names[m_level + 1] + L"\" in \"" + m_names[m_level] +
                        L"\"");
        const bool last = m_level + 2 == m_names.size();
        const bool flyout = button->type == ToolbarItemType::Flyout;
        if ((!last || !m_press) && !(flyout && button->flyout))
            return Fail(L"\"" + m_names[m_level + 1] + L"\" opens no fly-out");

        m_opened = flyout && button->flyout ? button->flyout->id : 0;
        m_phase = m_opened ? Phase::WaitOpen : Phase::WaitDone;
        m_buttonsBefore = m_frame.ButtonsDone();
        // Clicking a fly-out that is open would close it.
        if (m_opened && IsOpened())
            return Progress::Again;
        if (pane->GetKind() == CToolbarPane::Kind::Floating)
            ::SetWindowPos(pane->m_hWnd, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
        const CPoint at = pane->ButtonRect(pane->PositionOf(button->id)).CenterPoint();
        if (::WindowFromPoint(at) != pane->Control())
            return Fail(L"\"" + m_names[m_level + 1] + L"\" is covered or off the screen");
        ClickAt(at);
        return Progress::Again;
    }

    bool IsOpened()
    {
        const CToolbarPane* flyout = m_frame.Toolbars().Flyouts().At(m_level);
        return flyout && flyout->ToolbarId() == m_opened;
    }

    Progress WaitOpen()
    {
        if (!IsOpened())
            return Progress::Again;
        if (m_level + 2 == m_names.size())
            return Progress::Done;
        ++m_level;
        m_phase = Phase::Act;
        return Progress::Again;
    }

    CHostFrame& m_frame;
    std::vector<std::wstring> m_names; // toolbar, then buttons
    bool m_press;
    Phase m_phase = Phase::Begin;
    std::size_t m_level = 0; // of fly-outs that are open so far
    ElementId m_opened = 0;  // toolbar of the fly-out that is waited for
    unsigned m_buttonsBefore = 0;
};

} // namespace

std::unique_ptr<StepAction> MakeToolbarStep(CHostFrame& frame, const std::wstring& path, bool press)
{
    return std::make_unique<ToolbarStep>(frame, path, press);
}

} // namespace velmhost
