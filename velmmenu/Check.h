// Looking for entries that do not do what their author expects.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "Description.h"
#include "Findings.h"

#include "model/HostElements.h"

namespace velmmenu
{

// All findings of a description, built into the host of this program for comparison. `bitmaps` is the
// folder in which bitmaps are sought; without one they are not.
std::vector<Finding> Check(const Description& description, const std::vector<std::wstring>& messages,
                           const std::optional<std::wstring>& bitmaps);

// The parts of it.

// Holders: missing, without a name, a name without effect; elements that are never looked at; what the
// host said while it built (`messages`).
void CheckHolders(const Description& description, const std::vector<std::wstring>& messages,
                  Findings& findings);

// The entries of a menu and of all its cascades, beside what the host was given; `built` is null when there
// is nothing to compare with.
void CheckMenu(const std::vector<Element*>& entries, const velmhost::Menu* built, Findings& findings);

// The entries of a toolbar and of all its fly-outs.
void CheckToolBar(const std::vector<Element*>& entries, const std::optional<std::wstring>& bitmaps,
                  Findings& findings);

enum class ElementKind
{
    Holder,
    MenuEntry,
    ToolBarEntry
};

// Attributes that are never read on this kind of element.
void CheckAttributes(const Element& element, ElementKind kind, Findings& findings);

} // namespace velmmenu
