#include "UserHandles.h"

#include <afxwin.h>

namespace lifecycle
{
namespace
{

// A user object's handle is its place in a table; the upper word tells users of the place apart and may be 0.
template <class Handle, class Predicate>
long long Count(Predicate isOne)
{
    constexpr UINT_PTR first = 0x20, last = 0xFFEF;
    long long count = 0;
    for (UINT_PTR value = first; value <= last; value += 2)
        count += isOne(reinterpret_cast<Handle>(value));
    return count;
}

} // namespace

long long CountMenus()
{
    return Count<HMENU>([](HMENU menu) { return ::IsMenu(menu) != FALSE; });
}

long long CountIcons()
{
    return Count<HICON>([](HICON icon) {
        ICONINFO info{};
        if (!::GetIconInfo(icon, &info))
            return false;
        ::DeleteObject(info.hbmMask);
        if (info.hbmColor)
            ::DeleteObject(info.hbmColor);
        return true;
    });
}

long long CountAccelerators()
{
    return Count<HACCEL>([](HACCEL table) { return ::CopyAcceleratorTable(table, nullptr, 0) > 0; });
}

} // namespace lifecycle
