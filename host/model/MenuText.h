// What is shown of names and labels, and how they are compared.
#pragma once

#include <string>
#include <string_view>

namespace velmhost
{

// Returns `text` without its mnemonic marks: each `&` is dropped, of two in a row one stays.
std::wstring WithoutMnemonic(const std::wstring& text);

// Returns what the user sees of a menu item's label: the label without `$(...)` expressions, nested
// parentheses followed, and without mnemonic marks. An expression that is never closed goes up to the
// end. The host does not evaluate expressions.
std::wstring CaptionOf(const std::wstring& label);

// True when two names are the same without regard to case; ordinal, in all scripts.
bool SameName(std::wstring_view left, std::wstring_view right) noexcept;

} // namespace velmhost
