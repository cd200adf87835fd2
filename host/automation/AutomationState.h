// What all automation objects of one host share.
#pragma once

#include <afxwin.h>
#include <afxdisp.h>

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "automation/HostAutomation.h"

namespace velmhost
{

class DispatchObject;
struct ClassTable;

// Kept alive by the objects; the pointers in it become null when HostAutomation goes.
class AutomationState
{
    // Attributes
public:
    HostModel* model = nullptr;
    HostShell* shell = nullptr;
    IDispatch* application = nullptr;

    long liveObjects = 0;
    long references = 0;
    unsigned invokeCount = 0;

    // The model; throws HostError (Gone) when there is none any more.
    HostModel& Model() const
    {
        if (model)
            return *model;
        throw HostError(Refusal::Gone, L"The host has closed.");
    }

    // Operations
public:
    // The object that stands for an element now, without a reference, or null.
    DispatchObject* FindObject(const ClassTable& table, ElementId id) const
    {
        auto found = m_objects.find({&table, id});
        return found == m_objects.end() ? nullptr : found->second;
    }
    void AddObject(const ClassTable& table, ElementId id, DispatchObject& object)
    {
        m_objects[{&table, id}] = &object;
    }
    void RemoveObject(const ClassTable& table, ElementId id) { m_objects.erase({&table, id}); }

    void SetFault(unsigned n, const InvokeFault& fault)
    {
        m_faultCountdown = n;
        m_fault = fault;
    }
    // The fault that the present Invoke must play, or null.
    const InvokeFault* NextFault()
    {
        if (m_faultCountdown == 0 || (m_faultCountdown > 1 && m_faultCountdown--))
            return nullptr;
        if (!m_fault.forever)
            m_faultCountdown = 0;
        return &m_fault;
    }

    bool keepLog = false;
    std::vector<std::wstring> log;

    // Implementation
private:
    std::map<std::pair<const ClassTable*, ElementId>, DispatchObject*> m_objects;
    unsigned m_faultCountdown = 0;
    InvokeFault m_fault;
};

} // namespace velmhost
