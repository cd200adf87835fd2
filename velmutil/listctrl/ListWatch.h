// Whether a list has survived a call that its parent may have answered in any way.
#pragma once

#include "listctrl/XListCtrl.h"

// Lives on the stack of code of the list across calls that reach other people's handlers. Once the window
// goes, its rows and records go; once the object goes, not even `this` may be touched.
class CXListCtrl::Watch
{
public:
    explicit Watch(CXListCtrl& list);
    ~Watch();
    Watch(const Watch&) = delete;
    Watch& operator=(const Watch&) = delete;

    // The window is no more, or is about to end.
    bool IsGone() const { return m_isGone; }
    // The object is no more.
    bool IsDeleted() const { return m_isDeleted; }
    // Records have been freed since this was made: pointers to any may dangle.
    bool AreRecordsFreed() const { return m_isGone || m_list->m_recordsFreed != m_recordsFreed; }

    // Tell all that watch a list.
    static void TellGone(CXListCtrl& list);
    static void TellDeleted(CXListCtrl& list);

private:
    CXListCtrl* m_list;
    Watch* m_outer;
    unsigned m_recordsFreed;
    bool m_isGone = false;
    bool m_isDeleted = false;
};
