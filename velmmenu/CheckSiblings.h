// Names and mnemonics of entries that stand beside each other.
#pragma once

#include <string>
#include <vector>

#include "Findings.h"

namespace velmmenu
{

struct Sibling
{
    unsigned line = 0;
    std::wstring label;
    bool needsMnemonic = false; // it is chosen by the user
};

// Names that are shown twice, mnemonics that are used twice, and entries without one beside others that
// have one. Labels with expressions of the host are left alone.
void CheckMenuSiblings(const std::vector<Sibling>& siblings, Findings& findings);

// Names that are used twice.
void CheckToolBarSiblings(const std::vector<Sibling>& siblings, Findings& findings);

} // namespace velmmenu
