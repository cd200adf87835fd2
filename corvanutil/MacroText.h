// Commands as descriptions write them, and as the host wants them.
#pragma once

#include <string>
#include <string_view>

// Translates the caret notation of `command`: a caret followed by one of the characters '@' to '_', or
// by a letter of either case, becomes the control character that the notation stands for (^C: 3, ^[:
// 27, ^@: 0). The pairs are taken from left to right, so the second caret of "^^" is the character that
// is turned into a control character. A caret at the end or before any other character stays. The
// host's automation does not translate the notation itself.
std::wstring TranslateCarets(std::wstring_view command);

// What of a translated command can be shown to the user: the text without control characters, and
// without blanks at its ends. May be empty.
std::wstring PrintablePart(std::wstring_view command);
