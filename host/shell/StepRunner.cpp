#include "shell/StepRunner.h"

namespace velmhost
{

namespace
{

constexpr UINT_PTR kTickTimer = 1;
constexpr UINT kTickPeriod = 10;
// A step that has not come to its end by then never will: what it clicked did not answer.
constexpr ULONGLONG kStepPatience = 30000;

} // namespace

BEGIN_MESSAGE_MAP(CStepRunner, CWnd)
ON_WM_TIMER()
END_MESSAGE_MAP()

CStepRunner::CStepRunner(std::function<void(const std::wstring&, const std::wstring&)> failed,
                         std::function<void()> finished)
    : m_failed(std::move(failed)), m_finished(std::move(finished))
{
}

CStepRunner::~CStepRunner()
{
    DestroyWindow();
}

bool CStepRunner::Start(CHostFrame& frame, const std::vector<Step>& steps)
{
    if (!m_hWnd && !CreateEx(0, AfxRegisterWndClass(0), L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr))
        return false;
    m_frame = &frame;
    m_steps = steps;
    m_next = 0;
    m_action.reset();
    return SetTimer(kTickTimer, kTickPeriod, nullptr) != 0;
}

void CStepRunner::Stop()
{
    if (m_frame)
        Finish();
}

void CStepRunner::OnTimer(UINT_PTR)
{
    // A tick may open a loop of its own, in which the timer goes on.
    if (m_ticking || !m_frame)
        return;
    if (!m_action) {
        if (!m_frame->IsIdle())
            return;
        if (m_next == m_steps.size())
            return Finish();
        m_action = MakeStepAction(*m_frame, m_steps[m_next]);
        m_deadline = ::GetTickCount64() + kStepPatience;
    }
    // The window may go during the tick, and the run with it.
    const std::shared_ptr<StepAction> action = m_action;
    m_ticking = true;
    const StepAction::Progress progress = action->Tick();
    m_ticking = false;
    if (m_action != action)
        return;
    if (progress == StepAction::Progress::Failed)
        EndStep(action->Reason());
    else if (progress == StepAction::Progress::Done)
        EndStep(std::wstring());
    else if (::GetTickCount64() >= m_deadline)
        EndStep(L"the host did not answer");
}

void CStepRunner::EndStep(const std::wstring& failure)
{
    const Step step = m_steps[m_next++];
    m_action.reset();
    if (!failure.empty())
        m_failed(StepText(step), failure);
    if (step.kind == StepKind::Exit)
        Finish();
}

void CStepRunner::Finish()
{
    KillTimer(kTickTimer);
    m_action.reset();
    std::vector<Step>().swap(m_steps);
    m_frame = nullptr;
    m_finished();
}

std::wstring StepText(const Step& step)
{
    switch (step.kind) {
    case StepKind::PressItem:
        return L"--press-item \"" + step.argument + L"\"";
    case StepKind::PressButton:
        return L"--press-button \"" + step.argument + L"\"";
    case StepKind::OpenMenu:
        return L"--open-menu \"" + step.argument + L"\"";
    case StepKind::OpenFlyout:
        return L"--open-flyout \"" + step.argument + L"\"";
    case StepKind::Type:
        return L"--type \"" + step.argument + L"\"";
    case StepKind::Screenshot:
        return L"--screenshot \"" + step.argument + L"\"";
    case StepKind::ClosePopups:
        return L"--close-popups";
    case StepKind::WaitIdle:
        return L"--wait-idle";
    case StepKind::Exit:
        return L"--exit";
    }
    return {};
}

} // namespace velmhost
