// An observer that does what a test tells it.
#pragma once

#include <functional>
#include <utility>

#include "model/HostModel.h"

namespace hosttest
{

// Calls `act` for each change, but not for those that `act` makes itself, for as long as it lives.
class ModelReaction : public velmhost::HostModelObserver
{
public:
    ModelReaction(velmhost::HostModel& model, std::function<void(const velmhost::ModelChange&)> act)
        : m_model(model), m_act(std::move(act))
    {
        m_model.AddObserver(*this);
    }
    ~ModelReaction() { m_model.RemoveObserver(*this); }
    ModelReaction(const ModelReaction&) = delete;
    ModelReaction& operator=(const ModelReaction&) = delete;

    void OnModelChanged(const velmhost::ModelChange& change) override
    {
        if (std::exchange(m_acting, true))
            return;
        m_act(change);
        m_acting = false;
    }

private:
    velmhost::HostModel& m_model;
    std::function<void(const velmhost::ModelChange&)> m_act;
    bool m_acting = false;
};

// Takes each element away again as soon as it is added; a menu with its group.
inline auto TakeAway(velmhost::HostModel& model)
{
    return [&model](const velmhost::ModelChange& change) {
        using What = velmhost::ModelChange::What;
        if (change.kind != velmhost::ModelChange::Kind::Added)
            return;
        switch (change.what) {
        case What::Group:
            return model.RemoveGroup(change.element);
        case What::Menu:
            return model.RemoveGroup(change.parent);
        case What::MenuItem:
            return model.RemoveMenuItem(change.element);
        case What::Toolbar:
            return model.RemoveToolbar(change.element);
        case What::ToolbarItem:
            return model.RemoveToolbarItem(change.element);
        case What::MenuBar:
        case What::LargeButtons:
            return;
        }
    };
}

} // namespace hosttest
