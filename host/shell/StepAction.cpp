#include "shell/StepAction.h"

#include "shell/RealInput.h"
#include "shell/Screenshot.h"

namespace velmhost
{

namespace
{

// Ticks to let pass so that what was just opened has been painted, and its picture has reached the screen.
constexpr int kSettleTicks = 5;

class ClosePopupsStep : public StepAction
{
public:
    explicit ClosePopupsStep(CHostFrame& frame) : m_frame(frame) {}

    // Each Escape closes one menu or fly-out.
    Progress Tick() override
    {
        if (!m_frame.IsMenuOpen() && m_frame.Toolbars().Flyouts().IsEmpty())
            return Progress::Done;
        if (!m_frame.IsMenuOpen())
            m_frame.SetForegroundWindow();
        PressKey(VK_ESCAPE);
        return Progress::Again;
    }

private:
    CHostFrame& m_frame;
};

class TypeStep : public StepAction
{
public:
    TypeStep(CHostFrame& frame, const std::wstring& text) : m_frame(frame), m_text(text) {}

    Progress Tick() override
    {
        if (m_frame.IsMenuOpen()) {
            ::EndMenu();
            return Progress::Again;
        }
        const HWND edit = m_frame.CommandPane().EditControl();
        switch (m_phase++) {
        case 0: {
            m_frame.SetForegroundWindow();
            CRect rect;
            ::GetWindowRect(edit, &rect);
            if (::WindowFromPoint(rect.CenterPoint()) != edit)
                return Fail(L"the command line is covered or off the screen");
            ClickAt(rect.CenterPoint());
            return Progress::Again;
        }
        case 1:
            if (::GetFocus() != edit)
                return Fail(L"the command line does not get the focus");
            TypeCharacters(m_text);
            PressKey(VK_RETURN);
            return Progress::Again;
        default:
            // Enter empties the line.
            return ::GetWindowTextLengthW(edit) == 0 ? Progress::Done : Progress::Again;
        }
    }

private:
    CHostFrame& m_frame;
    std::wstring m_text;
    int m_phase = 0;
};

class WaitIdleStep : public StepAction
{
public:
    explicit WaitIdleStep(CHostFrame& frame) : m_frame(frame) {}

    Progress Tick() override
    {
        if (!m_frame.IsIdle())
            m_calm = 0;
        return ++m_calm < kSettleTicks ? Progress::Again : Progress::Done;
    }

private:
    CHostFrame& m_frame;
    int m_calm = 0;
};

class ScreenshotStep : public StepAction
{
public:
    ScreenshotStep(CHostFrame& frame, const std::wstring& fileName) : m_frame(frame), m_fileName(fileName) {}

    Progress Tick() override
    {
        if (!m_frame.IsIdle() || ++m_ticks < kSettleTicks)
            return Progress::Again;
        std::wstring reason;
        if (!SaveScreenArea(m_frame.ScreenArea(), m_fileName, reason))
            return Fail(reason);
        return Progress::Done;
    }

private:
    CHostFrame& m_frame;
    std::wstring m_fileName;
    int m_ticks = 0;
};

class ExitStep : public StepAction
{
public:
    explicit ExitStep(CHostFrame& frame) : m_frame(frame) {}

    Progress Tick() override
    {
        if (m_frame.IsMenuOpen()) {
            ::EndMenu();
            return Progress::Again;
        }
        m_frame.PostMessage(WM_CLOSE);
        return Progress::Done;
    }

private:
    CHostFrame& m_frame;
};

} // namespace

std::unique_ptr<StepAction> MakeStepAction(CHostFrame& frame, const Step& step)
{
    switch (step.kind) {
    case StepKind::PressItem:
        return MakeMenuStep(frame, step.argument, true);
    case StepKind::OpenMenu:
        return MakeMenuStep(frame, step.argument, false);
    case StepKind::PressButton:
        return MakeToolbarStep(frame, step.argument, true);
    case StepKind::OpenFlyout:
        return MakeToolbarStep(frame, step.argument, false);
    case StepKind::ClosePopups:
        return std::make_unique<ClosePopupsStep>(frame);
    case StepKind::Type:
        return std::make_unique<TypeStep>(frame, step.argument);
    case StepKind::WaitIdle:
        return std::make_unique<WaitIdleStep>(frame);
    case StepKind::Screenshot:
        return std::make_unique<ScreenshotStep>(frame, step.argument);
    case StepKind::Exit:
        return std::make_unique<ExitStep>(frame);
    }
    return nullptr;
}

} // namespace velmhost
