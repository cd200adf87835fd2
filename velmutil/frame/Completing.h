// Work of which only the result counts where memory or other resources run out.
#pragma once

#include <afxwin.h>

#include <exception>

// Runs `work` and tells whether it came to its end; the exception that ended it, if any, is dropped.
template <class Work>
bool Completes(Work work)
{
    try {
        work();
        return true;
    } catch (CException* e) {
        e->Delete();
    } catch (const std::exception&) {
    }
    return false;
}
