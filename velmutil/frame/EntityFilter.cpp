#include "frame/EntityFilter.h"

CEntityFilter::CEntityFilter()
    : m_bFlag1(true), m_bFlag2(false), m_bFlag3(true), m_bFlag4(true), m_bFlag5(true), m_bFlag6(true),
      m_bFlag7(true), m_nValue(0)
{
}

CEntityFilter::~CEntityFilter() = default;
