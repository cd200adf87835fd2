// Strings of COM that the library cannot make.
#pragma once

#include "kit/ReplacedImports.h"

// While one lives, the library can make `left` more strings of COM, with or without a given length, and
// then none. One at a time.
class CFailingBstrs
{
public:
    explicit CFailingBstrs(int left)
    {
        s_left = left;
        s_hasFailed = false;
    }
    CFailingBstrs(const CFailingBstrs&) = delete;
    CFailingBstrs& operator=(const CFailingBstrs&) = delete;

    // False where the library makes them in another way, which depends on the toolchain.
    bool AreReplaced() const { return m_plain.IsReplaced() && m_withLength.IsReplaced(); }
    bool HasFailed() const { return s_hasFailed; }

private:
    static bool MayMake()
    {
        if (s_left-- > 0)
            return true;
        s_hasFailed = true;
        return false;
    }
    static BSTR WINAPI Make(const OLECHAR* text) { return MayMake() ? SysAllocString(text) : nullptr; }
    static BSTR WINAPI MakeWithLength(const OLECHAR* text, UINT length)
    {
        return MayMake() ? SysAllocStringLen(text, length) : nullptr;
    }

    inline static int s_left = 0;
    inline static bool s_hasFailed = false;

    const CReplacedImport m_plain{"OLEAUT32.dll", "SysAllocString", reinterpret_cast<void*>(&Make)};
    const CReplacedImport m_withLength{"OLEAUT32.dll", "SysAllocStringLen",
                                       reinterpret_cast<void*>(&MakeWithLength)};
};
