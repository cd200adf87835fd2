#include "CheckSiblings.h"

#include <afxwin.h>

#include <algorithm>
#include <unordered_map>

#include "model/MenuText.h"

namespace velmmenu
{

namespace
{

// The letter that opens an entry, in upper case; 0 for none.
wchar_t MnemonicOf(const std::wstring& label)
{
    for (std::size_t i = 0; i + 1 < label.size(); ++i) {
        if (label[i] != L'&')
            continue;
        if (label[i + 1] != L'&') {
            wchar_t letter = label[i + 1];
            ::CharUpperBuffW(&letter, 1);
            return letter;
        }
        ++i;
    }
    return 0;
}

bool HasExpression(const std::wstring& label)
{
    return label.find(L"$(") != std::wstring::npos;
}

std::wstring SameNameText(const Sibling& sibling, const Sibling& earlier)
{
    return Quoted(sibling.label) + L" has the name of the entry in line " + std::to_wstring(earlier.line);
}

// Remembers the first of each.
template <class Key>
class FirstOf
{
public:
    // The sibling that had the key first, if it was another one.
    const Sibling* Take(const Key& key, const Sibling& sibling)
    {
        const auto [place, isNew] = m_first.emplace(key, &sibling);
        return isNew ? nullptr : place->second;
    }

private:
    std::unordered_map<Key, const Sibling*> m_first;
};

// The same text for names that differ in case only.
std::wstring Folded(std::wstring name)
{
    ::CharUpperBuffW(name.data(), static_cast<DWORD>(name.size()));
    return name;
}

} // namespace

void CheckMenuSiblings(const std::vector<Sibling>& siblings, Findings& findings)
{
    const bool someHave = std::any_of(siblings.begin(), siblings.end(),
                                      [](const Sibling& sibling) { return MnemonicOf(sibling.label) != 0; });
    FirstOf<std::wstring> names;
    FirstOf<wchar_t> mnemonics;
    for (const Sibling& sibling : siblings) {
        if (sibling.label.empty() || HasExpression(sibling.label))
            continue;
        const wchar_t mnemonic = MnemonicOf(sibling.label);
        const Sibling* const namesake = names.Take(Folded(velmhost::CaptionOf(sibling.label)), sibling);
        const Sibling* const rival = mnemonic != 0 ? mnemonics.Take(mnemonic, sibling) : nullptr;
        if (namesake != nullptr) {
            findings.Add(sibling.line, SameNameText(sibling, *namesake));
        } else if (rival != nullptr) {
            findings.Add(sibling.line, L"the mnemonic " + std::wstring(1, mnemonic) + L" of " +
                                           Quoted(sibling.label) + L" is that of " + Quoted(rival->label) +
                                           L" in line " + std::to_wstring(rival->line));
        } else if (mnemonic == 0 && someHave && sibling.needsMnemonic) {
            findings.Add(sibling.line,
                         Quoted(sibling.label) + L" has no mnemonic (&amp;), and entries beside it have one");
        }
    }
}

void CheckToolBarSiblings(const std::vector<Sibling>& siblings, Findings& findings)
{
    FirstOf<std::wstring> names;
    for (const Sibling& sibling : siblings) {
        const Sibling* const namesake =
            sibling.label.empty() ? nullptr : names.Take(Folded(sibling.label), sibling);
        if (namesake != nullptr)
            findings.Add(sibling.line, SameNameText(sibling, *namesake));
    }
}

} // namespace velmmenu
