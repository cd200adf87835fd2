#include "shell/CommandText.h"

#include <cwctype>

#include "model/MenuText.h"

namespace velmhost
{

std::wstring VisibleCommandText(const std::wstring& text)
{
    std::wstring shown;
    for (const wchar_t ch : text) {
        if (ch < 32 || ch == 127) {
            shown += L'^';
            shown += ch == 127 ? L'?' : static_cast<wchar_t>(ch + 64);
        } else {
            shown += ch;
        }
    }
    return shown;
}

std::wstring FirstCommandWord(const std::wstring& text)
{
    std::size_t at = 0;
    while (at < text.size() && (text[at] <= L' ' || text[at] == L'_' || text[at] == L'.' || text[at] == L'-'))
        ++at;
    std::wstring word;
    for (; at < text.size() && text[at] > L' ' && text[at] != L';'; ++at)
        word += static_cast<wchar_t>(std::towupper(text[at]));
    return word;
}

bool LabelAnswersTo(const std::wstring& label, const std::wstring& name)
{
    return label == name || SameName(CaptionOf(label), WithoutMnemonic(name));
}

std::vector<std::wstring> SplitLabelPath(const std::wstring& path)
{
    std::vector<std::wstring> labels(1);
    for (std::size_t i = 0; i < path.size(); ++i) {
        if (path[i] != L'|') {
            labels.back() += path[i];
        } else if (i + 1 < path.size() && path[i + 1] == L'|') {
            labels.back() += L'|';
            ++i;
        } else {
            labels.emplace_back();
        }
    }
    return labels;
}

} // namespace velmhost
