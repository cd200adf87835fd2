#include "FlyoutToAttach.h"

#include "Attempt.h"
#include "HostGroup.h"

void CFlyoutToAttach::AttachTo(const CHostObject& button)
{
    try {
        const CHostObject group = BaseGroup(m_flyout.Object(L"Application"));
        button.Call(L"AttachToolbarToFlyout", group.Text(L"Name"), m_flyout.Text(L"Name"));
    } catch (...) {
        Attempt([&button] { button.Call(L"Delete"); });
        throw;
    }
    m_attached = true;
    // Otherwise it also shows on its own, and for good if one of its buttons fails later.
    m_flyout.Put(L"Visible", false);
    m_hidden = true;
}

CFlyoutToAttach::~CFlyoutToAttach()
{
    if (m_flyout.IsNull() || m_hidden)
        return;
    const bool hidden = Attempt([this] { m_flyout.Put(L"Visible", false); });
    // Nobody would ever remove it: to a later run it is a toolbar that waits for its button.
    if (!hidden && !m_attached)
        TryDeleteToolbar(m_flyout);
}
