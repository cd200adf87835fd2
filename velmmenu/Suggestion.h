// Guessing which name was meant.
#pragma once

#include <initializer_list>
#include <string>

namespace velmmenu
{

// The one of `names` that `written` was most likely meant to be; empty when none is near. Near are names
// that differ in case only; that lie within two changes of a letter, or one for names of up to four
// letters; and those of which one holds the other's letters in their order, beginning with the same one.
std::wstring NearestName(const std::wstring& written, std::initializer_list<const wchar_t*> names);

// "; did you mean X?" for a name found, else empty.
std::wstring DidYouMean(const std::wstring& name);

} // namespace velmmenu
