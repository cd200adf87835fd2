#include "listctrl/BufferedDC.h"

CBufferedDC::CBufferedDC(CDC* target) : m_target(target)
{
    target->GetClipBox(&m_area);
    CreateCompatibleDC(target);
    m_bitmap.CreateCompatibleBitmap(target, m_area.Width(), m_area.Height());
    // As handles, so that nothing can fail while it is selected.
    m_oldBitmap = ::SelectObject(m_hDC, m_bitmap.GetSafeHandle());
    SetWindowOrg(m_area.left, m_area.top);
}

CBufferedDC::~CBufferedDC()
{
    m_target->BitBlt(m_area.left, m_area.top, m_area.Width(), m_area.Height(), this, m_area.left, m_area.top,
                     SRCCOPY);
    ::SelectObject(m_hDC, m_oldBitmap);
}
