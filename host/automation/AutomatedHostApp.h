// The host's application object of the framework, with the model and its automation inside.
#pragma once

#include <afxwin.h>
#include <afxdisp.h>

#include "automation/HostAutomation.h"
#include "model/HostModel.h"

namespace velmhost
{

// Base of the host program's CWinApp, and of programs that want to be a host in a test.
//
// GetIDispatch returns the automation application object. There is one count of references: the one of
// this CCmdTarget, which AddRef and Release of the application object use as well. So GetIDispatch(TRUE)
// adds one reference, and the caller's Release on the returned pointer takes that one back. The count
// begins with the one reference of the program itself, and the object is never deleted by it.
// HostAutomation::ApplicationReferences tells how many references clients hold.
class CAutomatedHostApp : public CWinApp, private ReferenceOwner
{
    // Construction
public:
    CAutomatedHostApp();
    ~CAutomatedHostApp() override;

    // Attributes
public:
    HostModel& Model() { return m_model; }
    HostAutomation& Automation() { return m_automation; }

    // Overridables
public:
    void OnFinalRelease() override;

    // Implementation
protected:
    LPUNKNOWN GetInterfaceHook(const void* iid) override;

private:
    ULONG AddReference() override;
    ULONG ReleaseReference() override;
    long ClientReferences() override;

    HostModel m_model;
    HostAutomation m_automation;
};

} // namespace velmhost
