// The parts of the host's object tree that menus and toolbars are made in.
#pragma once

#include <string>

#include "HostObject.h"

// The menu group that everything is made in: the base group, which is the first of the application's
// menu groups, whatever its name. Throws COleDispatchException*.
CHostObject BaseGroup(const CHostObject& application);

// The element of `collection` whose Name is `name`, the mnemonic sign `&` included; null when there is
// none. Of several the first is taken whose letters are the same in case too, otherwise the first whose
// letters differ in case only, which the host takes as the same name. The elements are looked at one by
// one, because the collection's own look-up by name raises an error for a missing one. Throws
// COleDispatchException*.
CHostObject FindByName(const CHostObject& collection, const std::wstring& name);

// Whether two names are the same for the host, which looks at letters and not at their case. Rests on
// CompareStringOrdinal.
bool SameInAnyCase(const std::wstring& a, const std::wstring& b);

// Deletes all items of a menu or toolbar, the last first, so that no separator comes to stand first or
// beside another on the way. Throws COleDispatchException*; the items deleted until then are gone.
void DeleteItems(const CHostObject& container);
