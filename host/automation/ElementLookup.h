// From automation objects to the elements that they stand for.
#pragma once

#include <memory>
#include <vector>

#include "automation/DispatchObject.h"

namespace velmhost
{

template <class T>
const T& RequireElement(const T* element)
{
    if (element)
        return *element;
    throw HostError(Refusal::Gone, L"The object no longer exists in the host.");
}

inline const MenuGroup& GroupOf(const DispatchObject& self)
{
    return RequireElement(self.Model().FindGroup(self.Id()));
}

inline const Menu& MenuOf(const DispatchObject& self)
{
    return RequireElement(self.Model().FindMenu(self.Id()));
}

inline const MenuItem& MenuItemOf(const DispatchObject& self)
{
    return RequireElement(self.Model().FindMenuItem(self.Id()));
}

inline const Toolbar& ToolbarOf(const DispatchObject& self)
{
    return RequireElement(self.Model().FindToolbar(self.Id()));
}

inline const ToolbarItem& ToolbarItemOf(const DispatchObject& self)
{
    return RequireElement(self.Model().FindToolbarItem(self.Id()));
}

template <class Elements>
std::vector<ElementId> IdsOf(const Elements& elements)
{
    std::vector<ElementId> ids;
    ids.reserve(elements.size());
    for (const auto& element : elements)
        ids.push_back(element->id);
    return ids;
}

// Member functions of the model as handlers: a property that takes text, a flag or a number.
template <void (HostModel::*Set)(ElementId, const std::wstring&)>
void PutText(DispatchObject& self, DispatchCall& call)
{
    (self.Model().*Set)(self.Id(), call.Text());
}

template <void (HostModel::*Set)(ElementId, bool)>
void PutFlag(DispatchObject& self, DispatchCall& call)
{
    (self.Model().*Set)(self.Id(), call.Flag());
}

template <void (HostModel::*Set)(ElementId, long)>
void PutNumber(DispatchObject& self, DispatchCall& call)
{
    (self.Model().*Set)(self.Id(), call.Number());
}

// A method without arguments.
template <void (HostModel::*Act)(ElementId)>
void RunOn(DispatchObject& self, DispatchCall&)
{
    (self.Model().*Act)(self.Id());
}

} // namespace velmhost
