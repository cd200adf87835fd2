// The single steps of an unattended run.
#pragma once

#include <afxwin.h>

#include <memory>
#include <string>

#include "shell/HostFrame.h"
#include "shell/ShellOptions.h"

namespace velmhost
{

// A step under way. It is driven by ticks that come when all input and painting so far has been dispatched,
// also from inside menu loops; at each tick it does at most one thing and returns at once.
class StepAction
{
public:
    enum class Progress
    {
        Again,
        Done,
        Failed
    };

    virtual ~StepAction() = default;
    virtual Progress Tick() = 0;

    // After Failed: why, in a sentence without full stop.
    const std::wstring& Reason() const { return m_reason; }

protected:
    Progress Fail(const std::wstring& reason)
    {
        m_reason = reason;
        return Progress::Failed;
    }

private:
    std::wstring m_reason;
};

// Each makes the action of a step on a frame, which must live until the action is dropped.
std::unique_ptr<StepAction> MakeStepAction(CHostFrame& frame, const Step& step);
std::unique_ptr<StepAction> MakeMenuStep(CHostFrame& frame, const std::wstring& path, bool press);
std::unique_ptr<StepAction> MakeToolbarStep(CHostFrame& frame, const std::wstring& path, bool press);

} // namespace velmhost
