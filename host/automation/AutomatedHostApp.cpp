#include "automation/AutomatedHostApp.h"

namespace velmhost
{

CAutomatedHostApp::CAutomatedHostApp() : m_automation(m_model, this)
{
    EnableAutomation();
}

CAutomatedHostApp::~CAutomatedHostApp() = default;

void CAutomatedHostApp::OnFinalRelease()
{
    // The program object is static; one release too many must not delete it.
}

LPUNKNOWN CAutomatedHostApp::GetInterfaceHook(const void* iid)
{
    const IID& wanted = *static_cast<const IID*>(iid);
    if (wanted == IID_IDispatch || wanted == IID_IUnknown)
        return m_automation.Application();
    return CWinApp::GetInterfaceHook(iid);
}

ULONG CAutomatedHostApp::AddReference()
{
    return ExternalAddRef();
}

ULONG CAutomatedHostApp::ReleaseReference()
{
    return ExternalRelease();
}

long CAutomatedHostApp::ClientReferences()
{
    ExternalAddRef();
    return static_cast<long>(ExternalRelease()) - 1;
}

} // namespace velmhost
