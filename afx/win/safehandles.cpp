// The GetSafe... members, which may be called through a null pointer.
#include "afxcmn.h"

namespace
{
// The compiler takes it for granted that `this` is not null; the volatile copy makes it look.
bool IsNull(const void* pObject)
{
    const void* volatile pCopy = pObject;
    return pCopy == nullptr;
}
} // namespace

HWND CWnd::GetSafeHwnd() const
{
    return IsNull(this) ? nullptr : m_hWnd;
}
HDC CDC::GetSafeHdc() const
{
    return IsNull(this) ? nullptr : m_hDC;
}
HGDIOBJ CGdiObject::GetSafeHandle() const
{
    return IsNull(this) ? nullptr : m_hObject;
}
HMENU CMenu::GetSafeHmenu() const
{
    return IsNull(this) ? nullptr : m_hMenu;
}
HIMAGELIST CImageList::GetSafeHandle() const
{
    return IsNull(this) ? nullptr : m_hImageList;
}
