// Texts that go to the command line, and labels, as a reader and as the command processor see them.
#pragma once

#include <string>
#include <vector>

namespace velmhost
{

// The text with each control character (0 to 31) made visible as a caret and the letter 64 places
// above it, and character 127 as "^?". All other characters stay as they are, so what is shown is meant
// for reading, not for reading back.
std::wstring VisibleCommandText(const std::wstring& text);

// The first command word of a text, in capitals: cancels and blanks in front of it, and the prefixes
// "_", "." and "-", are skipped; it ends at a blank, a semicolon or a control character. Empty when
// there is none.
std::wstring FirstCommandWord(const std::wstring& text);

// Whether a label answers to a name: exactly, or by what the user sees of both, without regard to case.
bool LabelAnswersTo(const std::wstring& label, const std::wstring& name);

// A path of labels: split at each bar; a doubled bar stands for one in a label. Never empty.
std::vector<std::wstring> SplitLabelPath(const std::wstring& path);

} // namespace velmhost
