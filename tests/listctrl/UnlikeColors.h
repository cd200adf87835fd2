// System colours that cannot be mixed up, as the library sees them.
#pragma once

#include "kit/ReplacedImports.h"

// No two alike, for any index.
inline DWORD WINAPI UnlikeColor(int index)
{
    return RGB(10 + 5 * index, 100, 200 - 5 * index);
}

// Gives the library system colours of which no two are alike, for as long as it lives.
class UnlikeSystemColors
{
public:
    bool AreGiven() const { return m_replaced.IsReplaced(); }

private:
    CReplacedImport m_replaced{"USER32.dll", "GetSysColor", reinterpret_cast<void*>(UnlikeColor)};
};
