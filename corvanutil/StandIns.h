// What takes the place of empty texts in hosts that refuse them.
#pragma once

#include "Attempt.h"
#include "HostObject.h"

// As a label: looks the same as none.
inline constexpr wchar_t LabelStandIn[] = L" ";

// As a macro: the control character 26, with which a macro ends without the Enter that the host may
// add. Of all texts that are not empty it comes closest to sending nothing; a blank would be an Enter,
// which repeats the last command.
inline constexpr wchar_t MacroStandIn[] = L"\x1A";

// The text, or what stands for it when it is empty.
inline std::wstring OrStandIn(const std::wstring& text, const wchar_t* standIn)
{
    return text.empty() ? std::wstring(standIn) : text;
}

// What `add` gives; if it throws COleDispatchException*, what `addWithStandIns` gives. If that throws
// too, the first exception leaves.
template <class Add, class AddWithStandIns>
CHostObject AddElse(Add add, AddWithStandIns addWithStandIns)
{
    try {
        return add();
    } catch (COleDispatchException* refusal) {
        CHostObject added;
        if (!Attempt([&] { added = addWithStandIns(); }))
            throw;
        refusal->Delete();
        return added;
    }
}
