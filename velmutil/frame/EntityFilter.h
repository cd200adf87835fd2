// A record that add-ins fill and pass on.
#pragma once

#include <afxwin.h>
#include <afxcoll.h>

#include "frame/Portability.h"

// Seven flags, a number and a list of texts. What they mean is settled between the add-ins that use
// the record; this library gives them their initial values and frees the list. The order and the
// widths of the members are part of the interface.
class VELM_API CEntityFilter
{
public:
    // Every flag true but the second, the value 0, the list empty.
    CEntityFilter();

    // Flags of the add-ins that use the record.
    bool m_bFlag1;
    bool m_bFlag2;
    bool m_bFlag3;
    bool m_bFlag4;
    bool m_bFlag5;
    bool m_bFlag6;
    bool m_bFlag7;

    // A number and a list of texts of theirs.
    __int64 m_nValue;
    CStringArray m_arrList;

    // Frees the list.
    ~CEntityFilter();
};
