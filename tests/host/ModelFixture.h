// A host model with short names for what the tests of it do.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "model/HostModel.h"

namespace hosttest
{

class ModelFixture : public testing::Test
{
protected:
    velmhost::ElementId Base() const { return m_model.Groups().at(0)->id; }
    velmhost::ElementId AddMenu(const wchar_t* name = L"&Tools") { return m_model.AddMenu(Base(), name).id; }
    velmhost::ElementId AddToolbar(const wchar_t* name = L"Draw")
    {
        return m_model.AddToolbar(Base(), name).id;
    }
    velmhost::ElementId AddItem(velmhost::ElementId menu, const wchar_t* label,
                                const velmhost::Index& before = velmhost::kAtEnd)
    {
        return m_model.AddMenuItem(menu, before, label, L"macro ")->id;
    }
    velmhost::ElementId AddButton(velmhost::ElementId toolbar, const wchar_t* name,
                                  const velmhost::Index& before = velmhost::kAtEnd)
    {
        return m_model.AddToolbarButton(toolbar, before, name, L"help", L"macro ", false).id;
    }

    // Labels of a menu's items joined by blanks, separators as `-`.
    std::wstring Labels(velmhost::ElementId menu) const
    {
        std::wstring labels;
        for (const auto& item : m_model.FindMenu(menu)->items) {
            labels += labels.empty() ? L"" : L" ";
            labels += item->type == velmhost::MenuItemType::Separator ? L"-" : item->label;
        }
        return labels;
    }
    std::wstring ButtonNames(velmhost::ElementId toolbar) const
    {
        std::wstring names;
        for (const auto& item : m_model.FindToolbar(toolbar)->items) {
            names += names.empty() ? L"" : L" ";
            names += item->type == velmhost::ToolbarItemType::Separator ? L"-" : item->name;
        }
        return names;
    }
    std::wstring BarNames() const
    {
        std::wstring names;
        for (const velmhost::Menu* menu : m_model.MenuBar())
            names += (names.empty() ? L"" : L" ") + menu->name;
        return names;
    }

    velmhost::HostModel m_model;
};

// The reason for which `act` is refused; fails the test when it is not.
template <class Act>
velmhost::Refusal ReasonOf(Act act)
{
    try {
        act();
    } catch (const velmhost::HostError& error) {
        EXPECT_FALSE(error.Description().empty());
        return error.Reason();
    }
    ADD_FAILURE() << "was not refused";
    return velmhost::Refusal::Busy;
}

} // namespace hosttest
