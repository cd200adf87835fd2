#include "automation/ApplicationObject.h"

namespace velmhost
{

ApplicationObject::ApplicationObject(std::shared_ptr<AutomationState> state, ReferenceOwner* owner)
    : DispatchObject(std::move(state), ApplicationClass(), 0), m_owner(owner)
{
}

void ApplicationObject::LeaveOwner()
{
    if (m_owner)
        m_references += m_owner->ClientReferences();
    m_owner = nullptr;
}

STDMETHODIMP_(ULONG) ApplicationObject::AddRef()
{
    return m_owner ? m_owner->AddReference() : static_cast<ULONG>(++m_references);
}

STDMETHODIMP_(ULONG) ApplicationObject::Release()
{
    if (m_owner)
        return m_owner->ReleaseReference();
    const LONG left = --m_references;
    if (left == 0)
        delete this;
    return static_cast<ULONG>(left);
}

} // namespace velmhost
