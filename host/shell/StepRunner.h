// Makes the steps of an unattended run, one after the other.
#pragma once

#include <afxwin.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "shell/StepAction.h"

namespace velmhost
{

// Runs on a timer, so that it goes on inside the loops of menus and message boxes. Each step waits until the
// window is idle. A step that fails is told of, and the next one is made all the same; after an Exit step
// none is.
class CStepRunner : public CWnd
{
    // Construction
public:
    // `failed` is called with each failure: the step as it is written on the command line, and the reason.
    // `finished` is called when the last step is made or was given up.
    CStepRunner(std::function<void(const std::wstring& step, const std::wstring& reason)> failed,
                std::function<void()> finished);
    ~CStepRunner() override;

    // Attributes
public:
    bool IsRunning() const { return m_frame != nullptr; }

    // Operations
public:
    // Begins. `frame` must live until Stop is called or the run has finished. False when there is no timer.
    bool Start(CHostFrame& frame, const std::vector<Step>& steps);
    // Gives up what is left; `finished` is called when something ran.
    void Stop();

    // Implementation
protected:
    afx_msg void OnTimer(UINT_PTR nIDEvent);
    DECLARE_MESSAGE_MAP()

private:
    void EndStep(const std::wstring& failure);
    void Finish();

    std::function<void(const std::wstring&, const std::wstring&)> m_failed;
    std::function<void()> m_finished;
    CHostFrame* m_frame = nullptr;
    std::vector<Step> m_steps;
    std::size_t m_next = 0;
    std::shared_ptr<StepAction> m_action;
    ULONGLONG m_deadline = 0;
    bool m_ticking = false;
};

// A step as it is written on the command line.
std::wstring StepText(const Step& step);

} // namespace velmhost
