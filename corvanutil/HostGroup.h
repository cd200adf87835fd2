// The parts of the host's object tree that menus and toolbars are made in.
#pragma once

#include <string>

#include "HostObject.h"

// The position in `groups`, the application's menu groups, of the base group, whatever its name: the first
// whose Type says so, or 0 when none does or the host's groups have no Type. Throws
// COleDispatchException*.
long BaseGroupIndex(const CHostObject& groups);

// The menu group that everything is made in, the base group. Throws COleDispatchException*.
CHostObject BaseGroup(const CHostObject& application);

// The element of `collection` whose Name is `name`, the mnemonic sign `&` included; null when there is
// none. Of several the first is taken whose letters are the same in case too, otherwise the first whose
// letters differ in case only, which the host takes as the same name. The elements are looked at one by
// one, because the collection's own look-up by name raises an error for a missing one; it is asked only
// when some element does not tell its name. Throws COleDispatchException* when the collection cannot be
// counted.
CHostObject FindByName(const CHostObject& collection, const std::wstring& name);

// Whether two names are the same for the host, which looks at letters and not at their case. Rests on
// CompareStringOrdinal.
bool SameInAnyCase(const std::wstring& a, const std::wstring& b);

// Deletes all items of a menu or toolbar, the last first, so that no separator comes to stand first or
// beside another on the way. Throws COleDispatchException*; the items deleted until then are gone.
void DeleteItems(const CHostObject& container);

// Deletes `toolbar`, a hidden one too, and tells whether the host did. A host may refuse it for hidden
// toolbars, so where it refuses, the toolbar is shown and the host is asked again. What stays then is
// hidden, if the host allows that.
bool TryDeleteToolbar(const CHostObject& toolbar) noexcept;
