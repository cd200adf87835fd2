// Work whose failure must not become the failure of the operation it belongs to.
#pragma once

#include <afxwin.h>

#include <exception>

// Runs `action` and tells whether it came to its end; the exception that ended it, if any, is dropped.
// For clean-ups, also on paths that fail already: there the first failure is the one to report.
template <class Action>
bool Attempt(Action action) noexcept
{
    try {
        action();
        return true;
    } catch (CException* exception) {
        exception->Delete();
    } catch (const std::exception&) {
    }
    return false;
}
