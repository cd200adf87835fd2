// How the model finds places in its collections. Used by its own sources only.
#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "model/HostModel.h"
#include "model/MenuText.h"

namespace velmhost
{

inline const std::wstring& NameOf(const MenuItem& item)
{
    return item.label;
}
template <class T>
const std::wstring& NameOf(const T& element)
{
    return element.name;
}

inline bool HasName(const MenuItem& item)
{
    return item.type != MenuItemType::Separator;
}
inline bool HasName(const ToolbarItem& item)
{
    return item.type != ToolbarItemType::Separator;
}
template <class T>
bool HasName(const T&)
{
    return true;
}

// Position of the first element called `name`, or the number of elements. Separators have no name.
template <class Elements>
size_t PositionOfName(const Elements& elements, const std::wstring& name)
{
    auto found = std::find_if(elements.begin(), elements.end(), [&name](const auto& element) {
        return HasName(*element) && SameName(NameOf(*element), name);
    });
    return static_cast<size_t>(found - elements.begin());
}

template <class Elements>
size_t PositionFound(const Elements& elements, const Index& index)
{
    size_t position = elements.size();
    if (const auto* name = std::get_if<std::wstring>(&index))
        position = PositionOfName(elements, *name);
    else if (long number = std::get<long>(index); number >= 0)
        position = static_cast<size_t>(number);
    if (position >= elements.size())
        throw HostError(Refusal::NotFound, L"There is no element with this index or name.");
    return position;
}

template <class Elements>
size_t PositionToInsert(const Elements& elements, const Index& index)
{
    if (const auto* name = std::get_if<std::wstring>(&index))
        return name->empty() ? elements.size() : PositionOfName(elements, *name);
    const long number = std::get<long>(index);
    if (number < 0)
        throw HostError(Refusal::NotFound, L"The index is negative.");
    return std::min(static_cast<size_t>(number), elements.size());
}

// Refuses a separator at `position` that would be first or stand beside another one.
template <class Elements, class Type>
void RequireSeparatorAllowed(const Elements& elements, size_t position, Type separator)
{
    const bool first = position == 0;
    const bool doubled = (!first && elements[position - 1]->type == separator) ||
                         (position < elements.size() && elements[position]->type == separator);
    if (first || doubled)
        throw HostError(Refusal::NotAllowed,
                        L"A separator can neither be first nor stand beside another separator.");
}

// Refuses what is no tag: letters, digits and `_`, at least one of them.
inline void RequireTag(const std::wstring& tag)
{
    auto allowed = [](wchar_t c) {
        return (c >= L'0' && c <= L'9') || (c >= L'A' && c <= L'Z') || (c >= L'a' && c <= L'z') || c == L'_';
    };
    if (tag.empty() || !std::all_of(tag.begin(), tag.end(), allowed))
        throw HostError(Refusal::Invalid, L"A tag consists of letters, digits and underscores.");
}

[[noreturn]] inline void RefuseTakenTag()
{
    throw HostError(Refusal::Duplicate, L"Another item has this tag.");
}

} // namespace velmhost
