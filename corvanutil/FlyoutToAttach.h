// The step that makes a toolbar the fly-out of a button.
#pragma once

#include "HostObject.h"

// A fly-out toolbar on the way to its button. If that fails, neither a button that opens nothing nor
// an empty toolbar stays on the screen; the toolbar, then hidden, goes with the next run. Where the host
// does not hide it, it is deleted.
class CFlyoutToAttach
{
    // Construction
public:
    // `flyout` must outlive this object. It may be null, and then nothing happens.
    explicit CFlyoutToAttach(const CHostObject& flyout) : m_flyout(flyout) {}
    CFlyoutToAttach(const CFlyoutToAttach&) = delete;
    CFlyoutToAttach& operator=(const CFlyoutToAttach&) = delete;

    // Operations
public:
    // Attaches the toolbar to `button` and hides it. Throws COleDispatchException*; if it could not be
    // attached, the button is deleted before, so the toolbar that carries it must be visible until this
    // returns.
    void AttachTo(const CHostObject& button);

    // Implementation
public:
    ~CFlyoutToAttach();

private:
    const CHostObject& m_flyout;
    bool m_attached = false;
    bool m_hidden = false;
};
