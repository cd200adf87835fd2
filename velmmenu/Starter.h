#pragma once

namespace velmmenu
{

// A description to begin with: a small menu and toolbar with everything explained in comments. Lines end
// with line feeds.
extern const wchar_t StarterText[];

} // namespace velmmenu
