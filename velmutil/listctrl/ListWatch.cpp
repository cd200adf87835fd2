#include "listctrl/ListWatch.h"

CXListCtrl::Watch::Watch(CXListCtrl& list)
    : m_list(&list), m_outer(list.m_watch), m_recordsFreed(list.m_recordsFreed)
{
    list.m_watch = this;
}

CXListCtrl::Watch::~Watch()
{
    if (!m_isDeleted)
        m_list->m_watch = m_outer;
}

void CXListCtrl::Watch::TellGone(CXListCtrl& list)
{
    for (Watch* watch = list.m_watch; watch != nullptr; watch = watch->m_outer)
        watch->m_isGone = true;
}

void CXListCtrl::Watch::TellDeleted(CXListCtrl& list)
{
    for (Watch* watch = list.m_watch; watch != nullptr; watch = watch->m_outer) {
        watch->m_isGone = true;
        watch->m_isDeleted = true;
    }
}
