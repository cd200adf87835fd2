#include "automation/HostAutomation.h"

#include <utility>

#include "automation/ApplicationObject.h"
#include "automation/AutomationState.h"

namespace velmhost
{

HostAutomation::HostAutomation(HostModel& model, ReferenceOwner* owner)
    : m_state(std::make_shared<AutomationState>()), m_application(new ApplicationObject(m_state, owner))
{
    m_state->model = &model;
    m_state->application = m_application;
}

HostAutomation::~HostAutomation()
{
    m_state->model = nullptr;
    m_state->shell = nullptr;
    m_state->application = nullptr;
    m_application->LeaveOwner();
    m_application->Release();
}

IDispatch* HostAutomation::Application() const
{
    return m_application;
}

HostShell* HostAutomation::Shell() const
{
    return m_state->shell;
}

void HostAutomation::SetShell(HostShell* shell)
{
    m_state->shell = shell;
}

long HostAutomation::LiveObjects() const
{
    return m_state->liveObjects;
}

long HostAutomation::OutstandingReferences() const
{
    return m_state->references;
}

long HostAutomation::ApplicationReferences() const
{
    return m_application->ClientReferences();
}

void HostAutomation::FailInvoke(unsigned n, const InvokeFault& fault)
{
    m_state->SetFault(n, fault);
}

unsigned HostAutomation::InvokeCount() const
{
    return m_state->invokeCount;
}

void HostAutomation::KeepLog(bool keep)
{
    m_state->keepLog = keep;
}

std::vector<std::wstring> HostAutomation::TakeLog()
{
    return std::exchange(m_state->log, {});
}

} // namespace velmhost
