// The application object, whose references may be counted by somebody else.
#pragma once

#include <afxwin.h>
#include <afxdisp.h>

#include "automation/DispatchObject.h"

namespace velmhost
{

class ApplicationObject : public DispatchObject
{
    // Construction
public:
    // Begins with one reference of its own, which belongs to the maker. While there is an owner, the
    // clients' references are with it.
    ApplicationObject(std::shared_ptr<AutomationState> state, ReferenceOwner* owner);

    // Attributes
public:
    // References that clients hold now.
    long ClientReferences() { return m_owner ? m_owner->ClientReferences() : m_references - 1; }

    // Operations
public:
    // Takes over the count of clients' references from the owner, which is about to die.
    void LeaveOwner();

    // Implementation
public:
    STDMETHODIMP_(ULONG) AddRef() override;
    STDMETHODIMP_(ULONG) Release() override;

private:
    ReferenceOwner* m_owner;
};

} // namespace velmhost
